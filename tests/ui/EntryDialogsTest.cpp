// The grid entry dialog (Form2) and the blank template dialog (Form3), typed
// into and answered as the user does.

#include <gtest/gtest.h>

#include <QApplication>
#include <QFontDatabase>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTest>
#include <QTextCursor>
#include <QTimer>

#include "create/EntryDialogs.h"
#include "model/Services.h"
#include "model/Session.h"
#include "support/TestSupport.h"
#include "ui/Form2.h"
#include "ui/Form3.h"

namespace tessaly {
namespace {

const std::string kPuzzle =  // the first puzzle of the pe96 set, "." for blanks
    "..3.2.6..9..3.5..1..18.64....81.29..7.......8..67.82....26.95..8..2.3..9..5.1.3..";

void click(QWidget* dialog, const char* button) {
  auto* b = dialog->findChild<QPushButton*>(button);
  ASSERT_NE(b, nullptr) << button;
  QTest::mouseClick(b, Qt::LeftButton);
}

/// Replaces the text box's contents by typing the lines, Return between them.
void typeLines(QPlainTextEdit* box, const std::vector<std::string>& lines) {
  box->clear();
  box->setFocus();
  for (std::size_t i = 0; i < lines.size(); ++i) {
    if (i > 0) QTest::keyClick(box, Qt::Key_Return);
    QTest::keyClicks(box, QString::fromStdString(lines[i]));
  }
}

std::vector<std::string> rowsOf(const std::string& cells) {
  std::vector<std::string> rows;
  for (std::size_t r = 0; r < 9; ++r) rows.push_back(cells.substr(r * 9, 9));
  return rows;
}

class EntryDialogsTest : public ::testing::Test {
 protected:
  EntryDialogsTest() { session.writesConfiguration = false; }

