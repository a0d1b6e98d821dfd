// The silent solution counter: none, one, several, and where it stops counting.

#include <gtest/gtest.h>

#include "solver/SolutionCounter.h"

namespace tessaly {
namespace {

TEST(SolutionCounter, CountsNoFurtherThanTheLimit) {
  const std::string unique = "..3.2.6..9..3.5..1..18.64....81.29..7.......8..67.82....26.95..8..2.3..9..5.1.3..";
  const std::string solved = "483921657967345821251876493548132976729564138136798245372689514814253769695417382";
  const std::string several = "8.........95.......76.........426798...571243...893165......916....3.487....1.532";
  const std::string blank(81, '.');
  auto with = [&](std::string text, std::initializer_list<std::pair<int, char>> cells) {
    for (auto [index, digit] : cells) text[std::size_t(index)] = digit;
    return text;
  };
  struct Row { std::string puzzle; int limit, expected; };
  for (const Row& r : {Row{unique, 2, 1}, Row{solved, 2, 1}, Row{several, 2, 2}, Row{several, 1, 1},
                       Row{blank, 2, 2}, Row{std::string(81, '0'), 5, 5}, Row{"", 3, 3}, Row{unique, 0, 0},
                       Row{with(unique, {{0, '3'}}), 2, 0},              // row 1 already holds a 3
                       Row{with(blank, {{4, '7'}, {76, '7'}}), 2, 0},    // column 5 twice
                       Row{with(blank, {{0, '5'}, {20, '5'}}), 2, 0},    // box 1 twice
                       Row{".12345678" + std::string(9, '.') + "9" + std::string(62, '.'), 2, 0},  // cell 1: no digit
                       Row{unique + "99", 2, 1}})                        // beyond the 81st: ignored
    EXPECT_EQ(countSolutions(r.puzzle, r.limit), r.expected) << r.puzzle << " limit " << r.limit;
}

}  // namespace
}  // namespace tessaly
