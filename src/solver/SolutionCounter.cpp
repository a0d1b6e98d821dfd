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

constexpr std::array<std::array<std::uint32_t, 3>, 9> notLooked() {
  std::array<std::array<std::uint32_t, 3>, 9> t{};
  for (auto& bands : t) bands = {~0u, ~0u, ~0u};
  return t;
}

struct Board {
  std::array<std::array<std::uint32_t, 3>, 9> places{};  ///< [digit 0..8][band]
  std::array<std::uint32_t, 3> open{};                    ///< cells not yet placed
  std::array<std::uint8_t, 9> placed{};                   ///< cells holding each digit
  /// Each digit's places when hidden singles last found none for it (at first
  /// a place set no digit has, so that every digit is looked at).
  std::array<std::array<std::uint32_t, 3>, 9> looked = notLooked();
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
    // once/twice: cells with one or more, two or more candidates; code[k]:
    // cells holding a digit whose number (0..8) has bit k, so that a cell
    // with one candidate spells that digit in its bits of code[0..3].
    std::uint32_t once = 0, twice = 0;
    std::array<std::uint32_t, 4> code{};
    for (int d = 0; d < 9; ++d) {
      const std::uint32_t x = s.places[std::size_t(d)][std::size_t(b)];
      twice |= once & x;
      once |= x;
      code[0] |= (d & 1) ? x : 0;
      code[1] |= (d & 2) ? x : 0;
      code[2] |= (d & 4) ? x : 0;
      code[3] |= (d & 8) ? x : 0;
    }
    if (open & ~once) return false;
    for (std::uint32_t singles = open & ~twice; singles; singles &= singles - 1) {
      const int i = std::countr_zero(singles);
      const int d = int((code[0] >> i) & 1) | int((code[1] >> i) & 1) << 1 | int((code[2] >> i) & 1) << 2 |
                    int((code[3] >> i) & 1) << 3;
      // A single placed just before may have taken this cell's one digit.
      if (!((s.places[std::size_t(d)][std::size_t(b)] >> i) & 1)) return false;
      place(s, d, b, i);
      placed = true;
    }
  }
  return true;
}

// Whether a band holds a place in each of its three rows and three boxes. A
// 9-bit group plus 0x1FF carries into bit 9 exactly when the group is not empty.
inline bool everyRowAndBox(std::uint32_t x) {
  const std::uint32_t rows = ((x & kRow) + kRow) & (((x >> 9) & kRow) + kRow) & ((x >> 18) + kRow);
  const std::uint32_t columns = (x | x >> 9 | x >> 18) & kRow;
  return (rows & 0x200) && (columns & 07) && (columns & 070) && (columns & 0700);
}

// The first cell of a band's open places that is alone in its row or box,
// or -1.
inline int loneInBand(std::uint32_t u) {
  const std::uint32_t g0 = u & kRow, g1 = (u >> 9) & kRow, g2 = u >> 18;
  if (oneBit(g0)) return std::countr_zero(g0);
  if (oneBit(g1)) return 9 + std::countr_zero(g1);
  if (oneBit(g2)) return 18 + std::countr_zero(g2);
  const std::uint32_t k0 = u & kBox, k1 = u & (kBox << 3), k2 = u & (kBox << 6);
  if (oneBit(k0)) return std::countr_zero(k0);
  if (oneBit(k1)) return std::countr_zero(k1);
  if (oneBit(k2)) return std::countr_zero(k2);
  return -1;
}

