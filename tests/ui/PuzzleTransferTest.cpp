// Puzzles in and out of the window: the frame's solutions and grade, Copy and Paste
// puzzle, a dropped file, Create's options, and Edit's question on a puzzle without one solution.

#include "create/EntryDialogs.h"
#include "create/PuzzleCheck.h"
#include "model/CollectionFile.h"
#include "solver/Grader.h"
#include "solver/SolutionCounter.h"
#include "UiSupport.h"

namespace tessaly::testing {
namespace {

using test::dataFile;

// Lines 2 to 5 of verdicts.txt: one solution (twice), several, none.
const std::string kUnique = "..3.2.6..9..3.5..1..18.64....81.29..7.......8..67.82....26.95..8..2.3..9..5.1.3..";
const std::string kSeveral = "8.........95.......76.........426798...571243...893165......916....3.487....1.532";
const std::string kNone = "12345678.........9" + std::string(63, '.');

class PuzzleTransferTest : public WindowFixture {
 protected:
  std::string solutionsShown() const { return child<QLabel>("SolutionsLabel")->text().toStdString(); }
  std::string gradeShown() const { return child<QLabel>("GradeLabel")->text().toStdString(); }
  std::string title() const { return child<QGroupBox>("PuzNumber")->title().toStdString(); }
  static std::string clipboard() { return QApplication::clipboard()->text().toStdString(); }
  /// Gives `widget` the keyboard in the active window, so the menu keys reach it.
  void focus(QWidget* widget) {
    window->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
    widget->setFocus(Qt::OtherFocusReason);
    QApplication::processEvents();
  }
  /// Drags `mime` onto the window and drops it; whether the drag was taken.
  bool drop(QMimeData& mime) {
    QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction, &mime, Qt::LeftButton, Qt::NoModifier);
    enter.setAccepted(false);
    QCoreApplication::sendEvent(window.get(), &enter);
    QDropEvent dropped(QPointF(5, 5), Qt::CopyAction, &mime, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(window.get(), &dropped);
    return enter.isAccepted();
  }
};

TEST_F(PuzzleTransferTest, TheFrameTellsTheSolutionsAndGradeOfEachPuzzleRead) {
  start();
  EXPECT_EQ(solutionsShown(), "");
  const std::tuple<int, const char*, const char*> cases[] = {
      {1, "One solution", "Grade 1 \u00B7 Easy"},     {2, "One solution", "Grade 2 \u00B7 Moderate"},
      {3, "Several solutions", "Grade 5 \u00B7 Diabolical"}, {4, "No solution", ""},
      {1, "One solution", "Grade 1 \u00B7 Easy"}};
  for (const auto& [n, solutions, grade] : cases) {
    window->readPuzzleFile(dataFile("puzzles/verdicts.txt"), n);
    EXPECT_EQ(solutionsShown(), solutions) << n;
    EXPECT_EQ(gradeShown(), grade) << n;
  }
  click("Solveit");  // every digit is then a given; the frame still tells of the puzzle
  EXPECT_EQ(session.grid.filledCount(), kCells);
  EXPECT_EQ(gradeShown(), "Grade 1 \u00B7 Easy");
}

TEST_F(PuzzleTransferTest, CopyThenPasteGivesTheSameGivensAndTheLogKeepsItsOwnCopy) {
  start(1);
  focus(window->board()->grid());
  QTest::keyClick(window->board()->grid(), Qt::Key_C, Qt::ControlModifier);
  const std::string copied = clipboard();
  EXPECT_EQ(copied, kUnique);
  window->readPuzzleFile(appDir() + "Puzzles.sud", 2);
  ASSERT_NE(givensText(session), copied);
  QTest::keyClick(window->board()->grid(), Qt::Key_V, Qt::ControlModifier);
  EXPECT_EQ(givensText(session), copied);
  EXPECT_EQ(title(), kNewPuzzleTitle);
  EXPECT_EQ(solutionsShown(), "One solution");
  EXPECT_TRUE(child("Solveit")->isEnabled());
  EXPECT_TRUE(ui.messages.empty());
  focus(logView());  // the event log's key copies its lines
  QTest::keyClick(logView(), Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(clipboard(), logView()->selectedText().toStdString());
  EXPECT_NE(clipboard().find(logView()->lineText(1).toStdString()), std::string::npos);
}

TEST_F(PuzzleTransferTest, PastingWhatIsNotAPuzzleTellsWhyAndLeavesTheBoard) {
  start(1);
  const std::string before = session.grid.valueCode(), titleBefore = title();
  const std::string texts[] = {"", "  \n", kUnique.substr(1), kUnique + "5", "a" + kUnique.substr(1), "3" + kUnique.substr(1)};
  for (const std::string& text : texts) {
    QApplication::clipboard()->setText(QString::fromStdString(text));
    ui.messages.clear();
    action("mnuPastePuzzle")->trigger();
    std::string digits;
    EXPECT_EQ(ui.messages, std::vector<std::string>{pasteRefusal(text, digits)}) << text;
    EXPECT_FALSE(ui.messages.front().empty());
    EXPECT_EQ(session.grid.valueCode(), before) << text;
    EXPECT_EQ(title(), titleBefore);
    EXPECT_EQ(solutionsShown(), "One solution");
  }
}

TEST_F(PuzzleTransferTest, ADroppedFileOpensAsFileOpenWould) {
  start();
  const std::string grid = appDir() + "one grid.txt";
  std::string rows = "3.. ... ...\n........1\n";
  for (int r = 3; r <= 9; ++r) rows += ".........\n";
  writeFile(grid, rows);
  const std::tuple<std::string, const char*, const char*> cases[] = {
      {dataFile("puzzles/verdicts.txt"), "Puzzle 1 of 4 (49 blanks)", "One solution"},
      {appDir() + "Puzzles.sud", "Puzzle 1 of 50 (49 blanks)", "One solution"},
      {grid, "Puzzle 1 of 1 (79 blanks)", "Several solutions"}};
  for (const auto& [path, shownTitle, solutions] : cases) {
    QMimeData mime;
    mime.setUrls({QUrl::fromLocalFile(QString::fromStdString(path))});
    EXPECT_TRUE(drop(mime)) << path;
    EXPECT_EQ(child<QLineEdit>("FileNow")->text().toStdString(), path);
    EXPECT_EQ(title(), shownTitle);
    EXPECT_EQ(solutionsShown(), solutions);
  }
  // Over a text box the drop goes to the window all the same: no box takes drops.
  for (QLineEdit* box : window->findChildren<QLineEdit*>()) {
    QWidget* target = box;
    while (target && !target->acceptDrops()) target = target->parentWidget();
    EXPECT_EQ(target, window.get()) << box->objectName().toStdString();
  }
  QMimeData text;  // text is no file: nothing happens
  text.setText(QString::fromStdString(kSeveral));
  EXPECT_FALSE(drop(text));
  EXPECT_EQ(session.collection.CurrentFile, grid);
  EXPECT_TRUE(ui.messages.empty());
}

TEST_F(PuzzleTransferTest, CreateMakesPuzzlesWithOneSolutionOfTheGradeChosen) {
  start();
  selectTab(Tab::Create);
  EXPECT_TRUE(child<QCheckBox>("UniqueCheck")->isChecked());
  auto* grades = child<QComboBox>("TargetGradeBox");
  EXPECT_EQ(grades->currentText(), "Any");
  child<QLineEdit>("TotBlanks")->setText("50");
  const std::pair<int, const char*> cases[] = {{0, ""}, {1, "Grade 1 \u00B7 Easy"}, {2, "Grade 2 \u00B7 Moderate"}};
  for (const auto& [grade, shown] : cases) {
    grades->setCurrentIndex(grade);
    click("CreateCommand");
    const std::string givens = givensText(session);
    EXPECT_EQ(countSolutions(givens), 1) << givens;
    if (grade) {
      EXPECT_EQ(gradePuzzle(givens).grade, grade) << givens;
      EXPECT_EQ(gradeShown(), shown);
    }
    EXPECT_EQ(solutionsShown(), "One solution");
    const auto blanks = std::count(givens.begin(), givens.end(), '.');
    EXPECT_EQ(title(), "New Puzzle (" + std::to_string(blanks) + " blanks)");
  }
  EXPECT_TRUE(ui.messages.empty());
}

TEST_F(PuzzleTransferTest, EditAsksBeforeKeepingAPuzzleWithoutOneSolution) {
  start(1);
  const std::tuple<std::string, bool, const char*, bool> cases[] = {  // {typed, answer, question or "", kept}
      {kSeveral, true, kSeveralSolutionsQuestion, true},
      {kNone, false, kNoSolutionQuestion, false},
      {kNone, true, kNoSolutionQuestion, true},
      {kUnique, false, "", true}};
  for (const auto& [typed, answer, question, kept] : cases) {
    const std::string before = givensText(session);
    ui.questions.clear();
    ui.answers = {answer};
    bool openAfterOk = false;
    QTimer::singleShot(0, [&, &typed = typed] {
      auto* dialog = qobject_cast<EntryDialog*>(QApplication::activeModalWidget());
      ASSERT_NE(dialog, nullptr);
      dialog->setText(typed);
      testing::click(dialog, "OKButton");
      if ((openAfterOk = dialog->isVisible())) {
        EXPECT_EQ(dialog->text(), typed);
        dialog->reject();
      }
    });
    click("EditCommand");
    EXPECT_EQ(ui.questions, *question ? std::vector<std::string>{question} : std::vector<std::string>{});
    EXPECT_EQ(openAfterOk, !kept);
    EXPECT_EQ(givensText(session), kept ? typed : before);
    EXPECT_EQ(solutionsShown(), solutionsCaption(countSolutions(givensText(session))));
  }
  EXPECT_TRUE(ui.messages.empty());
}

}  // namespace
}  // namespace tessaly::testing
