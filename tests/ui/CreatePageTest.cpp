// The Create tab's controls: creating with each distribution of blanks,
// refusing counts out of range, the Manual template, saving the puzzle shown
// and a batch into a fresh collection.

#include <gtest/gtest.h>

#include <QApplication>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>
#include <QTimer>

#include "create/CreateTestSupport.h"
#include "create/Creation.h"
#include "model/CollectionFile.h"
#include "model/FileUtil.h"
#include "ui/CreatePage.h"
#include "ui/Form3.h"

namespace tessaly {
namespace {

class CreatePageTest : public ::testing::Test {
 protected:
  CreatePageTest() : page(t.session, t.ui, [this] { ++redraws; }) {
    page.show();
    EXPECT_TRUE(QTest::qWaitForWindowExposed(&page));
  }

  template <class W>
  W* child(const QString& name) {
    auto* w = page.findChild<W*>(name);
    EXPECT_NE(w, nullptr) << name.toStdString();
    return w;
  }
  QLineEdit* totBlanks() { return child<QLineEdit>("TotBlanks"); }
  QRadioButton* option(int i) { return child<QRadioButton>(QString("Distribution_%1").arg(i)); }

  /// Clicks an option on its round indicator, where a click always counts.
  void choose(int i) {
    QRadioButton* o = option(i);
    QTest::mouseClick(o, Qt::LeftButton, {}, QPoint(o->height() / 2, o->height() / 2));
    EXPECT_TRUE(o->isChecked()) << "option " << i;
  }
  std::string blanksText() { return totBlanks()->text().toStdString(); }

  void setBlanks(const QString& text) {
    totBlanks()->selectAll();
    QTest::keyClicks(totBlanks(), text);
  }
  void create() { QTest::mouseClick(child<QPushButton>("CreateCommand"), Qt::LeftButton); }

