#include "solver/SolutionCounter.h"

#include <array>
#include <bit>
#include <cstdint>
#include <optional>

#include "solver/BitGrid.h"

namespace tessaly {

namespace {

// The counter keeps, for every digit, the cells it may still go in, as three
// bands of 27 bits: band b is rows 3b..3b+2, and bit 9*r + c is row r of the
// band, column c. One band looks like this (bit numbers):
//
//            col 0  1  2    3  4  5    6  7  8
//   row 0:       0  1  2 |  3  4  5 |  6  7  8
//   row 1:       9 10 11 | 12 13 14 | 15 16 17
//   row 2:      18 19 20 | 21 22 23 | 24 25 26
//               -------    -------    -------
//                box 0      box 1      box 2
//
// so a row is 9 adjacent bits, a box three groups of 3 bits 9 apart, and a
// column three bits 9 apart:
//
//   row 1 of the band  0x1FF << 9     = 000000000 111111111 000000000
//   box 1 of the band  0x1C0E07 << 3  = 000111000 000111000 000111000
//   column 4           0x40201 << 4   = 000010000 000010000 000010000
//
// (each 9-bit group written with column 8 on the left, row 2's group first).
// Placing digit d in a cell clears the cell's row, box and column in d's band
// and its column in d's two other bands, and clears the cell from the other
// digits. Every test below is a handful of operations on whole bands: the
// cells with no or one candidate left, and the rows, columns and boxes where
// a digit has no or one place left.

constexpr std::uint32_t kBandCells = 0x7FFFFFF;
constexpr std::uint32_t kRow = 0x1FF;
constexpr std::uint32_t kBox = 0x1C0E07;
constexpr std::uint32_t kColumn = 0x40201;

constexpr std::array<std::uint32_t, 27> makeBandPeers() {
  std::array<std::uint32_t, 27> t{};
  for (int i = 0; i < 27; ++i) {
    const int r = i / 9, c = i % 9;
    t[std::size_t(i)] = ((kRow << (9 * r)) | (kBox << (3 * (c / 3))) | (kColumn << c)) & ~(1u << i);
  }
  return t;
}
/// The cell's row, box and column inside its band, the cell itself left out.
constexpr auto kBandPeers = makeBandPeers();

struct Board {
  std::array<std::array<std::uint32_t, 3>, 9> places{};  ///< [digit 0..8][band]
  std::array<std::uint32_t, 3> open{};                    ///< cells not yet placed
  std::array<std::uint8_t, 9> placed{};                   ///< cells holding each digit
};

constexpr bool oneBit(std::uint32_t x) { return x != 0 && (x & (x - 1)) == 0; }

// Digit d (0..8) into bit i of band b.
inline void place(Board& s, int d, int b, int i) {
  const std::uint32_t bit = 1u << i;
  const std::uint32_t column = kColumn << (i % 9);
  auto& mine = s.places[std::size_t(d)];
  const std::uint32_t kept = mine[std::size_t(b)] & ~kBandPeers[std::size_t(i)];
  for (auto& digit : s.places) digit[std::size_t(b)] &= ~bit;
  mine[std::size_t(b)] = kept;
  mine[std::size_t((b + 1) % 3)] &= ~column;
  mine[std::size_t((b + 2) % 3)] &= ~column;
  s.open[std::size_t(b)] &= ~bit;
  ++s.placed[std::size_t(d)];
}

// Places every open cell left with one candidate; false when a cell has none.
inline bool nakedSingles(Board& s, bool& placed) {
  for (int b = 0; b < 3; ++b) {
    const std::uint32_t open = s.open[std::size_t(b)];
    if (!open) continue;
    std::uint32_t once = 0, twice = 0;
    for (const auto& digit : s.places) {
      twice |= once & digit[std::size_t(b)];
      once |= digit[std::size_t(b)];
    }
    if (open & ~once) return false;
    for (std::uint32_t singles = open & ~twice; singles; singles &= singles - 1) {
      const int i = std::countr_zero(singles);
      const std::uint32_t bit = 1u << i;
      int d = 0;
      while (d < 9 && !(s.places[std::size_t(d)][std::size_t(b)] & bit)) ++d;
      if (d == 9) return false;  // emptied by a single placed just before
      place(s, d, b, i);
      placed = true;
    }
  }
  return true;
}

// For every digit: false when a row, column or box has no place left for it;
// otherwise places the first hidden single of the digit (a row, box or column
// where it has one open place), if any.
inline bool hiddenSingles(Board& s, bool& placed) {
  for (int d = 0; d < 9; ++d) {
   for (;;) {
    const auto& bands = s.places[std::size_t(d)];
    // A digit placed nine times needs nothing more.
    if (s.placed[std::size_t(d)] == 9) break;
    std::uint32_t colOnce = 0;                   // columns holding d somewhere
    std::uint32_t openOnce = 0, openTwice = 0;   // columns with an open place for d, once or more and twice or more
    std::array<std::uint32_t, 3> openCols{};     // per band: columns with an open place
    bool done = false;
    for (int b = 0; b < 3 && !done; ++b) {
      const std::uint32_t x = bands[std::size_t(b)];
      const std::uint32_t r0 = x & kRow, r1 = (x >> 9) & kRow, r2 = x >> 18;
      if (!r0 || !r1 || !r2) return false;
      const std::uint32_t o = r0 | r1 | r2;
      if (!(o & 07) || !(o & 070) || !(o & 0700)) return false;
      colOnce |= o;

      const std::uint32_t xu = x & s.open[std::size_t(b)];
      if (!xu) continue;
      const std::uint32_t u0 = xu & kRow, u1 = (xu >> 9) & kRow, u2 = xu >> 18;
      const std::uint32_t ou = u0 | u1 | u2, tu = (u0 & u1) | (u0 & u2) | (u1 & u2);
      openTwice |= (openOnce & ou) | tu;
      openOnce |= ou;
      openCols[std::size_t(b)] = ou;
      // A row with one open place.
      for (int r = 0; r < 3 && !done; ++r) {
        const std::uint32_t row = (xu >> (9 * r)) & kRow;
        if (oneBit(row)) {
          place(s, d, b, 9 * r + std::countr_zero(row));
          done = true;
        }
      }
      // A box with one open place: one column of the box's three with an
      // open place, and that column holding only one.
      for (int k = 0; k < 3 && !done; ++k) {
        const std::uint32_t group = ou & (07u << (3 * k));
        if (!oneBit(group) || (tu & group)) continue;
        const int c = std::countr_zero(group);
        const int r = (u0 >> c) & 1 ? 0 : (u1 >> c) & 1 ? 1 : 2;
        place(s, d, b, 9 * r + c);
        done = true;
      }
    }
    if (done) {
      placed = true;
      continue;  // the same digit again: a place taken may leave it one more
    }
    if (colOnce != kRow) return false;
    // A column with one open place.
    const std::uint32_t lone = openOnce & ~openTwice;
    if (lone) {
      const int c = std::countr_zero(lone);
      const int b = (openCols[0] >> c) & 1 ? 0 : (openCols[1] >> c) & 1 ? 1 : 2;
      const std::uint32_t xu = bands[std::size_t(b)] & s.open[std::size_t(b)];
      const int r = (xu >> c) & 1 ? 0 : (xu >> (9 + c)) & 1 ? 1 : 2;
      place(s, d, b, 9 * r + c);
      placed = true;
      continue;
    }
    break;
   }
  }
  return true;
}

// Singles until nothing changes; false on a contradiction.
inline bool settle(Board& s) {
  for (;;) {
    bool placed = false;
    if (!nakedSingles(s, placed)) return false;
    if (placed) continue;
    if (!hiddenSingles(s, placed)) return false;
    if (!placed) return true;
  }
}

// The box of three bits 0..2 of a 9-bit row or column group that holds any bit.
constexpr std::uint32_t groupsOf(std::uint32_t nine) {
  return std::uint32_t((nine & 07) != 0) | std::uint32_t((nine & 070) != 0) << 1 | std::uint32_t((nine & 0700) != 0) << 2;
}

// Where a digit's places in a box all lie on one line, the rest of the line
// loses it; where its places on a line all lie in one box, the rest of the box
// loses it. True when anything was removed (then the singles are looked for
// again before a guess).
inline bool lockedCandidates(Board& s) {
  bool changed = false;
  for (int d = 0; d < 9; ++d) {
    if (s.placed[std::size_t(d)] == 9) continue;
    auto& bands = s.places[std::size_t(d)];
    for (int b = 0; b < 3; ++b) {
      std::uint32_t x = bands[std::size_t(b)];
      const std::uint32_t before = x;
      for (int r = 0; r < 3; ++r) {
        const std::uint32_t boxes = groupsOf((x >> (9 * r)) & kRow);
        if (oneBit(boxes)) x &= ~((kBox << (3 * std::countr_zero(boxes))) & ~(kRow << (9 * r)));
      }
      for (int k = 0; k < 3; ++k) {
        const std::uint32_t box = (x >> (3 * k)) & kBox;
        const std::uint32_t rows = std::uint32_t((box & 07) != 0) | std::uint32_t((box & (07u << 9)) != 0) << 1 |
                                   std::uint32_t((box & (07u << 18)) != 0) << 2;
        if (oneBit(rows)) x &= ~((kRow << (9 * std::countr_zero(rows))) & ~(kBox << (3 * k)));
      }
      // A box whose places lie in one column: the column's other bands lose it.
      const std::uint32_t cols = (x | x >> 9 | x >> 18) & kRow;
      for (int k = 0; k < 3; ++k) {
        const std::uint32_t inBox = cols & (07u << (3 * k));
        if (!oneBit(inBox)) continue;
        const std::uint32_t column = kColumn << std::countr_zero(inBox);
        for (int o = 1; o < 3; ++o) {
          std::uint32_t& other = bands[std::size_t((b + o) % 3)];
          if (other & column) {
            other &= ~column;
            changed = true;
          }
        }
      }
      if (x != before) {
        bands[std::size_t(b)] = x;
        changed = true;
      }
    }
    // A column whose places lie in one band: the other columns of that box lose it.
    std::array<std::uint32_t, 3> cols{};
    for (int b = 0; b < 3; ++b) {
      const std::uint32_t x = bands[std::size_t(b)];
      cols[std::size_t(b)] = (x | x >> 9 | x >> 18) & kRow;
    }
    for (int b = 0; b < 3; ++b) {
      std::uint32_t only = cols[std::size_t(b)] & ~cols[std::size_t((b + 1) % 3)] & ~cols[std::size_t((b + 2) % 3)];
      for (; only; only &= only - 1) {
        const int c = std::countr_zero(only);
        const std::uint32_t rest = (kBox << (3 * (c / 3))) & ~(kColumn << c);
        std::uint32_t& x = bands[std::size_t(b)];
        if (x & rest) {
          x &= ~rest;
          changed = true;
        }
      }
    }
  }
  return changed;
}

class Search {
 public:
  Search(int limit, std::string* firstSolution) : m_limit(limit), m_first(firstSolution) {}
  int found() const { return m_found; }

