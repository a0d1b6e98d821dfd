// Stepping back through the log: a clicked line, the log's keys and the slider show
// the board the history holds for that line, leaving the session alone; a command
// brings the present back first.

#include <QSlider>
#include <regex>
#include <set>

#include "solver/BoardHistory.h"
#include "solver/Narrator.h"
#include "ui/HelpWindow.h"
#include "ui/ReplayController.h"
#include "ui/WidgetColours.h"
#include "UiSupport.h"

namespace tessaly::testing {
namespace {

class ReplayTest : public WindowFixture {
 protected:
  ReplayController& replay() const { return *window->replay(); }
  QLabel* label() const { return child<QLabel>("ReplayLabel"); }
  QSlider* slider() const { return child<QSlider>("ReplaySlider"); }
  /// Solves puzzle n; the board solved.
  std::string solve(int n) {
    start(n);
    click("Solveit");
    return session.grid.valueCode();
  }
  void clickLine(int n) {
    logView()->selectLine(n);  // scrolls it into view
    const QRect rect = logView()->lineRect(n);
    ASSERT_FALSE(rect.isEmpty()) << n;
    QTest::mouseClick(logView()->viewport(), Qt::LeftButton, {}, rect.center());
  }
  void key(int k) { QTest::keyClick(logView(), Qt::Key(k)); }

