#pragma once
// What the core benchmarks share: a session with scripted answers working in
// a scratch folder of its own, puzzles read from a collection, and a puzzle put
// on the board with its candidates.

#include <algorithm>
#include <filesystem>
#include <string>
#include <vector>

#include "model/CollectionFile.h"
#include "model/Services.h"
#include "model/Session.h"
#include "solver/SolverEngine.h"

namespace tessaly::bench {

/// A session over scripted answers and a fixed seed, whose files (Eventlog.txt,
/// PuzTemp.sud) land in `scratch` under the system's temporary folder.
struct BenchSession {
  explicit BenchSession(const std::string& name)
      : scratch(std::filesystem::temp_directory_path() / name) {
    std::filesystem::create_directories(scratch);
    std::filesystem::current_path(scratch);
    session.appDir = scratch.string() + "/";
  }
  std::filesystem::path scratch;
  ScriptedUserInterface ui;
  SeededRandom random{1};
  Session session{Services{&ui, nullptr, nullptr, nullptr, &random}};
};

/// The first `limit` puzzles of a collection file as 81 characters each.
inline std::vector<std::string> loadCollection(const std::string& path, int limit) {
  std::vector<std::string> puzzles;
  const int total = std::min(countPuzzles(path), limit);
  for (int n = 1; n <= total; ++n) {
    auto read = readPuzzleRows(path, n);
    if (read.status != PuzzleRowsRead::Status::Found) break;
    std::string text;
    for (auto& row : read.rows) text += (row + std::string(9, '0')).substr(0, 9);
    puzzles.push_back(text);
  }
  return puzzles;
}

/// Puts the puzzle's givens on the board with their candidates, on an empty log.
inline void loadIntoSession(Session& s, const std::string& puzzle) {
  for (int c = 1; c <= kCells; ++c) {
    const int v = digitValue(puzzle[std::size_t(c - 1)]);
    s.grid[c].value = v;
    s.grid[c].given = v != 0;
    s.grid[c].candidates = v ? CandidateSet::of(v) : CandidateSet();
  }
  s.clearEventLog();
  SolverEngine(s).computeCandidates(false);
}

/// The collection files (*.sud) of a folder, in name order.
inline std::vector<std::filesystem::path> collectionFiles(const std::filesystem::path& folder) {
  std::vector<std::filesystem::path> files;
  std::error_code ec;
  for (const auto& entry : std::filesystem::directory_iterator(folder, ec))
    if (entry.path().extension() == ".sud") files.push_back(entry.path());
  std::sort(files.begin(), files.end());
  return files;
}

}  // namespace tessaly::bench
