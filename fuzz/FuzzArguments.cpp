// The command line's arguments: the input, split on NUL bytes, is the argument
// vector after the program's name, run in-process through runCommandLine in a
// work folder that holds a small collection (c.sud), a one-per-line file
// (l.txt) and a template (t.txt), with standard input a one-per-line text and
// standard output and error kept in memory.
//
// Invariants, for every argument vector:
// - the exit status is 0, 1 or 2;
// - status 2 (a usage error or input that cannot be used) comes with a line on
//   standard error that names the program ("tessaly-cli: ..." or
//   "Usage: tessaly-cli ..."), or, when a read of the puzzle was refused, with
//   the core's own message ("message: ...");
// - status 0 leaves no "tessaly-cli: " error line;
// - no file outside the work folder is made, changed or removed: the folder
//   around it holds only the work folder and an empty home folder (HOME and
//   the XDG folders point there), and the process's working folder stays.
//
// So that every input ends quickly, inputs are skipped (not run) when an
// argument holds "/" (every path then stays inside the work folder), a run of
// three or more digits (no collection here has 100 puzzles, and 81 is the most
// blanks), or when a count of work (--count, --grade-tries) is over 3, or
// --grade or --needs comes without such a --grade-tries (the default is many
// tries).

#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <set>
#include <string>
#include <vector>

#include "FuzzSupport.h"
#include "cli/Commands.h"

using namespace tessaly;
using namespace tessaly::fuzz;

namespace fs = std::filesystem;

