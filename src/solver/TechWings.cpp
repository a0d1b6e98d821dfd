// Wings: XY-Wing, XYZ-Wing, W-Wing.
//
// Each looks for a few bivalue (or, for the XYZ pivot, trivalue) cells whose
// digits force one digit z into at least one of two or three cells, and removes
// z from the cells that see all of them.

#include <bit>
#include <initializer_list>
#include <utility>

#include "solver/Techniques.h"

namespace tessaly {

using namespace bitgrid;

namespace {

int digitOf(std::uint16_t bit) { return std::countr_zero(unsigned(bit)) + 1; }

/// `digit` in every cell that sees `first` and each of `others` (and has the
/// digit), ascending: the peers of `first` are listed in ascending order.
void eliminateSeeingAll(const TechniqueBoard& board, int first, std::initializer_list<int> others, int digit,
                        std::vector<Candidate>& out) {
  const std::uint16_t bit = bitOf(digit);
  for (std::uint8_t p : kPeers[std::size_t(first)]) {
    if (!(board.cand[p] & bit)) continue;
    bool all = true;
    for (int o : others) all = all && sees(p, o);
    if (all) out.push_back({p, digit});
  }
}

/// The bivalue peers of `cell` whose digits lie `inside` (when true) the
/// cell's or share exactly one digit with them (when false).
int bivaluePeers(const TechniqueBoard& board, int cell, bool inside, std::array<int, 20>& out) {
  const std::uint16_t own = board.cand[std::size_t(cell)];
  int n = 0;
  for (std::uint8_t p : kPeers[std::size_t(cell)]) {
    const std::uint16_t m = board.cand[p];
    if (count(m) != 2) continue;
    if (inside ? (m & ~own) == 0 : single(std::uint16_t(m & own))) out[std::size_t(n++)] = p;
  }
  return n;
}

}  // namespace

std::optional<TechniqueStep> findXYWing(const TechniqueContext& ctx) {
  const TechniqueBoard& board = ctx.board;
  std::array<int, 20> wings{};
  for (int pivot = 0; pivot < kCellCount; ++pivot) {
    const std::uint16_t pm = board.cand[std::size_t(pivot)];
    if (count(pm) != 2) continue;
    const int n = bivaluePeers(board, pivot, false, wings);
    for (int i = 0; i < n; ++i)
      for (int j = i + 1; j < n; ++j) {
        const int a = wings[std::size_t(i)], b = wings[std::size_t(j)];
        const std::uint16_t ma = board.cand[std::size_t(a)], mb = board.cand[std::size_t(b)];
        // One pincer holds x, the other y, and both the same third digit z.
        if ((ma & pm) == (mb & pm) || (ma & ~pm) != (mb & ~pm)) continue;
        const int z = digitOf(std::uint16_t(ma & ~pm));
        TechniqueStep step;
        eliminateSeeingAll(board, a, {b}, z, step.eliminations);
        if (step.eliminations.empty()) continue;
        step.technique = Technique::XYWing;
        step.cells = {pivot, a, b};
        step.digits = pm;
        step.zDigit = z;
        return step;
      }
  }
  return std::nullopt;
}

std::optional<TechniqueStep> findXYZWing(const TechniqueContext& ctx) {
  const TechniqueBoard& board = ctx.board;
  std::array<int, 20> wings{};
  for (int pivot = 0; pivot < kCellCount; ++pivot) {
    const std::uint16_t pm = board.cand[std::size_t(pivot)];
    if (count(pm) != 3) continue;
    const int n = bivaluePeers(board, pivot, true, wings);
    for (int i = 0; i < n; ++i)
      for (int j = i + 1; j < n; ++j) {
        const int a = wings[std::size_t(i)], b = wings[std::size_t(j)];
        const std::uint16_t ma = board.cand[std::size_t(a)], mb = board.cand[std::size_t(b)];
        if (ma == mb) continue;  // two different pairs of the pivot's digits share one, z
        const int z = digitOf(std::uint16_t(ma & mb));
        TechniqueStep step;
        eliminateSeeingAll(board, pivot, {a, b}, z, step.eliminations);
        if (step.eliminations.empty()) continue;
        step.technique = Technique::XYZWing;
        step.cells = {pivot, a, b};
        step.digits = pm;
        step.zDigit = z;
        return step;
      }
  }
  return std::nullopt;
}

std::optional<TechniqueStep> findWWing(const TechniqueContext& ctx) {
  const TechniqueBoard& board = ctx.board;
  std::array<int, kCellCount> bivalue{};
  int n = 0;
  for (int c = 0; c < kCellCount; ++c)
    if (count(board.cand[std::size_t(c)]) == 2) bivalue[std::size_t(n++)] = c;
  for (int i = 0; i < n; ++i)
    for (int j = i + 1; j < n; ++j) {
      const int a = bivalue[std::size_t(i)], b = bivalue[std::size_t(j)];
      const std::uint16_t pair = board.cand[std::size_t(a)];
      if (board.cand[std::size_t(b)] != pair || sees(a, b)) continue;
      for (std::uint16_t xs = pair; xs; xs &= std::uint16_t(xs - 1)) {
        const int x = digitOf(std::uint16_t(xs & -xs));
        const int z = digitOf(std::uint16_t(pair & ~bitOf(x)));
        for (std::size_t area = 0; area < 27; ++area) {
          if (!(ctx.linked(int(area)) & bitOf(x))) continue;
          const std::uint16_t at = ctx.at(int(area), x);
          int p = kAreas[area][std::size_t(std::countr_zero(unsigned(at)))];
          int q = kAreas[area][std::size_t(15 - std::countl_zero(at))];
          // The end that sees the first bivalue cell comes first in the chain.
          if (!(sees(p, a) && sees(q, b))) {
            if (!(sees(q, a) && sees(p, b))) continue;
            std::swap(p, q);
          }
          TechniqueStep step;
          eliminateSeeingAll(board, a, {b}, z, step.eliminations);
          if (step.eliminations.empty()) break;  // the same for every link on x
          step.technique = Technique::WWing;
          step.cells = {a, b};
          step.digits = pair;
          step.restricted = x;
          step.zDigit = z;
          step.chain = {ChainNode{{p}, x}, ChainNode{{q}, x}};
          return step;
        }
      }
    }
  return std::nullopt;
}

}  // namespace tessaly
