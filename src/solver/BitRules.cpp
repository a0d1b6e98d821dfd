#include "solver/BitRules.h"

namespace tessaly::bitgrid {

namespace {

// Rule 5: a digit that is a candidate of only one cell of an area goes there.
// Only cells with more than one candidate are touched, so an area whose hidden
// digits lie only in single cells is passed over, and the cells left untouched
// lose nothing.
Cands hiddenSinglesFrom(const AreaTally& tally, const Cands& cand) {
  Cands removed{};
  std::array<std::uint16_t, kCellCount> keep;
  std::array<std::uint8_t, kCellCount> touched;
  int touchedCount = 0;
  std::uint64_t seen[2] = {0, 0};
  for (std::size_t a = 0; a < kAreas.size(); ++a) {
    const std::uint16_t hidden = std::uint16_t(tally.once[a] & ~tally.twice[a]);
    if (!(hidden & tally.open[a])) continue;
    for (std::uint8_t cell : kAreas[a]) {
      const std::uint16_t set = cand[cell];
      if (single(set) || !(set & hidden)) continue;
      std::uint64_t& word = seen[cell / 64];
      const std::uint64_t bit = std::uint64_t(1) << (cell % 64);
      if (!(word & bit)) {
        word |= bit;
        keep[cell] = kAll;
        touched[std::size_t(touchedCount++)] = cell;
      }
      keep[cell] &= set & hidden;
    }
  }
  for (int i = 0; i < touchedCount; ++i) {
    const std::uint8_t cell = touched[std::size_t(i)];
    const std::uint16_t k = keep[cell];
    // Two digits that each need this cell leave it without a candidate.
    removed[cell] = single(k) || k == kAll ? std::uint16_t(~k & kAll) : kAll;
  }
  return removed;
}

// Rule 2: a digit whose places in a box all lie in one row (or column) leaves
// the rest of that row (or column) outside the box. Worked for all nine digits
// at once: a digit confined to one of the box's three row pieces is in that
// piece's set and in neither of the other two.
Cands boxConfinedToLine(const Cands& cand) {
  Cands removed{};
  for (int b = 0; b < 9; ++b) {
    const int top = (b / 3) * 3, left = (b % 3) * 3;
    std::array<std::uint16_t, 3> rows{}, cols{};
    for (int i = 0; i < 3; ++i)
      for (int j = 0; j < 3; ++j) {
        const std::uint16_t set = cand[std::size_t((top + i) * 9 + left + j)];
        if (single(set)) continue;
        rows[std::size_t(i)] |= set;
        cols[std::size_t(j)] |= set;
      }
    for (int i = 0; i < 3; ++i) {
      const std::uint16_t inRow = rows[std::size_t(i)] & ~(rows[std::size_t((i + 1) % 3)] | rows[std::size_t((i + 2) % 3)]);
      const std::uint16_t inCol = cols[std::size_t(i)] & ~(cols[std::size_t((i + 1) % 3)] | cols[std::size_t((i + 2) % 3)]);
      if (inRow)
        for (int k = 0; k < 9; ++k) {
          if (k / 3 == b % 3) continue;
          removed[std::size_t((top + i) * 9 + k)] |= inRow;
        }
      if (inCol)
        for (int k = 0; k < 9; ++k) {
          if (k / 3 == b / 3) continue;
          removed[std::size_t(k * 9 + left + i)] |= inCol;
        }
    }
  }
  return removed;
}

// Rule 4: a digit whose places in a row (or column) all lie in one box leaves
// the other open cells of that box. All nine digits at once, by the line's
// three pieces as in Rule 2.
Cands lineConfinedToBox(const AreaTally& tally, const Cands& cand) {
  Cands removed{};
  for (int a = 0; a < 18; ++a) {
    const auto& line = kAreas[std::size_t(a)];
    std::array<std::uint16_t, 3> pieces{};
    for (int k = 0; k < 9; ++k) pieces[std::size_t(k / 3)] |= cand[line[std::size_t(k)]];
    for (int p = 0; p < 3; ++p) {
      const std::uint16_t confined =
          pieces[std::size_t(p)] & ~(pieces[std::size_t((p + 1) % 3)] | pieces[std::size_t((p + 2) % 3)]);
      // Only the box's cells with more than one candidate can lose a digit.
      if (!(confined & tally.open[std::size_t(18 + boxOf(line[std::size_t(p * 3)]))])) continue;
      for (std::uint8_t cell : kAreas[std::size_t(18 + boxOf(line[std::size_t(p * 3)]))]) {
        const bool onLine = a < 9 ? rowOf(cell) == a : colOf(cell) == a - 9;
        if (!onLine && !single(cand[cell])) removed[cell] |= confined;
      }
    }
  }
  return removed;
}

// Rule 3: two cells of an area with the same two candidates take those two
// digits from every other cell of the area.
Cands pairs(const Cands& cand) {
  Cands removed{};
  for (const auto& area : kAreas) {
    // The area's cells with two candidates, in area order.
    std::array<int, 9> two;
    int twos = 0;
    for (int k = 0; k < 9; ++k)
      if (count(cand[area[std::size_t(k)]]) == 2) two[std::size_t(twos++)] = k;
    for (int x = 0; x < twos; ++x) {
      const int i = two[std::size_t(x)];
      const std::uint16_t pair = cand[area[std::size_t(i)]];
      for (int y = x + 1; y < twos; ++y) {
        const int j = two[std::size_t(y)];
        if (cand[area[std::size_t(j)]] != pair) continue;
        for (int k = 0; k < 9; ++k)
          if (k != i && k != j) removed[area[std::size_t(k)]] |= pair;
      }
    }
  }
  return removed;
}

// Rule 6, as the program applies it: when exactly n cells of an area have n
// candidates (n from 2 to 5) and all n sets are the same, those n digits leave
// every other open cell of the area.
Cands groups(const Cands& cand) {
  Cands removed{};
  for (const auto& area : kAreas) {
    // How many cells have each candidate count, four bits per count: most
    // areas have no size n (2 to 5) with exactly n cells, and are done.
    std::array<std::uint8_t, 9> counts;
    std::uint64_t histogram = 0;
    for (int k = 0; k < 9; ++k) {
      counts[std::size_t(k)] = std::uint8_t(count(cand[area[std::size_t(k)]]));
      histogram += std::uint64_t(1) << (4 * counts[std::size_t(k)]);
    }
    for (int n = 2; n <= 5; ++n) {
      if (int((histogram >> (4 * n)) & 15) != n) continue;
      // Exactly n cells have n candidates: a group when all n sets are the same.
      std::uint16_t group = 0;
      bool same = true;
      for (int k = 0; k < 9; ++k) {
        if (counts[std::size_t(k)] != n) continue;
        const std::uint16_t set = cand[area[std::size_t(k)]];
        if (!group)
          group = set;
        else if (set != group)
          same = false;
      }
      if (!same) continue;
      for (int k = 0; k < 9; ++k) {
        const std::uint8_t cell = area[std::size_t(k)];
        if (counts[std::size_t(k)] >= 2 && cand[cell] != group) removed[cell] |= group;
      }
    }
  }
  return removed;
}

}  // namespace

// Rule 1, repeated until it finds nothing more: every single candidate not yet
// placed is placed and its digit leaves the cell's peers. Placing them one at a
// time reaches the same grid as placing each round's singles together, since
// a removal never brings a candidate back. False when a cell is left without a
// candidate.
bool placeSingles(Cands& cand, std::array<bool, kCellCount>& placed, int& open) {
  SingleQueue queue;
  bool emptied = false;
  for (int c = 0; c < kCellCount; ++c) {
    const std::uint16_t set = cand[std::size_t(c)];
    emptied |= set == 0;
    queue.pushIf(c, !placed[std::size_t(c)] && single(set));
  }
  if (emptied) return false;
  return placeQueuedSingles(cand, placed, open, queue);
}

bool placeQueuedSingles(Cands& cand, std::array<bool, kCellCount>& placed, int& open, SingleQueue& queue) {
  while (queue.size > 0) {
    const int cell = queue.pop();
    placed[std::size_t(cell)] = true;
    --open;
    if (!takeFromPeers(cand, cell, cand[std::size_t(cell)], queue)) return false;
  }
  return true;
}

AreaTally tallyAreas(const Cands& cand) {
  // One pass over the grid in row order: a row's tally stays in registers, the
  // columns' and boxes' are updated cell by cell. No branch per cell: a cell
  // with one candidate adds nothing to `open` through a mask.
  AreaTally tally;
  std::array<std::uint16_t, 9> colOnce{}, colTwice{}, colOpen{}, boxOnce{}, boxTwice{}, boxOpen{};
  for (int r = 0; r < 9; ++r) {
    std::uint16_t once = 0, twice = 0, open = 0;
    for (int c = 0; c < 9; ++c) {
      const std::uint16_t set = cand[std::size_t(r * 9 + c)];
      const std::uint16_t several = std::uint16_t(-std::uint16_t((set & (set - 1)) != 0));
      const std::size_t b = std::size_t((r / 3) * 3 + c / 3), k = std::size_t(c);
      twice |= once & set;
      once |= set;
      open |= set & several;
      colTwice[k] |= colOnce[k] & set;
      colOnce[k] |= set;
      colOpen[k] |= set & several;
      boxTwice[b] |= boxOnce[b] & set;
      boxOnce[b] |= set;
      boxOpen[b] |= set & several;
    }
    tally.once[std::size_t(r)] = once;
    tally.twice[std::size_t(r)] = twice;
    tally.open[std::size_t(r)] = open;
  }
  for (std::size_t k = 0; k < 9; ++k) {
    tally.once[9 + k] = colOnce[k];
    tally.twice[9 + k] = colTwice[k];
    tally.open[9 + k] = colOpen[k];
    tally.once[18 + k] = boxOnce[k];
    tally.twice[18 + k] = boxTwice[k];
    tally.open[18 + k] = boxOpen[k];
  }
  return tally;
}

Cands ruleRemovals(int rule, const Cands& cand, const AreaTally& tally) {
  switch (rule) {
    case 2: return boxConfinedToLine(cand);
    case 3: return pairs(cand);
    case 4: return lineConfinedToBox(tally, cand);
    case 5: return hiddenSinglesFrom(tally, cand);
    case 6: return groups(cand);
    default: return Cands{};
  }
}

Cands ruleRemovals(int rule, const Cands& cand) { return ruleRemovals(rule, cand, tallyAreas(cand)); }

RuleOutcome applyRemovals(Cands& cand, const Cands& removed, SingleQueue& newSingles) {
  RuleOutcome outcome = RuleOutcome::Nothing;
  bool emptied = false;
  for (int c = 0; c < kCellCount; ++c) {
    std::uint16_t& set = cand[std::size_t(c)];
    if (!(set & removed[std::size_t(c)])) continue;
    const bool wasSingle = single(set);
    set &= std::uint16_t(~removed[std::size_t(c)]);
    emptied |= set == 0;
    newSingles.pushIf(c, !wasSingle && single(set));
    outcome = RuleOutcome::Progress;
  }
  return emptied ? RuleOutcome::Contradiction : outcome;
}

RuleOutcome applyRule(int rule, Cands& cand, const AreaTally& tally, SingleQueue& newSingles) {
  return applyRemovals(cand, ruleRemovals(rule, cand, tally), newSingles);
}

}  // namespace tessaly::bitgrid
