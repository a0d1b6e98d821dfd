// Black-box runs of `tessaly-cli solve`, compared as whole outputs.

#include <gtest/gtest.h>

#include <cstdlib>
#include <string>

#include "model/FileUtil.h"
#include "support/TestSupport.h"

namespace tessaly {
namespace {

struct CliRun {
  int status = -1;
  std::string out, err;
};

CliRun runCli(const std::string& arguments) {
  test::TempDir dir;
  const std::string command = std::string(TESSALY_CLI_PATH) + " " + arguments + " > " + dir.file("out") + " 2> " +
                              dir.file("err");
  CliRun run;
  const int raw = std::system(command.c_str());
  run.status = WIFEXITED(raw) ? WEXITSTATUS(raw) : -1;
  run.out = readWholeFile(dir.file("out")).value_or("");
  run.err = readWholeFile(dir.file("err")).value_or("");
  return run;
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
  CliRun run = runCli("solve " + puzzles(std::string(c.set) + ".sud") + " " + std::to_string(c.number) + " --raw " +
                      c.extra);
  EXPECT_EQ(run.out, golden(std::string(c.name) + ".out"));
  EXPECT_EQ(run.err, golden(std::string(c.name) + ".err"));
  EXPECT_EQ(run.status, c.status);
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
  CliRun run = runCli("solve " + puzzles("pe96.sud") + " 1");
  EXPECT_EQ(run.out.substr(0, 35), "Puzzle has been read and analysed\nP");
  EXPECT_NE(run.out.find("\nApply Rule 1\n"), std::string::npos);
  EXPECT_EQ(run.status, 0);
}

TEST(SolveCli, BadInputExitsWithStatusTwo) {
  CliRun missing = runCli("solve /nonexistent/file.sud 1");
  EXPECT_EQ(missing.status, 2);
  CliRun badNumber = runCli("solve " + puzzles("pe96.sud") + " x");
  EXPECT_EQ(badNumber.status, 2);
  CliRun notFound = runCli("solve " + puzzles("pe96.sud") + " 51");
  EXPECT_EQ(notFound.status, 2);
  EXPECT_EQ(notFound.err, "message: Puzzle number 51 not found in file: " + puzzles("pe96.sud") + "\n");
  EXPECT_EQ(notFound.out, "grid:\n" + std::string(81, '0') + "\n");
}

TEST(SolveCli, TheLastPuzzleIsMinusOne) {
  CliRun last = runCli("solve " + puzzles("pe96.sud") + " -1 --run solve");
  CliRun fifty = runCli("solve " + puzzles("pe96.sud") + " 50 --run solve");
  EXPECT_EQ(last.out, fifty.out);
  EXPECT_EQ(last.status, 0);
}

TEST(SolveCli, ASeedMakesTheFirstGuessRepeatable) {
  // These puzzles have several solutions, so the first placement is a drawn guess.
  CliRun a = runCli("solve " + puzzles("serg_benchmark.sud") + " 1 --seed 7");
  CliRun b = runCli("solve " + puzzles("serg_benchmark.sud") + " 1 --seed 7");
  EXPECT_EQ(a.out, b.out);
  EXPECT_EQ(a.err.substr(0, 50), "message: This puzzle might have multiple solutions");
}

TEST(SolveCli, EveryTop95PuzzleEndsWithoutCrashOrHang) {
  for (int n = 1; n <= 95; ++n) {
    CliRun run = runCli("solve " + puzzles("top95.sud") + " " + std::to_string(n) + " --run solve");
    ASSERT_TRUE(run.status == 0 || run.status == 1) << "puzzle " << n << " status " << run.status;
    EXPECT_NE(run.out.find("grid:\n"), std::string::npos) << n;
  }
}

}  // namespace
}  // namespace tessaly
