// The save commands: checks, chooser request, overwrite question and messages.

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "OutputTestSupport.h"
#include "model/Services.h"
#include "output/ExcelFile.h"
#include "output/SaveCommands.h"
#include "output/TextExport.h"

namespace tessaly {
namespace {

using testing::fillSolvedGrid;
using testing::readFile;
using testing::TempDir;
using testing::writeFile;

struct SaveFixture {
  TempDir dir;
  ScriptedUserInterface ui;
  Session session{Services{&ui}};
  SaveFixture() {
    session.appDir = dir.dir();
    fillSolvedGrid(session);
  }
};

TEST(SaveCommands, IncompleteGridHasNoSolutionToSave) {
  SaveFixture f;
  f.session.grid[40].value = 0;
  f.ui.files.push_back(f.dir.file("never.csv"));
  EXPECT_FALSE(saveAsCsv(f.session));
  EXPECT_FALSE(saveAsTxt(f.session));
  EXPECT_FALSE(saveAsXls(f.session));
  EXPECT_EQ(f.ui.messages, (std::vector<std::string>{"There is no solution to save", "There is no solution to save",
                                                     "There is no solution to save"}));
  EXPECT_TRUE(f.ui.fileRequests.empty());
  EXPECT_FALSE(std::filesystem::exists(f.dir.file("never.csv")));
}

TEST(SaveCommands, ChooserRequestsNameTheKindOfFile) {
  SaveFixture f;
  saveAsCsv(f.session);
  saveAsTxt(f.session);
  saveAsXls(f.session);
  ASSERT_EQ(f.ui.fileRequests.size(), 3u);
  struct Expected {
    const char* title;
    const char* pattern;
    const char* typeName;
  };
  const Expected expected[] = {{"Select a CSV file to save Puzzle", "*.csv", "CSV Files"},
                               {"Select a TXT file to save Puzzle", "*.txt", "Text Files"},
                               {"Select an XLS file to save Puzzle", "*.xls", "Excel Files"}};
  for (std::size_t i = 0; i < 3; ++i) {
    const FileRequest& request = f.ui.fileRequests[i];
    EXPECT_EQ(request.mode, FileRequest::Mode::Save) << i;
    EXPECT_EQ(request.title, expected[i].title);
    EXPECT_EQ(request.pattern, expected[i].pattern);
    EXPECT_EQ(request.typeName, expected[i].typeName);
    EXPECT_EQ(request.startDir, f.dir.dir()) << i;
  }
  // Every chooser was cancelled: nothing said.
  EXPECT_TRUE(f.ui.messages.empty());
  EXPECT_TRUE(f.ui.questions.empty());
}

TEST(SaveCommands, NewFileIsWrittenWithoutQuestion) {
  SaveFixture f;
  std::string path = f.dir.file("new.csv");
  f.ui.files.push_back(path);
  EXPECT_TRUE(saveAsCsv(f.session));
  EXPECT_TRUE(f.ui.questions.empty());
  EXPECT_EQ(readFile(path), csvExportText(f.session));
  EXPECT_EQ(f.ui.messages, std::vector<std::string>{"Puzzle and its solution saved in file: " + path});
}

TEST(SaveCommands, EmptyExistingFileIsOverwrittenWithoutQuestion) {
  SaveFixture f;
  std::string path = f.dir.file("empty.txt");
  writeFile(path, "");
  f.ui.files.push_back(path);
  EXPECT_TRUE(saveAsTxt(f.session));
  EXPECT_TRUE(f.ui.questions.empty());
  EXPECT_EQ(readFile(path), txtExportText(f.session));
}

TEST(SaveCommands, RefusedOverwriteLeavesTheFileAndSaysNothing) {
  SaveFixture f;
  std::string path = f.dir.file("old.txt");
  writeFile(path, "old content");
  f.ui.files.push_back(path);
  f.ui.answers.push_back(false);
  EXPECT_FALSE(saveAsTxt(f.session));
  EXPECT_EQ(f.ui.questions, std::vector<std::string>{"OverWrite file: " + path + " ?"});
  EXPECT_TRUE(f.ui.messages.empty());
  EXPECT_EQ(readFile(path), "old content");
}

TEST(SaveCommands, AcceptedOverwriteReplacesTheFile) {
  SaveFixture f;
  std::string path = f.dir.file("old.xls");
  writeFile(path, "old content");
  f.ui.files.push_back(path);
  f.ui.answers.push_back(true);
  EXPECT_TRUE(saveAsXls(f.session));
  EXPECT_EQ(f.ui.questions, std::vector<std::string>{"OverWrite file: " + path + " ?"});
  EXPECT_EQ(f.ui.messages, std::vector<std::string>{"Puzzle and its solution saved in file: " + path});
  std::string written = readFile(path);
  ASSERT_GE(written.size(), 8u);
  EXPECT_EQ(written.substr(0, 8), std::string("\x09\x00\x04\x00\x02\x00\x0A\x00", 8));
}

TEST(SaveCommands, FailedWriteIsReported) {
  SaveFixture f;
  std::string path = f.dir.file("missing/out.csv");
  f.ui.files.push_back(path);
  EXPECT_FALSE(saveAsCsv(f.session));
  EXPECT_EQ(f.ui.messages, std::vector<std::string>{"Could not write file: " + path});
}

/// A chooser that wanders off into another folder, as some do.
class WanderingChooser : public ScriptedUserInterface {
 public:
  explicit WanderingChooser(std::filesystem::path elsewhere) : m_elsewhere(std::move(elsewhere)) {}
  std::string chooseFile(const FileRequest& request) override {
    std::filesystem::current_path(m_elsewhere);
    return ScriptedUserInterface::chooseFile(request);
  }

