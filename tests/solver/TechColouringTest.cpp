// Simple colouring (trap and wrap) on boards built by hand, and over public puzzles.

#include <gtest/gtest.h>


#include "solver/TechniqueTestSupport.h"

namespace tessaly {
namespace {

/// A board where the 1 stands only in `ones` (which hold every digit) and
/// every other cell holds 2..9.
TechniqueBoard onesAt(std::initializer_list<int> ones) {
  std::array<std::string, 81> tokens;
  tokens.fill("23456789");
  for (int c : ones) tokens[std::size_t(c)] = "123456789";
  std::string text;
  for (const std::string& t : tokens) text += t + " ";
  return boardFromCandidates(text);
}

TechniqueStep colouring(Technique technique, std::vector<int> first, std::vector<int> second,
                        std::vector<Candidate> eliminations) {
  TechniqueStep step;
  step.technique = technique;
  step.digits = 0b1;
  step.groups = {CellGroup{std::move(first), 0b1}, CellGroup{std::move(second), 0b1}};
  step.eliminations = std::move(eliminations);
  return step;
}

TEST(TechColouring, FindTheFirstTrapOrWrapOnBoardsBuiltByHand) {
  // Pairs r1c1-r1c9 (row 1), r1c9-r9c9 (column 9), r9c9-r9c1 (row 9): colours
  // {r1c1, r9c9} and {r1c9, r9c1}. r5c1 sees r1c1 and r9c1.
  const TechniqueBoard trap = onesAt({0, 8, 80, 72, 36});
  // Pairs r1c1-r1c3 (row 1) and r1c3-r3c3 (column 3) colour r1c1 and r3c3
  // alike, and they share box 1.
  const TechniqueBoard wrap = onesAt({0, 2, 20});
  // The trap above and a second cluster: r2c4-r2c6 (row 2), r2c6-r6c6
  // (column 6), r6c6-r6c4 (row 6), where r4c4 sees r2c4 and r6c4. The cluster
  // of r1c1 comes first though r4c4 is the lower cell to clear.
  const TechniqueBoard twoTraps = onesAt({0, 8, 80, 72, 36, 12, 14, 50, 48, 30});
  const TechniqueBoard secondTrap = onesAt({0, 8, 80, 72, 12, 14, 50, 48, 30});
  const struct {
    const char* what;
    TechniqueFinder find;
    TechniqueBoard board;
    std::optional<TechniqueStep> expected;
  } cases[] = {
      {"trap", findColourTrap, trap, colouring(Technique::ColourTrap, {0, 80}, {8, 72}, {{36, 1}})},
      {"trap, no wrap", findColourWrap, trap, std::nullopt},
      {"wrap", findColourWrap, wrap, colouring(Technique::ColourWrap, {0, 20}, {2}, {{0, 1}, {20, 1}})},
      {"wrap, nothing uncoloured to trap", findColourTrap, wrap, std::nullopt},
      {"trap in the cluster with the lowest cell", findColourTrap, twoTraps,
       colouring(Technique::ColourTrap, {0, 80}, {8, 72}, {{36, 1}})},
      {"trap in the second cluster", findColourTrap, secondTrap,
       colouring(Technique::ColourTrap, {12, 50}, {14, 48}, {{30, 1}})},
  };
  for (const auto& c : cases) EXPECT_EQ(c.find(c.board), c.expected) << c.what;
}

TEST(TechColouring, RemoveOnlyWhatTheSolutionAllows) {
  struct Run {
    const char* name;
    TechniqueFinder find;
    Technique technique;
  };
  for (const Run& r : {Run{"colour trap", findColourTrap, Technique::ColourTrap},
                       Run{"colour wrap", findColourWrap, Technique::ColourWrap}}) {
    EXPECT_GT(test::soundOnSample(r.find, {r.technique}), 0) << r.name;
  }
}

}  // namespace
}  // namespace tessaly
