// The coach as functions of a position: verdicts on placements and on notes
// taken out, the nudge's four levels, the check of the notes.

#include <gtest/gtest.h>

#include "play/Coach.h"
#include "play/PlayTestSupport.h"

namespace tessaly {
namespace {

const std::string kPe96Puzzle1 = "..3.2.6..9..3.5..1..18.64....81.29..7.......8..67.82....26.95..8..2.3..9..5.1.3..";

Position positionOf81(const std::string& puzzle) {
  Position p;
  for (int c = 1; c <= kCells; ++c) p.value[std::size_t(c)] = digitValue(puzzle[std::size_t(c - 1)]);
  return p;
}

/// The position with every empty cell's notes filled in from the values.
Position withAllNotes(Position p) {
  const TechniqueBoard board = playerBoard(p, true);
  for (int c = 1; c <= kCells; ++c) p.notes[std::size_t(c)] = board.cand[std::size_t(c - 1)];
  return p;
}

SolutionInfo pe96Solution() { return {1, test::kPe96Solution}; }

TEST(Coach, PlacementVerdictsNameTheEasiestTechniqueThatForcesTheDigit) {
  const Position start = positionOf81(kPe96Puzzle1);
  const JudgeOptions rules{TechniqueSet::rulesOnly(), true};
  const JudgeOptions quiet{TechniqueSet::rulesOnly(), false};
  const SolutionInfo several{2, ""};
  struct Case {
    int cell, digit;
    JudgeOptions options;
    SolutionInfo solution;
    VerdictKind kind;
    std::optional<Technique> technique;
    std::string text;
  };
  const Case cases[] = {
      {6, 1, rules, pe96Solution(), VerdictKind::Forced, Technique::Rule5,
       "Right: hidden single, 1 can only go in cell 6 in box 2"},
      {16, 8, rules, pe96Solution(), VerdictKind::Forced, Technique::Rule5,
       "Right: hidden single, 8 can only go in cell 16 in column 7"},
      {42, 4, rules, pe96Solution(), VerdictKind::Forced, Technique::Rule1,
       "Right: naked single, 4 is the only digit left for cell 42"},
      {2, 8, rules, pe96Solution(), VerdictKind::Forced, Technique::Rule2,
       "Right: pointing on 8, then 8 can only go in cell 2 in row 1"},
      {70, 7, rules, pe96Solution(), VerdictKind::Forced, Technique::Rule3,
       "Right: naked pair, then 7 can only go in cell 70 in column 7"},
      {1, 4, rules, pe96Solution(), VerdictKind::Lucky, std::nullopt, kLuckyPlacement},
      {1, 5, rules, pe96Solution(), VerdictKind::Wrong, std::nullopt, "This 5 is not in the solution"},
      {1, 5, quiet, pe96Solution(), VerdictKind::Silent, std::nullopt, ""},
      {1, 5, rules, several, VerdictKind::Unjudged, std::nullopt, kCannotJudge},
      {42, 4, rules, several, VerdictKind::Unjudged, std::nullopt, kCannotJudge},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(std::to_string(c.cell) + "=" + std::to_string(c.digit));
    const Verdict v = judgePlacement(start, c.cell, c.digit, c.solution, c.options);
    EXPECT_EQ(v.kind, c.kind);
    EXPECT_EQ(v.technique, c.technique);
    EXPECT_EQ(v.line(), (HintLine{HintKind::Verdict, c.cell, c.digit, c.text}));
    EXPECT_TRUE(v.placement);
  }
  // The player's notes are the candidates where they keep them: with 4 taken
  // out of cell 1's neighbours in its box, 4 is a hidden single there.
  Position noted = withAllNotes(start);
  for (int c : {2, 11, 12, 19, 20, 21}) noted.notes[std::size_t(c)] &= std::uint16_t(~(1u << 3));
  EXPECT_EQ(judgePlacement(noted, 1, 4, pe96Solution(), rules).text,
            "Right: hidden single, 4 can only go in cell 1 in box 1");
}

TEST(Coach, NoteRemovalVerdicts) {
  const Position start = withAllNotes(positionOf81(kPe96Puzzle1));
  const JudgeOptions rules{TechniqueSet::rulesOnly(), true};
  struct Case {
    int cell, digit;
    bool tell;
    VerdictKind kind;
    std::string text;
  };
  const Case cases[] = {
      {1, 3, true, VerdictKind::Forced, "Right: 3 is already in box 1"},
      {1, 2, true, VerdictKind::Forced, "Right: 2 is already in row 1"},
      {33, 4, true, VerdictKind::Forced, "Right: naked single, cell 42 must be 4, which removes it"},
      {6, 7, true, VerdictKind::Forced, "Right: hidden single, 1 can only go in cell 6 in box 2, which removes it"},
      {8, 8, true, VerdictKind::Forced, "Right: hidden single, 8 can only go in cell 16 in column 7, which removes it"},
      {1, 4, true, VerdictKind::Wrong, "Careful: 4 is this cell's solution"},
      {1, 4, false, VerdictKind::Silent, ""},
      {1, 5, true, VerdictKind::Lucky, kLuckyRemoval},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(std::to_string(c.cell) + "-" + std::to_string(c.digit));
    const Verdict v = judgeNoteRemoval(start, c.cell, c.digit, pe96Solution(), {rules.techniques, c.tell});
    EXPECT_EQ(v.kind, c.kind);
    EXPECT_EQ(v.text, c.text);
    EXPECT_EQ(v.line(), (HintLine{HintKind::Verdict, c.cell, c.digit, c.text}));
    EXPECT_FALSE(v.placement);
  }

  // An X-Wing on 5 (rows 2 and 5, columns 3 and 7) removes 5 from cell 3.
  Position fish;
  for (int c = 1; c <= kCells; ++c) fish.notes[std::size_t(c)] = 0x1FF;
  for (int c : {9, 10, 12, 13, 14, 16, 17, 36, 37, 39, 40, 41, 43, 44}) fish.notes[std::size_t(c + 1)] &= ~0x10u;
  const SolutionInfo ones{1, std::string(81, '1')};
  const Verdict v = judgeNoteRemoval(fish, 3, 5, ones, {TechniqueSet::all(), true});
  EXPECT_EQ(v.text, "Right: X-Wing on 5 removes it");
  EXPECT_EQ(v.technique, Technique::XWing);
  EXPECT_EQ(judgeNoteRemoval(fish, 3, 5, ones, rules).text, kLuckyRemoval);
}

TEST(Coach, ANudgeTellsOneMoreLevelOfTheSameStep) {
  const TechniqueBoard board = playerBoard(positionOf81(kPe96Puzzle1), true);
  std::vector<int> box5;
  for (int c : {31, 32, 33, 40, 41, 42, 49, 50, 51}) box5.push_back(c);
  const std::vector<std::string> lines = {"Technique to try: naked single", "Look at box 5", "Look at cell 42",
                                          nudgeAt(board, TechniqueSet::rulesOnly(), 4).text};
  for (int level = 1; level <= 4; ++level) {
    const Nudge n = nudgeAt(board, TechniqueSet::rulesOnly(), level);
    Nudge expected;
    expected.level = level;
    expected.lines.assign(lines.begin(), lines.begin() + level);
    expected.text = expected.lines.back();
    if (level >= 2) expected.area = box5;
    if (level >= 3) expected.pattern = {42};
    if (level == 4) expected.placements = {{42, 4}};
    expected.step = n.step;
    EXPECT_EQ(n, expected) << level;
    EXPECT_EQ(n.canApply(), level == 4);
  }
  EXPECT_EQ(lines[3], "Naked single: cell 42 can only be 4");

  // A fish names its lines.
  Position fish;
  for (int c = 1; c <= kCells; ++c) fish.notes[std::size_t(c)] = 0x1FF;
  for (int c : {9, 10, 12, 13, 14, 16, 17, 36, 37, 39, 40, 41, 43, 44}) fish.notes[std::size_t(c + 1)] &= ~0x10u;
  const Nudge n = nudgeAt(playerBoard(fish, false), TechniqueSet::all(), 3);
  EXPECT_EQ(n.lines, (std::vector<std::string>{"Technique to try: X-Wing", "Look at row 2, row 5, column 3 and column 7",
                                                "Look at cells 12, 16, 39 and 43"}));
  EXPECT_EQ(n.area.size(), 32u);

  // Nothing to find on a solved board.
  const Nudge none = nudgeAt(playerBoard(positionOf81(test::kPe96Solution), true), TechniqueSet::all(), 2);
  EXPECT_EQ(none.level, 0);
  EXPECT_EQ(none.lines, (std::vector<std::string>{kNoNudge}));
}

TEST(Coach, CheckNotesFindsTheCellsThatLostTheirSolutionDigit) {
  Position p = withAllNotes(positionOf81(kPe96Puzzle1));
  EXPECT_EQ(checkNotes(p, pe96Solution()), (NotesCheck{true, {}, "Every cell's notes hold its solution digit"}));
  p.notes[1] &= ~0x8u;  // 4, cell 1's solution
  EXPECT_EQ(checkNotes(p, pe96Solution()),
            (NotesCheck{true, {1}, "1 cell has lost its solution digit from its notes"}));
  p.notes[2] = 0x1;  // only 1; cell 2 is 8
  p.notes[4] = 0;    // no notes: nothing to check
  EXPECT_EQ(checkNotes(p, pe96Solution()),
            (NotesCheck{true, {1, 2}, "2 cells have lost their solution digit from their notes"}));
  EXPECT_EQ(checkNotes(p, SolutionInfo{0, ""}),
            (NotesCheck{false, {}, "The notes cannot be checked: this puzzle does not have exactly one solution"}));
}

}  // namespace
}  // namespace tessaly
