// What a screen reader learns of the window, read through Qt's accessibility
// interfaces as the platform's bridge reads them: the board and the choices as
// tables of named cells, the current cell as the focus, the event log's lines.

#include <QAccessible>
#include <QAccessibleWidget>
#include <functional>
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
    watchAccessibility([this](QAccessibleEvent& event) {
      events.emplace_back(event.type(), nameOf(event.accessibleInterface()));
      if (event.type() == QAccessible::TextInserted) {
        const auto& insert = static_cast<QAccessibleTextInsertEvent&>(event);
        inserted.emplace_back(insert.changePosition(), insert.textInserted().toStdString());
      }
    });
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
  std::vector<std::pair<int, std::string>> inserted;  ///< position and text of each insertion
};

using AccessibilityTest = WindowFixture;

TEST(CellNameTest, ACellSaysWhereItIsAndWhatItHolds) {
  struct Case {
    int index;
    BoardView::CellState state;
    const char* name;
  };
  const Case cases[] = {
      {0, {7, true, "", ""}, "Row 1, column 1: 7, given"},
      {22, {7, false, "", ""}, "Row 3, column 5: 7"},
      {22, {0, false, "147", ""}, "Row 3, column 5: empty, choices 1 4 7"},
      {80, {0, false, "", ""}, "Row 9, column 9: empty"},
      {80, {0, false, "29", "9"}, "Row 9, column 9: empty, choices 2 9, notes 9"},
      {9, {5, false, "", "58"}, "Row 2, column 1: 5"},  // the notes go with a value
  };
  for (const Case& c : cases) EXPECT_EQ(spokenCellName(c.index, c.state).toStdString(), c.name);
  EXPECT_EQ(spokenBoxCount(3, "1").toStdString(), "Box 4: 1 digit missing");
  EXPECT_EQ(spokenBoxCount(3, "").toStdString(), "Box 4");
}

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

TEST_F(AccessibilityTest, TheEventLogIsAListOfItsLinesAndItsTextAndTellsOfNewLines) {
  start(0);
  ASSERT_FALSE(HasFatalFailure());
  EventRecorder recorder;
  window->readPuzzleFile(appDir() + "Puzzles.sud", 1);
  QAccessibleInterface* log = accessible(logView());
  ASSERT_NE(log, nullptr);
  EXPECT_EQ(nameOf(log), "Event log");
  EXPECT_EQ(log->role(), QAccessible::List);
  const auto shown = [&] {
    QStringList lines;
    for (int n = 1; n <= logView()->TotalLines(); ++n) lines << logView()->lineText(n);
    return lines.join('\n').toStdString();
  };
  ASSERT_EQ(log->childCount(), session.log.TotalLines());
  for (int n = 1; n <= session.log.TotalLines(); ++n) {
    EXPECT_EQ(nameOf(log->child(n - 1)), std::string(session.log.text(n)));
    EXPECT_EQ(log->child(n - 1)->role(), QAccessible::ListItem);
  }
  QAccessibleTextInterface* text = log->textInterface();
  ASSERT_NE(text, nullptr);
  EXPECT_EQ(text->characterCount(), int(QString::fromStdString(shown()).size()));
  EXPECT_EQ(text->text(0, text->characterCount()).toStdString(), shown());
  int start = 0, end = 0;
  const std::string second = std::string(session.log.text(2)) + "\n";
  const int inSecond = int(std::string(session.log.text(1)).size()) + 3;
  EXPECT_EQ(text->textAtOffset(inSecond, QAccessible::LineBoundary, &start, &end).toStdString(), second);
  EXPECT_EQ(text->textAtOffset(0, QAccessible::CharBoundary, &start, &end).toStdString(),
            std::string(session.log.text(1)).substr(0, 1));
  // The read started the log over and told it whole, in one event.
  EXPECT_EQ(recorder.inserted, (std::vector<std::pair<int, std::string>>{{0, shown()}}));

  // A Solve adds hundreds of lines: each redraw tells what it brought, at one event a redraw at most.
  const int before = session.log.TotalLines();
  const std::string told = shown();
  recorder.inserted.clear();
  window->solve();
  ASSERT_GT(session.log.TotalLines(), before + 100);
  ASSERT_FALSE(recorder.inserted.empty());
  EXPECT_LE(int(recorder.inserted.size()), session.log.TotalLines() - before);
  std::string heard = told;
  for (const auto& [position, added] : recorder.inserted) {
    EXPECT_EQ(position, int(QString::fromStdString(heard).size()));
    heard += added;
  }
  EXPECT_EQ(heard, shown());

  // The line replayed is the selected one.
  logView()->selectLine(5);
  EXPECT_TRUE(log->child(4)->state().selected);
  EXPECT_FALSE(log->child(5)->state().selected);
  EXPECT_EQ(recorder.named(QAccessible::Selection), std::vector<std::string>{std::string(session.log.text(5))});
  text->selection(0, &start, &end);
  EXPECT_EQ(text->text(start, end).toStdString(), std::string(session.log.text(5)));
}

