// What a screen reader learns of the window, read through Qt's accessibility
// interfaces as the platform's bridge reads them: the board and the choices as
// tables of named cells, the current cell as the focus, the event log's lines.

#include <QAccessible>
#include <QAccessibleWidget>
#include <set>

#include "UiSupport.h"
#include "ui/Accessibility.h"

namespace tessaly::testing {
namespace {

QAccessibleInterface* accessible(QObject* object) { return QAccessible::queryAccessibleInterface(object); }

std::string nameOf(const QAccessibleInterface* iface) {
  return iface ? iface->text(QAccessible::Name).toStdString() : std::string("(none)");
}

/// Records the events the window sends to assistive technology: type and the
/// name of what it is about.
class EventRecorder {
 public:
  EventRecorder() {
    watchAccessibility(
        [this](QAccessibleEvent& event) { events.emplace_back(event.type(), nameOf(event.accessibleInterface())); });
  }
  ~EventRecorder() { watchAccessibility({}); }
  EventRecorder(const EventRecorder&) = delete;
  EventRecorder& operator=(const EventRecorder&) = delete;
  std::vector<std::string> named(QAccessible::Event type) const {
    std::vector<std::string> names;
    for (const auto& [t, name] : events)
      if (t == type) names.push_back(name);
    return names;
  }

  std::vector<std::pair<QAccessible::Event, std::string>> events;
};

using AccessibilityTest = WindowFixture;

// Puzzle 1 of pe96 starts "..3.2.6..": cell 1 has the choices 4 and 5.
TEST_F(AccessibilityTest, TheBoardAndTheChoicesAreTablesOfNamedCells) {
  start(1);
  ASSERT_FALSE(HasFatalFailure());
  QAccessibleInterface* grid = accessible(window->board()->grid());
  QAccessibleInterface* choices = accessible(window->board()->candidateView());
  ASSERT_NE(grid, nullptr);
  ASSERT_NE(choices, nullptr);
  EXPECT_EQ(grid->role(), QAccessible::Table);
  EXPECT_EQ(nameOf(grid), "Board");
  EXPECT_EQ(nameOf(choices), "Choices for cells");
  ASSERT_NE(grid->tableInterface(), nullptr);
  EXPECT_EQ(grid->tableInterface()->rowCount(), 9);
  EXPECT_EQ(grid->tableInterface()->columnCount(), 9);
  EXPECT_EQ(grid->childCount(), 81);
  EXPECT_EQ(choices->childCount(), 90);  // and the nine box counts

  struct Case {
    int row, col;
    const char* name;
  };
  for (const Case& c : {Case{1, 1, "Row 1, column 1: empty, choices 4 5"}, Case{1, 3, "Row 1, column 3: 3, given"},
                        Case{1, 5, "Row 1, column 5: 2, given"}, Case{2, 1, "Row 2, column 1: 9, given"}}) {
    for (QAccessibleInterface* board : {grid, choices}) {
      QAccessibleInterface* cell = board->tableInterface()->cellAt(c.row - 1, c.col - 1);
      ASSERT_NE(cell, nullptr);
      EXPECT_EQ(nameOf(cell), c.name);
      EXPECT_EQ(cell->role(), QAccessible::Cell);
      EXPECT_EQ(cell->tableCellInterface()->rowIndex(), c.row - 1);
      EXPECT_EQ(cell->tableCellInterface()->columnIndex(), c.col - 1);
      EXPECT_EQ(board->indexOfChild(cell), (c.row - 1) * 9 + c.col - 1);
      EXPECT_EQ(cell->parent(), board);
      // A point in the cell finds it again, as a screen reader's pointer review does.
      EXPECT_EQ(board->childAt(cell->rect().center().x(), cell->rect().center().y()), cell);
    }
  }
  // Every cell says where it is and what it holds.
  std::set<std::string> names;
  for (int i = 0; i < 81; ++i) {
    const std::string name = nameOf(grid->child(i));
    const std::string where = "Row " + std::to_string(i / 9 + 1) + ", column " + std::to_string(i % 9 + 1) + ": ";
    EXPECT_EQ(name.rfind(where, 0), 0u) << name;
    EXPECT_EQ(name, nameOf(choices->child(i)));
    names.insert(name);
  }
  EXPECT_EQ(names.size(), 81u);
  EXPECT_EQ(nameOf(choices->child(81)), "Box 1: " + window->board()->boxCount(1).text.toStdString() + " digits missing");

  // A value placed by the player is neither given nor empty.
  selectTab(Tab::ManualSolve);
  click("Grid_0");
  QTest::keyClick(window->board()->grid(), Qt::Key_4);
  EXPECT_EQ(nameOf(grid->child(0)), "Row 1, column 1: 4");
}

TEST_F(AccessibilityTest, TheCurrentCellIsTheFocusAndMovesWithTheArrowKeys) {
  start(1);
  ASSERT_FALSE(HasFatalFailure());
  BoardView* view = window->board()->grid();
  QAccessibleInterface* grid = accessible(view);
  EventRecorder recorder;
  view->setFocus(Qt::TabFocusReason);
  ASSERT_TRUE(view->hasFocus());
  EXPECT_EQ(nameOf(grid->focusChild()), "Row 1, column 1: empty, choices 4 5");
  for (const auto key : {Qt::Key_Right, Qt::Key_Right, Qt::Key_Down, Qt::Key_Left, Qt::Key_Up, Qt::Key_Up})
    QTest::keyClick(view, key);
  EXPECT_EQ(nameOf(grid->focusChild()), "Row 1, column 2: empty, choices 4 5 7 8");
  // The focus arrives once for every move; a move off the board is none.
  EXPECT_EQ(recorder.named(QAccessible::Focus),
            (std::vector<std::string>{"Row 1, column 1: empty, choices 4 5", "Row 1, column 2: empty, choices 4 5 7 8",
                                      "Row 1, column 3: 3, given", "Row 2, column 3: empty, choices 4 7",
                                      "Row 2, column 2: empty, choices 2 4 6 7 8", "Row 1, column 2: empty, choices 4 5 7 8"}));
  EXPECT_TRUE(grid->focusChild()->state().focused);
  EXPECT_EQ(grid->tableInterface()->selectedCells(), QList<QAccessibleInterface*>{grid->focusChild()});

  // Manual play moves its selection with the same keys, and the focus follows it.
  selectTab(Tab::ManualSolve);
  view->setFocus(Qt::TabFocusReason);
  recorder.events.clear();
  QTest::keyClick(view, Qt::Key_Down);  // nothing selected yet: the first cell
  QTest::keyClick(view, Qt::Key_Right);
  EXPECT_EQ(nameOf(grid->focusChild()), "Row 1, column 2: empty, choices 4 5 7 8");
  EXPECT_EQ(recorder.named(QAccessible::Focus),
            (std::vector<std::string>{"Row 1, column 1: empty, choices 4 5", "Row 1, column 2: empty, choices 4 5 7 8"}));
}

}  // namespace
}  // namespace tessaly::testing
