#include <gtest/gtest.h>

#include "model/CollectionFile.h"
#include "support/TestSupport.h"

namespace tessaly {
namespace {

using Status = PuzzleRowsRead::Status;

const std::string kRows = "4..1...7.\r\n.2...8..1\r\n..9.3....\r\n1...5..8.\r\n...2.6...\r\n.7..4...3\r\n"
                          "....1.6..\r\n8..7...2.\r\n.3...9..5\r\n";

TEST(CollectionFile, PuzzlesAreFoundByPositionWhateverTheirHeaderSays) {
  test::TempDir dir;
  const std::string path = dir.file("odd.sud");
  test::writeFile(path, "#7\r\n" + kRows + "\r\n#3\n" + std::string(9, '1') + "\n" + kRows + "#x\r" + "2........\r" +
                            kRows + "#4\r\n123\r\n");
  EXPECT_EQ(countPuzzles(path), 4);
  EXPECT_EQ(readPuzzleRows(path, 1).rows.at(0), "400100070");
  EXPECT_EQ(readPuzzleRows(path, 2).rows.at(0), "111111111");
  EXPECT_EQ(readPuzzleRows(path, 3).rows.at(0), "200000000");
  EXPECT_EQ(readPuzzleRows(path, 4).status, Status::Incomplete);  // fewer than nine rows follow
  EXPECT_EQ(readPuzzleRows(path, 5).status, Status::NotFound);
  EXPECT_EQ(readPuzzleRows(dir.file("none.sud"), 1).status, Status::Unreadable);
}

TEST(CollectionFile, DotsSpacesAndZerosReadAlike) {
  test::TempDir dir;
  test::writeFile(dir.file("a.sud"), "#1\n4..1...7.\n400100070\n4  1   7 \n4\n\n\n\n\n\n");
  const PuzzleRowsRead read = readPuzzleRows(dir.file("a.sud"), 1);
  ASSERT_EQ(read.status, Status::Found);
  EXPECT_EQ(read.rows, (std::vector<std::string>{"400100070", "400100070", "400100070", "4", "", "", "", "", ""}));
}

TEST(CollectionFile, AppendingNumbersAfterTheLastPuzzle) {
  test::TempDir dir;
  const std::string path = dir.file("new.sud");
  const std::string text = "4..1...7..2...8..1..9.3....1...5..8....2.6....7..4...3....1.6..8..7...2..3...9..5";
  EXPECT_EQ(appendPuzzle(path, text), 1);
  EXPECT_EQ(test::readFile(path), "#1\r\n" + kRows);
  EXPECT_EQ(appendPuzzle(path, text), 2);
  EXPECT_EQ(test::readFile(path), "#1\r\n" + kRows + "\r\n#2\r\n" + kRows);
  EXPECT_FALSE(appendPuzzle(dir.file("missing-folder/x.sud"), text).has_value());
}

TEST(CollectionFile, TheOneLineCodeIsTheNumberThenTheValues) {
  Session s;
  s.collection.CurrentPuzzleNumber = 5;
  s.grid[1].value = 4;
  s.grid[81].value = 9;
  EXPECT_EQ(gridCode(s), "05=4" + std::string(79, '0') + "9");
  s.collection.CurrentPuzzleNumber = 125;
  EXPECT_EQ(gridCode(s).substr(0, 5), "125=4");
}

TEST(CollectionFile, NavigationWrapsRightClickJumpsAndTypedNumbersStayInside) {
  struct Row { NavButton button; bool right; int n, total; double uniform; int expected; };
  for (const Row& r : {Row{NavButton::Previous, false, 1, 125, 0, 125}, Row{NavButton::Previous, false, 5, 125, 0, 4},
                       Row{NavButton::Next, false, 125, 125, 0, 1}, Row{NavButton::Next, false, 7, 125, 0, 8},
                       Row{NavButton::Previous, true, 50, 125, 0, 1}, Row{NavButton::Next, true, 50, 125, 0, 125},
                       Row{NavButton::Random, false, 1, 1, 0.7, 1},
                       Row{NavButton::Random, false, 1, 125, 0.0, 2},  // 1 is never drawn
                       Row{NavButton::Random, false, 1, 125, 0.9999, 125},
                       Row{NavButton::Next, false, 1, 0, 0, 0}})  // no collection: nothing
    EXPECT_EQ(navigationTarget(r.button, r.right, r.n, r.total, r.uniform), r.expected)
        << int(r.button) << r.right << " n=" << r.n << " uniform=" << r.uniform;
  EXPECT_EQ(typedPuzzleNumber("12", 125), 12);
  EXPECT_EQ(typedPuzzleNumber("125", 125), 125);
  for (const char* outside : {"0", "126", "abc", ""}) EXPECT_FALSE(typedPuzzleNumber(outside, 125)) << outside;
}

}  // namespace
}  // namespace tessaly
