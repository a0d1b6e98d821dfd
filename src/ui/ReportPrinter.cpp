#include "ui/ReportPrinter.h"

#include <algorithm>

#include <QFontDatabase>
#include <QFontMetrics>
#include <QPainter>
#include <QPrinter>
#include <QRegularExpression>
#include <QTextLayout>

namespace tessaly {

namespace {

QFont reportFont() {
  QFont font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
  font.setPointSize(ReportPrinter::kFontPoints);
  return font;
}

}  // namespace

QStringList ReportPrinter::wrap(const QString& line, const QFont& font, QPaintDevice* device, int width) {
  if (line.isEmpty()) return {line};
  QTextLayout layout(line, font, device);
  QTextOption option;
  option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
  layout.setTextOption(option);
  QStringList rows;
  layout.beginLayout();
  for (QTextLine row = layout.createLine(); row.isValid(); row = layout.createLine()) {
    row.setLineWidth(width);
    rows << line.mid(row.textStart(), row.textLength());
  }
  layout.endLayout();
  return rows;
}

QList<QStringList> ReportPrinter::layOut(const QString& header, const QString& report, const QFont& font,
                                         QPaintDevice* device, int width, int height) {
  QStringList lines = report.split(QRegularExpression("\r?\n"));
  if (!lines.isEmpty() && lines.last().isEmpty()) lines.removeLast();
  lines.prepend(QString());
  lines.prepend(header);

  const int lineHeight = QFontMetrics(font, device).lineSpacing();
  const int rowsPerPage = std::max(1, height / std::max(1, lineHeight));
  QList<QStringList> pages(1);
  for (const QString& line : lines)
    for (const QString& row : wrap(line, font, device, width)) {
      if (pages.last().size() >= rowsPerPage) pages.append(QStringList());
      pages.last() << row;
    }
  return pages;
}

bool ReportPrinter::print(QPrinter& printer, const QString& header, const QString& report) {
  const QFont font = reportFont();
  const QList<QStringList> pages = layOut(header, report, font, &printer, printer.width(), printer.height());
  QPainter painter;
  if (!painter.begin(&printer)) return false;
  painter.setFont(font);
  const QFontMetrics metrics(font, &printer);
  for (qsizetype page = 0; page < pages.size(); ++page) {
    if (page > 0) printer.newPage();
    int y = 0;
    for (const QString& row : pages[page]) {
      painter.drawText(0, y + metrics.ascent(), row);
      y += metrics.lineSpacing();
    }
  }
  return painter.end();
}

}  // namespace tessaly
