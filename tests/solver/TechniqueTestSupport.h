#pragma once
// Shared by the tests of the further techniques: boards built by hand, and a
// soundness run of one finder over public puzzles.

#include <algorithm>
#include <fstream>
#include <initializer_list>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "solver/SolutionCounter.h"
#include "solver/Techniques.h"
#include "support/TestSupport.h"

namespace tessaly::test {

/// The puzzles of tests/data/puzzles/techniques-sample.txt (hard public puzzles,
/// each with one solution).
inline std::vector<std::string> techniqueSample() {
  std::vector<std::string> puzzles;
  std::ifstream in(puzzleFile("techniques-sample.txt"));
  for (std::string line; std::getline(in, line);)
    if (line.size() >= 81) puzzles.push_back(line.substr(0, 81));
  return puzzles;
}

/// A board whose cells all hold `rest` except those listed.
inline TechniqueBoard boardOf(std::initializer_list<std::pair<std::vector<int>, std::string>> parts,
                              const std::string& rest = "123456789") {
  std::array<std::string, 81> tokens;
  tokens.fill(rest);
  for (const auto& [cells, cands] : parts)
    for (int c : cells) tokens[std::size_t(c)] = cands;
  std::string text;
  for (const std::string& t : tokens) text += t + " ";
  return boardFromCandidates(text);
}

/// Whether the step is sound against the solution: no elimination removes the
/// solution's digit, every placement is the solution's digit, and everything it
/// eliminates is a candidate of the board. Adds a failure naming the puzzle
/// otherwise.
inline bool stepIsSound(const TechniqueBoard& board, const TechniqueStep& step, const std::string& solution,
                        const std::string& puzzle) {
  bool ok = !step.eliminations.empty() || !step.placements.empty();
  EXPECT_TRUE(ok) << "a step that does nothing, puzzle " << puzzle;
  for (const Candidate& e : step.eliminations) {
    const bool onBoard = (board.cand[std::size_t(e.cell)] >> (e.digit - 1)) & 1u;
    const bool right = solution[std::size_t(e.cell)] - '0' != e.digit;
    EXPECT_TRUE(onBoard) << "eliminates " << e.digit << " from cell " << e.cell << ", not a candidate, puzzle " << puzzle;
    EXPECT_TRUE(right) << "eliminates the solution " << e.digit << " from cell " << e.cell << ", puzzle " << puzzle;
    ok = ok && onBoard && right;
  }
  for (const Candidate& p : step.placements) {
    const bool right = solution[std::size_t(p.cell)] - '0' == p.digit;
    EXPECT_TRUE(right) << "places " << p.digit << " in cell " << p.cell << ", puzzle " << puzzle;
    ok = ok && right;
  }
  return ok;
}

/// Runs `find` over the sample. Each puzzle is walked towards its solution:
/// at each stage the finder looks at the board, its step (when sound) is
/// applied and looked at again, and when it finds nothing one more solution
/// digit is placed (cells in a fixed scattered order). Every step must be
/// sound and of one of the techniques `allowed`. Returns how many steps were
/// found, so a test can require that the finder was exercised.
inline int soundOnSample(TechniqueFinder find, std::initializer_list<Technique> allowed, bool uniqueness = false,
                         std::size_t maxPuzzles = 1000) {
  int found = 0;
  const std::vector<std::string> puzzles = techniqueSample();
  for (std::size_t i = 0; i < puzzles.size() && i < maxPuzzles; ++i) {
    const std::string& puzzle = puzzles[i];
    std::string solution;
    if (countSolutions(puzzle, 2, &solution) != 1) continue;
    TechniqueBoard board = boardFromPuzzle(puzzle);
    board.uniqueSolution = uniqueness;
    for (int stage = 0, next = 0; stage < 200; ++stage) {
      if (auto step = find(board)) {
        ++found;
        EXPECT_NE(std::find(allowed.begin(), allowed.end(), step->technique), allowed.end()) << "puzzle " << puzzle;
        if (!stepIsSound(board, *step, solution, puzzle)) return found;
        applyStep(board, *step);
        continue;
      }
      // Place one more solution digit, in a scattered order of the cells.
      int cell = -1;
      for (int k = 0; k < 81 && cell < 0; ++k, next = (next + 37) % 81)
        if (!board.value[std::size_t(next)]) cell = next;
      if (cell < 0) break;
      TechniqueStep reveal;
      reveal.placements.push_back({cell, solution[std::size_t(cell)] - '0'});
      applyStep(board, reveal);
    }
  }
  return found;
}

}  // namespace tessaly::test
