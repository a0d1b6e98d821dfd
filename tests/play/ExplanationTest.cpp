// The explanation of a cell's choices and the number lists in words.

#include <gtest/gtest.h>

#include "play/Explanation.h"
#include "play/PlayTestSupport.h"

namespace tessaly {
namespace {

using Lines = std::vector<std::string>;

TEST(NumberListInWords, NoneOneAndMore) {
  EXPECT_EQ(numberListInWords(""), " none ");
  EXPECT_EQ(numberListInWords("4"), " number 4");
  EXPECT_EQ(numberListInWords("24"), " numbers 2 and 4");
  EXPECT_EQ(numberListInWords("249"), " numbers 2, 4 and 9");
  EXPECT_EQ(numberListInWords("123456789"), " numbers 1, 2, 3, 4, 5, 6, 7, 8 and 9");
}

class ExplanationTest : public ::testing::Test {
 protected:
  ExplanationTest() { EXPECT_TRUE(m.read(test::kPe96, 1)); }
  test::ManualSession m;
  Session& s = m.session;
};

TEST_F(ExplanationTest, ACellWithSeveralChoices) {
  const CandidateExplanation e = explainCandidates(s, 1);
  EXPECT_EQ(e.cell, 1);
  EXPECT_EQ(e.row, 1);
  EXPECT_EQ(e.col, 1);
  EXPECT_EQ(e.box, 1);
  EXPECT_EQ(e.lines, (Lines{"The process below explains how the choice of numbers 4 and 5 for this cell was calculated",
                            "Examine the row, column and box highlighted, numbers already given cannot be used in the cell",
                            "Row 1 given: numbers 2, 3 and 6", "Col 1 given: numbers 7, 8 and 9",
                            "Box 1 given: numbers 1, 3 and 9",
                            "Therefore from a range of 1 to 9, the choice of numbers left is numbers 4 and 5"}));
}

TEST_F(ExplanationTest, AnEmptyColumnAndASingleChoice) {
  EXPECT_EQ(explainCandidates(s, 2).lines[3], "Col 2 given: none");
  const CandidateExplanation e = explainCandidates(s, 42);
  EXPECT_EQ(e.box, 5);
  EXPECT_EQ(e.lines, (Lines{"The process below explains how the choice of number 4 for this cell was calculated",
                            "Examine the row, column and box highlighted, numbers already given cannot be used in the cell",
                            "Row 5 given: numbers 7 and 8", "Col 6 given: numbers 2, 3, 5, 6, 8 and 9",
                            "Box 5 given: numbers 1, 2, 7 and 8",
                            "Therefore from a range of 1 to 9, the choice of numbers left is only number 4"}));
}

TEST_F(ExplanationTest, AGivenCellNamesItsValue) {
  EXPECT_EQ(explainCandidates(s, 3).lines, (Lines{"Cell number 3 has a given value of 3"}));
  EXPECT_EQ(explainCandidates(s, 79).lines, (Lines{"Cell number 79 has a given value of 3"}));
}

TEST_F(ExplanationTest, APlacedValueCountsInItsNeighboursButNotInItself) {
  m.type(1, 4);
  EXPECT_EQ(explainCandidates(s, 1).lines.back(),
            "Therefore from a range of 1 to 9, the choice of numbers left is numbers 4 and 5");
  EXPECT_EQ(explainCandidates(s, 2).lines[2], "Row 1 given: numbers 2, 3, 4 and 6");
  EXPECT_EQ(explainCandidates(s, 2).lines[0],
            "The process below explains how the choice of numbers 5, 7 and 8 for this cell was calculated");
}

TEST(Explanation, ACellWithoutChoices) {
  test::ManualSession m;
  std::string grid(81, '.');
  grid.replace(0, 9, "12345678.");
  grid[44] = '9';
  m.load(grid);
  EXPECT_EQ(explainCandidates(m.session, 9).lines,
            (Lines{"The process below explains how the choice of none for this cell was calculated",
                   "Examine the row, column and box highlighted, numbers already given cannot be used in the cell",
                   "Row 1 given: numbers 1, 2, 3, 4, 5, 6, 7 and 8", "Col 9 given: number 9",
                   "Box 3 given: numbers 7 and 8", "Therefore from a range of 1 to 9, the choice of numbers left is none"}));
  EXPECT_TRUE(explainCandidates(m.session, 0).lines.empty());
}

TEST_F(ExplanationTest, ShownAsOneMessageWithTheBoxHighlighted) {
  showCandidateExplanation(s, 42, &m.play);
  const std::string text =
      "The process below explains how the choice of number 4 for this cell was calculated\n"
      "Examine the row, column and box highlighted, numbers already given cannot be used in the cell\n"
      "Row 5 given: numbers 7 and 8\nCol 6 given: numbers 2, 3, 5, 6, 8 and 9\nBox 5 given: numbers 1, 2, 7 and 8\n"
      "Therefore from a range of 1 to 9, the choice of numbers left is only number 4";
  EXPECT_EQ(m.recorder.events, (Lines{"box on 5", "repaint", "message " + text, "box off 5"}));
}

}  // namespace
}  // namespace tessaly
