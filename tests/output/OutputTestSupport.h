#pragma once
// Shared by the export tests: a scratch folder, a known solved grid and whole-file reading.

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

#include "model/FileUtil.h"
#include "model/GridTables.h"
#include "model/Session.h"
#include "support/TestSupport.h"

namespace tessaly::testing {

using TempDir = tessaly::test::TempDir;

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

inline std::string readFile(const std::string& path) { return readWholeFile(path).value_or(""); }

inline void writeFile(const std::string& path, const std::string& content) {
  std::ofstream out(path, std::ios::binary | std::ios::trunc);
  out << content;
}

/// The solved grid used by the export tests, row by row:
///   123456789 456789123 789123456 234567891 567891234
///   891234567 345678912 678912345 912345678
inline int solvedDigit(int row, int col) { return ((row - 1) * 3 + (row - 1) / 3 + (col - 1)) % 9 + 1; }

/// Which cells are givens ("X"): row 3 has none, row 6 all of them; 25 givens.
inline constexpr const char* kGivenPattern[9] = {
    "X..X....X", ".X..X....", ".........", "X.X.X.X.X", "........X",
    "XXXXXXXXX", "..X......", "....X..X.", ".X.....X."};
inline constexpr int kPatternGivens = 25;

/// Fills every cell with its solved digit and marks the pattern's givens.
inline void fillSolvedGrid(Session& session) {
  for (int r = 1; r <= 9; ++r)
    for (int c = 1; c <= 9; ++c) {
      Cell& cell = session.grid[CellNumber[r][c]];
      cell.value = solvedDigit(r, c);
      cell.given = kGivenPattern[r - 1][c - 1] == 'X';
      cell.candidates = cell.given ? CandidateSet::of(cell.value) : CandidateSet();
    }
}

}  // namespace tessaly::testing
