// Quorrel.cfg, the rule-order dialog and Permu.txt.

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

#include "model/Configuration.h"
#include "support/TestSupport.h"

namespace tessaly {
namespace {

/// An application folder holding the collections Mine.sud and Empty.sud (empty).
struct ConfigFixture {
  test::TempDir app;
  ScriptedUserInterface ui;
  Session session{Services{&ui}};
  ConfigFixture() {
    session.appDir = app.dir();
    test::writeFile(app.file("Mine.sud"), "#1\r\n");
    test::writeFile(app.file("Empty.sud"), "");
  }
};

TEST(Configuration, WritesFourCrLfLinesThatReadBackOrSaysItCouldNot) {
  struct Row { Configuration config; std::string collection, expected; };
  for (const Row& r : {Row{{300, "3456", "Sky.sch"}, "/elsewhere/Mine.sud", " 300 \r\n3456\r\nSky.sch\r\nMine.sud\r\n"},
                       Row{{}, "Puzzles.sud", " 250 \r\n23456\r\n\r\nPuzzles.sud\r\n"},
                       Row{{250, "", ""}, "Mine.sud", " 250 \r\n\r\n\r\nMine.sud\r\n"}}) {  // random order
    ConfigFixture f;
    f.session.config = r.config;
    f.session.collection.CurrentFile = r.collection;
    ASSERT_TRUE(writeConfiguration(f.session));
    EXPECT_EQ(test::readFile(f.app.file("Quorrel.cfg")), r.expected);
    Session fresh;
    fresh.appDir = f.app.dir();
    readConfiguration(fresh);
    EXPECT_EQ(configurationText(fresh), r.expected);
    EXPECT_TRUE(f.ui.messages.empty());
  }
  ConfigFixture f;
  f.session.appDir = f.app.file("missing/");
  EXPECT_FALSE(writeConfiguration(f.session));
  EXPECT_EQ(f.ui.messages, std::vector<std::string>{"Could not write file: " + f.app.file("missing/Quorrel.cfg")});
}

TEST(Configuration, ReadingKeepsWhatWasReadBeforeTheFirstUnusableLineAndNeverComplains) {
  struct Row { std::optional<std::string> cfg; int tries; std::string order, scheme, collection; };
  const std::string rest = "\r\n3456\r\nSky.sch\r\nMine.sud\r\n";
  std::vector<Row> rows = {
      {std::nullopt, 250, "23456", "", "Puzzles.sud"},
      {"", 250, "23456", "", "Puzzles.sud"},
      {std::string("\x01\xff\x00\x7f garbage", 12), 250, "23456", "", "Puzzles.sud"},
      {" 80 \r\n 345 \r\n", 80, "345", "", "Puzzles.sud"},
      {"\t+12 \r\n3456\r\n Sky.sch \r\n Mine.sud \r\n", 12, "3456", "Sky.sch", "Mine.sud"},
      {" 250 \r\n23456\r\n\r\nGone.sud\r\n", 250, "23456", "", "Puzzles.sud"},
      {" 250 \r\n23456\r\n\r\nEmpty.sud\r\n", 250, "23456", "", "Puzzles.sud"},
  };
  for (const char* count : {"lots", "", "  ", "3.5", "12abc", "99999999999999"})
    rows.push_back({count + rest, 250, "23456", "", "Puzzles.sud"});  // a garbled count is no 0
  for (const std::string eol : {"\n", "\r", "\r\n"})
    rows.push_back({" 300 " + eol + "2345" + eol + "Sky.sch" + eol + "Mine.sud" + eol, 300, "2345", "Sky.sch",
                    "Mine.sud"});
  for (const Row& r : rows) {
    SCOPED_TRACE(testing::PrintToString(r.cfg));
    ConfigFixture f;
    if (r.cfg) test::writeFile(f.app.file("Quorrel.cfg"), *r.cfg);
    readConfiguration(f.session);
    EXPECT_EQ(f.session.config.MaxTries, r.tries);
    EXPECT_EQ(f.session.config.RuleOrder, r.order);
    EXPECT_EQ(f.session.config.ColourSchemeFile, r.scheme);
    EXPECT_EQ(f.session.collection.CurrentFile, f.app.file(r.collection));
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

TEST(PermutationTable, HoldsUpTo84LinesAsTheyStand) {
  test::TempDir app;
  Session session;
  std::string many;
  for (int i = 0; i < 90; ++i) many += "item" + std::to_string(i) + "\r\n";
  test::writeFile(app.file("Permu.txt"), many);
  readPermutationTable(session, app.file("Permu.txt"));
  EXPECT_EQ(session.PermutationTable.size(), 84u);
  EXPECT_EQ(session.PermutationTable.back(), "item83");
  test::writeFile(app.file("Permu.txt"), "123\n 456 \n\n789");
  readPermutationTable(session, app.file("Permu.txt"));
  EXPECT_EQ(session.PermutationTable, (std::vector<std::string>{"123", " 456 ", "", "789"}));
  readPermutationTable(session, app.file("none.txt"));  // missing: the table is emptied
  EXPECT_TRUE(session.PermutationTable.empty());
}

}  // namespace
}  // namespace tessaly
