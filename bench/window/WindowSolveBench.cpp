// The Solve command on the hardest shipped puzzle, headless and in the window
// (offscreen): the window must stay close to the core's own speed.

#include <benchmark/benchmark.h>

#include <QApplication>
#include <filesystem>
#include <string>

#include "model/Services.h"
#include "solver/ReadPuzzle.h"
#include "solver/SolverEngine.h"
#include "ui/Form1.h"

namespace {

using namespace tessaly;

const std::string kCollection = std::string(TESSALY_DATA_DIR) + "/Puzzles.sud";
constexpr int kHardest = 125;

void chdirToScratch() {
  const auto scratch = std::filesystem::temp_directory_path() / "tessaly-window-bench";
  std::filesystem::create_directories(scratch);
  std::filesystem::current_path(scratch);  // Eventlog.txt lands here
}

void headlessSolve(benchmark::State& state) {
  const int maxTries = int(state.range(0));
  chdirToScratch();
  ScriptedUserInterface ui;
  SeededRandom random(1);
  Session session(Services{&ui, nullptr, nullptr, nullptr, &random});
  session.writesConfiguration = false;
  session.config.MaxTries = maxTries;
  for (auto _ : state) {
    readPuzzle(session, kCollection, kHardest);
    SolverEngine(session).solveCommand();
    ui.messages.clear();
  }
  state.counters["lines"] = session.log.TotalLines();
}

void windowSolve(benchmark::State& state) {
  const int maxTries = int(state.range(0));
  chdirToScratch();
  ScriptedUserInterface ui;
  SeededRandom random(1);
  Session session(Services{&ui, nullptr, nullptr, nullptr, &random});
  session.writesConfiguration = false;
  session.config.MaxTries = maxTries;
  Form1 window(session, &ui);
  window.show();
  for (auto _ : state) {
    window.readPuzzleFile(kCollection, kHardest);
    window.solve();
    QApplication::processEvents();
    ui.messages.clear();
  }
  state.counters["lines"] = session.log.TotalLines();
}

// The argument is MaxTries: 250 as shipped, 1000 for a run four times as long.
BENCHMARK(headlessSolve)->Arg(250)->Arg(1000)->Unit(benchmark::kMillisecond);
BENCHMARK(windowSolve)->Arg(250)->Arg(1000)->Unit(benchmark::kMillisecond);

}  // namespace

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication app(argc, argv);
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
  benchmark::Shutdown();
  return 0;
}
