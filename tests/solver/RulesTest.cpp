// Each rule on small constructed boards: every cell open with all nine
// candidates unless a test says otherwise.

#include <gtest/gtest.h>

#include <functional>

#include "solver/SolverEngine.h"
#include "support/TestSupport.h"

namespace tessaly {
namespace {

struct Board {
  Board() {
    for (int c = 1; c <= kCells; ++c) s.grid[c].candidates = CandidateSet::full();
    s.BlanksLeft = 81;
    s.run.mode = RunState::NoPause;
  }
  void set(int cell, const char* candidates) { s.grid[cell].candidates = CandidateSet::fromText(candidates); }
  void clearAll() {
    for (int c = 1; c <= kCells; ++c) s.grid[c].candidates = CandidateSet();
  }
  std::string text(int cell) { return s.grid[cell].candidates.text(); }
  std::vector<std::string> lines() { return test::logLines(s); }
  void apply(int rule) {
    using Rule = void (SolverEngine::*)();
    const Rule rules[] = {&SolverEngine::applyRule1, &SolverEngine::applyRule2, &SolverEngine::applyRule3,
                          &SolverEngine::applyRule4, &SolverEngine::applyRule5, &SolverEngine::applyRule6};
    (engine.*rules[rule - 1])();
  }

  test::TestSession t;
  Session& s = t.session;
  SolverEngine engine{s};
};

class RulesTest : public ::testing::Test, protected Board {};

TEST(Rules, BoardsWhereARuleFindsNothingGiveOnlyItsFrame) {
  struct Row { int rule; const char* why; std::function<void(Board&)> setup; };
  std::vector<Row> rows = {
      // Digit 5 in cells 11 and 12 of box 1 only: both in row 2, columns "23".
      {2, "a digit in two cells of a box", [](Board& b) {
         for (int c : areaCells(AreaKind::Box, 1))
           if (c != 12 && c != 11) b.set(c, "12346789");
       }},
      {5, "the digit's only place is already a single", [](Board& b) {
         b.clearAll();
         for (int c : areaCells(AreaKind::Box, 1)) b.set(c, c == 1 ? "7" : "12345689");
       }},
      // A third entry in the length-2 list of column 3 and of box 1: no group.
      {6, "two equal pairs beside a third pair", [](Board& b) {
         b.clearAll();
         for (auto [cell, candidates] : {std::pair{3, "59"}, {12, "59"}, {21, "27"}, {30, "2589"}})
           b.set(cell, candidates);
       }}};
  for (int rule = 1; rule <= 6; ++rule) rows.push_back({rule, "full board, no single", [](Board&) {}});
  for (const Row& r : rows) {
    SCOPED_TRACE("Rule " + std::to_string(r.rule) + ": " + r.why);
    Board b;
    r.setup(b);
    b.apply(r.rule);
    const std::string n = std::to_string(r.rule);
    EXPECT_EQ(b.lines(), (std::vector<std::string>{"01Apply Rule " + n, r.rule == 1 ? "01No additional single values found"
                                                                                   : "01End Rule " + n + ": no reductions"}));
    EXPECT_EQ(b.s.BlanksLeft, 81);
    EXPECT_EQ(b.s.run.stats.timesApplied[std::size_t(r.rule)], r.rule == 1 ? 0 : 1);
    EXPECT_EQ(b.s.run.stats.totalReductions, (std::array<int, 7>{}));
  }
  Board none;  // no blank left: every rule is silent
  none.s.BlanksLeft = 0;
  for (int rule = 1; rule <= 6; ++rule) none.apply(rule);
  EXPECT_TRUE(none.lines().empty());
  EXPECT_EQ(none.s.run.stats.timesApplied, (std::array<int, 7>{}));
}

TEST_F(RulesTest, RemoveDuplicatesNarratesEachDeletionPassByPass) {
  set(22, "1259");
  set(4, "5");  // a single in the same column and box: never touched
  s.grid[24].value = 5;
  s.grid[24].candidates = CandidateSet();
  int counter = -1;
  // Cell 24 (row 3, col 6) holds 5: the row pass reaches 19..27, the column pass
  // 6, 15, ..., the box pass box 2.
  engine.removeDuplicates(24, 5, counter);
  const auto log = lines();
  ASSERT_FALSE(log.empty());
  EXPECT_EQ(log[0], "00Remove row duplicate 5 from choice 123456789 in row 3, col 1, cell 19");
  EXPECT_EQ(log[3], "00Remove row duplicate 5 from choice 1259 in row 3, col 4, cell 22");
  EXPECT_EQ(text(22), "129");
  EXPECT_EQ(text(4), "5");
  EXPECT_EQ(text(24), "");
  // Row: 8 peers; column: 8 peers; box: 5, 13 and 14 left (4 is a single; 6, 15,
  // 22 and 23 went in the earlier passes).
  EXPECT_EQ(counter, 8 + 8 + 3);
  EXPECT_EQ(log.back(), "00Remove box duplicate 5 from choice 123456789 in row 2, col 5, cell 14");
}

TEST_F(RulesTest, Rule1PlacesSinglesAfterPropagation) {
  for (int c = 1; c <= kCells; ++c) {
    s.grid[c].value = 1 + (c % 9);  // anything: only the blank cells matter
    s.grid[c].candidates = CandidateSet();
  }
  for (int c : {1, 2, 3}) s.grid[c].value = 0;
  set(1, "7");
  set(2, "78");
  set(3, "789");
  engine.applyRule1();
  EXPECT_EQ(lines(), (std::vector<std::string>{
                         "01Apply Rule 1", "00Remove row duplicate 7 from choice 78 in row 1, col 2, cell 2",
                         "00Remove row duplicate 7 from choice 789 in row 1, col 3, cell 3",
                         "00Remove row duplicate 8 from choice 89 in row 1, col 3, cell 3",
                         "00Place additional 3 single values generated, the puzzle appears to have been solved",
                         "00Set row 1, col 1, cell 1 to value 7", "00Set row 1, col 2, cell 2 to value 8",
                         "00Set row 1, col 3, cell 3 to value 9"}));
  EXPECT_EQ(s.BlanksLeft, 0);
  EXPECT_EQ(s.run.PlacementCount, 3);
}

TEST_F(RulesTest, Rule2ClearsTheLinesThroughALoneDigitOfABox) {
  // In box 1 digit 5 is possible only in cell 12 (row 2, col 3).
  for (int c : areaCells(AreaKind::Box, 1))
    if (c != 12) set(c, "12346789");
  engine.applyRule2();
  const auto log = lines();
  ASSERT_EQ(log.size(), 1u + 12 * 2 + 3);
  EXPECT_EQ(log[0], "01Apply Rule 2");
  EXPECT_EQ(log[1], "01Rule 2: in box 1, choice 5 appears once in row 2");
  EXPECT_EQ(log[2], "01Remove 5 from choice 123456789 in row  2, col  4, cell 13");
  EXPECT_EQ(log[13], "01Rule 2: in box 1, choice 5 appears once in col 3");
  EXPECT_EQ(log[14], "01Remove 5 from choice 123456789 in row  4, col  3, cell 30");
  EXPECT_EQ(log[24], "01Remove 5 from choice 123456789 in row  9, col  3, cell 75");
  EXPECT_EQ(log[25], "01End Rule 2: made 12 reductions");
  EXPECT_EQ(log[26], "01Apply Rule 1");
  EXPECT_EQ(text(18), "12346789");
  EXPECT_EQ(text(12), "123456789");
  EXPECT_EQ(s.run.stats.totalReductions[2], 12);
}

TEST_F(RulesTest, Rule4KeepsADigitInsideTheBoxItsColumnPointsTo) {
  // Column 2 holds 7 only in cells of box 1 (rows 1-3).
  for (int c : areaCells(AreaKind::Col, 2))
    if (CellRow[c] > 3) set(c, "12345689");
  set(1, "7");  // a single is never reduced by Rule 4
  set(3, "17");
  engine.applyRule4();
  const auto log = lines();
  ASSERT_GE(log.size(), 5u);
  EXPECT_EQ(std::vector(log.begin() + 1, log.begin() + 5),
            (std::vector<std::string>{"01Rule 4: box 1, choice 7 occurs in col 2 of this box only",
                                      "01Remove 7 from choice 17 in cell 3",
                                      "01Rule 4: box 1, choice 7 occurs in col 2 of this box only",
                                      "01Remove 7 from choice 123456789 in cell 10"}));
  EXPECT_EQ(text(1), "7");
  EXPECT_EQ(text(3), "1");
  // Rule 1 then places nothing yet but deletes the new single 1 of cell 3 from its column.
  EXPECT_EQ(text(12), "2345689");
}

TEST_F(RulesTest, Rule5NarratesAHiddenSingleInABoxAndInARow) {
  // Digit 3 only in cell 41 of box 5; digit 8 only in cell 80 of row 9.
  for (int c : areaCells(AreaKind::Box, 5))
    if (c != 41) set(c, "12456789");
  for (int c : areaCells(AreaKind::Row, 9))
    if (c != 80) set(c, "12345679");
  engine.applyRule5();
  const auto log = lines();
  ASSERT_GE(log.size(), 7u);
  EXPECT_EQ(std::vector(log.begin() + 1, log.begin() + 7),
            (std::vector<std::string>{
                "01Rule 5: in box 5, choice 3 occurs only once in row 5, col 5,cell 41 (123456789)",
                "01Set row 5, col 5, cell 41 to value 3",
                "01Rule 5: in row 9, choice 8 occurs only once in row 9, col 8, cell 80 (123456789)",
                "01Set row 9, col 8, cell 80 to value 8", "01End Rule 5: made 2 reductions", "01Apply Rule 1"}));
  EXPECT_EQ(text(41), "3");
  EXPECT_EQ(s.run.stats.totalReductions[5], 2);
}

TEST(Rules, PairsAndGroupsLeaveTheRestOfTheirArea) {
  using Cells = std::vector<std::pair<int, const char*>>;
  struct Row { int rule; Cells before; std::vector<std::string> lines; Cells after; };
  for (const Row& r : {
           Row{3, {{1, "47"}, {11, "47"}, {21, "1479"}},
               {"01Apply Rule 3", "01Rule 3: box 1 has duplicate pair", "01Remove 4 from choice 1479 in cell 21",
                "01Rule 3: box 1 has duplicate pair", "01Remove 7 from choice 179 in cell 21",
                "01End Rule 3: made 2 reductions", "01Apply Rule 1", "01No additional single values found"},
               {{21, "19"}, {1, "47"}}},
           Row{6, {{19, "135"}, {20, "135"}, {22, "135"}, {25, "1358"}},
               {"01Apply Rule 6", "01Rule 6: 3 choice 135 found 3 times in row 3",
                "01Remove 135 from choice 1358 in cell 25", "01End Rule 6: made 1 reductions", "01Apply Rule 1",
                "00Place additional 1 single values generated", "00Set row 3, col 7, cell 25 to value 8"},
               {{25, "8"}, {19, "135"}}}}) {
    Board b;
    b.clearAll();
    for (auto [cell, candidates] : r.before) b.set(cell, candidates);
    b.apply(r.rule);
    EXPECT_EQ(b.lines(), r.lines);
    for (auto [cell, candidates] : r.after) EXPECT_EQ(b.text(cell), candidates) << "cell " << cell;
  }
}

TEST(CandidateTexts, DigitsAreDeletedByCharacterAndRepeatsIgnoreNonDigits) {
  EXPECT_EQ(removeDigit("123456789", 3), "12456789");
  EXPECT_EQ(removeDigit("1259", 3), "1259");  // not there: unchanged
  EXPECT_EQ(removeDigit("1259", 0), "1259");  // "0" deletes nothing
  EXPECT_EQ(removeDigits("2589", "59"), "28");
  EXPECT_EQ(removeDigits("1358", "00000135"), "8");
  EXPECT_TRUE(hasRepeatedDigit("5353"));
  EXPECT_FALSE(hasRepeatedDigit("53"));
  EXPECT_FALSE(hasRepeatedDigit("5003.x"));
}

}  // namespace
}  // namespace tessaly
