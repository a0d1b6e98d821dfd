// Skyscraper, Two-String Kite, Empty Rectangle: boards built by hand, then
// soundness on hard puzzles.

#include <gtest/gtest.h>

#include "solver/TechniqueCases.h"

namespace tessaly {
namespace {

using test::cands;
using test::Edit;

ChainNode at(std::vector<int> cells, int digit) { return {std::move(cells), digit}; }

TechniqueStep pattern(Technique t, int digit, std::vector<int> units, std::vector<ChainNode> chain,
                      const std::string& removed) {
  TechniqueStep s;
  s.technique = t;
  s.digits = std::uint16_t(1u << (digit - 1));
  s.units = std::move(units);
  s.chain = std::move(chain);
  s.eliminations = cands(removed);
  return s;
}

// 2 in box 1 only in r1c2, r2c1 and r2c3 (row 2 and column 2 of the box).
const Edit kEmptyRectangleBox = {{0, 2, 10, 18, 19, 20}, "13456789"};

TEST(TechPatterns, FindsTheFirstPatternThatRemovesSomething) {
  test::checkCases({
      // 6 in row 3 at columns 2, 5 and in row 7 at columns 2, 4.
      {"skyscraper",
       findSkyscraper,
       {{{18, 20, 21, 23, 24, 25, 26, 54, 56, 58, 59, 60, 61, 62}, "12345789"}},
       pattern(Technique::Skyscraper, 6, {}, {at({22}, 6), at({19}, 6), at({55}, 6), at({57}, 6)},
               "3:6 12:6 67:6 76:6")},
      // 8 in row 1 at columns 2, 7 and in column 3 at rows 3, 8.
      {"two-string kite",
       findTwoStringKite,
       {{{0, 2, 3, 4, 5, 7, 8, 11, 29, 38, 47, 56, 74}, "12345679"}},
       pattern(Technique::TwoStringKite, 8, {}, {at({6}, 8), at({1}, 8), at({20}, 8), at({65}, 8)}, "69:8")},
      // ... and in column 8 only at rows 2 and 6.
      {"empty rectangle and a column",
       findEmptyRectangle,
       {kEmptyRectangleBox, {{7, 25, 34, 43, 61, 70, 79}, "13456789"}},
       pattern(Technique::EmptyRectangle, 2, {18}, {at({52}, 2), at({16}, 2), at({9, 11}, 2), at({1}, 2)}, "46:2")},
      // ... or in row 7 only at columns 2 and 6.
      {"empty rectangle and a row",
       findEmptyRectangle,
       {kEmptyRectangleBox, {{54, 56, 57, 58, 60, 61, 62}, "13456789"}},
       pattern(Technique::EmptyRectangle, 2, {18}, {at({59}, 2), at({55}, 2), at({1}, 2), at({9, 11}, 2)}, "14:2")},
      // Two rows whose places of 6 share both columns: an X-Wing, no skyscraper.
      {"x-wing is no skyscraper",
       findSkyscraper,
       {{{18, 20, 21, 23, 24, 25, 26, 54, 56, 57, 59, 60, 61, 62}, "12345789"}},
       std::nullopt},
  });
}

TEST(TechPatterns, SoundOnHardPuzzles) {
  test::checkSound({{findSkyscraper, Technique::Skyscraper, Technique::Skyscraper},
                    {findTwoStringKite, Technique::TwoStringKite, Technique::TwoStringKite},
                    {findEmptyRectangle, Technique::EmptyRectangle, Technique::EmptyRectangle}});
}

}  // namespace
}  // namespace tessaly
