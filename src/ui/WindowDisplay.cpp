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

void WindowDisplay::setProgress(int value) {
  m_progressValue = value;
  m_changed();
}

void WindowDisplay::showProgress() {
  if (m_progress.value() == m_progressValue) return;
  // QProgressBar repaints itself (and every change waiting in the window) at
  // once when its value changes; it is drawn with the rest of the redraw.
  m_progress.setUpdatesEnabled(false);
  m_progress.setValue(m_progressValue);
  m_progress.setUpdatesEnabled(true);
}

void WindowDisplay::showViews(bool shown) {
  m_board.candidateDisplay()->setVisible(shown);
  m_logView.setVisible(shown);
}

}  // namespace tessaly
