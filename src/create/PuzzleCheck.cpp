#include "create/PuzzleCheck.h"

#include "model/CollectionFile.h"
#include "model/Session.h"
#include "solver/Grader.h"
#include "solver/SolutionCounter.h"

namespace tessaly {

PuzzleVerdict judgePuzzle(std::string_view puzzle81, TechniqueSet techniques) {
  PuzzleVerdict verdict;
  verdict.solutions = countSolutions(puzzle81, 2);
  if (verdict.solutions > 0) verdict.grade = gradePuzzle(puzzle81, techniques).grade;
  return verdict;
}

PuzzleVerdict judgeGivens(const Session& session) {
  return judgePuzzle(givensText(session), session.controls.techniques);
}

std::string solutionsCaption(int solutions) {
  switch (solutions) {
    case 0: return "No solution";
    case 1: return "One solution";
    default: return "Several solutions";
  }
}

std::string gradeCaption(int grade) {
  if (grade < 1 || grade > kGradeCount) return {};
  return "Grade " + std::to_string(grade) + " \u00B7 " + std::string(gradeName(grade));
}

std::string keepAnywayQuestion(std::string_view puzzle81) {
  switch (countSolutions(puzzle81, 2)) {
    case 0: return kNoSolutionQuestion;
    case 1: return {};
    default: return kSeveralSolutionsQuestion;
  }
}

bool confirmPuzzle(Session& session, std::string_view puzzle81) {
  const std::string question = keepAnywayQuestion(puzzle81);
  return question.empty() || session.ui().question(question);
}

}  // namespace tessaly
