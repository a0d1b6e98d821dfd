// A monkey on the window: from a fixed seed, thousands of random actions a user
// could take -- clicks on whatever button is enabled, tab switches, clicks and
// keys on the painted board, numbers typed into the text boxes, every menu
// entry, the entry dialogs and drop-downs answered at random -- given at rest,
// at the pause points of a stepping run and while Solve or a creation runs.
// After each action the window must still agree with the session: the painted
// values and choices, the command buttons, no run left behind, no dialog left
// open, a log within its capacity, the normal pointer back.
//
// TESSALY_MONKEY_ACTIONS and TESSALY_MONKEY_SEED change the count and the seed;
// TESSALY_MONKEY_TRACE=1 prints every action as it is given. A failure names
// the seed, the number of the action and the actions before it.
//
// The actions are drawn from the generator in order, and an action given while
// Solve or a creation runs comes at a yield of the run counted from its start,
// not at a moment of the clock: a seed replays the same run as long as the
// program behaves the same.

#include <QPrinter>
#include <deque>
#include <iostream>
#include <random>
#include <sstream>

#include "create/EntryDialogs.h"
#include "create/Creation.h"
#include "model/Interfaces.h"
#include "solver/BoardHistory.h"
#include "ui/CommandStates.h"
#include "ui/EntryDialog.h"
#include "ui/ObjectNames.h"
#include "ui/ReplayController.h"
#include "UiSupport.h"

namespace tessaly::testing {
namespace {

using Rng = std::mt19937;

constexpr long long kDefaultActions = 5000;
constexpr unsigned kDefaultSeed = 20240601;
/// Actions kept for the report of a failure.
constexpr std::size_t kHistory = 20;
/// Steps taken in one entry dialog before it is cancelled.
constexpr int kDialogSteps = 5;
/// How long a button's mnemonic takes to click it (its animated click).
constexpr int kMnemonicClickMs = 150;
/// Answers given to one textInput loop (the rule order asks again after a refusal).
constexpr int kPromptsPerAction = 3;

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
/// Index drawn by weight.
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

/// A text of `length` characters drawn from `alphabet`.
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

/// The user at the keyboard when the core asks: questions answered yes or no,
/// text answers valid or not, files chosen among those of a scratch folder.
class MonkeyUserInterface : public UserInterface {
 public:
  MonkeyUserInterface(Rng*& rng, std::string folder) : m_rng(rng), m_folder(std::move(folder)) {}

  void message(const std::string& text) override {
    ++messages;
    lastMessage = text;
  }
  bool question(const std::string&) override {
    ++questions;
    return chance(*m_rng, 0.5);
  }
  std::optional<std::string> textInput(const std::string&, const std::string&, const std::string&) override {
    ++prompts;
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
      default: return pick(rng, std::vector<std::string>{"7", "abc", "2x", "1", "99", " ", "23456789", "-2"});
    }
  }
  std::string chooseFile(const FileRequest& request) override {
    ++fileRequests;
    Rng& rng = *m_rng;
    if (request.mode == FileRequest::Mode::Open) {
      switch (uniform(rng, 0, 9)) {
        case 0: return {};
        case 1: return m_folder + "Puzzles.sud";  // as the monkey left it
        case 2: return m_folder + "missing.sud";
        case 3: return m_folder.substr(0, m_folder.size() - 1);  // a folder
        case 4: {
          test::writeFile(m_folder + "garbage.sud",
                          randomText(rng, "0123456789.#\n\n\n abcXY/", uniform(rng, 0, 400)));
          return m_folder + "garbage.sud";
        }
        case 5: {
          test::writeFile(m_folder + "empty.sud", "");
          return m_folder + "empty.sud";
        }
        default: {
          // A fresh copy of a small collection.
          const std::string name = pick(rng, std::vector<std::string>{"pe96.sud", "singles.sud", "hardest.sud"});
          std::filesystem::copy_file(test::puzzleFile(name), m_folder + name,
                                     std::filesystem::copy_options::overwrite_existing);
          return m_folder + name;
        }
      }
    }
    const std::vector<std::string> names = {"", "out.csv", "out.txt", "out.xls", "out.sud", "no-folder/out.csv",
                                            "Puzzles.sud", "hardest.sud"};
    const std::string name = pick(rng, names);
    return name.empty() ? name : m_folder + name;
  }
  void setBusy(bool on) override { busy = on; }

