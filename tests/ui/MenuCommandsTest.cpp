// Solve and the File, Options and Help menus: what Solve shows, the exports,
// the reports to a text file and to a printer, the rule order, Help and About.

#include <QDir>
#include <QMessageBox>
#include <QPrinter>
#include <QProgressBar>
#include <QRegularExpression>
#include <QTextBrowser>
#include <filesystem>

#include "Version.h"
#include "model/FileUtil.h"
#include "ui/HelpWindow.h"
#include "WindowFixture.h"

namespace tessaly::testing {
namespace {

class MenuCommandsTest : public WindowFixture {
 protected:
  void solvePe96() {
    startWithPuzzle();
    ui.messages.clear();
    click("Solveit");
  }
  QStringList reports() const { return QDir(QString::fromStdString(appDir())).entryList({"P#1@*.txt"}); }
  std::string report() const { return reports().isEmpty() ? "" : readFile(appDir() + reports().first().toStdString()); }
};

TEST_F(MenuCommandsTest, SolveShowsTheOutcomeAndWritesTheEventLogFile) {
  solvePe96();
  EXPECT_EQ(ui.messages, std::vector<std::string>{"Done"});
  EXPECT_EQ(fileLength(appDir() + "Eventlog.txt"), 0);
  EXPECT_EQ(child<QLabel>("MesLab")->text(), "Solved with no re-tries");
  for (int cell = 1; cell <= kCells; ++cell) EXPECT_FALSE(window->valueBox(cell)->text().isEmpty()) << cell;
  EXPECT_EQ(child<QProgressBar>("pb1")->value(), 0);
  EXPECT_EQ(logView()->TotalLines(), session.log.TotalLines());
  EXPECT_EQ(logView()->lastVisibleLine(), session.log.TotalLines());
}

TEST_F(MenuCommandsTest, ExportsTheSolutionThroughTheFileChooser) {
  solvePe96();
  const struct {
    const char* action;
    const char* file;
    const char* pattern;
  } exports[] = {
      {"mnusavecsv", "out.csv", "*.csv"}, {"mnusavetxt", "out.txt", "*.txt"}, {"mnusavexls", "out.xls", "*.xls"}};
  for (const auto& e : exports) {
    ui.files.push_back(appDir() + e.file);
    action(e.action)->trigger();
    EXPECT_GT(fileLength(appDir() + e.file), 0) << e.action;
    EXPECT_EQ(ui.fileRequests.back().pattern, e.pattern);
    EXPECT_EQ(ui.fileRequests.back().mode, FileRequest::Mode::Save);
  }
}

TEST_F(MenuCommandsTest, PrintsTheReportToATextFileOrAPrinter) {
  solvePe96();
  action("mnuPrPuz2File")->trigger();
  EXPECT_EQ(report().rfind("Puzzle Number 1\r\n", 0), 0u);
  EXPECT_EQ(report().find("EVENT LOG"), std::string::npos);
  for (const QString& name : reports()) std::filesystem::remove(appDir() + name.toStdString());
  action("mnuPrintEL2File")->trigger();
  EXPECT_NE(report().find("EVENT LOG"), std::string::npos);

  const std::string pdf = appDir() + "report.pdf";
  window->setPrinterChooser([&](QPrinter& printer) {
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName(QString::fromStdString(pdf));
    return true;
  });
  action("mnuPrintEL")->trigger();
  EXPECT_GT(fileLength(pdf), 0);
  std::filesystem::remove(pdf);
  window->setPrinterChooser([](QPrinter&) { return false; });  // cancelled: nothing printed
  action("mnuPrint")->trigger();
  EXPECT_EQ(fileLength(pdf), -1);
}

TEST_F(MenuCommandsTest, SaveThisPuzzleRuleOrderHelpAndAboutReachTheirCommands) {
  startWindow();
  int saves = 0;  // Save this puzzle runs the command the window was given
  window->saveThisPuzzleCommand = [&] { ++saves; };
  action("mnuSave2InFile")->trigger();
  EXPECT_EQ(saves, 1);
  ui.inputs = {std::string("2255")};  // Options > Rule order asks for the order
  action("mnuRules")->trigger();
  EXPECT_EQ(session.config.RuleOrder, "2255");
  ui.messages.clear();
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
  box->close();
}

}  // namespace
}  // namespace tessaly::testing
