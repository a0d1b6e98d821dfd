// tessaly-cli export FILE N --csv|--txt|--xls|--report PATH: reads puzzle N,
// solves it as the Solve command does and writes the puzzle with its solution.

#include <filesystem>
#include <iostream>

#include "cli/CliSupport.h"
#include "cli/Usage.h"
#include "model/FileUtil.h"
#include "output/SaveCommands.h"
#include "output/TextExport.h"
#include "solver/ReadPuzzle.h"
#include "solver/SolverEngine.h"

namespace tessaly::cli {


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
  const std::string kExportUsage = usageLine("export");
  auto options = parsePuzzleOptions(args, kExportUsage.c_str());
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
  if (targets[3].present) {
    written = writeFileAtomically(path, reportText(session, withLog));
  } else {
    const ExportFormat format = targets[0].present ? ExportFormat::Csv
                                : targets[1].present ? ExportFormat::Txt
                                                     : ExportFormat::Xls;
    if (!gridIsComplete(session)) {
      cli.session().message("There is no solution to save");
      return kExitFailure;
    }
    written = writeExport(session, format, path);
  }
  if (!written) {
    session.message(couldNotWriteText(path, written));
    return kExitFailure;
  }
  return gridSolved(session) ? kExitOk : kExitFailure;
}

}  // namespace tessaly::cli
