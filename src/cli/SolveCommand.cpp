// tessaly-cli solve FILE N: reads puzzle N as the program does and solves it,
// printing the narration and the final grid.

#include <filesystem>
#include <iostream>

#include "cli/CliSupport.h"
#include "solver/ReadPuzzle.h"
#include "solver/SolverEngine.h"

namespace tessaly::cli {

namespace {
constexpr const char* kSolveUsage =
    "tessaly-cli solve FILE N [--raw] [--run start|solve] [--seed S] [--rule-order S] [--max-tries N]";
}

int solveCommand(const Arguments& arguments) {
  Arguments args = arguments;
  std::string run = "start";
  bool hasRun = false;
  if (!takeOption(args, "--run", run, hasRun)) return kExitUsage;
  if (run != "start" && run != "solve") {
    std::cerr << "tessaly-cli: --run takes start or solve\n";
    return kExitUsage;
  }
  auto options = parsePuzzleOptions(args, kSolveUsage);
  if (!options) return kExitUsage;
  if (!args.empty()) {
    std::cerr << "tessaly-cli: unexpected argument '" << args[0] << "'\nUsage: " << kSolveUsage << '\n';
    return kExitUsage;
  }
  if (!requireFile(options->file)) return kExitUsage;
  CliSession cli(*options);
  Session& session = cli.session();
  if (!readPuzzle(session, options->file, options->number)) {
    printLogAndGrid(session, options->raw);
    return kExitUsage;
  }
  SolverEngine engine(session);
  if (run == "solve") {
    engine.solveCommand();
  } else {
    session.controls.PauseCheck = true;
    engine.startCommand();
  }
  printLogAndGrid(session, options->raw);
  return gridSolved(session) ? kExitOk : kExitFailure;
}

}  // namespace tessaly::cli
