// Chains: X-Chains, XY-Chains and alternating inference chains.
//
// The three are found by one search on a graph. Its nodes are candidates and,
// for the alternating chains, groups: the two or three cells where a box meets
// a line that hold a digit there, read as "one of these cells holds it". Two
// nodes are joined by a strong link when one being false makes the other true
// (a digit's only two places in an area, the two candidates of a cell) and by
// a weak link when one being true makes the other false (one digit in cells
// that see each other, two digits of one cell). A chain assumes its first node
// false and follows a strong link, a weak link, ..., a strong link to its last
// node, which is then true: one of the two ends holds, and what sees both can
// go. Only nodes with a strong link can be in a chain, so the graph keeps only
// those.
//
// The search is breadth-first from every node at once, one link at a time:
// each node keeps the set of starts that have reached it (true after a strong
// link, false after a weak one) as a bit set, so a step costs a few word
// operations per link. The first length at which some start reaches a node
// that, as the other end, removes something gives the chain (the lowest start,
// then the lowest end). The sets reached at each step are kept, so the chain
// is then traced back from its end through them, each node to the lowest node
// that reached it from that start: the chain a search from that start alone
// would give. Every chain read backwards is a chain too, so only the one from
// its lower end is looked at.

#include <algorithm>
#include <bit>
#include <type_traits>
#include <utility>

#include "solver/CellSet.h"
#include "solver/Techniques.h"

namespace tessaly {
namespace {

using namespace bitgrid;

/// The 54 places where a box meets a line, three cells each: row r in band j
/// is 3r + j, column c in stack i is 27 + 3c + i.
constexpr std::array<CellSet, 54> makeSegments() {
  std::array<CellSet, 54> t{};
  for (int n = 0; n < 9; ++n)
    for (int j = 0; j < 3; ++j)
      for (int k = 0; k < 3; ++k) {
        t[std::size_t(3 * n + j)].add(n * 9 + 3 * j + k);
        t[std::size_t(27 + 3 * n + j)].add((3 * j + k) * 9 + n);
      }
  return t;
}
constexpr auto kSegments = makeSegments();

/// The segments inside each area: three for a line, six for a box.
constexpr std::array<std::array<std::uint8_t, 6>, 27> makeAreaSegments() {
  std::array<std::array<std::uint8_t, 6>, 27> t{};
  for (int n = 0; n < 9; ++n)
    for (int i = 0; i < 3; ++i) {
      t[std::size_t(n)][std::size_t(i)] = std::uint8_t(3 * n + i);
      t[std::size_t(9 + n)][std::size_t(i)] = std::uint8_t(27 + 3 * n + i);
      t[std::size_t(18 + n)][std::size_t(i)] = std::uint8_t(3 * (3 * (n / 3) + i) + n % 3);
      t[std::size_t(18 + n)][std::size_t(3 + i)] = std::uint8_t(27 + 3 * (3 * (n % 3) + i) + n / 3);
    }
  return t;
}
constexpr auto kAreaSegments = makeAreaSegments();

/// The positions (as in TechniqueContext::at) of those segments in their area:
/// a line's three stacks or bands, a box's three rows, then its three columns.
constexpr std::array<std::uint16_t, 6> kSegmentPlaces = {0x007, 0x038, 0x1C0, 0x049, 0x092, 0x124};

// Before they are numbered, a candidate is known as cell * 9 + digit - 1 and a
// group as kGroupIds + segment * 9 + digit - 1.
constexpr int kGroupIds = kCellCount * 9;
constexpr int kIds = kGroupIds + 54 * 9;

enum class ChainKind : std::uint8_t { X, XY, Alternating };

struct Node {
  std::array<std::uint8_t, 3> cells{};
  int size = 0;
  int digit = 0;
  CellSet where;    ///< its cells
  CellSet seen;     ///< the cells that see every one of its cells
  CellSet targets;  ///< the cells of `seen` holding its digit (what a chain ending here might remove)
};

/// Sets of nodes, bit i for node i, in rows of `words` words.
class NodeRows {
 public:
  /// Empty rows; or, without `clear`, rows left as they come (for rows that
  /// are written in full before they are read). The storage only grows, so
  /// rows kept from an earlier search are reused.
  void reset(std::size_t rows, std::size_t words, bool clear = true) {
    m_words = words;
    if (m_bits.size() < rows * words) m_bits.resize(rows * words);
    if (clear) std::fill_n(m_bits.begin(), rows * words, 0);
  }
  std::uint64_t* operator[](std::size_t r) { return &m_bits[r * m_words]; }
  const std::uint64_t* operator[](std::size_t r) const { return &m_bits[r * m_words]; }

