#include "ui/Metrics.h"

#include <algorithm>

#include <QApplication>
#include <QFontDatabase>
#include <QLabel>
#include <QLineEdit>
#include <QStyle>
#include <QStyleOptionFrame>

namespace tessaly {

namespace {
constexpr int kTextMargin = 2;  ///< a line edit's own margin on each side of its text

/// The family pinFixedFamily named, or empty for the desktop's.
QString& pinnedFixedFamily() {
  static QString family;
  return family;
}
}

int numberBoxWidth(const QLineEdit* box, int characters) {
  QStyleOptionFrame option;
  option.initFrom(box);
  option.lineWidth = box->hasFrame() ? box->style()->pixelMetric(QStyle::PM_DefaultFrameWidth, &option, box) : 0;
  const QFontMetrics metrics = box->fontMetrics();
  const int digits = metrics.horizontalAdvance(QString(characters, QLatin1Char('0')));
  const QSize text(digits + 2 * kTextMargin, metrics.height());
  return box->style()->sizeFromContents(QStyle::CT_LineEdit, &option, text, box).width();
}

void reserveLines(QLabel* label, int lines) {
  // Wrapped text takes a little more than its lines: the layout of a wrapped
  // label keeps a few pixels of its own above and below.
  const QFontMetrics metrics = label->fontMetrics();
  const QMargins margins = label->contentsMargins();
  label->setMinimumHeight(metrics.lineSpacing() * lines + metrics.height() / 3 + margins.top() + margins.bottom() +
                          2 * label->margin());
}

QFont scaledFont(QFont font, double scale) {
  if (font.pointSizeF() > 0)
    font.setPointSizeF(font.pointSizeF() * scale);
  else if (font.pixelSize() > 0)
    font.setPixelSize(std::max(1, int(font.pixelSize() * scale + 0.5)));
  return font;
}

QFont fixedFont() {
  QFont font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
  if (const QString& family = pinnedFixedFamily(); !family.isEmpty()) {
    font.setFamily(family);
    font.setPointSizeF(QApplication::font().pointSizeF());
  }
  return font;
}

void pinFixedFamily(const QString& family) { pinnedFixedFamily() = family; }

}  // namespace tessaly
