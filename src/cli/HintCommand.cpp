// tessaly-cli hint FILE N --rule K|all|cell|next: reads puzzle N as the program
// does and prints the hint report of one rule (1..6) or of all six, tells the
// cell with the fewest choices, or prints the next step of the techniques
// turned on (--techniques).
// tessaly-cli hint FILE N --judge CELL DIGIT [--after MOVES]: plays MOVES
// ("41=7,23=4") as the ManualSolve tab takes them, then prints the coach's
// verdict on placing DIGIT in CELL; a wrong move is always told.

#include <filesystem>
#include <iostream>

#include "cli/CliSupport.h"
#include "cli/Usage.h"
#include "play/Game.h"
#include "play/Hints.h"
#include "play/NextStep.h"
#include "solver/ReadPuzzle.h"

namespace tessaly::cli {

namespace {
int hintUsageError(const std::string& text) {
  std::cerr << "tessaly-cli: " << text << "\nUsage: " << usageLine("hint") << '\n';
  return kExitUsage;
}

/// A move or judged cell the board does not take: said, without the usage line.
int refused(const std::string& text) {
  std::cerr << "tessaly-cli: " << text << '\n';
  return kExitUsage;
}

/// "41=7,23=4" as (cell, digit) pairs; nothing when malformed.
std::optional<std::vector<std::pair<int, int>>> parseMoves(const std::string& text) {
  std::vector<std::pair<int, int>> moves;
  std::size_t start = 0;
  while (true) {
    const std::size_t comma = text.find(',', start);
    const std::string item = text.substr(start, comma == std::string::npos ? std::string::npos : comma - start);
    const std::size_t eq = item.find('=');
    if (eq == std::string::npos) return std::nullopt;
    const auto cell = wholeNumber(item.substr(0, eq), 1, kCells);
    const auto digit = wholeNumber(item.substr(eq + 1), 1, 9);
    if (!cell || !digit) return std::nullopt;
    moves.emplace_back(int(*cell), int(*digit));
    if (comma == std::string::npos) return moves;
    start = comma + 1;
  }
}

/// Why the cell cannot take a digit (a given, or a value already there), or "".
std::string cellTaken(const Session& session, int cell) {
  if (session.grid[cell].given) return "cell " + std::to_string(cell) + " is a given";
  if (session.grid[cell].value)
    return "cell " + std::to_string(cell) + " already holds " + std::to_string(session.grid[cell].value);
  return {};
}

/// --judge: the moves first, then the verdict line.
int judgeCommand(const PuzzleOptions& options, int cell, int digit, const std::vector<std::pair<int, int>>& moves) {
  CliSession cli(options);
  Session& session = cli.session();
  session.controls.currentTab = Tab::ManualSolve;
  ManualPlay play(session);
  Game game(play);
  if (!readPuzzle(session, options.file, options.number)) return kExitUsage;
  for (const auto& [moveCell, moveDigit] : moves) {
    const std::string move = "move " + std::to_string(moveCell) + "=" + std::to_string(moveDigit) + ": ";
    if (const std::string taken = cellTaken(session, moveCell); !taken.empty()) return refused(move + taken);
    play.selectCell(moveCell);
    if (!play.cellChoice.has(moveDigit))
      return refused(move + std::to_string(moveDigit) + " is not among the choices of cell " +
                            std::to_string(moveCell));
    game.typed(moveDigit);
    if (session.grid[moveCell].value != moveDigit) return refused(move + "refused, as the message says");
  }
  if (const std::string taken = cellTaken(session, cell); !taken.empty()) return refused("--judge: " + taken);
  const Verdict verdict =
      judgePlacement(game.position(), cell, digit, game.solution(), {session.controls.techniques, true});
  return writeOut(verdict.text + "\n") ? kExitOk : kExitFailure;
}
}  // namespace

int hintCommand(const Arguments& arguments) {
  Arguments args = arguments;
  std::string rule;
  bool hasRule = false;
  if (!takeOption(args, "--rule", rule, hasRule)) return kExitUsage;
  // --judge CELL DIGIT takes two values.
  std::optional<std::pair<int, int>> judged;
  for (std::size_t i = 0; i < args.size(); ++i) {
    if (args[i] != "--judge") continue;
    const auto cell = i + 2 < args.size() ? wholeNumber(args[i + 1], 1, kCells) : std::nullopt;
    const auto digit = i + 2 < args.size() ? wholeNumber(args[i + 2], 1, 9) : std::nullopt;
    if (!cell || !digit) return hintUsageError("--judge takes a cell (1 to 81) and a digit (1 to 9)");
    judged = {int(*cell), int(*digit)};
    args.erase(args.begin() + long(i), args.begin() + long(i) + 3);
    break;
  }
  std::string after;
  bool hasAfter = false;
  if (!takeOption(args, "--after", after, hasAfter)) return kExitUsage;
  if (hasRule && judged) return hintUsageError("--rule and --judge cannot be given together");
  if (hasAfter && !judged) return hintUsageError("--after needs --judge");
  std::vector<std::pair<int, int>> moves;
  if (hasAfter) {
    auto parsed = parseMoves(after);
    if (!parsed) return hintUsageError("--after takes moves like 41=7,23=4 (cell 1 to 81 = digit 1 to 9)");
    moves = std::move(*parsed);
  }
  if (judged) {
    auto options = parsePuzzleOptions(args, usageLine("hint").c_str());
    if (!options) return kExitUsage;
    if (!args.empty()) return hintUsageError("unexpected argument '" + args[0] + "'");
    if (!requireFile(options->file)) return kExitUsage;
    return judgeCommand(*options, judged->first, judged->second, moves);
  }
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
