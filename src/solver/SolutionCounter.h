#pragma once
// A plain, silent solution counter: depth-first search over bit masks, used to
// check that a puzzle has exactly one solution. It shares nothing with the
// narrated solver and writes no log.

#include <string>

namespace tessaly {

/// The number of solutions of an 81-character puzzle (row by row; "1".."9" are
/// givens, any other character is a blank), counting no further than `limit`.
/// A puzzle whose givens repeat a digit in a row, column or box has 0. Text
/// shorter than 81 characters leaves the missing cells blank; characters after
/// the 81st are ignored.
int countSolutions(const std::string& puzzle81, int limit = 2);

}  // namespace tessaly
