#include "solver/SolutionCounter.h"

#include <array>
#include <bit>
#include <cstdint>
#include <optional>

#include "solver/BitGrid.h"

namespace tessaly {

namespace {

using namespace bitgrid;

// One node of the search: the candidates of every cell and how many cells hold
// a single candidate whose digit has been removed from its peers.
struct Node {
  Cands cand{};
  int placed = 0;
};

class Search {
 public:
  Search(int limit, std::string* firstSolution) : m_limit(limit), m_first(firstSolution) {}
  int found() const { return m_found; }

  // Places the queued singles, then the hidden singles, until nothing changes;
  // false on a contradiction.
  bool settle(Node& node, SingleQueue& queue) {
    for (;;) {
      while (queue.size > 0) {
        const int cell = queue.pop();
        ++node.placed;
        if (!takeFromPeers(node.cand, cell, node.cand[std::size_t(cell)], queue)) return false;
      }
      if (node.placed == kCellCount) return true;
      for (const auto& area : kAreas) {
        std::uint16_t once = 0, twice = 0;
        for (std::uint8_t cell : area) {
          const std::uint16_t set = node.cand[cell];
          twice |= once & set;
          once |= set;
        }
        if (once != kAll) return false;  // a digit with no place left in the area
        const std::uint16_t hidden = once & ~twice;
        if (!hidden) continue;
        for (std::uint8_t cell : area) {
          const std::uint16_t set = node.cand[cell];
          const std::uint16_t mine = set & hidden;
          if (!mine || single(set)) continue;
          if (!single(mine)) return false;  // two digits that each need this cell
          node.cand[cell] = mine;
          queue.push(cell);
        }
      }
      if (queue.size == 0) return true;
    }
  }

  void run(Node& node) {
    if (node.placed == kCellCount) {
      if (++m_found == 1 && m_first) {
        m_first->assign(kCellCount, '0');
        for (int c = 0; c < kCellCount; ++c)
          (*m_first)[std::size_t(c)] = char('0' + std::countr_zero(node.cand[std::size_t(c)]) + 1);
      }
      return;
    }
    // The open cell with the fewest candidates, the first such in cell order.
    int best = -1, bestCount = 10;
    for (int c = 0; c < kCellCount; ++c) {
      const std::uint16_t set = node.cand[std::size_t(c)];
      if (single(set)) continue;
      const int n = count(set);
      if (n < bestCount) {
        best = c;
        bestCount = n;
        if (n == 2) break;
      }
    }
    for (std::uint16_t mask = node.cand[std::size_t(best)]; mask != 0 && m_found < m_limit; mask &= mask - 1) {
      Node child = node;
      child.cand[std::size_t(best)] = std::uint16_t(mask & (~mask + 1u));
      SingleQueue queue;
      queue.push(best);
      if (settle(child, queue)) run(child);
    }
  }

 private:
  int m_limit;
  std::string* m_first;
  int m_found = 0;
};

}  // namespace

int countSolutions(std::string_view puzzle81, int limit) { return countSolutions(puzzle81, limit, nullptr); }

namespace {
// Counts from the given candidates; the cells with one candidate are placed.
int countFrom(const Cands& start, int limit, std::string* firstSolution) {
  Node node;
  node.cand = start;
  SingleQueue queue;
  for (int c = 0; c < kCellCount; ++c)
    if (single(start[std::size_t(c)])) queue.push(c);
  Search search(limit, firstSolution);
  if (search.settle(node, queue)) search.run(node);
  return search.found();
}

// The candidates of a puzzle's cells before any search: a given's digit, or all nine.
std::optional<Cands> startOf(std::string_view puzzle81) {
  const auto values = givens(puzzle81);
  if (!values) return std::nullopt;
  Cands start;
  for (int c = 0; c < kCellCount; ++c) {
    const int v = (*values)[std::size_t(c)];
    start[std::size_t(c)] = v ? bitOf(v) : kAll;
  }
  return start;
}
}  // namespace

int countSolutions(std::string_view puzzle81, int limit, std::string* firstSolution) {
  if (limit <= 0) return 0;
  const auto start = startOf(puzzle81);
  return start ? countFrom(*start, limit, firstSolution) : 0;
}

bool hasOtherSolution(std::string_view puzzle81, std::string_view solution, std::initializer_list<int> cells) {
  auto start = startOf(puzzle81);
  if (!start) return false;
  for (const int cell : cells) {
    const std::uint16_t known = bitOf(solution[std::size_t(cell)] - '0');
    Cands differing = *start;
    differing[std::size_t(cell)] = std::uint16_t(kAll & ~known);
    if (countFrom(differing, 1, nullptr) > 0) return true;
    // The next cell's search looks only among solutions that agree here.
    (*start)[std::size_t(cell)] = known;
  }
  return false;
}

}  // namespace tessaly
