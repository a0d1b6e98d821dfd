// Colour schemes: reading .sch files, choosing a scheme from the menu, and the
// scheme remembered in Quorrel.cfg at start-up.

#include <QLabel>

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

TEST(ColourSchemeFile, ReadsTwelveLinesOfRedGreenBlueByTheirNumericValue) {
  std::string odd = " 240; 12abc ;x\r\n7\r\n300;-5;1;99\r\n";
  for (int i = 4; i <= 13; ++i) odd += "1;2;3\r\n";
  const auto plain = ColourScheme::parse(schemeText());
  const auto read = ColourScheme::parse(odd);
  ASSERT_TRUE(plain && read);
  EXPECT_EQ((*plain)[0], Rgb{});
  for (int i = 1; i <= 12; ++i) EXPECT_EQ((*plain)[std::size_t(i)], (Rgb{i, 10 * i, 20 * i})) << i;
  EXPECT_EQ((*plain)[13], Rgb{});
  EXPECT_EQ((*read)[1], (Rgb{240, 12, 0}));
  EXPECT_EQ((*read)[2], (Rgb{7, 0, 0}));
  EXPECT_EQ((*read)[3], (Rgb{255, 0, 1}));
  // Fewer than twelve lines cannot be read.
  EXPECT_FALSE(ColourScheme::parse("1;2;3\r\n4;5;6\r\n"));
  EXPECT_FALSE(ColourScheme::parse(""));
}

/// Quorrel.cfg with the scheme and collection named.
std::string config(const std::string& scheme, const std::string& collection) {
  return " 250 \r\n23456\r\n" + scheme + "\r\n" + collection + "\r\n";
}

class ColourSchemeMenu : public WindowFixture {
 protected:
  QColor back(const char* name) const { return child<QWidget>(name)->palette().color(QPalette::Window); }
};

TEST_F(ColourSchemeMenu, AChosenSchemeRepaintsTheWindowAndIsWrittenToTheConfiguration) {
  writeFile(appDir() + "brick.sch", schemeText());
  writeFile(appDir() + "Quorrel.cfg", config("", "Puzzles.sud"));
  startWithPuzzle();
  ui.messages.clear();  // no default collection in the scratch folder
  action("mnuColx_1")->trigger();
  EXPECT_TRUE(ui.messages.empty());
  EXPECT_EQ(back("PosVals_1"), QColor(2, 20, 40));  // candidate background: entry 2
  EXPECT_EQ(back("PosVals_3"), QColor(4, 40, 80));  // a given: entry 4
  EXPECT_EQ(back("PuzNumber"), QColor(8, 80, 160));
  EXPECT_EQ(back("SolutionsFrame"), QColor(6, 60, 120));
  EXPECT_EQ(back("PosValsFrame"), QColor(10, 100, 200));
  EXPECT_EQ(readFile(appDir() + "Quorrel.cfg"), config("brick.sch", "pe96.sud"));

  // A menu entry without its file brings the defaults back and is forgotten.
  action("mnuColx_0")->trigger();
  EXPECT_EQ(ui.messages, std::vector<std::string>{"Color Scheme File: bandw.sch not found, defaults will be used"});
  EXPECT_EQ(back("PosVals_1"), QColor(240, 240, 240));
  EXPECT_EQ(readFile(appDir() + "Quorrel.cfg"), config("", "pe96.sud"));
  EXPECT_FALSE(action("mnuColx_1")->isChecked());
}

TEST_F(ColourSchemeMenu, StartUpAppliesTheRememberedSchemeOrReportsItMissing) {
  writeFile(appDir() + "brick.sch", schemeText());
  writeFile(appDir() + "Quorrel.cfg", config("brick.sch", "Puzzles.sud"));
  startWithPuzzle();
  EXPECT_EQ(back("PosVals_1"), QColor(2, 20, 40));
  EXPECT_TRUE(action("mnuColx_1")->isChecked());

  window.reset();
  ui.messages.clear();
  writeFile(appDir() + "Quorrel.cfg", config("Sky.sch", "Puzzles.sud"));
  startWindow();
  ASSERT_FALSE(ui.messages.empty());
  EXPECT_EQ(ui.messages[0], "Color Scheme File: Sky.sch not found, defaults will be used");
  EXPECT_EQ(session.config.ColourSchemeFile, "");
}

}  // namespace
}  // namespace tessaly::testing
