// Manual play on puzzle 1 of pe96, from the first click to a game played to the end.

#include <gtest/gtest.h>

#include "play/Explanation.h"
#include "play/ManualPlay.h"
#include "play/PlayTestSupport.h"

namespace tessaly {
namespace {

using Lines = std::vector<std::string>;

int solution(int cell) { return test::kPe96Solution[std::size_t(cell - 1)] - '0'; }

class ManualPlayTest : public ::testing::Test {
 protected:
  ManualPlayTest() { EXPECT_TRUE(m.read(test::kPe96, 1)); }
  std::string choices(int cell) { return s.grid[cell].candidates.text(); }
  /// The selected cell, the highlighted cell and the selected cell's choices.
  std::string selection() const {
    return std::to_string(play.selectedCell) + " " + std::to_string(play.highlightedCell) + " " + play.cellChoice.text();
  }
  /// The explanation of the cell, one string.
  std::string explained(int cell) {
    std::string text;
    for (const std::string& line : explainCandidates(s, cell).lines) text += (text.empty() ? "" : "\n") + line;
    return text;
  }

  test::ManualSession m;
  Session& s = m.session;
  ManualPlay& play = m.play;
  test::Recorder& rec = m.recorder;
};

TEST_F(ManualPlayTest, AClickMovesTheHighlightAGivenIsOnlySelectedOnlyAChoiceGoesIn) {
  // A read prepared manual play. A given's label shows its own digit, so a fresh
  // puzzle has every digit in every row and column summary.
  EXPECT_EQ(selection() + "|" + m.moves(), "0 -1 |");
  for (std::size_t n = 0; n < 9; ++n)
    EXPECT_EQ(play.PossibleInRow[n] + "|" + play.PossibleInCol[n], "123456789|1  .  .  9") << n;
  play.selectCell(2);
  play.selectCell(3);  // holds the given 3
  EXPECT_EQ(selection(), "3 2 4578");
  // Keys on a given do nothing, Delete included; it offers no drop-down.
  for (int value : {ManualPlay::kClear, 4}) play.typed(value);
  EXPECT_TRUE(s.grid[3].value == 3 && s.grid[3].given && play.LogManual().empty());
  EXPECT_TRUE(play.dropDownDigits(7).empty());
  EXPECT_EQ(play.selectedCell, 7);

  play.selectCell(1);                                          // choices 45
  EXPECT_EQ(rec.events, (Lines{"selected 2", "normal 2", "selected 1"}));
  for (int value : {9, 0, 10}) play.typed(value);  // 9 is not among the choices: swallowed
  EXPECT_EQ(s.grid[1].value, 0);
  play.typed(4);
  EXPECT_TRUE(s.grid[1].value == 4 && !s.grid[1].given);
  EXPECT_EQ(play.cellChoice.text(), "");  // a filled cell has no choices
  EXPECT_EQ(choices(2), "578");    // recomputed at once
  EXPECT_EQ(play.dropDownDigits(2), (std::vector<int>{5, 7, 8}));
  EXPECT_EQ(selection(), "2 2 578");
  play.chooseDropDown(9);  // not offered
  play.chooseDropDown(8);
  EXPECT_EQ(m.moves(), "C01 = 4, C02 = 8");
  EXPECT_TRUE(rec.messages.empty());
  EXPECT_EQ(s.log.TotalLines(), 6);  // manual play writes nothing into the log
}

TEST_F(ManualPlayTest, ARefusedPlacementAdvisesAnotherChoiceOrUndoWithTheEmptiedCellInRed) {
  play.selectCell(4);  // choices 49; cell 76 below it has the single choice 4
  rec.events.clear();
  play.typed(4);
  const std::string another =
      "placing 4 in this cell will result in no choices for cell 76\nSelect another choice for this cell";
  // Red while the message is open, normal again afterwards, then the cell itself.
  EXPECT_EQ(rec.events,
            (Lines{"normal 4", "selected 4", "refused 76", "repaint", "message " + another, "normal 76", "normal 4"}));
  EXPECT_TRUE(s.grid[4].value == 0 && play.LogManual().empty());
  // The choices stay as computed with the rejected 4 in place until the next
  // recomputation; the cell stays selected with its choices.
  EXPECT_EQ(choices(76) + "|" + choices(4), "|");
  EXPECT_EQ(selection(), "4 -1 49");
  play.typed(9);
  EXPECT_EQ(s.grid[4].value, 9);
  EXPECT_EQ(choices(76), "4");

  // A wrong 7 in cell 74 is accepted, but it leaves cells 76 and 78 of the same
  // row both with the single choice 4: placing that only choice advises Undo.
  m.type(74, 7);
  EXPECT_EQ(choices(76) + "|" + choices(78), "4|4");
  m.type(76, 4);
  EXPECT_EQ(rec.messages, (Lines{another, "placing 4 in this cell will result in no choices for cell 78\n"
                                          "You must now undo previous placements"}));
  EXPECT_EQ(s.grid[76].value, 0);
  EXPECT_EQ(m.moves(), "C04 = 9, C74 = 7");
  rec.events.clear();
  play.undo();
  EXPECT_EQ(rec.events, (Lines{"selected 74", "normal 74"}));
  EXPECT_TRUE(m.moves() == "C04 = 9" && s.grid[74].value == 0);
  EXPECT_EQ(choices(76) + "|" + choices(78), "4|47");
}

TEST_F(ManualPlayTest, AMoveListClickSelectsDeleteTakesTheCellsEntryOutUndoTakesTheNewestBack) {
  for (auto [cell, digit] : {std::pair{9, 7}, std::pair{1, 4}, std::pair{2, 8}, std::pair{4, 9}}) m.type(cell, digit);
  ASSERT_EQ(m.moves(), "C09 = 7, C01 = 4, C02 = 8, C04 = 9");
  rec.events.clear();
  play.moveListClicked(1);
  play.moveListClicked(5);  // no such entry
  EXPECT_EQ(rec.events, (Lines{"normal 4", "selected 1"}));
  EXPECT_TRUE(play.selectedCell == 1 && play.highlightedCell == 1);

  play.selectCell(2);
  play.typed(ManualPlay::kClear);
  EXPECT_EQ(s.grid[2].value, 0);
  EXPECT_EQ(m.moves(), "C09 = 7, C01 = 4, C04 = 9");
  EXPECT_EQ(choices(2), "58");
  // Delete again on the now empty cell: nothing to take off, the summaries refreshed all the same.
  play.PossibleInRow[0] = "stale";
  play.typed(ManualPlay::kClear);
  play.removeManualLogEntry(81);  // no entry: nothing happens
  EXPECT_EQ(m.moves(), "C09 = 7, C01 = 4, C04 = 9");
  EXPECT_EQ(play.PossibleInRow[0], "123568");  // the givens 2, 3, 6 and the choices of cells 2, 6 and 8

  play.undo();
  EXPECT_TRUE(m.moves() == "C09 = 7, C01 = 4" && s.grid[4].value == 0);
  EXPECT_TRUE(play.selectedCell == 4 && play.highlightedCell == -1);
  play.undo();
  play.undo();
  EXPECT_TRUE(play.LogManual().empty() && rec.messages.empty());
  play.undo();
  EXPECT_EQ(rec.messages, (Lines{"nothing to undo"}));
  EXPECT_EQ(s.BlanksLeft, 49);
}

TEST_F(ManualPlayTest, SummariesListTheDigitsStillOpenAndAGamePlayedToTheEndIsSolvedOnce) {
  std::size_t entriesWhenShown = 0;
  for (int c = 1; c <= kCells; ++c) {
    if (c == 19) {  // rows 1 and 2 are filled: only their givens remain; column 2 lost 8 and 6
      EXPECT_EQ(play.PossibleInRow[0] + "|" + play.PossibleInRow[1] + "|" + play.PossibleInRow[2] + "|" +
                    play.PossibleInCol[1],
                "236|1359|123456789|1  2  3  4  5  7  9  ");
    }
    if (s.grid[c].given) continue;
    m.type(c, solution(c));
    ASSERT_EQ(s.grid[c].value, solution(c)) << "cell " << c;
    if (!rec.messages.empty() && !entriesWhenShown) entriesWhenShown = play.LogManual().size();
  }
  EXPECT_EQ(rec.messages, (Lines{"Puzzle is solved"}));
  EXPECT_EQ(entriesWhenShown, 49u);  // after the last entry was added
  EXPECT_EQ(play.LogManual().back(), "C81 = 2");
  EXPECT_EQ(s.BlanksLeft, 0);
  EXPECT_EQ(s.grid.valueCode(), test::kPe96Solution);
  // Only the givens' own digits are left in the summaries.
  EXPECT_EQ(play.PossibleInRow[0] + "|" + play.PossibleInCol[0] + "|" + play.PossibleInCol[1], "236|7  8  9  |");
  // A Delete and the same digit again tells once more.
  play.selectCell(81);
  play.typed(ManualPlay::kClear);
  m.type(81, 2);
  EXPECT_EQ(rec.messages, (Lines{"Puzzle is solved", "Puzzle is solved"}));
}

TEST_F(ManualPlayTest, ClearStartsTheSamePuzzleAgainUnlessThereIsNoneAndOnAnotherTabNothingHappens) {
  m.type(1, 4);
  m.type(2, 8);
  play.clearManual();
  EXPECT_EQ(selection() + "|" + m.moves(), "0 -1 |");
  EXPECT_EQ(s.grid.valueCode().substr(0, 2), "00");
  EXPECT_EQ(choices(1), "45");
  m.type(1, 4);
  s.collection.CurrentPuzzleNumber = 0;
  play.clearManual();
  EXPECT_TRUE(m.moves() == "C01 = 4" && s.grid[1].value == 4);

  s.collection.CurrentPuzzleNumber = 1;
  s.controls.currentTab = Tab::AutoSolve;
  play.selectCell(2);
  play.typed(ManualPlay::kClear);
  play.undo();
  play.clearManual();
  EXPECT_TRUE(play.dropDownDigits(2).empty());
  EXPECT_EQ(play.selectedCell, 1);
  EXPECT_TRUE(m.moves() == "C01 = 4" && s.grid[1].value == 4 && rec.messages.empty());
  // The moves and the selected cell belong to the puzzle: another one, read on any tab, ends them.
  ASSERT_TRUE(readPuzzle(s, test::kPe96, 1));
  EXPECT_EQ(m.moves() + "|" + std::to_string(play.selectedCell), "|0");
}

TEST_F(ManualPlayTest, TheExplanationOfEachKindOfCellIsOneMessageWithTheBoxHighlighted) {
  // Cell 42, cell 1 once a 4 is in it, and a cell with no choice left: tests/data/play/explanations.txt.
  const CandidateExplanation e = explainCandidates(s, 42);
  EXPECT_EQ(std::vector<int>({e.cell, e.row, e.col, e.box}), std::vector<int>({42, 5, 6, 5}));
  std::string all = explained(42) + "\n\n";
  EXPECT_EQ(explained(79) + "|" + explained(0), "Cell number 79 has a given value of 3|");
  showCandidateExplanation(s, 42, &play);
  EXPECT_EQ(rec.events, (Lines{"box on 5", "repaint", "message " + explained(42), "box off 5"}));

  // A placed value counts in its neighbours but not in its own cell.
  m.type(1, 4);
  all += explained(1) + "\n\n";
  EXPECT_EQ(explainCandidates(s, 2).lines[2] + "|" + explainCandidates(s, 2).lines[3],
            "Row 1 given: numbers 2, 3, 4 and 6|Col 2 given: none");
  m.load("12345678" + std::string(36, '.') + "9" + std::string(36, '.'));  // cell 9 has no choice left
  EXPECT_EQ(all + explained(9) + "\n", test::readFile(test::dataFile("play/explanations.txt")));
}

}  // namespace
}  // namespace tessaly
