// Rules 3 and 6: cells of one area whose candidates are the same.

#include <array>
#include <string>
#include <vector>

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
// The groups of one area by candidate count: list i holds the texts of the cells
// with i + 1 candidates (2 to 5), in area order.
using SameLenList = std::array<std::vector<CandidateSet>, 5>;

// True when every entry of the list reads the same as its first one.
bool allSameLength(const std::vector<CandidateSet>& list) {
  for (const CandidateSet& entry : list)
    if (!(entry == list.front())) return false;
  return true;
}
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
        int len = s.grid[c].candidates.size();
        if (len >= 2 && len <= 5) lists[std::size_t(len - 1)].push_back(s.grid[c].candidates);
      }
      // Strict on purpose: the list of length n must hold exactly n entries, all equal.
      for (int i = 1; i <= 4; ++i) {
        const auto& list = lists[std::size_t(i)];
        if (int(list.size()) != i + 1 || !allSameLength(list)) continue;
        const CandidateSet group = list.front();
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
