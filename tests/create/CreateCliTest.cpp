// Black-box runs of `tessaly-cli create`, each in a folder of its own since
// the command writes PuzTemp.sud into the current folder.

#include <gtest/gtest.h>

#include <sys/wait.h>

#include <cstdlib>

#include "model/CollectionFile.h"
#include "model/FileUtil.h"
#include "support/TestSupport.h"

namespace tessaly {
namespace {

struct CliRun {
  int status = -1;
  std::string out, err;
};

CliRun runCreate(const test::TempDir& dir, const std::string& arguments) {
  const std::string command = "cd '" + dir.path() + "' && '" + std::string(TESSALY_CLI_PATH) + "' create " +
                              arguments + " > out.txt 2> err.txt";
  CliRun run;
  const int raw = std::system(command.c_str());
  run.status = WIFEXITED(raw) ? WEXITSTATUS(raw) : -1;
  run.out = readWholeFile(dir.file("out.txt")).value_or("");
  run.err = readWholeFile(dir.file("err.txt")).value_or("");
  return run;
}

/// The puzzles printed: blocks of nine rows, each block ended by an empty line.
std::vector<std::string> printedPuzzles(const std::string& out) {
  std::vector<std::string> puzzles;
  std::vector<std::string> lines = splitLines(out);
  for (std::size_t i = 0; i + 9 < lines.size() + 1; i += 10) {
    std::string cells;
    for (std::size_t k = 0; k < 9; ++k) cells += lines[i + k];
    puzzles.push_back(cells);
  }
  return puzzles;
}

TEST(CreateCli, PrintsEachPuzzleAndAppendsItToPuzTemp) {
  test::TempDir dir;
  CliRun run = runCreate(dir, "--blanks 41 --distribution mirror --count 2 --seed 9");
  EXPECT_EQ(run.status, 0) << run.err;
  EXPECT_EQ(run.err, "");
  const auto puzzles = printedPuzzles(run.out);
  ASSERT_EQ(puzzles.size(), 2u);
  EXPECT_EQ(run.out.size(), 2u * 91u);  // nine rows of nine characters and an empty line, twice
  for (const std::string& p : puzzles) {
    ASSERT_EQ(p.size(), 81u);
    const auto blanks = std::count(p.begin(), p.end(), '.');
    EXPECT_TRUE(blanks == 40 || blanks == 41) << p;
  }
  const std::string temp = readWholeFile(dir.file("PuzTemp.sud")).value_or("");
  std::string expected;
  for (const std::string& p : puzzles) {
    expected += "#001\r\n";
    for (int r = 0; r < 9; ++r) expected += p.substr(std::size_t(r) * 9, 9) + "\r\n";
  }
  EXPECT_EQ(temp, expected);
}

TEST(CreateCli, TheSameSeedGivesTheSamePuzzles) {
  test::TempDir a, b;
  EXPECT_EQ(runCreate(a, "--blanks 30 --distribution random --seed 4").out,
            runCreate(b, "--blanks 30 --distribution random --seed 4").out);
}

TEST(CreateCli, IntoSavesEachPuzzleIntoTheCollection) {
  test::TempDir dir;
  CliRun run = runCreate(dir, "--blanks 40 --distribution box --count 3 --into Mine.sud --seed 2");
  EXPECT_EQ(run.status, 0) << run.err;
  const auto puzzles = printedPuzzles(run.out);
  ASSERT_EQ(puzzles.size(), 3u);
  EXPECT_EQ(countPuzzles(dir.file("Mine.sud")), 3);
  for (int n = 1; n <= 3; ++n) {
    PuzzleRowsRead rows = readPuzzleRows(dir.file("Mine.sud"), n);
    ASSERT_EQ(rows.status, PuzzleRowsRead::Status::Found);
    std::string cells;
    for (std::string row : rows.rows) cells += row;
    std::string printed = puzzles[std::size_t(n - 1)];
    std::replace(printed.begin(), printed.end(), '.', '0');
    EXPECT_EQ(cells, printed);
    EXPECT_EQ(std::count(cells.begin(), cells.end(), '0'), 36);
  }
  const std::string file = readWholeFile(dir.file("Mine.sud")).value_or("");
  EXPECT_EQ(file.substr(0, 4), "#1\r\n");
  EXPECT_NE(file.find("\r\n\r\n#2\r\n"), std::string::npos);
  EXPECT_NE(file.find("\r\n\r\n#3\r\n"), std::string::npos);
}

TEST(CreateCli, ManualTakesATemplateFile) {
  test::TempDir dir;
  std::string pattern;
  for (int r = 0; r < 9; ++r) pattern += (r == 4 ? std::string("XXXX XXXX") : std::string("XXXXXXXXX")) + "\n";
  ASSERT_TRUE(writeFileAtomically(dir.file("t.txt"), pattern));
  CliRun run = runCreate(dir, "--blanks 20 --distribution manual --template t.txt --seed 1");
  EXPECT_EQ(run.status, 0) << run.err;
  const auto puzzles = printedPuzzles(run.out);
  ASSERT_EQ(puzzles.size(), 1u);
  EXPECT_EQ(std::count(puzzles[0].begin(), puzzles[0].end(), '.'), 1);
  EXPECT_EQ(puzzles[0][40], '.');
}

TEST(CreateCli, AManualTemplateThatCannotBeUsedFallsBackToRandom) {
  test::TempDir dir;
  ASSERT_TRUE(writeFileAtomically(dir.file("t.txt"), "XXXXXXXXX\n"));
  CliRun run = runCreate(dir, "--blanks 20 --distribution manual --template t.txt --seed 1");
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(run.err,
            "message: Grid must have a total of 81 Xs and blanks\nmessage: Random placement will be used\n");
  const auto puzzles = printedPuzzles(run.out);
  ASSERT_EQ(puzzles.size(), 1u);
  EXPECT_EQ(std::count(puzzles[0].begin(), puzzles[0].end(), '.'), 20);
}

TEST(CreateCli, RefusedBlankCountsExitTwo) {
  test::TempDir dir;
  CliRun high = runCreate(dir, "--blanks 73 --distribution random");
  EXPECT_EQ(high.status, 2);
  EXPECT_EQ(high.err, "message: Cannot have more than 72 blanks\n");
  EXPECT_EQ(high.out, "");
  CliRun low = runCreate(dir, "--blanks 8 --distribution random");
  EXPECT_EQ(low.status, 2);
  EXPECT_EQ(low.err, "message: Must have at least 9 blanks\n");
  EXPECT_EQ(fileLength(dir.file("PuzTemp.sud")), -1);
}

TEST(CreateCli, BadArgumentsExitTwo) {
  test::TempDir dir;
  for (const char* args : {"", "--blanks 30", "--distribution mirror", "--blanks 30 --distribution diagonal",
                           "--blanks 30 --distribution mirror --count 0", "--blanks 30 --distribution mirror extra",
                           "--blanks 30 --distribution random --template t.txt",
                           "--blanks 30 --distribution manual --template nowhere.txt", "--blanks"}) {
    CliRun run = runCreate(dir, args);
    EXPECT_EQ(run.status, 2) << args;
    EXPECT_EQ(run.out, "") << args;
  }
}

TEST(CreateCli, AFailedCreationExitsOne) {
  test::TempDir dir;
  CliRun run = runCreate(dir, "--blanks 30 --distribution random --max-tries 5 --seed 1");
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.out, "");
  EXPECT_EQ(run.err, "message: Tried 5 times, solution aborted\nmessage: Puzzle creation failed, please try again\n");
}

}  // namespace
}  // namespace tessaly
