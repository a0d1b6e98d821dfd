#pragma once
// Game files: the game in progress on the ManualSolve tab as a small text
// file (docs/game-file.md describes the format). A file is read whole and
// checked whole (its commands replayed on its givens) before anything of it
// is used, so a damaged or foreign file changes nothing.

#include <optional>
#include <string>
#include <string_view>

#include "play/Game.h"

namespace tessaly {

/// The first line of every game file.
inline constexpr const char* kGameFileHeader = "tessaly game 1";
/// The largest game file read (a game of a few thousand commands is far smaller).
inline constexpr long long kGameFileLimit = 4 * 1024 * 1024;

/// The game as the file holds it.
std::string gameText(const GameRecord& record);

/// A game read, or why it cannot be used.
struct GameRead {
  std::optional<GameRecord> record;
  std::string problem;  ///< empty when the record is there
};

/// Reads a game file's text and checks it: its header, every line, the
/// givens (no digit twice in a row, column or box) and every command against
/// the board the ones before it leave. The problem names the line.
GameRead parseGameText(std::string_view text);

/// Reads and checks a game file. The problem is a whole message:
/// "The game file PATH cannot be used: REASON".
GameRead readGameFile(const std::string& path);

/// Writes a game file (atomically); the message of a failure, empty on success.
std::string saveGameFile(const std::string& path, const GameRecord& record);

}  // namespace tessaly
