// The grid entry dialog (Form2) and the blank template dialog (Form3).

#include <gtest/gtest.h>

#include <algorithm>

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
  struct Case {
    std::string typed, accepted, refusal;
  };
  const std::string blank(81, '0'), kept(81, 'X'), notDigit = "Fixed numbers should be from 1 to 9\n"
                                                             "Enter zero, dot or a space for missing numbers";
  std::string dotted = kPuzzle;
  std::replace(dotted.begin(), dotted.end(), '0', '.');
  const Case grids[] = {
      {asRows(with(dotted, {{0, ' '}, {1, '/'}}), "\r\n"), kPuzzle, ""},  // blank, dot, slash; line breaks
      {with(asRows(kSolution), {{4, 'a'}}), "", notDigit},
      {"12ab-x" + kSolution, "", notDigit},  // the first refused character ends the check
      {kSolution.substr(0, 80), "", "Grid must have 81 numbers"},
      {"", "", "Grid must have 81 numbers"},
      {asRows(kSolution) + "\n5555", kSolution, ""},  // the extra digits would repeat in row 1
      {with(blank, {{18, '4'}, {26, '4'}}), "", "row 3 has duplicate numbers"},
      {with(blank, {{3, '7'}, {39, '7'}}), "", "col 4 has duplicate numbers"},
      {with(blank, {{60, '2'}, {80, '2'}}), "", "box 9 has duplicate numbers"},
      {with(blank, {{18, '4'}, {26, '4'}, {3, '7'}, {39, '7'}}), "", "row 3 has duplicate numbers"},  // rows first
  };
  for (const Case& c : grids) {
    const EntryCheck check = checkGridEntry(c.typed);
    EXPECT_EQ(check.accepted, c.accepted) << c.typed;
    EXPECT_EQ(check.refusal, c.refusal) << c.typed;
  }
  EXPECT_EQ(defaultTemplateText(), asRows(kept));
  const Case templates[] = {
      {defaultTemplateText(), kept, ""},
      {asRows(with(kept, {{0, ' '}, {40, '.'}, {80, ' '}}), "\r\n"), with(kept, {{0, '.'}, {40, '.'}, {80, '.'}}), ""},
      {with(kept, {{7, 'x'}}), "", "The grid must have X or a blank"},
      {with(kept, {{7, '0'}}), "", "The grid must have X or a blank"},
      {std::string(80, 'X'), "", "Grid must have a total of 81 Xs and blanks"},
      {std::string(82, ' '), "", "Grid must have a total of 81 Xs and blanks"},
  };
  for (const Case& c : templates) {
    const EntryCheck check = checkTemplateEntry(c.typed);
    EXPECT_EQ(check.accepted, c.accepted) << c.typed;
    EXPECT_EQ(check.refusal, c.refusal) << c.typed;
  }
}

TEST(EntryGrid, OkShowsARefusalAndLeavesTheSessionAloneOrMakesTheNewPuzzle) {
  test::CreateSession t;
  Session& s = t.session;
  test::loadGivens(s, kSolution);
  s.PuzzleTitle = "Puzzle 1 of 5 (0 blanks)";
  EXPECT_FALSE(gridEntryOk(s, kPuzzle.substr(0, 70)));
  EXPECT_EQ(t.ui.messages, Lines{"Grid must have 81 numbers"});
  EXPECT_EQ(s.grid.valueCode(), kSolution);
  EXPECT_EQ(s.PuzzleTitle, "Puzzle 1 of 5 (0 blanks)");

  ASSERT_TRUE(gridEntryOk(s, asRows(kPuzzle)));
  EXPECT_EQ(s.grid.valueCode(), kPuzzle);
  EXPECT_EQ(s.givenCount(), 32);
  EXPECT_EQ(s.PuzzleTitle, "New Puzzle");
  EXPECT_EQ(t.ui.messages.size(), 1u);
  // Givens show their digit; cell 1 (row 1, col 1) may hold 4 or 5.
  EXPECT_TRUE(s.grid[3].given);
  EXPECT_EQ(s.grid[3].candidates.text(), "3");
  EXPECT_FALSE(s.grid[1].given);
  EXPECT_EQ(s.grid[1].candidates.text(), "45");

  // The Edit command's text: each row, dots for blanks, a value found by solving too.
  s.grid[1].value = 4;
  std::string rows = asRows(with(kPuzzle, {{0, '4'}}));
  std::replace(rows.begin(), rows.end(), '0', '.');
  EXPECT_EQ(editGridText(s), rows);
}

TEST(EntryTemplate, OkShowsTheRefusalOrHandsBackTheTemplateAndHelpItsText) {
  test::CreateSession t;
  EXPECT_FALSE(templateEntryOk(t.session, std::string(80, 'X')));
  EXPECT_EQ(t.ui.messages, Lines{"Grid must have a total of 81 Xs and blanks"});
  EXPECT_EQ(templateEntryOk(t.session, std::string(40, 'X') + " " + std::string(40, 'X')),
            std::string(40, 'X') + "." + std::string(40, 'X'));
  EXPECT_EQ(t.ui.messages.size(), 1u);

  // Each dialog's Help shows its own text.
  t.ui.messages.clear();
  gridEntryHelp(t.session);
  templateHelp(t.session);
  EXPECT_EQ(t.ui.messages, (Lines{kGridEntryHelp, kTemplateHelp}));
}

}  // namespace
}  // namespace tessaly
