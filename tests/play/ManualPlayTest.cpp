// Manual play on puzzle 1 of pe96: selecting, typing, the drop-down, refused
// placements with both kinds of advice, Delete, Undo, the move list, the
// summaries and a game played to the end.

#include <gtest/gtest.h>

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

  test::ManualSession m;
  Session& s = m.session;
  ManualPlay& play = m.play;
  test::Recorder& rec = m.recorder;
};

TEST_F(ManualPlayTest, ReadingWhileTheTabIsCurrentPreparesManualPlay) {
  EXPECT_TRUE(play.LogManual().empty());
  EXPECT_EQ(play.selectedCell, 0);
  EXPECT_EQ(play.highlightedCell, -1);
  EXPECT_EQ(play.CellChoice, "");
  // A given's label shows its own digit, so a fresh puzzle has every digit in
  // every row and column summary.
  for (std::size_t n = 0; n < 9; ++n) {
    EXPECT_EQ(play.PossibleInRow[n], "123456789");
    EXPECT_EQ(play.PossibleInCol[n], "1  .  .  9");
  }
  EXPECT_EQ(choices(2), "4578");
}

TEST_F(ManualPlayTest, SelectingMovesTheHighlightAGivenIsSelectedAndNothingElse) {
  play.selectCell(1);
  play.selectCell(2);
  EXPECT_EQ(rec.events, (Lines{"selected 1", "normal 1", "selected 2"}));
  EXPECT_EQ(play.highlightedCell, 2);
  EXPECT_EQ(play.CellChoice, "4578");
  rec.events.clear();
  play.selectCell(3);  // holds the given 3
  EXPECT_EQ(play.selectedCell, 3);
  EXPECT_EQ(play.CellChoice, "4578");
  EXPECT_EQ(play.highlightedCell, 2);
  EXPECT_TRUE(rec.events.empty());
  // Keys on a given do nothing, Delete included; it offers no drop-down.
  EXPECT_EQ(play.keyReleased(ManualPlay::kDeleteKey), ManualPlay::kDeleteKey);
  EXPECT_EQ(play.keyReleased(ManualPlay::kDigitKey1 + 3), ManualPlay::kDigitKey1 + 3);
  EXPECT_EQ(s.grid[3].value, 3);
  EXPECT_TRUE(s.grid[3].given);
  EXPECT_TRUE(play.LogManual().empty());
  EXPECT_TRUE(play.dropDownDigits(7).empty());
  EXPECT_EQ(play.selectedCell, 7);
}

TEST_F(ManualPlayTest, OnlyAChoiceFromTheMainKeyboardOrTheDropDownGoesIn) {
  play.selectCell(1);  // choices 45
  EXPECT_EQ(play.keyReleased(ManualPlay::kDigitKey1 + 8), 0);  // 9: swallowed
  EXPECT_EQ(play.keyReleased(65), 65);                         // A: nothing
  EXPECT_EQ(play.keyReleased(100), 100);                       // the pad's 4: nothing
  EXPECT_EQ(s.grid[1].value, 0);
  EXPECT_EQ(play.keyReleased(ManualPlay::kDigitKey1 + 3), ManualPlay::kDigitKey1 + 3);
  EXPECT_EQ(s.grid[1].value, 4);
  EXPECT_FALSE(s.grid[1].given);
  EXPECT_EQ(play.CellChoice, "");  // a filled cell has no choices
  EXPECT_EQ(choices(2), "578");    // recomputed at once

  EXPECT_EQ(play.dropDownDigits(2), (std::vector<int>{5, 7, 8}));
  EXPECT_EQ(play.selectedCell, 2);
  EXPECT_EQ(play.CellChoice, "578");
  play.chooseDropDown(9);  // not offered
  EXPECT_EQ(s.grid[2].value, 0);
  play.chooseDropDown(8);
  EXPECT_EQ(s.grid[2].value, 8);
  EXPECT_EQ(play.LogManual(), (Lines{"C01 = 4", "C02 = 8"}));
  EXPECT_TRUE(rec.messages.empty());
  EXPECT_EQ(s.log.TotalLines(), 6);  // manual play writes nothing into the log
}

