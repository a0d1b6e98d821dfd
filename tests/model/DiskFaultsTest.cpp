// Faults on disk met through the user's commands: each is told, the work goes on, and a file that
// existed before is either rewritten whole or left byte for byte as it was.

#include <gtest/gtest.h>
#include <sys/resource.h>

#include <csignal>
#include <filesystem>
#include <map>
#include <utility>

#include "create/Creation.h"
#include "create/Saving.h"
#include "model/CollectionFile.h"
#include "model/Configuration.h"
#include "model/Startup.h"
#include "output/SaveCommands.h"
#include "solver/ReadPuzzle.h"
#include "solver/SolverEngine.h"
#include "support/TestSupport.h"

namespace tessaly {
namespace {

namespace fs = std::filesystem;
using Lines = std::vector<std::string>;

const std::string kPuzzle1 = "4..1...7..2...8..1..9.3....1...5..8....2.6....7..4...3....1.6..8..7...2..3...9..5";
const std::string kRows1 = test::gridRows(kPuzzle1);
const std::string kRows2 =
    test::gridRows("..3.2.6..9..3.5..1..18.64....81.29..7.......8..67.82....26.95..8..2.3..9..5.1.3..");
const std::string kCollection = "#1\r\n" + kRows1 + "\r\n#2\r\n" + kRows2;

/// The message of a failed write, with the system's reason.
std::string could(const std::string& path, const std::string& reason) {
  return "Could not write file: " + path + " (" + reason + ")";
}
const std::string kNotADirectory = "Not a directory", kTooLarge = "File too large",
                  kLoop = "Too many levels of symbolic links", kMissing = "No such file or directory";

/// Every file of a folder and its bytes (symbolic links by their target).
std::map<std::string, std::string> folderBytes(const std::string& folder) {
  std::map<std::string, std::string> files;
  for (const auto& entry : fs::directory_iterator(folder))
    files[entry.path().filename().string()] = entry.is_symlink() ? "-> " + fs::read_symlink(entry.path()).string()
                                                                 : test::readFile(entry.path().string());
  return files;
}

/// A window's session: Puzzles.sud (two puzzles), Quorrel.cfg, PuzTemp.sud and an earlier export beside it.
struct App {
  test::TempDir dir;
  ScriptedUserInterface ui;
  FixedClock clock;
  SeededRandom random{3};
  Session s{Services{&ui, nullptr, nullptr, &clock, &random}};
  std::string file(const std::string& name) const { return dir.file(name); }

  void writeFiles() {
    test::writeFile(file("Puzzles.sud"), kCollection);
    test::writeFile(file("Quorrel.cfg"), " 250 \r\n23456\r\n\r\nPuzzles.sud\r\n");
    test::writeFile(file("PuzTemp.sud"), "#001\r\n" + kRows1);
    test::writeFile(file("solved.txt"), "an earlier export\r\n");
  }
  void start() {
    startUp(s, dir.path());
    s.folders.output = dir.dir();
  }
  /// Reads puzzle n of the current collection, as Next or the number box does:
  /// the window remembers the collection of an analysed read in the configuration.
  bool read(int n) {
    const ReadResult result = readPuzzle(s, s.collection.CurrentFile, n);
    if (result.analysed) writeConfiguration(s);
    return result.ready;
  }
  bool create() {
    return PuzzleCreator(s).createCommand(CreateSettings{30, BlankDistribution::Random, std::nullopt}).created();
  }
  /// Solves the puzzle and saves it as text into `path`, answering Yes to the overwrite question.
  bool solveAndExport(const std::string& path) {
    SolverEngine(s).solveCommand();
    ui.files.push_back(path);
    return saveAs(s, *exportFormatNamed("txt"));
  }
  Lines takeMessages() { return std::exchange(ui.messages, {}); }
};

// --- an application folder that cannot be written: it is a regular file

TEST(DiskFaults, AnUnwritableApplicationFolderIsToldForEachFileAndTheWorkGoesOn) {
  App app;
  test::writeFile(app.file("Mine.sud"), kCollection);
  test::writeFile(app.file("plain"), "not a folder");
  app.s.appDir = app.file("plain") + "/";
  app.s.collection.CurrentFile = app.file("Mine.sud");
  const std::string inPlain = app.file("plain/");

  // Reading works; only remembering it in Quorrel.cfg fails.
  EXPECT_TRUE(app.read(1));
  EXPECT_EQ(app.takeMessages(), Lines{could(inPlain + "Quorrel.cfg", kNotADirectory)});
  EXPECT_EQ(givensText(app.s), kPuzzle1);
  // A created puzzle stands though PuzTemp.sud cannot be written.
  EXPECT_TRUE(app.create());
  EXPECT_EQ(app.takeMessages(), Lines{could(inPlain + "PuzTemp.sud", kNotADirectory)});
  EXPECT_EQ(puzzleNumberText(app.s.collection.origin()).value_or(""), "NEW");
  // Saving into a collection of that folder is refused, and the next read goes on.
  app.s.collection.CurrentFile = inPlain + "Mine.sud";
  EXPECT_FALSE(saveNewCommand(app.s));
  EXPECT_EQ(app.takeMessages(), Lines{could(inPlain + "Mine.sud", kNotADirectory)});
  EXPECT_FALSE(writeConfiguration(app.s));
  EXPECT_EQ(app.takeMessages(), Lines{could(inPlain + "Quorrel.cfg", kNotADirectory)});
  EXPECT_EQ(test::readFile(app.file("plain")), "not a folder");
  EXPECT_EQ(test::readFile(app.file("Mine.sud")), kCollection);
}

// --- a full disk: no file may grow past a few bytes

/// Files of this process stop at `bytes` (RLIMIT_FSIZE, SIGXFSZ ignored): a write past it fails with EFBIG.
class FileSizeLimit {
 public:
  explicit FileSizeLimit(rlim_t bytes) {
    getrlimit(RLIMIT_FSIZE, &m_before);
    m_handler = std::signal(SIGXFSZ, SIG_IGN);
    rlimit limit = m_before;
    limit.rlim_cur = bytes;
    setrlimit(RLIMIT_FSIZE, &limit);
  }
  ~FileSizeLimit() {
    setrlimit(RLIMIT_FSIZE, &m_before);
    std::signal(SIGXFSZ, m_handler);
  }
  FileSizeLimit(const FileSizeLimit&) = delete;
  FileSizeLimit& operator=(const FileSizeLimit&) = delete;

