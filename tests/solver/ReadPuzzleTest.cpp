// Lines of a one-per-line file that are not puzzles are told once per file and session, again once it changes.

#include <gtest/gtest.h>

#include "solver/ReadPuzzle.h"
#include "support/TestSupport.h"

namespace tessaly {
namespace {

const std::string kA = "......95....64..7......7.1..38.15..25..87..6...72.....7...5...9.5.....2.3.94.....";

TEST(ReadPuzzle, SkippedLinesAreToldOnceForEachFileInASession) {
  test::TempDir dir;
  const std::string path = dir.file("list.txt");
  const std::string one = "1 line of " + path + " is not a puzzle and was skipped, the first is line 2";
  const std::string two = "2 lines of " + path + " are not puzzles and were skipped, the first is line 2";
  test::writeFile(path, kA + "\n" + kA.substr(1) + "\n" + kA + "\n");
  test::TestSession first;
  test::TestSession second;
  struct Step { test::TestSession* session; int n; std::string told, rewrite; };  // told: "" for nothing
  const Step steps[] = {
      {&first, 1, one, ""},
      {&first, 2, "", ""},
      {&first, 1, "", kA + "\nx\n" + kA.substr(1) + "\n" + kA + "\n"},  // the file changes after this read
      {&first, 2, two, ""},
      {&first, 2, "", ""},
      {&second, 1, two, ""},
  };
  for (const Step& step : steps) {
    step.session->ui.messages.clear();
    EXPECT_TRUE(readPuzzle(step.session->session, path, step.n));
    EXPECT_EQ(step.session->ui.messages,
              step.told.empty() ? std::vector<std::string>{} : std::vector<std::string>{step.told});
    if (!step.rewrite.empty()) test::writeFile(path, step.rewrite);
  }
}

}  // namespace
}  // namespace tessaly
