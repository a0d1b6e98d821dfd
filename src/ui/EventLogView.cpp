#include "ui/EventLogView.h"

#include <QAccessible>
#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QPainter>
#include <QScrollBar>
#include <algorithm>
#include <array>
#include <cstdint>
#include <string_view>

#include "model/EventLog.h"
#include "model/Text.h"
#include "ui/Accessibility.h"
#include "ui/FlatScrollBarStyle.h"
#include "ui/Metrics.h"
#include "ui/ObjectNames.h"

namespace tessaly {

namespace {

constexpr int kMargin = 4;  ///< pixels left of the text

}  // namespace

EventLogView::EventLogView(const EventLog& log, QWidget* parent) : QAbstractScrollArea(parent), m_log(log) {
  setObjectName(names::EventLogx);
  setTextScale(1.0);
  setFocusPolicy(Qt::StrongFocus);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
  QPalette colours = viewport()->palette();
  colours.setColor(QPalette::Base, Qt::white);
  viewport()->setPalette(colours);
  viewport()->setBackgroundRole(QPalette::Base);
  viewport()->setAutoFillBackground(true);
  verticalScrollBar()->setSingleStep(1);
  auto* flat = new FlatScrollBarStyle;
  flat->setParent(this);  // a widget does not own the style it is given
  verticalScrollBar()->setStyle(flat);
  setAccessibleName("Event log");
  installAccessibility();
  measureFont();
}

void EventLogView::setTextScale(double scale) {
  m_textScale = scale;
  QFont font("Arial");
  font.setPointSizeF(QApplication::font().pointSizeF() > 0 ? QApplication::font().pointSizeF() : 10.0);
  setFont(scaledFont(font, scale));
}

void EventLogView::measureFont() {
  const QFontMetrics metrics = fontMetrics();
  for (std::size_t c = 0; c < m_asciiAdvance.size(); ++c) m_asciiAdvance[c] = metrics.horizontalAdvance(QChar(int(c)));
  m_widestAscii = *std::max_element(m_asciiAdvance.begin(), m_asciiAdvance.end());
}

int EventLogView::advance(QChar ch) const {
  return ch.unicode() < m_asciiAdvance.size() ? m_asciiAdvance[ch.unicode()] : fontMetrics().horizontalAdvance(ch);
}

QColor EventLogView::styleColour(int style) {
  static const std::array<QColor, 16> kPalette = {
      QColor(0, 0, 0),       QColor(0, 0, 128),     QColor(0, 128, 0),     QColor(0, 128, 128),
      QColor(128, 0, 0),     QColor(128, 0, 128),   QColor(128, 128, 0),   QColor(192, 192, 192),
      QColor(128, 128, 128), QColor(0, 0, 255),     QColor(0, 255, 0),     QColor(0, 255, 255),
      QColor(255, 0, 0),     QColor(255, 0, 255),   QColor(255, 255, 0),   QColor(255, 255, 255)};
  return style >= 0 && style < int(kPalette.size()) ? kPalette[std::size_t(style)] : kPalette[0];
}

void EventLogView::syncWithLog(bool verify) {
  const int total = m_log.TotalLines();
  const int known = TotalLines();
  bool restart = total < known;
  if (!restart && known > 0) restart = m_lines.back() != m_log.line(known);
  for (int n = 1; verify && !restart && n < known; ++n) restart = m_lines[std::size_t(n - 1)] != m_log.line(n);
  if (restart) clearView();
  if (!restart && total == known) return;
  const int first = TotalLines() + 1, position = m_characters;
  for (int n = first; n <= total; ++n) appendLine(m_log.line(n));
  updateScrollRange(true);
  viewport()->update();
  if (!accessibilityListens()) return;
  if (restart) {
    QAccessibleEvent reorder(this, QAccessible::ObjectReorder);
    tellAccessibility(reorder);
  }
  // One event for what this sync brought, however many lines: a stepped run
  // syncs at each pause, so a screen reader reads a step's lines at once, and
  // a run without pauses does not flood it.
  if (first > total) return;
  QStringList added;
  for (int n = first; n <= total; ++n) added << lineText(n);
  const QString inserted = (first > 1 ? QStringLiteral("\n") : QString()) + added.join('\n');
  QAccessibleTextInsertEvent insert(this, position, inserted);
  tellAccessibility(insert);
}

void EventLogView::tellSelection() {
  if (!accessibilityListens()) return;
  QAccessibleEvent event(this, QAccessible::SelectionWithin);
  tellAccessibility(event);
  if (m_selectionAnchor < 0 || m_selectionAnchor != m_selectionEnd) return;
  // The line alone: a screen reader reads the line replayed.
  QAccessibleInterface* log = QAccessible::queryAccessibleInterface(this);
  if (QAccessibleInterface* line = log ? log->child(m_selectionAnchor) : nullptr) {
    QAccessibleEvent selected(line, QAccessible::Selection);
    tellAccessibility(selected);
  }
}

bool EventLogView::isLineSelected(int n) const {
  if (m_selectionAnchor < 0) return false;
  return n - 1 >= std::min(m_selectionAnchor, m_selectionEnd) && n - 1 <= std::max(m_selectionAnchor, m_selectionEnd);
}

void EventLogView::clearView() {
  m_lines.clear();
  m_rows.clear();
  m_selectionAnchor = m_selectionEnd = -1;
  m_characters = 0;
  ++m_restarts;
}

void EventLogView::appendLine(const LogLine& line) {
  if (!m_lines.empty()) ++m_characters;  // the line break before it
  const bool ascii = std::all_of(line.text.begin(), line.text.end(), [](char c) { return (unsigned char)c < 128; });
  m_characters += ascii ? int(line.text.size()) : int(QString::fromStdString(line.text).size());
  m_lines.push_back(line);
  wrapLine(int(m_lines.size()) - 1);
}

QString EventLogView::textOf(int index) const {
  const std::string& text = m_lines[std::size_t(index)].text;
  return QString::fromUtf8(text.data(), qsizetype(text.size()));
}

int EventLogView::wrapWidth() const { return std::max(1, viewport()->width() - 2 * kMargin); }

int EventLogView::rowHeight() const { return std::max(1, fontMetrics().lineSpacing()); }

namespace {

// Greedy word wrap of `text` into rows of at most `width` pixels: break after
// the last blank that fits, or inside a word that is wider than the whole row.
// Calls row(start, length) for each row, in characters of `text`.
template <typename Text, typename Advance, typename Row>
void wrapText(const Text& text, int width, Advance advance, Row row) {
  const int length = int(text.size());
  if (length == 0) return row(0, 0);
  for (int start = 0; start < length;) {
    int end = start, lastBreak = -1, used = 0;
    for (int i = start; i < length; ++i) {
      used += advance(text[i]);
      if (used > width && i > start) break;
      end = i + 1;
      if (text[i] == ' ') lastBreak = i + 1;
    }
    if (end < length && lastBreak > start) end = lastBreak;
    row(start, end - start);
    start = end;
  }
}

}  // namespace

void EventLogView::wrapLine(int index) {
  const std::string_view bytes = m_lines[std::size_t(index)].text;
  const int width = m_wrapWidth > 0 ? m_wrapWidth : wrapWidth();
  const auto row = [this, index](int start, int length) { m_rows.push_back(Row{index, start, length}); };
  // The log is ASCII but for names the user chose; an ASCII line is measured
  // byte by byte from the table, and most lines fit without measuring at all.
  const bool ascii = std::all_of(bytes.begin(), bytes.end(), [](char c) { return (unsigned char)c < 128; });
  if (!ascii) return wrapText(textOf(index), width, [this](QChar c) { return advance(c); }, row);
  if (std::int64_t(bytes.size()) * m_widestAscii <= width) return row(0, int(bytes.size()));
  wrapText(bytes, width, [this](char c) { return m_asciiAdvance[std::size_t(c)]; }, row);
}

void EventLogView::rewrap() {
  m_wrapWidth = wrapWidth();
  m_rows.clear();
  for (int i = 0; i < int(m_lines.size()); ++i) wrapLine(i);
}

int EventLogView::LinesPerPage() const { return std::max(1, viewport()->height() / rowHeight()); }

void EventLogView::updateScrollRange(bool toBottom) {
  QScrollBar* bar = verticalScrollBar();
  const bool atBottom = bar->value() >= bar->maximum();
  bar->setPageStep(LinesPerPage());
  bar->setRange(0, std::max(0, int(m_rows.size()) - LinesPerPage()));
  if (toBottom || atBottom) bar->setValue(bar->maximum());
}

int EventLogView::firstVisibleLine() const {
  const int row = verticalScrollBar()->value();
  return row < int(m_rows.size()) ? m_rows[std::size_t(row)].line + 1 : 0;
}

int EventLogView::lastVisibleLine() const {
  if (m_rows.empty()) return 0;
  const int row = std::min(int(m_rows.size()), verticalScrollBar()->value() + LinesPerPage()) - 1;
  return m_rows[std::size_t(row)].line + 1;
}

int EventLogView::lineAt(const QPoint& point) const {
  if (m_rows.empty()) return -1;
  const int row = std::clamp(verticalScrollBar()->value() + point.y() / rowHeight(), 0, int(m_rows.size()) - 1);
  return m_rows[std::size_t(row)].line;
}

void EventLogView::paintEvent(QPaintEvent*) {
  QPainter painter(viewport());
  const QFontMetrics metrics = fontMetrics();
  const int height = rowHeight();
  const int first = std::min(m_selectionAnchor, m_selectionEnd);
  const int last = std::max(m_selectionAnchor, m_selectionEnd);
  int y = 0;
  for (int r = verticalScrollBar()->value(); r < int(m_rows.size()) && y < viewport()->height(); ++r, y += height) {
    const Row& row = m_rows[std::size_t(r)];
    const Line& line = m_lines[std::size_t(row.line)];
    const bool selected = first >= 0 && row.line >= first && row.line <= last;
    if (selected) {
      painter.fillRect(0, y, viewport()->width(), height, palette().color(QPalette::Highlight));
      painter.setPen(palette().color(QPalette::HighlightedText));
    } else {
      painter.setPen(styleColour(line.style));
    }
    painter.drawText(kMargin, y + metrics.ascent(), textOf(row.line).mid(row.start, row.length));
  }
  if (hasFocus()) {
    // The keyboard is here: the same dashed frame as the board's.
    painter.setPen(QPen(palette().color(QPalette::Highlight), 1, Qt::DashLine));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(viewport()->rect().adjusted(0, 0, -1, -1));
  }
}

void EventLogView::focusInEvent(QFocusEvent* event) {
  QAbstractScrollArea::focusInEvent(event);
  viewport()->update();
}

void EventLogView::focusOutEvent(QFocusEvent* event) {
  QAbstractScrollArea::focusOutEvent(event);
  viewport()->update();
}

void EventLogView::resizeEvent(QResizeEvent* event) {
  QAbstractScrollArea::resizeEvent(event);
  if (wrapWidth() != m_wrapWidth) rewrap();
  updateScrollRange(false);
}

void EventLogView::changeEvent(QEvent* event) {
  QAbstractScrollArea::changeEvent(event);
  if (event->type() == QEvent::FontChange) {
    measureFont();
    rewrap();
    updateScrollRange(false);
  }
}

void EventLogView::mousePressEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return QAbstractScrollArea::mousePressEvent(event);
  const int line = lineAt(event->position().toPoint());
  if (!(event->modifiers() & Qt::ShiftModifier) || m_selectionAnchor < 0) m_selectionAnchor = line;
  m_selectionEnd = line;
  viewport()->update();
  tellSelection();
  if (line >= 0 && !(event->modifiers() & Qt::ShiftModifier)) emit lineClicked(line + 1);
}