  void run(Board& s) {
    // One round of box-line removals before a guess: a second round seldom
    // saves the guess it costs.
    if (!settle(s)) return;
    if (lockedCandidates(s) && !settle(s)) return;
    if (!(s.open[0] | s.open[1] | s.open[2])) {
      if (++m_found == 1 && m_first) record(s);
      return;
    }
    // The open cell with the fewest candidates: a cell with two when there is
    // one (the first in cell order), else the first with the fewest.
    int band = -1, bit = 0;
    std::array<std::uint32_t, 3> two{}, more{};
    for (int b = 0; b < 3; ++b) {
      std::uint32_t once = 0, twice = 0, thrice = 0;
      for (const auto& digit : s.places) {
        const std::uint32_t x = digit[std::size_t(b)];
        thrice |= twice & x;
        twice |= once & x;
        once |= x;
      }
      two[std::size_t(b)] = twice & ~thrice & s.open[std::size_t(b)];
      more[std::size_t(b)] = thrice & s.open[std::size_t(b)];
      if (two[std::size_t(b)]) {
        band = b;
        bit = std::countr_zero(two[std::size_t(b)]);
        break;
      }
    }
    if (band < 0) {
      int fewest = 10;
      for (int b = 0; b < 3; ++b)
        for (std::uint32_t cells = more[std::size_t(b)]; cells; cells &= cells - 1) {
          const int i = std::countr_zero(cells);
          int n = 0;
          for (const auto& digit : s.places) n += int((digit[std::size_t(b)] >> i) & 1);
          if (n < fewest) {
            fewest = n;
            band = b;
            bit = i;
          }
        }
    }
    for (int d = 0; d < 9 && m_found < m_limit; ++d) {
      if (!((s.places[std::size_t(d)][std::size_t(band)] >> bit) & 1)) continue;
      Board child = s;
      place(child, d, band, bit);
      run(child);
    }
  }

