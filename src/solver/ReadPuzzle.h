#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace tessaly {

class Session;

/// What a read came to.
struct ReadResult {
  bool analysed = false;  ///< read, its givens checked and its candidates computed
  bool ready = false;     ///< analysed, and every empty cell has a candidate: ready to solve
  explicit operator bool() const { return ready; }
};

/// Loads the board: reads puzzle n (-1 for the last) of a collection into the
/// grid, checks its givens, computes the candidates and writes the read's
/// lines into the log; the collection records the puzzle's origin. Problems
/// are told through message boxes. What the configuration remembers of the
/// read is the caller's business (the window writes it after an analysed read).
ReadResult readPuzzle(Session& session, const std::string& path, int n);

/// Makes 81 characters the puzzle on the board, as if typed in: each digit
/// 1..9 a given, anything else an empty cell; candidates computed; the title
/// "New Puzzle". What the status line told was about the board this one
/// replaces, so it goes.
void enterPuzzle(Session& session, std::string_view cells);

/// Open: makes the file the current collection and reads its first puzzle,
/// when it is a collection with puzzles. A file that is refused or holds no
/// puzzle is told as readPuzzle tells it and changes nothing: the collection,
/// its count and the board stay as they were. When the file was taken, how
/// its first puzzle was read.
std::optional<ReadResult> openCollection(Session& session, const std::string& path);

/// The Clear command: the puzzle back to its givens by reading it again. A
/// puzzle created or typed in since has no file to come back from, so the user
/// is asked before it gives way to the collection's puzzle. Nothing happens
/// before a puzzle was read.
ReadResult clearCommand(Session& session);

}  // namespace tessaly
