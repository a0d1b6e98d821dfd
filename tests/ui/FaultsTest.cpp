// Faults once seen in the window, driven through the real widgets: printing, file
// paths, save names, the help page's control names, and run and board states.

#include <QPaintEngine>
#include <QPrinter>
#include <QPrintEngine>
#include <QProgressBar>
#include <deque>
#include <map>
#include <regex>
#include <set>

#include "model/FileUtil.h"
#include "output/TextExport.h"
#include "UiSupport.h"
#include "solver/Narrator.h"

namespace tessaly::testing {
namespace {

/// A printer's engines that keep the text of each drawn row, page by page.
struct PrintRecord {
  static constexpr int kDpi = 72, kWidth = 360, kHeight = 500;  // about 60 characters of the report's font wide
  QList<QStringList> pages;
  QFont font;
  QPrinter::PrinterState state = QPrinter::Idle;

  struct Paint : QPaintEngine {
    explicit Paint(PrintRecord& r) : QPaintEngine(QPaintEngine::AllFeatures), record(r) {}
    bool begin(QPaintDevice*) override { return record.pages = {QStringList()}, record.state = QPrinter::Active, true; }
    bool end() override { return record.state = QPrinter::Idle, true; }
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
    bool newPage() override { return record.pages << QStringList(), true; }
    bool abort() override { return false; }
    int metric(QPaintDevice::PaintDeviceMetric metric) const override {
      return recordedPageMetric(metric, kWidth, kHeight, kDpi);
    }
    QPrinter::PrinterState printerState() const override { return record.state; }
    PrintRecord& record;
  } print{*this};
};

struct RecordingPrinter : QPrinter {
  explicit RecordingPrinter(PrintRecord& record) { setEngines(&record.print, &record.paint); }
};

/// The text with every blank and line break taken out.
QString solid(QString text) { return text.remove(QRegularExpression("\\s")); }

class FaultsTest : public WindowFixture {
 protected:
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
  /// Edit, answered with puzzle 1 of pe96 less its first given.
  void editAPuzzle() {
    answerDialog("OKButton", [](EntryDialog& d) {
      d.setText("....2.6..\n9..3.5..1\n..18.64..\n..81.29..\n7.......8\n..67.82..\n..26.95..\n8..2.3..9\n..5.1.3..");
    });
    click("EditCommand");
  }
  PrintRecord m_print;
};

// After a Solve and a stepped run: the report with the whole log under its heading, every row wrapped to fit.
TEST_F(FaultsTest, PrintingWithTheLogPrintsEveryLineOfTheLogWrappedAtThePageEdge) {
  for (const bool stepped : {false, true}) {
    SCOPED_TRACE(stepped ? "Start" : "Solve");
    start(1);
    stepped ? stepToTheEnd(Qt::RightButton) : click("Solveit");
    ASSERT_EQ(session.grid.filledCount(), kCells);
    ASSERT_EQ(session.log.RecordedLineCount, 0);
    std::string expected = reportText(session, true), log;
    for (int n = 1; n <= session.log.TotalLines(); ++n) log += std::string(session.log.text(n)) + "\r\n";
    expected.insert(expected.find("EVENT LOG\r\n") + 11, log);

    const PrintRecord& printed = printWithLog();
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
            (std::vector<std::string>{"Could not write file: " + appDir() + "gone/Eventlog.txt (No such file or directory)", "Done"}));
}

TEST_F(FaultsTest, ASaveDialogAddsTheExtensionOfItsKindToABareName) {
  std::filesystem::copy_file(puzzleFile("pe96.sud"), appDir() + "Puzzles.sud");
  open(true);
  window->readPuzzleFile(appDir() + "Puzzles.sud", 1);
  const std::tuple<const char*, QString, std::string> cases[] = {
      {"mnusavecsv", "mine", "mine.csv"},        {"mnusavetxt", "mine", "mine.txt"},
      {"mnusavexls", "mine", "mine.xls"},        {"mnusavecsv", "other.", "other.csv"},
      {"mnusavecsv", "notes.TXT", "notes.TXT"}, {"mnusavetxt", "board.v2", "board.v2"}};
  std::deque<QString> names;
  for (const auto& c : cases) names.push_back(std::get<1>(c));
  // Each modal box as it opens: a message or question its default button (text noted), a file dialog the next name.
  std::vector<std::string> texts;
  QTimer timer;
  QObject::connect(&timer, &QTimer::timeout, [&] {
    QWidget* modal = QApplication::activeModalWidget();
    if (auto* box = qobject_cast<QMessageBox*>(modal)) {
      texts.push_back(box->text().toStdString());
      box->button(box->standardButtons().testFlag(QMessageBox::Yes) ? QMessageBox::Yes : QMessageBox::Ok)->click();
    } else if (auto* files = qobject_cast<QFileDialog*>(modal)) {
      auto* name = files->findChild<QLineEdit*>("fileNameEdit");
      if (!name || names.empty()) return files->reject();
      name->clear();
      QTest::keyClicks(name, names.front());
      names.pop_front();
      QTest::keyClick(name, Qt::Key_Return);
    }
  });
  timer.start(5);
  click("Solveit");
  for (const auto& [menu, typed, written] : cases) {
    texts.clear();
    action(menu)->trigger();
    EXPECT_EQ(texts, std::vector<std::string>{"Puzzle and its solution saved in file: " + appDir() + written})
        << typed.toStdString();
    EXPECT_GT(fileLength(appDir() + written), 0) << written;
  }
  EXPECT_FALSE(std::filesystem::exists(appDir() + "mine"));
}

TEST_F(FaultsTest, TheHelpPageNamesEachControlByItsCaption) {
  start();
  // Every caption shown, "&" marks taken out: buttons, group boxes, labels, menus, actions, tabs.
  QStringList texts;
  for (const auto* button : window->findChildren<QAbstractButton*>()) texts << button->text();
  for (const auto* group : window->findChildren<QGroupBox*>()) texts << group->title();
  for (const auto* label : window->findChildren<QLabel*>()) texts << label->text();
  for (const auto* menu : window->findChildren<QMenu*>()) texts << menu->title();
  for (const auto* action : window->findChildren<QAction*>()) texts << action->text();
  for (const auto* tabs : window->findChildren<QTabBar*>())
    for (int i = 0; i < tabs->count(); ++i) texts << tabs->tabText(i);
  std::set<std::string> shown;
  for (QString text : texts) shown.insert(text.remove('&').toStdString());

  const std::string page = readFile(std::string(TESSALY_DATA_DIR) + "/SuDoKu.htm");
  const std::regex quoted("<b class=\"control\">([^<]*)</b>");
  int names = 0;
  for (auto it = std::sregex_iterator(page.begin(), page.end(), quoted); it != std::sregex_iterator(); ++it, ++names) {
    const std::string name = std::regex_replace((*it)[1].str(), std::regex("\\s+"), " ");
    EXPECT_TRUE(shown.count(name)) << "the help page names \"" << name << "\", which the window does not show";
  }
  EXPECT_GT(names, 50);
}

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

// With no collection at all, a typed and a created puzzle can still be run; Edit re-enables Start.
TEST_F(FaultsTest, CreatedAndTypedPuzzlesCanBeRunAndEditReenablesStart) {
  open();  // no Puzzles.sud
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
  for (const char* name : {"SolutionsFrame", "StartCommand"}) EXPECT_TRUE(enabled(name)) << name;
  for (const char* name : {"PosValsFrame", "EventLogx"}) EXPECT_TRUE(child(name)->isVisible()) << name;
}

// Clear asks before dropping a created or typed puzzle for puzzle 1 again; No keeps the board.
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

// "No pauses" ticked and cleared again at a pause leaves the run stepping: the next pause has Next enabled.
TEST_F(FaultsTest, ClearingNoPausesDuringARunWaitsAgainWithNextEnabled) {
  session.controls.PauseCheck = false;
  start(1);
  std::vector<bool> nextEnabledAtPause;
  const auto note = [&] { nextEnabledAtPause.push_back(enabled("NextStepCommand")); };
  PauseScript script(*window, {[&] {
                                 note();
                                 click("PauseCheck");  // runs on ...
                                 click("PauseCheck");  // ... and steps again
                                 EXPECT_FALSE(session.controls.PauseCheck);
                               },
                               [&] { note(); click("NextStepCommand", Qt::RightButton); }});
  click("StartCommand");
  EXPECT_EQ(nextEnabledAtPause, (std::vector<bool>{true, true}));
  EXPECT_FALSE(window->isWaiting());
  EXPECT_EQ(statusLine(session.run.ended), "Solved with no re-tries");
}

TEST_F(FaultsTest, AnAbortedRunLeavesNextDisabledAndStartEnabled) {
  start();
  window->readPuzzleFile(puzzleFile("top95.sud"), 1);  // the rules alone do not solve it
  session.config.MaxTries = 1;
  stepToTheEnd();
  EXPECT_EQ(statusLine(session.run.ended),
            "Tried 1 times, solution aborted. To go on, raise Options > Attempt limit... or turn on Options > "
            "Further techniques");
  EXPECT_FALSE(window->isWaiting());
  EXPECT_FALSE(enabled("NextStepCommand"));
  for (const char* name : {"StartCommand", "ClearCommand", "EditCommand", "Solveit"}) EXPECT_TRUE(enabled(name)) << name;
}

}  // namespace
}  // namespace tessaly::testing
