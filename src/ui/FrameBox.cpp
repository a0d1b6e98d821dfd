#include "ui/FrameBox.h"

#include <QPainter>
#include <QStyleOptionGroupBox>

namespace tessaly {

FrameBox::FrameBox(const QString& title, QWidget* parent) : QGroupBox(title, parent) {}

bool FrameBox::opaqueBackground() const {
  const QBrush& background = palette().brush(backgroundRole());
  return autoFillBackground() && background.style() == Qt::SolidPattern && background.isOpaque();
}

void FrameBox::paintEvent(QPaintEvent*) {
  QStyleOptionGroupBox option;
  initStyleOption(&option);
  const qreal ratio = devicePixelRatioF();
  // Everything the style reads from the option, and the style itself.
  const QString key = QStringLiteral("%1x%2|%3|%4|%5|%6|%7|%8|%9|%10")
                          .arg(option.rect.width())
                          .arg(option.rect.height())
                          .arg(ratio)
                          .arg(int(option.state))
                          .arg(option.text)
                          .arg(int(option.features) * 1000 + int(option.subControls))
                          .arg(int(option.textAlignment) * 1000 + int(option.activeSubControls))
                          .arg(option.palette.cacheKey() ^ quint64(option.textColor.rgba()))
                          .arg(font().key() + style()->objectName() + QString::number(quintptr(style())))
                          .arg(opaqueBackground() ? palette().color(backgroundRole()).rgba() : 0u);
  if (key != m_drawingKey) {
    m_drawing = QPixmap(option.rect.size() * ratio);
    m_drawing.setDevicePixelRatio(ratio);
    // Over a background of its own the drawing is opaque, and copying it is
    // a plain copy of rows instead of a blend of every pixel.
    if (opaqueBackground())
      m_drawing.fill(palette().color(backgroundRole()));
    else
      m_drawing.fill(Qt::transparent);
    QPainter painter(&m_drawing);
    painter.setFont(font());
    painter.setPen(palette().color(foregroundRole()));
    painter.setLayoutDirection(layoutDirection());
    style()->drawComplexControl(QStyle::CC_GroupBox, &option, &painter, this);
    m_drawingKey = key;
  }
  // The painter is clipped to what needs drawing; only that part is copied.
  QPainter painter(this);
  painter.drawPixmap(0, 0, m_drawing);
}

}  // namespace tessaly
