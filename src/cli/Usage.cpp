#include "cli/Usage.h"

#include <iomanip>
#include <iostream>
#include <sstream>
#include <vector>

#include "cli/CliSupport.h"
#include "output/ExportFormats.h"

namespace tessaly::cli {

namespace {

constexpr OptionHelp kPuzzleOptions[] = {
    {"--seed S", "fix the random choices (guesses) with the number S"},
    {"--rule-order S", "the order the six rules are tried in, digits 1 to 6 (0 for a random order)"},
    {"--max-tries N", "the most guesses before a run is given up (the window's attempt limit)"},
    {"--techniques six|all|NAME,...", "the techniques used besides the six rules"},
};

constexpr OptionHelp kSolve[] = {
    {"FILE N", "puzzle N of FILE (-1 for the last)"},
    {"--raw", "each log line with its two-digit style number"},
    {"--run start|solve", "solve as the Start button does (the default) or as Solve does"},
    kPuzzleOptions[0], kPuzzleOptions[1], kPuzzleOptions[2], kPuzzleOptions[3],
    {"--board-at K", "print the board as line K of the narration saw it, instead of the narration"},
};

// export's formats come from the table of export formats (exportUsage below).
constexpr OptionHelp kExportAfterFormats[] = {
    {"--report PATH", "write the framed report"},
    {"--with-log", "the report includes the event log"},
    kPuzzleOptions[0], kPuzzleOptions[1], kPuzzleOptions[2], kPuzzleOptions[3],
};

constexpr OptionHelp kCreate[] = {
    {"--blanks N", "the number of blank cells"},
    {"--distribution D", "where the blanks go: mirror, box, random or manual"},
    {"--template FILE", "the blanks' places for manual, as nine lines (with --distribution manual)"},
    {"--count K", "how many puzzles to create (1 by default)"},
    {"--unique", "only puzzles with one solution"},
    {"--grade G", "only puzzles of grade G (1 to 5)"},
    {"--grade-tries T", "the most puzzles made to reach the grade or the technique (with --grade or --needs)"},
    {"--techniques six|all|NAME,...", "the techniques the grading may use besides the six rules"},
    {"--needs NAME", "only puzzles whose solve needs the technique NAME"},
    {"--into FILE.sud", "also append each puzzle to this collection"},
    {"--seed S", "fix the random choices with the number S"},
    {"--max-tries N", "the most guesses before a fill is given up"},
};

constexpr OptionHelp kCount[] = {
    {"FILE", "print the number of puzzles in FILE"},
    {"--solutions N", "print the solutions of puzzle N of FILE: 0, 1 or 2+"},
    {"--solutions FILE|-", "one line per puzzle of FILE or standard input: the puzzle and its solutions (0, 1 or 2)"},
    {"--check", "list every record of FILE that a read takes differently from what it holds, by its line"},
    {"--jobs J", "threads for --solutions FILE (1 to 1024; every core by default)"},
};

constexpr OptionHelp kGrade[] = {
    {"FILE N", "print the grade of puzzle N of FILE"},
    {"FILE", "one line per puzzle of FILE (- for standard input): puzzle, solutions, grade, name"},
    {"--jobs J", "threads for a whole file (1 to 1024; every core by default)"},
    kPuzzleOptions[3],
};

constexpr OptionHelp kHint[] = {
    {"FILE N", "puzzle N of FILE (-1 for the last)"},
    {"--rule K", "what rule K (1 to 6) finds; all: all six; cell: the cell with the fewest choices; next: the next step"},
    {"--judge CELL DIGIT", "the coach's verdict on placing DIGIT in CELL (1 to 81), instead of --rule"},
    {"--after MOVES", "with --judge: play MOVES such as 41=7,23=4 first"},
    kPuzzleOptions[0], kPuzzleOptions[1], kPuzzleOptions[2], kPuzzleOptions[3],
};

constexpr OptionHelp kHelp[] = {
    {"COMMAND", "the usage of one command"},
};

constexpr CommandUsage kUsages[] = {
    {"help", "tessaly-cli help [COMMAND]", kHelp},
    {"solve",
     "tessaly-cli solve FILE N [--raw] [--run start|solve] [--seed S] [--rule-order S] [--max-tries N] "
     "[--techniques six|all|NAME,...] [--board-at K]",
     kSolve},
    {"export", "", {}},  // made from the export formats: exportUsage
    {"create",
     "tessaly-cli create --blanks N --distribution mirror|box|random|manual [--template FILE] [--count K] "
     "[--unique] [--grade G] [--needs NAME] [--grade-tries T] [--techniques six|all|NAME,...] [--into FILE.sud] "
     "[--seed S] [--max-tries N]",
     kCreate},
    {"count", "tessaly-cli count FILE [--solutions N | --check] | count --solutions FILE|- [--jobs J]", kCount},
    {"grade", "tessaly-cli grade FILE [N] [--jobs J] [--techniques six|all|NAME,...]  (FILE - reads standard input)",
     kGrade},
    {"hint",
     "tessaly-cli hint FILE N (--rule 1|2|3|4|5|6|all|cell|next | --judge CELL DIGIT [--after MOVES]) [--seed S] "
     "[--rule-order S] [--max-tries N] [--techniques six|all|NAME,...]",
     kHint},
};

/// export's usage, one option per export format: made once from constant
/// tables, so it holds no state of the program.
const CommandUsage& exportUsage() {
  static const std::string synopsis = [] {
    std::string text = "tessaly-cli export FILE N (";
    for (const ExportFormat& format : exportFormats()) text += std::string(format.cliOption) + " PATH | ";
    return text + "--report PATH [--with-log]) [--seed S] [--rule-order S] [--max-tries N] "
                  "[--techniques six|all|NAME,...]";
  }();
  static const std::vector<std::string> names = [] {
    std::vector<std::string> out;
    for (const ExportFormat& format : exportFormats()) out.push_back(std::string(format.cliOption) + " PATH");
    return out;
  }();
  static const std::vector<OptionHelp> options = [] {
    std::vector<OptionHelp> out{{"FILE N", "puzzle N of FILE (-1 for the last)"}};
    for (std::size_t i = 0; i < exportFormats().size(); ++i) out.push_back({names[i], exportFormats()[i].cliHelp});
    out.insert(out.end(), std::begin(kExportAfterFormats), std::end(kExportAfterFormats));
    return out;
  }();
  static const CommandUsage usage{"export", synopsis, options};
  return usage;
}

}  // namespace

const CommandUsage* commandUsage(std::string_view name) {
  if (name == "export") return &exportUsage();
  for (const CommandUsage& usage : kUsages)
    if (usage.name == name) return &usage;
  return nullptr;
}

std::string usageLine(std::string_view name) {
  const CommandUsage* usage = commandUsage(name);
  return usage ? std::string(usage->synopsis) : std::string();
}

void printCommandHelp(std::ostream& out, const CommandUsage& usage) {
  out << "Usage: " << usage.synopsis << '\n';
  for (const OptionHelp& option : usage.options) {
    out << "  " << option.option << '\n' << "      " << option.text << '\n';
  }
}

void printAllCommandHelp(std::ostream& out) {
  for (const CommandUsage& usage : kUsages) {
    if (usage.name == "help") continue;
    out << '\n';
    printCommandHelp(out, *commandUsage(usage.name));
  }
}

std::optional<int> answerHelp(const Arguments& args, std::string_view name) {
  bool asked = false;
  for (const std::string& arg : args) asked = asked || arg == "--help" || arg == "-h";
  const CommandUsage* usage = commandUsage(name);
  if (!asked || usage == nullptr) return std::nullopt;
  std::ostringstream text;
  printCommandHelp(text, *usage);
  return writeOut(text.str()) ? kExitOk : kExitFailure;
}

}  // namespace tessaly::cli
