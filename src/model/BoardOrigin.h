#pragma once
// Where the puzzle on the board came from: the record the puzzle frame makes
// its title and its number box from when it is drawn. The core sets it where
// the board changes hands (a read, a save, a creation, a typed-in puzzle, a
// collection opened at start-up) and keeps no text for the window.

#include <optional>
#include <string>

namespace tessaly {

struct BoardOrigin {
  enum class Kind {
    None,     ///< nothing told yet
    Opened,   ///< the collection was opened at start-up, no puzzle read
    Read,     ///< puzzle `number` of a file of `total` puzzles, read or saved
    Created,  ///< made by the Create command
    Entered,  ///< typed or pasted in
  };
  Kind kind = Kind::None;
  int number = 0;  ///< Read: the puzzle's number in its file
  int total = 0;   ///< Read, Opened: the file's puzzle count then
  int blanks = 0;  ///< Read, Created: the blank count told
  int changes = 0;  ///< counts every change, so the number box is shown again even for the same number

  static BoardOrigin opened(int total) { return {Kind::Opened, 0, total, 0}; }
  static BoardOrigin read(int number, int total, int blanks) { return {Kind::Read, number, total, blanks}; }
  static BoardOrigin created(int blanks) { return {Kind::Created, 0, 0, blanks}; }
  static BoardOrigin entered() { return {Kind::Entered, 0, 0, 0}; }
};

/// The puzzle frame's title: "Puzzle 3 of 95 (64 blanks)", "Total Puzzles 95",
/// "New Puzzle (45 blanks)", "New Puzzle", or "" before anything was told.
std::string puzzleTitle(const BoardOrigin& origin);

/// What the puzzle-number box shows after the change: the puzzle's number, "NEW"
/// for a created puzzle; nothing when the box keeps what it holds.
std::optional<std::string> puzzleNumberText(const BoardOrigin& origin);

}  // namespace tessaly
