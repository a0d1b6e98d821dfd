#include <gtest/gtest.h>

#include "model/EventLog.h"
#include "model/FileUtil.h"
#include "model/Session.h"
#include "support/TestSupport.h"

namespace tessaly {
namespace {

TEST(EventLog, StoresTheStylePrefixBeforeTheText) {
  EventLog log;
  log.append(0, "Click Start to commence");
  log.append(4, "This puzzle does not appear to have a solution!");
  log.append(0, "");
  EXPECT_EQ(log.line(1), "00Click Start to commence");
  EXPECT_EQ(log.line(2), "04This puzzle does not appear to have a solution!");
  EXPECT_EQ(log.line(3), "00");
  EXPECT_EQ(log.style(2), 4);
  EXPECT_EQ(log.text(3), "");
}

TEST(EventLog, The5001stLineFails) {
  EventLog log;
  for (int i = 0; i < EventLog::kCapacity; ++i) log.append(0, "x");
  EXPECT_THROW(log.append(0, "one too many"), EventLogFull);
  EXPECT_EQ(log.TotalLines(), 5000);
}

TEST(EventLog, SearchesMatchOnlyTheBeginningAndRespectCase) {
  EventLog log;
  log.append(1, "Apply Rule 2");
  log.append(0, "Set row 1, col 2, cell 2 to value 4");
  log.append(0, "RULE one");
  log.append(0, "Place additional 3 single values generated");
  log.RecordedLineCount = 4;
  EXPECT_EQ(log.searchForward("Set row", 1), 2);
  EXPECT_EQ(log.searchForward("Rule", 1), 0);  // "Apply Rule 2" holds it further on; "RULE" differs in case
  EXPECT_EQ(log.searchForward("Place additional ", 1), 4);
  EXPECT_EQ(log.searchForward("Place additional ", 5), 0);
  log.RecordedLineCount = 3;
  EXPECT_EQ(log.searchForward("Place additional ", 1), 0);  // bounded by the recorded count
  EXPECT_EQ(log.searchBackward("Apply", 4), 1);
  EXPECT_EQ(log.searchBackward("Set row", 1), 0);
}

TEST(EventLog, TextFileHoldsTheRecordedLinesWithoutPrefixes) {
  test::TempDir dir;
  EventLog log;
  log.append(0, "first");
  log.append(0, "");
  log.append(4, "third");
  log.RecordedLineCount = 2;
  ASSERT_TRUE(log.writeTextFile(dir.file("Eventlog.txt")));
  EXPECT_EQ(*readWholeFile(dir.file("Eventlog.txt")), "first\r\n\r\n");
  log.RecordedLineCount = 0;
  ASSERT_TRUE(log.writeTextFile(dir.file("Eventlog.txt")));
  EXPECT_EQ(*readWholeFile(dir.file("Eventlog.txt")), "");
}

TEST(LogEvent, FollowsTheRunState) {
  test::TestSession t;
  Session& s = t.session;
  s.RunMode = kRunSilent;
  s.logEvent(0, "silent", true);
  EXPECT_EQ(s.log.TotalLines(), 0);

  s.RunMode = kRunNoPause;
  s.logEvent(0, "never waits", true);
  EXPECT_EQ(t.pacer.pauses, 0);

  s.RunMode = kRunReleased;
  s.logEvent(0, "no pause flag");
  EXPECT_EQ(t.pacer.pauses, 0);
  s.logEvent(0, "a pause point", true);
  EXPECT_EQ(t.pacer.pauses, 1);
  EXPECT_EQ(s.RunMode, kRunReleased);
  EXPECT_EQ(test::logLines(s), (std::vector<std::string>{"00never waits", "00no pause flag", "00a pause point"}));
}

TEST(LogEvent, AWaitEndedWithoutReleaseStopsTheRun) {
  struct ClosingPacer : Pacer {
    bool waitWhilePaused(int&) override { return false; }
  } pacer;
  Session s(Services{nullptr, nullptr, &pacer, nullptr, nullptr});
  s.RunMode = kRunReleased;
  EXPECT_THROW(s.logEvent(0, "pause", true), RunStopped);
}

TEST(ClearEventLog, AlsoEmptiesHintsAndRuleStatistics) {
  Session s;
  s.logEvent(0, "x");
  s.Hints.push_back("APPLY RULE 1");
  s.stats.timesApplied[3] = 4;
  s.stats.totalReductions[6] = 2;
  s.clearEventLog();
  EXPECT_EQ(s.log.TotalLines(), 0);
  EXPECT_TRUE(s.Hints.empty());
  EXPECT_EQ(s.stats.timesApplied[3], 0);
  EXPECT_EQ(s.stats.totalReductions[6], 0);
}

}  // namespace
}  // namespace tessaly
