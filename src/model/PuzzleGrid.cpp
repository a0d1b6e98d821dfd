#include "model/PuzzleGrid.h"

namespace tessaly {

std::string PuzzleGrid::areaValueString(AreaKind kind, int n) const {
  std::string s;
  for (int c : areaCells(kind, n))
    if (m_cells[c].value) s.push_back(char('0' + m_cells[c].value));
  return s;
}

int PuzzleGrid::givensCount() const {
  int n = 0;
  for (int c = 1; c <= kCells; ++c) n += m_cells[c].given ? 1 : 0;
  return n;
}

int PuzzleGrid::filledCount() const {
  int n = 0;
  for (int c = 1; c <= kCells; ++c) n += m_cells[c].value ? 1 : 0;
  return n;
}

std::string PuzzleGrid::valueCode() const {
  std::string s(kCells, '0');
  for (int c = 1; c <= kCells; ++c)
    if (m_cells[c].value) s[c - 1] = char('0' + m_cells[c].value);
  return s;
}

void PuzzleGrid::clear() { m_cells.fill(Cell{}); }

}  // namespace tessaly
