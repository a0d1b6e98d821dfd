#pragma once
// The progress bar beside the grid: the share of cells with a value, filled
// from the bottom. The style's bar is drawn as a rounded, shaded shape whose
// rasterising costs more than the rest of a redraw after a Solve; this one is
// two flat rectangles and a frame, which the painter fills at once.

#include <QProgressBar>

namespace tessaly {

class ProgressColumn : public QProgressBar {
  Q_OBJECT

 public:
  explicit ProgressColumn(QWidget* parent = nullptr);

 protected:
  void paintEvent(QPaintEvent* event) override;
};

}  // namespace tessaly
