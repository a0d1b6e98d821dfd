// Almost locked sets: ALS-XZ.
//
// An almost locked set is N cells of one area holding N + 1 digits between
// them: take any one digit away and the rest are locked in. Two such sets
// that do not share a cell, with a digit x whose places in both all see each
// other (the restricted common digit: at most one of the sets holds it), are
// then such that one of them loses x and is locked: so for any other digit z
// both hold, one of the sets holds z, and a cell that sees every z of both
// sets cannot be z.

#include <algorithm>
#include <bit>
#include <memory>
#include <utility>

#include "solver/CellSet.h"
#include "solver/Techniques.h"

namespace tessaly {
namespace {

using namespace bitgrid;

/// The largest set looked at: larger ones are rare in the patterns people
/// use, and each size adds many sets to pair.
constexpr int kMaxAlsCells = 6;

struct Als {
  std::array<std::uint8_t, kMaxAlsCells> cells{};  ///< ascending
  std::uint8_t size = 0;
  std::uint16_t digits = 0;
  std::uint16_t reaching = 0;  ///< the digits some cell outside sees in all of the set's places
  CellSet where;               ///< its cells
  CellGroup group() const { return {std::vector<int>(cells.begin(), cells.begin() + size), digits}; }
};

/// Per set and digit: the cells that see all of the set's places of the digit.
using Seeing = std::array<CellSet, 9>;

}  // namespace

/// The buffers of ALS-XZ, kept for the next search on the boards of one solve
/// (FinderWork) so that a search seldom allocates: each search clears or
/// fills every buffer before it reads it, so nothing found on one board
/// carries over to the next.
struct AlsWork {
  std::vector<Als> found, sets;
  std::vector<std::uint64_t> order, sorted;
  std::vector<Seeing> seeing;
  std::vector<std::uint64_t> byCell, byLow, byHigh, later, partners;
  std::vector<std::size_t> lastLow;
};

AlsWork& FinderWork::als() {
  if (!m_als) m_als = std::make_shared<AlsWork>();
  return *m_als;
}

namespace {

/// The almost locked sets of one area, found by adding its open cells one at
/// a time in ascending order: a choice whose digits already outnumber what
/// the cells it can still take could hold (one more than its cells) leads to
/// none, and is left.
struct AreaSets {
  const TechniqueBoard& board;
  int area = 0;
  std::array<std::uint8_t, 9> open{}, place{};  ///< the open cells (ascending) and their places in the area
  int openCount = 0;
  std::array<std::uint8_t, kMaxAlsCells> chosen{};  ///< indices into open
  std::vector<Als>& found;
  std::vector<std::uint64_t>& order;  // size, cells (7 bits each), then the index in found

  void from(int next, int size, std::uint16_t digits, std::uint16_t positions) {
    for (int k = next; k < openCount; ++k) {
      const auto d = std::uint16_t(digits | board.cand[open[std::size_t(k)]]);
      const auto p = std::uint16_t(positions | (1u << place[std::size_t(k)]));
      chosen[std::size_t(size)] = std::uint8_t(k);
      const int cells = size + 1, held = count(d);
      if (held == cells + 1) keep(cells, d, p);
      const int room = std::min(openCount - k - 1, kMaxAlsCells - cells);
      if (room > 0 && held <= cells + room + 1) from(k + 1, cells, d, p);
    }
  }

