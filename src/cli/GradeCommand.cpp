// tessaly-cli grade FILE [N] [--jobs J]: the grade of puzzle N, or with no N
// one line per puzzle of FILE ("-" for standard input) with its solution count
// and grade.

#include <iostream>
#include <string>

#include "cli/Batch.h"
#include "cli/CliSupport.h"
#include "cli/Usage.h"
#include "model/CollectionFile.h"
#include "solver/BitGrid.h"
#include "solver/Grader.h"
#include "solver/SolutionCounter.h"
#include "solver/Techniques.h"

namespace tessaly::cli {

namespace {

int usageError(const std::string& text) {
  if (!text.empty()) std::cerr << "tessaly-cli: " << text << '\n';
  std::cerr << "Usage: " << usageLine("grade") << '\n';
  return kExitUsage;
}

}  // namespace

std::optional<int> parseJobs(Arguments& args, bool& ok) {
  std::string jobs;
  bool hasJobs = false;
  ok = takeOption(args, "--jobs", jobs, hasJobs);
  if (!ok || !hasJobs) return std::nullopt;
  const auto n = wholeNumber(jobs, 1, 1024);
  if (!n) {
    std::cerr << "tessaly-cli: --jobs needs a whole number from 1 to 1024\n";
    ok = false;
  }
  return n ? std::optional<int>(int(*n)) : std::nullopt;
}

int gradeCommand(const Arguments& arguments) {
  Arguments args = arguments;
  bool ok = true;
  const auto jobs = parseJobs(args, ok);
  if (!ok) return usageError("");
  const std::optional<TechniqueSet> techniques = takeTechniques(args);
  if (!techniques) return kExitUsage;
  if (args.empty()) return usageError("a puzzle file is needed");
  if (args.size() > 2) return usageError("unexpected argument '" + args[2] + "'");
  const std::string& file = args[0];
  if (args.size() == 1) {
    if (file != "-" && !requireFile(file)) return kExitUsage;
    return runBatch(file, jobs.value_or(0), *techniques);
  }
  const auto number = wholeNumber(args[1], 1, 2000000000);
  if (!number) return usageError("the puzzle number must be 1 or more");
  if (!requireFile(file)) return kExitUsage;
  const CollectionScan scan = scanCollection(file);
  if (scan.refused()) {
    std::cerr << "tessaly-cli: " << collectionProblemText(scan, file) << '\n';
    return kExitUsage;
  }
  const int total = scan.problem == CollectionScan::Problem::None ? scan.puzzles : 0;
  if (*number > total) {
    std::cerr << "tessaly-cli: puzzle " << *number << " not found; " << file << " holds " << total << " puzzles\n";
    return kExitUsage;
  }
  const PuzzleRowsRead read = readPuzzleRows(file, *number);
  if (read.status != PuzzleRowsRead::Status::Found) {
    std::cerr << "tessaly-cli: puzzle " << *number << " of " << file << " is incomplete or unreadable\n";
    return kExitUsage;
  }
  const std::string cells = read.cells();
  if (!bitgrid::givens(cells)) {
    std::cerr << "tessaly-cli: puzzle " << *number << " of " << file << ": a given repeats in a row, column or box\n";
    return kExitUsage;
  }
  const PuzzleGrade grade = gradePuzzle(cells, *techniques);
  if (!grade.graded()) {
    std::cout << "- (no solution)\n";
    return kExitOk;
  }
  std::cout << grade.grade << ' ' << gradeName(grade.grade);
  if (techniques->any())
    std::cout << " (hardest: " << techniqueInfo(grade.hardestTechnique).name << ", guesses: " << grade.guesses << ')';
  std::cout << '\n';
  return kExitOk;
}

}  // namespace tessaly::cli
