// Start-up without a window: start values, then the configuration, the colour
// scheme and the default collection, in that order.

#include <gtest/gtest.h>

#include "model/Startup.h"
#include "support/TestSupport.h"

namespace tessaly {
namespace {

std::string puzzle(int number) {
  return "#" + std::to_string(number) + "\r\n4..1...7.\r\n.2...8..1\r\n..9.3....\r\n1...5..8.\r\n...2.6...\r\n"
         ".7..4...3\r\n....1.6..\r\n8..7...2.\r\n.3...9..5\r\n";
}

TEST(StartUp, FindsTheDefaultCollectionInTheApplicationFolderHoweverItIsSpelt) {
  test::TempDir app;
  test::writeFile(app.file("Puzzles.sud"), puzzle(1) + "\r\n" + puzzle(2) + "\r\n" + puzzle(3));
  test::WorkingFolder inside(app.path());
  for (const auto& [given, appDir] : {std::pair{app.path(), app.dir()}, {app.dir(), app.dir()}, {"", "./"}}) {
    ScriptedUserInterface ui;
    Session session{Services{&ui}};
    session.log.append(0, "left over");
    session.collection.CurrentPuzzleNumber = 9;
    startUp(session, given);
    EXPECT_EQ(session.appDir, appDir);
    EXPECT_EQ(session.collection.CurrentFile, appDir + "Puzzles.sud");
    EXPECT_EQ(session.collection.TotalPuzzles, 3);
    EXPECT_EQ(session.PuzzleTitle, "Total Puzzles 3");
    EXPECT_EQ(session.collection.CurrentPuzzleNumber, 0);
    EXPECT_EQ(session.log.TotalLines(), 0);
    EXPECT_TRUE(ui.messages.empty());
  }
}

TEST(StartUp, AMissingOrEmptyDefaultCollectionIsReported) {
  for (bool exists : {false, true}) {
    test::TempDir app;
    if (exists) test::writeFile(app.file("Puzzles.sud"), "");
    ScriptedUserInterface ui;
    Session session{Services{&ui}};
    session.collection.TotalPuzzles = 5;
    startUp(session, app.dir());
    EXPECT_EQ(ui.messages, std::vector<std::string>{"Default puzzle file not found: " + app.file("Puzzles.sud")});
    EXPECT_EQ(session.collection.TotalPuzzles, 0);
  }
}

TEST(StartUp, StartValuesComeFirstThenTheConfigurationThenTheSchemeThenTheCollection) {
  test::TempDir app;
  test::writeFile(app.file("Puzzles.sud"), puzzle(1));
  test::writeFile(app.file("Mine.sud"), puzzle(1) + "\r\n" + puzzle(2));
  test::writeFile(app.file("Quorrel.cfg"), " 120 \r\n\r\n");  // stops after the rule order
  Session session;
  session.config = {7, "6", "Old.sch"};
  session.BlanksLeft = 3;
  session.CellOrder[5] = 77;
  session.DigitOrder[2] = 9;
  session.BoxPositionOrder[4] = 1;
  session.run.RuleTable = {0, 7, 6, 5, 4, 3, 2};
  std::string schemeSeen;
  int totalSeen = -1;
  const auto applyScheme = [&](Session& s) {
    schemeSeen = s.config.ColourSchemeFile;
    totalSeen = s.collection.TotalPuzzles;
  };
  startUp(session, app.dir(), applyScheme);
  EXPECT_EQ(session.config.MaxTries, 120);
  EXPECT_EQ(session.config.RuleOrder, "");
  EXPECT_EQ(schemeSeen, "");  // the start value, not the old one
  EXPECT_EQ(totalSeen, 0);
  EXPECT_EQ(session.collection.TotalPuzzles, 1);
  EXPECT_EQ(session.BlanksLeft, 81);
  for (int i = 1; i <= 81; ++i) EXPECT_EQ(session.CellOrder[std::size_t(i)], i);
  for (int i = 1; i <= 9; ++i) EXPECT_EQ(session.DigitOrder[std::size_t(i)], i);
  for (int i = 1; i <= 9; ++i) EXPECT_EQ(session.BoxPositionOrder[std::size_t(i)], i);
  EXPECT_EQ(session.run.RuleTable, (decltype(session.run.RuleTable){0, 2, 3, 4, 5, 6, 7}));

  test::writeFile(app.file("Quorrel.cfg"), " 250 \r\n23456\r\nSky.sch\r\nMine.sud\r\n");
  startUp(session, app.dir(), applyScheme);
  EXPECT_EQ(schemeSeen, "Sky.sch");
  EXPECT_EQ(totalSeen, 1);  // not yet recounted
  EXPECT_EQ(session.collection.CurrentFile, app.file("Mine.sud"));
  EXPECT_EQ(session.collection.TotalPuzzles, 2);
  EXPECT_EQ(session.PuzzleTitle, "Total Puzzles 2");
}

}  // namespace
}  // namespace tessaly
