// Start, Next and the Pause box: a stepping run waits at each pause point until
// released; closing, destroying or reading another puzzle ends a run cleanly.

#include "solver/ReadPuzzle.h"
#include "solver/SolverEngine.h"
#include "ui/WidgetColours.h"
#include "UiSupport.h"
#include "solver/Narrator.h"

namespace tessaly::testing {
namespace {

using StepModeTest = WindowFixture;

TEST_F(StepModeTest, EachNextClickReleasesExactlyOnePausePoint) {
  // The log's length at each pause point of the same run without a window, released at once.
  struct : Pacer {
    test::TestSession t;
    std::vector<int> linesAtPause;
    bool waitWhilePaused(RunState& runMode) override {
      linesAtPause.push_back(t.session.log.TotalLines());
      runMode = RunState::Released;
      return true;
    }
  } reference;
  reference.t.session.setServices(Services{&reference.t.ui, nullptr, &reference});
  readPuzzle(reference.t.session, puzzleFile("pe96.sud"), 1);
  SolverEngine(reference.t.session).startCommand();
  const std::vector<int>& expected = reference.linesAtPause;
  ASSERT_GE(expected.size(), 5u);
  start(1);
  std::vector<int> linesAtPause;
  int highlightsChecked = 0;
  const auto noteAndClick = [&](Qt::MouseButton button) -> std::function<void()> {
    return [&, button] {
      linesAtPause.push_back(session.log.TotalLines());
      EXPECT_EQ(logView()->lastVisibleLine(), session.log.TotalLines());
      // The pause shows its step at once: the cell and the rest of its row stand out.
      const std::string line = lastLogLine();
      if (line.rfind("Remove row duplicate", 0) == 0) {
        const int cell = std::stoi(line.substr(line.rfind("cell ") + 5)), inRow = cell % 9 ? cell + 1 : cell - 1;
        EXPECT_EQ(back(QString("PosVals_%1").arg(cell)), qcolor(window->colourScheme().colour[13])) << line;
        EXPECT_EQ(back(QString("PosVals_%1").arg(inRow)), qcolor(window->colourScheme().colour[9])) << line;
        ++highlightsChecked;
      }
      click("NextStepCommand", button);
    };
  };
  const auto next = noteAndClick(Qt::LeftButton);
  PauseScript script(*window, {next, next, next, noteAndClick(Qt::RightButton)});  // the right button runs on
  click("StartCommand");

  EXPECT_EQ(linesAtPause, std::vector<int>(expected.begin(), expected.begin() + 4));
  EXPECT_EQ(window->pauseWaits(), 4);
  EXPECT_GT(highlightsChecked, 0);
  EXPECT_EQ(child<QLabel>("MesLab")->text(), "Solved with no re-tries");
  EXPECT_TRUE(child<QCheckBox>("PauseCheck")->isChecked());
  EXPECT_FALSE(child("NextStepCommand")->isEnabled());
  EXPECT_TRUE(child("ClearCommand")->isEnabled());
}

TEST_F(StepModeTest, ThePauseBoxRunsOnWhetherSetBeforeOrDuringTheRun) {
  for (const bool before : {true, false}) {
    session.controls.PauseCheck = false;
    start(1);
    PauseScript script(*window, before ? Actions{} : Actions{[&] { click("PauseCheck"); }});
    if (before) click("PauseCheck");
    click("StartCommand");
    EXPECT_EQ(window->pauseWaits(), before ? 0 : 1);
    EXPECT_TRUE(session.controls.PauseCheck);
    EXPECT_EQ(statusLine(session.run.ended), "Solved with no re-tries");
    window.reset();
  }
}

TEST_F(StepModeTest, ClosingTheWindowWhileARunWaitsEndsTheProgram) {
  start(1);
  PauseScript script(*window, {[&] { click("NextStepCommand"); }, [&] { window->close(); }});
  bool startReturned = false;
  QTimer::singleShot(0, window.get(), [&] {
    click("StartCommand");
    startReturned = true;
  });
  // The application's loop ends when the last window closes, which it can only once the waiting run lets go.
  EXPECT_EQ(QApplication::exec(), 0);
  EXPECT_TRUE(startReturned);
  EXPECT_TRUE(script.done());
  EXPECT_EQ(window->pauseWaits(), 2);
  EXPECT_FALSE(window->isWaiting());
  EXPECT_FALSE(std::filesystem::exists(appDir() + "Eventlog.txt"));
  EXPECT_NE(statusLine(session.run.ended), "Solved with no re-tries");
}

TEST_F(StepModeTest, DestroyingTheWindowWhileARunWaitsStopsTheRun) {
  start(1);
  PauseScript script(*window, {[&] { window.reset(); }});
  click("StartCommand");
  EXPECT_EQ(window, nullptr);
  EXPECT_EQ(lastLogLine(), "Ready to start the solution, click Next");
  EXPECT_EQ(&session.ui(), &ui);  // the session has the interfaces it had before the window
}

TEST_F(StepModeTest, ClosingTheWindowWhileSolvingStopsWithoutWritingTheLogFile) {
  start(1);
  // The window closes as Solve shows the busy pointer: the command is on the stack, none of its work done.
  struct : ScriptedUserInterface {
    MainWindow* window = nullptr;
    void setBusy(bool busy) override {
      if (busy) window->close();
    }
  } closing;
  closing.window = window.get();
  session.setServices(Services{&closing});
  click("Solveit");
  EXPECT_FALSE(window->isVisible());
  EXPECT_TRUE(closing.messages.empty());
  EXPECT_FALSE(std::filesystem::exists(appDir() + "Eventlog.txt"));
  EXPECT_NE(statusLine(session.run.ended), "Solved with no re-tries");
}

TEST_F(StepModeTest, ReadingAnotherPuzzleWhileARunWaitsEndsTheRunFirst) {
  start(1);
  PauseScript script(*window, {[&] { click("NavButton_1"); }});
  click("StartCommand");
  EXPECT_FALSE(window->isWaiting());
  EXPECT_EQ(session.collection.CurrentPuzzleNumber, 2);
  EXPECT_EQ(lastLogLine(), "Click Start to commence");
  EXPECT_TRUE(child("StartCommand")->isEnabled());
  EXPECT_FALSE(child("NextStepCommand")->isEnabled());
}

}  // namespace
}  // namespace tessaly::testing
