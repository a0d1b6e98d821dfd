// The window with the keyboard alone: the Tab key's order on every tab reaches
// every control, the mnemonics of a tab never clash, and what the right mouse
// button does has keys too.

#include "play/Hints.h"
#include "play/ManualPlay.h"
#include "ui/ManualPage.h"
#include "UiSupport.h"

namespace tessaly::testing {
namespace {

class KeyboardTest : public WindowFixture {
 protected:
  void SetUp() override {
    start(1);
    ASSERT_FALSE(HasFatalFailure());
    QApplication::setActiveWindow(window.get());
    ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
  }
  static QString nameOf(const QWidget* w) {
    return w->objectName().isEmpty() ? QString(w->metaObject()->className()) : w->objectName();
  }
  /// The widgets the Tab key visits from the tab strip until it comes back.
  std::vector<std::string> tabChain() {
    QWidget* tabs = child("ctlTabs");
    tabs->setFocus(Qt::TabFocusReason);
    std::vector<std::string> chain;
    for (int i = 0; i < 100; ++i) {
      QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
      QWidget* now = QApplication::focusWidget();
      if (!now || now == tabs) break;
      chain.push_back(nameOf(now).toStdString());
    }
    return chain;
  }
  /// Every control shown that the Tab key should reach; of a group of options
  /// the chosen one (the arrow keys choose among them).
  std::set<std::string> tabStops() const {
    std::set<std::string> stops;
    for (QWidget* w : window->findChildren<QWidget*>()) {
      if (!w->isVisible() || !w->isEnabled() || !(w->focusPolicy() & Qt::TabFocus) || w == child("ctlTabs")) continue;
      if (auto* option = qobject_cast<QRadioButton*>(w); option && option->autoExclusive() && !option->isChecked())
        continue;
      stops.insert(nameOf(w).toStdString());
    }
    return stops;
  }
  /// The mnemonic letters of the menu bar and of the controls shown, with their captions.
  std::multimap<QString, QString> mnemonics() const {
    std::multimap<QString, QString> keys;
    const auto add = [&](const QString& caption) {
      if (const QKeySequence key = QKeySequence::mnemonic(caption); !key.isEmpty())
        keys.emplace(key.toString(), caption);
    };
    for (QAction* menu : window->menuBar()->actions()) add(menu->text());
    for (QWidget* w : window->centralWidget()->findChildren<QWidget*>()) {
      if (!w->isVisible()) continue;
      if (auto* button = qobject_cast<QAbstractButton*>(w)) add(button->text());
      if (auto* label = qobject_cast<QLabel*>(w); label && label->buddy()) add(label->text());
      if (auto* box = qobject_cast<QGroupBox*>(w); box && box->isCheckable()) add(box->title());
    }
    return keys;
  }
};

TEST_F(KeyboardTest, TheTabKeyReachesEveryControlOfEveryTabInReadingOrder) {
  const std::vector<std::string> frame = {"FileNow", "PuzNumNow", "NavButton_0", "NavButton_1", "NavButton_2"};
  const std::vector<std::string> board = {"Grid", "EventLogx"};
  struct Case {
    Tab tab;
    std::vector<std::string> page;
  };
  const Case cases[] = {
      {Tab::AutoSolve, {"StartCommand", "Solveit", "PauseCheck", "Check3", "EditCommand"}},
      {Tab::Create,
       {"TotBlanks", "Distribution_0", "UniqueCheck",
        "TargetGradeBox", "CreateCommand", "SaveNewCommand", "NumCreate", "AutoSaveCommand"}},
      {Tab::ManualSolve,
       {"LogManual", "UndoManual", "ClearManual", "NotesMode", "FillNotes", "CheckNotes", "GetHint_0", "GetHint_1", "GetHint_2", "GetHint_3", "GetHint_4",
        "GetHint_5", "GetHint_6", "CellHint", "NextStep", "Nudge", "Hints", "Explanation"}},
  };
  for (const Case& c : cases) {
    selectTab(c.tab);
    std::vector<std::string> expected = frame;
    expected.insert(expected.end(), c.page.begin(), c.page.end());
    expected.insert(expected.end(), board.begin(), board.end());
    const std::vector<std::string> chain = tabChain();
    EXPECT_EQ(chain, expected) << int(c.tab);
    EXPECT_EQ(std::set<std::string>(chain.begin(), chain.end()), tabStops()) << int(c.tab);
  }
}

TEST_F(KeyboardTest, NoTwoControlsShownTogetherShareAMnemonic) {
  for (const Tab tab : {Tab::AutoSolve, Tab::Create, Tab::ManualSolve}) {
    selectTab(tab);
    const std::multimap<QString, QString> keys = mnemonics();
    std::string listed;
    for (const auto& [key, caption] : keys) listed += key.toStdString() + " " + caption.toStdString() + "; ";
    for (auto it = keys.begin(); it != keys.end(); it = keys.upper_bound(it->first))
      EXPECT_EQ(keys.count(it->first), 1u) << "tab " << int(tab) << " clashes on " << it->first.toStdString()
                                            << ": " << listed;
  }
  // And the entries of each menu.
  for (QAction* menuAction : window->menuBar()->actions()) {
    std::map<QString, QString> seen;
    for (QAction* entry : menuAction->menu()->actions()) {
      const QKeySequence key = QKeySequence::mnemonic(entry->text());
      if (key.isEmpty()) continue;
      EXPECT_TRUE(seen.emplace(key.toString(), entry->text()).second)
          << menuAction->text().toStdString() << ": " << entry->text().toStdString() << " and "
          << seen[key.toString()].toStdString();
    }
  }
}

TEST_F(KeyboardTest, TheContextMenuKeysDoWhatTheRightButtonDoes) {
  // The puzzle frame's Next: the right button goes to the last puzzle, Previous's to the first.
  auto* next = child("NavButton_1");
  next->setFocus(Qt::TabFocusReason);
  QTest::keyClick(next, Qt::Key_Menu);
  EXPECT_EQ(session.collection.CurrentPuzzleNumber, session.collection.TotalPuzzles);
  auto* previous = child("NavButton_0");
  previous->setFocus(Qt::TabFocusReason);
  QTest::keyClick(previous, Qt::Key_F10, Qt::ShiftModifier);
  EXPECT_EQ(session.collection.CurrentPuzzleNumber, 1);

  // A hint line: Enter selects its cell, the Menu key places its value.
  selectTab(Tab::ManualSolve);
  click("GetHint_0");
  const auto single = std::find_if(session.hints.begin(), session.hints.end(),
                                    [](const HintLine& line) { return line.kind == HintKind::Placement; });
  ASSERT_NE(single, session.hints.end());
  const HintLine line = *single;
  auto* hints = child<QListWidget>("Hints");
  hints->setFocus(Qt::TabFocusReason);
  hints->setCurrentRow(int(single - session.hints.begin()));
  QTest::keyClick(hints, Qt::Key_Return);
  EXPECT_EQ(session.grid[line.cell].value, 0);
  EXPECT_EQ(window->board()->grid()->currentCell(), line.cell - 1);
  // Space on the grid explains the selected cell's choices, as a click on them does.
  auto* grid = window->board()->grid();
  grid->setFocus(Qt::TabFocusReason);
  QTest::keyClick(grid, Qt::Key_Space);
  EXPECT_GT(child<QListWidget>("Explanation")->count(), 0);
  EXPECT_FALSE(child<QLabel>("PointerReadout")->text().isEmpty());

  hints->setFocus(Qt::TabFocusReason);
  QTest::keyClick(hints, Qt::Key_Menu);
  EXPECT_EQ(session.grid[line.cell].value, line.digit);
}

// What a key of the main keyboard's digit row does on the board, whatever the
// layout: alone it places its digit, with Shift it notes it.
TEST(BoardKeys, TheDigitRowPlacesAndNotesItsDigitsOnEveryLayout) {
  struct Press {
    const char* what;
    const char* platform;
    int key;
    Qt::KeyboardModifiers modifiers;
    quint32 scanCode;
    int value, note;  // what ManualPage takes from it
  };
  const Qt::KeyboardModifiers none = Qt::NoModifier, shift = Qt::ShiftModifier;
  const std::vector<Press> presses = {
      {"US 1", "xcb", Qt::Key_1, none, 10, 1, 0},
      {"US Shift+1", "xcb", Qt::Key_Exclam, shift, 10, 0, 1},
      {"German Shift+6 (&)", "xcb", Qt::Key_Ampersand, shift, 15, 0, 6},
      {"German Shift+8 (()", "wayland", Qt::Key_ParenLeft, shift, 17, 0, 8},
      {"UK Shift+3 (pound)", "xcb", Qt::Key_sterling, shift, 12, 0, 3},
      {"AZERTY & alone", "xcb", Qt::Key_Ampersand, none, 10, 1, 0},
      {"AZERTY Shift+& (1)", "xcb", Qt::Key_1, shift, 10, 0, 1},
      {"German Shift+7 under Windows", "windows", Qt::Key_Slash, shift, 8, 0, 7},
      {"the row's 0 key", "xcb", Qt::Key_Equal, shift, 19, 0, 0},
      {"AltGr+7 ({)", "xcb", Qt::Key_BraceLeft, Qt::GroupSwitchModifier, 16, 0, 0},
      {"keypad 5", "xcb", Qt::Key_5, Qt::KeypadModifier, 84, 5, 0},
      {"Ctrl+Shift+1", "xcb", Qt::Key_Exclam, Qt::ControlModifier | shift, 10, 0, 0},
      // Where the scan codes are unknown, a US keyboard's signs.
      {"US Shift+7, no scan code", "offscreen", Qt::Key_Ampersand, shift, 0, 0, 7},
      {"German Shift+6, scan codes unknown", "cocoa", Qt::Key_Ampersand, shift, 22, 0, 7},
  };
  for (const Press& p : presses) {
    const QKeyEvent event(QEvent::KeyRelease, p.key, p.modifiers, p.scanCode, 0, 0);
    const int key = BoardView::boardKey(event, QString::fromLatin1(p.platform));
    const int note = ManualPage::noteDigit(key, p.modifiers);
    EXPECT_EQ(note, p.note) << p.what;
    EXPECT_EQ(note ? 0 : ManualPage::typedValue(key, p.modifiers), p.value) << p.what;
  }
}

}  // namespace
}  // namespace tessaly::testing
