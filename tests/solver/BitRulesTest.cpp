// The six rules exist twice: as finders (TechRules.cpp, one instance at a
// time, for the hints) and in bit form (BitRules.cpp, every instance at once,
// for the grader). Both are held to the same eliminations on the boards a
// grading walk reaches over the technique sample and the Kaggle sample.
//
// What is compared, on the boards where the grader applies them:
// - Rule 1: placing singles until none is left, by the bit form and by
//   repeated naked-single steps, reaches the same board.
// - Rule 5 on a board B without a single left to place, and Rules 2, 4, 3
//   and 6 each on a board where Rule 5 has nothing to do either: the
//   candidates the bit form removes in its one pass equal the union of what
//   the rule's instances on B (forEachRuleInstance, whose first instance is
//   the finder's step) remove from B: their eliminations, and for a hidden
//   single the other candidates of its cell.
// Then the grader's choice is made (the first rule in its order, 1, 5, 2, 4,
// 3, 6, that removes something) and the walk goes on; where all six rules
// stall, the easiest further technique is applied, or every third time (or
// when none applies) a solution digit is revealed.

#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <fstream>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "solver/BitRules.h"
#include "solver/Grader.h"
#include "solver/SolutionCounter.h"
#include "solver/Techniques.h"
#include "support/TestSupport.h"

namespace tessaly {
namespace {

using namespace bitgrid;

using Removals = std::set<std::pair<int, int>>;  // (cell, digit)

/// The board as the finders see it: a cell with one candidate is placed when `placed` says so.
TechniqueBoard boardOf(const Cands& cand, const std::array<bool, kCellCount>& placed) {
  TechniqueBoard board;
  board.uniqueSolution = true;
  for (int c = 0; c < kCellCount; ++c) {
    const std::uint16_t set = cand[std::size_t(c)];
    if (placed[std::size_t(c)])
      board.value[std::size_t(c)] = std::uint8_t(std::countr_zero(set) + 1);
    else
      board.cand[std::size_t(c)] = set;
  }
  return board;
}

/// What an instance on board `b` removes: its eliminations; a hidden single
/// the other candidates of its cell.
Removals removesFrom(const TechniqueBoard& b, const TechniqueStep& s) {
  Removals out;
  for (const Candidate& e : s.eliminations) out.insert({e.cell, e.digit});
  for (const Candidate& p : s.placements)
    for (int d = 1; d <= 9; ++d)
      if (d != p.digit && (b.cand[std::size_t(p.cell)] & bitOf(d))) out.insert({p.cell, d});
  return out;
}

struct Tally {
  int boards = 0;     ///< boards where the rule was compared
  int removing = 0;   ///< of which the rule removed something
};

class Walk {
 public:
  std::array<Tally, 7> tally{};  ///< by rule number
  int failures = 0;

  void puzzle(const std::string& name, const std::string& puzzle) {
    std::string solution;
    if (countSolutions(puzzle, 2, &solution) != 1) return;
    Cands cand;
    std::array<bool, kCellCount> placed{};
    int open = kCellCount;
    for (int c = 0; c < kCellCount; ++c)
      cand[std::size_t(c)] = puzzle[std::size_t(c)] >= '1' && puzzle[std::size_t(c)] <= '9' ? bitOf(puzzle[std::size_t(c)] - '0') : kAll;
    for (int stall = 0, next = 0; stall < 40;) {
      if (!singles(name, cand, placed, open) || open == 0) return;
      if (rule(name, 5, cand, placed) != Cands{}) continue;
      std::array<Cands, 7> removed{};
      for (int r : {2, 4, 3, 6}) removed[std::size_t(r)] = rule(name, r, cand, placed);
      bool progress = false;
      for (std::size_t i = 2; i < kGradingRuleOrder.size() && !progress; ++i) {
        SingleQueue newSingles;
        progress = applyRemovals(cand, removed[std::size_t(kGradingRuleOrder[i])], newSingles) != RuleOutcome::Nothing;
      }
      if (progress) continue;
      ++stall;
      std::optional<TechniqueStep> step;
      if (stall % 3 != 0) step = findEasiestStep(boardOf(cand, placed), TechniqueSet::all());
      if (step) {
        for (const Candidate& e : step->eliminations) cand[std::size_t(e.cell)] &= std::uint16_t(~bitOf(e.digit));
        for (const Candidate& p : step->placements) cand[std::size_t(p.cell)] = bitOf(p.digit);
        continue;
      }
      for (int k = 0; k < kCellCount; ++k, next = (next + 37) % kCellCount)
        if (!placed[std::size_t(next)]) {
          cand[std::size_t(next)] = bitOf(solution[std::size_t(next)] - '0');
          break;
        }
    }
  }

