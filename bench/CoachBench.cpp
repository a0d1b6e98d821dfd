// The coach's answers with every technique turned on, on each puzzle of
// hardest.sud (the hardest puzzles shipped), from the givens: a nudge, a
// verdict on a placement and a verdict on a note taken out. Each verdict is
// the costliest kind, a right move that nothing forces, so every finder of
// the table runs before the coach says so. The aim is under 50 ms each.

#include <benchmark/benchmark.h>

#include <string>
#include <vector>

#include "BenchSupport.h"
#include "play/Coach.h"
#include "solver/SolutionCounter.h"

namespace {

using namespace tessaly;

struct Case {
  Position position;
  SolutionInfo solution;
  int cell = 0;        ///< a right placement nothing forces (or the first open cell)
  int noteCell = 0;    ///< a note removal nothing forces (or the first open cell's)
  int noteDigit = 0;
};

/// Puzzle n (0-based) of hardest.sud, with all notes filled in, and the moves to judge.
Case makeCase(int n) {
  const std::vector<std::string> puzzles =
      bench::loadCollection(std::string(TESSALY_TEST_PUZZLES_DIR) + "/hardest.sud", 100);
  Case c;
  if (n >= int(puzzles.size())) return c;
  const std::string& puzzle = puzzles[std::size_t(n)];
  for (int k = 1; k <= kCells; ++k) c.position.value[std::size_t(k)] = digitValue(puzzle[std::size_t(k - 1)]);
  c.solution.count = countSolutions(puzzle, 2, &c.solution.digits);
  const TechniqueBoard board = playerBoard(c.position, true);
  for (int k = 1; k <= kCells; ++k) c.position.notes[std::size_t(k)] = board.cand[std::size_t(k - 1)];
  const JudgeOptions all{TechniqueSet::all(), true};
  for (int k = 1; k <= kCells && c.solution.unique(); ++k) {
    if (c.position.value[std::size_t(k)]) continue;
    if (!c.cell || (judgePlacement(c.position, k, c.solution.at(k), c.solution, all).kind == VerdictKind::Lucky &&
                    judgePlacement(c.position, c.cell, c.solution.at(c.cell), c.solution, all).kind !=
                        VerdictKind::Lucky))
      c.cell = k;
    for (int d = 1; d <= 9; ++d) {
      if (d == c.solution.at(k) || !(c.position.notes[std::size_t(k)] & (1u << (d - 1)))) continue;
      if (!c.noteCell || (judgeNoteRemoval(c.position, k, d, c.solution, all).kind == VerdictKind::Lucky &&
                          judgeNoteRemoval(c.position, c.noteCell, c.noteDigit, c.solution, all).kind !=
                              VerdictKind::Lucky)) {
        c.noteCell = k;
        c.noteDigit = d;
      }
    }
  }
  return c;
}

void BM_CoachNudge(benchmark::State& state) {
  const Case c = makeCase(int(state.range(0)));
  const TechniqueBoard board = playerBoard(c.position, c.solution.unique());
  for (auto _ : state) benchmark::DoNotOptimize(nudgeAt(board, TechniqueSet::all(), 4));
}

void BM_CoachPlacementVerdict(benchmark::State& state) {
  const Case c = makeCase(int(state.range(0)));
  if (!c.cell) {
    state.SkipWithError("no puzzle with one solution");
    return;
  }
  for (auto _ : state)
    benchmark::DoNotOptimize(
        judgePlacement(c.position, c.cell, c.solution.at(c.cell), c.solution, {TechniqueSet::all(), true}));
}

void BM_CoachNoteVerdict(benchmark::State& state) {
  const Case c = makeCase(int(state.range(0)));
  if (!c.noteCell) {
    state.SkipWithError("no puzzle with one solution");
    return;
  }
  for (auto _ : state)
    benchmark::DoNotOptimize(
        judgeNoteRemoval(c.position, c.noteCell, c.noteDigit, c.solution, {TechniqueSet::all(), true}));
}

BENCHMARK(BM_CoachNudge)->DenseRange(0, 10)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_CoachPlacementVerdict)->DenseRange(0, 10)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_CoachNoteVerdict)->DenseRange(0, 10)->Unit(benchmark::kMillisecond);

}  // namespace
