// The board history's cost: recording the board at every line of the narrated
// Solve of each puzzle of the test sets, against the time of the Solve itself,
// and the memory it keeps.
//
// Each puzzle is solved once beforehand (timed, history included) and the
// board of every line kept; the benchmark then records those boards again into
// an empty history, which is exactly the recording's share of the Solve.

#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <string>
#include <vector>

#include "BenchSupport.h"
#include "solver/BoardHistory.h"

namespace {

using namespace tessaly;

std::size_t historyBytes(const BoardHistory& h) {
  return h.changes.capacity() * sizeof(CellRecord) + h.lineEnd.capacity() * sizeof(int) + sizeof(h.last);
}

void recordHistory(benchmark::State& state, const std::string& path) {
  bench::BenchSession b("tessaly-bench-history");
  Session& s = b.session;
  const std::vector<std::string> puzzles = bench::loadCollection(path, 500);

  // Every line's board of every puzzle, and how long the Solves took.
  std::vector<std::vector<PuzzleGrid>> boards;
  double solveSeconds = 0;
  std::size_t maxBytes = 0, maxLines = 0;
  for (const std::string& puzzle : puzzles) {
    bench::loadIntoSession(s, puzzle);
    const auto start = std::chrono::steady_clock::now();
    SolverEngine(s).solveCommand();
    solveSeconds += std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
    b.ui.messages.clear();
    std::vector<PuzzleGrid> lines;
    for (int k = 1; k <= s.log.TotalLines(); ++k) lines.push_back(boardAtLine(s.run.history, k));
    if (historyBytes(s.run.history) > maxBytes) maxBytes = historyBytes(s.run.history);
    maxLines = std::max(maxLines, lines.size());
    boards.push_back(std::move(lines));
  }

  // The memory of a full log: the hardest puzzle of the set with no placement
  // limit runs until the log holds its 5,000 lines (or solves first).
  std::size_t fullLogBytes = 0;
  int fullLogLines = 0;
  for (const std::string& puzzle : puzzles) {
    if (fullLogLines >= EventLog::kCapacity) break;
    bench::loadIntoSession(s, puzzle);
    s.config.MaxTries = 1000000;
    SolverEngine(s).solveCommand();
    b.ui.messages.clear();
    if (s.log.TotalLines() > fullLogLines) {
      fullLogLines = s.log.TotalLines();
      fullLogBytes = historyBytes(s.run.history);
    }
  }

  double recordSeconds = 0;
  for (auto _ : state) {
    const auto start = std::chrono::steady_clock::now();
    for (const auto& lines : boards) {
      BoardHistory history;
      for (std::size_t k = 0; k < lines.size(); ++k) recordBoard(history, lines[k], int(k + 1));
      benchmark::DoNotOptimize(history.changes.data());
    }
    recordSeconds += std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
  }
  const double runs = double(state.iterations());
  state.SetItemsProcessed(static_cast<int64_t>(runs * double(boards.size())));
  state.counters["share_of_solve"] = recordSeconds / runs / solveSeconds;
  state.counters["max_bytes"] = double(maxBytes);
  state.counters["max_lines"] = double(maxLines);
  state.counters["longest_log_lines"] = double(fullLogLines);
  state.counters["longest_log_bytes"] = double(fullLogBytes);
  state.counters["puzzles"] = double(boards.size());
}

/// One benchmark per collection file of the test sets, in name order.
[[maybe_unused]] const bool registered = [] {
  for (const auto& file : bench::collectionFiles(TESSALY_TEST_PUZZLES_DIR))
    benchmark::RegisterBenchmark(("boardHistory/" + file.stem().string()).c_str(), recordHistory, file.string())
        ->Unit(benchmark::kMillisecond);
  return true;
}();

}  // namespace
