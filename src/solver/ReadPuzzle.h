#pragma once

#include <string>

namespace tessaly {

class Session;

/// Reads puzzle n (-1 for the last) of a collection into the grid, checks its
/// givens, computes the candidates and writes the read's lines into the log.
/// Problems are told through message boxes. True when the puzzle is ready to
/// solve; false when it was not read or did not pass its checks.
bool readPuzzle(Session& session, const std::string& path, int n);

}  // namespace tessaly
