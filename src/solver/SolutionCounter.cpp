#include "solver/SolutionCounter.h"

#include <array>
#include <bit>
#include <cstdint>

namespace tessaly {

namespace {

constexpr int kSize = 81;
constexpr std::uint16_t kAllDigits = 0x1FF;  // bit d-1 stands for digit d

struct Search {
  std::array<std::uint8_t, kSize> value{};  // 0 for a blank
  std::array<std::uint16_t, 9> rowUsed{};
  std::array<std::uint16_t, 9> colUsed{};
  std::array<std::uint16_t, 9> boxUsed{};
  int limit = 2;
  int found = 0;

  static int boxOf(int cell) { return (cell / 27) * 3 + (cell % 9) / 3; }

  std::uint16_t freeDigits(int cell) const {
    return static_cast<std::uint16_t>(kAllDigits &
                                      ~(rowUsed[cell / 9] | colUsed[cell % 9] | boxUsed[boxOf(cell)]));
  }

  void set(int cell, int digit) {
    const auto bit = static_cast<std::uint16_t>(1u << (digit - 1));
    value[cell] = static_cast<std::uint8_t>(digit);
    rowUsed[cell / 9] |= bit;
    colUsed[cell % 9] |= bit;
    boxUsed[boxOf(cell)] |= bit;
  }

  void unset(int cell, int digit) {
    const auto bit = static_cast<std::uint16_t>(~(1u << (digit - 1)));
    value[cell] = 0;
    rowUsed[cell / 9] &= bit;
    colUsed[cell % 9] &= bit;
    boxUsed[boxOf(cell)] &= bit;
  }

  // Fills the blank with the fewest free digits first; stops once `limit`
  // solutions were found.
  void run() {
    int best = -1;
    int bestCount = 10;
    std::uint16_t bestMask = 0;
    for (int cell = 0; cell < kSize; ++cell) {
      if (value[cell] != 0) continue;
      const std::uint16_t mask = freeDigits(cell);
      const int count = std::popcount(mask);
      if (count < bestCount) {
        best = cell;
        bestCount = count;
        bestMask = mask;
        if (count <= 1) break;
      }
    }
    if (best < 0) {
      ++found;
      return;
    }
    for (std::uint16_t mask = bestMask; mask != 0 && found < limit; mask &= mask - 1) {
      const int digit = std::countr_zero(mask) + 1;
      set(best, digit);
      run();
      unset(best, digit);
    }
  }
};

}  // namespace

int countSolutions(const std::string& puzzle81, int limit) {
  if (limit <= 0) return 0;
  Search search;
  search.limit = limit;
  for (int cell = 0; cell < kSize && static_cast<std::size_t>(cell) < puzzle81.size(); ++cell) {
    const char ch = puzzle81[static_cast<std::size_t>(cell)];
    if (ch < '1' || ch > '9') continue;
    const int digit = ch - '0';
    const auto bit = static_cast<std::uint16_t>(1u << (digit - 1));
    if ((search.freeDigits(cell) & bit) == 0) return 0;  // a repeated given
    search.set(cell, digit);
  }
  search.run();
  return search.found;
}

}  // namespace tessaly
