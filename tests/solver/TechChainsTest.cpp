// X-Chains, XY-Chains and alternating inference chains.

#include <gtest/gtest.h>

#include <array>
#include <string>
#include <utility>

#include "solver/TechniqueTestSupport.h"

namespace tessaly {
namespace {

/// Cell number of row r, column c (both 1..9).
constexpr int rc(int r, int c) { return 9 * (r - 1) + c - 1; }

using Cells = std::vector<std::pair<int, const char*>>;

/// A board with candidates in the cells listed only; the others are placed
/// (their digits play no part in a chain).
TechniqueBoard sparse(const Cells& cells) {
  std::array<std::string, 81> tokens;
  tokens.fill("=1");
  for (const auto& [cell, digits] : cells) tokens[std::size_t(cell)] = digits;
  std::string text;
  for (const std::string& t : tokens) text += t + " ";
  return boardFromCandidates(text);
}

ChainNode node(int cell, int digit) { return {{cell}, digit}; }

TechniqueStep chainStep(Technique technique, std::uint16_t digits, std::vector<ChainNode> chain,
                        std::vector<Candidate> eliminations) {
  TechniqueStep step;
  step.technique = technique;
  step.digits = digits;
  step.chain = std::move(chain);
  step.eliminations = std::move(eliminations);
  return step;
}

// X-Chain on 1: r1c1 = r1c5 - r5c5 = r5c9 - r9c9 = r9c2 (= strong, - weak).
// r4c1 and r7c3 keep column 1 and box 7 from being strong links; r8c1 sees
// both ends. The four-node chains r1c1..r5c9, r1c5..r9c9, r5c5..r9c2 remove
// nothing.
const Cells kXChain = {{rc(1, 1), "1"}, {rc(1, 5), "1"}, {rc(5, 5), "1"}, {rc(5, 9), "1"},
                       {rc(9, 9), "1"}, {rc(9, 2), "1"}, {rc(4, 1), "1"}, {rc(7, 3), "1"}};
// XY-Chain on bivalue cells r1c1 12, r1c6 23, r5c6 34, r5c2 14: both ends
// hold 1, and r5c1 sees both.
const Cells kXYChain = {{rc(1, 1), "12"}, {rc(1, 6), "23"}, {rc(5, 6), "34"}, {rc(5, 2), "14"}};
// Alternating chain through a group: (2)r1c1 = (1)r1c1 - (1)r4c1|r5c1 =
// (1)r6c3 - (2)r6c3 = (2)r6c8. r1c8 sees both ends; r1c6 and r9c8 keep row 1
// and column 8 from being strong links on 2. No X- or XY-Chain here.
const Cells kGroupChain = {{rc(1, 1), "12"},  {rc(1, 6), "234"}, {rc(1, 8), "267"}, {rc(4, 1), "134"},
                           {rc(5, 1), "168"}, {rc(6, 3), "125"}, {rc(6, 8), "289"}, {rc(9, 8), "234"}};
// Alternating chain with two end digits: (1)r1c1 = (1)r1c5 - (2)r1c5 = (2)r1c6.
// r1c1 is 1 or r1c6 is 2, and they see each other: r1c1 is not 2.
const Cells kTwoDigits = {{rc(1, 1), "125"}, {rc(1, 5), "126"}, {rc(1, 6), "27"}};

Cells with(Cells cells, int cell, const char* digits) {
  cells.emplace_back(cell, digits);
  return cells;
}

TEST(TechChains, FindsTheShortestChainOnBoardsBuiltByHand) {
  struct Case {
    const char* what;
    TechniqueFinder find;
    Cells cells;
    std::optional<TechniqueStep> expected;
  };
  const Case cases[] = {
      {"x-chain", findXChain, with(kXChain, rc(8, 1), "1"),
       chainStep(Technique::XChain, 0b1,
                 {node(rc(1, 1), 1), node(rc(1, 5), 1), node(rc(5, 5), 1), node(rc(5, 9), 1), node(rc(9, 9), 1),
                  node(rc(9, 2), 1)},
                 {{rc(8, 1), 1}})},
      {"x-chain, nothing sees both ends", findXChain, kXChain, std::nullopt},
      {"xy-chain", findXYChain, with(kXYChain, rc(5, 1), "156"),
       chainStep(Technique::XYChain, 0b1,
                 {node(rc(1, 1), 1), node(rc(1, 1), 2), node(rc(1, 6), 2), node(rc(1, 6), 3), node(rc(5, 6), 3),
                  node(rc(5, 6), 4), node(rc(5, 2), 4), node(rc(5, 2), 1)},
                 {{rc(5, 1), 1}})},
      {"xy-chain, no 1 to remove", findXYChain, with(kXYChain, rc(5, 1), "56"), std::nullopt},
      {"alternating chain with a group", findAIC, kGroupChain,
       chainStep(Technique::AIC, 0b10,
                 {node(rc(1, 1), 2),
                  node(rc(1, 1), 1),
                  {{rc(4, 1), rc(5, 1)}, 1},
                  node(rc(6, 3), 1),
                  node(rc(6, 3), 2),
                  node(rc(6, 8), 2)},
                 {{rc(1, 8), 2}})},
      {"no x-chain on the group board", findXChain, kGroupChain, std::nullopt},
      {"no xy-chain on the group board", findXYChain, kGroupChain, std::nullopt},
      {"alternating chain with two end digits", findAIC, kTwoDigits,
       chainStep(Technique::AIC, 0b11, {node(rc(1, 1), 1), node(rc(1, 5), 1), node(rc(1, 5), 2), node(rc(1, 6), 2)},
                 {{rc(1, 1), 2}})},
  };
  for (const Case& c : cases) EXPECT_EQ(c.find(sparse(c.cells)), c.expected) << c.what;
}

TEST(TechChains, RemoveNoSolutionDigitOnHardPuzzles) {
  const std::pair<TechniqueFinder, Technique> finders[] = {
      {findXChain, Technique::XChain}, {findXYChain, Technique::XYChain}, {findAIC, Technique::AIC}};
  for (const auto& [find, technique] : finders)
    EXPECT_GT(test::soundOnSample(find, {technique}), 0) << techniqueInfo(technique).name;
}

}  // namespace
}  // namespace tessaly
