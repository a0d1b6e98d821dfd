#pragma once
// A scroll bar drawn flat: a plain groove, a plain handle and the style's own
// arrows. The event log's scroll bar changes with every run, and the style's
// shaded groove and handle, as tall as the log, cost more to draw than the
// lines of the log themselves. Sizes and hit-testing stay the style's.

#include <QProxyStyle>

namespace tessaly {

class FlatScrollBarStyle : public QProxyStyle {
  Q_OBJECT

 public:
  using QProxyStyle::QProxyStyle;

  void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                          const QWidget* widget = nullptr) const override;
};

}  // namespace tessaly