 private:
  void fail(const std::string& name, int rule, const std::string& what) {
    if (++failures <= 10) ADD_FAILURE() << name << ", rule " << rule << ": " << what;
  }

  // Rule 1: the bit form's closure against repeated naked-single steps.
  bool singles(const std::string& name, Cands& cand, std::array<bool, kCellCount>& placed, int& open) {
    TechniqueBoard byFinder = boardOf(cand, placed);
    const bool sound = placeSingles(cand, placed, open);
    if (!sound) return false;
    ++tally[1].boards;
    int steps = 0;
    for (; auto step = findNakedSingle(byFinder); ++steps) applyStep(byFinder, *step);
    if (steps) ++tally[1].removing;
    const TechniqueBoard byBits = boardOf(cand, placed);
    if (byBits.value != byFinder.value || byBits.cand != byFinder.cand) fail(name, 1, "the boards differ");
    return true;
  }

  // Rules 2 to 6: one pass of the bit form against the finder's instances;
  // what the bit form removes (Rule 5: removed already).
  Cands rule(const std::string& name, int number, Cands& cand, const std::array<bool, kCellCount>& placed) {
    const TechniqueBoard board = boardOf(cand, placed);
    Cands removed = ruleRemovals(number, cand);
    for (int c = 0; c < kCellCount; ++c) removed[std::size_t(c)] &= cand[std::size_t(c)];
    Removals byBits;
    for (int c = 0; c < kCellCount; ++c)
      for (int d = 1; d <= 9; ++d)
        if (removed[std::size_t(c)] & bitOf(d)) byBits.insert({c, d});

    Removals byFinder;
    forEachRuleInstance(kRules[std::size_t(number - 1)], board, [&](const TechniqueStep& step) {
      const Removals r = removesFrom(board, step);
      byFinder.insert(r.begin(), r.end());
      return false;
    });
    ++tally[std::size_t(number)].boards;
    if (!byBits.empty()) ++tally[std::size_t(number)].removing;
    if (byBits != byFinder) {
      std::string what = "bit form removes";
      for (const auto& [c, d] : byBits) what += " " + std::to_string(c) + ":" + std::to_string(d);
      what += "; finder";
      for (const auto& [c, d] : byFinder) what += " " + std::to_string(c) + ":" + std::to_string(d);
      fail(name, number, what);
    }
    if (number == 5) {
      SingleQueue newSingles;
      applyRemovals(cand, removed, newSingles);
    }
    return removed;
  }

  /// The finders' techniques by rule number.
  static constexpr std::array<Technique, 6> kRules = {Technique::Rule1, Technique::Rule2, Technique::Rule3,
                                                      Technique::Rule4, Technique::Rule5, Technique::Rule6};
};

TEST(BitRules, BitFormsRemoveWhatTheFindersFindOnEveryBoardOfAGradingWalk) {
  Walk walk;
  for (const char* set : {"techniques-sample.txt", "kaggle3m_sample200.txt"}) {
    std::ifstream in(test::puzzleFile(set));
    int n = 0;
    for (std::string line; std::getline(in, line);)
      if (line.size() >= 81) walk.puzzle(std::string(set) + ":" + std::to_string(++n), line.substr(0, 81));
  }
  EXPECT_EQ(walk.failures, 0);
  // Every rule is compared on thousands of boards, hundreds of them where it removes something.
  for (int rule = 1; rule <= 6; ++rule) {
    SCOPED_TRACE("rule " + std::to_string(rule));
    EXPECT_GE(walk.tally[std::size_t(rule)].boards, 1000);
    EXPECT_GE(walk.tally[std::size_t(rule)].removing, 100);
  }
}

}  // namespace
}  // namespace tessaly
