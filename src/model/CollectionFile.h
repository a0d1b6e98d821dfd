#pragma once
// Collection files (*.sud): numbered puzzles, each a line starting with "#"
// followed by nine row lines. Puzzles are found by position: the N-th line that
// begins with "#" heads puzzle N, whatever number it carries.
//
// Two more forms are read as collections: one puzzle per line (81 cells, then
// the end of the line or a comment; blank lines and "#" lines skipped), and a
// file holding a single grid of nine lines of nine cells.

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tessaly {

class Session;

/// The largest file read as a collection.
inline constexpr long long kMaxCollectionBytes = 64LL * 1024 * 1024;

enum class CollectionForm {
  Numbered,    ///< "#" headers, each followed by nine row lines (*.sud)
  OnePerLine,  ///< one puzzle of 81 cells per line
  SingleGrid,  ///< nine lines of nine cells and nothing else
};

/// What a look through a collection file found.
struct CollectionScan {
  enum class Problem { None, Unreadable, TooLarge, Binary };
  Problem problem = Problem::Unreadable;
  CollectionForm form = CollectionForm::Numbered;
  int puzzles = 0;       ///< puzzles in the file (for the numbered form: its "#" lines)
  int badLines = 0;      ///< lines skipped because they are not puzzles (not for the numbered form)
  int firstBadLine = 0;  ///< 1-based number of the first of them
};
/// Finds the file's form and counts its puzzles. Reads a one-per-line file a
/// line at a time; refuses files over kMaxCollectionBytes and binary files.
CollectionScan scanCollection(const std::string& path);
/// The message for a scan's problem or skipped lines; empty when there is none.
std::string collectionProblemText(const CollectionScan& scan, const std::string& path);

/// One line of the one-per-line form: 81 cells ("1".."9" givens; ".", "0" or
/// "-" blanks), then the end of the line, or a space, tab, ",", ";" or "#"
/// and anything after it. The 81 cells with "." for every blank; nothing when
/// the line is not such a puzzle.
std::optional<std::string> parsePuzzleLine(std::string_view line);
/// One row of a grid: nine cells as in a puzzle line; spaces and tabs between
/// cells are ignored. The nine cells with "." for blanks, or nothing.
std::optional<std::string> parseGridRow(std::string_view line);

/// A puzzle given as text (a paste): 81 cells on one line or nine lines of nine
/// cells, blank lines around them ignored.
struct PuzzleTextParse {
  std::string puzzle;  ///< 81 characters, "." for a blank, when the text is a puzzle
  std::string error;   ///< why it is not, otherwise empty
  bool ok() const { return error.empty(); }
};
PuzzleTextParse parsePuzzleText(std::string_view text);

/// The number of puzzles in the file (for a *.sud: the lines beginning with
/// "#"); 0 when the file cannot be read or is refused.
int countPuzzles(const std::string& path);

/// What reading puzzle N found.
struct PuzzleRowsRead {
  enum class Status { Found, NotFound, Incomplete, Unreadable } status = Status::Unreadable;
  std::vector<std::string> rows;  ///< nine row lines with "." and " " turned into "0"
};
/// Finds puzzle n (1-based) and its nine row lines (for the other forms, the
/// n-th good puzzle, its rows written with "0" for blanks).
PuzzleRowsRead readPuzzleRows(const std::string& path, int n);

/// Appends a puzzle of 81 characters (digits, "." for blanks) under the next
/// number, with an empty line before it unless the file is missing or empty;
/// to a one-per-line file, as one more line of the 81 characters, with the
/// file's own line end; a file of one bare grid is rewritten as a numbered
/// collection of that grid and the new puzzle. Returns the number of the new
/// puzzle, or nothing when writing failed.
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