  /// A new action: the dialogs it opens get their full number of answers.
  void newAction() { m_promptsInAction = 0; }

  int messages = 0, questions = 0, prompts = 0, fileRequests = 0;
  std::string lastMessage;
  bool busy = false;

 private:
  Rng*& m_rng;
  std::string m_folder;
  int m_promptsInAction = 0;
};

/// The window's pacer, with a call before every yield of a run (the moment a
/// user's click arrives while the run goes on) and a count of the yields and
/// waits under way: a run may also begin outside the monkey's own actions (a
/// button's mnemonic clicks it a moment later).
class YieldHook : public Pacer {
 public:
  YieldHook(Pacer& pacer, std::function<void()> beforeYield) : m_pacer(pacer), m_beforeYield(std::move(beforeYield)) {}
  bool processEvents() override {
    m_beforeYield();
    ++inside;
    const bool goOn = m_pacer.processEvents();
    --inside;
    return goOn;
  }
  bool waitWhilePaused(RunState& runMode) override {
    ++inside;
    const bool goOn = m_pacer.waitWhilePaused(runMode);
    --inside;
    return goOn;
  }
  /// Yields and waits on the stack.
  int inside = 0;

 private:
  Pacer& m_pacer;
  std::function<void()> m_beforeYield;
};

class MonkeyTest : public ::testing::Test {
 protected:
  /// Where the monkey's tick finds the program.
  enum class Moment { Rest, Waiting, Running };

  void SetUp() override {
    seed = unsigned(environmentNumber("TESSALY_MONKEY_SEED", kDefaultSeed));
    actions = environmentNumber("TESSALY_MONKEY_ACTIONS", kDefaultActions);
    trace = environmentNumber("TESSALY_MONKEY_TRACE", 0) != 0;
    m_main.seed(seed);
    // The application folder: a small default collection, the colour schemes
    // (two left out, so choosing them meets a missing file), the permutation
    // table and the help page.
    std::filesystem::copy_file(test::puzzleFile("pe96.sud"), appDir() + "Puzzles.sud");
    for (const auto& entry : std::filesystem::directory_iterator(TESSALY_DATA_DIR)) {
      const std::string name = entry.path().filename().string();
      const bool wanted = entry.path().extension() == ".sch" || name == "Permu.txt" || name == "SuDoKu.htm";
      if (wanted && name != "rain.sch" && name != "egg.sch") std::filesystem::copy_file(entry.path(), appDir() + name);
    }
    const std::string singles = test::readFile(test::kSingles);
    for (const QString& line : QString::fromStdString(singles).split('\n')) {
      if (const QString row = line.trimmed(); row.size() == 9 && !row.startsWith('#')) m_rows.push_back(row.toStdString());
    }
    ASSERT_FALSE(m_rows.empty());
  }

  void TearDown() override { window.reset(); }

  std::string appDir() const { return m_scratch.dir.dir(); }

  /// Starts the program as its main does: a session of its own, the window
  /// given the user interface.
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

  // --- the driver: one tick at a time, each scheduling the next first, so that
  // the next tick comes inside whatever this one starts (a pause point's wait,
  // a run's event handling, a modal dialog) as a user's next click would.

