// Start, Next and the Pause box: a stepping run waits at each pause point until
// the user releases it, and closing the window ends a run cleanly.

#include <QApplication>
#include <QCheckBox>
#include <QRegularExpression>
#include <filesystem>

#include "solver/ReadPuzzle.h"
#include "solver/SolverEngine.h"
#include "ui/ColourScheme.h"
#include "ui/WidgetColours.h"
#include "PauseScript.h"
#include "WindowFixture.h"

namespace tessaly::testing {
namespace {

/// Releases every pause point at once, noting the log's length at each.
class RecordingPacer : public Pacer {
 public:
  explicit RecordingPacer(const Session& session) : m_session(session) {}
  bool waitWhilePaused(int& runMode) override {
    linesAtPause.push_back(m_session.log.TotalLines());
    runMode = kRunReleased;
    return true;
  }
  std::vector<int> linesAtPause;

 private:
  const Session& m_session;
};

/// The log length at every pause point of a stepping run of the puzzle, without a window.
std::vector<int> pausePointsWithoutWindow(const std::string& path, int n) {
  Session s;
  RecordingPacer pacer(s);
  s.setServices(Services{nullptr, nullptr, &pacer, nullptr, nullptr});
  s.writesConfiguration = false;
  readPuzzle(s, path, n);
  SolverEngine(s).startCommand();
  return pacer.linesAtPause;
}

QColor background(QWidget* widget) { return widget->palette().color(QPalette::Window); }

class StepModeTest : public WindowFixture {
 protected:
  QLabel* candidateLabel(int cell) { return window->findChild<QLabel*>(QString("PosVals_%1").arg(cell)); }

  /// What the grid shows at a pause point fits the line the run waits after.
  void expectHighlightFor(const std::string& line) {
    static const QRegularExpression cellNumber("cell (\\d+)");
    const auto match = cellNumber.match(QString::fromStdString(line));
    if (!match.hasMatch()) return;
    const int cell = match.captured(1).toInt();
    const ColourScheme& scheme = window->colourScheme();
    if (line.rfind("Set row", 0) == 0) {
      EXPECT_EQ(background(candidateLabel(cell)), qcolor(scheme.highlightRed)) << line;
      EXPECT_EQ(background(window->valueBox(cell)), qcolor(scheme.highlightRed)) << line;
      ++highlightsChecked;
    } else if (line.rfind("Remove row duplicate", 0) == 0) {
      EXPECT_EQ(background(candidateLabel(cell)), qcolor(scheme.colour[13])) << line;
      const int rowNeighbour = cell % 9 == 0 ? cell - 1 : cell + 1;
      EXPECT_EQ(background(candidateLabel(rowNeighbour)), qcolor(scheme.colour[9])) << line;
      ++highlightsChecked;
    }
  }

