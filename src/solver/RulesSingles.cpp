// Rule 1 (place the singles) and Rule 5 (hidden singles).

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

void SolverEngine::applyRule1() {
  if (s.BlanksLeft == 0) return;
  report({.kind = FindingKind::RuleStart, .rule = 1});
  int passTotal = 0;
  do {
    passTotal = 0;
    s.processEvents();
    for (int c = 1; c <= kCells; ++c) {
      CandidateSet cands = s.grid[c].candidates;
      if (cands.size() >= 2) continue;
      int counter = 0;
      removeDuplicates(c, cands.numeric(), counter);
      passTotal += counter;
    }
  } while (passTotal != 0);

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
      std::uint16_t once = 0, twice = 0;
      for (int c : cells) {
        const std::uint16_t bits = s.grid[c].candidates.bits();
        twice |= once & bits;
        once |= bits;
      }
      const CandidateSet lone = CandidateSet::fromBits(std::uint16_t(once & ~twice));
      for (int d = 1; d <= 9; ++d) {
        if (!lone.has(d)) continue;
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
