#include "ui/Accessibility.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QPointer>
#include <QStringList>
#include <QTextBoundaryFinder>
#include <QWidget>
#include <QWindow>
#include <utility>
#include <vector>

#include "ui/EventLogView.h"

namespace tessaly {

namespace {

constexpr int kSide = 9;
constexpr int kCells = kSide * kSide;

}  // namespace

QString spokenCellName(int index, const BoardView::CellState& state) {
  QString name = QStringLiteral("Row %1, column %2: ").arg(index / kSide + 1).arg(index % kSide + 1);
  if (state.value > 0) {
    name += QString::number(state.value);
    if (state.given) name += QStringLiteral(", given");
    return name;
  }
  const auto spaced = [](const QString& digits) {
    QStringList each;
    for (const QChar digit : digits) each << QString(digit);
    return each.join(' ');
  };
  name += QStringLiteral("empty");
  if (!state.choices.isEmpty()) name += QStringLiteral(", choices ") + spaced(state.choices);
  if (!state.notes.isEmpty()) name += QStringLiteral(", notes ") + spaced(state.notes);
  return name;
}

QString spokenBoxCount(int box, const QString& count) {
  const QString name = QStringLiteral("Box %1").arg(box + 1);
  if (count.isEmpty()) return name;
  return name + QStringLiteral(": %1 %2 missing").arg(count, count == QStringLiteral("1") ? "digit" : "digits");
}

namespace {

// --- children of a view

/// A child of a view that has no children of its own and no object: one board
/// cell, one log line. It holds the view and its index, and asks the view's own
/// interface for its parent and window.
template <typename View>
class ViewChild : public QAccessibleInterface {
 public:
  ViewChild(View* view, int index) : m_view(view), m_index(index) {}

  QObject* object() const override { return nullptr; }
  QWindow* window() const override {
    const QAccessibleInterface* owner = parent();
    return owner ? owner->window() : nullptr;
  }
  QAccessibleInterface* childAt(int, int) const override { return nullptr; }
  QAccessibleInterface* parent() const override {
    return m_view ? QAccessible::queryAccessibleInterface(m_view.data()) : nullptr;
  }
  QAccessibleInterface* child(int) const override { return nullptr; }
  int childCount() const override { return 0; }
  int indexOfChild(const QAccessibleInterface*) const override { return -1; }

 protected:
  QPointer<View> m_view;
  int m_index;
};

// --- the boards

/// One child of a board: cell 0..80 (a table cell), or a box count after them.
/// It holds no state of its own and reads the view each time it is asked.
class BoardChild : public ViewChild<BoardView>, public QAccessibleTableCellInterface {
 public:
  using ViewChild::ViewChild;

  bool isValid() const override { return !m_view.isNull(); }

  QString text(QAccessible::Text t) const override {
    if (!m_view) return {};
    switch (t) {
      case QAccessible::Name:
        return isCell() ? spokenCellName(m_index, m_view->cellState(m_index))
                        : spokenBoxCount(m_index - kCells, m_view->count(m_index - kCells));
      case QAccessible::Description:
        return isCell() ? QStringLiteral("Cell %1").arg(BoardView::cellToolTip(m_index)) : BoardView::kBoxCountHint;
      default: return {};
    }
  }
  void setText(QAccessible::Text, const QString&) override {}
  QRect rect() const override {
    if (!m_view) return {};
    const QRect local = isCell() ? m_view->cellRect(m_index) : m_view->countRect(m_index - kCells);
    return QRect(m_view->mapToGlobal(local.topLeft()), local.size());
  }
  QAccessible::Role role() const override { return isCell() ? QAccessible::Cell : QAccessible::StaticText; }
  QAccessible::State state() const override {
    QAccessible::State state;
    if (!m_view) return state;
    state.invisible = !m_view->isVisible();
    if (!isCell() || m_view->kind() != BoardView::Kind::Values) return state;
    const bool current = m_view->currentCell() == m_index;
    state.focusable = state.selectable = true;
    state.focused = current && m_view->hasFocus();
    state.selected = current;
    return state;
  }
  void* interface_cast(QAccessible::InterfaceType type) override {
    if (type == QAccessible::TableCellInterface && isCell()) return static_cast<QAccessibleTableCellInterface*>(this);
    return nullptr;
  }

  // --- QAccessibleTableCellInterface
  bool isSelected() const override {
    return m_view && m_view->kind() == BoardView::Kind::Values && m_view->currentCell() == m_index;
  }
  QList<QAccessibleInterface*> columnHeaderCells() const override { return {}; }
  QList<QAccessibleInterface*> rowHeaderCells() const override { return {}; }
  int columnIndex() const override { return m_index % kSide; }
  int rowIndex() const override { return m_index / kSide; }
  int columnExtent() const override { return 1; }
  int rowExtent() const override { return 1; }
  QAccessibleInterface* table() const override { return parent(); }

