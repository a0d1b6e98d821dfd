// tessaly-cli count FILE [--solutions N]: prints how many puzzles the collection
// holds, or how many solutions puzzle N has ("0", "1" or "2+").
// tessaly-cli count --solutions FILE|-: one line per puzzle of FILE or standard
// input with its solution count and grade, as `grade FILE` writes them.

#include <filesystem>
#include <iostream>
#include <string>

#include "cli/Batch.h"
#include "cli/CliSupport.h"
#include "model/CollectionFile.h"
#include "solver/SolutionCounter.h"

namespace tessaly::cli {

namespace {

constexpr const char* kCountUsage = "tessaly-cli count FILE [--solutions N]";

int usageError(const std::string& text) {
  if (!text.empty()) std::cerr << "tessaly-cli: " << text << '\n';
  std::cerr << "Usage: " << kCountUsage << '\n';
  return kExitUsage;
}

// A whole number 1..2000000000 written in decimal digits only.
bool parsePuzzleNumber(const std::string& text, int& number) {
  if (text.empty() || text.size() > 10) return false;
  long long n = 0;
  for (char ch : text) {
    if (ch < '0' || ch > '9') return false;
    n = n * 10 + (ch - '0');
  }
  if (n < 1 || n > 2000000000) return false;
  number = static_cast<int>(n);
  return true;
}

// The 81 cells of a puzzle's nine row lines, as a read takes them: each line
// padded or cut to nine characters.
std::string puzzleText(const std::vector<std::string>& rows) {
  std::string text;
  for (const std::string& row : rows) {
    std::string cells = row.substr(0, 9);
    cells.resize(9, '0');
    text += cells;
  }
  return text;
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
  int number = 0;
  if (hasSolutions && args.empty() && !parsePuzzleNumber(solutions, number)) {
    // "--solutions FILE": every puzzle of the file.
    if (solutions != "-" && !requireFile(solutions)) return kExitUsage;
    return runBatch(solutions, jobs.value_or(0));
  }
  if (args.empty()) return usageError("a collection file is needed");
  if (args.size() > 1) return usageError("unexpected argument '" + args[1] + "'");
  const std::string& file = args[0];
  if (!requireFile(file)) return kExitUsage;
  const int total = countPuzzles(file);
  if (!hasSolutions) {
    std::cout << total << '\n';
    return kExitOk;
  }
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
  const int found = countSolutions(puzzleText(read.rows), 2);
  std::cout << (found >= 2 ? std::string("2+") : std::to_string(found)) << '\n';
  return kExitOk;
}

}  // namespace tessaly::cli
