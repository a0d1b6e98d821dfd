#include "ui/ProgressColumn.h"

#include <QPainter>

namespace tessaly {

ProgressColumn::ProgressColumn(QWidget* parent) : QProgressBar(parent) {
  setOrientation(Qt::Vertical);
  setTextVisible(false);
  // Every pixel is painted below, so nothing behind it needs drawing first.
  setAttribute(Qt::WA_OpaquePaintEvent);
}

void ProgressColumn::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  const QPalette& colours = palette();
  const QRect frame = rect();
  painter.fillRect(frame, colours.color(QPalette::Mid));
  const QRect inside = frame.adjusted(1, 1, -1, -1);
  painter.fillRect(inside, colours.color(QPalette::Base));

  const qint64 span = qint64(maximum()) - minimum();
  if (span <= 0 || value() <= minimum()) return;
  const qint64 done = qint64(value()) - minimum();
  const bool vertical = orientation() == Qt::Vertical;
  const int length = vertical ? inside.height() : inside.width();
  const int filled = int(length * done / span);
  QRect bar = inside;
  if (vertical)
    bar.setTop(inside.bottom() + 1 - filled);
  else
    bar.setWidth(filled);
  painter.fillRect(bar, colours.color(isEnabled() ? QPalette::Active : QPalette::Disabled, QPalette::Highlight));
}

}  // namespace tessaly
