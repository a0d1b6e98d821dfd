// Uniqueness: Unique Rectangles and BUG+1.
//
// These rest on the puzzle having one solution: a pattern that could be
// completed in two ways that differ only inside it (a deadly pattern) cannot
// be the solution, so whatever would leave it is ruled out. They act only when
// the board says the solution is unique, and they stay silent on boards that
// could not arise from such a puzzle (a pattern already deadly).

#include <bit>
#include <utility>
#include <vector>

#include "solver/Techniques.h"

namespace tessaly {

using namespace bitgrid;

namespace {

int digitOf(std::uint16_t bit) { return std::countr_zero(unsigned(bit)) + 1; }

/// Corners of a rectangle: 0 and 1 in the upper row, 2 and 3 in the lower, 0
/// and 2 in the left column.
using Corners = std::array<int, 4>;
using Masks = std::array<std::uint16_t, 4>;

/// Calls `look(corners, masks)` for every rectangle of open cells in exactly
/// two rows, two columns and two boxes that has two corners holding the same
/// two digits and nothing else (as every type has), in the order of their
/// sorted corners, until it returns a step.
template <typename Look>
std::optional<TechniqueStep> eachRectangle(const TechniqueBoard& board, Look look) {
  if (!board.uniqueSolution) return std::nullopt;
  std::array<std::uint8_t, kCellCount> bivalue{};
  int n = 0;
  for (int c = 0; c < kCellCount; ++c)
    if (count(board.cand[std::size_t(c)]) == 2) bivalue[std::size_t(n++)] = std::uint8_t(c);
  // The rectangles those pairs of cells are corners of, marked by the key
  // ((r1 * 9 + c1) * 9 + c2) * 9 + r2 (r1 < r2, c1 < c2), whose order is that
  // of the sorted corners.
  std::array<std::uint64_t, (9 * 9 * 9 * 9 + 63) / 64> marked{};
  bool any = false;
  const auto mark = [&](int r1, int r2, int c1, int c2) {
    if (r1 > r2) std::swap(r1, r2);
    if (c1 > c2) std::swap(c1, c2);
    // Two boxes: the rows share a band or the columns a stack, not both.
    if ((r1 / 3 == r2 / 3) == (c1 / 3 == c2 / 3)) return;
    const int key = ((r1 * 9 + c1) * 9 + c2) * 9 + r2;
    marked[std::size_t(key >> 6)] |= std::uint64_t(1) << (key & 63);
    any = true;
  };
  for (int i = 0; i < n; ++i)
    for (int j = i + 1; j < n; ++j) {
      const int p = bivalue[std::size_t(i)], q = bivalue[std::size_t(j)];
      if (board.cand[std::size_t(p)] != board.cand[std::size_t(q)]) continue;
      const int rp = rowOf(p), rq = rowOf(q), cp = colOf(p), cq = colOf(q);
      if (rp == rq) {
        for (int r = 0; r < 9; ++r)
          if (r != rp) mark(rp, r, cp, cq);
      } else if (cp == cq) {
        for (int c = 0; c < 9; ++c)
          if (c != cp) mark(rp, rq, cp, c);
      } else {
        mark(rp, rq, cp, cq);
      }
    }
  if (!any) return std::nullopt;
  for (std::size_t w = 0; w < marked.size(); ++w)
    for (std::uint64_t bits = marked[w]; bits; bits &= bits - 1) {
      const int key = int(w * 64) + std::countr_zero(bits);
      const int r2 = key % 9, c2 = key / 9 % 9, c1 = key / 81 % 9, r1 = key / 729;
      const Corners corners{r1 * 9 + c1, r1 * 9 + c2, r2 * 9 + c1, r2 * 9 + c2};
      Masks masks{};
      bool open = true;
      for (std::size_t k = 0; k < 4; ++k) {
        masks[k] = board.cand[std::size_t(corners[k])];
        open = open && count(masks[k]) >= 2;
      }
      if (!open) continue;
      if (auto step = look(corners, masks)) return step;
    }
  return std::nullopt;
}

/// Calls `look(pair, exact)` for each distinct pair of digits that is the
/// whole of some corner, with `exact` the corners (bit i for corner i) holding
/// exactly that pair, until it returns a step.
template <typename Look>
std::optional<TechniqueStep> eachPair(const Masks& masks, Look look) {
  for (std::size_t i = 0; i < 4; ++i) {
    const std::uint16_t pair = masks[i];
    if (count(pair) != 2) continue;
    bool seen = false;
    for (std::size_t j = 0; j < i; ++j) seen = seen || masks[j] == pair;
    if (seen) continue;
    unsigned exact = 0;
    for (std::size_t j = 0; j < 4; ++j)
      if (masks[j] == pair) exact |= 1u << j;
    if (auto step = look(pair, exact)) return step;
  }
  return std::nullopt;
}

TechniqueStep rectangleStep(Technique technique, const Corners& corners, std::uint16_t pair) {
  TechniqueStep step;
  step.technique = technique;
  step.cells.assign(corners.begin(), corners.end());
  step.digits = pair;
  return step;
}

/// Whether `digit` has no place in `area` but `a` and `b`.
bool confinedTo(const TechniqueBoard& board, int area, int digit, int a, int b) {
  for (std::uint8_t cell : kAreas[std::size_t(area)])
    if (cell != a && cell != b && (board.cand[cell] & bitOf(digit))) return false;
  return true;
}

}  // namespace

std::optional<TechniqueStep> findUniqueRectangle1(const TechniqueContext& ctx) {
  const TechniqueBoard& board = ctx.board;
  return eachRectangle(board, [&](const Corners& corners, const Masks& masks) {
    return eachPair(masks, [&](std::uint16_t pair, unsigned exact) -> std::optional<TechniqueStep> {
      if (count(std::uint16_t(exact)) != 3) return std::nullopt;
      const std::size_t f = std::size_t(std::countr_zero(~exact & 0xFu));
      // The fourth corner must keep a digit of its own, or the pattern is deadly already.
      const std::uint16_t m = masks[f];
      if (!(m & pair) || !(m & ~pair)) return std::nullopt;
      TechniqueStep step = rectangleStep(Technique::UniqueRectangle1, corners, pair);
      for (std::uint16_t d = std::uint16_t(m & pair); d; d &= std::uint16_t(d - 1))
        step.eliminations.push_back({corners[f], digitOf(std::uint16_t(d & -d))});
      if (!ctx.wants(step)) return std::nullopt;
      return step;
    });
  });
}

std::optional<TechniqueStep> findUniqueRectangle2(const TechniqueContext& ctx) {
  const TechniqueBoard& board = ctx.board;
  return eachRectangle(board, [&](const Corners& corners, const Masks& masks) {
    return eachPair(masks, [&](std::uint16_t pair, unsigned exact) -> std::optional<TechniqueStep> {
      if (count(std::uint16_t(exact)) != 2) return std::nullopt;
      const std::size_t c = std::size_t(std::countr_zero(~exact & 0xFu));
      const std::size_t d = std::size_t(31 - std::countl_zero(~exact & 0xFu));
      const std::uint16_t m = masks[c];
      if (masks[d] != m || count(m) != 3 || (m & pair) != pair) return std::nullopt;
      // One of the two corners with the extra digit holds it.
      const int extra = digitOf(std::uint16_t(m & ~pair));
      std::vector<Candidate> eliminations;
      for (std::uint8_t p : kPeers[std::size_t(corners[c])])
        if ((board.cand[p] & bitOf(extra)) && sees(p, corners[d])) eliminations.push_back({p, extra});
      if (eliminations.empty()) return std::nullopt;
      TechniqueStep step = rectangleStep(Technique::UniqueRectangle2, corners, pair);
      step.eliminations = std::move(eliminations);
      if (!ctx.wants(step)) return std::nullopt;
      return step;
    });
  });
}

std::optional<TechniqueStep> findUniqueRectangle4(const TechniqueContext& ctx) {
  const TechniqueBoard& board = ctx.board;
  return eachRectangle(board, [&](const Corners& corners, const Masks& masks) {
    return eachPair(masks, [&](std::uint16_t pair, unsigned exact) -> std::optional<TechniqueStep> {
      // The two exact corners share a row or a column (not a diagonal), and so do the others.
      if (exact != 0b0011 && exact != 0b1100 && exact != 0b0101 && exact != 0b1010) return std::nullopt;
      const std::size_t i = std::size_t(std::countr_zero(~exact & 0xFu));
      const std::size_t j = std::size_t(31 - std::countl_zero(~exact & 0xFu));
      const int a = corners[i], b = corners[j];
      for (std::uint16_t m : {masks[i], masks[j]})
        if ((m & pair) != pair || m == pair) return std::nullopt;
      // Digits of the pair that must stand in one of the two, by an area holding both.
      std::uint16_t locked = 0;
      for (int area : {rowArea(a), colArea(a), boxArea(a)}) {
        if (area != rowArea(b) && area != colArea(b) && area != boxArea(b)) continue;
        for (std::uint16_t d = pair; d; d &= std::uint16_t(d - 1))
          if (confinedTo(board, area, digitOf(std::uint16_t(d & -d)), a, b)) locked |= std::uint16_t(d & -d);
      }
      // Both locked would make the two cells the pair: deadly, so not a board of a unique puzzle.
      if (!locked || locked == pair) return std::nullopt;
      const int other = digitOf(std::uint16_t(pair & ~locked));
      TechniqueStep step = rectangleStep(Technique::UniqueRectangle4, corners, pair);
      step.eliminations = {{a, other}, {b, other}};
      if (!ctx.wants(step)) return std::nullopt;
      return step;
    });
  });
}

std::optional<TechniqueStep> findBugPlus1(const TechniqueContext& ctx) {
  const TechniqueBoard& board = ctx.board;
  if (!board.uniqueSolution) return std::nullopt;
  int odd = -1;  // the one open cell with three candidates
  for (int c = 0; c < kCellCount; ++c) {
    if (board.value[std::size_t(c)]) {
      if (board.cand[std::size_t(c)]) return std::nullopt;
      continue;
    }
    const int n = count(board.cand[std::size_t(c)]);
    if (n == 2) continue;
    if (n != 3 || odd >= 0) return std::nullopt;
    odd = c;
  }
  if (odd < 0) return std::nullopt;
  // Every digit missing from an area has exactly two places there, and a
  // placed digit none, except one digit with three places in each area of the
  // odd cell. Without that digit in the odd cell the board would be a BUG,
  // which has no solution or at least two.
  int three = 0;
  for (int area = 0; area < 27; ++area) {
    std::uint16_t placed = 0;
    std::array<int, 9> places{};
    for (std::uint8_t cell : kAreas[std::size_t(area)]) {
      if (const int v = board.value[cell]) placed |= bitOf(v);
      for (std::uint16_t m = board.cand[cell]; m; m &= std::uint16_t(m - 1)) ++places[std::size_t(std::countr_zero(unsigned(m)))];
    }
    const bool withOdd = area == rowArea(odd) || area == colArea(odd) || area == boxArea(odd);
    for (int d = 1; d <= 9; ++d) {
      const int n = places[std::size_t(d - 1)];
      if ((placed & bitOf(d)) ? n == 0 : n == 2) continue;
      if (!withOdd || (placed & bitOf(d)) || n != 3 || (three && three != d)) return std::nullopt;
      three = d;
    }
  }
  // (Each area of the odd cell has one more candidate than twice its open
  // cells, so each has found its digit with three places, and it is one digit.)
  if (!three || !(board.cand[std::size_t(odd)] & bitOf(three))) return std::nullopt;
  TechniqueStep step;
  step.technique = Technique::BugPlus1;
  step.cells = {odd};
  step.digits = bitOf(three);
  step.placements = {{odd, three}};
  if (!ctx.wants(step)) return std::nullopt;
  return step;
}

}  // namespace tessaly
