#pragma once
// Solving by hand on the ManualSolve tab: selecting cells, placing and clearing
// values with an immediate check, the move list that doubles as the undo stack,
// and the row and column summaries of the digits still possible.

#include <array>
#include <string>
#include <vector>

#include "model/CandidateSet.h"
#include "model/Event.h"
#include "model/PuzzleGrid.h"
#include "solver/ReadPuzzle.h"

namespace tessaly {

class Session;

/// The colours manual play needs beyond the solver's: the window implements it,
/// the tests and the command line use the do-nothing default.
class ManualDisplay {
 public:
  virtual ~ManualDisplay() = default;
  /// Draws the cell in the selected-cell back and fore colours.
  virtual void paintSelected(int /*cell*/) {}
  /// Gives the cell its ordinary colours back (the given colours for a given).
  virtual void paintNormal(int /*cell*/) {}
  /// Marks the cell that a refused placement would leave without choices (red).
  virtual void paintRefused(int /*cell*/) {}
  /// Draws the nine cells of box 1..9 in the box highlight colour, raised.
  virtual void highlightBox(int /*box*/) {}
  /// Restores the box's cells (given colour for givens, normal colour otherwise).
  virtual void unhighlightBox(int /*box*/) {}
  /// Brings the window up to date now, before a message box opens.
  virtual void repaint() {}
};

/// The manual-play state over a session's grid. The moves live as long as the
/// puzzle on the board: another puzzle (read, created or typed in) empties
/// them, and when the ManualSolve tab is current starts manual play afresh.
class ManualPlay {
 public:
  /// The value that asks placeManualValue (and typed) to clear the cell.
  static constexpr int kClear = -2;

  explicit ManualPlay(Session& session, ManualDisplay* display = nullptr);
  ~ManualPlay();
  ManualPlay(const ManualPlay&) = delete;
  ManualPlay& operator=(const ManualPlay&) = delete;

  /// The cell that keyboard entry and the drop-down act on (0 before any).
  int selectedCell = 0;
  /// The cell drawn in the selection colours, -1 when none.
  int highlightedCell = -1;
  /// The candidates of the selected cell, as its candidate label showed them
  /// when it was selected (the window shows them in `CellChoice`).
  CandidateSet cellChoice;
  /// One accepted placement by hand: the cell and the value placed.
  struct Move {
    int cell = 0;
    int after = 0;
  };
  /// Accepted placements, oldest first; undo and the move list read them.
  std::vector<Move> moves;
  /// The move list as shown, one line per move: "C05 = 7".
  std::vector<std::string> LogManual() const;
  /// Digits still possible per row (index r-1) and per column (index c-1).
  std::array<std::string, 9> PossibleInRow{};
  std::array<std::string, 9> PossibleInCol{};

  /// True while the ManualSolve tab is current; the user events do nothing otherwise.
  bool active() const;

  // --- user events
  /// A click on cell 1..81. A given becomes the selected cell and nothing else changes.
  void selectCell(int cell);
  /// A digit key (1..9) or the Delete key (kClear) on the grid, for the
  /// selected cell. A digit that is not among its choices is swallowed; a
  /// given takes nothing.
  void typed(int value);
  /// A double-click on a cell: selects it and returns the digits the drop-down
  /// shows (those in cellChoice, ascending; none for a given).
  std::vector<int> dropDownDigits(int cell);
  /// Drop-down item d chosen: places d in the selected cell.
  void chooseDropDown(int digit);
  /// The UndoManual button: takes the newest placement back.
  void undo();
  /// A click on move-list entry `index` (0-based): selects and highlights its cell.
  void moveListClicked(int index);
  /// The ClearManual button: reads the current puzzle again, discarding all manual work.
  ReadResult clearManual();

  // --- operations
  /// The one way a value gets into the grid by hand: value 1..9, or kClear.
  /// Checks the placement at once and refuses it when an empty cell would be
  /// left without choices. Givens are never changed.
  void placeManualValue(int cell, int value);
  /// Drops the move of the cell (the first from the top), if any.
  void removeManualLogEntry(int cell);
  /// Recomputes the candidates from the values and rewrites the summaries.
  void refreshCandidateSummaries();
  /// A puzzle was read while the tab is current: empty move list, fresh
  /// summaries, nothing selected.
  void prepare();
  /// The tab was shown again: fresh summaries, nothing selected; the moves stay.
  void resetSelection();
  /// Box highlighting for the window (explanations, box frames).
  void highlightBox(int box);
  void unhighlightBox(int box);
  /// Lets the window draw what changed before a message box opens.
  void repaint() { m_display->repaint(); }

  Session& session() { return s; }

 private:
  /// Restores the colours of the highlighted cell, paints `cell` selected and
  /// makes it the highlighted one.
  void moveHighlightTo(int cell);

  Session& s;
  ManualDisplay m_noDisplay;
  ManualDisplay* m_display;
  Event::Subscription m_puzzleLoaded;  ///< last, so it ends before the rest goes
};


/// The cells (1..81, true) whose value repeats in their row, column or box:
/// what the board draws in red while a game is played.
std::array<bool, 82> repeatedValues(const PuzzleGrid& grid);

}  // namespace tessaly
