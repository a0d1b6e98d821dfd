// Manual play on puzzle 1 of pe96: selecting, typing, the drop-down, refused
// placements with both kinds of advice, Delete, Undo, the move list, the
// summaries and a game played to the end.

#include <gtest/gtest.h>

#include "play/ManualPlay.h"
#include "play/PlayTestSupport.h"
#include "solver/SolverEngine.h"

namespace tessaly {
namespace {

using Lines = std::vector<std::string>;

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
  EXPECT_TRUE(play.LogManual.empty());
  EXPECT_EQ(play.selectedCell, 0);
  EXPECT_EQ(play.highlightedCell, -1);
  EXPECT_EQ(play.CellChoice, "");
  // A given's label shows its own digit, so a fresh puzzle has every digit in
  // every row and column summary.
  for (int n = 0; n < 9; ++n) {
    EXPECT_EQ(play.PossibleInRow[std::size_t(n)], "123456789");
    EXPECT_EQ(play.PossibleInCol[std::size_t(n)], "1  .  .  9");
  }
  EXPECT_EQ(choices(1), "45");
  EXPECT_EQ(choices(2), "4578");
}

TEST_F(ManualPlayTest, AGivenBecomesTheSelectedCellAndNothingElseChanges) {
  play.selectCell(1);
  rec.events.clear();
  play.selectCell(3);  // holds the given 3
  EXPECT_EQ(play.selectedCell, 3);
  EXPECT_EQ(play.CellChoice, "45");
  EXPECT_EQ(play.highlightedCell, 1);
  EXPECT_TRUE(rec.events.empty());
  // Keys on a given do nothing, Delete included.
  EXPECT_EQ(play.keyReleased(ManualPlay::kDeleteKey), ManualPlay::kDeleteKey);
  EXPECT_EQ(play.keyReleased(ManualPlay::kDigitKey1 + 3), ManualPlay::kDigitKey1 + 3);
  EXPECT_EQ(s.grid[3].value, 3);
  EXPECT_TRUE(s.grid[3].given);
  EXPECT_TRUE(play.LogManual.empty());
  EXPECT_TRUE(play.dropDownDigits(7).empty());
  EXPECT_EQ(play.selectedCell, 7);
}

TEST_F(ManualPlayTest, SelectingMovesTheHighlight) {
  play.selectCell(1);
  play.selectCell(2);
  EXPECT_EQ(rec.events, (Lines{"selected 1", "normal 1", "selected 2"}));
  EXPECT_EQ(play.selectedCell, 2);
  EXPECT_EQ(play.highlightedCell, 2);
  EXPECT_EQ(play.CellChoice, "4578");
}

TEST_F(ManualPlayTest, OnlyAChoiceFromTheMainKeyboardGoesIn) {
  play.selectCell(1);  // choices 45
  EXPECT_EQ(play.keyReleased(ManualPlay::kDigitKey1 + 8), 0);  // 9: swallowed
  EXPECT_EQ(play.keyReleased(65), 65);                         // A: nothing
  EXPECT_EQ(play.keyReleased(100), 100);                       // the pad's 4: nothing
  EXPECT_EQ(s.grid[1].value, 0);
  EXPECT_TRUE(rec.messages.empty());
  EXPECT_TRUE(play.LogManual.empty());

  EXPECT_EQ(play.keyReleased(ManualPlay::kDigitKey1 + 3), ManualPlay::kDigitKey1 + 3);
  EXPECT_EQ(s.grid[1].value, 4);
  EXPECT_FALSE(s.grid[1].given);
  EXPECT_EQ(play.LogManual, (Lines{"C01 = 4"}));
  EXPECT_EQ(play.CellChoice, "");  // a filled cell has no choices
  EXPECT_EQ(choices(2), "578");    // recomputed at once
  EXPECT_TRUE(rec.messages.empty());
  EXPECT_TRUE(s.log.TotalLines() == 6);  // manual play writes nothing into the log
}

TEST_F(ManualPlayTest, TheDropDownShowsTheChoicesAndPlacesOne) {
  EXPECT_EQ(play.dropDownDigits(2), (std::vector<int>{4, 5, 7, 8}));
  EXPECT_EQ(play.selectedCell, 2);
  EXPECT_EQ(play.CellChoice, "4578");
  play.chooseDropDown(9);  // not offered
  EXPECT_EQ(s.grid[2].value, 0);
  play.chooseDropDown(8);
  EXPECT_EQ(s.grid[2].value, 8);
  EXPECT_EQ(play.LogManual, (Lines{"C02 = 8"}));
}

TEST_F(ManualPlayTest, ARefusedPlacementAdvisesAnotherChoice) {
  play.selectCell(4);  // choices 49; cell 76 below it has the single choice 4
  EXPECT_EQ(play.CellChoice, "49");
  rec.events.clear();
  play.keyReleased(ManualPlay::kDigitKey1 + 3);
  const std::string text =
      "placing 4 in this cell will result in no choices for cell 76\nSelect another choice for this cell";
  EXPECT_EQ(rec.messages, (Lines{text}));
  // Red while the message is open, normal again afterwards, then the cell itself.
  EXPECT_EQ(rec.events,
            (Lines{"normal 4", "selected 4", "refused 76", "repaint", "message " + text, "normal 76", "normal 4"}));
  EXPECT_EQ(s.grid[4].value, 0);
  EXPECT_TRUE(play.LogManual.empty());
  EXPECT_EQ(play.highlightedCell, -1);
  // The choices stay as computed with the rejected 4 in place until the next
  // recomputation.
  EXPECT_EQ(choices(76), "");
  EXPECT_EQ(choices(4), "");
  EXPECT_EQ(play.CellChoice, "49");

  // The other choice is accepted and brings the choices up to date.
  play.keyReleased(ManualPlay::kDigitKey1 + 8);
  EXPECT_EQ(s.grid[4].value, 9);
  EXPECT_EQ(play.LogManual, (Lines{"C04 = 9"}));
  EXPECT_EQ(choices(76), "4");
  EXPECT_EQ(rec.messages.size(), 1u);
}

TEST_F(ManualPlayTest, TryingTheOnlyChoiceThatKillsACellAdvisesUndo) {
  // A wrong 7 in cell 74 is accepted, but it leaves cells 76 and 78 of the same
  // row both with the single choice 4.
  m.type(74, 7);
  ASSERT_EQ(play.LogManual, (Lines{"C74 = 7"}));
  EXPECT_EQ(choices(76), "4");
  EXPECT_EQ(choices(78), "4");
  m.type(76, 4);
  EXPECT_EQ(rec.messages, (Lines{"placing 4 in this cell will result in no choices for cell 78\n"
                                 "You must now undo previous placements"}));
  EXPECT_EQ(s.grid[76].value, 0);
  EXPECT_EQ(play.LogManual, (Lines{"C74 = 7"}));
  play.undo();
  EXPECT_TRUE(play.LogManual.empty());
  EXPECT_EQ(s.grid[74].value, 0);
  EXPECT_EQ(choices(76), "4");
  EXPECT_EQ(choices(78), "47");
}

TEST(ManualPlayAdvice, SelectAnotherChoiceOnAConstructedGrid) {
  test::ManualSession m;
  // Row 1 misses 5, 8 and 9; the 9 of cell 10 and the 8 of cell 38 leave cell 1
  // the choices 58 and cell 2 the single choice 5.
  std::string grid(81, '.');
  grid.replace(2, 6, "123467");
  grid[9] = '9';
  grid[37] = '8';
  m.load(grid);
  EXPECT_EQ(m.session.grid[1].candidates.text(), "58");
  EXPECT_EQ(m.session.grid[2].candidates.text(), "5");
  m.type(1, 5);
  EXPECT_EQ(m.recorder.messages,
            (Lines{"placing 5 in this cell will result in no choices for cell 2\nSelect another choice for this cell"}));
  // Cell 1 is still selected with its choices 58: the 8 goes in.
  m.play.keyReleased(ManualPlay::kDigitKey1 + 7);
  m.type(2, 5);
  m.type(9, 9);
  EXPECT_EQ(m.play.LogManual, (Lines{"C01 = 8", "C02 = 5", "C09 = 9"}));
  EXPECT_EQ(m.recorder.messages.size(), 1u);
}

TEST(ManualPlayAdvice, UndoAdviceOnAConstructedGrid) {
  test::ManualSession m;
  // Row 1 misses 5, 6 and 7; the 6 of cell 18 keeps 6 out of cells 8 and 9.
  std::string grid(81, '.');
  grid.replace(0, 9, "1234.89..");
  grid[17] = '6';
  m.load(grid);
  EXPECT_EQ(m.session.grid[5].candidates.text(), "567");
  EXPECT_EQ(m.session.grid[8].candidates.text(), "57");
  m.type(5, 5);  // accepted, but cells 8 and 9 are both left with 7 alone
  EXPECT_EQ(m.play.LogManual, (Lines{"C05 = 5"}));
  EXPECT_EQ(m.session.grid[8].candidates.text(), "7");
  EXPECT_EQ(m.session.grid[9].candidates.text(), "7");
  m.type(8, 7);
  EXPECT_EQ(m.recorder.messages,
            (Lines{"placing 7 in this cell will result in no choices for cell 9\nYou must now undo previous placements"}));
  EXPECT_EQ(m.play.LogManual, (Lines{"C05 = 5"}));
  EXPECT_EQ(m.session.grid[8].value, 0);
  m.play.undo();
  EXPECT_TRUE(m.play.LogManual.empty());
  EXPECT_EQ(m.session.grid[8].candidates.text(), "57");
  EXPECT_EQ(m.session.grid[9].candidates.text(), "57");
}

TEST_F(ManualPlayTest, DeleteInTheMiddleOfTheListAndUndoToTheEnd) {
  m.type(1, 4);
  m.type(2, 8);
  m.type(4, 9);
  ASSERT_EQ(play.LogManual, (Lines{"C01 = 4", "C02 = 8", "C04 = 9"}));

  // Delete on cell 2 takes its own entry out of the middle.
  play.selectCell(2);
  play.keyReleased(ManualPlay::kDeleteKey);
  EXPECT_EQ(s.grid[2].value, 0);
  EXPECT_EQ(play.LogManual, (Lines{"C01 = 4", "C04 = 9"}));
  EXPECT_EQ(choices(2), "578");
  // Delete again on the now empty cell: nothing to take off, the summaries are
  // refreshed all the same.
  play.PossibleInRow[0] = "stale";
  play.keyReleased(ManualPlay::kDeleteKey);
  EXPECT_EQ(play.LogManual, (Lines{"C01 = 4", "C04 = 9"}));
  // Row 1 without the placed 4 and 9: the givens 2, 3, 6 and the choices 578, 17, 57.
  EXPECT_EQ(play.PossibleInRow[0], "1235678");
  EXPECT_TRUE(rec.messages.empty());

  // Undo takes the newest first.
  play.undo();
  EXPECT_EQ(play.LogManual, (Lines{"C01 = 4"}));
  EXPECT_EQ(s.grid[4].value, 0);
  EXPECT_EQ(play.selectedCell, 4);
  EXPECT_EQ(play.highlightedCell, -1);
  play.undo();
  EXPECT_TRUE(play.LogManual.empty());
  EXPECT_EQ(s.grid[1].value, 0);
  EXPECT_TRUE(rec.messages.empty());
  play.undo();
  EXPECT_EQ(rec.messages, (Lines{"nothing to undo"}));
  EXPECT_EQ(choices(1), "45");
  EXPECT_EQ(s.BlanksLeft, 49);
}

TEST_F(ManualPlayTest, UndoPaintsTheCellBackToNormal) {
  m.type(1, 4);
  rec.events.clear();
  play.undo();
  EXPECT_EQ(rec.events, (Lines{"normal 1", "selected 1", "normal 1"}));
}

TEST_F(ManualPlayTest, CellNumbersBelowTenKeepTheirLeadingZero) {
  m.type(9, 7);
  m.type(73, 6);
  m.type(8, 5);
  EXPECT_EQ(play.LogManual, (Lines{"C09 = 7", "C73 = 6", "C08 = 5"}));
  play.selectCell(8);
  play.keyReleased(ManualPlay::kDeleteKey);
  EXPECT_EQ(play.LogManual, (Lines{"C09 = 7", "C73 = 6"}));
  play.removeManualLogEntry(81);  // no entry: nothing happens
  EXPECT_EQ(play.LogManual, (Lines{"C09 = 7", "C73 = 6"}));
  EXPECT_EQ(manualLogCell("C73 = 6"), 73);
  EXPECT_EQ(manualLogKey(7), "C07");
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

TEST_F(ManualPlayTest, PlayedToTheEndThePuzzleIsSolvedOnce) {
  std::size_t entriesWhenShown = 0;
  int placed = 0;
  for (int c = 1; c <= kCells; ++c) {
    if (s.grid[c].given) continue;
    m.type(c, test::pe96Solution(c));
    ASSERT_EQ(s.grid[c].value, test::pe96Solution(c)) << "cell " << c;
    ++placed;
    if (!rec.messages.empty() && !entriesWhenShown) entriesWhenShown = play.LogManual.size();
  }
  EXPECT_EQ(placed, 49);
  EXPECT_EQ(rec.messages, (Lines{"Puzzle is solved"}));
  EXPECT_EQ(entriesWhenShown, 49u);  // after the last entry was added
  EXPECT_EQ(play.LogManual.back(), "C81 = 2");
  EXPECT_EQ(s.BlanksLeft, 0);
  EXPECT_EQ(s.grid.valueCode(), test::kPe96Solution);
  // Only the givens' own digits are left in the summaries.
  EXPECT_EQ(play.PossibleInRow[0], "236");
  EXPECT_EQ(play.PossibleInCol[0], "7  8  9  ");
  EXPECT_EQ(play.PossibleInCol[1], "");
  // Nothing more to place; a Delete and the same digit again tells once more.
  play.selectCell(81);
  play.keyReleased(ManualPlay::kDeleteKey);
  play.selectCell(81);
  play.keyReleased(ManualPlay::kDigitKey1 + 1);
  EXPECT_EQ(rec.messages, (Lines{"Puzzle is solved", "Puzzle is solved"}));
}

TEST_F(ManualPlayTest, SummariesListTheDigitsStillOpenPerRowAndColumn) {
  for (int c = 1; c <= 18; ++c)
    if (!s.grid[c].given) m.type(c, test::pe96Solution(c));
  ASSERT_EQ(play.LogManual.size(), 11u);
  // Rows 1 and 2 are filled: only their givens remain.
  EXPECT_EQ(play.PossibleInRow[0], "236");
  EXPECT_EQ(play.PossibleInRow[1], "1359");
  EXPECT_EQ(play.PossibleInRow[2], "123456789");
  // Every column lost the digits placed in it: each digit followed by two blanks.
  for (const std::string& col : play.PossibleInCol) {
    ASSERT_FALSE(col.empty());
    EXPECT_NE(col, "1  .  .  9");
    EXPECT_EQ(col.substr(col.size() - 2), "  ");
  }
  EXPECT_EQ(play.PossibleInCol[1], "1  2  3  4  5  7  9  ");  // lost 8 and 6
}

TEST_F(ManualPlayTest, ClearStartsTheSamePuzzleAgain) {
  m.type(1, 4);
  m.type(2, 8);
  play.clearManual();
  EXPECT_TRUE(play.LogManual.empty());
  EXPECT_EQ(s.grid[1].value, 0);
  EXPECT_EQ(s.grid[2].value, 0);
  EXPECT_EQ(choices(1), "45");
  EXPECT_EQ(play.highlightedCell, -1);
  EXPECT_EQ(play.selectedCell, 0);
  EXPECT_EQ(s.collection.CurrentPuzzleNumber, 1);
}

TEST_F(ManualPlayTest, ClearWithoutAPuzzleDoesNothing) {
  m.type(1, 4);
  s.collection.CurrentPuzzleNumber = 0;
  play.clearManual();
  EXPECT_EQ(play.LogManual, (Lines{"C01 = 4"}));
  EXPECT_EQ(s.grid[1].value, 4);
}

TEST_F(ManualPlayTest, OnAnotherTabTheEventsDoNothing) {
  m.type(1, 4);
  s.controls.currentTab = Tab::AutoSolve;
  play.selectCell(2);
  EXPECT_EQ(play.selectedCell, 1);
  play.selectedCell = 1;
  play.keyReleased(ManualPlay::kDeleteKey);
  play.undo();
  play.clearManual();
  EXPECT_TRUE(play.dropDownDigits(2).empty());
  EXPECT_EQ(play.LogManual, (Lines{"C01 = 4"}));
  EXPECT_EQ(s.grid[1].value, 4);
  EXPECT_TRUE(rec.messages.empty());
  // A read on another tab leaves manual play alone.
  ASSERT_TRUE(readPuzzle(s, test::kPe96, 1));
  EXPECT_EQ(play.LogManual, (Lines{"C01 = 4"}));
}

}  // namespace
}  // namespace tessaly
