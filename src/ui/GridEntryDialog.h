#pragma once
// The grid entry dialog: the user types a puzzle as nine lines of digits, with
// a blank, "." or "/" (or 0) for an empty cell. An accepted grid becomes the new
// puzzle and the answer is "Y"; one without exactly one solution only once the
// user has said to keep it.

#include "ui/EntryDialog.h"

namespace tessaly {

class Session;

class GridEntryDialog : public EntryDialog {
  Q_OBJECT

 public:
  /// Opens filled with the session's grid as the Edit command shows it; the
  /// text box is named GridText.
  GridEntryDialog(Session& session, UserInterface& ui, QWidget* parent = nullptr);

  /// The 81 accepted digits, "0" for an empty cell; "" until accepted.
  const std::string& acceptedDigits() const { return m_accepted; }

 protected:
  EntryCheck check(const std::string& text) const override { return checkGridEntry(text); }
  /// A grid with no solution or several is kept only when the user says so.
  std::string keepQuestion(const std::string& digits) const override;
  void accepted(const std::string& digits) override;
  const char* helpText() const override { return kGridEntryHelp; }

 private:
  Session& m_session;
  std::string m_accepted;
};

/// The Edit command (`EditCommand`): shows the grid entry dialog over `parent`
/// with the current grid filled in and waits for it. True when the typed grid
/// became the puzzle (titled "New Puzzle").
bool editCommand(Session& session, UserInterface& ui, QWidget* parent = nullptr);

}  // namespace tessaly