void EventLogView::mouseMoveEvent(QMouseEvent* event) {
  if (!(event->buttons() & Qt::LeftButton) || m_selectionAnchor < 0) return;
  m_selectionEnd = lineAt(event->position().toPoint());
  viewport()->update();
}

QString EventLogView::selectedText() const {
  if (m_selectionAnchor < 0 || m_lines.empty()) return QString();
  const int first = std::max(0, std::min(m_selectionAnchor, m_selectionEnd));
  const int last = std::min(int(m_lines.size()) - 1, std::max(m_selectionAnchor, m_selectionEnd));
  QStringList texts;
  for (int i = first; i <= last; ++i) texts << textOf(i);
  return texts.join('\n');
}

void EventLogView::selectAll() {
  if (m_lines.empty()) return;
  m_selectionAnchor = 0;
  m_selectionEnd = int(m_lines.size()) - 1;
  viewport()->update();
  tellSelection();
}

int EventLogView::firstRow(int index) const {
  const auto row = std::lower_bound(m_rows.begin(), m_rows.end(), index,
                                    [](const Row& r, int line) { return r.line < line; });
  return int(row - m_rows.begin());
}

void EventLogView::selectLine(int n) {
  if (n < 1 || n > TotalLines()) {
    const bool had = m_selectionAnchor >= 0;
    m_selectionAnchor = m_selectionEnd = -1;
    viewport()->update();
    if (had) tellSelection();
    return;
  }
  const bool same = m_selectionAnchor == n - 1 && m_selectionEnd == n - 1;
  m_selectionAnchor = m_selectionEnd = n - 1;
  if (!same) tellSelection();
  QScrollBar* bar = verticalScrollBar();
  const int top = firstRow(n - 1), bottom = firstRow(n);
  if (top < bar->value())
    bar->setValue(top);
  else if (bottom > bar->value() + LinesPerPage())
    bar->setValue(bottom - LinesPerPage());
  viewport()->update();
}

