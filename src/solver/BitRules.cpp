#include "solver/BitRules.h"

namespace tessaly::bitgrid {

namespace {

// Rule 5: a digit that is a candidate of only one cell of an area goes there.
Cands hiddenSingles(const Cands& cand) {
  Cands keep;
  keep.fill(kAll);
  for (const auto& area : kAreas) {
    std::uint16_t once = 0, twice = 0;
    for (std::uint8_t cell : area) {
      twice |= once & cand[cell];
      once |= cand[cell];
    }
    const std::uint16_t hidden = once & ~twice;
    if (!hidden) continue;
    for (std::uint8_t cell : area) {
      const std::uint16_t set = cand[cell];
      if (!single(set) && (set & hidden)) keep[cell] &= set & hidden;
    }
  }
  Cands removed{};
  for (int c = 0; c < kCellCount; ++c) {
    const std::uint16_t k = keep[std::size_t(c)];
    // Two digits that each need this cell leave it without a candidate.
    removed[std::size_t(c)] = single(k) || k == kAll ? std::uint16_t(~k & kAll) : kAll;
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
      for (int k = 0; k < 9; ++k) {
        if (k / 3 == b % 3) continue;
        removed[std::size_t((top + i) * 9 + k)] |= inRow;
      }
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
Cands lineConfinedToBox(const Cands& cand) {
  Cands removed{};
  for (int a = 0; a < 18; ++a) {
    const auto& line = kAreas[std::size_t(a)];
    std::array<std::uint16_t, 3> pieces{};
    for (int k = 0; k < 9; ++k) pieces[std::size_t(k / 3)] |= cand[line[std::size_t(k)]];
    for (int p = 0; p < 3; ++p) {
      const std::uint16_t confined =
          pieces[std::size_t(p)] & ~(pieces[std::size_t((p + 1) % 3)] | pieces[std::size_t((p + 2) % 3)]);
      if (!confined) continue;
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
  for (const auto& area : kAreas)
    for (int i = 0; i < 9; ++i) {
      const std::uint16_t pair = cand[area[std::size_t(i)]];
      if (count(pair) != 2) continue;
      for (int j = i + 1; j < 9; ++j) {
        if (cand[area[std::size_t(j)]] != pair) continue;
        for (int k = 0; k < 9; ++k)
          if (k != i && k != j) removed[area[std::size_t(k)]] |= pair;
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
    for (int n = 2; n <= 5; ++n) {
      int cells = 0;
      std::uint16_t group = 0;
      bool same = true;
      for (std::uint8_t cell : area) {
        const std::uint16_t set = cand[cell];
        if (count(set) != n) continue;
        if (cells++ == 0)
          group = set;
        else if (set != group)
          same = false;
      }
      if (cells != n || !same) continue;
      for (std::uint8_t cell : area) {
        const std::uint16_t set = cand[cell];
        if (count(set) >= 2 && set != group) removed[cell] |= group;
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
  for (int c = 0; c < kCellCount; ++c) {
    const std::uint16_t set = cand[std::size_t(c)];
    if (set == 0) return false;
    if (!placed[std::size_t(c)] && single(set)) queue.push(c);
  }
  while (queue.size > 0) {
    const int cell = queue.pop();
    placed[std::size_t(cell)] = true;
    --open;
    if (!takeFromPeers(cand, cell, cand[std::size_t(cell)], queue)) return false;
  }
  return true;
}

Cands ruleRemovals(int rule, const Cands& cand) {
  switch (rule) {
    case 2: return boxConfinedToLine(cand);
    case 3: return pairs(cand);
    case 4: return lineConfinedToBox(cand);
    case 5: return hiddenSingles(cand);
    case 6: return groups(cand);
    default: return Cands{};
  }
}

bool applyRemovals(Cands& cand, const Cands& removed) {
  bool any = false;
  for (int c = 0; c < kCellCount; ++c) {
    std::uint16_t& set = cand[std::size_t(c)];
    if (set & removed[std::size_t(c)]) {
      set &= std::uint16_t(~removed[std::size_t(c)]);
      any = true;
    }
  }
  return any;
}

}  // namespace tessaly::bitgrid
