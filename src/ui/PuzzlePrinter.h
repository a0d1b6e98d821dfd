#pragma once
// Prints puzzles as a person solves them on paper: each grid large and
// square, thin lines between the cells and thick ones round the boxes, the
// digits centred, a caption above. One puzzle to a page (with its solution on
// a page of its own when asked), or 2, 4 or 6 to a page for a class.

#include <QList>
#include <QRectF>
#include <QString>
#include <array>
#include <string>

class QPainter;
class QPrinter;

namespace tessaly {

/// One grid to print: its caption and its 81 cells (a digit, or "." / "0" for a blank).
struct PrintedGrid {
  QString caption;
  std::string cells;
};

class PuzzlePrinter {
 public:
  /// The numbers of grids a page may hold.
  static constexpr std::array<int, 4> kPerPage{1, 2, 4, 6};
  /// The columns and rows of grids on a page holding `perPage` of them.
  static QSize arrangement(int perPage);
  /// The square of each grid on a page `page` big, in reading order, each
  /// with room for a caption `captionHeight` high above it.
  static QList<QRectF> gridSquares(int perPage, const QRectF& page, qreal captionHeight);
  /// Draws one grid into `square`.
  static void drawGrid(QPainter& painter, const QRectF& square, const std::string& cells);
  /// Prints the grids, `perPage` (1, 2, 4 or 6) to a page. False when the
  /// printer could not be started.
  static bool print(QPrinter& printer, const QList<PrintedGrid>& grids, int perPage);
};

}  // namespace tessaly
