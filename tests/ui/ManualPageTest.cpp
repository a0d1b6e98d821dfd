// The ManualSolve tab's controls on puzzle 1 of pe96: keys, buttons, drop-down and
// list clicks reach manual play and the hints; the page shows what they leave.

#include "play/Hints.h"
#include "play/ManualPlay.h"
#include "solver/ReadPuzzle.h"
#include "ui/CommandHost.h"
#include "ui/ManualPage.h"
#include "UiSupport.h"

namespace tessaly::testing {
namespace {

// Cell 1 has the choices 45 (solution 4), cell 2 4578 (8), cell 4 49 (9): a
// 4 there would leave cell 76 without choices.
class ManualPageTest : public ::testing::Test {
 protected:
  ManualPageTest() {
    session.controls.currentTab = Tab::ManualSolve;
    page.show();
    EXPECT_TRUE(QTest::qWaitForWindowExposed(&page));
    EXPECT_TRUE(readPuzzle(session, puzzleFile("pe96.sud"), 1));
  }
  std::string text(const QString& label) { return named<QLabel>(&page, label)->text().toStdString(); }
  std::vector<std::string> list(const char* name) { return lines(named<QListWidget>(&page, name)); }
  void clickLine(const char* name, int row, Qt::MouseButton button) {
    auto* list = named<QListWidget>(&page, name);
    QTest::mouseClick(list->viewport(), button, {}, list->visualItemRect(list->item(row)).center());
  }
  /// Selects the cell and types the digit on the main keyboard (or the numeric pad).
  void type(int cell, int digit, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    page.onCellClicked(cell);
    page.onKeyReleased(Qt::Key_0 + digit, modifiers);
  }

  test::TestSession t;
  Session& session = t.session;
  std::vector<std::pair<int, ManualPaint>> paints;  // as the page asks the window
  // Runs each command at once, as the window does when no run is under way.
  struct ImmediateHost : CommandHost {
    void runCommand(std::function<void()> command) override { command(); }
    void releasePause() override {}
    void refreshFromSession() override {}
    void puzzleRead(const ReadResult&) override {}
  } host;
  ManualPage page{session, host, [this](int cell, ManualPaint paint) { paints.emplace_back(cell, paint); }};
};

TEST_F(ManualPageTest, KeysAndButtonsReachManualPlayAndThePageShowsItsState) {
  type(1, 4, Qt::ControlModifier);  // a digit held with Ctrl belongs to a shortcut
  EXPECT_EQ(session.grid[1].value, 0);
  type(1, 4, Qt::KeypadModifier);  // the numeric pad's digits count too
  EXPECT_EQ(list("LogManual"), std::vector<std::string>{"C01 = 4"});
  for (int n = 1; n <= 9; ++n) {
    EXPECT_EQ(text(QString("PossibleInRow_%1").arg(n)), page.play().PossibleInRow[std::size_t(n - 1)]);
    EXPECT_EQ(text(QString("PossibleInCol_%1").arg(n)), page.play().PossibleInCol[std::size_t(n - 1)]);
  }
  type(2, 8);
  page.onKeyReleased(Qt::Key_Delete);
  EXPECT_EQ(session.grid[2].value, 0);
  click(&page, "UndoManual");
  EXPECT_EQ(session.grid[1].value, 0);
  EXPECT_TRUE(list("LogManual").empty());

  // A refused digit: the cell it would leave without choices is painted red, then normal again.
  type(4, 4);
  EXPECT_EQ(t.ui.messages.size(), 1u);
  EXPECT_NE(std::find(paints.begin(), paints.end(), std::pair(76, ManualPaint::Refused)), paints.end());
  EXPECT_EQ(page.paintOf(76), ManualPaint::Normal);
  type(4, 9);
  click(&page, "ClearManual");
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
    EXPECT_EQ(page.play().selectedCell, cell) << "key " << key;
  }
  EXPECT_EQ(text("CellChoice"), "4578");
  EXPECT_EQ(page.paintOf(2), ManualPaint::Selected);
  page.onCellDoubleClicked(2, page.mapToGlobal(QPoint(10, 10)));
  for (int d = 1; d <= 9; ++d)
    EXPECT_EQ(named<QAction>(&page, QString("xc_%1").arg(d))->isVisible(), d == 4 || d == 5 || d == 7 || d == 8) << d;
  named<QAction>(&page, "xc_8")->trigger();
  page.choicesMenu()->hide();
  EXPECT_EQ(session.grid[2].value, 8);
}

TEST_F(ManualPageTest, ClicksOnTheMoveListAndTheHintLinesReachTheirCells) {
  type(1, 4);
  type(2, 8);
  clickLine("LogManual", 0, Qt::LeftButton);
  EXPECT_EQ(page.play().selectedCell, 1);
  EXPECT_EQ(page.paintOf(1), ManualPaint::Selected);
  // Each hint button runs its own rule; the list shows the session's hints.
  for (int k = 0; k <= kAllRulesHint; ++k) {
    click(&page, QString("GetHint_%1").arg(k));
    EXPECT_EQ(list("Hints"), hintTexts(session.hints)) << k;
    EXPECT_EQ(list("Hints").at(0), k < kAllRulesHint ? "APPLY RULE " + std::to_string(k + 1) : "") << k;
  }
  const auto single = std::find_if(session.hints.begin(), session.hints.end(),
                                   [](const HintLine& line) { return line.kind == HintKind::Placement; });
  ASSERT_NE(single, session.hints.end()) << "no hint found a single value";
  const HintLine line = *single;
  const int row = int(single - session.hints.begin()), cell = line.cell;
  clickLine("Hints", row, Qt::LeftButton);
  EXPECT_EQ(page.play().selectedCell, cell);
  EXPECT_EQ(session.grid[cell].value, 0);
  clickLine("Hints", row, Qt::RightButton);
  EXPECT_EQ(session.grid[cell].value, line.digit);
  EXPECT_EQ(list("LogManual").size(), 3u);
}

TEST_F(ManualPageTest, TheBoxFrameExplanationAndCellHintShowWhatTheCoreSays) {
  page.onBoxFrameClicked(4);
  EXPECT_EQ(text("PointerReadout"), boxReadout(4));
  page.onCandidateClicked(2);
  for (int c : {1, 2, 3, 10, 21}) EXPECT_EQ(page.paintOf(c), ManualPaint::BoxHighlight) << c;
  page.onCellClicked(81);  // a click on the grid ends the box highlight
  for (int c : {1, 3, 10, 21}) EXPECT_EQ(page.paintOf(c), ManualPaint::BoxNormal) << c;
  click(&page, "CellHint");
  EXPECT_EQ(t.ui.messages.size(), 1u);
  EXPECT_EQ(text("CellChoice"), session.grid[page.play().selectedCell].candidates.text());
  EXPECT_EQ(page.paintOf(page.play().selectedCell), ManualPaint::Selected);
}

}  // namespace
}  // namespace tessaly::testing
