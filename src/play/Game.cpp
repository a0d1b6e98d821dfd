#include "play/Game.h"

#include <algorithm>
#include <filesystem>

#include "model/CollectionFile.h"
#include "model/Session.h"
#include "solver/BitGrid.h"
#include "solver/ReadPuzzle.h"
#include "solver/SolverEngine.h"

namespace tessaly {

namespace {

bool isCell(int cell) { return cell >= 1 && cell <= kCells; }
std::uint16_t bit(int digit) { return std::uint16_t(1u << (digit - 1)); }

bool sameMoves(const std::vector<ManualPlay::Move>& a, std::size_t from, const std::vector<ManualPlay::Move>& b) {
  if (from + b.size() > a.size()) return false;
  for (std::size_t i = 0; i < b.size(); ++i)
    if (a[from + i].cell != b[i].cell || a[from + i].after != b[i].after) return false;
  return true;
}

/// The change from one move list to another: what lies between their common
/// beginning and their common end.
MoveListChange moveListChange(const std::vector<ManualPlay::Move>& before, const std::vector<ManualPlay::Move>& after) {
  auto same = [](const ManualPlay::Move& a, const ManualPlay::Move& b) { return a.cell == b.cell && a.after == b.after; };
  std::size_t head = 0;
  while (head < before.size() && head < after.size() && same(before[head], after[head])) ++head;
  std::size_t tail = 0;
  while (tail < before.size() - head && tail < after.size() - head &&
         same(before[before.size() - 1 - tail], after[after.size() - 1 - tail]))
    ++tail;
  MoveListChange change;
  change.at = int(head);
  change.removed.assign(before.begin() + std::ptrdiff_t(head), before.end() - std::ptrdiff_t(tail));
  change.added.assign(after.begin() + std::ptrdiff_t(head), after.end() - std::ptrdiff_t(tail));
  return change;
}

}  // namespace

Game::Game(ManualPlay& play)
    : m_play(play), m_puzzleLoaded(play.session().puzzleLoaded.subscribe([this] { reset(); })) {}

void Game::reset() {
  m_notes.fill(0);
  m_commands.clear();
  m_done = 0;
  m_solution.reset();
  m_lastNudge.reset();
  elapsedSeconds = 0;
}

Position Game::position() const {
  Position p = positionOf(m_play.session().grid);
  p.notes = m_notes;
  return p;
}

const SolutionInfo& Game::solution() {
  if (!m_solution) m_solution = solutionOf(m_play.session().grid);
  return *m_solution;
}

Game::State Game::state() const { return {position(), m_play.moves}; }

void Game::push(GameCommand command) {
  m_commands.resize(m_done);  // a new command drops what could be redone
  m_commands.push_back(std::move(command));
  m_done = m_commands.size();
}

std::optional<Verdict> Game::act(CommandKind kind, const std::function<void()>& change) {
  Session& s = m_play.session();
  const State before = state();
  change();
  // A digit placed takes the notes of its cell, and (when asked) of its row,
  // column and box.
  int placedCell = 0;
  for (int c = 1; c <= kCells; ++c) {
    const int was = before.position.value[std::size_t(c)];
    const int now = s.grid[c].value;
    if (now == was || !now) continue;
    placedCell = placedCell ? -1 : c;
    m_notes[std::size_t(c)] = 0;
    if (options.clearNotesOnPlace)
      for (std::uint8_t p : bitgrid::kPeers[std::size_t(c - 1)]) m_notes[std::size_t(p + 1)] &= std::uint16_t(~bit(now));
  }
  const State after = state();

  GameCommand command;
  command.kind = kind;
  for (int c = 1; c <= kCells; ++c) {
    const auto i = std::size_t(c);
    if (before.position.value[i] != after.position.value[i] || before.position.notes[i] != after.position.notes[i])
      command.cells.push_back({c, before.position.value[i], after.position.value[i], before.position.notes[i],
                               after.position.notes[i]});
  }
  command.moves = moveListChange(before.moves, after.moves);
  if (command.cells.empty() && command.moves.removed.empty() && command.moves.added.empty()) return std::nullopt;
  push(std::move(command));

  if (kind != CommandKind::Place || placedCell <= 0) return std::nullopt;
  const Verdict v = judgePlacement(before.position, placedCell, s.grid[placedCell].value, solution(),
                                   {s.controls.techniques, options.tellWrongMoves});
  if (v.kind == VerdictKind::Silent) return std::nullopt;
  return v;
}

std::optional<Verdict> Game::typed(int value) {
  return act(value == ManualPlay::kClear ? CommandKind::Clear : CommandKind::Place, [&] { m_play.typed(value); });
}

std::optional<Verdict> Game::chooseDropDown(int digit) {
  return act(CommandKind::Place, [&] { m_play.chooseDropDown(digit); });
}

std::optional<Verdict> Game::toggleNote(int cell, int digit) {
  Session& s = m_play.session();
  if (!isCell(cell) || digit < 1 || digit > 9 || s.grid[cell].given || s.grid[cell].value) return std::nullopt;
  const Position before = position();
  const bool removing = (m_notes[std::size_t(cell)] & bit(digit)) != 0;
  act(CommandKind::Note, [&] { m_notes[std::size_t(cell)] ^= bit(digit); });
  if (!removing) return std::nullopt;
  const Verdict v = judgeNoteRemoval(before, cell, digit, solution(), {s.controls.techniques, options.tellWrongMoves});
  if (v.kind == VerdictKind::Silent) return std::nullopt;
  return v;
}

std::optional<Verdict> Game::typedNote(int digit) {
  if (!m_play.active()) return std::nullopt;
  return toggleNote(m_play.selectedCell, digit);
}

void Game::undoButton() {
  act(CommandKind::UndoButton, [&] { m_play.undo(); });
}

bool Game::fillInNotes() {
  const std::size_t count = m_commands.size();
  const std::size_t done = m_done;
  const TechniqueBoard board = playerBoard(positionOf(m_play.session().grid), false);
  act(CommandKind::FillNotes, [&] {
    for (int c = 1; c <= kCells; ++c) m_notes[std::size_t(c)] = board.cand[std::size_t(c - 1)];
  });
  return m_done != done || m_commands.size() != count;
}

NotesCheck Game::checkNotes() { return tessaly::checkNotes(position(), solution()); }

Nudge Game::nudge() {
  const bool unique = solution().unique();
  const TechniqueBoard board = playerBoard(position(), unique);
  const std::optional<TechniqueStep> step = findEasiestStep(board, m_play.session().controls.techniques, true);
  if (!step) {
    m_lastNudge.reset();
    return nudgeAt(board, m_play.session().controls.techniques, 1);
  }
  const int level = m_lastNudge && m_lastNudge->step == step ? std::min(m_lastNudge->level + 1, kNudgeLevels) : 1;
  m_lastNudge = tellStep(*step, level);
  return *m_lastNudge;
}

bool Game::apply() {
  if (!m_lastNudge || !m_lastNudge->canApply()) return false;
  const TechniqueBoard board = playerBoard(position(), solution().unique());
  const std::optional<TechniqueStep> step = findEasiestStep(board, m_play.session().controls.techniques, true);
  if (step != m_lastNudge->step) return false;
  const std::size_t done = m_done;
  act(CommandKind::Apply, [&] {
    for (const Candidate& e : step->eliminations) {
      std::uint16_t& notes = m_notes[std::size_t(e.cell + 1)];
      // A cell without notes gets the candidates the step leaves it.
      if (!notes) notes = board.cand[std::size_t(e.cell)];
      notes &= std::uint16_t(~bit(e.digit));
    }
    for (const Candidate& p : step->placements) m_play.placeManualValue(p.cell + 1, p.digit);
  });
  m_lastNudge.reset();
  return m_done != done;
}

bool Game::matches(const GameCommand& command, bool forward) const {
  // forward: the board must stand as before the command; backward: as after it.
  const PuzzleGrid& grid = m_play.session().grid;
  for (const CellChange& c : command.cells) {
    const int value = forward ? c.valueBefore : c.valueAfter;
    const std::uint16_t notes = forward ? c.notesBefore : c.notesAfter;
    if (grid[c.cell].given || grid[c.cell].value != value || m_notes[std::size_t(c.cell)] != notes) return false;
  }
  return sameMoves(m_play.moves, std::size_t(command.moves.at), forward ? command.moves.removed : command.moves.added);
}

void Game::replay(const GameCommand& command, bool forward) {
  Session& s = m_play.session();
  for (const CellChange& c : command.cells) {
    s.grid[c.cell].value = forward ? c.valueAfter : c.valueBefore;
    m_notes[std::size_t(c.cell)] = forward ? c.notesAfter : c.notesBefore;
  }
  std::vector<ManualPlay::Move>& moves = m_play.moves;
  const std::vector<ManualPlay::Move>& out = forward ? command.moves.removed : command.moves.added;
  const std::vector<ManualPlay::Move>& in = forward ? command.moves.added : command.moves.removed;
  const auto at = moves.begin() + command.moves.at;
  moves.erase(at, at + std::ptrdiff_t(out.size()));
  moves.insert(moves.begin() + command.moves.at, in.begin(), in.end());
}

bool Game::undo() {
  if (!canUndo()) return false;
  const GameCommand& command = m_commands[m_done - 1];
  if (!matches(command, false)) {
    m_commands.clear();
    m_done = 0;
    return false;
  }
  replay(command, false);
  --m_done;
  m_play.refreshCandidateSummaries();
  m_play.cellChoice = m_play.session().grid[std::clamp(m_play.selectedCell, 0, kCells)].candidates;
  return true;
}

bool Game::redo() {
  if (!canRedo()) return false;
  const GameCommand& command = m_commands[m_done];
  if (!matches(command, true)) {
    m_commands.resize(m_done);
    return false;
  }
  replay(command, true);
  ++m_done;
  m_play.refreshCandidateSummaries();
  m_play.cellChoice = m_play.session().grid[std::clamp(m_play.selectedCell, 0, kCells)].candidates;
  return true;
}

GameRecord Game::record() const {
  const Session& s = m_play.session();
  GameRecord r;
  if (s.collection.boardFromFile) {
    r.source = s.collection.CurrentFile;
    r.number = s.collection.CurrentPuzzleNumber;
  }
  r.givens.assign(std::size_t(kCells), '.');
  for (int c = 1; c <= kCells; ++c)
    if (s.grid[c].given && s.grid[c].value) r.givens[std::size_t(c - 1)] = char('0' + s.grid[c].value);
  r.elapsedSeconds = elapsedSeconds;
  r.commands = m_commands;
  r.done = m_done;
  return r;
}

void Game::resume(const GameRecord& record) {
  Session& s = m_play.session();
  auto givensOnBoard = [&] {
    for (int c = 1; c <= kCells; ++c) {
      const char ch = record.givens[std::size_t(c - 1)];
      const int v = ch >= '1' && ch <= '9' ? ch - '0' : 0;
      if (s.grid[c].given != (v != 0) || (v && s.grid[c].value != v)) return false;
    }
    return true;
  };
  // Whether the collection still holds the game's puzzle under its number:
  // looked at before the board is touched, so that a collection since changed
  // or emptied neither shows another puzzle on the way nor speaks of a file
  // the user did not ask for.
  const auto stillHeld = [&] {
    std::error_code error;
    if (record.source.empty() || record.number <= 0 || !std::filesystem::is_regular_file(record.source, error))
      return false;
    const PuzzleRowsRead read = readPuzzleRows(record.source, record.number);
    if (read.status != PuzzleRowsRead::Status::Found) return false;
    std::string givens = read.cells();
    for (char& ch : givens)
      if (ch < '1' || ch > '9') ch = '.';
    return givens == record.givens;
  };
  bool loaded = false;
  if (stillHeld()) {
    s.collection.CurrentFile = record.source;
    loaded = readPuzzle(s, record.source, record.number).analysed && givensOnBoard();
  }
  // Else the puzzle as if typed in.
  if (!loaded) enterPuzzle(s, record.givens);
  // The puzzle's arrival emptied the game; now its commands come back.
  m_play.moves.clear();
  m_commands = record.commands;
  for (std::size_t i = 0; i < record.done && i < m_commands.size(); ++i) replay(m_commands[i], true);
  m_done = std::min(record.done, m_commands.size());
  elapsedSeconds = record.elapsedSeconds;
  m_play.refreshCandidateSummaries();
}

std::string resumeQuestion(const GameRecord& record) {
  return record.number > 0 ? "Resume the game of puzzle " + std::to_string(record.number) + "?"
                           : std::string("Resume the game in progress?");
}

}  // namespace tessaly
