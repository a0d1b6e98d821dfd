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
  // Each finding's whole line, style included, is the line of tests/data/narration/findings.txt in its place.
  struct Row { Finding finding; bool waits; };
  const Row rows[] = {
      {{.kind = K::BlankCount, .count = 49}, false},
      {{.kind = K::RuleStart, .rule = 1}, false},
      {{.kind = K::RuleEnd, .rule = 2, .count = 12}, false},
      {{.kind = K::RuleNoReduction, .rule = 6}, false},
      {{.kind = K::DuplicateRemoved, .rule = 1, .areaKind = AreaKind::Box, .area = 2, .cell = 22, .digit = 5,
        .removed = digits("5"), .before = digits("1259")}, true},
      {{.kind = K::DuplicateRemoved, .rule = 1, .areaKind = AreaKind::Col, .area = 2, .cell = 2, .digit = 7,
        .removed = digits("7"), .before = digits("78")}, true},
      {{.kind = K::NoSingles, .rule = 1}, false},
      {{.kind = K::SinglesFound, .rule = 1, .count = 3}, false},
      {{.kind = K::SinglesFound, .rule = 1, .count = 2, .solved = true}, false},
      {{.kind = K::RuleReason, .rule = 2, .areaKind = AreaKind::Col, .area = 3, .box = 1, .digit = 5}, false},
      {{.kind = K::RuleReason, .rule = 3, .areaKind = AreaKind::Row, .area = 7}, false},
      {{.kind = K::RuleReason, .rule = 4, .areaKind = AreaKind::Col, .area = 2, .box = 1, .digit = 7}, false},
      {{.kind = K::RuleReason, .rule = 5, .areaKind = AreaKind::Box, .area = 4, .cell = 31, .digit = 6,
        .before = digits("16")}, false},
      {{.kind = K::RuleReason, .rule = 5, .areaKind = AreaKind::Col, .area = 4, .cell = 31, .digit = 6,
        .before = digits("16")}, false},
      {{.kind = K::RuleReason, .rule = 6, .areaKind = AreaKind::Row, .area = 9, .removed = digits("258"),
        .count = 3}, false},
      {{.kind = K::RuleRemoval, .rule = 2, .cell = 13, .removed = digits("5"), .before = digits("123456789")}, true},
      {{.kind = K::RuleRemoval, .rule = 4, .cell = 3, .removed = digits("7"), .before = digits("17")}, true},
      {{.kind = K::RuleRemoval, .rule = 6, .cell = 40, .removed = digits("25"), .before = digits("2579")}, true},
      {{.kind = K::HiddenSingleSet, .rule = 5, .cell = 31, .digit = 6, .before = digits("16")}, true},
      {{.kind = K::Placement, .cell = 81, .digit = 4, .before = digits("4")}, true},
      // A drawn guess: the digit tried first leads, the untried ones follow.
      {{.kind = K::GuessPlacement, .cell = 23, .digit = 3, .before = digits("1345")}, true},
      {{.kind = K::GuessSaved}, false},
      {{.kind = K::MultipleSolutions}, false},
      {{.kind = K::Solved}, false},
      {{.kind = K::SolvedPlaceRemaining, .count = 5}, false},
      {{.kind = K::RulesAppliedGuessing}, false},
      {{.kind = K::RulesAppliedSingles, .count = 7}, false},
      {{.kind = K::RulesAppliedSolved, .count = 2}, false},
      {{.kind = K::NotValid}, false},
      {{.kind = K::NoSolution}, false},
      {{.kind = K::CheckPlacements}, false},
      {{.kind = K::DeadCell, .box = 3, .cell = 26}, false},
      {{.kind = K::Retry, .cell = 23, .digit = 8, .before = digits("8")}, false},
      {{.kind = K::Outcome}, false},
      {{.kind = K::Outcome, .count = 2}, false},
      {{.kind = K::StatisticsRow, .rule = 2, .count = 14, .reductions = 103}, false},
  };
  std::set<K> kinds;
  std::string lines;
  for (const Row& row : rows) {
    const Finding& f = row.finding;
    kinds.insert(f.kind);
    const std::string text = narrate(f);
    lines += padded(narrationStyle(f.kind), 2) + text + "\n";
    EXPECT_EQ(narrationWaits(f.kind), row.waits) << text;
    // What the hints ask of a finding agrees with its sentence.
    EXPECT_EQ(announcesSolved(f), text.find("solved") != std::string::npos) << text;
    EXPECT_EQ(setsCellValue(f.kind), text.starts_with("Set row")) << text;
  }
  EXPECT_EQ(lines, test::readFile(test::dataFile("narration/findings.txt")));
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
