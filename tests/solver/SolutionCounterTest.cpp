// The silent solution counter: unique, several and no solutions.

#include <gtest/gtest.h>

#include <fstream>
#include <string>

#include "solver/SolutionCounter.h"

namespace tessaly {
namespace {

// Puzzle 1 of the Project Euler set (one solution).
const std::string kUnique = "..3.2.6..9..3.5..1..18.64....81.29..7.......8..67.82....26.95..8..2.3..9..5.1.3..";

TEST(SolutionCounter, AUniquePuzzleHasOneSolution) { EXPECT_EQ(countSolutions(kUnique), 1); }

TEST(SolutionCounter, AnEmptyGridStopsAtTheLimit) {
  EXPECT_EQ(countSolutions(std::string(81, '.')), 2);
  EXPECT_EQ(countSolutions(std::string(81, '0'), 5), 5);
  EXPECT_EQ(countSolutions("", 3), 3);
}

TEST(SolutionCounter, RepeatedGivensHaveNoSolution) {
  std::string row = kUnique;
  row[0] = '3';  // row 1 already holds a 3
  EXPECT_EQ(countSolutions(row), 0);
  std::string column = std::string(81, '.');
  column[4] = '7';
  column[4 + 9 * 8] = '7';
  EXPECT_EQ(countSolutions(column), 0);
  std::string box = std::string(81, '.');
  box[0] = '5';
  box[20] = '5';
  EXPECT_EQ(countSolutions(box), 0);
}

TEST(SolutionCounter, ABlankWithoutCandidatesHasNoSolution) {
  // Cell 1 sees 1..8 in its row and 9 in its column.
  std::string puzzle = ".12345678" + std::string(9, '.') + "9" + std::string(62, '.');
  EXPECT_EQ(countSolutions(puzzle), 0);
}

TEST(SolutionCounter, ASolvedGridCountsOnce) {
  const std::string solved =
      "483921657967345821251876493548132976729564138136798245372689514814253769695417382";
  EXPECT_EQ(countSolutions(solved), 1);
}

TEST(SolutionCounter, ABenchmarkPuzzleWithSeveralSolutionsGivesTwo) {
  const std::string puzzle = std::string("8.........95.......76.........426798...571243...893165......916....3.487....1.532");
  ASSERT_EQ(puzzle.size(), 81u);
  EXPECT_EQ(countSolutions(puzzle), 2);
  EXPECT_EQ(countSolutions(puzzle, 1), 1);
}

TEST(SolutionCounter, ALimitOfZeroCountsNothing) { EXPECT_EQ(countSolutions(kUnique, 0), 0); }

}  // namespace
}  // namespace tessaly
