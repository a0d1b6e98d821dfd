#include "solver/Grader.h"

#include <algorithm>
#include <bit>

#include "solver/BitGrid.h"

namespace tessaly {

namespace {

using namespace bitgrid;

// Every rule looks at the grid as it stood when the rule began and makes all
// its removals at once, so a rule's findings never depend on the order in
// which the areas are visited: a puzzle turned, mirrored or with its digits
// renamed is solved by the same steps until the first guess.
struct Node {
  Cands cand{};
  std::array<bool, kCellCount> placed{};  ///< single candidate already removed from the peers
  int open = kCellCount;                  ///< cells not yet placed
};

enum class State { Open, Solved, Broken };

State stateOf(const Node& node) {
  for (std::uint16_t set : node.cand)
    if (set == 0) return State::Broken;
  for (const auto& area : kAreas) {
    std::uint16_t all = 0;
    for (std::uint8_t cell : area) all |= node.cand[cell];
    if (all != kAll) return State::Broken;
  }
  return node.open == 0 ? State::Solved : State::Open;
}

// Rule 1: every single candidate not yet placed is placed, and its digit leaves
// the cell's peers.
bool placeSingles(Node& node) {
  std::array<std::uint16_t, kCellCount> removed{};
  bool any = false;
  for (int c = 0; c < kCellCount; ++c) {
    const std::uint16_t set = node.cand[std::size_t(c)];
    if (node.placed[std::size_t(c)] || !single(set)) continue;
    any = true;
    node.placed[std::size_t(c)] = true;
    --node.open;
    for (std::uint8_t peer : kPeers[std::size_t(c)]) removed[peer] |= set;
  }
  for (int c = 0; c < kCellCount; ++c) node.cand[std::size_t(c)] &= std::uint16_t(~removed[std::size_t(c)]);
  return any;
}

bool applyRemovals(Node& node, const std::array<std::uint16_t, kCellCount>& removed) {
  bool any = false;
  for (int c = 0; c < kCellCount; ++c) {
    std::uint16_t& set = node.cand[std::size_t(c)];
    if (set & removed[std::size_t(c)]) {
      set &= std::uint16_t(~removed[std::size_t(c)]);
      any = true;
    }
  }
  return any;
}

// Rule 5: a digit that is a candidate of only one cell of an area goes there.
bool hiddenSingles(Node& node) {
  std::array<std::uint16_t, kCellCount> keep;
  keep.fill(kAll);
  for (const auto& area : kAreas) {
    std::uint16_t once = 0, twice = 0;
    for (std::uint8_t cell : area) {
      twice |= once & node.cand[cell];
      once |= node.cand[cell];
    }
    const std::uint16_t hidden = once & ~twice;
    if (!hidden) continue;
    for (std::uint8_t cell : area) {
      const std::uint16_t set = node.cand[cell];
      if (!single(set) && (set & hidden)) keep[cell] &= set & hidden;
    }
  }
  std::array<std::uint16_t, kCellCount> removed{};
  for (int c = 0; c < kCellCount; ++c) {
    const std::uint16_t k = keep[std::size_t(c)];
    // Two digits that each need this cell leave it without a candidate.
    removed[std::size_t(c)] = single(k) || k == kAll ? std::uint16_t(~k & kAll) : kAll;
  }
  return applyRemovals(node, removed);
}

// Rule 2: a digit whose places in a box all lie in one row (or column) leaves
// the rest of that row (or column) outside the box.
bool boxConfinedToLine(Node& node) {
  std::array<std::uint16_t, kCellCount> removed{};
  for (int b = 0; b < 9; ++b) {
    const auto& box = kAreas[std::size_t(18 + b)];
    for (int d = 1; d <= 9; ++d) {
      const std::uint16_t bit = bitOf(d);
      unsigned rows = 0, cols = 0;
      for (std::uint8_t cell : box)
        if (!single(node.cand[cell]) && (node.cand[cell] & bit)) {
          rows |= 1u << rowOf(cell);
          cols |= 1u << colOf(cell);
        }
      for (int part = 0; part < 2; ++part) {
        const unsigned lines = part == 0 ? rows : cols;
        if (lines == 0 || (lines & (lines - 1)) != 0) continue;
        const int line = std::countr_zero(lines);
        for (std::uint8_t cell : kAreas[std::size_t(part * 9 + line)])
          if (boxOf(cell) != b) removed[cell] |= bit;
      }
    }
  }
  return applyRemovals(node, removed);
}

// Rule 4: a digit whose places in a row (or column) all lie in one box leaves
// the other cells of that box.
bool lineConfinedToBox(Node& node) {
  std::array<std::uint16_t, kCellCount> removed{};
  for (int a = 0; a < 18; ++a) {
    const auto& line = kAreas[std::size_t(a)];
    for (int d = 1; d <= 9; ++d) {
      const std::uint16_t bit = bitOf(d);
      unsigned boxes = 0;
      for (std::uint8_t cell : line)
        if (node.cand[cell] & bit) boxes |= 1u << boxOf(cell);
      if (boxes == 0 || (boxes & (boxes - 1)) != 0) continue;
      for (std::uint8_t cell : kAreas[std::size_t(18 + std::countr_zero(boxes))]) {
        const bool onLine = a < 9 ? rowOf(cell) == a : colOf(cell) == a - 9;
        if (!onLine && !single(node.cand[cell])) removed[cell] |= bit;
      }
    }
  }
  return applyRemovals(node, removed);
}

// Rule 3: two cells of an area with the same two candidates take those two
// digits from every other cell of the area.
bool pairs(Node& node) {
  std::array<std::uint16_t, kCellCount> removed{};
  for (const auto& area : kAreas)
    for (int i = 0; i < 9; ++i) {
      const std::uint16_t pair = node.cand[area[std::size_t(i)]];
      if (count(pair) != 2) continue;
      for (int j = i + 1; j < 9; ++j) {
        if (node.cand[area[std::size_t(j)]] != pair) continue;
        for (int k = 0; k < 9; ++k)
          if (k != i && k != j) removed[area[std::size_t(k)]] |= pair;
      }
    }
  return applyRemovals(node, removed);
}

// Rule 6, as the program applies it: when exactly n cells of an area have n
// candidates (n from 2 to 5) and all n sets are the same, those n digits leave
// every other open cell of the area.
bool groups(Node& node) {
  std::array<std::uint16_t, kCellCount> removed{};
  for (const auto& area : kAreas) {
    for (int n = 2; n <= 5; ++n) {
      int cells = 0;
      std::uint16_t group = 0;
      bool same = true;
      for (std::uint8_t cell : area) {
        const std::uint16_t set = node.cand[cell];
        if (count(set) != n) continue;
        if (cells++ == 0)
          group = set;
        else if (set != group)
          same = false;
      }
      if (cells != n || !same) continue;
      for (std::uint8_t cell : area) {
        const std::uint16_t set = node.cand[cell];
        if (count(set) >= 2 && set != group) removed[cell] |= group;
      }
    }
  }
  return applyRemovals(node, removed);
}

bool applyRule(int rule, Node& node) {
  switch (rule) {
    case 1: return placeSingles(node);
    case 2: return boxConfinedToLine(node);
    case 3: return pairs(node);
    case 4: return lineConfinedToBox(node);
    case 5: return hiddenSingles(node);
    case 6: return groups(node);
    default: return false;
  }
}

// The search behind the rules. Every branch of every guess is followed, also
// after the solution was found, so the guess count is the size of the whole
// search tree and does not depend on the order in which the digits are tried;
// a second solution ends the search.
class Grading {
 public:
  int guesses = 0;
  int solutions = 0;
  Node solution;
  int solutionHardest = 0;

