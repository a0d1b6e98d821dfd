// Colour schemes: reading .sch files into the colour table, the defaults, and
// choosing a scheme from the menu.

#include <QLabel>
#include <filesystem>

#include "ui/ColourScheme.h"
#include "WindowFixture.h"

namespace tessaly::testing {
namespace {

/// Twelve lines; line i is (i, 10 * i, 20 * i).
std::string schemeText() {
  std::string text;
  for (int i = 1; i <= 12; ++i)
    text += std::to_string(i) + ";" + std::to_string(10 * i) + ";" + std::to_string(20 * i) + "\r\n";
  return text;
}

Rgb entry(int i) { return Rgb{i, 10 * i, 20 * i}; }

TEST(ColourSchemeFile, ReadsTwelveLinesOfRedGreenBlue) {
  const auto entries = ColourScheme::parse(schemeText());
  ASSERT_TRUE(entries);
  EXPECT_EQ((*entries)[0], Rgb{});
  for (int i = 1; i <= 12; ++i) EXPECT_EQ((*entries)[std::size_t(i)], entry(i)) << i;
  EXPECT_EQ((*entries)[13], Rgb{});
}

TEST(ColourSchemeFile, ReadsFieldsByTheirNumericValue) {
  std::string text = " 240; 12abc ;x\r\n7\r\n300;-5;1;99\r\n";
  for (int i = 4; i <= 13; ++i) text += "1;2;3\r\n";
  const auto entries = ColourScheme::parse(text);
  ASSERT_TRUE(entries);
  EXPECT_EQ((*entries)[1], (Rgb{240, 12, 0}));
  EXPECT_EQ((*entries)[2], (Rgb{7, 0, 0}));
  EXPECT_EQ((*entries)[3], (Rgb{255, 0, 1}));
  EXPECT_EQ((*entries)[12], (Rgb{1, 2, 3}));
}

TEST(ColourSchemeFile, AFileOfFewerThanTwelveLinesCannotBeRead) {
  EXPECT_FALSE(ColourScheme::parse("1;2;3\r\n4;5;6\r\n"));
  EXPECT_FALSE(ColourScheme::parse(""));
}

TEST(ColourSchemeTable, DefaultsAreTheProgramsOwnColours) {
  ColourScheme scheme;
  EXPECT_FALSE(scheme.fromFile());
  EXPECT_EQ(scheme.candidateBack, (Rgb{240, 240, 240}));
  EXPECT_EQ(scheme.candidateText, (Rgb{1, 1, 1}));
  EXPECT_EQ(scheme.givenBack, (Rgb{180, 180, 180}));
  EXPECT_EQ(scheme.givenText, (Rgb{1, 1, 1}));
  EXPECT_EQ(scheme.colour[5], (Rgb{250, 250, 250}));
  EXPECT_EQ(scheme.colour[6], (Rgb{250, 10, 10}));
  EXPECT_EQ(scheme.colour[7], (Rgb{1, 1, 1}));
  EXPECT_EQ(scheme.colour[8], (Rgb{250, 250, 250}));
  EXPECT_EQ(scheme.colour[9], (Rgb{20, 160, 20}));
  EXPECT_EQ(scheme.colour[10], (Rgb{10, 10, 10}));
  EXPECT_EQ(scheme.colour[11], (Rgb{20, 160, 20}));
  EXPECT_EQ(scheme.colour[12], (Rgb{10, 10, 10}));
  EXPECT_EQ(scheme.colour[13], (Rgb{250, 1, 1}));
  EXPECT_EQ(scheme.colour[14], (Rgb{250, 250, 250}));
  EXPECT_EQ(scheme.highlightGreen, (Rgb{10, 160, 10}));
  EXPECT_EQ(scheme.highlightRed, (Rgb{255, 0, 0}));
}

TEST(ColourSchemeTable, SchemeEntriesFeedTheColourValuesAndEntriesZeroAndThirteenAreBlack) {
  ColourScheme scheme;
  scheme.useEntries(*ColourScheme::parse(schemeText()));
  EXPECT_TRUE(scheme.fromFile());
  EXPECT_EQ(scheme.candidateBack, entry(2));
  EXPECT_EQ(scheme.candidateText, Rgb{});
  EXPECT_EQ(scheme.givenBack, entry(4));
  EXPECT_EQ(scheme.givenText, Rgb{});
  EXPECT_EQ(scheme.colour[5], entry(2));
  EXPECT_EQ(scheme.colour[6], Rgb{});
  EXPECT_EQ(scheme.colour[7], entry(3));
  EXPECT_EQ(scheme.colour[8], entry(7));
  EXPECT_EQ(scheme.colour[9], entry(5));
  EXPECT_EQ(scheme.colour[10], entry(9));
  EXPECT_EQ(scheme.colour[11], entry(5));
  EXPECT_EQ(scheme.colour[12], entry(11));
  EXPECT_EQ(scheme.colour[13], entry(3));
  EXPECT_EQ(scheme.colour[14], Rgb{});
  EXPECT_EQ(scheme.highlightGreen, Rgb{});
  EXPECT_EQ(scheme.highlightRed, (Rgb{255, 0, 0}));
  EXPECT_EQ(scheme.windowBack, entry(1));
  EXPECT_EQ(scheme.solutionsBack, entry(6));
  EXPECT_EQ(scheme.puzzleFrameBack, entry(8));
  EXPECT_EQ(scheme.candidateFrameBack, entry(10));
  EXPECT_EQ(scheme.statusBack, entry(12));
}

TEST(ColourSchemeTable, OnlyEighteenMenuFiles) {
  ASSERT_EQ(ColourScheme::kMenuFiles.size(), 18u);
  EXPECT_STREQ(ColourScheme::kMenuFiles[0], "bandw.sch");
  EXPECT_STREQ(ColourScheme::kMenuFiles[2], "Default.sch");
  EXPECT_STREQ(ColourScheme::kMenuFiles[17], "WinClass.sch");
}

class ColourSchemeLoading : public WindowFixture {};

TEST_F(ColourSchemeLoading, AnEmptyNameGivesTheDefaultsWithoutAMessage) {
  session.appDir = appDir();
  ColourScheme scheme;
  EXPECT_FALSE(scheme.load(session, ""));
  EXPECT_TRUE(ui.messages.empty());
  EXPECT_EQ(scheme.candidateBack, (Rgb{240, 240, 240}));
}

TEST_F(ColourSchemeLoading, AMissingFileIsReportedAndForgotten) {
  session.appDir = appDir();
  session.config.ColourSchemeFile = "Sky.sch";
  ColourScheme scheme;
  scheme.useEntries(*ColourScheme::parse(schemeText()));
  EXPECT_FALSE(scheme.load(session, "Sky.sch"));
  ASSERT_EQ(ui.messages.size(), 1u);
  EXPECT_EQ(ui.messages[0], "Color Scheme File: Sky.sch not found, defaults will be used");
  EXPECT_EQ(session.config.ColourSchemeFile, "");
  EXPECT_FALSE(scheme.fromFile());
  EXPECT_EQ(scheme.candidateBack, (Rgb{240, 240, 240}));
}

TEST_F(ColourSchemeLoading, AFileOfTheApplicationDirectoryIsRemembered) {
  session.appDir = appDir();
  writeText(appDir() + "Sky.sch", schemeText());
  ColourScheme scheme;
  EXPECT_TRUE(scheme.load(session, "Sky.sch"));
  EXPECT_EQ(session.config.ColourSchemeFile, "Sky.sch");
  EXPECT_EQ(scheme.candidateBack, entry(2));
}

class ColourSchemeMenu : public WindowFixture {
 protected:
  QColor labelBack(int cell) const {
    return window->findChild<QLabel*>(QString("PosVals_%1").arg(cell))->palette().color(QPalette::Window);
  }
  std::string configLine(int n) const {
    std::string text = readText(appDir() + "Quorrel.cfg");
    for (int i = 1; i < n; ++i) text = text.substr(text.find("\r\n") + 2);
    return text.substr(0, text.find("\r\n"));
  }
};

TEST_F(ColourSchemeMenu, AChosenSchemeRepaintsTheGridAndIsWrittenToTheConfiguration) {
  writeText(appDir() + "brick.sch", schemeText());
  startWithPuzzle(puzzlePath("pe96.sud"), 1);
  const int ordinaryCell = 1;  // blank in puzzle 1, with several candidates
  ASSERT_FALSE(session.grid[ordinaryCell].given);
  ASSERT_GT(session.grid[ordinaryCell].candidates.size(), 1);
  EXPECT_EQ(labelBack(ordinaryCell), QColor(240, 240, 240));
  ui.messages.clear();

  action("mnuColx_1")->trigger();
  EXPECT_TRUE(ui.messages.empty());
  EXPECT_EQ(labelBack(ordinaryCell), QColor(2, 20, 40));
  EXPECT_EQ(labelBack(3), QColor(4, 40, 80));  // a given
  const auto back = [&](const char* name) { return child<QWidget>(name)->palette().color(QPalette::Window); };
  EXPECT_EQ(back("PuzNumber"), QColor(8, 80, 160));
  EXPECT_EQ(back("SolutionsFrame"), QColor(6, 60, 120));
  EXPECT_EQ(back("PosValsFrame"), QColor(10, 100, 200));
  EXPECT_EQ(back("Grid"), QColor(2, 20, 40));
  EXPECT_TRUE(action("mnuColx_1")->isChecked());
  EXPECT_EQ(configLine(3), "brick.sch");
}

TEST_F(ColourSchemeMenu, AMissingSchemeFileBringsBackTheDefaults) {
  writeText(appDir() + "brick.sch", schemeText());
  startWithPuzzle(puzzlePath("pe96.sud"), 1);
  action("mnuColx_1")->trigger();
  ui.messages.clear();
  action("mnuColx_0")->trigger();
  ASSERT_EQ(ui.messages.size(), 1u);
  EXPECT_EQ(ui.messages[0], "Color Scheme File: bandw.sch not found, defaults will be used");
  EXPECT_EQ(labelBack(1), QColor(240, 240, 240));
  EXPECT_EQ(configLine(3), "");
  EXPECT_FALSE(action("mnuColx_1")->isChecked());
}

TEST_F(ColourSchemeMenu, StartUpAppliesTheRememberedScheme) {
  writeText(appDir() + "brick.sch", schemeText());
  writeText(appDir() + "Quorrel.cfg", " 250 \r\n23456\r\nbrick.sch\r\nPuzzles.sud\r\n");
  startWithPuzzle(puzzlePath("pe96.sud"), 1);
  EXPECT_TRUE(window->colourScheme().fromFile());
  EXPECT_EQ(labelBack(1), QColor(2, 20, 40));
  EXPECT_TRUE(action("mnuColx_1")->isChecked());
}

TEST_F(ColourSchemeMenu, StartUpWithAMissingSchemeReportsItOnce) {
  writeText(appDir() + "Quorrel.cfg", " 250 \r\n23456\r\nSky.sch\r\nPuzzles.sud\r\n");
  startWindow();
  ASSERT_GE(ui.messages.size(), 1u);
  EXPECT_EQ(ui.messages[0], "Color Scheme File: Sky.sch not found, defaults will be used");
  EXPECT_EQ(session.config.ColourSchemeFile, "");
}

}  // namespace
}  // namespace tessaly::testing