 private:
  bool isCell() const { return m_index < kCells; }
};

/// A board as a 9 x 9 table. Its children are made once and kept in Qt's
/// register of interfaces while the view lives.
class BoardAccessible : public QAccessibleWidget, public QAccessibleTableInterface {
 public:
  explicit BoardAccessible(BoardView* view) : QAccessibleWidget(view, QAccessible::Table) {
    const int children = kCells + (view->kind() == BoardView::Kind::Candidates ? kSide : 0);
    for (int i = 0; i < children; ++i) {
      auto* child = new BoardChild(view, i);
      m_children.push_back(child);
      m_ids.push_back(QAccessible::registerAccessibleInterface(child));
    }
  }
  ~BoardAccessible() override {
    for (const QAccessible::Id id : m_ids) QAccessible::deleteAccessibleInterface(id);
  }
  BoardAccessible(const BoardAccessible&) = delete;
  BoardAccessible& operator=(const BoardAccessible&) = delete;

  BoardView* view() const { return static_cast<BoardView*>(widget()); }

  int childCount() const override { return int(m_children.size()); }
  QAccessibleInterface* child(int index) const override {
    return index >= 0 && index < childCount() ? m_children[std::size_t(index)] : nullptr;
  }
  int indexOfChild(const QAccessibleInterface* child) const override {
    for (std::size_t i = 0; i < m_children.size(); ++i)
      if (m_children[i] == child) return int(i);
    return -1;
  }
  QAccessibleInterface* childAt(int x, int y) const override {
    const QPoint local = view()->mapFromGlobal(QPoint(x, y));
    const int cell = view()->cellAt(local);
    if (cell >= 0) return child(cell);
    for (int box = kCells; box < childCount(); ++box)
      if (view()->countRect(box - kCells).contains(local)) return child(box);
    return nullptr;
  }
  QAccessibleInterface* focusChild() const override {
    return view()->hasFocus() ? child(view()->currentCell()) : nullptr;
  }
  void* interface_cast(QAccessible::InterfaceType type) override {
    if (type == QAccessible::TableInterface) return static_cast<QAccessibleTableInterface*>(this);
    return QAccessibleWidget::interface_cast(type);
  }

  // --- QAccessibleTableInterface: the current cell of the value grid is its selection
  QAccessibleInterface* caption() const override { return nullptr; }
  QAccessibleInterface* summary() const override { return nullptr; }
  QAccessibleInterface* cellAt(int row, int column) const override {
    if (row < 0 || row >= kSide || column < 0 || column >= kSide) return nullptr;
    return child(row * kSide + column);
  }
  int selectedCellCount() const override { return int(selectedCells().size()); }
  QList<QAccessibleInterface*> selectedCells() const override {
    if (view()->kind() != BoardView::Kind::Values) return {};
    return {child(view()->currentCell())};
  }
  QString columnDescription(int column) const override { return QStringLiteral("Column %1").arg(column + 1); }
  QString rowDescription(int row) const override { return QStringLiteral("Row %1").arg(row + 1); }
  int selectedColumnCount() const override { return 0; }
  int selectedRowCount() const override { return 0; }
  int columnCount() const override { return kSide; }
  int rowCount() const override { return kSide; }
  QList<int> selectedColumns() const override { return {}; }
  QList<int> selectedRows() const override { return {}; }
  bool isColumnSelected(int) const override { return false; }
  bool isRowSelected(int) const override { return false; }
  bool selectRow(int) override { return false; }
  bool selectColumn(int) override { return false; }
  bool unselectRow(int) override { return false; }
  bool unselectColumn(int) override { return false; }
  void modelChange(QAccessibleTableModelChangeEvent*) override {}

 private:
  std::vector<QAccessibleInterface*> m_children;
  std::vector<QAccessible::Id> m_ids;
};


// --- the event log

/// Line `index` (from 0) of the log: a list item named by its text.
class LogLineAccessible : public ViewChild<EventLogView> {
 public:
  using ViewChild::ViewChild;