 private:
  std::filesystem::path m_elsewhere;
};

TEST(SaveCommands, WorkingFolderIsKeptAcrossTheChooser) {
  TempDir home, elsewhere;
  testing::WorkingFolder cwd(home.path());
  WanderingChooser ui(elsewhere.path());
  Session session{Services{&ui}};
  fillSolvedGrid(session);
  saveAsCsv(session);
  EXPECT_EQ(std::filesystem::current_path(), home.path());
}

TEST(ConfirmOverwrite, AsksOnlyForAFileWithContent) {
  SaveFixture f;
  EXPECT_TRUE(confirmOverwrite(f.session, f.dir.file("none.csv")));
  writeFile(f.dir.file("empty.csv"), "");
  EXPECT_TRUE(confirmOverwrite(f.session, f.dir.file("empty.csv")));
  EXPECT_TRUE(f.ui.questions.empty());
  writeFile(f.dir.file("full.csv"), "x");
  f.ui.answers.push_back(true);
  EXPECT_TRUE(confirmOverwrite(f.session, f.dir.file("full.csv")));
  f.ui.answers.push_back(false);
  EXPECT_FALSE(confirmOverwrite(f.session, f.dir.file("full.csv")));
  EXPECT_EQ(f.ui.questions.size(), 2u);
}

TEST(WriteExport, FormatFollowsTheExtension) {
  EXPECT_EQ(exportFormatForPath("a/b.csv"), ExportFormat::Csv);
  EXPECT_EQ(exportFormatForPath("b.TXT"), ExportFormat::Txt);
  EXPECT_EQ(exportFormatForPath("b.Xls"), ExportFormat::Xls);
  EXPECT_EQ(exportFormatForPath("b.xlsx"), std::nullopt);
  EXPECT_EQ(exportFormatForPath("csv"), std::nullopt);
}

TEST(WriteExport, WritesEachFormatWithoutDialogs) {
  SaveFixture f;
  ASSERT_TRUE(writeExport(f.session, ExportFormat::Csv, f.dir.file("a.csv")));
  ASSERT_TRUE(writeExport(f.session, ExportFormat::Txt, f.dir.file("a.txt")));
  ASSERT_TRUE(writeExport(f.session, ExportFormat::Xls, f.dir.file("a.xls")));
  EXPECT_EQ(readFile(f.dir.file("a.csv")), csvExportText(f.session));
  EXPECT_EQ(readFile(f.dir.file("a.txt")), txtExportText(f.session));
  EXPECT_EQ(readFile(f.dir.file("a.xls")).size(), std::size_t(8 + 6 + 48 + 28 + 8 + 18 + 13 * testing::kPatternGivens +
                                                              20 + 81 * 13 + 4));
  EXPECT_TRUE(f.ui.messages.empty());
  EXPECT_TRUE(f.ui.questions.empty());
}

}  // namespace
}  // namespace tessaly
