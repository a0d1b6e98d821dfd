#include "ui/PuzzlePrinter.h"

#include <QFont>
#include <QFontMetricsF>
#include <QPainter>
#include <QPen>
#include <QPrinter>
#include <QSize>
#include <algorithm>

namespace tessaly {

namespace {
/// Line widths as shares of a cell's side: thin between cells, thick round boxes.
constexpr qreal kThinLine = 0.02;
constexpr qreal kThickLine = 0.07;
/// The digit's height as a share of a cell's side.
constexpr qreal kDigitShare = 0.62;
/// The gap between grids as a share of a grid's side.
constexpr qreal kGapShare = 0.12;
constexpr int kCaptionPoints = 11;

int digitAt(const std::string& cells, int index) {
  if (index < 0 || std::size_t(index) >= cells.size()) return 0;
  const char ch = cells[std::size_t(index)];
  return ch >= '1' && ch <= '9' ? ch - '0' : 0;
}
}  // namespace

QSize PuzzlePrinter::arrangement(int perPage) {
  switch (perPage) {
    case 2: return {1, 2};
    case 4: return {2, 2};
    case 6: return {2, 3};
    default: return {1, 1};
  }
}

QList<QRectF> PuzzlePrinter::gridSquares(int perPage, const QRectF& page, qreal captionHeight) {
  const QSize shape = arrangement(perPage);
  const qreal slotWidth = page.width() / shape.width();
  const qreal slotHeight = page.height() / shape.height();
  // The grid takes what is left of its slot after the caption and a gap, square.
  const qreal side = std::max<qreal>(0, std::min(slotWidth, slotHeight - captionHeight) / (1 + kGapShare));
  QList<QRectF> squares;
  for (int row = 0; row < shape.height(); ++row)
    for (int col = 0; col < shape.width(); ++col) {
      const qreal left = page.left() + col * slotWidth + (slotWidth - side) / 2;
      const qreal top = page.top() + row * slotHeight + captionHeight + (slotHeight - captionHeight - side) / 2;
      squares << QRectF(left, top, side, side);
    }
  return squares;
}

void PuzzlePrinter::drawGrid(QPainter& painter, const QRectF& square, const std::string& cells) {
  const qreal cell = square.width() / 9;
  painter.save();
  QFont font = painter.font();
  font.setPixelSize(std::max(1, int(cell * kDigitShare)));
  painter.setFont(font);
  painter.setPen(Qt::black);
  for (int index = 0; index < 81; ++index)
    if (const int digit = digitAt(cells, index)) {
      const QRectF box(square.left() + (index % 9) * cell, square.top() + (index / 9) * cell, cell, cell);
      painter.drawText(box, Qt::AlignCenter, QString::number(digit));
    }
  // Thin lines first, then the box lines over them; the frame is a box line too.
  for (const bool thick : {false, true}) {
    QPen pen(Qt::black, cell * (thick ? kThickLine : kThinLine));
    pen.setCapStyle(Qt::SquareCap);
    painter.setPen(pen);
    for (int k = 0; k <= 9; ++k) {
      if ((k % 3 == 0) != thick) continue;
      const qreal x = square.left() + k * cell, y = square.top() + k * cell;
      painter.drawLine(QPointF(x, square.top()), QPointF(x, square.bottom()));
      painter.drawLine(QPointF(square.left(), y), QPointF(square.right(), y));
    }
  }
  painter.restore();
}

bool PuzzlePrinter::print(QPrinter& printer, const QList<PrintedGrid>& grids, int perPage) {
  if (std::find(kPerPage.begin(), kPerPage.end(), perPage) == kPerPage.end()) perPage = 1;
  QPainter painter;
  if (!painter.begin(&printer)) return false;
  QFont font = painter.font();
  font.setPointSize(kCaptionPoints);
  painter.setFont(font);
  const QFontMetricsF metrics(font, &printer);
  const qreal captionHeight = metrics.lineSpacing() * 1.5;
  const QRectF page(0, 0, printer.width(), printer.height());
  const QList<QRectF> squares = gridSquares(perPage, page, captionHeight);
  for (qsizetype i = 0; i < grids.size(); ++i) {
    const qsizetype slot = i % perPage;
    if (i > 0 && slot == 0) printer.newPage();
    const QRectF& square = squares[slot];
    const QRectF caption(square.left(), square.top() - captionHeight, square.width(), metrics.lineSpacing());
    painter.drawText(caption, Qt::AlignLeft | Qt::AlignBottom, grids[i].caption);
    drawGrid(painter, square, grids[i].cells);
  }
  return painter.end();
}

}  // namespace tessaly
