// The main window: start-up, which way out writes Quorrel.cfg, the mode tabs
// handing the grid's clicks and keys to their pages, choosing puzzles, and the
// File, Options and Help commands, each reaching its core operation.

#include <QPrinter>

#include "Version.h"
#include "model/CollectionFile.h"
#include "play/Explanation.h"
#include "play/Hints.h"
#include "solver/Texts.h"
#include "ui/HelpWindow.h"
#include "UiSupport.h"

namespace tessaly::testing {
namespace {

class WindowTest : public WindowFixture {
 protected:
  /// The log view holds the session's log line for line.
  void expectTheViewShowsTheLog() const {
    ASSERT_EQ(logView()->TotalLines(), session.log.TotalLines());
    for (int n = 1; n <= session.log.TotalLines(); ++n)
      EXPECT_EQ(logView()->lineText(n).toStdString(), session.log.text(n)) << n;
  }
  QString numberBox() const { return child<QLineEdit>("PuzNumNow")->text(); }
  void typeNumber(const QString& text) {
    child<QLineEdit>("PuzNumNow")->selectAll();
    QTest::keyClicks(child("PuzNumNow"), text);
    QTest::keyClick(child("PuzNumNow"), Qt::Key_Return);
  }
  /// The one report printed to a text file (P#1@<time>.txt), removed once read.
  std::string takeReport() const {
    const QStringList names = QDir(QString::fromStdString(appDir())).entryList({"P#1@*.txt"});
    if (names.size() != 1) return "";
    const std::string path = appDir() + names[0].toStdString(), text = readFile(path);
    std::filesystem::remove(path);
    return text;
  }
};

TEST_F(WindowTest, StartUpShowsTheDefaultCollectionAndTheWelcomeText) {
  start();
  EXPECT_EQ(child<QGroupBox>("PuzNumber")->title(), "Total Puzzles 50");
  EXPECT_EQ(child<QLineEdit>("FileNow")->text().toStdString(), appDir() + "Puzzles.sud");
  EXPECT_TRUE(ui.messages.empty());
  ASSERT_EQ(logView()->TotalLines(), int(kWelcomeText.size()));
  EXPECT_EQ(logView()->lineText(1).toStdString(), kWelcomeText[0]);
}

TEST_F(WindowTest, ClosingDoesNotWriteTheConfigurationAndExitDoes) {
  const std::string path = appDir() + "Quorrel.cfg", config = " 300 \r\n3456\r\n\r\nPuzzles.sud\r\n";
  writeFile(path, config);
  start();
  std::filesystem::remove(path);
  window->close();
  EXPECT_FALSE(std::filesystem::exists(path));
  action("mnuexit")->trigger();
  EXPECT_EQ(readFile(path), config);
}

TEST_F(WindowTest, TheManualSolveTabTakesTheGridsClicksAndKeys) {
  start(1);
  selectTab(Tab::ManualSolve);
  // Cell 1 of the puzzle has the choices 45 and the solution 4.
  click("Grid_0");
  QTest::keyClick(child("Grid"), Qt::Key_4);
  EXPECT_EQ(cell("Grid_0").text, "4");
  EXPECT_EQ(lines(child<QListWidget>("LogManual")), std::vector<std::string>{"C01 = 4"});
  doubleClick(cell("Grid_1"));  // the drop-down of the cell's choices
  EXPECT_TRUE(child<QMenu>("mnuChoices")->isVisible());
  child<QMenu>("mnuChoices")->hide();
  // The candidate cells: a click explains the choices, the pointer reads them out.
  click("PosVals_5");
  EXPECT_EQ(lines(child<QListWidget>("Explanation")), explainCandidates(session, 5).lines);
  hover(cell("PosVals_5"));
  EXPECT_EQ(child<QLabel>("PointerReadout")->text().toStdString(), candidateReadout(session, 5));
}

TEST_F(WindowTest, OpenAsksForASudFileAndShowsItsFirstPuzzle) {
  start();
  ui.files.push_back(puzzleFile("pe96.sud"));
  action("mnuOpen")->trigger();
  ASSERT_EQ(ui.fileRequests.size(), 1u);
  EXPECT_EQ(ui.fileRequests[0].mode, FileRequest::Mode::Open);
  EXPECT_EQ(ui.fileRequests[0].pattern, "*.sud *.txt");  // collections and one-per-line lists
  EXPECT_EQ(ui.fileRequests[0].startDir, appDir());
  EXPECT_EQ(numberBox(), "1");
  EXPECT_EQ(child<QGroupBox>("PuzNumber")->title(), "Puzzle 1 of 50 (49 blanks)");
  EXPECT_EQ(child<QLineEdit>("FileNow")->text().toStdString(), puzzleFile("pe96.sud"));
  EXPECT_EQ(cell("Grid_2").text, "3");  // 003020600...: cell 1 blank, with the choices 45
  EXPECT_TRUE(cell("Grid_2").bold);
  EXPECT_EQ(cell("PosVals_1").text, "45");
  EXPECT_EQ(blanksShown(), 49);
  EXPECT_EQ(cell("BoxMissingCount_9").text, QString::number(session.BoxMissingCount[8]));
}

TEST_F(WindowTest, TheNavigationButtonsAndTheNumberBoxReadPuzzles) {
  start(1);
  // Previous (0) and Next (1); the right button goes to the far end.
  const std::tuple<int, Qt::MouseButton, int> steps[] = {
      {1, Qt::LeftButton, 2}, {1, Qt::RightButton, 50}, {0, Qt::LeftButton, 49}, {0, Qt::RightButton, 1}};
  for (const auto& [button, mouse, shown] : steps) {
    click(QString("NavButton_%1").arg(button), mouse);
    EXPECT_EQ(numberBox(), QString::number(shown)) << button << " to " << shown;
    EXPECT_EQ(session.collection.CurrentPuzzleNumber, shown);
    expectTheViewShowsTheLog();  // the same length, but another puzzle's lines
  }
  click("NavButton_2");  // Random draws from the session's random source
  EXPECT_EQ(session.collection.CurrentPuzzleNumber, navigationTarget(NavButton::Random, false, 1, 50, SeededRandom(1).uniform()));
  EXPECT_EQ(numberBox(), QString::number(session.collection.CurrentPuzzleNumber));

  typeNumber("17");
  EXPECT_TRUE(child<QGroupBox>("PuzNumber")->title().startsWith("Puzzle 17 of 50 ("));
  typeNumber("51");  // out of range: nothing read
  EXPECT_EQ(session.collection.CurrentPuzzleNumber, 17);
  typeNumber("30");  // the buttons count from what the box holds
  click("NavButton_1");
  EXPECT_EQ(numberBox(), "31");
}

TEST_F(WindowTest, SolveShowsTheOutcomeAndClearReadsThePuzzleAgain) {
  start(1);
  click("Solveit");
  EXPECT_EQ(ui.messages, std::vector<std::string>{"Done"});
  EXPECT_EQ(fileLength(appDir() + "Eventlog.txt"), 0);
  EXPECT_EQ(child<QLabel>("MesLab")->text(), "Solved with no re-tries");
  EXPECT_EQ(blanksShown(), 0);
  expectTheViewShowsTheLog();
  EXPECT_EQ(logView()->lastVisibleLine(), session.log.TotalLines());
  click("ClearCommand");
  EXPECT_EQ(blanksShown(), 49);
  EXPECT_EQ(lastLogLine(), "Click Start to commence");
  expectTheViewShowsTheLog();
}

TEST_F(WindowTest, TheFileMenuExportsAndPrintsTheSolution) {
  start(1);
  click("Solveit");
  for (const char* type : {"csv", "txt", "xls"}) {
    ui.files.push_back(appDir() + "out." + type);
    action((std::string("mnusave") + type).c_str())->trigger();
    EXPECT_GT(fileLength(appDir() + "out." + type), 0) << type;
    EXPECT_EQ(ui.fileRequests.back().pattern, std::string("*.") + type);
    EXPECT_EQ(ui.fileRequests.back().mode, FileRequest::Mode::Save);
  }

  action("mnuPrPuz2File")->trigger();
  const std::string puzzleOnly = takeReport();
  EXPECT_EQ(puzzleOnly.rfind("Puzzle Number 1\r\n", 0), 0u);
  EXPECT_EQ(puzzleOnly.find("EVENT LOG"), std::string::npos);
  action("mnuPrintEL2File")->trigger();
  EXPECT_NE(takeReport().find("EVENT LOG"), std::string::npos);

  const std::string pdf = appDir() + "report.pdf";
  for (const bool chosen : {false, true}) {  // a cancelled printer prints nothing
    window->setPrinterChooser([&](QPrinter& printer) {
      printer.setOutputFormat(QPrinter::PdfFormat);
      printer.setOutputFileName(QString::fromStdString(pdf));
      return chosen;
    });
    action(chosen ? "mnuPrintEL" : "mnuPrint")->trigger();
    EXPECT_EQ(fileLength(pdf) > 0, chosen);
  }
}

TEST_F(WindowTest, SaveThisPuzzleRuleOrderHelpAndAboutReachTheirCommands) {
  start();
  int saves = 0;  // Save this puzzle runs the command the window was given
  window->saveThisPuzzleCommand = [&] { ++saves; };
  action("mnuSave2InFile")->trigger();
  EXPECT_EQ(saves, 1);
  ui.inputs = {std::string("2255")};  // Options > Rule order asks for the order
  action("mnuRules")->trigger();
  EXPECT_EQ(session.config.RuleOrder, "2255");
  action("mnuHelpContents")->trigger();
  EXPECT_EQ(ui.messages, std::vector<std::string>{"Help file not found: " + appDir() + "SuDoKu.htm"});
  writeFile(appDir() + "SuDoKu.htm", "<html><body><h1>How to play</h1></body></html>");
  action("mnuHelpContents")->trigger();
  ASSERT_NE(window->helpWindow(), nullptr);
  EXPECT_TRUE(window->helpWindow()->isVisible());
  EXPECT_TRUE(child<QTextBrowser>("HelpBrowser")->toPlainText().contains("How to play"));

  action("mnuAbout")->trigger();
  auto* box = child<QMessageBox>("AboutBox");
  ASSERT_NE(box, nullptr);
  EXPECT_TRUE(QRegularExpression("^\\d+\\.\\d+\\.\\d+$").match(kProgramVersion).hasMatch()) << kProgramVersion;
  EXPECT_EQ(box->text().section('\n', 0, 0), QString("Tessaly ") + kProgramVersion);
  action("mnuAbout")->trigger();  // asked again: the same box, not a second one
  EXPECT_EQ(window->findChildren<QMessageBox*>("AboutBox").size(), 1);
  box->close();
}

}  // namespace
}  // namespace tessaly::testing
