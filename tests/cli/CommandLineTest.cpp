// What tessaly-cli does before any subcommand runs: version, usage and the
// refusal of unknown subcommands.

#include <gtest/gtest.h>

#include "cli/CliRunner.h"

namespace tessaly {
namespace {

using clitest::runCli;

TEST(CommandLineTest, VersionPrintsTheProgramNameAndVersion) {
  const auto result = runCli({"--version"});
  EXPECT_EQ(result.exitCode, 0);
  EXPECT_EQ(result.out, "tessaly-cli 0.1.0\n");
  EXPECT_EQ(result.err, "");
}

TEST(CommandLineTest, HelpListsTheSubcommands) {
  const auto result = runCli({"--help"});
  EXPECT_EQ(result.exitCode, 0);
  EXPECT_NE(result.out.find("Usage: tessaly-cli <command> [arguments]\n"), std::string::npos);
  EXPECT_NE(result.out.find("\n  help      show this usage text\n"), std::string::npos);
  EXPECT_EQ(result.err, "");
}

TEST(CommandLineTest, HelpSubcommandPrintsTheSameUsage) {
  EXPECT_EQ(runCli({"help"}).out, runCli({"--help"}).out);
}

TEST(CommandLineTest, UnknownSubcommandIsAUsageError) {
  const auto result = runCli({"frobnicate", "x"});
  EXPECT_EQ(result.exitCode, 2);
  EXPECT_EQ(result.out, "");
  EXPECT_EQ(result.err, "tessaly-cli: unknown command 'frobnicate'; see 'tessaly-cli --help'\n");
}

TEST(CommandLineTest, NoArgumentsPrintsUsageAsAnError) {
  const auto result = runCli({});
  EXPECT_EQ(result.exitCode, 2);
  EXPECT_EQ(result.out, "");
  EXPECT_NE(result.err.find("Usage: tessaly-cli"), std::string::npos);
}

}  // namespace
}  // namespace tessaly
