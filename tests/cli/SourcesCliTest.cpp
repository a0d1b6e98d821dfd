// Bad sources through every command and the window's reader: the same verdict
// and the same message everywhere. And standard output on a full device: an
// error with a message, never a success.

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>

#include <cstdlib>
#include <string>
#include <vector>

#include "model/CollectionFile.h"
#include "solver/ReadPuzzle.h"
#include "support/TestSupport.h"

namespace tessaly {
namespace {

struct CliRun {
  int status = -1;
  std::string out, err;
};

CliRun runCli(const test::TempDir& dir, const std::string& args, const std::string& stdoutTarget = "") {
  const std::string out = stdoutTarget.empty() ? dir.file("out.txt") : stdoutTarget;
  const std::string command = "cd '" + dir.path() + "' && '" + TESSALY_CLI_PATH + "' " + args + " </dev/null >" + out +
                              " 2>'" + dir.file("err.txt") + "'";
  const int raw = std::system(command.c_str());
  CliRun run;
  run.status = WIFEXITED(raw) ? WEXITSTATUS(raw) : -1;
  if (stdoutTarget.empty()) run.out = test::readFile(out);
  run.err = test::readFile(dir.file("err.txt"));
  return run;
}

// The first line of standard error without its "tessaly-cli: " or "message: " lead.
std::string firstMessage(const std::string& err) {
  std::string line = err.substr(0, err.find('\n'));
  for (const char* lead : {"tessaly-cli: ", "message: "})
    if (line.starts_with(lead)) return line.substr(std::string(lead).size());
  return line;
}

const std::string kA = "......95....64..7......7.1..38.15..25..87..6...72.....7...5...9.5.....2.3.94.....";

TEST(SourcesCli, EveryCommandAndTheWindowGiveABadSourceTheSameVerdict) {
  test::TempDir dir;
  std::string utf16 = "\xFF\xFE";
  for (char ch : "#1\r\n" + test::gridRows(kA)) utf16 += std::string(1, ch) + '\0';
  test::writeFile(dir.file("utf16.sud"), utf16);
  test::writeFile(dir.file("binary.sud"), std::string("\x7f" "ELF\0\0\1", 7) + kA);
  ASSERT_EQ(::mkdir(dir.file("folder.sud").c_str(), 0755), 0);
  ASSERT_EQ(::mkfifo(dir.file("fifo.sud").c_str(), 0644), 0);
  const std::pair<const char*, std::string> sources[] = {
      {"utf16.sud", "utf16.sud is UTF-16 text; puzzle files are read as ASCII or UTF-8"},
      {"binary.sud", "binary.sud is not a text file of puzzles"},
      {"folder.sud", "Could not read file: folder.sud (Is a directory)"},
      {"fifo.sud", "Could not read file: fifo.sud (a FIFO, not a regular file)"},
      {"missing.sud", "no such file: missing.sud"},
  };
  const char* commands[] = {"count @",         "count @ --check", "count --solutions @", "grade @",
                            "grade @ 1",       "solve @ 1",       "hint @ 1 --rule all", "export @ 1 --txt out.txt"};
  for (const auto& [name, message] : sources) {
    for (std::string command : commands) {
      command.replace(command.find('@'), 1, name);
      SCOPED_TRACE(command);
      const CliRun run = runCli(dir, command);
      EXPECT_EQ(run.status, 2);
      EXPECT_EQ(firstMessage(run.err), message);
      EXPECT_EQ(run.err.find("grid:"), std::string::npos);
    }
    if (std::string(name) == "missing.sud") continue;
    // The window's reader, through Open: the same message, and nothing changes.
    test::TestSession t;
    t.session.collection.CurrentFile = "before.sud";
    EXPECT_FALSE(openCollection(t.session, dir.file(name)));
    std::string expected = message;
    expected.replace(expected.find(name), std::string(name).size(), dir.file(name));
    EXPECT_EQ(t.ui.messages, std::vector<std::string>{expected}) << name;
    EXPECT_EQ(t.session.collection.CurrentFile, "before.sud");
  }
}

TEST(SourcesCli, AFullStandardOutputIsAnErrorForEveryCommand) {
  if (::access("/dev/full", W_OK) != 0) GTEST_SKIP() << "no /dev/full here";
  test::TempDir dir;
  const std::string collection = test::kSingles;
  for (const std::string& command : std::vector<std::string>{"--help", "--version", "help solve", "solve --help", "count " + collection,
                                    "count " + collection + " --check", "grade " + collection + " 1",
                                    "grade " + collection, "count --solutions " + collection, "solve " + collection + " 1",
                                    "hint " + collection + " 1 --rule all",
                                    "create --blanks 40 --distribution random --seed 1"}) {
    SCOPED_TRACE(command);
    const CliRun run = runCli(dir, command, "/dev/full");
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.err, "tessaly-cli: cannot write standard output: No space left on device\n");
  }
}

TEST(SourcesCli, EverySubcommandAnswersHelpWithItsOwnUsage) {
  test::TempDir dir;
  for (const char* name : {"solve", "export", "create", "count", "grade", "hint"}) {
    SCOPED_TRACE(name);
    const CliRun asked = runCli(dir, std::string(name) + " --help");
    EXPECT_EQ(asked.status, 0);
    EXPECT_EQ(asked.err, "");
    EXPECT_TRUE(asked.out.starts_with("Usage: tessaly-cli " + std::string(name) + " ")) << asked.out;
    const CliRun help = runCli(dir, std::string("help ") + name);
    EXPECT_EQ(help.status, 0);
    EXPECT_EQ(help.out, asked.out);
  }
}

}  // namespace
}  // namespace tessaly
