// The Create tab: what its controls hand the core's create command and the grid
// shows of its answer, the Manual option's template, Save new and the batch.
// The entry dialogs (grid, GridEntryDialog; blank template, TemplateDialog): a refusal keeps the
// dialog open with the text as typed, and the commands wait for the dialog.

#include "create/EntryDialogs.h"
#include "model/CollectionFile.h"
#include "ui/CreatePage.h"
#include "ui/GridEntryDialog.h"
#include "ui/TemplateDialog.h"
#include "UiSupport.h"

namespace tessaly::testing {
namespace {

class CreateTabTest : public WindowFixture {
 protected:
  void SetUp() override {
    start();
    selectTab(Tab::Create);
    // Without the one-solution check every blank asked for stays blank.
    child<QCheckBox>("UniqueCheck")->setChecked(false);
  }
  QLineEdit* box(const char* name) { return child<QLineEdit>(name); }
  bool checked(int option) { return child<QRadioButton>(QString("Distribution_%1").arg(option))->isChecked(); }
  /// Chooses an option, types the number of blanks and clicks Create.
  void create(int option, const char* count) {
    click(QString("Distribution_%1").arg(option));
    box("TotBlanks")->selectAll();
    QTest::keyClicks(box("TotBlanks"), count);
    click("CreateCommand");
  }
};

TEST_F(CreateTabTest, CreateFillsTheGridAndWritesBackTheCountTheCoreAimedAt) {
  EXPECT_FALSE(child("SolutionsFrame")->isVisible());
  // Random, by Box, Mirror: the blanks typed and those the core aimed at.
  const std::tuple<int, const char*, int> cases[] = {{0, "41", 40}, {1, "40", 36}, {2, "30", 30}};
  for (const auto& [option, typed, shown] : cases) {
    create(option, typed);
    EXPECT_EQ(box("TotBlanks")->text(), QString::number(shown)) << typed;
    EXPECT_TRUE(checked(option)) << option;
    EXPECT_NEAR(blanksShown(), shown, 1) << typed;  // Mirror may blank the centre too
  }
  EXPECT_TRUE(ui.messages.empty());
  selectTab(Tab::AutoSolve);
  EXPECT_TRUE(child("SolutionsFrame")->isVisible());
}

TEST_F(CreateTabTest, ManualRefusesACountOutOfRangeAndFallsBackToRandomWithoutAUsableTemplate) {
  enum Template { NotAsked, Cancelled, NoBlanks };
  const std::pair<const char*, Template> cases[] = {
      {"8", NotAsked}, {"73", NotAsked}, {"25", Cancelled}, {"25", NoBlanks}};
  auto* page = window->findChild<CreatePage*>();
  for (const auto& [count, answer] : cases) {
    page->templateSource = [answer = answer] {  // a template without blanks
      EXPECT_EQ(answer, NoBlanks) << "template asked for";
      return std::optional(std::string(81, 'X'));
    };
    if (answer == Cancelled) {
      page->templateSource = nullptr;  // the template dialog
      answerDialog("CancelButton");
    }
    ui.messages.clear();
    create(3, count);
    EXPECT_EQ(ui.messages.size(), 1u) << count;
    EXPECT_EQ(box("TotBlanks")->text(), count);
    EXPECT_EQ(checked(2), answer != NotAsked) << count;  // Random
    EXPECT_EQ(blanksShown(), answer == NotAsked ? kCells : 25) << count;
    EXPECT_EQ(std::filesystem::exists(appDir() + "PuzTemp.sud"), answer != NotAsked) << count;
  }
}

TEST_F(CreateTabTest, SaveNewAndTheBatchAddToTheCollection) {
  create(1, "40");
  click("SaveNewCommand", Qt::RightButton);  // the right button saves too
  EXPECT_EQ(countPuzzles(appDir() + "Puzzles.sud"), 51);
  std::vector<std::string> counts;
  box("NumCreate")->setText("3");
  QObject::connect(box("NumCreate"), &QLineEdit::textChanged,
                   [&](const QString& text) { counts.push_back(text.toStdString()); });
  click("AutoSaveCommand");
  EXPECT_EQ(counts, (std::vector<std::string>{"2", "1", "0", "3"}));
  EXPECT_EQ(countPuzzles(appDir() + "Puzzles.sud"), 54);
  EXPECT_EQ(box("TotBlanks")->text(), "36");
  EXPECT_TRUE(child("CreateCommand")->isEnabled());
}

TEST_F(CreateTabTest, TheBoxesKeepTheirTextAsTypedUnlessMirrorOrByBoxRewritesTheCount) {
  // option, typed, box afterwards, blanks on the grid (0: refused, the grid kept), message
  const std::tuple<int, const char*, const char*, int, const char*> cases[] = {
      {2, "040", "040", 40, nullptr},       {0, "040", "40", 40, nullptr},      {1, "36 blanks", "36", 36, nullptr},
      {2, "abc", "abc", 0, kTooFewBlanks}, {0, "-", "-", 0, kTooFewBlanks},    {0, "0100", "0100", 0, kTooManyBlanks}};
  for (const auto& [option, typed, shown, blanks, message] : cases) {
    ui.messages.clear();
    const int before = blanksShown();
    create(option, typed);
    EXPECT_EQ(box("TotBlanks")->text(), shown) << typed;
    EXPECT_EQ(ui.messages, message ? std::vector<std::string>{message} : std::vector<std::string>{}) << typed;
    EXPECT_NEAR(blanksShown(), blanks ? blanks : before, option == 0 ? 1 : 0) << typed;
  }

  // The batch counts down, then shows and tells the count as typed.
  const std::tuple<const char*, const char*, std::vector<std::string>, int> batches[] = {  // typed, blanks, box, added
      {"02", "030", {"1", "0", "02"}, 2}, {"none", "30", {}, 0}};
  for (const auto& [typed, blanks, counts, added] : batches) {
    click("Distribution_2");
    box("TotBlanks")->setText(blanks);
    box("NumCreate")->setText(typed);
    std::vector<std::string> shown;
    const auto watch = QObject::connect(box("NumCreate"), &QLineEdit::textChanged,
                                        [&](const QString& text) { shown.push_back(text.toStdString()); });
    ui.messages.clear();
    const int before = countPuzzles(appDir() + "Puzzles.sud");
    click("AutoSaveCommand");
    QObject::disconnect(watch);
    EXPECT_EQ(shown, counts) << typed;
    EXPECT_EQ(ui.messages, std::vector<std::string>{std::string(typed) + " puzzles added to file: " + appDir() + "Puzzles.sud"});
    EXPECT_EQ(countPuzzles(appDir() + "Puzzles.sud"), before + added) << typed;
    EXPECT_EQ(box("NumCreate")->text() + "|" + box("TotBlanks")->text(), QString(typed) + "|" + blanks);
  }
}

TEST(EntryDialogs, ARefusedEntryIsToldAndTheDialogStaysOpenWithItsText) {
  test::TestSession t;
  GridEntryDialog grid(t.session, t.ui);
  TemplateDialog pattern(t.ui);
  const std::pair<EntryDialog*, std::string> cases[] = {{&grid, "..3.2.6..\n9..3.5..1"}, {&pattern, "XXXXOXXXX"}};
  for (const auto& [dialog, text] : cases) {
    t.ui.messages.clear();
    dialog->show();
    dialog->setText(text);
    click(dialog, "OKButton");
    const EntryCheck check = dialog == &grid ? checkGridEntry(text) : checkTemplateEntry(text);
    EXPECT_EQ(t.ui.messages, std::vector<std::string>{check.refusal}) << text;
    EXPECT_TRUE(dialog->isVisible());
    EXPECT_EQ(dialog->text(), text);
    EXPECT_EQ(dialog->answer(), "N");
  }
  EXPECT_EQ(t.session.grid.filledCount(), 0);
  t.ui.messages.clear();  // Help tells the dialog's own help text
  click(&grid, "HelpButton");
  click(&pattern, "HelpButton");
  EXPECT_EQ(t.ui.messages, (std::vector<std::string>{kGridEntryHelp, kTemplateHelp}));
}

TEST(EntryDialogs, TheCommandsWaitForTheModalDialogAndTakeItsAnswer) {
  test::TestSession t;
  // Row 1 gains a 4 in its first cell.
  answerDialog("OKButton", [](EntryDialog& d) { d.setText("4" + d.text().substr(1)); });
  EXPECT_TRUE(editCommand(t.session, t.ui));
  EXPECT_EQ(t.session.grid[1].value, 4);
  EXPECT_TRUE(t.session.grid[1].given);
  answerDialog("CancelButton", [](EntryDialog& d) { d.setText(std::string(81, '1')); });
  EXPECT_FALSE(editCommand(t.session, t.ui));
  EXPECT_EQ(t.session.grid[2].value, 0);
  // Typing over the Xs of the template blanks cells.
  answerDialog("OKButton", [](EntryDialog& d) {
    d.textBox()->moveCursor(QTextCursor::Start);
    QTest::keyClicks(d.textBox(), "  ");
  });
  EXPECT_EQ(askBlankTemplate(t.ui), ".." + std::string(79, 'X'));
  EXPECT_TRUE(t.ui.messages.empty());
}

}  // namespace
}  // namespace tessaly::testing
