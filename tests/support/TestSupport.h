#pragma once
// Helpers shared by the core and window tests: the shipped test data,
// sessions made from puzzle text, log dumps, temporary and working folders.

#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include <unistd.h>

#include "model/FileUtil.h"
#include "model/Services.h"
#include "model/Session.h"

namespace tessaly::test {

/// A file of tests/data, e.g. dataFile("puzzles/pe96.sud").
inline std::string dataFile(const std::string& name) { return std::string(TESSALY_TEST_DATA_DIR) + "/" + name; }
/// A puzzle set of tests/data/puzzles, e.g. puzzleFile("top95.sud").
inline std::string puzzleFile(const std::string& name) { return dataFile("puzzles/" + name); }

/// singles.sud: single puzzles taken from the larger public sets (see
/// tests/data/README.md), by their number there.
inline const std::string kSingles = puzzleFile("singles.sud");
enum Single {
  kDiabolical9 = 1,
  kDiabolical118,
  kDiabolical1038,
  kDiabolical1875,
  kKaggleEasy181,
  kKaggleMedium503,
  kKaggleMedium506,
  kKaggleExpert501,
  kKaggleExpert525,
  kSergBenchmark1,  ///< has several solutions
};

inline std::string readFile(const std::string& path) { return readWholeFile(path).value_or(""); }

inline void writeFile(const std::string& path, const std::string& content) {
  std::ofstream out(path, std::ios::binary | std::ios::trunc);
  out << content;
}

/// An 81-cell puzzle as nine rows of nine, each ended by `lineEnd`.
inline std::string gridRows(const std::string& cells, const char* lineEnd = "\r\n") {
  std::string text;
  for (std::size_t r = 0; r < 9; ++r) text += cells.substr(r * 9, 9) + lineEnd;
  return text;
}

/// The text with every `from` made `to`.
inline std::string replaced(std::string text, char from, char to) {
  for (char& ch : text) ch = ch == from ? to : ch;
  return text;
}

/// Lines as one text, each ended by "\n".
inline std::string joinLines(const std::vector<std::string>& lines) {
  std::string text;
  for (const std::string& line : lines) text += line + "\n";
  return text;
}

/// Loads an 81-character puzzle (digits are givens, anything else blank) into the
/// grid the way a read does: givens carry their digit as candidate.
inline void loadGivens(Session& s, const std::string& puzzle) {
  for (int c = 1; c <= kCells; ++c) {
    const char ch = std::size_t(c - 1) < puzzle.size() ? puzzle[std::size_t(c - 1)] : '.';
    const int v = ch >= '1' && ch <= '9' ? ch - '0' : 0;
    s.grid[c].value = v;
    s.grid[c].given = v != 0;
    s.grid[c].candidates = v ? CandidateSet::of(v) : CandidateSet();
  }
}

/// The stored log lines from line `from` on (with their style prefix).
inline std::vector<std::string> logLines(const Session& s, int from = 1) {
  std::vector<std::string> lines;
  for (int n = from; n <= s.log.TotalLines(); ++n) lines.push_back(s.log.listed(n));
  return lines;
}

/// A fresh empty folder under the system's temporary folder, removed on destruction.
class TempDir {
 public:
  TempDir();
  ~TempDir();
  TempDir(const TempDir&) = delete;
  TempDir& operator=(const TempDir&) = delete;
  const std::string& path() const { return m_path; }
  /// The folder with a trailing "/", as the application directory is kept.
  std::string dir() const { return m_path + "/"; }
  std::string file(const std::string& name) const { return m_path + "/" + name; }

 private:
  std::string m_path;
};

inline TempDir::TempDir() {
  static int counter = 0;
  auto base = std::filesystem::temp_directory_path() /
              ("tessaly-test-" + std::to_string(::getpid()) + "-" + std::to_string(++counter));
  std::filesystem::create_directories(base);
  m_path = base.string();
}

inline TempDir::~TempDir() {
  std::error_code ec;
  std::filesystem::remove_all(m_path, ec);
}

/// Makes `dir` the working folder for the lifetime of the object.
class WorkingFolder {
 public:
  explicit WorkingFolder(const std::filesystem::path& dir) : m_before(std::filesystem::current_path()) {
    std::filesystem::current_path(dir);
  }
  ~WorkingFolder() {
    std::error_code ec;
    std::filesystem::current_path(m_before, ec);
  }
  WorkingFolder(const WorkingFolder&) = delete;
  WorkingFolder& operator=(const WorkingFolder&) = delete;

 private:
  std::filesystem::path m_before;
};

/// A fresh temporary folder that is the working folder while it lives: each
/// test process runs in one, so files written into the working folder (the
/// event log, printed reports) never meet those of a test running beside it.
struct ScratchFolder {
  TempDir dir;
  WorkingFolder inside{dir.path()};
};

/// A session whose messages are recorded and whose runs never wait.
struct TestSession {
  ScriptedUserInterface ui;
  FixedClock clock;
  SeededRandom random{1};
  CountingPacer pacer;
  Session session{Services{&ui, nullptr, &pacer, &clock, &random}};
};

}  // namespace tessaly::test
