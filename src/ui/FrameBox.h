#pragma once
// A group box that keeps its drawing. The style draws a group box's frame as a
// shaded picture stretched over the whole box, and a box is drawn again under
// every child that changes, since its children are see-through: under the
// candidate display that happens after every step of a run, and cost more
// than the display itself. The drawing is made once per size, title, state
// and palette, and copied from then on.

#include <QGroupBox>
#include <QPixmap>
#include <QString>

namespace tessaly {

class FrameBox : public QGroupBox {
  Q_OBJECT

 public:
  explicit FrameBox(const QString& title = QString(), QWidget* parent = nullptr);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  /// Whether the box fills its background with one opaque colour.
  bool opaqueBackground() const;

  QPixmap m_drawing;
  QString m_drawingKey;  ///< what m_drawing was drawn for
};

}  // namespace tessaly
