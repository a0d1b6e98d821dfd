// Choosing puzzles: File > Open, previous / next / random with either mouse
// button, the puzzle-number box, and Clear.

#include <QGroupBox>
#include <QLineEdit>

#include "model/CollectionFile.h"
#include "WindowFixture.h"

namespace tessaly::testing {
namespace {

class CollectionTest : public WindowFixture {
 protected:
  void openPe96() {
    startWindow();
    ui.files.push_back(puzzleFile("pe96.sud"));
    action("mnuOpen")->trigger();
  }
  QString numberBox() const { return child<QLineEdit>("PuzNumNow")->text(); }
  void typeNumber(const QString& text) {
    auto* box = child<QLineEdit>("PuzNumNow");
    box->selectAll();
    QTest::keyClicks(box, text);
    QTest::keyClick(box, Qt::Key_Return);
  }
};

TEST_F(CollectionTest, OpenAsksForASudFileAndShowsItsFirstPuzzle) {
  openPe96();
  ASSERT_EQ(ui.fileRequests.size(), 1u);
  EXPECT_EQ(ui.fileRequests[0].mode, FileRequest::Mode::Open);
  EXPECT_EQ(ui.fileRequests[0].pattern, "*.sud");
  EXPECT_EQ(ui.fileRequests[0].startDir, appDir());
  EXPECT_EQ(numberBox(), "1");
  EXPECT_EQ(child<QGroupBox>("PuzNumber")->title(), "Puzzle 1 of 50 (49 blanks)");
  EXPECT_EQ(child<QLineEdit>("FileNow")->text().toStdString(), puzzleFile("pe96.sud"));
  for (int cell = 1; cell <= kCells; ++cell) {
    const Cell& c = session.grid[cell];
    EXPECT_EQ(window->valueBox(cell)->text(), c.value ? QString::number(c.value) : QString()) << cell;
    EXPECT_EQ(child<QLabel>(qPrintable(QString("PosVals_%1").arg(cell)))->text().toStdString(), c.candidates.text());
  }
  for (int box = 1; box <= 9; ++box)
    EXPECT_EQ(child<QLabel>(qPrintable(QString("BoxMissingCount_%1").arg(box)))->text(),
              QString::number(session.BoxMissingCount[std::size_t(box - 1)]));
}

TEST_F(CollectionTest, TheNavigationButtonsReadTheirTargetWithEitherMouseButton) {
  openPe96();
  const struct {
    const char* button;
    Qt::MouseButton mouse;
    const char* shown;
  } steps[] = {{"NavButton_1", Qt::LeftButton, "2"},  {"NavButton_1", Qt::RightButton, "50"},
               {"NavButton_1", Qt::LeftButton, "1"},  {"NavButton_0", Qt::LeftButton, "50"},
               {"NavButton_0", Qt::RightButton, "1"}};
  for (const auto& step : steps) {
    click(step.button, step.mouse);
    EXPECT_EQ(numberBox(), step.shown) << step.button << " to " << step.shown;
    EXPECT_EQ(std::to_string(session.collection.CurrentPuzzleNumber), step.shown);
  }
  // Random draws from the session's random source.
  click("NavButton_2");
  EXPECT_EQ(session.collection.CurrentPuzzleNumber, navigationTarget(NavButton::Random, false, 1, 50, 0.5));
  EXPECT_EQ(numberBox(), QString::number(session.collection.CurrentPuzzleNumber));
}

TEST_F(CollectionTest, ThePuzzleNumberBoxReadsOnEnterAndClearReadsAgain) {
  openPe96();
  typeNumber("17");
  EXPECT_EQ(session.collection.CurrentPuzzleNumber, 17);
  EXPECT_TRUE(child<QGroupBox>("PuzNumber")->title().startsWith("Puzzle 17 of 50 ("));
  typeNumber("51");  // out of range: nothing read
  EXPECT_EQ(session.collection.CurrentPuzzleNumber, 17);
  // The navigation buttons count from what the box holds.
  typeNumber("30");
  click("NavButton_1");
  EXPECT_EQ(numberBox(), "31");
  // Clear reads the puzzle again.
  const auto blanksShown = [&] {
    int empty = 0;
    for (int cell = 1; cell <= kCells; ++cell) empty += window->valueBox(cell)->text().isEmpty();
    return empty;
  };
  const int blanks = blanksShown();
  click("Solveit");
  EXPECT_EQ(blanksShown(), 0);
  click("ClearCommand");
  EXPECT_EQ(blanksShown(), blanks);
  EXPECT_EQ(lastLogLine(), "Click Start to commence");
}

}  // namespace
}  // namespace tessaly::testing
