// Start-up without a window: values, configuration, Permu.txt and the default collection.

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <system_error>


#include "model/Services.h"
#include "model/Session.h"
#include "support/TestSupport.h"
#include "model/Startup.h"

namespace tessaly {
namespace {

/// A fresh application directory under the system temp folder.
class AppDir : public test::TempDir {
 public:
  /// Without the trailing "/", as a caller may hand it over.
  std::string bare() const { return path(); }
};

void writeFile(const std::string& path, const std::string& content) {
  std::ofstream out(path, std::ios::binary | std::ios::trunc);
  out << content;
}

std::string puzzle(int number) {
  return "#" + std::to_string(number) +
         "\r\n4..1...7.\r\n.2...8..1\r\n..9.3....\r\n1...5..8.\r\n...2.6...\r\n"
         ".7..4...3\r\n....1.6..\r\n8..7...2.\r\n.3...9..5\r\n";
}

TEST(StartUp, FindsTheDefaultCollectionAndCountsItsPuzzles) {
  AppDir app;
  writeFile(app.file("Puzzles.sud"), puzzle(1) + "\r\n" + puzzle(2) + "\r\n" + puzzle(3));
  ScriptedUserInterface ui;
  Session session{Services{&ui}};
  session.log.append(0, "left over");
  session.CurrentPuzzleNumber = 9;

  startUp(session, app.bare());

  EXPECT_EQ(session.appDir, app.dir());
  EXPECT_EQ(session.CurrentFile, app.file("Puzzles.sud"));
  EXPECT_EQ(session.TotalPuzzles, 3);
  EXPECT_EQ(session.PuzzleTitle, "Total Puzzles 3");
  EXPECT_EQ(session.CurrentPuzzleNumber, 0);
  EXPECT_EQ(session.log.TotalLines(), 0);
  EXPECT_TRUE(ui.messages.empty());
}

TEST(StartUp, MissingDefaultCollectionIsReported) {
  AppDir app;
  ScriptedUserInterface ui;
  Session session{Services{&ui}};
  session.TotalPuzzles = 5;
  startUp(session, app.dir());
  EXPECT_EQ(ui.messages, std::vector<std::string>{"Default puzzle file not found: " + app.file("Puzzles.sud")});
  EXPECT_EQ(session.TotalPuzzles, 0);
}

TEST(StartUp, EmptyDefaultCollectionIsReported) {
  AppDir app;
  writeFile(app.file("Puzzles.sud"), "");
  ScriptedUserInterface ui;
  Session session{Services{&ui}};
  startUp(session, app.dir());
  EXPECT_EQ(ui.messages, std::vector<std::string>{"Default puzzle file not found: " + app.file("Puzzles.sud")});
  EXPECT_EQ(session.TotalPuzzles, 0);
}

TEST(StartUp, UsesTheRememberedCollection) {
  AppDir app;
  writeFile(app.file("Puzzles.sud"), puzzle(1));
  writeFile(app.file("Mine.sud"), puzzle(1) + "\r\n" + puzzle(2));
  writeFile(app.file("Quorrel.cfg"), " 120 \r\n\r\nSky.sch\r\nMine.sud\r\n");
  ScriptedUserInterface ui;
  Session session{Services{&ui}};
  startUp(session, app.dir());
  EXPECT_EQ(session.config.MaxTries, 120);
  EXPECT_EQ(session.config.RuleOrder, "");
  EXPECT_EQ(session.config.ColourSchemeFile, "Sky.sch");
  EXPECT_EQ(session.CurrentFile, app.file("Mine.sud"));
  EXPECT_EQ(session.TotalPuzzles, 2);
  EXPECT_EQ(session.PuzzleTitle, "Total Puzzles 2");
}

TEST(StartUp, StartValuesComeBeforeTheConfiguration) {
  AppDir app;
  writeFile(app.file("Puzzles.sud"), puzzle(1));
  ScriptedUserInterface ui;
  Session session{Services{&ui}};
  session.config = {7, "6", "Old.sch"};
  session.BlanksLeft = 3;
  session.CellOrder[5] = 77;
  session.DigitOrder[2] = 9;
  session.BoxPositionOrder[4] = 1;
  session.RuleTable = {0, 7, 6, 5, 4, 3, 2};

  startUp(session, app.dir());

  EXPECT_EQ(session.config.MaxTries, 250);
  EXPECT_EQ(session.config.RuleOrder, "23456");
  EXPECT_EQ(session.config.ColourSchemeFile, "");
  EXPECT_EQ(session.BlanksLeft, 81);
  for (int i = 1; i <= 81; ++i) EXPECT_EQ(session.CellOrder[std::size_t(i)], i);
  for (int i = 1; i <= 9; ++i) EXPECT_EQ(session.DigitOrder[std::size_t(i)], i);
  for (int i = 1; i <= 9; ++i) EXPECT_EQ(session.BoxPositionOrder[std::size_t(i)], i);
  for (int i = 1; i <= 6; ++i) EXPECT_EQ(session.RuleTable[std::size_t(i)], i + 1);
}

TEST(StartUp, ReadsPermuTxtFromTheApplicationDirectory) {
  AppDir app;
  writeFile(app.file("Puzzles.sud"), puzzle(1));
  writeFile(app.file("Permu.txt"), "a\r\nb\r\nc\r\n");
  Session session;
  startUp(session, app.dir());
  EXPECT_EQ(session.PermutationTable, (std::vector<std::string>{"a", "b", "c"}));
}

TEST(StartUp, MissingPermuTxtIsFine) {
  AppDir app;
  writeFile(app.file("Puzzles.sud"), puzzle(1));
  ScriptedUserInterface ui;
  Session session{Services{&ui}};
  startUp(session, app.dir());
  EXPECT_TRUE(session.PermutationTable.empty());
  EXPECT_TRUE(ui.messages.empty());
  EXPECT_EQ(session.TotalPuzzles, 1);
}

TEST(StartUp, SchemeIsAppliedAfterTheConfigurationAndBeforeTheCollection) {
  AppDir app;
  writeFile(app.file("Puzzles.sud"), puzzle(1));
  writeFile(app.file("Quorrel.cfg"), " 250 \r\n23456\r\nSky.sch\r\nPuzzles.sud\r\n");
  Session session;
  std::string schemeSeen;
  int totalSeen = -1;
  startUp(session, app.dir(), [&](Session& s) {
    schemeSeen = s.config.ColourSchemeFile;
    totalSeen = s.TotalPuzzles;
  });
  EXPECT_EQ(schemeSeen, "Sky.sch");
  EXPECT_EQ(totalSeen, 0);
  EXPECT_EQ(session.TotalPuzzles, 1);
}

TEST(StartUp, TwoHalvesMatchTheWhole) {
  AppDir app;
  writeFile(app.file("Puzzles.sud"), puzzle(1) + "\r\n" + puzzle(2));
  Session session;
  startUpBeforeScheme(session, app.bare());
  EXPECT_EQ(session.appDir, app.dir());
  EXPECT_EQ(session.CurrentFile, app.file("Puzzles.sud"));
  EXPECT_EQ(session.TotalPuzzles, 0);
  startUpAfterScheme(session);
  EXPECT_EQ(session.TotalPuzzles, 2);
}

}  // namespace
}  // namespace tessaly
