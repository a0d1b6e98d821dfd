// The core's messages, questions and text input as the window shows them: the
// exact text in a modal box, the answer given back, the normal pointer while a
// dialog is open over a busy window.

#include <gtest/gtest.h>

#include <QApplication>
#include <QInputDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>

#include <functional>

#include "ui/DialogUserInterface.h"

namespace tessaly {
namespace {

/// Runs `answer` on the modal dialog once it is open.
void whenOpen(std::function<void(QWidget*)> answer) {
  QTimer::singleShot(0, [answer] {
    QWidget* dialog = QApplication::activeModalWidget();
    if (!dialog) return whenOpen(answer);
    answer(dialog);
  });
}

TEST(DialogUserInterface, MessagesQuestionsAndTextInput) {
  DialogUserInterface ui;
  ui.setBusy(true);
  EXPECT_EQ(QApplication::overrideCursor()->shape(), Qt::WaitCursor);

  QString shown;
  Qt::CursorShape pointer = Qt::BlankCursor;
  whenOpen([&](QWidget* dialog) {
    auto* box = qobject_cast<QMessageBox*>(dialog);
    ASSERT_NE(box, nullptr);
    shown = box->text();
    pointer = QApplication::overrideCursor()->shape();
    box->button(QMessageBox::Ok)->click();
  });
  ui.message("Puzzle is solved");
  EXPECT_EQ(shown, "Puzzle is solved");
  EXPECT_EQ(pointer, Qt::ArrowCursor);
  EXPECT_EQ(QApplication::overrideCursor()->shape(), Qt::WaitCursor);  // busy again afterwards

  for (const auto button : {QMessageBox::Yes, QMessageBox::No}) {
    whenOpen([button](QWidget* dialog) { qobject_cast<QMessageBox*>(dialog)->button(button)->click(); });
    EXPECT_EQ(ui.question("Overwrite?"), button == QMessageBox::Yes);
  }

  whenOpen([&](QWidget* dialog) {
    auto* input = qobject_cast<QInputDialog*>(dialog);
    ASSERT_NE(input, nullptr);
    shown = input->labelText() + "|" + input->textValue();
    input->setTextValue("65432");
    input->accept();
  });
  EXPECT_EQ(ui.textInput("How to apply Rules", "Current setting=23456", "2"), "65432");
  EXPECT_EQ(shown, "Current setting=23456|2");
  whenOpen([](QWidget* dialog) { qobject_cast<QInputDialog*>(dialog)->reject(); });
  EXPECT_EQ(ui.textInput("How to apply Rules", "", ""), std::nullopt);

  ui.setBusy(false);
  EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}

}  // namespace
}  // namespace tessaly
