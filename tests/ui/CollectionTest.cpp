// Choosing puzzles: File > Open, previous / next / random with either mouse
// button, the puzzle-number box, and reads the givens refuse.

#include <QGroupBox>
#include <QLineEdit>

#include "WindowFixture.h"

namespace tessaly::testing {
namespace {

class CollectionTest : public WindowFixture {
 protected:
  void openPe96() {
    startWindow();
    ui.messages.clear();  // no default collection in the scratch directory
    ui.files.push_back(puzzlePath("pe96.sud"));
    action("mnuOpen")->trigger();
  }
  QString frameTitle() const { return child<QGroupBox>("PuzNumber")->title(); }
  QString numberBox() const { return child<QLineEdit>("PuzNumNow")->text(); }
  void typeNumber(const QString& text) {
    auto* box = child<QLineEdit>("PuzNumNow");
    box->selectAll();
    QTest::keyClicks(box, text);
    QTest::keyClick(box, Qt::Key_Return);
  }
};

TEST_F(CollectionTest, OpenAsksForASudFileAndReadsItsFirstPuzzle) {
  openPe96();
  ASSERT_EQ(ui.fileRequests.size(), 1u);
  const FileRequest& request = ui.fileRequests[0];
  EXPECT_EQ(request.mode, FileRequest::Mode::Open);
  EXPECT_EQ(request.title, "SuDoKu");
  EXPECT_EQ(request.pattern, "*.sud");
  EXPECT_EQ(request.typeName, "SuDoKu Files");
  EXPECT_EQ(request.startDir, appDir());

  EXPECT_EQ(numberBox(), "1");
  EXPECT_EQ(frameTitle(), "Puzzle 1 of 50 (49 blanks)");
  EXPECT_EQ(child<QLineEdit>("FileNow")->text().toStdString(), puzzlePath("pe96.sud"));
  EXPECT_EQ(child<QLineEdit>("FileNow")->toolTip().toStdString(), puzzlePath("pe96.sud"));
  EXPECT_EQ(lastLogLine(), "Click Start to commence");
  EXPECT_TRUE(child<QWidget>("SolutionsFrame")->isEnabled());
  EXPECT_TRUE(child<QPushButton>("StartCommand")->isEnabled());
  EXPECT_FALSE(child<QPushButton>("NextStepCommand")->isEnabled());
}

TEST_F(CollectionTest, ShowsGivensCandidatesAndBoxCounts) {
  openPe96();
  for (int cell = 1; cell <= 81; ++cell) {
    const Cell& c = session.grid[cell];
    EXPECT_EQ(window->valueBox(cell)->text(), c.value ? QString::number(c.value) : QString()) << cell;
    auto* label = window->findChild<QLabel*>(QString("PosVals_%1").arg(cell));
    ASSERT_NE(label, nullptr);
    EXPECT_EQ(label->text().toStdString(), c.candidates.text()) << cell;
    EXPECT_EQ(label->toolTip(), QString::number(cell));
    const ColourScheme& scheme = window->colourScheme();
    const QColor back = label->palette().color(QPalette::Window);
    if (c.given || session.grid.isSingle(cell))
      EXPECT_EQ(back, QColor(scheme.givenBack.red, scheme.givenBack.green, scheme.givenBack.blue)) << cell;
    else
      EXPECT_EQ(back, QColor(scheme.candidateBack.red, scheme.candidateBack.green, scheme.candidateBack.blue))
          << cell;
  }
  for (int box = 1; box <= 9; ++box) {
    auto* count = window->findChild<QLabel*>(QString("BoxMissingCount_%1").arg(box));
    ASSERT_NE(count, nullptr);
    EXPECT_EQ(count->text(), QString::number(session.BoxMissingCount[std::size_t(box - 1)]));
    EXPECT_EQ(count->toolTip(), "The total number of choices in a box are shown on the right hand side");
  }
}

TEST_F(CollectionTest, NextAndPreviousWrapAroundAndTheRightButtonJumpsToTheEnds) {
  openPe96();
  click("NavButton_1");
  EXPECT_EQ(numberBox(), "2");
  EXPECT_EQ(session.CurrentPuzzleNumber, 2);
  EXPECT_TRUE(frameTitle().startsWith("Puzzle 2 of 50 ("));
  click("NavButton_1", Qt::RightButton);
  EXPECT_EQ(numberBox(), "50");
  click("NavButton_1");
  EXPECT_EQ(numberBox(), "1");
  click("NavButton_0");
  EXPECT_EQ(numberBox(), "50");
  click("NavButton_0");
  EXPECT_EQ(numberBox(), "49");
  click("NavButton_0", Qt::RightButton);
  EXPECT_EQ(numberBox(), "1");
}

TEST_F(CollectionTest, RandomTakesItsNumberFromTheRandomSource) {
  openPe96();
  click("NavButton_2");  // the scripted draw 0.5: int(0.5 * 50 + 1) + 1
  EXPECT_EQ(numberBox(), "27");
  EXPECT_EQ(session.CurrentPuzzleNumber, 27);
  click("NavButton_2", Qt::RightButton);
  EXPECT_EQ(numberBox(), "27");
}

TEST_F(CollectionTest, ThePuzzleNumberBoxReadsTheTypedNumberOnEnter) {
  openPe96();
  typeNumber("17");
  EXPECT_EQ(session.CurrentPuzzleNumber, 17);
  EXPECT_TRUE(frameTitle().startsWith("Puzzle 17 of 50 ("));
  for (const QString& nothing : {QString("0"), QString("51"), QString("abc")}) {
    typeNumber(nothing);
    EXPECT_EQ(session.CurrentPuzzleNumber, 17) << nothing.toStdString();
  }
  EXPECT_TRUE(ui.messages.empty());
  // The navigation buttons count from what the box holds.
  typeNumber("30");
  click("NavButton_1");
  EXPECT_EQ(numberBox(), "31");
}

TEST_F(CollectionTest, AReadWithDuplicateGivensIsRefused) {
  const std::string path = workDir() + "dup.sud";
  writeText(path, "#1\r\n55.......\r\n.........\r\n.........\r\n.........\r\n.........\r\n"
                  ".........\r\n.........\r\n.........\r\n.........\r\n");
  startWindow();
  ui.messages.clear();
  ui.files.push_back(path);
  action("mnuOpen")->trigger();
  ASSERT_FALSE(ui.messages.empty());
  EXPECT_EQ(ui.messages.back(), "This Puzzle does not appear to be valid, please check fixed values for duplicates");
  // The read grid stays on screen.
  EXPECT_EQ(window->valueBox(1)->text(), "5");
  EXPECT_EQ(window->valueBox(2)->text(), "5");
}

TEST_F(CollectionTest, ClearReadsThePuzzleAgain) {
  openPe96();
  click("Solveit");
  EXPECT_TRUE(child<QPushButton>("ClearCommand")->isEnabled());
  click("ClearCommand");
  EXPECT_EQ(lastLogLine(), "Click Start to commence");
  int empty = 0;
  for (int cell = 1; cell <= 81; ++cell) empty += window->valueBox(cell)->text().isEmpty();
  EXPECT_EQ(empty, 49);
}

}  // namespace
}  // namespace tessaly::testing
