#pragma once
// The grid entry dialog: the user types a puzzle as nine lines of digits, with
// a blank, "." or "/" (or 0) for an empty cell. OK hands the text to the core's
// check; a refusal is told and the dialog stays open with the text as typed,
// an accepted grid becomes the new puzzle and the answer is "Y". Cancel answers
// "N".

#include <QDialog>
#include <string>

class QPlainTextEdit;
class QPushButton;

namespace tessaly {

class Session;
class UserInterface;

class Form2 : public QDialog {
  Q_OBJECT

 public:
  /// Opens filled with the session's grid as the Edit command shows it.
  Form2(Session& session, UserInterface& ui, QWidget* parent = nullptr);

  /// "Y" once a grid was accepted, "N" otherwise (cancelled or still open).
  const std::string& answer() const { return m_answer; }
  /// The 81 accepted digits, "0" for an empty cell; "" until accepted.
  const std::string& acceptedDigits() const { return m_accepted; }

  /// The text box (object name GridText).
  QPlainTextEdit* textBox() const { return m_text; }
  std::string text() const;
  void setText(const std::string& text);

 public slots:
  void okCommand();
  void cancelCommand();
  void helpCommand();

 private:
  Session& m_session;
  UserInterface& m_ui;
  QPlainTextEdit* m_text = nullptr;
  std::string m_answer = "N";
  std::string m_accepted;
};

/// The Edit command (`EditCommand`): shows the grid entry dialog over `parent`
/// with the current grid filled in and waits for it. True when the typed grid
/// became the puzzle (titled "New Puzzle").
bool editCommand(Session& session, UserInterface& ui, QWidget* parent = nullptr);

}  // namespace tessaly
