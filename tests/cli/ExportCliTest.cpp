// Black-box runs of `tessaly-cli export`: whole files compared.

#include <gtest/gtest.h>

#include "cli/CliRunner.h"
#include "model/FileUtil.h"
#include "support/TestSupport.h"

namespace tessaly {
namespace {

const std::string kPe96 = std::string(TESSALY_PUZZLES_DIR) + "/pe96.sud";

TEST(ExportCli, WritesTheSolvedPuzzleAsText) {
  test::TempDir dir;
  auto run = clitest::runCli({"export", kPe96, "1", "--txt", dir.file("p1.txt")});
  EXPECT_EQ(run.exitCode, 0);
  EXPECT_EQ(run.err, "message: Done\n");
  EXPECT_EQ(readWholeFile(dir.file("p1.txt")).value_or(""),
            "PUZZLE\r\n003020600\r\n900305001\r\n001806400\r\n008102900\r\n700000008\r\n006708200\r\n002609500\r\n"
            "800203009\r\n005010300\r\nSOLUTION\r\n483921657\r\n967345821\r\n251876493\r\n548132976\r\n729564138\r\n"
            "136798245\r\n372689514\r\n814253769\r\n695417382\r\n");
}

TEST(ExportCli, WritesCsvSpreadsheetAndReport) {
  test::TempDir dir;
  EXPECT_EQ(clitest::runCli({"export", kPe96, "1", "--csv", dir.file("p.csv")}).exitCode, 0);
  const std::string csv = readWholeFile(dir.file("p.csv")).value_or("");
  EXPECT_EQ(csv.substr(0, 39), "PUZZLE\r\n\"\",\"\",\"3\",\"\",\"2\",\"\",\"6\",\"\",\"\"\r\n");
  EXPECT_EQ(clitest::runCli({"export", kPe96, "1", "--xls", dir.file("p.xls")}).exitCode, 0);
  EXPECT_EQ(fileLength(dir.file("p.xls")), 8 + 6 + 4 * 12 + 2 * 14 + 8 + 18 + 13 * 32 + 20 + 81 * 13 + 4);
  EXPECT_EQ(clitest::runCli({"export", kPe96, "1", "--report", dir.file("r.txt")}).exitCode, 0);
  const std::string report = readWholeFile(dir.file("r.txt")).value_or("");
  EXPECT_EQ(report.substr(0, 19), "Puzzle Number 1\r\n\r\n");
}

TEST(ExportCli, RefusesAnUnwritableFolderWithAMessage) {
  auto run = clitest::runCli({"export", kPe96, "1", "--txt", "/nonexistent-folder/p.txt"});
  EXPECT_EQ(run.exitCode, 1);
  EXPECT_EQ(run.err, "message: Done\nmessage: Could not write file: /nonexistent-folder/p.txt\n");
}

TEST(ExportCli, NeedsExactlyOneTarget) {
  EXPECT_EQ(clitest::runCli({"export", kPe96, "1"}).exitCode, 2);
  EXPECT_EQ(clitest::runCli({"export", kPe96, "1", "--csv", "a", "--txt", "b"}).exitCode, 2);
}

}  // namespace
}  // namespace tessaly
