#include "play/ManualPlay.h"

#include <algorithm>

#include "model/Session.h"
#include "solver/ReadPuzzle.h"
#include "solver/SolverEngine.h"

namespace tessaly {

namespace {
bool isCell(int cell) { return cell >= 1 && cell <= kCells; }

CandidateSet united(CandidateSet a, CandidateSet b) { return CandidateSet::fromBits(std::uint16_t(a.bits() | b.bits())); }

// A column summary: every digit followed by two blanks, shortened to
// "1  .  .  9" when all nine are still possible.
std::string columnSummary(const CandidateSet& digits) {
  if (digits == CandidateSet::full()) return "1  .  .  9";
  std::string text;
  for (char d : digits.text()) {
    text.push_back(d);
    text.append("  ");
  }
  return text;
}
}  // namespace


ManualPlay::ManualPlay(Session& session, ManualDisplay* display)
    : s(session),
      m_display(display ? display : &m_noDisplay),
      m_puzzleLoaded(session.puzzleLoaded.subscribe([this] {
        if (active()) {
          prepare();
        } else {
          // The cell selected on the earlier puzzle means nothing on this one.
          moves.clear();
          resetSelection();
        }
      })) {}

ManualPlay::~ManualPlay() = default;

bool ManualPlay::active() const { return s.controls.currentTab == Tab::ManualSolve; }

void ManualPlay::moveHighlightTo(int cell) {
  if (highlightedCell != -1) m_display->paintNormal(highlightedCell);
  m_display->paintSelected(cell);
  highlightedCell = cell;
}

void ManualPlay::selectCell(int cell) {
  if (!active() || !isCell(cell)) return;
  selectedCell = cell;
  if (s.grid[cell].given) return;
  cellChoice = s.grid[cell].candidates;
  moveHighlightTo(cell);
}

void ManualPlay::typed(int value) {
  if (!active() || !isCell(selectedCell) || s.grid[selectedCell].given) return;
  // Only a digit among the cell's choices goes in; any other is swallowed.
  if (value != kClear && !cellChoice.has(value)) return;
  placeManualValue(selectedCell, value);
}

std::vector<int> ManualPlay::dropDownDigits(int cell) {
  std::vector<int> digits;
  if (!active() || !isCell(cell)) return digits;
  selectCell(cell);
  if (s.grid[cell].given) return digits;  // a given offers nothing to choose
  for (int d = 1; d <= 9; ++d)
    if (cellChoice.has(d)) digits.push_back(d);
  return digits;
}

void ManualPlay::chooseDropDown(int digit) {
  if (!active() || !isCell(selectedCell) || s.grid[selectedCell].given) return;
  if (!cellChoice.has(digit)) return;
  placeManualValue(selectedCell, digit);
}

void ManualPlay::placeManualValue(int cell, int value) {
  if (!isCell(cell) || s.grid[cell].given) return;
  if (value != kClear && (value < 1 || value > 9)) return;
  moveHighlightTo(cell);
  if (value == kClear) {
    s.grid[cell].value = 0;
    removeManualLogEntry(cell);
    refreshCandidateSummaries();
    return;
  }

  s.grid[cell].value = value;
  SolverEngine(s).computeCandidates(false);
  int dead = 0;
  for (int c = 1; c <= kCells && !dead; ++c)
    if (!s.grid[c].value && s.grid[c].candidates.empty()) dead = c;

  if (!dead) {
    selectedCell = cell;
    moves.push_back({cell, value});
    refreshCandidateSummaries();
    cellChoice = s.grid[selectedCell].candidates;
    if (s.BlanksLeft == 0) s.message("Puzzle is solved");
    return;
  }

  // Refused: the dead cell stays red while the message is open. The candidates
  // are left as computed with the rejected value in place; the next
  // recomputation puts them right.
  m_display->paintRefused(dead);
  m_display->repaint();
  const std::string advice =
      cellChoice.size() == 1 ? "You must now undo previous placements" : "Select another choice for this cell";
  s.message("placing" + num(value) + " in this cell will result in no choices for cell" + num(dead) + "\n" + advice);
  m_display->paintNormal(dead);
  s.grid[cell].value = 0;
  m_display->paintNormal(cell);
  highlightedCell = -1;
}

void ManualPlay::removeManualLogEntry(int cell) {
  const auto it = std::find_if(moves.begin(), moves.end(), [cell](const Move& m) { return m.cell == cell; });
  if (it != moves.end()) moves.erase(it);
}

void ManualPlay::refreshCandidateSummaries() {
  SolverEngine(s).computeCandidates(false);
  // The summaries gather the candidate captions as the labels show them, so a
  // given contributes its own digit.
  for (int n = 1; n <= 9; ++n) {
    CandidateSet row, col;
    for (int c : areaCells(AreaKind::Row, n)) row = united(row, s.grid[c].candidates);
    for (int c : areaCells(AreaKind::Col, n)) col = united(col, s.grid[c].candidates);
    PossibleInRow[std::size_t(n - 1)] = row.text();
    PossibleInCol[std::size_t(n - 1)] = columnSummary(col);
  }
}

void ManualPlay::undo() {
  if (!active()) return;
  if (moves.empty()) {
    s.message("nothing to undo");
    return;
  }
  const int cell = moves.back().cell;
  selectedCell = cell;
  placeManualValue(cell, kClear);
  if (highlightedCell != -1) m_display->paintNormal(highlightedCell);
  highlightedCell = -1;
}

void ManualPlay::moveListClicked(int index) {
  if (!active() || index < 0 || index >= int(moves.size())) return;
  const int cell = moves[std::size_t(index)].cell;
  if (!isCell(cell)) return;
  moveHighlightTo(cell);
  selectedCell = cell;
}

ReadResult ManualPlay::clearManual() {
  if (!active()) return {};
  // Reading the puzzle again resets grid and candidates; with the tab current
  // the read calls prepare, which empties the move list.
  return clearCommand(s);
}

std::vector<std::string> ManualPlay::LogManual() const {
  std::vector<std::string> lines;
  for (const Move& m : moves) lines.push_back("C" + padded(m.cell, 2) + " = " + trimmed(std::to_string(m.after)));
  return lines;
}

void ManualPlay::prepare() {
  moves.clear();
  resetSelection();
}

void ManualPlay::resetSelection() {
  if (highlightedCell != -1) m_display->paintNormal(highlightedCell);
  highlightedCell = -1;
  selectedCell = 0;
  cellChoice = {};
  refreshCandidateSummaries();
}

void ManualPlay::highlightBox(int box) {
  if (box >= 1 && box <= 9) m_display->highlightBox(box);
}

void ManualPlay::unhighlightBox(int box) {
  if (box >= 1 && box <= 9) m_display->unhighlightBox(box);
}

std::array<bool, 82> repeatedValues(const PuzzleGrid& grid) {
  // How often each digit stands in each row, column and box.
  std::array<std::array<int, 10>, 10> inRow{}, inCol{}, inBox{};
  for (int c = 1; c <= kCells; ++c)
    if (const int v = grid[c].value; v >= 1 && v <= 9) {
      ++inRow[std::size_t(CellRow[c])][std::size_t(v)];
      ++inCol[std::size_t(CellCol[c])][std::size_t(v)];
      ++inBox[std::size_t(CellBox[c])][std::size_t(v)];
    }
  std::array<bool, 82> repeated{};
  for (int c = 1; c <= kCells; ++c)
    if (const int v = grid[c].value; v >= 1 && v <= 9)
      repeated[std::size_t(c)] = inRow[std::size_t(CellRow[c])][std::size_t(v)] > 1 ||
                                 inCol[std::size_t(CellCol[c])][std::size_t(v)] > 1 ||
                                 inBox[std::size_t(CellBox[c])][std::size_t(v)] > 1;
  return repeated;
}

}  // namespace tessaly
