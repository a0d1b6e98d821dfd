#include "ui/Form3.h"

#include <QFontDatabase>
#include <QFontMetrics>
#include <QHBoxLayout>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "create/EntryDialogs.h"
#include "model/Interfaces.h"

namespace tessaly {

namespace {
constexpr int kColumns = 14;
constexpr int kLines = 12;
}  // namespace

Form3::Form3(UserInterface& ui, QWidget* parent) : QDialog(parent), m_ui(ui) {
  setObjectName("Form3");
  setWindowTitle("Blank cell template");

  m_text = new QPlainTextEdit(this);
  m_text->setObjectName("TemplateText");
  m_text->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
  m_text->setLineWrapMode(QPlainTextEdit::NoWrap);
  m_text->setTabChangesFocus(true);
  // Typing over the Xs is the natural way to blank a cell.
  m_text->setOverwriteMode(true);
  const QFontMetrics metrics(m_text->font());
  m_text->setMinimumSize(metrics.horizontalAdvance('X') * kColumns, metrics.lineSpacing() * kLines);

  auto* ok = new QPushButton("OK", this);
  ok->setObjectName("OKButton");
  auto* cancel = new QPushButton("Cancel", this);
  cancel->setObjectName("CancelButton");
  auto* help = new QPushButton("Help", this);
  help->setObjectName("HelpButton");
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

  connect(ok, &QPushButton::clicked, this, &Form3::okCommand);
  connect(cancel, &QPushButton::clicked, this, &Form3::cancelCommand);
  connect(help, &QPushButton::clicked, this, &Form3::helpCommand);

  setText(defaultTemplateText());
}

std::string Form3::text() const { return m_text->toPlainText().toStdString(); }

void Form3::setText(const std::string& text) { m_text->setPlainText(QString::fromStdString(text)); }

void Form3::okCommand() {
  const EntryCheck check = checkTemplateEntry(text());
  if (!check.ok()) {
    m_ui.message(check.refusal);
    return;
  }
  m_accepted = check.accepted;
  m_answer = "Y";
  accept();
}

void Form3::cancelCommand() {
  m_answer = "N";
  reject();
}

void Form3::helpCommand() { m_ui.message(kTemplateHelp); }

std::optional<std::string> askBlankTemplate(UserInterface& ui, QWidget* parent) {
  Form3 dialog(ui, parent);
  dialog.exec();
  if (dialog.answer() != "Y") return std::nullopt;
  return dialog.acceptedTemplate();
}

}  // namespace tessaly
