// Wings: XY-Wing, XYZ-Wing, W-Wing.
//
// Each looks for a few bivalue (or, for the XYZ pivot, trivalue) cells whose
// digits force one digit z into at least one of two or three cells, and removes
// z from the cells that see all of them.

#include <bit>
#include <utility>

#include "solver/CellSet.h"
#include "solver/Techniques.h"

namespace tessaly {

using namespace bitgrid;

namespace {

int digitOf(std::uint16_t bit) { return std::countr_zero(unsigned(bit)) + 1; }

/// `digit` in each cell of `cells`, ascending.
void eliminateAll(CellSet cells, int digit, std::vector<Candidate>& out) {
  cells.forEach([&](int c) { out.push_back({c, digit}); });
}

/// The cells with exactly `k` candidates (2 or 3), counted across the
/// digits' cell sets one level at a time.
CellSet cellsWith(const TechniqueContext& ctx, int k) {
  CellSet one, two, three, four;
  for (int d = 1; d <= 9; ++d) {
    const CellSet& h = ctx.holds(d);
    four |= three & h;
    three |= two & h;
    two |= one & h;
    one |= h;
  }
  return k == 2 ? two - three : three - four;
}

}  // namespace

std::optional<TechniqueStep> findXYWing(const TechniqueContext& ctx) {
  const TechniqueBoard& board = ctx.board;
  const CellSet bivalue = cellsWith(ctx, 2);
  std::array<int, 20> wings{};
  for (std::uint64_t lo = bivalue.lo, hi = bivalue.hi; lo | hi;) {
    const int pivot = lo ? std::countr_zero(lo) : 64 + std::countr_zero(hi);
    if (lo) lo &= lo - 1; else hi &= hi - 1;
    const std::uint16_t pm = board.cand[std::size_t(pivot)];
    // The bivalue peers that share exactly one digit with the pivot.
    int n = 0;
    (kPeerSets[std::size_t(pivot)] & bivalue).forEach([&](int p) {
      if (single(std::uint16_t(board.cand[std::size_t(p)] & pm))) wings[std::size_t(n++)] = p;
    });
    for (int i = 0; i < n; ++i)
      for (int j = i + 1; j < n; ++j) {
        const int a = wings[std::size_t(i)], b = wings[std::size_t(j)];
        const std::uint16_t ma = board.cand[std::size_t(a)], mb = board.cand[std::size_t(b)];
        // One pincer holds x, the other y, and both the same third digit z.
        if ((ma & pm) == (mb & pm) || (ma & ~pm) != (mb & ~pm)) continue;
        const int z = digitOf(std::uint16_t(ma & ~pm));
        const CellSet targets = ctx.seeingBoth(a, b, z);
        if (targets.empty() || (ctx.singledOut() && (targets & ctx.wanted(z)).empty())) continue;
        TechniqueStep step;
        eliminateAll(targets, z, step.eliminations);
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
  const CellSet bivalue = cellsWith(ctx, 2);
  std::array<int, 20> wings{};
  const CellSet trivalue = cellsWith(ctx, 3);
  for (std::uint64_t lo = trivalue.lo, hi = trivalue.hi; lo | hi;) {
    const int pivot = lo ? std::countr_zero(lo) : 64 + std::countr_zero(hi);
    if (lo) lo &= lo - 1; else hi &= hi - 1;
    const std::uint16_t pm = board.cand[std::size_t(pivot)];
    // The bivalue peers whose digits are two of the pivot's.
    int n = 0;
    (kPeerSets[std::size_t(pivot)] & bivalue).forEach([&](int p) {
      if (!(board.cand[std::size_t(p)] & ~pm)) wings[std::size_t(n++)] = p;
    });
    for (int i = 0; i < n; ++i)
      for (int j = i + 1; j < n; ++j) {
        const int a = wings[std::size_t(i)], b = wings[std::size_t(j)];
        const std::uint16_t ma = board.cand[std::size_t(a)], mb = board.cand[std::size_t(b)];
        if (ma == mb) continue;  // two different pairs of the pivot's digits share one, z
        const int z = digitOf(std::uint16_t(ma & mb));
        const CellSet targets = ctx.seeingBoth(a, b, z) & kPeerSets[std::size_t(pivot)];
        if (targets.empty() || (ctx.singledOut() && (targets & ctx.wanted(z)).empty())) continue;
        TechniqueStep step;
        eliminateAll(targets, z, step.eliminations);
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
  const CellSet bivalue = cellsWith(ctx, 2);
  for (std::uint64_t lo = bivalue.lo, hi = bivalue.hi; lo | hi;) {
    const int a = lo ? std::countr_zero(lo) : 64 + std::countr_zero(hi);
    if (lo) lo &= lo - 1; else hi &= hi - 1;
    const std::uint16_t pair = board.cand[std::size_t(a)];
    // The later bivalue cells with the same pair that a does not see.
    CellSet partners = CellSet{lo, hi} - kPeerSets[std::size_t(a)];
    const int d1 = digitOf(std::uint16_t(pair & -pair)), d2 = digitOf(std::uint16_t(pair & (pair - 1)));
    partners = partners & ctx.holds(d1) & ctx.holds(d2);
    if (partners.empty()) continue;
    const CellSet near1 = kPeerSets[std::size_t(a)] & ctx.holds(d1), near2 = kPeerSets[std::size_t(a)] & ctx.holds(d2);
    std::optional<TechniqueStep> found;
    partners.forEach([&](int b) {
      if (found || board.cand[std::size_t(b)] != pair) return;
      // Each digit x of the pair in turn; z the other, taken from what sees both.
      for (const int x : {d1, d2}) {
        const int z = x == d1 ? d2 : d1;
        const CellSet targets = (z == d1 ? near1 : near2) & kPeerSets[std::size_t(b)];
        // The same for every link on x.
        if (targets.empty() || (ctx.singledOut() && (targets & ctx.wanted(z)).empty())) continue;
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
          eliminateAll(targets, z, step.eliminations);
          step.technique = Technique::WWing;
          step.cells = {a, b};
          step.digits = pair;
          step.restricted = x;
          step.zDigit = z;
          step.chain = {ChainNode{{p}, x}, ChainNode{{q}, x}};
          found = std::move(step);
          return;
        }
      }
    });
    if (found) return found;
  }
  return std::nullopt;
}

}  // namespace tessaly
