#pragma once
// Scheme colours on widgets.

#include <QColor>

class QWidget;

namespace tessaly {

struct Rgb;

QColor qcolor(const Rgb& colour);

/// Fills the widget's background with the colour; its captions turn white on a
/// dark background and black on a light one, so they stay readable.
void paintBackground(QWidget* widget, const Rgb& colour);

}  // namespace tessaly