  bool isValid() const override { return m_view && m_index < m_view->TotalLines(); }
  QString text(QAccessible::Text t) const override {
    return t == QAccessible::Name && isValid() ? m_view->lineText(m_index + 1) : QString();
  }
  void setText(QAccessible::Text, const QString&) override {}
  QRect rect() const override {
    if (!isValid()) return {};
    const QRect local = m_view->lineRect(m_index + 1);
    if (local.isEmpty()) return {};
    return QRect(m_view->viewport()->mapToGlobal(local.topLeft()), local.size());
  }
  QAccessible::Role role() const override { return QAccessible::ListItem; }
  QAccessible::State state() const override {
    QAccessible::State state;
    if (!isValid()) return state;
    state.readOnly = state.selectable = true;
    state.selected = m_view->isLineSelected(m_index + 1);
    state.offscreen = m_view->lineRect(m_index + 1).isEmpty();
    return state;
  }
};

/// The event log: a list of its lines, and their text joined by line breaks
/// for a screen reader that reads text by characters, words and lines.
class LogAccessible : public QAccessibleWidget, public QAccessibleTextInterface {
 public:
  explicit LogAccessible(EventLogView* view) : QAccessibleWidget(view, QAccessible::List) {}
  ~LogAccessible() override {
    for (const QAccessible::Id id : m_ids) QAccessible::deleteAccessibleInterface(id);
  }
  LogAccessible(const LogAccessible&) = delete;
  LogAccessible& operator=(const LogAccessible&) = delete;

  EventLogView* view() const { return static_cast<EventLogView*>(widget()); }

  int childCount() const override { return view()->TotalLines(); }
  QAccessibleInterface* child(int index) const override {
    if (index < 0 || index >= childCount()) return nullptr;
    // Made when first asked for and kept: a long run's lines are mostly never read.
    while (int(m_lines.size()) <= index) {
      auto* line = new LogLineAccessible(view(), int(m_lines.size()));
      m_lines.push_back(line);
      m_ids.push_back(QAccessible::registerAccessibleInterface(line));
    }
    return m_lines[std::size_t(index)];
  }
  int indexOfChild(const QAccessibleInterface* child) const override {
    for (std::size_t i = 0; i < m_lines.size(); ++i)
      if (m_lines[i] == child) return int(i) < childCount() ? int(i) : -1;
    return -1;
  }
  QAccessibleInterface* childAt(int x, int y) const override {
    const QPoint local = view()->viewport()->mapFromGlobal(QPoint(x, y));
    if (!view()->viewport()->rect().contains(local)) return nullptr;
    return child(view()->lineNumberAt(local) - 1);
  }
  QAccessibleInterface* focusChild() const override {
    if (!view()->hasFocus()) return nullptr;
    for (int n = 1; n <= view()->TotalLines(); ++n)
      if (view()->isLineSelected(n)) return child(n - 1);
    return nullptr;
  }
  void* interface_cast(QAccessible::InterfaceType type) override {
    if (type == QAccessible::TextInterface) return static_cast<QAccessibleTextInterface*>(this);
    return QAccessibleWidget::interface_cast(type);
  }

  // --- QAccessibleTextInterface: read only; the selection is the selected lines
  void selection(int selectionIndex, int* startOffset, int* endOffset) const override {
    *startOffset = *endOffset = 0;
    if (selectionIndex != 0) return;
    int first = 0, last = 0;
    if (!selectedLines(first, last)) return;
    *startOffset = lineStart(first);
    *endOffset = lineStart(last) + int(view()->lineText(last).size());
  }
  int selectionCount() const override {
    int first = 0, last = 0;
    return selectedLines(first, last) ? 1 : 0;
  }
  void addSelection(int, int) override {}
  void removeSelection(int) override {}
  void setSelection(int, int, int) override {}
  int cursorPosition() const override {
    int first = 0, last = 0;
    return selectedLines(first, last) ? lineStart(first) : 0;
  }
  void setCursorPosition(int) override {}
  QString text(int startOffset, int endOffset) const override {
    return wholeText().mid(startOffset, std::max(0, endOffset - startOffset));
  }
  QString textBeforeOffset(int offset, QAccessible::TextBoundaryType type, int* startOffset,
                           int* endOffset) const override {
    const auto [start, end] = unitAt(offset, type);
    return unit(start > 0 ? start - 1 : -1, type, startOffset, endOffset);
  }
  QString textAfterOffset(int offset, QAccessible::TextBoundaryType type, int* startOffset,
                          int* endOffset) const override {
    const auto [start, end] = unitAt(offset, type);
    return unit(end > start ? end : -1, type, startOffset, endOffset);
  }
  QString textAtOffset(int offset, QAccessible::TextBoundaryType type, int* startOffset,
                       int* endOffset) const override {
    return unit(offset, type, startOffset, endOffset);
  }
  int characterCount() const override { return view()->characterCount(); }
  QRect characterRect(int offset) const override {
    const QAccessibleInterface* line = child(lineOf(offset));
    return line ? line->rect() : QRect();
  }
  int offsetAtPoint(const QPoint& point) const override {
    const QAccessibleInterface* line = childAt(point.x(), point.y());
    return line ? lineStart(indexOfChild(line) + 1) : -1;
  }
  void scrollToSubstring(int, int) override {}
  QString attributes(int offset, int* startOffset, int* endOffset) const override {
    *startOffset = *endOffset = offset;
    return {};
  }