  /// The painted board against a board: values and choices, as `--board-at` prints them, and box counts.
  void expectBoard(const PuzzleGrid& board, const std::string& where) const {
    SCOPED_TRACE(where);
    std::string shownValues, choices, shownChoices;
    for (int c = 1; c <= kCells; ++c) {
      const QString text = window->board()->valueCell(c).text;
      shownValues += text.isEmpty() ? '0' : text.toStdString()[0];
      choices += board[c].candidates.text() + ' ';
      shownChoices += window->board()->candidateCell(c).text.toStdString() + ' ';
    }
    EXPECT_EQ(shownValues, board.valueCode());
    EXPECT_EQ(shownChoices, choices);
    for (int b = 1; b <= GridSize; ++b) {
      std::set<int> present;
      for (int c : areaCells(AreaKind::Box, b))
        if (board[c].value) present.insert(board[c].value);
      const QString expected = board.filledCount() ? QString::number(9 - int(present.size())) : QString();
      EXPECT_EQ(window->board()->boxCount(b).text, expected) << "box " << b;
    }
  }
  /// The past line n is shown: its board, the label, the frame; the session untouched.
  void expectLine(int n, const std::string& sessionGrid) const {
    EXPECT_EQ(replay().shownLine(), n);
    const std::string text(session.log.text(n));
    expectBoard(boardAtLine(session.run.history, n), "line " + std::to_string(n) + ": " + text);
    EXPECT_TRUE(label()->isVisible());
    EXPECT_EQ(label()->text(), replayLabelText(n, session.log.TotalLines()));
    EXPECT_EQ(window->board()->grid()->frameColour(), ReplayController::kPastFrame);
    EXPECT_EQ(slider()->value(), n);
    EXPECT_EQ(logView()->selectedText(), QString::fromStdString(text));
    EXPECT_EQ(session.grid.valueCode(), sessionGrid);
  }
  void expectPresent() const {
    EXPECT_EQ(replay().shownLine(), 0);
    expectBoard(session.grid, "present");
    EXPECT_FALSE(label()->isVisible());
    EXPECT_FALSE(window->board()->grid()->frameColour().isValid());
    EXPECT_EQ(slider()->value(), session.log.TotalLines() + 1);
  }
  /// The first finding of a kind, or the first on a line.
  const Finding& finding(const std::function<bool(const Finding&)>& which) const {
    const auto& all = session.run.findings;
    const auto it = std::find_if(all.begin(), all.end(), which);
    EXPECT_NE(it, all.end());
    return it == all.end() ? all.front() : *it;
  }
  int lineOf(FindingKind kind) const { return finding([&](const Finding& f) { return f.kind == kind; }).logLine; }
  const Finding& at(int line) const { return finding([&](const Finding& f) { return f.logLine == line; }); }
};

TEST(ReplayLabel, CountsWithThousandsSeparators) {
  EXPECT_EQ(replayLabelText(412, 1296), QString::fromUtf8("Showing line 412 of 1,296 \u2014 Esc to return"));
  EXPECT_EQ(replayLabelText(1, 5), QString::fromUtf8("Showing line 1 of 5 \u2014 Esc to return"));
}

// The page shows replay.png, and the help window finds each picture beside the page.
TEST(ReplayHelp, TheHelpPagesPicturesShipBesideIt) {
  const std::string page = readFile(std::string(TESSALY_DATA_DIR) + "/SuDoKu.htm");
  const std::regex image(R"re(<img src="([^"]+)")re");
  std::vector<std::string> pictures;
  for (auto m = std::sregex_iterator(page.begin(), page.end(), image); m != std::sregex_iterator(); ++m)
    pictures.push_back((*m)[1]);
  EXPECT_NE(std::find(pictures.begin(), pictures.end(), "replay.png"), pictures.end());
  HelpWindow help;
  ASSERT_TRUE(help.showPage(QString(TESSALY_DATA_DIR) + "/SuDoKu.htm"));
  for (const std::string& picture : pictures) {
    const QVariant data = help.browser()->loadResource(QTextDocument::ImageResource, QUrl(QString::fromStdString(picture)));
    EXPECT_FALSE(QImage::fromData(data.toByteArray()).isNull()) << picture;
  }
}

TEST_F(ReplayTest, ClickedLinesShowTheBoardTheHistoryHolds) {
  const std::string solved = solve(7);  // a puzzle that needs the rules beyond Rule 1
  const int total = session.log.TotalLines();
  ASSERT_GT(total, 50);
  const int placement = lineOf(FindingKind::Placement), removal = lineOf(FindingKind::DuplicateRemoved);
  ASSERT_EQ(std::string(session.log.text(removal)).rfind("Remove ", 0), 0u) << session.log.text(removal);
  for (int n : {1, 6, placement, removal, lineOf(FindingKind::RuleRemoval), total / 2, total}) {
    clickLine(n);
    expectLine(n, solved);
  }
  // The line's marks in the scheme's colours: a placement's cell, a removal's cell and area.
  const ColourScheme& scheme = window->colourScheme();
  clickLine(placement);
  EXPECT_EQ(window->board()->valueCell(at(placement).cell).back, qcolor(scheme.highlightRed));
  const Finding& removed = at(removal);
  clickLine(removal);
  EXPECT_EQ(window->board()->candidateCell(removed.cell).back, qcolor(scheme.colour[13]));
  const auto& area = areaCells(removed.areaKind, removed.area);
  const int peer = *std::find_if(area.begin(), area.end(), [&](int c) { return c != removed.cell; });
  EXPECT_EQ(window->board()->candidateCell(peer).back, qcolor(scheme.colour[9]));
}

TEST_F(ReplayTest, KeysOnTheLogAndTheSliderStepThroughTheLines) {
  const std::string solved = solve(1);
  const int total = session.log.TotalLines();
  std::vector<int> pauses;
  for (const Finding& f : session.run.findings)
    if (narrationWaits(f.kind)) pauses.push_back(f.logLine);
  clickLine(40);
  logView()->setFocus();
  // {key, line shown after it; 0 the present}
  const std::pair<int, int> steps[] = {
      {Qt::Key_Up, 39},   {Qt::Key_Down, 40},      {Qt::Key_Down, 41},     {Qt::Key_Home, 1},
      {Qt::Key_Up, 1},    {Qt::Key_End, 0},        {Qt::Key_Up, total},    {Qt::Key_Down, 0},
      {Qt::Key_Down, 0},  {Qt::Key_Home, 1},       {Qt::Key_Escape, 0},    {Qt::Key_Up, total},
      {Qt::Key_Escape, 0}};
  for (const auto& [k, line] : steps) {
    key(k);
    SCOPED_TRACE(QKeySequence(k).toString().toStdString() + " to " + std::to_string(line));
    line ? expectLine(line, solved) : expectPresent();
  }
  // PgDn and PgUp go from one pause point to the next.
  key(Qt::Key_Home);
  std::vector<int> visited;
  for (int i = 0; i < 4; ++i) {
    key(Qt::Key_PageDown);
    visited.push_back(replay().shownLine());
  }
  ASSERT_GE(pauses.size(), 4u);
  EXPECT_TRUE(std::is_sorted(visited.begin(), visited.end())) << visited[3];
  for (int line : visited) EXPECT_TRUE(std::count(pauses.begin(), pauses.end(), line)) << line;
  key(Qt::Key_PageUp);
  EXPECT_EQ(replay().shownLine(), visited[2]);
  expectLine(visited[2], solved);
  // The slider picks a line; its right end is the present.
  EXPECT_EQ(slider()->maximum(), total + 1);
  slider()->setValue(25);
  expectLine(25, solved);
  slider()->setValue(slider()->maximum());
  expectPresent();
}

TEST_F(ReplayTest, ACommandWhileThePastIsShownActsOnThePresent) {
  start(1);
  const std::string givens = session.grid.valueCode();
  clickLine(6);  // "Click Start to commence": the givens, as now
  expectLine(6, givens);
  click("Solveit");
  expectPresent();
  EXPECT_EQ(session.grid.filledCount(), kCells);
  const std::string solved = session.grid.valueCode();
  clickLine(6);
  expectLine(6, solved);
  EXPECT_EQ(blanksShown(), 49);
  click("ClearCommand");  // back to the givens, read again
  expectPresent();
  EXPECT_EQ(session.grid.valueCode(), givens);

  // A digit on ManualSolve: the present board takes it, and shows it.
  window->readPuzzleFile(appDir() + "Puzzles.sud", 1);
  selectTab(Tab::ManualSolve);
  click("Grid_0");
  clickLine(2);
  ASSERT_TRUE(replay().showsPast());
  window->board()->grid()->setFocus();
  QTest::keyClick(child("Grid"), Qt::Key_4);  // cell 1 has the choices 45 and the solution 4
  expectPresent();
  EXPECT_EQ(session.grid[1].value, 4);
  EXPECT_EQ(cell("Grid_0").text, "4");

  // Reading another puzzle empties the log: the past shown before is gone.
  clickLine(3);
  window->readPuzzleFile(appDir() + "Puzzles.sud", 2);
  expectPresent();
}

TEST_F(ReplayTest, APausedRunShowsItsPastAndNextReturnsToThePresent) {
  start(1);
  int shownWhilePaused = 0;
  const auto next = [&] { click("NextStepCommand"); };
  const auto lookBack = [&] {
    const std::string now = session.grid.valueCode();
    for (int n : {1, session.log.TotalLines() / 2, session.log.TotalLines()}) {
      clickLine(n);
      expectLine(n, now);
      ++shownWhilePaused;
    }
    click("NextStepCommand");
    EXPECT_FALSE(replay().showsPast());
  };
  const auto lastLook = [&] {
    clickLine(session.log.TotalLines() - 1);
    ++shownWhilePaused;
    click("Solveit");  // stops the stepping run, then solves the present
  };
  PauseScript script(*window, {next, next, lookBack, next, lookBack, lastLook});
  click("StartCommand");
  EXPECT_TRUE(script.done());
  EXPECT_EQ(shownWhilePaused, 7);
  expectPresent();
  EXPECT_EQ(session.grid.filledCount(), kCells);
}

}  // namespace
}  // namespace tessaly::testing
