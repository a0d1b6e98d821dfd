#pragma once
// Collection files (*.sud): numbered puzzles, each a line starting with "#"
// followed by nine row lines. Puzzles are found by position: the N-th line that
// begins with "#" heads puzzle N, whatever number it carries.

#include <optional>
#include <string>
#include <vector>

namespace tessaly {

class Session;

/// The number of lines beginning with "#"; 0 when the file cannot be read.
int countPuzzles(const std::string& path);

/// What reading puzzle N found.
struct PuzzleRowsRead {
  enum class Status { Found, NotFound, Incomplete, Unreadable } status = Status::Unreadable;
  std::vector<std::string> rows;  ///< nine row lines with "." and " " turned into "0"
};
/// Finds puzzle n (1-based) and its nine row lines.
PuzzleRowsRead readPuzzleRows(const std::string& path, int n);

/// Appends a puzzle of 81 characters (digits, "." for blanks) under the next
/// number, with an empty line before it unless the file is missing or empty.
/// Returns the number given to the new puzzle, or nothing when writing failed.
std::optional<int> appendPuzzle(const std::string& path, const std::string& text);

/// The grid's givens as 81 characters: the digit of each given, "." elsewhere.
std::string givensText(const Session& session);

/// Appends the current grid's givens to the collection and makes the new puzzle
/// the current one (number, title). False when the file could not be written.
bool saveGridToFile(Session& session, const std::string& path);

/// The one-line code "NN=" + 81 values, "0" for a blank.
std::string gridCode(const Session& session);

/// The puzzle numbers the previous / next / random buttons choose.
enum class NavButton { Previous = 0, Next = 1, Random = 2 };
/// The number to read for a button press given the number now in the box (n),
/// the total and the mouse button; 0 when there is nothing to do.
int navigationTarget(NavButton button, bool rightButton, int n, int total, double uniform);

/// The number typed in the puzzle-number box, when it is 1..total.
std::optional<int> typedPuzzleNumber(const std::string& text, int total);

}  // namespace tessaly
