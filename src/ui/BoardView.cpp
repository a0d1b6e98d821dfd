#include "ui/BoardView.h"

#include <QAccessible>
#include <QApplication>
#include <QFocusEvent>
#include <QGuiApplication>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QPixmap>
#include <QToolTip>
#include <qdrawutil.h>

#include <algorithm>
#include <utility>

#include "ui/Accessibility.h"
#include "ui/Metrics.h"

namespace tessaly {

namespace {

constexpr int kSide = 3;  ///< cells a box side, boxes a board side
/// The smallest cell the view draws, whatever room it gets.
constexpr int kSmallestCell = 8;

// Everything but the cells is measured in parts of a cell side, so the board
// keeps its looks at every size.
int cellGap(int side) { return std::max(1, side / 16); }
int boxPadding(int side) { return std::max(3, side / 6); }
int boxSpacing(int side) { return std::max(3, side / 6); }
int countWidth(int side) { return std::max(8, side / 2); }
int boxSide(int side) { return kSide * side + (kSide - 1) * cellGap(side) + 2 * boxPadding(side); }
constexpr int kMargin = 2;  ///< around the whole board, room for the focus frame

}  // namespace

BoardView::BoardView(Kind kind, QWidget* parent) : QWidget(parent), m_kind(kind) {
  setMouseTracking(true);
  // The board paints its own background, and only under the boxes: the rest of
  // the widget shows what lies behind it.
  setAutoFillBackground(false);
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
  // The value grid takes the keyboard (the digits and arrows of manual play);
  // the candidate display only answers the pointer.
  setFocusPolicy(kind == Kind::Values ? Qt::StrongFocus : Qt::NoFocus);
  installAccessibility();
  layOut();
}

void BoardView::tellAbout(int index, int type) const {
  if (!accessibilityListens()) return;
  QAccessibleInterface* view = QAccessible::queryAccessibleInterface(const_cast<BoardView*>(this));
  QAccessibleInterface* child = view ? view->child(index) : nullptr;
  if (!child) return;
  QAccessibleEvent event(child, QAccessible::Event(type));
  tessaly::tellAccessibility(event);
}

void BoardView::setCellState(int index, const CellState& state) {
  CellState& known = m_states.at(std::size_t(index));
  if (known == state) return;
  known = state;
  tellAbout(index, QAccessible::NameChanged);
}

void BoardView::setCurrentCell(int index) {
  if (index < 0 || index >= int(m_cells.size())) return;
  ++m_currentMoves;
  if (std::exchange(m_current, index) == index) return;
  if (hasFocus()) tellAbout(index, QAccessible::Focus);
}

void BoardView::setCell(int index, const Look& look) {
  Look& shown = m_cells.at(std::size_t(index));
  if (shown == look) return;
  shown = look;
  changed(m_cellRects[std::size_t(index)]);
}

void BoardView::changed(const QRect& rect) {
  if (m_batches == 0) return update(rect);
  m_changed |= rect;
}

BoardView::Batch::~Batch() {
  if (--m_view.m_batches > 0 || m_view.m_changed.isEmpty()) return;
  m_view.update(m_view.m_changed);
  m_view.m_changed = QRect();
}

void BoardView::setCount(int box, const QString& text) {
  QString& shown = m_counts.at(std::size_t(box));
  if (shown == text) return;
  shown = text;
  changed(m_countRects[std::size_t(box)]);
  tellAbout(int(m_cells.size()) + box, QAccessible::NameChanged);
}

void BoardView::setHorizontalAlignment(Qt::Alignment alignment) {
  m_alignment = alignment & Qt::AlignHorizontal_Mask;
  layOut();
  update();
}

void BoardView::setTextScale(double scale) {
  m_textScale = scale;
  // At its own size the view inherits its font, as every widget does.
  setFont(scale == 1.0 ? QFont() : scaledFont(QApplication::font(this), scale));
}

void BoardView::setFrameColour(const QColor& colour) {
  if (colour == m_frameColour) return;
  m_frameColour = colour;
  update(m_boardRect);
}

QSize BoardView::boardSize(int side) const {
  const int boxes = kSide * boxSide(side) + (kSide - 1) * boxSpacing(side);
  const int counts = m_kind == Kind::Candidates ? kSide * countWidth(side) : 0;
  return QSize(boxes + counts + 2 * kMargin, boxes + 2 * kMargin);
}

int BoardView::minimumCellSide() const {
  // A digit of the value grid, or three of the candidate display side by side,
  // must stay readable in the widget's font.
  const QFontMetrics metrics(font());
  return m_kind == Kind::Values ? metrics.height() * 4 / 3 : metrics.horizontalAdvance("999") + 4;
}

QSize BoardView::minimumSizeHint() const { return boardSize(minimumCellSide()); }

QSize BoardView::sizeHint() const { return boardSize(minimumCellSide() * 3 / 2); }

void BoardView::layOut() {
  // The largest cell side for which the whole board fits.
  int side = std::max(kSmallestCell, std::min(width(), height()) / (kSide * kSide));
  while (side > kSmallestCell) {
    const QSize size = boardSize(side);
    if (size.width() <= width() && size.height() <= height()) break;
    --side;
  }
  m_cellSize = side;
  const QSize size = boardSize(side);
  int left = 0;
  if (m_alignment & Qt::AlignRight)
    left = width() - size.width();
  else if (m_alignment & Qt::AlignHCenter)
    left = (width() - size.width()) / 2;
  m_boardRect = QRect(QPoint(std::max(0, left), 0), size);

  const int gap = cellGap(side), padding = boxPadding(side), spacing = boxSpacing(side);
  const int box = boxSide(side), count = m_kind == Kind::Candidates ? countWidth(side) : 0;
  for (int b = 0; b < kSide * kSide; ++b) {
    const int bandCol = b % kSide, bandRow = b / kSide;
    const int x = m_boardRect.left() + kMargin + bandCol * (box + count + spacing);
    const int y = m_boardRect.top() + kMargin + bandRow * (box + spacing);
    m_boxRects[std::size_t(b)] = QRect(x, y, box, box);
    // The count stands beside the box, level with its middle row.
    m_countRects[std::size_t(b)] = QRect(x + box, y + padding + side + gap, count, side);
    for (int i = 0; i < kSide * kSide; ++i) {
      const int row = bandRow * kSide + i / kSide, col = bandCol * kSide + i % kSide;
      m_cellRects[std::size_t(row * 9 + col)] =
          QRect(x + padding + (i % kSide) * (side + gap), y + padding + (i / kSide) * (side + gap), side, side);
    }
  }
  m_cellFont = font();
  m_cellFont.setPixelSize(std::max(4, m_kind == Kind::Values ? side * 3 / 5 : side * 3 / 10));
  m_countFont = font();
  m_countFont.setPixelSize(std::max(4, std::min(side * 9 / 20, count * 4 / 5)));
}

int BoardView::cellAt(const QPoint& point) const {
  for (int i = 0; i < int(m_cellRects.size()); ++i)
    if (m_cellRects[std::size_t(i)].contains(point)) return i;
  return -1;
}

int BoardView::boxFrameAt(const QPoint& point) const {
  if (cellAt(point) >= 0) return -1;
  for (int b = 0; b < int(m_boxRects.size()); ++b)
    if (m_boxRects[std::size_t(b)].contains(point)) return b;
  return -1;
}

// --- drawing

void BoardView::paintEvent(QPaintEvent* event) {
  QPainter painter(this);
  const QRect dirty = event->rect();
  if (m_kind == Kind::Values) painter.fillRect(m_boardRect & dirty, palette().color(QPalette::Window));
  QColor frame = palette().color(QPalette::WindowText);
  frame.setAlpha(160);
  for (const QRect& box : m_boxRects)
    if (box.intersects(dirty)) drawFrame(painter, box, frame);
  const qreal ratio = devicePixelRatioF();
  const QString drawingsFor =
      QStringLiteral("%1|%2|%3|%4").arg(m_cellSize).arg(ratio).arg(palette().cacheKey()).arg(m_cellFont.key());
  if (drawingsFor != m_drawingsFor) {
    m_drawings.clear();
    m_drawingsFor = drawingsFor;
  }
  for (int i = 0; i < int(m_cells.size()); ++i)
    if (m_cellRects[std::size_t(i)].intersects(dirty)) drawCell(painter, i, ratio);
  if (m_kind == Kind::Candidates) {
    painter.setFont(m_countFont);
    painter.setPen(palette().color(QPalette::WindowText));
    for (int b = 0; b < int(m_counts.size()); ++b)
      if (m_countRects[std::size_t(b)].intersects(dirty))
        painter.drawText(m_countRects[std::size_t(b)], Qt::AlignCenter, m_counts[std::size_t(b)]);
  }
  if (m_frameColour.isValid()) {
    // Drawn in the margin around the boxes, where the focus frame also goes.
    painter.setPen(QPen(m_frameColour, kMargin, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(QRectF(m_boardRect).adjusted(kMargin / 2.0, kMargin / 2.0, -kMargin / 2.0, -kMargin / 2.0));
  }
  if (hasFocus()) {
    QPen pen(palette().color(QPalette::Highlight), 1, Qt::DashLine);
    painter.setPen(pen);
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(m_boardRect.adjusted(0, 0, -1, -1));
  }
}

void BoardView::drawFrame(QPainter& painter, const QRect& box, const QColor& colour) {
  // The one-pixel outline of the box, each pixel blended once. The raster
  // engine hands a translucent fill of more than about a hundred rows to its
  // thread pool, and waking those threads costs far more than blending a
  // line; the sides are filled in pieces short enough to stay on this thread.
  constexpr int kRowsAtOnce = 64;
  painter.fillRect(QRect(box.left(), box.top(), box.width(), 1), colour);
  if (box.height() < 2) return;
  painter.fillRect(QRect(box.left(), box.bottom(), box.width(), 1), colour);
  for (int y = box.top() + 1; y < box.bottom(); y += kRowsAtOnce) {
    const int rows = std::min(kRowsAtOnce, box.bottom() - y);
    painter.fillRect(QRect(box.left(), y, 1, rows), colour);
    if (box.width() > 1) painter.fillRect(QRect(box.right(), y, 1, rows), colour);
  }
}

void BoardView::drawCell(QPainter& painter, int index, qreal ratio) const {
  const Look& look = m_cells[std::size_t(index)];
  const QRect rect = m_cellRects[std::size_t(index)];
  // A cell with an opaque background covers its square whole, so its drawing
  // can be copied; a see-through one is drawn over what lies behind it.
  if (!look.back.isValid() || look.back.alpha() != 255) return drawLook(painter, rect, look);
  auto drawn = m_drawings.constFind(look);
  if (drawn == m_drawings.constEnd()) {
    // A board shows few looks over and over; candidate texts can make many.
    constexpr qsizetype kMostDrawings = 1024;
    if (m_drawings.size() >= kMostDrawings) m_drawings.clear();
    QPixmap pixmap(rect.size() * ratio);
    pixmap.setDevicePixelRatio(ratio);
    QPainter cellPainter(&pixmap);
    drawLook(cellPainter, QRect(QPoint(0, 0), rect.size()), look);
    cellPainter.end();
    drawn = m_drawings.insert(look, pixmap);
  }
  painter.drawPixmap(rect.topLeft(), *drawn);
}

void BoardView::drawLook(QPainter& painter, const QRect& rect, const Look& look) const {
  if (look.back.isValid()) painter.fillRect(rect, look.back);
  qDrawShadePanel(&painter, rect, palette(), true, 1);
  if (look.text.isEmpty()) {
    if (m_kind == Kind::Values) drawNotes(painter, rect, look);
    return;
  }
  painter.setPen(look.fore.isValid() ? look.fore : palette().color(QPalette::WindowText));
  if (m_kind == Kind::Candidates) return drawCandidates(painter, rect, look.text);
  QFont font = m_cellFont;
  font.setBold(look.bold);
  painter.setFont(font);
  painter.drawText(rect, Qt::AlignCenter, look.text);
}

void BoardView::drawCandidates(QPainter& painter, const QRect& rect, const QString& digits) const {
  // Each digit keeps its own place, 1 top left to 9 bottom right, so a choice
  // is found at a glance in every cell.
  painter.setFont(m_cellFont);
  const QRect inner = rect.adjusted(1, 1, -1, -1);
  const double third = inner.width() / double(kSide);
  for (const QChar ch : digits) {
    const int d = ch.digitValue();
    if (d < 1 || d > 9) continue;
    const QRectF place(inner.left() + ((d - 1) % kSide) * third, inner.top() + ((d - 1) / kSide) * third, third, third);
    painter.drawText(place, Qt::AlignCenter, QString(ch));
  }
}

void BoardView::drawNotes(QPainter& painter, const QRect& rect, const Look& look) const {
  const QString shown = look.notes + look.struck + look.proposed;
  if (shown.isEmpty()) return;
  // Smaller than the values and in a colour of their own, so notes are never
  // taken for a placed digit or for the program's choices.
  static const QColor kStruck(200, 0, 0), kProposed(0, 130, 0);
  QFont font = m_cellFont;
  font.setPixelSize(std::max(4, m_cellSize * 3 / 10));
  const QRect inner = rect.adjusted(2, 2, -2, -2);
  const double third = inner.width() / double(kSide);
  for (int d = 1; d <= 9; ++d) {
    const QChar ch('0' + d);
    if (!shown.contains(ch)) continue;
    const QRectF place(inner.left() + ((d - 1) % kSide) * third, inner.top() + ((d - 1) / kSide) * third, third, third);
    const bool struck = look.struck.contains(ch), proposed = look.proposed.contains(ch);
    font.setBold(proposed);
    painter.setFont(font);
    painter.setPen(struck ? kStruck : proposed ? kProposed
                                               : (look.notesFore.isValid() ? look.notesFore
                                                                            : palette().color(QPalette::WindowText)));
    painter.drawText(place, Qt::AlignCenter, QString(ch));
    if (struck) painter.drawLine(place.bottomLeft() + QPointF(1, -1), place.topRight() + QPointF(-1, 1));
  }
}

void BoardView::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  layOut();
}

void BoardView::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (event->type() == QEvent::FontChange) {
    layOut();
    updateGeometry();
    update();
  }
}

// --- pointer and keyboard

bool BoardView::event(QEvent* event) {
  if (event->type() == QEvent::ToolTip) {
    const auto* help = static_cast<QHelpEvent*>(event);
    const int index = cellAt(help->pos());
    if (index >= 0) {
      QToolTip::showText(help->globalPos(), cellToolTip(index), this, m_cellRects[std::size_t(index)]);
      return true;
    }
    for (const QRect& count : m_countRects)
      if (m_kind == Kind::Candidates && count.contains(help->pos())) {
        QToolTip::showText(help->globalPos(), kBoxCountHint, this, count);
        return true;
      }
    QToolTip::hideText();
    event->ignore();
    return true;
  }
  return QWidget::event(event);
}

void BoardView::mousePressEvent(QMouseEvent* event) {
  const QPoint point = event->position().toPoint();
  m_pressed = cellAt(point);
  m_pressedBox = m_pressed < 0 ? boxFrameAt(point) : -1;
  event->accept();
}

void BoardView::mouseReleaseEvent(QMouseEvent* event) {
  const int pressed = std::exchange(m_pressed, -1);
  const int pressedBox = std::exchange(m_pressedBox, -1);
  event->accept();
  if (pressed >= 0 && m_kind == Kind::Values) setCurrentCell(pressed);
  if (pressed >= 0)
    emit cellReleased(pressed, event->button());
  else if (pressedBox >= 0 && boxFrameAt(event->position().toPoint()) == pressedBox)
    emit boxFrameClicked(pressedBox);
}

void BoardView::mouseDoubleClickEvent(QMouseEvent* event) {
  // The second press of a double-click: its release still counts as a click.
  m_pressed = cellAt(event->position().toPoint());
  m_pressedBox = -1;
  if (m_pressed >= 0) emit cellDoubleClicked(m_pressed);
  event->accept();
}

void BoardView::mouseMoveEvent(QMouseEvent* event) {
  const int index = cellAt(event->position().toPoint());
  if (index == m_hovered) return;
  m_hovered = index;
  if (index >= 0) emit cellHovered(index);
}

void BoardView::leaveEvent(QEvent* event) {
  m_hovered = -1;
  QWidget::leaveEvent(event);
}

void BoardView::keyPressEvent(QKeyEvent* event) {
  // Keys act when released (keyReleased); the press is taken so that it goes
  // no further.
  if (event->key() == Qt::Key_Tab || event->key() == Qt::Key_Backtab) return QWidget::keyPressEvent(event);
  event->accept();
  if (!event->isAutoRepeat() && event->nativeScanCode())
    m_heldKeys.insert(event->nativeScanCode(), {boardKey(*event, QGuiApplication::platformName()), event->modifiers()});
}

int BoardView::boardKey(const QKeyEvent& event, QStringView platform) {
  const int key = event.key();
  // A digit is taken as it comes; the numeric pad and AltGr's signs are not the row's digits.
  if ((key >= Qt::Key_1 && key <= Qt::Key_9) || (event.modifiers() & (Qt::KeypadModifier | Qt::GroupSwitchModifier)))
    return key;
  // The scan code of the row's "1" key: X keycodes (evdev's plus 8) under X
  // and Wayland, set 1 scan codes under Windows. The row runs 1 to 9 from there.
  quint32 one = 0;
  if (platform == u"xcb" || platform.startsWith(u"wayland"))
    one = 10;
  else if (platform == u"windows")
    one = 2;
  const quint32 code = event.nativeScanCode();
  if (!one || code < one || code > one + 8) return key;
  return Qt::Key_1 + int(code - one);
}

void BoardView::keyReleaseEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Tab || event->key() == Qt::Key_Backtab) return QWidget::keyReleaseEvent(event);
  event->accept();
  if (event->isAutoRepeat()) return;
  const int moves = m_currentMoves;
  // As pressed, when the press was seen: a modifier may have been let go first.
  const auto held = m_heldKeys.constFind(event->nativeScanCode());
  if (event->nativeScanCode() && held != m_heldKeys.constEnd()) {
    const auto [key, modifiers] = *held;
    m_heldKeys.remove(event->nativeScanCode());
    emit keyReleased(key, modifiers);
  } else {
    emit keyReleased(boardKey(*event, QGuiApplication::platformName()), event->modifiers());
  }
  // Whoever heard the key did not move the current cell: the arrows move it
  // here, so that a screen reader can walk the board on every tab.
  if (m_currentMoves != moves) return;
  const int row = m_current / 9, col = m_current % 9;
  switch (event->key()) {
    case Qt::Key_Left: setCurrentCell(row * 9 + std::max(0, col - 1)); break;
    case Qt::Key_Right: setCurrentCell(row * 9 + std::min(8, col + 1)); break;
    case Qt::Key_Up: setCurrentCell(std::max(0, row - 1) * 9 + col); break;
    case Qt::Key_Down: setCurrentCell(std::min(8, row + 1) * 9 + col); break;
    default: break;
  }
}

void BoardView::focusInEvent(QFocusEvent* event) {
  QWidget::focusInEvent(event);
  // The board took the focus; the cell in it is what a screen reader reads.
  tellAbout(m_current, QAccessible::Focus);
  update(m_boardRect);
}

void BoardView::focusOutEvent(QFocusEvent* event) {
  // A key released elsewhere is not heard here.
  m_heldKeys.clear();
  QWidget::focusOutEvent(event);
  update(m_boardRect);
}

}  // namespace tessaly
