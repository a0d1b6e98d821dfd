// Start, Next and the Pause box: a stepping run waits at each pause point until
// the user releases it, and closing, destroying or reading another puzzle ends
// a run cleanly.

#include <QApplication>
#include <QCheckBox>
#include <filesystem>

#include "solver/ReadPuzzle.h"
#include "solver/SolverEngine.h"
#include "ui/WidgetColours.h"
#include "PauseScript.h"
#include "WindowFixture.h"

namespace tessaly::testing {
namespace {

/// Releases every pause point at once, noting the log's length at each.
struct RecordingPacer : Pacer {
  const Session* session = nullptr;
  std::vector<int> linesAtPause;
  bool waitWhilePaused(RunState& runMode) override {
    linesAtPause.push_back(session->log.TotalLines());
    runMode = RunState::Released;
    return true;
  }
};

/// The log length at every pause point of a stepping run of pe96's first puzzle, without a window.
std::vector<int> pausePointsWithoutWindow() {
  Session s;
  RecordingPacer pacer;
  pacer.session = &s;
  s.setServices(Services{nullptr, nullptr, &pacer});
  s.writesConfiguration = false;
  readPuzzle(s, puzzleFile("pe96.sud"), 1);
  SolverEngine(s).startCommand();
  return pacer.linesAtPause;
}

class StepModeTest : public WindowFixture {
 protected:
  QColor candidateBack(int cell) const {
    return child<QLabel>(qPrintable(QString("PosVals_%1").arg(cell)))->palette().color(QPalette::Window);
  }
};

TEST_F(StepModeTest, EachNextClickReleasesExactlyOnePausePoint) {
  const std::vector<int> expected = pausePointsWithoutWindow();
  ASSERT_GE(expected.size(), 5u);
  startWithPuzzle();
  std::vector<int> linesAtPause;
  int highlightsChecked = 0;
  const auto noteAndClick = [&](Qt::MouseButton button) {
    return [&, button] {
      linesAtPause.push_back(session.log.TotalLines());
      EXPECT_EQ(logView()->lastVisibleLine(), session.log.TotalLines());
      // The pause shows its step at once: the cell and the rest of its row stand out.
      const std::string line = lastLogLine();
      if (line.rfind("Remove row duplicate", 0) == 0) {
        const int cell = std::stoi(line.substr(line.rfind("cell ") + 5));
        EXPECT_EQ(candidateBack(cell), qcolor(window->colourScheme().colour[13])) << line;
        EXPECT_EQ(candidateBack(cell % 9 ? cell + 1 : cell - 1), qcolor(window->colourScheme().colour[9])) << line;
        ++highlightsChecked;
      }
      click("NextStepCommand", button);
    };
  };
  PauseScript script(*window);
  script.atPause(noteAndClick(Qt::LeftButton)).atPause(noteAndClick(Qt::LeftButton));
  script.atPause(noteAndClick(Qt::LeftButton)).atPause(noteAndClick(Qt::RightButton));  // runs on to the end
  click("StartCommand");

  EXPECT_TRUE(script.done());
  EXPECT_FALSE(script.timedOut);
  EXPECT_EQ(linesAtPause, std::vector<int>(expected.begin(), expected.begin() + 4));
  EXPECT_EQ(window->pauseWaits(), 4);
  EXPECT_GT(highlightsChecked, 0);
  EXPECT_EQ(child<QLabel>("MesLab")->text(), "Solved with no re-tries");
  EXPECT_TRUE(child<QCheckBox>("PauseCheck")->isChecked());
  EXPECT_FALSE(child<QPushButton>("NextStepCommand")->isEnabled());
  EXPECT_TRUE(child<QPushButton>("ClearCommand")->isEnabled());
}

TEST_F(StepModeTest, ThePauseBoxRunsOnWhetherSetBeforeOrDuringTheRun) {
  for (const bool before : {true, false}) {
    session.controls.PauseCheck = false;
    startWithPuzzle();
    PauseScript script(*window);
    if (before)
      clickCheckBox("PauseCheck");
    else
      script.atPause([&] { clickCheckBox("PauseCheck"); });
    click("StartCommand");
    EXPECT_EQ(window->pauseWaits(), before ? 0 : 1);
    EXPECT_TRUE(session.controls.PauseCheck);
    EXPECT_EQ(session.statusText, "Solved with no re-tries");
    window.reset();
  }
}

TEST_F(StepModeTest, ClosingTheWindowWhileARunWaitsEndsTheProgram) {
  startWithPuzzle();
  PauseScript script(*window);
  script.atPause([&] { click("NextStepCommand"); }).atPause([&] { window->close(); });
  bool startReturned = false;
  QTimer::singleShot(0, window.get(), [&] {
    click("StartCommand");
    startReturned = true;
  });
  // The application's own loop ends when the last window closes, which can
  // only happen once the waiting run has let go.
  EXPECT_EQ(QApplication::exec(), 0);
  EXPECT_TRUE(startReturned);
  EXPECT_FALSE(script.timedOut);
  EXPECT_EQ(window->pauseWaits(), 2);
  EXPECT_FALSE(window->isWaiting());
  EXPECT_FALSE(std::filesystem::exists(appDir() + "Eventlog.txt"));
  EXPECT_NE(session.statusText, "Solved with no re-tries");
}

TEST_F(StepModeTest, DestroyingTheWindowWhileARunWaitsStopsTheRun) {
  startWithPuzzle();
  PauseScript script(*window);
  script.atPause([&] { window.reset(); });
  click("StartCommand");
  EXPECT_EQ(window, nullptr);
  EXPECT_EQ(lastLogLine(), "Ready to start the solution, click Next");
  EXPECT_EQ(&session.ui(), &ui);  // the session has the interfaces it had before the window
}

/// Closes the window as soon as a command shows the busy pointer: the command
/// is then on the stack, with none of its work done.
class ClosingUserInterface : public ScriptedUserInterface {
 public:
  void setBusy(bool busy) override {
    if (busy && window) window->close();
  }
  MainWindow* window = nullptr;
};

TEST_F(StepModeTest, ClosingTheWindowWhileSolvingStopsWithoutWritingTheLogFile) {
  startWithPuzzle();
  ClosingUserInterface closing;
  closing.window = window.get();
  session.setServices(Services{&closing});
  click("Solveit");
  EXPECT_FALSE(window->isVisible());
  EXPECT_TRUE(closing.messages.empty());
  EXPECT_FALSE(std::filesystem::exists(appDir() + "Eventlog.txt"));
  EXPECT_NE(session.statusText, "Solved with no re-tries");
}

TEST_F(StepModeTest, ReadingAnotherPuzzleWhileARunWaitsEndsTheRunFirst) {
  startWithPuzzle();
  PauseScript script(*window);
  script.atPause([&] { click("NavButton_1"); });
  click("StartCommand");
  EXPECT_FALSE(window->isWaiting());
  EXPECT_EQ(session.collection.CurrentPuzzleNumber, 2);
  EXPECT_EQ(lastLogLine(), "Click Start to commence");
  EXPECT_TRUE(child<QPushButton>("StartCommand")->isEnabled());
  EXPECT_FALSE(child<QPushButton>("NextStepCommand")->isEnabled());
}

}  // namespace
}  // namespace tessaly::testing
