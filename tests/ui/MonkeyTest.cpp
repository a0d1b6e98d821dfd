// A monkey on the window: from a seed, thousands of random user actions (buttons, tabs, clicks and keys on
// the board, text boxes, menus, shortcuts, lists, the event log, entry dialogs, drop-downs) at rest, at pause
// points and while Solve or a creation runs; after each, the window must still agree with the session. Every message
// the program shows is read (none empty, none with a placeholder left in it or a count of nothing) and counted by its
// text; a collection saved into must read back with the puzzle just saved under the last of consecutive numbers,
// and PuzTemp.sud must hold whole records. The seed differs from run to run and is printed first;
// TESSALY_MONKEY_SEED replays one, TESSALY_MONKEY_ACTIONS changes the count; TESSALY_MONKEY_TRACE=1 prints each
// action. An action during a run comes at a yield counted from the run's start, so a seed replays the same run.

#include <QPrinter>
#include <deque>
#include <iostream>
#include <cstdlib>
#include <map>
#include <random>
#include <regex>
#include <sstream>

#include "create/EntryDialogs.h"
#include "create/Creation.h"
#include "model/CollectionFile.h"
#include "model/Interfaces.h"
#include "solver/BoardHistory.h"
#include "solver/Narrator.h"
#include "ui/CommandStates.h"
#include "ui/EntryDialog.h"
#include "ui/ObjectNames.h"
#include "ui/ReplayController.h"
#include "UiSupport.h"

namespace tessaly::testing {
namespace {

using Rng = std::mt19937;

constexpr long long kDefaultActions = 5000;
constexpr std::size_t kHistory = 20;      ///< actions kept for the report of a failure
constexpr int kDialogSteps = 5;           ///< steps in one entry dialog before it is cancelled
constexpr int kMnemonicClickMs = 150;     ///< a mnemonic's animated click of its button
constexpr int kPromptsPerAction = 3;      ///< answers to one text prompt loop (a refusal asks again)

long long environmentNumber(const char* name, long long fallback) {
  bool ok = false;
  const long long value = qEnvironmentVariable(name).toLongLong(&ok);
  return ok ? value : fallback;
}

int uniform(Rng& rng, int low, int high) { return std::uniform_int_distribution<int>(low, high)(rng); }
bool chance(Rng& rng, double p) { return std::bernoulli_distribution(p)(rng); }
template <class T>
const T& pick(Rng& rng, const std::vector<T>& items) {
  if (items.empty()) throw std::logic_error("nothing to pick from");
  return items[std::size_t(uniform(rng, 0, int(items.size()) - 1))];
}
int weighted(Rng& rng, const std::vector<int>& weights) {
  return std::discrete_distribution<int>(weights.begin(), weights.end())(rng);
}

QString describe(const QObject* object) {
  if (!object) return "(none)";
  QString name = object->objectName();
  if (name.isEmpty()) {
    name = object->metaObject()->className();
    if (const auto* button = qobject_cast<const QAbstractButton*>(object)) name += " '" + button->text() + "'";
  }
  return name;
}

std::string randomText(Rng& rng, const std::string& alphabet, int length) {
  std::string text;
  for (int i = 0; i < length; ++i) text += alphabet[std::size_t(uniform(rng, 0, int(alphabet.size()) - 1))];
  return text;
}

/// Nine lines of nine characters.
std::string asLines(const std::string& cells) {
  std::string text;
  for (std::size_t i = 0; i < cells.size(); ++i) text += (i && i % 9 == 0 ? "\n" : "") + cells.substr(i, 1);
  return text;
}

void clickTab(QWidget* window, int index) {
  auto* tabs = named<QTabBar>(window, names::ctlTabs);
  QTest::mouseClick(tabs, Qt::LeftButton, {}, tabs->tabRect(index).center());
}

/// The user at the keyboard when the core asks: yes or no, text answers valid or not, files of a scratch folder.
class MonkeyUserInterface : public UserInterface {
 public:
  MonkeyUserInterface(Rng*& rng, std::string folder) : m_rng(rng), m_folder(std::move(folder)) {}

  void message(const std::string& text) override {
    ++messages;
    if (heard) heard(text);
  }
  bool question(const std::string&) override { return ++questions, chance(*m_rng, 0.5); }
  std::optional<std::string> textInput(const std::string&, const std::string&, const std::string&) override {
    if (++m_promptsInAction > kPromptsPerAction) return std::nullopt;
    Rng& rng = *m_rng;
    switch (uniform(rng, 0, 5)) {
      case 0: return std::nullopt;
      case 1: return std::string();
      case 2: return std::string("0");
      case 3: {
        std::string order = "23456";
        std::shuffle(order.begin(), order.end(), rng);
        return order.substr(0, std::size_t(uniform(rng, 1, 5)));
      }
      default: return pick<std::string>(rng, {"7", "abc", "2x", "1", "99", " ", "23456789", "-2"});
    }
  }
  std::string chooseFile(const FileRequest& request) override {
    Rng& rng = *m_rng;
    if (request.mode != FileRequest::Mode::Open) {
      const std::string name = pick<std::string>(
          rng, {"", "out.csv", "out.txt", "out.xls", "out.sud", "no-folder/out.csv", "Puzzles.sud", "hardest.sud"});
      return name.empty() ? name : m_folder + name;
    }
    switch (uniform(rng, 0, 9)) {
      case 0: return {};
      case 1: return m_folder + "Puzzles.sud";  // as the monkey left it
      case 2: return m_folder + "missing.sud";
      case 3: return m_folder.substr(0, m_folder.size() - 1);  // a folder
      case 4: return written("garbage.sud", randomText(rng, "0123456789.#\n\n\n abcXY/", uniform(rng, 0, 400)));
      case 5: return written("empty.sud", "");
    }
    const std::string name = pick<std::string>(rng, {"pe96.sud", "singles.sud", "hardest.sud"});  // a fresh copy
    std::filesystem::copy_file(test::puzzleFile(name), m_folder + name,
                               std::filesystem::copy_options::overwrite_existing);
    return m_folder + name;
  }
  void setBusy(bool on) override { busy = on; }

