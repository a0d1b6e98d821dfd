#pragma once
// The usage text of every subcommand: one line of synopsis and a line for
// each option. `tessaly-cli COMMAND --help`, `tessaly-cli help COMMAND`, the
// usage errors and `tessaly-cli --help` (from which the manual page is made)
// all print from here.

#include <optional>
#include <ostream>
#include <span>
#include <string>
#include <string_view>

#include "cli/Commands.h"

namespace tessaly::cli {

struct OptionHelp {
  std::string_view option;
  std::string_view text;
};

struct CommandUsage {
  std::string_view name;
  std::string_view synopsis;  ///< after "Usage: "
  std::span<const OptionHelp> options;
};

/// The usage of a subcommand; nothing for an unknown name.
const CommandUsage* commandUsage(std::string_view name);
/// "tessaly-cli NAME ..." for the "Usage: " lines of errors.
std::string usageLine(std::string_view name);
/// The synopsis and the options, one per line.
void printCommandHelp(std::ostream& out, const CommandUsage& usage);
/// Every subcommand's help, one after the other (the end of `--help`).
void printAllCommandHelp(std::ostream& out);
/// When the arguments ask for help ("--help" or "-h"), prints the command's
/// help on standard output and returns its exit code (0, or 1 when standard
/// output could not be written).
std::optional<int> answerHelp(const Arguments& args, std::string_view name);

}  // namespace tessaly::cli
