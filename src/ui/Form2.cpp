#include "ui/Form2.h"

#include "model/Session.h"

namespace tessaly {

Form2::Form2(Session& session, UserInterface& ui, QWidget* parent)
    : EntryDialog(ui, "GridText", '0', parent), m_session(session) {
  setObjectName("Form2");
  setWindowTitle("Enter a puzzle");
  setText(editGridText(session));
}

void Form2::accepted(const std::string& digits) {
  applyGridEntry(m_session, digits);
  m_accepted = digits;
}

bool editCommand(Session& session, UserInterface& ui, QWidget* parent) {
  Form2 dialog(session, ui, parent);
  dialog.exec();
  return dialog.answer() == "Y";
}

}  // namespace tessaly
