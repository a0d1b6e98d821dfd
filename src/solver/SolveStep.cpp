// Placing values, the analysis after every placement, the placement queue and
// the retraction of guesses that led nowhere.

#include <algorithm>

#include "solver/Narrator.h"
#include "solver/SolverEngine.h"

namespace tessaly {

namespace {
/// What the placement count becomes when the first placement of a run is a
/// drawn guess.
constexpr int kPlacementsAfterDrawnGuess = 2;

/// The k-th smallest digit of the set (k from 1).
int nthMember(CandidateSet set, int k) {
  for (int i = 1; i < k; ++i) set.remove(set.first());
  return set.first();
}
}  // namespace

void SolverEngine::placeValue(int cell, int value, CandidateSet candidates) {
  const int box = CellBox[cell];
  if (highlights(s.run.mode)) {
    s.run.currentCell = cell;
    s.display().paintCell(cell, CellPaint::Placed);
  }
  const bool guess = candidates.size() > 1;
  if (guess) {
    // A guess: keep the untried digits and the grid as it was, for retraction.
    GuessLevel level;
    CandidateSet untried = candidates;
    untried.remove(value);
    level.entry = QueueEntry{0, 0, cell, box, untried};
    level.snapshot = s.grid.valueCode();
    level.excluded = s.run.excluded;
    s.run.guessStack.push(std::move(level));
    ++s.run.SavedGuessCount;
  }
  s.grid[cell].value = value;
  ++s.run.PlacementCount;
  if (guess) {
    report({.kind = FindingKind::GuessPlacement, .cell = cell, .digit = value, .before = candidates});
    report({.kind = FindingKind::GuessSaved});
  } else {
    report({.kind = FindingKind::Placement, .cell = cell, .digit = value, .before = candidates});
  }
}

void SolverEngine::rebuildQueue(int& singleCells) {
  singleCells = 0;
  s.run.candidateQueue.rebuild([&](auto add) {
    for (int c = 1; c <= kCells; ++c) {
      const Cell& cell = s.grid[c];
      if (cell.candidates.size() < 2) ++singleCells;
      if (cell.value || cell.candidates.empty()) continue;
      const int box = CellBox[c];
      add(QueueEntry{cell.candidates.size(), s.BoxMissingCount[std::size_t(box - 1)], c, box, cell.candidates});
    }
  });
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
    report({.kind = FindingKind::Solved});
    return {};
  }
  if (filled + determinedBlanks == kCells) {
    report({.kind = FindingKind::SolvedPlaceRemaining, .count = determinedBlanks});
  } else {
    applyRulesInOrder();
    applyFurtherTechniques();
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
        report({.kind = FindingKind::RulesAppliedGuessing});
      else
        report({.kind = FindingKind::RulesAppliedSingles, .count = singles - s.givenCount()});
      s.display().setProgress(kCells - blanks);
    } else {
      s.BlanksLeft = 0;
      if (blanks >= 1)
        report({.kind = FindingKind::RulesAppliedSolved, .count = blanks});
    }
  }
  int singleCells = 0;
  rebuildQueue(singleCells);
  return {singleCells == kCells ? Analysis::Kind::AllDetermined : Analysis::Kind::Open, 0};
}

void SolverEngine::shuffleRuleTable() {
  for (int i = kRuleCount; i >= 1; --i) {
    int j = drawOneTo(s.random(), i);
    std::swap(s.run.RuleTable[std::size_t(i)], s.run.RuleTable[std::size_t(j)]);
  }
}

void SolverEngine::applyRulesInOrder() {
  std::string order = s.config.RuleOrder;
  if (order.empty()) {
    shuffleRuleTable();
    for (int i = 1; i <= kRuleCount; ++i) order += std::to_string(s.run.RuleTable[std::size_t(i)]);
  }
  s.processEvents();
  for (char ch : order) {
    if (s.BlanksLeft == 0) break;
    // Rule 1 runs before the order; anything but an ordered rule is skipped.
    const RuleInfo* rule = ruleNumbered(digitValue(ch));
    if (rule && rule->ordered) (this->*rule->apply)();
  }
}

void SolverEngine::placeNext() {
  if (s.run.candidateQueue.empty()) return;
  for (;;) {
    const QueueEntry head = s.run.candidateQueue[0];
    const CandidateSet candidates = head.digits;
    int value = head.firstDigit();
    if (candidates.size() > 1 && s.run.PlacementCount == 0 && !s.run.CreationFlag) {
      // The first placement of a run is a guess: the puzzle may have several
      // solutions, so the first digit is drawn at random and tried first.
      // Counted as two placements, so that no later placement of the run is
      // taken for its first.
      s.run.PlacementCount = kPlacementsAfterDrawnGuess;
      const Finding warning{.kind = FindingKind::MultipleSolutions};
      report(warning);
      s.message(narrate(warning));
      // The k-th candidate is tried first; the others stay untried in order.
      const int k = drawOneTo(s.random(), candidates.size());
      value = nthMember(candidates, k);
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

void SolverEngine::retractInvalidPlacement() {
  report({.kind = FindingKind::NotValid});
  if (s.run.guessStack.empty()) {
    report({.kind = FindingKind::NoSolution});
    report({.kind = FindingKind::CheckPlacements});
    s.run.candidateQueue.clear();
    return;
  }
  retry();
}

void SolverEngine::retractInvalidCompletion() {
  report({.kind = FindingKind::NotValid});
  retry();
}

void SolverEngine::retractDeadCell(int cell) {
  if (highlights(s.run.mode)) s.display().paintCell(cell, CellPaint::Dead);
  report({.kind = FindingKind::DeadCell, .box = CellBox[cell], .cell = cell});
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
    // A silent run tells no one: creation sees the grid it could not complete.
    if (s.run.mode != RunState::Silent)
      s.message(narrate({.kind = FindingKind::NoSolution}) + "\n" + narrate({.kind = FindingKind::CheckPlacements}));
    s.run.candidateQueue.clear();
    return;
  }
  const QueueEntry entry = s.run.guessStack.top().entry;
  s.run.excluded = s.run.guessStack.top().excluded;
  s.run.candidateQueue.clear();
  s.run.candidateQueue.insert(entry);
  s.run.guessStack.pop();
  report({.kind = FindingKind::Retry, .cell = entry.cell, .digit = entry.firstDigit(), .before = entry.digits});
  if (highlights(s.run.mode)) s.display().paintCell(entry.cell, CellPaint::Retry);
}

}  // namespace tessaly
