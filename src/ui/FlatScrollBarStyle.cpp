#include "ui/FlatScrollBarStyle.h"

#include <QPainter>
#include <QStyleOptionSlider>
#include <utility>

namespace tessaly {

void FlatScrollBarStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                                            QPainter* painter, const QWidget* widget) const {
  const auto* bar = qstyleoption_cast<const QStyleOptionSlider*>(option);
  if (control != CC_ScrollBar || !bar) return QProxyStyle::drawComplexControl(control, option, painter, widget);
  const QPalette& colours = bar->palette;
  painter->fillRect(bar->rect, colours.color(QPalette::Window));
  const QRect handle = subControlRect(CC_ScrollBar, bar, SC_ScrollBarSlider, widget);
  if (bar->maximum > bar->minimum && handle.isValid()) {
    const bool held = (bar->state & State_Sunken) && (bar->activeSubControls & SC_ScrollBarSlider);
    painter->fillRect(handle.adjusted(2, 1, -2, -1), colours.color(held ? QPalette::Highlight : QPalette::Mid));
  }
  const bool vertical = bar->orientation == Qt::Vertical;
  const std::pair<SubControl, PrimitiveElement> arrows[] = {
      {SC_ScrollBarSubLine, vertical ? PE_IndicatorArrowUp : PE_IndicatorArrowLeft},
      {SC_ScrollBarAddLine, vertical ? PE_IndicatorArrowDown : PE_IndicatorArrowRight}};
  for (const auto& [part, arrow] : arrows) {
    const QRect place = subControlRect(CC_ScrollBar, bar, part, widget);
    if (!place.isValid()) continue;
    QStyleOption arrowOption = *bar;
    arrowOption.rect = place;
    proxy()->drawPrimitive(arrow, &arrowOption, painter, widget);
  }
}

}  // namespace tessaly
