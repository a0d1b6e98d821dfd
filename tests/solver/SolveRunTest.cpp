#include <gtest/gtest.h>

#include "model/FileUtil.h"
#include "solver/ReadPuzzle.h"
#include "solver/SolverEngine.h"
#include "support/TestSupport.h"

namespace tessaly {
namespace {

// Project Euler grid 01: Rule 1 alone finishes it.
const std::string kEasy = "..3.2.6..9..3.5..1..18.64....81.29..7.......8..67.82....26.95..8..2.3..9..5.1.3..";

class SolveRunTest : public ::testing::Test {
 protected:
  test::TestSession t;
  Session& s = t.session;
  SolverEngine engine{s};
};

TEST_F(SolveRunTest, AGuessSavesTheUntriedDigitsAndTheGrid) {
  s.RunMode = kRunNoPause;
  engine.placeValue(5, 2, "248");
  EXPECT_EQ(s.grid[5].value, 2);
  EXPECT_EQ(s.guessStack.entry(0), "0000SQ05BX02VL48");
  EXPECT_EQ(s.guessStack.entry(1), std::string(81, '0'));
  EXPECT_EQ(s.SavedGuessCount, 1);
  EXPECT_EQ(s.PlacementCount, 1);
  EXPECT_EQ(test::logLines(s), (std::vector<std::string>{
                                   "00Set row 1, col 5, cell 5 to value 2, multiple choice=248",
                                   "00Current solution saved in case we revert back to other choices"}));
  engine.placeValue(6, 7, "7");
  EXPECT_EQ(s.log.line(3), "00Set row 1, col 6, cell 6 to value 7");
  EXPECT_EQ(s.guessStack.levels(), 1);
}

TEST_F(SolveRunTest, ADeadEndRetriesTheNextDigitOfTheLastGuess) {
  // Row 3 holds 1, 2, 4, 5, 6, 7 and box 3 holds 8 and 9: placing 3 in cell 23
  // leaves cell 26, the first of the two open cells of the row, without a candidate.
  std::string puzzle(81, '.');
  for (auto [cell, digit] : {std::pair{19, '1'}, {20, '2'}, {21, '4'}, {22, '5'}, {24, '6'}, {25, '7'}, {9, '8'},
                             {18, '9'}})
    puzzle[std::size_t(cell - 1)] = digit;
  test::loadGivens(s, puzzle);
  s.RunMode = kRunNoPause;
  s.candidateQueue.insert({2, 5, 23, 2, "38"});
  s.PlacementCount = 5;  // not the first placement of the run: no random draw
  engine.placeNext();
  const auto log = test::logLines(s);
  ASSERT_GE(log.size(), 4u);
  EXPECT_EQ(log[0], "00Set row 3, col 5, cell 23 to value 3, multiple choice=38");
  EXPECT_EQ(log[1], "00Current solution saved in case we revert back to other choices");
  EXPECT_EQ(log[log.size() - 2], "04OOPs, this placement will leave cell 26 in box 3 with no valid options, must retract");
  EXPECT_EQ(log.back(), "04Retry row 3, col 5, cell 23 with value 8 instead");
  EXPECT_EQ(s.grid[23].value, 0);
  ASSERT_EQ(s.candidateQueue.size(), 1);
  EXPECT_EQ(s.candidateQueue[0].text(), "0000SQ23BX02VL8");
  EXPECT_TRUE(s.guessStack.empty());
  // The retry places 8 without saving a new level.
  const int before = s.log.TotalLines();
  engine.placeNext();
  EXPECT_EQ(s.log.line(before + 1), "00Set row 3, col 5, cell 23 to value 8");
  EXPECT_EQ(s.SavedGuessCount, 1);
}

TEST_F(SolveRunTest, AnExhaustedSearchBlanksTheWholeGrid) {
  // Givens that leave cell 9 without candidates; no guess has been made.
  test::loadGivens(s, "12345678.........9" + std::string(63, '.'));
  s.RunMode = kRunNoPause;
  s.candidateQueue.insert({1, 1, 10, 1, "4"});  // any placement; the analysis finds the dead cell
  s.PlacementCount = 1;
  engine.placeNext();
  EXPECT_EQ(s.grid.filledCount(), 0);
  EXPECT_EQ(t.ui.messages, (std::vector<std::string>{
                               "There appears to be no possible solution to this puzzle.\nPlease check you number "
                               "placements."}));
  EXPECT_TRUE(s.candidateQueue.empty());
  EXPECT_EQ(s.log.line(s.log.TotalLines()),
            "04OOPs, this placement will leave cell 9 in box 3 with no valid options, must retract");
}

TEST_F(SolveRunTest, SolveReportsTheOutcomeAndStatistics) {
  test::TempDir dir;
  ASSERT_TRUE(writeFileAtomically(dir.file("p.sud"), "#1\r\n" + kEasy.substr(0, 9) + "\r\n" + kEasy.substr(9, 9) +
                                                         "\r\n" + kEasy.substr(18, 9) + "\r\n" + kEasy.substr(27, 9) +
                                                         "\r\n" + kEasy.substr(36, 9) + "\r\n" + kEasy.substr(45, 9) +
                                                         "\r\n" + kEasy.substr(54, 9) + "\r\n" + kEasy.substr(63, 9) +
                                                         "\r\n" + kEasy.substr(72, 9) + "\r\n"));
  ASSERT_TRUE(readPuzzle(s, dir.file("p.sud"), 1));
  s.controls.PauseCheck = true;
  engine.startCommand();
  const auto log = test::logLines(s);
  const std::vector<std::string> tail(log.end() - 11, log.end());
  EXPECT_EQ(tail, (std::vector<std::string>{
                      "00The puzzle is solved", "00", "00Solved with no re-tries", "00", "00 Rules statistics",
                      "00   Rule    No of Times Applied   Total Reductions",
                      "00   Rule 2 000                             000",
                      "00   Rule 3 000                             000",
                      "00   Rule 4 000                             000",
                      "00   Rule 5 000                             000",
                      "00   Rule 6 000                             000"}));
  EXPECT_EQ(s.MesLab, "Solved with no re-tries");
  EXPECT_EQ(s.RunMode, kRunSilent);
  EXPECT_FALSE(s.controls.startEnabled);
  EXPECT_TRUE(s.controls.editEnabled);
  EXPECT_EQ(s.grid.filledCount(), 81);
}

TEST_F(SolveRunTest, StartPausesAtEveryPausePointUntilReleased) {
  test::loadGivens(s, kEasy);
  s.controls.PauseCheck = false;
  engine.startCommand();
  // "Ready to start..." plus every deletion and placement line of the run.
  int expected = 0;
  for (int n = 1; n <= s.log.TotalLines(); ++n) {
    const std::string_view text = s.log.text(n);
    if (text.starts_with("Ready to start") || text.starts_with("Remove") || text.starts_with("Set row")) ++expected;
  }
  EXPECT_GT(expected, 40);
  EXPECT_EQ(t.pacer.pauses, expected);
}

TEST_F(SolveRunTest, TheStartOfARunIsNarratedInOrder) {
  test::loadGivens(s, kEasy);
  s.controls.PauseCheck = true;
  engine.startCommand();
  const auto log = test::logLines(s);
  ASSERT_GT(log.size(), 12u);
  EXPECT_EQ(log[0], "00We will start the solution by examining the possible choices of numbers in a cell and in a box.");
  EXPECT_EQ(log[7], "00Sequence of Rules: 123456");
  EXPECT_EQ(log[8], "00Ready to start the solution, click Next");
  EXPECT_EQ(log[9], "00Commence solution");
  EXPECT_EQ(log[10], "00Sequence of Rules: 123456");
  EXPECT_EQ(log[11], "01Apply Rule 1");
}

TEST_F(SolveRunTest, StartOnAFullGridRefuses) {
  test::loadGivens(s, "534678912672195348198342567859761423426853791713924856961537284287419635345286179");
  engine.startCommand();
  EXPECT_EQ(t.ui.messages, (std::vector<std::string>{"There are no blanks in this puzzle"}));
  EXPECT_EQ(s.log.TotalLines(), 0);
}

TEST_F(SolveRunTest, SolveOnAFullGridStillReportsAndSaysDone) {
  test::TempDir dir;
  const auto cwd = std::filesystem::current_path();
  std::filesystem::current_path(dir.path());
  test::loadGivens(s, "534678912672195348198342567859761423426853791713924856961537284287419635345286179");
  engine.computeCandidates(false);
  engine.solveCommand();
  std::filesystem::current_path(cwd);
  EXPECT_EQ(t.ui.messages, (std::vector<std::string>{"Done"}));
  EXPECT_EQ(test::logLines(s, 1).front(), "00The puzzle is solved");
  EXPECT_EQ(s.log.line(3), "00Solved with no re-tries");
  EXPECT_EQ(*readWholeFile(dir.file("Eventlog.txt")), "");
}

TEST_F(SolveRunTest, ThePlacementLimitAbortsTheRun) {
  // An empty grid: the first placement is a guess, so the multiple-solutions
  // warning shows once; then the limit stops the run.
  s.config.MaxTries = 5;
  s.controls.PauseCheck = true;
  engine.startCommand();
  EXPECT_EQ(t.ui.messages, (std::vector<std::string>{"This puzzle might have multiple solutions",
                                                     "Tried 5 times, solution aborted"}));
  EXPECT_EQ(s.MesLab, "Tried 5 times, solution aborted");
  EXPECT_EQ(s.PlacementCount, 0);
  EXPECT_EQ(s.RunMode, kRunReleased);
}

TEST_F(SolveRunTest, AfterACreationTheFirstGuessTakesTheSmallestDigit) {
  s.CreationFlag = true;
  s.config.MaxTries = 1;
  s.controls.PauseCheck = true;
  engine.startCommand();
  EXPECT_EQ(t.ui.messages, (std::vector<std::string>{"Tried 1 times, solution aborted"}));
  EXPECT_EQ(s.grid[1].value, 1);
}

TEST_F(SolveRunTest, AFullLogStopsTheCommandWithAMessage) {
  s.config.MaxTries = 1000000;
  s.controls.PauseCheck = true;
  // Hardest-set puzzle with many retractions: more than 5000 lines.
  test::loadGivens(s, "8..........36......7..9.2...5...7.......457.....1...3...1....68..85...1..9....4..");
  engine.startCommand();
  EXPECT_EQ(t.ui.messages.back(), "Event log is full (5000 lines)");
  EXPECT_EQ(s.log.TotalLines(), 5000);
  EXPECT_TRUE(s.controls.editEnabled);
}

}  // namespace
}  // namespace tessaly
