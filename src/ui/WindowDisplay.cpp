#include "ui/WindowDisplay.h"

#include <QProgressBar>

#include "ui/CellBoard.h"

namespace tessaly {

void WindowDisplay::highlightArea(int cell, int row, int col, int box) {
  m_board.highlightArea(cell, row, col, box);
  m_changed();
}

void WindowDisplay::restoreHighlight(int) {
  m_board.restoreHighlight();
  m_changed();
}


void WindowDisplay::paintCell(int cell, CellPaint paint) {
  m_board.setPaint(cell, paint);
  m_changed();
}

void WindowDisplay::setProgress(int value) { m_progress.setValue(value); }

void WindowDisplay::showViews(bool shown) {
  m_board.candidateDisplay()->setVisible(shown);
  m_logView.setVisible(shown);
}

}  // namespace tessaly
