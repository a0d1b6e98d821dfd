#pragma once
// Prints the text report (puzzle, solution and optionally the event log) on a
// printer or into a PDF file, in a fixed-pitch font under a header line.

#include <QString>

class QPrinter;

namespace tessaly {

class ReportPrinter {
 public:
  static constexpr int kFontPoints = 10;

  /// Draws the header line, an empty line and the report's lines (CR LF or LF
  /// ended), going on to a new page only when a page is full. False when the
  /// printer could not be started.
  static bool print(QPrinter& printer, const QString& header, const QString& report);
};

}  // namespace tessaly
