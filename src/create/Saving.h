#pragma once
// Saving puzzles into the current collection (`CurrentFile`). All three
// operations write through saveGridToFile, so what lands in the file is always
// the puzzle's givens under the next "#" number of the file (in a one-per-line
// file: one more line of 81 cells).

#include <functional>
#include <string>

#include "create/Creation.h"

namespace tessaly {

class Session;

inline constexpr const char* kSaveQuestion = "Save this puzzle?";
inline constexpr const char* kCreateFirst = "Create a valid puzzle first";
inline constexpr const char* kSolveFirst = "Solve this puzzle first before saving";

/// Save new puzzle (`SaveNewCommand`): needs at least one cell with a value,
/// asks "Save this puzzle?" and appends the givens. True when a puzzle was written.
bool saveNewCommand(Session& session);

/// Save this puzzle (menu entry `mnuSave2InFile`): needs every cell filled (by
/// solving or by hand), asks, appends the givens and clears the status text (`MesLab`).
bool saveThisPuzzleCommand(Session& session);

/// What the batch needs from the Create tab.
struct AutoSaveRequest {
  /// The number of puzzles to create (none for 0 or less).
  long long count = 0;
  /// The `NumCreate` box as typed: shown there again when the batch ends and
  /// told as the count in its last message.
  std::string countTyped;
  /// The Create tab's settings, as for the Create command.
  CreateSettings create;
  /// Shows a text in the `NumCreate` box: the number still to go after each
  /// saved puzzle, and `countTyped` again at the end. May be empty.
  std::function<void(const std::string&)> showNumCreate;
};

struct AutoSaveResult {
  int saved = 0;  ///< puzzles actually written to the collection
  /// The Create tab's settings after the last creation (`blanks` rewritten,
  /// the option applied), for the window to show.
  CreateSettings create;
  bool writeFailed = false;  ///< stopped because the collection could not be written
  bool gradeNotReached = false;  ///< stopped because a puzzle of the target grade was not made
};

/// Create and save a batch (`AutoSaveCommand`): runs the Create command
/// `count` times and appends each created puzzle to the collection; a
/// creation that failed is skipped and the batch goes on, but one that did not
/// reach the target grade ends the batch (its message is the only one).
AutoSaveResult autoSaveCommand(Session& session, const AutoSaveRequest& request);

/// The message after a save: "Puzzle#" + total + " added to file: " + path.
std::string puzzleAddedMessage(int total, const std::string& path);

}  // namespace tessaly
