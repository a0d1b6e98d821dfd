// Batch grading from standard input, as `parallel --pipe` feeds it.

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <string>

#include "support/TestSupport.h"

namespace tessaly {
namespace {

int run(const std::string& arguments) { return std::system((std::string(TESSALY_CLI_PATH) + " " + arguments).c_str()); }

TEST(BatchStdin, StandardInputGivesTheSameLinesAsTheFileAndTellsBadLinesByNumber) {
  test::TempDir dir;
  const std::string input = dir.file("in.txt");
  std::string text;
  for (int i = 0; i < 3; ++i) text += test::readFile(test::puzzleFile("top95.txt"));
  text += "12345678\n";
  test::writeFile(input, text);
  const int fromFile = run("grade " + input + " > " + dir.file("file.out") + " 2> " + dir.file("file.err"));
  const int fromStdin = run("grade - --jobs 2 < " + input + " > " + dir.file("stdin.out") + " 2> " + dir.file("stdin.err"));
  EXPECT_NE(fromFile, 0);
  EXPECT_EQ(fromStdin, fromFile);
  const std::string out = test::readFile(dir.file("stdin.out"));
  EXPECT_EQ(out, test::readFile(dir.file("file.out")));
  EXPECT_EQ(std::count(out.begin(), out.end(), '\n'), 3 * 95);
  EXPECT_EQ(out.substr(0, 81), test::readFile(test::puzzleFile("top95.txt")).substr(0, 81));
  EXPECT_EQ(test::readFile(dir.file("stdin.err")),
            "tessaly-cli: standard input:286: a puzzle line has 81 cells, this one has 8; skipped\n");
}

}  // namespace
}  // namespace tessaly
