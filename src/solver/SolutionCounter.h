#pragma once
// A plain, silent solution counter: depth-first search over bit sets with
// naked and hidden singles propagated between guesses and one round of
// box-line removals before each guess, used to check that a puzzle has
// exactly one solution. It shares nothing with the narrated solver and writes
// no log.

#include <initializer_list>
#include <string>
#include <string_view>

namespace tessaly {

/// The number of solutions of an 81-character puzzle (row by row; "1".."9" are
/// givens, any other character is a blank), counting no further than `limit`.
/// A puzzle whose givens repeat a digit in a row, column or box has 0. Text
/// shorter than 81 characters leaves the missing cells blank; characters after
/// the 81st are ignored.
int countSolutions(std::string_view puzzle81, int limit = 2);
inline int countSolutions(const std::string& puzzle81, int limit = 2) {
  return countSolutions(std::string_view(puzzle81), limit);
}
inline int countSolutions(const char* puzzle81, int limit = 2) { return countSolutions(std::string_view(puzzle81), limit); }

/// As countSolutions, and the first solution found (81 digits) when there is one.
int countSolutions(std::string_view puzzle81, int limit, std::string* firstSolution);

/// Whether the puzzle has a solution other than `solution` (81 digits), for a
/// puzzle whose every solution agrees with `solution` outside the cells 0..80
/// listed (as when they were blanked in a puzzle with that one solution). One
/// search for a solution that differs in one of those cells, stopping at the
/// first: cheaper than counting to two, which finds the known one first.
bool hasOtherSolution(std::string_view puzzle81, std::string_view solution, std::initializer_list<int> cells);

}  // namespace tessaly
