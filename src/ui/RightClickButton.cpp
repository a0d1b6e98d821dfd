#include "ui/RightClickButton.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <utility>

namespace tessaly {

RightClickButton::RightClickButton(const QString& text, QWidget* parent) : QPushButton(text, parent) {
  // A left click, or the keyboard, releases the button as the left button.
  connect(this, &QPushButton::clicked, this, [this] { emit released(Qt::LeftButton); });
}

void RightClickButton::mousePressEvent(QMouseEvent* event) {
  if (event->button() == Qt::RightButton) {
    // Taken here so that the release comes back to this button.
    m_rightDown = true;
    event->accept();
    return;
  }
  QPushButton::mousePressEvent(event);
}

void RightClickButton::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() != Qt::RightButton) return QPushButton::mouseReleaseEvent(event);
  event->accept();
  const bool wasDown = std::exchange(m_rightDown, false);
  if (wasDown && rect().contains(event->position().toPoint()) && isEnabled()) emit released(Qt::RightButton);
}

bool isContextMenuKey(const QKeyEvent* event) {
  return event->key() == Qt::Key_Menu ||
         (event->key() == Qt::Key_F10 && (event->modifiers() & ~Qt::KeypadModifier) == Qt::ShiftModifier);
}

void RightClickButton::keyPressEvent(QKeyEvent* event) {
  if (!isContextMenuKey(event)) return QPushButton::keyPressEvent(event);
  event->accept();
  if (isEnabled()) emit released(Qt::RightButton);
}

}  // namespace tessaly
