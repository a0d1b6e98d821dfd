// Hidden and naked subsets: boards built by hand, then soundness on hard puzzles.

#include <gtest/gtest.h>

#include "solver/TechniqueCases.h"

namespace tessaly {
namespace {

using test::cands;
using test::Edit;

TechniqueStep subset(Technique t, std::uint16_t digits, int area, std::vector<int> cells, const std::string& removed) {
  TechniqueStep s;
  s.technique = t;
  s.digits = digits;
  s.units = {area};
  s.cells = std::move(cells);
  s.eliminations = cands(removed);
  return s;
}

TEST(TechSubsets, FindsTheFirstSubsetThatRemovesSomething) {
  const std::string noOneTwo = "3456789";
  test::checkCases({
      // 1 and 2 only in columns 4 and 8 of row 1.
      {"hidden pair",
       findHiddenPair,
       {{{0, 1, 2, 4, 5, 6, 8}, noOneTwo}},
       subset(Technique::HiddenPair, 0x3, 0, {3, 7}, "3:3456789 7:3456789")},
      // Row 1's columns 7..9 hold 12, 23, 13: nothing left to remove in the row
      // (the others are placed), so the triple acts in box 3.
      {"naked triple",
       findNakedTriple,
       {{{0}, "=4"},
        {{1}, "=5"},
        {{2}, "=6"},
        {{3}, "=7"},
        {{4}, "=8"},
        {{5}, "=9"},
        {{6}, "12"},
        {{7}, "23"},
        {{8}, "13"}},
       subset(Technique::NakedTriple, 0x7, 20, {6, 7, 8}, "15:123 16:123 17:123 24:123 25:123 26:123")},
      // 4, 5 and 6 only in r4c4, r5c5, r6c6 of box 5, not each in all three.
      {"hidden triple",
       findHiddenTriple,
       {{{31, 32, 39, 41, 48, 49}, "123789"}, {{30}, "12345"}, {{40}, "45679"}, {{50}, "5689"}},
       subset(Technique::HiddenTriple, 0x38, 22, {30, 40, 50}, "30:123 40:79 50:89")},
      {"naked quad",
       findNakedQuad,
       {{{72}, "12"}, {{74}, "234"}, {{77}, "34"}, {{80}, "14"}},
       subset(Technique::NakedQuad, 0xF, 8, {72, 74, 77, 80}, "73:1234 75:1234 76:1234 78:1234 79:1234")},
      // 1..4 only in rows 1, 3, 5 and 9 of column 1.
      {"hidden quad",
       findHiddenQuad,
       {{{9, 27, 45, 54, 63}, "56789"}},
       subset(Technique::HiddenQuad, 0xF, 9, {0, 18, 36, 72}, "0:56789 18:56789 36:56789 72:56789")},
      // A hidden pair whose cells hold nothing else; a naked quad that is
      // all of an area's open cells.
      {"hidden pair removing nothing",
       findHiddenPair,
       {{{3, 7}, "12"}, {{0, 1, 2, 4, 5, 6, 8}, noOneTwo}},
       std::nullopt},
      {"naked quad removing nothing",
       findNakedQuad,
       {{{0}, "12"},
        {{1}, "23"},
        {{2}, "34"},
        {{3}, "14"},
        {{4, 5, 6, 7, 8}, "=9"},
        {{9, 10, 11, 18, 19, 20}, "56789"}},
       std::nullopt},
  });
}

TEST(TechSubsets, SoundOnHardPuzzles) {
  test::checkSound({{findHiddenPair, Technique::HiddenPair, Technique::HiddenPair},
                    {findNakedTriple, Technique::NakedTriple, Technique::NakedTriple},
                    {findHiddenTriple, Technique::HiddenTriple, Technique::HiddenTriple},
                    {findNakedQuad, Technique::NakedQuad, Technique::NakedQuad},
                    {findHiddenQuad, Technique::HiddenQuad, Technique::HiddenQuad}});
}

}  // namespace
}  // namespace tessaly
