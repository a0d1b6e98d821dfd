// The Create command for each distribution: puzzles created per second, with
// the placements the silent completion needed per puzzle.

#include <benchmark/benchmark.h>

#include <filesystem>
#include <string>

#include "BenchSupport.h"
#include "create/Creation.h"
#include "create/EntryDialogs.h"
#include "model/Services.h"
#include "model/Session.h"

namespace {

using namespace tessaly;

/// A template that keeps every other cell.
std::string checkerTemplate() {
  std::string cells;
  for (int c = 1; c <= kCells; ++c) cells.push_back(c % 2 ? kGivenMark : '.');
  return cells;
}

void createPuzzles(benchmark::State& state, BlankDistribution distribution) {
  bench::BenchSession b("tessaly-bench-create");
  Session& s = b.session;
  const auto& scratch = b.scratch;
  const auto tempFile = scratch / kTempCollectionName;

  PuzzleCreator creator(s);
  const CreateSettings settings{45, distribution, checkerTemplate()};

  long long created = 0, placements = 0;
  for (auto _ : state) {
    // PuzTemp.sud grows by one record per creation and every append rewrites
    // it whole; start each creation from an empty file so the figure stays the
    // creation's own.
    state.PauseTiming();
    std::filesystem::remove(tempFile);
    state.ResumeTiming();
    CreateResult result = creator.createCommand(settings);
    if (result.created()) ++created;
    placements += s.run.PlacementCount;
    benchmark::DoNotOptimize(s.grid[1].value);
  }
  state.SetItemsProcessed(created);
  state.counters["placements_per_puzzle"] =
      benchmark::Counter(double(placements) / double(state.iterations() ? state.iterations() : 1));
  state.counters["failed"] = benchmark::Counter(double(state.iterations() - created));
  std::filesystem::remove(tempFile);
}

void BM_CreateMirror(benchmark::State& state) { createPuzzles(state, BlankDistribution::Mirror); }
void BM_CreateByBox(benchmark::State& state) { createPuzzles(state, BlankDistribution::ByBox); }
void BM_CreateRandom(benchmark::State& state) { createPuzzles(state, BlankDistribution::Random); }
void BM_CreateManual(benchmark::State& state) { createPuzzles(state, BlankDistribution::Manual); }

BENCHMARK(BM_CreateMirror)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_CreateByBox)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_CreateRandom)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_CreateManual)->Unit(benchmark::kMillisecond);

}  // namespace
