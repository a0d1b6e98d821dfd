#include <array>
#include <cstdint>

#include "solver/SolverEngine.h"

namespace tessaly {

bool hasRepeatedDigit(std::string_view values) {
  std::array<int, 10> counts{};
  for (char ch : values)
    if (ch >= '1' && ch <= '9') ++counts[std::size_t(ch - '0')];
  for (int d = 1; d <= 9; ++d)
    if (counts[std::size_t(d)] > 1) return true;
  return false;
}

namespace {
// The digits present in each row, column and box, as candidate masks.
struct PresentDigits {
  std::array<CandidateSet, 10> row{}, col{}, box{};
};
PresentDigits presentDigits(const PuzzleGrid& grid) {
  PresentDigits p;
  for (int c = 1; c <= kCells; ++c)
    if (int v = grid[c].value) {
      p.row[std::size_t(CellRow[c])].add(v);
      p.col[std::size_t(CellCol[c])].add(v);
      p.box[std::size_t(CellBox[c])].add(v);
    }
  return p;
}
}  // namespace

int SolverEngine::computeCandidates(bool analyse) {
  PresentDigits present = presentDigits(s.grid);
  for (int c = 1; c <= kCells; ++c) {
    Cell& cell = s.grid[c];
    if (cell.given) continue;
    if (cell.value) {
      cell.candidates = CandidateSet();
      continue;
    }
    CandidateSet set = CandidateSet::full();
    set.removeAll(present.row[std::size_t(CellRow[c])]);
    set.removeAll(present.col[std::size_t(CellCol[c])]);
    set.removeAll(present.box[std::size_t(CellBox[c])]);
    set.removeAll(s.run.excluded[std::size_t(c)]);
    cell.candidates = set;
  }
  for (int b = 1; b <= 9; ++b) {
    CandidateSet missing = CandidateSet::full();
    missing.removeAll(present.box[std::size_t(b)]);
    s.BoxMissingCount[std::size_t(b - 1)] = missing.size();
  }
  s.BlanksLeft = kCells - s.grid.filledCount();
  if (!analyse) return -1;
  applyRule1();
  return firstDeadCell();
}

int SolverEngine::firstDeadCell() const {
  for (int c = 1; c <= kCells; ++c)
    if (!s.grid[c].value && s.grid[c].candidates.empty()) return c;
  return -1;
}

void SolverEngine::removeDuplicates(int cell, int digit, int& counter) {
  counter = 0;
  if (digit < 1 || digit > 9) return;
  const int areaNumbers[] = {CellRow[cell], CellCol[cell], CellBox[cell]};
  for (int pass = 0; pass < 3; ++pass) {
    const AreaKind kind = static_cast<AreaKind>(pass);
    for (int c : areaCells(kind, areaNumbers[pass])) {
      CandidateSet& cands = s.grid[c].candidates;
      if (c == cell || !cands.has(digit) || cands.size() <= 1) continue;
      CandidateSet reduced = cands;
      reduced.remove(digit);
      highlightArea(c, pass == 0 ? CellRow[c] : 0, pass == 1 ? CellCol[c] : 0, pass == 2 ? CellBox[c] : 0);
      report({.kind = FindingKind::DuplicateRemoved, .rule = 1, .areaKind = kind, .area = areaNumbers[pass],
              .cell = c, .digit = digit, .removed = CandidateSet::of(digit), .before = cands});
      cands = reduced;
      restoreHighlight(c);
      ++counter;
    }
  }
}

bool SolverEngine::givensAreValid() const {
  return eachDigitOnceInItsAreas([this](int c) {
    const int v = s.grid[c].value;
    return v >= 1 && v <= 9 ? std::uint16_t(1u << (v - 1)) : std::uint16_t(0);
  });
}

void SolverEngine::highlightArea(int cell, int row, int col, int box) {
  if (!highlights(s.run.mode)) return;
  s.display().highlightArea(cell, row, col, box);
}

void SolverEngine::restoreHighlight(int cell) {
  if (!highlights(s.run.mode)) return;
  s.display().restoreHighlight(cell);
}

}  // namespace tessaly