  void keep(int size, std::uint16_t digits, std::uint16_t p) {
    // A set inside one row or column of a box is that line's.
    if (area >= 9 && size == 1) return;
    if (area >= 18 && ((p & 0x7) == p || (p & 0x38) == p || (p & 0x1C0) == p || (p & 0x49) == p ||
                       (p & 0x92) == p || (p & 0x124) == p))
      return;
    std::uint64_t key = std::uint64_t(size) << 60 | found.size();
    Als& s = found.emplace_back();
    s.size = std::uint8_t(size);
    s.digits = digits;
    for (int k = 0; k < size; ++k) {  // the area's cells are in ascending order
      const std::uint8_t c = open[chosen[std::size_t(k)]];
      s.cells[std::size_t(k)] = c;
      s.where.add(c);
      key |= std::uint64_t(c) << (53 - 7 * k);
    }
    order.push_back(key);
  }
};

/// Every almost locked set of 1..kMaxAlsCells cells, each once (in the first
/// area holding it: a row, else a column, else a box), ordered by size and
/// then cells, with what sees its places.
void almostLockedSets(const TechniqueBoard& board, const std::array<CellSet, 9>& holds, AlsWork& work) {
  std::vector<Als>& found = work.found;
  std::vector<std::uint64_t>& order = work.order;  // size, cells (7 bits each), then the index in found
  found.clear();
  order.clear();
  for (int a = 0; a < 27; ++a) {
    AreaSets area{board, a, {}, {}, 0, {}, found, order};
    for (int k = 0; k < 9; ++k) {
      const std::uint8_t c = kAreas[std::size_t(a)][std::size_t(k)];
      if (board.cand[c]) {
        area.open[std::size_t(area.openCount)] = c;
        area.place[std::size_t(area.openCount++)] = std::uint8_t(k);
      }
    }
    area.from(0, 0, 0, 0);
  }
  // Ordered by size and first cell with a count of each, then by the rest
  // of the key within those few.
  std::array<std::uint16_t, kMaxAlsCells * kCellCount + 1> start{};
  const auto bucket = [](std::uint64_t key) { return std::size_t((key >> 60) - 1) * kCellCount + ((key >> 53) & 0x7F); };
  for (std::uint64_t key : order) ++start[bucket(key) + 1];
  for (std::size_t b = 1; b < start.size(); ++b) start[b] = std::uint16_t(start[b] + start[b - 1]);
  std::vector<std::uint64_t>& sorted = work.sorted;
  sorted.resize(order.size());
  for (std::uint64_t key : order) sorted[start[bucket(key)]++] = key;
  for (std::size_t k = 1; k < sorted.size(); ++k)
    for (std::size_t m = k; m > 0 && sorted[m - 1] > sorted[m]; --m) std::swap(sorted[m - 1], sorted[m]);
  order.swap(sorted);
  // Keep the sets with a digit z to remove: a pair needs one in both.
  std::vector<Als>& sets = work.sets;
  std::vector<Seeing>& seeing = work.seeing;
  sets.clear();
  seeing.clear();
  for (std::uint64_t key : order) {
    Als s = found[key & 0x3FFFF];
    // Every digit at once, without branches: a cell leaves a digit's set as
    // it is unless it holds that digit. Digits outside the set see nothing.
    Seeing see;
    for (std::size_t d = 0; d < 9; ++d) {
      const std::uint64_t in = std::uint64_t(0) - ((s.digits >> d) & 1u);
      see[d] = {in, in};
    }
    for (int k = 0; k < s.size; ++k) {
      const std::uint8_t c = s.cells[std::size_t(k)];
      const CellSet peers = kPeerSets[c];
      const unsigned cand = board.cand[c];
      for (std::size_t d = 0; d < 9; ++d) {
        const std::uint64_t out = std::uint64_t(0) - ((cand >> d) & 1u);  // all ones where the cell holds d
        see[d].lo &= peers.lo | ~out;
        see[d].hi &= peers.hi | ~out;
      }
    }
    for (std::size_t d = 0; d < 9; ++d)
      s.reaching |= std::uint16_t(unsigned((see[d] & holds[d]).any()) << d);
    if (!s.reaching) continue;
    seeing.push_back(see);
    sets.push_back(s);
  }
}

/// Sets of almost locked sets, bit i for the i-th, in rows (empty at first),
/// written in a buffer of the finder's work.
class AlsRows {
 public:
  AlsRows(std::vector<std::uint64_t>& bits, std::size_t rows, std::size_t count)
      : m_words((count + 63) / 64), m_bits(bits) {
    m_bits.assign(rows * m_words, 0);
  }
  std::size_t words() const { return m_words; }
  const std::uint64_t* row(std::size_t r) const { return &m_bits[r * m_words]; }
  void add(std::size_t r, std::size_t i) { m_bits[r * m_words + i / 64] |= std::uint64_t(1) << (i % 64); }