  /// A new action: the dialogs it opens get their full number of answers.
  void newAction() { m_promptsInAction = 0; }

  int messages = 0, questions = 0;
  bool busy = false;
  std::function<void(const std::string&)> heard;  ///< reads every message as it is shown

 private:
  std::string written(const std::string& name, const std::string& text) {
    test::writeFile(m_folder + name, text);
    return m_folder + name;
  }
  Rng*& m_rng;
  std::string m_folder;
  int m_promptsInAction = 0;
};

/// The window's pacer, calling the monkey before every yield of a run (where a user's click arrives while it runs)
/// and counting the yields and waits under way: a mnemonic may start a run outside the monkey's own actions.
class YieldHook : public Pacer {
 public:
  YieldHook(Pacer& pacer, std::function<void()> beforeYield) : m_pacer(pacer), m_beforeYield(std::move(beforeYield)) {}
  bool processEvents() override {
    m_beforeYield();
    return counted([&] { return m_pacer.processEvents(); });
  }
  bool waitWhilePaused(RunState& runMode) override {
    return counted([&] { return m_pacer.waitWhilePaused(runMode); });
  }
  int inside = 0;  ///< yields and waits on the stack

 private:
  bool counted(const std::function<bool()>& call) {
    ++inside;
    const bool goOn = call();
    --inside;
    return goOn;
  }
  Pacer& m_pacer;
  std::function<void()> m_beforeYield;
};

class MonkeyTest : public ::testing::Test {
 protected:
  /// Where the monkey's tick finds the program.
  enum class Moment { Rest, Waiting, Running };

  void SetUp() override {
    // A new seed each run, printed first, so that a failure can be replayed.
    seed = qEnvironmentVariableIsSet("TESSALY_MONKEY_SEED") ? unsigned(environmentNumber("TESSALY_MONKEY_SEED", 0))
                                                            : std::random_device{}();
    std::cout << "monkey: seed " << seed << " (TESSALY_MONKEY_SEED=" << seed << " replays it)\n";
    ui.heard = [this](const std::string& text) { heard(text); };
    actions = environmentNumber("TESSALY_MONKEY_ACTIONS", kDefaultActions);
    trace = environmentNumber("TESSALY_MONKEY_TRACE", 0) != 0;
    m_main.seed(seed);
    // The application folder: a small default collection, the colour schemes (two left out, so choosing them
    // meets a missing file), the permutation table and the help page.
    std::filesystem::copy_file(test::puzzleFile("pe96.sud"), appDir() + "Puzzles.sud");
    for (const auto& entry : std::filesystem::directory_iterator(TESSALY_DATA_DIR)) {
      const std::string name = entry.path().filename().string();
      const bool wanted = entry.path().extension() == ".sch" || name == "Permu.txt" || name == "SuDoKu.htm";
      if (wanted && name != "rain.sch" && name != "egg.sch") std::filesystem::copy_file(entry.path(), appDir() + name);
    }
    for (const QString& line : QString::fromStdString(test::readFile(test::kSingles)).split('\n'))
      if (const QString row = line.trimmed(); row.size() == 9 && !row.startsWith('#')) m_rows.push_back(row.toStdString());
    ASSERT_FALSE(m_rows.empty());
  }

  void TearDown() override { window.reset(); }

  std::string appDir() const { return m_scratch.dir.dir(); }

  /// Starts the program as its main does: a session of its own, the window given the user interface.
  void startProgram() {
    m_restarting = true;
    window.reset();
    session = std::make_unique<Session>(Services{nullptr, nullptr, nullptr, nullptr, &m_random});
    window = std::make_unique<MainWindow>(*session, &ui);
    m_hook = std::make_unique<YieldHook>(session->pacer(), [this] { beforeYield(); });
    session->setServices(Services{nullptr, nullptr, m_hook.get(), nullptr, nullptr});
    window->setPrinterChooser([this](QPrinter& printer) {
      if (!chance(*m_rng, 0.25)) return false;
      printer.setOutputFormat(QPrinter::PdfFormat);
      printer.setOutputFileName(QString::fromStdString(appDir() + "report.pdf"));
      return true;
    });
    window->startUp(appDir());
    window->show();
    EXPECT_TRUE(QTest::qWaitForWindowExposed(window.get()));
    // Runs without pauses are the cheap ones; the box is toggled at random later.
    if (!session->controls.PauseCheck) click(window.get(), names::PauseCheck);
    ++m_starts;
    m_restarting = false;
  }

  // --- the driver: each tick schedules the next first, so that the next comes inside whatever this one starts (a
  // pause point's wait, a run's event handling, a modal dialog) as a user's next click would.

  void run() {
    startProgram();
    QTimer::singleShot(0, &m_context, [this] { tick(); });
    m_loop.exec();
    std::cout << "monkey: seed " << seed << ", " << m_given << " actions (" << m_atWaits << " at pause points, "
              << m_interrupts << " during runs), " << m_dialogSteps << " dialog steps, " << m_popups
              << " drop-down answers, " << m_starts - 1 << " restarts, " << m_rescues << " dialogs rescued, "
              << ui.messages << " messages, " << ui.questions << " questions, largest log " << m_largestLog
              << " lines\n";
    std::vector<std::pair<int, std::string>> counted;
    for (const auto& [text, count] : m_messageCounts) counted.emplace_back(-count, text);
    std::sort(counted.begin(), counted.end());
    for (const auto& [count, text] : counted) std::cout << "monkey: " << -count << " x '" << text << "'\n";
  }

