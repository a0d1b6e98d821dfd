#pragma once
// What the subset, fish and single-digit finders share besides the places of
// each digit in each area (TechniqueContext::at): small helpers on 9-bit masks
// of an area's positions, and a search for n masks of a list whose union has
// exactly n bits.

#include <array>
#include <bit>
#include <cstdint>

#include "solver/Techniques.h"

namespace tessaly::tech {

/// Members of a 9-bit mask (a table look-up: a portable build has no
/// population-count instruction, and these run in the innermost loops).
inline int bits(unsigned mask) { return bitgrid::count(std::uint16_t(mask)); }
inline int lowest(unsigned mask) { return std::countr_zero(mask); }

/// The cell at position k of a line: line 0..8 a row when `rows`, else a column.
constexpr int lineCell(bool rows, int line, int k) { return rows ? line * 9 + k : k * 9 + line; }

/// Tries every choice of n indexes from `eligible` (bits 0..8) in
/// lexicographic order, until `accept(chosen, union of their masks)` says yes;
/// whether it did. A choice is cut off as soon as `fits(union so far)` says no.
template <class Fits, class Accept>
bool chooseSubset(const std::array<std::uint16_t, 9>& masks, unsigned eligible, int n, const Fits& fits, Accept& accept,
                  unsigned chosen = 0, unsigned together = 0) {
  const int left = n - bits(chosen);
  if (left == 0) return accept(chosen, together);
  for (unsigned rest = eligible; bits(rest) >= left; rest &= rest - 1) {
    const int i = lowest(rest);
    const unsigned next = together | masks[std::size_t(i)];
    if (!fits(next)) continue;
    if (chooseSubset(masks, rest & (rest - 1), n, fits, accept, chosen | (1u << i), next)) return true;
  }
  return false;
}

/// A `fits` for chooseSubset: unions of at most n bits.
inline auto atMost(int n) {
  return [n](unsigned together) { return bits(together) <= n; };
}

/// Whether the n-set `a` comes before `b` when both are read as ascending lists.
inline bool listsBefore(unsigned a, unsigned b) {
  while (a && b) {
    const int x = lowest(a), y = lowest(b);
    if (x != y) return x < y;
    a &= a - 1;
    b &= b - 1;
  }
  return false;
}

}  // namespace tessaly::tech
