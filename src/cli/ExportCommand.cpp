// tessaly-cli export FILE N --csv|--txt|--xls|--report PATH: reads puzzle N,
// solves it as the Solve command does and writes the puzzle with its solution.

#include <filesystem>
#include <iostream>

#include "cli/CliSupport.h"
#include "model/FileUtil.h"
#include "output/SaveCommands.h"
#include "output/TextExport.h"
#include "solver/ReadPuzzle.h"
#include "solver/SolverEngine.h"

namespace tessaly::cli {

namespace {
constexpr const char* kExportUsage =
    "tessaly-cli export FILE N (--csv PATH | --txt PATH | --xls PATH | --report PATH [--with-log]) [--seed S] "
    "[--rule-order S] [--max-tries N]";
}

int exportCommand(const Arguments& arguments) {
  Arguments args = arguments;
  struct Target {
    const char* option;
    std::string path;
    bool present = false;
  } targets[] = {{"--csv", {}}, {"--txt", {}}, {"--xls", {}}, {"--report", {}}};
  for (Target& t : targets)
    if (!takeOption(args, t.option, t.path, t.present)) return kExitUsage;
  const bool withLog = takeFlag(args, "--with-log");
  auto options = parsePuzzleOptions(args, kExportUsage);
  if (!options) return kExitUsage;
  int chosen = 0;
  for (const Target& t : targets) chosen += t.present ? 1 : 0;
  if (chosen != 1 || !args.empty()) {
    std::cerr << "Usage: " << kExportUsage << '\n';
    return kExitUsage;
  }
  if (!requireFile(options->file)) return kExitUsage;
  CliSession cli(*options);
  Session& session = cli.session();
  if (!readPuzzle(session, options->file, options->number)) return kExitUsage;
  SolverEngine(session).solveCommand();

  bool written = false;
  std::string path;
  if (targets[3].present) {
    path = targets[3].path;
    written = writeFileAtomically(path, reportText(session, withLog));
  } else {
    const ExportFormat format = targets[0].present ? ExportFormat::Csv
                                : targets[1].present ? ExportFormat::Txt
                                                     : ExportFormat::Xls;
    path = targets[0].present ? targets[0].path : targets[1].present ? targets[1].path : targets[2].path;
    if (!gridIsComplete(session)) {
      cli.session().message("There is no solution to save");
      return kExitFailure;
    }
    written = writeExport(session, format, path);
  }
  if (!written) {
    session.message("Could not write file: " + path);
    return kExitFailure;
  }
  return gridSolved(session) ? kExitOk : kExitFailure;
}

}  // namespace tessaly::cli
