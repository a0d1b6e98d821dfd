#include <gtest/gtest.h>

#include "model/FileUtil.h"
#include "solver/ReadPuzzle.h"
#include "support/TestSupport.h"

namespace tessaly {
namespace {

const std::string kPuzzle1 = "#1\r\n4..1...7.\r\n.2...8..1\r\n..9.3....\r\n1...5..8.\r\n...2.6...\r\n.7..4...3\r\n"
                             "....1.6..\r\n8..7...2.\r\n.3...9..5\r\n";

class ReadPuzzleTest : public ::testing::Test {
 protected:
  test::TestSession t;
  Session& s = t.session;
  test::TempDir dir;
  std::string write(const std::string& name, const std::string& content) {
    std::string path = dir.file(name);
    EXPECT_TRUE(writeFileAtomically(path, content));
    return path;
  }
};

TEST_F(ReadPuzzleTest, AReadWritesItsLinesAndSetsTheTitle) {
  const std::string path = write("a.sud", kPuzzle1 + "\r\n" + kPuzzle1);
  s.RunMode = kRunReleased;
  ASSERT_TRUE(readPuzzle(s, path, -1));
  EXPECT_EQ(s.CurrentPuzzleNumber, 2);
  EXPECT_EQ(s.PuzNumNow, "2");
  EXPECT_EQ(s.PuzzleTitle, "Puzzle 2 of 2 (57 blanks)");
  EXPECT_EQ(test::logLines(s), (std::vector<std::string>{
                                   "00Puzzle has been read and analysed",
                                   "00Possible candidate numbers for each cell are shown in 'Choices for cells'",
                                   "00",
                                   "00There are 57 blank cells in the puzzle",
                                   "00",
                                   "00Click Start to commence",
                               }));
  EXPECT_EQ(s.RunMode, kRunWaiting);
  EXPECT_EQ(t.pacer.pauses, 0);
  EXPECT_EQ(s.GivenCount, 24);
  // Plain candidates only: nothing is placed while reading.
  EXPECT_EQ(s.grid.filledCount(), 24);
  EXPECT_EQ(s.grid[1].candidates.text(), "4");
  EXPECT_EQ(s.grid[2].candidates.text(), "568");
  EXPECT_TRUE(t.ui.messages.empty());
}

TEST_F(ReadPuzzleTest, ProblemsAreToldAndLeaveTheGridAlone) {
  const std::string empty = write("empty.sud", "no header here\r\n");
  const std::string one = write("one.sud", kPuzzle1);
  EXPECT_FALSE(readPuzzle(s, empty, 1));
  EXPECT_FALSE(readPuzzle(s, one, 130));
  ASSERT_EQ(t.ui.messages.size(), 2u);
  EXPECT_EQ(t.ui.messages[0], empty + " does not appear to have any puzzles");
  EXPECT_EQ(t.ui.messages[1], "Puzzle number 130 not found in file: " + one);
  EXPECT_EQ(s.grid.filledCount(), 0);
  EXPECT_EQ(s.log.TotalLines(), 0);
}

TEST_F(ReadPuzzleTest, DuplicateGivensAreRefusedButStayOnScreen) {
  const std::string path = write("dup.sud", "#1\r\n44.......\r\n\r\n\r\n\r\n\r\n\r\n\r\n\r\n\r\n");
  EXPECT_FALSE(readPuzzle(s, path, 1));
  EXPECT_EQ(t.ui.messages, (std::vector<std::string>{
                               "This Puzzle does not appear to be valid, please check fixed values for duplicates"}));
  EXPECT_EQ(s.grid[1].value, 4);
  EXPECT_EQ(s.grid[2].value, 4);
  EXPECT_EQ(s.log.TotalLines(), 0);
}

TEST_F(ReadPuzzleTest, ACellWithoutCandidatesMarksThePuzzleUnsolvable) {
  // Cell 9 sees 1..8 in its row and 9 in its column.
  const std::string path = write("dead.sud", "#1\r\n12345678.\r\n........9\r\n\r\n\r\n\r\n\r\n\r\n\r\n\r\n");
  EXPECT_FALSE(readPuzzle(s, path, 1));
  EXPECT_EQ(t.ui.messages, (std::vector<std::string>{"This Puzzle appears unsolvable!! Please check fixed values"}));
  EXPECT_EQ(s.log.line(s.log.TotalLines()), "04This puzzle does not appear to have a solution!");
}

TEST_F(ReadPuzzleTest, AShortPuzzleAtTheEndIsIncomplete) {
  const std::string path = write("short.sud", kPuzzle1 + "\r\n#2\r\n1........\r\n");
  EXPECT_FALSE(readPuzzle(s, path, 2));
  EXPECT_EQ(t.ui.messages, (std::vector<std::string>{"Puzzle number 2 is incomplete in file: " + path}));
}

}  // namespace
}  // namespace tessaly
