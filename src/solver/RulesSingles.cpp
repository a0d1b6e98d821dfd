// Rule 1 (place the singles) and Rule 5 (hidden singles).

#include <bit>

#include "solver/SolverEngine.h"

namespace tessaly {

void SolverEngine::finishRule(int rule) {
  s.run.stats.timesApplied[std::size_t(rule)] += 1;
  s.run.stats.totalReductions[std::size_t(rule)] += s.run.RuleReductions;
  if (s.run.RuleReductions != 0) {
    report({.kind = FindingKind::RuleEnd, .rule = rule, .count = s.run.RuleReductions});
    applyRule1();
  } else {
    report({.kind = FindingKind::RuleNoReduction, .rule = rule});
  }
}

bool SolverEngine::removeSinglesDigitsAtOnce() {
  // Every cell with one candidate takes its digit from the other cells of its
  // row, column and box that have more, until nothing changes: the grid the
  // cell-by-cell passes below reach, worked by whole areas. Where the passes'
  // order would matter (a cell whose candidates all belong to its peers'
  // singles, or two singles of one digit in an area) nothing is changed and
  // the passes do the work.
  std::array<std::uint16_t, kCells + 1> cand{};
  for (int c = 1; c <= kCells; ++c) cand[std::size_t(c)] = s.grid[c].candidates.bits();
  const auto single = [](std::uint16_t set) { return set != 0 && (set & (set - 1)) == 0; };
  std::array<std::uint16_t, 10> rows{}, cols{}, boxes{};
  for (bool changed = true; changed;) {
    changed = false;
    rows.fill(0);
    cols.fill(0);
    boxes.fill(0);
    for (int c = 1; c <= kCells; ++c) {
      const std::uint16_t set = cand[std::size_t(c)];
      if (!single(set)) continue;
      rows[std::size_t(CellRow[c])] |= set;
      cols[std::size_t(CellCol[c])] |= set;
      boxes[std::size_t(CellBox[c])] |= set;
    }
    for (int c = 1; c <= kCells; ++c) {
      const std::uint16_t set = cand[std::size_t(c)];
      if (set == 0 || single(set)) continue;
      const std::uint16_t kept = set & std::uint16_t(~(rows[std::size_t(CellRow[c])] | cols[std::size_t(CellCol[c])] |
                                                       boxes[std::size_t(CellBox[c])]));
      if (kept == 0) return false;
      if (kept != set) {
        cand[std::size_t(c)] = kept;
        changed = true;
      }
    }
  }
  if (!eachDigitOnceInItsAreas([&](int c) { return single(cand[std::size_t(c)]) ? cand[std::size_t(c)] : std::uint16_t(0); }))
    return false;
  for (int c = 1; c <= kCells; ++c) s.grid[c].candidates = CandidateSet::fromBits(cand[std::size_t(c)]);
  return true;
}

void SolverEngine::applyRule1() {
  if (s.BlanksLeft == 0) return;
  report({.kind = FindingKind::RuleStart, .rule = 1});
  // A silent run (creation filling its grid) tells no removal: it may make
  // them all at once.
  bool done = false;
  if (s.run.mode == RunState::Silent) {
    s.processEvents();
    done = removeSinglesDigitsAtOnce();
  }
  for (int passTotal = 1; !done && passTotal != 0;) {
    passTotal = 0;
    s.processEvents();
    for (int c = 1; c <= kCells; ++c) {
      CandidateSet cands = s.grid[c].candidates;
      if (cands.size() >= 2) continue;
      int counter = 0;
      removeDuplicates(c, cands.numeric(), counter);
      passTotal += counter;
    }
  }

  int blanks = 0, singles = 0;
  for (int c = 1; c <= kCells; ++c)
    if (!s.grid[c].value) {
      ++blanks;
      if (s.grid[c].candidates.size() == 1) ++singles;
    }
  if (singles == 0) {
    report({.kind = FindingKind::NoSingles, .rule = 1});
    return;
  }
  s.BlanksLeft = blanks - singles;
  report({.kind = FindingKind::SinglesFound, .rule = 1, .count = singles, .solved = blanks == singles});
  for (int c = 1; c <= kCells; ++c) {
    const Cell& cell = s.grid[c];
    if (cell.candidates.size() == 1 && !cell.value) placeValue(c, cell.candidates.first(), cell.candidates);
  }
}

void SolverEngine::applyRule5() {
  if (s.BlanksLeft == 0) return;
  s.run.RuleReductions = 0;
  report({.kind = FindingKind::RuleStart, .rule = 5});
  for (AreaKind kind : {AreaKind::Box, AreaKind::Row, AreaKind::Col}) {
    for (int n = 1; n <= 9; ++n) {
      const AreaCells& cells = areaCells(kind, n);
      // The digits that are a candidate of exactly one cell of the area, as
      // the area stood before this pass changed it.
      std::uint16_t once = 0, twice = 0, open = 0;
      for (int c : cells) {
        const std::uint16_t bits = s.grid[c].candidates.bits();
        twice |= once & bits;
        once |= bits;
        if (bits & (bits - 1)) open |= bits;
      }
      // Only a cell with two candidates or more is set, so only the lone
      // digits such cells hold are looked for.
      for (std::uint16_t lone = once & std::uint16_t(~twice) & open; lone; lone &= std::uint16_t(lone - 1)) {
        const int d = std::countr_zero(lone) + 1;
        for (int c : cells) {
          CandidateSet cands = s.grid[c].candidates;
          if (!cands.has(d) || cands.size() < 2) continue;
          highlightArea(c, kind == AreaKind::Row ? n : 0, kind == AreaKind::Col ? n : 0,
                        kind == AreaKind::Box ? n : 0);
          report({.kind = FindingKind::RuleReason, .rule = 5, .areaKind = kind, .area = n, .cell = c, .digit = d,
                  .before = cands});
          report({.kind = FindingKind::HiddenSingleSet, .rule = 5, .cell = c, .digit = d, .before = cands});
          s.grid[c].candidates = CandidateSet::of(d);
          ++s.run.RuleReductions;
          restoreHighlight(c);
        }
      }
    }
  }
  finishRule(5);
}

}  // namespace tessaly
