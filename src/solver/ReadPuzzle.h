#pragma once

#include <string>

namespace tessaly {

class Session;

/// Reads puzzle n (-1 for the last) of a collection into the grid, checks its
/// givens, computes the candidates and writes the read's lines into the log.
/// Problems are told through message boxes. True when the puzzle is ready to
/// solve; false when it was not read or did not pass its checks.
bool readPuzzle(Session& session, const std::string& path, int n);

/// Open: makes the file the current collection and reads its first puzzle,
/// when it is a collection with puzzles. A file that is refused or holds no
/// puzzle is told as readPuzzle tells it and changes nothing: the collection,
/// its count and the board stay as they were. True when the file was taken.
bool openCollection(Session& session, const std::string& path);

/// The Clear command: the puzzle back to its givens by reading it again. A
/// puzzle created or typed in since has no file to come back from, so the user
/// is asked before it gives way to the collection's puzzle. Nothing happens
/// before a puzzle was read.
void clearCommand(Session& session);

}  // namespace tessaly
