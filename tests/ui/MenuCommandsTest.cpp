// Solve and the File and Options menus: Eventlog.txt and "Done", the exports,
// the reports, printing to PDF and the rule-order dialog.

#include <QDir>
#include <QMessageBox>
#include <QPrinter>
#include <QTextBrowser>

#include "ui/HelpWindow.h"
#include <filesystem>

#include "WindowFixture.h"

namespace tessaly::testing {
namespace {

class MenuCommandsTest : public WindowFixture {
 protected:
  void solvePe96() {
    startWithPuzzle(puzzlePath("pe96.sud"), 1);
    click("Solveit");
    ui.messages.clear();
  }
  long long fileSize(const std::string& path) const {
    return std::filesystem::exists(path) ? static_cast<long long>(std::filesystem::file_size(path)) : -1;
  }
  QStringList reports() const { return QDir(QString::fromStdString(workDir())).entryList({"P#1@*.txt"}); }
};

TEST_F(MenuCommandsTest, SolveFillsTheGridWritesAnEmptyEventLogFileAndSaysDone) {
  startWithPuzzle(puzzlePath("pe96.sud"), 1);
  ui.messages.clear();
  click("Solveit");

  ASSERT_EQ(ui.messages.size(), 1u);
  EXPECT_EQ(ui.messages[0], "Done");
  EXPECT_EQ(fileSize(workDir() + "Eventlog.txt"), 0);
  EXPECT_EQ(text("MesLab"), "Solved with no re-tries");
  EXPECT_TRUE(logHas("Solved with no re-tries"));
  for (int cell = 1; cell <= 81; ++cell) EXPECT_FALSE(window->valueBox(cell)->text().isEmpty()) << cell;
  EXPECT_EQ(child<QProgressBar>("pb1")->value(), 0);
  EXPECT_EQ(logView()->TotalLines(), session.log.TotalLines());
  EXPECT_EQ(logView()->lastVisibleLine(), session.log.TotalLines());
}

TEST_F(MenuCommandsTest, SavesTheSolutionAsCsvTxtAndXls) {
  solvePe96();
  const struct {
    const char* action;
    const char* file;
    const char* pattern;
  } exports[] = {{"mnusavecsv", "out.csv", "*.csv"}, {"mnusavetxt", "out.txt", "*.txt"}, {"mnusavexls", "out.xls", "*.xls"}};
  for (const auto& e : exports) {
    const std::string path = workDir() + e.file;
    ui.files.push_back(path);
    action(e.action)->trigger();
    EXPECT_GT(fileSize(path), 0) << e.action;
    ASSERT_FALSE(ui.messages.empty()) << e.action;
    EXPECT_EQ(ui.messages.back(), "Puzzle and its solution saved in file: " + path);
    EXPECT_EQ(ui.fileRequests.back().pattern, e.pattern);
    EXPECT_EQ(ui.fileRequests.back().mode, FileRequest::Mode::Save);
  }
  EXPECT_EQ(readText(workDir() + "out.txt").substr(0, 8), "PUZZLE\r\n");
}

TEST_F(MenuCommandsTest, SavingAnUnsolvedPuzzleIsRefused) {
  startWithPuzzle(puzzlePath("pe96.sud"), 1);
  ui.messages.clear();
  action("mnusavecsv")->trigger();
  ASSERT_EQ(ui.messages.size(), 1u);
  EXPECT_EQ(ui.messages[0], "There is no solution to save");
  EXPECT_TRUE(ui.fileRequests.empty());
}

TEST_F(MenuCommandsTest, PrintsThePuzzleToATextFileWithAndWithoutTheLog) {
  solvePe96();
  action("mnuPrPuz2File")->trigger();
  ASSERT_EQ(ui.messages.size(), 1u);
  EXPECT_EQ(ui.messages[0].rfind("Printed to: P#1@", 0), 0u);
  ASSERT_FALSE(reports().isEmpty());
  const std::string report = readText(workDir() + reports().first().toStdString());
  EXPECT_EQ(report.rfind("Puzzle Number 1\r\n", 0), 0u);
  EXPECT_EQ(report.find("EVENT LOG"), std::string::npos);

  for (const QString& name : reports()) QFile::remove(QString::fromStdString(workDir()) + name);
  action("mnuPrintEL2File")->trigger();
  ASSERT_FALSE(reports().isEmpty());
  EXPECT_NE(readText(workDir() + reports().first().toStdString()).find("EVENT LOG"), std::string::npos);
}

TEST_F(MenuCommandsTest, PrintsThePuzzleIntoAPdfFile) {
  solvePe96();
  const QString pdf = QString::fromStdString(workDir() + "report.pdf");
  window->setPrinterChooser([&](QPrinter& printer) {
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName(pdf);
    return true;
  });
  action("mnuPrintEL")->trigger();
  EXPECT_GT(fileSize(pdf.toStdString()), 0);
  EXPECT_TRUE(ui.messages.empty());

  // A cancelled printer choice prints nothing.
  QFile::remove(pdf);
  window->setPrinterChooser([](QPrinter&) { return false; });
  action("mnuPrint")->trigger();
  EXPECT_FALSE(QFile::exists(pdf));
}

TEST_F(MenuCommandsTest, TheRuleOrderDialogAsksUntilTheAnswerIsAcceptable) {
  startWindow();
  ui.messages.clear();
  ui.inputs = {std::string("27"), std::string("2255")};
  action("mnuRules")->trigger();

  ASSERT_EQ(ui.prompts.size(), 2u);
  const std::string ending = "Current setting=23456";
  EXPECT_EQ(ui.prompts[0].substr(ui.prompts[0].size() - ending.size()), ending);
  ASSERT_EQ(ui.messages.size(), 1u);
  EXPECT_EQ(ui.messages[0], "Rules are 2 to 6 only");
  EXPECT_EQ(session.config.RuleOrder, "2255");

  ui.inputs = {std::string("0")};
  action("mnuRules")->trigger();
  EXPECT_EQ(session.config.RuleOrder, "");
  ui.inputs = {std::nullopt};
  action("mnuRules")->trigger();
  EXPECT_EQ(ui.prompts.back().substr(ui.prompts.back().size() - 22), "Current setting=RANDOM");
  EXPECT_EQ(session.config.RuleOrder, "");
}

TEST_F(MenuCommandsTest, SaveThisPuzzleRunsTheCommandGivenToTheWindow) {
  startWindow();
  int calls = 0;
  window->saveThisPuzzleCommand = [&] { ++calls; };
  action("mnuSave2InFile")->trigger();
  EXPECT_EQ(calls, 1);
}

TEST_F(MenuCommandsTest, HelpShowsTheHelpPageOfTheApplicationDirectory) {
  startWindow();
  ui.messages.clear();
  action("mnuHelpContents")->trigger();
  ASSERT_EQ(ui.messages.size(), 1u);
  EXPECT_EQ(ui.messages[0], "Help file not found: " + appDir() + "SuDoKu.htm");

  writeText(appDir() + "SuDoKu.htm", "<html><body><h1>How to play</h1></body></html>");
  action("mnuHelpContents")->trigger();
  ASSERT_NE(window->helpWindow(), nullptr);
  EXPECT_TRUE(window->helpWindow()->isVisible());
  EXPECT_TRUE(window->findChild<QTextBrowser*>("HelpBrowser")->toPlainText().contains("How to play"));
}

TEST_F(MenuCommandsTest, AboutShowsTheVersion) {
  startWindow();
  action("mnuAbout")->trigger();
  auto* box = window->findChild<QMessageBox*>("AboutBox");
  ASSERT_NE(box, nullptr);
  EXPECT_TRUE(box->text().contains("Tessaly"));
  box->close();
}

}  // namespace
}  // namespace tessaly::testing
