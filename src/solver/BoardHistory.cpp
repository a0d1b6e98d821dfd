#include "solver/BoardHistory.h"

#include <algorithm>

namespace tessaly {

namespace {
// value: bits 0-3, given: bit 4, candidates: bits 5-13.
std::uint32_t pack(const Cell& cell) {
  return std::uint32_t(cell.value) | (cell.given ? 1u << 4 : 0u) | std::uint32_t(cell.candidates.bits()) << 5;
}
}  // namespace

void recordBoard(BoardHistory& history, const PuzzleGrid& grid, int line) {
  if (line <= history.lines()) history.clear();
  while (history.lines() < line - 1) history.lineEnd.push_back(int(history.changes.size()));
  for (int c = 1; c <= kCells; ++c) {
    const Cell& cell = grid[c];
    const std::uint32_t packed = pack(cell);
    std::uint32_t& last = history.last[std::size_t(c)];
    if (packed == last) continue;
    last = packed;
    history.changes.push_back({std::uint8_t(c), std::uint8_t(cell.value), cell.given, cell.candidates});
  }
  history.lineEnd.push_back(int(history.changes.size()));
}

PuzzleGrid boardAtLine(const BoardHistory& history, int line) {
  PuzzleGrid grid;
  const int lines = std::min(line, history.lines());
  const int end = lines > 0 ? history.lineEnd[std::size_t(lines - 1)] : 0;
  for (int i = 0; i < end; ++i) {
    const CellRecord& change = history.changes[std::size_t(i)];
    Cell& cell = grid[change.cell];
    cell.value = change.value;
    cell.given = change.given;
    cell.candidates = change.candidates;
  }
  return grid;
}

}  // namespace tessaly
