#include "ui/GridEntryDialog.h"

#include "create/PuzzleCheck.h"
#include "model/Session.h"
#include "solver/ReadPuzzle.h"
#include "ui/ObjectNames.h"

namespace tessaly {

GridEntryDialog::GridEntryDialog(Session& session, UserInterface& ui, QWidget* parent)
    : EntryDialog(ui, "GridText", '0', parent), m_session(session) {
  setObjectName(names::Form2);
  setWindowTitle("Enter a puzzle");
  setText(editGridText(session));
}

std::string GridEntryDialog::keepQuestion(const std::string& digits) const { return keepAnywayQuestion(digits); }

void GridEntryDialog::accepted(const std::string& digits) {
  enterPuzzle(m_session, digits);
  m_accepted = digits;
}

bool editCommand(Session& session, UserInterface& ui, QWidget* parent) {
  GridEntryDialog dialog(session, ui, parent);
  dialog.exec();
  return dialog.answer() == "Y";
}

}  // namespace tessaly
