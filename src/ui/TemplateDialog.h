#pragma once
// The blank template dialog of the Manual distribution: nine lines of nine
// characters, "X" for a cell to keep and a blank (or ".") for a cell to blank.
// An accepted template is handed back with the answer "Y".

#include <optional>

#include "ui/EntryDialog.h"

namespace tessaly {

class TemplateDialog : public EntryDialog {
  Q_OBJECT

 public:
  /// Opens with the default template, nine lines "XXXXXXXXX"; the text box is
  /// named TemplateText.
  explicit TemplateDialog(UserInterface& ui, QWidget* parent = nullptr);

  /// The accepted template: 81 characters, "X" kept and "." blank; "" until accepted.
  const std::string& acceptedTemplate() const { return m_accepted; }

 protected:
  EntryCheck check(const std::string& text) const override { return checkTemplateEntry(text); }
  void accepted(const std::string& pattern) override { m_accepted = pattern; }
  const char* helpText() const override { return kTemplateHelp; }

 private:
  std::string m_accepted;
};

/// Shows the template dialog and waits for it: the accepted template, or
/// nothing when it was cancelled.
std::optional<std::string> askBlankTemplate(UserInterface& ui, QWidget* parent = nullptr);

}  // namespace tessaly
