#pragma once
// The blank template dialog of the Manual distribution: nine lines of nine
// characters, "X" for a cell to keep and a blank (or ".") for a cell to blank.
// OK hands the text to the core's check; a refusal is told and the dialog stays
// open with the text as typed, an accepted template is handed back with the
// answer "Y". Cancel answers "N".

#include <QDialog>
#include <optional>
#include <string>

class QPlainTextEdit;

namespace tessaly {

class UserInterface;

class Form3 : public QDialog {
  Q_OBJECT

 public:
  /// Opens with the default template, nine lines "XXXXXXXXX".
  explicit Form3(UserInterface& ui, QWidget* parent = nullptr);

  /// "Y" once a template was accepted, "N" otherwise (cancelled or still open).
  const std::string& answer() const { return m_answer; }
  /// The accepted template: 81 characters, "X" kept and "." blank; "" until accepted.
  const std::string& acceptedTemplate() const { return m_accepted; }

  /// The text box (object name TemplateText).
  QPlainTextEdit* textBox() const { return m_text; }
  std::string text() const;
  void setText(const std::string& text);

 public slots:
  void okCommand();
  void cancelCommand();
  void helpCommand();

 private:
  UserInterface& m_ui;
  QPlainTextEdit* m_text = nullptr;
  std::string m_answer = "N";
  std::string m_accepted;
};

/// Shows the template dialog over `parent` and waits for it: the accepted
/// template, or nothing when the user cancelled.
std::optional<std::string> askBlankTemplate(UserInterface& ui, QWidget* parent = nullptr);

}  // namespace tessaly
