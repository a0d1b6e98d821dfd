// The session's parts: grid tables, cells and candidates, number texts, the placement queue, the event log.

#include <gtest/gtest.h>

#include "model/EventLog.h"
#include "model/Session.h"
#include "model/Text.h"
#include "support/TestSupport.h"

namespace tessaly {
namespace {

TEST(GridTables, EveryCellsRowColumnBoxAndAreaPlacesAgree) {
  for (int c = 1; c <= kCells; ++c) {
    const int row = CellRow[c], col = CellCol[c], box = CellBox[c];
    const int inBox = (row - 1) % 3 * 3 + (col - 1) % 3;  // boxes are read row by row
    EXPECT_EQ(CellNumber[row][col], c);
    EXPECT_EQ(box, (row - 1) / 3 * 3 + (col - 1) / 3 + 1) << c;
    EXPECT_EQ(areaCells(AreaKind::Row, row)[std::size_t(col - 1)], c);
    EXPECT_EQ(areaCells(AreaKind::Col, col)[std::size_t(row - 1)], c);
    EXPECT_EQ(areaCells(AreaKind::Box, box)[std::size_t(inBox)], c);
    EXPECT_EQ(BoxCells[std::size_t(box)].substr(std::size_t(2 * inBox), 2), padded(c, 2));
  }
}

TEST(PuzzleGrid, AreaValuesGivensTheValueCodeAndCandidateTexts) {
  PuzzleGrid g;
  g[1].value = 5;
  g[3].value = 3;
  g[1].given = true;
  EXPECT_EQ(g.areaValueString(AreaKind::Row, 1) + "|" + g.areaValueString(AreaKind::Col, 2), "53|");
  EXPECT_EQ(g.givensCount(), 1);
  EXPECT_EQ(g.valueCode(), "503" + std::string(78, '0'));
  CandidateSet s = CandidateSet::full();
  s.remove(3);
  s.remove(3);  // not a member any more: unchanged
  EXPECT_EQ(s.text() + "|" + CandidateSet::fromText("942").text(), "12456789|249");
  EXPECT_EQ(std::pair(CandidateSet::of(7).numeric(), CandidateSet::fromText("47").numeric()), std::pair(7, 0));
}

TEST(Text, NumbersTakeOneLeadingBlankAndReadLeniently) {
  EXPECT_EQ(num(5) + num(0) + num(-3), " 5 0-3");
  EXPECT_EQ(padded(5, 2) + "|" + padded(125, 2) + "|" + padded(7, 3) + "|" + padded(-4, 2), "05|125|007|-04");
  // A text with no leading number reads as 0, and leadingNumber tells it apart.
  for (auto [text, value, read] : {std::tuple{" 250 ", 250, true}, {"\t-12x", -12, true}, {"+7", 7, true},
                                   {"-0", 0, true}, {"x12", 0, false}, {"", 0, false}, {"-", 0, false}}) {
    EXPECT_EQ(numericValue(text), value) << text;
    EXPECT_EQ(leadingNumber(text), read ? std::optional<long long>(value) : std::nullopt) << text;
  }
}

TEST(SolveState, QueueKeysSortIntoPlacementOrderAndRetriesComeFirst) {
  CandidateQueue q;
  using D = CandidateSet;
  for (QueueEntry e : {QueueEntry{2, 3, 10, 2, D::fromText("47")}, {1, 5, 4, 2, D::of(7)}, {1, 2, 70, 8, D::of(3)},
                       {1, 2, 60, 9, D::of(5)}, {0, 0, 23, 3, D::of(8)}})
    q.insert(e);
  std::string keys;
  for (int i = 0; i < q.size(); ++i) keys += q[i].text() + " ";
  EXPECT_EQ(keys, "0000SQ23BX03VL8 0102SQ60BX09VL5 0102SQ70BX08VL3 0105SQ04BX02VL7 0203SQ10BX02VL47 ");
  GuessStack st;
  st.push({q[0], std::string(81, '0')});
  EXPECT_EQ(st.entry(0) + "|" + st.entry(2) + "|" + st.entry(-1), "0000SQ23BX03VL8||");  // beyond the end: ""
}

TEST(EventLog, KeepsStyleAndTextListsThemHolds5000LinesAtMostAndWritesTheRecordedOnes) {
  EventLog log;
  log.append(0, "Click Start to commence");
  log.append(4, "This puzzle does not appear to have a solution!");
  log.append(0, "");
  EXPECT_EQ(log.listed(1) + "|" + log.listed(2) + "|" + log.listed(3),
            "00Click Start to commence|04This puzzle does not appear to have a solution!|00");
  EXPECT_EQ(log.style(2), 4);
  EXPECT_EQ(log.text(3), "");
  // The text file holds lines 1..RecordedLineCount without their style.
  test::TempDir dir;
  const std::string first = "Click Start to commence\r\n";
  for (auto [recorded, expected] : {std::pair{3, first + "This puzzle does not appear to have a solution!\r\n\r\n"},
                                    {1, first}, {0, std::string()}}) {
    log.RecordedLineCount = recorded;
    ASSERT_TRUE(log.writeTextFile(dir.file("Eventlog.txt")));
    EXPECT_EQ(test::readFile(dir.file("Eventlog.txt")), expected);
  }
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

TEST(LogEvent, FollowsTheRunStateAndAWaitEndedWithoutReleaseStopsTheRun) {
  test::TestSession t;
  Session& s = t.session;
  for (auto [mode, text, pause] : {std::tuple{RunState::Silent, "silent", true}, {RunState::NoPause, "never waits", true},
                                   {RunState::Released, "no pause flag", false}}) {
    s.run.mode = mode;
    s.logEvent(0, text, pause);
  }
  EXPECT_EQ(t.pacer.pauses, 0);
  s.logEvent(0, "a pause point", true);
  EXPECT_EQ(t.pacer.pauses, 1);
  EXPECT_EQ(s.run.mode, RunState::Released);
  EXPECT_EQ(test::logLines(s), (std::vector<std::string>{"00never waits", "00no pause flag", "00a pause point"}));
  // Clearing the log also empties the hints and the rule statistics.
  s.hints.push_back({HintKind::Heading, 0, 0, "APPLY RULE 1"});
  s.run.stats.timesApplied[3] = s.run.stats.totalReductions[6] = 2;
  s.clearEventLog();
  EXPECT_EQ(s.log.TotalLines() + s.hints.size(), 0u);
  EXPECT_EQ(s.run.stats.timesApplied, (std::array<int, 7>{}));
  EXPECT_EQ(s.run.stats.totalReductions, (std::array<int, 7>{}));

  struct ClosingPacer : Pacer { bool waitWhilePaused(RunState&) override { return false; } } closing;
  Session stopped(Services{nullptr, nullptr, &closing, nullptr, nullptr});
  stopped.run.mode = RunState::Released;
  EXPECT_THROW(stopped.logEvent(0, "pause", true), RunStopped);
}

}  // namespace
}  // namespace tessaly
