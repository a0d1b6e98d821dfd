// tessaly-cli: the core without a window. The first argument names a
// subcommand; the rest goes to that subcommand's function.

#include <cstdio>
#include <iomanip>
#include <iostream>
#include <span>
#include <sstream>
#include <string>
#include <string_view>

#include "Version.h"
#include "cli/CliSupport.h"
#include "cli/Commands.h"
#include "cli/Usage.h"
#include "model/CpuLevel.h"

namespace tessaly::cli {
namespace {

struct CommandEntry {
  std::string_view name;
  std::string_view summary;  ///< one line for the usage text
  CommandFunction run;
  std::string (*kinds)() = nullptr;  ///< when set, what it lists follows the summary in brackets
};

int helpCommand(const Arguments& args);

// Adding a subcommand: write its function in <Name>Command.cpp, declare it in
// Commands.h and add its line here.
constexpr CommandEntry kCommands[] = {
    {"help", "show this usage text", helpCommand},
    {"solve", "read puzzle N of FILE and solve it, printing the narration", solveCommand},
    {"export", "solve puzzle N of FILE and export it", exportCommand, exportedKinds},
    {"create", "create new puzzles with a chosen number and distribution of blanks", createCommand},
    {"count", "print the number of puzzles in FILE, or the solutions of one (0, 1 or 2+)", countCommand},
    {"grade", "print the grade (1-5) of puzzle N of FILE, or of every puzzle of FILE or -", gradeCommand},
    {"hint", "read puzzle N of FILE and print what one rule, all rules or the cell hint find", hintCommand},
};

constexpr std::string_view kProgramName = "tessaly-cli";
constexpr int kNameWidth = 10;  ///< column of the summaries in the usage text

void printUsage(std::ostream& out) {
  out << "Usage: " << kProgramName << " <command> [arguments]\n"
      << "       " << kProgramName << " --help | --version\n"
      << "\nCommands:\n";
  for (const CommandEntry& command : kCommands) {
    out << "  " << std::left << std::setw(kNameWidth) << command.name << command.summary;
    if (command.kinds) out << " (" << command.kinds() << ')';
    out << '\n';
  }
}

// help: the usage text with every command's options; help COMMAND: that
// command's usage alone.
int helpCommand(const Arguments& args) {
  std::ostringstream text;
  if (!args.empty() && args[0] != "--help" && args[0] != "-h") {
    const CommandUsage* usage = commandUsage(args[0]);
    if (usage == nullptr) {
      std::cerr << kProgramName << ": unknown command '" << args[0] << "'; see '" << kProgramName << " --help'\n";
      return kExitUsage;
    }
    printCommandHelp(text, *usage);
  } else {
    printUsage(text);
    printAllCommandHelp(text);
  }
  return writeOut(text.str()) ? kExitOk : kExitFailure;
}

const CommandEntry* findCommand(std::string_view name) {
  for (const CommandEntry& command : kCommands) {
    if (command.name == name) return &command;
  }
  return nullptr;
}

}  // namespace

int runCommandLine(std::span<char*> argv) {
  if (argv.size() < 2) {
    printUsage(std::cerr);
    return kExitUsage;
  }
  const std::string_view first = argv[1];
  if (first == "--help" || first == "-h") return helpCommand({});
  if (first == "--version") {
    std::ostringstream text;
    text << kProgramName << ' ' << kProgramVersion << '\n';
    return writeOut(text.str()) ? kExitOk : kExitFailure;
  }
  const CommandEntry* command = findCommand(first);
  if (command == nullptr) {
    std::cerr << kProgramName << ": unknown command '" << first << "'; see '" << kProgramName
              << " --help'\n";
    return kExitUsage;
  }
  const Arguments args(argv.begin() + 2, argv.end());
  if (command->run != helpCommand)
    if (const std::optional<int> help = answerHelp(args, command->name)) return *help;
  const int status = command->run(args);
  // Whatever the command wrote must have reached its destination: a full disk
  // or a closed pipe is an error, not a success.
  // (A command that failed has told its own fault already.)
  if (status == kExitOk && !writeOut("")) return kExitFailure;
  return status;
}

}  // namespace tessaly::cli

// The fuzz harnesses link the command line without its main (TESSALY_CLI_NO_MAIN).
#ifndef TESSALY_CLI_NO_MAIN
int main(int argc, char** argv) {
  if (const std::string missing = tessaly::missingCpuFeatures("tessaly-cli"); !missing.empty()) {
    std::fputs(missing.c_str(), stderr);
    return 1;
  }
  return tessaly::cli::runCommandLine(std::span<char*>(argv, static_cast<std::size_t>(argc)));
}
#endif
