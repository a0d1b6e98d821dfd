// Rules 3 and 6: cells of one area whose candidates are the same.

#include <array>

#include "solver/SolverEngine.h"

namespace tessaly {

void SolverEngine::applyRule3() {
  if (s.BlanksLeft == 0) return;
  s.run.RuleReductions = 0;
  report({.kind = FindingKind::RuleStart, .rule = 3});
  for (AreaKind kind : {AreaKind::Box, AreaKind::Row, AreaKind::Col}) {
    for (int n = 1; n <= 9; ++n) {
      const AreaCells& cells = areaCells(kind, n);
      for (int c : cells) {
        const CandidateSet pair = s.grid[c].candidates;
        if (pair.size() != 2) continue;
        int partner = 0;
        for (int c2 : cells)
          if (c2 != c && s.grid[c2].candidates == pair) {
            partner = c2;
            break;
          }
        if (!partner) continue;
        for (int c3 : cells) {
          if (c3 == c || c3 == partner) continue;
          for (int d : {pair.first(), CandidateSet::fromBits(pair.bits() & (pair.bits() - 1)).first()}) {
            CandidateSet& cands = s.grid[c3].candidates;
            // No length test: on an inconsistent grid a cell holding one of the
            // pair's digits alone is emptied; the analysis scans for that.
            if (!cands.has(d)) continue;
            highlightArea(c3, kind == AreaKind::Row ? n : 0, kind == AreaKind::Col ? n : 0,
                          kind == AreaKind::Box ? n : 0);
            report({.kind = FindingKind::RuleReason, .rule = 3, .areaKind = kind, .area = n});
            report({.kind = FindingKind::RuleRemoval, .rule = 3, .cell = c3, .removed = CandidateSet::of(d),
                    .before = cands});
            cands.remove(d);
            ++s.run.RuleReductions;
            restoreHighlight(c3);
          }
        }
      }
    }
  }
  finishRule(3);
}

namespace {
// The groups of one area by candidate count (2 to 5): how many cells have
// that many candidates, the set of the first of them, and whether all of them
// read the same.
struct SameLenGroup {
  int cells = 0;
  CandidateSet first;
  bool allSameLength = true;
};
using SameLenList = std::array<SameLenGroup, 6>;  ///< indexed by the count
}  // namespace

void SolverEngine::applyRule6() {
  if (s.BlanksLeft == 0) return;
  s.run.RuleReductions = 0;
  report({.kind = FindingKind::RuleStart, .rule = 6});
  for (AreaKind kind : {AreaKind::Col, AreaKind::Row, AreaKind::Box}) {
    for (int n = 1; n <= 9; ++n) {
      const AreaCells& cells = areaCells(kind, n);
      SameLenList lists;
      for (int c : cells) {
        const CandidateSet cands = s.grid[c].candidates;
        const int len = cands.size();
        if (len < 2 || len > 5) continue;
        SameLenGroup& group = lists[std::size_t(len)];
        if (group.cells++ == 0)
          group.first = cands;
        else if (!(cands == group.first))
          group.allSameLength = false;
      }
      // Strict on purpose: exactly n cells with n candidates, all the same set.
      for (int i = 1; i <= 4; ++i) {
        const SameLenGroup& list = lists[std::size_t(i + 1)];
        if (list.cells != i + 1 || !list.allSameLength) continue;
        const CandidateSet group = list.first;
        for (int c : cells) {
          CandidateSet& cands = s.grid[c].candidates;
          if (cands.size() < 2 || cands == group) continue;
          CandidateSet reduced = cands;
          reduced.removeAll(group);
          if (reduced == cands) continue;
          ++s.run.RuleReductions;
          highlightArea(c, kind == AreaKind::Row ? n : 0, kind == AreaKind::Col ? n : 0,
                        kind == AreaKind::Box ? n : 0);
          report({.kind = FindingKind::RuleReason, .rule = 6, .areaKind = kind, .area = n, .removed = group,
                  .count = i + 1});
          report({.kind = FindingKind::RuleRemoval, .rule = 6, .cell = c, .removed = group, .before = cands});
          cands = reduced;
          restoreHighlight(c);
        }
      }
    }
  }
  finishRule(6);
}

}  // namespace tessaly