QRect EventLogView::lineRect(int n) const {
  const int row = firstRow(n - 1);
  if (n < 1 || row >= int(m_rows.size())) return {};
  const int visibleRow = row - verticalScrollBar()->value();
  if (visibleRow < 0 || visibleRow >= LinesPerPage()) return {};
  return QRect(0, visibleRow * rowHeight(), viewport()->width(), rowHeight());
}

void EventLogView::copy() {
  if (m_selectionAnchor < 0) selectAll();
  QApplication::clipboard()->setText(selectedText());
}

void EventLogView::keyPressEvent(QKeyEvent* event) {
  QScrollBar* bar = verticalScrollBar();
  if (event->matches(QKeySequence::Copy)) return copy();
  if (event->matches(QKeySequence::SelectAll)) return selectAll();
  switch (event->key()) {
    case Qt::Key_Up: return bar->triggerAction(QAbstractSlider::SliderSingleStepSub);
    case Qt::Key_Down: return bar->triggerAction(QAbstractSlider::SliderSingleStepAdd);
    case Qt::Key_PageUp: return bar->triggerAction(QAbstractSlider::SliderPageStepSub);
    case Qt::Key_PageDown: return bar->triggerAction(QAbstractSlider::SliderPageStepAdd);
    case Qt::Key_Home: return bar->triggerAction(QAbstractSlider::SliderToMinimum);
    case Qt::Key_End: return bar->triggerAction(QAbstractSlider::SliderToMaximum);
    default: QAbstractScrollArea::keyPressEvent(event);
  }
}

void EventLogView::contextMenuEvent(QContextMenuEvent* event) {
  QMenu menu(this);
  menu.addAction(tr("Copy"), this, &EventLogView::copy);
  menu.addAction(tr("Select All"), this, &EventLogView::selectAll);
  menu.exec(event->globalPos());
}

}  // namespace tessaly
