#include <gtest/gtest.h>

#include "model/CollectionFile.h"
#include "model/FileUtil.h"
#include "support/TestSupport.h"

namespace tessaly {
namespace {

const std::string kRows = "4..1...7.\r\n.2...8..1\r\n..9.3....\r\n1...5..8.\r\n...2.6...\r\n.7..4...3\r\n"
                          "....1.6..\r\n8..7...2.\r\n.3...9..5\r\n";

TEST(CollectionFile, PuzzlesAreFoundByPositionNotByTheirNumber) {
  test::TempDir dir;
  const std::string path = dir.file("odd.sud");
  ASSERT_TRUE(writeFileAtomically(path, "#7\r\n" + kRows + "\r\n#3\n" + std::string(9, '1') + "\n" + kRows +
                                            "#x\r" + "2........\r" + kRows));
  EXPECT_EQ(countPuzzles(path), 3);
  auto first = readPuzzleRows(path, 1);
  ASSERT_EQ(first.status, PuzzleRowsRead::Status::Found);
  EXPECT_EQ(first.rows[0], "400100070");
  auto third = readPuzzleRows(path, 3);
  ASSERT_EQ(third.status, PuzzleRowsRead::Status::Found);
  EXPECT_EQ(third.rows[0], "200000000");
  EXPECT_EQ(readPuzzleRows(path, 4).status, PuzzleRowsRead::Status::NotFound);
}

TEST(CollectionFile, DotsSpacesAndZerosReadAlike) {
  test::TempDir dir;
  const std::string path = dir.file("a.sud");
  ASSERT_TRUE(writeFileAtomically(path, "#1\n4..1...7.\n400100070\n4  1   7 \n4\n\n\n\n\n\n"));
  auto read = readPuzzleRows(path, 1);
  ASSERT_EQ(read.status, PuzzleRowsRead::Status::Found);
  EXPECT_EQ(read.rows[0], "400100070");
  EXPECT_EQ(read.rows[1], "400100070");
  EXPECT_EQ(read.rows[2], "400100070");
  EXPECT_EQ(read.rows[3], "4");
}

TEST(CollectionFile, AHeaderWithFewerThanNineRowsIsIncomplete) {
  test::TempDir dir;
  const std::string path = dir.file("short.sud");
  ASSERT_TRUE(writeFileAtomically(path, "#1\r\n" + kRows + "#2\r\n123\r\n"));
  EXPECT_EQ(readPuzzleRows(path, 2).status, PuzzleRowsRead::Status::Incomplete);
}

TEST(CollectionFile, AppendingNumbersAfterTheLastPuzzle) {
  test::TempDir dir;
  const std::string path = dir.file("new.sud");
  const std::string text = "4..1...7..2...8..1..9.3....1...5..8....2.6....7..4...3....1.6..8..7...2..3...9..5";
  EXPECT_EQ(appendPuzzle(path, text), 1);
  EXPECT_EQ(*readWholeFile(path), "#1\r\n" + kRows);
  EXPECT_EQ(appendPuzzle(path, text), 2);
  EXPECT_EQ(*readWholeFile(path), "#1\r\n" + kRows + "\r\n#2\r\n" + kRows);
  EXPECT_FALSE(appendPuzzle(dir.file("missing-folder/x.sud"), text).has_value());
}

TEST(CollectionFile, TheOneLineCodeIsTheNumberThenTheValues) {
  Session s;
  s.CurrentPuzzleNumber = 5;
  s.grid[1].value = 4;
  s.grid[81].value = 9;
  EXPECT_EQ(gridCode(s), "05=4" + std::string(79, '0') + "9");
  s.CurrentPuzzleNumber = 125;
  EXPECT_EQ(gridCode(s).substr(0, 5), "125=4");
}

TEST(CollectionFile, NavigationWrapsAndRightClickJumps) {
  EXPECT_EQ(navigationTarget(NavButton::Previous, false, 1, 125, 0), 125);
  EXPECT_EQ(navigationTarget(NavButton::Previous, false, 5, 125, 0), 4);
  EXPECT_EQ(navigationTarget(NavButton::Next, false, 125, 125, 0), 1);
  EXPECT_EQ(navigationTarget(NavButton::Previous, true, 50, 125, 0), 1);
  EXPECT_EQ(navigationTarget(NavButton::Next, true, 50, 125, 0), 125);
  EXPECT_EQ(navigationTarget(NavButton::Random, false, 1, 1, 0.7), 1);
  EXPECT_EQ(navigationTarget(NavButton::Random, false, 1, 125, 0.0), 2);     // 1 is never drawn
  EXPECT_EQ(navigationTarget(NavButton::Random, false, 1, 125, 0.9999), 125);
  EXPECT_EQ(navigationTarget(NavButton::Next, false, 1, 0, 0), 0);           // no collection: nothing
}

TEST(CollectionFile, TypedNumbersOutsideTheCollectionDoNothing) {
  EXPECT_EQ(typedPuzzleNumber("12", 125), 12);
  EXPECT_FALSE(typedPuzzleNumber("0", 125));
  EXPECT_FALSE(typedPuzzleNumber("126", 125));
  EXPECT_FALSE(typedPuzzleNumber("abc", 125));
}

}  // namespace
}  // namespace tessaly
