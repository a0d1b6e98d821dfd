#include "ui/ReportPrinter.h"

#include <QFontDatabase>
#include <QFontMetrics>
#include <QPainter>
#include <QPrinter>
#include <QRegularExpression>

namespace tessaly {

bool ReportPrinter::print(QPrinter& printer, const QString& header, const QString& report) {
  QPainter painter;
  if (!painter.begin(&printer)) return false;
  QFont font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
  font.setPointSize(kFontPoints);
  painter.setFont(font);
  const QFontMetrics metrics(font, &printer);
  const int lineHeight = metrics.lineSpacing();
  const int pageHeight = printer.height();

  QStringList lines = report.split(QRegularExpression("\r?\n"));
  if (!lines.isEmpty() && lines.last().isEmpty()) lines.removeLast();
  lines.prepend(QString());
  lines.prepend(header);

  int y = 0;
  for (const QString& line : lines) {
    if (y + lineHeight > pageHeight && y > 0) {
      printer.newPage();
      y = 0;
    }
    painter.drawText(0, y + metrics.ascent(), line);
    y += lineHeight;
  }
  return painter.end();
}

}  // namespace tessaly