  using QAccessibleWidget::text;

 private:
  /// The selected lines, 1-based; false when none is.
  bool selectedLines(int& first, int& last) const {
    first = last = 0;
    for (int n = 1; n <= view()->TotalLines(); ++n)
      if (view()->isLineSelected(n)) {
        if (!first) first = n;
        last = n;
      }
    return first > 0;
  }
  const QString& wholeText() const {
    const std::pair<int, int> key(view()->restarts(), view()->TotalLines());
    if (key != m_textFor) {
      QStringList lines;
      for (int n = 1; n <= view()->TotalLines(); ++n) lines << view()->lineText(n);
      m_text = lines.join('\n');
      m_textFor = key;
    }
    return m_text;
  }
  /// The offset where line n (1-based) starts.
  int lineStart(int n) const {
    const QString& text = wholeText();
    int offset = 0;
    for (int line = 1; line < n && offset >= 0; ++line) {
      offset = int(text.indexOf('\n', offset));
      if (offset >= 0) ++offset;
    }
    return std::max(0, offset);
  }
  /// The index (from 0) of the line holding the offset.
  int lineOf(int offset) const { return int(wholeText().left(std::max(0, offset)).count('\n')); }
  /// The character, word, sentence, line or whole text around an offset, as [start, end).
  std::pair<int, int> unitAt(int offset, QAccessible::TextBoundaryType type) const {
    const QString& text = wholeText();
    const int length = int(text.size());
    if (offset < 0 || offset > length || length == 0) return {-1, -1};
    offset = std::min(offset, length - 1);
    switch (type) {
      case QAccessible::CharBoundary: return {offset, offset + 1};
      case QAccessible::NoBoundary: return {0, length};
      case QAccessible::LineBoundary:
      case QAccessible::ParagraphBoundary: {
        // A line break belongs to the line it ends.
        const int start = offset == 0 ? 0 : int(text.lastIndexOf('\n', offset - 1)) + 1;
        const int lineEnd = int(text.indexOf('\n', offset));
        return {start, lineEnd < 0 ? length : lineEnd + 1};
      }
      case QAccessible::WordBoundary:
      case QAccessible::SentenceBoundary: {
        QTextBoundaryFinder finder(type == QAccessible::WordBoundary ? QTextBoundaryFinder::Word
                                                                       : QTextBoundaryFinder::Sentence,
                                   text);
        finder.setPosition(offset);
        int start = finder.isAtBoundary() ? offset : int(finder.toPreviousBoundary());
        finder.setPosition(offset);
        int end = int(finder.toNextBoundary());
        return {std::max(0, start), end < 0 ? length : end};
      }
    }
    return {-1, -1};
  }
  QString unit(int offset, QAccessible::TextBoundaryType type, int* startOffset, int* endOffset) const {
    const auto [start, end] = unitAt(offset, type);
    *startOffset = *endOffset = -1;
    if (start < 0) return {};
    *startOffset = start;
    *endOffset = end;
    return wholeText().mid(start, end - start);
  }

  mutable std::vector<QAccessibleInterface*> m_lines;
  mutable std::vector<QAccessible::Id> m_ids;
  mutable QString m_text;
  mutable std::pair<int, int> m_textFor{-1, -1};
};

std::function<void(QAccessibleEvent&)>& watcher() {
  static std::function<void(QAccessibleEvent&)> watching;
  return watching;
}

QAccessibleInterface* accessibleFactory(const QString&, QObject* object) {
  if (auto* board = qobject_cast<BoardView*>(object)) return new BoardAccessible(board);
  if (auto* log = qobject_cast<EventLogView*>(object)) return new LogAccessible(log);
  return nullptr;
}

}  // namespace

bool accessibilityListens() { return QAccessible::isActive() || bool(watcher()); }

void tellAccessibility(QAccessibleEvent& event) {
  if (watcher()) watcher()(event);
  QAccessible::updateAccessibility(&event);
}

void watchAccessibility(std::function<void(QAccessibleEvent&)> watching) { watcher() = std::move(watching); }

void installAccessibility() {
  static const bool installed = [] {
    QAccessible::installFactory(accessibleFactory);
    return true;
  }();
  (void)installed;
}

}  // namespace tessaly