  void run() {
    startProgram();
    QTimer::singleShot(0, &m_context, [this] { tick(); });
    m_loop.exec();
    std::cout << "monkey: seed " << seed << ", " << m_given << " actions (" << m_atWaits << " at pause points, "
              << m_interrupts << " during runs), " << m_dialogSteps << " dialog steps, " << m_popups
              << " drop-down answers, " << m_starts - 1 << " restarts, " << m_rescues << " dialogs rescued, "
              << ui.messages << " messages, " << ui.questions << " questions, largest log " << m_largestLog
              << " lines\n";
  }

  void tick() {
    // At rest: no tick of the monkey's and no yield or wait of a run below this one.
    const bool top = m_depth == 0 && (!m_hook || m_hook->inside == 0);
    if (top && (m_failed || m_given >= actions)) {
      m_loop.quit();
      return;
    }
    QTimer::singleShot(0, &m_context, [this] { tick(); });
    if (m_restarting) return;
    ++m_depth;
    try {
      step(top);
    } catch (const std::exception& e) {
      fail(std::string("exception: ") + e.what());
    } catch (...) {
      fail("an exception of unknown type");
    }
    --m_depth;
  }

  bool windingDown() const { return m_failed || m_given >= actions; }

  void step(bool top) {
    ui.newAction();
    if (!window->isVisible()) {
      // Exit closed the window; what ran under it stops on its own. The user
      // starts the program again.
      if (top) startProgram();
      return;
    }
    if (QWidget* modal = QApplication::activeModalWidget()) return answerModal(modal);
    if (QWidget* popup = QApplication::activePopupWidget()) return answerPopup(popup);
    if (window->isWaiting()) {
      check(Moment::Waiting, "before");
      if (windingDown()) return runOn();
      ++m_atWaits;
      give(Moment::Waiting);
      return;
    }
    // Inside a run (or a batch) that lets events through: its actions come at
    // its yields.
    if (!top) return check(Moment::Running, "during");
    give(Moment::Rest);
    if (window->isVisible()) check(Moment::Rest, "after");
  }

  /// A run yields: the action drawn for it, if any, comes at the yield it was
  /// planned for.
  void beforeYield() {
    if (m_restarting || windingDown() || m_interruptAt == 0 || ++m_runYields < m_interruptAt) return;
    // With a modal dialog open (its OK may run the analysis) the window takes no clicks.
    if (QApplication::activeModalWidget() || QApplication::activePopupWidget()) return;
    m_interruptAt = 0;
    Rng planned(m_interruptSeed);
    Rng* const main = std::exchange(m_rng, &planned);
    ++m_interrupts;
    try {
      give(Moment::Running);
    } catch (const std::exception& e) {
      fail(std::string("exception: ") + e.what());
    } catch (...) {
      fail("an exception of unknown type");
    }
    m_rng = main;
  }

  /// Ends the wait at a pause point for good: Next with the right button, or
  /// Solve; when neither is enabled (a fault), the window is closed.
  void runOn() {
    auto* next = child<QAbstractButton>(names::NextStepCommand);
    auto* solve = child<QAbstractButton>(names::Solveit);
    if (next->isEnabled())
      testing::click(next, Qt::RightButton);
    else if (solve->isEnabled())
      testing::click(solve);
    else
      window->close();
  }

  // --- the actions

  void give(Moment moment) {
    Rng& rng = *m_rng;
    // A run this action starts may be interrupted by an action of its own,
    // drawn now so that the main sequence does not depend on the clock.
    m_interruptAt = chance(rng, 0.3) ? uniform(rng, 1, 300) : 0;
    m_interruptSeed = unsigned(rng());
    m_runYields = 0;
    ++m_given;
    const char* where[] = {"rest", "pause", "run"};
    note(QString("%1 [%2] ").arg(m_given).arg(where[int(moment)]));
    std::vector<int> weights = {30, 8, 16, 14, 8, 7, 4, 5, 2, 1, 3, 0};
    if (moment == Moment::Waiting) weights.back() = 60;  // Next, the usual answer at a pause point
    switch (weighted(rng, weights)) {
      case 0: return clickButton();
      case 1: return switchTab();
      case 2: return clickBoard();
      case 3: return keyOnGrid();
      case 4: return typeIntoBox();
      case 5: return chooseMenuEntry();
      case 6: return pressShortcut();
      case 7: return clickList();
      case 8: return workEventLog();
      case 9: return closeOtherWindow();
      case 10: return startSteppingRun();
      default: return clickNext();
    }
  }

