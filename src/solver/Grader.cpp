#include "solver/Grader.h"

#include <algorithm>
#include <bit>

#include "solver/BitGrid.h"
#include "solver/SolutionCounter.h"
#include "solver/Techniques.h"

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

// True when every digit still has a place in every area.
bool areasCovered(const Node& node) {
  for (const auto& area : kAreas) {
    std::uint16_t all = 0;
    for (std::uint8_t cell : area) all |= node.cand[cell];
    if (all != kAll) return false;
  }
  return true;
}

// Rule 1, repeated until it finds nothing more: every single candidate not yet
// placed is placed and its digit leaves the cell's peers. Placing them one at a
// time reaches the same grid as placing each round's singles together, since
// a removal never brings a candidate back. False when a cell is left without a
// candidate.
bool placeSingles(Node& node) {
  SingleQueue queue;
  for (int c = 0; c < kCellCount; ++c) {
    const std::uint16_t set = node.cand[std::size_t(c)];
    if (set == 0) return false;
    if (!node.placed[std::size_t(c)] && single(set)) queue.push(c);
  }
  while (queue.size > 0) {
    const int cell = queue.pop();
    node.placed[std::size_t(cell)] = true;
    --node.open;
    if (!takeFromPeers(node.cand, cell, node.cand[std::size_t(cell)], queue)) return false;
  }
  return true;
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
// the rest of that row (or column) outside the box. Worked for all nine digits
// at once: a digit confined to one of the box's three row pieces is in that
// piece's set and in neither of the other two.
bool boxConfinedToLine(Node& node) {
  std::array<std::uint16_t, kCellCount> removed{};
  for (int b = 0; b < 9; ++b) {
    const int top = (b / 3) * 3, left = (b % 3) * 3;
    std::array<std::uint16_t, 3> rows{}, cols{};
    for (int i = 0; i < 3; ++i)
      for (int j = 0; j < 3; ++j) {
        const std::uint16_t set = node.cand[std::size_t((top + i) * 9 + left + j)];
        if (single(set)) continue;
        rows[std::size_t(i)] |= set;
        cols[std::size_t(j)] |= set;
      }
    for (int i = 0; i < 3; ++i) {
      const std::uint16_t inRow = rows[std::size_t(i)] & ~(rows[std::size_t((i + 1) % 3)] | rows[std::size_t((i + 2) % 3)]);
      const std::uint16_t inCol = cols[std::size_t(i)] & ~(cols[std::size_t((i + 1) % 3)] | cols[std::size_t((i + 2) % 3)]);
      for (int k = 0; k < 9; ++k) {
        if (k / 3 == b % 3) continue;
        removed[std::size_t((top + i) * 9 + k)] |= inRow;
      }
      for (int k = 0; k < 9; ++k) {
        if (k / 3 == b / 3) continue;
        removed[std::size_t(k * 9 + left + i)] |= inCol;
      }
    }
  }
  return applyRemovals(node, removed);
}

// Rule 4: a digit whose places in a row (or column) all lie in one box leaves
// the other open cells of that box. All nine digits at once, by the line's
// three pieces as in Rule 2.
bool lineConfinedToBox(Node& node) {
  std::array<std::uint16_t, kCellCount> removed{};
  for (int a = 0; a < 18; ++a) {
    const auto& line = kAreas[std::size_t(a)];
    std::array<std::uint16_t, 3> pieces{};
    for (int k = 0; k < 9; ++k) pieces[std::size_t(k / 3)] |= node.cand[line[std::size_t(k)]];
    for (int p = 0; p < 3; ++p) {
      const std::uint16_t confined =
          pieces[std::size_t(p)] & ~(pieces[std::size_t((p + 1) % 3)] | pieces[std::size_t((p + 2) % 3)]);
      if (!confined) continue;
      for (std::uint8_t cell : kAreas[std::size_t(18 + boxOf(line[std::size_t(p * 3)]))]) {
        const bool onLine = a < 9 ? rowOf(cell) == a : colOf(cell) == a - 9;
        if (!onLine && !single(node.cand[cell])) removed[cell] |= confined;
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
  TechniqueSet techniques = TechniqueSet::rulesOnly();
  bool uniqueSolution = false;
  int guesses = 0;
  int solutions = 0;
  Node solution;
  int solutionHardest = 0;

  void solve(Node& node, int hardest) {
    for (;;) {
      // Rule 1 comes first each time; the other rules only when it is done.
      if (!placeSingles(node)) return;
      if (node.open == 0) {
        if (++solutions == 1) {
          solution = node;
          solutionHardest = hardest;
        }
        return;
      }
      if (!areasCovered(node)) return;
      bool progress = false;
      for (std::size_t i = 1; i < kGradingRuleOrder.size() && !progress; ++i)
        if (applyRule(kGradingRuleOrder[i], node)) {
          progress = true;
          hardest = std::max(hardest, int(i));
        }
      if (!progress && techniques.any()) progress = applyFurtherTechnique(node, hardest);
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
    if (best < 0) return;
    for (std::uint16_t mask = node.cand[std::size_t(best)]; mask != 0 && solutions < 2; mask &= mask - 1) {
      ++guesses;
      Node child = node;
      child.cand[std::size_t(best)] = std::uint16_t(mask & (~mask + 1u));
      solve(child, hardest);
    }
  }

 private:
  // The easiest further technique that finds something, applied to the node;
  // `hardest` (an index of the technique table, whose first rows are the six
  // rules in the grading order) rises to it.
  bool applyFurtherTechnique(Node& node, int& hardest) const {
    TechniqueBoard board;
    board.uniqueSolution = uniqueSolution;
    for (int c = 0; c < kCellCount; ++c) {
      const std::uint16_t set = node.cand[std::size_t(c)];
      if (node.placed[std::size_t(c)])
        board.value[std::size_t(c)] = std::uint8_t(std::countr_zero(set) + 1);
      else
        board.cand[std::size_t(c)] = set;
    }
    const std::optional<TechniqueStep> step = findEasiestStep(board, techniques);
    if (!step) return false;
    for (const Candidate& e : step->eliminations) node.cand[std::size_t(e.cell)] &= std::uint16_t(~bitOf(e.digit));
    for (const Candidate& p : step->placements) node.cand[std::size_t(p.cell)] = bitOf(p.digit);
    hardest = std::max(hardest, int(step->technique));
    return true;
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

int gradeForTechnique(Technique hardest, int guesses) {
  if (guesses > 0) return kGradeCount;
  return techniqueInfo(hardest).grade;
}

PuzzleGrade gradePuzzle(std::string_view puzzle81, TechniqueSet techniques) {
  PuzzleGrade result;
  const auto values = givens(puzzle81);
  if (!values) return result;
  Node node;
  for (int c = 0; c < kCellCount; ++c) {
    const int v = (*values)[std::size_t(c)];
    node.cand[std::size_t(c)] = v ? bitOf(v) : kAll;
  }
  Grading grading;
  grading.techniques = techniques;
  grading.uniqueSolution = techniques.any() && countSolutions(puzzle81) == 1;
  grading.solve(node, 0);
  result.solutions = std::min(grading.solutions, 2);
  if (grading.solutions == 0) return result;
  node = grading.solution;
  result.hardestTechnique = Technique(grading.solutionHardest);
  result.hardestRule = grading.solutionHardest < int(kGradingRuleOrder.size())
                           ? kGradingRuleOrder[std::size_t(grading.solutionHardest)]
                           : kGradingRuleOrder.back();
  result.guesses = grading.guesses;
  result.grade = techniques.any() ? gradeForTechnique(result.hardestTechnique, result.guesses)
                                  : gradeFor(result.hardestRule, result.guesses);
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
