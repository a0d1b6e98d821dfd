#pragma once
// What a puzzle is like before anyone solves it: whether it has one solution,
// several or none (the solution counter, which stops at two) and its grade
// (the grader). The puzzle frame shows both after every read, entry, paste or
// creation; a typed or pasted puzzle without exactly one solution is kept only
// when the user says so.

#include <string>
#include <string_view>

#include "model/TechniqueStep.h"

namespace tessaly {

class Session;

struct PuzzleVerdict {
  /// 0, 1, or 2 for two or more.
  int solutions = 0;
  /// 1..5 when the puzzle has a solution, else 0.
  int grade = 0;
};

/// Counts the solutions of an 81-character puzzle ("1".."9" givens, anything
/// else blank) and grades it, with the techniques given, when it has one.
PuzzleVerdict judgePuzzle(std::string_view puzzle81, TechniqueSet techniques = TechniqueSet::rulesOnly());
/// The verdict on the grid's givens, graded with the techniques turned on.
PuzzleVerdict judgeGivens(const Session& session);

/// "No solution", "One solution" or "Several solutions".
std::string solutionsCaption(int solutions);
/// "Grade 3 · Hard"; empty for 0 (no solution).
std::string gradeCaption(int grade);

inline constexpr const char* kNoSolutionQuestion = "This puzzle has no solution. Keep it anyway?";
inline constexpr const char* kSeveralSolutionsQuestion = "This puzzle has more than one solution. Keep it anyway?";

/// The question for a typed or pasted puzzle (81 characters, "0" or "." for a
/// blank): empty when it has one solution.
std::string keepAnywayQuestion(std::string_view puzzle81);
/// Asks the question when there is one; true when the puzzle is to be kept.
bool confirmPuzzle(Session& session, std::string_view puzzle81);

}  // namespace tessaly
