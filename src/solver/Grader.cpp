#include "solver/Grader.h"

#include <algorithm>
#include <bit>

#include "solver/BitGrid.h"
#include "solver/BitRules.h"
#include "solver/SolutionCounter.h"
#include "solver/Techniques.h"

namespace tessaly {

namespace {

using namespace bitgrid;

struct Node {
  Cands cand{};
  std::array<bool, kCellCount> placed{};  ///< single candidate already removed from the peers
  int open = kCellCount;                  ///< cells not yet placed
};

// The six rules' bit forms are in BitRules.cpp.
bool placeSingles(Node& node) { return bitgrid::placeSingles(node.cand, node.placed, node.open); }
bool placeSingles(Node& node, SingleQueue& queue) {
  return bitgrid::placeQueuedSingles(node.cand, node.placed, node.open, queue);
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

  // `queue` holds the cells that have become singles since the node's grid
  // last had every single placed; with `lookEverywhere` the whole grid is
  // looked over for them instead (a new puzzle).
  void solve(Node& node, int hardest, SingleQueue& queue, bool lookEverywhere) {
    for (;;) {
      // Rule 1 comes first each time; the other rules only when it is done.
      if (!(lookEverywhere ? placeSingles(node) : placeSingles(node, queue))) return;
      lookEverywhere = false;
      if (node.open == 0) {
        if (++solutions == 1) {
          solution = node;
          solutionHardest = hardest;
        }
        return;
      }
      // A digit with no place left in an area ends the branch. The tally
      // holds while no rule has removed anything yet: every rule tried on
      // this grid reads it.
      const AreaTally tally = tallyAreas(node.cand);
      if (!tally.covered()) return;
      bool progress = false;
      queue.size = 0;
      for (std::size_t i = 1; i < kGradingRuleOrder.size() && !progress; ++i) {
        const RuleOutcome outcome = applyRule(kGradingRuleOrder[i], node.cand, tally, queue);
        if (outcome == RuleOutcome::Contradiction) return;
        if (outcome == RuleOutcome::Progress) {
          progress = true;
          hardest = std::max(hardest, int(i));
        }
      }
      if (!progress && techniques.any()) {
        progress = applyFurtherTechnique(node, hardest);
        lookEverywhere = true;
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
    if (best < 0) return;
    for (std::uint16_t mask = node.cand[std::size_t(best)]; mask != 0 && solutions < 2; mask &= mask - 1) {
      ++guesses;
      Node child = node;
      child.cand[std::size_t(best)] = std::uint16_t(mask & (~mask + 1u));
      SingleQueue guessed;
      guessed.push(best);
      solve(child, hardest, guessed, false);
    }
  }

 private:
  // The easiest further technique that finds something, applied to the node;
  // `hardest` (an index of the technique table, whose first rows are the six
  // rules in the grading order) rises to it.
  bool applyFurtherTechnique(Node& node, int& hardest) {
    TechniqueBoard board;
    board.uniqueSolution = uniqueSolution;
    for (int c = 0; c < kCellCount; ++c) {
      const std::uint16_t set = node.cand[std::size_t(c)];
      if (node.placed[std::size_t(c)])
        board.value[std::size_t(c)] = std::uint8_t(std::countr_zero(set) + 1);
      else
        board.cand[std::size_t(c)] = set;
    }
    const std::optional<TechniqueStep> step = findEasiestStep(board, techniques, false, &m_memory);
    if (!step) return false;
    for (const Candidate& e : step->eliminations) node.cand[std::size_t(e.cell)] &= std::uint16_t(~bitOf(e.digit));
    for (const Candidate& p : step->placements) node.cand[std::size_t(p.cell)] = bitOf(p.digit);
    hardest = std::max(hardest, int(step->technique));
    return true;
  }

  /// The finders' memory over all the boards of this search.
  StepMemory m_memory;
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
  SingleQueue queue;
  grading.solve(node, 0, queue, true);
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
