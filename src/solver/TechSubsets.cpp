// Hidden and naked subsets.
//
// Both are the same search over an area: n items whose masks together hold
// exactly n bits. A naked subset's items are cells and their masks the cells'
// candidates; a hidden subset's items are digits and their masks the digits'
// places in the area.

#include "solver/TechniquePlaces.h"

namespace tessaly {

using namespace bitgrid;
using tech::bits;
using tech::lowest;

namespace {

// n cells of an area holding n digits between them: those digits leave the
// area's other cells.
std::optional<TechniqueStep> findNaked(const TechniqueContext& ctx, int n, Technique technique) {
  const TechniqueBoard& board = ctx.board;
  std::optional<TechniqueStep> step;
  for (int area = 0; area < 27 && !step; ++area) {
    if (!((ctx.areas() >> area) & 1u)) continue;
    const auto& cells = kAreas[std::size_t(area)];
    std::array<std::uint16_t, 9> cand{};
    unsigned eligible = 0;
    for (std::size_t k = 0; k < 9; ++k) {
      cand[k] = board.cand[cells[k]];
      if (bits(cand[k]) >= 2 && bits(cand[k]) <= n) eligible |= 1u << k;
    }
    if (bits(eligible) < n) continue;
    auto accept = [&](unsigned chosen, unsigned digits) {
      if (bits(digits) != n) return false;
      bool removes = false;
      for (std::size_t k = 0; k < 9 && !removes; ++k) removes = !((chosen >> k) & 1u) && (cand[k] & digits) != 0;
      if (!removes) return false;
      TechniqueStep& s = step.emplace();
      s.technique = technique;
      s.digits = std::uint16_t(digits);
      s.units = {area};
      for (std::size_t k = 0; k < 9; ++k) {
        if ((chosen >> k) & 1u) {
          s.cells.push_back(cells[k]);
          continue;
        }
        for (unsigned gone = cand[k] & digits; gone; gone &= gone - 1)
          s.eliminations.push_back({cells[k], lowest(gone) + 1});
      }
      return true;
    };
    tech::chooseSubset(cand, eligible, n, tech::atMost(n), accept);
  }
  return step;
}

// n digits whose places in an area are n cells: those cells hold nothing else.
std::optional<TechniqueStep> findHidden(const TechniqueContext& ctx, int n, Technique technique) {
  const TechniqueBoard& board = ctx.board;
  std::optional<TechniqueStep> step;
  for (int area = 0; area < 27 && !step; ++area) {
    if (!((ctx.areas() >> area) & 1u)) continue;
    const auto& cells = kAreas[std::size_t(area)];
    std::array<std::uint16_t, 9> where{};
    unsigned eligible = 0;
    for (int d = 1; d <= 9; ++d) {
      where[std::size_t(d - 1)] = ctx.at(area, d);
      const int count = bits(where[std::size_t(d - 1)]);
      if (count >= 2 && count <= n) eligible |= 1u << (d - 1);
    }
    if (bits(eligible) < n) continue;
    auto accept = [&](unsigned digits, unsigned chosen) {
      if (bits(chosen) != n) return false;
      bool removes = false;
      for (unsigned k = chosen; k && !removes; k &= k - 1)
        removes = (board.cand[cells[std::size_t(lowest(k))]] & ~digits) != 0;
      if (!removes) return false;
      TechniqueStep& s = step.emplace();
      s.technique = technique;
      s.digits = std::uint16_t(digits);
      s.units = {area};
      for (unsigned k = chosen; k; k &= k - 1) {
        const int cell = cells[std::size_t(lowest(k))];
        s.cells.push_back(cell);
        for (unsigned gone = board.cand[std::size_t(cell)] & ~digits; gone; gone &= gone - 1)
          s.eliminations.push_back({cell, lowest(gone) + 1});
      }
      return true;
    };
    tech::chooseSubset(where, eligible, n, tech::atMost(n), accept);
  }
  return step;
}

}  // namespace

std::optional<TechniqueStep> findHiddenPair(const TechniqueContext& ctx) {
  return findHidden(ctx, 2, Technique::HiddenPair);
}
std::optional<TechniqueStep> findNakedTriple(const TechniqueContext& ctx) {
  return findNaked(ctx, 3, Technique::NakedTriple);
}
std::optional<TechniqueStep> findHiddenTriple(const TechniqueContext& ctx) {
  return findHidden(ctx, 3, Technique::HiddenTriple);
}
std::optional<TechniqueStep> findNakedQuad(const TechniqueContext& ctx) {
  return findNaked(ctx, 4, Technique::NakedQuad);
}
std::optional<TechniqueStep> findHiddenQuad(const TechniqueContext& ctx) {
  return findHidden(ctx, 4, Technique::HiddenQuad);
}

}  // namespace tessaly