namespace {

constexpr std::size_t kMostArguments = 16;

// Project Euler's grids 01 and 02 (singles alone) and a record cut short.
constexpr std::string_view kCollection =
    "#1\r\n003020600\r\n900305001\r\n001806400\r\n008102900\r\n700000008\r\n006708200\r\n002609500\r\n"
    "800203009\r\n005010300\r\n\r\n#2\r\n200080300\r\n060070084\r\n030500209\r\n000105408\r\n000000000\r\n"
    "402706000\r\n301007040\r\n720040060\r\n004010003\r\n\r\n#3\r\n123\r\n";
constexpr std::string_view kLines =
    "..3.2.6..9..3.5..1..18.64....81.29..7.......8..67.82....26.95..8..2.3..9..5.1.3..\n"
    "2...8.3...6..7..84.3.5..2.9...1.54.8.........4.27.6...3.1..7.4.72..4..6...4.1...3\n";
constexpr std::string_view kTemplate =
    "X.X.X.X.X\n.X.X.X.X.\nX.X.X.X.X\n.X.X.X.X.\nX.X.X.X.X\n.X.X.X.X.\nX.X.X.X.X\n.X.X.X.X.\nX.X.X.X.X\n";

struct WorkFolders {
  std::string root, work, home, start;
  WorkFolders() {
    root = scratchFolder();
    work = root + "work";
    home = root + "home";
    fs::create_directories(home);
    start = fs::current_path().string();
    // Where the command line could reach beyond its working folder.
    for (const char* name : {"HOME", "XDG_DATA_HOME", "XDG_CONFIG_HOME", "XDG_DOCUMENTS_DIR", "XDG_CACHE_HOME"})
      ::setenv(name, home.c_str(), 1);
  }
};

const WorkFolders& folders() {
  static const WorkFolders f;
  return f;
}

/// Every entry under `folder` with its size and change time: what a write,
/// a new file or a removal would change.
std::set<std::string> listing(const std::string& folder) {
  std::set<std::string> entries;
  for (const auto& entry : fs::recursive_directory_iterator(folder)) {
    struct stat st {};
    ::lstat(entry.path().c_str(), &st);
    entries.insert(entry.path().string() + " " + std::to_string(st.st_size) + " " + std::to_string(st.st_mtim.tv_sec) +
                   "." + std::to_string(st.st_mtim.tv_nsec));
  }
  return entries;
}

bool outOfBounds(const std::vector<std::string>& args) {
  for (const std::string& arg : args) {
    if (arg.find('/') != std::string::npos) return true;
    int digits = 0;
    for (char ch : arg) {
      digits = ch >= '0' && ch <= '9' ? digits + 1 : 0;
      if (digits >= 3) return true;
    }
  }
  bool gradeTriesCapped = false;
  for (std::size_t i = 0; i < args.size(); ++i) {
    if (args[i] != "--count" && args[i] != "--grade-tries") continue;
    if (i + 1 < args.size() && !args[i + 1].empty() &&
        std::all_of(args[i + 1].begin(), args[i + 1].end(), [](char ch) { return ch >= '0' && ch <= '9'; }) &&
        std::stoi(args[i + 1]) > 3)
      return true;
    if (args[i] == "--grade-tries") gradeTriesCapped = true;
  }
  const bool graded = std::find(args.begin(), args.end(), "--grade") != args.end() ||
                      std::find(args.begin(), args.end(), "--needs") != args.end();
  return graded && !gradeTriesCapped;
}

bool toldWhy(const std::string& err) {
  std::size_t start = 0;
  while (start < err.size()) {
    std::size_t end = err.find('\n', start);
    if (end == std::string::npos) end = err.size();
    const std::string_view line(err.data() + start, end - start);
    if (line.rfind("tessaly-cli: ", 0) == 0 || line.rfind("Usage: tessaly-cli ", 0) == 0 ||
        line.rfind("message: Puzzle number", 0) == 0)
      return true;
    start = end + 1;
  }
  return false;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  std::vector<std::string> args;
  const std::string input = bytesOf(data, size);
  std::size_t start = 0;
  while (start <= input.size()) {
    std::size_t end = input.find('\0', start);
    if (end == std::string::npos) end = input.size();
    args.push_back(input.substr(start, end - start));
    start = end + 1;
  }
  if (args.size() > kMostArguments || outOfBounds(args)) return 0;

  const WorkFolders& f = folders();
  std::error_code ec;
  fs::remove_all(f.work, ec);
  fs::create_directories(f.work);
  writeBytes(f.work + "/c.sud", kCollection);
  writeBytes(f.work + "/l.txt", kLines);
  writeBytes(f.work + "/t.txt", kTemplate);
  const std::set<std::string> homeBefore = listing(f.home);
  FUZZ_CHECK(homeBefore.empty());

  std::vector<std::string> argvText{"tessaly-cli"};
  argvText.insert(argvText.end(), args.begin(), args.end());
  std::vector<char*> argv;
  for (std::string& arg : argvText) argv.push_back(arg.data());
  argv.push_back(nullptr);

  int status = 0;
  std::string out, err;
  FUZZ_CHECK(::chdir(f.work.c_str()) == 0);
  {
    StandardStreams streams{std::string(kLines)};
    status = cli::runCommandLine(std::span<char*>(argv.data(), argv.size() - 1));
    out = streams.out.str();
    err = streams.err.str();
  }
  const std::string workingFolder = fs::current_path().string();
  FUZZ_CHECK(::chdir(f.start.c_str()) == 0);

  if (status < 0 || status > 2) std::fprintf(stderr, "status %d, standard error:\n%s\n", status, err.c_str());
  FUZZ_CHECK(status == 0 || status == 1 || status == 2);
  if (status == 2 && !toldWhy(err)) std::fprintf(stderr, "standard error:\n%s\n", err.c_str());
  FUZZ_CHECK(status != 2 || toldWhy(err));
  if (status == 0 && err.find("tessaly-cli: ") != std::string::npos)
    std::fprintf(stderr, "standard error:\n%s\n", err.c_str());
  FUZZ_CHECK(status != 0 || err.find("tessaly-cli: ") == std::string::npos);
  FUZZ_CHECK(workingFolder == f.work);
  FUZZ_CHECK(listing(f.home).empty());
  std::set<std::string> around;
  for (const auto& entry : fs::directory_iterator(f.root)) around.insert(entry.path().filename().string());
  if (around != std::set<std::string>{"work", "home"})
    for (const std::string& name : around) std::fprintf(stderr, "beside the work folder: %s\n", name.c_str());
  FUZZ_CHECK((around == std::set<std::string>{"work", "home"}));
  return 0;
}
