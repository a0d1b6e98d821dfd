// The explanation of a cell's choices, on puzzle 1 of pe96.

#include <gtest/gtest.h>

#include "play/Explanation.h"
#include "play/PlayTestSupport.h"

namespace tessaly {
namespace {

using Lines = std::vector<std::string>;

const char* const kExamine =
    "Examine the row, column and box highlighted, numbers already given cannot be used in the cell";

TEST(NumberListInWords, NoneOneAndMore) {
  const std::pair<const char*, const char*> cases[] = {
      {"", " none "}, {"4", " number 4"}, {"24", " numbers 2 and 4"}, {"249", " numbers 2, 4 and 9"},
      {"123456789", " numbers 1, 2, 3, 4, 5, 6, 7, 8 and 9"}};
  for (const auto& [digits, words] : cases) EXPECT_EQ(numberListInWords(digits), words);
}

TEST(Explanation, TheLinesOfEachKindOfCell) {
  test::ManualSession m;
  ASSERT_TRUE(m.read(test::kPe96, 1));
  const CandidateExplanation e = explainCandidates(m.session, 42);
  EXPECT_EQ(std::vector<int>({e.cell, e.row, e.col, e.box}), std::vector<int>({42, 5, 6, 5}));
  EXPECT_EQ(e.lines, (Lines{"The process below explains how the choice of number 4 for this cell was calculated",
                            kExamine, "Row 5 given: numbers 7 and 8", "Col 6 given: numbers 2, 3, 5, 6, 8 and 9",
                            "Box 5 given: numbers 1, 2, 7 and 8",
                            "Therefore from a range of 1 to 9, the choice of numbers left is only number 4"}));
  EXPECT_EQ(explainCandidates(m.session, 2).lines[3], "Col 2 given: none");
  EXPECT_EQ(explainCandidates(m.session, 79).lines, Lines{"Cell number 79 has a given value of 3"});
  EXPECT_TRUE(explainCandidates(m.session, 0).lines.empty());

  // A placed value counts in its neighbours but not in its own cell.
  m.type(1, 4);
  EXPECT_EQ(explainCandidates(m.session, 1).lines,
            (Lines{"The process below explains how the choice of numbers 4 and 5 for this cell was calculated",
                   kExamine, "Row 1 given: numbers 2, 3 and 6", "Col 1 given: numbers 7, 8 and 9",
                   "Box 1 given: numbers 1, 3 and 9",
                   "Therefore from a range of 1 to 9, the choice of numbers left is numbers 4 and 5"}));
  EXPECT_EQ(explainCandidates(m.session, 2).lines[0],
            "The process below explains how the choice of numbers 5, 7 and 8 for this cell was calculated");
  EXPECT_EQ(explainCandidates(m.session, 2).lines[2], "Row 1 given: numbers 2, 3, 4 and 6");

  // Shown as one message, its box highlighted while it is open.
  m.recorder.events.clear();
  showCandidateExplanation(m.session, 42, &m.play);
  std::string text;
  for (const std::string& line : e.lines) text += (text.empty() ? "" : "\n") + line;
  EXPECT_EQ(m.recorder.events, (Lines{"box on 5", "repaint", "message " + text, "box off 5"}));
}

TEST(Explanation, ACellWithoutChoices) {
  test::ManualSession m;
  std::string grid(81, '.');
  grid.replace(0, 8, "12345678");
  grid[44] = '9';  // row 5, col 9
  m.load(grid);
  EXPECT_EQ(explainCandidates(m.session, 9).lines,
            (Lines{"The process below explains how the choice of none for this cell was calculated", kExamine,
                   "Row 1 given: numbers 1, 2, 3, 4, 5, 6, 7 and 8", "Col 9 given: number 9",
                   "Box 3 given: numbers 7 and 8",
                   "Therefore from a range of 1 to 9, the choice of numbers left is none"}));
}

}  // namespace
}  // namespace tessaly
