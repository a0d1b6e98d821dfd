// The narrator: every kind of finding to its whole log line (style included)
// and pause point; recording findings beside the log.

#include <gtest/gtest.h>

#include <set>

#include "solver/Narrator.h"
#include "solver/SolverEngine.h"
#include "support/TestSupport.h"

namespace tessaly {
namespace {

using K = FindingKind;
CandidateSet digits(const char* text) { return CandidateSet::fromText(text); }

TEST(Narrator, EveryKindGivesItsWholeLineAndPausePoint) {
  struct Row { Finding finding; std::string line; bool waits; };
  const std::string gap(29, ' ');
  const Row rows[] = {
      {{.kind = K::BlankCount, .count = 49}, "00There are 49 blank cells in the puzzle", false},
      {{.kind = K::RuleStart, .rule = 1}, "01Apply Rule 1", false},
      {{.kind = K::RuleEnd, .rule = 2, .count = 12}, "01End Rule 2: made 12 reductions", false},
      {{.kind = K::RuleNoReduction, .rule = 6}, "01End Rule 6: no reductions", false},
      {{.kind = K::DuplicateRemoved, .rule = 1, .areaKind = AreaKind::Box, .area = 2, .cell = 22, .digit = 5,
        .removed = digits("5"), .before = digits("1259")},
       "00Remove box duplicate 5 from choice 1259 in row 3, col 4, cell 22", true},
      {{.kind = K::DuplicateRemoved, .rule = 1, .areaKind = AreaKind::Col, .area = 2, .cell = 2, .digit = 7,
        .removed = digits("7"), .before = digits("78")},
       "00Remove col duplicate 7 from choice 78 in row 1, col 2, cell 2", true},
      {{.kind = K::NoSingles, .rule = 1}, "01No additional single values found", false},
      {{.kind = K::SinglesFound, .rule = 1, .count = 3}, "00Place additional 3 single values generated", false},
      {{.kind = K::SinglesFound, .rule = 1, .count = 2, .solved = true},
       "00Place additional 2 single values generated, the puzzle appears to have been solved", false},
      {{.kind = K::RuleReason, .rule = 2, .areaKind = AreaKind::Col, .area = 3, .box = 1, .digit = 5},
       "01Rule 2: in box 1, choice 5 appears once in col 3", false},
      {{.kind = K::RuleReason, .rule = 3, .areaKind = AreaKind::Row, .area = 7},
       "01Rule 3: row 7 has duplicate pair", false},
      {{.kind = K::RuleReason, .rule = 4, .areaKind = AreaKind::Col, .area = 2, .box = 1, .digit = 7},
       "01Rule 4: box 1, choice 7 occurs in col 2 of this box only", false},
      {{.kind = K::RuleReason, .rule = 5, .areaKind = AreaKind::Box, .area = 4, .cell = 31, .digit = 6,
        .before = digits("16")},
       "01Rule 5: in box 4, choice 6 occurs only once in row 4, col 4,cell 31 (16)", false},
      {{.kind = K::RuleReason, .rule = 5, .areaKind = AreaKind::Col, .area = 4, .cell = 31, .digit = 6,
        .before = digits("16")},
       "01Rule 5: in col 4, choice 6 occurs only once in row 4, col 4, cell 31 (16)", false},
      {{.kind = K::RuleReason, .rule = 6, .areaKind = AreaKind::Row, .area = 9, .removed = digits("258"), .count = 3},
       "01Rule 6: 3 choice 258 found 3 times in row 9", false},
      {{.kind = K::RuleRemoval, .rule = 2, .cell = 13, .removed = digits("5"), .before = digits("123456789")},
       "01Remove 5 from choice 123456789 in row  2, col  4, cell 13", true},
      {{.kind = K::RuleRemoval, .rule = 4, .cell = 3, .removed = digits("7"), .before = digits("17")},
       "01Remove 7 from choice 17 in cell 3", true},
      {{.kind = K::RuleRemoval, .rule = 6, .cell = 40, .removed = digits("25"), .before = digits("2579")},
       "01Remove 25 from choice 2579 in cell 40", true},
      {{.kind = K::HiddenSingleSet, .rule = 5, .cell = 31, .digit = 6, .before = digits("16")},
       "01Set row 4, col 4, cell 31 to value 6", true},
      {{.kind = K::Placement, .cell = 81, .digit = 4, .before = digits("4")}, "00Set row 9, col 9, cell 81 to value 4",
       true},
      // A drawn guess: the digit tried first leads, the untried ones follow.
      {{.kind = K::GuessPlacement, .cell = 23, .digit = 3, .before = digits("1345")},
       "00Set row 3, col 5, cell 23 to value 3, multiple choice=3145", true},
      {{.kind = K::GuessSaved}, "00Current solution saved in case we revert back to other choices", false},
      {{.kind = K::MultipleSolutions}, "04This puzzle might have multiple solutions", false},
      {{.kind = K::Solved}, "00The puzzle is solved", false},
      {{.kind = K::SolvedPlaceRemaining, .count = 5},
       "00The puzzle is solved, will place remaining 5 known values in grid", false},
      {{.kind = K::RulesAppliedGuessing},
       "04All rules applied, no new singular choices were found, must resort to guesswork now", false},
      {{.kind = K::RulesAppliedSingles, .count = 7}, "00All rules applied, 7 new singular choices found", false},
      {{.kind = K::RulesAppliedSolved, .count = 2},
       "00All rules applied, the puzzle is solved, will place remaining 2 known values in grid", false},
      {{.kind = K::NotValid}, "04Solution not valid, must retract and redo the last guess with a different choice",
       false},
      {{.kind = K::NoSolution}, "04There appears to be no possible solution to this puzzle.", false},
      {{.kind = K::CheckPlacements}, "04Please check you number placements.", false},
      {{.kind = K::DeadCell, .box = 3, .cell = 26},
       "04OOPs, this placement will leave cell 26 in box 3 with no valid options, must retract", false},
      {{.kind = K::Retry, .cell = 23, .digit = 8, .before = digits("8")},
       "04Retry row 3, col 5, cell 23 with value 8 instead", false},
      {{.kind = K::Outcome}, "00Solved with no re-tries", false},
      {{.kind = K::Outcome, .count = 2}, "00Solved with 2 retries", false},
      {{.kind = K::StatisticsRow, .rule = 2, .count = 14, .reductions = 103}, "00   Rule 2 014" + gap + "103", false},
  };
  std::set<K> kinds;
  for (const Row& row : rows) {
    const Finding& f = row.finding;
    SCOPED_TRACE(row.line);
    kinds.insert(f.kind);
    const std::string text = narrate(f);
    EXPECT_EQ(padded(narrationStyle(f.kind), 2) + text, row.line);
    EXPECT_EQ(narrationWaits(f.kind), row.waits);
    // What the hints ask of a finding agrees with its sentence.
    EXPECT_EQ(announcesSolved(f), text.find("solved") != std::string::npos);
    EXPECT_EQ(setsCellValue(f.kind), text.starts_with("Set row"));
  }
  EXPECT_EQ(kinds.size(), std::size_t(K::StatisticsRow) + 1);  // every kind has a row
}

TEST(Narrator, FindingsAreRecordedAtTheirLinesUnlessSilentAndGoWithTheLog) {
  test::TestSession t;
  Session& s = t.session;
  SolverEngine engine(s);
  s.run.mode = RunState::NoPause;
  s.logEvent(kStyleNormal, "plain");
  engine.report({.kind = K::RuleStart, .rule = 3});
  engine.report({.kind = K::Outcome});
  s.run.mode = RunState::Silent;
  engine.report({.kind = K::Solved});
  ASSERT_EQ(s.run.findings.size(), 2u);
  EXPECT_EQ(s.run.findings[0].logLine * 10 + s.run.findings[1].logLine, 23);
  EXPECT_EQ(test::logLines(s), (std::vector<std::string>{"00plain", "01Apply Rule 3", "00Solved with no re-tries"}));

  // A full log takes no finding; clearing the log drops them all.
  s.run.mode = RunState::NoPause;
  while (s.log.TotalLines() < EventLog::kCapacity) s.logEvent(kStyleNormal, "filler");
  EXPECT_THROW(engine.report({.kind = K::Solved}), EventLogFull);
  EXPECT_EQ(s.run.findings.size(), 2u);
  s.clearEventLog();
  EXPECT_TRUE(s.run.findings.empty());
}

}  // namespace
}  // namespace tessaly
