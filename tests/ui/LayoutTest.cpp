// The window on small and large screens: nothing clipped, the board grows, the size
// and splitters come back; keys and shortcuts; what the board draws for frames and explanations.

#include "model/GridTables.h"
#include "play/Hints.h"
#include "ui/BoardView.h"
#include "ui/GridEntryDialog.h"
#include "ui/HelpWindow.h"
#include "ui/TemplateDialog.h"
#include "ui/WidgetColours.h"
#include "UiSupport.h"

namespace tessaly::testing {
namespace {

const QSize kSmallestWindow(1280, 720);

template <class... T>
bool isA(const QWidget* w) { return (qobject_cast<const T*>(w) || ...); }

/// How `widget` is cut off: outside the window or one of its ancestors, or squeezed; empty when whole.
QString clipping(const QWidget* widget) {
  const QWidget* window = widget->window();
  const QRect rect(widget->mapTo(window, QPoint(0, 0)), widget->size());
  for (const QWidget* p = widget->parentWidget(); p; p = p->parentWidget()) {
    if (!QRect(p->mapTo(window, QPoint(0, 0)), p->size()).contains(rect))
      return QString("%1 at (%2, %3) %4x%5 outside its %6").arg(widget->objectName()).arg(rect.x()).arg(rect.y())
          .arg(rect.width()).arg(rect.height()).arg(p->metaObject()->className());
    if (p == window) break;
  }
  // A control squeezed below its smallest size cuts its own caption. The smallest size is the one layouts keep:
  // one set on the widget, else its hint; a button must still show its whole caption.
  QSize least = widget->minimumSizeHint();
  if (widget->minimumWidth() > 0) least.setWidth(widget->minimumWidth());
  if (widget->minimumHeight() > 0) least.setHeight(widget->minimumHeight());
  if (const auto* button = qobject_cast<const QPushButton*>(widget))
    least.setWidth(std::max(least.width(), button->fontMetrics().horizontalAdvance(QString(button->text()).remove('&'))));
  if (isA<QAbstractButton, QLineEdit, QGroupBox, BoardView>(widget) &&
      (widget->width() < least.width() || widget->height() < least.height()))
    return QString("%1 squeezed to %2x%3").arg(widget->objectName()).arg(widget->width()).arg(widget->height());
  return {};
}

/// Every visible control of a window that is cut off, one a line.
std::string clippedControls(const QWidget* window) {
  QStringList clipped;
  for (const QWidget* w : window->findChildren<QWidget*>()) {
    const bool control = isA<QAbstractButton, QLabel, QLineEdit, QAbstractItemView, QGroupBox, BoardView>(w);
    if (control && w->isVisible() && w->window() == window && !w->objectName().startsWith("qt_"))
      if (const QString why = clipping(w); !why.isEmpty()) clipped << why;
  }
  return clipped.join('\n').toStdString();
}

class LayoutTest : public WindowFixture {
 protected:
  void resizeWindow(QSize size) {
    window->resize(size);
    settle();
  }
  /// Lets the layouts settle: a layout request reaches the scrolled content and the splitters one posted event later.
  static void settle() {
    for (int round = 0; round < 3; ++round) QApplication::processEvents();
  }
  /// The colour a cell has outside a highlighted area.
  QColor ordinaryBack(int c) const {
    return session.grid[c].given ? qcolor(window->colourScheme().givenBack) : QColor(255, 255, 255);
  }
};

/// The fonts of common desktops, besides the tests' own: the window must fit with each of them.
const FontSet kDesktopFonts[] = {
    kPinnedFonts,
    {"Cantarell", 11, "Liberation Mono", "Liberation Sans", "fonts-cantarell, fonts-liberation2"},
    {"Liberation Sans", 10, "Liberation Mono", "Liberation Sans", "fonts-liberation2"},
};

class LayoutWithFonts : public LayoutTest, public ::testing::WithParamInterface<FontSet> {
 protected:
  void SetUp() override {
    ASSERT_TRUE(useFonts(GetParam())) << "install " << GetParam().package << " (scripts/deps.sh lists it)";
  }
  void TearDown() override { useFonts(kPinnedFonts); }
  QScrollArea* scroller() const { return qobject_cast<QScrollArea*>(window->centralWidget()); }
  bool scrolls() const {
    return scroller()->horizontalScrollBar()->isVisible() || scroller()->verticalScrollBar()->isVisible();
  }
};

TEST_P(LayoutWithFonts, EveryTabFitsASmallScreenWithoutCuttingAControl) {
  start(1);
  int autoSolveCell = 0;
  for (const Tab tab : {Tab::AutoSolve, Tab::Create, Tab::ManualSolve}) {
    selectTab(tab);
    const QSize least = window->leastSize();
    EXPECT_LE(least.width(), kSmallestWindow.width()) << int(tab);
    EXPECT_LE(least.height(), kSmallestWindow.height()) << int(tab);
    for (const QSize size : {kSmallestWindow, QSize(1366, 768)}) {
      resizeWindow(size);
      EXPECT_EQ(window->size(), size) << int(tab);
      EXPECT_FALSE(scrolls()) << "tab " << int(tab) << " at " << size.width();
      EXPECT_EQ(clippedControls(window.get()), "") << "tab " << int(tab) << " at " << size.width();
      for (const char* name : {"Grid_80", "PosVals_81", "BoxMissingCount_9"})
        EXPECT_TRUE(cell(name).view->rect().contains(cell(name).rect)) << name << " at " << size.width();
    }
    // The page beside it leaves the board most of the room it has on AutoSolve.
    resizeWindow(kSmallestWindow);
    if (tab == Tab::AutoSolve) autoSolveCell = window->board()->cellSize();
    EXPECT_GE(4 * window->board()->cellSize(), 3 * autoSolveCell) << "tab " << int(tab);
    // Below the least size (a tiled half screen) the window keeps its size and scrolls; scrolled to the end it
    // shows the far corner whole.
    resizeWindow(QSize(800, 600));
    EXPECT_EQ(window->size(), QSize(800, 600)) << int(tab);
    EXPECT_TRUE(scrolls()) << int(tab);
    scroller()->horizontalScrollBar()->setValue(scroller()->horizontalScrollBar()->maximum());
    scroller()->verticalScrollBar()->setValue(scroller()->verticalScrollBar()->maximum());
    settle();
    const QWidget* far = window->board()->candidateDisplay();
    const QRect shown(far->mapTo(scroller()->viewport(), QPoint(0, 0)), far->size());
    EXPECT_TRUE(scroller()->viewport()->rect().contains(shown.bottomRight())) << int(tab);
  }
}

INSTANTIATE_TEST_SUITE_P(DesktopFonts, LayoutWithFonts, ::testing::ValuesIn(kDesktopFonts),
                         [](const auto& info) { return QString(info.param.family).remove(' ').toStdString(); });

TEST_F(LayoutTest, TheDialogsFitASmallScreenAndEscapeClosesThem) {
  start();
  writeFile(appDir() + "SuDoKu.htm", "<html><body><h1>Help</h1></body></html>");
  action("mnuHelpContents")->trigger();
  GridEntryDialog grid(session, ui, window.get());
  TemplateDialog pattern(ui, window.get());
  for (QDialog* dialog : std::initializer_list<QDialog*>{&grid, &pattern, window->helpWindow()}) {
    SCOPED_TRACE(dialog->objectName().toStdString());
    dialog->show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(dialog));
    EXPECT_LE(dialog->width(), kSmallestWindow.width());
    EXPECT_LE(dialog->height(), kSmallestWindow.height());
    EXPECT_EQ(clippedControls(dialog), "");
    QTest::keyClick(dialog->focusWidget() ? dialog->focusWidget() : dialog, Qt::Key_Escape);
    EXPECT_FALSE(dialog->isVisible());
  }
  EXPECT_EQ(grid.answer(), "N");
  action("mnuAbout")->trigger();
  const QPointer<QWidget> about = child("AboutBox");
  QTest::keyClick(about, Qt::Key_Escape);
  EXPECT_TRUE(!about || !about->isVisible());
}

TEST_F(LayoutTest, TheBoardGrowsWithTheWindowAndKeepsItsCellsSquare) {
  start(1);
  int previous = 0;
  for (const QSize size : {kSmallestWindow, QSize(1600, 900), QSize(2400, 1400)}) {
    resizeWindow(size);
    const BoardCell value = cell("Grid_0"), choices = cell("PosVals_1");
    EXPECT_GT(window->board()->cellSize(), previous) << size.width();
    EXPECT_EQ(value.rect.width(), value.rect.height());
    EXPECT_EQ(choices.rect.width(), choices.rect.height());
    previous = window->board()->cellSize();
  }
}

TEST_F(LayoutTest, TheSizeAndSplittersComeBackInTheNextRun) {
  const QString file = QString::fromStdString(appDir() + "layout.ini");
  start();
  window->rememberLayoutIn(std::make_unique<QSettings>(file, QSettings::IniFormat));
  resizeWindow(QSize(1300, 700));
  auto* logSplitter = child<QSplitter>("LogSplitter");
  auto* boardSplitter = child<QSplitter>("BoardSplitter");
  const int tall = logSplitter->sizes()[0] + logSplitter->sizes()[1];
  logSplitter->setSizes({tall - 150, 150});
  const QList<int> autoSolveSizes = boardSplitter->sizes();
  selectTab(Tab::ManualSolve);
  const int wide = boardSplitter->sizes()[0] + boardSplitter->sizes()[1];
  boardSplitter->setSizes({boardSplitter->sizes()[0] + 40, wide - boardSplitter->sizes()[0] - 40});
  const QList<int> logSizes = logSplitter->sizes(), manualSizes = boardSplitter->sizes();
  window->close();

  // The next run starts on AutoSolve: its left column is as it was before the visit to ManualSolve.
  session.controls.currentTab = Tab::AutoSolve;
  window = std::make_unique<MainWindow>(session, &ui);
  window->rememberLayoutIn(std::make_unique<QSettings>(file, QSettings::IniFormat));
  window->show();
  ASSERT_TRUE(QTest::qWaitForWindowExposed(window.get()));
  QApplication::processEvents();
  EXPECT_EQ(window->size(), QSize(1300, 700));
  EXPECT_EQ(child<QSplitter>("LogSplitter")->sizes(), logSizes);
  EXPECT_EQ(child<QSplitter>("BoardSplitter")->sizes(), autoSolveSizes);
  selectTab(Tab::ManualSolve);  // the left column keeps its width for each page
  EXPECT_EQ(child<QSplitter>("BoardSplitter")->sizes(), manualSizes);
}

TEST_F(LayoutTest, AVisitToTheWiderManualSolvePageLeavesTheOtherTabsTheirBoard) {
  start(1);
  resizeWindow(kSmallestWindow);
  auto* boardSplitter = child<QSplitter>("BoardSplitter");
  const QList<int> sizes = boardSplitter->sizes();
  const int cellSize = window->board()->cellSize();
  selectTab(Tab::ManualSolve);
  EXPECT_GT(boardSplitter->sizes()[0], sizes[0]);  // the page needs more room than AutoSolve's
  EXPECT_EQ(window->size(), kSmallestWindow);      // which the window did not grow for
  for (const Tab tab : {Tab::Create, Tab::AutoSolve}) {
    selectTab(tab);
    EXPECT_EQ(boardSplitter->sizes(), sizes) << int(tab);
    EXPECT_EQ(window->board()->cellSize(), cellSize) << int(tab);
  }
}

TEST_F(LayoutTest, KeysPlaceDigitsOnlyWhileTheGridHasTheFocus) {
  start(1);
  selectTab(Tab::ManualSolve);
  click("Grid_0");  // cell 1: choices 45
  // A digit typed in the puzzle-number box does not reach the selected cell.
  QTest::keyClicks(child("PuzNumNow"), "4");
  EXPECT_EQ(session.grid[1].value, 0);
  window->board()->grid()->setFocus();
  QApplication::processEvents();
  // The digits of the numeric pad count as well as the main keyboard's.
  QTest::keyClick(child("Grid"), Qt::Key_4, Qt::KeypadModifier);
  EXPECT_EQ(cell("Grid_0").text, "4");
  QTest::keyClick(child("Grid"), Qt::Key_Right);
  QTest::keyClick(child("Grid"), Qt::Key_8);
  EXPECT_EQ(lines(child<QListWidget>("LogManual")), (std::vector<std::string>{"C01 = 4", "C02 = 8"}));
  // A cell chosen by the cell hint takes the digits typed next.
  child("PuzNumNow")->setFocus();
  click("CellHint");
  EXPECT_EQ(window->focusWidget(), child("Grid"));
  child<QLineEdit>("PuzNumNow")->selectAll();  // Enter in the box reads the puzzle typed
  QTest::keyClicks(child("PuzNumNow"), "12");
  QTest::keyClick(child("PuzNumNow"), Qt::Key_Return);
  EXPECT_EQ(session.collection.CurrentPuzzleNumber, 12);
}

TEST_F(LayoutTest, TheShortcutsClickTheButtonsOfTheShownPageAndTheToolTipsNameThem) {
  start(1);
  window->activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
  const std::tuple<const char*, QString> tips[] = {
      {"StartCommand", "(F5, Alt+S)"}, {"NextStepCommand", "(F6, Alt+N)"}, {"Solveit", "(F7, Alt+L)"},
      {"PauseCheck", "(F8, Alt+P)"},   {"GetHint_0", "(Ctrl+1, Alt+1)"},   {"GetHint_6", "(Ctrl+7, Alt+A)"},
      {"CellHint", "(Ctrl+H, Alt+C)"}};
  for (const auto& [name, keys] : tips) EXPECT_TRUE(child(name)->toolTip().endsWith(keys)) << name;

  QTest::keyClick(window.get(), Qt::Key_2, Qt::ControlModifier);  // a hint key while its page is not shown
  EXPECT_TRUE(session.hints.empty());
  QTest::keyClick(window.get(), Qt::Key_F7);  // Solve
  EXPECT_EQ(ui.messages, std::vector<std::string>{"Done"});
  EXPECT_EQ(blanksShown(), 0);

  click("ClearCommand");
  selectTab(Tab::ManualSolve);
  QTest::keyClick(window.get(), Qt::Key_2, Qt::ControlModifier);  // Rule 2's hint
  ASSERT_FALSE(session.hints.empty());
  EXPECT_EQ(session.hints[0].text, "APPLY RULE 2");
  EXPECT_EQ(lines(child<QListWidget>("LogManual")), std::vector<std::string>{});
}

TEST_F(LayoutTest, AClickOnABoxFrameNamesTheBox) {
  start(1);
  selectTab(Tab::ManualSolve);
  BoardView* grid = window->board()->grid();
  for (const int box : {1, 4, 9}) {
    const QPoint frame = grid->boxRect(box - 1).topLeft() + QPoint(1, 1);
    ASSERT_EQ(grid->boxFrameAt(frame), box - 1);
    QTest::mouseClick(grid, Qt::LeftButton, {}, frame);
    EXPECT_EQ(child<QLabel>("PointerReadout")->text().toStdString(), boxReadout(box));
  }
}

TEST_F(LayoutTest, AnExplanationHighlightsTheRowColumnAndBoxOfItsCellUntilTheNextClick) {
  start(1);
  selectTab(Tab::ManualSolve);
  click("PosVals_14");  // row 2, column 5, box 2
  for (int c = 1; c <= kCells; ++c) {
    const bool inArea = CellRow[c] == 2 || CellCol[c] == 5 || CellBox[c] == 2;
    EXPECT_EQ(cell(QString("Grid_%1").arg(c - 1)).back, inArea ? qcolor(window->colourScheme().colour[9])
                                                               : ordinaryBack(c)) << c;
  }
  click("Grid_80");  // a click on the grid ends it; the clicked cell is selected
  for (int c = 1; c < kCells; ++c) EXPECT_EQ(cell(QString("Grid_%1").arg(c - 1)).back, ordinaryBack(c)) << c;
}

}  // namespace
}  // namespace tessaly::testing
