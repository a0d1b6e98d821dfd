// Every command, given at rest, while a Start run waits, while Solve runs and while a puzzle is being created:
// afterwards no run is left half alive, the buttons offer what can be done next, and the next Solve works.

#include <optional>

#include "ui/CommandStates.h"
#include "UiSupport.h"
#include "solver/Narrator.h"

namespace tessaly::testing {
namespace {

enum class During { Idle, StartWaiting, Solving, Creating };

/// A command: the tab it is given on (none: wherever the window is), and the button it clicks if it can.
struct Command {
  const char* name;
  std::optional<Tab> tab;
  const char* button;
};
const Command kCommands[] = {
    {"Start", {}, "StartCommand"},   {"Next", {}, "NextStepCommand"},      {"Solve", {}, "Solveit"},
    {"Clear", {}, "ClearCommand"},   {"Edit", {}, "EditCommand"},          {"NextPuzzle", {}, "NavButton_1"},
    {"RuleHint", Tab::ManualSolve, "GetHint_1"},  {"DigitAndUndo", Tab::ManualSolve, "UndoManual"},
    {"Create", Tab::Create, "CreateCommand"},     {"SaveNew", Tab::Create, "SaveNewCommand"},
    {"SaveThisPuzzle", {}, nullptr},              {"OtherTab", Tab::ManualSolve, nullptr}};

class RunStateTest : public WindowFixture, public ::testing::WithParamInterface<std::tuple<During, int>> {
 protected:
  // Gives the command as a click would arrive in that state; returns the run under way when it was given.
  RunActivity giveDuring(During during, const std::function<void()>& command) {
    RunActivity seen = RunActivity::None;
    auto give = [&] {
      seen = session.run.activity;
      command();
    };
    // Later pauses (a Start given as the command) are run on to the end with the right button.
    Actions actions;
    if (during == During::StartWaiting) actions.push_back(give);
    for (int i = 0; i < 3; ++i) actions.push_back([this] { click("NextStepCommand", Qt::RightButton); });
    PauseScript script(*window, std::move(actions), 5);  // an action may leave the run waiting where it was
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

  // What a user cannot click (disabled or hidden) cannot be given.
  bool clickable(const char* name) const {
    QWidget* w = child(name);
    return w && w->isEnabled() && w->isVisible();
  }
  void clickIfEnabled(const char* name) {
    if (clickable(name)) testing::click(child(name));
  }

  void give(const Command& command) {
    const std::string name = command.name;
    if (command.tab) selectTab(*command.tab, true);
    if (name == "Edit" && clickable("EditCommand")) answerDialog("OKButton");
    if (name == "SaveNew") ui.answers.push_back(true);
    if (name == "SaveThisPuzzle") {
      ui.files.push_back(appDir() + "Mine.sud");
      action("mnuSave2InFile")->trigger();
    }
    if (name == "DigitAndUndo") {
      click("Grid_1");
      QTest::keyClick(child("Grid"), Qt::Key_Delete);
      QTest::keyClick(child("Grid"), Qt::Key_4);
    }
    if (command.button) clickIfEnabled(command.button);
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
  selectTab(Tab::AutoSolve, true);
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
  EXPECT_EQ(statusLine(session.run.ended).substr(0, 11), "Solved with");
  EXPECT_FALSE(enabled("StartCommand"));
  EXPECT_TRUE(enabled("ClearCommand"));
}

std::string caseName(const ::testing::TestParamInfo<std::tuple<During, int>>& info) {
  const char* during[] = {"Idle", "StartWaiting", "Solving", "Creating"};
  return std::string(kCommands[std::get<1>(info.param)].name) + "_" + during[int(std::get<0>(info.param))];
}

INSTANTIATE_TEST_SUITE_P(Commands, RunStateTest,
                         ::testing::Combine(::testing::Values(During::Idle, During::StartWaiting, During::Solving,
                                                              During::Creating),
                                            ::testing::Range(0, int(std::size(kCommands)))),
                         caseName);

}  // namespace
}  // namespace tessaly::testing