  void tick() {
    // At rest: no tick of the monkey's and no yield or wait of a run below this one.
    const bool top = m_depth == 0 && (!m_hook || m_hook->inside == 0);
    if (top && windingDown()) return m_loop.quit();
    QTimer::singleShot(0, &m_context, [this] { tick(); });
    if (m_restarting) return;
    ++m_depth;
    guarded([&] { step(top); });
    --m_depth;
  }

  void guarded(const std::function<void()>& action) {
    try {
      action();
    } catch (const std::exception& e) {
      fail(std::string("exception: ") + e.what());
    } catch (...) {
      fail("an exception of unknown type");
    }
  }

  bool windingDown() const { return m_failed || m_given >= actions; }

  void step(bool top) {
    ui.newAction();
    if (top) m_blanksRefused = false;
    // Exit closed the window; what ran under it stops on its own. The user starts the program again.
    if (!window->isVisible()) return top ? startProgram() : void();
    if (QWidget* modal = QApplication::activeModalWidget()) return answerModal(modal);
    if (QWidget* popup = QApplication::activePopupWidget()) return answerPopup(popup);
    if (window->isWaiting()) {
      check(Moment::Waiting, "before");
      if (windingDown()) return runOn();
      ++m_atWaits;
      return give(Moment::Waiting);
    }
    // Inside a run (or a batch) that lets events through: its actions come at its yields.
    if (!top) return check(Moment::Running, "during");
    give(Moment::Rest);
    if (window->isVisible()) check(Moment::Rest, "after");
  }

  /// A run yields: the action drawn for it, if any, comes at the yield it was planned for.
  void beforeYield() {
    if (m_restarting || windingDown() || m_interruptAt == 0 || ++m_runYields < m_interruptAt) return;
    // With a modal dialog open (its OK may run the analysis) the window takes no clicks.
    if (QApplication::activeModalWidget() || QApplication::activePopupWidget()) return;
    m_interruptAt = 0;
    Rng planned(m_interruptSeed);
    Rng* const main = std::exchange(m_rng, &planned);
    ++m_interrupts;
    guarded([&] { give(Moment::Running); });
    m_rng = main;
  }

  /// Ends the wait at a pause point for good: Next with the right button, or Solve, or (a fault) closes the window.
  void runOn() {
    auto* next = child<QAbstractButton>(names::NextStepCommand);
    auto* solve = child<QAbstractButton>(names::Solveit);
    if (next->isEnabled()) return testing::click(next, Qt::RightButton);
    if (solve->isEnabled()) return testing::click(solve);
    window->close();
  }

  // --- the actions

  void give(Moment moment) {
    Rng& rng = *m_rng;
    // A run this action starts may be interrupted by an action of its own, drawn now so that the main sequence
    // does not depend on the clock.
    m_interruptAt = chance(rng, 0.3) ? uniform(rng, 1, 300) : 0;
    m_interruptSeed = unsigned(rng());
    m_runYields = 0;
    const char* where[] = {"rest", "pause", "run"};
    begin(where[int(moment)]);
    using M = MonkeyTest;
    const std::pair<int, void (M::*)()> kinds[] = {
        {30, &M::clickButton},     {8, &M::switchTab},       {16, &M::clickBoard},     {14, &M::keyOnGrid},
        {8, &M::typeIntoBox},      {7, &M::chooseMenuEntry}, {4, &M::pressShortcut},   {5, &M::clickList},
        {2, &M::workEventLog},     {1, &M::closeOtherWindow}, {3, &M::startSteppingRun},
        {moment == Moment::Waiting ? 60 : 0, &M::clickNext}};  // Next, the usual answer at a pause point
    std::vector<int> weights;
    for (const auto& kind : kinds) weights.push_back(kind.first);
    (this->*kinds[weighted(rng, weights)].second)();
  }

  template <class T = QWidget>
  T* child(const char* name) const { return named<T>(window.get(), name); }

  /// The widgets of type T a user can reach in the main window now, and that `wanted` accepts.
  template <class T>
  std::vector<T*> reachable(const std::function<bool(T*)>& wanted = {}) const {
    std::vector<T*> found;
    for (T* w : window->findChildren<T*>())
      if (w->isVisible() && w->isEnabled() && w->window() == window.get() && !w->rect().isEmpty() &&
          (!wanted || wanted(w)))
        found.push_back(w);
    return found;
  }

  Qt::MouseButton someButton() { return chance(*m_rng, 0.75) ? Qt::LeftButton : Qt::RightButton; }
  static const char* buttonName(Qt::MouseButton button) { return button == Qt::LeftButton ? "left" : "right"; }

  void clickButton() {
    const std::vector<QAbstractButton*> buttons = reachable<QAbstractButton>();
    if (buttons.empty()) return note("no button to click");
    QAbstractButton* button = pick(*m_rng, buttons);
    const Qt::MouseButton mouse = someButton();
    note(QString("click %1 %2").arg(describe(button), buttonName(mouse)));
    testing::click(button, mouse);
  }

  void clickNext() {
    QAbstractButton* next = child<QAbstractButton>(names::NextStepCommand);
    const Qt::MouseButton mouse = chance(*m_rng, 0.85) ? Qt::LeftButton : Qt::RightButton;
    note(QString("click NextStepCommand %1%2").arg(buttonName(mouse), next->isEnabled() ? "" : " (disabled)"));
    if (!next->isVisible() || !next->isEnabled()) return clickButton();  // on another tab, or no pauses: anything else
    testing::click(next, mouse);
  }

