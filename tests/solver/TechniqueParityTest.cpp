// Every finder against a recorded expectation: a walk over the technique
// sample and the Kaggle sample visits a few thousand boards (each puzzle's
// givens with their raw candidates, then each board where the six rules stall,
// some after a solution digit is revealed), and on each board every finder of
// the technique table must return the same step as when the expectation was
// recorded. It guards the finders' speed-ups: a faster search must still find
// exactly the same step, so the grades and the narration stay the same.
//
// tests/data/rules/finder-parity.txt holds one line per board: the set and
// puzzle, the stage, a hash of the board, then one token per finder in table
// order, "." for nothing found or a hash of the whole step. A finder that is
// meant to change its answer rewrites the file: run the test with
// TESSALY_UPDATE_CASES=1 and review the diff.

#include <gtest/gtest.h>

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "solver/SolutionCounter.h"
#include "solver/TechniqueTestSupport.h"

namespace tessaly {
namespace {

/// FNV-1a over a stream of numbers: a compact fingerprint of a board or a step.
class Fingerprint {
 public:
  void add(std::int64_t v) {
    for (int i = 0; i < 8; ++i, v >>= 8) {
      m_hash ^= std::uint64_t(v & 0xFF);
      m_hash *= 0x100000001B3ull;
    }
  }
  void add(const std::vector<int>& list) {
    add(std::int64_t(list.size()));
    for (int v : list) add(v);
  }
  std::string hex() const {
    char text[17];
    std::snprintf(text, sizeof text, "%08x", unsigned((m_hash >> 32) ^ m_hash));
    return text;
  }

