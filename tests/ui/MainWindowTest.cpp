// The main window as the user first sees it: the three mode tabs and the 81
// value boxes of the grid.

#include <gtest/gtest.h>

#include <QLabel>
#include <QTabBar>
#include <QTest>

#include "model/Services.h"
#include "model/Session.h"
#include "ui/Form1.h"

namespace tessaly {
namespace {

class MainWindowTest : public ::testing::Test {
 protected:
  MainWindowTest() : window(session, &ui) {
    window.show();
    EXPECT_TRUE(QTest::qWaitForWindowExposed(&window));
  }

  ScriptedUserInterface ui;
  Session session;
  Form1 window;
};

TEST_F(MainWindowTest, IsTheFormTitledTessaly) {
  EXPECT_EQ(window.objectName(), "Form1");
  EXPECT_EQ(window.windowTitle(), "Tessaly");
}

TEST_F(MainWindowTest, OffersTheThreeModeTabsInOrder) {
  auto* tabs = window.findChild<QTabBar*>("ctlTabs");
  ASSERT_NE(tabs, nullptr);
  ASSERT_EQ(tabs->count(), 3);
  EXPECT_EQ(tabs->tabText(0), "AutoSolve");
  EXPECT_EQ(tabs->tabText(1), "Create");
  EXPECT_EQ(tabs->tabText(2), "ManualSolve");
}

TEST_F(MainWindowTest, ClickingATabMakesItCurrent) {
  auto* tabs = window.findChild<QTabBar*>("ctlTabs");
  ASSERT_NE(tabs, nullptr);
  QTest::mouseClick(tabs, Qt::LeftButton, {}, tabs->tabRect(2).center());
  EXPECT_EQ(tabs->currentIndex(), 2);
}

TEST_F(MainWindowTest, HasEightyOneValueBoxesWithTheirCellNumbers) {
  auto* grid = window.findChild<QWidget*>("Grid");
  ASSERT_NE(grid, nullptr);
  for (int slot = 0; slot < 81; ++slot) {
    auto* box = grid->findChild<QLabel*>(QString("Grid_%1").arg(slot));
    ASSERT_NE(box, nullptr) << "slot " << slot;
    EXPECT_EQ(box->toolTip(), QString::number(slot + 1));
    EXPECT_TRUE(box->isVisible());
  }
}

TEST_F(MainWindowTest, LaysTheBoxesOutRowByRowWithGapsBetweenTheBoxes) {
  auto at = [&](int row, int col) { return window.valueBox((row - 1) * 9 + col)->geometry(); };
  const int step = at(1, 2).left() - at(1, 1).left();
  EXPECT_GT(step, 0);
  // Same step inside a box, a wider one before columns and rows 4 and 7.
  EXPECT_EQ(at(1, 3).left() - at(1, 2).left(), step);
  EXPECT_GT(at(1, 4).left() - at(1, 3).left(), step);
  EXPECT_GT(at(1, 7).left() - at(1, 6).left(), step);
  EXPECT_EQ(at(2, 1).top() - at(1, 1).top(), step);
  EXPECT_GT(at(4, 1).top() - at(3, 1).top(), step);
  EXPECT_GT(at(7, 1).top() - at(6, 1).top(), step);
  EXPECT_EQ(at(9, 9).top(), at(9, 1).top());
}

}  // namespace
}  // namespace tessaly