  /// To the AutoSolve tab, pauses on most of the time, and Start.
  void startSteppingRun() {
    clickTab(window.get(), int(Tab::AutoSolve) - 1);
    auto* pauses = child<QCheckBox>(names::PauseCheck);
    if (pauses->isChecked() && chance(*m_rng, 0.8)) testing::click(pauses);
    auto* start = child<QAbstractButton>(names::StartCommand);
    note(QString("Start with%1 pauses%2").arg(pauses->isChecked() ? "out" : "", start->isEnabled() ? "" : " (disabled)"));
    if (start->isEnabled()) testing::click(start);
  }

  void switchTab() {
    const int index = uniform(*m_rng, 0, child<QTabBar>(names::ctlTabs)->count() - 1);
    note(QString("tab %1").arg(child<QTabBar>(names::ctlTabs)->tabText(index)));
    clickTab(window.get(), index);
  }

  void clickBoard() {
    Rng& rng = *m_rng;
    CellBoard* board = window->board();
    const int cell = uniform(rng, 1, kCells);
    const int what = uniform(rng, 0, 9);
    if (what == 4) {
      note(QString("double-click Grid_%1").arg(cell - 1));
      doubleClick(board->valueCell(cell));
    } else if (what == 8) {
      note(QString("hover PosVals_%1").arg(cell));
      hover(board->candidateCell(cell));
    } else if (what == 9) {
      const int box = uniform(rng, 0, 8);
      note(QString("click frame of box %1").arg(box + 1));
      QTest::mouseClick(board->grid(), Qt::LeftButton, {}, board->grid()->boxRect(box).topLeft() + QPoint(1, 1));
    } else {  // 0-3 a value, 5-7 the choices
      const Qt::MouseButton mouse = someButton();
      const QString name = what < 4 ? QString("Grid_%1").arg(cell - 1) : QString("PosVals_%1").arg(cell);
      note(QString("click %1 %2").arg(name, buttonName(mouse)));
      click(what < 4 ? board->valueCell(cell) : board->candidateCell(cell), mouse);
    }
  }

  void keyOnGrid() {
    Rng& rng = *m_rng;
    BoardView* grid = window->board()->grid();
    grid->setFocus(Qt::OtherFocusReason);
    const int kind = weighted(rng, {40, 20, 10, 20, 10});  // digit, keypad digit, Delete, arrow, other
    Qt::KeyboardModifiers modifiers = kind == 1 ? Qt::KeypadModifier : Qt::NoModifier;
    Qt::Key key = Qt::Key_Delete;
    if (kind <= 1) {
      key = Qt::Key(Qt::Key_1 + uniform(rng, 0, 8));
    } else if (kind == 3) {
      key = pick<Qt::Key>(rng, {Qt::Key_Left, Qt::Key_Right, Qt::Key_Up, Qt::Key_Down});
    } else if (kind == 4) {
      key = pick<Qt::Key>(rng, {Qt::Key_0, Qt::Key_Backspace, Qt::Key_Space, Qt::Key_A, Qt::Key_Escape, Qt::Key_Tab,
                                Qt::Key_5});
      if (chance(rng, 0.3)) modifiers = Qt::ShiftModifier;
    }
    note(QString("key %1 on Grid").arg(QKeySequence(QKeyCombination(modifiers, key)).toString()));
    QTest::keyClick(grid, key, modifiers);
  }

  void typeIntoBox() {
    Rng& rng = *m_rng;
    const auto boxes = reachable<QLineEdit>([](QLineEdit* box) { return !box->isReadOnly(); });
    if (boxes.empty()) return note("no box to type into");
    QLineEdit* box = pick(rng, boxes);
    const QString name = box->objectName();
    const int total = session->collection.TotalPuzzles;
    std::string text;
    if (name == names::PuzNumNow)
      text = chance(rng, 0.7) ? std::to_string(uniform(rng, 1, std::max(1, total)))
                              : pick<std::string>(rng, {"", "0", "abc", "-1", "999", "12x", " 7", "3.5",
                                                        std::to_string(total + 1)});
    else if (name == names::TotBlanks)
      text = chance(rng, 0.7) ? std::to_string(uniform(rng, 17, 64))
                              : pick<std::string>(rng, {"", "0", "8", "9", "72", "73", "81", "abc", "4x"});
    else if (name == names::NumCreate)  // a batch stays small
      text = pick<std::string>(rng, {"0", "1", "1", "2", "", "abc", "-1"});
    else
      text = randomText(rng, "0123456789", uniform(rng, 0, 3));
    const bool enter = chance(rng, 0.8);
    note(QString("type '%1'%2 into %3").arg(QString::fromStdString(text), enter ? " and Enter" : "", name));
    box->setFocus(Qt::OtherFocusReason);
    box->selectAll();
    if (text.empty())
      QTest::keyClick(box, Qt::Key_Backspace);
    else
      QTest::keyClicks(box, QString::fromStdString(text));
    if (enter) QTest::keyClick(box, chance(rng, 0.5) ? Qt::Key_Return : Qt::Key_Enter);
  }

  void chooseMenuEntry() {
    std::vector<QAction*> entries;
    std::function<void(const QList<QAction*>&)> collect = [&](const QList<QAction*>& list) {
      for (QAction* action : list) {
        if (action->menu())
          collect(action->menu()->actions());
        else if (!action->isSeparator() && action->isEnabled() && action->isVisible())
          entries.push_back(action);
      }
    };
    collect(window->menuBar()->actions());
    if (entries.empty()) return note("no menu entry");
    QAction* entry = pick(*m_rng, entries);
    note(QString("menu %1").arg(describe(entry)));
    entry->trigger();
  }