// For every digit: false when a row, column or box has no place left for it;
// otherwise places the hidden singles of the digit (a row, box or column
// where it has one open place), one at a time.
inline bool hiddenSingles(Board& s, bool& placed) {
  for (int d = 0; d < 9; ++d) {
    auto& bands = s.places[std::size_t(d)];
    if (s.looked[std::size_t(d)] == bands) continue;
    for (;;) {
      // A digit placed nine times needs nothing more.
      if (s.placed[std::size_t(d)] == 9) break;
      const std::uint32_t x0 = bands[0], x1 = bands[1], x2 = bands[2];
      if (!everyRowAndBox(x0) || !everyRowAndBox(x1) || !everyRowAndBox(x2)) return false;
      const std::uint32_t c0 = (x0 | x0 >> 9 | x0 >> 18), c1 = (x1 | x1 >> 9 | x1 >> 18), c2 = (x2 | x2 >> 9 | x2 >> 18);
      if (((c0 | c1 | c2) & kRow) != kRow) return false;
      const std::uint32_t u0 = x0 & s.open[0], u1 = x1 & s.open[1], u2 = x2 & s.open[2];
      int b = 0, i = loneInBand(u0);
      if (i < 0) b = 1, i = loneInBand(u1);
      if (i < 0) b = 2, i = loneInBand(u2);
      if (i < 0) {
        // A column with one open place: once and twice over its nine rows.
        std::uint32_t once = 0, twice = 0;
        for (const std::uint32_t u : {u0, u1, u2})
          for (const std::uint32_t g : {u & kRow, (u >> 9) & kRow, u >> 18}) {
            twice |= once & g;
            once |= g;
          }
        const std::uint32_t lone = once & ~twice;
        if (!lone) break;
        const int c = std::countr_zero(lone);
        const std::uint32_t column = kColumn << c;
        b = (u0 & column) ? 0 : (u1 & column) ? 1 : 2;
        i = std::countr_zero((b == 0 ? u0 : b == 1 ? u1 : u2) & column);
      }
      place(s, d, b, i);
      placed = true;
    }
    s.looked[std::size_t(d)] = bands;
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

// Box-line removals by tables. Inside one band a digit's places fall into
// nine mini-rows (a row's three cells in one box): bit 3r + k of a 9-bit
// pattern says that row r has a place in box k. Where a box's places all lie
// in one row, that row's other boxes lose the digit; where a row's places all
// lie in one box, that box's other rows lose it; repeated until nothing
// changes. The rules read the same with rows and boxes swapped, so the same
// table serves a stack of three columns, with its bands as the "rows".

/// Which of a 9-bit row group's three boxes hold a bit.
constexpr std::array<std::uint8_t, 512> makeBoxesOfRow() {
  std::array<std::uint8_t, 512> t{};
  for (int v = 0; v < 512; ++v)
    t[std::size_t(v)] = std::uint8_t(((v & 07) != 0) | ((v & 070) != 0) << 1 | ((v & 0700) != 0) << 2);
  return t;
}
constexpr auto kBoxesOfRow = makeBoxesOfRow();

/// The mini-rows that keep the digit, for every pattern of mini-rows with places.
constexpr std::array<std::uint16_t, 512> makeKeep() {
  std::array<std::uint16_t, 512> t{};
  for (int v = 0; v < 512; ++v) {
    int m = v;
    for (bool changed = true; changed;) {
      changed = false;
      for (int k = 0; k < 3; ++k) {  // a box whose places lie in one row
        const int rows = ((m >> k) & 1) | ((m >> (3 + k)) & 1) << 1 | ((m >> (6 + k)) & 1) << 2;
        if (rows == 1 || rows == 2 || rows == 4) {
          const int r = rows == 1 ? 0 : rows == 2 ? 1 : 2;
          const int next = m & ~((07 << (3 * r)) & ~(1 << (3 * r + k)));
          if (next != m) m = next, changed = true;
        }
      }
      for (int r = 0; r < 3; ++r) {  // a row whose places lie in one box
        const int boxes = (m >> (3 * r)) & 07;
        if (boxes == 1 || boxes == 2 || boxes == 4) {
          const int k = boxes == 1 ? 0 : boxes == 2 ? 1 : 2;
          const int next = m & ~((0111 << k) & ~(1 << (3 * r + k)));
          if (next != m) m = next, changed = true;
        }
      }
    }
    t[std::size_t(v)] = std::uint16_t(m);
  }
  return t;
}
constexpr auto kKeep = makeKeep();

/// The band cells of a pattern of mini-rows.
constexpr std::array<std::uint32_t, 512> makeMiniRowCells() {
  std::array<std::uint32_t, 512> t{};
  for (int v = 0; v < 512; ++v)
    for (int b = 0; b < 9; ++b)
      if ((v >> b) & 1) t[std::size_t(v)] |= 07u << (9 * (b / 3) + 3 * (b % 3));
  return t;
}
constexpr auto kMiniRowCells = makeMiniRowCells();

// True when anything was removed (then the singles are looked for again
// before a guess).
inline bool lockedCandidates(Board& s) {
  bool changed = false;
  for (int d = 0; d < 9; ++d) {
    if (s.placed[std::size_t(d)] == 9) continue;
    auto& bands = s.places[std::size_t(d)];
    const std::array<std::uint32_t, 3> before = bands;
    std::array<std::uint32_t, 3> cols{};
    for (int b = 0; b < 3; ++b) {
      const std::uint32_t x = bands[std::size_t(b)];
      const std::uint32_t r0 = x & kRow, r1 = (x >> 9) & kRow, r2 = x >> 18;
      const unsigned pattern = kBoxesOfRow[r0] | unsigned(kBoxesOfRow[r1]) << 3 | unsigned(kBoxesOfRow[r2]) << 6;
      const std::uint32_t kept = x & kMiniRowCells[kKeep[pattern]];
      bands[std::size_t(b)] = kept;
      cols[std::size_t(b)] = (kept | kept >> 9 | kept >> 18) & kRow;
    }
    // Stack by stack: bit 3b + j says that band b has a place in the stack's
    // column j.
    for (int k = 0; k < 3; ++k) {
      const unsigned pattern = ((cols[0] >> (3 * k)) & 07) | ((cols[1] >> (3 * k)) & 07) << 3 | ((cols[2] >> (3 * k)) & 07) << 6;
      const unsigned gone = pattern & ~unsigned(kKeep[pattern]);
      if (!gone) continue;
      for (int b = 0; b < 3; ++b) {
        const std::uint32_t lost = (gone >> (3 * b)) & 07;
        if (lost) bands[std::size_t(b)] &= ~(kColumn * (lost << (3 * k)));
      }
    }
    changed |= bands != before;
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

// The board of a puzzle's givens, each placed; nothing when a given repeats.
// Built at once rather than by placing the givens one by one: a digit keeps
// its givens and the blanks whose row, column and box hold none of it.
std::optional<Board> boardOf(std::string_view puzzle81) {
  const auto values = bitgrid::givens(puzzle81);
  if (!values) return std::nullopt;
  Board board;
  std::array<std::uint32_t, 9> rows{}, columns{}, boxes{};  // per digit: the areas holding it
  for (int c = 0; c < bitgrid::kCellCount; ++c) {
    const int v = (*values)[std::size_t(c)];
    if (!v) {
      board.open[std::size_t(c / 27)] |= 1u << (c % 27);
      continue;
    }
    const std::size_t d = std::size_t(v - 1);
    board.places[d][std::size_t(c / 27)] |= 1u << (c % 27);
    rows[d] |= 1u << bitgrid::rowOf(c);
    columns[d] |= 1u << bitgrid::colOf(c);
    boxes[d] |= 1u << bitgrid::boxOf(c);
    ++board.placed[d];
  }
  for (std::size_t d = 0; d < 9; ++d) {
    const std::uint32_t freeColumns = ~columns[d] & kRow;
    const std::uint32_t inFreeColumns = freeColumns | freeColumns << 9 | freeColumns << 18;
    for (int b = 0; b < 3; ++b) {
      std::uint32_t allowed = 0;
      for (int k = 0; k < 3; ++k) {
        if (!((rows[d] >> (3 * b + k)) & 1)) allowed |= kRow << (9 * k);
      }
      std::uint32_t inFreeBoxes = 0;
      for (int k = 0; k < 3; ++k) {
        if (!((boxes[d] >> (3 * b + k)) & 1)) inFreeBoxes |= kBox << (3 * k);
      }
      board.places[d][std::size_t(b)] |= allowed & inFreeColumns & inFreeBoxes & board.open[std::size_t(b)];
    }
  }
  return board;
}

}  // namespace

int countSolutions(std::string_view puzzle81, int limit) { return countSolutions(puzzle81, limit, nullptr); }

int countSolutions(std::string_view puzzle81, int limit, std::string* firstSolution) {
  if (limit <= 0) return 0;
  auto board = boardOf(puzzle81);
  if (!board) return 0;
  Search search(limit, firstSolution);
  search.run(*board);
  return search.found();
}

bool hasOtherSolution(std::string_view puzzle81, std::string_view solution, std::initializer_list<int> cells) {
  auto board = boardOf(puzzle81);
  if (!board) return false;
  for (const int cell : cells) {
    const int b = cell / 27, i = cell % 27;
    const int known = solution[std::size_t(cell)] - '1';
    if (!((board->open[std::size_t(b)] >> i) & 1)) continue;  // a given
    // A cell whose peers leave it no other digit cannot differ: no search is
    // needed (most blanks made while the grid is still full).
    bool other = false;
    for (int d = 0; d < 9; ++d) other |= d != known && ((board->places[std::size_t(d)][std::size_t(b)] >> i) & 1);
    if (other) {
      Board differing = *board;
      if (known >= 0 && known < 9) differing.places[std::size_t(known)][std::size_t(b)] &= ~(1u << i);
      Search search(1, nullptr);
      search.run(differing);
      if (search.found() > 0) return true;
    }
    // No solution differs here; when none can hold the known digit either,
    // there is none at all.
    if (known < 0 || known > 8 || !((board->places[std::size_t(known)][std::size_t(b)] >> i) & 1)) return false;
    // The next cell's search looks only among solutions that agree here.
    place(*board, known, b, i);
  }
  return false;
}

}  // namespace tessaly