 private:
  std::size_t m_words;
  std::vector<std::uint64_t>& m_bits;
};

/// The restricted common digit x and the digit z of a pair, lowest first
/// ({0, 0} when the pair removes nothing the context wants).
std::pair<int, int> linkOf(const TechniqueContext& ctx, const std::array<CellSet, 9>& holds, const Als& a,
                           const Seeing& aSees, const Als& b, const Seeing& bSees) {
  const auto common = std::uint16_t(a.digits & b.digits);
  // The digits some cell seeing all of both sets' places of them can lose
  // (whichever x turns out restricted, z is the lowest of them but x).
  std::uint16_t removable = 0;
  for (std::uint16_t zs = common & a.reaching & b.reaching; zs; zs &= std::uint16_t(zs - 1)) {
    const auto z = std::size_t(std::countr_zero(zs));
    const CellSet removed = holds[z] & aSees[z] & bSees[z];
    if (ctx.singledOut() ? (removed & ctx.wanted(int(z) + 1)).any() : removed.any()) removable |= std::uint16_t(1u << z);
  }
  if (!removable) return {0, 0};
  for (std::uint16_t xs = common; xs; xs &= std::uint16_t(xs - 1)) {
    const auto x = std::size_t(std::countr_zero(xs));
    const auto zs = std::uint16_t(removable & ~(1u << x));
    if (zs && (b.where & holds[x]).within(aSees[x])) return {int(x) + 1, std::countr_zero(zs) + 1};
  }
  return {0, 0};
}

}  // namespace

/// The pair with the fewest cells between them first, then the lowest sets
/// (ordered by size, then cells), the lowest x and the lowest z.
std::optional<TechniqueStep> findAlsXz(const TechniqueContext& ctx) {
  const TechniqueBoard& board = ctx.board;
  std::array<CellSet, 9> holds{};
  for (int d = 1; d <= 9; ++d) holds[std::size_t(d - 1)] = ctx.holds(d);
  AlsWork own;
  AlsWork& work = ctx.work() ? ctx.work()->als() : own;
  almostLockedSets(board, holds, work);
  const std::vector<Als>& sets = work.sets;
  const std::vector<Seeing>& seeing = work.seeing;
  const std::size_t n = sets.size();

  // Which sets take in each cell.
  AlsRows byCell(work.byCell, kCellCount, n);
  // A row for each place of each digit (a digit and a cell holding it), and
  // in it the sets whose lowest (byLow) or highest (byHigh) place of that
  // digit is there: a partner's places of x all lie where A's places of x
  // are seen, so both its lowest and its highest one do.
  std::array<std::array<std::uint16_t, kCellCount>, 9> placeRow;  // read only where a digit has a place
  std::size_t placeRows = 0;
  for (std::size_t d = 0; d < 9; ++d) holds[d].forEach([&](int c) { placeRow[d][std::size_t(c)] = std::uint16_t(placeRows++); });
  AlsRows byLow(work.byLow, placeRows, n), byHigh(work.byHigh, placeRows, n);
  std::vector<std::size_t>& lastLow = work.lastLow;  // one past the last set in each byLow row, 0 for none
  lastLow.assign(placeRows, 0);
  for (std::size_t i = 0; i < n; ++i) {
    for (int k = 0; k < sets[i].size; ++k) byCell.add(sets[i].cells[std::size_t(k)], i);
    for (std::uint16_t m = sets[i].digits; m; m &= std::uint16_t(m - 1)) {
      const auto d = std::size_t(std::countr_zero(m));
      const CellSet places = sets[i].where & holds[d];
      if (places.empty()) continue;
      const std::size_t low = placeRow[d][std::size_t(places.lo ? std::countr_zero(places.lo) : 64 + std::countr_zero(places.hi))];
      byLow.add(low, i);
      lastLow[low] = i + 1;
      byHigh.add(placeRow[d][std::size_t(places.hi ? 127 - std::countl_zero(places.hi) : 63 - std::countl_zero(places.lo))], i);
    }
  }
  const std::size_t words = byCell.words();
  std::vector<std::uint64_t>& later = work.later;
  std::vector<std::uint64_t>& partners = work.partners;
  later.assign(words, 0);
  partners.assign(words, 0);
  std::array<std::size_t, kCellCount> rowAt;  // the place rows of the cells where B's places of x may lie

  int bestTotal = 2 * kMaxAlsCells + 1;
  std::size_t bestA = 0, bestB = 0;
  std::pair<int, int> best;
  for (std::size_t i = 0; i < n && 2 * sets[i].size < bestTotal; ++i) {
    const Als& a = sets[i];
    // The sets after A sharing no cell with it (none in the words before `from`).
    const std::size_t from = i / 64;
    for (std::size_t w = 0; w < words; ++w)
      later[w] = w < from ? 0 : w > from ? ~std::uint64_t(0) : ~std::uint64_t(0) << (i % 64) << 1;
    for (int k = 0; k < a.size; ++k) {
      const std::uint64_t* in = byCell.row(a.cells[std::size_t(k)]);
      for (std::size_t w = from; w < words; ++w) later[w] &= ~in[w];
    }
    // Those with an x whose places all see A's (so holding x in a cell that
    // sees all of A's) and a z that might remove something.
    std::fill(partners.begin(), partners.end(), 0);
    for (std::uint16_t xs = a.digits; xs; xs &= std::uint16_t(xs - 1)) {
      const int x = std::countr_zero(xs) + 1;
      const auto zs = std::uint16_t(a.reaching & ~bitOf(x));
      if (!zs) continue;
      const CellSet& sees = seeing[i][std::size_t(x - 1)];
      const CellSet& places = holds[std::size_t(x - 1)];
      const CellSet meeting = sees & places;
      if (meeting.empty()) continue;
      std::size_t rows = 0;
      std::size_t end = 0;  // one past the last set that may be a partner
      meeting.forEach([&](int c) {
        const std::size_t r = placeRow[std::size_t(x - 1)][std::size_t(c)];
        rowAt[rows++] = r;
        end = std::max(end, lastLow[r]);
      });
      if (end <= i + 1) continue;
      const std::size_t endWord = (end - 1) / 64 + 1;
      for (std::size_t w = from; w < endWord; ++w) {
        if (!later[w]) continue;
        std::uint64_t low = 0, high = 0;
        for (std::size_t k = 0; k < rows; ++k) low |= byLow.row(rowAt[k])[w], high |= byHigh.row(rowAt[k])[w];
        for (std::uint64_t bits = low & high & later[w]; bits; bits &= bits - 1) {
          const std::size_t j = w * 64 + std::size_t(std::countr_zero(bits));
          if ((sets[j].reaching & zs) && (sets[j].where & places).within(sees)) partners[w] |= bits & -bits;
        }
      }
    }
    // The first of them (the smallest) that removes something.
    bool done = false;
    for (std::size_t w = from; w < words && !done; ++w)
      for (std::uint64_t bits = partners[w]; bits && !done; bits &= bits - 1) {
        const std::size_t j = w * 64 + std::size_t(std::countr_zero(bits));
        if (a.size + sets[j].size >= bestTotal) {
          done = true;
          break;
        }
        const auto link = linkOf(ctx, holds, a, seeing[i], sets[j], seeing[j]);
        if (!link.first) continue;
        bestTotal = a.size + sets[j].size;
        bestA = i;
        bestB = j;
        best = link;
        done = true;
      }
  }
  if (bestTotal > 2 * kMaxAlsCells) return std::nullopt;

  const int x = best.first, z = best.second;  // named, not bound: a lambda below captures z
  TechniqueStep step;
  step.technique = Technique::AlsXz;
  step.groups = {sets[bestA].group(), sets[bestB].group()};
  step.restricted = x;
  step.zDigit = z;
  (holds[std::size_t(z - 1)] & seeing[bestA][std::size_t(z - 1)] & seeing[bestB][std::size_t(z - 1)])
      .forEach([&](int c) {
        step.eliminations.push_back({c, z});
      });
  return step;
}

}  // namespace tessaly
