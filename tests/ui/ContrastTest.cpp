// Text stays readable in every shipped colour scheme: the contrast ratio (as
// the web's accessibility guidelines define it) of each text colour against the
// background it is drawn on, from the scheme files in data/, is at least 4.5:1,
// and at least 7:1 in the high-contrast scheme.
//
// Two marks of the solver are not held to it, since no scheme file can change
// them: a placed cell's text (entry 2) on the program's own red, and a dead
// end's text, where a scheme's colours leave entry 13 (black) on entry 13.

#include <QDir>
#include <QWidget>
#include <cmath>
#include <iomanip>
#include <sstream>

#include "model/FileUtil.h"
#include "ui/ColourScheme.h"
#include "ui/ManualPage.h"
#include "ui/WidgetColours.h"
#include "UiSupport.h"

namespace tessaly::testing {
namespace {

double contrast(const QColor& a, const QColor& b) {
  return contrastRatio(rgb(a.red(), a.green(), a.blue()), rgb(b.red(), b.green(), b.blue()));
}

TEST(ContrastTest, TheRatioFollowsTheGuidelinesFormula) {
  EXPECT_DOUBLE_EQ(contrast(Qt::black, Qt::white), 21.0);
  EXPECT_DOUBLE_EQ(contrast(Qt::white, Qt::white), 1.0);
  EXPECT_NEAR(contrast(QColor(118, 118, 118), Qt::white), 4.54, 0.01);  // the darkest grey white text reads on
  EXPECT_NEAR(contrast(QColor(255, 0, 0), Qt::white), 4.0, 0.01);
}

struct Pair {
  const char* what;
  QColor text, back;
};

/// Every text the scheme colours, with its background.
std::vector<Pair> textPairs(const ColourScheme& s) {
  // Captions on a frame take the colour paintBackground gives them.
  const auto caption = [](const char* what, const Rgb& back) {
    QWidget frame;
    paintBackground(&frame, back);
    return Pair{what, frame.palette().color(QPalette::WindowText), qcolor(back)};
  };
  const ManualColours selected = *manualPaintColours(ManualPaint::Selected, s);
  const ManualColours refused = *manualPaintColours(ManualPaint::Refused, s);
  return {
      {"choices", qcolor(s.candidateText), qcolor(s.candidateBack)},
      {"givens and singles", qcolor(s.givenText), qcolor(s.givenBack)},
      {"values placed", qcolor(s.candidateText), qcolor(s.valueBack)},
      {"choices in an area shown", qcolor(s.candidateText), qcolor(s.colour[9])},
      {"givens in an area shown", qcolor(s.givenText), qcolor(s.colour[9])},
      {"the cell explained", qcolor(s.colour[8]), qcolor(s.colour[13])},
      {"a re-try", qcolor(s.colour[5]), qcolor(s.highlightGreen)},
      {"the selected cell", selected.text, selected.back},
      {"a refused cell", refused.text, refused.back},
      caption("window", s.windowBack),
      caption("solutions frame", s.solutionsBack),
      caption("puzzle frame", s.puzzleFrameBack),
      caption("choices frame", s.candidateFrameBack),
      caption("tab pages and status", s.statusBack),
  };
}

TEST(ContrastTest, EveryShippedSchemeKeepsTextAtLeastFourAndAHalfToOne) {
  const QStringList files = QDir(TESSALY_DATA_DIR).entryList({"*.sch"}, QDir::Files, QDir::Name);
  ASSERT_EQ(files.size(), qsizetype(ColourScheme::kMenuFiles.size()) + 1);  // and the high-contrast one
  std::ostringstream table;
  for (const QString& file : files) {
    const auto text = readWholeFile(std::string(TESSALY_DATA_DIR) + "/" + file.toStdString());
    ASSERT_TRUE(text) << file.toStdString();
    const auto entries = ColourScheme::parse(*text);
    ASSERT_TRUE(entries) << file.toStdString();
    ColourScheme scheme;
    scheme.useEntries(*entries);
    const double least = file == "highcontrast.sch" ? 7.0 : 4.5;
    table << file.toStdString() << ":";
    for (const Pair& pair : textPairs(scheme)) {
      const double ratio = contrast(pair.text, pair.back);
      table << " " << std::fixed << std::setprecision(1) << ratio;
      EXPECT_GE(ratio, least) << file.toStdString() << ", " << pair.what << ": " << pair.text.name().toStdString()
                              << " on " << pair.back.name().toStdString();
    }
    table << "\n";
  }
  if (HasFailure()) std::cout << table.str();
}

TEST(ContrastTest, TheDesktopsLightAndDarkPalettesGiveReadableText) {
  const ColourScheme::DesktopColours palettes[] = {
      {rgb(239, 239, 239), rgb(0, 0, 0), rgb(255, 255, 255), rgb(0, 0, 0), rgb(48, 140, 198), rgb(255, 255, 255)},
      {rgb(53, 53, 53), rgb(255, 255, 255), rgb(42, 42, 42), rgb(255, 255, 255), rgb(42, 130, 218), rgb(255, 255, 255)},
  };
  for (const auto& desktop : palettes) {
    ColourScheme scheme;
    scheme.useDesktop(desktop);
    EXPECT_TRUE(scheme.fromDesktop());
    for (const Pair& pair : textPairs(scheme)) {
      if (std::string(pair.what) == "a re-try" || std::string(pair.what) == "a refused cell") continue;  // the defaults' marks
      EXPECT_GE(contrast(pair.text, pair.back), 4.5) << pair.what << ": " << pair.text.name().toStdString() << " on "
                                                     << pair.back.name().toStdString();
    }
  }
}

}  // namespace
}  // namespace tessaly::testing
