#pragma once
// Recording the board beside the event log, and rebuilding it as any line saw it.

#include "model/PuzzleGrid.h"
#include "model/SolveState.h"

namespace tessaly {

/// Records the board as log line `line` sees it. Lines skipped since the last
/// record are taken to have seen the board as it was then; a line at or before
/// the last recorded one means the log was emptied, and the history starts anew.
void recordBoard(BoardHistory& history, const PuzzleGrid& grid, int line);

/// The board as log line `line` (1-based) saw it: every cell's value, given
/// mark and candidates. Lines beyond the last recorded one see the last board,
/// line 0 an empty one.
PuzzleGrid boardAtLine(const BoardHistory& history, int line);

}  // namespace tessaly
