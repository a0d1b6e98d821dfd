#include "ui/TemplateDialog.h"

#include <QPlainTextEdit>

#include "ui/ObjectNames.h"

namespace tessaly {

TemplateDialog::TemplateDialog(UserInterface& ui, QWidget* parent) : EntryDialog(ui, "TemplateText", 'X', parent) {
  setObjectName(names::Form3);
  setWindowTitle("Blank cell template");
  // Typing over the Xs is the natural way to blank a cell.
  textBox()->setOverwriteMode(true);
  setText(defaultTemplateText());
}

std::optional<std::string> askBlankTemplate(UserInterface& ui, QWidget* parent) {
  TemplateDialog dialog(ui, parent);
  dialog.exec();
  if (dialog.answer() != "Y") return std::nullopt;
  return dialog.acceptedTemplate();
}

}  // namespace tessaly
