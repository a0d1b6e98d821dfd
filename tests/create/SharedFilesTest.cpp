// The window and the command line creating at once into the same folder: the
// window's batch (autoSaveCommand, which the Create tab's batch button runs)
// in this process, `tessaly-cli create --into` as a child. Both append each
// puzzle to PuzTemp.sud and save it into one collection; no puzzle is lost or
// doubled and the collection numbers each once.

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <set>

#include "create/CreateTestSupport.h"
#include "create/Saving.h"
#include "model/CollectionFile.h"
#include "model/FileUtil.h"

namespace tessaly {
namespace {

/// The puzzles of a text of nine-row grids separated by lines that are not
/// rows ("#001" headers, empty lines), each as 81 cells with "." for blanks.
std::vector<std::string> gridsOf(const std::string& text) {
  std::vector<std::string> grids;
  std::string cells;
  for (const std::string& line : splitLines(text)) {
    if (line.size() == 9 && line.find_first_not_of(".123456789") == std::string::npos) {
      cells += line;
      if (cells.size() == 81) grids.push_back(std::exchange(cells, {}));
    } else {
      EXPECT_TRUE(cells.empty()) << "a grid cut short before '" << line << "'";
      cells.clear();
    }
  }
  EXPECT_TRUE(cells.empty());
  return grids;
}

std::vector<std::string> sorted(std::vector<std::string> v) {
  std::sort(v.begin(), v.end());
  return v;
}

TEST(SharedFiles, TheWindowsBatchAndTheCommandLineCreatingAtOnceLoseNoPuzzle) {
  constexpr int kCliPuzzles = 150;
  constexpr int kLeastWindowPuzzles = 50;
  test::CreateSession t(11);
  Session& s = t.session;
  const std::string folder = t.dir.path();
  s.collection.CurrentFile = t.dir.file("Shared.sud");

  const pid_t child = ::fork();
  ASSERT_GE(child, 0);
  if (child == 0) {
    const std::string command = "cd '" + folder + "' && exec '" + TESSALY_CLI_PATH + "' create --blanks 45 " +
                                "--distribution random --seed 7 --into Shared.sud --count " +
                                std::to_string(kCliPuzzles) + " >cli.out 2>cli.err";
    ::execl("/bin/sh", "sh", "-c", command.c_str(), static_cast<char*>(nullptr));
    ::_exit(127);
  }

  // The window creates and saves one puzzle at a time for as long as the
  // command line runs, and at least kLeastWindowPuzzles.
  std::vector<std::string> windowPuzzles;
  int status = 0;
  bool childDone = false;
  while (!childDone || int(windowPuzzles.size()) < kLeastWindowPuzzles) {
    const AutoSaveResult saved =
        autoSaveCommand(s, AutoSaveRequest{1, "1", CreateSettings{45, BlankDistribution::Random, std::nullopt}, {}});
    ASSERT_EQ(saved.saved, 1) << (t.ui.messages.empty() ? "" : t.ui.messages.back());
    windowPuzzles.push_back(givensText(s));
    if (!childDone) childDone = ::waitpid(child, &status, WNOHANG) == child;
  }
  ASSERT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0) << test::readFile(t.dir.file("cli.err"));
  const std::vector<std::string> cliPuzzles = gridsOf(test::readFile(t.dir.file("cli.out")));
  ASSERT_EQ(cliPuzzles.size(), std::size_t(kCliPuzzles));

  std::vector<std::string> all = windowPuzzles;
  all.insert(all.end(), cliPuzzles.begin(), cliPuzzles.end());
  const int total = int(all.size());

  // PuzTemp.sud: every puzzle of both, once each (its records are all "#001").
  EXPECT_EQ(sorted(gridsOf(test::readFile(t.tempFile()))), sorted(all));

  // The collection: numbered 1..total, each number once, every puzzle once.
  const std::string shared = s.collection.CurrentFile;
  EXPECT_EQ(countPuzzles(shared), total);
  std::vector<std::string> headers;
  for (const std::string& line : splitLines(test::readFile(shared)))
    if (!line.empty() && line[0] == '#') headers.push_back(line);
  std::vector<std::string> numbers;
  for (int n = 1; n <= total; ++n) numbers.push_back("#" + std::to_string(n));
  EXPECT_EQ(headers, numbers);
  std::vector<std::string> read;
  for (int n = 1; n <= total; ++n) {
    const PuzzleRowsRead rows = readPuzzleRows(shared, n);
    ASSERT_EQ(rows.status, PuzzleRowsRead::Status::Found) << "puzzle " << n;
    std::string cells;
    for (const std::string& row : rows.rows) cells += row;
    std::replace(cells.begin(), cells.end(), '0', '.');
    read.push_back(cells);
  }
  EXPECT_EQ(sorted(read), sorted(all));
  EXPECT_TRUE(checkCollection(shared).problems.empty());
}

}  // namespace
}  // namespace tessaly
