// Faults once seen in the window, each driven through the real widgets: what is
// printed and where files are said to be, the names given in the save
// dialogs, the help page's names for the controls, and the run and board
// states that once left a control dead or a question unasked.

#include <QPaintEngine>
#include <QPrinter>
#include <QPrintEngine>
#include <QProgressBar>
#include <deque>
#include <regex>
#include <set>

#include "model/FileUtil.h"
#include "output/TextExport.h"
#include "UiSupport.h"

namespace tessaly::testing {
namespace {

// --- a printer that keeps what is drawn on it

/// The pages a RecordingPrinter was given: the text of each drawn row.
struct PrintRecord {
  static constexpr int kDpi = 72;
  static constexpr int kWidth = 360;  ///< about 60 characters of the report's font
  static constexpr int kHeight = 500;
  QList<QStringList> pages;
  QFont font;
  QPrinter::PrinterState state = QPrinter::Idle;

  struct Paint : QPaintEngine {
    explicit Paint(PrintRecord& r) : QPaintEngine(QPaintEngine::AllFeatures), record(r) {}
    bool begin(QPaintDevice*) override {
      record.pages = {QStringList()};
      record.state = QPrinter::Active;
      return true;
    }
    bool end() override {
      record.state = QPrinter::Idle;
      return true;
    }
    void updateState(const QPaintEngineState&) override {}
    void drawPixmap(const QRectF&, const QPixmap&, const QRectF&) override {}
    void drawTextItem(const QPointF&, const QTextItem& item) override {
      record.pages.last() << item.text();
      record.font = item.font();
    }
    Type type() const override { return QPaintEngine::User; }
    PrintRecord& record;
  } paint{*this};

  struct Print : QPrintEngine {
    explicit Print(PrintRecord& r) : record(r) {}
    void setProperty(PrintEnginePropertyKey, const QVariant&) override {}
    QVariant property(PrintEnginePropertyKey) const override { return {}; }
    bool newPage() override {
      record.pages << QStringList();
      return true;
    }
    bool abort() override { return false; }
    int metric(QPaintDevice::PaintDeviceMetric metric) const override {
      switch (metric) {
        case QPaintDevice::PdmWidth: return kWidth;
        case QPaintDevice::PdmHeight: return kHeight;
        case QPaintDevice::PdmWidthMM: return kWidth * 254 / (10 * kDpi);
        case QPaintDevice::PdmHeightMM: return kHeight * 254 / (10 * kDpi);
        case QPaintDevice::PdmNumColors: return 256;
        case QPaintDevice::PdmDepth: return 32;
        case QPaintDevice::PdmDevicePixelRatio: return 1;
        case QPaintDevice::PdmDevicePixelRatioScaled: return int(QPaintDevice::devicePixelRatioFScale());
        default: return kDpi;
      }
    }
    QPrinter::PrinterState printerState() const override { return record.state; }
    PrintRecord& record;
  } print{*this};
};

class RecordingPrinter : public QPrinter {
 public:
  explicit RecordingPrinter(PrintRecord& record) { setEngines(&record.print, &record.paint); }
};

/// The text with every blank and line break taken out.
QString solid(QString text) { return text.remove(QRegularExpression("\\s")); }

class FaultsTest : public WindowFixture {
 protected:
  /// Prints through File > Print puzzle and event log... on a recording printer.
  const PrintRecord& printWithLog() {
    window->setPrinterFactory([this] { return std::make_unique<RecordingPrinter>(m_print); });
    window->setPrinterChooser([](QPrinter&) { return true; });
    action("mnuPrintEL")->trigger();
    return m_print;
  }
  /// Clicks Next while the run waits, until it ends; the right button runs on at once.
  void stepToTheEnd(Qt::MouseButton button = Qt::LeftButton) {
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, [this, button] {
      if (window->isWaiting()) click("NextStepCommand", button);
    });
    timer.start(1);
    click("StartCommand");
  }
  /// Answers the grid entry dialog of Edit with puzzle 1 of pe96 less its first given.
  void editAPuzzle() {
    answerDialog("OKButton", [](EntryDialog& d) {
      d.setText("....2.6..\n9..3.5..1\n..18.64..\n..81.29..\n7.......8\n..67.82..\n..26.95..\n8..2.3..9\n..5.1.3..");
    });
    click("EditCommand");
  }
  bool enabled(const char* name) const { return child(name)->isEnabled(); }

