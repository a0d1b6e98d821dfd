// Black-box runs of `tessaly-cli solve`, compared as whole outputs.

#include <gtest/gtest.h>

#include <string>

#include "model/FileUtil.h"
#include "cli/CliRunner.h"

namespace tessaly {
namespace {

using clitest::CliResult;

CliResult runCli(const std::string& arguments) {
  std::vector<std::string> args;
  std::size_t pos = 0;
  while (pos < arguments.size()) {
    std::size_t next = arguments.find(' ', pos);
    if (next == std::string::npos) next = arguments.size();
    if (next > pos) args.push_back(arguments.substr(pos, next - pos));
    pos = next + 1;
  }
  return clitest::runCli(args);
}

std::string puzzles(const std::string& name) { return std::string(TESSALY_PUZZLES_DIR) + "/" + name; }
std::string golden(const std::string& name) {
  return readWholeFile(std::string(TESSALY_GOLDEN_DIR) + "/" + name).value_or("<missing " + name + ">");
}

struct GoldenCase {
  const char* name;
  const char* set;
  int number;
  const char* extra;
  int status;
};

class GoldenNarration : public ::testing::TestWithParam<GoldenCase> {};

TEST_P(GoldenNarration, MatchesTheExpectedOutputLineByLine) {
  const GoldenCase& c = GetParam();
  CliResult run = runCli("solve " + puzzles(std::string(c.set) + ".sud") + " " + std::to_string(c.number) + " --raw " +
                      c.extra);
  EXPECT_EQ(run.out, golden(std::string(c.name) + ".out"));
  EXPECT_EQ(run.err, golden(std::string(c.name) + ".err"));
  EXPECT_EQ(run.exitCode, c.status);
}

INSTANTIATE_TEST_SUITE_P(
    PublicPuzzles, GoldenNarration,
    ::testing::Values(GoldenCase{"pe96-1-start", "pe96", 1, "", 0},
                      GoldenCase{"kaggle3m_medium-503-start", "kaggle3m_medium", 503, "", 0},
                      GoldenCase{"kaggle3m_expert-525-start", "kaggle3m_expert", 525, "", 0},
                      GoldenCase{"kaggle3m_expert-501-start", "kaggle3m_expert", 501, "", 1},
                      GoldenCase{"kaggle3m_medium-506-solve", "kaggle3m_medium", 506, "--run solve", 0}),
    [](const auto& info) {
      std::string name = info.param.name;
      for (char& ch : name)
        if (!std::isalnum(static_cast<unsigned char>(ch))) ch = '_';
      return name;
    });

TEST(SolveCli, PlainOutputDropsTheStylePrefix) {
  CliResult run = runCli("solve " + puzzles("pe96.sud") + " 1");
  EXPECT_EQ(run.out.substr(0, 35), "Puzzle has been read and analysed\nP");
  EXPECT_NE(run.out.find("\nApply Rule 1\n"), std::string::npos);
  EXPECT_EQ(run.exitCode, 0);
}

TEST(SolveCli, BadInputExitsWithStatusTwo) {
  CliResult missing = runCli("solve /nonexistent/file.sud 1");
  EXPECT_EQ(missing.exitCode, 2);
  CliResult badNumber = runCli("solve " + puzzles("pe96.sud") + " x");
  EXPECT_EQ(badNumber.exitCode, 2);
  CliResult notFound = runCli("solve " + puzzles("pe96.sud") + " 51");
  EXPECT_EQ(notFound.exitCode, 2);
  EXPECT_EQ(notFound.err, "message: Puzzle number 51 not found in file: " + puzzles("pe96.sud") + "\n");
  EXPECT_EQ(notFound.out, "grid:\n" + std::string(81, '0') + "\n");
}

TEST(SolveCli, TheLastPuzzleIsMinusOne) {
  CliResult last = runCli("solve " + puzzles("pe96.sud") + " -1 --run solve");
  CliResult fifty = runCli("solve " + puzzles("pe96.sud") + " 50 --run solve");
  EXPECT_EQ(last.out, fifty.out);
  EXPECT_EQ(last.exitCode, 0);
}

TEST(SolveCli, ASeedMakesTheFirstGuessRepeatable) {
  // These puzzles have several solutions, so the first placement is a drawn guess.
  CliResult a = runCli("solve " + puzzles("serg_benchmark.sud") + " 1 --seed 7");
  CliResult b = runCli("solve " + puzzles("serg_benchmark.sud") + " 1 --seed 7");
  EXPECT_EQ(a.out, b.out);
  EXPECT_EQ(a.err.substr(0, 50), "message: This puzzle might have multiple solutions");
}

TEST(SolveCli, EveryTop95PuzzleEndsWithoutCrashOrHang) {
  for (int n = 1; n <= 95; ++n) {
    CliResult run = runCli("solve " + puzzles("top95.sud") + " " + std::to_string(n) + " --run solve");
    ASSERT_TRUE(run.exitCode == 0 || run.exitCode == 1) << "puzzle " << n << " status " << run.exitCode;
    EXPECT_NE(run.out.find("grid:\n"), std::string::npos) << n;
  }
}

}  // namespace
}  // namespace tessaly
