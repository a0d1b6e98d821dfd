#pragma once
// Shared by the widget tests: finding and clicking a named widget, answering an
// entry dialog once it opens, acting at a stepping run's pauses, and a main window on
// a scratch folder (its application directory and working folder) with scripted messages and files.

#include <gtest/gtest.h>

#include <QTest>
#include <QtWidgets>
#include <climits>
#include <deque>
#include <filesystem>
#include <functional>
#include <map>
#include <memory>

#include "support/TestSupport.h"
#include "ui/CellBoard.h"
#include "ui/EntryDialog.h"
#include "ui/EventLogView.h"
#include "ui/MainWindow.h"
#include "ui/Metrics.h"

namespace tessaly::testing {

/// The fonts a window is drawn with: the application's family and size, the
/// fixed-pitch family, and the family that stands in for the event log's Arial.
struct FontSet {
  const char* family;
  double points;
  const char* fixed;
  const char* arial;
  const char* package;  ///< the Debian package that has them
};
inline void PrintTo(const FontSet& fonts, std::ostream* out) { *out << fonts.family << " " << fonts.points << "pt"; }
/// The widget tests' fonts, whatever the machine's desktop would choose.
inline constexpr FontSet kPinnedFonts{"DejaVu Sans", 10, "DejaVu Sans Mono", "DejaVu Sans", "fonts-dejavu-core"};

/// Draws the windows made from now on with `fonts`; false when a family is not installed.
inline bool useFonts(const FontSet& fonts) {
  for (const char* family : {fonts.family, fonts.fixed, fonts.arial})
    if (!QFontDatabase::hasFamily(family)) return false;
  QFont font(fonts.family);
  font.setPointSizeF(fonts.points);
  QApplication::setFont(font);
  pinFixedFamily(fonts.fixed);
  QFont::removeSubstitutions("Arial");
  QFont::insertSubstitution("Arial", fonts.arial);
  return true;
}

using test::puzzleFile;
using test::readFile;
using test::writeFile;

template <class T = QWidget>
T* named(const QObject* parent, const QString& name) {
  T* found = parent->findChild<T*>(name);
  EXPECT_NE(found, nullptr) << name.toStdString();
  return found;
}
/// Clicks near the left end, where a check box or option has its indicator.
inline void click(QWidget* w, Qt::MouseButton button = Qt::LeftButton) {
  QTest::mouseClick(w, button, {}, QPoint(std::min(w->width(), w->height()) / 2, w->height() / 2));
}
inline void click(const QObject* parent, const QString& name, Qt::MouseButton button = Qt::LeftButton) {
  click(named(parent, name), button);
}
/// Clicks the middle of a painted cell of the board.
inline void click(const BoardCell& cell, Qt::MouseButton button = Qt::LeftButton) {
  QTest::mouseClick(cell.view, button, {}, cell.rect.center());
}
inline void doubleClick(const BoardCell& cell) {
  QTest::mouseDClick(cell.view, Qt::LeftButton, {}, cell.rect.center());
}
/// Moves the pointer onto a painted cell, as the mouse would.
inline void hover(const BoardCell& cell) {
  QMouseEvent move(QEvent::MouseMove, cell.rect.center(), cell.view->mapToGlobal(cell.rect.center()), Qt::NoButton,
                   Qt::NoButton, Qt::NoModifier);
  QCoreApplication::sendEvent(cell.view, &move);
}
inline std::vector<std::string> lines(const QListWidget* list) {
  std::vector<std::string> lines;
  for (int i = 0; i < list->count(); ++i) lines.push_back(list->item(i)->text().toStdString());
  return lines;
}
/// Once the next modal entry dialog is open, prepares it and clicks its button.
inline void answerDialog(const char* button, std::function<void(EntryDialog&)> prepare = {}) {
  QTimer::singleShot(0, [=] {
    auto* dialog = qobject_cast<EntryDialog*>(QApplication::activeModalWidget());
    ASSERT_NE(dialog, nullptr);
    if (prepare) prepare(*dialog);
    click(dialog, button);
    if (dialog->isVisible()) dialog->reject();  // never leave the test waiting
  });
}

using Actions = std::deque<std::function<void()>>;

/// Acts on a window while a stepping run waits (the run blocks the test, so from a timer): one action at each new
/// pause point; after `patience` ticks at the same point (an action left it waiting) the next one follows. A
/// watchdog closes the window if the run never lets go.
class PauseScript {
 public:
  PauseScript(MainWindow& window, Actions actions, int patience = INT_MAX) : m_actions(std::move(actions)) {
    QObject::connect(&m_timer, &QTimer::timeout, [this, patience, w = QPointer(&window)] {
      if (!w || !w->isWaiting() || m_actions.empty()) return;
      if (w->pauseWaits() == m_lastWait && ++m_idleTicks < patience) return;
      m_lastWait = w->pauseWaits();
      m_idleTicks = 0;
      auto action = std::move(m_actions.front());
      m_actions.pop_front();
      action();
    });
    m_timer.start(2);
    QTimer::singleShot(30000, &m_timer, [w = QPointer(&window)] { if (w) w->close(); });
  }
  bool done() const { return m_actions.empty(); }

