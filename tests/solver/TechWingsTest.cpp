// XY-Wing, XYZ-Wing and W-Wing on boards built by hand, and over public puzzles.

#include <gtest/gtest.h>

#include "solver/TechniqueTestSupport.h"

namespace tessaly {
namespace {

using test::boardOf;

/// The step of a wing; the W-Wing adds its linking digit and strong link.
TechniqueStep wing(Technique technique, std::uint16_t digits, int z, std::vector<int> cells,
                   std::vector<Candidate> eliminations, int restricted = 0, std::vector<ChainNode> chain = {}) {
  TechniqueStep step;
  step.technique = technique;
  step.digits = digits;
  step.zDigit = z;
  step.cells = std::move(cells);
  step.eliminations = std::move(eliminations);
  step.restricted = restricted;
  step.chain = std::move(chain);
  return step;
}

struct Case {
  const char* what;
  TechniqueFinder find;
  TechniqueBoard board;
  std::optional<TechniqueStep> expected;
};

TEST(TechWings, FindTheFirstWingOnBoardsBuiltByHand) {
  // Pivot r1c1 {1,2}, pincers r1c5 {1,3} and r4c1 {2,3}: only r4c5 sees both pincers.
  const TechniqueBoard xy = boardOf({{{0}, "12"}, {{4}, "13"}, {{27}, "23"}});
  // Pivot r1c1 {1,2,3}, pincers r1c3 {1,3} and r4c1 {2,3}: r2c1 and r3c1 see all three.
  const TechniqueBoard xyz = boardOf({{{0}, "123"}, {{2}, "13"}, {{27}, "23"}});
  // r1c1 and r5c5 hold {1,2}; in column 9 the 1 stands only in r1c9 and r5c9.
  const std::vector<int> col9Rest{17, 26, 35, 53, 62, 71, 80};
  const TechniqueBoard w = boardOf({{{0, 40}, "12"}, {col9Rest, "23456789"}});
  const Case cases[] = {
      {"xy-wing", findXYWing, xy,
       wing(Technique::XYWing, 0b011, 3, {0, 4, 27}, {{31, 3}})},
      {"xy-wing, r4c5 without 3", findXYWing, boardOf({{{0}, "12"}, {{4}, "13"}, {{27}, "23"}, {{31}, "12"}}),
       std::nullopt},
      {"xy-wing, pincers with different third digits", findXYWing, boardOf({{{0}, "12"}, {{4}, "13"}, {{27}, "24"}}),
       std::nullopt},
      {"xy-wing, the lowest pivot first", findXYWing,
       boardOf({{{0}, "12"}, {{4}, "13"}, {{27}, "23"}, {{80}, "45"}, {{76}, "46"}, {{44}, "56"}}),
       wing(Technique::XYWing, 0b011, 3, {0, 4, 27}, {{31, 3}})},
      {"xyz-wing", findXYZWing, xyz,
       wing(Technique::XYZWing, 0b111, 3, {0, 2, 27}, {{9, 3}, {18, 3}})},
      {"xyz-wing in one box", findXYZWing, boardOf({{{0}, "123"}, {{2}, "13"}, {{10}, "23"}}),
       wing(Technique::XYZWing, 0b111, 3, {0, 2, 10}, {{1, 3}, {9, 3}, {11, 3}, {18, 3}, {19, 3}, {20, 3}})},
      {"xyz-wing, the pincers are one pair", findXYZWing, boardOf({{{0}, "123"}, {{2}, "13"}, {{27}, "13"}}),
       std::nullopt},
      {"w-wing", findWWing, w,
       wing(Technique::WWing, 0b011, 2, {0, 40}, {{4, 2}, {36, 2}}, 1, {{{8}, 1}, {{44}, 1}})},
      {"w-wing, no strong link", findWWing, boardOf({{{0, 40}, "12"}}), std::nullopt},
      {"w-wing, the cells see each other", findWWing,
       boardOf({{{0, 36}, "12"}, {col9Rest, "23456789"}}), std::nullopt},
  };
  for (const Case& c : cases) EXPECT_EQ(c.find(c.board), c.expected) << c.what;
}

// The step search skips an XY-Wing or XY-Chain that found nothing while the
// bivalue cells stay as they were, but not once a candidate comes back.
TEST(TechWings, StepMemoryLooksAgainWhenACandidateComesBack) {
  const TechniqueSet xy = *parseTechniqueSet("xy-wing,xy-chain");
  const TechniqueBoard without3 = boardOf({{{0}, "12"}, {{4}, "13"}, {{27}, "23"}, {{31}, "1245"}});
  const TechniqueBoard fewer = boardOf({{{0}, "12"}, {{4}, "13"}, {{27}, "23"}, {{31}, "145"}});
  const TechniqueBoard with3 = boardOf({{{0}, "12"}, {{4}, "13"}, {{27}, "23"}, {{31}, "12345"}});
  StepMemory memory;
  EXPECT_EQ(findEasiestStep(without3, xy, false, &memory), std::nullopt);
  EXPECT_EQ(findEasiestStep(fewer, xy, false, &memory), std::nullopt);
  EXPECT_EQ(findEasiestStep(with3, xy, false, &memory),
            wing(Technique::XYWing, 0b011, 3, {0, 4, 27}, {{31, 3}}));
}

TEST(TechWings, RemoveOnlyWhatTheSolutionAllows) {
  struct Run {
    const char* name;
    TechniqueFinder find;
    Technique technique;
  };
  for (const Run& r : {Run{"XY-Wing", findXYWing, Technique::XYWing}, Run{"XYZ-Wing", findXYZWing, Technique::XYZWing},
                       Run{"W-Wing", findWWing, Technique::WWing}}) {
    EXPECT_GT(test::soundOnSample(r.find, {r.technique}), 0) << r.name;
  }
}

}  // namespace
}  // namespace tessaly
