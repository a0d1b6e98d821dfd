// The ManualSolve tab's controls: a puzzle played by hand to the end with a
// refused move, Delete and Undo on the way; the rule hints, the hint lines, the
// cell hint, the pointer read-outs and the explanation of a cell's choices.

#include <gtest/gtest.h>

#include <QAction>
#include <QLabel>
#include <QListWidget>
#include <QMenu>
#include <QPushButton>
#include <QTest>
#include <functional>
#include <optional>

#include "model/Services.h"
#include "model/Session.h"
#include "play/Explanation.h"
#include "play/Hints.h"
#include "play/ManualPlay.h"
#include "solver/ReadPuzzle.h"
#include "solver/SolverEngine.h"
#include "ui/ManualPage.h"

namespace tessaly {
namespace {

const std::string kPuzzleFile = std::string(TESSALY_TEST_DATA_DIR) + "/puzzles/pe96.sud";
const std::string kSolution =
    "483921657967345821251876493548132976729564138136798245372689514814253769695417382";

int solutionAt(int cell) { return kSolution[std::size_t(cell - 1)] - '0'; }

/// Records messages like the scripted one and lets a test look at the window
/// while a message is open.
class WatchingUserInterface : public ScriptedUserInterface {
 public:
  void message(const std::string& text) override {
    if (whileOpen) whileOpen(text);
    ScriptedUserInterface::message(text);
  }
  std::function<void(const std::string&)> whileOpen;
};

struct RefusedMove {
  int cell = 0, value = 0, dead = 0;
};

class ManualPageTest : public ::testing::Test {
 protected:
  ManualPageTest()
      : page(
            session, [this](int cell, ManualPaint paint) { paints.emplace_back(cell, paint); },
            [this] { ++redraws; }) {
    session.writesConfiguration = false;
    session.controls.currentTab = ManualPlay::kManualTab;
    session.CurrentFile = kPuzzleFile;
    page.show();
    EXPECT_TRUE(QTest::qWaitForWindowExposed(&page));
    EXPECT_TRUE(readPuzzle(session, kPuzzleFile, 1));
    page.refreshFromSession();
  }

  template <class W>
  W* child(const QString& name) {
    auto* w = page.findChild<W*>(name);
    EXPECT_NE(w, nullptr) << name.toStdString();
    return w;
  }
  ManualPlay& play() { return page.play(); }
  QListWidget* logList() { return child<QListWidget>("LogManual"); }
  QListWidget* hintList() { return child<QListWidget>("Hints"); }
  QString cellChoice() { return child<QLabel>("CellChoice")->text(); }
  void clickButton(const char* name) { QTest::mouseClick(child<QPushButton>(name), Qt::LeftButton); }

  /// Selects the cell and types the digit on the main keyboard.
  void type(int cell, int digit) {
    page.onCellClicked(cell);
    page.onKeyReleased(Qt::Key_0 + digit);
  }

  /// Some placement that the check refuses, found by trying each wrong choice
  /// on the board as it stands (the board is put back afterwards).
  std::optional<RefusedMove> findRefusedMove() {
    const BoardSnapshot before = saveBoardSnapshot(session);
    const int blanks = session.BlanksLeft;
    std::optional<RefusedMove> found;
    for (int c = 1; c <= kCells && !found; ++c) {
      if (session.grid[c].value) continue;
      for (char ch : before.candidates[std::size_t(c)].text()) {
        const int d = ch - '0';
        if (d == solutionAt(c)) continue;
        session.grid[c].value = d;
        SolverEngine(session).computeCandidates(false);
        int dead = 0;
        for (int k = 1; k <= kCells && !dead; ++k)
          if (!session.grid[k].value && session.grid[k].candidates.empty()) dead = k;
        restoreBoardSnapshot(session, before);
        session.BlanksLeft = blanks;
        if (dead) {
          found = RefusedMove{c, d, dead};
          break;
        }
      }
    }
    return found;
  }

  std::vector<std::string> listLines(QListWidget* list) {
    std::vector<std::string> lines;
    for (int i = 0; i < list->count(); ++i) lines.push_back(list->item(i)->text().toStdString());
    return lines;
  }

  void clickListLine(QListWidget* list, int row, Qt::MouseButton button) {
    QListWidgetItem* item = list->item(row);
    ASSERT_NE(item, nullptr);
    list->scrollToItem(item);
    QTest::mouseClick(list->viewport(), button, {}, list->visualItemRect(item).center());
  }

