#include "ui/Form3.h"

#include <QPlainTextEdit>

namespace tessaly {

Form3::Form3(UserInterface& ui, QWidget* parent) : EntryDialog(ui, "TemplateText", 'X', parent) {
  setObjectName("Form3");
  setWindowTitle("Blank cell template");
  // Typing over the Xs is the natural way to blank a cell.
  textBox()->setOverwriteMode(true);
  setText(defaultTemplateText());
}

std::optional<std::string> askBlankTemplate(UserInterface& ui, QWidget* parent) {
  Form3 dialog(ui, parent);
  dialog.exec();
  if (dialog.answer() != "Y") return std::nullopt;
  return dialog.acceptedTemplate();
}

}  // namespace tessaly
