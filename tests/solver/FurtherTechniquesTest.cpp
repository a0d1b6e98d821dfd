// The further techniques inside the narrated run, the grader and the hints:
// never wrong against the solution, no guess where logic suffices, and the
// option's names.

#include <gtest/gtest.h>

#include <string>

#include "model/Session.h"
#include "play/NextStep.h"
#include "solver/Grader.h"
#include "solver/Narrator.h"
#include "solver/SolverEngine.h"
#include "solver/TechniqueTestSupport.h"

namespace tessaly {
namespace {

using test::loadGivens;

std::vector<std::string> top95() {
  std::vector<std::string> puzzles;
  std::ifstream in(test::puzzleFile("top95.txt"));
  for (std::string line; std::getline(in, line);)
    if (line.size() >= 81) puzzles.push_back(line.substr(0, 81));
  return puzzles;
}

// The narrated Solve with every technique: each told removal keeps the
// solution's digit, each told value is the solution's, no guess is made and
// the grid ends solved. The six rules' own lines are checked by the expected
// narrations elsewhere.
TEST(FurtherTechniques, NarratedSolveIsNeverWrongAndNeedsNoGuessOnHardPuzzles) {
  std::vector<std::string> puzzles = top95();
  const std::vector<std::string> sample = test::techniqueSample();
  puzzles.insert(puzzles.end(), sample.begin(), sample.begin() + 120);
  int unsolved = 0, steps = 0;
  for (const std::string& puzzle : puzzles) {
    std::string solution;
    ASSERT_EQ(countSolutions(puzzle, 2, &solution), 1);
    Session s;
    s.controls.techniques = TechniqueSet::all();
    s.config.MaxTries = 100000;
    loadGivens(s, puzzle);
    SolverEngine(s).solveCommand();
    bool guessed = false;
    for (const Finding& f : s.run.findings) {
      const int digit = f.cell >= 1 && f.cell <= kCells ? solution[std::size_t(f.cell - 1)] - '0' : 0;
      if (f.kind == FindingKind::TechniqueRemoval) {
        EXPECT_NE(f.removed.first(), digit) << puzzle << " line " << f.logLine;
      }
      if (f.kind == FindingKind::TechniqueSetValue) {
        EXPECT_EQ(f.digit, digit) << puzzle << " line " << f.logLine;
      }
      if (f.kind == FindingKind::TechniqueFound) ++steps;
      guessed = guessed || f.kind == FindingKind::GuessPlacement;
    }
    if (guessed) ++unsolved;
    EXPECT_EQ(s.grid.valueCode(), solution) << puzzle;
    // What the run removed goes with it: the next puzzle's choices come from its values alone.
    loadGivens(s, puzzles.front());
    SolverEngine(s).computeCandidates(false);
    const TechniqueBoard plain = boardFromPuzzle(puzzles.front());
    for (int c = 1; c <= kCells; ++c)
      if (!s.grid[c].value) {
        ASSERT_EQ(s.grid[c].candidates.bits(), plain.cand[std::size_t(c - 1)]) << puzzle;
      }
  }
  EXPECT_GT(steps, 0);
  // The sample's forum puzzles need nested chains; all of top95 and the rest go without a guess.
  EXPECT_LE(unsolved, 5) << "of " << puzzles.size();
}

TEST(FurtherTechniques, GraderUsesThemBeforeGuessingAndGradesByTheHardest) {
  int guessed = 0;
  for (const std::string& puzzle : top95()) {
    const PuzzleGrade grade = gradePuzzle(puzzle, TechniqueSet::all());
    ASSERT_EQ(grade.solutions, 1) << puzzle;
    guessed += grade.guesses > 0;
    EXPECT_EQ(grade.grade, gradeForTechnique(grade.hardestTechnique, grade.guesses));
    const PuzzleGrade rulesOnly = gradePuzzle(puzzle);
    EXPECT_EQ(grade.solution, rulesOnly.solution);
  }
  EXPECT_EQ(guessed, 0);
  // A puzzle the singles finish keeps its grade, and guesses give the top grade.
  const std::string singles = "......95....64..7......7.1..38.15..25..87..6...72.....7...5...9.5.....2.3.94.....";
  EXPECT_EQ(gradePuzzle(singles, TechniqueSet::all()).grade, 1);
  EXPECT_EQ(gradeForTechnique(Technique::XWing, 1), 5);
  EXPECT_EQ(gradeForTechnique(Technique::XWing, 0), 3);
}

TEST(FurtherTechniques, OptionNamesAreTheTableNames) {
  EXPECT_EQ(parseTechniqueSet("six"), TechniqueSet::rulesOnly());
  EXPECT_EQ(parseTechniqueSet("all"), TechniqueSet::all());
  EXPECT_EQ(parseTechniqueSet(""), std::nullopt);
  EXPECT_EQ(parseTechniqueSet("x-wing,bogus"), std::nullopt);
  const std::optional<TechniqueSet> some = parseTechniqueSet("x-wing, finned-x-wing");
  ASSERT_TRUE(some);
  for (const TechniqueInfo& t : kTechniques) {
    const bool expected = t.family == TechniqueFamily::Rules || t.id == Technique::XWing ||
                          t.id == Technique::FinnedXWing || t.id == Technique::SashimiXWing;
    EXPECT_EQ(some->has(t.id), expected) << t.cliName;
    EXPECT_EQ(std::size_t(t.id), std::size_t(&t - kTechniques.data())) << "the table is in the enum's order";
  }
  // The grader's first rows are the six rules in its own order.
  for (std::size_t i = 0; i < kGradingRuleOrder.size(); ++i)
    EXPECT_EQ(kTechniques[i].name.substr(0, 7), "Rule " + std::to_string(kGradingRuleOrder[i]) + ":");
}

TEST(FurtherTechniques, NextStepTellsTheEasiestStepAndItsCells) {
  Session s;
  loadGivens(s, "4.....8.5.3..........7......2.....6.....8.4......1.......6.3.7.5..2.....1.4......");
  SolverEngine(s).computeCandidates(false);
  // Six rules only: a single or a rule's step; the board is left as it was.
  const std::string before = s.grid.valueCode();
  const NextStepHint rules = nextStepHint(s);
  ASSERT_TRUE(rules.step);
  EXPECT_EQ(techniqueInfo(rules.step->technique).family, TechniqueFamily::Rules);
  EXPECT_EQ(rules.lines.front().text, narrateStep(*rules.step));
  EXPECT_EQ(rules.lines.size(), 1 + rules.step->placements.size() + rules.step->eliminations.size());
  EXPECT_EQ(s.grid.valueCode(), before);
  const std::vector<int> cells = patternCells(*rules.step);
  EXPECT_TRUE(std::is_sorted(cells.begin(), cells.end()));
  EXPECT_FALSE(cells.empty());
  // Where the six rules have nothing left, the next step is a further technique.
  TechniqueBoard board;
  for (const std::string& puzzle : top95()) {
    board = boardFromPuzzle(puzzle);
    std::optional<TechniqueStep> step;
    while ((step = findEasiestStep(board, TechniqueSet::all(), true)) &&
           techniqueInfo(step->technique).family == TechniqueFamily::Rules)
      applyStep(board, *step);
    if (step) break;  // the rules are stuck here
  }
  for (int c = 1; c <= kCells; ++c) s.grid[c].candidates = CandidateSet::fromBits(board.cand[std::size_t(c - 1)]);
  for (int c = 1; c <= kCells; ++c) s.grid[c].value = board.value[std::size_t(c - 1)];
  EXPECT_EQ(hintTexts(nextStepHint(s).lines), std::vector<std::string>{kNoNextStep}) << "off: the rules only";
  s.controls.techniques = TechniqueSet::all();
  const NextStepHint further = nextStepHint(s);
  ASSERT_TRUE(further.step);
  EXPECT_EQ(*further.step, *findEasiestStep(board, TechniqueSet::all(), true));
  EXPECT_NE(techniqueInfo(further.step->technique).family, TechniqueFamily::Rules);
  // A board no technique can move on.
  Session empty;
  SolverEngine(empty).computeCandidates(false);
  EXPECT_EQ(hintTexts(nextStepHint(empty).lines), std::vector<std::string>{kNoNextStep});
}

}  // namespace
}  // namespace tessaly
