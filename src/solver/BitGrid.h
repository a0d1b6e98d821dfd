#pragma once
// The grid as the silent searches see it: cells 0..80 row by row, each a 9-bit
// candidate set (bit d-1 for digit d), and the tables of its 27 areas and of
// each cell's 20 peers. Shared by the solution counter and the grader; nothing
// here writes to the log.

#include <array>
#include <cstdint>
#include <optional>
#include <string_view>

#include "model/CandidateSet.h"

namespace tessaly::bitgrid {

inline constexpr int kCellCount = 81;
inline constexpr std::uint16_t kAll = 0x1FF;

using Cands = std::array<std::uint16_t, kCellCount>;

namespace detail {
constexpr int boxOf(int cell) { return (cell / 27) * 3 + (cell % 9) / 3; }

constexpr std::array<std::array<std::uint8_t, 9>, 27> makeAreas() {
  std::array<std::array<std::uint8_t, 9>, 27> t{};
  for (int n = 0; n < 9; ++n)
    for (int k = 0; k < 9; ++k) {
      t[std::size_t(n)][std::size_t(k)] = std::uint8_t(n * 9 + k);                       // row n
      t[std::size_t(9 + n)][std::size_t(k)] = std::uint8_t(k * 9 + n);                   // column n
      t[std::size_t(18 + n)][std::size_t(k)] =
          std::uint8_t((n / 3) * 27 + (n % 3) * 3 + (k / 3) * 9 + k % 3);  // box n
    }
  return t;
}

constexpr std::array<std::array<std::uint8_t, 20>, kCellCount> makePeers() {
  std::array<std::array<std::uint8_t, 20>, kCellCount> t{};
  for (int c = 0; c < kCellCount; ++c) {
    int k = 0;
    for (int o = 0; o < kCellCount; ++o) {
      if (o == c) continue;
      if (o / 9 == c / 9 || o % 9 == c % 9 || boxOf(o) == boxOf(c)) t[std::size_t(c)][std::size_t(k++)] = std::uint8_t(o);
    }
  }
  return t;
}
}  // namespace detail

/// Areas 0..26: rows 0..8, columns 9..17, boxes 18..26, each in area order.
inline constexpr auto kAreas = detail::makeAreas();
/// The 20 other cells that share a row, column or box with each cell.
inline constexpr auto kPeers = detail::makePeers();

constexpr int rowOf(int cell) { return cell / 9; }
constexpr int colOf(int cell) { return cell % 9; }
constexpr int boxOf(int cell) { return detail::boxOf(cell); }
constexpr std::uint16_t bitOf(int digit) { return std::uint16_t(1u << (digit - 1)); }
constexpr bool single(std::uint16_t set) { return set != 0 && (set & (set - 1)) == 0; }
constexpr int count(std::uint16_t set) { return bitCount9(set); }

/// Cells waiting to have their one candidate taken from their peers.
struct SingleQueue {
  std::array<std::uint8_t, kCellCount + 1> cells;
  int size = 0;
  void push(int cell) { cells[std::size_t(size++)] = std::uint8_t(cell); }
  /// Pushes `cell` when `when` holds, without a branch (the slot past the
  /// last is written either way).
  void pushIf(int cell, bool when) {
    cells[std::size_t(size)] = std::uint8_t(cell);
    size += int(when);
  }
  int pop() { return cells[std::size_t(--size)]; }
};

/// Takes `bit` from every peer of `cell`, queueing the peers it leaves with
/// one candidate; false when it leaves one with none.
inline bool takeFromPeers(Cands& cand, int cell, std::uint16_t bit, SingleQueue& queue) {
  for (std::uint8_t peer : kPeers[std::size_t(cell)]) {
    std::uint16_t& set = cand[peer];
    if (!(set & bit)) continue;
    set = std::uint16_t(set & ~bit);
    if (set == 0) return false;
    // A peer left with one candidate had two: it is queued once.
    queue.pushIf(peer, single(set));
  }
  return true;
}

/// The givens of an 81-character puzzle ("1".."9" givens, anything else blank;
/// missing characters blank), or nothing when a given repeats in an area.
inline std::optional<std::array<std::uint8_t, kCellCount>> givens(std::string_view puzzle81) {
  std::array<std::uint8_t, kCellCount> values{};
  std::array<std::uint16_t, 27> used{};
  for (int c = 0; c < kCellCount && std::size_t(c) < puzzle81.size(); ++c) {
    const char ch = puzzle81[std::size_t(c)];
    if (ch < '1' || ch > '9') continue;
    const auto bit = bitOf(ch - '0');
    const std::size_t r = std::size_t(rowOf(c)), k = 9 + std::size_t(colOf(c)), b = 18 + std::size_t(boxOf(c));
    if ((used[r] | used[k] | used[b]) & bit) return std::nullopt;
    used[r] |= bit;
    used[k] |= bit;
    used[b] |= bit;
    values[std::size_t(c)] = std::uint8_t(ch - '0');
  }
  return values;
}

}  // namespace tessaly::bitgrid
