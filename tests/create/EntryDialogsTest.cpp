// The entry and template dialogs' checks, help and effect (dialogs: window tests; a template in use: create-manual).

#include <gtest/gtest.h>

#include "create/CreateTestSupport.h"
#include "create/EntryDialogs.h"

namespace tessaly {
namespace {

using Lines = std::vector<std::string>;

// Project Euler grid 01 ("0" for a blank) and a valid complete grid.
const std::string kPuzzle = "003020600900305001001806400008102900700000008006708200002609500800203009005010300";
const std::string kSolution = "534678912672195348198342567859761423426853791713924856961537284287419635345286179";

std::string asRows(const std::string& cells, const std::string& lineBreak = "\n") {
  std::string text;
  for (int r = 0; r < 9; ++r) text += (r ? lineBreak : "") + cells.substr(std::size_t(r) * 9, 9);
  return text;
}

std::string with(std::string text, std::initializer_list<std::pair<int, char>> changes) {
  for (auto [index, ch] : changes) text[std::size_t(index)] = ch;
  return text;
}

TEST(EntryChecks, WhatEachTypedTextGives) {
  const auto grid = checkGridEntry, pattern = checkTemplateEntry;
  const std::string blank(81, '0'), kept(81, 'X'), short81 = "Grid must have 81 numbers",
                    notDigit = "Fixed numbers should be from 1 to 9\nEnter zero, dot or a space for missing numbers",
                    badMark = "The grid must have X or a blank",
                    wrongLength = "Grid must have a total of 81 Xs and blanks";
  const std::string dotted = test::replaced(kPuzzle, '0', '.');
  // the check, the text typed, what it accepts, its refusal (rows are checked first, then columns, then boxes)
  const std::tuple<decltype(grid), std::string, std::string, std::string> cases[] = {
      {grid, asRows(with(dotted, {{0, ' '}, {1, '/'}}), "\r\n"), kPuzzle, ""},  // blank, dot, slash; line breaks
      {grid, with(asRows(kSolution), {{4, 'a'}}), "", notDigit},
      {grid, "12ab-x" + kSolution, "", notDigit},  // the first refused character ends the check
      {grid, kSolution.substr(0, 80), "", short81},
      {grid, "", "", short81},
      {grid, asRows(kSolution) + "\n5555", kSolution, ""},  // the extra digits would repeat in row 1
      {grid, with(blank, {{18, '4'}, {26, '4'}}), "", "row 3 has duplicate numbers"},
      {grid, with(blank, {{3, '7'}, {39, '7'}}), "", "col 4 has duplicate numbers"},
      {grid, with(blank, {{60, '2'}, {80, '2'}}), "", "box 9 has duplicate numbers"},
      {grid, with(blank, {{18, '4'}, {26, '4'}, {3, '7'}, {39, '7'}}), "", "row 3 has duplicate numbers"},
      {pattern, defaultTemplateText(), kept, ""},
      {pattern, asRows(with(kept, {{0, ' '}, {40, '.'}, {80, ' '}}), "\r\n"),
       with(kept, {{0, '.'}, {40, '.'}, {80, '.'}}), ""},
      {pattern, with(kept, {{7, 'x'}}), "", badMark},
      {pattern, with(kept, {{7, '0'}}), "", badMark},
      {pattern, std::string(80, 'X'), "", wrongLength},
      {pattern, std::string(82, ' '), "", wrongLength}};
  for (const auto& [check, typed, accepted, refusal] : cases) {
    const EntryCheck result = check(typed);
    EXPECT_EQ(result.accepted + "|" + result.refusal, accepted + "|" + refusal) << typed;
  }
  EXPECT_EQ(defaultTemplateText(), asRows(kept));
}

TEST(EntryGrid, OkShowsARefusalAndLeavesTheSessionAloneOrMakesTheNewPuzzleAndHelpTellsItsText) {
  test::CreateSession t;
  Session& s = t.session;
  test::loadGivens(s, kSolution);
  s.collection.setOrigin(BoardOrigin::read(1, 5, 0));
  EXPECT_FALSE(gridEntryOk(s, kPuzzle.substr(0, 70)));
  EXPECT_EQ(t.ui.messages, Lines{"Grid must have 81 numbers"});
  EXPECT_EQ(s.grid.valueCode() + " " + puzzleTitle(s.collection.origin()), kSolution + " Puzzle 1 of 5 (0 blanks)");

  ASSERT_TRUE(gridEntryOk(s, asRows(kPuzzle)));
  EXPECT_EQ(s.grid.valueCode() + " " + puzzleTitle(s.collection.origin()), kPuzzle + " New Puzzle");
  EXPECT_EQ(s.givenCount(), 32);
  gridEntryHelp(s);  // each dialog's Help shows its own text; the accepted entry said nothing
  templateHelp(s);
  EXPECT_EQ(t.ui.messages, (Lines{"Grid must have 81 numbers", kGridEntryHelp, kTemplateHelp}));
  // Givens show their digit; cell 1 (row 1, col 1) may hold 4 or 5.
  EXPECT_TRUE(s.grid[3].given && !s.grid[1].given);
  EXPECT_EQ(s.grid[3].candidates.text() + " " + s.grid[1].candidates.text(), "3 45");

  // The Edit command's text: each row, dots for blanks, a value found by solving too.
  s.grid[1].value = 4;
  EXPECT_EQ(editGridText(s), test::replaced(asRows(with(kPuzzle, {{0, '4'}})), '0', '.'));
}

}  // namespace
}  // namespace tessaly
