#include "ui/Form2.h"

#include <QFontDatabase>
#include <QFontMetrics>
#include <QHBoxLayout>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "create/EntryDialogs.h"
#include "model/Interfaces.h"
#include "model/Session.h"

namespace tessaly {

namespace {
/// Room for nine characters a line and a few lines more than nine.
constexpr int kColumns = 14;
constexpr int kLines = 12;
}  // namespace

Form2::Form2(Session& session, UserInterface& ui, QWidget* parent)
    : QDialog(parent), m_session(session), m_ui(ui) {
  setObjectName("Form2");
  setWindowTitle("Enter a puzzle");

  m_text = new QPlainTextEdit(this);
  m_text->setObjectName("GridText");
  m_text->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
  m_text->setLineWrapMode(QPlainTextEdit::NoWrap);
  m_text->setTabChangesFocus(true);
  const QFontMetrics metrics(m_text->font());
  m_text->setMinimumSize(metrics.horizontalAdvance('0') * kColumns, metrics.lineSpacing() * kLines);

  auto* ok = new QPushButton("OK", this);
  ok->setObjectName("OKButton");
  auto* cancel = new QPushButton("Cancel", this);
  cancel->setObjectName("CancelButton");
  auto* help = new QPushButton("Help", this);
  help->setObjectName("HelpButton");
  // Enter in the text box starts a new line; OK is pressed on purpose.
  ok->setAutoDefault(false);
  cancel->setAutoDefault(false);
  help->setAutoDefault(false);

  auto* buttons = new QHBoxLayout;
  buttons->addWidget(ok);
  buttons->addWidget(cancel);
  buttons->addWidget(help);
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(m_text);
  layout->addLayout(buttons);

  connect(ok, &QPushButton::clicked, this, &Form2::okCommand);
  connect(cancel, &QPushButton::clicked, this, &Form2::cancelCommand);
  connect(help, &QPushButton::clicked, this, &Form2::helpCommand);

  setText(editGridText(session));
}

std::string Form2::text() const { return m_text->toPlainText().toStdString(); }

void Form2::setText(const std::string& text) { m_text->setPlainText(QString::fromStdString(text)); }

void Form2::okCommand() {
  const EntryCheck check = checkGridEntry(text());
  if (!check.ok()) {
    // The text stays as typed, so the user can put it right.
    m_ui.message(check.refusal);
    return;
  }
  applyGridEntry(m_session, check.accepted);
  m_accepted = check.accepted;
  m_answer = "Y";
  accept();
}

void Form2::cancelCommand() {
  m_answer = "N";
  reject();
}

void Form2::helpCommand() { m_ui.message(kGridEntryHelp); }

bool editCommand(Session& session, UserInterface& ui, QWidget* parent) {
  Form2 dialog(session, ui, parent);
  dialog.exec();
  return dialog.answer() == "Y";
}

}  // namespace tessaly
