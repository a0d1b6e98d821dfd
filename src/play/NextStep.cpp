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
    hint.lines.push_back({HintKind::Heading, 0, 0, kNoNextStep});
    return hint;
  }
  hint.lines.push_back({HintKind::Heading, 0, 0, narrateStep(*hint.step)});
  for (const Candidate& p : hint.step->placements)
    hint.lines.push_back(
        {HintKind::Placement, p.cell + 1, p.digit,
         narrate({.kind = FindingKind::TechniqueSetValue, .cell = p.cell + 1, .digit = p.digit})});
  for (const Candidate& e : hint.step->eliminations)
    hint.lines.push_back({HintKind::Narration, 0, 0,
                          narrate({.kind = FindingKind::TechniqueRemoval, .cell = e.cell + 1,
                                   .removed = CandidateSet::of(e.digit),
                                   .before = CandidateSet::fromBits(board.cand[std::size_t(e.cell)])})});
  return hint;
}

std::vector<int> patternCells(const TechniqueStep& step) {
  std::vector<bool> in(kCells, false);
  auto add = [&](int cell) {
    if (cell >= 0 && cell < kCells) in[std::size_t(cell)] = true;
  };
  for (int c : step.cells) add(c);
  for (int c : step.fins) add(c);
  for (const CellGroup& g : step.groups)
    for (int c : g.cells) add(c);
  for (const ChainNode& n : step.chain)
    for (int c : n.cells) add(c);
  for (const Branch& b : step.branches) add(b.cell);
  for (const Candidate& p : step.placements) add(p.cell);
  for (const Candidate& e : step.eliminations) add(e.cell);
  std::vector<int> cells;
  for (int c = 0; c < kCells; ++c)
    if (in[std::size_t(c)]) cells.push_back(c + 1);
  return cells;
}

}  // namespace tessaly