TEST_F(ManualPlayTest, ARefusedPlacementAdvisesAnotherChoiceWithTheEmptiedCellInRed) {
  play.selectCell(4);  // choices 49; cell 76 below it has the single choice 4
  rec.events.clear();
  play.keyReleased(ManualPlay::kDigitKey1 + 3);
  const std::string text =
      "placing 4 in this cell will result in no choices for cell 76\nSelect another choice for this cell";
  // Red while the message is open, normal again afterwards, then the cell itself.
  EXPECT_EQ(rec.events,
            (Lines{"normal 4", "selected 4", "refused 76", "repaint", "message " + text, "normal 76", "normal 4"}));
  EXPECT_EQ(s.grid[4].value, 0);
  EXPECT_TRUE(play.LogManual().empty());
  EXPECT_EQ(play.highlightedCell, -1);
  // The choices stay as computed with the rejected 4 in place until the next
  // recomputation; the cell stays selected with its choices.
  EXPECT_EQ(choices(76), "");
  EXPECT_EQ(choices(4), "");
  EXPECT_EQ(play.CellChoice, "49");
  play.keyReleased(ManualPlay::kDigitKey1 + 8);
  EXPECT_EQ(s.grid[4].value, 9);
  EXPECT_EQ(play.LogManual(), (Lines{"C04 = 9"}));
  EXPECT_EQ(choices(76), "4");
  EXPECT_EQ(rec.messages, Lines{text});
}

TEST_F(ManualPlayTest, TryingTheOnlyChoiceThatEmptiesACellAdvisesUndo) {
  // A wrong 7 in cell 74 is accepted, but it leaves cells 76 and 78 of the same
  // row both with the single choice 4.
  m.type(74, 7);
  EXPECT_EQ(choices(76), "4");
  EXPECT_EQ(choices(78), "4");
  m.type(76, 4);
  EXPECT_EQ(rec.messages, (Lines{"placing 4 in this cell will result in no choices for cell 78\n"
                                 "You must now undo previous placements"}));
  EXPECT_EQ(s.grid[76].value, 0);
  EXPECT_EQ(play.LogManual(), (Lines{"C74 = 7"}));
  rec.events.clear();
  play.undo();
  EXPECT_EQ(rec.events, (Lines{"selected 74", "normal 74"}));
  EXPECT_TRUE(play.LogManual().empty());
  EXPECT_EQ(s.grid[74].value, 0);
  EXPECT_EQ(choices(76), "4");
  EXPECT_EQ(choices(78), "47");
}

TEST_F(ManualPlayTest, DeleteTakesTheCellsEntryOutUndoTakesTheNewestBack) {
  m.type(9, 7);
  m.type(1, 4);
  m.type(2, 8);
  m.type(4, 9);
  ASSERT_EQ(play.LogManual(), (Lines{"C09 = 7", "C01 = 4", "C02 = 8", "C04 = 9"}));
  play.selectCell(2);
  play.keyReleased(ManualPlay::kDeleteKey);
  EXPECT_EQ(s.grid[2].value, 0);
  EXPECT_EQ(play.LogManual(), (Lines{"C09 = 7", "C01 = 4", "C04 = 9"}));
  EXPECT_EQ(choices(2), "58");
  // Delete again on the now empty cell: nothing to take off, the summaries are
  // refreshed all the same.
  play.PossibleInRow[0] = "stale";
  play.keyReleased(ManualPlay::kDeleteKey);
  EXPECT_EQ(play.LogManual(), (Lines{"C09 = 7", "C01 = 4", "C04 = 9"}));
  EXPECT_EQ(play.PossibleInRow[0], "123568");  // the givens 2, 3, 6 and the choices of cells 2, 6 and 8
  play.removeManualLogEntry(81);  // no entry: nothing happens
  EXPECT_EQ(play.LogManual().size(), 3u);

  play.undo();
  EXPECT_EQ(play.LogManual(), (Lines{"C09 = 7", "C01 = 4"}));
  EXPECT_EQ(s.grid[4].value, 0);
  EXPECT_EQ(play.selectedCell, 4);
  EXPECT_EQ(play.highlightedCell, -1);
  play.undo();
  play.undo();
  EXPECT_TRUE(play.LogManual().empty());
  EXPECT_TRUE(rec.messages.empty());
  play.undo();
  EXPECT_EQ(rec.messages, (Lines{"nothing to undo"}));
  EXPECT_EQ(choices(1), "45");
  EXPECT_EQ(s.BlanksLeft, 49);
}

