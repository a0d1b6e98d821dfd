// The further techniques in the narrated run: when the configured rules leave
// no cell with one candidate, the easiest technique turned on that finds
// something is told and applied, then the rules go on; a guess follows only
// when none finds anything.

#include "solver/SolverEngine.h"
#include "solver/SolutionCounter.h"
#include "solver/Techniques.h"

namespace tessaly {

TechniqueBoard SolverEngine::techniqueBoard() const {
  TechniqueBoard board;
  for (int c = 1; c <= kCells; ++c) {
    const Cell& cell = s.grid[c];
    board.value[std::size_t(c - 1)] = std::uint8_t(cell.value);
    board.cand[std::size_t(c - 1)] = cell.value ? 0 : cell.candidates.bits();
  }
  board.uniqueSolution = s.run.uniqueSolution;
  return board;
}

void SolverEngine::prepareFurtherTechniques() {
  s.run.excluded.fill(CandidateSet());
  s.run.uniqueSolution = false;
  if (!s.controls.techniques.any() || s.run.mode == RunState::Silent) return;
  std::string puzzle(kCells, '.');
  for (int c = 1; c <= kCells; ++c)
    if (s.grid[c].given) puzzle[std::size_t(c - 1)] = char('0' + s.grid[c].value);
  s.run.uniqueSolution = countSolutions(puzzle) == 1;
}

void SolverEngine::applyFurtherTechniques() {
  const TechniqueSet enabled = s.controls.techniques;
  if (!enabled.any() || s.run.mode == RunState::Silent) return;
  for (;;) {
    bool open = false;
    for (int c = 1; c <= kCells; ++c) {
      const Cell& cell = s.grid[c];
      if (cell.value) continue;
      // A single is placed next and an empty cell retracted: nothing to find.
      if (cell.candidates.size() <= 1) return;
      open = true;
    }
    if (!open) return;
    const std::optional<TechniqueStep> step = findEasiestStep(techniqueBoard(), enabled, false, &m_stepMemory);
    if (!step) return;
    tellStep(*step);
    applyRulesInOrder();
  }
}

void SolverEngine::tellStep(const TechniqueStep& step) {
  const auto technique = std::uint8_t(step.technique);
  s.run.techniqueSteps.push_back(step);
  report({.kind = FindingKind::TechniqueFound, .count = int(s.run.techniqueSteps.size() - 1), .technique = technique});
  ++s.run.stats.techniqueFound[technique];
  auto change = [&](int cell, CandidateSet after, const Finding& finding) {
    Cell& target = s.grid[cell];
    highlightArea(cell, 0, 0, 0);
    report(finding);
    CandidateSet gone = target.candidates;
    gone.removeAll(after);
    CandidateSet& excluded = s.run.excluded[std::size_t(cell)];
    excluded = CandidateSet::fromBits(excluded.bits() | gone.bits());
    s.run.stats.techniqueReductions[technique] += gone.size();
    target.candidates = after;
    restoreHighlight(cell);
  };
  for (const Candidate& p : step.placements) {
    const int cell = p.cell + 1;
    change(cell, CandidateSet::of(p.digit),
           {.kind = FindingKind::TechniqueSetValue, .cell = cell, .digit = p.digit,
            .before = s.grid[cell].candidates, .technique = technique});
  }
  for (const Candidate& e : step.eliminations) {
    const int cell = e.cell + 1;
    CandidateSet after = s.grid[cell].candidates;
    if (!after.has(e.digit)) continue;  // a placement of the same step took it already
    after.remove(e.digit);
    change(cell, after,
           {.kind = FindingKind::TechniqueRemoval, .cell = cell, .removed = CandidateSet::of(e.digit),
            .before = s.grid[cell].candidates, .technique = technique});
  }
}

}  // namespace tessaly
