// The grid entry dialog (Form2) and the blank template dialog (Form3).

#include <gtest/gtest.h>

#include "create/CreateTestSupport.h"
#include "create/EntryDialogs.h"

namespace tessaly {
namespace {

// A valid complete grid, row by row.
const std::string kSolution =
    "534678912672195348198342567859761423426853791713924856961537284287419635345286179";
// Project Euler grid 01, blanks as dots.
const std::string kPuzzle = "..3.2.6..9..3.5..1..18.64....81.29..7.......8..67.82....26.95..8..2.3..9..5.1.3..";

std::string asRows(const std::string& cells, const std::string& lineBreak = "\n") {
  std::string text;
  for (int r = 0; r < 9; ++r) text += (r ? lineBreak : "") + cells.substr(std::size_t(r) * 9, 9);
  return text;
}

std::string zeros(std::string cells) {
  for (char& ch : cells)
    if (ch == '.') ch = '0';
  return cells;
}

// --- grid entry

TEST(EntryGrid, DotsBlanksAndSlashesAreEmptyCells) {
  std::string typed = asRows(kPuzzle, "\r\n");
  typed[0] = ' ';
  typed[1] = '/';
  EntryCheck check = checkGridEntry(typed);
  ASSERT_TRUE(check.ok()) << check.refusal;
  EXPECT_EQ(check.accepted, zeros(kPuzzle));
}

TEST(EntryGrid, LettersAreRefusedWithTheTwoLineMessage) {
  std::string typed = asRows(kSolution);
  typed[4] = 'a';
  EntryCheck check = checkGridEntry(typed);
  EXPECT_EQ(check.refusal, "Fixed numbers should be from 1 to 9\nEnter zero, dot or a space for missing numbers");
  EXPECT_TRUE(check.accepted.empty());
}

TEST(EntryGrid, TheFirstRefusedCharacterIsTheOnlyOneTold) {
  test::CreateSession t;
  EXPECT_FALSE(gridEntryOk(t.session, "12ab-x" + kSolution));
  EXPECT_EQ(t.ui.messages, std::vector<std::string>{kGridEntryNotDigit});
  EXPECT_EQ(t.session.grid.filledCount(), 0);
}

TEST(EntryGrid, EightyDigitsAreTooFew) {
  EXPECT_EQ(checkGridEntry(kSolution.substr(0, 80)).refusal, "Grid must have 81 numbers");
  EXPECT_EQ(checkGridEntry("").refusal, "Grid must have 81 numbers");
}

TEST(EntryGrid, MoreThanEightyOneDigitsUseTheFirstEightyOne) {
  // The extra digits would repeat in row 1 if they were used.
  EntryCheck check = checkGridEntry(asRows(kSolution) + "\n5555");
  ASSERT_TRUE(check.ok()) << check.refusal;
  EXPECT_EQ(check.accepted, kSolution);
}

TEST(EntryGrid, DuplicatesAreToldForTheFirstAreaRowsThenColumnsThenBoxes) {
  std::string rowDup(81, '0');
  rowDup[18] = '4';  // row 3, col 1
  rowDup[26] = '4';  // row 3, col 9
  EXPECT_EQ(checkGridEntry(rowDup).refusal, "row 3 has duplicate numbers");

  std::string colDup(81, '0');
  colDup[3] = '7';       // row 1, col 4
  colDup[4 * 9 + 3] = '7';  // row 5, col 4
  EXPECT_EQ(checkGridEntry(colDup).refusal, "col 4 has duplicate numbers");

  std::string boxDup(81, '0');
  boxDup[6 * 9 + 6] = '2';  // row 7, col 7
  boxDup[8 * 9 + 8] = '2';  // row 9, col 9
  EXPECT_EQ(checkGridEntry(boxDup).refusal, "box 9 has duplicate numbers");

  std::string both = rowDup;
  both[3] = '7';
  both[4 * 9 + 3] = '7';
  EXPECT_EQ(checkGridEntry(both).refusal, "row 3 has duplicate numbers");
}

TEST(EntryGrid, ARefusedGridLeavesTheSessionAlone) {
  test::CreateSession t;
  test::loadGivens(t.session, kPuzzle);
  t.session.PuzzleTitle = "Puzzle 1 of 5 (49 blanks)";
  EXPECT_FALSE(gridEntryOk(t.session, kPuzzle.substr(0, 70)));
  EXPECT_EQ(t.ui.messages, std::vector<std::string>{"Grid must have 81 numbers"});
  EXPECT_EQ(test::gridText(t.session), kPuzzle);
  EXPECT_EQ(t.session.PuzzleTitle, "Puzzle 1 of 5 (49 blanks)");
}

TEST(EntryGrid, AnAcceptedGridBecomesTheNewPuzzle) {
  test::CreateSession t;
  test::loadGivens(t.session, kSolution);  // something else on the grid before
  ASSERT_TRUE(gridEntryOk(t.session, asRows(kPuzzle)));
  Session& s = t.session;
  EXPECT_EQ(test::gridText(s), kPuzzle);
  EXPECT_EQ(s.givenCount(), 32);
  EXPECT_EQ(s.PuzzleTitle, "New Puzzle");
  EXPECT_TRUE(t.ui.messages.empty());
  // Givens show their digit; cell 1 (row 1, col 1) may hold 4 or 5.
  EXPECT_TRUE(s.grid[3].given);
  EXPECT_EQ(s.grid[3].candidates.text(), "3");
  EXPECT_FALSE(s.grid[1].given);
  EXPECT_EQ(s.grid[1].candidates.text(), "45");
}

TEST(EntryGrid, TheEditTextShowsEachRowWithDotsForBlanks) {
  test::CreateSession t;
  test::loadGivens(t.session, kPuzzle);
  t.session.grid[1].value = 4;  // a value found by solving shows too
  std::string expected = kPuzzle;
  expected[0] = '4';
  EXPECT_EQ(editGridText(t.session), asRows(expected));
  EXPECT_TRUE(checkGridEntry(editGridText(t.session)).ok());
}

TEST(EntryGrid, HelpShowsTheThreeLines) {
  test::CreateSession t;
  gridEntryHelp(t.session);
  EXPECT_EQ(t.ui.messages,
            std::vector<std::string>{
                "Insert numbers as 9x9 grid\nEach line should have 9 numbers\nPlace 0 for missing numbers"});
}

// --- blank template

TEST(EntryTemplate, TheDefaultIsNineRowsOfX) {
  EXPECT_EQ(defaultTemplateText(), asRows(std::string(81, 'X')));
  EntryCheck check = checkTemplateEntry(defaultTemplateText());
  ASSERT_TRUE(check.ok());
  EXPECT_EQ(check.accepted, std::string(81, 'X'));
}

TEST(EntryTemplate, BlanksAndDotsMarkBlankCells) {
  std::string cells(81, 'X');
  cells[0] = ' ';
  cells[40] = '.';
  cells[80] = ' ';
  EntryCheck check = checkTemplateEntry(asRows(cells, "\r\n"));
  ASSERT_TRUE(check.ok()) << check.refusal;
  std::string expected(81, 'X');
  expected[0] = expected[40] = expected[80] = '.';
  EXPECT_EQ(check.accepted, expected);
}

TEST(EntryTemplate, OtherCharactersAreRefused) {
  std::string cells(81, 'X');
  cells[7] = 'x';
  EXPECT_EQ(checkTemplateEntry(cells).refusal, "The grid must have X or a blank");
  cells[7] = '0';
  EXPECT_EQ(checkTemplateEntry(cells).refusal, "The grid must have X or a blank");
}

TEST(EntryTemplate, EightyCellsAreRefused) {
  EXPECT_EQ(checkTemplateEntry(std::string(80, 'X')).refusal, "Grid must have a total of 81 Xs and blanks");
  EXPECT_EQ(checkTemplateEntry(std::string(82, ' ')).refusal, "Grid must have a total of 81 Xs and blanks");
}

TEST(EntryTemplate, OkShowsTheRefusalOrHandsBackTheTemplate) {
  test::CreateSession t;
  EXPECT_FALSE(templateEntryOk(t.session, std::string(80, 'X')));
  EXPECT_EQ(t.ui.messages, std::vector<std::string>{kTemplateWrongLength});
  auto accepted = templateEntryOk(t.session, std::string(40, 'X') + " " + std::string(40, 'X'));
  ASSERT_TRUE(accepted);
  EXPECT_EQ(*accepted, std::string(40, 'X') + "." + std::string(40, 'X'));
  EXPECT_EQ(t.ui.messages.size(), 1u);
}

TEST(EntryTemplate, HelpShowsItsSentence) {
  test::CreateSession t;
  templateHelp(t.session);
  EXPECT_EQ(t.ui.messages, std::vector<std::string>{"Specify a blank location by replacing an X with a blank, there "
                                                    "must be a total of 81 blanks and X's"});
}

}  // namespace
}  // namespace tessaly
