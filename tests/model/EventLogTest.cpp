#include <gtest/gtest.h>

#include "model/EventLog.h"
#include "model/Session.h"
#include "support/TestSupport.h"

namespace tessaly {
namespace {

TEST(EventLog, StoresTheStylePrefixAndHolds5000LinesAtMost) {
  EventLog log;
  log.append(0, "Click Start to commence");
  log.append(4, "This puzzle does not appear to have a solution!");
  log.append(0, "");
  EXPECT_EQ(log.line(1), "00Click Start to commence");
  EXPECT_EQ(log.line(2), "04This puzzle does not appear to have a solution!");
  EXPECT_EQ(log.line(3), "00");
  EXPECT_EQ(log.style(2), 4);
  EXPECT_EQ(log.text(3), "");
  while (log.TotalLines() < EventLog::kCapacity) log.append(0, "x");
  EXPECT_THROW(log.append(0, "one too many"), EventLogFull);
  EXPECT_EQ(log.TotalLines(), 5000);
}

TEST(EventLog, SearchesMatchOnlyTheBeginningRespectCaseAndStopAtTheRecordedCount) {
  EventLog log;
  for (const char* text : {"Apply Rule 2", "Set row 1, col 2, cell 2 to value 4", "RULE one",
                           "Place additional 3 single values generated"})
    log.append(0, text);
  struct Row { const char* text; int from, recorded; bool forward; int expected; };
  for (const Row& r : {Row{"Set row", 1, 4, true, 2},
                       Row{"Rule", 1, 4, true, 0},  // inside "Apply Rule 2"; "RULE" differs in case
                       Row{"Place additional ", 1, 4, true, 4}, Row{"Place additional ", 5, 4, true, 0},
                       Row{"Place additional ", 1, 3, true, 0}, Row{"Apply", 4, 4, false, 1},
                       Row{"Set row", 1, 4, false, 0}, Row{"Place additional ", 9, 0, false, 4}}) {
    log.RecordedLineCount = r.recorded;
    EXPECT_EQ(r.forward ? log.searchForward(r.text, r.from) : log.searchBackward(r.text, r.from), r.expected)
        << r.text << " from " << r.from << (r.forward ? " forward" : " backward");
  }
}

TEST(EventLog, TextFileHoldsTheRecordedLinesWithoutPrefixes) {
  test::TempDir dir;
  EventLog log;
  log.append(0, "first");
  log.append(0, "");
  log.append(4, "third");
  log.RecordedLineCount = 2;
  ASSERT_TRUE(log.writeTextFile(dir.file("Eventlog.txt")));
  EXPECT_EQ(test::readFile(dir.file("Eventlog.txt")), "first\r\n\r\n");
  log.RecordedLineCount = 0;
  ASSERT_TRUE(log.writeTextFile(dir.file("Eventlog.txt")));
  EXPECT_EQ(test::readFile(dir.file("Eventlog.txt")), "");
}

TEST(LogEvent, FollowsTheRunStateAndAWaitEndedWithoutReleaseStopsTheRun) {
  test::TestSession t;
  Session& s = t.session;
  s.run.mode = RunState::Silent;
  s.logEvent(0, "silent", true);
  s.run.mode = RunState::NoPause;
  s.logEvent(0, "never waits", true);
  s.run.mode = RunState::Released;
  s.logEvent(0, "no pause flag");
  EXPECT_EQ(t.pacer.pauses, 0);
  s.logEvent(0, "a pause point", true);
  EXPECT_EQ(t.pacer.pauses, 1);
  EXPECT_EQ(s.run.mode, RunState::Released);
  EXPECT_EQ(test::logLines(s), (std::vector<std::string>{"00never waits", "00no pause flag", "00a pause point"}));

  struct ClosingPacer : Pacer {
    bool waitWhilePaused(RunState&) override { return false; }
  } closing;
  Session stopped(Services{nullptr, nullptr, &closing, nullptr, nullptr});
  stopped.run.mode = RunState::Released;
  EXPECT_THROW(stopped.logEvent(0, "pause", true), RunStopped);
}

TEST(ClearEventLog, AlsoEmptiesHintsAndRuleStatistics) {
  Session s;
  s.logEvent(0, "x");
  s.Hints.push_back("APPLY RULE 1");
  s.run.stats.timesApplied[3] = s.run.stats.totalReductions[6] = 2;
  s.clearEventLog();
  EXPECT_EQ(s.log.TotalLines(), 0);
  EXPECT_TRUE(s.Hints.empty());
  EXPECT_EQ(s.run.stats.timesApplied, (std::array<int, 7>{}));
  EXPECT_EQ(s.run.stats.totalReductions, (std::array<int, 7>{}));
}

}  // namespace
}  // namespace tessaly