  int highlightsChecked = 0;
};

TEST_F(StepModeTest, EachNextClickReleasesExactlyOnePausePoint) {
  const std::string path = puzzlePath("pe96.sud");
  const std::vector<int> expected = pausePointsWithoutWindow(path, 1);
  ASSERT_GE(expected.size(), 5u);
  startWithPuzzle(path, 1);

  std::vector<int> linesAtPause;
  std::vector<std::string> pauseLines;
  const auto note = [&] {
    linesAtPause.push_back(session.log.TotalLines());
    pauseLines.push_back(lastLogLine());
    expectHighlightFor(lastLogLine());
    EXPECT_EQ(logView()->TotalLines(), session.log.TotalLines());
    EXPECT_EQ(logView()->lastVisibleLine(), session.log.TotalLines());
  };
  PauseScript script(*window);
  for (int i = 0; i < 3; ++i) script.atPause([&] {
    note();
    click("NextStepCommand");
  });
  script.atPause([&] {
    note();
    click("NextStepCommand", Qt::RightButton);
  });
  click("StartCommand");

  EXPECT_TRUE(script.done());
  EXPECT_FALSE(script.timedOut);
  EXPECT_EQ(window->pauseWaits(), 4);
  ASSERT_EQ(linesAtPause.size(), 4u);
  for (std::size_t i = 0; i < 4; ++i) EXPECT_EQ(linesAtPause[i], expected[i]) << "pause " << i;
  EXPECT_EQ(pauseLines[0], "Ready to start the solution, click Next");
  EXPECT_GT(highlightsChecked, 0);
}

TEST_F(StepModeTest, RightClickOnNextFinishesTheRunWithoutPauses) {
  startWithPuzzle(puzzlePath("pe96.sud"), 1);
  PauseScript script(*window);
  script.atPause([&] { click("NextStepCommand", Qt::RightButton); });
  click("StartCommand");

  EXPECT_EQ(window->pauseWaits(), 1);
  EXPECT_EQ(session.MesLab, "Solved with no re-tries");
  EXPECT_EQ(text("MesLab"), "Solved with no re-tries");
  EXPECT_TRUE(logHas("Solved with no re-tries"));
  EXPECT_TRUE(child<QCheckBox>("PauseCheck")->isChecked());
  EXPECT_FALSE(child<QPushButton>("NextStepCommand")->isEnabled());
  EXPECT_FALSE(child<QPushButton>("StartCommand")->isEnabled());
  EXPECT_TRUE(child<QPushButton>("ClearCommand")->isEnabled());
  for (int cell = 1; cell <= 81; ++cell) EXPECT_FALSE(window->valueBox(cell)->text().isEmpty()) << cell;
  EXPECT_EQ(logView()->lastVisibleLine(), session.log.TotalLines());
}

TEST_F(StepModeTest, ThePauseBoxRunsOnToTheEnd) {
  startWithPuzzle(puzzlePath("pe96.sud"), 1);
  PauseScript script(*window);
  script.atPause([&] { clickCheckBox("PauseCheck"); });
  click("StartCommand");

  EXPECT_EQ(window->pauseWaits(), 1);
  EXPECT_TRUE(session.controls.PauseCheck);
  EXPECT_EQ(session.MesLab, "Solved with no re-tries");
}

TEST_F(StepModeTest, WithThePauseBoxSetStartDoesNotPause) {
  startWithPuzzle(puzzlePath("pe96.sud"), 1);
  clickCheckBox("PauseCheck");
  click("StartCommand");
  EXPECT_EQ(window->pauseWaits(), 0);
  EXPECT_EQ(session.MesLab, "Solved with no re-tries");
}

TEST_F(StepModeTest, ClosingTheWindowWhileARunWaitsEndsTheProgram) {
  startWithPuzzle(puzzlePath("pe96.sud"), 1);
  PauseScript script(*window);
  script.atPause([&] { click("NextStepCommand"); });
  script.atPause([&] { window->close(); });

  bool startReturned = false;
  QTimer::singleShot(0, window.get(), [&] {
    click("StartCommand");
    startReturned = true;
  });
  // The application's own loop: it ends when the last window closes, which can
  // only happen once the waiting run has let go.
  const int exitCode = QApplication::exec();

  EXPECT_EQ(exitCode, 0);
  EXPECT_TRUE(startReturned);
  EXPECT_FALSE(script.timedOut);
  EXPECT_EQ(window->pauseWaits(), 2);
  EXPECT_FALSE(window->isVisible());
  EXPECT_FALSE(window->isWaiting());
  EXPECT_FALSE(std::filesystem::exists(workDir() + "Eventlog.txt"));
  EXPECT_FALSE(logHas("Solved with no re-tries"));
}

TEST_F(StepModeTest, DestroyingTheWindowWhileARunWaitsStopsTheRun) {
  startWithPuzzle(puzzlePath("pe96.sud"), 1);
  const int linesBefore = session.log.TotalLines();
  PauseScript script(*window);
  script.atPause([&] { window.reset(); });
  click("StartCommand");

  EXPECT_EQ(window, nullptr);
  EXPECT_GT(session.log.TotalLines(), linesBefore);
  EXPECT_EQ(lastLogLine(), "Ready to start the solution, click Next");
  // The session is left with the interfaces it had before the window.
  EXPECT_EQ(&session.ui(), &ui);
}

TEST_F(StepModeTest, ClosingTheWindowWhileSolvingStopsWithoutWritingTheLogFile) {
  startWithPuzzle(puzzlePath("pe96.sud"), 1);
  ui.messages.clear();
  QTimer::singleShot(0, window.get(), [&] { window->close(); });
  click("Solveit");

  EXPECT_FALSE(window->isVisible());
  EXPECT_TRUE(ui.messages.empty());
  EXPECT_FALSE(std::filesystem::exists(workDir() + "Eventlog.txt"));
  EXPECT_FALSE(logHas("Solved with no re-tries"));
}

TEST_F(StepModeTest, ReadingAnotherPuzzleWhileARunWaitsEndsTheRunFirst) {
  startWithPuzzle(puzzlePath("pe96.sud"), 1);
  PauseScript script(*window);
  script.atPause([&] { click("NavButton_1"); });
  click("StartCommand");

  EXPECT_FALSE(window->isWaiting());
  EXPECT_EQ(session.CurrentPuzzleNumber, 2);
  EXPECT_EQ(lastLogLine(), "Click Start to commence");
  EXPECT_TRUE(child<QPushButton>("StartCommand")->isEnabled());
  EXPECT_FALSE(child<QPushButton>("NextStepCommand")->isEnabled());
}

}  // namespace
}  // namespace tessaly::testing
