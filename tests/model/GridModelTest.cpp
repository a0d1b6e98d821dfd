#include <gtest/gtest.h>

#include "model/PuzzleGrid.h"
#include "model/SolveState.h"
#include "model/Text.h"

namespace tessaly {
namespace {

TEST(GridTables, EveryCellsRowColumnBoxAndAreaPlacesAgree) {
  for (int c = 1; c <= kCells; ++c) {
    const int row = CellRow[c], col = CellCol[c], box = CellBox[c];
    const int inBox = (row - 1) % 3 * 3 + (col - 1) % 3;  // boxes are read row by row
    EXPECT_EQ(CellNumber[row][col], c);
    EXPECT_EQ(box, (row - 1) / 3 * 3 + (col - 1) / 3 + 1) << c;
    EXPECT_EQ(areaCells(AreaKind::Row, row)[std::size_t(col - 1)], c);
    EXPECT_EQ(areaCells(AreaKind::Col, col)[std::size_t(row - 1)], c);
    EXPECT_EQ(areaCells(AreaKind::Box, box)[std::size_t(inBox)], c);
    EXPECT_EQ(BoxCells[std::size_t(box)].substr(std::size_t(2 * inBox), 2), padded(c, 2));
  }
}

TEST(PuzzleGrid, AreaValuesGivensAndTheValueCode) {
  PuzzleGrid g;
  g[1].value = 5;
  g[3].value = 3;
  g[1].given = true;
  EXPECT_EQ(g.areaValueString(AreaKind::Row, 1), "53");
  EXPECT_EQ(g.areaValueString(AreaKind::Col, 2), "");
  EXPECT_EQ(g.givensCount(), 1);
  EXPECT_EQ(g.valueCode(), "503" + std::string(78, '0'));
  CandidateSet s = CandidateSet::full();
  s.remove(3);
  s.remove(3);  // not a member any more: unchanged
  EXPECT_EQ(s.text(), "12456789");
  EXPECT_EQ(CandidateSet::fromText("942").text(), "249");
  EXPECT_EQ(CandidateSet::of(7).numeric(), 7);
  EXPECT_EQ(CandidateSet::fromText("47").numeric(), 0);
}

TEST(Text, NumbersTakeOneLeadingBlankAndReadLeniently) {
  EXPECT_EQ(num(5) + num(0) + num(-3), " 5 0-3");
  EXPECT_EQ(padded(5, 2) + "|" + padded(125, 2) + "|" + padded(7, 3) + "|" + padded(-4, 2), "05|125|007|-04");
  struct Row { const char* text; long long value; };
  for (Row r : {Row{" 250 ", 250}, Row{"\t-12x", -12}, Row{"+7", 7}, Row{"x12", 0}, Row{"", 0}, Row{"-", 0}})
    EXPECT_EQ(numericValue(r.text), r.value) << r.text;
}

TEST(SolveState, QueueKeysSortIntoPlacementOrderAndRetriesComeFirst) {
  CandidateQueue q;
  for (QueueEntry e : {QueueEntry{2, 3, 10, 2, "47"}, {1, 5, 4, 2, "7"}, {1, 2, 70, 8, "3"}, {1, 2, 60, 9, "5"},
                       {0, 0, 23, 3, "8"}})
    q.insert(e);
  std::vector<std::string> keys;
  for (int i = 0; i < q.size(); ++i) keys.push_back(q[i].text());
  EXPECT_EQ(keys, (std::vector<std::string>{"0000SQ23BX03VL8", "0102SQ60BX09VL5", "0102SQ70BX08VL3", "0105SQ04BX02VL7",
                                            "0203SQ10BX02VL47"}));
  GuessStack st;
  st.push({q[0], std::string(81, '0')});
  EXPECT_EQ(st.entry(0) + "|" + st.entry(2) + "|" + st.entry(-1), "0000SQ23BX03VL8||");  // beyond the end: ""
}

}  // namespace
}  // namespace tessaly
