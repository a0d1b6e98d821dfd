// Placing values, the analysis after every placement, the placement queue and
// the retraction of guesses that led nowhere.

#include <algorithm>

#include "solver/SolverEngine.h"

namespace tessaly {

namespace {
/// What the placement count becomes when the first placement of a run is a
/// drawn guess.
constexpr int kPlacementsAfterDrawnGuess = 2;
}  // namespace

void SolverEngine::placeValue(int cell, int value, const std::string& candidates) {
  const int box = CellBox[cell];
  if (highlights(s.run.mode)) {
    s.run.currentCell = cell;
    s.display().paintCell(cell, CellPaint::Placed);
  }
  const bool guess = candidates.size() > 1;
  if (guess) {
    // A guess: keep the untried digits and the grid as it was, for retraction.
    GuessLevel level;
    level.entry = QueueEntry{0, 0, cell, box, candidates.substr(1)};
    level.snapshot = s.grid.valueCode();
    s.run.guessStack.push(std::move(level));
    ++s.run.SavedGuessCount;
  }
  s.grid[cell].value = value;
  ++s.run.PlacementCount;
  if (guess)
    s.say(kStyleNormal, true, "Set row", Num{CellRow[cell]}, ", col", Num{CellCol[cell]}, ", cell", Num{cell},
          " to value", Num{value}, ", multiple choice=", candidates);
  else
    s.say(kStyleNormal, true, "Set row", Num{CellRow[cell]}, ", col", Num{CellCol[cell]}, ", cell", Num{cell},
          " to value", Num{value});
  if (guess) s.say(kStyleNormal, false, "Current solution saved in case we revert back to other choices");
}

void SolverEngine::rebuildQueue(int& singleCells) {
  s.run.candidateQueue.clear();
  singleCells = 0;
  for (int c = 1; c <= kCells; ++c) {
    const Cell& cell = s.grid[c];
    if (cell.candidates.size() < 2) ++singleCells;
    if (cell.value || cell.candidates.empty()) continue;
    const int box = CellBox[c];
    s.run.candidateQueue.insert(
        QueueEntry{cell.candidates.size(), s.BoxMissingCount[std::size_t(box - 1)], c, box, cell.candidates.text()});
  }
}

SolverEngine::Analysis SolverEngine::analyseGrid(AnalysisMode mode) {
  computeCandidates(false);
  int filled = 0, determinedBlanks = 0;
  for (int c = 1; c <= kCells; ++c) {
    if (s.grid[c].value)
      ++filled;
    else if (s.grid[c].candidates.size() <= 1)
      ++determinedBlanks;
  }
  if (mode == AnalysisMode::CandidatesOnly) return {};

  applyRule1();
  if (int dead = firstDeadCell(); dead > 0) return {Analysis::Kind::DeadCell, dead};

  if (filled == kCells) {
    s.run.candidateQueue.clear();
    s.say(kStyleNormal, false, "The puzzle is solved");
    return {};
  }
  if (filled + determinedBlanks == kCells) {
    s.say(kStyleNormal, false, "The puzzle is solved, will place remaining", Num{determinedBlanks},
          " known values in grid");
  } else {
    applyRulesInOrder();
    // Rules 2 and 3 delete without a length test, so they can empty a cell that
    // Rule 1's scan above passed: look again before counting.
    if (int dead = firstDeadCell(); dead > 0) return {Analysis::Kind::DeadCell, dead};
    int singles = 0, newSingles = 0, blanks = 0;
    for (int c = 1; c <= kCells; ++c) {
      const Cell& cell = s.grid[c];
      const bool one = cell.candidates.size() == 1;
      if (one) ++singles;
      if (!cell.value) {
        ++blanks;
        if (one) ++newSingles;
      }
    }
    if (blanks == 0) {
      s.run.candidateQueue.clear();
      return {};
    }
    if (newSingles != blanks) {
      if (singles == s.givenCount())
        s.say(kStyleWarning, false,
              "All rules applied, no new singular choices were found, must resort to guesswork now");
      else
        s.say(kStyleNormal, false, "All rules applied,", Num{singles - s.givenCount()}, " new singular choices found");
      s.display().setProgress(kCells - blanks);
    } else {
      s.BlanksLeft = 0;
      if (blanks >= 1)
        s.say(kStyleNormal, false, "All rules applied, the puzzle is solved, will place remaining", Num{blanks},
              " known values in grid");
    }
  }
  int singleCells = 0;
  rebuildQueue(singleCells);
  return {singleCells == kCells ? Analysis::Kind::AllDetermined : Analysis::Kind::Open, 0};
}

void SolverEngine::shuffleRuleTable() {
  for (int i = 6; i >= 1; --i) {
    int j = drawOneTo(s.random(), i);
    std::swap(s.run.RuleTable[std::size_t(i)], s.run.RuleTable[std::size_t(j)]);
  }
}

void SolverEngine::applyRulesInOrder() {
  std::string order = s.config.RuleOrder;
  if (order.empty()) {
    shuffleRuleTable();
    for (int i = 1; i <= 6; ++i) order += std::to_string(s.run.RuleTable[std::size_t(i)]);
  }
  s.processEvents();
  for (char ch : order) {
    if (s.BlanksLeft == 0) break;
    switch (ch) {
      case '2': applyRule2(); break;
      case '3': applyRule3(); break;
      case '4': applyRule4(); break;
      case '5': applyRule5(); break;
      case '6': applyRule6(); break;
      default: break;  // Rule 1 runs before the order; anything else is skipped
    }
  }
}

void SolverEngine::placeNext() {
  if (s.run.candidateQueue.empty()) return;
  for (;;) {
    const QueueEntry head = s.run.candidateQueue[0];
    std::string candidates = head.digits;
    int value = head.firstDigit();
    if (candidates.size() > 1 && s.run.PlacementCount == 0 && !s.run.CreationFlag) {
      // The first placement of a run is a guess: the puzzle may have several
      // solutions, so the first digit is drawn at random and tried first.
      // Counted as two placements, so that no later placement of the run is
      // taken for its first.
      s.run.PlacementCount = kPlacementsAfterDrawnGuess;
      s.say(kStyleWarning, false, "This puzzle might have multiple solutions");
      s.message("This puzzle might have multiple solutions");
      int k = drawOneTo(s.random(), int(candidates.size()));
      char picked = candidates[std::size_t(k - 1)];
      candidates.erase(std::size_t(k - 1), 1);
      candidates.insert(candidates.begin(), picked);
      value = picked - '0';
    }
    placeValue(head.cell, value, candidates);
    if (!givensAreValid()) {
      retractInvalidPlacement();
      return;
    }
    if (s.run.candidateQueue.size() < 2) break;
    const QueueEntry& second = s.run.candidateQueue[1];
    if (second.count == 1 && second.hasDigit()) {
      s.run.candidateQueue.removeHead();
      continue;
    }
    break;
  }
  const Analysis analysis = analyseGrid(AnalysisMode::Full);
  if (s.run.candidateQueue.empty() && !givensAreValid()) {
    retractInvalidCompletion();
    return;
  }
  if (analysis.kind == Analysis::Kind::DeadCell) retractDeadCell(analysis.deadCell);
}

// --- retraction

namespace {
constexpr const char* kNotValid = "Solution not valid, must retract and redo the last guess with a different choice";
constexpr const char* kNoSolution1 = "There appears to be no possible solution to this puzzle.";
constexpr const char* kNoSolution2 = "Please check you number placements.";
}  // namespace

void SolverEngine::retractInvalidPlacement() {
  s.say(kStyleWarning, false, kNotValid);
  if (s.run.guessStack.empty()) {
    s.say(kStyleWarning, false, kNoSolution1);
    s.say(kStyleWarning, false, kNoSolution2);
    s.run.candidateQueue.clear();
    return;
  }
  retry();
}

void SolverEngine::retractInvalidCompletion() {
  s.say(kStyleWarning, false, kNotValid);
  retry();
}

void SolverEngine::retractDeadCell(int cell) {
  if (highlights(s.run.mode)) s.display().paintCell(cell, CellPaint::Dead);
  s.say(kStyleWarning, false, "OOPs, this placement will leave cell", Num{cell}, " in box", Num{CellBox[cell]},
        " with no valid options, must retract");
  retry();
}

void SolverEngine::retry() {
  // The grid comes back from the newest snapshot before the stack is examined:
  // with no level left the snapshot reads empty and the whole grid is blanked,
  // givens included. That is how an exhausted search has always ended.
  const std::string snapshot = s.run.guessStack.empty() ? std::string() : s.run.guessStack.top().snapshot;
  for (int c = 1; c <= kCells; ++c)
    s.grid[c].value = std::size_t(c - 1) < snapshot.size() ? digitValue(snapshot[std::size_t(c - 1)]) : 0;
  if (s.run.guessStack.empty()) {
    s.message(std::string(kNoSolution1) + "\n" + kNoSolution2);
    s.run.candidateQueue.clear();
    return;
  }
  const QueueEntry entry = s.run.guessStack.top().entry;
  s.run.candidateQueue.clear();
  s.run.candidateQueue.insert(entry);
  s.run.guessStack.pop();
  s.say(kStyleWarning, false, "Retry row", Num{CellRow[entry.cell]}, ", col", Num{CellCol[entry.cell]}, ", cell",
        Num{entry.cell}, " with value", Num{entry.firstDigit()}, " instead");
  if (highlights(s.run.mode)) s.display().paintCell(entry.cell, CellPaint::Retry);
}

}  // namespace tessaly
