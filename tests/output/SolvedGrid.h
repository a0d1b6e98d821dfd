#pragma once
// The solved grid the export tests write, and the files it must give
// (tests/data/output).

#include <string>

#include "Version.h"
#include "model/GridTables.h"
#include "support/TestSupport.h"

namespace tessaly::test {

/// Rows 123456789, 456789123, 789123456, 234567891 ... 912345678. Givens ("X"):
/// row 3 has none, row 6 has all nine.
inline void fillSolvedGrid(Session& session) {
  static constexpr const char* kGivens[9] = {"X..X....X", ".X..X....", ".........", "X.X.X.X.X", "........X",
                                             "XXXXXXXXX", "..X......", "....X..X.", ".X.....X."};
  for (int r = 1; r <= 9; ++r)
    for (int c = 1; c <= 9; ++c) {
      Cell& cell = session.grid[CellNumber[r][c]];
      cell.value = ((r - 1) * 3 + (r - 1) / 3 + (c - 1)) % 9 + 1;
      cell.given = kGivens[r - 1][c - 1] == 'X';
      cell.candidates = cell.given ? CandidateSet::of(cell.value) : CandidateSet();
    }
}

/// A file of tests/data/output with "@VERSION@" read as the program's version,
/// so a new release does not change the expected reports.
inline std::string expectedOutput(const std::string& name) {
  std::string text = readFile(dataFile("output/" + name));
  if (std::size_t at = text.find("@VERSION@"); at != std::string::npos) text.replace(at, 9, kProgramVersion);
  return text;
}

}  // namespace tessaly::test
