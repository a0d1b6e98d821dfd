// Collections in the one-per-line and single-grid forms, and puzzle text.

#include <gtest/gtest.h>

#include <fstream>

#include "model/CollectionFile.h"
#include "support/TestSupport.h"

namespace tessaly {
namespace {
using test::gridRows;
using test::TempDir;
using Lines = std::vector<std::string>;

const std::string kA = "......95....64..7......7.1..38.15..25..87..6...72.....7...5...9.5.....2.3.94.....";
const std::string kB = "4.....8.5.3..........7......2.....6.....8.4......1.......6.3.7.5..2.....1.4......";

std::string write(const TempDir& dir, const std::string& name, const std::string& content) {
  const std::string path = dir.file(name);
  std::ofstream(path, std::ios::binary) << content;
  return path;
}

std::string rowsText(const PuzzleRowsRead& read) {
  std::string text;
  for (const std::string& row : read.rows) text += row;
  return text;
}

std::string zeros(const std::string& cells) { return test::replaced(cells, '.', '0'); }

TEST(CollectionForms, EachFormCountsReadsAndTellsItsBadLines) {
  // expected: puzzle 1, 2, ... as rows with "0"; problem: @ for the path
  struct Case {
    const char* name;
    std::string content;
    CollectionForm form;
    int puzzles;
    Lines expected;
    std::string problem;
  };
  const Case cases[] = {
      {"lines", "# two puzzles\n" + kA + "\n\n" + zeros(kB) + "\t4 Hard\r\n", CollectionForm::OnePerLine, 2,
       {zeros(kA), zeros(kB)}, ""},
      {"dashes", test::replaced(kA, '.', '-') + " comment\n", CollectionForm::OnePerLine, 1, {zeros(kA)}, ""},
      {"bad-lines", kA + "\n" + kA.substr(1) + "\n" + kB + "x\n" + kB + "\n", CollectionForm::OnePerLine, 2,
       {zeros(kA), zeros(kB)}, "2 lines of @ are not puzzles and were skipped, the first is line 2"},
      {"grid", "\n" + gridRows(kA) + "\n", CollectionForm::SingleGrid, 1, {zeros(kA)}, ""},
      {"grid-short", gridRows(kA, "\n").substr(10), CollectionForm::SingleGrid, 0, {},
       "Line 8 of @ does not fit a grid of nine lines of nine cells; the file was not read"},
      {"numbered", "#1\r\n" + gridRows(kB), CollectionForm::Numbered, 1, {zeros(kB)}, ""},
  };
  TempDir dir;
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    const std::string path = write(dir, c.name, c.content);
    const CollectionScan scan = scanCollection(path);
    EXPECT_EQ(scan.problem, CollectionScan::Problem::None);
    EXPECT_EQ(scan.form, c.form);
    EXPECT_EQ(countPuzzles(path), c.puzzles);
    std::string problem = c.problem;
    if (auto at = problem.find('@'); at != std::string::npos) problem.replace(at, 1, path);
    EXPECT_EQ(collectionProblemText(scan, path), problem);
    for (std::size_t n = 0; n < c.expected.size(); ++n) {
      const PuzzleRowsRead read = readPuzzleRows(path, int(n) + 1);
      EXPECT_EQ(read.status, PuzzleRowsRead::Status::Found);
      EXPECT_EQ(rowsText(read), c.expected[n]);
    }
    EXPECT_EQ(readPuzzleRows(path, c.puzzles + 1).status, PuzzleRowsRead::Status::NotFound);
  }
}

TEST(CollectionForms, BinaryAndOversizedFilesAreRefusedWithAMessage) {
  TempDir dir;
  const std::string binary = write(dir, "binary", std::string("\x7f" "ELF\0\0\1", 7) + kA);
  EXPECT_EQ(scanCollection(binary).problem, CollectionScan::Problem::Binary);
  EXPECT_EQ(collectionProblemText(scanCollection(binary), binary), binary + " is not a text file of puzzles");
  EXPECT_EQ(countPuzzles(binary), 0);

  const std::string large = dir.file("large");
  {
    std::ofstream out(large, std::ios::binary);
    out.seekp(kMaxCollectionBytes);
    out.put('\n');
  }
  EXPECT_EQ(scanCollection(large).problem, CollectionScan::Problem::TooLarge);
  EXPECT_EQ(collectionProblemText(scanCollection(large), large),
            large + " is too large to read as a puzzle collection (more than 64 MB)");
  EXPECT_EQ(readPuzzleRows(large, 1).status, PuzzleRowsRead::Status::Unreadable);
}

TEST(CollectionForms, SavingIntoAOnePerLineFileAddsALineInItsOwnLineEnds) {
  struct Case { const char* name; std::string content, after; int number; };  // after kB was appended as `number`
  const Case cases[] = {
      {"lf", "# list\n" + kA + "\n", "# list\n" + kA + "\n" + kB + "\n", 2},
      {"crlf", kA + " 1 Easy\r\n" + kA + "\r\n", kA + " 1 Easy\r\n" + kA + "\r\n" + kB + "\r\n", 3},
      {"no-final-end", kA, kA + "\n" + kB + "\n", 2},
      {"bad-lines", kA + "\n" + kA.substr(1) + "\n", kA + "\n" + kA.substr(1) + "\n" + kB + "\n", 2},
      {"numbered", "#1\r\n" + gridRows(kA), "#1\r\n" + gridRows(kA) + "\r\n#2\r\n" + gridRows(kB), 2},
  };
  TempDir dir;
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    const std::string path = write(dir, c.name, c.content);
    EXPECT_EQ(appendPuzzle(path, kB), c.number);
    EXPECT_EQ(test::readFile(path), c.after);
    EXPECT_EQ(countPuzzles(path), c.number);
    EXPECT_EQ(rowsText(readPuzzleRows(path, c.number)), zeros(kB));
  }
}

