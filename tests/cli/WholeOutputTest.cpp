// Runs tessaly-cli over the cases in tests/data/cli and compares whole outputs.
//
// A case NAME is a set of files:
//   NAME.cmd     the arguments, on the first line that is not a "#" comment;
//                split at blanks, '...' keeps blanks inside one argument
//   NAME.out     expected standard output (absent: empty)
//   NAME.err     expected standard error (absent: empty)
//   NAME.status  expected exit status (absent: 0)
//   NAME.in      standard input (absent: empty)
//   NAME.setup/  files copied into the working folder before the run
//   NAME.files/  files the run must leave in the working folder, byte for byte
// In NAME.cmd, @DATA@ stands for tests/data and @WORK@ for the working folder,
// a fresh temporary folder of the case's own; in what the command prints, those
// two paths are written back as @DATA@ and @WORK@ before comparing.
//
// TESSALY_UPDATE_CASES=1 rewrites .out, .err, .status and the files already
// listed in NAME.files/ from what the command does now: review the diff.

#include <gtest/gtest.h>
#include <sys/wait.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

#include "support/TestSupport.h"

namespace tessaly {
namespace {

namespace fs = std::filesystem;

const fs::path kCases = fs::path(TESSALY_TEST_DATA_DIR) / "cli";

std::vector<std::string> caseNames() {
  std::vector<std::string> names;
  for (const auto& entry : fs::directory_iterator(kCases))
    if (entry.path().extension() == ".cmd") names.push_back(entry.path().stem().string());
  std::sort(names.begin(), names.end());
  return names;
}

std::string replaceAll(std::string text, const std::string& from, const std::string& to) {
  if (from.empty()) return text;
  for (std::size_t pos = 0; (pos = text.find(from, pos)) != std::string::npos; pos += to.size())
    text.replace(pos, from.size(), to);
  return text;
}

/// The first line of NAME.cmd that is neither empty nor a comment, split into arguments.
std::vector<std::string> arguments(const std::string& cmd) {
  std::string line;
  for (std::size_t start = 0; start < cmd.size();) {
    std::size_t end = cmd.find('\n', start);
    if (end == std::string::npos) end = cmd.size();
    line = cmd.substr(start, end - start);
    start = end + 1;
    if (!line.empty() && line[0] != '#') break;
    line.clear();
  }
  std::vector<std::string> args;
  std::string arg;
  bool inArg = false, quoted = false;
  for (char ch : line) {
    if (ch == '\'') {
      quoted = !quoted;
      inArg = true;
    } else if ((ch == ' ' || ch == '\t' || ch == '\r') && !quoted) {
      if (inArg) args.push_back(arg);
      arg.clear();
      inArg = false;
    } else {
      arg += ch;
      inArg = true;
    }
  }
  if (inArg) args.push_back(arg);
  return args;
}

std::string shellQuoted(const std::string& arg) { return "'" + replaceAll(arg, "'", "'\\''") + "'"; }

bool updating() {
  const char* update = std::getenv("TESSALY_UPDATE_CASES");
  return update != nullptr && std::string(update) == "1";
}

/// Writes the expected file, or removes it when the content is the default.
void updateExpected(const fs::path& path, const std::string& content, const std::string& fallback) {
  std::error_code ec;
  if (content == fallback)
    fs::remove(path, ec);
  else
    test::writeFile(path.string(), content);
}

class WholeOutput : public ::testing::TestWithParam<std::string> {};

TEST_P(WholeOutput, MatchesTheCase) {
  const fs::path base = kCases / GetParam();
  const auto withExtension = [&](const std::string& extension) { return fs::path(base.string() + extension); };
  test::TempDir scratch;
  const fs::path work = fs::path(scratch.path()) / "work";
  fs::create_directories(work);
  const std::string data = fs::path(TESSALY_TEST_DATA_DIR).lexically_normal().string();
  if (fs::is_directory(withExtension(".setup")))
    fs::copy(withExtension(".setup"), work, fs::copy_options::recursive);

  std::string command = "cd " + shellQuoted(work.string()) + " && exec " + shellQuoted(TESSALY_CLI_PATH);
  for (const std::string& arg : arguments(test::readFile(withExtension(".cmd").string())))
    command += " " + shellQuoted(replaceAll(replaceAll(arg, "@DATA@", data), "@WORK@", work.string()));
  const fs::path in = withExtension(".in");
  command += " <" + shellQuoted(fs::exists(in) ? in.string() : "/dev/null");
  command += " >" + shellQuoted(scratch.file("out")) + " 2>" + shellQuoted(scratch.file("err"));
  const int raw = std::system(command.c_str());
  const int status = WIFEXITED(raw) ? WEXITSTATUS(raw) : -1;

  const auto printed = [&](const std::string& name) {
    return replaceAll(replaceAll(test::readFile(scratch.file(name)), work.string(), "@WORK@"), data, "@DATA@");
  };
  const std::string out = printed("out"), err = printed("err");
  const fs::path expectedFiles = withExtension(".files");

  if (updating()) {
    updateExpected(withExtension(".out"), out, "");
    updateExpected(withExtension(".err"), err, "");
    updateExpected(withExtension(".status"), std::to_string(status) + "\n", "0\n");
    if (fs::is_directory(expectedFiles))
      for (const auto& entry : fs::recursive_directory_iterator(expectedFiles))
        if (entry.is_regular_file())
          test::writeFile(entry.path().string(), test::readFile((work / fs::relative(entry.path(), expectedFiles)).string()));
    return;
  }

  EXPECT_EQ(out, test::readFile(withExtension(".out").string()));
  EXPECT_EQ(err, test::readFile(withExtension(".err").string()));
  const std::string expectedStatus = test::readFile(withExtension(".status").string());
  EXPECT_EQ(status, expectedStatus.empty() ? 0 : std::stoi(expectedStatus));
  if (fs::is_directory(expectedFiles))
    for (const auto& entry : fs::recursive_directory_iterator(expectedFiles)) {
      if (!entry.is_regular_file()) continue;
      const fs::path relative = fs::relative(entry.path(), expectedFiles);
      EXPECT_TRUE(fs::exists(work / relative)) << relative << " was not written";
      EXPECT_EQ(test::readFile((work / relative).string()), test::readFile(entry.path().string())) << relative;
    }
}

INSTANTIATE_TEST_SUITE_P(Cases, WholeOutput, ::testing::ValuesIn(caseNames()), [](const auto& info) {
  std::string name = info.param;
  for (char& ch : name)
    if (!std::isalnum(static_cast<unsigned char>(ch))) ch = '_';
  return name;
});

}  // namespace
}  // namespace tessaly
