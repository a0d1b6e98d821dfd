// Rules 2 and 4: how a digit spreads over a box and the lines through it.

#include <array>
#include <bit>
#include <cstdint>

#include "solver/SolverEngine.h"

namespace tessaly {

void SolverEngine::applyRule2() {
  if (s.BlanksLeft == 0) return;
  s.run.RuleReductions = 0;
  report({.kind = FindingKind::RuleStart, .rule = 2});
  for (int b = 1; b <= 9; ++b) {
    // For each digit, how many of the box's non-given cells can take it, and
    // the row and column of the last of them: the digit is confined to a row
    // and a column of the box when exactly one cell can take it.
    std::array<int, 10> placeRow{}, placeCol{};
    std::uint16_t once = 0, twice = 0;
    for (int c : areaCells(AreaKind::Box, b)) {
      if (s.grid[c].given) continue;
      const std::uint16_t set = s.grid[c].candidates.bits();
      twice |= once & set;
      once |= set;
    }
    const std::uint16_t oneCell = once & std::uint16_t(~twice);
    if (!oneCell) continue;
    for (int c : areaCells(AreaKind::Box, b)) {
      if (s.grid[c].given) continue;
      for (std::uint16_t digits = s.grid[c].candidates.bits() & oneCell; digits; digits &= std::uint16_t(digits - 1)) {
        const std::size_t d = std::size_t(std::countr_zero(digits) + 1);
        placeRow[d] = CellRow[c];
        placeCol[d] = CellCol[c];
      }
    }
    for (int d = 1; d <= 9; ++d) {
      if (!(oneCell & (1u << (d - 1)))) continue;
      for (int part = 0; part < 2; ++part) {
        const int line = part == 0 ? placeRow[std::size_t(d)] : placeCol[std::size_t(d)];
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
  // The digits of each box's cells with two candidates or more, as the pass
  // begins: a digit missing here cannot be removed from the box by this pass,
  // which only removes.
  std::array<std::uint16_t, 10> boxOpen{};
  for (int c = 1; c <= kCells; ++c)
    if (const CandidateSet cands = s.grid[c].candidates; cands.size() >= 2) boxOpen[std::size_t(CellBox[c])] |= cands.bits();
  for (AreaKind kind : {AreaKind::Col, AreaKind::Row}) {
    for (int k = 1; k <= 9; ++k) {
      // The line crosses three boxes, three cells in each. For each piece,
      // the digits possible along the line in that box alone (givens count
      // too); each such digit leaves the rest of the box.
      const AreaCells& lineCells = areaCells(kind, k);
      std::array<std::uint16_t, 3> pieces{};
      for (std::size_t i = 0; i < lineCells.size(); ++i) pieces[i / 3] |= s.grid[lineCells[i]].candidates.bits();
      std::array<std::uint16_t, 3> alone{};
      std::array<int, 3> boxes{};
      std::uint16_t removable = 0;
      for (std::size_t p = 0; p < 3; ++p) {
        alone[p] = std::uint16_t(pieces[p] & ~(pieces[(p + 1) % 3] | pieces[(p + 2) % 3]));
        boxes[p] = CellBox[lineCells[p * 3]];
        removable |= alone[p] & boxOpen[std::size_t(boxes[p])];
      }
      // The digits in ascending order, each with the one box it is confined to.
      for (; removable; removable &= std::uint16_t(removable - 1)) {
        const int d = std::countr_zero(removable) + 1;
        const std::uint16_t bit = std::uint16_t(1u << (d - 1));
        const int box = boxes[(alone[0] & bit) ? 0 : (alone[1] & bit) ? 1 : 2];
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
