// Quorrel.cfg, the rule-order dialog and Permu.txt.

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <system_error>


#include "model/Configuration.h"
#include "model/Services.h"
#include "model/Session.h"
#include "support/TestSupport.h"

namespace tessaly {
namespace {

/// A fresh application directory under the system temp folder.
class AppDir : public test::TempDir {
 public:
  /// Without the trailing "/", as a caller may hand it over.
  std::string bare() const { return path(); }
};

std::string readFile(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  std::ostringstream ss;
  ss << in.rdbuf();
  return ss.str();
}

void writeFile(const std::string& path, const std::string& content) {
  std::ofstream out(path, std::ios::binary | std::ios::trunc);
  out << content;
}

const char* const kCollection = "#1\r\n4..1...7.\r\n.2...8..1\r\n..9.3....\r\n1...5..8.\r\n...2.6...\r\n"
                                ".7..4...3\r\n....1.6..\r\n8..7...2.\r\n.3...9..5\r\n";

struct ConfigFixture {
  AppDir app;
  ScriptedUserInterface ui;
  Session session{Services{&ui}};
  ConfigFixture() { session.appDir = app.dir(); }
};

void expectDefaults(const Session& session) {
  EXPECT_EQ(session.config.MaxTries, 250);
  EXPECT_EQ(session.config.RuleOrder, "23456");
  EXPECT_EQ(session.config.ColourSchemeFile, "");
}

TEST(Configuration, WritesFourCrLfLines) {
  ConfigFixture f;
  f.session.config.MaxTries = 300;
  f.session.config.RuleOrder = "3456";
  f.session.config.ColourSchemeFile = "Sky.sch";
  f.session.CurrentFile = "/elsewhere/collections/My Puzzles.sud";
  ASSERT_TRUE(writeConfiguration(f.session));
  EXPECT_EQ(readFile(f.app.file("Quorrel.cfg")), " 300 \r\n3456\r\nSky.sch\r\nMy Puzzles.sud\r\n");
  EXPECT_TRUE(f.ui.messages.empty());
}

TEST(Configuration, DefaultsAreWrittenWithBlanksAroundTheCount) {
  ConfigFixture f;
  f.session.CurrentFile = f.app.file("Puzzles.sud");
  ASSERT_TRUE(writeConfiguration(f.session));
  EXPECT_EQ(readFile(f.app.file("Quorrel.cfg")), " 250 \r\n23456\r\n\r\nPuzzles.sud\r\n");
}

TEST(Configuration, RoundTrip) {
  ConfigFixture f;
  writeFile(f.app.file("Mine.sud"), kCollection);
  f.session.config = {412, "65432", "Forest.sch"};
  f.session.CurrentFile = "/some/other/folder/Mine.sud";
  ASSERT_TRUE(writeConfiguration(f.session));

  ScriptedUserInterface ui;
  Session fresh{Services{&ui}};
  fresh.appDir = f.app.dir();
  readConfiguration(fresh);
  EXPECT_EQ(fresh.config.MaxTries, 412);
  EXPECT_EQ(fresh.config.RuleOrder, "65432");
  EXPECT_EQ(fresh.config.ColourSchemeFile, "Forest.sch");
  // Remembered by name only and found in the application directory.
  EXPECT_EQ(fresh.CurrentFile, f.app.file("Mine.sud"));
  EXPECT_TRUE(ui.messages.empty());
}

TEST(Configuration, RandomRuleOrderIsAnEmptySecondLine) {
  ConfigFixture f;
  f.session.config.RuleOrder = "";
  f.session.CurrentFile = f.app.file("Puzzles.sud");
  ASSERT_TRUE(writeConfiguration(f.session));
  EXPECT_EQ(readFile(f.app.file("Quorrel.cfg")), " 250 \r\n\r\n\r\nPuzzles.sud\r\n");

  Session fresh;
  fresh.appDir = f.app.dir();
  readConfiguration(fresh);
  EXPECT_EQ(fresh.config.RuleOrder, "");
}

TEST(Configuration, MissingFileGivesDefaultsWithoutMessage) {
  ConfigFixture f;
  readConfiguration(f.session);
  expectDefaults(f.session);
  EXPECT_EQ(f.session.CurrentFile, f.app.file("Puzzles.sud"));
  EXPECT_TRUE(f.ui.messages.empty());
}

TEST(Configuration, EmptyFileGivesDefaultsWithoutMessage) {
  ConfigFixture f;
  writeFile(f.app.file("Quorrel.cfg"), "");
  readConfiguration(f.session);
  expectDefaults(f.session);
  EXPECT_EQ(f.session.CurrentFile, f.app.file("Puzzles.sud"));
  EXPECT_TRUE(f.ui.messages.empty());
}

TEST(Configuration, GarbledCountGivesDefaultsWithoutMessage) {
  for (const char* first : {"lots", "", "  ", "3.5", "12abc", "99999999999999"}) {
    ConfigFixture f;
    writeFile(f.app.file("Mine.sud"), kCollection);
    writeFile(f.app.file("Quorrel.cfg"), std::string(first) + "\r\n3456\r\nSky.sch\r\nMine.sud\r\n");
    readConfiguration(f.session);
    SCOPED_TRACE(first);
    expectDefaults(f.session);
    EXPECT_EQ(f.session.CurrentFile, f.app.file("Puzzles.sud"));
    EXPECT_TRUE(f.ui.messages.empty());
  }
}

TEST(Configuration, BinaryJunkGivesDefaultsWithoutMessage) {
  ConfigFixture f;
  writeFile(f.app.file("Quorrel.cfg"), std::string("\x01\xff\x00\x7f garbage", 12));
  readConfiguration(f.session);
  expectDefaults(f.session);
  EXPECT_TRUE(f.ui.messages.empty());
}

TEST(Configuration, ShortFileKeepsWhatWasRead) {
  ConfigFixture f;
  writeFile(f.app.file("Quorrel.cfg"), " 80 \r\n345\r\n");
  readConfiguration(f.session);
  EXPECT_EQ(f.session.config.MaxTries, 80);
  EXPECT_EQ(f.session.config.RuleOrder, "345");
  EXPECT_EQ(f.session.config.ColourSchemeFile, "");
  EXPECT_EQ(f.session.CurrentFile, f.app.file("Puzzles.sud"));
  EXPECT_TRUE(f.ui.messages.empty());
}

TEST(Configuration, AcceptsLfAndCrLineEnds) {
  for (const char* eol : {"\n", "\r", "\r\n"}) {
    ConfigFixture f;
    writeFile(f.app.file("Mine.sud"), kCollection);
    std::string e = eol;
    writeFile(f.app.file("Quorrel.cfg"), " 300 " + e + "2345" + e + "Sky.sch" + e + "Mine.sud" + e);
    readConfiguration(f.session);
    SCOPED_TRACE(e.size());
    EXPECT_EQ(f.session.config.MaxTries, 300);
    EXPECT_EQ(f.session.config.RuleOrder, "2345");
    EXPECT_EQ(f.session.config.ColourSchemeFile, "Sky.sch");
    EXPECT_EQ(f.session.CurrentFile, f.app.file("Mine.sud"));
  }
}

TEST(Configuration, MissingOrEmptyRememberedCollectionFallsBackToPuzzlesSud) {
  ConfigFixture f;
  writeFile(f.app.file("Quorrel.cfg"), " 250 \r\n23456\r\n\r\nGone.sud\r\n");
  readConfiguration(f.session);
  EXPECT_EQ(f.session.CurrentFile, f.app.file("Puzzles.sud"));

  writeFile(f.app.file("Empty.sud"), "");
  writeFile(f.app.file("Quorrel.cfg"), " 250 \r\n23456\r\n\r\nEmpty.sud\r\n");
  readConfiguration(f.session);
  EXPECT_EQ(f.session.CurrentFile, f.app.file("Puzzles.sud"));
  EXPECT_TRUE(f.ui.messages.empty());
}

TEST(Configuration, FailedWriteIsReported) {
  ConfigFixture f;
  f.session.appDir = f.app.file("missing/");
  EXPECT_FALSE(writeConfiguration(f.session));
  EXPECT_EQ(f.ui.messages, std::vector<std::string>{"Could not write file: " + f.app.file("missing/Quorrel.cfg")});
}

std::string promptFor(const std::string& setting) {
  return "Specify the order in which to apply the rules, default=23456\nEnter 0 for a random sequence\n\n"
         "Current setting=" +
         setting;
}

/// Records the title too, which the scripted interface does not keep.
class TitleRecorder : public ScriptedUserInterface {
 public:
  std::optional<std::string> textInput(const std::string& title, const std::string& prompt,
                                       const std::string& defaultAnswer) override {
    titles.push_back(title);
    defaults.push_back(defaultAnswer);
    return ScriptedUserInterface::textInput(title, prompt, defaultAnswer);
  }
  std::vector<std::string> titles;
  std::vector<std::string> defaults;
};

TEST(RuleOrderDialog, AsksWithTitlePromptAndEmptyDefault) {
  TitleRecorder ui;
  Session session{Services{&ui}};
  ruleOrderDialog(session);  // cancelled
  EXPECT_EQ(ui.titles, std::vector<std::string>{"How to apply Rules"});
  EXPECT_EQ(ui.defaults, std::vector<std::string>{""});
  EXPECT_EQ(ui.prompts, std::vector<std::string>{promptFor("23456")});
}

TEST(RuleOrderDialog, OutOfRangeDigitIsRefusedThenOneAccepted) {
  ScriptedUserInterface ui;
  Session session{Services{&ui}};
  ui.inputs = {std::string("27"), std::string("1")};
  ruleOrderDialog(session);
  EXPECT_EQ(ui.messages, std::vector<std::string>{"Rules are 2 to 6 only"});
  EXPECT_EQ(ui.prompts, (std::vector<std::string>{promptFor("23456"), promptFor("23456")}));
  EXPECT_EQ(session.config.RuleOrder, "1");
}

TEST(RuleOrderDialog, ZeroMeansRandom) {
  ScriptedUserInterface ui;
  Session session{Services{&ui}};
  ui.inputs = {std::string("0")};
  ruleOrderDialog(session);
  EXPECT_EQ(session.config.RuleOrder, "");
  ruleOrderDialog(session);  // cancelled: shows the setting only
  ASSERT_EQ(ui.prompts.size(), 2u);
  EXPECT_EQ(ui.prompts[1], promptFor("RANDOM"));
  EXPECT_TRUE(ui.messages.empty());
}

TEST(RuleOrderDialog, RepeatedDigitsAreStoredAsTyped) {
  ScriptedUserInterface ui;
  Session session{Services{&ui}};
  ui.inputs = {std::string("2255")};
  ruleOrderDialog(session);
  EXPECT_EQ(session.config.RuleOrder, "2255");
  EXPECT_TRUE(ui.messages.empty());
}

TEST(RuleOrderDialog, CancelOrEmptyAnswerLeavesTheOrder) {
  ScriptedUserInterface ui;
  Session session{Services{&ui}};
  session.config.RuleOrder = "6543";
  ui.inputs = {std::nullopt};
  ruleOrderDialog(session);
  EXPECT_EQ(session.config.RuleOrder, "6543");
  ui.inputs = {std::string("")};
  ruleOrderDialog(session);
  EXPECT_EQ(session.config.RuleOrder, "6543");
  EXPECT_EQ(ui.prompts.size(), 2u);
  EXPECT_TRUE(ui.messages.empty());
}

TEST(RuleOrderDialog, NonDigitsAreRefusedUntilAnAcceptableAnswer) {
  ScriptedUserInterface ui;
  Session session{Services{&ui}};
  ui.inputs = {std::string("2a"), std::string(" 3"), std::string("00"), std::string("7"), std::string("")};
  ruleOrderDialog(session);
  EXPECT_EQ(ui.messages.size(), 4u);
  EXPECT_EQ(ui.prompts.size(), 5u);
  EXPECT_EQ(session.config.RuleOrder, "23456");
}

TEST(RuleOrderDialog, AcceptableOrders) {
  EXPECT_TRUE(isAcceptableRuleOrder("23456"));
  EXPECT_TRUE(isAcceptableRuleOrder("1"));
  EXPECT_TRUE(isAcceptableRuleOrder("666666666"));
  EXPECT_FALSE(isAcceptableRuleOrder("27"));
  EXPECT_FALSE(isAcceptableRuleOrder("2-3"));
  EXPECT_FALSE(isAcceptableRuleOrder("0"));
}

TEST(PermutationTable, ReadsUpTo84Lines) {
  AppDir app;
  Session session;
  std::string content;
  for (int i = 0; i < 90; ++i) content += "item" + std::to_string(i) + "\r\n";
  writeFile(app.file("Permu.txt"), content);
  readPermutationTable(session, app.file("Permu.txt"));
  ASSERT_EQ(session.PermutationTable.size(), 84u);
  EXPECT_EQ(session.PermutationTable[0], "item0");
  EXPECT_EQ(session.PermutationTable[83], "item83");
}

TEST(PermutationTable, ShortOrMissingFileKeepsWhatWasRead) {
  AppDir app;
  Session session;
  writeFile(app.file("Permu.txt"), "123\n 456 \n\n789");
  readPermutationTable(session, app.file("Permu.txt"));
  EXPECT_EQ(session.PermutationTable, (std::vector<std::string>{"123", " 456 ", "", "789"}));
  readPermutationTable(session, app.file("none.txt"));
  EXPECT_TRUE(session.PermutationTable.empty());
}

}  // namespace
}  // namespace tessaly