  void pressShortcut() {
    const auto ctrl = Qt::ControlModifier;
    const std::vector<QKeyCombination> keys = {
        Qt::Key_F5,       Qt::Key_F6,       Qt::Key_F7,       Qt::Key_F8,       Qt::Key_F1,
        ctrl | Qt::Key_H, ctrl | Qt::Key_1, ctrl | Qt::Key_4, ctrl | Qt::Key_7, ctrl | Qt::Key_Q,
        Qt::AltModifier | Qt::Key_unknown};  // a button's underlined letter
    QKeyCombination key = pick(*m_rng, keys);
    if (key.key() == Qt::Key_unknown)
      key = QKeyCombination(Qt::AltModifier,
                            pick<Qt::Key>(*m_rng, {Qt::Key_S, Qt::Key_N, Qt::Key_L, Qt::Key_P, Qt::Key_C, Qt::Key_A}));
    note(QString("shortcut %1").arg(QKeySequence(key).toString()));
    QTest::keyClick(window.get(), key.key(), key.keyboardModifiers());
    // A mnemonic clicks its button a moment later: that click belongs to this action, whatever the clock.
    if (key.keyboardModifiers() == Qt::AltModifier) QTest::qWait(kMnemonicClickMs);
  }

  void clickList() {
    const auto lists = reachable<QListWidget>([](QListWidget* list) { return list->count() > 0; });
    if (lists.empty()) return note("no list to click");
    QListWidget* list = pick(*m_rng, lists);
    const int row = uniform(*m_rng, 0, list->count() - 1);
    const Qt::MouseButton mouse = someButton();
    note(QString("click line %1 of %2 %3").arg(row).arg(list->objectName(), buttonName(mouse)));
    list->scrollToItem(list->item(row));
    QTest::mouseClick(list->viewport(), mouse, {}, list->visualItemRect(list->item(row)).center());
  }

  void workEventLog() {
    Rng& rng = *m_rng;
    EventLogView* log = window->eventLogView();
    if (!log->isVisible()) return note("event log hidden");
    const QPoint point(uniform(rng, 0, log->viewport()->width() - 1), uniform(rng, 0, log->viewport()->height() - 1));
    const int what = uniform(rng, 0, 3);
    if (what == 0) {
      note("click EventLogx");
      QTest::mouseClick(log->viewport(), Qt::LeftButton, {}, point);
    } else if (what == 1) {
      note("context menu of EventLogx");
      QContextMenuEvent menu(QContextMenuEvent::Mouse, point, log->viewport()->mapToGlobal(point));
      QCoreApplication::sendEvent(log->viewport(), &menu);
    } else {
      const auto key = pick<QKeySequence>(rng, {QKeySequence::Copy, QKeySequence::SelectAll, Qt::Key_PageUp,
                                                Qt::Key_End, Qt::Key_Up});
      note(QString("key %1 on EventLogx").arg(key.toString()));
      QTest::keySequence(log, key);
    }
  }

  void closeOtherWindow() {
    std::vector<QWidget*> others;
    for (QWidget* w : QApplication::topLevelWidgets())
      if (w != window.get() && w->isVisible() && !qobject_cast<QMenu*>(w)) others.push_back(w);
    if (others.empty()) return note("no other window");
    // The application keeps its windows in no fixed order.
    std::sort(others.begin(), others.end(), [](QWidget* a, QWidget* b) { return describe(a) < describe(b); });
    QWidget* other = pick(*m_rng, others);
    note(QString("Escape on %1").arg(describe(other)));
    QTest::keyClick(other, Qt::Key_Escape);
  }

  // --- what opens over the window

  void answerModal(QWidget* modal) {
    auto* dialog = qobject_cast<EntryDialog*>(modal);
    if (!dialog) {
      // A box the program shows by itself would wait for a user the tests do not have: close it, as a fault.
      ++m_rescues;
      fail(QString("a modal %1 (%2, '%3') was left open")
               .arg(modal->metaObject()->className(), modal->objectName(), modal->windowTitle())
               .toStdString());
      if (auto* box = qobject_cast<QDialog*>(modal)) return box->reject();
      return void(modal->close());
    }
    Rng& rng = *m_rng;
    if (m_dialog != dialog) m_dialog = dialog, m_stepsInDialog = 0;
    ++m_dialogSteps;
    begin(dialog->objectName());
    const bool grid = dialog->objectName() == names::Form2;
    int what = uniform(rng, 0, 7);  // 0-2 type, 3-4 OK, 5 Cancel, 6 Help, 7 Escape
    if (windingDown() || ++m_stepsInDialog > kDialogSteps) what = 5;
    const int messagesBefore = ui.messages;
    const int questionsBefore = ui.questions;
    if (what <= 2) {
      std::string cells;  // for a grid, rows of different puzzles: maybe no solution at all
      for (int r = 0; r < 9 && what < 2 && grid; ++r) cells += pick(rng, m_rows);
      const std::string text = what == 2 ? randomText(rng, grid ? "0123456789./ \nx" : "X. \nxQ", uniform(rng, 0, 100))
                               : grid    ? asLines(cells)
                                         : asLines(randomText(rng, what == 0 ? "X." : "XXX.", kCells));
      note("type a text of " + QString::number(text.size()) + " characters");
      dialog->setText(text);
    } else if (what == 7) {
      note("Escape");
      QTest::keyClick(dialog, Qt::Key_Escape);
    } else {
      const char* button = what <= 4 ? "OKButton" : what == 5 ? "CancelButton" : "HelpButton";
      note(QString("click ") + button);
      click(dialog, button);
      // A refused text is told in a message; a puzzle without exactly one solution is asked about, and a No keeps
      // the dialog open.
      if (what <= 4 && dialog->isVisible() && ui.messages == messagesBefore && ui.questions == questionsBefore)
        fail("OK refused a text without saying why");
      if (what == 6 && ui.messages == messagesBefore) fail("Help showed nothing");
    }
  }