 private:
  Actions m_actions;
  QTimer m_timer;
  int m_lastWait = 0, m_idleTicks = 0;
};

class WindowFixture : public ::testing::Test {
 protected:
  /// The application directory, ending in "/"; also the working folder.
  std::string appDir() const { return m_scratch.dir.dir(); }
  /// Starts the window on the application directory, whose default collection
  /// Puzzles.sud is a copy of pe96, and reads puzzle n of it when n > 0.
  void start(int n = 0) {
    if (!std::filesystem::exists(appDir() + "Puzzles.sud"))
      std::filesystem::copy_file(puzzleFile("pe96.sud"), appDir() + "Puzzles.sud");
    open();
    if (n > 0 && !HasFatalFailure()) window->readPuzzleFile(appDir() + "Puzzles.sud", n);
  }
  /// Starts the window on the application directory as it is; `ownDialogs` lets it use its own dialogs.
  void open(bool ownDialogs = false) {
    window = std::make_unique<MainWindow>(session, ownDialogs ? nullptr : &ui);
    window->startUp(appDir());
    window->show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(window.get()));
  }
  template <class T = QWidget>
  T* child(const QString& name) const { return named<T>(window.get(), name); }
  QAction* action(const char* name) const { return child<QAction>(name); }
  bool enabled(const char* name) const { return child(name)->isEnabled(); }
  /// Clicks a tab; unless `mayStay` (a run may hold the window on its page), the window must then show it.
  void selectTab(Tab tab, bool mayStay = false) {
    auto* tabs = child<QTabBar>("ctlTabs");
    QTest::mouseClick(tabs, Qt::LeftButton, {}, tabs->tabRect(int(tab) - 1).center());
    if (!mayStay) {
      EXPECT_EQ(session.controls.currentTab, tab);
    }
  }
  /// A painted cell of the board: Grid_N, PosVals_N or BoxMissingCount_N.
  BoardCell cell(const QString& name) const {
    const BoardCell found = window->board()->cellAt(name);
    EXPECT_TRUE(found.valid()) << name.toStdString();
    return found;
  }
  /// Clicks a widget, or a painted cell of the board, by its name.
  void click(const QString& name, Qt::MouseButton button = Qt::LeftButton) {
    const BoardCell painted = window->board()->cellAt(name);
    if (painted.valid())
      testing::click(painted, button);
    else
      testing::click(child(name), button);
  }
  /// The background of a widget, or of a painted cell of the board, by its name.
  QColor back(const QString& name) const {
    if (const BoardCell painted = window->board()->cellAt(name); painted.valid()) return painted.back;
    return child(name)->palette().color(QPalette::Window);
  }
  int blanksShown() const {
    int blanks = 0;
    for (int c = 1; c <= kCells; ++c) blanks += window->board()->valueCell(c).text.isEmpty();
    return blanks;
  }
  EventLogView* logView() const { return window->eventLogView(); }
  std::string lastLogLine() const {
    const int n = session.log.TotalLines();
    return n ? std::string(session.log.text(n)) : std::string();
  }

 private:
  test::ScratchFolder m_scratch;  // made first, gone last

 protected:
  ScriptedUserInterface ui;
  SeededRandom random{1};
  Session session{Services{&ui, nullptr, nullptr, nullptr, &random}};
  std::unique_ptr<MainWindow> window;
};

/// What a recording printer's engine tells Qt about its page: `width` x
/// `height` dots at `dpi` dots per inch, 32-bit colour, no scaling.
inline int recordedPageMetric(QPaintDevice::PaintDeviceMetric metric, int width, int height, int dpi) {
  using D = QPaintDevice;
  const std::map<int, int> values{{D::PdmWidth, width},
                                  {D::PdmHeight, height},
                                  {D::PdmWidthMM, width * 254 / (10 * dpi)},
                                  {D::PdmHeightMM, height * 254 / (10 * dpi)},
                                  {D::PdmNumColors, 256},
                                  {D::PdmDepth, 32},
                                  {D::PdmDevicePixelRatio, 1},
                                  {D::PdmDevicePixelRatioScaled, int(D::devicePixelRatioFScale())}};
  return values.count(metric) ? values.at(metric) : dpi;
}

}  // namespace tessaly::testing
