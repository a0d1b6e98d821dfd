// The further techniques' finders on any board. Input: byte 0 chooses the
// form; then, for a puzzle (byte 0 even), 81 bytes read as a puzzle ("1".."9"
// givens, anything else blank) and further bytes that take candidates away;
// for a board (byte 0 odd), two bytes a cell: a placed digit or a candidate
// set, however inconsistent.
//
// Invariants: every finder returns nothing or a step that changes the board:
// its eliminations are candidates of their open cells, in ascending order and
// each once, and its placements are candidates of open cells. On a puzzle
// with exactly one solution whose board lost only candidates the solution
// does not use, no step removes a digit of the solution or places another.
// The same holds with one candidate singled out (the input's length chooses
// it), and then a finder that looks at the whole board returns a step that
// bears on it.

#include <algorithm>
#include <string>

#include "FuzzSupport.h"
#include "solver/SolutionCounter.h"
#include "solver/Techniques.h"

using namespace tessaly;

namespace {

bool candidate(const TechniqueBoard& board, const Candidate& c) {
  return c.cell >= 0 && c.cell < 81 && c.digit >= 1 && c.digit <= 9 && !board.value[std::size_t(c.cell)] &&
         (board.cand[std::size_t(c.cell)] >> (c.digit - 1)) & 1u;
}

void checkStep(const TechniqueBoard& board, const std::string& solution, const std::optional<TechniqueStep>& step) {
  if (!step) return;
  FUZZ_CHECK(!step->eliminations.empty() || !step->placements.empty());
  FUZZ_CHECK(std::is_sorted(step->eliminations.begin(), step->eliminations.end()));
  FUZZ_CHECK(std::adjacent_find(step->eliminations.begin(), step->eliminations.end()) == step->eliminations.end());
  for (const Candidate& e : step->eliminations) {
    FUZZ_CHECK(candidate(board, e));
    if (!solution.empty()) FUZZ_CHECK(solution[std::size_t(e.cell)] - '0' != e.digit);
  }
  for (const Candidate& p : step->placements) {
    FUZZ_CHECK(candidate(board, p));
    if (!solution.empty()) FUZZ_CHECK(solution[std::size_t(p.cell)] - '0' == p.digit);
  }
}

void checkFinders(const TechniqueBoard& board, const std::string& solution, std::size_t pick) {
  std::array<CellSet, 9> wanted{};
  wanted[pick / 81 % 9].add(int(pick % 81));
  for (const TechniqueInfo& t : kTechniques) {
    if (!t.find) continue;
    checkStep(board, solution, t.find(board));
    TechniqueContext singled(board);
    singled.singleOut(wanted);
    const std::optional<TechniqueStep> step = t.find(singled);
    checkStep(board, solution, step);
    if (step && techniqueScope(t.id) == TechniqueScope::Board && int(t.id) >= kRuleCount)
      FUZZ_CHECK(TechniqueContext::touches(*step, wanted));
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size < 1) return 0;
  const bool asPuzzle = data[0] % 2 == 0;
  ++data;
  --size;
  if (asPuzzle) {
    std::string puzzle(81, '.');
    for (std::size_t i = 0; i < 81 && i < size; ++i) puzzle[i] = char(data[i]);
    TechniqueBoard board = boardFromPuzzle(puzzle);
    std::string solution;
    const bool unique = countSolutions(puzzle, 2, &solution) == 1;
    board.uniqueSolution = unique;
    // Later bytes take candidates away that the solution does not use (any
    // candidate, when there is no single solution to keep).
    for (std::size_t i = 81; i + 1 < size; i += 2) {
      const int cell = data[i] % 81, digit = data[i + 1] % 9 + 1;
      if (unique && solution[std::size_t(cell)] - '0' == digit) continue;
      board.cand[std::size_t(cell)] &= std::uint16_t(~(1u << (digit - 1)));
    }
    checkFinders(board, unique ? solution : std::string(), size);
    return 0;
  }
  TechniqueBoard board;
  for (std::size_t c = 0; c < 81 && 2 * c + 1 < size; ++c) {
    const unsigned word = unsigned(data[2 * c]) | unsigned(data[2 * c + 1]) << 8;
    if (word & 0x8000)
      board.value[c] = std::uint8_t(word % 9 + 1);
    else
      board.cand[c] = std::uint16_t(word & 0x1FF);
  }
  board.uniqueSolution = size % 2 == 1;
  checkFinders(board, {}, size);
  return 0;
}
