// Grading and counting on one core: puzzles per second on a sample of the
// Kaggle set (all five levels) and on top95, with the six rules and with every
// further technique; creation with and without the
// one-solution option.

#include <benchmark/benchmark.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "BenchSupport.h"
#include "create/Creation.h"
#include "model/Services.h"
#include "model/Session.h"
#include "solver/Grader.h"
#include "solver/SolutionCounter.h"

namespace {

using namespace tessaly;

std::vector<std::string> puzzleLines(const std::string& name) {
  std::vector<std::string> puzzles;
  std::ifstream in(std::string(TESSALY_TEST_PUZZLES_DIR) + "/" + name);
  for (std::string line; std::getline(in, line);)
    if (line.size() >= 81) puzzles.push_back(line.substr(0, 81));
  return puzzles;
}

template <typename Work>
void perPuzzle(benchmark::State& state, const std::string& file, Work work) {
  const std::vector<std::string> puzzles = puzzleLines(file);
  if (puzzles.empty()) {
    state.SkipWithError("no puzzles");
    return;
  }
  std::size_t next = 0;
  for (auto _ : state) {
    benchmark::DoNotOptimize(work(puzzles[next]));
    next = (next + 1) % puzzles.size();
  }
  state.SetItemsProcessed(state.iterations());
}

void BM_GradeKaggleSample(benchmark::State& state) {
  perPuzzle(state, "kaggle3m_sample200.txt", [](const std::string& p) { return gradePuzzle(p).grade; });
}
void BM_GradeTop95(benchmark::State& state) {
  perPuzzle(state, "top95.txt", [](const std::string& p) { return gradePuzzle(p).grade; });
}
void BM_GradeKaggleSampleAllTechniques(benchmark::State& state) {
  perPuzzle(state, "kaggle3m_sample200.txt", [](const std::string& p) { return gradePuzzle(p, TechniqueSet::all()).grade; });
}
void BM_GradeTop95AllTechniques(benchmark::State& state) {
  perPuzzle(state, "top95.txt", [](const std::string& p) { return gradePuzzle(p, TechniqueSet::all()).grade; });
}
void BM_CountKaggleSample(benchmark::State& state) {
  perPuzzle(state, "kaggle3m_sample200.txt", [](const std::string& p) { return countSolutions(p, 2); });
}
void BM_CountSudoku17(benchmark::State& state) {
  perPuzzle(state, "sudoku17-2000.txt", [](const std::string& p) { return countSolutions(p, 2); });
}
void BM_CountTop95(benchmark::State& state) {
  perPuzzle(state, "top95.txt", [](const std::string& p) { return countSolutions(p, 2); });
}

void createPuzzles(benchmark::State& state, bool unique) {
  bench::BenchSession b("tessaly-bench-grade-create");
  Session& s = b.session;
  const auto& scratch = b.scratch;
  PuzzleCreator creator(s);
  CreateSettings settings{56, BlankDistribution::Random, std::nullopt};
  settings.uniqueOnly = unique;
  long long blanks = 0;
  for (auto _ : state) {
    state.PauseTiming();
    std::filesystem::remove(scratch / kTempCollectionName);
    state.ResumeTiming();
    blanks += creator.createCommand(settings).blanks;
  }
  state.SetItemsProcessed(state.iterations());
  state.counters["blanks_per_puzzle"] = benchmark::Counter(double(blanks) / double(std::max<long long>(1, state.iterations())));
  std::filesystem::remove_all(scratch);
}

void BM_Create56Random(benchmark::State& state) { createPuzzles(state, false); }
void BM_Create56RandomOneSolution(benchmark::State& state) { createPuzzles(state, true); }

BENCHMARK(BM_GradeKaggleSample);
BENCHMARK(BM_GradeTop95);
BENCHMARK(BM_GradeKaggleSampleAllTechniques);
BENCHMARK(BM_GradeTop95AllTechniques);
BENCHMARK(BM_CountKaggleSample);
BENCHMARK(BM_CountTop95);
BENCHMARK(BM_CountSudoku17);
BENCHMARK(BM_Create56Random)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Create56RandomOneSolution)->Unit(benchmark::kMillisecond);

}  // namespace
