// The event log view `EventLogx`: coloured lines, the newest line in view,
// selecting and copying, and appending that stays fast.

#include <QApplication>
#include <QClipboard>
#include <QElapsedTimer>
#include <QScrollBar>

#include "model/EventLog.h"
#include "ui/cTxtBox.h"

#include <gtest/gtest.h>
#include <QTest>

namespace tessaly {
namespace {

class EventLogViewTest : public ::testing::Test {
 protected:
  EventLogViewTest() : view(log) {
    view.resize(400, 200);
    view.show();
    EXPECT_TRUE(QTest::qWaitForWindowExposed(&view));
  }
  EventLog log;
  cTxtBox view;
};

TEST_F(EventLogViewTest, IsNamedEventLogx) { EXPECT_EQ(view.objectName(), "EventLogx"); }

TEST_F(EventLogViewTest, DrawsEachStyleInItsColourOfTheSixteenColourPalette) {
  EXPECT_EQ(cTxtBox::styleColour(0), QColor(0, 0, 0));
  EXPECT_EQ(cTxtBox::styleColour(1), QColor(0, 0, 128));
  EXPECT_EQ(cTxtBox::styleColour(2), QColor(0, 128, 0));
  EXPECT_EQ(cTxtBox::styleColour(4), QColor(128, 0, 0));
  EXPECT_EQ(cTxtBox::styleColour(6), QColor(128, 128, 0));
  EXPECT_EQ(cTxtBox::styleColour(7), QColor(192, 192, 192));
  EXPECT_EQ(cTxtBox::styleColour(12), QColor(255, 0, 0));
  EXPECT_EQ(cTxtBox::styleColour(14), QColor(255, 255, 0));
  EXPECT_EQ(cTxtBox::styleColour(15), QColor(255, 255, 255));
}

TEST_F(EventLogViewTest, TakesStyleAndTextFromTheStoredLine) {
  log.append(4, "This puzzle does not appear to have a solution!");
  log.append(0, "");
  view.syncWithLog();
  ASSERT_EQ(view.TotalLines(), 2);
  EXPECT_EQ(view.lineStyle(1), 4);
  EXPECT_EQ(view.lineText(1), "This puzzle does not appear to have a solution!");
  EXPECT_EQ(view.lineText(2), "");
  // The drawn pixels of a red line are red.
  const QImage image = view.viewport()->grab().toImage();
  bool sawRed = false;
  for (int x = 0; x < image.width() && !sawRed; ++x)
    for (int y = 0; y < view.fontMetrics().lineSpacing(); ++y)
      if (image.pixelColor(x, y) == QColor(128, 0, 0)) sawRed = true;
  EXPECT_TRUE(sawRed);
}

TEST_F(EventLogViewTest, KeepsTheNewestLineInView) {
  for (int i = 1; i <= 100; ++i) {
    log.append(0, "Line " + std::to_string(i));
    view.syncWithLog();
    EXPECT_EQ(view.lastVisibleLine(), i);
  }
  EXPECT_GT(view.firstVisibleLine(), 1);
  EXPECT_LE(view.LinesPerPage(), 100);
}

TEST_F(EventLogViewTest, NoticesALogThatWasClearedAndRefilled) {
  log.append(0, "Puzzle 1");
  log.append(0, "same");
  view.syncWithLog();
  log.clear();
  log.append(0, "Puzzle 2");
  log.append(0, "same");
  view.syncWithLog(true);
  EXPECT_EQ(view.lineText(1), "Puzzle 2");
  log.clear();
  view.syncWithLog();
  EXPECT_EQ(view.TotalLines(), 0);
}

TEST_F(EventLogViewTest, WrapsLongLinesWithoutLosingText) {
  const std::string longLine(600, 'x');
  log.append(0, "Rule 1: " + longLine);
  view.syncWithLog();
  EXPECT_EQ(view.lineText(1).size(), qsizetype(longLine.size() + 8));
}

TEST_F(EventLogViewTest, SelectsAndCopiesWholeLines) {
  for (const char* text : {"first", "second", "third"}) log.append(0, text);
  view.syncWithLog();
  view.verticalScrollBar()->setValue(0);
  const int row = view.fontMetrics().lineSpacing();
  QTest::mousePress(view.viewport(), Qt::LeftButton, {}, QPoint(10, row / 2));
  QTest::mouseMove(view.viewport(), QPoint(10, row + row / 2));
  QTest::mouseRelease(view.viewport(), Qt::LeftButton, {}, QPoint(10, row + row / 2));
  EXPECT_EQ(view.selectedText(), "first\nsecond");
  QTest::keyClick(&view, Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(QApplication::clipboard()->text(), "first\nsecond");
  view.selectAll();
  EXPECT_EQ(view.selectedText(), "first\nsecond\nthird");
}

TEST_F(EventLogViewTest, AppendingAFullLogLineByLineStaysFast) {
  QElapsedTimer timer;
  timer.start();
  for (int i = 1; i <= EventLog::kCapacity; ++i) {
    log.append(i % 16, "Remove row duplicate 5 from choice 1259 in row 3, col 4, cell 22 (" + std::to_string(i) + ")");
    view.syncWithLog();
  }
  QApplication::processEvents();
  EXPECT_EQ(view.TotalLines(), EventLog::kCapacity);
  EXPECT_EQ(view.lastVisibleLine(), EventLog::kCapacity);
  // Each line costs the same whatever the log holds: the whole log well under a second.
  EXPECT_LT(timer.elapsed(), 1000);
}

}  // namespace
}  // namespace tessaly
