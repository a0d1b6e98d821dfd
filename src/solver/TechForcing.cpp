// Forcing chains: the last logical resort before a guess. A source (a cell, or
// a digit's places in one area) is one of a few possibilities; each is assumed
// in turn (a branch) and the naked and hidden singles it forces are followed.
// What every branch reaches holds, and a branch that runs into a contradiction
// could not have been the truth.
//
// Every single a branch can reach is followed (no limit on rounds); the
// placement log holds 64 entries, enough to fill any board of 17 givens or
// more, so the bound only stops runs on near-empty boards. Long branches cost
// nothing in readability: the step kept is the one whose branches need the
// fewest implications in all, among the sources with the fewest branches
// (two candidates or places, then three, ...).
//
// A branch works on bit masks in fixed arrays. It records each placement with
// the set of earlier placements it needed (its ancestors, a 64-bit mask over
// the branch's placement log) and, for every candidate it loses, the placement
// that took it. So the cost of any conclusion (how many implications a reader
// must follow) is a popcount, and the record of the chosen step lists only the
// ancestors of its conclusion.

#include <bit>
#include <deque>

#include "solver/CellSet.h"
#include "solver/Techniques.h"

namespace tessaly {

using namespace bitgrid;

namespace {

/// Placements a branch may make after its assumption: enough to fill any board
/// of 17 givens or more, and the width of an ancestor mask.
constexpr int kMaxImplications = 64;
/// The placement index standing for the branch's assumption (no ancestors).
constexpr std::uint8_t kAssumption = kMaxImplications;

/// How a branch ended in a contradiction, and the placements that led there.
struct Dead {
  int cell = -1;   ///< an open cell left without candidates, or -1
  int area = -1;   ///< otherwise the area where `digit` has no place left
  int digit = 0;
  std::uint64_t ancestors = 0;
};

/// The three areas (row, column, box) of each cell.
constexpr std::array<std::array<std::uint8_t, 3>, kCellCount> kCellAreas = [] {
  std::array<std::array<std::uint8_t, 3>, kCellCount> t{};
  for (int c = 0; c < kCellCount; ++c)
    t[std::size_t(c)] = {std::uint8_t(rowOf(c)), std::uint8_t(9 + colOf(c)), std::uint8_t(18 + boxOf(c))};
  return t;
}();

constexpr CellSet kAllCells{~std::uint64_t(0), (std::uint64_t(1) << (kCellCount - 64)) - 1};

/// Where the digits can go in each area, kept up to date as a branch places
/// digits: what its look for singles reads.
struct Places {
  /// Cells of the area holding the digit as a candidate (in a branch, only
  /// while the digit is not placed in the area: a look never reads it after).
  std::array<std::array<std::uint8_t, 9>, 27> count;
  std::array<std::uint16_t, 27> placed;               ///< digits with a value in the area
  /// Digits whose count fell to one or none since the last look (an area's
  /// single or contradiction, unless the digit is placed there), and the areas
  /// where any did (bit a).
  std::array<std::uint16_t, 27> watch;
  std::uint32_t watchAreas;
};

/// What every branch of a board starts from: the board's places, every digit
/// with at most one place watched.
struct Start {
  Places places{};
  /// The board holds no single (an open cell with one candidate, a digit with
  /// one place in an area) and no contradiction (an open cell without
  /// candidates, a digit without a place in an area): a branch's first look
  /// need not go past what its assumption changed.
  bool quiet = true;
};

Start startOf(const TechniqueContext& ctx) {
  const TechniqueBoard& board = ctx.board;
  Start start;
  Places& p = start.places;
  for (int a = 0; a < 27; ++a) {
    for (int d = 1; d <= 9; ++d) p.count[std::size_t(a)][std::size_t(d - 1)] = std::uint8_t(count(ctx.at(a, d)));
    for (std::uint8_t c : kAreas[std::size_t(a)])
      if (board.value[c]) p.placed[std::size_t(a)] |= bitOf(board.value[c]);
  }
  for (std::size_t a = 0; a < 27; ++a) {
    for (std::size_t d = 0; d < 9; ++d)
      if (p.count[a][d] <= 1) p.watch[a] |= std::uint16_t(1u << d);
    if (p.watch[a] & ~p.placed[a]) p.watchAreas |= 1u << a;
  }
  start.quiet = p.watchAreas == 0;
  for (int c = 0; c < kCellCount; ++c)
    if (!board.value[std::size_t(c)] && count(board.cand[std::size_t(c)]) <= 1) start.quiet = false;
  return start;
}

struct BranchState {
  Cands cand;
  std::array<std::uint8_t, kCellCount> value;
  std::array<std::uint8_t, kCellCount> placedBy;               ///< placement index, for cells placed in the branch
  std::array<std::array<std::uint8_t, 9>, kCellCount> removedBy;  ///< placement index that took each lost candidate
  std::array<std::uint64_t, kMaxImplications + 1> ancestors;  ///< of each placement, itself included
  std::array<std::uint8_t, kMaxImplications> logCell;
  std::array<std::uint8_t, kMaxImplications> logDigit;
  Places places;
  /// The cells holding each digit (index 0..8) as a candidate.
  std::array<CellSet, 9> holds;
  /// The cells whose candidates or value changed since the last look for
  /// singles, and since the assumption.
  CellSet touched, changed;
  int size = 0;
  bool contradiction = false;
  Dead dead;
};

int lowDigit(std::uint16_t set) { return std::countr_zero(unsigned(set)) + 1; }
/// The number of bits set, without a library call where the target has no
/// instruction for it (as the default x86-64 one).
int popcount(std::uint64_t m) {
  m -= (m >> 1) & 0x5555555555555555u;
  m = (m & 0x3333333333333333u) + ((m >> 2) & 0x3333333333333333u);
  m = (m + (m >> 4)) & 0x0F0F0F0F0F0F0F0Fu;
  return int((m * 0x0101010101010101u) >> 56);
}

/// The cell no longer holds digit index d (0..8) as a candidate. The areas of
/// `skip` (bit a for area a) have the digit placed, and their counts of it are
/// no longer read: they are left as they are.
void lose(BranchState& s, int cell, std::size_t d, std::uint32_t skip = 0) {
  for (std::uint8_t a : kCellAreas[std::size_t(cell)])
    if (!((skip >> a) & 1u) && --s.places.count[a][d] <= 1) {
      s.places.watch[a] |= std::uint16_t(1u << d);
      s.places.watchAreas |= 1u << a;
    }
}

void place(BranchState& s, int cell, int digit, std::uint8_t by) {
  const std::uint16_t bit = bitOf(digit);
  auto& removed = s.removedBy[std::size_t(cell)];
  for (std::uint16_t rest = std::uint16_t(s.cand[std::size_t(cell)] & ~bit); rest; rest &= std::uint16_t(rest - 1))
    removed[std::size_t(std::countr_zero(unsigned(rest)))] = by;
  const CellSet self = CellSet::of(cell);
  const auto& areas = kCellAreas[std::size_t(cell)];
  const std::uint32_t cellAreas = (1u << areas[0]) | (1u << areas[1]) | (1u << areas[2]);
  for (std::uint16_t all = s.cand[std::size_t(cell)]; all; all &= std::uint16_t(all - 1)) {
    const auto d = std::size_t(std::countr_zero(unsigned(all)));
    if (d != std::size_t(digit - 1)) lose(s, cell, d);
    s.holds[d] = s.holds[d] - self;
  }
  s.cand[std::size_t(cell)] = 0;
  s.value[std::size_t(cell)] = std::uint8_t(digit);
  s.placedBy[std::size_t(cell)] = by;
  for (std::uint8_t a : kCellAreas[std::size_t(cell)]) s.places.placed[a] |= bit;
  s.touched.add(cell);
  s.changed.add(cell);
  // The peers still holding the digit lose it (in any order: what each loss
  // changes does not depend on the others).
  const CellSet losing = kPeerSets[std::size_t(cell)] & s.holds[std::size_t(digit - 1)];
  s.touched |= losing;
  s.changed |= losing;
  s.holds[std::size_t(digit - 1)] = s.holds[std::size_t(digit - 1)] - losing;
  losing.forEach([&](int peer) {
    s.cand[std::size_t(peer)] = std::uint16_t(s.cand[std::size_t(peer)] & ~bit);
    s.removedBy[std::size_t(peer)][std::size_t(digit - 1)] = by;
    lose(s, peer, std::size_t(digit - 1), cellAreas);
  });
}

/// The ancestors of the loss of the candidates `lost` of `cell` (all lost in the branch).
std::uint64_t lossAncestors(const BranchState& s, int cell, std::uint16_t lost) {
  std::uint64_t m = 0;
  for (; lost; lost &= std::uint16_t(lost - 1))
    m |= s.ancestors[s.removedBy[std::size_t(cell)][std::size_t(std::countr_zero(unsigned(lost)))]];
  return m;
}

/// The ancestors of `digit` leaving every cell of `area` but `except` that had it on the board.
std::uint64_t areaLossAncestors(const TechniqueContext& ctx, const BranchState& s, int area, int digit, int except) {
  const auto& cells = kAreas[std::size_t(area)];
  std::uint64_t m = 0;
  for (std::uint16_t at = ctx.at(area, digit); at; at &= std::uint16_t(at - 1)) {
    const std::uint8_t c = cells[std::size_t(std::countr_zero(unsigned(at)))];
    if (c != except) m |= s.ancestors[s.removedBy[c][std::size_t(digit - 1)]];
  }
  return m;
}

/// Assumes `cell` is `digit` and follows the singles, round by round (each
/// round places every single the previous rounds left, each by the reason
/// with the fewest ancestors), until nothing more follows, the log is full, or
/// a contradiction appears (the one with the fewest ancestors is kept).
///
/// A round looks at the cells that changed since the last look and at the
/// digits whose places in an area fell to one or none (the first round: at
/// every cell and every such digit of the board, unless the board is quiet).
/// The others look as they did at the last look, when they held no single (or
/// their singles were placed, which changes them) and no contradiction.
void runBranch(const TechniqueContext& ctx, const Start& start, int cell, int digit, BranchState& s) {
  const TechniqueBoard& board = ctx.board;
  s.cand = board.cand;
  s.value = board.value;
  s.places = start.places;
  for (int d = 1; d <= 9; ++d) s.holds[std::size_t(d - 1)] = ctx.holds(d);
  s.touched = start.quiet ? CellSet{} : kAllCells;
  s.changed = CellSet{};
  s.size = 0;
  s.contradiction = false;
  s.dead = Dead{};
  s.ancestors[kAssumption] = 0;
  place(s, cell, digit, kAssumption);

  struct Single {
    std::uint8_t cell, digit;
    std::uint64_t ancestors;
  };
  std::array<Single, kCellCount> singles;
  std::array<std::uint8_t, kCellCount> singleAt;
  while (true) {
    int count = 0;
    singleAt.fill(0xFF);
    Dead dead;
    int deadCost = kMaxImplications + 1;
    auto die = [&](Dead d) {
      if (popcount(d.ancestors) < deadCost) {
        deadCost = popcount(d.ancestors);
        dead = d;
      }
    };
    auto offer = [&](int c, int d, std::uint64_t anc) {
      std::uint8_t& at = singleAt[std::size_t(c)];
      if (at == 0xFF) {
        at = std::uint8_t(count);
        singles[std::size_t(count++)] = {std::uint8_t(c), std::uint8_t(d), anc};
      } else if (singles[at].digit == d && popcount(anc) < popcount(singles[at].ancestors)) {
        singles[at].ancestors = anc;
      }
    };
    s.touched.forEach([&](int c) {
      const std::uint16_t m = s.cand[std::size_t(c)];
      if (s.value[std::size_t(c)] || (m && !single(m))) return;
      const std::uint16_t orig = board.cand[std::size_t(c)];
      if (m == 0) {
        die({c, -1, 0, lossAncestors(s, c, orig)});
      } else {
        offer(c, lowDigit(m), lossAncestors(s, c, std::uint16_t(orig & ~m)));
      }
    });
    s.touched = CellSet{};
    for (std::uint32_t areas = s.places.watchAreas; areas; areas &= areas - 1) {
      const auto a = std::size_t(std::countr_zero(areas));
      const auto watched = std::uint16_t(s.places.watch[a] & ~s.places.placed[a]);
      s.places.watch[a] = 0;
      std::uint16_t missing = 0, hidden = 0;
      for (std::uint16_t m = watched; m; m &= std::uint16_t(m - 1)) {
        const int d = std::countr_zero(unsigned(m));
        (s.places.count[a][std::size_t(d)] ? hidden : missing) |= std::uint16_t(1u << d);
      }
      for (std::uint16_t m = missing; m; m &= std::uint16_t(m - 1)) {
        const int d = lowDigit(m);
        die({-1, int(a), d, areaLossAncestors(ctx, s, int(a), d, -1)});
      }
      for (; hidden; hidden &= std::uint16_t(hidden - 1)) {
        const int d = lowDigit(hidden);
        const int c = (s.holds[std::size_t(d - 1)] & kAreaSets[a]).first();  // its one place left
        offer(c, d, areaLossAncestors(ctx, s, int(a), d, c));
      }
    }
    s.places.watchAreas = 0;
    if (deadCost <= kMaxImplications) {
      s.contradiction = true;
      s.dead = dead;
      return;
    }
    if (count == 0 || s.size == kMaxImplications) return;
    for (int i = 0; i < count && s.size < kMaxImplications; ++i) {
      const Single& one = singles[std::size_t(i)];
      // An earlier single of this round may have filled the cell or taken the
      // digit; the next round's check finds the contradiction if there is one.
      if (s.value[one.cell] || !(s.cand[one.cell] & bitOf(one.digit))) continue;
      const auto index = std::uint8_t(s.size++);
      s.logCell[index] = one.cell;
      s.logDigit[index] = one.digit;
      s.ancestors[index] = one.ancestors | (std::uint64_t(1) << index);
      place(s, one.cell, one.digit, index);
    }
  }
}

/// The branches of a source, in the order of its possibilities.
using Branches = std::array<const BranchState*, 9>;

/// What a source concludes: its assumption (every other branch dies), a
/// placement, or an elimination, and the implications all its branches need.
struct Conclusion {
  enum Kind { None, Assumption, Placement, Elimination } kind = None;
  int cell = 0;
  int digit = 0;
  int cost = 0;
};

/// Whether the context wants a placement or an elimination (see
/// TechniqueContext::wants).
bool wanted(const TechniqueContext& ctx, Conclusion::Kind kind, int cell, int digit) {
  if (!ctx.singledOut()) return true;
  TechniqueStep step;
  (kind == Conclusion::Elimination ? step.eliminations : step.placements).push_back({cell, digit});
  return ctx.wants(step);
}

/// The cheapest conclusion of the branches (in the order: the surviving
/// assumption, then cells ascending, a placement before eliminations, digits
/// ascending) that the context wants, or None.
Conclusion conclude(const TechniqueContext& ctx, const Branches& branches,
                    const std::array<Candidate, 9>& assumed, int n) {
  const TechniqueBoard& board = ctx.board;
  int deadCost = 0, live = 0, first = -1;
  for (int b = 0; b < n; ++b) {
    if (branches[std::size_t(b)]->contradiction) {
      deadCost += popcount(branches[std::size_t(b)]->dead.ancestors);
    } else {
      ++live;
      if (first < 0) first = b;
    }
  }
  if (live == 0) return {};  // no solution on this board
  if (live == 1) {
    const Candidate& a = assumed[std::size_t(first)];
    if (!wanted(ctx, Conclusion::Assumption, a.cell, a.digit)) return {};
    return {Conclusion::Assumption, a.cell, a.digit, deadCost};
  }
  // Only a cell every live branch changed can be placed or lose a candidate in all.
  CellSet everywhere = branches[std::size_t(first)]->changed;
  for (int b = first + 1; b < n; ++b)
    if (!branches[std::size_t(b)]->contradiction) everywhere = everywhere & branches[std::size_t(b)]->changed;
  Conclusion best;
  everywhere.forEach([&](int y) {
    if (board.value[std::size_t(y)] || !board.cand[std::size_t(y)]) return;
    const int w = branches[std::size_t(first)]->value[std::size_t(y)];
    bool placedInAll = w != 0;
    std::uint16_t lost = board.cand[std::size_t(y)];
    for (int b = first; b < n; ++b) {
      const BranchState& s = *branches[std::size_t(b)];
      if (s.contradiction) continue;
      const int v = s.value[std::size_t(y)];
      placedInAll = placedInAll && v == w && s.placedBy[std::size_t(y)] != kAssumption;
      lost &= std::uint16_t(~s.cand[std::size_t(y)] & ~(v ? bitOf(v) : 0));
    }
    if (placedInAll) {
      if (!wanted(ctx, Conclusion::Placement, y, w)) return;
      int cost = deadCost;
      for (int b = first; b < n; ++b) {
        const BranchState& s = *branches[std::size_t(b)];
        if (!s.contradiction) cost += popcount(s.ancestors[s.placedBy[std::size_t(y)]]);
      }
      if (best.kind == Conclusion::None || cost < best.cost) best = {Conclusion::Placement, y, w, cost};
      return;
    }
    for (; lost; lost &= std::uint16_t(lost - 1)) {
      const int d = lowDigit(lost);
      if (!wanted(ctx, Conclusion::Elimination, y, d)) continue;
      int cost = deadCost;
      for (int b = first; b < n; ++b) {
        const BranchState& s = *branches[std::size_t(b)];
        if (!s.contradiction) cost += 1 + popcount(s.ancestors[s.removedBy[std::size_t(y)][std::size_t(d - 1)]]);
      }
      if (best.kind == Conclusion::None || cost < best.cost) best = {Conclusion::Elimination, y, d, cost};
    }
  });
  return best;
}

std::vector<Implication> implications(const BranchState& s, std::uint64_t ancestors) {
  std::vector<Implication> steps;
  for (; ancestors; ancestors &= ancestors - 1) {
    const auto i = std::size_t(std::countr_zero(ancestors));
    steps.push_back({s.logCell[i], s.logDigit[i], true});
  }
  return steps;
}

/// The record of a source's branches and their conclusion.
void record(TechniqueStep& step, const Branches& branches, const std::array<Candidate, 9>& assumed,
            int n, const Conclusion& c) {
  for (int b = 0; b < n; ++b) {
    const BranchState& s = *branches[std::size_t(b)];
    Branch branch;
    branch.cell = assumed[std::size_t(b)].cell;
    branch.digit = assumed[std::size_t(b)].digit;
    if (s.contradiction) {
      branch.steps = implications(s, s.dead.ancestors);
      branch.contradiction = true;
      branch.deadCell = s.dead.cell;
      branch.deadArea = s.dead.area;
      branch.deadDigit = s.dead.digit;
    } else if (c.kind == Conclusion::Placement) {
      branch.steps = implications(s, s.ancestors[s.placedBy[std::size_t(c.cell)]]);
    } else if (c.kind == Conclusion::Elimination) {
      branch.steps = implications(s, s.ancestors[s.removedBy[std::size_t(c.cell)][std::size_t(c.digit - 1)]]);
      branch.steps.push_back({c.cell, c.digit, false});
    }
    step.branches.push_back(std::move(branch));
  }
  if (c.kind == Conclusion::Elimination)
    step.eliminations.push_back({c.cell, c.digit});
  else
    step.placements.push_back({c.cell, c.digit});
}

/// A source: the cell or (area, digit) whose possibilities are the branches.
struct Source {
  int cell = -1;  ///< a cell forcing chain's cell, or -1
  int area = -1;  ///< a unit forcing chain's area and digit
  int digit = 0;
};

/// The possibilities of a source, in order: the cell's candidates ascending,
/// or the digit's places in area order.
int assumptions(const TechniqueBoard& board, const Source& src, std::array<Candidate, 9>& out) {
  int n = 0;
  if (src.cell >= 0) {
    for (std::uint16_t m = board.cand[std::size_t(src.cell)]; m; m &= std::uint16_t(m - 1))
      out[std::size_t(n++)] = {src.cell, lowDigit(m)};
  } else {
    for (std::uint8_t c : kAreas[std::size_t(src.area)])
      if (board.cand[c] & bitOf(src.digit)) out[std::size_t(n++)] = {c, src.digit};
  }
  return n;
}

/// The sources of a board by their number of possibilities: the open cells
/// by their candidates, and in each area the digits not placed there by
/// their places.
struct Sources {
  std::array<CellSet, 10> cells{};
  std::array<std::array<std::uint16_t, 27>, 10> digits{};
};

Sources sourcesOf(const TechniqueContext& ctx, bool units) {
  const TechniqueBoard& board = ctx.board;
  Sources sources;
  if (!units) {
    for (int c = 0; c < kCellCount; ++c)
      if (!board.value[std::size_t(c)]) sources.cells[std::size_t(count(board.cand[std::size_t(c)]))].add(c);
    return sources;
  }
  for (int a = 0; a < 27; ++a) {
    std::uint16_t placed = 0;
    for (std::uint8_t c : kAreas[std::size_t(a)])
      if (board.value[c]) placed |= bitOf(board.value[c]);
    for (int d = 1; d <= 9; ++d)
      if (!(placed & bitOf(d))) sources.digits[std::size_t(count(ctx.at(a, d)))][std::size_t(a)] |= bitOf(d);
  }
  return sources;
}

/// The sources with `n` possibilities, in order.
template <class Visit>
void forEachSource(const Sources& sources, bool units, int n, Visit visit) {
  if (!units) {
    sources.cells[std::size_t(n)].forEach([&](int c) { visit(Source{c, -1, 0}); });
    return;
  }
  for (int a = 0; a < 27; ++a)
    for (std::uint16_t m = sources.digits[std::size_t(n)][std::size_t(a)]; m; m &= std::uint16_t(m - 1))
      visit(Source{-1, a, lowDigit(m)});
}

/// The forcing chain with the fewest branches, and among those the fewest
/// implications (ties: the first source, then the first conclusion, in order).
std::optional<TechniqueStep> findForcing(const TechniqueContext& ctx, bool units) {
  const TechniqueBoard& board = ctx.board;
  const Start start = startOf(ctx);
  const Sources sources = sourcesOf(ctx, units);
  // A cell's branches belong to it alone: those of the source being followed,
  // and those of the best one so far (kept for its record), swap when a
  // source becomes the best. A branch of a unit (a cell holding the digit)
  // is one of up to three units' and is followed once, into `followedOnce`
  // (a deque: what it holds stays where it is), found through `onceAt`.
  std::array<std::array<BranchState, 9>, 2> followed;
  std::array<BranchState, 9>* current = &followed[0];
  std::array<BranchState, 9>* kept = &followed[1];
  std::deque<BranchState> followedOnce;
  std::array<std::int16_t, kCellCount * 9> onceAt;
  if (units) onceAt.fill(-1);
  std::array<Candidate, 9> assumed, keptAssumed;
  Branches branches{}, keptBranches{};
  for (int n = 2; n <= 9; ++n) {
    Source bestSource;
    Conclusion best;
    forEachSource(sources, units, n, [&](const Source& src) {
      assumptions(board, src, assumed);
      // What the branches followed so far already cost: each dead one the
      // placements behind its contradiction, and once two live, each live one
      // at least one (the conclusion's own placement or elimination). A source
      // that cannot cost less than the best one so far cannot replace it.
      int spent = 0, live = 0;
      for (int b = 0; b < n; ++b) {
        const Candidate& a = assumed[std::size_t(b)];
        if (!units) {
          runBranch(ctx, start, a.cell, a.digit, (*current)[std::size_t(b)]);
          branches[std::size_t(b)] = &(*current)[std::size_t(b)];
        } else {
          std::int16_t& at = onceAt[std::size_t(a.cell * 9 + a.digit - 1)];
          if (at < 0) {
            at = std::int16_t(followedOnce.size());
            runBranch(ctx, start, a.cell, a.digit, followedOnce.emplace_back());
          }
          branches[std::size_t(b)] = &followedOnce[std::size_t(at)];
        }
        const BranchState& s = *branches[std::size_t(b)];
        if (s.contradiction)
          spent += popcount(s.dead.ancestors);
        else
          ++live;
        if (best.kind != Conclusion::None && spent + (live >= 2 ? live : 0) >= best.cost) return;
      }
      const Conclusion c = conclude(ctx, branches, assumed, n);
      if (c.kind != Conclusion::None && (best.kind == Conclusion::None || c.cost < best.cost)) {
        best = c;
        bestSource = src;
        keptAssumed = assumed;
        keptBranches = branches;
        if (!units) std::swap(current, kept);
      }
    });
    if (best.kind == Conclusion::None) continue;
    TechniqueStep step;
    if (units) {
      step.technique = Technique::UnitForcingChain;
      step.units = {bestSource.area};
      step.digits = bitOf(bestSource.digit);
    } else {
      step.technique = Technique::CellForcingChain;
      step.cells = {bestSource.cell};
    }
    record(step, keptBranches, keptAssumed, n, best);
    return step;
  }
  return std::nullopt;
}

}  // namespace

std::optional<TechniqueStep> findCellForcingChain(const TechniqueContext& ctx) { return findForcing(ctx, false); }
std::optional<TechniqueStep> findUnitForcingChain(const TechniqueContext& ctx) { return findForcing(ctx, true); }

}  // namespace tessaly
