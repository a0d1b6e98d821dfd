// Rule 1 (place the singles) and Rule 5 (hidden singles).

#include <array>

#include "solver/SolverEngine.h"

namespace tessaly {

void SolverEngine::finishRule(int rule) {
  s.run.stats.timesApplied[std::size_t(rule)] += 1;
  s.run.stats.totalReductions[std::size_t(rule)] += s.run.RuleReductions;
  const char ruleDigit = char('0' + rule);
  if (s.run.RuleReductions != 0) {
    s.say(kStyleRule, false, "End Rule ", ruleDigit, ": made", Num{s.run.RuleReductions}, " reductions");
    applyRule1();
  } else {
    s.say(kStyleRule, false, "End Rule ", ruleDigit, ": no reductions");
  }
}

void SolverEngine::applyRule1() {
  if (s.BlanksLeft == 0) return;
  s.say(kStyleRule, false, "Apply Rule 1");
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
    s.say(kStyleRule, false, "No additional single values found");
    return;
  }
  s.BlanksLeft = blanks - singles;
  s.say(kStyleNormal, false, "Place additional", Num{singles}, " single values generated",
        blanks == singles ? ", the puzzle appears to have been solved" : "");
  for (int c = 1; c <= kCells; ++c) {
    const Cell& cell = s.grid[c];
    if (cell.candidates.size() == 1 && !cell.value) placeValue(c, cell.candidates.first(), cell.candidates.text());
  }
}

void SolverEngine::applyRule5() {
  if (s.BlanksLeft == 0) return;
  s.run.RuleReductions = 0;
  s.say(kStyleRule, false, "Apply Rule 5");
  // The finding sentences are kept exactly as users know them: every area says
  // "occurs only once in row", and the box sentence joins ",cell" without a blank.
  for (AreaKind kind : {AreaKind::Box, AreaKind::Row, AreaKind::Col}) {
    for (int n = 1; n <= 9; ++n) {
      const AreaCells& cells = areaCells(kind, n);
      std::array<int, 10> counts{};
      for (int c : cells)
        for (int d = 1; d <= 9; ++d)
          if (s.grid[c].candidates.has(d)) ++counts[std::size_t(d)];
      for (int d = 1; d <= 9; ++d) {
        if (counts[std::size_t(d)] != 1) continue;
        for (int c : cells) {
          CandidateSet cands = s.grid[c].candidates;
          if (!cands.has(d) || cands.size() < 2) continue;
          highlightArea(c, kind == AreaKind::Row ? n : 0, kind == AreaKind::Col ? n : 0,
                        kind == AreaKind::Box ? n : 0);
          const char* area = kind == AreaKind::Box ? "Rule 5: in box" : kind == AreaKind::Row ? "Rule 5: in row"
                                                                                            : "Rule 5: in col";
          s.say(kStyleRule, false, area, Num{n}, ", choice", Num{d}, " occurs only once in row", Num{CellRow[c]},
                ", col", Num{CellCol[c]}, kind == AreaKind::Box ? ",cell" : ", cell", Num{c}, " (", cands.text(),
                ")");
          s.say(kStyleRule, true, "Set row", Num{CellRow[c]}, ", col", Num{CellCol[c]}, ", cell", Num{c},
                " to value", Num{d});
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