  QWidget* child(const char* name) const { return named(window.get(), name); }
  template <class T>
  T* child(const char* name) const { return named<T>(window.get(), name); }

  /// The widgets of type T a user can reach in the main window now.
  template <class T>
  std::vector<T*> reachable() const {
    std::vector<T*> found;
    for (T* w : window->findChildren<T*>())
      if (w->isVisible() && w->isEnabled() && w->window() == window.get() && !w->rect().isEmpty()) found.push_back(w);
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
    if (next->isVisible() && next->isEnabled())
      testing::click(next, mouse);
    else
      clickButton();  // on another tab, or no pauses: anything else
  }

  /// To the AutoSolve tab, pauses on most of the time, and Start.
  void startSteppingRun() {
    auto* tabs = child<QTabBar>(names::ctlTabs);
    QTest::mouseClick(tabs, Qt::LeftButton, {}, tabs->tabRect(int(Tab::AutoSolve) - 1).center());
    auto* pauses = child<QCheckBox>(names::PauseCheck);
    if (pauses->isChecked() && chance(*m_rng, 0.8)) testing::click(pauses);
    auto* start = child<QAbstractButton>(names::StartCommand);
    note(QString("Start with%1 pauses%2").arg(pauses->isChecked() ? "out" : "", start->isEnabled() ? "" : " (disabled)"));
    if (start->isEnabled()) testing::click(start);
  }

  void switchTab() {
    auto* tabs = child<QTabBar>(names::ctlTabs);
    const int index = uniform(*m_rng, 0, tabs->count() - 1);
    note(QString("tab %1").arg(tabs->tabText(index)));
    QTest::mouseClick(tabs, Qt::LeftButton, {}, tabs->tabRect(index).center());
  }

  void clickBoard() {
    Rng& rng = *m_rng;
    CellBoard* board = window->board();
    const int cell = uniform(rng, 1, kCells);
    const int what = uniform(rng, 0, 9);
    if (what <= 3) {
      const Qt::MouseButton mouse = someButton();
      note(QString("click Grid_%1 %2").arg(cell - 1).arg(buttonName(mouse)));
      click(board->valueCell(cell), mouse);
    } else if (what == 4) {
      note(QString("double-click Grid_%1").arg(cell - 1));
      doubleClick(board->valueCell(cell));
    } else if (what <= 7) {
      const Qt::MouseButton mouse = someButton();
      note(QString("click PosVals_%1 %2").arg(cell).arg(buttonName(mouse)));
      click(board->candidateCell(cell), mouse);
    } else if (what == 8) {
      note(QString("hover PosVals_%1").arg(cell));
      hover(board->candidateCell(cell));
    } else {
      BoardView* grid = board->grid();
      const int box = uniform(rng, 0, 8);
      note(QString("click frame of box %1").arg(box + 1));
      QTest::mouseClick(grid, Qt::LeftButton, {}, grid->boxRect(box).topLeft() + QPoint(1, 1));
    }
  }

