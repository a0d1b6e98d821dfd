// The save commands: the check before the chooser, its request, the overwrite
// question and the messages; and saving by file name, without dialogs.

#include <gtest/gtest.h>

#include <filesystem>
#include <optional>
#include <string>
#include <tuple>
#include <vector>

#include "SolvedGrid.h"
#include "output/SaveCommands.h"

namespace tessaly {
namespace {

using namespace test;
using Strings = std::vector<std::string>;
using SaveCommand = bool (*)(Session&);

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
  EXPECT_FALSE(saveAsCsv(f.session) || saveAsTxt(f.session) || saveAsXls(f.session));
  EXPECT_EQ(f.ui.messages, Strings(3, "There is no solution to save"));
  EXPECT_TRUE(f.ui.fileRequests.empty());
}

TEST(SaveCommands, ChooserAsksForTheKindOfFileInTheApplicationFolder) {
  SaveFixture f;
  EXPECT_FALSE(saveAsCsv(f.session) || saveAsTxt(f.session) || saveAsXls(f.session));  // all cancelled
  using Request = std::tuple<FileRequest::Mode, std::string, std::string, std::string, std::string>;
  std::vector<Request> requests;
  for (const FileRequest& r : f.ui.fileRequests)
    requests.emplace_back(r.mode, r.title, r.pattern, r.typeName, r.startDir);
  const auto save = FileRequest::Mode::Save;
  EXPECT_EQ(requests, (std::vector<Request>{
                          {save, "Select a CSV file to save Puzzle", "*.csv", "CSV Files", f.dir.dir()},
                          {save, "Select a TXT file to save Puzzle", "*.txt", "Text Files", f.dir.dir()},
                          {save, "Select an XLS file to save Puzzle", "*.xls", "Excel Files", f.dir.dir()}}));
  EXPECT_EQ(f.ui.messages.size() + f.ui.questions.size(), 0u);  // a cancel is silent
}

// Only a file with content is asked about; No leaves it as it was.
TEST(SaveCommands, OverwriteQuestionAndMessages) {
  const char* saved = "Puzzle and its solution saved in file: ";
  const struct {
    const char* file;
    SaveCommand save;
    std::optional<std::string> before;
    bool answer, asked;
    const char *expected, *message;
  } cases[] = {{"new.csv", saveAsCsv, std::nullopt, false, false, "solved.csv", saved},
               {"empty.txt", saveAsTxt, "", false, false, "solved.txt", saved},
               {"refused.txt", saveAsTxt, "old", false, true, nullptr, nullptr},
               {"accepted.xls", saveAsXls, "old", true, true, "solved.xls", saved},
               {"missing/new.csv", saveAsCsv, std::nullopt, true, false, nullptr, "Could not write file: "}};
  for (const auto& c : cases) {
    SCOPED_TRACE(c.file);
    SaveFixture f;
    const std::string path = f.dir.file(c.file);
    if (c.before) writeFile(path, *c.before);
    f.ui.files.push_back(path);
    f.ui.answers.push_back(c.answer);
    EXPECT_EQ(c.save(f.session), c.expected != nullptr);
    EXPECT_EQ(f.ui.questions, c.asked ? Strings{"OverWrite file: " + path + " ?"} : Strings{});
    EXPECT_EQ(f.ui.messages, c.message ? Strings{c.message + path} : Strings{});
    EXPECT_EQ(readFile(path), c.expected ? expectedOutput(c.expected) : c.before.value_or(""));
  }
}

/// A chooser that wanders off into another folder, as some do.
struct WanderingChooser : ScriptedUserInterface {
  std::filesystem::path elsewhere;
  std::string chooseFile(const FileRequest& request) override {
    std::filesystem::current_path(elsewhere);
    return ScriptedUserInterface::chooseFile(request);
  }
};

TEST(SaveCommands, WorkingFolderIsKeptAcrossTheChooser) {
  TempDir home, elsewhere;
  WorkingFolder cwd(home.path());
  WanderingChooser ui;
  ui.elsewhere = elsewhere.path();
  Session session{Services{&ui}};
  fillSolvedGrid(session);
  saveAsCsv(session);
  EXPECT_EQ(std::filesystem::current_path(), home.path());
}

TEST(WriteExport, FormatFollowsTheExtensionInAnyLetterCase) {
  SaveFixture f;
  const std::pair<const char*, const char*> cases[] = {{"a.csv", "solved.csv"}, {"b.TXT", "solved.txt"},
                                                       {"c.Xls", "solved.xls"}, {"d.xlsx", nullptr},
                                                       {"csv", nullptr},        {"e.csv.bak", nullptr}};
  for (const auto& [name, expected] : cases) {
    SCOPED_TRACE(name);
    const std::optional<ExportFormat> format = exportFormatForPath(name);
    ASSERT_EQ(format.has_value(), expected != nullptr);
    if (!format) continue;
    ASSERT_TRUE(writeExport(f.session, *format, f.dir.file(name)));
    EXPECT_EQ(readFile(f.dir.file(name)), expectedOutput(expected));
  }
  EXPECT_EQ(f.ui.messages.size() + f.ui.questions.size(), 0u);
}

}  // namespace
}  // namespace tessaly
