#include "ui/EntryDialog.h"

#include <QFontMetrics>
#include <QHBoxLayout>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "model/Interfaces.h"
#include "ui/Metrics.h"

namespace tessaly {

namespace {
/// Room for nine characters a line and a few lines more than nine.
constexpr int kColumns = 14;
constexpr int kLines = 12;
}  // namespace

EntryDialog::EntryDialog(UserInterface& ui, const char* textBoxName, char sample, QWidget* parent)
    : QDialog(parent), m_ui(ui) {
  m_text = new QPlainTextEdit(this);
  m_text->setObjectName(textBoxName);
  m_text->setFont(fixedFont());
  m_text->setLineWrapMode(QPlainTextEdit::NoWrap);
  m_text->setTabChangesFocus(true);
  const QFontMetrics metrics(m_text->font());
  m_text->setMinimumSize(metrics.horizontalAdvance(QChar(sample)) * kColumns, metrics.lineSpacing() * kLines);

  auto* buttons = new QHBoxLayout;
  auto addButton = [&](const char* caption, const char* name, void (EntryDialog::*slot)()) {
    auto* button = new QPushButton(caption, this);
    button->setObjectName(name);
    // Enter in the text box starts a new line; OK is pressed on purpose.
    button->setAutoDefault(false);
    buttons->addWidget(button);
    connect(button, &QPushButton::clicked, this, slot);
  };
  addButton("OK", "OKButton", &EntryDialog::okCommand);
  addButton("Cancel", "CancelButton", &EntryDialog::cancelCommand);
  addButton("Help", "HelpButton", &EntryDialog::helpCommand);

  auto* layout = new QVBoxLayout(this);
  layout->addWidget(m_text);
  layout->addLayout(buttons);
}

std::string EntryDialog::text() const { return m_text->toPlainText().toStdString(); }

void EntryDialog::setText(const std::string& text) { m_text->setPlainText(QString::fromStdString(text)); }

void EntryDialog::okCommand() {
  const EntryCheck result = check(text());
  if (!result.ok()) {
    // The text stays as typed, so the user can put it right.
    m_ui.message(result.refusal);
    return;
  }
  if (const std::string question = keepQuestion(result.accepted); !question.empty() && !m_ui.question(question))
    return;
  accepted(result.accepted);
  m_answer = "Y";
  accept();
}

void EntryDialog::cancelCommand() {
  m_answer = "N";
  reject();
}

void EntryDialog::helpCommand() { m_ui.message(helpText()); }

}  // namespace tessaly
