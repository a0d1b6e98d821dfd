#pragma once
// The subcommands of tessaly-cli. Each one lives in its own <Name>Command.cpp
// and has one line in the command table of main.cpp.

#include <optional>
#include <span>
#include <string>
#include <vector>

namespace tessaly::cli {

/// The arguments after the subcommand's name.
using Arguments = std::vector<std::string>;

/// A subcommand: reads its arguments, writes to standard output and error, and
/// returns the process exit code.
using CommandFunction = int (*)(const Arguments& args);

/// Exit codes shared by all subcommands.
inline constexpr int kExitOk = 0;
inline constexpr int kExitFailure = 1;
inline constexpr int kExitUsage = 2;  ///< unknown subcommand or bad arguments

// The subcommands, one function per <Name>Command.cpp.
int solveCommand(const Arguments& args);   // SolveCommand.cpp
int exportCommand(const Arguments& args);  // ExportCommand.cpp
int createCommand(const Arguments& args);  // CreateCommand.cpp
int countCommand(const Arguments& args);   // CountCommand.cpp
int hintCommand(const Arguments& args);    // HintCommand.cpp
int gradeCommand(const Arguments& args);   // GradeCommand.cpp

/// The whole command line: argv[0] is the program, argv[1] the subcommand.
/// Returns the exit code (main.cpp).
int runCommandLine(std::span<char*> argv);

/// What export writes, for its line of the usage text: "CSV, TXT, XLS or report".
std::string exportedKinds();  // ExportCommand.cpp

/// Takes "--jobs J" out of args (1 to 1024 threads); ok is false after telling
/// a bad value on standard error.
std::optional<int> parseJobs(Arguments& args, bool& ok);

}  // namespace tessaly::cli
