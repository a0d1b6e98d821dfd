// tessaly-cli hint FILE N --rule K|all|cell|next: reads puzzle N as the program
// does and prints the hint report of one rule (1..6) or of all six, tells the
// cell with the fewest choices, or prints the next step of the techniques
// turned on (--techniques).

#include <filesystem>
#include <iostream>

#include "cli/CliSupport.h"
#include "cli/Usage.h"
#include "play/Hints.h"
#include "play/NextStep.h"
#include "solver/ReadPuzzle.h"

namespace tessaly::cli {

namespace {
int hintUsageError(const std::string& text) {
  std::cerr << "tessaly-cli: " << text << "\nUsage: " << usageLine("hint") << '\n';
  return kExitUsage;
}
}  // namespace

int hintCommand(const Arguments& arguments) {
  Arguments args = arguments;
  std::string rule;
  bool hasRule = false;
  if (!takeOption(args, "--rule", rule, hasRule)) return kExitUsage;
  if (!hasRule) return hintUsageError("--rule is required");
  // The GetHint index: 0..5 for Rules 1..6, 6 for all; -1 for the cell hint,
  // -2 for the next step.
  int index = 0;
  if (rule == "all")
    index = kAllRulesHint;
  else if (rule == "cell")
    index = -1;
  else if (rule == "next")
    index = -2;
  else if (rule.size() == 1 && rule[0] >= '1' && rule[0] <= '6')
    index = rule[0] - '1';
  else
    return hintUsageError("--rule takes 1 to 6, all, cell or next");

  auto options = parsePuzzleOptions(args, usageLine("hint").c_str());
  if (!options) return kExitUsage;
  if (!args.empty()) return hintUsageError("unexpected argument '" + args[0] + "'");
  if (!requireFile(options->file)) return kExitUsage;
  CliSession cli(*options);
  Session& session = cli.session();
  if (!readPuzzle(session, options->file, options->number)) return kExitUsage;

  if (index == -1) {
    cellHint(session);
    return kExitOk;
  }
  if (index == -2) {
    for (const HintLine& line : nextStepHint(session).lines) std::cout << line.text << '\n';
    return kExitOk;
  }
  runRuleHint(session, index);
  std::string out;
  for (const HintLine& line : session.hints) {
    out += line.text;
    out += '\n';
  }
  std::cout << out;
  return kExitOk;
}

}  // namespace tessaly::cli
