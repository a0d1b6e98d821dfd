#pragma once
// Shared by the fuzz harnesses: a scratch folder of the process's own, file
// writing, an invariant check that stops the run with a readable line, and
// plain reference readings of the file forms (written apart from the
// program's own readers, so that the two can disagree).

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include <unistd.h>

#include "model/PuzzleGrid.h"
#include "model/Session.h"

/// Stops the run (libFuzzer saves the input) when an invariant does not hold.
#define FUZZ_CHECK(condition)                                                                   \
  do {                                                                                          \
    if (!(condition)) {                                                                         \
      std::fprintf(stderr, "invariant failed: %s (%s:%d)\n", #condition, __FILE__, __LINE__); \
      std::abort();                                                                             \
    }                                                                                           \
  } while (false)

namespace tessaly::fuzz {

/// A folder of this process's own under the temporary folder, ending in "/";
/// removed when the process ends normally.
inline const std::string& scratchFolder() {
  static const std::string folder = [] {
    namespace fs = std::filesystem;
    const fs::path dir = fs::temp_directory_path() / ("tessaly-fuzz-" + std::to_string(::getpid()));
    fs::create_directories(dir);
    static const std::string removeAtExit = dir.string();
    std::atexit([] {
      std::error_code ec;
      fs::remove_all(removeAtExit, ec);
    });
    return dir.string() + "/";
  }();
  return folder;
}

inline void writeBytes(const std::string& path, std::string_view content) {
  std::ofstream out(path, std::ios::binary | std::ios::trunc);
  out.write(content.data(), std::streamsize(content.size()));
}

inline std::string bytesOf(const std::uint8_t* data, std::size_t size) {
  return std::string(reinterpret_cast<const char*>(data), size);
}

/// Lines of a text: CR LF, LF and CR each end one; a last line without an end
/// counts when it is not empty.
inline std::vector<std::string> referenceLines(std::string_view text) {
  std::vector<std::string> lines;
  std::size_t start = 0;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] != '\r' && text[i] != '\n') continue;
    lines.emplace_back(text.substr(start, i - start));
    if (text[i] == '\r' && i + 1 < text.size() && text[i + 1] == '\n') ++i;
    start = i + 1;
  }
  if (start < text.size()) lines.emplace_back(text.substr(start));
  return lines;
}

/// Standard input, output and error of the command line in memory while it
/// lives: std::cin reads `input`, what std::cout and std::cerr take is kept.
struct StandardStreams {
  std::istringstream in;
  std::ostringstream out, err;
  std::streambuf* const oldIn;
  std::streambuf* const oldOut;
  std::streambuf* const oldErr;
  explicit StandardStreams(const std::string& input = {})
      : in(input), oldIn(std::cin.rdbuf(in.rdbuf())), oldOut(std::cout.rdbuf(out.rdbuf())),
        oldErr(std::cerr.rdbuf(err.rdbuf())) {}
  ~StandardStreams() {
    std::cin.rdbuf(oldIn);
    std::cout.rdbuf(oldOut);
    std::cerr.rdbuf(oldErr);
    std::cin.clear();
    std::cout.clear();
    std::cerr.clear();
  }
  StandardStreams(const StandardStreams&) = delete;
  StandardStreams& operator=(const StandardStreams&) = delete;
};

/// The values and given marks of the 81 cells.
struct GridSnapshot {
  std::vector<int> values, givens;
  explicit GridSnapshot(const Session& s) {
    for (int c = 1; c <= kCells; ++c) {
      values.push_back(s.grid[c].value);
      givens.push_back(s.grid[c].given ? 1 : 0);
    }
  }
  friend bool operator==(const GridSnapshot&, const GridSnapshot&) = default;
};

/// Puts an 81-character puzzle ("." or "0" blank) into the grid as its givens.
inline void putGivens(Session& s, std::string_view puzzle) {
  for (int c = 1; c <= kCells; ++c) {
    const char ch = puzzle[std::size_t(c - 1)];
    const int v = ch >= '1' && ch <= '9' ? ch - '0' : 0;
    s.grid[c].value = v;
    s.grid[c].given = v != 0;
    s.grid[c].candidates = v ? CandidateSet::of(v) : CandidateSet();
  }
}

/// Project Euler's grid 01: solved by the single rules alone.
inline constexpr std::string_view kEasyPuzzle =
    "..3.2.6..9..3.5..1..18.64....81.29..7.......8..67.82....26.95..8..2.3..9..5.1.3..";

}  // namespace tessaly::fuzz
