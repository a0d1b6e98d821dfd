// tessaly-cli export FILE N --csv|--txt|...|--report PATH: reads puzzle N,
// solves it as the Solve command does and writes the puzzle with its solution.
// The options of the formats come from the table of export formats.

#include <filesystem>
#include <iostream>
#include <vector>

#include "cli/CliSupport.h"
#include "cli/Usage.h"
#include "model/FileUtil.h"
#include "output/ExportFormats.h"
#include "output/SaveCommands.h"
#include "output/TextExport.h"
#include "solver/ReadPuzzle.h"
#include "solver/SolverEngine.h"

namespace tessaly::cli {

namespace {
constexpr const char* kReportOption = "--report";
}  // namespace

std::string exportedKinds() {
  std::string kinds;
  for (const ExportFormat& format : exportFormats()) kinds += std::string(format.name) + ", ";
  kinds.resize(kinds.size() - 2);
  return kinds + " or report";
}

int exportCommand(const Arguments& arguments) {
  Arguments args = arguments;
  struct Target {
    const ExportFormat* format;  ///< null for the report
    std::string path;
    bool present = false;
  };
  std::vector<Target> targets;
  for (const ExportFormat& format : exportFormats()) targets.push_back({&format, {}});
  targets.push_back({nullptr, {}});
  for (Target& t : targets)
    if (!takeOption(args, t.format ? std::string(t.format->cliOption) : kReportOption, t.path, t.present))
      return kExitUsage;
  const bool withLog = takeFlag(args, "--with-log");
  const std::string usage = usageLine("export");
  auto options = parsePuzzleOptions(args, usage.c_str());
  if (!options) return kExitUsage;
  const Target* chosen = nullptr;
  int count = 0;
  for (const Target& t : targets)
    if (t.present) {
      chosen = &t;
      ++count;
    }
  if (count != 1 || !args.empty()) {
    std::cerr << "Usage: " << usage << '\n';
    return kExitUsage;
  }
  if (!requireFile(options->file)) return kExitUsage;
  CliSession cli(*options);
  Session& session = cli.session();
  std::string path;
  for (const Target& t : targets)
    if (t.present) path = t.path;
  // A target that cannot be written is told before the puzzle is read and
  // solved, not after the solve has said it is done.
  if (std::string problem = writeProblem(path); !problem.empty()) {
    session.message(couldNotWriteText(path, FileResult::failure(problem)));
    return kExitFailure;
  }
  if (!readPuzzle(session, options->file, options->number)) return kExitUsage;
  SolverEngine(session).solveCommand();

  FileResult written;
  if (!chosen->format) {
    written = writeFileAtomically(path, reportText(session, withLog));
  } else {
    if (!gridIsComplete(session)) {
      session.message("There is no solution to save");
      return kExitFailure;
    }
    written = chosen->format->write(session, path);
  }
  if (!written) {
    session.message(couldNotWriteText(path, written));
    return kExitFailure;
  }
  return gridSolved(session) ? kExitOk : kExitFailure;
}

}  // namespace tessaly::cli
