// The window in everyday use: keys that close a message, creation aiming at a
// grade, what stays on screen from an earlier puzzle, the attempt limit.

#include "create/Creation.h"
#include "model/Configuration.h"
#include "model/FileUtil.h"
#include "ui/EntryDialog.h"
#include "ui/ManualPage.h"
#include "ui/ObjectNames.h"
#include <QPaintEngine>
#include <QPrintEngine>
#include <map>

#include "solver/Grader.h"
#include "solver/SolutionCounter.h"
#include "create/PuzzleCheck.h"
#include "UiSupport.h"

namespace tessaly::testing {
namespace {

/// A printer whose engines keep, page by page, the texts drawn and the widths of the lines drawn.
struct PageRecord {
  static constexpr int kDpi = 72, kWidth = 500, kHeight = 700;
  struct Page {
    QStringList texts;
    std::vector<qreal> lineWidths;
  };
  QList<Page> pages;
  QPrinter::PrinterState state = QPrinter::Idle;
  qreal penWidth = 0;

  struct Paint : QPaintEngine {
    explicit Paint(PageRecord& r) : QPaintEngine(QPaintEngine::AllFeatures), record(r) {}
    bool begin(QPaintDevice*) override { return record.pages = {Page()}, record.state = QPrinter::Active, true; }
    bool end() override { return record.state = QPrinter::Idle, true; }
    void updateState(const QPaintEngineState& state) override {
      if (state.state() & QPaintEngine::DirtyPen) record.penWidth = state.pen().widthF();
    }
    void drawPixmap(const QRectF&, const QPixmap&, const QRectF&) override {}
    using QPaintEngine::drawLines;
    void drawLines(const QLineF*, int count) override {
      for (int i = 0; i < count; ++i) record.pages.last().lineWidths.push_back(record.penWidth);
    }
    void drawTextItem(const QPointF&, const QTextItem& item) override { record.pages.last().texts << item.text(); }
    Type type() const override { return QPaintEngine::User; }
    PageRecord& record;
  } paint{*this};

