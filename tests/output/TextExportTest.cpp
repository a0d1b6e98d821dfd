// The CSV and TXT exports and the framed report, compared with whole files.

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <utility>
#include <vector>

#include "SolvedGrid.h"
#include "output/TextExport.h"

namespace tessaly {
namespace {

using namespace test;
using Strings = std::vector<std::string>;

TEST(TextExport, WritesTheSolvedGridFiles) {
  TempDir dir;
  Session session;
  fillSolvedGrid(session);
  using Writer = bool (*)(const Session&, const std::string&);
  const std::pair<Writer, const char*> cases[] = {{writeCsvExport, "solved.csv"}, {writeTxtExport, "solved.txt"}};
  for (const auto& [write, name] : cases) {
    SCOPED_TRACE(name);
    writeFile(dir.file(name), std::string(5000, 'x'));  // a longer earlier file goes entirely
    ASSERT_TRUE(write(session, dir.file(name)));
    EXPECT_EQ(readFile(dir.file(name)), expectedOutput(name));
    EXPECT_FALSE(write(session, dir.file("missing/") + name));
  }
}

TEST(Report, FileNameIsPuzzleNumberAndTimeWithDashes) {
  EXPECT_EQ(reportFileName(12, {14, 5, 33, 0}), "P#12@14-05-33.txt");
  EXPECT_EQ(reportFileName(3, {0, 0, 7, 0}), "P#3@00-00-07.txt");
  EXPECT_EQ(reportFileName(125, {23, 59, 59, 0}), "P#125@23-59-59.txt");
}

// Puzzle 12 printed at 14:05:33 into the working folder, with a log of four
// lines of which three are recorded: only those are printed, without their style.
TEST(Report, PrintedIntoTheWorkingFolder) {
  TempDir dir;
  const std::string folder = dir.file("work");
  std::filesystem::create_directories(folder);
  WorkingFolder cwd(folder);
  FixedClock clock({14, 5, 33, 0});
  ScriptedUserInterface ui;
  Session session({&ui, nullptr, nullptr, &clock, nullptr});
  fillSolvedGrid(session);
  session.collection.CurrentPuzzleNumber = 12;
  session.log.append(0, "Apply Rule 2");
  session.log.append(4, "This puzzle does not appear to have a solution!");
  session.log.append(0, "");
  session.log.append(0, "Not recorded, so not printed");
  session.log.RecordedLineCount = 3;
  // The message names the file in full.
  const std::string name = (std::filesystem::current_path() / "P#12@14-05-33.txt").string();
  auto print = [&](bool includeLog) {
    ui.messages.clear();
    EXPECT_EQ(printToTextFile(session, includeLog), name);
    EXPECT_EQ(ui.messages, Strings{"Printed to: " + name});
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
  ui.messages.clear();
  EXPECT_EQ(printToTextFile(session, false), "");
  EXPECT_EQ(ui.messages, Strings{"Could not write file: /nonexistent-folder/P#12@14-05-33.txt"});
}

}  // namespace
}  // namespace tessaly
