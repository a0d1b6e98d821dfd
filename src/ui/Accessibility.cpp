#include "ui/Accessibility.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QPointer>
#include <QStringList>
#include <QWidget>
#include <QWindow>
#include <vector>

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
  name += QStringLiteral("empty");
  if (!state.choices.isEmpty()) {
    QStringList digits;
    for (const QChar digit : state.choices) digits << QString(digit);
    name += QStringLiteral(", choices ") + digits.join(' ');
  }
  return name;
}

QString spokenBoxCount(int box, const QString& count) {
  const QString name = QStringLiteral("Box %1").arg(box + 1);
  if (count.isEmpty()) return name;
  return name + QStringLiteral(": %1 %2 missing").arg(count, count == QStringLiteral("1") ? "digit" : "digits");
}

namespace {

// --- the boards

/// One child of a board: cell 0..80 (a table cell), or a box count after them.
/// It holds no state of its own and reads the view each time it is asked.
class BoardChild : public QAccessibleInterface, public QAccessibleTableCellInterface {
 public:
  BoardChild(BoardView* view, int index) : m_view(view), m_index(index) {}

  bool isValid() const override { return !m_view.isNull(); }
  QObject* object() const override { return nullptr; }
  QWindow* window() const override {
    const QAccessibleInterface* board = parent();
    return board ? board->window() : nullptr;
  }
  QAccessibleInterface* childAt(int, int) const override { return nullptr; }
  QAccessibleInterface* parent() const override {
    return m_view ? QAccessible::queryAccessibleInterface(m_view.data()) : nullptr;
  }
  QAccessibleInterface* child(int) const override { return nullptr; }
  int childCount() const override { return 0; }
  int indexOfChild(const QAccessibleInterface*) const override { return -1; }

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

  QPointer<BoardView> m_view;
  int m_index;
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

std::function<void(QAccessibleEvent&)>& watcher() {
  static std::function<void(QAccessibleEvent&)> watching;
  return watching;
}

QAccessibleInterface* accessibleFactory(const QString&, QObject* object) {
  if (auto* board = qobject_cast<BoardView*>(object)) return new BoardAccessible(board);
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
