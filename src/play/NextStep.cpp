#include "play/NextStep.h"

#include "model/Session.h"
#include "solver/Narrator.h"
#include "solver/SolutionCounter.h"
#include "solver/Techniques.h"

namespace tessaly {

NextStepHint nextStepHint(const Session& s) {
  TechniqueBoard board;
  std::string givens(kCells, '.');
  for (int c = 1; c <= kCells; ++c) {
    const Cell& cell = s.grid[c];
    board.value[std::size_t(c - 1)] = std::uint8_t(cell.value);
    board.cand[std::size_t(c - 1)] = cell.value ? 0 : cell.candidates.bits();
    if (cell.given) givens[std::size_t(c - 1)] = char('0' + cell.value);
  }
  board.uniqueSolution = s.controls.techniques.any() && countSolutions(givens) == 1;

  NextStepHint hint;
  hint.step = findEasiestStep(board, s.controls.techniques, true);
  if (!hint.step) {
    hint.lines.emplace_back(kNoNextStep);
    return hint;
  }
  hint.lines.push_back(narrateStep(*hint.step));
  for (const Candidate& p : hint.step->placements)
    hint.lines.push_back(narrate({.kind = FindingKind::TechniqueSetValue, .cell = p.cell + 1, .digit = p.digit}));
  for (const Candidate& e : hint.step->eliminations)
    hint.lines.push_back(narrate({.kind = FindingKind::TechniqueRemoval, .cell = e.cell + 1,
                                  .removed = CandidateSet::of(e.digit),
                                  .before = CandidateSet::fromBits(board.cand[std::size_t(e.cell)])}));
  return hint;
}

}  // namespace tessaly
