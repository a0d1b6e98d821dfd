// Cell and unit forcing chains: whole steps on boards checked by hand, boards
// with no solution, and a walk over the hard sample where every step must be
// sound and every branch must replay as the singles it claims.

#include <gtest/gtest.h>

#include <string>

#include "solver/TechniqueTestSupport.h"

namespace tessaly {
namespace {

using bitgrid::bitOf;

/// Whether each branch replays on the board: from its assumption, every
/// placement is a naked or hidden single given only the earlier ones, every
/// removal follows from them, and the branch ends in its contradiction, in the
/// step's conclusion, or (the one survivor of the others' contradictions) is
/// the placement itself.
bool branchesReplay(const TechniqueBoard& board, const TechniqueStep& step) {
  const Candidate concl = step.placements.empty() ? step.eliminations.at(0) : step.placements.at(0);
  for (const Branch& br : step.branches) {
    TechniqueBoard b = board;
    TechniqueStep put;
    put.placements = {{br.cell, br.digit}};
    applyStep(b, put);
    for (const Implication& i : br.steps) {
      const std::uint16_t bit = bitOf(i.digit);
      if (!i.placed) {
        if (b.cand[std::size_t(i.cell)] & bit) return false;
        continue;
      }
      bool forced = b.cand[std::size_t(i.cell)] == bit;
      for (int area : {rowArea(i.cell), colArea(i.cell), boxArea(i.cell)}) {
        int places = 0;
        for (std::uint8_t c : bitgrid::kAreas[std::size_t(area)]) places += (b.cand[c] & bit) != 0;
        forced = forced || (places == 1 && (b.cand[std::size_t(i.cell)] & bit));
      }
      if (!forced) return false;
      put.placements = {{i.cell, i.digit}};
      applyStep(b, put);
    }
    if (br.contradiction) {
      if (br.deadCell >= 0) {
        if (b.value[std::size_t(br.deadCell)] || b.cand[std::size_t(br.deadCell)]) return false;
        continue;
      }
      for (std::uint8_t c : bitgrid::kAreas[std::size_t(br.deadArea)])
        if (b.value[c] == br.deadDigit || (b.cand[c] & bitOf(br.deadDigit))) return false;
    } else if (br.steps.empty()) {
      if (step.placements != std::vector<Candidate>{{br.cell, br.digit}}) return false;
    } else if (br.steps.back() != Implication{concl.cell, concl.digit, !step.placements.empty()}) {
      return false;
    }
  }
  return true;
}

template <TechniqueFinder find>
std::optional<TechniqueStep> replayed(const TechniqueContext& context) {
  auto step = find(context);
  if (step) {
    EXPECT_TRUE(branchesReplay(context.board, *step));
  }
  return step;
}

// Boards of top95 puzzles after their singles (givens only: no other rule
// applied). The comments count cells from 0, rows, columns and boxes from 1.
const std::string kTop95No1 = "4.....8.5.3..........7......2.....6.....8.4...4..1.......6.3.7.5.32.1...1.4......";
const std::string kTop95No2 = "52...6.........7.131..........4..8..6......5...........418.........3..28.387.....";
const std::string kTop95Late = "38.5..429..5.4..3..4....5...284............844.9.8.2...7.8.6.4....2.4...864.9.3.2";

TechniqueStep cellChain(int cell, std::vector<Branch> branches, std::vector<Candidate> elim,
                        std::vector<Candidate> place) {
  TechniqueStep s;
  s.technique = Technique::CellForcingChain;
  s.cells = {cell};
  s.branches = std::move(branches);
  s.eliminations = std::move(elim);
  s.placements = std::move(place);
  return s;
}

TEST(TechForcing, FindsTheShortestChainsAsWorkedOutByHand) {
  TechniqueStep unit;
  unit.technique = Technique::UnitForcingChain;
  unit.units = {11};
  unit.digits = bitOf(2);
  // Column 3 holds its 2 in cell 20 or 56. If 20: column 5's only 2
  // is cell 40, which is then not 3. If 56: row 7's only 3 is cell 58, which
  // takes 3 from cell 40 too.
  unit.branches = {{20, 2, {{40, 2, true}, {40, 3, false}}}, {56, 2, {{58, 3, true}, {40, 3, false}}}};
  unit.eliminations = {{40, 3}};
  const std::tuple<std::string, TechniqueFinder, TechniqueStep> cases[] = {
      // Cell 69 is 6 or 9. If 6: box 7's only 6 is cell 73, then its only 7
      // is cell 64, which is not 9. If 9: cell 64 sees it.
      {kTop95No1, findCellForcingChain,
       cellChain(69, {{69, 6, {{73, 6, true}, {64, 7, true}, {64, 9, false}}}, {69, 9, {{64, 9, false}}}},
                 {{64, 9}}, {})},
      // Cell 63 is 7 or 9. If 9: cell 72 is 2, so cell 54 is 7, which leaves
      // row 8 without a 7. So it is 7.
      {kTop95No2, findCellForcingChain,
       cellChain(63, {{63, 7, {}}, {63, 9, {{72, 2, true}, {54, 7, true}}, true, -1, 7, 7}}, {}, {{63, 7}})},
      // Cell 60 is 1 or 9: either way cell 34 is not 7 (through 62, 79, or as 9).
      {kTop95Late, findCellForcingChain,
       cellChain(60,
                 {{60, 1, {{62, 5, true}, {79, 7, true}, {34, 7, false}}},
                  {60, 9, {{34, 9, true}, {34, 7, false}}}},
                 {{34, 7}}, {})},
      {kTop95Late, findUnitForcingChain, unit},
  };
  for (const auto& [puzzle, find, expected] : cases) {
    const TechniqueBoard board = boardFromPuzzle(puzzle);
    const auto step = find(board);
    ASSERT_TRUE(step.has_value()) << puzzle;
    EXPECT_EQ(*step, expected) << puzzle;
    EXPECT_TRUE(branchesReplay(board, *step)) << puzzle;
  }
}

TEST(TechForcing, BoardsWithoutSolutionGiveNothingOrAStepThatReplays) {
  const TechniqueBoard dead = boardFromPuzzle("12345678.........9");  // cell 8 has no candidate
  std::string wrongGiven = kTop95No1;
  wrongGiven[1] = '6';  // the solution has 1 there
  const TechniqueBoard boards[] = {dead, boardFromPuzzle(wrongGiven), boardFromPuzzle(""),
                                   boardFromPuzzle(std::string(81, '1'))};
  for (const TechniqueBoard& board : boards)
    for (TechniqueFinder find : {findCellForcingChain, findUnitForcingChain})
      if (const auto step = find(board)) {
        EXPECT_TRUE(branchesReplay(board, *step));
      }
  EXPECT_FALSE(findCellForcingChain(dead).has_value());
  EXPECT_FALSE(findUnitForcingChain(dead).has_value());
}

TEST(TechForcing, SoundOnTheSampleAndEveryBranchReplays) {
  EXPECT_GT(test::soundOnSample(replayed<findCellForcingChain>, {Technique::CellForcingChain}, false, 150), 0);
  EXPECT_GT(test::soundOnSample(replayed<findUnitForcingChain>, {Technique::UnitForcingChain}, false, 150), 0);
}

}  // namespace
}  // namespace tessaly
