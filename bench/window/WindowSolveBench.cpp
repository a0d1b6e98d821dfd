// The Solve command on the hardest shipped puzzle, headless and in the window
// (offscreen): the window must stay close to the core's own speed.

#include <benchmark/benchmark.h>

#include <QApplication>
#include <filesystem>
#include <string>

#include "model/Services.h"
#include "solver/ReadPuzzle.h"
#include "solver/SolverEngine.h"
#include "ui/MainWindow.h"

namespace {

using namespace tessaly;

const std::string kCollection = std::string(TESSALY_DATA_DIR) + "/Puzzles.sud";
constexpr int kHardest = 125;

// A session with scripted message boxes and a fixed random source, working in
// a scratch folder (Solve writes Eventlog.txt into the current folder).
struct BenchSession {
  explicit BenchSession(int maxTries) {
    const auto scratch = std::filesystem::temp_directory_path() / "tessaly-window-bench";
    std::filesystem::create_directories(scratch);
    std::filesystem::current_path(scratch);
    session.writesConfiguration = false;
    session.config.MaxTries = maxTries;
  }
  ScriptedUserInterface ui;
  SeededRandom random{1};
  Session session{Services{&ui, nullptr, nullptr, nullptr, &random}};
};

void headlessSolve(benchmark::State& state) {
  BenchSession b(int(state.range(0)));
  for (auto _ : state) {
    readPuzzle(b.session, kCollection, kHardest);
    SolverEngine(b.session).solveCommand();
    b.ui.messages.clear();
  }
  state.counters["lines"] = b.session.log.TotalLines();
}

void windowSolve(benchmark::State& state) {
  BenchSession b(int(state.range(0)));
  MainWindow window(b.session, &b.ui);
  window.show();
  for (auto _ : state) {
    window.readPuzzleFile(kCollection, kHardest);
    window.solve();
    QApplication::processEvents();
    b.ui.messages.clear();
  }
  state.counters["lines"] = b.session.log.TotalLines();
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
