// Every command, given at rest, while a Start run waits, while Solve runs and while a puzzle is being created:
// afterwards no run is left half alive, the buttons offer what can be done next, and the next Solve works.

#include <deque>

#include "ui/CommandStates.h"
#include "UiSupport.h"

namespace tessaly::testing {
namespace {

enum class During { Idle, StartWaiting, Solving, Creating };

const char* const kCommands[] = {"Start",  "Next",    "Solve",          "Clear",   "Edit",   "NextPuzzle",
                                 "RuleHint", "DigitAndUndo", "Create", "SaveNew", "SaveThisPuzzle", "OtherTab"};

class RunStateTest : public WindowFixture, public ::testing::WithParamInterface<std::tuple<During, int>> {
 protected:
  // Gives the command as a user's click would arrive in that state (at a pause point, or among the events a run
  // lets through); returns the run under way when it was given.
  RunActivity giveDuring(During during, const std::function<void()>& command) {
    RunActivity seen = RunActivity::None;
    auto give = [&] {
      seen = session.run.activity;
      command();
    };
    // Later pauses (a Start given as the command) are run on to the end with the right button.
    std::deque<std::function<void()>> actions;
    if (during == During::StartWaiting) actions.push_back(give);
    for (int i = 0; i < 3; ++i) actions.push_back([this] { click("NextStepCommand", Qt::RightButton); });
    PauseScript script(*window, std::move(actions));
    switch (during) {
      case During::Idle:
        give();
        break;
      case During::StartWaiting:
        click("StartCommand");
        break;
      case During::Solving:
        QTimer::singleShot(0, window.get(), give);
        click("Solveit");
        break;
      case During::Creating:
        selectTab(Tab::Create);
        QTimer::singleShot(0, window.get(), give);
        click("CreateCommand");
        break;
    }
    QApplication::processEvents();
    return seen;
  }

  // Acts once at each pause point a run reaches; if an action left the run waiting there (a disabled button), the
  // next action follows.
  class PauseScript {
   public:
    PauseScript(MainWindow& window, std::deque<std::function<void()>> actions) : m_actions(std::move(actions)) {
      QObject::connect(&m_timer, &QTimer::timeout, [this, w = QPointer(&window)] {
        if (!w || !w->isWaiting() || m_actions.empty()) return;
        if (w->pauseWaits() == m_lastWait && ++m_idleTicks < 5) return;
        m_lastWait = w->pauseWaits();
        m_idleTicks = 0;
        auto action = std::move(m_actions.front());
        m_actions.pop_front();
        action();
      });
      m_timer.start(2);
    }

   private:
    std::deque<std::function<void()>> m_actions;
    QTimer m_timer;
    int m_lastWait = 0;
    int m_idleTicks = 0;
  };

  bool enabled(const char* name) const { return child(name)->isEnabled(); }

  // What a user cannot click (disabled or hidden) cannot be given.
  bool clickable(const char* name) const {
    QWidget* w = child(name);
    return w && w->isEnabled() && w->isVisible();
  }
  void clickIfEnabled(const char* name, Qt::MouseButton button = Qt::LeftButton) {
    if (clickable(name)) testing::click(child(name), button);
  }
  void onTab(Tab tab) {
    auto* tabs = child<QTabBar>("ctlTabs");
    QTest::mouseClick(tabs, Qt::LeftButton, {}, tabs->tabRect(int(tab) - 1).center());
  }

  void give(const std::string& command) {
    if (command == "Start") clickIfEnabled("StartCommand");
    if (command == "Next") clickIfEnabled("NextStepCommand");
    if (command == "Solve") clickIfEnabled("Solveit");
    if (command == "Clear") clickIfEnabled("ClearCommand");
    if (command == "Edit") {
      if (clickable("EditCommand")) answerDialog("OKButton");
      clickIfEnabled("EditCommand");
    }
    if (command == "NextPuzzle") clickIfEnabled("NavButton_1");
    if (command == "RuleHint") {
      onTab(Tab::ManualSolve);
      clickIfEnabled("GetHint_1");
    }
    if (command == "DigitAndUndo") {
      onTab(Tab::ManualSolve);
      click("Grid_1");
      QTest::keyClick(child("Grid"), Qt::Key_Delete);
      QTest::keyClick(child("Grid"), Qt::Key_4);
      clickIfEnabled("UndoManual");
    }
    if (command == "Create") {
      onTab(Tab::Create);
      clickIfEnabled("CreateCommand");
    }
    if (command == "SaveNew") {
      onTab(Tab::Create);
      ui.answers.push_back(true);
      clickIfEnabled("SaveNewCommand");
    }
    if (command == "SaveThisPuzzle") {
      ui.files.push_back(appDir() + "Mine.sud");
      action("mnuSave2InFile")->trigger();
    }
    if (command == "OtherTab") onTab(Tab::ManualSolve);
  }
};

TEST_P(RunStateTest, TheCommandLeavesControlsThatMatchWhatCanBeDoneNext) {
  const auto [during, index] = GetParam();
  start(1);
  const RunActivity seen = giveDuring(during, [&, index = index] { give(kCommands[index]); });
  const RunActivity expected[] = {RunActivity::None, RunActivity::Stepping, RunActivity::Solving,
                                  RunActivity::Creating};
  EXPECT_EQ(seen, expected[int(during)]) << "the command came too late or too early";

  // No run is left: nothing waits, and the buttons are those of a board at rest.
  onTab(Tab::AutoSolve);
  EXPECT_FALSE(window->isWaiting());
  EXPECT_EQ(session.run.activity, RunActivity::None);
  const bool blanks = session.grid.filledCount() < kCells;
  const std::vector<bool> shown = {enabled("StartCommand"), enabled("NextStepCommand"), enabled("Solveit"),
                                   enabled("EditCommand"), enabled("PauseCheck"), enabled("Check3"),
                                   child("EventLogx")->isVisible(), child("PosValsFrame")->isVisible()};
  EXPECT_EQ(shown, (std::vector<bool>{blanks, false, true, true, true, true, true, true}));
  EXPECT_EQ(enabled("ClearCommand"), commandStates(session).clear);
  EXPECT_TRUE(ui.messages.empty() || ui.messages.back() != "Event log is full (5000 lines)");

  // And the next Solve works.
  ui.messages.clear();
  click("Solveit");
  EXPECT_EQ(session.grid.filledCount(), kCells);
  EXPECT_EQ(session.statusText.substr(0, 11), "Solved with");
  EXPECT_FALSE(enabled("StartCommand"));
  EXPECT_TRUE(enabled("ClearCommand"));
}

std::string caseName(const ::testing::TestParamInfo<std::tuple<During, int>>& info) {
  const char* during[] = {"Idle", "StartWaiting", "Solving", "Creating"};
  return std::string(kCommands[std::get<1>(info.param)]) + "_" + during[int(std::get<0>(info.param))];
}

INSTANTIATE_TEST_SUITE_P(Commands, RunStateTest,
                         ::testing::Combine(::testing::Values(During::Idle, During::StartWaiting, During::Solving,
                                                              During::Creating),
                                            ::testing::Range(0, int(std::size(kCommands)))),
                         caseName);

}  // namespace
}  // namespace tessaly::testing
