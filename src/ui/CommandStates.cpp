#include "ui/CommandStates.h"

namespace tessaly {

CommandStates commandStates(const Session& s) {
  const RunActivity run = s.run.activity;
  const bool idle = run == RunActivity::None;
  CommandStates states;
  states.start = idle && s.grid.filledCount() < kCells;
  states.next = run == RunActivity::Stepping && s.run.mode != RunState::NoPause;
  states.solve = idle || run == RunActivity::Stepping;
  const bool puzzleToGoBackTo = !s.collection.CurrentFile.empty() && s.collection.CurrentPuzzleNumber > 0;
  states.clear = idle && puzzleToGoBackTo && (!s.collection.boardFromFile || s.grid.valueCode() != s.collection.boardAsRead);
  states.edit = idle;
  states.views = run != RunActivity::Creating;
  return states;
}

}  // namespace tessaly