  struct Print : QPrintEngine {
    explicit Print(PageRecord& r) : record(r) {}
    void setProperty(PrintEnginePropertyKey, const QVariant&) override {}
    QVariant property(PrintEnginePropertyKey) const override { return {}; }
    bool newPage() override { return record.pages << Page(), true; }
    bool abort() override { return false; }
    int metric(QPaintDevice::PaintDeviceMetric metric) const override {
      return recordedPageMetric(metric, kWidth, kHeight, kDpi);
    }
    QPrinter::PrinterState printerState() const override { return record.state; }
    PageRecord& record;
  } print{*this};
};

struct PageRecordingPrinter : QPrinter {
  explicit PageRecordingPrinter(PageRecord& record) { setEngines(&record.print, &record.paint); }
};

/// The digits of a puzzle in reading order, one text each.
QStringList digitsOf(const std::string& cells) {
  QStringList digits;
  for (char ch : cells)
    if (ch >= '1' && ch <= '9') digits << QString(ch);
  return digits;
}

class EverydayTest : public WindowFixture {
 protected:
  /// Starts the window with its own dialogs on a copy of pe96 as Puzzles.sud.
  void startWithDialogs() {
    std::filesystem::copy_file(puzzleFile("pe96.sud"), appDir() + "Puzzles.sud");
    open(true);
  }
  /// Once the next message box is open, presses Enter on it (which closes it) and notes its text; `whileOpen`
  /// looks at the window first.
  void pressEnterOnNextMessage(std::function<void()> whileOpen = {}) {
    QTimer::singleShot(1, [this, whileOpen] {
      auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
      if (!box) return pressEnterOnNextMessage(whileOpen);
      m_seen.push_back(box->text().toStdString());
      if (whileOpen) whileOpen();
      QTest::keyPress(box, Qt::Key_Return);
    });
  }
  void chooseGrade(int grade) {
    auto* grades = child<QComboBox>("TargetGradeBox");
    grades->setCurrentIndex(grades->findData(grade));
  }
  std::vector<std::string> logLines() const {
    std::vector<std::string> lines;
    for (int n = 1; n <= session.log.TotalLines(); ++n) lines.emplace_back(session.log.text(n));
    return lines;
  }
  std::vector<std::string> m_seen;
};

// Puzzle box, 5, Enter, F7, Enter on "Done": the release of that Enter reaches the box, which must not read again.
TEST_F(EverydayTest, TheEnterThatClosesAMessageDoesNotReadThePuzzleAgain) {
  startWithDialogs();
  auto* box = child<QLineEdit>("PuzNumNow");
  box->setFocus();
  box->selectAll();
  QTest::keyClicks(box, "5");
  QTest::keyClick(box, Qt::Key_Return);
  ASSERT_EQ(session.collection.CurrentPuzzleNumber, 5);
  pressEnterOnNextMessage();
  click("Solveit");
  ASSERT_EQ(m_seen, std::vector<std::string>{"Done"});
  ASSERT_EQ(session.grid.filledCount(), kCells);
  const int logLines = session.log.TotalLines();
  QTest::keyRelease(box, Qt::Key_Return);
  EXPECT_EQ(session.grid.filledCount(), kCells);
  EXPECT_EQ(session.log.TotalLines(), logLines);
  // An Enter pressed and let go in the box still reads the number typed.
  QTest::keyClick(box, Qt::Key_Return);
  EXPECT_EQ(session.grid.filledCount(), session.givenCount());
  EXPECT_EQ(lastLogLine(), "Click Start to commence");
}

// The attempt limit is the narrated solve's: a creation aiming at a grade completes its grids past it, untold.
TEST_F(EverydayTest, CreationAimingAtAGradeIsNotHeldToTheAttemptLimit) {
  start(1);
  session.config.MaxTries = 1;
  selectTab(Tab::Create);
  chooseGrade(1);
  for (int i = 0; i < 4; ++i) {
    click("CreateCommand");
    EXPECT_EQ(ui.messages, std::vector<std::string>{}) << i;
    EXPECT_EQ(puzzleNumberText(session.collection.origin()).value_or(""), "NEW");
    EXPECT_EQ(child<QLabel>("GradeLabel")->text().toStdString(), gradeCaption(1));
    EXPECT_EQ(session.grid.filledCount(), session.givenCount());
  }
}

// A grade out of reach is told once, with the views in place while the box is open; the board stays as it was.
TEST_F(EverydayTest, AGradeOutOfReachIsToldOnceAndLeavesTheBoardAsItWas) {
  startWithDialogs();
  window->readPuzzleFile(appDir() + "Puzzles.sud", 3);
  const std::string board = session.grid.valueCode(), title = puzzleTitle(session.collection.origin());
  const QString shownTitle = child<QGroupBox>("PuzNumber")->title();
  selectTab(Tab::Create);
  child<QLineEdit>("TotBlanks")->setText("20");
  chooseGrade(5);
  const int cellSize = window->board()->cellSize();
  std::vector<bool> viewsWhileOpen;
  std::vector<int> cellSizeWhileOpen;
  const auto look = [&] {
    window->refreshFromSession();  // as the window's frame timer may while the box is open
    viewsWhileOpen.push_back(child("PosValsFrame")->isVisible() && child("EventLogx")->isVisible());
    cellSizeWhileOpen.push_back(window->board()->cellSize());
  };
  pressEnterOnNextMessage(look);
  click("CreateCommand");
  const std::string told = gradeNotReachedText(5, kDefaultGradeTries);
  EXPECT_EQ(m_seen, std::vector<std::string>{told});
  EXPECT_EQ(viewsWhileOpen, std::vector<bool>{true});
  EXPECT_EQ(cellSizeWhileOpen, std::vector<int>{cellSize});
  EXPECT_EQ(session.grid.valueCode(), board);
  EXPECT_EQ(puzzleTitle(session.collection.origin()), title);
  EXPECT_EQ(child<QGroupBox>("PuzNumber")->title(), shownTitle);
  EXPECT_EQ(blanksShown(), kCells - session.givenCount());

  // A batch at that grade: the one message, and nothing added.
  m_seen.clear();
  const std::uintmax_t collection = fileLength(appDir() + "Puzzles.sud");
  child<QLineEdit>("NumCreate")->setText("3");
  pressEnterOnNextMessage();
  click("AutoSaveCommand");
  EXPECT_EQ(m_seen, std::vector<std::string>{told});
  EXPECT_EQ(fileLength(appDir() + "Puzzles.sud"), collection);
  EXPECT_EQ(session.grid.valueCode(), board);
}

// What stays on screen from a stepped run stopped at a pause, a cell selected by hand and an aborted solve.
TEST_F(EverydayTest, NothingOfAnEarlierPuzzleStaysOnScreenAfterACreation) {
  start(1);
  // A stepped run stopped by Create while a rule shows its area.
  QTimer timer;
  bool created = false;
  QObject::connect(&timer, &QTimer::timeout, [&] {
    if (!window->isWaiting() || created) return;
    if (window->board()->highlightedCell() == 0) return click("NextStepCommand");
    created = true;
    selectTab(Tab::Create, true);
    click("CreateCommand");
  });
  timer.start(1);
  click("StartCommand");
  timer.stop();
  ASSERT_TRUE(created);
  ASSERT_EQ(puzzleNumberText(session.collection.origin()).value_or(""), "NEW");
  EXPECT_EQ(window->board()->highlightedCell(), 0);
  for (int c = 1; c <= kCells; ++c) EXPECT_FALSE(window->board()->isAreaHighlighted(c)) << c;

  // The cell selected on ManualSolve, then a creation on the Create tab.
  window->readPuzzleFile(appDir() + "Puzzles.sud", 1);
  selectTab(Tab::ManualSolve);
  click("Grid_0");
  const QColor selected = manualPaintColours(ManualPaint::Selected, window->colourScheme())->back;
  ASSERT_EQ(cell("Grid_0").back, selected);
  selectTab(Tab::Create);
  click("CreateCommand");
  for (int c = 1; c <= kCells; ++c) EXPECT_NE(window->board()->valueCell(c).back, selected) << c;

  // An aborted solve's status line, then a creation.
  window->readPuzzleFile(puzzleFile("top95.sud"), 1);
  session.config.MaxTries = 1;
  selectTab(Tab::AutoSolve);
  click("Solveit");
  ASSERT_NE(child<QLabel>("MesLab")->text(), "");
  selectTab(Tab::Create);
  click("CreateCommand");
  EXPECT_EQ(child<QLabel>("MesLab")->text(), "");
}

// Paste: the log and the status line start again with the pasted puzzle.
TEST_F(EverydayTest, APastedPuzzleTakesTheLogAndTheStatusLine) {
  start(1);
  session.config.MaxTries = 1;
  window->readPuzzleFile(puzzleFile("top95.sud"), 1);
  click("Solveit");
  ASSERT_NE(child<QLabel>("MesLab")->text(), "");
  const std::string pe96first =
      "003020600900305001001806400008102900700000008006708200002609500800203009005010300";
  QApplication::clipboard()->setText(QString::fromStdString(pe96first));
  ui.answers = {true};
  action("mnuPastePuzzle")->trigger();
  ASSERT_EQ(session.grid.valueCode(), pe96first);
  EXPECT_EQ(logLines(), (std::vector<std::string>{"There are 49 blank cells in the puzzle", "",
                                                  "Click Start to commence"}));
  EXPECT_EQ(logView()->TotalLines(), 3);
  EXPECT_EQ(child<QLabel>("MesLab")->text(), "");
  click("Solveit");
  EXPECT_EQ(session.grid.filledCount(), kCells);
  // An edited board is another puzzle too: the words about the one solved go.
  ASSERT_NE(child<QLabel>("MesLab")->text(), "");
  QTimer::singleShot(0, window.get(), [] {
    auto* dialog = qobject_cast<EntryDialog*>(QApplication::activeModalWidget());
    ASSERT_NE(dialog, nullptr);
    dialog->setText("5" + std::string(80, '0'));
    QTest::mouseClick(named<QAbstractButton>(dialog, "OKButton"), Qt::LeftButton);
  });
  click("EditCommand");
  EXPECT_EQ(session.grid.valueCode().substr(0, 2), "50");
  EXPECT_EQ(child<QLabel>("MesLab")->text(), "");
}

// A click while Paste writes its lines stops the paste where it stands and then
// does what it asks, as a click during a solve does.
TEST_F(EverydayTest, AClickWhilePasteWritesItsLinesRunsAfterIt) {
  start(1);
  QApplication::clipboard()->setText(
      "003020600900305001001806400008102900700000008006708200002609500800203009005010300");
  ui.answers = {true};
  QTimer::singleShot(0, window.get(), [&] { click(QString(names::NavButton_N).arg(int(NavButton::Next))); });
  action("mnuPastePuzzle")->trigger();
  QTest::qWait(50);
  EXPECT_EQ(session.collection.CurrentPuzzleNumber, 2);
  EXPECT_EQ(puzzleNumberText(session.collection.origin()), "2");
  EXPECT_NE(session.grid.valueCode().substr(0, 9), "003020600");
}

// Print puzzle...: the grid large with thick box lines, and on request the solution on a page of its own.
TEST_F(EverydayTest, PrintPuzzleLaysOutTheGridLargeAndTheSolutionOnASecondPage) {
  start(1);
  PageRecord record;
  window->setPrinterFactory([&] { return std::make_unique<PageRecordingPrinter>(record); });
  window->setPrinterChooser([](QPrinter&) { return true; });
  const std::string puzzle = test::replaced(session.grid.valueCode(), '0', '.');
  std::string solution;
  ASSERT_EQ(countSolutions(puzzle, 2, &solution), 1);
  const QString caption = "Puzzle 1 of 50 (49 blanks)  \u00b7  " + QString::fromStdString(gradeCaption(gradePuzzle(puzzle).grade));
  for (const bool withSolution : {true, false}) {
    ui.answers = {withSolution};
    action("mnuPrint")->trigger();
    EXPECT_EQ(ui.questions.back(), "Print the solution on a second page?");
    ASSERT_EQ(record.pages.size(), withSolution ? 2 : 1);
    EXPECT_EQ(record.pages[0].texts, QStringList{caption} + digitsOf(puzzle));
    if (withSolution) {
      EXPECT_EQ(record.pages[1].texts, QStringList{"Solution: Puzzle 1 of 50 (49 blanks)"} + digitsOf(solution));
    }
    // Twelve thin lines between the cells and eight thick ones round the boxes, the thick three times as wide.
    std::vector<qreal> widths = record.pages[0].lineWidths;
    std::sort(widths.begin(), widths.end());
    ASSERT_EQ(widths.size(), 20u);
    EXPECT_EQ(widths.front(), widths[11]);
    EXPECT_EQ(widths[12], widths.back());
    EXPECT_GT(widths.back(), 3 * widths.front());
    // The grid takes most of the page's width.
    EXPECT_GT(widths.front() / 0.02 * 9, 0.8 * PageRecord::kWidth);
  }
}

// Print collection...: 1, 2, 4 or 6 puzzles to a page, each with its number and grade; other answers are asked again.
TEST_F(EverydayTest, PrintCollectionPutsOneTwoFourOrSixPuzzlesOnAPageWithTheirNumbersAndGrades) {
  start(1);
  PageRecord record;
  window->setPrinterFactory([&] { return std::make_unique<PageRecordingPrinter>(record); });
  window->setPrinterChooser([](QPrinter&) { return true; });
  const std::tuple<const char*, int> cases[] = {{"1", 50}, {"2", 25}, {"4", 13}, {"6", 9}};
  for (const auto& [answer, pages] : cases) {
    ui.inputs = {std::string("3"), std::string(answer)};
    ui.messages.clear();
    action("mnuPrintCollection")->trigger();
    EXPECT_EQ(ui.messages, std::vector<std::string>{"Puzzles on each page: 1, 2, 4 or 6"});
    ASSERT_EQ(record.pages.size(), pages) << answer;
    const int perPage = std::atoi(answer);
    QStringList captions;
    for (const QString& text : record.pages[0].texts)
      if (text.startsWith("Puzzles.sud")) captions << text;
    QStringList expected;
    for (int n = 1; n <= perPage; ++n) {
      window->readPuzzleFile(appDir() + "Puzzles.sud", n);
      const int grade = gradePuzzle(test::replaced(session.grid.valueCode(), '0', '.')).grade;
      expected << QString("Puzzles.sud  #%1  \u00b7  %2").arg(n).arg(QString::fromStdString(gradeCaption(grade)));
    }
    EXPECT_EQ(captions, expected) << answer;
  }
}

// Options > Attempt limit... sets MaxTries and writes it as the configuration is written; an aborted solve's
// status line then names the ways on.
TEST_F(EverydayTest, TheAttemptLimitIsSetFromTheOptionsMenuAndTheAbortTellsTheWaysOn) {
  start(1);
  ui.inputs = {std::string("abc"), std::string("0"), std::string("1")};
  action("mnuAttemptLimit")->trigger();
  const std::string refusal = "The attempt limit is a whole number from 1 to 100000000";
  EXPECT_EQ(ui.messages, (std::vector<std::string>{refusal, refusal}));
  EXPECT_EQ(ui.prompts.size(), 3u);
  EXPECT_EQ(session.config.MaxTries, 1);
  EXPECT_EQ(readFile(configurationPath(session)).substr(0, 5), " 1 \r\n");
  ui.inputs = {std::nullopt};
  action("mnuAttemptLimit")->trigger();  // cancelled: nothing changes
  EXPECT_EQ(session.config.MaxTries, 1);

  window->readPuzzleFile(puzzleFile("top95.sud"), 1);
  ui.messages.clear();
  click("Solveit");
  EXPECT_EQ(ui.messages, (std::vector<std::string>{"Tried 1 times, solution aborted", "Done"}));
  EXPECT_EQ(child<QLabel>("MesLab")->text().toStdString(),
            "Tried 1 times, solution aborted. To go on, raise Options > Attempt limit... or turn on Options > "
            "Further techniques");
}

}  // namespace
}  // namespace tessaly::testing
