#pragma once
// Prints the text report (puzzle, solution and optionally the event log) on a
// printer or into a PDF file, in a fixed-pitch font under a header line.

#include <QList>
#include <QString>
#include <QStringList>

class QFont;
class QPaintDevice;
class QPrinter;

namespace tessaly {

class ReportPrinter {
 public:
  static constexpr int kFontPoints = 10;

  /// Draws the header line, an empty line and the report's lines (CR LF or LF
  /// ended), going on to a new page only when a page is full. A line wider than
  /// the page goes on in the rows below it, broken after a blank where it can
  /// be. False when the printer could not be started.
  static bool print(QPrinter& printer, const QString& header, const QString& report);

  /// The rows of each page as print draws them, for a page `width` by `height`
  /// pixels of `device` in `font`.
  static QList<QStringList> layOut(const QString& header, const QString& report, const QFont& font,
                                   QPaintDevice* device, int width, int height);

  /// The rows one line takes in `font` on `device` for rows `width` pixels
  /// wide; put back together they give the line unchanged.
  static QStringList wrap(const QString& line, const QFont& font, QPaintDevice* device, int width);
};

}  // namespace tessaly