  WatchingUserInterface ui;
  FixedClock clock;
  SeededRandom random{7};
  CountingPacer pacer;
  Session session{Services{&ui, nullptr, &pacer, &clock, &random}};
  std::vector<std::pair<int, ManualPaint>> paints;
  int redraws = 0;
  ManualPage page;
};

TEST_F(ManualPageTest, ShowsTheInstructionsAndTheSummariesOfTheReadPuzzle) {
  EXPECT_EQ(child<QLabel>("ManualInstructions")->text(),
            "Place values in the grid manually:\nLeft-click on a cell and enter a value, or\n"
            "Double-click on a cell and select a value from dropdown list");
  EXPECT_EQ(logList()->count(), 0);
  for (int n = 1; n <= 9; ++n) {
    EXPECT_EQ(child<QLabel>(QString("PossibleInRow_%1").arg(n))->text().toStdString(),
              play().PossibleInRow[std::size_t(n - 1)]);
    const std::string col = child<QLabel>(QString("PossibleInCol_%1").arg(n))->text().toStdString();
    EXPECT_EQ(col, play().PossibleInCol[std::size_t(n - 1)]);
    EXPECT_TRUE(col == "1  .  .  9" || col.ends_with("  ")) << col;
  }
  // Every digit is still open somewhere in row 1 and in column 1 of this puzzle.
  EXPECT_EQ(child<QLabel>("PossibleInRow_1")->text(), "123456789");
  EXPECT_EQ(child<QLabel>("PossibleInCol_1")->text(), "1  .  .  9");
  for (int k = 0; k < 7; ++k) EXPECT_NE(page.findChild<QPushButton*>(QString("GetHint_%1").arg(k)), nullptr);
  EXPECT_EQ(child<QPushButton>("GetHint_0")->text(), "Rule 1");
  EXPECT_EQ(child<QPushButton>("GetHint_6")->text(), "All rules");
  EXPECT_NE(page.findChild<QPushButton*>("CellHint"), nullptr);
  EXPECT_NE(page.findChild<QPushButton*>("UndoManual"), nullptr);
  EXPECT_NE(page.findChild<QPushButton*>("ClearManual"), nullptr);
}

TEST_F(ManualPageTest, APuzzlePlayedByHandToTheEnd) {
  // Undo with nothing placed yet.
  clickButton("UndoManual");
  EXPECT_EQ(ui.messages, std::vector<std::string>{"nothing to undo"});
  ui.messages.clear();

  std::vector<int> open;
  for (int c = 1; c <= kCells; ++c)
    if (!session.grid[c].given) open.push_back(c);
  ASSERT_FALSE(open.empty());

  bool refusedSeen = false, deleteSeen = false, undoSeen = false, dropDownSeen = false;
  for (std::size_t i = 0; i < open.size(); ++i) {
    const int cell = open[i];

    if (!refusedSeen) {
      if (std::optional<RefusedMove> move = findRefusedMove()) {
        refusedSeen = true;
        const std::size_t logged = play().LogManual.size();
        std::optional<ManualPaint> deadWhileOpen;
        ui.whileOpen = [&](const std::string&) { deadWhileOpen = page.paintOf(move->dead); };
        type(move->cell, move->value);
        ui.whileOpen = nullptr;
        ASSERT_EQ(ui.messages.size(), 1u);
        EXPECT_EQ(ui.messages[0], "placing " + std::to_string(move->value) +
                                      " in this cell will result in no choices for cell " +
                                      std::to_string(move->dead) + "\nSelect another choice for this cell");
        EXPECT_EQ(deadWhileOpen, ManualPaint::Refused);
        EXPECT_EQ(page.paintOf(move->dead), ManualPaint::Normal);
        EXPECT_EQ(session.grid[move->cell].value, 0);
        EXPECT_EQ(play().LogManual.size(), logged);
        ui.messages.clear();
        // Delete on an empty cell takes nothing off the list and brings the
        // choices up to date again.
        page.onCellClicked(move->cell);
        page.onKeyReleased(Qt::Key_Delete);
        EXPECT_EQ(play().LogManual.size(), logged);
        EXPECT_TRUE(session.grid[move->cell].candidates.has(solutionAt(move->cell)));
      }
    }

    if (i == 5 && !dropDownSeen) {
      // The drop-down offers exactly the cell's choices.
      dropDownSeen = true;
      page.onCellDoubleClicked(cell, page.mapToGlobal(QPoint(10, 10)));
      QMenu* menu = page.choicesMenu();
      ASSERT_NE(menu, nullptr);
      EXPECT_EQ(menu->objectName(), "mnuChoices");
      const std::string choices = session.grid[cell].candidates.text();
      EXPECT_EQ(cellChoice().toStdString(), choices);
      for (int d = 1; d <= 9; ++d) {
        auto* item = menu->findChild<QAction*>(QString("xc_%1").arg(d));
        ASSERT_NE(item, nullptr);
        EXPECT_EQ(item->isVisible(), choices.find(char('0' + d)) != std::string::npos) << d;
      }
      menu->findChild<QAction*>(QString("xc_%1").arg(solutionAt(cell)))->trigger();
      menu->hide();
    } else {
      type(cell, solutionAt(cell));
    }
    ASSERT_EQ(session.grid[cell].value, solutionAt(cell)) << "cell " << cell;
    const std::string entry = "C" + std::string(cell < 10 ? "0" : "") + std::to_string(cell) + " = " +
                              std::to_string(solutionAt(cell));
    ASSERT_EQ(logList()->item(logList()->count() - 1)->text().toStdString(), entry);

    if (i == 10 && !deleteSeen) {
      // Delete takes the value and its entry away; the value goes in again.
      deleteSeen = true;
      page.onKeyReleased(Qt::Key_Delete);
      EXPECT_EQ(session.grid[cell].value, 0);
      EXPECT_EQ(logList()->count(), int(i));
      type(cell, solutionAt(cell));
      EXPECT_EQ(logList()->count(), int(i) + 1);
    }
    if (i == 20 && !undoSeen) {
      undoSeen = true;
      clickButton("UndoManual");
      EXPECT_EQ(session.grid[cell].value, 0);
      EXPECT_EQ(logList()->count(), int(i));
      EXPECT_EQ(play().highlightedCell, -1);
      type(cell, solutionAt(cell));
    }
    if (i + 1 < open.size()) {
      ASSERT_TRUE(ui.messages.empty()) << ui.messages.front();
    }
  }

  EXPECT_TRUE(refusedSeen);
  EXPECT_TRUE(deleteSeen && undoSeen && dropDownSeen);
  EXPECT_EQ(ui.messages, std::vector<std::string>{"Puzzle is solved"});
  EXPECT_EQ(session.BlanksLeft, 0);
  EXPECT_EQ(logList()->count(), int(open.size()));
  EXPECT_EQ(session.grid.valueCode(), kSolution);
}

TEST_F(ManualPageTest, OnlyChoicesAndMainKeyboardDigitsGoIn) {
  int cell = 1;
  while (session.grid[cell].given) ++cell;
  page.onCellClicked(cell);
  EXPECT_EQ(page.paintOf(cell), ManualPaint::Selected);
  const int right = solutionAt(cell);
  // The numeric pad's digit is not taken.
  page.onKeyReleased(Qt::Key_0 + right, Qt::KeypadModifier);
  EXPECT_EQ(session.grid[cell].value, 0);
  // A digit that is not among the choices is swallowed without a word.
  for (int d = 1; d <= 9; ++d)
    if (!session.grid[cell].candidates.has(d)) {
      page.onKeyReleased(Qt::Key_0 + d);
      break;
    }
  EXPECT_EQ(session.grid[cell].value, 0);
  EXPECT_TRUE(ui.messages.empty());
  page.onKeyReleased(Qt::Key_0 + right);
  EXPECT_EQ(session.grid[cell].value, right);

  // A given takes no keys.
  int given = 1;
  while (!session.grid[given].given) ++given;
  const int givenValue = session.grid[given].value;
  page.onCellClicked(given);
  page.onKeyReleased(Qt::Key_Delete);
  EXPECT_EQ(session.grid[given].value, givenValue);
  EXPECT_TRUE(session.grid[given].given);
  EXPECT_EQ(play().selectedCell, given);

  // Another tab: the events do nothing.
  session.controls.currentTab = 1;
  page.onCellClicked(cell);
  page.onKeyReleased(Qt::Key_Delete);
  EXPECT_EQ(session.grid[cell].value, right);
}

TEST_F(ManualPageTest, ArrowKeysMoveTheSelection) {
  page.onKeyReleased(Qt::Key_Right);  // nothing selected yet: the first cell
  EXPECT_EQ(play().selectedCell, 1);
  page.onKeyReleased(Qt::Key_Right);
  EXPECT_EQ(play().selectedCell, 2);
  page.onKeyReleased(Qt::Key_Down);
  EXPECT_EQ(play().selectedCell, 11);
  page.onKeyReleased(Qt::Key_Left);
  page.onKeyReleased(Qt::Key_Left);  // stays in column 1
  EXPECT_EQ(play().selectedCell, 10);
  page.onKeyReleased(Qt::Key_Up);
  page.onKeyReleased(Qt::Key_Up);  // stays in row 1
  EXPECT_EQ(play().selectedCell, 1);
  // Cell 3 holds a given: it becomes the selected cell, the highlight stays.
  page.onKeyReleased(Qt::Key_Right);
  page.onKeyReleased(Qt::Key_Right);
  EXPECT_EQ(play().selectedCell, 3);
  EXPECT_EQ(play().highlightedCell, 2);
  page.onKeyReleased(Qt::Key_Right);
  EXPECT_EQ(play().highlightedCell, 4);
  EXPECT_EQ(cellChoice().toStdString(), session.grid[4].candidates.text());
  // A placement from the keyboard alone.
  page.onKeyReleased(Qt::Key_0 + solutionAt(4));
  EXPECT_EQ(session.grid[4].value, solutionAt(4));
}

TEST_F(ManualPageTest, MoveListClickSelectsItsCellAndClearStartsAgain) {
  std::vector<int> placed;
  for (int c = 1; c <= kCells && placed.size() < 3; ++c)
    if (!session.grid[c].given) {
      type(c, solutionAt(c));
      placed.push_back(c);
    }
  ASSERT_EQ(logList()->count(), 3);
  clickListLine(logList(), 0, Qt::LeftButton);
  EXPECT_EQ(play().selectedCell, placed[0]);
  EXPECT_EQ(play().highlightedCell, placed[0]);
  EXPECT_EQ(page.paintOf(placed[0]), ManualPaint::Selected);
  EXPECT_EQ(page.paintOf(placed[2]), ManualPaint::Normal);

  clickButton("ClearManual");
  EXPECT_EQ(logList()->count(), 0);
  for (int c : placed) EXPECT_EQ(session.grid[c].value, 0);
  EXPECT_EQ(play().highlightedCell, -1);
}

TEST_F(ManualPageTest, EveryHintButtonLeavesTheBoardAsItWas) {
  const BoardSnapshot before = saveBoardSnapshot(session);
  for (int k = 0; k <= 6; ++k) {
    clickButton(QString("GetHint_%1").arg(k).toUtf8().constData());
    EXPECT_TRUE(saveBoardSnapshot(session) == before) << "GetHint_" << k;
    const std::vector<std::string> lines = listLines(hintList());
    EXPECT_EQ(lines, session.Hints) << "GetHint_" << k;
    ASSERT_GE(lines.size(), 2u);
    EXPECT_EQ(lines[0], k == 6 ? std::string() : "APPLY RULE " + std::to_string(k + 1));
    EXPECT_TRUE(lines[1] == "This rule did not generate any single values" ||
                lines[1].rfind("This rule generated ", 0) == 0)
        << lines[1];
  }
  EXPECT_TRUE(ui.messages.empty());
  EXPECT_EQ(logList()->count(), 0);
}

TEST_F(ManualPageTest, HintLinesSelectOnALeftClickAndPlaceOnARightClick) {
  int row = -1;
  for (int k = 0; k <= 6 && row < 0; ++k) {
    clickButton(QString("GetHint_%1").arg(k).toUtf8().constData());
    for (int i = 0; i < hintList()->count() && row < 0; ++i)
      if (hintList()->item(i)->text().startsWith("Row=")) row = i;
  }
  ASSERT_GE(row, 0) << "no hint found a single value";
  const QString line = hintList()->item(row)->text();  // Row= 3, Col= 5, Cell= 23, Value= 7
  const QStringList pieces = line.split('=');
  const int cell = pieces[3].split(',')[0].trimmed().toInt();
  const int value = pieces[4].trimmed().toInt();
  EXPECT_EQ(value, solutionAt(cell));

  // A line that is not a "Row=" line does nothing.
  clickListLine(hintList(), 0, Qt::RightButton);
  EXPECT_EQ(play().selectedCell, 0);

  clickListLine(hintList(), row, Qt::LeftButton);
  EXPECT_EQ(play().selectedCell, cell);
  EXPECT_EQ(page.paintOf(cell), ManualPaint::Selected);
  EXPECT_EQ(session.grid[cell].value, 0);

  clickListLine(hintList(), row, Qt::RightButton);
  EXPECT_EQ(session.grid[cell].value, value);
  ASSERT_EQ(logList()->count(), 1);
  EXPECT_EQ(logList()->item(0)->text().toStdString(),
            "C" + std::string(cell < 10 ? "0" : "") + std::to_string(cell) + " = " + std::to_string(value));
  EXPECT_TRUE(ui.messages.empty());
}

TEST_F(ManualPageTest, TheCellHintSelectsTheCellWithFewestChoices) {
  clickButton("CellHint");
  ASSERT_EQ(ui.messages.size(), 1u);
  const int cell = play().selectedCell;
  ASSERT_GE(cell, 1);
  const std::string choices = session.grid[cell].candidates.text();
  EXPECT_EQ(ui.messages[0], "Cell " + std::to_string(cell) + " has choices: " + choices);
  EXPECT_EQ(cellChoice().toStdString(), choices);
  EXPECT_EQ(page.paintOf(cell), ManualPaint::Selected);
  for (int c = 1; c <= kCells; ++c)
    if (!session.grid[c].value) {
      const int size = session.grid[c].candidates.size();
      EXPECT_TRUE(size > int(choices.size()) || (size == int(choices.size()) && c >= cell)) << "cell " << c;
    }
}

TEST_F(ManualPageTest, PointerReadoutsAndTheExplanationOfACell) {
  auto* readout = child<QLabel>("PointerReadout");
  int cell = 1;
  while (session.grid[cell].given) ++cell;
  page.onCandidateHovered(cell);
  EXPECT_EQ(readout->text().toStdString(),
            "Cell " + std::to_string(cell) + ", Choices=" + session.grid[cell].candidates.text());
  page.onBoxFrameClicked(4);
  EXPECT_EQ(readout->text(), "This is box number 4");

  page.onCandidateClicked(cell);
  auto* explanation = child<QListWidget>("Explanation");
  const CandidateExplanation expected = explainCandidates(session, cell);
  EXPECT_EQ(listLines(explanation), expected.lines);
  ASSERT_FALSE(expected.lines.empty());
  EXPECT_EQ(expected.lines[0].rfind("The process below explains how the choice of ", 0), 0u);
  for (int c : areaCells(AreaKind::Box, CellBox[cell])) EXPECT_EQ(page.paintOf(c), ManualPaint::BoxHighlight);

  // A click on the grid ends the box highlight.
  int other = kCells;
  while (session.grid[other].given) --other;
  page.onCellClicked(other);
  for (int c : areaCells(AreaKind::Box, CellBox[cell]))
    if (c != other) {
      EXPECT_EQ(page.paintOf(c), ManualPaint::BoxNormal);
    }
  EXPECT_EQ(page.paintOf(other), ManualPaint::Selected);

  // A given explains its own value.
  int given = 1;
  while (!session.grid[given].given) ++given;
  page.onCandidateClicked(given);
  ASSERT_EQ(explanation->count(), 1);
  EXPECT_EQ(explanation->item(0)->text().toStdString(),
            "Cell number " + std::to_string(given) + " has a given value of " +
                std::to_string(session.grid[given].value));
}

TEST(ManualPageKeys, MapsMainKeyboardDigitsAndDelete) {
  EXPECT_EQ(ManualPage::manualKeyCode(Qt::Key_Delete, Qt::NoModifier), 46);
  EXPECT_EQ(ManualPage::manualKeyCode(Qt::Key_1, Qt::NoModifier), 49);
  EXPECT_EQ(ManualPage::manualKeyCode(Qt::Key_9, Qt::ShiftModifier), 57);
  EXPECT_EQ(ManualPage::manualKeyCode(Qt::Key_5, Qt::KeypadModifier), 0);
  EXPECT_EQ(ManualPage::manualKeyCode(Qt::Key_0, Qt::NoModifier), 0);
  EXPECT_EQ(ManualPage::manualKeyCode(Qt::Key_A, Qt::NoModifier), 0);
}

}  // namespace
}  // namespace tessaly