 private:
  std::size_t m_words = 0;
  std::vector<std::uint64_t> m_bits;
};

void addBit(std::uint64_t* set, std::size_t i) { set[i / 64] |= std::uint64_t(1) << (i % 64); }

/// The most words a node set can take: every candidate and every group.
constexpr std::size_t kMaxWords = (kIds + 63) / 64;

/// Calls `f(std::integral_constant<std::size_t, W>)` with W = `words` when it
/// is small (so that loops over a set's words have a fixed length), else 0.
template <class F>
void withWords(std::size_t words, F f) {
  switch (words) {
    case 1: return f(std::integral_constant<std::size_t, 1>());
    case 2: return f(std::integral_constant<std::size_t, 2>());
    case 3: return f(std::integral_constant<std::size_t, 3>());
    case 4: return f(std::integral_constant<std::size_t, 4>());
    default: return f(std::integral_constant<std::size_t, 0>());
  }
}

}  // namespace

/// What a chain search writes as it goes, kept for the next search on the
/// boards of one solve (FinderWork) so that a search seldom allocates: every
/// search sizes and fills each buffer before it reads it, so nothing found on
/// one board carries over to the next and the chains found are the same.
struct ChainWork {
  std::vector<std::pair<int, int>> links;
  std::vector<std::uint64_t> groups, sortedGroups;
  std::vector<int> groupIds, fill;
  std::vector<Node> nodes;
  std::vector<int> strongAt, strong, weakAt, weak;
  NodeRows seenBy, ofDigit, singleAt, partners, seenTrue, seenFalse;
  std::vector<NodeRows> trueAt, falseAt;
  std::vector<char> partnersKnown;
  std::vector<std::pair<int, int>> hits;
};

FinderWork::FinderWork() = default;
FinderWork::~FinderWork() = default;
FinderWork::FinderWork(const FinderWork&) {}
FinderWork& FinderWork::operator=(const FinderWork&) { return *this; }
ChainWork& FinderWork::chains() {
  if (!m_chains) m_chains = std::make_unique<ChainWork>();
  return *m_chains;
}

namespace {

class ChainSearch {
 public:
  ChainSearch(const TechniqueContext& context, ChainKind kind, ChainWork& work);

  /// The shortest chain of `minNodes` to `maxNodes` nodes that removes
  /// something, the lowest first node, then the lowest last node, first.
  std::optional<TechniqueStep> find(Technique technique, int minNodes, int maxNodes);

 private:
  /// The nodes that, as the other end of a chain ending at `e`, make it remove
  /// something: bit s set exactly when a chain from s to e does.
  const std::uint64_t* partners(int e);
  std::vector<Candidate> removals(int s, int e) const;
  bool step(const NodeRows& from, const std::vector<int>& at, const std::vector<int>& links, NodeRows& fresh,
            NodeRows& seen) const;
  std::vector<int> trace(int s, int e, int nodes, const std::vector<NodeRows>& trueAt,
                         const std::vector<NodeRows>& falseAt) const;
  bool simple(const std::vector<int>& path) const;

