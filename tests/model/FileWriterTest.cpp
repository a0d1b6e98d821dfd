// The one writer: what stands at the target decides whether it is written, and
// a file that was there keeps its mode, its links and its bytes when refused.
// Two processes appending to one collection at once lose nothing.

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>
#include <set>

#include "model/CollectionFile.h"
#include "model/FileUtil.h"
#include "support/TestSupport.h"

namespace tessaly {
namespace {

namespace fs = std::filesystem;

mode_t modeOf(const std::string& path) {
  struct stat st {};
  return ::lstat(path.c_str(), &st) == 0 ? st.st_mode : 0;
}

TEST(FileWriter, SpecialTargetsAreRefusedWithTheReasonAndStayWhatTheyWere) {
  test::TempDir dir;
  struct Case {
    const char* name;
    bool (*make)(const std::string& path);  // false when the system does not allow it here
    std::string reason;                       // "" when the write succeeds
  };
  const Case cases[] = {
      {"fifo", [](const std::string& p) { return ::mkfifo(p.c_str(), 0644) == 0; }, "a FIFO, not a regular file"},
      {"folder", [](const std::string& p) { return ::mkdir(p.c_str(), 0755) == 0; }, "Is a directory"},
      // A copy of /dev/null under the test folder, where the test may make one.
      {"null", [](const std::string& p) { return ::mknod(p.c_str(), S_IFCHR | 0666, makedev(1, 3)) == 0; },
       "a device, not a regular file"},
      {"read-only",
       [](const std::string& p) {
         test::writeFile(p, "old");
         return ::chmod(p.c_str(), 0444) == 0 && ::access(p.c_str(), W_OK) != 0;  // root may write anyway
       },
       "Permission denied"},
      {"missing-folder/file", [](const std::string&) { return true; }, "No such file or directory"},
      {"plain", [](const std::string& p) {
         test::writeFile(p, "old");
         return true;
       }, ""},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    const std::string path = dir.file(c.name);
    if (!c.make(path)) {
      std::cout << "  (" << c.name << " cannot be made here: not checked)\n";
      continue;
    }
    const mode_t before = modeOf(path);
    EXPECT_EQ(writeProblem(path), c.reason);
    EXPECT_EQ(writeFileAtomically(path, "new").reason, c.reason);
    EXPECT_EQ(appendToFile(path, "new").reason, c.reason);
    if (c.reason.empty()) {
      EXPECT_EQ(test::readFile(path), "newnew");
    } else {
      EXPECT_EQ(modeOf(path), before);
      EXPECT_EQ(couldNotWriteText(path, writeFileAtomically(path, "x")),
                "Could not write file: " + path + " (" + c.reason + ")");
    }
  }
  // Nothing was left beside the targets.
  for (const auto& entry : fs::directory_iterator(dir.path()))
    EXPECT_EQ(entry.path().filename().string().find(".tmp"), std::string::npos) << entry.path();
}

TEST(FileWriter, AnExistingFileKeepsItsModeAndHardLinks) {
  test::TempDir dir;
  const std::string path = dir.file("Mine.sud"), link = dir.file("link.sud");
  test::writeFile(path, "old");
  ASSERT_EQ(::chmod(path.c_str(), 0600), 0);
  ASSERT_TRUE(writeFileAtomically(path, "rewritten"));
  EXPECT_EQ(modeOf(path) & 07777, mode_t(0600));
  EXPECT_EQ(test::readFile(path), "rewritten");

  ASSERT_EQ(::link(path.c_str(), link.c_str()), 0);
  ASSERT_TRUE(writeFileAtomically(path, "both names see this"));
  EXPECT_EQ(test::readFile(link), "both names see this");
  ASSERT_TRUE(writeFileAtomically(link, "short"));
  EXPECT_EQ(test::readFile(path), "short");
  EXPECT_EQ(fs::hard_link_count(path), 2u);
  EXPECT_EQ(modeOf(link) & 07777, mode_t(0600));
}

TEST(FileWriter, TwoProcessesAppendingAtOnceLoseNoPuzzleAndNumberEachOnce) {
  test::TempDir dir;
  const std::string path = dir.file("shared.sud");
  constexpr int kEach = 500;
  const std::string puzzle = "4..1...7..2...8..1..9.3....1...5..8....2.6....7..4...3....1.6..8..7...2..3...9..5";
  pid_t children[2] = {};
  for (pid_t& child : children) {
    child = ::fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
      int failed = 0;
      for (int i = 0; i < kEach; ++i) failed += appendPuzzle(path, puzzle) ? 0 : 1;
      ::_exit(failed == 0 ? 0 : 1);
    }
  }
  for (pid_t child : children) {
    int status = 0;
    ::waitpid(child, &status, 0);
    EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0);
  }
  EXPECT_EQ(countPuzzles(path), 2 * kEach);
  std::set<std::string> headers;
  int records = 0;
  for (const std::string& line : splitLines(test::readFile(path)))
    if (!line.empty() && line[0] == '#') {
      ++records;
      headers.insert(line);
    }
  EXPECT_EQ(records, 2 * kEach);
  EXPECT_EQ(headers.size(), std::size_t(2 * kEach));  // every number once
  EXPECT_TRUE(headers.count("#1") && headers.count("#" + std::to_string(2 * kEach)));
  EXPECT_TRUE(checkCollection(path).problems.empty());
}

}  // namespace
}  // namespace tessaly
