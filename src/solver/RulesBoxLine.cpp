// Rules 2 and 4: how a digit spreads over a box and the lines through it.

#include <array>
#include <string>

#include "solver/SolverEngine.h"

namespace tessaly {

void SolverEngine::applyRule2() {
  if (s.BlanksLeft == 0) return;
  s.run.RuleReductions = 0;
  report({.kind = FindingKind::RuleStart, .rule = 2});
  for (int b = 1; b <= 9; ++b) {
    // For each digit, the rows and columns (one character per cell) of the
    // box's non-given cells that can take it.
    std::array<std::string, 10> rowList, colList;
    for (int c : areaCells(AreaKind::Box, b)) {
      if (s.grid[c].given) continue;
      for (int d = 1; d <= 9; ++d)
        if (s.grid[c].candidates.has(d)) {
          rowList[std::size_t(d)].push_back(char('0' + CellRow[c]));
          colList[std::size_t(d)].push_back(char('0' + CellCol[c]));
        }
    }
    for (int d = 1; d <= 9; ++d) {
      for (int part = 0; part < 2; ++part) {
        const std::string& list = part == 0 ? rowList[std::size_t(d)] : colList[std::size_t(d)];
        if (list.size() != 1) continue;
        const int line = list[0] - '0';
        const AreaKind kind = part == 0 ? AreaKind::Row : AreaKind::Col;
        for (int c : areaCells(kind, line)) {
          if (CellBox[c] == b) continue;
          CandidateSet& cands = s.grid[c].candidates;
          // No length test here: a peer holding the digit alone is emptied, which
          // only happens on an inconsistent grid; the analysis scans for it.
          if (!cands.has(d)) continue;
          highlightArea(c, part == 0 ? line : 0, part == 1 ? line : 0, 0);
          report({.kind = FindingKind::RuleReason, .rule = 2, .areaKind = kind, .area = line, .box = b, .digit = d});
          report({.kind = FindingKind::RuleRemoval, .rule = 2, .cell = c, .removed = CandidateSet::of(d),
                  .before = cands});
          cands.remove(d);
          ++s.run.RuleReductions;
          restoreHighlight(c);
        }
      }
    }
  }
  finishRule(2);
}

void SolverEngine::applyRule4() {
  if (s.BlanksLeft == 0) return;
  s.run.RuleReductions = 0;
  report({.kind = FindingKind::RuleStart, .rule = 4});
  for (AreaKind kind : {AreaKind::Col, AreaKind::Row}) {
    for (int k = 1; k <= 9; ++k) {
      // For each digit, the boxes in which it is possible along this line, once
      // each in order of first appearance. Givens count too.
      std::array<std::string, 10> boxList;
      for (int c : areaCells(kind, k)) {
        CandidateSet cands = s.grid[c].candidates;
        if (cands.empty()) continue;
        const char box = char('0' + CellBox[c]);
        for (int d = 1; d <= 9; ++d)
          if (cands.has(d) && boxList[std::size_t(d)].find(box) == std::string::npos)
            boxList[std::size_t(d)].push_back(box);
      }
      for (int d = 1; d <= 9; ++d) {
        const std::string& list = boxList[std::size_t(d)];
        if (list.size() != 1) continue;
        const int box = list[0] - '0';
        for (int c : areaCells(AreaKind::Box, box)) {
          const int lineOfCell = kind == AreaKind::Col ? CellCol[c] : CellRow[c];
          CandidateSet& cands = s.grid[c].candidates;
          if (lineOfCell == k || cands.size() < 2 || !cands.has(d)) continue;
          highlightArea(c, 0, 0, box);
          report({.kind = FindingKind::RuleReason, .rule = 4, .areaKind = kind, .area = k, .box = box, .digit = d});
          report({.kind = FindingKind::RuleRemoval, .rule = 4, .cell = c, .removed = CandidateSet::of(d),
                  .before = cands});
          cands.remove(d);
          ++s.run.RuleReductions;
          restoreHighlight(c);
        }
      }
    }
  }
  finishRule(4);
}

}  // namespace tessaly