  void keyOnGrid() {
    Rng& rng = *m_rng;
    BoardView* grid = window->board()->grid();
    grid->setFocus(Qt::OtherFocusReason);
    Qt::Key key = Qt::Key_1;
    Qt::KeyboardModifiers modifiers;
    switch (weighted(rng, {40, 20, 10, 20, 10})) {
      case 0: key = Qt::Key(Qt::Key_1 + uniform(rng, 0, 8)); break;
      case 1:
        key = Qt::Key(Qt::Key_1 + uniform(rng, 0, 8));
        modifiers = Qt::KeypadModifier;
        break;
      case 2: key = Qt::Key_Delete; break;
      case 3: key = pick(rng, std::vector<Qt::Key>{Qt::Key_Left, Qt::Key_Right, Qt::Key_Up, Qt::Key_Down}); break;
      default:
        key = pick(rng, std::vector<Qt::Key>{Qt::Key_0, Qt::Key_Backspace, Qt::Key_Space, Qt::Key_A, Qt::Key_Escape,
                                             Qt::Key_Tab, Qt::Key_5});
        if (chance(rng, 0.3)) modifiers = Qt::ShiftModifier;
        break;
    }
    note(QString("key %1 on Grid").arg(QKeySequence(QKeyCombination(modifiers, key)).toString()));
    QTest::keyClick(grid, key, modifiers);
  }

  void typeIntoBox() {
    Rng& rng = *m_rng;
    std::vector<QLineEdit*> boxes;
    for (QLineEdit* box : reachable<QLineEdit>())
      if (!box->isReadOnly()) boxes.push_back(box);
    if (boxes.empty()) return note("no box to type into");
    QLineEdit* box = pick(rng, boxes);
    const QString name = box->objectName();
    std::string text;
    if (name == names::PuzNumNow)
      text = chance(rng, 0.7) ? std::to_string(uniform(rng, 1, std::max(1, session->collection.TotalPuzzles)))
                              : pick(rng, std::vector<std::string>{"", "0", "abc", "-1", "999", "12x", " 7", "3.5",
                                                                   std::to_string(session->collection.TotalPuzzles + 1)});
    else if (name == names::TotBlanks)
      text = chance(rng, 0.7) ? std::to_string(uniform(rng, 17, 64))
                              : pick(rng, std::vector<std::string>{"", "0", "8", "9", "72", "73", "81", "abc", "4x"});
    else if (name == names::NumCreate)  // a batch stays small
      text = pick(rng, std::vector<std::string>{"0", "1", "1", "2", "", "abc", "-1"});
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
    struct Key {
      Qt::Key key;
      Qt::KeyboardModifiers modifiers;
    };
    const std::vector<Key> keys = {
        {Qt::Key_F5, {}},   {Qt::Key_F6, {}},   {Qt::Key_F7, {}},   {Qt::Key_F8, {}},
        {Qt::Key_F1, {}},   {Qt::Key_H, Qt::ControlModifier},       {Qt::Key_1, Qt::ControlModifier},
        {Qt::Key_4, Qt::ControlModifier},       {Qt::Key_7, Qt::ControlModifier},
        {Qt::Key_Q, Qt::ControlModifier},       {Qt::Key_unknown, Qt::AltModifier}};
    Key key = pick(*m_rng, keys);
    // A button's underlined letter.
    if (key.key == Qt::Key_unknown) key.key = pick(*m_rng, std::vector<Qt::Key>{Qt::Key_S, Qt::Key_N, Qt::Key_L,
                                                                                 Qt::Key_P, Qt::Key_C, Qt::Key_A});
    note(QString("shortcut %1").arg(QKeySequence(QKeyCombination(key.modifiers, key.key)).toString()));
    QTest::keyClick(window.get(), key.key, key.modifiers);
    // A mnemonic clicks its button a moment later: that click belongs to this
    // action, whatever the clock.
    if (key.modifiers == Qt::AltModifier) QTest::qWait(kMnemonicClickMs);
  }

