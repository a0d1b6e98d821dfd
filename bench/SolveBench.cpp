// The narrated Solve over every puzzle of public collections: puzzles per
// second, log lines and placements per puzzle.
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

#include "model/CollectionFile.h"
#include "model/Services.h"
#include "solver/SolverEngine.h"

namespace {

using namespace tessaly;

std::vector<std::string> loadCollection(const std::string& path) {
  std::vector<std::string> puzzles;
  const int total = countPuzzles(path);
  // Read the file once and cut it into puzzles of 81 characters.
  for (int n = 1; n <= total; ++n) {
    auto read = readPuzzleRows(path, n);
    if (read.status != PuzzleRowsRead::Status::Found) break;
    std::string text;
    for (auto& row : read.rows) text += (row + std::string(9, '0')).substr(0, 9);
    puzzles.push_back(text);
    if (n >= 2000) break;  // enough for a steady figure
  }
  return puzzles;
}

void loadIntoSession(Session& s, const std::string& puzzle) {
  for (int c = 1; c <= kCells; ++c) {
    const int v = digitValue(puzzle[std::size_t(c - 1)]);
    s.grid[c].value = v;
    s.grid[c].given = v != 0;
    s.grid[c].candidates = v ? CandidateSet::of(v) : CandidateSet();
  }
  s.clearEventLog();
  SolverEngine(s).computeCandidates(false);
}

void narratedSolve(benchmark::State& state, const std::string& path) {
  const auto puzzles = loadCollection(path);
  const auto scratch = std::filesystem::temp_directory_path() / "tessaly-bench";
  std::filesystem::create_directories(scratch);
  std::filesystem::current_path(scratch);  // Eventlog.txt lands here
  ScriptedUserInterface ui;
  SeededRandom random(1);
  Session s(Services{&ui, nullptr, nullptr, nullptr, &random});
  s.writesConfiguration = false;
  long long lines = 0, placements = 0, solved = 0;
  for (auto _ : state) {
    for (const std::string& puzzle : puzzles) {
      loadIntoSession(s, puzzle);
      SolverEngine(s).solveCommand();
      lines += s.log.TotalLines();
      for (int n = 1; n <= s.log.TotalLines(); ++n)
        if (s.log.line(n).starts_with("00Set row")) ++placements;
      solved += s.grid.filledCount() == kCells ? 1 : 0;
      ui.messages.clear();
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
  std::vector<std::filesystem::path> files;
  std::error_code ec;
  for (const auto& entry : std::filesystem::directory_iterator(folder, ec))
    if (entry.path().extension() == ".sud") files.push_back(entry.path());
  std::sort(files.begin(), files.end());
  for (const auto& file : files)
    benchmark::RegisterBenchmark(("narratedSolve/" + file.stem().string()).c_str(), narratedSolve, file.string())
        ->Unit(benchmark::kMillisecond);
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
