// The coach's verdicts over whole games: the solutions of the 200 puzzles of
// kaggle3m_sample200.txt played in a shuffled order (a fixed seed), each
// forced verdict's technique applied alone to the board before the move to
// see it place the digit, and one wrong digit per puzzle called wrong.

#include <gtest/gtest.h>

#include <bit>
#include <fstream>
#include <random>

#include "play/Coach.h"
#include "solver/BitGrid.h"
#include "solver/SolutionCounter.h"
#include "support/TestSupport.h"

namespace tessaly {
namespace {

using namespace bitgrid;

std::vector<std::string> samplePuzzles() {
  std::ifstream in(test::puzzleFile("kaggle3m_sample200.txt"));
  std::vector<std::string> puzzles;
  for (std::string line; std::getline(in, line);)
    if (line.size() >= 81) puzzles.push_back(line.substr(0, 81));
  return puzzles;
}

/// Digit d's places in area a of the board.
int places(const TechniqueBoard& board, int area, int d) {
  int n = 0;
  for (std::uint8_t c : kAreas[std::size_t(area)]) n += (board.cand[c] & bitOf(d)) ? 1 : 0;
  return n;
}

/// Whether the board, as it stands, forces d into cell c (0..80): placed, its
/// only candidate, or its only place in one of its areas.
bool forcesHere(const TechniqueBoard& board, int c, int d) {
  if (board.value[std::size_t(c)] == d) return true;
  if (!(board.cand[std::size_t(c)] & bitOf(d))) return false;
  if (board.cand[std::size_t(c)] == bitOf(d)) return true;
  for (int area : {rowArea(c), colArea(c), boxArea(c)})
    if (places(board, area, d) == 1) return true;
  return false;
}

/// The technique alone: one instance of a rule, or one instance its row's
/// finder (the row before for a variant that row finds) gives on the whole
/// board, on one digit, in one area or bearing on one candidate, then what
/// the board forces.
bool techniqueForces(const TechniqueBoard& board, Technique t, int c, int d) {
  if (t == Technique::Rule1) return board.cand[std::size_t(c)] == bitOf(d);
  if (t == Technique::Rule5) {
    for (int area : {rowArea(c), colArea(c), boxArea(c)})
      if ((board.cand[std::size_t(c)] & bitOf(d)) && places(board, area, d) == 1) return true;
    return false;
  }
  if (int(t) < kRuleCount) {
    // A rule: any of its instances on the board.
    bool forces = false;
    forEachRuleInstance(t, board, [&](const TechniqueStep& step) {
      TechniqueBoard after = board;
      applyStep(after, step);
      return forces = forcesHere(after, c, d);
    });
    return forces;
  }
  const TechniqueInfo* row = &techniqueInfo(t);
  if (!row->find) row = &techniqueInfo(Technique(int(t) - 1));
  TechniqueContext whole(board);
  std::vector<TechniqueContext> looks{whole};
  for (int digit = 0; digit < 9; ++digit) {
    looks.push_back(whole);
    looks.back().lookAtDigits(std::uint16_t(1u << digit));
  }
  for (int area = 0; area < 27; ++area) {
    looks.push_back(whole);
    looks.back().lookAtAreas(1u << area);
  }
  // A finder that looks at the whole board: its first instance bearing on
  // one candidate whose removal could leave d alone in c or in an area of c.
  if (techniqueScope(row->id) == TechniqueScope::Board)
    for (int digit = 1; digit <= 9; ++digit) {
      const CellSet cells = digit == d ? kPeerSets[std::size_t(c)] : CellSet::of(c);
      cells.forEach([&](int p) {
        std::array<CellSet, 9> one{};
        one[std::size_t(digit - 1)].add(p);
        looks.push_back(whole);
        looks.back().singleOut(one);
      });
    }
  for (const TechniqueContext& look : looks) {
    const std::optional<TechniqueStep> step = row->find(look);
    if (!step || step->technique != t) continue;
    TechniqueBoard after = board;
    applyStep(after, *step);
    if (forcesHere(after, c, d)) return true;
  }
  return false;
}

struct Tally {
  int forced = 0, lucky = 0, wrong = 0;
};

Tally playAll(TechniqueSet techniques, std::size_t count) {
  const std::vector<std::string> puzzles = samplePuzzles();
  EXPECT_EQ(puzzles.size(), 200u);
  std::mt19937 random(20240527);
  Tally tally;
  for (std::size_t k = 0; k < puzzles.size() && k < count; ++k) {
    SCOPED_TRACE(puzzles[k]);
    SolutionInfo solution;
    solution.count = countSolutions(puzzles[k], 2, &solution.digits);
    EXPECT_TRUE(solution.unique());
    Position p;
    std::vector<int> open;
    for (int c = 1; c <= kCells; ++c) {
      p.value[std::size_t(c)] = digitValue(puzzles[k][std::size_t(c - 1)]);
      if (!p.value[std::size_t(c)]) open.push_back(c);
    }
    for (std::size_t i = open.size(); i > 1; --i) std::swap(open[i - 1], open[random() % i]);
    const std::size_t wrongAt = random() % (open.size() / 2);
    bool wrongPlayed = false;
    for (std::size_t i = 0; i < open.size(); ++i) {
      const int cell = open[i];
      const int digit = solution.at(cell);
      const TechniqueBoard board = playerBoard(p, true);
      if (i >= wrongAt && !wrongPlayed) {
        // A wrong digit the board still allows (the window takes it), in a
        // cell drawn from those still open that have another candidate.
        std::vector<int> choices;
        for (std::size_t j = i; j < open.size(); ++j)
          if (board.cand[std::size_t(open[j] - 1)] & std::uint16_t(~bitOf(solution.at(open[j]))))
            choices.push_back(open[j]);
        if (!choices.empty()) {
          const int at = choices[random() % choices.size()];
          const int bad =
              std::countr_zero(std::uint16_t(board.cand[std::size_t(at - 1)] & ~bitOf(solution.at(at)))) + 1;
          const Verdict v = judgePlacement(p, at, bad, solution, {techniques, true});
          EXPECT_EQ(v.line(), (HintLine{HintKind::Verdict, at, bad,
                                        "This " + std::to_string(bad) + " is not in the solution"}));
          ++tally.wrong;
          wrongPlayed = true;
        }
      }
      const Verdict v = judgePlacement(p, cell, digit, solution, {techniques, true});
      if (v.kind == VerdictKind::Forced) {
        ++tally.forced;
        EXPECT_TRUE(v.technique && techniques.has(*v.technique));
        EXPECT_TRUE(v.technique && techniqueForces(board, *v.technique, cell - 1, digit))
            << v.text << " (cell " << cell << ")";
      } else {
        EXPECT_EQ(v.kind, VerdictKind::Lucky) << v.text;
        // A lucky move is one no technique turned on forces, wherever on the
        // board a rule's instance stands, on whichever digit or in whichever
        // area a further technique's stands.
        // (Every finder tried so many ways is slow: the further techniques
        // are checked on the first 10 puzzles.)
        for (const TechniqueInfo& t : kTechniques)
          EXPECT_FALSE(t.find && techniques.has(t.id) && (int(t.id) < kRuleCount || k < 10) &&
                       techniqueForces(board, t.id, cell - 1, digit))
              << "called lucky, but " << t.name << " forces " << digit << " in cell " << cell;
        ++tally.lucky;
      }
      p.value[std::size_t(cell)] = digit;
    }
  }
  return tally;
}

TEST(CoachSoundness, EveryForcedVerdictIsForcedByItsTechniqueAndEveryWrongDigitIsCalledWrong) {
  const Tally six = playAll(TechniqueSet::rulesOnly(), 200);
  // Every puzzle gives its wrong digit (its cell had another candidate), and
  // the shuffled order leaves work for the rules beyond the singles.
  EXPECT_EQ(six.wrong, 200);
  EXPECT_GT(six.forced, 0);
  EXPECT_GT(six.lucky, 0);
  EXPECT_EQ(six.forced + six.lucky, 11333);  // every blank of the 200 puzzles, each judged right
}

TEST(CoachSoundness, WithAllTechniquesTheForcedVerdictsHoldToo) {
  const Tally all = playAll(TechniqueSet::all(), 200);
  EXPECT_EQ(all.wrong, 200);
  EXPECT_GT(all.forced, 0);
}

}  // namespace
}  // namespace tessaly