  void solve(Node& node, int hardest) {
    for (;;) {
      const State state = stateOf(node);
      if (state == State::Broken) return;
      if (state == State::Solved) {
        if (++solutions == 1) {
          solution = node;
          solutionHardest = hardest;
        }
        return;
      }
      bool progress = false;
      for (std::size_t i = 0; i < kGradingRuleOrder.size() && !progress; ++i)
        if (applyRule(kGradingRuleOrder[i], node)) {
          progress = true;
          hardest = std::max(hardest, int(i));
        }
      if (!progress) break;
    }
    // No rule helps: guess at the open cell with the fewest candidates, the
    // first such in cell order.
    int best = -1, bestCount = 10;
    for (int c = 0; c < kCellCount; ++c) {
      const int n = count(node.cand[std::size_t(c)]);
      if (n >= 2 && n < bestCount) {
        best = c;
        bestCount = n;
      }
    }
    for (std::uint16_t mask = node.cand[std::size_t(best)]; mask != 0 && solutions < 2; mask &= mask - 1) {
      ++guesses;
      Node child = node;
      child.cand[std::size_t(best)] = std::uint16_t(mask & (~mask + 1u));
      solve(child, hardest);
    }
  }
};

constexpr std::array<std::string_view, kGradeCount> kGradeNames = {"Easy", "Moderate", "Hard", "Fiendish",
                                                                   "Diabolical"};
constexpr std::array<std::string_view, kGradeCount> kGradeMeanings = {
    "Singles solve it: Rule 1 places the cells with one candidate and Rule 5 the digits with one place left in "
    "an area.",
    "No guess is needed, but Rule 2, 3, 4 or 6 must remove candidates before the singles can finish it.",
    "The six rules get stuck, and one guess between two candidates settles it (at most two guesses in all).",
    "The rules need help from three to six guesses in all, counting every branch of every guess.",
    "More than six guesses are needed: the six rules leave much of the work to trial and error.",
};

}  // namespace

int gradeFor(int hardestRule, int guesses) {
  if (hardestRule < 1 || hardestRule > 6) return 0;
  if (guesses == 0) return hardestRule == 1 || hardestRule == 5 ? 1 : 2;
  if (guesses <= kHardGuesses) return 3;
  if (guesses <= kFiendishGuesses) return 4;
  return 5;
}

PuzzleGrade gradePuzzle(std::string_view puzzle81) {
  PuzzleGrade result;
  const auto values = givens(puzzle81);
  if (!values) return result;
  Node node;
  for (int c = 0; c < kCellCount; ++c) {
    const int v = (*values)[std::size_t(c)];
    node.cand[std::size_t(c)] = v ? bitOf(v) : kAll;
  }
  Grading grading;
  grading.solve(node, 0);
  if (grading.solutions == 0) return result;
  node = grading.solution;
  result.hardestRule = kGradingRuleOrder[std::size_t(grading.solutionHardest)];
  result.guesses = grading.guesses;
  result.grade = gradeFor(result.hardestRule, result.guesses);
  result.solution.resize(kCellCount);
  for (int c = 0; c < kCellCount; ++c)
    result.solution[std::size_t(c)] = char('0' + std::countr_zero(node.cand[std::size_t(c)]) + 1);
  return result;
}

std::string_view gradeName(int grade) { return grade >= 1 && grade <= kGradeCount ? kGradeNames[std::size_t(grade - 1)] : "-"; }

std::string_view gradeMeaning(int grade) {
  return grade >= 1 && grade <= kGradeCount ? kGradeMeanings[std::size_t(grade - 1)] : "";
}

}  // namespace tessaly