  PrintRecord m_print;
};

// The printer gets the whole log as it stands after a Solve and after a
// stepped run (whose recorded line count is 0), every row fits the page, and
// nothing of a long line is lost: put together, the rows give the report file's
// text with the log's lines where its heading stands.
TEST_F(FaultsTest, PrintingWithTheLogPrintsEveryLineOfTheLogWrappedAtThePageEdge) {
  for (const bool stepped : {false, true}) {
    SCOPED_TRACE(stepped ? "Start" : "Solve");
    start(1);
    if (stepped)
      stepToTheEnd(Qt::RightButton);
    else
      click("Solveit");
    ASSERT_EQ(session.grid.filledCount(), kCells);
    ASSERT_EQ(session.log.RecordedLineCount, 0);
    std::string expected = reportText(session, true);
    std::string log;
    for (int n = 1; n <= session.log.TotalLines(); ++n) log += std::string(session.log.text(n)) + "\r\n";
    expected.insert(expected.find("EVENT LOG\r\n") + 11, log);

    const PrintRecord& printed = printWithLog();
    ASSERT_FALSE(printed.pages.isEmpty());
    QStringList rows;
    for (const QStringList& page : printed.pages) rows << page;
    ASSERT_FALSE(rows.isEmpty());
    EXPECT_TRUE(rows.takeFirst().startsWith("Tessaly   Puzzles.sud   "));
    EXPECT_EQ(solid(rows.join("")), solid(QString::fromStdString(expected)));
    EXPECT_GT(printed.pages.size(), 1);
    RecordingPrinter page(m_print);
    const QFontMetrics metrics(printed.font, &page);
    int wrapped = 0;
    for (const QString& row : rows) {
      EXPECT_LE(metrics.horizontalAdvance(row.trimmed()), PrintRecord::kWidth) << row.toStdString();
      wrapped += expected.find(row.toStdString() + "\r\n") == std::string::npos;
    }
    EXPECT_GT(wrapped, 0) << "no line was long enough to wrap";
    window.reset();
  }
}

// "Printed to:" and a failed Eventlog.txt name the file with its folder.
TEST_F(FaultsTest, ThePathMessagesNameTheFolderAndTheFile) {
  start(1);
  click("Solveit");
  ui.messages.clear();
  action("mnuPrPuz2File")->trigger();
  ASSERT_EQ(ui.messages.size(), 1u);
  const std::string printed = ui.messages[0];
  EXPECT_EQ(printed.rfind("Printed to: " + appDir() + "P#1@", 0), 0u) << printed;
  EXPECT_GT(fileLength(printed.substr(12)), 0) << printed;

  session.folders.output = appDir() + "gone/";
  ui.messages.clear();
  click("Solveit");
  EXPECT_EQ(ui.messages,
            (std::vector<std::string>{"Could not write file: " + appDir() + "gone/Eventlog.txt", "Done"}));
}

// --- the save dialogs, answered as a user would

/// Answers each modal box as it opens: a message or question with its default
/// button (noting its text), a file dialog with the name given.
class ModalAnswers {
 public:
  explicit ModalAnswers(std::deque<QString> names) : m_names(std::move(names)) {
    QObject::connect(&m_timer, &QTimer::timeout, [this] { answer(); });
    m_timer.start(5);
  }
  std::vector<std::string> texts;