  const TechniqueContext& m_context;
  const TechniqueBoard& m_board;
  ChainKind m_kind;
  ChainWork& m_work;
  std::array<CellSet, 9> m_holds{};  ///< the cells holding each digit
  std::vector<Node>& m_nodes;
  std::size_t m_words = 0;  ///< words of a node set
  // Node i's strong links are m_strong[m_strongAt[i] .. m_strongAt[i + 1]], its weak links likewise.
  std::vector<int> &m_strongAt, &m_strong, &m_weakAt, &m_weak;
  /// seenBy[c]: the nodes whose digit cell c holds and whose cells c all sees
  /// (those whose targets take in c); ofDigit[d]: the nodes of digit d + 1;
  /// singleAt[c]: the one-cell nodes in cell c.
  NodeRows &m_seenBy, &m_ofDigit, &m_singleAt;
  /// partners(e), worked out the first time a chain ends at e.
  NodeRows& m_partners;
  std::vector<char>& m_partnersKnown;
};

ChainSearch::ChainSearch(const TechniqueContext& context, ChainKind kind, ChainWork& work)
    : m_context(context),
      m_board(context.board),
      m_kind(kind),
      m_work(work),
      m_nodes(work.nodes),
      m_strongAt(work.strongAt),
      m_strong(work.strong),
      m_weakAt(work.weakAt),
      m_weak(work.weak),
      m_seenBy(work.seenBy),
      m_ofDigit(work.ofDigit),
      m_singleAt(work.singleAt),
      m_partners(work.partners),
      m_partnersKnown(work.partnersKnown) {
  for (int d = 1; d <= 9; ++d) m_holds[std::size_t(d - 1)] = context.holds(d);

  // Strong links: the two candidates of a cell, and two nodes that between
  // them hold every place of their digit in an area.
  std::vector<std::pair<int, int>>& links = m_work.links;
  links.clear();
  if (m_kind != ChainKind::X)
    for (int c = 0; c < kCellCount; ++c) {
      const std::uint16_t m = m_board.cand[std::size_t(c)];
      if (count(m) == 2) links.emplace_back(c * 9 + std::countr_zero(m), c * 9 + 15 - std::countl_zero(m));
    }
  // Within an area the digit's places are a mask of positions (TechniqueContext::at).
  if (m_kind != ChainKind::XY)
    for (int a = 0; a < 27; ++a) {
      const auto& cells = kAreas[std::size_t(a)];
      for (int d = 0; d < 9; ++d) {
        if (m_kind == ChainKind::X && !(context.digits() & bitOf(d + 1))) continue;
        const unsigned places = context.at(a, d + 1);
        const int n = count(std::uint16_t(places));
        if (n < 2 || n > (m_kind == ChainKind::X ? 2 : 6)) continue;
        if (n == 2) links.emplace_back(cells[std::size_t(std::countr_zero(places))] * 9 + d,
                                       cells[std::size_t(31 - std::countl_zero(places | 1u))] * 9 + d);
        if (m_kind != ChainKind::Alternating || n < 3 || n > 6) continue;
        // A group against the rest, when the rest is one cell or another
        // group. (A segment without places makes a group too: the rest is
        // then all the places, which another segment may hold.)
        const auto& segments = kAreaSegments[std::size_t(a)];
        const int segmentCount = a < 18 ? 3 : 6;
        for (int i = 0; i < segmentCount; ++i) {
          const unsigned group = places & kSegmentPlaces[std::size_t(i)], rest = places & ~group;
          if (!rest || count(std::uint16_t(group)) == 1) continue;
          const int id = kGroupIds + segments[std::size_t(i)] * 9 + d;
          if (count(std::uint16_t(rest)) == 1) links.emplace_back(id, cells[std::size_t(std::countr_zero(rest))] * 9 + d);
          for (int j = i + 1; j < segmentCount; ++j)
            if ((places & kSegmentPlaces[std::size_t(j)]) == rest)
              links.emplace_back(id, kGroupIds + segments[std::size_t(j)] * 9 + d);
        }
      }
    }

  // Number the nodes with a strong link in order of their cells (as a
  // sequence), then digit: a group comes after the candidates of its first
  // cell. index[id] is set for every id a link names, and only those are read.
  std::array<std::int16_t, kIds> index;
  // The digits of each cell with a strong link, and the groups met so far
  // (bit digit - 1 of each segment).
  std::array<std::uint16_t, kCellCount> singleDigits{};
  std::array<std::uint16_t, 54> groupDigits{};
  // A group is known by (first cell, second cell, third cell or none, digit)
  // as one number, sorted with the order it was met in below it (groups of a
  // segment without places have the same number).
  std::vector<std::uint64_t>& groups = m_work.groups;
  std::vector<int>& groupIds = m_work.groupIds;
  groups.clear();
  groupIds.clear();
  for (const auto& [a, b] : links)
    for (int id : {a, b}) {
      if (id < kGroupIds) {
        singleDigits[std::size_t(id / 9)] |= std::uint16_t(1u << (id % 9));
        continue;
      }
      std::uint16_t& met = groupDigits[std::size_t((id - kGroupIds) / 9)];
      const auto bit = std::uint16_t(1u << ((id - kGroupIds) % 9));
      if (met & bit) continue;
      met |= bit;
      const int digit = (id - kGroupIds) % 9 + 1;
      const CellSet where = m_holds[std::size_t(digit - 1)] & kSegments[std::size_t((id - kGroupIds) / 9)];
      std::uint32_t key = std::uint32_t(digit);
      int shift = 24;
      where.forEach([&](int c) {
        key |= std::uint32_t(shift == 8 ? c + 1 : c) << shift;
        shift -= 8;
      });
      groups.push_back(std::uint64_t(key) << 32 | groupIds.size());
      groupIds.push_back(id);
    }
  // By first cell with a count of each, then by the rest of the key within
  // those few (an insertion pass).
  {
    std::array<std::uint16_t, kCellCount + 1> start{};
    for (std::uint64_t key : groups) ++start[std::size_t(key >> 56) + 1];
    for (std::size_t c = 1; c < start.size(); ++c) start[c] = std::uint16_t(start[c] + start[c - 1]);
    std::vector<std::uint64_t>& sorted = m_work.sortedGroups;
    sorted.resize(groups.size());
    for (std::uint64_t key : groups) sorted[start[std::size_t(key >> 56)]++] = key;
    for (std::size_t k = 1; k < sorted.size(); ++k)
      for (std::size_t m = k; m > 0 && sorted[m - 1] > sorted[m]; --m) std::swap(sorted[m - 1], sorted[m]);
    groups.swap(sorted);
  }
  std::size_t singles = 0;
  for (std::uint16_t digits : singleDigits) singles += std::size_t(count(digits));
  m_nodes.assign(singles + groups.size(), Node{});
  std::size_t next = 0, nextGroup = 0;
  for (int c = 0; c < kCellCount; ++c) {
    for (std::uint16_t m = singleDigits[std::size_t(c)]; m; m &= std::uint16_t(m - 1)) {
      const int d = std::countr_zero(m);
      index[std::size_t(c * 9 + d)] = std::int16_t(next);
      Node& node = m_nodes[next++];
      node.cells[0] = std::uint8_t(c);
      node.size = 1;
      node.digit = d + 1;
      node.where.add(c);
      node.seen = kPeerSets[std::size_t(c)];
    }
    for (; nextGroup < groups.size() && int(groups[nextGroup] >> 56) == c; ++nextGroup) {
      const int id = groupIds[groups[nextGroup] & 0xFFFFFFFFu];
      index[std::size_t(id)] = std::int16_t(next);
      Node& node = m_nodes[next++];
      node.digit = (id - kGroupIds) % 9 + 1;
      node.seen = kEveryCell;
      node.where = m_holds[std::size_t(node.digit - 1)] & kSegments[std::size_t((id - kGroupIds) / 9)];
      node.where.forEach([&](int cell) {
        node.cells[std::size_t(node.size++)] = std::uint8_t(cell);
        node.seen = node.seen & kPeerSets[std::size_t(cell)];
      });
    }
  }
  const std::size_t n = m_nodes.size();
  m_words = (n + 63) / 64;

  m_strongAt.assign(n + 1, 0);
  for (const auto& [a, b] : links) {
    ++m_strongAt[std::size_t(index[std::size_t(a)]) + 1];
    ++m_strongAt[std::size_t(index[std::size_t(b)]) + 1];
  }
  for (std::size_t i = 0; i < n; ++i) m_strongAt[i + 1] += m_strongAt[i];
  m_strong.resize(std::size_t(m_strongAt[n]));
  {
    std::vector<int>& fill = m_work.fill;
    fill.assign(m_strongAt.begin(), m_strongAt.end() - 1);
    for (const auto& [a, b] : links) {
      const int x = index[std::size_t(a)], y = index[std::size_t(b)];
      m_strong[std::size_t(fill[std::size_t(x)]++)] = y;
      m_strong[std::size_t(fill[std::size_t(y)]++)] = x;
    }
  }

  NodeRows& seenBy = m_seenBy;
  NodeRows& ofDigit = m_ofDigit;
  seenBy.reset(kCellCount, m_words);
  ofDigit.reset(9, m_words);
  m_singleAt.reset(m_kind == ChainKind::Alternating ? kCellCount : 0, m_words);
  for (std::size_t i = 0; i < n; ++i) {
    const Node& node = m_nodes[i];
    addBit(ofDigit[std::size_t(node.digit - 1)], i);
    (node.seen & m_holds[std::size_t(node.digit - 1)]).forEach([&](int c) { addBit(seenBy[std::size_t(c)], i); });
    if (m_kind == ChainKind::Alternating && node.size == 1) addBit(m_singleAt[node.cells[0]], i);
  }

  // Weak links: one digit in cells that all see each other, and (in an
  // alternating chain) two digits of one cell. Each node's are worked out as
  // a node set and read out into its list (the search reads lists faster);
  // before each node the buffer is grown to hold a link to every node, so the
  // list is written through a pointer without checks.
  m_weakAt.resize(n + 1);
  m_weak.resize(n * 8);
  std::size_t used = 0;
  withWords(m_words, [&](auto fixed) {
    constexpr std::size_t W = decltype(fixed)::value;
    const std::size_t words = W ? W : m_words;
    std::array<std::uint64_t, W ? W : kMaxWords> weak;
    for (std::size_t i = 0; i < n; ++i) {
      const Node& node = m_nodes[i];
      const std::uint64_t* digit = ofDigit[std::size_t(node.digit - 1)];
      for (std::size_t w = 0; w < words; ++w) weak[w] = digit[w];
      for (int k = 0; k < node.size; ++k) {
        const std::uint64_t* by = seenBy[node.cells[std::size_t(k)]];
        for (std::size_t w = 0; w < words; ++w) weak[w] &= by[w];
      }
      if (m_kind == ChainKind::Alternating && node.size == 1) {
        // The cell's other candidates (its one-cell nodes less this one).
        const std::uint64_t* single = m_singleAt[node.cells[0]];
        for (std::size_t w = 0; w < words; ++w) weak[w] |= single[w] & ~digit[w];
      }
      m_weakAt[i] = int(used);
      if (m_weak.size() < used + n) m_weak.resize(std::max(2 * m_weak.size(), used + n));
      int* out = m_weak.data() + used;
      for (std::size_t w = 0; w < words; ++w)
        for (std::uint64_t bits = weak[w]; bits; bits &= bits - 1) *out++ = int(w * 64) + std::countr_zero(bits);
      used = std::size_t(out - m_weak.data());
    }
  });
  m_weakAt[n] = int(used);
  m_weak.resize(used);

  for (Node& node : m_nodes) node.targets = node.seen & m_holds[std::size_t(node.digit - 1)];
}

/// A chain with ends s and e removes something (see removals) when both ends
/// hold one digit and a cell with it sees both, or (in an alternating chain)
/// when one end is a single cell holding the other end's digit and seeing
/// every cell of it: that cell is among the other end's targets. With some
/// candidates singled out (TechniqueContext::wanted), only the ends whose
/// chain removes one of them.
const std::uint64_t* ChainSearch::partners(int e) {
  std::uint64_t* row = m_partners[std::size_t(e)];
  if (m_partnersKnown[std::size_t(e)]) return row;
  m_partnersKnown[std::size_t(e)] = 1;
  // Only the starts below e are ever asked about (a chain is looked at from
  // its lower end): the words past e's are not worked out.
  const Node& b = m_nodes[std::size_t(e)];
  const std::uint64_t* digit = m_ofDigit[std::size_t(b.digit - 1)];
  const bool alternating = m_kind == ChainKind::Alternating;
  const bool singledOut = m_context.singledOut();
  const CellSet targets = singledOut ? b.targets & m_context.wanted(b.digit) : b.targets;
  withWords(std::size_t(e) / 64 + 1, [&](auto fixed) {
    constexpr std::size_t W = decltype(fixed)::value;
    const std::size_t words = W ? W : std::size_t(e) / 64 + 1;
    std::array<std::uint64_t, W ? W : kMaxWords> acc;
    for (std::size_t w = 0; w < words; ++w) acc[w] = 0;
    targets.forEach([&](int c) {
      const std::uint64_t* by = m_seenBy[std::size_t(c)];
      for (std::size_t w = 0; w < words; ++w) acc[w] |= by[w] & digit[w];
      if (!alternating) return;
      const std::uint64_t* single = m_singleAt[std::size_t(c)];
      for (std::size_t w = 0; w < words; ++w) acc[w] |= single[w] & ~digit[w];
    });
    if (alternating && b.size == 1) {
      // The other end's digit, from this end's cell.
      const std::uint64_t* by = m_seenBy[b.cells[0]];
      if (!singledOut) {
        for (std::size_t w = 0; w < words; ++w) acc[w] |= by[w] & ~digit[w];
      } else {
        for (int d = 1; d <= 9; ++d) {
          if (d == b.digit || !m_context.wanted(d).has(b.cells[0])) continue;
          const std::uint64_t* other = m_ofDigit[std::size_t(d - 1)];
          for (std::size_t w = 0; w < words; ++w) acc[w] |= by[w] & other[w];
        }
      }
    }
    for (std::size_t w = 0; w < words; ++w) row[w] = acc[w];
  });
  return row;
}

/// What "s or e" removes: a digit of both ends from the cells that see every
/// cell of both; with two digits, x at one end and y at the other, y from the x
/// end's cell when it sees the whole y end, and the other way round.
std::vector<Candidate> ChainSearch::removals(int s, int e) const {
  const Node& a = m_nodes[std::size_t(s)];
  const Node& b = m_nodes[std::size_t(e)];
  std::vector<Candidate> out;
  if (a.digit == b.digit) {
    (a.targets & b.targets).forEach([&](int c) { out.push_back({c, a.digit}); });
    return out;
  }
  if (a.size == 1 && (b.where - a.seen).empty() && (m_board.cand[a.cells[0]] & bitOf(b.digit)))
    out.push_back({a.cells[0], b.digit});
  if (b.size == 1 && (a.where - b.seen).empty() && (m_board.cand[b.cells[0]] & bitOf(a.digit)))
    out.push_back({b.cells[0], a.digit});
  std::sort(out.begin(), out.end());
  return out;
}

/// A chain of `nodes` nodes from s (assumed false) to e (reached true): the
/// one a breadth-first search from s alone gives when each node it reaches
/// takes the lowest node of the step before that links to it. Read backwards
/// through the sets find keeps: trueAt[k] and falseAt[k] hold, per node, the
/// starts that first reached it true or false after k strong or k weak links,
/// so e's node before it is the lowest of its links that s reached the step
/// before. Links go both ways, so the nodes linking to a node are its own links.
std::vector<int> ChainSearch::trace(int s, int e, int nodes, const std::vector<NodeRows>& trueAt,
                                    const std::vector<NodeRows>& falseAt) const {
  const auto reached = [&](const NodeRows& rows, int v) {
    return (rows[std::size_t(v)][std::size_t(s) / 64] >> (std::size_t(s) % 64)) & 1u;
  };
  // The lowest of v's links (m_strong or m_weak from `at`) in `rows`.
  const auto lowest = [&](const std::vector<int>& at, const std::vector<int>& links, const NodeRows& rows, int v) {
    int best = -1;
    for (int k = at[std::size_t(v)]; k < at[std::size_t(v) + 1]; ++k) {
      const int u = links[std::size_t(k)];
      if ((best < 0 || u < best) && reached(rows, u)) best = u;
    }
    return best;
  };
  std::vector<int> path(static_cast<std::size_t>(nodes));
  int cur = e;
  for (int k = nodes / 2; k >= 1; --k) {
    path[std::size_t(2 * k - 1)] = cur;
    cur = lowest(m_strongAt, m_strong, falseAt[std::size_t(k - 1)], cur);
    path[std::size_t(2 * k - 2)] = cur;
    if (k > 1) cur = lowest(m_weakAt, m_weak, trueAt[std::size_t(k - 1)], cur);
  }
  return path;
}

/// Whether no candidate is in two nodes of the chain.
bool ChainSearch::simple(const std::vector<int>& path) const {
  std::array<CellSet, 9> used{};
  for (int i : path) {
    const Node& n = m_nodes[std::size_t(i)];
    CellSet& u = used[std::size_t(n.digit - 1)];
    if (!(u & n.where).empty()) return false;
    u = u | n.where;
  }
  return true;
}

/// One link further for every start at once: each node gets the starts that
/// reached a node linked to it at the last step, less those that reached it
/// before. Whether any start got further. `W` words per set, or any number
/// (`words`) when 0.
template <std::size_t W>
bool stepAll(std::size_t nodes, std::size_t words, const NodeRows& from, const std::vector<int>& at,
             const std::vector<int>& links, NodeRows& fresh, NodeRows& seen) {
  std::uint64_t any = 0;
  for (std::size_t v = 0; v < nodes; ++v) {
    std::uint64_t* out = fresh[v];
    std::uint64_t* before = seen[v];
    if constexpr (W == 0) {
      for (std::size_t w = 0; w < words; ++w) {
        std::uint64_t reached = 0;
        for (int k = at[v]; k < at[v + 1]; ++k) reached |= from[std::size_t(links[std::size_t(k)])][w];
        out[w] = reached & ~before[w];
        before[w] |= out[w];
        any |= out[w];
      }
    } else {
      // Rows W words apart: a link's row is found without a multiplication.
      const std::uint64_t* rows = from[0];
      std::array<std::uint64_t, W> reached{};
      const int* link = links.data() + at[v];
      for (const int* end = links.data() + at[v + 1]; link != end; ++link) {
        const std::uint64_t* in = rows + std::size_t(*link) * W;
        for (std::size_t w = 0; w < W; ++w) reached[w] |= in[w];
      }
      for (std::size_t w = 0; w < W; ++w) {
        out[w] = reached[w] & ~before[w];
        before[w] |= out[w];
        any |= out[w];
      }
    }
  }
  return any != 0;
}

bool ChainSearch::step(const NodeRows& from, const std::vector<int>& at, const std::vector<int>& links, NodeRows& fresh,
                       NodeRows& seen) const {
  const std::size_t n = m_nodes.size();
  switch (m_words) {
    case 1: return stepAll<1>(n, 1, from, at, links, fresh, seen);
    case 2: return stepAll<2>(n, 2, from, at, links, fresh, seen);
    case 3: return stepAll<3>(n, 3, from, at, links, fresh, seen);
    case 4: return stepAll<4>(n, 4, from, at, links, fresh, seen);
    default: return stepAll<0>(n, m_words, from, at, links, fresh, seen);
  }
}

std::optional<TechniqueStep> ChainSearch::find(Technique technique, int minNodes, int maxNodes) {
  const std::size_t n = m_nodes.size(), words = m_words;
  // Per node: the starts that have reached it true / false, and (for the
  // trace) those that first reached it after k strong / k weak links.
  NodeRows& seenTrue = m_work.seenTrue;
  NodeRows& seenFalse = m_work.seenFalse;
  seenTrue.reset(n, words);
  seenFalse.reset(n, words);
  std::vector<NodeRows>& trueAt = m_work.trueAt;
  std::vector<NodeRows>& falseAt = m_work.falseAt;
  if (trueAt.size() < std::size_t(maxNodes / 2 + 1)) {
    trueAt.resize(std::size_t(maxNodes / 2 + 1));
    falseAt.resize(std::size_t(maxNodes / 2 + 1));
  }
  falseAt[0].reset(n, words);
  for (std::size_t i = 0; i < n; ++i) addBit(seenFalse[i], i), addBit(falseAt[0][i], i);
  m_partners.reset(n, words, false);
  m_partnersKnown.assign(n, 0);
  std::vector<std::pair<int, int>>& hits = m_work.hits;
  for (int nodes = 2; nodes <= maxNodes; nodes += 2) {
    const auto k = std::size_t(nodes / 2);
    const NodeRows& newTrue = trueAt[k];
    trueAt[k].reset(n, words, false);
    const bool any = step(falseAt[k - 1], m_strongAt, m_strong, trueAt[k], seenTrue);
    if (!any) break;
    if (nodes >= minNodes) {
      hits.clear();
      // A chain and its reverse are found together: keep the one from the lower end.
      for (std::size_t e = 0; e < n; ++e) {
        const std::uint64_t* reached = newTrue[e];
        const std::size_t last = e / 64;  // the starts below e: words before e's, and the low bits of e's
        const std::uint64_t lowBits = (std::uint64_t(1) << (e % 64)) - 1;
        std::uint64_t below = reached[last] & lowBits;
        for (std::size_t w = 0; w < last; ++w) below |= reached[w];
        if (!below) continue;
        const std::uint64_t* partner = partners(int(e));
        for (std::size_t w = 0; w <= last; ++w) {
          std::uint64_t bits = reached[w] & partner[w] & (w == last ? lowBits : ~std::uint64_t(0));
          for (; bits; bits &= bits - 1) hits.emplace_back(int(w * 64) + std::countr_zero(bits), int(e));
        }
      }
      std::sort(hits.begin(), hits.end());
      for (const auto& [s, e] : hits) {
        std::vector<int> path = trace(s, e, nodes, trueAt, falseAt);
        if (!simple(path)) continue;
        TechniqueStep step;
        step.technique = technique;
        for (int i : path) {
          const Node& node = m_nodes[std::size_t(i)];
          step.chain.push_back({std::vector<int>(node.cells.begin(), node.cells.begin() + node.size), node.digit});
        }
        step.digits = std::uint16_t(bitOf(step.chain.front().digit) | bitOf(step.chain.back().digit));
        step.eliminations = removals(s, e);
        return step;
      }
    }
    if (nodes + 2 > maxNodes) break;
    falseAt[k].reset(n, words, false);
    step(trueAt[k], m_weakAt, m_weak, falseAt[k], seenFalse);
  }
  return std::nullopt;
}

// The longest chains looked for (in nodes; an XY-Chain has two per cell). Past
// about twelve nodes the search has mostly reached all it can, so the bound
// costs little; it keeps the chains within what a reader can follow.
constexpr int kMaxXChain = 16;
constexpr int kMaxXYChain = 16;
constexpr int kMaxAic = 16;

/// A search with the buffers of the context's FinderWork, or its own.
std::optional<TechniqueStep> findChain(const TechniqueContext& ctx, ChainKind kind, Technique technique, int minNodes,
                                       int maxNodes) {
  if (FinderWork* work = ctx.work()) return ChainSearch(ctx, kind, work->chains()).find(technique, minNodes, maxNodes);
  ChainWork own;
  return ChainSearch(ctx, kind, own).find(technique, minNodes, maxNodes);
}

}  // namespace

std::optional<TechniqueStep> findXChain(const TechniqueContext& ctx) {
  return findChain(ctx, ChainKind::X, Technique::XChain, 4, kMaxXChain);
}

std::optional<TechniqueStep> findXYChain(const TechniqueContext& ctx) {
  // Three bivalue cells at least (six nodes): two would be a naked pair.
  return findChain(ctx, ChainKind::XY, Technique::XYChain, 6, kMaxXYChain);
}

std::optional<TechniqueStep> findAIC(const TechniqueContext& ctx) {
  return findChain(ctx, ChainKind::Alternating, Technique::AIC, 4, kMaxAic);
}

}  // namespace tessaly
