// The one reader: every kind of source a user may hand the program, what the
// collection reader makes of it, and the damaged records count --check finds.

#include <gtest/gtest.h>
#include <sys/stat.h>

#include "model/CollectionFile.h"
#include "model/LineReader.h"
#include "support/TestSupport.h"

#include <sstream>

namespace tessaly {
namespace {

using Problem = CollectionScan::Problem;

const std::string kA = "......95....64..7......7.1..38.15..25..87..6...72.....7...5...9.5.....2.3.94.....";
const std::string kB = "4.....8.5.3..........7......2.....6.....8.4......1.......6.3.7.5..2.....1.4......";
std::string zeros(const std::string& cells) { return test::replaced(cells, '.', '0'); }

std::string utf16(const std::string& ascii) {
  std::string out = "\xFF\xFE";
  for (char ch : ascii) {
    out.push_back(ch);
    out.push_back('\0');
  }
  return out;
}

TEST(Sources, EachSourceIsReadOrRefusedWithItsReason) {
  // message: what collectionProblemText says, @ for the path; first: puzzle 1 as rows of "0" when read.
  struct Case {
    const char* name;
    std::string content;  // "<fifo>" and "<folder>" make those instead of a file
    Problem problem;
    int puzzles;
    std::string message, first;
  };
  const std::string numbered = "#1\r\n" + test::gridRows(kA) + "\r\n#2\r\n" + test::gridRows(kB);
  const std::string txtExport = "PUZZLE\r\n" + test::gridRows(zeros(kA)) + "SOLUTION\r\n" +
                                test::gridRows(std::string(81, '1'));
  const Case cases[] = {
      {"numbered", numbered, Problem::None, 2, "", zeros(kA)},
      {"bom-numbered", "\xEF\xBB\xBF" + numbered, Problem::None, 2, "", zeros(kA)},
      {"bom-lines", "\xEF\xBB\xBF" + kA + "\n" + kB + "\n", Problem::None, 2, "", zeros(kA)},
      {"title-lines", "My twenty puzzles\n" + kA + "\n" + kB + "\n", Problem::None, 2,
       "1 line of @ is not a puzzle and was skipped, the first is line 1", zeros(kA)},
      {"txt-export", txtExport, Problem::None, 1, "", zeros(kA)},
      {"utf16", utf16(numbered), Problem::Utf16, 0, "@ is UTF-16 text; puzzle files are read as ASCII or UTF-8", ""},
      {"nul-late", numbered + std::string(70000, '\n') + std::string(1, '\0'), Problem::Binary, 0,
       "@ is not a text file of puzzles", ""},
      {"fifo", "<fifo>", Problem::NotAFile, 0, "Could not read file: @ (a FIFO, not a regular file)", ""},
      {"folder", "<folder>", Problem::NotAFile, 0, "Could not read file: @ (Is a directory)", ""},
      {"missing", "<missing>", Problem::Unreadable, 0, "", ""},
  };
  test::TempDir dir;
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    const std::string path = dir.file(c.name);
    if (c.content == "<fifo>")
      ASSERT_EQ(::mkfifo(path.c_str(), 0644), 0);
    else if (c.content == "<folder>")
      ASSERT_EQ(::mkdir(path.c_str(), 0755), 0);
    else if (c.content != "<missing>")
      test::writeFile(path, c.content);
    const CollectionIndex index = indexCollection(path);
    EXPECT_EQ(index.scan.problem, c.problem);
    EXPECT_EQ(index.scan.puzzles, c.puzzles);
    std::string message = c.message;
    if (auto at = message.find('@'); at != std::string::npos) message.replace(at, 1, path);
    EXPECT_EQ(collectionProblemText(index.scan, path), message);
    const PuzzleRowsRead read = readPuzzleRows(index, 1);
    std::string rows;
    for (const std::string& row : read.rows) rows += row;
    EXPECT_EQ(rows, c.first);
    EXPECT_EQ(read.status == PuzzleRowsRead::Status::Found, !c.first.empty());
  }
}

TEST(Sources, TheIndexGoesStraightToEachPuzzleAndNoticesAChange) {
  test::TempDir dir;
  const std::string path = dir.file("c.sud");
  test::writeFile(path, "#1\r\n" + test::gridRows(kA) + "\r\n#2\r\n" + test::gridRows(kB));
  const CollectionIndex index = indexCollection(path);
  ASSERT_EQ(index.starts.size(), 2u);
  EXPECT_EQ(index.starts[1], 4u + 9 * 11 + 2);  // "#1", nine rows and a blank line, CR LF each
  EXPECT_TRUE(index.current());
  std::string second;
  for (const std::string& row : readPuzzleRows(index, 2).rows) second += row;
  EXPECT_EQ(second, zeros(kB));
  EXPECT_EQ(readPuzzleRows(index, 3).status, PuzzleRowsRead::Status::NotFound);
  ASSERT_TRUE(appendPuzzle(path, kA));
  EXPECT_FALSE(index.current());
  EXPECT_EQ(indexCollection(path).scan.puzzles, 3);
}

TEST(Sources, TheLineReaderCountsLongLinesWholeAndStopsAtTheFirstNul) {
  std::istringstream in("\xEF\xBB\xBF" "ab\r\n" + std::string(10000, 'x') + "\rlast");
  LineReader lines(in, 16);
  ASSERT_TRUE(lines.next());
  EXPECT_EQ(lines.line(), "ab");
  EXPECT_EQ(lines.encoding(), LineReader::Encoding::Utf8WithMark);
  ASSERT_TRUE(lines.next());
  EXPECT_EQ(lines.line(), std::string(16, 'x'));
  EXPECT_EQ(lines.length(), 10000u);
  EXPECT_EQ(lines.offset(), 7u);
  ASSERT_TRUE(lines.next());
  EXPECT_EQ(lines.line(), "last");
  EXPECT_FALSE(lines.ended());
  EXPECT_FALSE(lines.next());

  std::istringstream binary(std::string("12\n3") + std::string(5, '\0'));
  LineReader nul(binary);
  ASSERT_TRUE(nul.next());
  EXPECT_FALSE(nul.next());
  EXPECT_EQ(nul.encoding(), LineReader::Encoding::Binary);
}

TEST(Sources, CheckFindsEveryDamagedRecordByItsLine) {
  const std::string rowsA = test::gridRows(kA);
  // Puzzle 2: its last row cut to ".7." and a letter in its first; puzzle 3: a repeated given;
  // puzzle 4: only two rows before the next "#" line; puzzle 5 is cut by the end of the file.
  std::string rowsB = test::gridRows(kB);
  rowsB.replace(rowsB.rfind("\r\n", rowsB.size() - 3) + 2, 9, ".7.");
  rowsB[0] = 'x';
  const std::string repeated = test::gridRows("55" + kA.substr(2));
  const std::string file = "#1\r\n" + rowsA + "#2\r\n" + rowsB + "#3\r\n" + repeated + "#4\r\n" +
                           rowsA.substr(0, 22) + "#5\r\n" + rowsA.substr(0, 33);
  test::TempDir dir;
  const std::string path = dir.file("damaged.sud");
  test::writeFile(path, file);
  const std::vector<RecordProblem> expected = {
      {12, 2, "row 1 holds 'x', read as a blank"},
      {20, 2, "row 9 has 3 characters, a row has nine (padded with blanks)"},
      {21, 3, "a given repeats in a row, column or box"},
      {34, 4, "has only 2 rows before the next \"#\" line"},
      {34, 5, "has only 3 rows; the file ends"},
  };
  EXPECT_EQ(checkCollection(path).problems, expected);

  const std::string lines = dir.file("lines.txt");
  test::writeFile(lines, "# list\n" + kA + "\n" + kA.substr(1) + "\n" + kB + "x\n" + "55" + kA.substr(2) + "\n");
  const std::vector<RecordProblem> inLines = {
      {3, 0, "a puzzle line has 81 cells, this one has 80"},
      {4, 0, "a puzzle line has 81 cells, this one has 82"},
      {5, 2, "a given repeats in a row, column or box"},
  };
  EXPECT_EQ(checkCollection(lines).problems, inLines);
}

}  // namespace
}  // namespace tessaly
