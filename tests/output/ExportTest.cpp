// The exports and the framed report of the grid below, compared with whole files of tests/data/output.

#include <gtest/gtest.h>

#include <filesystem>
#include <optional>

#include "Version.h"
#include "model/GridTables.h"
#include "output/SaveCommands.h"
#include "output/TextExport.h"
#include "support/TestSupport.h"

namespace tessaly {
namespace {

using namespace test;
using Strings = std::vector<std::string>;
namespace fs = std::filesystem;

/// A file of tests/data/output, "@VERSION@" read as the program's version (a release changes no report).
std::string expectedOutput(const std::string& name) {
  std::string text = readFile(dataFile("output/" + name));
  if (std::size_t at = text.find("@VERSION@"); at != std::string::npos) text.replace(at, 9, kProgramVersion);
  return text;
}

/// A chooser that may wander off into another folder, as some do.
struct Chooser : ScriptedUserInterface {
  std::string elsewhere;
  std::string chooseFile(const FileRequest& request) override {
    if (!elsewhere.empty()) fs::current_path(elsewhere);
    return ScriptedUserInterface::chooseFile(request);
  }
};

/// The solved grid: rows 123456789, 456789123, 789123456, 234567891 ... 912345678;
/// givens ("X") nowhere in row 3 and everywhere in row 6. The application folder is a fresh one.
struct Solved {
  TempDir dir;
  Chooser ui;
  FixedClock clock{{14, 5, 33, 0}};
  Session session{Services{&ui, nullptr, nullptr, &clock, nullptr}};
  Solved() {
    static constexpr const char* kGivens[9] = {"X..X....X", ".X..X....", ".........", "X.X.X.X.X", "........X",
                                               "XXXXXXXXX", "..X......", "....X..X.", ".X.....X."};
    session.appDir = dir.dir();
    for (int r = 1; r <= 9; ++r)
      for (int c = 1; c <= 9; ++c) {
        Cell& cell = session.grid[CellNumber[r][c]];
        cell.value = ((r - 1) * 3 + (r - 1) / 3 + (c - 1)) % 9 + 1;
        cell.given = kGivens[r - 1][c - 1] == 'X';
        cell.candidates = cell.given ? CandidateSet::of(cell.value) : CandidateSet();
      }
  }
};

// Only a file with content is asked about; No leaves it as it was; a longer earlier
// file goes entirely. Whatever folder the chooser visits, the working folder stays.
TEST(SaveCommands, WriteTheWholeFileAfterTheOverwriteQuestionAndSaySo) {
  const char* saved = "Puzzle and its solution saved in file: ";
  const std::string longer(5000, 'x');
  const struct {
    const char* file;
    bool (*save)(Session&);
    std::optional<std::string> before;
    bool answer, asked;
    const char *expected, *message;
  } cases[] = {{"new.csv", saveAsCsv, std::nullopt, false, false, "solved.csv", saved},
               {"empty.txt", saveAsTxt, "", false, false, "solved.txt", saved},
               {"refused.txt", saveAsTxt, "old", false, true, nullptr, nullptr},
               {"accepted.xls", saveAsXls, longer, true, true, "solved.xls", saved},
               {"accepted.txt", saveAsTxt, longer, true, true, "solved.txt", saved},
               {"accepted.csv", saveAsCsv, longer, true, true, "solved.csv", saved},
               {"missing/new.csv", saveAsCsv, std::nullopt, true, false, nullptr, "Could not write file: "},
               {"missing/new.txt", saveAsTxt, std::nullopt, true, false, nullptr, "Could not write file: "},
               {"missing/new.xls", saveAsXls, std::nullopt, true, false, nullptr, "Could not write file: "}};
  for (const auto& c : cases) {
    SCOPED_TRACE(c.file);
    Solved f;
    TempDir away;
    const fs::path before = fs::current_path();
    f.ui.elsewhere = away.path();
    const std::string path = f.dir.file(c.file);
    if (c.before) writeFile(path, *c.before);
    f.ui.files.push_back(path);
    f.ui.answers.push_back(c.answer);
    EXPECT_EQ(c.save(f.session), c.expected != nullptr);
    EXPECT_EQ(fs::current_path(), before);
    EXPECT_EQ(f.ui.questions, c.asked ? Strings{"OverWrite file: " + path + " ?"} : Strings{});
    EXPECT_EQ(f.ui.messages, c.message ? Strings{c.message + path + (c.expected ? "" : " (No such file or directory)")} : Strings{});
    EXPECT_EQ(readFile(path), c.expected ? expectedOutput(c.expected) : c.before.value_or(""));
  }
}

TEST(SaveCommands, AskForTheirKindOfFileInTheApplicationFolderAndNeverForAnIncompleteGrid) {
  Solved f;
  EXPECT_FALSE(saveAsCsv(f.session) || saveAsTxt(f.session) || saveAsXls(f.session));  // all cancelled
  std::string requests;
  for (const FileRequest& r : f.ui.fileRequests)
    requests += (r.mode == FileRequest::Mode::Save ? "save|" : "open|") + r.title + "|" + r.pattern + "|" + r.typeName +
                "|" + r.startDir + "\n";
  const std::string in = "|" + f.dir.dir() + "\n";
  EXPECT_EQ(requests, "save|Select a CSV file to save Puzzle|*.csv|CSV Files" + in +
                          "save|Select a TXT file to save Puzzle|*.txt|Text Files" + in +
                          "save|Select an XLS file to save Puzzle|*.xls|Excel Files" + in);
  EXPECT_EQ(f.ui.messages.size() + f.ui.questions.size(), 0u);  // a cancel is silent
  // An installed copy, which keeps its files in the user's folders, starts in the output folder.
  f.session.folders = {"/u/config/", "/u/data/", "/u/docs/"};
  saveAsCsv(f.session);
  EXPECT_EQ(f.ui.fileRequests.back().startDir, "/u/docs/");
  f.session.folders = {};
  f.session.grid[40].value = 0;
  f.ui.fileRequests.clear();
  f.ui.files.push_back(f.dir.file("never.csv"));
  EXPECT_FALSE(saveAsCsv(f.session) || saveAsTxt(f.session) || saveAsXls(f.session));
  EXPECT_EQ(f.ui.messages, Strings(3, "There is no solution to save"));
  EXPECT_TRUE(f.ui.fileRequests.empty());
}

TEST(WriteExport, TheFormatFollowsTheExtensionInAnyLetterCase) {
  using F = ExportFormat;
  for (auto [name, format] : {std::pair{"a.csv", std::optional(F::Csv)}, {"b.TXT", F::Txt}, {"c.Xls", F::Xls},
                              {"d.xlsx", std::nullopt}, {"csv", std::nullopt}, {"e.csv.bak", std::nullopt}})
    EXPECT_EQ(exportFormatForPath(name), format) << name;
}

// Puzzle 12 printed at 14:05:33 into the working folder, with a log of four
// lines of which three are recorded: only those are printed, without their style.
TEST(Report, PrintedIntoTheWorkingFolderUnderThePuzzleNumberAndTheTime) {
  EXPECT_EQ(reportFileName(3, {0, 0, 7, 0}) + " " + reportFileName(125, {23, 59, 59, 0}),
            "P#3@00-00-07.txt P#125@23-59-59.txt");
  Solved f;
  WorkingFolder cwd(f.dir.path());
  Session& session = f.session;
  session.collection.CurrentPuzzleNumber = 12;
  for (auto [style, text] : {std::pair{0, "Apply Rule 2"}, {4, "This puzzle does not appear to have a solution!"},
                             {0, ""}, {0, "Not recorded, so not printed"}})
    session.log.append(style, text);
  session.log.RecordedLineCount = 3;
  // The message names the file in full.
  const std::string name = (fs::current_path() / "P#12@14-05-33.txt").string();
  auto print = [&](bool includeLog) {
    f.ui.messages.clear();
    EXPECT_EQ(printToTextFile(session, includeLog), name);
    EXPECT_EQ(f.ui.messages, Strings{"Printed to: " + name});
    return readFile(name);
  };
  EXPECT_EQ(print(false), expectedOutput("report.txt"));
  session.grid[CellNumber[1][2]].value = 0;  // a cell not solved yet prints blank
  const std::string withLog = expectedOutput("report-with-log.txt");
  EXPECT_EQ(print(true), withLog);
  // With nothing recorded, as after a plain solve, the heading stands alone.
  session.log.RecordedLineCount = 0;
  std::string headingOnly = withLog;
  const std::size_t logLines = withLog.find("EVENT LOG\r\n") + 11;
  headingOnly.erase(logLines, withLog.find("\r\nPuzzle Number 12 Solution") - logLines);
  EXPECT_EQ(print(true), headingOnly);
  // An output folder that is not there: nothing written, and the message says where.
  session.folders.output = "/nonexistent-folder/";
  f.ui.messages.clear();
  EXPECT_EQ(printToTextFile(session, false), "");
  EXPECT_EQ(f.ui.messages, Strings{"Could not write file: /nonexistent-folder/P#12@14-05-33.txt (No such file or directory)"});
}

}  // namespace
}  // namespace tessaly
