#pragma once
// What the window benchmarks share: the shipped collection, its hardest puzzle
// and a session that answers every message itself.

#include <filesystem>
#include <string>

#include "model/Services.h"
#include "model/Session.h"

namespace tessaly::bench {

inline const std::string kCollection = std::string(TESSALY_DATA_DIR) + "/Puzzles.sud";
inline constexpr int kHardest = 125;

// A session with scripted message boxes and a fixed random source, working in
// a scratch folder (Solve writes Eventlog.txt into the current folder).
struct BenchSession {
  explicit BenchSession(int maxTries) {
    const auto scratch = std::filesystem::temp_directory_path() / "tessaly-window-bench";
    std::filesystem::create_directories(scratch);
    std::filesystem::current_path(scratch);
    session.appDir = scratch.string() + "/";
    session.config.MaxTries = maxTries;
  }
  ScriptedUserInterface ui;
  SeededRandom random{1};
  Session session{Services{&ui, nullptr, nullptr, nullptr, &random}};
};

}  // namespace tessaly::bench
