// The grid entry dialog (GridEntryDialog) and the blank template dialog (TemplateDialog): OK hands
// the text to the core's check, a refusal keeps the dialog open with the text
// as typed, Cancel answers "N", and the commands wait for the modal dialog.

#include <gtest/gtest.h>

#include <QApplication>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <functional>

#include "create/EntryDialogs.h"
#include "support/TestSupport.h"
#include "ui/GridEntryDialog.h"
#include "ui/TemplateDialog.h"

namespace tessaly {
namespace {

void click(QWidget* dialog, const char* button) {
  QTest::mouseClick(dialog->findChild<QPushButton*>(button), Qt::LeftButton);
}

/// Once the modal dialog is open, prepares it and clicks one of its buttons.
void clickModalLater(const char* button, std::function<void(EntryDialog&)> prepare = {}) {
  QTimer::singleShot(0, [=] {
    auto* dialog = qobject_cast<EntryDialog*>(QApplication::activeModalWidget());
    ASSERT_NE(dialog, nullptr);
    if (prepare) prepare(*dialog);
    click(dialog, button);
    if (dialog->isVisible()) dialog->reject();  // never leave the test waiting
  });
}

class EntryDialogsTest : public ::testing::Test {
 protected:
  test::TestSession t;
};

TEST_F(EntryDialogsTest, ARefusedEntryIsToldAndTheDialogStaysOpenWithItsText) {
  GridEntryDialog grid(t.session, t.ui);
  TemplateDialog pattern(t.ui);
  const struct {
    EntryDialog* dialog;
    std::string text;
    EntryCheck check;
  } cases[] = {{&grid, "1..a", checkGridEntry("1..a")},
               {&grid, "..3.2.6..\n9..3.5..1", checkGridEntry("..3.2.6..\n9..3.5..1")},
               {&pattern, "XXXXOXXXX", checkTemplateEntry("XXXXOXXXX")}};
  for (const auto& c : cases) {
    t.ui.messages.clear();
    c.dialog->show();
    c.dialog->setText(c.text);
    click(c.dialog, "OKButton");
    EXPECT_EQ(t.ui.messages, std::vector<std::string>{c.check.refusal}) << c.text;
    EXPECT_TRUE(c.dialog->isVisible());
    EXPECT_EQ(c.dialog->text(), c.text);
    EXPECT_EQ(c.dialog->answer(), "N");
  }
  EXPECT_EQ(t.session.grid.filledCount(), 0);
  // Help tells the dialog's own help text.
  t.ui.messages.clear();
  click(&grid, "HelpButton");
  click(&pattern, "HelpButton");
  EXPECT_EQ(t.ui.messages, (std::vector<std::string>{kGridEntryHelp, kTemplateHelp}));
}

TEST_F(EntryDialogsTest, TheCommandsWaitForTheModalDialogAndTakeItsAnswer) {
  // Row 1 gains a 4 in its first cell.
  clickModalLater("OKButton", [](EntryDialog& d) { d.setText("4" + d.text().substr(1)); });
  EXPECT_TRUE(editCommand(t.session, t.ui));
  EXPECT_EQ(t.session.grid[1].value, 4);
  EXPECT_TRUE(t.session.grid[1].given);
  clickModalLater("CancelButton", [](EntryDialog& d) { d.setText(std::string(81, '1')); });
  EXPECT_FALSE(editCommand(t.session, t.ui));
  EXPECT_EQ(t.session.grid[2].value, 0);

  // Typing over the Xs of the template blanks cells.
  clickModalLater("OKButton", [](EntryDialog& d) {
    d.textBox()->moveCursor(QTextCursor::Start);
    QTest::keyClicks(d.textBox(), "  ");
  });
  EXPECT_EQ(askBlankTemplate(t.ui), ".." + std::string(79, 'X'));
  clickModalLater("CancelButton");
  EXPECT_EQ(askBlankTemplate(t.ui), std::nullopt);
  EXPECT_TRUE(t.ui.messages.empty());
}

}  // namespace
}  // namespace tessaly
