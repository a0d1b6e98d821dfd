#pragma once
// The core's Display drawn by the window: cell paints and highlights go to the
// cell board, the progress to `pb1`; both are drawn at the window's next
// redraw, so a run that sets them after every step draws once per frame.

#include <functional>

#include "model/Interfaces.h"

class QProgressBar;
class QWidget;

namespace tessaly {

class CellBoard;

class WindowDisplay : public Display {
 public:
  /// `changed` asks the window for a redraw.
  WindowDisplay(CellBoard& board, QProgressBar& progress, QWidget& logView, std::function<void()> changed)
      : m_board(board), m_progress(progress), m_logView(logView), m_changed(std::move(changed)) {}

  void highlightArea(int cell, int row, int col, int box) override;
  void restoreHighlight(int cell) override;
  void paintCell(int cell, CellPaint paint) override;
  void setProgress(int value) override;
  void showViews(bool shown) override;

  /// Puts the progress last set on `pb1`; the window calls it when it redraws.
  void showProgress();

 private:
  CellBoard& m_board;
  QProgressBar& m_progress;
  QWidget& m_logView;
  std::function<void()> m_changed;
  int m_progressValue = 0;
};

}  // namespace tessaly