  void clickList() {
    std::vector<QListWidget*> lists;
    for (QListWidget* list : reachable<QListWidget>())
      if (list->count() > 0) lists.push_back(list);
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
    switch (uniform(rng, 0, 3)) {
      case 0:
        note("click EventLogx");
        QTest::mouseClick(log->viewport(), Qt::LeftButton, {}, point);
        break;
      case 1: {
        note("context menu of EventLogx");
        QContextMenuEvent menu(QContextMenuEvent::Mouse, point, log->viewport()->mapToGlobal(point));
        QCoreApplication::sendEvent(log->viewport(), &menu);
        break;
      }
      default: {
        const auto key = pick(rng, std::vector<QKeySequence>{QKeySequence::Copy, QKeySequence::SelectAll,
                                                             QKeySequence(Qt::Key_PageUp), QKeySequence(Qt::Key_End),
                                                             QKeySequence(Qt::Key_Up)});
        note(QString("key %1 on EventLogx").arg(key.toString()));
        QTest::keySequence(log, key);
      }
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
      // A box the program shows by itself would wait for a user the tests do
      // not have: close it, and count it as a fault.
      ++m_rescues;
      fail(QString("a modal %1 (%2, '%3') was left open").arg(modal->metaObject()->className(),
                                                             modal->objectName(), modal->windowTitle()).toStdString());
      if (auto* box = qobject_cast<QDialog*>(modal))
        box->reject();
      else
        modal->close();
      return;
    }
    Rng& rng = *m_rng;
    if (m_dialog != dialog) {
      m_dialog = dialog;
      m_stepsInDialog = 0;
    }
    ++m_dialogSteps;
    ++m_given;
    note(QString("%1 [%2] ").arg(m_given).arg(dialog->objectName()));
    const bool grid = dialog->objectName() == names::Form2;
    int what = uniform(rng, 0, 7);
    if (windingDown() || ++m_stepsInDialog > kDialogSteps) what = 5;
    const int messagesBefore = ui.messages;
    const int questionsBefore = ui.questions;
    switch (what) {
      case 0:
      case 1:
      case 2: {
        std::string text;
        if (what == 2)
          text = randomText(rng, grid ? "0123456789./ \nx" : "X. \nxQ", uniform(rng, 0, 100));
        else if (grid) {
          std::string cells;
          for (int r = 0; r < 9; ++r) cells += pick(rng, m_rows);
          text = asLines(cells);  // rows of different puzzles: maybe no solution at all
        } else {
          text = asLines(randomText(rng, what == 0 ? "X." : "XXX.", kCells));
        }
        note("type a text of " + QString::number(text.size()) + " characters");
        dialog->setText(text);
        break;
      }
      case 3:
      case 4:
        note("click OKButton");
        click(dialog, "OKButton");
        // A refused text is told in a message; a puzzle without exactly one
        // solution is asked about, and a No keeps the dialog open.
        if (dialog->isVisible() && ui.messages == messagesBefore && ui.questions == questionsBefore)
          fail("OK refused a text without saying why");
        break;
      case 5:
        note("click CancelButton");
        click(dialog, "CancelButton");
        break;
      case 6:
        note("click HelpButton");
        click(dialog, "HelpButton");
        if (ui.messages == messagesBefore) fail("Help showed nothing");
        break;
      default:
        note("Escape");
        QTest::keyClick(dialog, Qt::Key_Escape);
        break;
    }
  }

  void answerPopup(QWidget* popup) {
    Rng& rng = *m_rng;
    ++m_popups;
    ++m_given;
    note(QString("%1 [popup %2] ").arg(m_given).arg(describe(popup)));
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
    const std::pair<const char*, bool> buttons[] = {{names::StartCommand, expected.start},
                                                    {names::NextStepCommand, expected.next},
                                                    {names::Solveit, expected.solve},
                                                    {names::ClearCommand, expected.clear},
                                                    {names::EditCommand, expected.edit}};
    for (const auto& [name, enabled] : buttons)
      if (child(name)->isEnabled() != enabled)
        return fail(std::string(name) + (enabled ? " is disabled" : " is enabled") + " at rest");
    if (window->eventLogView()->isVisible() != expected.views) return fail("the event log's visibility is wrong");
    if (window->eventLogView()->TotalLines() != lines)
      return fail("the log view shows " + std::to_string(window->eventLogView()->TotalLines()) + " lines of " +
                  std::to_string(lines));
    if (ui.busy) return fail("the busy pointer is still on at rest");
  }

