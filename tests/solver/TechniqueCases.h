#pragma once
// Boards and steps written by hand for the further techniques' tests.

#include <optional>
#include <ostream>
#include <sstream>
#include <string>
#include <vector>

#include "solver/TechniqueTestSupport.h"

namespace tessaly {

// Steps as the failure messages show them.
inline void PrintTo(const TechniqueStep& s, std::ostream* out) {
  auto list = [out](const char* name, const std::vector<int>& v) {
    *out << " " << name << " {";
    for (int x : v) *out << " " << x;
    *out << " }";
  };
  *out << techniqueInfo(s.technique).name << " digits 0x" << std::hex << s.digits << std::dec;
  list("units", s.units);
  list("cover", s.coverUnits);
  list("cells", s.cells);
  list("fins", s.fins);
  *out << " chain {";
  for (const ChainNode& n : s.chain) {
    *out << " " << n.digit << "@";
    for (int c : n.cells) *out << c << ",";
  }
  *out << " } eliminations {";
  for (const Candidate& e : s.eliminations) *out << " " << e.cell << ":" << e.digit;
  *out << " }";
}

}  // namespace tessaly

namespace tessaly::test {

/// Cells given one token as boardFromCandidates reads it ("=5", "147").
struct Edit {
  std::vector<int> cells;
  std::string token;
};

/// A board whose open cells all hold the nine digits, but for the edits.
inline TechniqueBoard editedBoard(const std::vector<Edit>& edits) {
  std::vector<std::string> tokens(81, "123456789");
  for (const Edit& e : edits)
    for (int cell : e.cells) tokens[std::size_t(cell)] = e.token;
  std::string text;
  for (const std::string& t : tokens) text += t + " ";
  return boardFromCandidates(text);
}

/// Candidates written "cell:digits cell:digits ...", e.g. "3:59 7:5".
inline std::vector<Candidate> cands(const std::string& text) {
  std::vector<Candidate> out;
  std::istringstream in(text);
  for (std::string item; in >> item;) {
    const std::size_t colon = item.find(':');
    const int cell = std::stoi(item.substr(0, colon));
    for (char ch : item.substr(colon + 1)) out.push_back({cell, ch - '0'});
  }
  return out;
}

/// One finder on one board and the whole step it must give (or nothing).
struct FinderCase {
  const char* name;
  TechniqueFinder find;
  std::vector<Edit> edits;
  std::optional<TechniqueStep> expected;
};

inline void checkCases(const std::vector<FinderCase>& cases) {
  for (const FinderCase& c : cases) EXPECT_EQ(c.find(editedBoard(c.edits)), c.expected) << c.name;
}

/// A finder and the techniques its steps may be.
struct SoundCase {
  TechniqueFinder find;
  Technique plain;
  Technique variant;
};

/// Every finder sound on the sample, and each exercised there.
inline void checkSound(const std::vector<SoundCase>& cases) {
  for (const SoundCase& c : cases)
    EXPECT_GT(soundOnSample(c.find, {c.plain, c.variant}), 0) << techniqueInfo(c.plain).name;
}

}  // namespace tessaly::test
