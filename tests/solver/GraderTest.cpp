// The silent solution counter and the grader.

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <string>

#include "solver/Grader.h"
#include "solver/SolutionCounter.h"

namespace tessaly {
namespace {

// Kaggle "Beginner" (singles), top95 #1, several solutions, and a row whose missing 9 stands in column 9.
const std::string kSinglesOnly = "......95....64..7......7.1..38.15..25..87..6...72.....7...5...9.5.....2.3.94.....";
const std::string kTop95First = "4.....8.5.3..........7......2.....6.....8.4......1.......6.3.7.5..2.....1.4......";
const std::string kTwoSolutions = ".....58..4.....2.16..2...7.......56..3..6.9.....3..........4..........5.1.....63.";
const std::string kGrade4 = "...3...9.....2...54..1...37.96.3...11.....9.........5...9..74..72.......58..9..6.";
const std::string kGrade5 = ".769...4....4...36.....3.1..3......5..7.1......9.8..6...15..4...6...4...9.8......";
const std::string kNoSolution = "12345678.........9" + std::string(63, '.');

TEST(SolutionCounter, CountsNoneOneOrTwoAndStopsAtTheLimit) {
  // Counts through the command line: the cases count-*.
  const std::string solved = "123456789456789123789123456214365897365897214897214365531642978648971532972538641";
  const std::string blank(81, '.');
  const std::tuple<std::string, int, int> cases[] = {
      {kSinglesOnly, 2, 1},  {kTop95First, 2, 1},         {kTwoSolutions, 2, 2}, {kTwoSolutions, 1, 1},
      {kNoSolution, 2, 0},   {solved, 2, 1},              {blank, 2, 2},         {blank, 0, 0},
      {std::string(81, '0'), 5, 5}, {std::string(), 3, 3},          // "0" and missing cells are blanks
      {"11" + std::string(79, '.'), 2, 0},                          // row 1 twice
      {"....7" + std::string(71, '.') + "7", 2, 0},                 // column 5 twice
      {"5" + std::string(19, '.') + "5" + blank, 2, 0},             // box 1 twice
      {kSinglesOnly + "99", 2, 1}};                                 // beyond the 81st: ignored
  for (const auto& [puzzle, limit, expected] : cases)
    EXPECT_EQ(countSolutions(puzzle, limit), expected) << puzzle << " limit " << limit;
}

TEST(SolutionCounter, SameCountsAndSolutionsAsRecorded) {
  std::ifstream in(std::string(TESSALY_TEST_DATA_DIR) + "/solver/counts.txt");
  int cases = 0;
  for (std::string line; std::getline(in, line); ++cases) {
    const std::string puzzle = line.substr(0, 81);
    const int expected = line[82] - '0';
    std::string solution;
    EXPECT_EQ(countSolutions(puzzle, 3, &solution), expected) << puzzle;
    if (expected == 1) {
      EXPECT_EQ(solution, line.substr(84)) << puzzle;
    }
  }
  EXPECT_EQ(cases, 905);
}

TEST(SolutionCounter, GivesTheSolutionItFinds) {
  std::string solution;
  ASSERT_EQ(countSolutions(kTop95First, 2, &solution), 1);
  EXPECT_EQ(solution, "417369825632158947958724316825437169791586432346912758289643571573291684164875293");
}

TEST(SolutionCounter, AnotherSolutionIsFoundExactlyWhenCountingFindsTwo) {
  // Blank a full grid cell by cell (and its mirror cell), keeping a blank only
  // while the puzzle keeps one solution, as unique creation does: the two ways
  // of asking must agree at every step.
  for (const std::string& puzzle : {kSinglesOnly, kTop95First, kGrade4, kGrade5}) {
    std::string solution;
    ASSERT_EQ(countSolutions(puzzle, 2, &solution), 1);
    for (const bool mirror : {false, true}) {
      std::string blanked = solution;
      int kept = 0;
      for (int step = 0; step < 81; ++step) {
        const int cell = (step * 37) % 81, partner = mirror ? 80 - cell : cell;
        if (blanked[std::size_t(cell)] == '.') continue;
        std::string tried = blanked;
        tried[std::size_t(cell)] = tried[std::size_t(partner)] = '.';
        const bool another = hasOtherSolution(tried, solution, {cell, partner});
        ASSERT_EQ(another, countSolutions(tried, 2) != 1) << puzzle << " cell " << cell << " mirror " << mirror;
        if (!another) {
          blanked = tried;
          ++kept;
        }
      }
      EXPECT_GT(kept, 20) << puzzle;
    }
  }
}

TEST(Grader, RecordsHardestRuleGuessesSolutionsAndGrade) {
  const std::tuple<std::string, int, int, int, int> cases[] = {  // puzzle, grade, rule, guesses, solutions
      {kSinglesOnly, 1, 5, 0, 1},
      {".......1..41..3...2....783..95...........19.4....82.6...9158..25.......8.1.2...9.", 2, 2, 0, 1},
      {".8.....6.2........6.1..598.4..8.3.2.....1.7..8....4..1.2..68.3...3.7..........1..", 3, 4, 2, 1},
      {kGrade4, 4, 3, 4, 1},
      {kGrade5, 5, 3, 16, 1},
      {kTop95First, 2, 2, 0, 1},
      {kTwoSolutions, 5, 3, 17, 2},
      {kNoSolution, 0, 0, 0, 0},
      {"11" + std::string(79, '.'), 0, 0, 0, 0},
  };
  for (const auto& [puzzle, grade, rule, guesses, solutions] : cases) {
    const PuzzleGrade g = gradePuzzle(puzzle);
    EXPECT_EQ(std::tie(g.grade, g.hardestRule, g.guesses, g.solutions), std::tie(grade, rule, guesses, solutions))
        << puzzle;
    if (g.graded()) {
      EXPECT_EQ(countSolutions(g.solution, 2), 1);
    }
  }
}

TEST(Grader, GradeForMapsRulesAndGuesses) {
  const std::tuple<int, int, int> cases[] = {{1, 0, 1}, {5, 0, 1}, {2, 0, 2}, {4, 0, 2}, {3, 0, 2}, {6, 0, 2},
                                             {1, 1, 3}, {6, 2, 3}, {1, 3, 4}, {1, 6, 4}, {1, 7, 5}, {0, 0, 0}};
  for (const auto& [rule, guesses, grade] : cases) EXPECT_EQ(gradeFor(rule, guesses), grade) << rule << ' ' << guesses;
  for (int grade = 1; grade <= kGradeCount; ++grade) EXPECT_FALSE(gradeMeaning(grade).empty());
  EXPECT_EQ(gradeName(3), "Hard");
  EXPECT_EQ(gradeName(0), "-");
}

// Renamed digits keep the rules' steps and the search tree; the grid turned over its diagonal keeps the steps.
TEST(Grader, SameGradeForRenamedDigitsAndForTheTurnedGridWithoutGuesses) {
  const std::string puzzles[] = {kSinglesOnly, kTop95First, kGrade4, kGrade5};
  for (const std::string& puzzle : puzzles) {
    std::string renamed = puzzle, turned = puzzle;
    for (char& ch : renamed)
      if (ch != '.') ch = char('1' + (ch - '1' + 4) % 9);
    for (int r = 0; r < 9; ++r)
      for (int c = 0; c < 9; ++c) turned[std::size_t(c * 9 + r)] = puzzle[std::size_t(r * 9 + c)];
    const PuzzleGrade g = gradePuzzle(puzzle), gr = gradePuzzle(renamed), gt = gradePuzzle(turned);
    EXPECT_EQ(std::tie(g.grade, g.hardestRule, g.guesses), std::tie(gr.grade, gr.hardestRule, gr.guesses)) << puzzle;
    if (g.guesses == 0) {
      EXPECT_EQ(std::tie(g.grade, g.hardestRule), std::tie(gt.grade, gt.hardestRule)) << puzzle;
    }
  }
}

}  // namespace
}  // namespace tessaly
