#include <gtest/gtest.h>

#include "model/CandidateSet.h"
#include "model/GridTables.h"
#include "model/PuzzleGrid.h"
#include "model/SolveState.h"
#include "model/Text.h"

namespace tessaly {
namespace {

TEST(GridTables, CellsKnowTheirRowColumnAndBox) {
  struct Expect { int cell, row, col, box; };
  for (Expect e : {Expect{1, 1, 1, 1}, Expect{81, 9, 9, 9}, Expect{40, 5, 4, 5}, Expect{48, 6, 3, 4},
                   Expect{9, 1, 9, 3}, Expect{73, 9, 1, 7}}) {
    EXPECT_EQ(CellRow[e.cell], e.row) << e.cell;
    EXPECT_EQ(CellCol[e.cell], e.col) << e.cell;
    EXPECT_EQ(CellBox[e.cell], e.box) << e.cell;
    EXPECT_EQ(CellNumber[e.row][e.col], e.cell);
  }
}

TEST(GridTables, AreasAreVisitedInAreaOrder) {
  EXPECT_EQ(areaCells(AreaKind::Box, 5), (AreaCells{31, 32, 33, 40, 41, 42, 49, 50, 51}));
  EXPECT_EQ(areaCells(AreaKind::Row, 2), (AreaCells{10, 11, 12, 13, 14, 15, 16, 17, 18}));
  EXPECT_EQ(areaCells(AreaKind::Col, 3), (AreaCells{3, 12, 21, 30, 39, 48, 57, 66, 75}));
  EXPECT_EQ(BoxCells[1], "010203101112192021");
  EXPECT_EQ(BoxCells[9], "616263707172798081");
  for (int b = 1; b <= 9; ++b)
    for (int c : areaCells(AreaKind::Box, b)) EXPECT_EQ(CellBox[c], b);
}

TEST(PuzzleGrid, AreaValueStringHoldsOnlyTheDigitsPresent) {
  PuzzleGrid g;
  g[1].value = 5;
  g[3].value = 3;
  EXPECT_EQ(g.areaValueString(AreaKind::Row, 1), "53");
  EXPECT_EQ(g.areaValueString(AreaKind::Box, 1), "53");
  EXPECT_EQ(g.areaValueString(AreaKind::Col, 2), "");
  g[1].given = true;
  EXPECT_EQ(g.givensCount(), 1);
  EXPECT_EQ(g.valueCode().substr(0, 4), "5030");
}

TEST(CandidateSet, TextIsTheAscendingDigits) {
  CandidateSet s = CandidateSet::full();
  EXPECT_EQ(s.text(), "123456789");
  s.remove(3);
  EXPECT_EQ(s.text(), "12456789");
  s.remove(3);  // not a member: unchanged
  EXPECT_EQ(s.text(), "12456789");
  EXPECT_EQ(CandidateSet::fromText("942").text(), "249");
  EXPECT_EQ(CandidateSet().text(), "");
  EXPECT_EQ(CandidateSet::of(7).numeric(), 7);
  EXPECT_EQ(CandidateSet().numeric(), 0);
}

TEST(Text, NumbersTakeOneLeadingBlank) {
  EXPECT_EQ(num(5), " 5");
  EXPECT_EQ(num(0), " 0");
  EXPECT_EQ(num(-3), "-3");
  EXPECT_EQ(padded(5, 2), "05");
  EXPECT_EQ(padded(125, 2), "125");
  EXPECT_EQ(padded(7, 3), "007");
  EXPECT_EQ(numericValue(" 250 "), 250);
  EXPECT_EQ(numericValue("x12"), 0);
  EXPECT_EQ(numericValue(""), 0);
}

TEST(SolveState, QueueKeysSortIntoPlacementOrder) {
  CandidateQueue q;
  q.insert({2, 3, 10, 2, "47"});
  q.insert({1, 5, 4, 2, "7"});
  q.insert({1, 2, 70, 8, "3"});
  q.insert({1, 2, 60, 9, "5"});
  EXPECT_EQ(q[0].text(), "0102SQ60BX09VL5");
  EXPECT_EQ(q[1].text(), "0102SQ70BX08VL3");
  EXPECT_EQ(q[2].text(), "0105SQ04BX02VL7");
  EXPECT_EQ(q[3].text(), "0203SQ10BX02VL47");
  q.insert({0, 0, 23, 3, "8"});
  EXPECT_EQ(q[0].text(), "0000SQ23BX03VL8");
}

TEST(SolveState, GuessStackReadsBeyondItsEndAsEmpty) {
  GuessStack st;
  EXPECT_EQ(st.entry(0), "");
  st.push({{0, 0, 5, 2, "48"}, std::string(81, '0')});
  EXPECT_EQ(st.entry(0), "0000SQ05BX02VL48");
  EXPECT_EQ(st.entry(1), std::string(81, '0'));
  EXPECT_EQ(st.entry(2), "");
}

}  // namespace
}  // namespace tessaly
