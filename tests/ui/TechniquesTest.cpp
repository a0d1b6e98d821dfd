// Options, "Further techniques" and the ManualSolve "Next step" button
// through the real window.

#include "play/NextStep.h"
#include "UiSupport.h"

namespace tessaly::testing {
namespace {

class TechniquesTest : public WindowFixture {};

TEST_F(TechniquesTest, TheOptionReachesTheSolveAndComesBackInTheNextRun) {
  const QString file = QString::fromStdString(appDir() + "options.ini");
  start();
  window->rememberLayoutIn(std::make_unique<QSettings>(file, QSettings::IniFormat));
  QAction* option = action("mnuTechniques");
  EXPECT_FALSE(option->isChecked());
  EXPECT_EQ(session.controls.techniques, TechniqueSet::rulesOnly());
  option->trigger();
  EXPECT_EQ(session.controls.techniques, TechniqueSet::all());
  window->close();

  session.controls.techniques = TechniqueSet::rulesOnly();
  window = std::make_unique<MainWindow>(session, &ui);
  window->rememberLayoutIn(std::make_unique<QSettings>(file, QSettings::IniFormat));
  EXPECT_TRUE(action("mnuTechniques")->isChecked());
  EXPECT_EQ(session.controls.techniques, TechniqueSet::all());
  action("mnuTechniques")->trigger();
  EXPECT_EQ(session.controls.techniques, TechniqueSet::rulesOnly());
}

TEST_F(TechniquesTest, TheGradeShownFollowsTheTechniquesTurnedOn) {
  start();
  window->readPuzzleFile(puzzleFile("top95.sud"), 4);  // five guesses for the six rules, a W-Wing for the rest
  EXPECT_EQ(child<QLabel>("GradeLabel")->text().toStdString(), "Grade 5 \u00B7 Diabolical");
  action("mnuTechniques")->trigger();
  EXPECT_EQ(child<QLabel>("GradeLabel")->text().toStdString(), "Grade 3 \u00B7 Hard");
  action("mnuTechniques")->trigger();
  EXPECT_EQ(child<QLabel>("GradeLabel")->text().toStdString(), "Grade 5 \u00B7 Diabolical");
}

TEST_F(TechniquesTest, NextStepListsTheStepAndHighlightsItsCellsUntilTheNextClick) {
  start(1);
  selectTab(Tab::ManualSolve);
  action("mnuTechniques")->trigger();
  click("NextStep");
  const NextStepHint hint = nextStepHint(session);
  ASSERT_TRUE(hint.step);
  EXPECT_EQ(lines(child<QListWidget>("Hints")), hintTexts(hint.lines));
  // The first pattern cell stands out until the next click on the grid.
  const QString first = QString("Grid_%1").arg(patternCells(*hint.step).front() - 1);
  const QColor highlighted = back(first);
  click("Grid_80");
  EXPECT_NE(back(first), highlighted);
}

}  // namespace
}  // namespace tessaly::testing
