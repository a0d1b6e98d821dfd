// A session's files: where they are, start-up, Quorrel.cfg, the rule-order dialog, collections.

#include <gtest/gtest.h>

#include <filesystem>
#include <map>

#include "create/Creation.h"
#include "model/CollectionFile.h"
#include "model/Configuration.h"
#include "model/Folders.h"
#include "model/Startup.h"
#include "solver/SolverEngine.h"
#include "support/TestSupport.h"

namespace tessaly {
namespace {

namespace fs = std::filesystem;

const std::string kRows =
    test::gridRows("4..1...7..2...8..1..9.3....1...5..8....2.6....7..4...3....1.6..8..7...2..3...9..5");
const std::string kPuzzle = "#1\r\n" + kRows;

/// An application folder holding the collections Mine.sud (two puzzles) and Empty.sud.
struct AppFolder {
  test::TempDir app;
  ScriptedUserInterface ui;
  Session session{Services{&ui}};
  AppFolder() {
    session.appDir = app.dir();
    test::writeFile(app.file("Mine.sud"), kPuzzle + "\r\n" + kPuzzle);
    test::writeFile(app.file("Empty.sud"), "");
  }
  /// MaxTries|RuleOrder|ColourSchemeFile|CurrentFile, the last without the folder when it is this one.
  std::string values() const {
    const Configuration& c = session.config;
    std::string file = session.collection.CurrentFile;
    if (file.starts_with(app.dir())) file.erase(0, app.dir().size());
    return std::to_string(c.MaxTries) + "|" + c.RuleOrder + "|" + c.ColourSchemeFile + "|" + file;
  }
};

TEST(StartUp, FindsTheDefaultCollectionInTheApplicationFolderHoweverItIsSpelt) {
  AppFolder f;
  test::writeFile(f.app.file("Puzzles.sud"), kPuzzle + "\r\n" + kPuzzle + "\r\n" + kPuzzle);
  test::WorkingFolder inside(f.app.path());
  for (const auto& [given, appDir] : {std::pair{f.app.path(), f.app.dir()}, {f.app.dir(), f.app.dir()}, {"", "./"}}) {
    Session& s = f.session;
    s.log.append(0, "left over");
    s.collection.CurrentPuzzleNumber = 9;
    startUp(s, given);
    EXPECT_EQ(s.appDir, appDir);
    EXPECT_EQ(s.collection.CurrentFile, appDir + "Puzzles.sud");
    EXPECT_EQ(puzzleTitle(s.collection.origin()) + "|" + std::to_string(s.collection.TotalPuzzles), "Total Puzzles 3|3");
    EXPECT_EQ(s.collection.CurrentPuzzleNumber + s.log.TotalLines(), 0);
  }
  EXPECT_TRUE(f.ui.messages.empty());
  for (bool exists : {false, true}) {  // missing or empty
    AppFolder g;
    if (exists) test::writeFile(g.app.file("Puzzles.sud"), "");
    g.session.collection.TotalPuzzles = 5;
    startUp(g.session, g.app.dir());
    EXPECT_EQ(g.ui.messages, std::vector<std::string>{"Default puzzle file not found: " + g.app.file("Puzzles.sud")});
    EXPECT_EQ(g.session.collection.TotalPuzzles, 0);
  }
}

TEST(StartUp, StartValuesComeFirstThenTheConfigurationThenTheSchemeThenTheCollection) {
  AppFolder f;
  Session& s = f.session;
  test::writeFile(f.app.file("Puzzles.sud"), kPuzzle);
  test::writeFile(f.app.file("Quorrel.cfg"), " 120 \r\n\r\n");  // stops after the rule order
  s.config = {7, "6", "Old.sch"};
  s.BlanksLeft = 3;
  s.blankingOrders.cells[5] = 77;
  s.blankingOrders.boxPositions[4] = 1;
  s.run.RuleTable = {0, 7, 6, 5, 4, 3, 2};
  std::string seen;  // the scheme and the puzzle count when the scheme is applied
  const auto applyScheme = [&](Session& x) { seen = x.config.ColourSchemeFile + "|" + std::to_string(x.collection.TotalPuzzles); };
  startUp(s, f.app.dir(), applyScheme);
  EXPECT_EQ(f.values(), "120|||Puzzles.sud");
  EXPECT_EQ(seen, "|0");  // the start values, not the old ones
  EXPECT_EQ(s.collection.TotalPuzzles, 1);
  EXPECT_EQ(s.BlanksLeft, 81);
  for (int i = 1; i <= 81; ++i) EXPECT_EQ(s.blankingOrders.cells[std::size_t(i)], i);
  for (std::size_t i = 1; i <= 9; ++i) EXPECT_EQ(s.blankingOrders.boxPositions[i], int(i));
  EXPECT_EQ(s.run.RuleTable, (decltype(s.run.RuleTable){0, 2, 3, 4, 5, 6, 7}));

  test::writeFile(f.app.file("Quorrel.cfg"), " 250 \r\n23456\r\nSky.sch\r\nMine.sud\r\n");
  startUp(s, f.app.dir(), applyScheme);
  EXPECT_EQ(seen, "Sky.sch|1");  // not yet recounted
  EXPECT_EQ(s.collection.CurrentFile, f.app.file("Mine.sud"));
  EXPECT_EQ(puzzleTitle(s.collection.origin()) + "|" + std::to_string(s.collection.TotalPuzzles), "Total Puzzles 2|2");
}

TEST(Configuration, WritesFourCrLfLinesThatReadBackOrSaysItCouldNot) {
  struct Row { Configuration config; std::string collection, expected; };
  for (const Row& r : {Row{{300, "3456", "Sky.sch"}, "/elsewhere/Mine.sud", " 300 \r\n3456\r\nSky.sch\r\nMine.sud\r\n"},
                       Row{{}, "Puzzles.sud", " 250 \r\n23456\r\n\r\nPuzzles.sud\r\n"},
                       Row{{250, "", ""}, "Mine.sud", " 250 \r\n\r\n\r\nMine.sud\r\n"}}) {  // random order
    AppFolder f;
    f.session.config = r.config;
    f.session.collection.CurrentFile = r.collection;
    ASSERT_TRUE(writeConfiguration(f.session));
    EXPECT_EQ(test::readFile(f.app.file("Quorrel.cfg")), r.expected);
    f.session.config = {0, "x", "y"};
    readConfiguration(f.session);
    EXPECT_EQ(configurationText(f.session), r.expected);
    EXPECT_TRUE(f.ui.messages.empty());
  }
  AppFolder f;
  f.session.appDir = f.app.file("missing/");
  EXPECT_FALSE(writeConfiguration(f.session));
  EXPECT_EQ(f.ui.messages, std::vector<std::string>{"Could not write file: " + f.app.file("missing/Quorrel.cfg") + " (No such file or directory)"});
}

TEST(Configuration, ReadingKeepsWhatWasReadBeforeTheFirstUnusableLineAndNeverComplains) {
  const std::string defaults = "250|23456||Puzzles.sud", rest = "\r\n3456\r\nSky.sch\r\nMine.sud\r\n";
  std::vector<std::pair<std::optional<std::string>, std::string>> rows = {
      {std::nullopt, defaults}, {"", defaults}, {std::string("\x01\xff\x00\x7f garbage", 12), defaults},
      {" 80 \r\n 345 \r\n", "80|345||Puzzles.sud"},
      {"\t+12 \r\n3456\r\n Sky.sch \r\n Mine.sud \r\n", "12|3456|Sky.sch|Mine.sud"},
      {" 250 \r\n23456\r\n\r\nGone.sud\r\n", defaults}, {" 250 \r\n23456\r\n\r\nEmpty.sud\r\n", defaults},
      {" 250 \r\n23456\r\n\r\nMine.sud" + std::string("\0/x", 3) + "\r\n", defaults}};  // no name holds a NUL
  for (const char* count : {"lots", "", "  ", "3.5", "12abc", "99999999999999", "-5", "+-5"})
    rows.push_back({count + rest, defaults});  // a garbled count is no 0
  for (const std::string eol : {"\n", "\r", "\r\n"})
    rows.push_back({" 300 " + eol + "2345" + eol + "Sky.sch" + eol + "Mine.sud" + eol, "300|2345|Sky.sch|Mine.sud"});
  for (const auto& [cfg, expected] : rows) {
    AppFolder f;
    if (cfg) test::writeFile(f.app.file("Quorrel.cfg"), *cfg);
    readConfiguration(f.session);
    EXPECT_EQ(f.values(), expected) << testing::PrintToString(cfg);
    EXPECT_TRUE(f.ui.messages.empty());
  }
}

/// Records the title and default answer too, which the scripted interface does not keep.
struct TitleRecorder : ScriptedUserInterface {
  std::optional<std::string> textInput(const std::string& title, const std::string& prompt,
                                       const std::string& defaultAnswer) override {
    asked.push_back(title + "|" + defaultAnswer);
    return ScriptedUserInterface::textInput(title, prompt, defaultAnswer);
  }
  std::vector<std::string> asked;
};

TEST(RuleOrderDialog, AsksUntilAnAcceptableAnswerAndStoresItAsTyped) {
  using Answers = std::vector<std::optional<std::string>>;
  struct Row { std::string before; Answers answers; std::string after; int refusals; std::string shown; };
  for (const Row& r : {Row{"23456", {}, "23456", 0, "23456"},  // cancelled
                       Row{"23456", {"27", "1"}, "1", 1, "23456"}, Row{"23456", {"0"}, "", 0, "23456"},
                       Row{"", {}, "", 0, "RANDOM"}, Row{"23456", {"2255"}, "2255", 0, "23456"},
                       Row{"6543", {std::nullopt}, "6543", 0, "6543"}, Row{"6543", {""}, "6543", 0, "6543"},
                       Row{"23456", {"2a", " 3", "00", "7", ""}, "23456", 4, "23456"}}) {
    SCOPED_TRACE(r.before + " -> " + r.after);
    TitleRecorder ui;
    Session session{Services{&ui}};
    session.config.RuleOrder = r.before;
    ui.inputs.assign(r.answers.begin(), r.answers.end());
    ruleOrderDialog(session);
    EXPECT_EQ(session.config.RuleOrder, r.after);
    EXPECT_EQ(ui.messages, std::vector<std::string>(std::size_t(r.refusals), "Rules are 2 to 6 only"));
    const std::string prompt = "Specify the order in which to apply the rules, default=23456\n"
                               "Enter 0 for a random sequence\n\nCurrent setting=" + r.shown;
    EXPECT_EQ(ui.prompts, std::vector<std::string>(std::size_t(r.refusals + 1), prompt));
    EXPECT_EQ(ui.asked, std::vector<std::string>(std::size_t(r.refusals + 1), "How to apply Rules|"));
  }
  for (const char* ok : {"23456", "1", "666666666"}) EXPECT_TRUE(isAcceptableRuleOrder(ok)) << ok;
  for (const char* bad : {"27", "2-3", "0"}) EXPECT_FALSE(isAcceptableRuleOrder(bad)) << bad;
}

TEST(Folders, UserFoldersFollowTheXdgRules) {
  struct Case { std::map<std::string, std::string> env; std::string expected; };  // config data documents
  const Case cases[] = {
      {{{"HOME", "/home/ann"}}, "/home/ann/.config/Tessaly/ /home/ann/.local/share/Tessaly/ /home/ann/"},
      {{{"HOME", "/a"}, {"XDG_CONFIG_HOME", "/c"}, {"XDG_DATA_HOME", "/d/"}, {"XDG_DOCUMENTS_DIR", "/docs"}},
       "/c/Tessaly/ /d/Tessaly/ /docs/"},
      // Relative or empty values are ignored, as the rules say.
      {{{"HOME", "/h"}, {"XDG_CONFIG_HOME", "rel"}, {"XDG_DATA_HOME", ""}},
       "/h/.config/Tessaly/ /h/.local/share/Tessaly/ /h/"},
      {{}, "/tmp/.config/Tessaly/ /tmp/.local/share/Tessaly/ /tmp/"}};
  for (const Case& c : cases) {
    const UserFolders got = xdgUserFolders([&](const char* name) -> const char* {
      const auto it = c.env.find(name);
      return it == c.env.end() ? nullptr : it->second.c_str();
    });
    EXPECT_EQ(got.config + " " + got.data + " " + got.documents, c.expected);
  }
}

TEST(Folders, DataBesideTheExecutableOrInShareAndWrittenFilesWhereTheyCanGo) {
  test::TempDir root;
  const std::string bin = root.file("usr/bin"), share = root.file("usr/share/tessaly");
  fs::create_directories(bin);
  // No data anywhere: the executable's own folder, where the missing collection is reported.
  EXPECT_EQ(findDataFolder(bin), bin + "/");
  fs::create_directories(share);
  EXPECT_EQ(findDataFolder(bin), share + "/");
  EXPECT_TRUE(isInstalledDataFolder(share + "/"));
  // A portable copy keeps its data beside the executable, whatever is around it.
  test::writeFile(bin + "/Puzzles.sud", "#1\r\n");
  EXPECT_EQ(findDataFolder(bin), bin + "/");
  EXPECT_FALSE(isInstalledDataFolder(bin + "/"));

  // A writable portable copy writes beside itself, output into the working folder;
  // an installed copy never into share/tessaly, even when it could; started from
  // the root or from a folder that is gone, the output goes to the user's documents.
  const UserFolders user{"/u/config/", "/u/data/", "/u/docs/"};
  const auto chosen = [&](const std::string& data, const std::string& working) {
    const Folders f = chooseFolders(data, working, user);
    return f.config + "|" + f.userData + "|" + f.output;
  };
  EXPECT_EQ(chosen(bin + "/", bin), "||" + bin + "/");
  EXPECT_EQ(chosen(share + "/", "/"), "/u/config/|/u/data/|/u/docs/");
  EXPECT_EQ(chosen(root.file("gone/"), root.file("gone")), "/u/config/|/u/data/|/u/docs/");
}

TEST(Folders, TheSessionWritesIntoTheChosenFolders) {
  test::TestSession t;
  Session& s = t.session;
  test::TempDir data, user;
  s.appDir = data.dir();
  s.folders = {user.file("config/Tessaly/"), user.file("share/Tessaly/"), user.dir()};
  // The configuration folder is made on the first write and read back from there.
  s.config.MaxTries = 77;
  s.collection.CurrentFile = data.file("Puzzles.sud");
  ASSERT_TRUE(writeConfiguration(s));
  EXPECT_EQ(configurationPath(s), user.file("config/Tessaly/Quorrel.cfg"));
  s.config = Configuration{};
  readConfiguration(s);
  EXPECT_EQ(s.config.MaxTries, 77);
  EXPECT_FALSE(fs::exists(data.file("Quorrel.cfg")));
  // Created puzzles are appended in the user's data folder; the Solve command's
  // log goes to the output folder, and one that cannot be written is named in full.
  EXPECT_EQ(tempCollectionPath(s), user.file("share/Tessaly/PuzTemp.sud"));
  test::loadGivens(s, "..3.2.6..9..3.5..1..18.64....81.29..7.......8..67.82....26.95..8..2.3..9..5.1.3..");
  SolverEngine(s).solveCommand();
  EXPECT_TRUE(fs::exists(user.file("Eventlog.txt")));
  s.folders.output = "/nonexistent-folder/";
  t.ui.messages.clear();
  SolverEngine(s).solveCommand();
  EXPECT_EQ(t.ui.messages.at(0), "Could not write file: /nonexistent-folder/Eventlog.txt (No such file or directory)");
}

TEST(CollectionFile, PuzzlesAreFoundByPositionWhateverTheirHeaderSaysAndBlanksReadAlike) {
  using Status = PuzzleRowsRead::Status;
  test::TempDir dir;
  const std::string path = dir.file("odd.sud");
  test::writeFile(path, "#7\r\n" + kRows + "\r\n#3\n" + std::string(9, '1') + "\n" + kRows + "#x\r" + "2........\r" +
                            kRows + "#4\r\n123\r\n");
  EXPECT_EQ(countPuzzles(path), 4);
  for (auto [n, row] : {std::pair{1, "400100070"}, {2, "111111111"}, {3, "200000000"}})
    EXPECT_EQ(readPuzzleRows(path, n).rows.at(0), row);
  EXPECT_EQ(readPuzzleRows(path, 4).status, Status::Incomplete);  // fewer than nine rows follow
  EXPECT_EQ(readPuzzleRows(path, 5).status, Status::NotFound);
  EXPECT_EQ(readPuzzleRows(dir.file("none.sud"), 1).status, Status::Unreadable);
  // Dots, spaces and zeros are blanks alike; short rows stay as they are.
  test::writeFile(path, "#1\n4..1...7.\n400100070\n4  1   7 \n4\n\n\n\n\n\n");
  const PuzzleRowsRead read = readPuzzleRows(path, 1);
  ASSERT_EQ(read.status, Status::Found);
  EXPECT_EQ(read.rows, (std::vector<std::string>{"400100070", "400100070", "400100070", "4", "", "", "", "", ""}));
  // As cells, as a read places them: a short row's missing cells are blanks.
  EXPECT_EQ(read.cells(), "400100070400100070400100070400000000" + std::string(45, '0'));
}

TEST(CollectionFile, AppendingIntoAMissingFolderFailsAndTheOneLineCode) {
  // What appending writes is pinned by the command-line case create-box-into.
  test::TempDir dir;
  EXPECT_FALSE(appendPuzzle(dir.file("missing-folder/x.sud"), std::string(81, '.')).has_value());
  // The code is the puzzle number (two digits at least), "=" and the 81 values.
  Session s;
  s.collection.CurrentPuzzleNumber = 5;
  s.grid[1].value = 4;
  s.grid[81].value = 9;
  EXPECT_EQ(gridCode(s), "05=4" + std::string(79, '0') + "9");
  s.collection.CurrentPuzzleNumber = 125;
  EXPECT_EQ(gridCode(s).substr(0, 5), "125=4");
}

TEST(CollectionFile, NavigationWrapsRightClickJumpsAndTypedNumbersStayInside) {
  // Button (Previous, Next, Random), right click, number in the box, total, uniform draw, expected.
  struct Row { int button; bool right; int n, total; double uniform; int expected; };
  for (const Row& r : {Row{0, false, 1, 125, 0, 125}, {0, false, 5, 125, 0, 4}, {1, false, 125, 125, 0, 1},
                       {1, false, 7, 125, 0, 8}, {0, true, 50, 125, 0, 1}, {1, true, 50, 125, 0, 125},
                       {2, false, 1, 1, 0.7, 1}, {2, false, 1, 125, 0.0, 2},  // 1 is never drawn
                       {2, false, 1, 125, 0.9999, 125}, {1, false, 1, 0, 0, 0}})  // no collection: nothing
    EXPECT_EQ(navigationTarget(NavButton(r.button), r.right, r.n, r.total, r.uniform), r.expected)
        << r.button << r.right << " n=" << r.n << " uniform=" << r.uniform;
  for (auto [text, n] : {std::pair{"12", 12}, {"125", 125}}) EXPECT_EQ(typedPuzzleNumber(text, 125), n);
  for (const char* outside : {"0", "126", "abc", ""}) EXPECT_FALSE(typedPuzzleNumber(outside, 125)) << outside;
}

}  // namespace
}  // namespace tessaly
