#pragma once
// The grade of a puzzle by the program's own method: a silent solve on bit sets
// that always applies the easiest of the six rules that makes progress, and
// guesses only when none does. Writes nothing to the log.

#include <array>
#include <string>
#include <string_view>

#include "model/TechniqueStep.h"

namespace tessaly {

/// The six rules from the easiest to the hardest, as the grader tries them:
/// placing singles (Rule 1), a digit with one place in an area (Rule 5), a
/// digit confined to one line inside a box (Rule 2), a digit of a line confined
/// to one box (Rule 4), pairs (Rule 3) and groups of n cells (Rule 6).
inline constexpr std::array<int, 6> kGradingRuleOrder = {1, 5, 2, 4, 3, 6};

inline constexpr int kGradeCount = 5;

struct PuzzleGrade {
  /// 1 (easiest) to 5; 0 for a puzzle without a solution or whose givens repeat.
  int grade = 0;
  /// The hardest rule the solve needed (its number, 1 to 6), before or between
  /// guesses on the path to the first solution; 0 when there is no solution.
  int hardestRule = 0;
  /// Digits tried at guess points in the whole search (to its end, or to a
  /// second solution): at a guess point every candidate of the open cell with
  /// the fewest, the first such in cell order, is tried, each one guess.
  int guesses = 0;
  /// Solutions found: 0, 1, or 2 for two or more (the search ends at the second).
  int solutions = 0;
  /// The 81 digits of the solution reached; empty when there is none.
  std::string solution;
  /// The hardest technique the solve needed (one of the six rules unless
  /// further techniques were allowed); meaningful only for a graded puzzle.
  Technique hardestTechnique = Technique::Rule1;

  bool graded() const { return grade != 0; }
};

/// Grades an 81-character puzzle ("1".."9" givens, anything else blank). The
/// same puzzle always gets the same grade: nothing is drawn at random, and
/// renaming the digits changes neither the rules' steps nor the search tree. A
/// puzzle with several solutions is graded by the first one the search reaches.
///
/// With further techniques allowed, they are tried (easiest first) whenever
/// the six rules stall, before any guess; the grade then follows the hardest
/// technique needed (gradeForTechnique).
PuzzleGrade gradePuzzle(std::string_view puzzle81, TechniqueSet techniques = TechniqueSet::rulesOnly());

/// Guess counts (over the whole search) that still make a Hard and a Fiendish
/// puzzle: one guess point between two candidates, and up to three of them.
inline constexpr int kHardGuesses = 2;
inline constexpr int kFiendishGuesses = 6;

/// The grade number for a hardest rule and a guess count: singles alone (Rules 1
/// and 5) make 1, any other rule without a guess 2, and guesses 3 to 5.
int gradeFor(int hardestRule, int guesses);

/// The grade number when further techniques are allowed: the hardest
/// technique's grade (1 singles, 2 the other rules, 3 subsets, fish,
/// single-digit patterns, wings, uniqueness and colouring, 4 chains, 5 almost
/// locked sets and forcing chains), and 5 for any guess.
int gradeForTechnique(Technique hardest, int guesses);

/// "Easy", "Moderate", "Hard", "Fiendish", "Diabolical" for 1..5; "-" otherwise.
std::string_view gradeName(int grade);
/// One sentence on what the grade means in terms of the rules; empty otherwise.
std::string_view gradeMeaning(int grade);

}  // namespace tessaly
