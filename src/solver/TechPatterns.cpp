// Single-digit patterns: Skyscraper, Two-String Kite, Empty Rectangle.
//
// Each joins strong links on one digit (a line or box where the digit has
// exactly two places, so one of them holds it) through a shared area, and
// takes the digit from what sees both ends.

#include "solver/CellSet.h"
#include "solver/TechniquePlaces.h"

namespace tessaly {

using namespace bitgrid;
using tech::bits;
using tech::lowest;

namespace {

// The cells holding `digit` that see both `a` and `b`, ascending.
struct Targets {
  std::array<int, 20> cells{};
  int count = 0;
};

Targets listed(CellSet cells) {
  Targets t;
  cells.forEach([&](int c) { t.cells[std::size_t(t.count++)] = c; });
  return t;
}

TechniqueStep chainStep(Technique technique, int digit, std::vector<ChainNode> chain, const Targets& targets) {
  TechniqueStep s;
  s.technique = technique;
  s.digits = bitOf(digit);
  s.chain = std::move(chain);
  for (int i = 0; i < targets.count; ++i) s.eliminations.push_back({targets.cells[std::size_t(i)], digit});
  return s;
}

ChainNode node(int cell, int digit) { return {{cell}, digit}; }

}  // namespace

// Two parallel lines where the digit has two places each, one of them in a
// common cross line: the two other ends cannot both be empty of the digit.
std::optional<TechniqueStep> findSkyscraper(const TechniqueContext& ctx) {
  const TechniqueContext& places = ctx;
  for (const bool rows : {true, false}) {
    const int first = rows ? 0 : 9;
    std::array<std::uint16_t, 9> linked{};
    for (int l = 0; l < 9; ++l) linked[std::size_t(l)] = places.linked(first + l) & places.digits();
    for (int l1 = 0; l1 < 9; ++l1)
      for (int l2 = l1 + 1; l2 < 9; ++l2)
        for (unsigned both = linked[std::size_t(l1)] & linked[std::size_t(l2)]; both; both &= both - 1) {
          const int d = lowest(both) + 1;
          const unsigned m1 = places.at(first + l1, d), m2 = places.at(first + l2, d);
          if (bits(m1 & m2) != 1) continue;
          const int shared = lowest(m1 & m2);
          const int x = tech::lineCell(rows, l1, lowest(m1 & ~m2)), y = tech::lineCell(rows, l2, lowest(m2 & ~m1));
          const CellSet targets = ctx.seeingBoth(x, y, d);
          if (targets.empty()) continue;
          return chainStep(Technique::Skyscraper, d,
                           {node(x, d), node(tech::lineCell(rows, l1, shared), d),
                            node(tech::lineCell(rows, l2, shared), d), node(y, d)},
                           listed(targets));
        }
  }
  return std::nullopt;
}

// A row and a column where the digit has two places each, one end of each in
// the same box: the row's other end or the column's other end holds it.
std::optional<TechniqueStep> findTwoStringKite(const TechniqueContext& ctx) {
  const TechniqueContext& places = ctx;
  std::array<std::uint16_t, 18> linked{};
  for (int area = 0; area < 18; ++area) linked[std::size_t(area)] = places.linked(area) & places.digits();
  for (int r = 0; r < 9; ++r)
    for (int c = 0; c < 9; ++c)
      for (unsigned both = linked[std::size_t(r)] & linked[std::size_t(9 + c)]; both; both &= both - 1) {
        const int d = lowest(both) + 1;
        const unsigned inRow = places.at(r, d), inCol = places.at(9 + c, d);
        // The shared box is where the row's band meets the column's stack.
        if (!(inRow & (7u << (3 * (c / 3)))) || !(inCol & (7u << (3 * (r / 3))))) continue;
        const int rowEnds[2] = {r * 9 + lowest(inRow), r * 9 + 31 - std::countl_zero(inRow)};
        const int colEnds[2] = {lowest(inCol) * 9 + c, (31 - std::countl_zero(inCol)) * 9 + c};
        for (int i = 0; i < 2; ++i)
          for (int j = 0; j < 2; ++j) {
            const int inBoxRow = rowEnds[i], inBoxCol = colEnds[j], rowEnd = rowEnds[1 - i], colEnd = colEnds[1 - j];
            const int box = boxOf(inBoxRow);
            if (inBoxRow == inBoxCol || boxOf(inBoxCol) != box || boxOf(rowEnd) == box || boxOf(colEnd) == box)
              continue;
            const CellSet targets = ctx.seeingBoth(rowEnd, colEnd, d);
            if (targets.empty()) continue;
            return chainStep(Technique::TwoStringKite, d,
                             {node(rowEnd, d), node(inBoxRow, d), node(inBoxCol, d), node(colEnd, d)},
                             listed(targets));
          }
      }
  return std::nullopt;
}

namespace {

// For each 9-bit mask of a box's places, the crosses that hold them (bit
// rr * 3 + cc for the box's row rr and column cc): all places in that row and
// column, and some outside each.
constexpr auto kCrosses = [] {
  std::array<std::uint16_t, 512> t{};
  for (unsigned m = 0; m < 512; ++m)
    for (unsigned rr = 0; rr < 3; ++rr)
      for (unsigned cc = 0; cc < 3; ++cc) {
        const unsigned rowPart = 7u << (3 * rr), colPart = 0x49u << cc;
        if (!(m & ~(rowPart | colPart)) && (m & ~rowPart) && (m & ~colPart)) t[m] |= std::uint16_t(1u << (rr * 3 + cc));
      }
  return t;
}();

}  // namespace

// A box whose places of the digit lie in one of its rows and one of its
// columns (the cross), not all in one line, and a line outside the box where
// the digit has two places, one in the cross's row or column. If that end
// holds the digit, the box's digit is in the cross's other line; if not, the
// line's other end holds it. The cell where the cross's other line meets the
// other end's line sees both.
std::optional<TechniqueStep> findEmptyRectangle(const TechniqueContext& ctx) {
  const TechniqueBoard& board = ctx.board;
  const TechniqueContext& places = ctx;
  // The rows (bits 0..8) and the columns where each digit has two places.
  std::array<unsigned, 9> linkedRows{}, linkedCols{};
  for (int line = 0; line < 9; ++line) {
    for (unsigned m = places.linked(line); m; m &= m - 1) linkedRows[std::size_t(lowest(m))] |= 1u << line;
    for (unsigned m = places.linked(9 + line); m; m &= m - 1) linkedCols[std::size_t(lowest(m))] |= 1u << line;
  }
  for (int b = 0; b < 9; ++b)
    for (int d = 1; d <= 9; ++d) {
      if (!(places.digits() & bitOf(d))) continue;
      const unsigned inBox = places.at(18 + b, d);
      const unsigned crosses = kCrosses[inBox];
      if (!crosses) continue;
      // The linked rows outside the box's band and columns outside its stack.
      const unsigned rowsOut = linkedRows[std::size_t(d - 1)] & ~(7u << (3 * (b / 3)));
      const unsigned colsOut = linkedCols[std::size_t(d - 1)] & ~(7u << (3 * (b % 3)));
      if (!rowsOut && !colsOut) continue;
      const int top = (b / 3) * 3, left = (b % 3) * 3;
      const auto& boxCells = kAreas[std::size_t(18 + b)];
      // The box's places of d whose positions are in `mask`, as a node.
      auto group = [&](unsigned mask) {
        ChainNode n{{}, d};
        for (unsigned m = inBox & mask; m; m &= m - 1) n.cells.push_back(boxCells[std::size_t(lowest(m))]);
        return n;
      };
      for (unsigned xs = crosses; xs; xs &= xs - 1) {
        const int rr = lowest(xs) / 3, cc = lowest(xs) % 3;
        const unsigned rowPart = 7u << (3 * rr), colPart = 0x49u << cc;
        const int R = top + rr, C = left + cc;
        auto found = [&](int q, int p, const ChainNode& near, const ChainNode& far, int target) {
          Targets t;
          t.cells[0] = target;
          t.count = 1;
          TechniqueStep s = chainStep(Technique::EmptyRectangle, d, {node(q, d), node(p, d), near, far}, t);
          s.units = {18 + b};
          return s;
        };
        // A row outside the box's band with one end p in column C: if p
        // holds d the box's d is in row R, else the other end q holds it.
        for (unsigned rs = rowsOut & places.at(9 + C, d); rs; rs &= rs - 1) {
          const int r = lowest(rs);
          const unsigned m = places.at(r, d);
          const int other = lowest(m & ~(1u << C)), target = R * 9 + other;
          if (other / 3 == b % 3 || !(board.cand[std::size_t(target)] & bitOf(d))) continue;
          return found(r * 9 + other, r * 9 + C, group(colPart), group(rowPart & ~colPart), target);
        }
        // The same with a column outside the box's stack and row R.
        for (unsigned cs = colsOut & places.at(R, d); cs; cs &= cs - 1) {
          const int c = lowest(cs);
          const unsigned m = places.at(9 + c, d);
          const int other = lowest(m & ~(1u << R)), target = other * 9 + C;
          if (other / 3 == b / 3 || !(board.cand[std::size_t(target)] & bitOf(d))) continue;
          return found(other * 9 + c, R * 9 + c, group(rowPart), group(colPart & ~rowPart), target);
        }
      }
    }
  return std::nullopt;
}

}  // namespace tessaly
