#pragma once
// The game in progress on the ManualSolve tab, over `ManualPlay`: the
// player's notes, every change of the board as one command on an undo stack
// (undo and redo), the coach's verdict on each placement and note removed,
// the nudge, and the record a game file keeps.
//
// Every change the player makes goes through a Game, which records it: the
// window calls `typed`, `typedNote`, `toggleNote`, `chooseDropDown`,
// `undoButton`, `fillInNotes` and `apply`, and wraps any other change of the
// board by hand (a right click on a placement of the hint list) in `act`.
// ManualPlay still places and checks the values, keeps the move list
// (`LogManual`) and shows its messages exactly as before.
//
// The move list and the stack: a command records the move list before and
// after it, as it records the cells, so Undo puts the list back as it was
// before the command and Redo as it was after. For a placement in an empty
// cell this drops the same entry the UndoManual button's undo drops. The
// UndoManual button itself is a command (it clears the newest placement, as
// it always did), so Ctrl+Z after it brings that placement and its entry back.
//
// Cells are 1..81 and digits 1..9 throughout.

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "model/Event.h"
#include "play/Coach.h"
#include "play/ManualPlay.h"

namespace tessaly {

/// What a command did, for the window's Undo and Redo captions and the game file.
enum class CommandKind {
  Place,       ///< a digit placed (a key, the drop-down, a hint's placement)
  Clear,       ///< a value cleared (the Delete key)
  Note,        ///< a note toggled
  FillNotes,   ///< "Fill in notes"
  Apply,       ///< the nudge's step applied
  UndoButton,  ///< the UndoManual button
};

/// One cell's value and notes before and after a command.
struct CellChange {
  int cell = 0;
  int valueBefore = 0;
  int valueAfter = 0;
  std::uint16_t notesBefore = 0;
  std::uint16_t notesAfter = 0;
  friend bool operator==(const CellChange&, const CellChange&) = default;
};

/// How a command changed the move list: from index `at`, the entries
/// `removed` gave way to `added`.
struct MoveListChange {
  int at = 0;
  std::vector<ManualPlay::Move> removed;
  std::vector<ManualPlay::Move> added;
};

/// One change of the board, undoable and redoable: the cells it touched
/// (ascending) and its change of the move list.
struct GameCommand {
  CommandKind kind = CommandKind::Place;
  std::vector<CellChange> cells;
  MoveListChange moves;
};

/// The player's choices for the game.
struct GameOptions {
  /// A placed digit is taken out of the notes of its row, column and box.
  bool clearNotesOnPlace = true;
  /// "Tell me when a move is wrong": the coach says so (off by default, so a
  /// player can find their own mistake).
  bool tellWrongMoves = false;
};

/// What a game file holds (GameFile.h reads and writes it).
struct GameRecord {
  std::string source;  ///< the collection the puzzle was read from; "" when none
  int number = 0;      ///< its number there; 0 when none
  std::string givens;  ///< 81 characters: the givens' digits, '.' for a blank
  int elapsedSeconds = 0;
  std::vector<GameCommand> commands;  ///< oldest first
  std::size_t done = 0;               ///< how many are done; the rest can be redone
};

class Game {
 public:
  explicit Game(ManualPlay& play);
  Game(const Game&) = delete;
  Game& operator=(const Game&) = delete;

  GameOptions options;
  /// The clock of the game, which the window advances; saved with the game.
  int elapsedSeconds = 0;

  ManualPlay& play() { return m_play; }
  /// The player's notes (index 1..81).
  const NoteGrid& notes() const { return m_notes; }
  /// The values on the board and the notes.
  Position position() const;
  /// The puzzle's solutions, counted from the givens once per puzzle.
  const SolutionInfo& solution();

  // --- moves: each change is one command. A move that changes nothing (a key
  // swallowed, a placement refused) records nothing. What returns a verdict
  // returns it when there is a line to show (never for a Silent verdict).

  /// A digit key (1..9) or Delete (ManualPlay::kClear) on the selected cell,
  /// as ManualPlay::typed takes it; the verdict on a placement.
  std::optional<Verdict> typed(int value);
  /// A drop-down item chosen for the selected cell.
  std::optional<Verdict> chooseDropDown(int digit);
  /// Toggles note `digit` of `cell` (an empty cell that is not a given); the
  /// verdict when the note was taken out.
  std::optional<Verdict> toggleNote(int cell, int digit);
  /// A digit key in notes mode (or Shift+digit): toggles it on the selected cell.
  std::optional<Verdict> typedNote(int digit);
  /// The UndoManual button: ManualPlay::undo ("nothing to undo" included), recorded.
  void undoButton();
  /// "Fill in notes": every empty cell's notes become the digits its row,
  /// column and box leave it. False when nothing changed.
  bool fillInNotes();
  /// Any other change of the board by hand, run and recorded as one command
  /// of `kind` (a placement it makes clears notes and gets a verdict as a
  /// key's does).
  std::optional<Verdict> act(CommandKind kind, const std::function<void()>& change);

  /// "Check notes": the cells whose notes lost their solution digit.
  NotesCheck checkNotes();

  /// The Nudge command: the easiest step of Session::controls.techniques on
  /// the player's board, one level further each time it is asked for while
  /// the step stays the same (up to 4), from level 1 for another step.
  Nudge nudge();
  /// Apply, offered by a nudge at level 4: its step as one command (a
  /// placement through ManualPlay, a removal out of the cell's notes, or,
  /// for a cell without notes, its notes written without the digit). False
  /// when the last nudge offers no Apply or its step no longer holds.
  bool apply();

  // --- the stack
  bool canUndo() const { return m_done > 0; }
  bool canRedo() const { return m_done < m_commands.size(); }
  /// Ctrl+Z / Ctrl+Shift+Z: takes the newest done command back or does the
  /// next undone one again. False when there is none, or when the board was
  /// changed behind the game's back (the stack is then dropped).
  bool undo();
  bool redo();
  const std::vector<GameCommand>& commands() const { return m_commands; }
  std::size_t done() const { return m_done; }

  // --- game files
  /// The game as a game file keeps it.
  GameRecord record() const;
  /// Puts a read game on the board: its puzzle (read again from its
  /// collection when that still holds it, else from the givens, as a puzzle
  /// typed in), then its commands. The record must come from readGameFile or
  /// parseGameText, which checked it.
  void resume(const GameRecord& record);

 private:
  struct State {
    Position position;
    std::vector<ManualPlay::Move> moves;
  };
  State state() const;
  /// Puts the commands' cells and move list to their `after` (forward) or `before` state.
  void replay(const GameCommand& command, bool forward);
  bool matches(const GameCommand& command, bool forward) const;
  void push(GameCommand command);
  void reset();

  ManualPlay& m_play;
  NoteGrid m_notes{};
  std::vector<GameCommand> m_commands;
  std::size_t m_done = 0;
  std::optional<SolutionInfo> m_solution;
  std::optional<Nudge> m_lastNudge;
  Event::Subscription m_puzzleLoaded;  ///< last, so it ends before the rest goes
};

/// "Resume the game of puzzle 40?" (or "Resume the game in progress?" for a
/// puzzle of no collection).
std::string resumeQuestion(const GameRecord& record);

}  // namespace tessaly
