// Fish: X-Wing, Swordfish, Jellyfish and their finned and sashimi forms.
//
// Base lines are rows (covered by columns) first, then columns (covered by
// rows). Within one direction the fish whose base lines come first wins, then
// the lower digit. A line's places of the digit are a 9-bit mask of positions
// across it, so the cover lines of a set of base lines are the union of their
// masks.

#include "solver/TechniquePlaces.h"

namespace tessaly {

using namespace bitgrid;
using tech::bits;
using tech::lowest;

namespace {

struct Fish {
  Technique technique;
  bool rows;
  int digit;
  unsigned base;   // base lines 0..8
  unsigned cover;  // cover lines 0..8
  int finBox;      // box 0..8 of the fins; -1 for a plain fish
};

constexpr int baseArea(bool rows, int line) { return rows ? line : 9 + line; }
constexpr int coverArea(bool rows, int line) { return rows ? 9 + line : line; }

TechniqueStep fishStep(const TechniqueBoard& board, const Fish& fish) {
  TechniqueStep s;
  s.technique = fish.technique;
  s.digits = bitOf(fish.digit);
  for (unsigned m = fish.base; m; m &= m - 1) s.units.push_back(baseArea(fish.rows, lowest(m)));
  for (unsigned m = fish.cover; m; m &= m - 1) s.coverUnits.push_back(coverArea(fish.rows, lowest(m)));
  for (int cell = 0; cell < kCellCount; ++cell) {
    if (!(board.cand[std::size_t(cell)] & s.digits)) continue;
    const int line = fish.rows ? rowOf(cell) : colOf(cell), across = fish.rows ? colOf(cell) : rowOf(cell);
    if ((fish.base >> line) & 1u) {
      s.cells.push_back(cell);
      if (!((fish.cover >> across) & 1u)) s.fins.push_back(cell);
    } else if (((fish.cover >> across) & 1u) && (fish.finBox < 0 || boxOf(cell) == fish.finBox)) {
      s.eliminations.push_back({cell, fish.digit});
    }
  }
  return s;
}

// The places of `digit` across each line of one direction.
std::array<std::uint16_t, 9> lineMasks(const TechniqueContext& places, bool rows, int digit) {
  std::array<std::uint16_t, 9> masks{};
  for (int line = 0; line < 9; ++line) masks[std::size_t(line)] = places.at(baseArea(rows, line), digit);
  return masks;
}

unsigned linesWith(const std::array<std::uint16_t, 9>& masks, int least, int most) {
  unsigned lines = 0;
  for (int line = 0; line < 9; ++line) {
    const int count = bits(masks[std::size_t(line)]);
    if (count >= least && count <= most) lines |= 1u << line;
  }
  return lines;
}

// n base lines whose places of a digit lie in n cover lines: the digit leaves
// the cover lines' other cells.
std::optional<TechniqueStep> findFish(const TechniqueContext& places, int n, Technique technique) {
  const TechniqueBoard& board = places.board;
  for (const bool rows : {true, false}) {
    std::optional<Fish> best;
    for (int d = 1; d <= 9; ++d) {
      if (!(places.digits() & bitOf(d))) continue;
      const auto masks = lineMasks(places, rows, d);
      auto accept = [&](unsigned base, unsigned cover) {
        // Base sets come in ascending order: none after this one can win.
        if (best && !tech::listsBefore(base, best->base)) return true;
        if (bits(cover) != n) return false;
        unsigned removes = 0;
        for (unsigned m = cover; m; m &= m - 1) removes |= places.at(coverArea(rows, lowest(m)), d) & ~base;
        if (!removes) return false;
        best = Fish{technique, rows, d, base, cover, -1};
        return true;
      };
      tech::chooseSubset(masks, linesWith(masks, 2, n), n, tech::atMost(n), accept);
    }
    if (best) return fishStep(board, *best);
  }
  return std::nullopt;
}

// n base lines whose places of a digit lie in n cover lines except for fins,
// all in one box: if no fin holds the digit it is a plain fish, and if one does
// the digit is there, so the cover lines' cells in the fins' box (outside the
// base lines) lose the digit either way. Sashimi when a base line keeps one
// cell besides its fins.
std::optional<TechniqueStep> findFinnedFish(const TechniqueContext& places, int n, Technique finned, Technique sashimi) {
  const TechniqueBoard& board = places.board;
  for (const bool rows : {true, false}) {
    std::optional<Fish> best;
    for (int d = 1; d <= 9; ++d) {
      if (!(places.digits() & bitOf(d))) continue;
      const auto masks = lineMasks(places, rows, d);
      auto accept = [&](unsigned base, unsigned together) {
        if (best && !tech::listsBefore(base, best->base)) return true;
        // The fins lie across the base lines in one stack of three positions
        // and every other position is a cover line. Only cover lines through
        // that stack can lose the digit, so at least one of them is there.
        for (int stackOf = 0; stackOf < 3; ++stackOf) {
          const unsigned stack = 7u << (3 * stackOf), outside = together & ~stack, inside = together & stack;
          const int need = n - bits(outside);
          if (need < 1 || bits(inside) <= need) continue;
          // The `need` cover lines in the stack, ascending, out of its positions in use.
          for (unsigned chosen = (0u - inside) & inside; chosen != 0; chosen = (chosen - inside) & inside) {
            if (bits(chosen) != need) continue;
            const unsigned cover = outside | chosen, fins = inside & ~chosen;
            unsigned finLines = 0;
            bool bodyInEveryLine = true, oneLeft = false;
            for (unsigned m = base; m; m &= m - 1) {
              const std::uint16_t line = masks[std::size_t(lowest(m))];
              bodyInEveryLine = bodyInEveryLine && (line & cover);
              oneLeft = oneLeft || bits(line & cover) == 1;
              if (line & fins) finLines |= 1u << lowest(m);
            }
            const int finBand = lowest(finLines) / 3;
            const unsigned band = 7u << (3 * finBand);
            if (!bodyInEveryLine || (finLines & ~band)) continue;
            unsigned removes = 0;
            for (unsigned m = chosen; m; m &= m - 1) removes |= places.at(coverArea(rows, lowest(m)), d) & ~base & band;
            if (!removes) continue;
            best = Fish{
                oneLeft ? sashimi : finned, rows, d, base, cover, rows ? finBand * 3 + stackOf : stackOf * 3 + finBand};
            return true;
          }
        }
        return false;
      };
      // Beside the fins' stack, n - 1 cover lines at most.
      auto fits = [n](unsigned together) {
        return bits(together & 0x1F8u) < n || bits(together & 0x1C7u) < n || bits(together & 0x03Fu) < n;
      };
      tech::chooseSubset(masks, linesWith(masks, 2, n + 3), n, fits, accept);
    }
    if (best) return fishStep(board, *best);
  }
  return std::nullopt;
}

}  // namespace

std::optional<TechniqueStep> findXWing(const TechniqueContext& ctx) { return findFish(ctx, 2, Technique::XWing); }
std::optional<TechniqueStep> findSwordfish(const TechniqueContext& ctx) {
  return findFish(ctx, 3, Technique::Swordfish);
}
std::optional<TechniqueStep> findJellyfish(const TechniqueContext& ctx) {
  return findFish(ctx, 4, Technique::Jellyfish);
}
std::optional<TechniqueStep> findFinnedXWing(const TechniqueContext& ctx) {
  return findFinnedFish(ctx, 2, Technique::FinnedXWing, Technique::SashimiXWing);
}
std::optional<TechniqueStep> findFinnedSwordfish(const TechniqueContext& ctx) {
  return findFinnedFish(ctx, 3, Technique::FinnedSwordfish, Technique::SashimiSwordfish);
}

}  // namespace tessaly