 private:
  void answer() {
    QWidget* modal = QApplication::activeModalWidget();
    if (auto* box = qobject_cast<QMessageBox*>(modal)) {
      texts.push_back(box->text().toStdString());
      box->button(box->standardButtons().testFlag(QMessageBox::Yes) ? QMessageBox::Yes : QMessageBox::Ok)->click();
    } else if (auto* files = qobject_cast<QFileDialog*>(modal)) {
      auto* name = files->findChild<QLineEdit*>("fileNameEdit");
      if (!name || m_names.empty()) return files->reject();
      name->clear();
      QTest::keyClicks(name, m_names.front());
      m_names.pop_front();
      QTest::keyClick(name, Qt::Key_Return);
    }
  }
  std::deque<QString> m_names;
  QTimer m_timer;
};

TEST_F(FaultsTest, ASaveDialogAddsTheExtensionOfItsKindToABareName) {
  std::filesystem::copy_file(puzzleFile("pe96.sud"), appDir() + "Puzzles.sud");
  window = std::make_unique<MainWindow>(session);  // the window's own dialogs
  window->startUp(appDir());
  window->show();
  ASSERT_TRUE(QTest::qWaitForWindowExposed(window.get()));
  window->readPuzzleFile(appDir() + "Puzzles.sud", 1);
  struct Case {
    const char* action;
    QString typed;
    std::string written;
  };
  const Case cases[] = {{"mnusavecsv", "mine", "mine.csv"},        {"mnusavetxt", "mine", "mine.txt"},
                        {"mnusavexls", "mine", "mine.xls"},        {"mnusavecsv", "other.", "other.csv"},
                        {"mnusavecsv", "notes.TXT", "notes.TXT"}, {"mnusavetxt", "board.v2", "board.v2"}};
  std::deque<QString> names;
  for (const Case& c : cases) names.push_back(c.typed);
  ModalAnswers answers(names);
  click("Solveit");
  for (const Case& c : cases) {
    answers.texts.clear();
    action(c.action)->trigger();
    EXPECT_EQ(answers.texts, std::vector<std::string>{"Puzzle and its solution saved in file: " + appDir() + c.written})
        << c.typed.toStdString();
    EXPECT_GT(fileLength(appDir() + c.written), 0) << c.written;
  }
  EXPECT_FALSE(std::filesystem::exists(appDir() + "mine"));
}

// --- the help page

/// Every caption the window shows: buttons, check boxes, options, group boxes,
/// labels, tabs, menus and their entries, without their "&" marks.
std::set<std::string> captions(const QWidget* window) {
  QStringList texts;
  for (const auto* button : window->findChildren<QAbstractButton*>()) texts << button->text();
  for (const auto* group : window->findChildren<QGroupBox*>()) texts << group->title();
  for (const auto* label : window->findChildren<QLabel*>()) texts << label->text();
  for (const auto* menu : window->findChildren<QMenu*>()) texts << menu->title();
  for (const auto* action : window->findChildren<QAction*>()) texts << action->text();
  for (const auto* tabs : window->findChildren<QTabBar*>())
    for (int i = 0; i < tabs->count(); ++i) texts << tabs->tabText(i);
  std::set<std::string> set;
  for (QString text : texts) set.insert(text.remove('&').toStdString());
  return set;
}

TEST_F(FaultsTest, TheHelpPageNamesEachControlByItsCaption) {
  start();
  const std::set<std::string> shown = captions(window.get());
  const std::string page = readFile(std::string(TESSALY_DATA_DIR) + "/SuDoKu.htm");
  const std::regex quoted("<b class=\"control\">([^<]*)</b>");
  int names = 0;
  for (auto it = std::sregex_iterator(page.begin(), page.end(), quoted); it != std::sregex_iterator(); ++it, ++names) {
    const std::string name = std::regex_replace((*it)[1].str(), std::regex("\\s+"), " ");
    EXPECT_TRUE(shown.count(name)) << "the help page names \"" << name << "\", which the window does not show";
  }
  EXPECT_GT(names, 50);
}

// --- runs, boards and the controls they leave

// A placement made by hand survives a visit to another tab: Undo takes it back.
TEST_F(FaultsTest, MovesSurviveATabSwitchAndUndoTakesThemBack) {
  start(1);
  selectTab(Tab::ManualSolve);
  click("Grid_0");
  QTest::keyClick(child("Grid"), Qt::Key_4);
  selectTab(Tab::AutoSolve);
  selectTab(Tab::ManualSolve);
  EXPECT_EQ(lines(child<QListWidget>("LogManual")), std::vector<std::string>{"C01 = 4"});
  click("UndoManual");
  EXPECT_TRUE(ui.messages.empty()) << ui.messages.front();
  EXPECT_EQ(cell("Grid_0").text, "");
  EXPECT_TRUE(lines(child<QListWidget>("LogManual")).empty());
}

// A created puzzle, and one typed in with Edit when there is no collection at
// all, can be run from the Solution frame; Edit re-enables Start after a run.
TEST_F(FaultsTest, CreatedAndTypedPuzzlesCanBeRunAndEditReenablesStart) {
  window = std::make_unique<MainWindow>(session, &ui);  // no Puzzles.sud
  window->startUp(appDir());
  window->show();
  EXPECT_EQ(ui.messages, std::vector<std::string>{"Default puzzle file not found: " + appDir() + "Puzzles.sud"});
  EXPECT_TRUE(enabled("SolutionsFrame"));
  EXPECT_TRUE(enabled("EditCommand"));
  editAPuzzle();
  EXPECT_EQ(blanksShown(), 50);
  EXPECT_TRUE(enabled("StartCommand"));
  click("Solveit");
  EXPECT_EQ(blanksShown(), 0);
  EXPECT_FALSE(enabled("StartCommand"));
  editAPuzzle();
  EXPECT_TRUE(enabled("StartCommand"));

  selectTab(Tab::Create);
  click("CreateCommand");
  EXPECT_EQ(child<QProgressBar>("pb1")->value(), 0);  // not the silent run's count
  selectTab(Tab::AutoSolve);
  EXPECT_TRUE(enabled("SolutionsFrame"));
  EXPECT_TRUE(enabled("StartCommand"));
  EXPECT_TRUE(child("PosValsFrame")->isVisible());
  EXPECT_TRUE(child("EventLogx")->isVisible());
}

// After Create or Edit the board holds a puzzle of no collection: Clear asks
// before it reads the collection's puzzle again, and No keeps the board.
TEST_F(FaultsTest, ClearAsksBeforeGivingUpACreatedOrTypedPuzzle) {
  const std::string question =
      "The puzzle on the board is not in a collection and will be lost. Clear it and read puzzle 1 again?";
  for (const bool created : {true, false}) {
    SCOPED_TRACE(created ? "Create" : "Edit");
    start(1);
    if (created) {
      selectTab(Tab::Create);
      click("CreateCommand");
      selectTab(Tab::AutoSolve);
    } else {
      editAPuzzle();
    }
    const std::string board = session.grid.valueCode();
    ASSERT_TRUE(enabled("ClearCommand"));
    ui.answers = {false, true};
    click("ClearCommand");
    EXPECT_EQ(session.grid.valueCode(), board);
    click("ClearCommand");
    EXPECT_EQ(ui.questions, (std::vector<std::string>{question, question}));
    EXPECT_EQ(blanksShown(), 49);
    EXPECT_EQ(lastLogLine(), "Click Start to commence");
    ui.questions.clear();
    window.reset();
  }
}

// Ticking "No pauses" at a pause lets the run go on; clearing it again before
// the run has gone on leaves it stepping: it stops at the next pause point,
// where Next is enabled and goes on.
TEST_F(FaultsTest, ClearingNoPausesDuringARunWaitsAgainWithNextEnabled) {
  session.controls.PauseCheck = false;
  start(1);
  std::vector<bool> nextEnabledAtPause;
  QTimer timer;
  QObject::connect(&timer, &QTimer::timeout, [&] {
    if (!window->isWaiting() || int(nextEnabledAtPause.size()) >= window->pauseWaits()) return;
    nextEnabledAtPause.push_back(enabled("NextStepCommand"));
    if (nextEnabledAtPause.size() == 1) {
      click("PauseCheck");  // runs on ...
      click("PauseCheck");  // ... and steps again
      EXPECT_FALSE(session.controls.PauseCheck);
    } else {
      click("NextStepCommand", Qt::RightButton);
    }
  });
  timer.start(2);
  click("StartCommand");
  EXPECT_EQ(nextEnabledAtPause, (std::vector<bool>{true, true}));
  EXPECT_FALSE(window->isWaiting());
  EXPECT_EQ(session.statusText, "Solved with no re-tries");
}

// A stepped run that gives up after MaxTries placements leaves Next disabled
// and Start, Clear and Edit enabled.
TEST_F(FaultsTest, AnAbortedRunLeavesNextDisabledAndStartEnabled) {
  start();
  window->readPuzzleFile(puzzleFile("top95.sud"), 1);  // the rules alone do not solve it
  session.config.MaxTries = 1;
  stepToTheEnd();
  EXPECT_EQ(session.statusText, "Tried 1 times, solution aborted");
  EXPECT_FALSE(window->isWaiting());
  EXPECT_FALSE(enabled("NextStepCommand"));
  for (const char* name : {"StartCommand", "ClearCommand", "EditCommand", "Solveit"}) EXPECT_TRUE(enabled(name)) << name;
}

}  // namespace
}  // namespace tessaly::testing