TEST(CollectionForms, ABatchIsAppendedAsItsPuzzlesOneByOneWouldBe) {
  // The same file, whether kB and kA come in one batch or one after the other.
  const std::string cases[] = {"",  // missing
                               "#1\r\n" + gridRows(kA), kA + "\n", kA, gridRows(kA), " \n\n"};
  TempDir dir;
  int k = 0;
  for (const std::string& content : cases) {
    SCOPED_TRACE(content);
    const std::string name = std::to_string(k++);
    const std::string batch = dir.file("batch" + name), single = dir.file("single" + name);
    if (!content.empty()) {
      write(dir, "batch" + name, content);
      write(dir, "single" + name, content);
    }
    const std::optional<int> one = appendPuzzle(single, kB);
    const std::optional<int> two = appendPuzzle(single, kA);
    ASSERT_TRUE(one && two);
    EXPECT_EQ(appendPuzzles(batch, {kB, kA}), two);
    EXPECT_EQ(test::readFile(batch), test::readFile(single));
  }
}

// A file no read takes, or one of other text (an export, a saved log), is left as it was.
TEST(CollectionForms, NothingIsAppendedToAFileNoReadTakesOrOfOtherText) {
  TempDir dir;
  const std::string binaryText("\x09\x08\x04\0\0\0\x10\0", 8);
  const std::string otherText = "PUZZLE\n\"\",\"\",\"3\",\"\",\"2\",\"\",\"6\",\"\",\"\"\n";
  const std::string binary = write(dir, "sheet.csv", binaryText), other = write(dir, "export.csv", otherText);
  FileResult why;
  EXPECT_FALSE(appendPuzzle(binary, kB, &why).has_value());
  EXPECT_EQ(why.reason, binary + " is not a text file of puzzles");
  EXPECT_EQ(test::readFile(binary), binaryText);
  EXPECT_FALSE(appendPuzzles(other, {kB, kA}, &why).has_value());
  EXPECT_EQ(why.reason, "it holds text but no puzzles; puzzles are added only to a collection or a new file");
  EXPECT_EQ(test::readFile(other), otherText);
}

TEST(CollectionForms, SavingTheGridIntoAOnePerLineFileMakesItTheLastPuzzle) {
  TempDir dir;
  const std::string path = write(dir, "list.txt", kA + "\n" + kA + "\n");
  test::TestSession t;
  test::loadGivens(t.session, kB);
  t.session.grid[2].value = 5;  // a digit placed by hand is not saved
  ASSERT_TRUE(saveGridToFile(t.session, path));
  EXPECT_EQ(test::readFile(path), kA + "\n" + kA + "\n" + kB + "\n");
  EXPECT_EQ(t.session.collection.TotalPuzzles, 3);
  EXPECT_EQ(t.session.collection.CurrentPuzzleNumber, 3);
  EXPECT_EQ(puzzleNumberText(t.session.collection.origin()).value_or(""), "3");
  EXPECT_EQ(puzzleTitle(t.session.collection.origin()), "Puzzle 3 of 3 (64 blanks)");
}

TEST(PuzzleText, OneLineOrNineLinesElseAReason) {
  const std::pair<std::string, std::string> cases[] = {  // text, puzzle or "!" + error
      {kA, kA},
      {"  " + kA + "  \n\n", kA},
      {"\n" + gridRows(kA, "\n"), kA},
      {gridRows(kA), kA},
      {"", "!The text holds no puzzle."},
      {kA.substr(1), "!A puzzle on one line has 81 cells; this line has 80 characters."},
      {kA + "1", "!A puzzle on one line has 81 cells; this line has 82 characters."},
      {"x" + kA.substr(1), "!A puzzle line holds only the digits 1 to 9 and \".\", \"0\" or \"-\" for a blank."},
      {gridRows(kA, "\n").substr(10),
       "!A puzzle is one line of 81 cells or nine lines of nine cells; the text has 8 lines."},
      {"1234567890\n" + gridRows(kA, "\n").substr(10),
       "!Line 1 is not a row of nine cells (digits 1 to 9, \".\", \"0\" or \"-\")."},
  };
  for (const auto& [text, expected] : cases) {
    const PuzzleTextParse parse = parsePuzzleText(text);
    EXPECT_EQ(parse.ok() ? parse.puzzle : "!" + parse.error, expected) << text;
  }
}

}  // namespace
}  // namespace tessaly
