// The main window: start-up on the application directory, which way out writes
// Quorrel.cfg, and the mode tabs handing the grid's clicks and keys to their pages.

#include <QCoreApplication>
#include <QEnterEvent>
#include <QGroupBox>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QRadioButton>
#include <QTabBar>
#include <filesystem>

#include "play/Explanation.h"
#include "play/Hints.h"
#include "solver/Texts.h"
#include "WindowFixture.h"

namespace tessaly::testing {
namespace {

class MainWindowTest : public WindowFixture {
 protected:
  std::string configPath() const { return appDir() + "Quorrel.cfg"; }
  void selectTab(Tab tab) {
    auto* tabs = child<QTabBar>("ctlTabs");
    QTest::mouseClick(tabs, Qt::LeftButton, {}, tabs->tabRect(int(tab) - 1).center());
    EXPECT_EQ(session.controls.currentTab, tab);
  }
};

TEST_F(MainWindowTest, StartUpShowsTheDefaultCollectionAndTheWelcomeText) {
  std::filesystem::copy_file(puzzleFile("pe96.sud"), appDir() + "Puzzles.sud");
  startWindow();
  EXPECT_EQ(child<QGroupBox>("PuzNumber")->title(), "Total Puzzles 50");
  EXPECT_EQ(child<QLineEdit>("FileNow")->text().toStdString(), appDir() + "Puzzles.sud");
  EXPECT_TRUE(ui.messages.empty());
  ASSERT_EQ(logView()->TotalLines(), int(kWelcomeText.size()));
  EXPECT_EQ(logView()->lineText(1).toStdString(), kWelcomeText[0]);
  EXPECT_EQ(logView()->lastVisibleLine(), logView()->TotalLines());
}

TEST_F(MainWindowTest, ExitWritesTheConfiguration) {
  writeFile(configPath(), " 300 \r\n3456\r\n\r\nPuzzles.sud\r\n");
  std::filesystem::copy_file(puzzleFile("pe96.sud"), appDir() + "Puzzles.sud");
  startWindow();
  std::filesystem::remove(configPath());
  action("mnuexit")->trigger();
  EXPECT_FALSE(window->isVisible());
  EXPECT_EQ(readFile(configPath()), " 300 \r\n3456\r\n\r\nPuzzles.sud\r\n");
}

TEST_F(MainWindowTest, ClosingTheWindowDoesNotWriteTheConfiguration) {
  startWindow();
  window->close();
  EXPECT_FALSE(window->isVisible());
  EXPECT_FALSE(std::filesystem::exists(configPath()));
}

TEST_F(MainWindowTest, TheManualSolveTabTakesTheGridsClicksAndKeys) {
  startWithPuzzle();
  selectTab(Tab::ManualSolve);
  EXPECT_TRUE(child("ManualTab")->isVisible());
  // Cell 1 of the puzzle has the choices 45 and the solution 4.
  QTest::mouseClick(window->valueBox(1), Qt::LeftButton);
  QTest::keyClick(window.get(), Qt::Key_4);
  EXPECT_EQ(window->valueBox(1)->text(), "4");
  EXPECT_EQ(child<QListWidget>("LogManual")->item(0)->text(), "C01 = 4");
  QTest::mouseDClick(window->valueBox(2), Qt::LeftButton);  // the drop-down of the cell's choices
  EXPECT_TRUE(child<QMenu>("mnuChoices")->isVisible());
  child<QMenu>("mnuChoices")->hide();

  // The candidate labels: a click explains the choices, the pointer reads them out.
  QTest::mouseClick(window->findChild<QLabel*>("PosVals_5"), Qt::LeftButton);
  ASSERT_GT(child<QListWidget>("Explanation")->count(), 0);
  EXPECT_EQ(child<QListWidget>("Explanation")->item(0)->text().toStdString(), explainCandidates(session, 5).lines[0]);
  QEnterEvent enter(QPointF(1, 1), QPointF(1, 1), QPointF(1, 1));
  QCoreApplication::sendEvent(window->findChild<QLabel*>("PosVals_5"), &enter);
  EXPECT_EQ(child<QLabel>("PointerReadout")->text().toStdString(), candidateReadout(session, 5));
}

TEST_F(MainWindowTest, TheCreateTabFillsTheWindowsGrid) {
  startWindow();
  selectTab(Tab::Create);
  EXPECT_TRUE(child("CreateTab")->isVisible());
  EXPECT_FALSE(child("SolutionsFrame")->isVisible());
  child<QLineEdit>("TotBlanks")->setText("40");
  child<QRadioButton>("Distribution_1")->setChecked(true);  // by Box: 4 blanks a box
  click("CreateCommand");
  int shownBlank = 0;
  for (int c = 1; c <= kCells; ++c) shownBlank += window->valueBox(c)->text().isEmpty();
  EXPECT_EQ(shownBlank, 36);
  selectTab(Tab::AutoSolve);
  EXPECT_TRUE(child("SolutionsFrame")->isVisible());
}

}  // namespace
}  // namespace tessaly::testing
