// Rule hints around their reports (the command-line cases cli/hint-*), the cell hint, the pointer read-outs.

#include <gtest/gtest.h>

#include "play/Hints.h"
#include "play/PlayTestSupport.h"
#include "solver/SolverEngine.h"

namespace tessaly {
namespace {

using Lines = std::vector<std::string>;

/// Every cell's value, given mark and candidates.
std::string board(const Session& s) {
  std::string text;
  for (int c = 1; c <= kCells; ++c)
    text += std::to_string(s.grid[c].value) + (s.grid[c].given ? "g" : "-") + s.grid[c].candidates.text() + " ";
  return text;
}

TEST(RuleHint, TheBoardStaysAsItWasAndARepeatGivesTheSameReport) {
  // The reports are those of the command-line cases, whatever the rule order.
  const std::string top95 = test::puzzleFile("top95.sud");
  const std::tuple<const char*, std::string, int, int> cases[] = {  // case, file, puzzle, hint index
      {"hint-rule2", test::kSingles, test::kDiabolical1038, 1},
      {"hint-rule5-findings", test::kPe96, 1, 4},
      {"hint-all-rules-found", test::kSingles, test::kKaggleEasy181, kAllRulesHint},
      {"hint-rule1-solves", test::kPe96, 1, 0},
      {"hint-nothing-found", top95, 20, 5},
      {"hint-all-rules", top95, 20, kAllRulesHint}};  // Rule 4 reduces
  for (const auto& [cliCase, file, number, index] : cases) {
    SCOPED_TRACE(cliCase);
    test::TestSession t;
    Session& s = t.session;
    ASSERT_TRUE(readPuzzle(s, file, number));
    s.config.RuleOrder = "65432";
    s.run.RuleTable = {0, 7, 6, 5, 4, 3, 2};
    const std::string before = board(s);
    const int blanks = s.BlanksLeft;
    runRuleHint(s, index);
    const Lines report = hintTexts(s.hints);
    EXPECT_EQ(test::joinLines(report), test::readFile(test::dataFile(std::string("cli/") + cliCase + ".out")));
    EXPECT_EQ(board(s), before);
    EXPECT_EQ(s.BlanksLeft, blanks);
    EXPECT_TRUE(s.run.mode == RunState::Waiting && t.ui.messages.empty());
    // The narration stays in the log, and the recorded count covers it.
    EXPECT_EQ(s.log.RecordedLineCount, s.log.TotalLines());
    if (report.size() > 2) {
      EXPECT_EQ(std::string(s.log.text(s.log.TotalLines())), report.back());
    }
    runRuleHint(s, index);  // only the new lines of the log count
    EXPECT_EQ(hintTexts(s.hints), report);
  }
}

TEST(RuleHint, WithManualPlayTheBoardStaysTheSummariesAreRefreshedAndHintLinesSelectOrPlace) {
  test::ManualSession m;
  Session& s = m.session;
  ASSERT_TRUE(m.read(test::kPe96, 1));
  const std::string fresh = board(s);
  runRuleHint(s, 0, &m.play);  // Rule 1 alone would solve it: it stays unsolved, and nothing is said
  EXPECT_EQ(s.hints[2].text, "THE PUZZLE IS SOLVED");
  EXPECT_EQ(board(s), fresh);
  EXPECT_EQ(s.BlanksLeft, 49);
  EXPECT_TRUE(m.recorder.messages.empty());

  // A left click on a placement selects its cell, a right click places its digit.
  ASSERT_EQ(s.hints[3], (HintLine{HintKind::Placement, 1, 4, "Row= 1, Col= 1, Cell= 1, Value= 4"}));
  for (int notARowLine : {0, 2, 99}) hintLineClicked(s, m.play, notARowLine, true);
  EXPECT_EQ(m.play.selectedCell, 0);
  hintLineClicked(s, m.play, 3, false);
  EXPECT_TRUE(m.play.selectedCell == 1 && m.play.highlightedCell == 1 && m.play.cellChoice.text() == "45");
  EXPECT_EQ(s.grid[1].value, 0);
  hintLineClicked(s, m.play, 3, true);
  EXPECT_EQ(s.grid[1].value, 4);
  EXPECT_EQ(m.moves(), "C01 = 4");

  m.type(59, 4);  // refused: cell 76 is left stale without choices
  ASSERT_EQ(s.grid[76].candidates.text(), "");
  const std::string before = board(s);
  m.play.PossibleInRow.fill("stale");
  m.play.PossibleInCol.fill("stale");
  runRuleHint(s, 2, &m.play);
  EXPECT_EQ(board(s), before);
  EXPECT_EQ(s.BlanksLeft, 48);
  // Recomputed from the values: the refused 4 plays no part.
  EXPECT_EQ(m.play.PossibleInRow[0] + "|" + m.play.PossibleInCol[0] + "|" + m.play.PossibleInRow[8],
            "12356789|1  2  3  5  6  7  8  9  |123456789");
  EXPECT_EQ(m.moves(), "C01 = 4");
}

TEST(RuleHint, TheRunStartsFromEmptyRecordsReadsOnlyItsOwnLinesAndPutsTheBoardBackWhenTheLogIsFull) {
  test::TestSession t;
  Session& s = t.session;
  ASSERT_TRUE(readPuzzle(s, test::kSingles, test::kDiabolical1038));
  s.run.mode = RunState::Released;  // stepping
  s.run.guessStack.push(GuessLevel{QueueEntry{0, 0, 5, 2, CandidateSet::fromText("3")}, std::string(81, '0')});
  s.run.candidateQueue.insert(QueueEntry{2, 3, 5, 2, CandidateSet::fromText("23")});
  s.BlanksLeft = 0;  // wrong: recounted from the grid, or no rule would run
  runRuleHint(s, 1);
  EXPECT_EQ(s.hints.size(), 17u);
  EXPECT_EQ(t.pacer.pauses, 0);
  EXPECT_EQ(s.run.mode, RunState::Released);
  EXPECT_TRUE(s.run.guessStack.empty() && s.run.candidateQueue.empty());
  EXPECT_EQ(s.BlanksLeft, kCells - s.grid.filledCount());

  const std::string before = board(s);
  while (s.log.TotalLines() < EventLog::kCapacity - 3) s.logEvent(kStyleNormal, "filler");
  runRuleHint(s, 1);
  EXPECT_EQ(t.ui.messages, (Lines{"Event log is full (5000 lines)"}));
  EXPECT_EQ(board(s), before);
  EXPECT_EQ(s.run.mode, RunState::Released);
  EXPECT_TRUE(s.hints.empty());
  EXPECT_EQ(s.log.TotalLines(), EventLog::kCapacity);

  // Lines an earlier run left in the log that look like findings are not read.
  test::TestSession u;
  ASSERT_TRUE(readPuzzle(u.session, test::puzzleFile("top95.sud"), 20));
  u.session.logEvent(kStyleNormal,
                     "Place additional 3 single values generated, the puzzle appears to have been solved");
  u.session.logEvent(kStyleNormal, "Set row 1, col 1, cell 1 to value 5");
  runRuleHint(u.session, 0);
  EXPECT_EQ(hintTexts(u.session.hints), (Lines{"APPLY RULE 1", "This rule did not generate any single values"}));
}

TEST(RuleHint, AnEarlierRunsFindingsInTheLogPlayNoPart) {
  // A Solve that guesses, retracts and ends solved leaves its findings in the
  // log; the board is then set to another puzzle without clearing the log.
  test::TestSession other;
  ASSERT_TRUE(readPuzzle(other.session, test::kSingles, test::kKaggleEasy181));
  const BoardSnapshot puzzle = saveBoardSnapshot(other.session);
  test::TestSession t;
  Session& s = t.session;
  ASSERT_TRUE(readPuzzle(s, test::puzzleFile("top95.sud"), 2));
  SolverEngine(s).solveCommand();
  const std::string earlier = test::joinLines(test::logLines(s));
  ASSERT_NE(earlier.find("04Retry row"), std::string::npos);
  ASSERT_NE(earlier.find("solved"), std::string::npos);
  restoreBoardSnapshot(s, puzzle);
  s.run.mode = RunState::Waiting;
  runRuleHint(s, kAllRulesHint);
  EXPECT_EQ(test::joinLines(hintTexts(s.hints)), test::readFile(test::dataFile("cli/hint-all-rules-found.out")));
}

TEST(CellHint, TheOpenCellWithFewestChoicesLowestFirstAndThePointerReadouts) {
  test::ManualSession m;
  ASSERT_TRUE(m.read(test::kPe96, 1));
  EXPECT_EQ(candidateReadout(m.session, 1) + "|" + candidateReadout(m.session, 3) + "|" + boxReadout(4),
            "Cell 1, Choices=45|Cell 3, Choices=3|This is box number 4");
  // Givens show one digit each but are never hinted; cells 42, 43 and 76 have
  // one choice, the lowest wins.
  EXPECT_EQ(cellHint(m.session, &m.play), 42);
  EXPECT_EQ(m.recorder.events, (Lines{"selected 42", "repaint", "message Cell 42 has choices: 4"}));
  EXPECT_TRUE(m.play.selectedCell == 42 && m.play.cellChoice.text() == "4");
  // Its 4 leaves cell 39 of the same row the single choice 9.
  m.type(42, 4);
  EXPECT_EQ(cellHint(m.session, &m.play), 39);
  EXPECT_EQ(m.recorder.messages.back(), "Cell 39 has choices: 9");

  m.load(test::kPe96Solution);
  EXPECT_EQ(cellHint(m.session, &m.play), 0);
  EXPECT_EQ(m.recorder.messages.back(), "Sorry no hints");
  EXPECT_EQ(m.play.selectedCell, 0);
}

}  // namespace
}  // namespace tessaly
