// The ManualSolve tab's controls on puzzle 1 of pe96: keys, buttons, the
// drop-down and the list clicks reach manual play and the hints, and the page
// shows what they leave (placements, summaries, hints, read-outs, paints).

#include <gtest/gtest.h>

#include <QAction>
#include <QLabel>
#include <QListWidget>
#include <QMenu>
#include <QPushButton>
#include <QTest>
#include <algorithm>

#include "play/Explanation.h"
#include "play/Hints.h"
#include "play/ManualPlay.h"
#include "solver/ReadPuzzle.h"
#include "support/TestSupport.h"
#include "ui/ManualPage.h"

namespace tessaly {
namespace {

class ManualPageTest : public ::testing::Test {
 protected:
  ManualPageTest() {
    session.controls.currentTab = Tab::ManualSolve;
    page.show();
    EXPECT_TRUE(QTest::qWaitForWindowExposed(&page));
    session.collection.CurrentFile = test::puzzleFile("pe96.sud");
    EXPECT_TRUE(readPuzzle(session, session.collection.CurrentFile, 1));
  }
  template <class W = QWidget>
  W* child(const QString& name) { return page.findChild<W*>(name); }
  std::string text(const QString& label) { return child<QLabel>(label)->text().toStdString(); }
  std::vector<std::string> lines(const char* list) {
    std::vector<std::string> lines;
    for (int i = 0; i < child<QListWidget>(list)->count(); ++i)
      lines.push_back(child<QListWidget>(list)->item(i)->text().toStdString());
    return lines;
  }
  void clickLine(const char* list, int row, Qt::MouseButton button) {
    auto* l = child<QListWidget>(list);
    QTest::mouseClick(l->viewport(), button, {}, l->visualItemRect(l->item(row)).center());
  }
  void clickButton(const QString& name) { QTest::mouseClick(child<QPushButton>(name), Qt::LeftButton); }
  /// Selects the cell and types the digit on the main keyboard (or the numeric pad).
  void type(int cell, int digit, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    page.onCellClicked(cell);
    page.onKeyReleased(Qt::Key_0 + digit, modifiers);
  }
  ManualPlay& play() { return page.play(); }