TEST_F(ManualPlayTest, AMoveListClickSelectsAndHighlightsItsCell) {
  m.type(1, 4);
  m.type(73, 6);
  rec.events.clear();
  play.moveListClicked(0);
  EXPECT_EQ(rec.events, (Lines{"normal 73", "selected 1"}));
  EXPECT_EQ(play.selectedCell, 1);
  EXPECT_EQ(play.highlightedCell, 1);
  play.moveListClicked(5);  // no such entry
  EXPECT_EQ(play.selectedCell, 1);
}

TEST_F(ManualPlayTest, SummariesListTheDigitsStillOpenPerRowAndColumn) {
  for (int c = 1; c <= 18; ++c)
    if (!s.grid[c].given) m.type(c, solution(c));
  ASSERT_EQ(play.LogManual().size(), 11u);
  // Rows 1 and 2 are filled: only their givens remain.
  EXPECT_EQ(play.PossibleInRow[0], "236");
  EXPECT_EQ(play.PossibleInRow[1], "1359");
  EXPECT_EQ(play.PossibleInRow[2], "123456789");
  EXPECT_EQ(play.PossibleInCol[1], "1  2  3  4  5  7  9  ");  // lost 8 and 6
}

TEST_F(ManualPlayTest, PlayedToTheEndThePuzzleIsSolvedOnce) {
  std::size_t entriesWhenShown = 0;
  for (int c = 1; c <= kCells; ++c) {
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
  EXPECT_EQ(play.PossibleInRow[0], "236");
  EXPECT_EQ(play.PossibleInCol[0], "7  8  9  ");
  EXPECT_EQ(play.PossibleInCol[1], "");
  // A Delete and the same digit again tells once more.
  play.selectCell(81);
  play.keyReleased(ManualPlay::kDeleteKey);
  m.type(81, 2);
  EXPECT_EQ(rec.messages, (Lines{"Puzzle is solved", "Puzzle is solved"}));
}

TEST_F(ManualPlayTest, ClearStartsTheSamePuzzleAgainUnlessThereIsNone) {
  m.type(1, 4);
  m.type(2, 8);
  play.clearManual();
  EXPECT_TRUE(play.LogManual().empty());
  EXPECT_EQ(s.grid.valueCode().substr(0, 2), "00");
  EXPECT_EQ(choices(1), "45");
  EXPECT_EQ(play.highlightedCell, -1);
  EXPECT_EQ(play.selectedCell, 0);
  EXPECT_EQ(s.collection.CurrentPuzzleNumber, 1);

  m.type(1, 4);
  s.collection.CurrentPuzzleNumber = 0;
  play.clearManual();
  EXPECT_EQ(play.LogManual(), (Lines{"C01 = 4"}));
  EXPECT_EQ(s.grid[1].value, 4);
}

TEST_F(ManualPlayTest, OnAnotherTabTheEventsDoNothing) {
  m.type(1, 4);
  s.controls.currentTab = Tab::AutoSolve;
  play.selectCell(2);
  EXPECT_EQ(play.selectedCell, 1);
  play.keyReleased(ManualPlay::kDeleteKey);
  play.undo();
  play.clearManual();
  EXPECT_TRUE(play.dropDownDigits(2).empty());
  EXPECT_EQ(play.LogManual(), (Lines{"C01 = 4"}));
  EXPECT_EQ(s.grid[1].value, 4);
  EXPECT_TRUE(rec.messages.empty());
  // A read on another tab leaves manual play alone.
  ASSERT_TRUE(readPuzzle(s, test::kPe96, 1));
  EXPECT_EQ(play.LogManual(), (Lines{"C01 = 4"}));
}

}  // namespace
}  // namespace tessaly