  void answerPopup(QWidget* popup) {
    Rng& rng = *m_rng;
    ++m_popups;
    begin("popup " + describe(popup));
    auto* menu = qobject_cast<QMenu*>(popup);
    std::vector<QAction*> items;
    if (menu)
      for (QAction* action : menu->actions())
        if (action->isVisible() && action->isEnabled() && !action->isSeparator()) items.push_back(action);
    if (!windingDown() && !items.empty() && chance(rng, 0.7)) {
      QAction* item = pick(rng, items);
      note(QString("choose '%1'").arg(item->text()));
      QTest::mouseClick(menu, Qt::LeftButton, {}, menu->actionGeometry(item).center());
    } else {
      note("Escape");
      QTest::keyClick(popup, Qt::Key_Escape);
    }
    if (popup->isVisible()) popup->close();
  }

  // --- the checks

  void check(Moment moment, const char* when) {
    const int lines = session->log.TotalLines();
    m_largestLog = std::max(m_largestLog, lines);
    if (lines > EventLog::kCapacity) return fail(std::string("the log holds ") + std::to_string(lines) + " lines");
    if (moment == Moment::Running) return;
    if (moment == Moment::Waiting && session->run.activity != RunActivity::Stepping)
      return fail(std::string("a run waits at a pause point that Start did not begin (") + when + " the action)");
    if (const std::string wrong = boardDifference(); !wrong.empty()) return fail(wrong);
    if (moment == Moment::Waiting) return;

    if (session->run.activity != RunActivity::None)
      return fail("a run is still under way after the action: activity " + std::to_string(int(session->run.activity)));
    if (window->isWaiting()) return fail("the window still waits for Next after the action");
    const CommandStates expected = commandStates(*session);
    const std::pair<const char*, bool> buttons[] = {
        {names::StartCommand, expected.start}, {names::NextStepCommand, expected.next},
        {names::Solveit, expected.solve},      {names::ClearCommand, expected.clear},
        {names::EditCommand, expected.edit}};
    for (const auto& [name, enabled] : buttons)
      if (child(name)->isEnabled() != enabled)
        return fail(std::string(name) + (enabled ? " is disabled" : " is enabled") + " at rest");
    if (window->eventLogView()->isVisible() != expected.views) return fail("the event log's visibility is wrong");
    if (window->eventLogView()->TotalLines() != lines)
      return fail("the log view shows " + std::to_string(window->eventLogView()->TotalLines()) + " lines of " +
                  std::to_string(lines));
    if (ui.busy) return fail("the busy pointer is still on at rest");
    checkTempCollection();
    if (const std::string wrong = wordsDifference(); !wrong.empty()) return fail(wrong);
  }

  /// Where the puzzle frame's title or the status line does not describe the puzzle on the board: either shows
  /// other words than the session's, a new puzzle's title counts fewer blanks than the board leaves open (Solve
  /// makes the grid as it stands the puzzle, so there may be more), or the status line still tells of another
  /// puzzle (a given of the puzzle before is gone, the words stayed).
  std::string wordsDifference() {
    const std::string title = named<QGroupBox>(window.get(), names::PuzNumber)->title().toStdString();
    const std::string status = named<QLabel>(window.get(), names::MesLab)->text().toStdString();
    const std::string ownTitle = puzzleTitle(session->collection.origin());
    const std::string ownStatus = statusLine(session->run.ended);
    if (title != ownTitle) return "the title shows '" + title + "', the session's is '" + ownTitle + "'";
    if (status != ownStatus) return "the status line shows '" + status + "', the session's is '" + ownStatus + "'";
    std::string givens;
    int blanks = 0;
    for (int c = 1; c <= kCells; ++c) {
      const Cell& cell = session->grid[c];
      givens += cell.given ? char('0' + cell.value) : '.';
      blanks += !cell.given;
    }
    const std::string before = std::exchange(m_shownGivens, givens);
    const std::string previousStatus = std::exchange(m_shownStatus, status);
    // Solve makes the grid as it stands the puzzle and tells its own end, which may be the same words.
    const bool solved = !m_history.empty() && (m_history.back().find("Solveit") != std::string::npos ||
                                               m_history.back().find("Start") != std::string::npos);
    // A new puzzle's title counts its blanks (a batch saved to the file is titled with the count asked for).
    // Solve takes the values on the board as the givens and leaves the title; a search that ran out of
    // guesses blanks every value, givens included, so after a Solve the board may leave more, until the
    // title changes.
    if (std::exchange(m_shownTitle, title) != title) m_solvedUnderTitle = false;
    m_solvedUnderTitle |= solved;
    if (const std::string created = "New Puzzle ("; title.rfind(created, 0) == 0 && !m_solvedUnderTitle) {
      const std::string counted = title.substr(created.size(), title.find(' ', created.size()) - created.size());
      if (std::atoi(counted.c_str()) < blanks)
        return "the title '" + title + "' counts " + counted + " blanks, the board leaves " + std::to_string(blanks);
    }
    bool otherPuzzle = false;
    for (std::size_t i = 0; i < before.size() && i < givens.size(); ++i) otherPuzzle |= before[i] != '.' && before[i] != givens[i];
    // A click during a run queues its command behind it: one action at rest may
    // then read another puzzle and solve it too, and that solve may end in the
    // same words as the one before. The words are only suspect when nothing ran
    // between the two checks but the action itself.
    const bool clickedDuringARun = std::exchange(m_interruptsAtCheck, m_interrupts) != m_interrupts;
    if (!status.empty() && status == previousStatus && otherPuzzle && !clickedDuringARun && !solved)
      return "the status line '" + status + "' stays from the puzzle before";
    return {};
  }