 private:
  rlimit m_before{};
  void (*m_handler)(int) = SIG_DFL;
};

TEST(DiskFaults, OnAFullDiskEveryWriteIsToldAndEveryFileKeepsItsBytes) {
  App app;
  app.writeFiles();
  app.start();
  ASSERT_TRUE(app.takeMessages().empty());
  const auto before = folderBytes(app.dir.path());
  const std::string collection = app.file("Puzzles.sud");
  {
    // Each file takes at least 20 bytes, so every write stops part-way.
    FileSizeLimit full(20);
    EXPECT_TRUE(app.read(1));
    EXPECT_EQ(app.takeMessages(), Lines{could(app.file("Quorrel.cfg"), kTooLarge)});
    EXPECT_TRUE(app.create());
    EXPECT_EQ(app.takeMessages(), Lines{could(app.file("PuzTemp.sud"), kTooLarge)});
    EXPECT_FALSE(saveNewCommand(app.s));
    EXPECT_EQ(app.takeMessages(), Lines{could(collection, kTooLarge)});
    EXPECT_FALSE(app.solveAndExport(app.file("solved.txt")));
    const Lines messages = app.takeMessages();
    EXPECT_EQ(messages.back(), could(app.file("solved.txt"), kTooLarge));
    // Only Eventlog.txt, written empty by a solve, changed; no temporary file is left.
    auto after = folderBytes(app.dir.path());
    EXPECT_EQ(after["Eventlog.txt"], "");
    after.erase("Eventlog.txt");
    EXPECT_EQ(after, before);
  }
  // With room again, the same operations write whole files.
  EXPECT_TRUE(saveNewCommand(app.s));
  EXPECT_EQ(countPuzzles(collection), 3);
  EXPECT_TRUE(writeConfiguration(app.s));
  EXPECT_EQ(test::readFile(app.file("Quorrel.cfg")), " 250 \r\n23456\r\n\r\nPuzzles.sud\r\n");
}

// --- the collection changes between the count and a read

TEST(DiskFaults, ACollectionDeletedOrCutAfterItWasCountedIsToldAndThePuzzleStays) {
  struct Row { const char* what; std::optional<std::string> content; std::string message; int total; };
  // content: nothing when deleted; message: @ for the path
  const std::string header2 = "#1\r\n" + kRows1 + "\r\n#2\r\n";
  for (const Row& r : {Row{"deleted", std::nullopt, "@ does not appear to have any puzzles", 0},
                       Row{"emptied", "", "@ does not appear to have any puzzles", 0},
                       Row{"cut before puzzle 2", "#1\r\n" + kRows1, "Puzzle number 2 not found in file: @", 1},
                       Row{"cut inside puzzle 2", header2 + kRows2.substr(0, 25),
                           "Puzzle number 2 is incomplete in file: @", 2}}) {
    SCOPED_TRACE(r.what);
    App app;
    app.writeFiles();
    app.start();
    ASSERT_EQ(app.s.collection.TotalPuzzles, 2);
    ASSERT_TRUE(app.read(1));
    const std::string path = app.s.collection.CurrentFile;
    const std::string config = test::readFile(app.file("Quorrel.cfg"));
    if (r.content)
      test::writeFile(path, *r.content);
    else
      fs::remove(path);
    // Next, with the count taken before the change.
    const int next = navigationTarget(NavButton::Next, false, 1, app.s.collection.TotalPuzzles, 0);
    ASSERT_EQ(next, 2);
    EXPECT_FALSE(app.read(next));
    std::string message = r.message;
    message.replace(message.find('@'), 1, path);
    EXPECT_EQ(app.takeMessages(), Lines{message});
    EXPECT_EQ(app.s.collection.TotalPuzzles, r.total);
    EXPECT_EQ(givensText(app.s), kPuzzle1);
    EXPECT_EQ(app.s.collection.CurrentPuzzleNumber, 1);
    EXPECT_EQ(test::readFile(app.file("Quorrel.cfg")), config);
    // The program goes on: what is left of the file still reads.
    EXPECT_TRUE(r.total == 0 || app.read(1));
  }
}

// --- symbolic links that lead nowhere, and one that leads somewhere

TEST(DiskFaults, ASymbolicLinkLoopIsToldWhereverItStandsAndStaysALink) {
  // The file that is a link to itself, the messages of the start and of read, create, save new and
  // writing the configuration (@ for the application folder).
  struct Row { std::string loop; Lines startMessages, workMessages; };
  for (const Row& r : {Row{"Puzzles.sud",
                           {"Default puzzle file not found: @Puzzles.sud"},
                           {"Could not read file: @Puzzles.sud (" + kLoop + ")", could("@Puzzles.sud", kLoop)}},
                       Row{"Quorrel.cfg", {}, {could("@Quorrel.cfg", kLoop), could("@Quorrel.cfg", kLoop)}},
                       Row{"PuzTemp.sud", {}, {could("@PuzTemp.sud", kLoop)}}}) {
    SCOPED_TRACE(r.loop);
    App app;
    app.writeFiles();
    fs::remove(app.file(r.loop));
    fs::create_symlink(r.loop, app.file(r.loop));
    const auto withFolder = [&](Lines lines) {
      for (std::string& line : lines) line.replace(line.find('@'), 1, app.dir.dir());
      return lines;
    };
    app.start();
    EXPECT_EQ(app.takeMessages(), withFolder(r.startMessages));
    const auto before = folderBytes(app.dir.path());

    app.read(1);
    app.create();
    EXPECT_TRUE(r.loop != "Puzzles.sud" || !saveNewCommand(app.s));  // saving into the loop fails
    writeConfiguration(app.s);
    // Only the faults' messages: the created puzzle and a successful save say nothing else here.
    EXPECT_EQ(app.takeMessages(), withFolder(r.workMessages));
    EXPECT_TRUE(fs::is_symlink(app.file(r.loop)));
    auto after = folderBytes(app.dir.path());
    for (const char* written : {"Quorrel.cfg", "PuzTemp.sud"})
      if (r.loop != written) after[written] = before.at(written);
    EXPECT_EQ(after, before);
  }
}

TEST(DiskFaults, WritingThroughALinkWritesTheFileItLeadsToAndKeepsTheLink) {
  App app;
  app.writeFiles();
  fs::create_directory(app.file("real"));
  fs::rename(app.file("Puzzles.sud"), app.file("real/Puzzles.sud"));
  fs::create_symlink("real/Puzzles.sud", app.file("Puzzles.sud"));
  app.start();
  ASSERT_TRUE(app.read(2));
  EXPECT_TRUE(saveNewCommand(app.s));
  EXPECT_TRUE(fs::is_symlink(app.file("Puzzles.sud")));
  EXPECT_EQ(countPuzzles(app.file("real/Puzzles.sud")), 3);
  // A dangling link is no place to write either.
  fs::remove(app.file("real/Puzzles.sud"));
  app.takeMessages();
  EXPECT_FALSE(saveNewCommand(app.s));
  EXPECT_EQ(app.takeMessages(), Lines{could(app.file("Puzzles.sud"), kMissing)});
  EXPECT_FALSE(fs::exists(app.file("real/Puzzles.sud")));
}

}  // namespace
}  // namespace tessaly
