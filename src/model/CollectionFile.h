#pragma once
// Collection files (*.sud): numbered puzzles, each a line starting with "#"
// followed by nine row lines. Puzzles are found by position: the N-th line that
// begins with "#" heads puzzle N, whatever number it carries.
//
// Two more forms are read as collections: one puzzle per line (81 cells, then
// the end of the line or a comment; blank lines and "#" lines skipped), and a
// file holding a single grid of nine lines of nine cells.

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "model/FileUtil.h"

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
  /// Unreadable: no such file. NotAFile: a directory, device, FIFO or a file
  /// that cannot be opened (`reason` says which).
  enum class Problem { None, Unreadable, TooLarge, Binary, Utf16, NotAFile };
  Problem problem = Problem::Unreadable;
  std::string reason;    ///< for NotAFile: the system's reason
  CollectionForm form = CollectionForm::Numbered;
  int puzzles = 0;       ///< puzzles in the file (for the numbered form: its "#" lines)
  int badLines = 0;      ///< lines skipped because they are not puzzles (not for the numbered form)
  int firstBadLine = 0;  ///< 1-based number of the first of them
  /// The file is not read at all, with a message of its own (not for a missing file).
  bool refused() const { return problem != Problem::None && problem != Problem::Unreadable; }
};
/// Finds the file's form and counts its puzzles, reading it a line at a time
/// (a UTF-8 byte-order mark passed over); refuses what is not a regular file,
/// files over kMaxCollectionBytes, UTF-16 and binary files.
CollectionScan scanCollection(const std::string& path);

/// A collection looked through once: its scan and where each puzzle starts,
/// so that reading puzzle N goes straight to it.
class CollectionIndex {
 public:
  CollectionScan scan;
  std::vector<std::uint64_t> starts;  ///< byte offset of each puzzle's first line
  const std::string& path() const { return m_path; }
  /// Whether the file is still the one indexed (same size, change time and inode).
  bool current() const;

 private:
  friend CollectionIndex indexCollection(const std::string& path);
  std::string m_path;
  long long m_identity[3] = {-1, 0, 0};  ///< size, change time (ns) and inode when indexed
};
CollectionIndex indexCollection(const std::string& path);
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
  /// The 81 cells as a read takes them: each row line cut to nine
  /// characters, or filled out with "0" (a blank) when shorter.
  std::string cells() const;
};
/// Finds puzzle n (1-based) and its nine row lines (for the other forms, the
/// n-th good puzzle, its rows written with "0" for blanks).
PuzzleRowsRead readPuzzleRows(const std::string& path, int n);
/// The same through an index taken before (the file is not looked through again).
PuzzleRowsRead readPuzzleRows(const CollectionIndex& index, int n);

/// A damaged record found by checkCollection.
struct RecordProblem {
  int line = 0;    ///< 1-based line of the file
  int puzzle = 0;  ///< the puzzle's number as read, 0 for a line that is not read as one
  std::string text;
  bool operator==(const RecordProblem&) const = default;
};
/// Every record a read would take differently from what it holds: a row
/// short or long, characters read as blanks, a record cut short, a line of a
/// one-per-line file that is skipped, givens that repeat. Reading itself is
/// unchanged; this only finds such records.
struct CollectionCheck {
  CollectionScan scan;
  std::vector<RecordProblem> problems;
};
CollectionCheck checkCollection(const std::string& path);
/// Why a line of the one-per-line form is not a puzzle line; `length` is its
/// whole length when `line` was cut.
std::string puzzleLineProblem(std::string_view line, std::uint64_t length);

/// Appends a puzzle of 81 characters (digits, "." for blanks) under the next
/// number, with an empty line before it unless the file is missing or empty;
/// to a one-per-line file, as one more line of the 81 characters, with the
/// file's own line end; a file of one bare grid is rewritten as a numbered
/// collection of that grid and the new puzzle. Returns the number of the new
/// puzzle, or nothing when writing failed (with the reason in `why`). Only the
/// new record is written, under an exclusive lock held from counting the
/// puzzles to the write.
std::optional<int> appendPuzzle(const std::string& path, const std::string& text, FileResult* why = nullptr);

/// Appends several puzzles at once, as appendPuzzle appends one, under one
/// lock, one count of the file's puzzles and one write: a batch costs its
/// puzzles, not a read of the file per puzzle. Returns the number of the last
/// puzzle written, or nothing when writing failed (then nothing was written):
/// a file that reading refuses (binary, UTF-16, too large) is not written to.
std::optional<int> appendPuzzles(const std::string& path, const std::vector<std::string>& texts,
                                 FileResult* why = nullptr);

/// The grid's givens as 81 characters: the digit of each given, "." elsewhere.
std::string givensText(const Session& session);

/// Appends the current grid's givens to the collection and makes the new puzzle
/// the current one (number, title). The reason when the file could not be written.
FileResult saveGridToFile(Session& session, const std::string& path);

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