  /// The first cell whose painted value or choices differ from the session's,
  /// or, while the board shows an earlier line of the log, from that line's.
  std::string boardDifference() const {
    const CellBoard* board = window->board();
    const ReplayController* replay = window->replay();
    const PuzzleGrid past = replay->showsPast() ? boardAtLine(session->run.history, replay->shownLine()) : PuzzleGrid{};
    const PuzzleGrid& shownGrid = replay->showsPast() ? past : session->grid;
    for (int c = 1; c <= kCells; ++c) {
      const Cell& cell = shownGrid[c];
      const QString value = cell.value ? QString::number(cell.value) : QString();
      const QString shown = board->valueCell(c).text;
      if (shown != value)
        return QString("Grid_%1 shows '%2', the grid holds '%3'").arg(c - 1).arg(shown, value).toStdString();
      const QString choices = QString::fromStdString(cell.candidates.text());
      if (board->candidateCell(c).text != choices)
        return QString("PosVals_%1 shows '%2', the grid holds '%3'")
            .arg(c)
            .arg(board->candidateCell(c).text, choices)
            .toStdString();
    }
    return {};
  }

  // --- the record

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

  unsigned seed = kDefaultSeed;
  long long actions = kDefaultActions;
  bool trace = false;

 private:
  test::ScratchFolder m_scratch;  // made first, gone last
  Rng m_main;
  Rng* m_rng = &m_main;  ///< the generator actions draw from

 protected:
  MonkeyUserInterface ui{m_rng, appDir()};
  std::unique_ptr<Session> session;
  std::unique_ptr<MainWindow> window;

 private:
  SeededRandom m_random{1};
  QObject m_context;
  QEventLoop m_loop;
  std::vector<std::string> m_rows;  ///< rows of real puzzles, for typed grids
  std::deque<std::string> m_history;
  int m_depth = 0;
  bool m_restarting = false;
  bool m_failed = false;
  long long m_given = 0;
  std::unique_ptr<YieldHook> m_hook;
  int m_interruptAt = 0, m_runYields = 0;
  unsigned m_interruptSeed = 0;
  QPointer<EntryDialog> m_dialog;
  int m_stepsInDialog = 0;
  long long m_atWaits = 0, m_interrupts = 0, m_dialogSteps = 0, m_popups = 0, m_starts = 0, m_rescues = 0;
  int m_largestLog = 0;
};

TEST_F(MonkeyTest, ThousandsOfRandomActionsLeaveTheWindowInStepWithTheSession) {
  run();
}

// What the monkey found, each kept as an ordinary case.

// A session made without a user interface, as the program's main makes it: the
// Create page's template dialog tells its help and refusals through the
// window's, not through the silent one the session began with.
TEST(MonkeyFindings, TheTemplateDialogSpeaksThroughTheWindowsUserInterface) {
  Session session;
  ScriptedUserInterface ui;
  MainWindow window(session, &ui);
  window.show();
  auto* tabs = named<QTabBar>(&window, names::ctlTabs);
  QTest::mouseClick(tabs, Qt::LeftButton, {}, tabs->tabRect(int(Tab::Create) - 1).center());
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
  ASSERT_EQ(ui.messages.size(), 3u);
  EXPECT_EQ(ui.messages[0], kTemplateHelp);
  EXPECT_EQ(ui.messages[1], checkTemplateEntry("X").refusal);
  EXPECT_EQ(ui.messages[2], kTemplateNotAccepted);
}

// "No pauses" switched off while Solve or a creation runs: the run goes on to
// its end without waiting (Solve has no Next to go on with) and a creation
// stays silent and makes its puzzle.
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
    EXPECT_EQ(session.PuzzleTitle.substr(0, 11), "New Puzzle ");
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
