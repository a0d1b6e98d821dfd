// Fish and finned fish: boards built by hand, then soundness on hard puzzles.

#include <gtest/gtest.h>

#include "solver/TechniqueCases.h"

namespace tessaly {
namespace {

using test::cands;
using test::Edit;

TechniqueStep fish(Technique t, int digit, std::vector<int> base, std::vector<int> cover, std::vector<int> cells,
                   std::vector<int> fins, const std::string& removed) {
  TechniqueStep s;
  s.technique = t;
  s.digits = std::uint16_t(1u << (digit - 1));
  s.units = std::move(base);
  s.coverUnits = std::move(cover);
  s.cells = std::move(cells);
  s.fins = std::move(fins);
  s.eliminations = cands(removed);
  return s;
}

// 5 only in columns 3 and 7 of rows 2 and 5.
const std::vector<Edit> kXWing = {{{9, 10, 12, 13, 14, 16, 17, 36, 37, 39, 40, 41, 43, 44}, "12346789"}};
// 3 in row 2 at columns 2 and 7, in row 8 at columns 2, 7 and 8 (the fin).
const std::vector<Edit> kFinnedXWing = {{{9, 11, 12, 13, 14, 16, 17, 63, 65, 66, 67, 68, 71}, "12456789"}};

TEST(TechFish, FindsTheFirstFishThatRemovesSomething) {
  test::checkCases({
      {"x-wing", findXWing, kXWing,
       fish(Technique::XWing, 5, {1, 4}, {11, 15}, {11, 15, 38, 42}, {},
            "2:5 6:5 20:5 24:5 29:5 33:5 47:5 51:5 56:5 60:5 65:5 69:5 74:5 78:5")},
      // 7 in columns 1, 5, 9 at rows {2, 6}, {6, 8}, {2, 8}.
      {"swordfish on columns",
       findSwordfish,
       {{{0, 18, 27, 36, 54, 63, 72, 4, 13, 22, 31, 40, 58, 76, 8, 26, 35, 44, 53, 62, 80}, "12345689"}},
       fish(Technique::Swordfish, 7, {9, 13, 17}, {1, 5, 7}, {9, 17, 45, 49, 67, 71}, {},
            "10:7 11:7 12:7 14:7 15:7 16:7 46:7 47:7 48:7 50:7 51:7 52:7 "
            "64:7 65:7 66:7 68:7 69:7 70:7")},
      // 9 in rows 1, 3, 7, 9 at columns {1, 4}, {4, 6}, {6, 9}, {1, 9}.
      {"jellyfish",
       findJellyfish,
       {{{1, 2, 4, 5, 6, 7, 8, 18, 19, 20, 22, 24, 25, 26, 54, 55, 56, 57, 58, 60, 61, 73, 74, 75, 76, 77, 78, 79},
         "12345678"}},
       fish(Technique::Jellyfish, 9, {0, 2, 6, 8}, {9, 12, 14, 17}, {0, 3, 21, 23, 59, 62, 72, 80}, {},
            "9:9 12:9 14:9 17:9 27:9 30:9 32:9 35:9 36:9 39:9 41:9 44:9 "
            "45:9 48:9 50:9 53:9 63:9 66:9 68:9 71:9")},
      {"finned x-wing", findFinnedXWing, kFinnedXWing,
       fish(Technique::FinnedXWing, 3, {1, 7}, {10, 15}, {10, 15, 64, 69, 70}, {70}, "60:3 78:3")},
      // Row 8 has 3 at columns 2, 8, 9: column 7 only through its fins.
      {"sashimi x-wing",
       findFinnedXWing,
       {{{9, 11, 12, 13, 14, 16, 17, 63, 65, 66, 67, 68, 69}, "12456789"}},
       fish(Technique::SashimiXWing, 3, {1, 7}, {10, 15}, {10, 15, 64, 70, 71}, {70, 71}, "60:3 78:3")},
      // 4 in rows 1, 4, 7 at columns {2, 5}, {5, 8}, {2, 8, 9}: the fin is in box 9.
      {"finned swordfish",
       findFinnedSwordfish,
       {{{0, 2, 3, 5, 6, 7, 8, 27, 28, 29, 30, 32, 33, 35, 54, 56, 57, 58, 59, 60}, "12356789"}},
       fish(Technique::FinnedSwordfish, 4, {0, 3, 6}, {10, 13, 16}, {1, 4, 31, 34, 55, 61, 62}, {62}, "70:4 79:4")},
      {"sashimi swordfish",
       findFinnedSwordfish,
       {{{0, 2, 3, 5, 6, 7, 8, 27, 28, 29, 30, 32, 33, 35, 54, 56, 57, 58, 59, 60, 61}, "12356789"}},
       fish(Technique::SashimiSwordfish, 4, {0, 3, 6}, {10, 13, 16}, {1, 4, 31, 34, 55, 62}, {62}, "70:4 79:4")},
      // A plain fish has no fins, and a finned one is no plain fish.
      {"x-wing is not finned", findFinnedXWing, kXWing, std::nullopt},
      {"finned x-wing is not plain", findXWing, kFinnedXWing, std::nullopt},
      // The fin's box holds no cover-line cell outside the base lines.
      {"fin removing nothing",
       findFinnedXWing,
       {{{9, 11, 12, 13, 14, 16, 17, 63, 65, 66, 67, 68, 71}, "12456789"}, {{60, 78}, "12456789"}},
       std::nullopt},
  });
}

TEST(TechFish, SoundOnHardPuzzles) {
  test::checkSound({{findXWing, Technique::XWing, Technique::XWing},
                    {findSwordfish, Technique::Swordfish, Technique::Swordfish},
                    {findJellyfish, Technique::Jellyfish, Technique::Jellyfish},
                    {findFinnedXWing, Technique::FinnedXWing, Technique::SashimiXWing},
                    {findFinnedSwordfish, Technique::FinnedSwordfish, Technique::SashimiSwordfish}});
}

}  // namespace
}  // namespace tessaly
