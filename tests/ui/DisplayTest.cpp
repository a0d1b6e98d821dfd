// What the grid and the event log show: .sch files, the grid's paint states in
// the scheme's colours, the scheme chosen from the menu or kept in Quorrel.cfg;
// log lines in their style's colour, wrapped, the newest in view, copied whole.

#include <QGroupBox>
#include <QScreen>
#include <functional>

#include "model/EventLog.h"
#include "ui/CellBoard.h"
#include "ui/ColourScheme.h"
#include "ui/FrameBox.h"
#include "ui/WidgetColours.h"
#include "UiSupport.h"

namespace tessaly::testing {
namespace {

/// Twelve lines; line i is (i, 10 * i, 20 * i).
std::string schemeText() {
  std::string text;
  for (int i = 1; i <= 12; ++i)
    text += std::to_string(i) + ";" + std::to_string(10 * i) + ";" + std::to_string(20 * i) + "\r\n";
  return text;
}
QColor entry(int i) { return QColor(i, 10 * i, 20 * i); }

TEST(ColourSchemeFile, ReadsTwelveLinesOfRedGreenBlueByTheirNumericValue) {
  std::string odd = " 240; 12abc ;x\r\n7\r\n300;-5;1;99\r\n";
  for (int i = 4; i <= 13; ++i) odd += "1;2;3\r\n";
  const auto plain = ColourScheme::parse(schemeText());
  const auto read = ColourScheme::parse(odd);
  ASSERT_TRUE(plain && read);
  for (int i = 0; i <= 13; ++i)  // entries 0 and 13 are not in the file
    EXPECT_EQ((*plain)[std::size_t(i)], (i >= 1 && i <= 12 ? Rgb{i, 10 * i, 20 * i} : Rgb{})) << i;
  const Rgb expected[] = {{240, 12, 0}, {7, 0, 0}, {255, 0, 1}};  // clamped to 0..255
  for (int i = 1; i <= 3; ++i) EXPECT_EQ((*read)[std::size_t(i)], expected[i - 1]) << i;
  // Fewer than twelve lines cannot be read.
  EXPECT_FALSE(ColourScheme::parse("1;2;3\r\n4;5;6\r\n"));
  EXPECT_FALSE(ColourScheme::parse(""));
}

TEST(CellBoardPaint, ShowsEachPaintStateInItsSchemeColourOnTheGridAndAmongTheChoicesUntilCleared) {
  Session session;
  ColourScheme scheme;
  CellBoard board(session, scheme);
  board.resize(800, 400);
  board.show();
  ASSERT_TRUE(QTest::qWaitForWindowExposed(&board));
  session.grid[1] = Cell{5, true, CandidateSet::of(5)};
  session.grid[2] = Cell{0, false, CandidateSet::fromText("37")};
  session.grid[3] = Cell{0, false, CandidateSet::fromText("8")};
  using enum CellPaint;
  const std::pair<int, CellPaint> paints[] = {{1, Given}, {5, Placed}, {6, Dead}, {7, Retry}};
  for (const auto& [cell, paint] : paints) board.setPaint(cell, paint);
  board.refreshFromSession();
  EXPECT_EQ(board.valueCell(1).text, "5");
  EXPECT_TRUE(board.valueCell(1).bold);
  EXPECT_EQ(board.candidateCell(2).text, "37");
  const QColor white(255, 255, 255);
  // Cell: its value cell's and its candidate cell's background.
  const std::tuple<int, QColor, QColor> expected[] = {
      {1, qcolor(scheme.givenBack), qcolor(scheme.givenBack)},
      {2, white, qcolor(scheme.candidateBack)},
      {3, white, qcolor(scheme.givenBack)},  // a single stands out like a given
      {5, qcolor(scheme.highlightRed), qcolor(scheme.highlightRed)},
      {6, qcolor(scheme.colour[6]), qcolor(scheme.colour[6])},  // a dead end shows on the grid too
      {7, qcolor(scheme.highlightGreen), qcolor(scheme.highlightGreen)}};
  // What the window shows after it redraws (only what changed is repainted), just inside the cell's sunken edge.
  QImage shown;
  const auto redraw = [&] {
    QApplication::processEvents();
    shown = board.screen()->grabWindow(board.winId()).toImage();
  };
  const auto drawn = [&](const BoardView* view, const BoardCell& cell) {
    const QPoint inside = view->mapTo(&board, cell.rect.topLeft() + QPoint(3, 3));
    return shown.pixelColor(inside * shown.devicePixelRatio());
  };
  const auto expectShown = [&](int cell, const QColor& value, const QColor& choice) {
    EXPECT_EQ(board.valueCell(cell).back, value) << cell;
    EXPECT_EQ(board.candidateCell(cell).back, choice) << cell;
    EXPECT_EQ(drawn(board.grid(), board.valueCell(cell)), value) << cell;
    EXPECT_EQ(drawn(board.candidateView(), board.candidateCell(cell)), choice) << cell;
  };
  redraw();
  for (const auto& [cell, value, choice] : expected) expectShown(cell, value, choice);
  board.clearPaints();
  board.refreshFromSession();
  redraw();
  for (int cell : {5, 6, 7}) expectShown(cell, white, qcolor(scheme.candidateBack));
}

TEST(FrameBoxPaint, DrawsWhatAPlainGroupBoxDrawsAfterEachChangeOfTitleSizeStateColoursOrFont) {
  QWidget window;
  auto* kept = new FrameBox("Puzzle 1 of 125", &window);
  auto* plain = new QGroupBox("Puzzle 1 of 125", &window);
  window.show();
  // Drawn once and copied, translucent parts may round a channel differently by one; a stale drawing by far more.
  const auto sameDrawing = [&] {
    QApplication::processEvents();
    const QImage a = kept->grab().toImage(), b = plain->grab().toImage();
    if (a.size() != b.size()) return false;
    for (int y = 0; y < a.height(); ++y)
      for (int x = 0; x < a.width(); ++x) {
        const QRgb p = a.pixel(x, y), q = b.pixel(x, y);
        for (const int shift : {0, 8, 16})
          if (std::abs(int((p >> shift) & 0xff) - int((q >> shift) & 0xff)) > 1) return false;
      }
    return true;
  };
  const std::function<void(QGroupBox*)> changes[] = {
      [](QGroupBox*) {},
      [](QGroupBox* box) { box->setTitle("Puzzle 2 of 125 (55 blanks)"); },
      [](QGroupBox* box) { box->resize(310, 140); },
      [](QGroupBox* box) { box->setEnabled(false); },
      [](QGroupBox* box) {
        QPalette colours = box->palette();
        colours.setColor(QPalette::WindowText, Qt::red);
        colours.setColor(QPalette::Window, Qt::yellow);
        box->setPalette(colours);
      },
      [](QGroupBox* box) { box->setAutoFillBackground(true); },
      [](QGroupBox* box) { box->setFont(QFont("Arial", 15)); }};
  for (std::size_t i = 0; i < std::size(changes); ++i) {
    changes[i](kept);
    changes[i](plain);
    EXPECT_TRUE(sameDrawing()) << "after change " << i;
  }
}

/// Quorrel.cfg naming the scheme.
std::string config(const std::string& scheme) { return " 250 \r\n23456\r\n" + scheme + "\r\nPuzzles.sud\r\n"; }

using ColourSchemeMenu = WindowFixture;

TEST_F(ColourSchemeMenu, TheSchemeChosenOrRememberedPaintsTheWindowAndIsWrittenToTheConfiguration) {
  writeFile(appDir() + "brick.sch", schemeText());
  writeFile(appDir() + "Quorrel.cfg", config("brick.sch"));
  start(1);
  EXPECT_TRUE(ui.messages.empty());
  EXPECT_EQ(back("PosVals_1"), entry(2));
  EXPECT_TRUE(action("mnuColx_1")->isChecked());
  // A menu entry without its file brings the defaults back and is forgotten.
  action("mnuColx_0")->trigger();
  EXPECT_EQ(ui.messages, std::vector<std::string>{"Color Scheme File: bandw.sch not found, defaults will be used"});
  EXPECT_EQ(back("PosVals_1"), QColor(240, 240, 240));
  EXPECT_EQ(readFile(appDir() + "Quorrel.cfg"), config(""));
  EXPECT_FALSE(action("mnuColx_1")->isChecked());

  action("mnuColx_1")->trigger();
  const std::pair<const char*, int> painted[] = {
      {"PosVals_1", 2}, {"PosVals_3", 4}, {"PuzNumber", 8}, {"SolutionsFrame", 6}, {"PosValsFrame", 10}};
  for (const auto& [widget, i] : painted) EXPECT_EQ(back(widget), entry(i)) << widget;
  EXPECT_EQ(readFile(appDir() + "Quorrel.cfg"), config("brick.sch"));

  window.reset();
  ui.messages.clear();
  writeFile(appDir() + "Quorrel.cfg", config("Sky.sch"));
  start();
  EXPECT_EQ(ui.messages, std::vector<std::string>{"Color Scheme File: Sky.sch not found, defaults will be used"});
  EXPECT_EQ(session.config.ColourSchemeFile, "");
}

class EventLogViewTest : public ::testing::Test {
 protected:
  EventLogViewTest() {
    view.resize(400, 200);
    view.show();
    EXPECT_TRUE(QTest::qWaitForWindowExposed(&view));
  }
  void append(int style, const std::string& text) {
    log.append(style, text);
    view.syncWithLog();
  }
  EventLog log;
  EventLogView view{log};
};

TEST_F(EventLogViewTest, DrawsALineInTheColourOfItsStyleAndCopiesWholeLines) {
  append(4, "This puzzle does not appear to have a solution!");  // style 4 is dark red
  append(0, "second");
  append(0, "third");
  const QImage image = view.viewport()->grab().toImage();
  const int row = view.fontMetrics().lineSpacing();
  bool sawRed = false;
  for (int x = 0; x < image.width(); ++x)
    for (int y = 0; y < row; ++y) sawRed |= image.pixelColor(x, y) == QColor(128, 0, 0);
  EXPECT_TRUE(sawRed);
  QTest::mousePress(view.viewport(), Qt::LeftButton, {}, QPoint(10, row + row / 2));
  QTest::mouseMove(view.viewport(), QPoint(10, 2 * row + row / 2));
  QTest::mouseRelease(view.viewport(), Qt::LeftButton, {}, QPoint(10, 2 * row + row / 2));
  QTest::keyClick(&view, Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(QApplication::clipboard()->text(), "second\nthird");
  QTest::keyClick(&view, Qt::Key_A, Qt::ControlModifier);
  EXPECT_EQ(view.selectedText(), "This puzzle does not appear to have a solution!\nsecond\nthird");
}

TEST_F(EventLogViewTest, WrapsALongLineIntoRowsAndKeepsTheNewestLineInView) {
  std::string words;
  while (words.size() < 3000) words += "Remove row duplicate 5 ";
  append(0, words);
  // One line, more rows than the page holds: the view scrolls within it.
  EXPECT_GT(view.verticalScrollBar()->maximum(), 0);
  EXPECT_EQ(view.firstVisibleLine(), 1);
  const int rowsWide = view.verticalScrollBar()->maximum();
  view.resize(200, 200);  // narrower: more rows
  QApplication::processEvents();
  EXPECT_GT(view.verticalScrollBar()->maximum(), rowsWide);
  for (int i = 2; i <= 100; ++i) {
    append(0, "Line " + std::to_string(i));
    EXPECT_EQ(view.lastVisibleLine(), i);
  }
  EXPECT_GT(view.firstVisibleLine(), 1);
  // The scroll bar's handle shows where the view stands: at the end, then at the top.
  QScrollBar* bar = view.verticalScrollBar();
  const auto handleAt = [bar](double share) {
    const QImage drawn = bar->grab().toImage();
    const QPoint point(bar->width() / 2, int(bar->height() * share));
    return drawn.pixelColor(point * drawn.devicePixelRatio()).rgb() == bar->palette().color(QPalette::Mid).rgb();
  };
  EXPECT_TRUE(handleAt(0.85));
  EXPECT_FALSE(handleAt(0.15));
  bar->setValue(0);
  EXPECT_TRUE(handleAt(0.15));
  EXPECT_FALSE(handleAt(0.85));
}

TEST_F(EventLogViewTest, WrapsAndCopiesALineWithLettersBeyondAscii) {
  std::string path;
  while (path.size() < 2000) path += "/Rätsel/Übung";
  const std::string line = "Puzzle read from " + path;
  append(0, line);
  append(0, "next");
  EXPECT_EQ(view.lineText(1).toStdString(), line);
  // The long line takes several rows, so the next line starts further down.
  const int row = view.fontMetrics().lineSpacing();
  view.verticalScrollBar()->setValue(0);
  EXPECT_EQ(view.lineRect(2), QRect());
  view.verticalScrollBar()->setValue(view.verticalScrollBar()->maximum());
  EXPECT_EQ(view.lastVisibleLine(), 2);
  EXPECT_GT(view.lineRect(2).top(), row);
  view.selectAll();
  EXPECT_EQ(view.selectedText().toStdString(), line + "\nnext");
}

}  // namespace
}  // namespace tessaly::testing
