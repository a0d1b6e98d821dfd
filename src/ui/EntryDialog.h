#pragma once
// The frame the two entry dialogs share: a multi-line text box in a fixed-pitch
// font, and OK, Cancel and Help. OK hands the text to the dialog's check; a
// refusal is told and the dialog stays open with the text as typed. Cancel
// answers "N".

#include <QDialog>
#include <string>

#include "create/EntryDialogs.h"

class QPlainTextEdit;

namespace tessaly {

class UserInterface;

class EntryDialog : public QDialog {
  Q_OBJECT

 public:
  /// "Y" once an entry was accepted, "N" otherwise (cancelled or still open).
  const std::string& answer() const { return m_answer; }

  /// The text box.
  QPlainTextEdit* textBox() const { return m_text; }
  std::string text() const;
  void setText(const std::string& text);

 public slots:
  void okCommand();
  void cancelCommand();
  void helpCommand();

 protected:
  /// Builds the frame; `sample` is the character whose width sizes the box.
  EntryDialog(UserInterface& ui, const char* textBoxName, char sample, QWidget* parent);
  /// The core's check of the typed text.
  virtual EntryCheck check(const std::string& text) const = 0;
  /// A question to ask before an accepted entry is kept ("" for none); "No"
  /// leaves the dialog open with the text as typed.
  virtual std::string keepQuestion(const std::string&) const { return {}; }
  /// What an accepted entry does beyond closing the dialog.
  virtual void accepted(const std::string&) {}
  virtual const char* helpText() const = 0;

 private:
  UserInterface& m_ui;
  QPlainTextEdit* m_text = nullptr;
  std::string m_answer = "N";
};

}  // namespace tessaly
