#pragma once
// Geometry of the 9 x 9 grid. Cells are numbered 1..81 row by row from the top
// left; rows, columns and boxes 1..9. Index 0 of every table is unused so that
// the tables read like the design's 1-based numbering.

#include <array>
#include <string_view>

namespace tessaly {

inline constexpr int GridSize = 9;
inline constexpr int kCells = 81;

enum class AreaKind { Row, Col, Box };

namespace detail {
constexpr std::array<int, 82> makeCellRow() {
  std::array<int, 82> t{};
  for (int c = 1; c <= kCells; ++c) t[c] = (c - 1) / 9 + 1;
  return t;
}
constexpr std::array<int, 82> makeCellCol() {
  std::array<int, 82> t{};
  for (int c = 1; c <= kCells; ++c) t[c] = (c - 1) % 9 + 1;
  return t;
}
constexpr std::array<int, 82> makeCellBox() {
  std::array<int, 82> t{};
  for (int c = 1; c <= kCells; ++c) t[c] = ((c - 1) / 27) * 3 + ((c - 1) % 9) / 3 + 1;
  return t;
}
constexpr std::array<std::array<int, 10>, 10> makeCellNumber() {
  std::array<std::array<int, 10>, 10> t{};
  for (int r = 1; r <= 9; ++r)
    for (int c = 1; c <= 9; ++c) t[r][c] = (r - 1) * 9 + c;
  return t;
}
}  // namespace detail

/// Row 1..9 of a cell 1..81.
inline constexpr std::array<int, 82> CellRow = detail::makeCellRow();
/// Column 1..9 of a cell 1..81.
inline constexpr std::array<int, 82> CellCol = detail::makeCellCol();
/// Box 1..9 of a cell 1..81; boxes are numbered row-major.
inline constexpr std::array<int, 82> CellBox = detail::makeCellBox();
/// Cell number of (row, column), both 1..9.
inline constexpr std::array<std::array<int, 10>, 10> CellNumber = detail::makeCellNumber();

/// A box's nine cell numbers as two-digit pieces in area order (top row left to
/// right, then the middle row, then the bottom row). The rules walk boxes by
/// cutting these pieces, so the strings are part of the design.
inline constexpr std::array<std::string_view, 10> BoxCells = {
    "",
    "010203101112192021", "040506131415222324", "070809161718252627",
    "282930373839464748", "313233404142495051", "343536434445525354",
    "555657646566737475", "585960676869767778", "616263707172798081"};

using AreaCells = std::array<int, 9>;

namespace detail {
constexpr std::array<AreaCells, 28> makeAreas() {
  std::array<AreaCells, 28> t{};
  for (int n = 1; n <= 9; ++n)
    for (int k = 0; k < 9; ++k) {
      t[n][k] = (n - 1) * 9 + k + 1;  // row n
      t[9 + n][k] = k * 9 + n;        // column n
      t[18 + n][k] = (BoxCells[n][2 * k] - '0') * 10 + (BoxCells[n][2 * k + 1] - '0');
    }
  return t;
}
inline constexpr std::array<AreaCells, 28> kAreas = makeAreas();
}  // namespace detail

/// The nine cells of row, column or box n (1..9) in area order.
constexpr const AreaCells& areaCells(AreaKind kind, int n) {
  return detail::kAreas[static_cast<int>(kind) * 9 + n];
}

}  // namespace tessaly
