// tessaly-cli solve FILE N: reads puzzle N as the program does and solves it,
// printing the narration and the final grid, or with --board-at K the board as
// line K of the narration saw it.

#include <filesystem>
#include <iostream>

#include "cli/CliSupport.h"
#include "cli/Usage.h"
#include "solver/ReadPuzzle.h"
#include "solver/SolverEngine.h"

namespace tessaly::cli {


int solveCommand(const Arguments& arguments) {
  Arguments args = arguments;
  std::string run = "start";
  bool hasRun = false;
  if (!takeOption(args, "--run", run, hasRun)) return kExitUsage;
  if (run != "start" && run != "solve") {
    std::cerr << "tessaly-cli: --run takes start or solve\n";
    return kExitUsage;
  }
  std::string boardAtText;
  bool boardAt = false;
  long long boardLine = 0;
  if (!takeOption(args, "--board-at", boardAtText, boardAt)) return kExitUsage;
  if (boardAt && !parseInt(boardAtText, boardLine)) {
    std::cerr << "tessaly-cli: --board-at needs a whole number\n";
    return kExitUsage;
  }
  const std::string kSolveUsage = usageLine("solve");
  auto options = parsePuzzleOptions(args, kSolveUsage.c_str());
  if (!options) return kExitUsage;
  if (!args.empty()) {
    std::cerr << "tessaly-cli: unexpected argument '" << args[0] << "'\nUsage: " << kSolveUsage << '\n';
    return kExitUsage;
  }
  if (!requireFile(options->file)) return kExitUsage;
  CliSession cli(*options);
  Session& session = cli.session();
  // What is printed: the log and the grid, or the board at one line.
  const auto print = [&] {
    if (!boardAt) {
      printLogAndGrid(session, options->raw);
      return true;
    }
    return printBoardAtLine(session, boardLine);
  };
  if (!readPuzzle(session, options->file, options->number)) {
    // A puzzle that was read but failed its checks is shown as it stands; one
    // that was never read leaves nothing to show.
    if (session.collection.CurrentPuzzleNumber != 0) print();
    return kExitUsage;
  }
  SolverEngine engine(session);
  if (run == "solve") {
    engine.solveCommand();
  } else {
    session.controls.PauseCheck = true;
    engine.startCommand();
  }
  if (!print()) return kExitUsage;
  return gridSolved(session) ? kExitOk : kExitFailure;
}

}  // namespace tessaly::cli