TEST_F(AccessibilityTest, FollowTheDesktopTakesItsPaletteAndFollowsItsChanges) {
  start(1);
  ASSERT_FALSE(HasFatalFailure());
  const QPalette before = QApplication::palette();
  action("mnuColxDesktop")->trigger();
  EXPECT_TRUE(action("mnuColxDesktop")->isChecked());
  EXPECT_TRUE(window->colourScheme().fromDesktop());
  EXPECT_EQ(session.config.ColourSchemeFile, "");
  EXPECT_EQ(back("PosVals_1"), QApplication::palette().color(QPalette::Base));

  // The desktop turns dark: so do the cells and the frames.
  QPalette dark = before;
  dark.setColor(QPalette::Window, QColor(53, 53, 53));
  dark.setColor(QPalette::WindowText, Qt::white);
  dark.setColor(QPalette::Base, QColor(42, 42, 42));
  dark.setColor(QPalette::Text, Qt::white);
  QApplication::setPalette(dark);
  QCoreApplication::processEvents();
  EXPECT_EQ(back("PosVals_1"), QColor(42, 42, 42));
  EXPECT_EQ(back("Grid_0"), QColor(42, 42, 42));
  EXPECT_EQ(cell("PosVals_1").fore, QColor(Qt::white));
  EXPECT_EQ(back("PuzNumber"), QColor(53, 53, 53));

  // A scheme of the menu ends it, the high-contrast one too.
  std::filesystem::copy_file(std::string(TESSALY_DATA_DIR) + "/highcontrast.sch", appDir() + "highcontrast.sch");
  action("mnuColxHighContrast")->trigger();
  QApplication::setPalette(before);
  EXPECT_FALSE(action("mnuColxDesktop")->isChecked());
  EXPECT_EQ(session.config.ColourSchemeFile, "highcontrast.sch");
  EXPECT_EQ(back("PosVals_1"), QColor(Qt::white));
  EXPECT_EQ(back("Grid_0"), QColor(Qt::white));
}

TEST_F(AccessibilityTest, CtrlPlusAndMinusScaleTheBoardAndTheLogAndTheNextRunKeepsIt) {
  const QString file = QString::fromStdString(appDir() + "layout.ini");
  start(1);
  ASSERT_FALSE(HasFatalFailure());
  window->rememberLayoutIn(std::make_unique<QSettings>(file, QSettings::IniFormat));
  QApplication::setActiveWindow(window.get());
  ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
  const double points = QApplication::font().pointSizeF();
  EXPECT_EQ(logView()->font().pointSizeF(), points);  // the log follows the application font
  const QSize board = window->board()->grid()->minimumSizeHint();
  const QSize choices = window->board()->candidateView()->minimumSizeHint();

  QTest::keyClick(window.get(), Qt::Key_Plus, Qt::ControlModifier);
  QTest::keyClick(window.get(), Qt::Key_Equal, Qt::ControlModifier);
  EXPECT_EQ(window->textZoom(), 2);
  EXPECT_NEAR(logView()->font().pointSizeF(), points * 1.15 * 1.15, 0.01);
  EXPECT_GT(window->board()->grid()->minimumSizeHint().width(), board.width());
  EXPECT_GT(window->board()->candidateView()->minimumSizeHint().width(), choices.width());
  QTest::keyClick(window.get(), Qt::Key_Minus, Qt::ControlModifier);
  EXPECT_EQ(window->textZoom(), 1);
  window->close();

  // The next run starts with the text as it was left, and still follows the application font.
  window = std::make_unique<MainWindow>(session, &ui);
  window->rememberLayoutIn(std::make_unique<QSettings>(file, QSettings::IniFormat));
  EXPECT_EQ(window->textZoom(), 1);
  EXPECT_NEAR(logView()->font().pointSizeF(), points * 1.15, 0.01);
  QFont larger = QApplication::font();
  larger.setPointSizeF(points * 2);
  QApplication::setFont(larger);
  QCoreApplication::processEvents();
  EXPECT_NEAR(logView()->font().pointSizeF(), points * 2 * 1.15, 0.01);
  EXPECT_NEAR(window->board()->grid()->font().pointSizeF(), points * 2 * 1.15, 0.01);
  ASSERT_TRUE(useFonts(kPinnedFonts));
  QCoreApplication::processEvents();
  window->setTextZoom(0);
  EXPECT_EQ(logView()->font().pointSizeF(), points);
  EXPECT_EQ(window->board()->grid()->font().pointSizeF(), points);
  // Quorrel.cfg knows nothing of it.
  EXPECT_EQ(readFile(appDir() + "Quorrel.cfg").find("zoom"), std::string::npos);
}

TEST_F(AccessibilityTest, EveryControlOfEveryTabHasAName) {
  start(1);
  ASSERT_FALSE(HasFatalFailure());
  const std::set<QAccessible::Role> controls = {
      QAccessible::PushButton, QAccessible::CheckBox,  QAccessible::RadioButton, QAccessible::EditableText,
      QAccessible::ComboBox,   QAccessible::List,      QAccessible::Slider,      QAccessible::PageTabList,
      QAccessible::PageTab,    QAccessible::Table,     QAccessible::MenuItem};
  for (const Tab tab : {Tab::AutoSolve, Tab::Create, Tab::ManualSolve}) {
    selectTab(tab);
    click("GetHint_6");  // (on the ManualSolve tab) a hint list with lines
    std::vector<std::string> unnamed;
    int named = 0;
    std::function<void(QAccessibleInterface*)> walk = [&](QAccessibleInterface* iface) {
      if (!iface || iface->state().invisible) return;
      if (controls.count(iface->role())) {
        const QObject* object = iface->object();
        if (iface->text(QAccessible::Name).trimmed().isEmpty())
          unnamed.push_back(object ? object->objectName().toStdString() + " (" + object->metaObject()->className() + ")"
                                   : "a child of " + nameOf(iface->parent()));
        else
          ++named;
      }
      for (int i = 0; i < iface->childCount(); ++i) walk(iface->child(i));
    };
    walk(accessible(window.get()));
    EXPECT_EQ(unnamed, std::vector<std::string>{}) << "tab " << int(tab);
    EXPECT_GT(named, 20);
  }
}

}  // namespace
}  // namespace tessaly::testing