  /// The first cell whose painted value or choices differ from the session's, or, while the board shows an
  /// earlier line of the log, from that line's.
  std::string boardDifference() const {
    const CellBoard* board = window->board();
    const ReplayController* replay = window->replay();
    const PuzzleGrid grid =
        replay->showsPast() ? boardAtLine(session->run.history, replay->shownLine()) : session->grid;
    for (int c = 1; c <= kCells; ++c) {
      const Cell& cell = grid[c];
      const QString value = cell.value ? QString::number(cell.value) : QString();
      const QString shown = board->valueCell(c).text;
      if (shown != value)
        return QString("Grid_%1 shows '%2', the grid holds '%3'").arg(c - 1).arg(shown, value).toStdString();
      const QString choices = QString::fromStdString(cell.candidates.text());
      if (const QString shownChoices = board->candidateCell(c).text; shownChoices != choices)
        return QString("PosVals_%1 shows '%2', the grid holds '%3'").arg(c).arg(shownChoices, choices).toStdString();
    }
    return {};
  }

  // --- the messages and the files saved into

  /// A message as it is counted: the scratch folder and every number left out, line breaks shown as "\n".
  std::string messageKind(const std::string& text) const {
    std::string kind;
    const std::string folder = appDir();
    for (std::size_t i = 0; i < text.size(); ++i) {
      if (text.compare(i, folder.size(), folder) == 0) {
        kind += "<folder>/";
        i += folder.size() - 1;
      } else if (text[i] >= '0' && text[i] <= '9') {
        if (kind.empty() || kind.back() != 'N') kind += 'N';
      } else if (text[i] == '\n') {
        kind += "\\n";
      } else {
        kind += text[i];
      }
    }
    return kind;
  }

  void heard(const std::string& text) {
    if (trace) std::cout << "monkey: message: " << text << "\n";
    ++m_messageCounts[messageKind(text)];
    static const std::regex placeholder(R"(%[1-9sd]|\{[0-9]*\}|\$\{)");
    static const std::regex nothingOfNothing(R"((^|[^0-9])0 of 0([^0-9]|$))");
    static const std::regex noPath(R"(file: ?$)");
    static const std::regex added(R"(^Puzzle# ?(-?[0-9]+) added to file: (.*)$)");
    static const std::regex batchAdded(R"(^(.*) puzzles added to file: (.*)$)");
    std::smatch match;
    if (text.find_first_not_of(" \t\r\n") == std::string::npos) return fail("an empty message");
    if (std::regex_search(text, placeholder)) return fail("a message with a placeholder left in it: '" + text + "'");
    if (std::regex_search(text, nothingOfNothing)) return fail("a message counting nothing: '" + text + "'");
    if (std::regex_search(text, noPath)) return fail("a message naming no file: '" + text + "'");
    if (std::regex_match(text, match, added)) return checkSaved(match[2], std::stoi(match[1]), true);
    // A refused blank count refuses every puzzle of the batch, which then tells the count asked for; a batch
    // asked for as "abc" or "0" saves nothing either. The file stays as it was then, whatever its form.
    if (text == kTooFewBlanks || text == kTooManyBlanks) m_blanksRefused = true;
    if (std::regex_match(text, match, batchAdded) && std::atoi(match[1].str().c_str()) > 0 &&
        !std::exchange(m_blanksRefused, false))
      return checkSaved(match[2], session->collection.TotalPuzzles, false);
  }

  /// A collection just saved into holds `count` puzzles, numbered 1 to count once each (unless the monkey wrote
  /// its headers itself), and, after a single save, the board's givens as the last one.
  void checkSaved(const std::string& path, int count, bool boardIsLast) {
    const std::string what = "after saving into " + fileNamePart(path) + ": ";
    if (!boardIsLast && count == 0) return;  // a batch of none into a new collection: nothing written
    if (count < 1) return fail(what + "the puzzle number " + std::to_string(count));
    if (scanCollection(path).form != CollectionForm::Numbered) return fail(what + "not a numbered collection");
    if (const int counted = countPuzzles(path); counted != count)
      return fail(what + std::to_string(counted) + " puzzles, the message tells " + std::to_string(count));
    std::vector<std::string> headers, numbers;
    for (const std::string& line : splitLines(test::readFile(path)))
      if (!line.empty() && line[0] == '#') headers.push_back(line);
    for (int n = 1; n <= count; ++n) numbers.push_back("#" + std::to_string(n));
    if (fileNamePart(path) != "garbage.sud" && headers != numbers)
      return fail(what + "the puzzles are not numbered 1 to " + std::to_string(count) + " once each");
    if (!boardIsLast) return;
    const PuzzleRowsRead read = readPuzzleRows(path, count);
    std::string cells;
    for (const std::string& row : read.rows) cells += row;
    std::string givens = givensText(*session);
    std::replace(givens.begin(), givens.end(), '.', '0');
    if (read.status != PuzzleRowsRead::Status::Found || cells != givens)
      return fail(what + "puzzle " + std::to_string(count) + " is not the one saved");
  }

  /// PuzTemp.sud grows by whole records of created puzzles: "#001" and nine rows.
  void checkTempCollection() {
    const std::string text = test::readFile(appDir() + kTempCollectionName);
    if (text.size() == m_tempSize) return;
    if (text.size() < m_tempSize) return fail("PuzTemp.sud became shorter");
    // Each record: "#001" and nine rows of nine cells, every line ended by CR LF.
    bool whole = (text.size() - m_tempSize) % 105 == 0;
    for (std::size_t at = m_tempSize; whole && at < text.size(); at += 105) {
      whole = text.compare(at, 6, "#001\r\n") == 0;
      for (std::size_t row = 0; whole && row < 9; ++row) {
        const std::string line = text.substr(at + 6 + row * 11, 11);
        whole = line.find_first_not_of("123456789.") == 9 && line.compare(9, 2, "\r\n") == 0;
      }
    }
    if (!whole)
      return fail("PuzTemp.sud grew by something else than whole records");
    m_tempSize = text.size();
  }

  // --- the record

  /// A new numbered action in the record.
  void begin(const QString& where) { note(QString("%1 [%2] ").arg(++m_given).arg(where)); }