  test::CreateSession t;
  int redraws = 0;
  CreatePage page;
};

TEST_F(CreatePageTest, ShowsTheFourOptionsWithTheirHints) {
  auto* frame = child<QGroupBox>("DistributionFrame");
  EXPECT_EQ(frame->title().toStdString(), "Distribution of Blank Cells");
  const char* captions[] = {"Mirror", "by Box", "Random", "Manual"};
  for (int i = 0; i < 4; ++i) {
    EXPECT_EQ(option(i)->text().toStdString(), captions[i]);
    EXPECT_EQ(option(i)->parentWidget(), frame);
  }
  EXPECT_EQ(option(0)->toolTip().toStdString(), "Blanks will be placed as mirror reflection across the diagonal");
  EXPECT_EQ(option(1)->toolTip().toStdString(), "Same number of blanks will be placed in each of the 9 boxes");
  EXPECT_EQ(option(2)->toolTip().toStdString(), "Blanks will be placed at random");
  EXPECT_TRUE(option(3)->toolTip().isEmpty());

  // The small label shows the hint of the selected option.
  auto* hint = child<QLabel>("DistributionHint");
  choose(1);
  EXPECT_TRUE(option(1)->isChecked());
  EXPECT_EQ(hint->text().toStdString(), "Same number of blanks will be placed in each of the 9 boxes");
  choose(2);
  EXPECT_EQ(hint->text().toStdString(), "Blanks will be placed at random");
  EXPECT_NE(child<QLineEdit>("NumCreate"), nullptr);
  EXPECT_NE(child<QPushButton>("SaveNewCommand"), nullptr);
  EXPECT_NE(child<QPushButton>("AutoSaveCommand"), nullptr);
}

TEST_F(CreatePageTest, MirrorAimsAtAnEvenCountAndWritesItBack) {
  choose(0);
  setBlanks("41");
  create();
  EXPECT_TRUE(t.ui.messages.empty()) << t.ui.messages.front();
  EXPECT_EQ(blanksText(), "40");
  const int blanks = test::blankCells(t.session);
  EXPECT_TRUE(blanks == 40 || blanks == 41) << blanks;
  // Mirror pairs: a blank cell's partner through the centre is blank too.
  for (int c = 1; c <= kCells; ++c)
    EXPECT_EQ(t.session.grid[c].value == 0, t.session.grid[82 - c].value == 0) << "cell " << c;
  EXPECT_EQ(t.session.PuzzleTitle, "New Puzzle (" + std::to_string(blanks) + " blanks)");
  EXPECT_EQ(t.session.PuzNumNow, "NEW");
  EXPECT_EQ(countPuzzles(t.tempFile()), 1);
  EXPECT_EQ(redraws, 1);
}

TEST_F(CreatePageTest, ByBoxBlanksTheSameNumberInEveryBox) {
  choose(1);
  setBlanks("40");
  create();
  EXPECT_TRUE(t.ui.messages.empty());
  EXPECT_EQ(blanksText(), "36");
  EXPECT_EQ(test::blankCells(t.session), 36);
  for (int box = 1; box <= 9; ++box) {
    int blanks = 0;
    for (int c : areaCells(AreaKind::Box, box)) blanks += t.session.grid[c].value == 0;
    EXPECT_EQ(blanks, 4) << "box " << box;
  }
  EXPECT_TRUE(option(1)->isChecked());
}

TEST_F(CreatePageTest, RandomBlanksExactlyTheCountAsked) {
  choose(2);
  for (const char* count : {"9", "30", "72"}) {
    setBlanks(count);
    create();
    EXPECT_TRUE(t.ui.messages.empty());
    EXPECT_EQ(blanksText(), count);
    EXPECT_EQ(test::blankCells(t.session), std::stoi(count));
    // The kept cells are the givens of the new puzzle.
    EXPECT_EQ(t.session.grid.givensCount(), kCells - std::stoi(count));
  }
}

TEST_F(CreatePageTest, ManualBlanksTheTemplateTypedIntoTheDialog) {
  choose(3);
  setBlanks("30");
  bool asked = false;
  QTimer::singleShot(0, [&] {
    auto* dialog = qobject_cast<Form3*>(QApplication::activeModalWidget());
    ASSERT_NE(dialog, nullptr);
    asked = true;
    // The first row and the centre cell blank.
    std::string text;
    for (int r = 1; r <= 9; ++r) {
      if (r > 1) text += "\n";
      text += r == 1 ? "         " : r == 5 ? "XXXX XXXX" : "XXXXXXXXX";
    }
    dialog->setText(text);
    QTest::mouseClick(dialog->findChild<QPushButton*>("OKButton"), Qt::LeftButton);
    // Never leave the test waiting on a dialog that stayed open.
    if (dialog->isVisible()) dialog->reject();
  });
  create();
  EXPECT_TRUE(asked);
  EXPECT_TRUE(t.ui.messages.empty());
  EXPECT_EQ(test::blankCells(t.session), 10);
  for (int c = 1; c <= 9; ++c) EXPECT_EQ(t.session.grid[c].value, 0);
  EXPECT_EQ(t.session.grid[41].value, 0);
  EXPECT_TRUE(option(3)->isChecked());
}

TEST_F(CreatePageTest, ACancelledTemplateFallsBackToRandom) {
  choose(3);
  setBlanks("25");
  QTimer::singleShot(0, [&] {
    auto* dialog = qobject_cast<Form3*>(QApplication::activeModalWidget());
    ASSERT_NE(dialog, nullptr);
    QTest::mouseClick(dialog->findChild<QPushButton*>("CancelButton"), Qt::LeftButton);
  });
  create();
  EXPECT_EQ(t.ui.messages, std::vector<std::string>{"Random placement will be used"});
  EXPECT_TRUE(option(2)->isChecked());
  EXPECT_EQ(test::blankCells(t.session), 25);
}

TEST_F(CreatePageTest, ATemplateWithoutBlanksFallsBackToRandom) {
  choose(3);
  setBlanks("20");
  page.templateSource = [] { return std::optional<std::string>(std::string(81, 'X')); };
  create();
  EXPECT_EQ(t.ui.messages, std::vector<std::string>{"There are no blanks in this grid, random placement will be used"});
  EXPECT_TRUE(option(2)->isChecked());
  EXPECT_EQ(test::blankCells(t.session), 20);
}

TEST_F(CreatePageTest, RefusesCountsOutOfRange) {
  choose(3);
  // Out of range, the template is not even asked for.
  page.templateSource = [] {
    ADD_FAILURE() << "template asked for";
    return std::optional<std::string>();
  };
  setBlanks("8");
  create();
  setBlanks("73");
  create();
  EXPECT_EQ(t.ui.messages, (std::vector<std::string>{"Must have at least 9 blanks", "Cannot have more than 72 blanks"}));
  EXPECT_EQ(t.session.grid.filledCount(), 0);
  EXPECT_EQ(blanksText(), "73");
  EXPECT_EQ(fileLength(t.tempFile()), -1);
}

TEST_F(CreatePageTest, SaveNewAsksFirstAndTellsWherePuzzleWent) {
  t.session.CurrentFile = t.dir.file("Mine.sud");
  auto* save = child<QPushButton>("SaveNewCommand");

  // Nothing on the grid yet.
  QTest::mouseClick(save, Qt::LeftButton);
  EXPECT_EQ(t.ui.messages, std::vector<std::string>{"Create a valid puzzle first"});
  EXPECT_TRUE(t.ui.questions.empty());

  choose(2);
  setBlanks("40");
  create();
  t.ui.messages.clear();

  t.ui.answers = {false};
  QTest::mouseClick(save, Qt::LeftButton);
  EXPECT_EQ(t.ui.questions, std::vector<std::string>{"Save this puzzle?"});
  EXPECT_TRUE(t.ui.messages.empty());
  EXPECT_EQ(fileLength(t.session.CurrentFile), -1);

  // The release of a mouse button saves; the right one too.
  QTest::mouseClick(save, Qt::RightButton);
  EXPECT_EQ(t.ui.questions.size(), 2u);
  EXPECT_EQ(t.ui.messages, std::vector<std::string>{"Puzzle# 1 added to file: " + t.session.CurrentFile});
  EXPECT_EQ(countPuzzles(t.session.CurrentFile), 1);
  EXPECT_EQ(t.session.TotalPuzzles, 1);
}

TEST_F(CreatePageTest, ABatchOfThreeCountsDownIntoAFreshCollection) {
  t.session.CurrentFile = t.dir.file("Fresh.sud");
  choose(1);
  setBlanks("40");
  auto* numCreate = child<QLineEdit>("NumCreate");
  numCreate->setText("3");
  std::vector<std::string> shown;
  QObject::connect(numCreate, &QLineEdit::textChanged,
                   [&](const QString& text) { shown.push_back(text.toStdString()); });

  QTest::mouseClick(child<QPushButton>("AutoSaveCommand"), Qt::LeftButton);

  EXPECT_EQ(shown, (std::vector<std::string>{"2", "1", "0", "3"}));
  EXPECT_EQ(numCreate->text().toStdString(), "3");
  EXPECT_EQ(t.ui.messages, std::vector<std::string>{"3 puzzles added to file: " + t.session.CurrentFile});
  EXPECT_TRUE(t.ui.questions.empty());
  EXPECT_EQ(countPuzzles(t.session.CurrentFile), 3);
  const std::string text = readWholeFile(t.session.CurrentFile).value_or("");
  EXPECT_EQ(text.rfind("#1\r\n", 0), 0u);
  EXPECT_NE(text.find("\r\n\r\n#2\r\n"), std::string::npos);
  EXPECT_NE(text.find("\r\n\r\n#3\r\n"), std::string::npos);
  EXPECT_EQ(t.session.TotalPuzzles, 3);
  EXPECT_EQ(t.session.PuzzleTitle, "Puzzle 3 of 3 (36 blanks)");
  EXPECT_EQ(blanksText(), "36");
  EXPECT_TRUE(child<QPushButton>("CreateCommand")->isEnabled());
  EXPECT_GE(redraws, 1);
}

}  // namespace
}  // namespace tessaly
