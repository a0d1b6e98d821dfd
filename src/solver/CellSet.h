#pragma once
// A set of cells (0..80) as two words, and the tables of each cell's peers and
// each area's cells in that form: what the pattern finders that follow digits
// across the board (colouring, chains, almost locked sets) intersect.

#include <array>
#include <bit>
#include <cstdint>

#include "solver/BitGrid.h"

namespace tessaly {

/// Bit c for cell c.
struct CellSet {
  std::uint64_t lo = 0;  ///< cells 0..63
  std::uint64_t hi = 0;  ///< cells 64..80
  /// The set of cell c alone.
  static constexpr CellSet of(int c) {
    CellSet set;
    set.add(c);
    return set;
  }
  constexpr void add(int c) {
    if (c < 64)
      lo |= std::uint64_t(1) << c;
    else
      hi |= std::uint64_t(1) << (c - 64);
  }
  constexpr bool has(int c) const { return ((c < 64 ? lo >> c : hi >> (c - 64)) & 1u) != 0; }
  constexpr bool empty() const { return !(lo | hi); }
  constexpr bool any() const { return !empty(); }
  /// Every cell of this set is in `o`.
  constexpr bool within(CellSet o) const { return !(lo & ~o.lo) && !(hi & ~o.hi); }
  /// The lowest and highest cell; only for a set that is not empty.
  int first() const { return lo ? std::countr_zero(lo) : 64 + std::countr_zero(hi); }
  int last() const { return hi ? 127 - std::countl_zero(hi) : 63 - std::countl_zero(lo); }
  friend constexpr CellSet operator&(CellSet a, CellSet b) { return {a.lo & b.lo, a.hi & b.hi}; }
  friend constexpr CellSet operator|(CellSet a, CellSet b) { return {a.lo | b.lo, a.hi | b.hi}; }
  friend constexpr CellSet operator-(CellSet a, CellSet b) { return {a.lo & ~b.lo, a.hi & ~b.hi}; }
  constexpr CellSet& operator|=(CellSet o) {
    lo |= o.lo;
    hi |= o.hi;
    return *this;
  }
  friend constexpr bool operator==(CellSet, CellSet) = default;
  /// Calls `f(cell)` for each cell, ascending.
  template <class F>
  void forEach(F f) const {
    for (std::uint64_t w = lo; w; w &= w - 1) f(std::countr_zero(w));
    for (std::uint64_t w = hi; w; w &= w - 1) f(64 + std::countr_zero(w));
  }
};

inline constexpr CellSet kEveryCell{~std::uint64_t(0), ~std::uint64_t(0)};

namespace detail {
constexpr std::array<CellSet, bitgrid::kCellCount> makePeerSets() {
  std::array<CellSet, bitgrid::kCellCount> t{};
  for (int c = 0; c < bitgrid::kCellCount; ++c)
    for (std::uint8_t p : bitgrid::kPeers[std::size_t(c)]) t[std::size_t(c)].add(p);
  return t;
}
constexpr std::array<CellSet, 27> makeAreaSets() {
  std::array<CellSet, 27> t{};
  for (int a = 0; a < 27; ++a)
    for (std::uint8_t c : bitgrid::kAreas[std::size_t(a)]) t[std::size_t(a)].add(c);
  return t;
}
}  // namespace detail

/// The 20 peers of each cell.
inline constexpr auto kPeerSets = detail::makePeerSets();
/// The nine cells of each area (rows 0..8, columns 9..17, boxes 18..26).
inline constexpr auto kAreaSets = detail::makeAreaSets();

}  // namespace tessaly
