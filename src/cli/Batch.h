#pragma once
// Batch work of `grade` and `count --solutions`: every puzzle of a file or of
// standard input, one output line each, worked on by every core.

#include <string>

#include "model/TechniqueStep.h"

namespace tessaly::cli {

/// Reads the puzzles of `source` ("-" for standard input) a piece at a time:
/// one-per-line puzzles, collection files and nine-line grids alike. Writes
/// `PUZZLE<TAB>SOLUTIONS<TAB>GRADE<TAB>NAME` per puzzle in input order; a line
/// that is not a puzzle, or a puzzle whose givens repeat, is told on standard
/// error and skipped. Returns the exit code: 0, or 2 after any bad input, an
/// unreadable or binary source, or one without puzzles. `jobs` 0 uses every core.
/// With further techniques, each line adds the hardest technique's name and
/// the guesses made (batchLine).
/// What each output line holds: the grade line (batchLine), or only the
/// puzzle and its solution count (0, 1 or 2 for several) from the solution
/// counter.
enum class BatchOutput { Grades, Solutions };
int runBatch(const std::string& source, int jobs, TechniqueSet techniques = TechniqueSet::rulesOnly(),
             BatchOutput output = BatchOutput::Grades);

/// The 81 cells with "." for blanks, then the solution count (0, 1 or 2 for
/// several), the grade number and name ("-" and "-" without a solution); with
/// further techniques also the hardest technique the solve needed and the
/// number of guesses ("-" and "-" without a solution).
std::string batchLine(const std::string& puzzle81, TechniqueSet techniques = TechniqueSet::rulesOnly());

}  // namespace tessaly::cli