  void note(const QString& text) {
    if (text.front().isDigit() || m_history.empty())
      m_history.push_back(text.toStdString());
    else
      m_history.back() += text.toStdString();
    while (m_history.size() > kHistory) m_history.pop_front();
    if (trace)
      std::cerr << (text.front().isDigit() ? "monkey: " : "") << text.toStdString() << (text.back() == ' ' ? "" : "\n")
                << std::flush;
  }

  void fail(const std::string& what) {
    if (m_failed) return;
    m_failed = true;
    std::ostringstream report;
    report << "The monkey found a fault: seed " << seed << ", action " << m_given << " of " << actions << ": " << what
           << "\nThe last actions:\n";
    for (const std::string& line : m_history) report << "  " << line << "\n";
    report << "Replay: TESSALY_MONKEY_SEED=" << seed << " TESSALY_MONKEY_ACTIONS=" << m_given
           << " TESSALY_MONKEY_TRACE=1";
    ADD_FAILURE() << report.str();
  }

  unsigned seed = 0;
  long long actions = kDefaultActions;
  bool trace = false;
  test::ScratchFolder m_scratch;  // made before the user interface and the window, gone last
  Rng m_main;
  Rng* m_rng = &m_main;  ///< the generator actions draw from
  MonkeyUserInterface ui{m_rng, appDir()};
  std::unique_ptr<Session> session;
  std::unique_ptr<MainWindow> window;
  SeededRandom m_random{1};
  QObject m_context;
  QEventLoop m_loop;
  std::vector<std::string> m_rows;  ///< rows of real puzzles, for typed grids
  std::deque<std::string> m_history;
  std::map<std::string, int> m_messageCounts;  ///< messages shown, by their text without paths and numbers
  std::size_t m_tempSize = 0;                  ///< PuzTemp.sud's length at the last check
  bool m_blanksRefused = false;  ///< a blank count was refused since the action began
  long long m_interruptsAtCheck = 0;  ///< actions given during runs, at the last check at rest
  std::string m_shownGivens, m_shownStatus;  ///< the board's givens and the status line at the last check at rest
  std::string m_shownTitle;        ///< the puzzle frame's title at the last check at rest
  bool m_solvedUnderTitle = false;  ///< whether a Solve made the board the puzzle since the title was set
  std::unique_ptr<YieldHook> m_hook;
  QPointer<EntryDialog> m_dialog;
  bool m_restarting = false, m_failed = false;
  unsigned m_interruptSeed = 0;
  int m_depth = 0, m_interruptAt = 0, m_runYields = 0, m_stepsInDialog = 0, m_largestLog = 0;
  long long m_given = 0, m_atWaits = 0, m_interrupts = 0, m_dialogSteps = 0, m_popups = 0, m_starts = 0, m_rescues = 0;
};

TEST_F(MonkeyTest, ThousandsOfRandomActionsLeaveTheWindowInStepWithTheSession) { run(); }

// What the monkey found, each kept as an ordinary case.

// A session made without a user interface, as main makes it: the Create page's template dialog tells its help and
// refusals through the window's user interface, not the silent one the session began with.
TEST(MonkeyFindings, TheTemplateDialogSpeaksThroughTheWindowsUserInterface) {
  Session session;
  ScriptedUserInterface ui;
  MainWindow window(session, &ui);
  window.show();
  clickTab(&window, int(Tab::Create) - 1);
  click(&window, QString(names::Distribution_N).arg(3));  // Manual
  QTimer::singleShot(0, [] {
    QWidget* dialog = QApplication::activeModalWidget();
    ASSERT_NE(dialog, nullptr);
    click(dialog, "HelpButton");
    qobject_cast<EntryDialog*>(dialog)->setText("X");
    click(dialog, "OKButton");
    click(dialog, "CancelButton");
  });
  click(&window, names::CreateCommand);
  EXPECT_EQ(ui.messages, (std::vector<std::string>{kTemplateHelp, checkTemplateEntry("X").refusal,
                                                   kTemplateNotAccepted}));
}
// "No pauses" switched off while Solve or a creation runs: the run goes on to its end without waiting (Solve has
// no Next to go on with) and a creation stays silent and makes its puzzle.
class PauseBoxDuringARun : public WindowFixture, public ::testing::WithParamInterface<bool> {};

TEST_P(PauseBoxDuringARun, LeavesTheRunGoingAsItWas) {
  const bool creating = GetParam();
  start(1);
  if (!session.controls.PauseCheck) click("PauseCheck");
  QTimer::singleShot(0, window.get(), [&] {
    EXPECT_NE(session.run.activity, RunActivity::None);
    selectTab(Tab::AutoSolve);
    click("PauseCheck");
  });
  // A run that waits anyway is let go, so that the fault cannot hang the test.
  int waits = 0;
  QTimer release;
  QObject::connect(&release, &QTimer::timeout, [&] {
    if (!window->isWaiting()) return;
    ++waits;
    click("PauseCheck");
  });
  release.start(5);
  if (creating) {
    selectTab(Tab::Create);
    click("CreateCommand");
    EXPECT_EQ(puzzleTitle(session.collection.origin()).substr(0, 11), "New Puzzle ");
  } else {
    click("Solveit");
    EXPECT_EQ(session.grid.filledCount(), kCells);
  }
  EXPECT_EQ(waits, 0);
  EXPECT_FALSE(session.controls.PauseCheck);
  EXPECT_FALSE(child<QCheckBox>("PauseCheck")->isChecked());
}

INSTANTIATE_TEST_SUITE_P(SolveAndCreate, PauseBoxDuringARun, ::testing::Bool(),
                         [](const auto& info) { return std::string(info.param ? "Creating" : "Solving"); });

}  // namespace
}  // namespace tessaly::testing
