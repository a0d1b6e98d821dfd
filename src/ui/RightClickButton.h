#pragma once
// A push button that answers the left and the right mouse button, each when
// the button is released over it. The keyboard (space) counts as the left one,
// the context-menu keys (Menu, Shift+F10) as the right one.

#include <QPushButton>

class QKeyEvent;

namespace tessaly {

/// Menu, or Shift+F10: what a keyboard has for the right mouse button.
bool isContextMenuKey(const QKeyEvent* event);

class RightClickButton : public QPushButton {
  Q_OBJECT

 public:
  explicit RightClickButton(const QString& text, QWidget* parent = nullptr);

 signals:
  /// A press and release of the left or right button over the enabled button.
  void released(Qt::MouseButton button);

 protected:
  void mousePressEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  bool m_rightDown = false;
};

}  // namespace tessaly
