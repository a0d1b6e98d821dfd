// The File menu in everyday use: a refused file changes nothing, Open offers
// lists as well as collections, a new collection can be started and filled,
// the collections opened last come back (by their full path), the usual keys
// reach their entries, and the event log can be kept in a file of one's own.

#include <QLineEdit>
#include <QMenu>
#include <QSettings>

#include "model/CollectionFile.h"
#include "model/FileUtil.h"
#include "output/SaveCommands.h"
#include "UiSupport.h"

namespace tessaly::testing {
namespace {

class FilesMenuTest : public WindowFixture {
 protected:
  std::string fileBox() const { return child<QLineEdit>("FileNow")->text().toStdString(); }
  QString settingsFile() const { return QString::fromStdString(appDir() + "window.ini"); }
};

TEST_F(FilesMenuTest, ARefusedFileChangesNothing) {
  start(1);
  const std::string garbage = appDir() + "garbage.sud", empty = appDir() + "empty.sud", list = appDir() + "list.txt";
  writeFile(garbage, std::string("\x7f" "ELF\0\0\1\2", 8));
  writeFile(empty, "");
  writeFile(list, "no puzzles here\n");
  const std::string board = givensText(session);
  const std::pair<std::string, std::string> cases[] = {
      {garbage, garbage + " is not a text file of puzzles"},
      {empty, empty + " does not appear to have any puzzles"},
      {list, list + " does not appear to have any puzzles"},
      {appDir(), "Could not read file: " + appDir() + " (Is a directory)"},
  };
  for (const auto& [path, message] : cases) {
    SCOPED_TRACE(path);
    ui.messages.clear();
    ui.files.push_back(path);
    action("mnuOpen")->trigger();
    EXPECT_EQ(ui.messages, std::vector<std::string>{message});
    EXPECT_EQ(fileBox(), appDir() + "Puzzles.sud");
    EXPECT_EQ(session.collection.CurrentFile, appDir() + "Puzzles.sud");
    EXPECT_EQ(session.collection.TotalPuzzles, 50);
    EXPECT_EQ(givensText(session), board);
  }
  // Next goes on in the collection that was there, without a word.
  ui.messages.clear();
  click("NavButton_1");
  EXPECT_TRUE(ui.messages.empty());
  EXPECT_EQ(session.collection.CurrentPuzzleNumber, 2);
}

TEST_F(FilesMenuTest, ANewCollectionIsMadeEmptyAndSaveThisPuzzleFillsIt) {
  start(1);
  const std::string path = appDir() + "Mine.sud";
  ui.files.push_back(path);
  action("mnuNewCollection")->trigger();
  ASSERT_EQ(ui.fileRequests.size(), 1u);
  EXPECT_EQ(ui.fileRequests[0].mode, FileRequest::Mode::Save);
  EXPECT_EQ(fileLength(path), 0);
  EXPECT_EQ(fileBox(), path);
  EXPECT_EQ(session.collection.TotalPuzzles, 0);
  click("Solveit");
  ui.answers.push_back(true);
  ui.messages.clear();
  action("mnuSave2InFile")->trigger();
  EXPECT_EQ(countPuzzles(path), 1);
  EXPECT_EQ(ui.messages, std::vector<std::string>{"Puzzle# 1 added to file: " + path});
  // A name that already holds something is not emptied.
  writeFile(appDir() + "notes.sud", "my notes\n");
  ui.files.push_back(appDir() + "notes.sud");
  action("mnuNewCollection")->trigger();
  EXPECT_EQ(readFile(appDir() + "notes.sud"), "my notes\n");
  EXPECT_EQ(session.collection.CurrentFile, path);
}

TEST_F(FilesMenuTest, RecentFilesAndTheFullPathComeBackInTheNextRun) {
  test::TempDir elsewhere;
  const std::string away = elsewhere.file("Away.sud");
  std::filesystem::copy_file(puzzleFile("pe96.sud"), away);
  start();
  window->rememberLayoutIn(std::make_unique<QSettings>(settingsFile(), QSettings::IniFormat));
  ui.files.push_back(away);
  action("mnuOpen")->trigger();
  window->openCollectionFile(appDir() + "Puzzles.sud");
  window->openCollectionFile(away);
  EXPECT_EQ(window->recentFiles(), (QStringList{QString::fromStdString(away),
                                                QString::fromStdString(appDir() + "Puzzles.sud")}));
  action("mnuexit")->trigger();  // Quorrel.cfg keeps the bare name, as it always has
  EXPECT_EQ(splitLines(readFile(appDir() + "Quorrel.cfg")).at(3), "Away.sud");

  window = std::make_unique<MainWindow>(session, &ui);
  window->rememberLayoutIn(std::make_unique<QSettings>(settingsFile(), QSettings::IniFormat));
  window->startUp(appDir());
  EXPECT_EQ(session.collection.CurrentFile, away);
  EXPECT_EQ(session.collection.TotalPuzzles, 50);
  auto* recent = child<QMenu>("mnuRecent");
  emit recent->aboutToShow();
  ASSERT_NE(child<QAction>("mnuRecent_1"), nullptr);
  child<QAction>("mnuRecent_1")->trigger();
  EXPECT_EQ(session.collection.CurrentFile, appDir() + "Puzzles.sud");
  EXPECT_EQ(session.collection.CurrentPuzzleNumber, 1);
}

TEST_F(FilesMenuTest, TheUsualKeysReachOpenSaveAndExit) {
  start();
  EXPECT_EQ(action("mnuOpen")->shortcut(), QKeySequence("Ctrl+O"));
  EXPECT_EQ(action("mnuSave2InFile")->shortcut(), QKeySequence("Ctrl+S"));
  EXPECT_EQ(action("mnuexit")->shortcut(), QKeySequence("Ctrl+Q"));
}

TEST_F(FilesMenuTest, SaveLogAsKeepsEveryLineAndLeavesEventlogAsItIs) {
  start(1);
  click("Solveit");
  const std::string eventLog = readFile(appDir() + "Eventlog.txt");
  ASSERT_GT(session.log.TotalLines(), 20);
  const std::string path = appDir() + "narration.txt";
  ui.files.push_back(path);
  ui.messages.clear();
  action("mnuSaveLog")->trigger();
  std::string expected;
  for (int n = 1; n <= session.log.TotalLines(); ++n) expected += std::string(session.log.text(n)) + "\r\n";
  EXPECT_EQ(readFile(path), expected);
  EXPECT_EQ(ui.messages, std::vector<std::string>{"Event log saved in file: " + path});
  EXPECT_EQ(readFile(appDir() + "Eventlog.txt"), eventLog);
  // An existing file is only replaced after Yes, and a special file never.
  ui.files.push_back(path);
  ui.answers.push_back(false);
  ui.messages.clear();
  action("mnuSaveLog")->trigger();
  EXPECT_EQ(ui.questions.back(), "OverWrite file: " + path + " ?");
  EXPECT_TRUE(ui.messages.empty());
  ui.files.push_back(appDir());
  action("mnuSaveLog")->trigger();
  EXPECT_EQ(ui.messages, std::vector<std::string>{"Could not write file: " + appDir() + " (Is a directory)"});
}

}  // namespace
}  // namespace tessaly::testing
