// The slowest finders on their own: calls per second of ALS-XZ and the
// forcing chains on the boards where a solve of a sample of the Kaggle set
// with every technique, guessing as the grader does, reaches them (every
// easier technique finds nothing there).

#include <benchmark/benchmark.h>

#include <bit>
#include <fstream>
#include <string>
#include <vector>

#include "solver/Techniques.h"

namespace {

using namespace tessaly;
using bitgrid::bitOf;

/// Whether every open cell has a candidate and every digit not placed in an
/// area a place there.
bool covered(const TechniqueBoard& board) {
  for (int c = 0; c < bitgrid::kCellCount; ++c)
    if (!board.value[std::size_t(c)] && !board.cand[std::size_t(c)]) return false;
  for (const auto& area : bitgrid::kAreas) {
    std::uint16_t seen = 0;
    for (std::uint8_t c : area) seen |= board.value[c] ? bitOf(board.value[c]) : board.cand[c];
    if (seen != bitgrid::kAll) return false;
  }
  return true;
}

/// Solves as the grader does (the easiest step each time, a guess at the
/// first cell with the fewest candidates when none helps, every branch
/// followed), keeping each board on which every technique easier than ALS-XZ
/// finds nothing.
void collect(TechniqueBoard board, TechniqueSet easier, std::vector<TechniqueBoard>& found) {
  for (int steps = 0; steps < 200 && covered(board); ++steps) {
    std::optional<TechniqueStep> step = findEasiestStep(board, easier, true);
    if (!step) {
      found.push_back(board);
      step = findEasiestStep(board, TechniqueSet::all(), true);
    }
    if (!step) {
      int best = -1, fewest = 10;
      for (int c = 0; c < bitgrid::kCellCount; ++c) {
        const int n = std::popcount(unsigned(board.cand[std::size_t(c)]));
        if (n >= 2 && n < fewest) best = c, fewest = n;
      }
      if (best < 0) return;
      for (std::uint16_t m = board.cand[std::size_t(best)]; m; m &= std::uint16_t(m - 1)) {
        TechniqueBoard child = board;
        child.cand[std::size_t(best)] = std::uint16_t(m & (~m + 1u));
        collect(child, easier, found);
      }
      return;
    }
    applyStep(board, *step);
  }
}

const std::vector<TechniqueBoard>& hardBoards() {
  static const std::vector<TechniqueBoard> boards = [] {
    TechniqueSet easier;
    for (const TechniqueInfo& info : kTechniques)
      if (info.family != TechniqueFamily::Als && info.family != TechniqueFamily::Forcing) easier.add(info.id);
    std::vector<TechniqueBoard> found;
    std::ifstream in(std::string(TESSALY_TEST_PUZZLES_DIR) + "/kaggle3m_sample200.txt");
    for (std::string line; std::getline(in, line);) {
      if (line.size() < 81) continue;
      TechniqueBoard board = boardFromPuzzle(line.substr(0, 81));
      board.uniqueSolution = true;
      collect(board, easier, found);
    }
    return found;
  }();
  return boards;
}

void perBoard(benchmark::State& state, TechniqueFinder find) {
  const std::vector<TechniqueBoard>& boards = hardBoards();
  if (boards.empty()) {
    state.SkipWithError("no boards");
    return;
  }
  // Each iteration calls the finder once on every board: an item is a call.
  // The finder keeps its buffers from one call to the next, as in a solve.
  FinderWork work;
  for (auto _ : state)
    for (const TechniqueBoard& board : boards) {
      TechniqueContext ctx(board);
      ctx.useWork(&work);
      benchmark::DoNotOptimize(find(ctx));
    }
  state.SetItemsProcessed(state.iterations() * std::int64_t(boards.size()));
  state.counters["boards"] = double(boards.size());
}

void BM_FindAlsXz(benchmark::State& state) { perBoard(state, findAlsXz); }
void BM_FindCellForcingChain(benchmark::State& state) { perBoard(state, findCellForcingChain); }
void BM_FindUnitForcingChain(benchmark::State& state) { perBoard(state, findUnitForcingChain); }

BENCHMARK(BM_FindAlsXz);
BENCHMARK(BM_FindCellForcingChain);
BENCHMARK(BM_FindUnitForcingChain);

}  // namespace
