// Start-up and shutdown of the window: the default collection, the welcome
// text, and which way out writes Quorrel.cfg.

#include <QGroupBox>
#include <QLineEdit>
#include <filesystem>

#include "solver/Texts.h"
#include "WindowFixture.h"

namespace tessaly::testing {
namespace {

class StartUpTest : public WindowFixture {
 protected:
  std::string configPath() const { return appDir() + "Quorrel.cfg"; }
  QString frameTitle() const { return child<QGroupBox>("PuzNumber")->title(); }
};

TEST_F(StartUpTest, ShowsTheDefaultCollectionsPuzzleCountAndReadsNoPuzzle) {
  std::filesystem::copy_file(puzzlePath("pe96.sud"), appDir() + "Puzzles.sud");
  startWindow();

  EXPECT_EQ(frameTitle(), "Total Puzzles 50");
  auto* file = child<QLineEdit>("FileNow");
  EXPECT_EQ(file->text().toStdString(), appDir() + "Puzzles.sud");
  EXPECT_EQ(file->toolTip(), file->text());
  EXPECT_TRUE(ui.messages.empty());
  EXPECT_EQ(session.CurrentPuzzleNumber, 0);
  for (int cell = 1; cell <= 81; ++cell) EXPECT_TRUE(window->valueBox(cell)->text().isEmpty());
}

TEST_F(StartUpTest, WritesTheWelcomeTextIntoTheClearedLog) {
  startWindow();
  ASSERT_EQ(session.log.TotalLines(), int(kWelcomeText.size()));
  for (int n = 1; n <= session.log.TotalLines(); ++n) {
    EXPECT_EQ(session.log.line(n).substr(0, 2), "00");
    EXPECT_EQ(session.log.text(n), kWelcomeText[std::size_t(n - 1)]);
  }
  EXPECT_EQ(logView()->TotalLines(), int(kWelcomeText.size()));
  EXPECT_EQ(logView()->lineText(1), "Welcome to Tessaly");
  EXPECT_EQ(logView()->lastVisibleLine(), int(kWelcomeText.size()));
}

TEST_F(StartUpTest, ReportsAMissingDefaultCollection) {
  startWindow();
  ASSERT_EQ(ui.messages.size(), 1u);
  EXPECT_EQ(ui.messages[0], "Default puzzle file not found: " + appDir() + "Puzzles.sud");
  EXPECT_EQ(session.TotalPuzzles, 0);
  // The previous / next / random buttons do nothing without a collection.
  click("NavButton_1");
  click("NavButton_2");
  EXPECT_EQ(session.CurrentPuzzleNumber, 0);
  EXPECT_EQ(ui.messages.size(), 1u);
}

TEST_F(StartUpTest, StartsWithOnlyStartEnabledAndTheSolutionsFrameOff) {
  startWindow();
  EXPECT_FALSE(child<QWidget>("SolutionsFrame")->isEnabled());
  EXPECT_FALSE(child<QPushButton>("NextStepCommand")->isEnabled());
  EXPECT_FALSE(child<QPushButton>("ClearCommand")->isEnabled());
  auto* pb1 = child<QProgressBar>("pb1");
  EXPECT_EQ(pb1->maximum(), 81);
  EXPECT_EQ(pb1->orientation(), Qt::Vertical);
}

TEST_F(StartUpTest, ExitWritesTheConfigurationAndCloses) {
  writeText(configPath(), " 300 \r\n3456\r\n\r\nPuzzles.sud\r\n");
  std::filesystem::copy_file(puzzlePath("pe96.sud"), appDir() + "Puzzles.sud");
  startWindow();
  std::filesystem::remove(configPath());
  action("mnuexit")->trigger();

  EXPECT_FALSE(window->isVisible());
  EXPECT_EQ(readText(configPath()), " 300 \r\n3456\r\n\r\nPuzzles.sud\r\n");
}

TEST_F(StartUpTest, ClosingTheWindowDoesNotWriteTheConfiguration) {
  startWindow();
  window->close();
  EXPECT_FALSE(window->isVisible());
  EXPECT_FALSE(std::filesystem::exists(configPath()));
}

TEST_F(StartUpTest, TheTabsShowTheirOwnPages) {
  startWindow();
  auto* tabs = child<QTabBar>("ctlTabs");
  QTest::mouseClick(tabs, Qt::LeftButton, {}, tabs->tabRect(1).center());
  EXPECT_EQ(session.controls.currentTab, 2);
  EXPECT_TRUE(child<QWidget>("CreateTab")->isVisible());
  EXPECT_FALSE(child<QWidget>("SolutionsFrame")->isVisible());
  QTest::mouseClick(tabs, Qt::LeftButton, {}, tabs->tabRect(2).center());
  EXPECT_EQ(session.controls.currentTab, 3);
  EXPECT_TRUE(child<QWidget>("ManualTab")->isVisible());
  QTest::mouseClick(tabs, Qt::LeftButton, {}, tabs->tabRect(0).center());
  EXPECT_EQ(session.controls.currentTab, 1);
  EXPECT_TRUE(child<QWidget>("SolutionsFrame")->isVisible());
}

}  // namespace
}  // namespace tessaly::testing
