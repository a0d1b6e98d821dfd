#pragma once
// Runs the built tessaly-cli as a separate process and collects what it wrote,
// for the black-box tests of the command line.

#include <sys/wait.h>

#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

#include "model/FileUtil.h"

namespace tessaly::clitest {

struct CliResult {
  int exitCode = -1;
  std::string out;  ///< standard output
  std::string err;  ///< standard error
};

inline std::string readWholeFile(const std::filesystem::path& path) {
  return tessaly::readWholeFile(path.string()).value_or("");
}

/// Quotes one argument for the shell: single quotes, with each ' written as '\''.
inline std::string shellQuoted(const std::string& arg) {
  std::string quoted = "'";
  for (char c : arg) quoted += c == '\'' ? std::string("'\\''") : std::string(1, c);
  return quoted + "'";
}

/// Runs tessaly-cli with the arguments in the current directory, standard input
/// empty; standard output and error go through files of a fresh temporary
/// directory, so tests running side by side do not meet.
inline CliResult runCli(const std::vector<std::string>& args) {
  namespace fs = std::filesystem;
  std::string dirTemplate = (fs::temp_directory_path() / "tessaly-cli-XXXXXX").string();
  const fs::path dir = ::mkdtemp(dirTemplate.data());
  std::string command = shellQuoted(TESSALY_CLI_PATH);
  for (const std::string& arg : args) command += " " + shellQuoted(arg);
  command += " </dev/null >" + shellQuoted((dir / "out").string()) + " 2>" + shellQuoted((dir / "err").string());

  CliResult result;
  const int status = std::system(command.c_str());
  result.exitCode = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  result.out = readWholeFile(dir / "out");
  result.err = readWholeFile(dir / "err");
  fs::remove_all(dir);
  return result;
}

}  // namespace tessaly::clitest
