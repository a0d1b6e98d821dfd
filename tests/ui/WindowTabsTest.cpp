// The Create and ManualSolve pages inside the real main window: clicks and keys
// on the window's own grid reach them, and their work shows on the grid.

#include <QLineEdit>
#include <QListWidget>
#include <QRadioButton>

#include "WindowFixture.h"

namespace tessaly::testing {
namespace {

class WindowTabsTest : public WindowFixture {
 protected:
  void selectTab(int index) {
    auto* tabs = child<QTabBar>("ctlTabs");
    tabs->setCurrentIndex(index);
    QCoreApplication::processEvents();
  }
};

TEST_F(WindowTabsTest, ManualPlayByClickAndKeysOnTheWindowGrid) {
  startWithPuzzle(puzzlePath("pe96.sud"), 1);
  selectTab(2);
  EXPECT_EQ(session.controls.currentTab, 3);
  // Cell 1 of Project Euler grid 01 is open and its solution is 4.
  QTest::mouseClick(window->valueBox(1), Qt::LeftButton);
  QTest::keyClick(window.get(), Qt::Key_4);
  auto* moves = child<QListWidget>("LogManual");
  ASSERT_EQ(moves->count(), 1);
  EXPECT_EQ(moves->item(0)->text().toStdString(), "C01 = 4");
  EXPECT_EQ(session.grid[1].value, 4);
  EXPECT_EQ(window->valueBox(1)->text().toStdString(), "4");
  // A digit that is not among the cell's candidates is swallowed.
  QTest::mouseClick(window->valueBox(2), Qt::LeftButton);
  QTest::keyClick(window.get(), Qt::Key_1);
  EXPECT_EQ(moves->count(), 1);
  EXPECT_EQ(session.grid[2].value, 0);
}

TEST_F(WindowTabsTest, CreatingFromTheCreatePageFillsTheWindowGrid) {
  startWindow();
  selectTab(1);
  auto* blanks = child<QLineEdit>("TotBlanks");
  blanks->setText("40");
  child<QRadioButton>("Distribution_1")->setChecked(true);  // by Box
  click("CreateCommand");
  int shownBlank = 0;
  for (int c = 1; c <= kCells; ++c) shownBlank += window->valueBox(c)->text().isEmpty() ? 1 : 0;
  EXPECT_EQ(shownBlank, 36);
  EXPECT_EQ(blanks->text().toStdString(), "36");
  EXPECT_EQ(session.PuzNumNow, "NEW");
}

}  // namespace
}  // namespace tessaly::testing
