#include <gtest/gtest.h>

#include "solver/ReadPuzzle.h"
#include "support/TestSupport.h"

namespace tessaly {
namespace {

const std::string kPuzzle1 = "#1\r\n4..1...7.\r\n.2...8..1\r\n..9.3....\r\n1...5..8.\r\n...2.6...\r\n.7..4...3\r\n"
                             "....1.6..\r\n8..7...2.\r\n.3...9..5\r\n";

TEST(ReadPuzzle, AReadWritesItsLinesAndSetsTheTitle) {
  test::TestSession t;
  Session& s = t.session;
  test::TempDir dir;
  test::writeFile(dir.file("a.sud"), kPuzzle1 + "\r\n" + kPuzzle1);
  s.run.mode = RunState::Released;
  ASSERT_TRUE(readPuzzle(s, dir.file("a.sud"), -1));  // -1: the last one
  EXPECT_EQ(s.collection.CurrentPuzzleNumber, 2);
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
  EXPECT_EQ(s.run.mode, RunState::Waiting);
  EXPECT_EQ(t.pacer.pauses, 0);
  EXPECT_EQ(s.givenCount(), 24);
  // Plain candidates only: nothing is placed while reading.
  EXPECT_EQ(s.grid.filledCount(), 24);
  EXPECT_EQ(s.grid[1].candidates.text(), "4");
  EXPECT_EQ(s.grid[2].candidates.text(), "568");
  EXPECT_TRUE(t.ui.messages.empty());
}

TEST(ReadPuzzle, ProblemsAreToldAndDuplicateGivensStayOnScreen) {
  const std::string nine = "\r\n\r\n\r\n\r\n\r\n\r\n\r\n\r\n";  // rows 2..9 empty
  // "@" in the message stands for the file's path.
  struct Row { std::string content; int n; std::string message, grid, lastLine; };
  for (const Row& r : {
           Row{"no header here\r\n", 1, "@ does not appear to have any puzzles", std::string(18, '0'), ""},
           Row{kPuzzle1, 130, "Puzzle number 130 not found in file: @", std::string(18, '0'), ""},
           Row{kPuzzle1 + "\r\n#2\r\n1........\r\n", 2, "Puzzle number 2 is incomplete in file: @",
               std::string(18, '0'), ""},
           Row{"#1\r\n44.......\r\n" + nine, 1,
               "This Puzzle does not appear to be valid, please check fixed values for duplicates",
               "44" + std::string(16, '0'), ""},
           // Cell 9 sees 1..8 in its row and 9 in its column.
           Row{"#1\r\n12345678.\r\n........9" + nine, 1, "This Puzzle appears unsolvable!! Please check fixed values",
               "123456780000000009", "04This puzzle does not appear to have a solution!"}}) {
    test::TestSession t;
    Session& s = t.session;
    test::TempDir dir;
    test::writeFile(dir.file("p.sud"), r.content);
    EXPECT_FALSE(readPuzzle(s, dir.file("p.sud"), r.n));
    std::string message = r.message;
    if (const auto at = message.find('@'); at != std::string::npos) message.replace(at, 1, dir.file("p.sud"));
    EXPECT_EQ(t.ui.messages, std::vector<std::string>{message});
    EXPECT_EQ(s.grid.valueCode().substr(0, 18), r.grid) << message;
    EXPECT_EQ(s.log.TotalLines() ? s.log.line(s.log.TotalLines()) : "", r.lastLine) << message;
  }
}

TEST(ReadPuzzle, AWindowClosedDuringTheReadEndsItQuietly) {
  struct ClosingPacer : Pacer {
    bool processEvents() override { return false; }
  } closing;
  ScriptedUserInterface ui;
  Session s{Services{&ui, nullptr, &closing, nullptr, nullptr}};
  s.writesConfiguration = false;
  EXPECT_FALSE(readPuzzle(s, test::puzzleFile("pe96.sud"), 1));
  EXPECT_TRUE(ui.messages.empty());
}

}  // namespace
}  // namespace tessaly