 private:
  std::uint64_t m_hash = 0xCBF29CE484222325ull;
};

std::string boardHash(const TechniqueBoard& board) {
  Fingerprint f;
  for (int c = 0; c < bitgrid::kCellCount; ++c) f.add(board.value[std::size_t(c)] * 1024 + board.cand[std::size_t(c)]);
  f.add(board.uniqueSolution);
  return f.hex();
}

/// Every field of the step, in order.
std::string stepHash(const TechniqueStep& s) {
  Fingerprint f;
  f.add(int(s.technique));
  f.add(s.digits);
  f.add(s.restricted);
  f.add(s.zDigit);
  f.add(s.units);
  f.add(s.coverUnits);
  f.add(s.cells);
  f.add(s.fins);
  f.add(std::int64_t(s.groups.size()));
  for (const CellGroup& g : s.groups) f.add(g.cells), f.add(g.digits);
  f.add(std::int64_t(s.chain.size()));
  for (const ChainNode& n : s.chain) f.add(n.cells), f.add(n.digit);
  f.add(std::int64_t(s.branches.size()));
  for (const Branch& b : s.branches) {
    f.add(b.cell), f.add(b.digit), f.add(b.contradiction), f.add(b.deadCell), f.add(b.deadArea), f.add(b.deadDigit);
    f.add(std::int64_t(b.steps.size()));
    for (const Implication& i : b.steps) f.add(i.cell), f.add(i.digit), f.add(i.placed);
  }
  for (const auto* list : {&s.eliminations, &s.placements}) {
    f.add(std::int64_t(list->size()));
    for (const Candidate& c : *list) f.add(c.cell), f.add(c.digit);
  }
  return f.hex();
}

/// The board written as boardFromCandidates reads it, to reproduce a failure.
std::string boardText(const TechniqueBoard& board) {
  std::string out;
  for (int c = 0; c < bitgrid::kCellCount; ++c) {
    if (c) out += ' ';
    if (board.value[std::size_t(c)]) {
      out += '=';
      out += char('0' + board.value[std::size_t(c)]);
      continue;
    }
    for (int d = 1; d <= 9; ++d)
      if (board.cand[std::size_t(c)] & bitgrid::bitOf(d)) out += char('0' + d);
  }
  return out;
}

struct Visited {
  std::string line;   ///< as in the expectation file
  std::string board;  ///< boardText, for a failure message
};

/// The line of one board: "set:puzzle stage board-hash" and a token per finder
/// (only the board when not `withFinders`).
Visited visit(const std::string& where, int stage, const TechniqueBoard& board, bool withFinders) {
  if (!withFinders) return {{}, boardText(board)};
  std::string line = where + " " + std::to_string(stage) + " " + boardHash(board);
  for (const TechniqueInfo& t : kTechniques) {
    if (!t.find) continue;
    const std::optional<TechniqueStep> step = t.find(board);
    line += ' ';
    line += step ? stepHash(*step) : ".";
  }
  return {line, boardText(board)};
}

/// Most stalls looked at per puzzle: enough for the hard puzzles' later boards.
constexpr int kStages = 10;

/// Walks one puzzle: its raw board, then the rules applied until they stall,
/// the board looked at, and one step taken: the easiest further technique, or
/// (every third stage, or when none finds anything) a solution digit revealed.
void walk(const std::string& where, const std::string& puzzle, std::vector<Visited>& out, bool withFinders = true) {
  std::string solution;
  const int solutions = countSolutions(puzzle, 2, &solution);
  if (solutions == 0) return;
  TechniqueBoard board = boardFromPuzzle(puzzle);
  board.uniqueSolution = solutions == 1;
  out.push_back(visit(where, 0, board, withFinders));
  for (int stage = 1, next = 0; stage <= kStages; ++stage) {
    while (auto rule = findEasiestStep(board, TechniqueSet::rulesOnly(), true)) applyStep(board, *rule);
    bool open = false;
    for (int c = 0; c < bitgrid::kCellCount; ++c) open = open || !board.value[std::size_t(c)];
    if (!open) return;
    out.push_back(visit(where, stage, board, withFinders));
    std::optional<TechniqueStep> step;
    if (stage % 3 != 0) step = findEasiestStep(board, TechniqueSet::all());
    if (!step) {
      // Reveal one solution digit, in a scattered order of the cells.
      for (int k = 0; k < 81 && !step; ++k, next = (next + 37) % 81)
        if (!board.value[std::size_t(next)]) {
          step.emplace();
          step->placements.push_back({next, solution[std::size_t(next)] - '0'});
        }
    }
    applyStep(board, *step);
  }
}

std::vector<std::string> lines(const std::string& file) {
  std::vector<std::string> out;
  std::ifstream in(file);
  for (std::string line; std::getline(in, line);)
    if (!line.empty() && line[0] != '#') out.push_back(line);
  return out;
}

TEST(TechniqueParity, EveryFinderReturnsTheRecordedStepOnEveryBoard) {
  std::vector<Visited> visited;
  for (const char* set : {"techniques-sample.txt", "kaggle3m_sample200.txt"}) {
    const std::vector<std::string> puzzles = lines(test::puzzleFile(set));
    for (std::size_t i = 0; i < puzzles.size(); ++i)
      walk(std::string(set).substr(0, 6) + ":" + std::to_string(i + 1), puzzles[i].substr(0, 81), visited);
  }
  const std::string file = test::dataFile("rules/finder-parity.txt");
  const char* update = std::getenv("TESSALY_UPDATE_CASES");
  if (update && *update == '1') {
    std::ofstream out(file, std::ios::binary);
    out << "# set:puzzle stage board-hash, then per finder in table order: . (none) or the step's hash\n";
    for (const Visited& v : visited) out << v.line << '\n';
  }
  const std::vector<std::string> expected = lines(file);
  ASSERT_EQ(expected.size(), visited.size()) << "boards visited";
  int failures = 0;
  for (std::size_t i = 0; i < visited.size() && failures < 10; ++i)
    if (visited[i].line != expected[i]) {
      ++failures;
      ADD_FAILURE() << "expected " << expected[i] << "\n     got " << visited[i].line << "\n   board "
                    << visited[i].board;
    }
  // The walk reaches a few thousand boards (a guard against a sample that shrank).
  EXPECT_GE(visited.size(), 2000u);
}

std::string hashOf(const std::optional<TechniqueStep>& step) { return step ? stepHash(*step) : "."; }

/// The boards of the walk over both samples, in order (read back from their text).
std::vector<TechniqueBoard> walkedBoards() {
  std::vector<Visited> visited;
  for (const char* set : {"techniques-sample.txt", "kaggle3m_sample200.txt"}) {
    const std::vector<std::string> puzzles = lines(test::puzzleFile(set));
    for (std::size_t i = 0; i < puzzles.size(); ++i) walk(set, puzzles[i].substr(0, 81), visited, false);
  }
  std::vector<TechniqueBoard> boards;
  for (const Visited& v : visited) boards.push_back(boardFromCandidates(v.board));
  return boards;
}

// A finder that looks at each digit (each area) on its own finds on a set of
// digits (areas) what it finds on all when those left out are the ones it
// finds nothing on alone: the step search's memory leaves out only such.
TEST(TechniqueParity, EachDigitAndEachAreaFindersFindTheSameWhereTheyFindSomething) {
  const std::vector<TechniqueBoard> boards = walkedBoards();
  int checked = 0;
  for (std::size_t b = 0; b < boards.size(); b += 3)
    for (const TechniqueInfo& t : kTechniques) {
      const TechniqueScope scope = techniqueScope(t.id);
      if (!t.find || scope == TechniqueScope::Board) continue;
      const bool digits = scope == TechniqueScope::EachDigit;
      TechniqueContext context(boards[b]);
      const auto lookAt = [&](std::uint32_t mask) {
        if (digits)
          context.lookAtDigits(std::uint16_t(mask));
        else
          context.lookAtAreas(mask);
      };
      const std::optional<TechniqueStep> all = t.find(context);
      std::uint32_t some = 0;
      for (int i = 0; i < (digits ? 9 : 27); ++i) {
        lookAt(1u << i);
        if (t.find(context)) some |= 1u << i;
      }
      lookAt(some);
      const std::optional<TechniqueStep> found = t.find(context);
      ASSERT_EQ(hashOf(all), hashOf(found)) << t.cliName << " board " << b;
      ++checked;
    }
  EXPECT_GE(checked, 12000);
}

// A finder that looks at the whole board, with candidates singled out, finds
// the first instance that bears on one of them: its own first when that one
// does, and otherwise one that does, or nothing.
TEST(TechniqueParity, BoardFindersWithCandidatesSingledOutFindAnInstanceBearingOnThem) {
  const std::vector<TechniqueBoard> boards = walkedBoards();
  int same = 0, other = 0;
  for (std::size_t b = 0; b < boards.size(); b += 5)
    for (const TechniqueInfo& t : kTechniques) {
      if (!t.find || techniqueScope(t.id) != TechniqueScope::Board || int(t.id) < kRuleCount) continue;
      const std::optional<TechniqueStep> first = t.find(boards[b]);
      if (!first) continue;
      std::array<CellSet, 9> wanted{};
      const Candidate& w = first->eliminations.empty() ? first->placements.front() : first->eliminations.back();
      wanted[std::size_t(w.digit - 1)].add(w.cell);
      TechniqueContext context(boards[b]);
      context.singleOut(wanted);
      ASSERT_EQ(hashOf(first), hashOf(t.find(context))) << t.cliName << " board " << b;
      ++same;
      // Candidates of the board this instance leaves alone, in turn (every
      // 31st).
      for (int c = 0, k = 0; c < bitgrid::kCellCount; ++c)
        for (int d = 1; d <= 9; ++d) {
          if (!(boards[b].cand[std::size_t(c)] & bitgrid::bitOf(d)) || k++ % 31) continue;
          wanted = {};
          wanted[std::size_t(d - 1)].add(c);
          if (TechniqueContext::touches(*first, wanted)) continue;
          context.singleOut(wanted);
          const std::optional<TechniqueStep> step = t.find(context);
          if (!step) continue;
          ASSERT_TRUE(TechniqueContext::touches(*step, wanted))
              << t.cliName << " board " << b << " cell " << c << " digit " << d;
          ++other;
        }
    }
  EXPECT_GE(same, 1000);
  EXPECT_GE(other, 1000);
}

// The step search with a memory of the boards before returns the same step as
// without, for any technique set.
TEST(TechniqueParity, StepSearchWithMemoryFindsTheSameSteps) {
  const std::vector<TechniqueBoard> boards = walkedBoards();
  for (const char* names : {"all", "x-wing,finned-x-wing,skyscraper,colour-trap,colour-wrap,x-chain,als-xz",
                            "hidden-pair,naked-quad,jellyfish,finned-swordfish,two-string-kite,empty-rectangle,xy-wing,"
                            "x-chain,aic"}) {
    const TechniqueSet set = *parseTechniqueSet(names);
    StepMemory memory;
    for (std::size_t b = 0; b < boards.size(); ++b) {
      const std::optional<TechniqueStep> plain = findEasiestStep(boards[b], set);
      const std::optional<TechniqueStep> remembered = findEasiestStep(boards[b], set, false, &memory);
      ASSERT_EQ(hashOf(plain), hashOf(remembered)) << names << " board " << b;
    }
  }
}

}  // namespace
}  // namespace tessaly