  ScriptedUserInterface ui;
  Session session{Services{&ui}};
};

// --- Form2

TEST_F(EntryDialogsTest, GridEntryOpensWithTheCurrentGrid) {
  test::loadGivens(session, kPuzzle);
  Form2 dialog(session, ui);
  EXPECT_EQ(dialog.objectName(), "Form2");
  EXPECT_EQ(dialog.textBox()->objectName(), "GridText");
  EXPECT_EQ(dialog.textBox()->font().family(), QFontDatabase::systemFont(QFontDatabase::FixedFont).family());
  EXPECT_EQ(dialog.text(), editGridText(session));
  EXPECT_EQ(dialog.text().substr(0, 10), "..3.2.6..\n");
  EXPECT_EQ(dialog.answer(), "N");
}

TEST_F(EntryDialogsTest, GridTypedWithDotsBlanksAndSlashesBecomesTheNewPuzzle) {
  Form2 dialog(session, ui);
  dialog.show();
  std::vector<std::string> lines = rowsOf(kPuzzle);
  // Blanks, dots and slashes all stand for an empty cell; zero too.
  lines[0] = "  3 2 6  ";
  lines[1] = "9//3/5//1";
  lines[2] = "001806400";
  typeLines(dialog.textBox(), lines);
  click(&dialog, "OKButton");

  EXPECT_TRUE(ui.messages.empty());
  EXPECT_EQ(dialog.answer(), "Y");
  EXPECT_FALSE(dialog.isVisible());
  ASSERT_EQ(dialog.acceptedDigits().size(), 81u);
  for (int c = 1; c <= kCells; ++c) {
    const char ch = kPuzzle[std::size_t(c - 1)];
    const int v = ch == '.' ? 0 : ch - '0';
    EXPECT_EQ(session.grid[c].value, v) << "cell " << c;
    EXPECT_EQ(session.grid[c].given, v != 0) << "cell " << c;
  }
  EXPECT_EQ(session.PuzzleTitle, "New Puzzle");
}

TEST_F(EntryDialogsTest, LettersAreRefusedWithTheTwoLineMessageAndTheTextStays) {
  Form2 dialog(session, ui);
  dialog.show();
  std::vector<std::string> lines = rowsOf(kPuzzle);
  lines[4] = "7..a....8";
  typeLines(dialog.textBox(), lines);
  const std::string typed = dialog.text();
  click(&dialog, "OKButton");

  ASSERT_EQ(ui.messages.size(), 1u);
  EXPECT_EQ(ui.messages[0], "Fixed numbers should be from 1 to 9\nEnter zero, dot or a space for missing numbers");
  EXPECT_TRUE(dialog.isVisible());
  EXPECT_EQ(dialog.answer(), "N");
  EXPECT_EQ(dialog.text(), typed);
  EXPECT_EQ(session.grid.filledCount(), 0);
}

TEST_F(EntryDialogsTest, EightyDigitsAreTooFew) {
  Form2 dialog(session, ui);
  dialog.show();
  std::vector<std::string> lines = rowsOf(kPuzzle);
  lines[8].pop_back();
  typeLines(dialog.textBox(), lines);
  click(&dialog, "OKButton");

  ASSERT_EQ(ui.messages.size(), 1u);
  EXPECT_EQ(ui.messages[0], "Grid must have 81 numbers");
  EXPECT_TRUE(dialog.isVisible());
  EXPECT_EQ(dialog.answer(), "N");
  EXPECT_EQ(session.grid.filledCount(), 0);
}

TEST_F(EntryDialogsTest, ADuplicateNamesItsArea) {
  Form2 dialog(session, ui);
  dialog.show();
  std::vector<std::string> lines = rowsOf(kPuzzle);
  lines[2] = "3.18.64..";  // a second 3 in box 1; its row and column stay clean
  typeLines(dialog.textBox(), lines);
  click(&dialog, "OKButton");
  ASSERT_EQ(ui.messages.size(), 1u);
  EXPECT_EQ(ui.messages[0], "box 1 has duplicate numbers");

  lines[2] = "..18.64.1";  // a second 1 in row 3
  typeLines(dialog.textBox(), lines);
  click(&dialog, "OKButton");
  ASSERT_EQ(ui.messages.size(), 2u);
  EXPECT_EQ(ui.messages[1], "row 3 has duplicate numbers");
  EXPECT_TRUE(dialog.isVisible());
  EXPECT_EQ(session.grid.filledCount(), 0);
}

TEST_F(EntryDialogsTest, CancelAnswersNoAndLeavesTheGrid) {
  test::loadGivens(session, kPuzzle);
  const std::string before = session.grid.valueCode();
  Form2 dialog(session, ui);
  dialog.show();
  typeLines(dialog.textBox(), rowsOf(std::string(81, '1')));
  click(&dialog, "CancelButton");
  EXPECT_EQ(dialog.answer(), "N");
  EXPECT_FALSE(dialog.isVisible());
  EXPECT_EQ(session.grid.valueCode(), before);
  EXPECT_TRUE(ui.messages.empty());
}

TEST_F(EntryDialogsTest, GridEntryHelpHasItsThreeLines) {
  Form2 dialog(session, ui);
  dialog.show();
  click(&dialog, "HelpButton");
  ASSERT_EQ(ui.messages.size(), 1u);
  EXPECT_EQ(ui.messages[0], "Insert numbers as 9x9 grid\nEach line should have 9 numbers\nPlace 0 for missing numbers");
  EXPECT_TRUE(dialog.isVisible());
}

TEST_F(EntryDialogsTest, TheEditCommandWaitsForTheDialog) {
  test::loadGivens(session, kPuzzle);
  bool seen = false;
  QTimer::singleShot(0, [&] {
    auto* dialog = qobject_cast<Form2*>(QApplication::activeModalWidget());
    ASSERT_NE(dialog, nullptr);
    seen = true;
    // Row 1 gains a 4 in its first cell.
    QTextCursor cursor(dialog->textBox()->document());
    cursor.deleteChar();
    cursor.insertText("4");
    click(dialog, "OKButton");
    // Never leave the test waiting on a dialog that stayed open.
    if (dialog->isVisible()) dialog->reject();
  });
  EXPECT_TRUE(editCommand(session, ui));
  EXPECT_TRUE(seen);
  EXPECT_TRUE(ui.messages.empty());
  EXPECT_EQ(session.grid[1].value, 4);
  EXPECT_TRUE(session.grid[1].given);
  EXPECT_EQ(session.PuzzleTitle, "New Puzzle");
}

// --- Form3

TEST_F(EntryDialogsTest, TemplateOpensWithNineRowsOfX) {
  Form3 dialog(ui);
  EXPECT_EQ(dialog.objectName(), "Form3");
  EXPECT_EQ(dialog.textBox()->objectName(), "TemplateText");
  EXPECT_EQ(dialog.text(), defaultTemplateText());
  EXPECT_EQ(dialog.answer(), "N");
}

TEST_F(EntryDialogsTest, ATemplateWithBlanksTypedOverTheXsIsAccepted) {
  Form3 dialog(ui);
  dialog.show();
  QPlainTextEdit* box = dialog.textBox();
  box->setFocus();
  box->moveCursor(QTextCursor::Start);
  // Typing over the Xs: the first three cells and, on the second line, a dot.
  QTest::keyClicks(box, "   ");
  box->moveCursor(QTextCursor::Down);
  QTest::keyClicks(box, ".");
  click(&dialog, "OKButton");

  EXPECT_TRUE(ui.messages.empty());
  EXPECT_EQ(dialog.answer(), "Y");
  EXPECT_FALSE(dialog.isVisible());
  std::string expected(81, 'X');
  expected.replace(0, 3, "...");
  expected[12] = '.';
  EXPECT_EQ(dialog.acceptedTemplate(), expected);
}

TEST_F(EntryDialogsTest, ATemplateWithOtherCharactersIsRefused) {
  Form3 dialog(ui);
  dialog.show();
  std::vector<std::string> lines(9, "XXXXXXXXX");
  lines[3] = "XXXXOXXXX";
  typeLines(dialog.textBox(), lines);
  const std::string typed = dialog.text();
  click(&dialog, "OKButton");
  ASSERT_EQ(ui.messages.size(), 1u);
  EXPECT_EQ(ui.messages[0], "The grid must have X or a blank");
  EXPECT_TRUE(dialog.isVisible());
  EXPECT_EQ(dialog.answer(), "N");
  EXPECT_EQ(dialog.text(), typed);
}

TEST_F(EntryDialogsTest, ATemplateOfEightyCellsIsRefused) {
  Form3 dialog(ui);
  dialog.show();
  std::vector<std::string> lines(9, "XXXXXXXXX");
  lines[8] = "XXXXXXXX";
  typeLines(dialog.textBox(), lines);
  click(&dialog, "OKButton");
  ASSERT_EQ(ui.messages.size(), 1u);
  EXPECT_EQ(ui.messages[0], "Grid must have a total of 81 Xs and blanks");
  EXPECT_TRUE(dialog.isVisible());
  EXPECT_EQ(dialog.acceptedTemplate(), "");
}

TEST_F(EntryDialogsTest, TemplateHelpAndCancel) {
  Form3 dialog(ui);
  dialog.show();
  click(&dialog, "HelpButton");
  ASSERT_EQ(ui.messages.size(), 1u);
  EXPECT_EQ(ui.messages[0],
            "Specify a blank location by replacing an X with a blank, there must be a total of 81 blanks and X's");
  click(&dialog, "CancelButton");
  EXPECT_EQ(dialog.answer(), "N");
  EXPECT_FALSE(dialog.isVisible());
}

TEST_F(EntryDialogsTest, AskingForATemplateGivesNothingWhenCancelled) {
  QTimer::singleShot(0, [&] {
    auto* dialog = qobject_cast<Form3*>(QApplication::activeModalWidget());
    ASSERT_NE(dialog, nullptr);
    click(dialog, "CancelButton");
  });
  EXPECT_EQ(askBlankTemplate(ui), std::nullopt);
}

}  // namespace
}  // namespace tessaly