  // Cell 1 has the choices 45 (solution 4), cell 2 4578 (8), cell 4 49 (9): a
  // 4 there would leave cell 76 without choices.
  test::TestSession t;
  Session& session = t.session;
  ScriptedUserInterface& ui = t.ui;
  std::vector<std::pair<int, ManualPaint>> paints;  // as the page asks the window
  ManualPage page{session, [this](int cell, ManualPaint paint) { paints.emplace_back(cell, paint); }, {}};
};

TEST_F(ManualPageTest, KeysAndButtonsReachManualPlayAndThePageShowsItsState) {
  type(1, 4, Qt::KeypadModifier);  // the numeric pad's digits are not taken
  EXPECT_EQ(session.grid[1].value, 0);
  type(1, 4);
  EXPECT_EQ(session.grid[1].value, 4);
  EXPECT_EQ(lines("LogManual"), std::vector<std::string>{"C01 = 4"});
  for (int n = 1; n <= 9; ++n) {
    EXPECT_EQ(text(QString("PossibleInRow_%1").arg(n)), play().PossibleInRow[std::size_t(n - 1)]);
    EXPECT_EQ(text(QString("PossibleInCol_%1").arg(n)), play().PossibleInCol[std::size_t(n - 1)]);
  }
  type(2, 8);
  page.onKeyReleased(Qt::Key_Delete);
  EXPECT_EQ(session.grid[2].value, 0);
  clickButton("UndoManual");
  EXPECT_EQ(session.grid[1].value, 0);
  EXPECT_TRUE(lines("LogManual").empty());

  // A refused digit: the cell it would leave without choices is painted red, then normal again.
  paints.clear();
  type(4, 4);
  EXPECT_EQ(ui.messages.size(), 1u);
  EXPECT_NE(std::find(paints.begin(), paints.end(), std::pair(76, ManualPaint::Refused)), paints.end());
  EXPECT_EQ(page.paintOf(76), ManualPaint::Normal);

  type(4, 9);
  clickButton("ClearManual");
  EXPECT_EQ(session.grid[4].value, 0);
  session.controls.currentTab = Tab::AutoSolve;  // on another tab the page takes no keys
  type(1, 4);
  EXPECT_EQ(session.grid[1].value, 0);
}

TEST_F(ManualPageTest, ArrowKeysMoveTheSelectionAndTheDropDownOffersTheChoices) {
  const std::pair<int, int> steps[] = {{Qt::Key_Right, 1},  // nothing selected yet: the first cell
                                       {Qt::Key_Right, 2}, {Qt::Key_Down, 11}, {Qt::Key_Left, 10}, {Qt::Key_Left, 10},
                                       {Qt::Key_Up, 1},    {Qt::Key_Up, 1},    {Qt::Key_Right, 2}};
  for (const auto& [key, cell] : steps) {
    page.onKeyReleased(key);
    EXPECT_EQ(play().selectedCell, cell) << "key " << key;
  }
  EXPECT_EQ(text("CellChoice"), "4578");
  EXPECT_EQ(page.paintOf(2), ManualPaint::Selected);

  page.onCellDoubleClicked(2, page.mapToGlobal(QPoint(10, 10)));
  for (int d = 1; d <= 9; ++d)
    EXPECT_EQ(child<QAction>(QString("xc_%1").arg(d))->isVisible(), d == 4 || d == 5 || d == 7 || d == 8) << d;
  child<QAction>("xc_8")->trigger();
  page.choicesMenu()->hide();
  EXPECT_EQ(session.grid[2].value, 8);
}

TEST_F(ManualPageTest, ClicksOnTheMoveListAndTheHintLinesReachTheirCells) {
  type(1, 4);
  type(2, 8);
  clickLine("LogManual", 0, Qt::LeftButton);
  EXPECT_EQ(play().selectedCell, 1);
  EXPECT_EQ(page.paintOf(1), ManualPaint::Selected);

  // Each hint button runs its own rule; the list shows the session's hints.
  for (int k = 0; k <= kAllRulesHint; ++k) {
    clickButton(QString("GetHint_%1").arg(k));
    EXPECT_EQ(lines("Hints"), session.Hints) << k;
    EXPECT_EQ(lines("Hints").at(0), k < kAllRulesHint ? "APPLY RULE " + std::to_string(k + 1) : "") << k;
  }
  const auto single = std::find_if(session.Hints.begin(), session.Hints.end(),
                                   [](const std::string& line) { return line.rfind("Row=", 0) == 0; });
  ASSERT_NE(single, session.Hints.end()) << "no hint found a single value";
  const std::string line = *single;  // Row= 3, Col= 5, Cell= 23, Value= 7
  const int row = int(single - session.Hints.begin()), cell = std::stoi(line.substr(line.find("Cell=") + 5));
  clickLine("Hints", row, Qt::LeftButton);
  EXPECT_EQ(play().selectedCell, cell);
  EXPECT_EQ(session.grid[cell].value, 0);
  clickLine("Hints", row, Qt::RightButton);
  EXPECT_EQ(session.grid[cell].value, std::stoi(line.substr(line.find("Value=") + 6)));
  EXPECT_EQ(lines("LogManual").size(), 3u);
}

TEST_F(ManualPageTest, TheReadOutsExplanationAndCellHintShowWhatTheCoreSays) {
  page.onCandidateHovered(2);
  EXPECT_EQ(text("PointerReadout"), candidateReadout(session, 2));
  page.onBoxFrameClicked(4);
  EXPECT_EQ(text("PointerReadout"), boxReadout(4));
  page.onCandidateClicked(2);
  EXPECT_EQ(lines("Explanation"), explainCandidates(session, 2).lines);
  for (int c : {1, 2, 3, 10, 21}) EXPECT_EQ(page.paintOf(c), ManualPaint::BoxHighlight) << c;
  page.onCellClicked(81);  // a click on the grid ends the box highlight
  for (int c : {1, 3, 10, 21}) EXPECT_EQ(page.paintOf(c), ManualPaint::BoxNormal) << c;

  clickButton("CellHint");
  EXPECT_EQ(ui.messages.size(), 1u);
  EXPECT_EQ(text("CellChoice"), session.grid[play().selectedCell].candidates.text());
  EXPECT_EQ(page.paintOf(play().selectedCell), ManualPaint::Selected);
}

}  // namespace
}  // namespace tessaly
