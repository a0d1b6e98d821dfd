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

// Whether a box has cells in two rows and two columns, by its 9-bit mask.
constexpr auto kSpread = [] {
  std::array<bool, 512> t{};
  for (unsigned m = 0; m < 512; ++m) {
    bool oneRow = false, oneCol = false;
    for (unsigned k = 0; k < 3; ++k) {
      oneRow = oneRow || (m & ~(7u << (3 * k))) == 0;
      oneCol = oneCol || (m & ~(0x49u << k)) == 0;
    }
    t[m] = !oneRow && !oneCol;
  }
  return t;
}();

// For a line's places (two to n + 3 of them, else none) the stacks beside
// which it has fewer than n places, bit k for stack k; n = 2 and 3.
constexpr auto kBaseStacks = [] {
  std::array<std::array<std::uint8_t, 512>, 2> t{};
  for (int n = 2; n <= 3; ++n)
    for (unsigned m = 0; m < 512; ++m) {
      if (std::popcount(m) < 2 || std::popcount(m) > n + 3) continue;
      for (unsigned k = 0; k < 3; ++k)
        if (std::popcount(m & ~(7u << (3 * k))) < n) t[std::size_t(n - 2)][m] |= std::uint8_t(1u << k);
    }
  return t;
}();

// A quick test for a finned fish with its fins in `stack`, from base lines
// out of `lines`: in one of the `bands` there must be a line that can lose
// the digit in the stack, a place there that another line among `lines`
// shares (a cover line), and another line among `lines` with a place in the
// stack (the fins).
bool canLose(const std::array<std::uint16_t, 9>& masks, unsigned lines, unsigned stack, unsigned bands) {
  for (unsigned bs = bands; bs; bs &= bs - 1) {
    const int band = lowest(bs);
    unsigned finLines = 0;
    for (int line = 3 * band; line < 3 * band + 3; ++line)
      if (masks[std::size_t(line)] & stack) finLines |= 1u << line;
    finLines &= lines;
    if (!finLines) continue;
    for (int loser = 3 * band; loser < 3 * band + 3; ++loser) {
      const unsigned loses = masks[std::size_t(loser)] & stack;
      if (!loses || !(finLines & ~(1u << loser))) continue;
      for (unsigned m = lines & ~(1u << loser); m; m &= m - 1)
        if (masks[std::size_t(lowest(m))] & loses) return true;
    }
  }
  return false;
}

// The choices of Left more lines out of `rest` in lexicographic order, as
// tech::chooseSubset makes them, unrolled for a fixed count: the finned fish
// search runs it for many small sets of lines.
template <int Left, class Fits, class Accept>
bool eachBase(const std::array<std::uint16_t, 9>& masks, unsigned rest, const Fits& fits, Accept& accept,
              unsigned chosen = 0, unsigned together = 0) {
  if constexpr (Left == 0) {
    return accept(chosen, together);
  } else {
    for (; bits(rest) >= Left; rest &= rest - 1) {
      const int i = lowest(rest);
      const unsigned next = together | masks[std::size_t(i)];
      if (!fits(next)) continue;
      if (eachBase<Left - 1>(masks, rest & (rest - 1), fits, accept, chosen | (1u << i), next)) return true;
    }
    return false;
  }
}

// n base lines whose places of a digit lie in n cover lines except for fins,
// all in one box: if no fin holds the digit it is a plain fish, and if one does
// the digit is there, so the cover lines' cells in the fins' box (outside the
// base lines) lose the digit either way. Sashimi when a base line keeps one
// cell besides its fins.
template <int n>
std::optional<TechniqueStep> findFinnedFish(const TechniqueContext& places, Technique finned, Technique sashimi) {
  const TechniqueBoard& board = places.board;
  // The boxes where a fin and a place that loses the digit can both be: two
  // cells of the digit in different rows and columns.
  std::array<unsigned, 9> spread{};
  for (int d = 1; d <= 9; ++d)
    if (places.digits() & bitOf(d))
      for (int b = 0; b < 9; ++b)
        if (kSpread[places.at(18 + b, d)]) spread[std::size_t(d - 1)] |= 1u << b;
  for (const bool rows : {true, false}) {
    std::optional<Fish> best;
    for (int d = 1; d <= 9; ++d) {
      if (!spread[std::size_t(d - 1)]) continue;
      const auto masks = lineMasks(places, rows, d);
      // The places in each band of three lines, and the lines that can be
      // base lines with the fins in each stack.
      std::array<unsigned, 3> inBand{}, linesFor{};
      for (int line = 0; line < 9; ++line) {
        const std::uint16_t m = masks[std::size_t(line)];
        inBand[std::size_t(line / 3)] |= m;
        const unsigned stacks = kBaseStacks[std::size_t(n - 2)][m];
        for (int k = 0; k < 3; ++k) linesFor[std::size_t(k)] |= ((stacks >> k) & 1u) << line;
      }
      // The fins lie across the base lines in one stack of three positions
      // and every other position is a cover line. Only cover lines through
      // that stack can lose the digit, so at least one of them is there: the
      // base lines have at most n - 1 positions beside the stack between them.
      // A base that fits more than one stack takes the first, as its stacks
      // are tried in order, and a lower digit keeps an equal base.
      for (int stackOf = 0; stackOf < 3; ++stackOf) {
        const unsigned stack = 7u << (3 * stackOf);
        auto fits = [stack](unsigned together) { return bits(together & ~stack) < n; };
        // The bands whose box in this stack can hold the fins.
        unsigned bands = 0;
        for (int band = 0; band < 3; ++band)
          if ((spread[std::size_t(d - 1)] >> (rows ? band * 3 + stackOf : stackOf * 3 + band)) & 1u) bands |= 1u << band;
        if (!bands) continue;
        const unsigned lines = linesFor[std::size_t(stackOf)];
        if (bits(lines) < n || !canLose(masks, lines, stack, bands)) continue;
        auto accept = [&](unsigned base, unsigned together) {
          if (best && !tech::listsBefore(base, best->base)) return true;
          const unsigned outside = together & ~stack, inside = together & stack;
          const int need = n - bits(outside);
          if (bits(inside) <= need) return false;
          // A quick test before trying the cover lines: with the fins in band
          // f, the stack's places on base lines outside f are all cover
          // lines, and a cover line meets a place off the base lines in f.
          std::array<unsigned, 3> offBase = inBand, onBase{};
          for (int band = 0; band < 3; ++band) {
            if (!((base >> (3 * band)) & 7u)) continue;
            offBase[std::size_t(band)] = 0;
            for (int line = 3 * band; line < 3 * band + 3; ++line)
              (((base >> line) & 1u) ? onBase : offBase)[std::size_t(band)] |= masks[std::size_t(line)];
          }
          bool possible = false;
          for (int f = 0; f < 3 && !possible; ++f) {
            const unsigned forced = (onBase[std::size_t((f + 1) % 3)] | onBase[std::size_t((f + 2) % 3)]) & stack;
            const int spare = need - bits(forced);
            const unsigned loses = offBase[std::size_t(f)] & inside;
            possible = spare >= 0 && loses && (spare > 0 || (loses & forced));
          }
          if (!possible) return false;
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
          return false;
        };
        eachBase<n>(masks, lines, fits, accept);
      }
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
  return findFinnedFish<2>(ctx, Technique::FinnedXWing, Technique::SashimiXWing);
}
std::optional<TechniqueStep> findFinnedSwordfish(const TechniqueContext& ctx) {
  return findFinnedFish<3>(ctx, Technique::FinnedSwordfish, Technique::SashimiSwordfish);
}

}  // namespace tessaly
