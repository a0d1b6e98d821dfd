// The event log view `EventLogx`: lines drawn in their style's colour and
// wrapped to the width, the newest line kept in view, a cleared log noticed,
// and whole lines selected and copied.

#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QScrollBar>
#include <QTest>

#include "model/EventLog.h"
#include "ui/EventLogView.h"

namespace tessaly {
namespace {

class EventLogViewTest : public ::testing::Test {
 protected:
  EventLogViewTest() {
    view.resize(400, 200);
    view.show();
    EXPECT_TRUE(QTest::qWaitForWindowExposed(&view));
  }
  EventLog log;
  EventLogView view{log};
};

TEST_F(EventLogViewTest, DrawsALineInTheColourOfItsStyle) {
  log.append(4, "This puzzle does not appear to have a solution!");
  view.syncWithLog();
  const QImage image = view.viewport()->grab().toImage();
  bool sawRed = false;  // style 4 is dark red
  for (int x = 0; x < image.width(); ++x)
    for (int y = 0; y < view.fontMetrics().lineSpacing(); ++y) sawRed |= image.pixelColor(x, y) == QColor(128, 0, 0);
  EXPECT_TRUE(sawRed);
}

TEST_F(EventLogViewTest, WrapsALongLineIntoRowsAndKeepsTheNewestLineInView) {
  std::string words;
  while (words.size() < 3000) words += "Remove row duplicate 5 ";
  log.append(0, words);
  view.syncWithLog();
  // One line, more rows than the page holds: the view scrolls within it.
  EXPECT_GT(view.verticalScrollBar()->maximum(), 0);
  EXPECT_EQ(view.firstVisibleLine(), 1);
  const int rowsWide = view.verticalScrollBar()->maximum();
  view.resize(200, 200);  // narrower: more rows
  QApplication::processEvents();
  EXPECT_GT(view.verticalScrollBar()->maximum(), rowsWide);
  for (int i = 2; i <= 100; ++i) {
    log.append(0, "Line " + std::to_string(i));
    view.syncWithLog();
    EXPECT_EQ(view.lastVisibleLine(), i);
  }
  EXPECT_GT(view.firstVisibleLine(), 1);
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

TEST_F(EventLogViewTest, SelectsAndCopiesWholeLines) {
  for (const char* text : {"first", "second", "third"}) log.append(0, text);
  view.syncWithLog();
  const int row = view.fontMetrics().lineSpacing();
  QTest::mousePress(view.viewport(), Qt::LeftButton, {}, QPoint(10, row / 2));
  QTest::mouseMove(view.viewport(), QPoint(10, row + row / 2));
  QTest::mouseRelease(view.viewport(), Qt::LeftButton, {}, QPoint(10, row + row / 2));
  QTest::keyClick(&view, Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(QApplication::clipboard()->text(), "first\nsecond");
  QTest::keyClick(&view, Qt::Key_A, Qt::ControlModifier);
  EXPECT_EQ(view.selectedText(), "first\nsecond\nthird");
}

}  // namespace
}  // namespace tessaly
