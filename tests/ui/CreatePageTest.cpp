// The Create tab's controls: what they hand the core's create command and show
// of its answer, the template of the Manual option, Save new, and the batch
// that counts down into a fresh collection.

#include <gtest/gtest.h>

#include <QApplication>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>
#include <QTimer>
#include <optional>

#include "model/CollectionFile.h"
#include "model/FileUtil.h"
#include "support/TestSupport.h"
#include "ui/CreatePage.h"

namespace tessaly {
namespace {

class CreatePageTest : public ::testing::Test {
 protected:
  CreatePageTest() {
    t.session.appDir = dir.dir();
    page.show();
    EXPECT_TRUE(QTest::qWaitForWindowExposed(&page));
  }
  QWidget* child(const QString& name) { return page.findChild<QWidget*>(name); }
  bool checked(int i) { return page.findChild<QRadioButton*>(QString("Distribution_%1").arg(i))->isChecked(); }
  std::string shown(const char* box) { return page.findChild<QLineEdit*>(box)->text().toStdString(); }
  int blanks() const { return kCells - t.session.grid.filledCount(); }
  /// Chooses an option (a click on its round indicator) and types the number of blanks.
  void choose(int i, const char* count) {
    QWidget* option = child(QString("Distribution_%1").arg(i));
    QTest::mouseClick(option, Qt::LeftButton, {}, QPoint(option->height() / 2, option->height() / 2));
    page.findChild<QLineEdit*>("TotBlanks")->selectAll();
    QTest::keyClicks(child("TotBlanks"), count);
  }
  void click(const char* name, Qt::MouseButton button = Qt::LeftButton) { QTest::mouseClick(child(name), button); }

  test::TempDir dir;
  test::TestSession t;
  int redraws = 0;
  CreatePage page{t.session, t.ui, [this] { ++redraws; }};
};

TEST_F(CreatePageTest, CreateWritesBackTheCountTheCoreAimedAt) {
  const struct {
    int option;
    const char* typed;
    const char* shown;
  } cases[] = {{0, "41", "40"}, {1, "40", "36"}, {2, "30", "30"}};
  for (const auto& c : cases) {
    choose(c.option, c.typed);
    click("CreateCommand");
    EXPECT_EQ(shown("TotBlanks"), c.shown) << c.typed;
    EXPECT_TRUE(checked(c.option)) << c.option;
    EXPECT_NEAR(blanks(), std::stoi(c.shown), 1) << c.typed;  // Mirror may blank the centre too
  }
  EXPECT_TRUE(t.ui.messages.empty());
  EXPECT_EQ(redraws, 3);
}

TEST_F(CreatePageTest, WithoutAUsableTemplateManualFallsBackToRandom) {
  for (const bool cancelled : {true, false}) {
    choose(3, "25");
    if (cancelled)  // the template dialog is cancelled
      QTimer::singleShot(0, &page, [] {
        if (QWidget* dialog = QApplication::activeModalWidget())
          QTest::mouseClick(dialog->findChild<QPushButton*>("CancelButton"), Qt::LeftButton);
      });
    else  // the template has no blanks
      page.templateSource = [] { return std::optional(std::string(81, 'X')); };
    t.ui.messages.clear();
    click("CreateCommand");
    EXPECT_EQ(t.ui.messages.size(), 1u);
    EXPECT_TRUE(checked(2));
    EXPECT_EQ(blanks(), 25);
  }
}

TEST_F(CreatePageTest, ACountOutOfRangeIsRefusedWithoutAskingForTheTemplate) {
  page.templateSource = [] {
    ADD_FAILURE() << "template asked for";
    return std::optional<std::string>();
  };
  for (const char* count : {"8", "73"}) {
    choose(3, count);
    click("CreateCommand");
    EXPECT_EQ(shown("TotBlanks"), count);
  }
  EXPECT_EQ(t.ui.messages.size(), 2u);
  EXPECT_EQ(t.session.grid.filledCount(), 0);
  EXPECT_EQ(fileLength(dir.file("PuzTemp.sud")), -1);
}

TEST_F(CreatePageTest, SaveNewAndTheBatchAddToTheCollection) {
  t.session.collection.CurrentFile = dir.file("Mine.sud");
  choose(1, "40");
  click("CreateCommand");
  click("SaveNewCommand", Qt::RightButton);  // the right button saves too
  EXPECT_EQ(countPuzzles(t.session.collection.CurrentFile), 1);

  std::vector<std::string> counts;
  QObject::connect(page.findChild<QLineEdit*>("NumCreate"), &QLineEdit::textChanged,
                   [&](const QString& text) { counts.push_back(text.toStdString()); });
  page.findChild<QLineEdit*>("NumCreate")->setText("3");
  counts.clear();
  click("AutoSaveCommand");
  EXPECT_EQ(counts, (std::vector<std::string>{"2", "1", "0", "3"}));
  EXPECT_EQ(countPuzzles(t.session.collection.CurrentFile), 4);
  EXPECT_EQ(shown("TotBlanks"), "36");
  EXPECT_TRUE(child("CreateCommand")->isEnabled());
}

}  // namespace
}  // namespace tessaly
