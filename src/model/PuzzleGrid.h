#pragma once

#include <array>
#include <string>

#include "model/CandidateSet.h"
#include "model/GridTables.h"

namespace tessaly {

inline constexpr char kGivenMark = 'X';

/// One cell of the puzzle.
struct Cell {
  int value = 0;       ///< 0 for an empty cell, else the digit 1..9
  bool given = false;  ///< carries the given mark "X"
  /// Digits still possible for an empty cell; "" for a non-given cell that holds
  /// a value; a given's own digit.
  CandidateSet candidates;
};

/// The current puzzle: 81 cells addressed 1..81.
class PuzzleGrid {
 public:
  Cell& operator[](int cell) { return m_cells[cell]; }
  const Cell& operator[](int cell) const { return m_cells[cell]; }

  /// The values of an area's cells in area order; empty cells add nothing.
  std::string areaValueString(AreaKind kind, int n) const;
  /// The number of cells carrying the given mark.
  int givensCount() const;
  /// Cells whose value is non-zero.
  int filledCount() const;
  /// 81 characters, each cell's digit or "0" for a blank (the grid snapshot form).
  std::string valueCode() const;
  /// A cell that is not a given and has exactly one candidate.
  bool isSingle(int cell) const { return !m_cells[cell].given && m_cells[cell].candidates.size() == 1; }
  /// Empties every cell: no value, no mark, no candidates.
  void clear();

 private:
  std::array<Cell, 82> m_cells{};  // index 0 unused
};

/// The given-mark text of a cell: "X" or "".
inline std::string givenText(const Cell& cell) { return cell.given ? std::string(1, kGivenMark) : std::string(); }

}  // namespace tessaly
