// The narrated Solve over every puzzle of public collections: puzzles per
// second, log lines and placements per puzzle, with the six rules and with
// every further technique.
//
// By default it runs on the sets in tests/data/puzzles. To measure other sets,
// point TESSALY_PUZZLES at a folder of collection files (*.sud; the public
// sets named in tests/data/README.md, e.g. kaggle3m_medium or sudoku17, come
// in that form): every collection there is measured, the first 2,000 puzzles
// of each.

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

#include "BenchSupport.h"

namespace {

using namespace tessaly;

void narratedSolve(benchmark::State& state, const std::string& path, TechniqueSet techniques) {
  const auto puzzles = bench::loadCollection(path, 2000);  // enough for a steady figure
  bench::BenchSession b("tessaly-bench");
  Session& s = b.session;
  s.controls.techniques = techniques;
  long long lines = 0, placements = 0, solved = 0;
  for (auto _ : state) {
    for (const std::string& puzzle : puzzles) {
      bench::loadIntoSession(s, puzzle);
      SolverEngine(s).solveCommand();
      lines += s.log.TotalLines();
      for (int n = 1; n <= s.log.TotalLines(); ++n)
        if (s.log.listed(n).starts_with("00Set row")) ++placements;
      solved += s.grid.filledCount() == kCells ? 1 : 0;
      b.ui.messages.clear();
    }
  }
  const double runs = double(state.iterations()) * double(puzzles.size());
  state.SetItemsProcessed(static_cast<int64_t>(runs));
  state.counters["lines_per_puzzle"] = double(lines) / runs;
  state.counters["placements_per_puzzle"] = double(placements) / runs;
  state.counters["solved_share"] = double(solved) / runs;
  state.counters["puzzles"] = double(puzzles.size());
}

/// One benchmark per collection file of the folder, in name order.
void registerCollections() {
  const char* chosen = std::getenv("TESSALY_PUZZLES");
  const std::filesystem::path folder = chosen && *chosen ? chosen : TESSALY_TEST_PUZZLES_DIR;
  // Each set with the six rules, then with every further technique.
  for (const auto& file : bench::collectionFiles(folder)) {
    benchmark::RegisterBenchmark(("narratedSolve/" + file.stem().string()).c_str(), narratedSolve, file.string(),
                                 TechniqueSet::rulesOnly())
        ->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark(("narratedSolveAllTechniques/" + file.stem().string()).c_str(), narratedSolve,
                                 file.string(), TechniqueSet::all())
        ->Unit(benchmark::kMillisecond);
  }
}

}  // namespace

int main(int argc, char** argv) {
  registerCollections();
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
  benchmark::RunSpecifiedBenchmarks();
  benchmark::Shutdown();
  return 0;
}
