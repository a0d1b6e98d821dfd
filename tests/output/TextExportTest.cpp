// The CSV and TXT exports and the framed report, compared as whole files.

#include <gtest/gtest.h>

#include <initializer_list>
#include <string>

#include "OutputTestSupport.h"
#include "model/Services.h"
#include "output/TextExport.h"

namespace tessaly {
namespace {

using testing::fillSolvedGrid;
using testing::readFile;
using testing::TempDir;
using testing::WorkingFolder;

/// The lines joined, each ended by CR LF.
std::string crlf(std::initializer_list<const char*> lines) {
  std::string out;
  for (const char* line : lines) {
    out += line;
    out += "\r\n";
  }
  return out;
}

const std::string kExpectedCsv = crlf({
    "PUZZLE",
    "\"1\",\"\",\"\",\"4\",\"\",\"\",\"\",\"\",\"9\"",
    "\"\",\"5\",\"\",\"\",\"8\",\"\",\"\",\"\",\"\"",
    "\"\",\"\",\"\",\"\",\"\",\"\",\"\",\"\",\"\"",
    "\"2\",\"\",\"4\",\"\",\"6\",\"\",\"8\",\"\",\"1\"",
    "\"\",\"\",\"\",\"\",\"\",\"\",\"\",\"\",\"4\"",
    "\"8\",\"9\",\"1\",\"2\",\"3\",\"4\",\"5\",\"6\",\"7\"",
    "\"\",\"\",\"5\",\"\",\"\",\"\",\"\",\"\",\"\"",
    "\"\",\"\",\"\",\"\",\"1\",\"\",\"\",\"4\",\"\"",
    "\"\",\"1\",\"\",\"\",\"\",\"\",\"\",\"7\",\"\"",
    "SOLUTION",
    "\"1\",\"2\",\"3\",\"4\",\"5\",\"6\",\"7\",\"8\",\"9\"",
    "\"4\",\"5\",\"6\",\"7\",\"8\",\"9\",\"1\",\"2\",\"3\"",
    "\"7\",\"8\",\"9\",\"1\",\"2\",\"3\",\"4\",\"5\",\"6\"",
    "\"2\",\"3\",\"4\",\"5\",\"6\",\"7\",\"8\",\"9\",\"1\"",
    "\"5\",\"6\",\"7\",\"8\",\"9\",\"1\",\"2\",\"3\",\"4\"",
    "\"8\",\"9\",\"1\",\"2\",\"3\",\"4\",\"5\",\"6\",\"7\"",
    "\"3\",\"4\",\"5\",\"6\",\"7\",\"8\",\"9\",\"1\",\"2\"",
    "\"6\",\"7\",\"8\",\"9\",\"1\",\"2\",\"3\",\"4\",\"5\"",
    "\"9\",\"1\",\"2\",\"3\",\"4\",\"5\",\"6\",\"7\",\"8\"",
});

const std::string kExpectedTxt = crlf({
    "PUZZLE",    "100400009", "050080000", "000000000", "204060801", "000000004", "891234567",
    "005000000", "000010040", "010000070", "SOLUTION",  "123456789", "456789123", "789123456",
    "234567891", "567891234", "891234567", "345678912", "678912345", "912345678",
});

const std::string kPuzzleFrame = crlf({
    "+---+---+---+---+---+---+---+---+---+",
    "| 1 |   |   | 4 |   |   |   |   | 9 | ",
    "+---+---+---+---+---+---+---+---+---+",
    "|   | 5 |   |   | 8 |   |   |   |   | ",
    "+---+---+---+---+---+---+---+---+---+",
    "|   |   |   |   |   |   |   |   |   | ",
    "+---+---+---+---+---+---+---+---+---+",
    "| 2 |   | 4 |   | 6 |   | 8 |   | 1 | ",
    "+---+---+---+---+---+---+---+---+---+",
    "|   |   |   |   |   |   |   |   | 4 | ",
    "+---+---+---+---+---+---+---+---+---+",
    "| 8 | 9 | 1 | 2 | 3 | 4 | 5 | 6 | 7 | ",
    "+---+---+---+---+---+---+---+---+---+",
    "|   |   | 5 |   |   |   |   |   |   | ",
    "+---+---+---+---+---+---+---+---+---+",
    "|   |   |   |   | 1 |   |   | 4 |   | ",
    "+---+---+---+---+---+---+---+---+---+",
    "|   | 1 |   |   |   |   |   | 7 |   | ",
    "+---+---+---+---+---+---+---+---+---+",
});

const std::string kSolutionFrame = crlf({
    "+---+---+---+---+---+---+---+---+---+",
    "| 1 | 2 | 3 | 4 | 5 | 6 | 7 | 8 | 9 | ",
    "+---+---+---+---+---+---+---+---+---+",
    "| 4 | 5 | 6 | 7 | 8 | 9 | 1 | 2 | 3 | ",
    "+---+---+---+---+---+---+---+---+---+",
    "| 7 | 8 | 9 | 1 | 2 | 3 | 4 | 5 | 6 | ",
    "+---+---+---+---+---+---+---+---+---+",
    "| 2 | 3 | 4 | 5 | 6 | 7 | 8 | 9 | 1 | ",
    "+---+---+---+---+---+---+---+---+---+",
    "| 5 | 6 | 7 | 8 | 9 | 1 | 2 | 3 | 4 | ",
    "+---+---+---+---+---+---+---+---+---+",
    "| 8 | 9 | 1 | 2 | 3 | 4 | 5 | 6 | 7 | ",
    "+---+---+---+---+---+---+---+---+---+",
    "| 3 | 4 | 5 | 6 | 7 | 8 | 9 | 1 | 2 | ",
    "+---+---+---+---+---+---+---+---+---+",
    "| 6 | 7 | 8 | 9 | 1 | 2 | 3 | 4 | 5 | ",
    "+---+---+---+---+---+---+---+---+---+",
    "| 9 | 1 | 2 | 3 | 4 | 5 | 6 | 7 | 8 | ",
    "+---+---+---+---+---+---+---+---+---+",
});

const std::string kClosing =
    "\r\nTessaly Puzzle Solution and Creation - version 0.1.0\r\n";

TEST(CsvExport, WritesPuzzleAndSolutionByteForByte) {
  TempDir dir;
  Session session;
  fillSolvedGrid(session);
  std::string path = dir.file("out.csv");
  ASSERT_TRUE(writeCsvExport(session, path));
  EXPECT_EQ(readFile(path), kExpectedCsv);
}

TEST(CsvExport, RowWithoutGivensIsNinePairsOfEmptyQuotes) {
  Session session;
  fillSolvedGrid(session);
  std::string text = csvExportText(session);
  EXPECT_NE(text.find("\r\n\"\",\"\",\"\",\"\",\"\",\"\",\"\",\"\",\"\"\r\n"), std::string::npos);
}

TEST(TxtExport, WritesPuzzleAndSolutionByteForByte) {
  TempDir dir;
  Session session;
  fillSolvedGrid(session);
  std::string path = dir.file("out.txt");
  ASSERT_TRUE(writeTxtExport(session, path));
  EXPECT_EQ(readFile(path), kExpectedTxt);
}

TEST(TxtExport, ReplacesAnEarlierFile) {
  TempDir dir;
  Session session;
  fillSolvedGrid(session);
  std::string path = dir.file("out.txt");
  testing::writeFile(path, std::string(5000, 'x'));
  ASSERT_TRUE(writeTxtExport(session, path));
  EXPECT_EQ(readFile(path), kExpectedTxt);
}

TEST(Exports, UnwritablePathFails) {
  TempDir dir;
  Session session;
  fillSolvedGrid(session);
  EXPECT_FALSE(writeCsvExport(session, dir.file("missing/out.csv")));
  EXPECT_FALSE(writeTxtExport(session, dir.file("missing/out.txt")));
}

TEST(ReportFileName, PuzzleNumberAndTimeWithDashes) {
  EXPECT_EQ(reportFileName(12, {14, 5, 33, 0}), "P#12@14-05-33.txt");
  EXPECT_EQ(reportFileName(3, {0, 0, 7, 0}), "P#3@00-00-07.txt");
  EXPECT_EQ(reportFileName(125, {23, 59, 59, 0}), "P#125@23-59-59.txt");
}

TEST(PrintToTextFile, WithoutLogWritesBothFramesInTheWorkingFolder) {
  TempDir dir;
  WorkingFolder cwd(dir.path());
  FixedClock clock({14, 5, 33, 0});
  ScriptedUserInterface ui;
  Session session({&ui, nullptr, nullptr, &clock, nullptr});
  fillSolvedGrid(session);
  session.CurrentPuzzleNumber = 12;
  session.log.append(0, "Apply Rule 2");
  session.log.RecordedLineCount = 1;

  EXPECT_EQ(printToTextFile(session, false), "P#12@14-05-33.txt");

  std::string expected = "Puzzle Number 12\r\n\r\n" + kPuzzleFrame + "\r\nPuzzle Number 12 Solution\r\n\r\n" +
                         kSolutionFrame + kClosing;
  EXPECT_EQ(readFile(dir.file("P#12@14-05-33.txt")), expected);
  ASSERT_EQ(ui.messages.size(), 1u);
  EXPECT_EQ(ui.messages[0], "Printed to: P#12@14-05-33.txt");
}

TEST(PrintToTextFile, WithLogWritesLinesUpToTheRecordedCountWithoutStyle) {
  TempDir dir;
  WorkingFolder cwd(dir.path());
  FixedClock clock({9, 41, 2, 0});
  ScriptedUserInterface ui;
  Session session({&ui, nullptr, nullptr, &clock, nullptr});
  fillSolvedGrid(session);
  session.CurrentPuzzleNumber = 7;
  session.log.append(0, "Apply Rule 2");
  session.log.append(4, "This puzzle does not appear to have a solution!");
  session.log.append(0, "");
  session.log.append(0, "Not recorded, so not printed");
  session.log.RecordedLineCount = 3;

  EXPECT_EQ(printToTextFile(session, true), "P#7@09-41-02.txt");

  std::string expected = "Puzzle Number 7\r\n\r\n" + kPuzzleFrame +
                         "\r\nEVENT LOG\r\n"
                         "Apply Rule 2\r\n"
                         "This puzzle does not appear to have a solution!\r\n"
                         "\r\n"
                         "\r\nPuzzle Number 7 Solution\r\n\r\n" +
                         kSolutionFrame + kClosing;
  EXPECT_EQ(readFile(dir.file("P#7@09-41-02.txt")), expected);
  ASSERT_EQ(ui.messages.size(), 1u);
  EXPECT_EQ(ui.messages[0], "Printed to: P#7@09-41-02.txt");
}

TEST(PrintToTextFile, LogHeadingStandsAloneWhenNothingIsRecorded) {
  Session session;
  fillSolvedGrid(session);
  session.CurrentPuzzleNumber = 1;
  session.log.append(0, "Solved");
  session.log.RecordedLineCount = 0;
  std::string text = reportText(session, true);
  EXPECT_NE(text.find("\r\nEVENT LOG\r\n\r\nPuzzle Number 1 Solution\r\n"), std::string::npos);
  EXPECT_EQ(text.find("Solved"), std::string::npos);
}

TEST(PrintToTextFile, EmptyCellsPrintAsBlanksAndLinesKeepTheirLengths) {
  Session session;
  fillSolvedGrid(session);
  session.grid[CellNumber[1][2]].value = 0;  // a cell the solver has not filled
  std::string text = reportText(session, false);
  EXPECT_NE(text.find("| 1 |   | 3 | 4 | 5 | 6 | 7 | 8 | 9 | \r\n"), std::string::npos);
  std::size_t start = 0;
  int cellLines = 0;
  while (start < text.size()) {
    std::size_t end = text.find("\r\n", start);
    std::string line = text.substr(start, end - start);
    if (line.rfind("| ", 0) == 0) {
      EXPECT_EQ(line.size(), 38u);
      ++cellLines;
    }
    if (line.rfind("+", 0) == 0) {
      EXPECT_EQ(line.size(), 37u);
    }
    start = end + 2;
  }
  EXPECT_EQ(cellLines, 18);
}

TEST(PrintToTextFile, UnwritableFolderIsReported) {
  TempDir dir;
  std::filesystem::path sub = std::filesystem::path(dir.path()) / "sub";
  std::filesystem::create_directories(sub);
  WorkingFolder cwd(sub);
  std::filesystem::remove(sub);  // the working folder is gone: nothing can be written there
  FixedClock clock({1, 2, 3, 0});
  ScriptedUserInterface ui;
  Session session({&ui, nullptr, nullptr, &clock, nullptr});
  session.CurrentPuzzleNumber = 4;
  EXPECT_EQ(printToTextFile(session, false), "");
  ASSERT_EQ(ui.messages.size(), 1u);
  EXPECT_EQ(ui.messages[0], "Could not write file: P#4@01-02-03.txt");
}

}  // namespace
}  // namespace tessaly
