#include <gtest/gtest.h>

#include <algorithm>

#include "solver/ReadPuzzle.h"
#include "solver/SolverEngine.h"
#include "support/TestSupport.h"

namespace tessaly {
namespace {

// Project Euler grid 01: Rule 1 alone finishes it.
const std::string kEasy = "..3.2.6..9..3.5..1..18.64....81.29..7.......8..67.82....26.95..8..2.3..9..5.1.3..";
const std::string kSolved = "534678912672195348198342567859761423426853791713924856961537284287419635345286179";

class SolveRunTest : public ::testing::Test {
 protected:
  test::TestSession t;
  Session& s = t.session;
  SolverEngine engine{s};
};

TEST_F(SolveRunTest, AGuessSavesTheUntriedDigitsAndTheGrid) {
  s.run.mode = RunState::NoPause;
  engine.placeValue(5, 2, "248");
  EXPECT_EQ(s.grid[5].value, 2);
  EXPECT_EQ(s.run.guessStack.entry(0), "0000SQ05BX02VL48");
  EXPECT_EQ(s.run.guessStack.entry(1), std::string(81, '0'));
  EXPECT_EQ(s.run.SavedGuessCount, 1);
  EXPECT_EQ(s.run.PlacementCount, 1);
  EXPECT_EQ(test::logLines(s), (std::vector<std::string>{
                                   "00Set row 1, col 5, cell 5 to value 2, multiple choice=248",
                                   "00Current solution saved in case we revert back to other choices"}));
  engine.placeValue(6, 7, "7");
  EXPECT_EQ(s.log.line(3), "00Set row 1, col 6, cell 6 to value 7");
  EXPECT_EQ(s.run.guessStack.levels(), 1);
}

TEST_F(SolveRunTest, ADeadEndRetriesTheNextDigitOfTheLastGuess) {
  // Row 3 holds 1, 2, 4, 5, 6, 7 and box 3 holds 8 and 9: placing 3 in cell 23
  // leaves cell 26, the first of the two open cells of the row, without a candidate.
  std::string puzzle(81, '.');
  for (auto [cell, digit] : {std::pair{19, '1'}, {20, '2'}, {21, '4'}, {22, '5'}, {24, '6'}, {25, '7'}, {9, '8'},
                             {18, '9'}})
    puzzle[std::size_t(cell - 1)] = digit;
  test::loadGivens(s, puzzle);
  s.run.mode = RunState::NoPause;
  s.run.candidateQueue.insert({2, 5, 23, 2, "38"});
  s.run.PlacementCount = 5;  // not the first placement of the run: no random draw
  engine.placeNext();
  const auto log = test::logLines(s);
  ASSERT_GE(log.size(), 4u);
  EXPECT_EQ(log[0], "00Set row 3, col 5, cell 23 to value 3, multiple choice=38");
  EXPECT_EQ(log[1], "00Current solution saved in case we revert back to other choices");
  EXPECT_EQ(log[log.size() - 2], "04OOPs, this placement will leave cell 26 in box 3 with no valid options, must retract");
  EXPECT_EQ(log.back(), "04Retry row 3, col 5, cell 23 with value 8 instead");
  EXPECT_EQ(s.grid[23].value, 0);
  ASSERT_EQ(s.run.candidateQueue.size(), 1);
  EXPECT_EQ(s.run.candidateQueue[0].text(), "0000SQ23BX02VL8");
  EXPECT_TRUE(s.run.guessStack.empty());
  // The retry places 8 without saving a new level.
  const int before = s.log.TotalLines();
  engine.placeNext();
  EXPECT_EQ(s.log.line(before + 1), "00Set row 3, col 5, cell 23 to value 8");
  EXPECT_EQ(s.run.SavedGuessCount, 1);
}

TEST_F(SolveRunTest, AnExhaustedSearchBlanksTheWholeGrid) {
  // Givens that leave cell 9 without candidates; no guess has been made.
  test::loadGivens(s, "12345678.........9" + std::string(63, '.'));
  s.run.mode = RunState::NoPause;
  s.run.candidateQueue.insert({1, 1, 10, 1, "4"});  // any placement; the analysis finds the dead cell
  s.run.PlacementCount = 1;
  engine.placeNext();
  EXPECT_EQ(s.grid.filledCount(), 0);
  EXPECT_EQ(t.ui.messages, (std::vector<std::string>{
                               "There appears to be no possible solution to this puzzle.\nPlease check you number "
                               "placements."}));
  EXPECT_TRUE(s.run.candidateQueue.empty());
  EXPECT_EQ(s.log.line(s.log.TotalLines()),
            "04OOPs, this placement will leave cell 9 in box 3 with no valid options, must retract");
}

TEST_F(SolveRunTest, StartPausesAtEveryPausePointAndEndsWithTheControlsForANewPuzzle) {
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
  EXPECT_EQ(s.grid.filledCount(), 81);
  EXPECT_EQ(s.MesLab, "Solved with no re-tries");
  EXPECT_EQ(s.run.mode, RunState::Silent);
  const Controls& on = s.controls;  // start and next off, edit and clear on
  EXPECT_EQ(std::vector({on.startEnabled, on.nextEnabled, on.editEnabled, on.clearEnabled}),
            std::vector({false, false, true, true}));
  EXPECT_TRUE(t.ui.messages.empty());
}

TEST_F(SolveRunTest, AFullGridStopsStartButSolveStillReportsAndSaysDone) {
  test::loadGivens(s, kSolved);
  engine.startCommand();
  EXPECT_EQ(t.ui.messages, (std::vector<std::string>{"There are no blanks in this puzzle"}));
  EXPECT_EQ(s.log.TotalLines(), 0);

  t.ui.messages.clear();
  test::TempDir dir;
  {
    test::WorkingFolder inside(dir.path());
    engine.computeCandidates(false);
    engine.solveCommand();
  }
  EXPECT_EQ(t.ui.messages, (std::vector<std::string>{"Done"}));
  EXPECT_EQ(s.log.line(1), "00The puzzle is solved");
  EXPECT_EQ(s.log.line(3), "00Solved with no re-tries");
  EXPECT_EQ(test::readFile(dir.file("Eventlog.txt")), "");
}

TEST(SolveRun, ThePlacementLimitAbortsTheRun) {
  // An empty grid: the first placement is a guess, drawn (with the warning) unless
  // the grid comes from a creation, which takes the smallest digit.
  struct Row { bool creation; int limit; std::vector<std::string> messages; };
  for (const Row& r : {Row{false, 5, {"This puzzle might have multiple solutions", "Tried 5 times, solution aborted"}},
                       Row{true, 1, {"Tried 1 times, solution aborted"}}}) {
    test::TestSession t;
    Session& s = t.session;
    s.run.CreationFlag = r.creation;
    s.config.MaxTries = r.limit;
    s.controls.PauseCheck = true;
    SolverEngine(s).startCommand();
    EXPECT_EQ(t.ui.messages, r.messages);
    EXPECT_EQ(s.MesLab, r.messages.back());
    EXPECT_EQ(s.run.PlacementCount, 0);
    EXPECT_EQ(s.run.mode, RunState::Released);
    if (r.creation) { EXPECT_EQ(s.grid[1].value, 1); }  // the smallest digit, not a drawn one
  }
}

TEST_F(SolveRunTest, AFullLogStopsTheCommandWithAMessage) {
  s.config.MaxTries = 1000000;
  s.controls.PauseCheck = true;
  // Hardest-set puzzle with many retractions: more than 5000 lines.
  test::loadGivens(s, "8..........36......7..9.2...5...7.......457.....1...3...1....68..85...1..9....4..");
  engine.startCommand();
  EXPECT_EQ(t.ui.messages, (std::vector<std::string>{"This puzzle might have multiple solutions",
                                                     "Event log is full (5000 lines)"}));
  EXPECT_EQ(s.log.TotalLines(), 5000);
  EXPECT_TRUE(s.controls.editEnabled);
}

/// Every row, column and box holds 1..9 and every given kept its digit.
bool completeAndValid(const Session& s, const std::string& givens) {
  for (int n = 1; n <= 9; ++n)
    for (AreaKind kind : {AreaKind::Row, AreaKind::Col, AreaKind::Box}) {
      std::string digits = s.grid.areaValueString(kind, n);
      std::ranges::sort(digits);
      if (digits != "123456789") return false;
    }
  for (int c = 1; c <= kCells; ++c)
    if (givens[std::size_t(c - 1)] != '0' && s.grid[c].value != givens[std::size_t(c - 1)] - '0') return false;
  return true;
}

TEST(SolveCommand, EveryTop95PuzzleEndsSolvedOrAtThePlacementLimit) {
  const std::string file = test::puzzleFile("top95.sud");
  int solved = 0;
  for (int n = 1; n <= 95; ++n) {
    SCOPED_TRACE("top95 puzzle " + std::to_string(n));
    test::TestSession t;
    Session& s = t.session;
    ASSERT_TRUE(readPuzzle(s, file, n));
    const std::string givens = s.grid.valueCode();
    SolverEngine(s).solveCommand();
    std::vector<std::string> messages = t.ui.messages;
    if (!messages.empty() && messages.front() == "This puzzle might have multiple solutions")
      messages.erase(messages.begin());  // the first guess of a run is drawn
    if (messages == std::vector<std::string>{"Done"}) {
      EXPECT_TRUE(completeAndValid(s, givens)) << s.grid.valueCode();
      ++solved;
    } else {
      EXPECT_EQ(messages, (std::vector<std::string>{"Tried 250 times, solution aborted", "Done"}));
    }
  }
  EXPECT_EQ(solved, 50);  // with the session's seeded draw; the other 45 reach the limit
}

}  // namespace
}  // namespace tessaly
