#include "ui/WidgetColours.h"

#include <QWidget>

#include "ui/ColourScheme.h"

namespace tessaly {

namespace {
constexpr int kDarkBelow = 128;  ///< HSL lightness under which a background counts as dark
}

QColor qcolor(const Rgb& colour) { return QColor(colour.red, colour.green, colour.blue); }

void paintBackground(QWidget* widget, const Rgb& colour) {
  const QColor back = qcolor(colour);
  widget->setAutoFillBackground(true);
  if (widget->palette().color(QPalette::Window) == back) return;
  QPalette palette = widget->palette();
  palette.setColor(QPalette::Window, back);
  palette.setColor(QPalette::WindowText, back.lightness() < kDarkBelow ? Qt::white : Qt::black);
  widget->setPalette(palette);
}

}  // namespace tessaly
