#pragma once
// The coach of ManualSolve, as functions of a position: the board the player
// sees (their values, and their notes where they keep notes), the verdict on
// a placement or a note removed, the nudge (the next step told in four
// levels) and the check of the notes against the solution. Nothing here
// changes a session; `Game` (Game.h) keeps the position and calls these.
//
// Cells are 1..81 in the records and texts (as everywhere the user sees
// them); a `TechniqueStep` keeps the finders' numbering (0..80).

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "model/HintLine.h"
#include "model/TechniqueStep.h"
#include "solver/Techniques.h"

namespace tessaly {

class PuzzleGrid;

/// The player's notes: per cell (index 1..81, 0 unused) a 9-bit mask, bit
/// d-1 for digit d. A cell "keeps notes" when its mask is not 0.
using NoteGrid = std::array<std::uint16_t, 82>;

/// What the player has on the board: every cell's value (givens included, 0
/// for an empty cell; index 1..81) and their notes.
struct Position {
  std::array<int, 82> value{};
  NoteGrid notes{};
  friend bool operator==(const Position&, const Position&) = default;
};

/// The values of a grid as a position without notes.
Position positionOf(const PuzzleGrid& grid);

/// The puzzle's solutions as the coach knows them: counted from the givens,
/// no further than two.
struct SolutionInfo {
  int count = 0;       ///< 0, 1, or 2 for two or more
  std::string digits;  ///< the 81 digits of the solution when count is 1
  bool unique() const { return count == 1; }
  /// The solution's digit of cell 1..81 (unique puzzles only).
  int at(int cell) const { return digits[std::size_t(cell - 1)] - '0'; }
};
/// Counts the solutions of the puzzle made of the grid's givens.
SolutionInfo solutionOf(const PuzzleGrid& grid);

/// The board the nudge and the verdicts look at: the position's values; an
/// empty cell's candidates are its notes when it keeps notes (less the digits
/// its row, column and box already hold), else every digit they leave it.
TechniqueBoard playerBoard(const Position& position, bool uniqueSolution);

/// A technique's name as the coach says it inside a sentence ("hidden
/// single", "X-Wing"), and with its digit for the patterns of one digit
/// ("X-Wing on 7", "pointing on 4").
std::string coachName(Technique technique);
std::string coachLabel(const TechniqueStep& step);

// --- verdicts

enum class VerdictKind {
  Forced,    ///< right, and a technique turned on forces it on the board before the move
  Lucky,     ///< right, but nothing turned on forces it yet
  Wrong,     ///< not in the solution (told only when the player asked to be told)
  Unjudged,  ///< the puzzle has no single solution: the coach cannot judge
  Silent,    ///< wrong, but the player asked not to be told: nothing to show
};

/// What the coach says about one move: a digit placed, or a note taken out.
struct Verdict {
  VerdictKind kind = VerdictKind::Silent;
  bool placement = true;  ///< a placement; false for a note removed
  int cell = 0;           ///< 1..81
  int digit = 0;
  /// Forced: the easiest technique turned on that forces it (the six rules'
  /// rows for the singles); the step when a finder's step did it.
  std::optional<Technique> technique;
  std::optional<TechniqueStep> step;
  std::string text;  ///< the line for the hint list; "" when Silent
  /// The line for the hint list (kind Verdict, the move's cell and digit).
  HintLine line() const { return {HintKind::Verdict, cell, digit, text}; }
  friend bool operator==(const Verdict&, const Verdict&) = default;
};

/// How the coach judges: the techniques it may use, and whether it tells a
/// wrong move.
struct JudgeOptions {
  TechniqueSet techniques = TechniqueSet::rulesOnly();
  bool tellWrong = false;
};

/// The verdict on placing `digit` in empty cell `cell` of `before` (the
/// position just before the move). Forced means: some technique turned on,
/// applied alone to the player's board (a naked or hidden single at the cell
/// itself, or the first step its finder returns, after which the cell holds
/// the digit or has it as a naked or hidden single), places the digit there;
/// the easiest such technique in the table's order is named.
Verdict judgePlacement(const Position& before, int cell, int digit, const SolutionInfo& solution,
                       const JudgeOptions& options);

/// The verdict on taking note `digit` out of cell `cell` of `before`. Forced
/// means: the digit is already in the cell's row, column or box, or a single
/// (at the cell, or of the digit at a cell it sees) or the first step of a
/// technique turned on removes it.
Verdict judgeNoteRemoval(const Position& before, int cell, int digit, const SolutionInfo& solution,
                         const JudgeOptions& options);

/// The verdicts' fixed texts.
inline constexpr const char* kLuckyPlacement = "Right, but nothing forces it yet: a lucky guess";
inline constexpr const char* kLuckyRemoval = "Right, but nothing rules it out yet: a lucky guess";
inline constexpr const char* kCannotJudge =
    "The coach cannot judge moves here: this puzzle does not have exactly one solution";

// --- the nudge

/// The next step, told up to `level`: (1) the technique's name; (2) the areas
/// to look at; (3) the pattern's cells; (4) what it removes or places, which
/// Apply does.
struct Nudge {
  int level = 0;        ///< 1..4; 0 when no technique turned on finds a step
  std::string text;     ///< what this level says (kNoNudge at level 0)
  /// What levels 1..level say, in order (the last is `text`).
  std::vector<std::string> lines;
  std::vector<int> area;     ///< level 2 on: the cells of the areas to look at (1..81, ascending)
  std::vector<int> pattern;  ///< level 3 on: the pattern's cells (1..81, ascending)
  std::vector<Candidate> removals;    ///< level 4: the digits it removes (cells 1..81)
  std::vector<Candidate> placements;  ///< level 4: the digits it places (cells 1..81)
  std::optional<TechniqueStep> step;  ///< the step (cells 0..80), at every level
  /// Level 4 offers the step as Apply.
  bool canApply() const { return level == 4; }
  friend bool operator==(const Nudge&, const Nudge&) = default;
};
inline constexpr int kNudgeLevels = 4;
inline constexpr const char* kNoNudge = "No technique turned on finds a step here: the next step is a guess";

/// The easiest step of the techniques turned on (the six rules first) on the
/// player's board, told up to `level` (1..4).
Nudge nudgeAt(const TechniqueBoard& board, TechniqueSet techniques, int level);
/// The same step told at `level`.
Nudge tellStep(const TechniqueStep& step, int level);

// --- checking the notes

/// "Check notes": the cells keeping notes that have lost their solution digit.
struct NotesCheck {
  bool judged = false;     ///< false when the puzzle has no single solution
  std::vector<int> cells;  ///< 1..81, ascending
  std::string text;        ///< what the window says
  friend bool operator==(const NotesCheck&, const NotesCheck&) = default;
};
NotesCheck checkNotes(const Position& position, const SolutionInfo& solution);

}  // namespace tessaly