 private:
  void record(const Board& s) {
    m_first->assign(bitgrid::kCellCount, '0');
    for (int c = 0; c < bitgrid::kCellCount; ++c) {
      const std::uint32_t bit = 1u << (c % 27);
      for (int d = 0; d < 9; ++d)
        if (s.places[std::size_t(d)][std::size_t(c / 27)] & bit) (*m_first)[std::size_t(c)] = char('1' + d);
    }
  }

  int m_limit;
  std::string* m_first;
  int m_found = 0;
};

// Counts from the given candidates (one 9-bit set per cell).
int countFrom(const bitgrid::Cands& start, int limit, std::string* firstSolution) {
  Board board;
  board.open = {kBandCells, kBandCells, kBandCells};
  for (int c = 0; c < bitgrid::kCellCount; ++c)
    for (std::uint16_t set = start[std::size_t(c)]; set; set &= std::uint16_t(set - 1))
      board.places[std::size_t(std::countr_zero(set))][std::size_t(c / 27)] |= 1u << (c % 27);
  Search search(limit, firstSolution);
  search.run(board);
  return search.found();
}

// The candidates of a puzzle's cells before any search: a given's digit, or all nine.
std::optional<bitgrid::Cands> startOf(std::string_view puzzle81) {
  const auto values = bitgrid::givens(puzzle81);
  if (!values) return std::nullopt;
  bitgrid::Cands start;
  for (int c = 0; c < bitgrid::kCellCount; ++c) {
    const int v = (*values)[std::size_t(c)];
    start[std::size_t(c)] = v ? bitgrid::bitOf(v) : bitgrid::kAll;
  }
  return start;
}

}  // namespace

int countSolutions(std::string_view puzzle81, int limit) { return countSolutions(puzzle81, limit, nullptr); }

int countSolutions(std::string_view puzzle81, int limit, std::string* firstSolution) {
  if (limit <= 0) return 0;
  const auto values = bitgrid::givens(puzzle81);
  if (!values) return 0;
  // Every digit everywhere, then the givens placed (they never clash: givens
  // checked that no area repeats one).
  Board board;
  board.open = {kBandCells, kBandCells, kBandCells};
  for (auto& digit : board.places) digit = {kBandCells, kBandCells, kBandCells};
  for (int c = 0; c < bitgrid::kCellCount; ++c)
    if (const int v = (*values)[std::size_t(c)]) place(board, v - 1, c / 27, c % 27);
  Search search(limit, firstSolution);
  search.run(board);
  return search.found();
}

bool hasOtherSolution(std::string_view puzzle81, std::string_view solution, std::initializer_list<int> cells) {
  auto start = startOf(puzzle81);
  if (!start) return false;
  for (const int cell : cells) {
    const std::uint16_t known = bitgrid::bitOf(solution[std::size_t(cell)] - '0');
    // A cell whose peers' givens leave it no other digit cannot differ: no
    // search is needed (most blanks made while the grid is still full).
    std::uint16_t seen = 0;
    for (const std::uint8_t peer : bitgrid::kPeers[std::size_t(cell)]) {
      const std::uint16_t set = (*start)[peer];
      if (bitgrid::single(set)) seen |= set;
    }
    if (!(bitgrid::kAll & ~seen & ~known)) {
      (*start)[std::size_t(cell)] = known;
      continue;
    }
    bitgrid::Cands differing = *start;
    differing[std::size_t(cell)] = std::uint16_t(bitgrid::kAll & ~known);
    if (countFrom(differing, 1, nullptr) > 0) return true;
    // The next cell's search looks only among solutions that agree here.
    (*start)[std::size_t(cell)] = known;
  }
  return false;
}

}  // namespace tessaly
