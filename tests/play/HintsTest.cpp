// Rule hints on real puzzles where each rule finds single values and where it
// finds nothing, compared as whole reports; the board after a hint; the cell
// hint; clicking hint lines; the pointer read-outs.

#include <gtest/gtest.h>

#include "play/Hints.h"
#include "play/ManualPlay.h"
#include "play/PlayTestSupport.h"
#include "solver/SolverEngine.h"
#include "support/TestSupport.h"

namespace tessaly {
namespace {

using Lines = std::vector<std::string>;

const char* const kLogic = "These single values were deduced based on the following logic:";
const char* const kNothing = "This rule did not generate any single values";
const char* const kRule1Shown = "NOW REMOVE DUPLICATES AS A RESULT OF ANY SINGLES GENERATED ABOVE";

struct HintCase {
  const char* name;
  const char* set;
  int number;
  int index;
  Lines report;
};

const HintCase kFoundCases[] = {
    {"Rule2",
     "singles.sud",
     test::kDiabolical1038,
     1,
     {"APPLY RULE 2", "This rule generated 1 single values:", "Row= 1, Col= 5, Cell= 5, Value= 3", kLogic,
      "Apply Rule 2", "Rule 2: in box 3, choice 2 appears once in row 1",
      "Remove 2 from choice 23 in row  1, col  5, cell 5", "End Rule 2: made 1 reductions", kRule1Shown,
      "Remove row duplicate 3 from choice 139 in row 1, col 1, cell 1",
      "Remove row duplicate 3 from choice 135 in row 1, col 7, cell 7",
      "Remove row duplicate 3 from choice 235 in row 1, col 9, cell 9",
      "Remove col duplicate 3 from choice 2346 in row 3, col 5, cell 23",
      "Remove col duplicate 3 from choice 1347 in row 4, col 5, cell 32",
      "Remove box duplicate 3 from choice 2346 in row 3, col 4, cell 22", "Place additional 1 single values generated",
      "Set row 1, col 5, cell 5 to value 3"}},
    {"Rule3",
     "singles.sud",
     test::kDiabolical9,
     2,
     {"APPLY RULE 3", "This rule generated 1 single values:", "Row= 2, Col= 7, Cell= 16, Value= 9", kLogic,
      "Apply Rule 3", "Rule 3: row 2 has duplicate pair", "Remove 5 from choice 59 in cell 16",
      "End Rule 3: made 1 reductions", kRule1Shown, "Place additional 1 single values generated",
      "Set row 2, col 7, cell 16 to value 9"}},
    {"Rule4",
     "singles.sud",
     test::kDiabolical1875,
     3,
     {"APPLY RULE 4", "This rule generated 1 single values:", "Row= 5, Col= 6, Cell= 42, Value= 6", kLogic,
      "Apply Rule 4", "Rule 4: box 5, choice 1 occurs in col 5 of this box only", "Remove 1 from choice 16 in cell 42",
      "Rule 4: box 3, choice 9 occurs in row 2 of this box only", "Remove 9 from choice 2479 in cell 7",
      "Rule 4: box 6, choice 9 occurs in row 5 of this box only", "Remove 9 from choice 1579 in cell 36",
      "Rule 4: box 4, choice 6 occurs in row 6 of this box only", "Remove 6 from choice 356 in cell 38",
      "End Rule 4: made 4 reductions", kRule1Shown, "Remove row duplicate 6 from choice 356 in row 5, col 4, cell 40",
      "Remove col duplicate 6 from choice 267 in row 8, col 6, cell 69",
      "Remove col duplicate 6 from choice 167 in row 9, col 6, cell 78", "Place additional 1 single values generated",
      "Set row 5, col 6, cell 42 to value 6"}},
    {"Rule5",
     "singles.sud",
     test::kDiabolical118,
     4,
     {"APPLY RULE 5", "This rule generated 1 single values:", "Row= 6, Col= 4, Cell= 49, Value= 3", kLogic,
      "Apply Rule 5", "Rule 5: in box 5, choice 3 occurs only once in row 6, col 4,cell 49 (389)",
      "Set row 6, col 4, cell 49 to value 3", "End Rule 5: made 1 reductions", kRule1Shown,
      "Place additional 1 single values generated", "Set row 6, col 4, cell 49 to value 3"}},
    {"Rule6",
     "singles.sud",
     test::kKaggleEasy181,
     5,
     {"APPLY RULE 6", "This rule generated 1 single values:", "Row= 6, Col= 3, Cell= 48, Value= 5", kLogic,
      "Apply Rule 6", "Rule 6: 3 choice 124 found 3 times in col 3", "Remove 124 from choice 45 in cell 48",
      "End Rule 6: made 1 reductions", kRule1Shown, "Place additional 1 single values generated",
      "Set row 6, col 3, cell 48 to value 5"}},
};

class RuleHintFinds : public ::testing::TestWithParam<HintCase> {};

TEST_P(RuleHintFinds, TheWholeReportAndTheBoardAsBefore) {
  const HintCase& c = GetParam();
  test::TestSession t;
  Session& s = t.session;
  ASSERT_TRUE(readPuzzle(s, test::puzzleFile(c.set), c.number));
  const BoardSnapshot before = saveBoardSnapshot(s);
  const int blanks = s.BlanksLeft;
  const int linesBefore = s.log.TotalLines();

  runRuleHint(s, c.index);
  EXPECT_EQ(s.Hints, c.report);
  EXPECT_TRUE(saveBoardSnapshot(s) == before);
  EXPECT_EQ(s.BlanksLeft, blanks);
  EXPECT_EQ(s.run.mode, RunState::Waiting);
  // The narration stays in the log, and the recorded count covers it.
  EXPECT_EQ(s.log.TotalLines(), linesBefore + int(c.report.size()) - 4);
  EXPECT_EQ(s.log.RecordedLineCount, s.log.TotalLines());
  EXPECT_EQ(std::string(s.log.text(s.log.TotalLines())), c.report.back());
  EXPECT_TRUE(t.ui.messages.empty());

  // The same hint again gives the same report: only the new lines count.
  runRuleHint(s, c.index);
  EXPECT_EQ(s.Hints, c.report);
}

INSTANTIATE_TEST_SUITE_P(PublicPuzzles, RuleHintFinds, ::testing::ValuesIn(kFoundCases),
                         [](const auto& info) { return std::string(info.param.name); });

TEST(RuleHint, NoRuleFindsAnythingOnAHardPuzzle) {
  test::TestSession t;
  Session& s = t.session;
  ASSERT_TRUE(readPuzzle(s, test::puzzleFile("top95.sud"), 20));
  const BoardSnapshot before = saveBoardSnapshot(s);
  for (int k = 0; k <= 5; ++k) {
    runRuleHint(s, k);
    EXPECT_EQ(s.Hints, (Lines{"APPLY RULE " + std::to_string(k + 1), kNothing})) << k;
    EXPECT_TRUE(saveBoardSnapshot(s) == before) << k;
  }
  runRuleHint(s, kAllRulesHint);
  EXPECT_EQ(s.Hints, (Lines{"", kNothing}));
  EXPECT_TRUE(saveBoardSnapshot(s) == before);
}

TEST(RuleHint, AllRulesRunInTheirNumberOrderWhateverTheRuleOrder) {
  test::TestSession t;
  Session& s = t.session;
  ASSERT_TRUE(readPuzzle(s, test::puzzleFile("top95.sud"), 20));
  s.config.RuleOrder = "65432";
  s.run.RuleTable = {0, 7, 6, 5, 4, 3, 2};
  const int first = s.log.TotalLines() + 1;
  runRuleHint(s, kAllRulesHint);
  // Rule 4 reduces without making a single, and calls Rule 1 as every rule does.
  Lines opened;
  for (const std::string& line : test::logLines(s, first))
    if (line.rfind("01Apply Rule", 0) == 0 || line.rfind("01End Rule", 0) == 0) opened.push_back(line);
  EXPECT_EQ(opened, (Lines{"01Apply Rule 1", "01Apply Rule 2", "01End Rule 2: no reductions", "01Apply Rule 3",
                           "01End Rule 3: no reductions", "01Apply Rule 4", "01End Rule 4: made 6 reductions",
                           "01Apply Rule 1", "01Apply Rule 5", "01End Rule 5: no reductions", "01Apply Rule 6",
                           "01End Rule 6: no reductions"}));
  EXPECT_EQ(s.Hints, (Lines{"", kNothing}));
}

TEST(RuleHint, AllRulesOnAPuzzleWhereSomeFind) {
  test::TestSession t;
  Session& s = t.session;
  s.config.RuleOrder = "65432";
  ASSERT_TRUE(readPuzzle(s, test::kSingles, test::kKaggleEasy181));
  const BoardSnapshot before = saveBoardSnapshot(s);
  runRuleHint(s, kAllRulesHint);
  ASSERT_GE(s.Hints.size(), 4u);
  EXPECT_EQ(s.Hints[0], "");
  EXPECT_EQ(s.Hints[1].rfind("This rule generated ", 0), 0u);
  // The rules' own opening lines, in the order they ran.
  std::string order;
  for (const std::string& line : s.Hints) {
    if (line == kRule1Shown) order += '1';
    if (line.rfind("Apply Rule ", 0) == 0) order += line.substr(11);
  }
  ASSERT_FALSE(order.empty());
  EXPECT_EQ(order.front(), '1');
  std::string others;
  for (char rule : order)
    if (rule != '1') others += rule;
  EXPECT_EQ(others, "23456");
  EXPECT_TRUE(saveBoardSnapshot(s) == before);
}

TEST(RuleHint, AHintThatSolvesThePuzzleLeavesItUnsolved) {
  test::ManualSession m;
  Session& s = m.session;
  // A complete grid with its first two cells open: both are singles.
  m.load("..4678912672195348198342567859761423426853791713924856961537284287419635345286179");
  const BoardSnapshot before = saveBoardSnapshot(s);
  runRuleHint(s, 0, &m.play);
  EXPECT_EQ(s.Hints, (Lines{"APPLY RULE 1", "This rule generated 2 single values:", "THE PUZZLE IS SOLVED",
                            "Row= 1, Col= 1, Cell= 1, Value= 5", "Row= 1, Col= 2, Cell= 2, Value= 3", kLogic,
                            kRule1Shown,
                            "Place additional 2 single values generated, the puzzle appears to have been solved",
                            "Set row 1, col 1, cell 1 to value 5", "Set row 1, col 2, cell 2 to value 3"}));
  EXPECT_TRUE(saveBoardSnapshot(s) == before);
  EXPECT_EQ(s.grid[1].value, 0);
  EXPECT_EQ(s.grid[2].candidates.text(), "3");
  EXPECT_EQ(s.BlanksLeft, 2);
  EXPECT_TRUE(m.recorder.messages.empty());
}

TEST(RuleHint, SolvedIsToldWhereverTheRunSaidIt) {
  test::TestSession t;
  Session& s = t.session;
  ASSERT_TRUE(readPuzzle(s, test::kPe96, 1));
  runRuleHint(s, 0);
  // The run's last line is a placement; the word stands in its "Place additional" line.
  EXPECT_EQ(std::string(s.log.text(s.log.TotalLines())), "Set row 9, col 9, cell 81 to value 2");
  ASSERT_GE(s.Hints.size(), 3u);
  EXPECT_EQ(s.Hints[1], "This rule generated 49 single values:");
  EXPECT_EQ(s.Hints[2], "THE PUZZLE IS SOLVED");
}

TEST(RuleHint, Rule5FindingsAreNotTakenForPlacements) {
  test::TestSession t;
  Session& s = t.session;
  ASSERT_TRUE(readPuzzle(s, test::kPe96, 1));
  const BoardSnapshot before = saveBoardSnapshot(s);
  const int first = s.log.TotalLines() + 1;
  runRuleHint(s, 4);
  EXPECT_EQ(s.log.searchForward("Set row", first), first + 2);
  EXPECT_EQ(std::string(s.log.text(first + 2)), "Set row 2, col 2, cell 11 to value 6");
  ASSERT_GE(s.Hints.size(), 53u);
  EXPECT_EQ(s.Hints[1], "This rule generated 49 single values:");
  // Rule 1 places in cell order, after its "Place additional" line.
  EXPECT_EQ(s.Hints[3], "Row= 1, Col= 1, Cell= 1, Value= 4");
  EXPECT_EQ(s.Hints[4], "Row= 1, Col= 2, Cell= 2, Value= 8");
  EXPECT_EQ(s.Hints[51], "Row= 9, Col= 9, Cell= 81, Value= 2");
  EXPECT_EQ(s.Hints[52], kLogic);
  EXPECT_EQ(s.Hints[53], "Apply Rule 5");
  EXPECT_TRUE(saveBoardSnapshot(s) == before);
}

TEST(RuleHint, OlderLinesOfTheLogAreNeverRead) {
  test::TestSession t;
  Session& s = t.session;
  ASSERT_TRUE(readPuzzle(s, test::puzzleFile("top95.sud"), 20));
  s.logEvent(kStyleNormal, "Place additional 3 single values generated, the puzzle appears to have been solved");
  s.logEvent(kStyleNormal, "Set row 1, col 1, cell 1 to value 5");
  runRuleHint(s, 0);
  EXPECT_EQ(s.Hints, (Lines{"APPLY RULE 1", kNothing}));
}

TEST(RuleHint, TheRunNeverPausesAndTheRunStateComesBack) {
  test::TestSession t;
  Session& s = t.session;
  ASSERT_TRUE(readPuzzle(s, test::kSingles, test::kDiabolical1038));
  s.run.mode = RunState::Released;  // stepping
  runRuleHint(s, 1);
  EXPECT_EQ(t.pacer.pauses, 0);
  EXPECT_EQ(s.run.mode, RunState::Released);
  EXPECT_EQ(s.Hints.size(), 17u);
}

TEST(RuleHint, ThePreparationEmptiesTheSolverRecords) {
  test::TestSession t;
  Session& s = t.session;
  ASSERT_TRUE(readPuzzle(s, test::kSingles, test::kDiabolical1038));
  s.run.guessStack.push(GuessLevel{QueueEntry{0, 0, 5, 2, "3"}, std::string(81, '0')});
  s.run.candidateQueue.insert(QueueEntry{2, 3, 5, 2, "23"});
  s.run.RuleReductions = 17;
  s.BlanksLeft = 0;  // wrong: recounted from the grid, or no rule would run
  runRuleHint(s, 1);
  EXPECT_TRUE(s.run.guessStack.empty());
  EXPECT_TRUE(s.run.candidateQueue.empty());
  EXPECT_EQ(s.Hints.size(), 17u);
  EXPECT_EQ(s.BlanksLeft, kCells - s.grid.filledCount());
}

TEST(RuleHint, AFullLogPutsTheBoardBackAndSaysSo) {
  test::TestSession t;
  Session& s = t.session;
  ASSERT_TRUE(readPuzzle(s, test::kSingles, test::kDiabolical1038));
  const BoardSnapshot before = saveBoardSnapshot(s);
  while (s.log.TotalLines() < EventLog::kCapacity - 3) s.logEvent(kStyleNormal, "filler");
  runRuleHint(s, 1);
  EXPECT_EQ(t.ui.messages, (Lines{"Event log is full (5000 lines)"}));
  EXPECT_TRUE(saveBoardSnapshot(s) == before);
  EXPECT_EQ(s.run.mode, RunState::Waiting);
  EXPECT_TRUE(s.Hints.empty());
  EXPECT_EQ(s.log.TotalLines(), EventLog::kCapacity);
}

TEST(RuleHint, WithManualPlayTheSummariesAreRefreshedAndStaleChoicesKept) {
  test::ManualSession m;
  Session& s = m.session;
  ASSERT_TRUE(m.read(test::kPe96, 1));
  m.type(1, 4);
  m.type(59, 4);  // refused: cell 76 is left stale without choices
  ASSERT_EQ(s.grid[76].candidates.text(), "");
  const BoardSnapshot before = saveBoardSnapshot(s);
  m.play.PossibleInRow.fill("stale");
  m.play.PossibleInCol.fill("stale");
  runRuleHint(s, 2, &m.play);
  EXPECT_TRUE(saveBoardSnapshot(s) == before);
  EXPECT_EQ(s.BlanksLeft, 48);
  // Recomputed from the values: the refused 4 plays no part.
  EXPECT_EQ(m.play.PossibleInRow[0], "12356789");
  EXPECT_EQ(m.play.PossibleInCol[0], "1  2  3  5  6  7  8  9  ");
  EXPECT_EQ(m.play.PossibleInRow[8], "123456789");
  EXPECT_EQ(m.play.LogManual, (Lines{"C01 = 4"}));
}

TEST(HintLines, ALeftClickSelectsARightClickPlaces) {
  test::ManualSession m;
  Session& s = m.session;
  ASSERT_TRUE(m.read(test::kSingles, test::kDiabolical1038));
  runRuleHint(s, 1, &m.play);
  ASSERT_EQ(s.Hints[2], "Row= 1, Col= 5, Cell= 5, Value= 3");
  hintLineClicked(s, m.play, 0, true);  // the title: nothing
  hintLineClicked(s, m.play, 3, true);  // not a "Row=" line: nothing
  hintLineClicked(s, m.play, 99, true);
  EXPECT_EQ(m.play.selectedCell, 0);

  hintLineClicked(s, m.play, 2, false);
  EXPECT_EQ(m.play.selectedCell, 5);
  EXPECT_EQ(m.play.highlightedCell, 5);
  EXPECT_EQ(m.play.CellChoice, "23");
  EXPECT_EQ(s.grid[5].value, 0);
  EXPECT_TRUE(m.play.LogManual.empty());

  hintLineClicked(s, m.play, 2, true);
  EXPECT_EQ(s.grid[5].value, 3);
  EXPECT_EQ(m.play.LogManual, (Lines{"C05 = 3"}));
  EXPECT_TRUE(m.recorder.messages.empty());
}

TEST(CellHint, TheOpenCellWithFewestChoicesLowestFirst) {
  test::ManualSession m;
  Session& s = m.session;
  ASSERT_TRUE(m.read(test::kPe96, 1));
  // Givens show one digit each but are never hinted; cells 42, 43 and 76 have
  // one choice, the lowest wins.
  EXPECT_EQ(cellHint(s, &m.play), 42);
  EXPECT_EQ(m.recorder.events, (Lines{"selected 42", "repaint", "message Cell 42 has choices: 4"}));
  EXPECT_EQ(m.play.selectedCell, 42);
  EXPECT_EQ(m.play.CellChoice, "4");

  // Its 4 leaves cell 39 of the same row the single choice 9.
  m.type(42, 4);
  m.recorder.messages.clear();
  EXPECT_EQ(cellHint(s, &m.play), 39);
  EXPECT_EQ(m.recorder.messages, (Lines{"Cell 39 has choices: 9"}));

  // Without manual play the message alone.
  test::TestSession t;
  ASSERT_TRUE(readPuzzle(t.session, test::kPe96, 1));
  EXPECT_EQ(cellHint(t.session), 42);
  EXPECT_EQ(t.ui.messages, (Lines{"Cell 42 has choices: 4"}));
}

TEST(CellHint, AmongEqualCountsTheLowestCell) {
  test::ManualSession m;
  std::string grid(81, '.');
  grid.replace(0, 9, "1234567..");
  m.load(grid);
  m.recorder.events.clear();
  EXPECT_EQ(cellHint(m.session, &m.play), 8);
  EXPECT_EQ(m.recorder.messages, (Lines{"Cell 8 has choices: 89"}));
}

TEST(CellHint, NoOpenCellNoHint) {
  test::ManualSession m;
  m.load(test::kPe96Solution);
  EXPECT_EQ(cellHint(m.session, &m.play), 0);
  EXPECT_EQ(m.recorder.messages, (Lines{"Sorry no hints"}));
  EXPECT_EQ(m.play.selectedCell, 0);
}

TEST(PointerReadouts, CandidateLabelAndBoxFrame) {
  test::TestSession t;
  ASSERT_TRUE(readPuzzle(t.session, test::kPe96, 1));
  EXPECT_EQ(candidateReadout(t.session, 1), "Cell 1, Choices=45");
  EXPECT_EQ(candidateReadout(t.session, 3), "Cell 3, Choices=3");
  EXPECT_EQ(candidateReadout(t.session, 38), "Cell 38, Choices=123459");
  EXPECT_EQ(boxReadout(4), "This is box number 4");
}

TEST(BoardSnapshots, RestoreEveryCellExactly) {
  test::TestSession t;
  Session& s = t.session;
  ASSERT_TRUE(readPuzzle(s, test::kPe96, 1));
  const BoardSnapshot before = saveBoardSnapshot(s);
  s.grid[1].value = 4;
  s.grid[3].given = false;
  s.grid[81].candidates = CandidateSet::of(2);
  EXPECT_FALSE(saveBoardSnapshot(s) == before);
  restoreBoardSnapshot(s, before);
  EXPECT_TRUE(saveBoardSnapshot(s) == before);
  EXPECT_TRUE(s.grid[3].given);
  EXPECT_EQ(s.grid[81].candidates.text(), "2467");
}

}  // namespace
}  // namespace tessaly
