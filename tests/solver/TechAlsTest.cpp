// ALS-XZ.

#include <gtest/gtest.h>

#include <array>
#include <string>

#include "solver/TechniqueTestSupport.h"

namespace tessaly {
namespace {

TEST(TechAls, FindsTheSmallestPairOnBoardsBuiltByHand) {
  // ALS A: r1c1 24, r2c2 14 (box 1, digits 124); ALS B: r1c7 23, r5c7 13
  // (column 7, digits 123). x = 2: A's 2 (r1c1) sees B's 2 (r1c7). z = 1:
  // r5c2 sees A's 1 (r2c2) and B's 1 (r5c7). The single cells and the other
  // sets of two (r1c1 r1c7 in row 1) share fewer than two digits or a cell.
  // (The other cells are placed; their digits play no part.)
  const auto board = [](const char* r5c2) {
    std::array<std::string, 81> tokens;
    tokens.fill("=1");
    tokens[0] = "24", tokens[10] = "14", tokens[6] = "23", tokens[42] = "13", tokens[37] = r5c2;
    std::string text;
    for (const std::string& t : tokens) text += t + " ";
    return boardFromCandidates(text);
  };
  TechniqueStep found;
  found.technique = Technique::AlsXz;
  found.restricted = 2;
  found.zDigit = 1;
  found.groups = {{{0, 10}, 0b1011}, {{6, 42}, 0b111}};
  found.eliminations = {{37, 1}};
  const std::pair<const char*, std::optional<TechniqueStep>> cases[] = {{"156", found}, {"56", std::nullopt}};
  for (const auto& [r5c2, expected] : cases) EXPECT_EQ(findAlsXz(board(r5c2)), expected) << r5c2;
}

TEST(TechAls, RemovesNoSolutionDigitOnHardPuzzles) {
  // The first 150 puzzles: the walk starts from boards no rule has touched,
  // where there are many sets to pair.
  EXPECT_GT(test::soundOnSample(findAlsXz, {Technique::AlsXz}, false, 150), 0);
}

}  // namespace
}  // namespace tessaly
