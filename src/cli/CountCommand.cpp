// tessaly-cli count FILE [--solutions N]: prints how many puzzles the collection
// holds, or how many solutions puzzle N has ("0", "1" or "2+").
// tessaly-cli count --solutions FILE|-: one line per puzzle of FILE or standard
// input with its solution count, from the solution counter.
// tessaly-cli count FILE --check: every damaged record of FILE by its line.

#include <iostream>
#include <string>

#include "cli/Batch.h"
#include "cli/CliSupport.h"
#include "cli/Usage.h"
#include "model/CollectionFile.h"
#include "solver/SolutionCounter.h"

namespace tessaly::cli {

namespace {

int usageError(const std::string& text) {
  if (!text.empty()) std::cerr << "tessaly-cli: " << text << '\n';
  std::cerr << "Usage: " << usageLine("count") << '\n';
  return kExitUsage;
}

// A whole number 1..2000000000 written in decimal digits only.
bool parsePuzzleNumber(const std::string& text, int& number) {
  const auto n = wholeNumber(text, 1, 2000000000);
  if (n) number = int(*n);
  return n.has_value();
}

// count FILE --check: one line per damaged record, then a summary; exit 1
// when there is any.
int checkCommand(const std::string& file) {
  const CollectionCheck check = checkCollection(file);
  std::string out;
  for (const RecordProblem& problem : check.problems) {
    out += file + ":" + std::to_string(problem.line) + ": ";
    if (problem.puzzle > 0) out += "puzzle " + std::to_string(problem.puzzle) + ": ";
    out += problem.text + "\n";
  }
  out += std::to_string(check.scan.puzzles) + (check.scan.puzzles == 1 ? " puzzle, " : " puzzles, ") +
         std::to_string(check.problems.size()) + (check.problems.size() == 1 ? " problem" : " problems") + "\n";
  if (!writeOut(out)) return kExitFailure;
  return check.problems.empty() ? kExitOk : kExitFailure;
}

}  // namespace

int countCommand(const Arguments& arguments) {
  Arguments args = arguments;
  std::string solutions;
  bool hasSolutions = false;
  bool jobsOk = true;
  const auto jobs = parseJobs(args, jobsOk);
  if (!jobsOk) return usageError("");
  if (!takeOption(args, "--solutions", solutions, hasSolutions)) return usageError("");
  const bool check = takeFlag(args, "--check");
  int number = 0;
  if (hasSolutions && !check && args.empty() && !parsePuzzleNumber(solutions, number)) {
    // "--solutions FILE": every puzzle of the file.
    if (solutions != "-" && !requireFile(solutions)) return kExitUsage;
    return runBatch(solutions, jobs.value_or(0), TechniqueSet::rulesOnly(), BatchOutput::Solutions);
  }
  if (args.empty()) return usageError("a collection file is needed");
  if (args.size() > 1) return usageError("unexpected argument '" + args[1] + "'");
  if (check && hasSolutions) return usageError("--check and --solutions go separately");
  const std::string& file = args[0];
  if (!requireFile(file)) return kExitUsage;
  // The same refusals as every other command that reads the file.
  const CollectionScan scan = scanCollection(file);
  if (scan.refused()) {
    std::cerr << "tessaly-cli: " << collectionProblemText(scan, file) << '\n';
    return kExitUsage;
  }
  if (check) return checkCommand(file);
  const int total = scan.problem == CollectionScan::Problem::None ? scan.puzzles : 0;
  if (!hasSolutions) return writeOut(std::to_string(total) + "\n") ? kExitOk : kExitFailure;
  if (!parsePuzzleNumber(solutions, number)) return usageError("--solutions needs a puzzle number of 1 or more");
  if (number > total) {
    std::cerr << "tessaly-cli: puzzle " << number << " not found; " << file << " holds " << total << " puzzles\n";
    return kExitUsage;
  }
  const PuzzleRowsRead read = readPuzzleRows(file, number);
  if (read.status != PuzzleRowsRead::Status::Found) {
    std::cerr << "tessaly-cli: puzzle " << number << " of " << file << " is incomplete or unreadable\n";
    return kExitUsage;
  }
  const int found = countSolutions(read.cells(), 2);
  return writeOut((found >= 2 ? std::string("2+") : std::to_string(found)) + "\n") ? kExitOk : kExitFailure;
}

}  // namespace tessaly::cli
