// Black-box runs of `tessaly-cli count`.

#include <gtest/gtest.h>

#include "cli/CliRunner.h"
#include "model/FileUtil.h"
#include "support/TestSupport.h"

namespace tessaly {
namespace {

const std::string kPuzzles = TESSALY_PUZZLES_DIR;

TEST(CountCli, PrintsTheNumberOfPuzzles) {
  auto run = clitest::runCli({"count", kPuzzles + "/pe96.sud"});
  EXPECT_EQ(run.exitCode, 0);
  EXPECT_EQ(run.out, "50\n");
  EXPECT_EQ(run.err, "");
  EXPECT_EQ(clitest::runCli({"count", kPuzzles + "/top95.sud"}).out, "95\n");
}

TEST(CountCli, PrintsTheSolutionsOfOnePuzzle) {
  auto unique = clitest::runCli({"count", kPuzzles + "/pe96.sud", "--solutions", "1"});
  EXPECT_EQ(unique.exitCode, 0);
  EXPECT_EQ(unique.out, "1\n");
  auto several = clitest::runCli({"count", kPuzzles + "/serg_benchmark.sud", "--solutions", "1"});
  EXPECT_EQ(several.exitCode, 0);
  EXPECT_EQ(several.out, "2+\n");
}

TEST(CountCli, RepeatedGivensHaveNoSolution) {
  test::TempDir dir;
  const std::string path = dir.file("bad.sud");
  ASSERT_TRUE(writeFileAtomically(path, "#1\r\n11.......\r\n.........\r\n.........\r\n.........\r\n.........\r\n"
                                        ".........\r\n.........\r\n.........\r\n.........\r\n"));
  auto run = clitest::runCli({"count", path, "--solutions", "1"});
  EXPECT_EQ(run.exitCode, 0);
  EXPECT_EQ(run.out, "0\n");
  EXPECT_EQ(clitest::runCli({"count", path}).out, "1\n");
}

TEST(CountCli, ShortRowsLeaveTheirCellsBlank) {
  test::TempDir dir;
  const std::string path = dir.file("empty.sud");
  ASSERT_TRUE(writeFileAtomically(path, "#1\r\n\r\n\r\n\r\n\r\n\r\n\r\n\r\n\r\n\r\n"));
  EXPECT_EQ(clitest::runCli({"count", path, "--solutions", "1"}).out, "2+\n");
}

TEST(CountCli, RefusesBadInput) {
  const std::string pe96 = kPuzzles + "/pe96.sud";
  EXPECT_EQ(clitest::runCli({"count"}).exitCode, 2);
  EXPECT_EQ(clitest::runCli({"count", "/nonexistent/file.sud"}).exitCode, 2);
  EXPECT_EQ(clitest::runCli({"count", pe96, "extra"}).exitCode, 2);
  EXPECT_EQ(clitest::runCli({"count", pe96, "--solutions"}).exitCode, 2);
  EXPECT_EQ(clitest::runCli({"count", pe96, "--solutions", "0"}).exitCode, 2);
  EXPECT_EQ(clitest::runCli({"count", pe96, "--solutions", "x"}).exitCode, 2);
  auto beyond = clitest::runCli({"count", pe96, "--solutions", "51"});
  EXPECT_EQ(beyond.exitCode, 2);
  EXPECT_EQ(beyond.out, "");
  EXPECT_NE(beyond.err.find("not found"), std::string::npos);
}

}  // namespace
}  // namespace tessaly
