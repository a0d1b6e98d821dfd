// Black-box runs of `tessaly-cli hint`.

#include <gtest/gtest.h>

#include "cli/CliRunner.h"
#include "play/PlayTestSupport.h"

namespace tessaly {
namespace {

using clitest::runCli;

TEST(HintCli, OneRuleReportOnStandardOutput) {
  const auto run = runCli({"hint", test::puzzleFile("exchange_diabolical.sud"), "9", "--rule", "3"});
  EXPECT_EQ(run.out,
            "APPLY RULE 3\n"
            "This rule generated 1 single values:\n"
            "Row= 2, Col= 7, Cell= 16, Value= 9\n"
            "These single values were deduced based on the following logic:\n"
            "Apply Rule 3\n"
            "Rule 3: row 2 has duplicate pair\n"
            "Remove 5 from choice 59 in cell 16\n"
            "End Rule 3: made 1 reductions\n"
            "NOW REMOVE DUPLICATES AS A RESULT OF ANY SINGLES GENERATED ABOVE\n"
            "Place additional 1 single values generated\n"
            "Set row 2, col 7, cell 16 to value 9\n");
  EXPECT_EQ(run.err, "");
  EXPECT_EQ(run.exitCode, 0);
}

TEST(HintCli, NothingFoundAndAllRules) {
  auto run = runCli({"hint", test::puzzleFile("top95.sud"), "20", "--rule", "6"});
  EXPECT_EQ(run.out, "APPLY RULE 6\nThis rule did not generate any single values\n");
  EXPECT_EQ(run.exitCode, 0);
  run = runCli({"hint", test::puzzleFile("top95.sud"), "20", "--rule", "all", "--rule-order", "65432"});
  EXPECT_EQ(run.out, "\nThis rule did not generate any single values\n");
  EXPECT_EQ(run.exitCode, 0);
}

TEST(HintCli, TheCellHintIsAMessage) {
  const auto run = runCli({"hint", test::kPe96, "1", "--rule", "cell"});
  EXPECT_EQ(run.out, "");
  EXPECT_EQ(run.err, "message: Cell 42 has choices: 4\n");
  EXPECT_EQ(run.exitCode, 0);
}

TEST(HintCli, BadInput) {
  EXPECT_EQ(runCli({"hint", test::kPe96, "1"}).exitCode, 2);
  EXPECT_EQ(runCli({"hint", test::kPe96, "1", "--rule", "7"}).exitCode, 2);
  EXPECT_EQ(runCli({"hint", test::kPe96, "1", "--rule", "0"}).exitCode, 2);
  EXPECT_EQ(runCli({"hint", test::kPe96, "1", "--rule"}).exitCode, 2);
  EXPECT_EQ(runCli({"hint", test::kPe96, "x", "--rule", "1"}).exitCode, 2);
  EXPECT_EQ(runCli({"hint", test::kPe96, "1", "--rule", "1", "extra"}).exitCode, 2);
  EXPECT_EQ(runCli({"hint", test::puzzleFile("no-such-file.sud"), "1", "--rule", "1"}).exitCode, 2);
  const auto missing = runCli({"hint", test::kPe96, "9999", "--rule", "1"});
  EXPECT_EQ(missing.exitCode, 2);
  EXPECT_EQ(missing.out, "");
  EXPECT_NE(missing.err.find("message: Puzzle number 9999 not found in file: "), std::string::npos);
}

}  // namespace
}  // namespace tessaly
