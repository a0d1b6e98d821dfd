// The Solve command on the hardest shipped puzzle, headless and in the window
// (offscreen): the window must stay close to the core's own speed.
//
// windowToHeadless runs both side by side, one after the other in every
// iteration, so that the load of the machine weighs on both alike; its
// counters give the median milliseconds of each and their ratio (wall clock
// and the process's CPU time, the window's painting threads included), for
// reading and solving the puzzle (ratio, cpu_ratio) and for the Solve alone
// of a puzzle already read and drawn, as a user clicks it (solve_ratio).

#include <benchmark/benchmark.h>

#include <QApplication>
#include <algorithm>
#include <chrono>
#include <ctime>
#include <filesystem>
#include <string>
#include <vector>

#include "model/Services.h"
#include "solver/ReadPuzzle.h"
#include "solver/SolverEngine.h"
#include "ui/MainWindow.h"
#include "WindowBenchSupport.h"

namespace {

using namespace tessaly;
using namespace tessaly::bench;

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

double processCpuMs() {
  timespec t{};
  clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &t);
  return double(t.tv_sec) * 1e3 + double(t.tv_nsec) / 1e6;
}

double wallMs() {
  return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now().time_since_epoch()).count();
}

double median(std::vector<double> values) {
  if (values.empty()) return 0;
  const auto middle = values.begin() + std::ptrdiff_t(values.size() / 2);
  std::nth_element(values.begin(), middle, values.end());
  return *middle;
}

void windowToHeadless(benchmark::State& state) {
  BenchSession headless(int(state.range(0)));
  BenchSession shown(int(state.range(0)));
  MainWindow window(shown.session, &shown.ui);
  window.show();
  QApplication::processEvents();
  std::vector<double> headlessWall, headlessCpu, windowWall, windowCpu;
  std::vector<double> headlessSolveWall, windowSolveWall, windowRunWall, windowDrawWall;
  for (auto _ : state) {
    double wall = wallMs(), cpu = processCpuMs();
    readPuzzle(headless.session, kCollection, kHardest);
    SolverEngine(headless.session).solveCommand();
    headless.ui.messages.clear();
    headlessWall.push_back(wallMs() - wall);
    headlessCpu.push_back(processCpuMs() - cpu);

    wall = wallMs(), cpu = processCpuMs();
    window.readPuzzleFile(kCollection, kHardest);
    window.solve();
    QApplication::processEvents();  // the window shows the outcome
    shown.ui.messages.clear();
    windowWall.push_back(wallMs() - wall);
    windowCpu.push_back(processCpuMs() - cpu);

    // The same with the puzzle read and shown first, as a user sees it before
    // clicking Solve: only the Solve and the redraw after it count.
    readPuzzle(headless.session, kCollection, kHardest);
    wall = wallMs();
    SolverEngine(headless.session).solveCommand();
    headless.ui.messages.clear();
    headlessSolveWall.push_back(wallMs() - wall);
    window.readPuzzleFile(kCollection, kHardest);
    QApplication::processEvents();
    wall = wallMs();
    window.solve();
    const double ran = wallMs();
    QApplication::processEvents();
    shown.ui.messages.clear();
    windowSolveWall.push_back(wallMs() - wall);
    windowRunWall.push_back(ran - wall);
    windowDrawWall.push_back(wallMs() - ran);
  }
  const double hw = median(headlessWall), hc = median(headlessCpu);
  const double ww = median(windowWall), wc = median(windowCpu);
  state.counters["headless_ms"] = hw;
  state.counters["window_ms"] = ww;
  state.counters["ratio"] = hw > 0 ? ww / hw : 0;
  state.counters["headless_cpu_ms"] = hc;
  state.counters["window_cpu_ms"] = wc;
  state.counters["cpu_ratio"] = hc > 0 ? wc / hc : 0;
  const double hs = median(headlessSolveWall), ws = median(windowSolveWall);
  state.counters["solve_ratio"] = hs > 0 ? ws / hs : 0;
  // Where the window's Solve of a shown puzzle spends its time: the run
  // itself (narration into the view included) and the redraw after it.
  state.counters["solve_run_ms"] = median(windowRunWall);
  state.counters["solve_draw_ms"] = median(windowDrawWall);
  state.counters["headless_solve_ms"] = hs;
  state.counters["lines"] = shown.session.log.TotalLines();
}

// The argument is MaxTries: 250 as shipped, 1000 for a run four times as long.
BENCHMARK(headlessSolve)->Arg(250)->Arg(1000)->Unit(benchmark::kMillisecond);
BENCHMARK(windowSolve)->Arg(250)->Arg(1000)->Unit(benchmark::kMillisecond);
BENCHMARK(windowToHeadless)->Arg(250)->Arg(1000)->Unit(benchmark::kMillisecond);

}  // namespace

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication app(argc, argv);
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
  benchmark::RunSpecifiedBenchmarks();
  benchmark::Shutdown();
  return 0;
}
