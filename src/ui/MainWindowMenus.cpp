// The menus of the main window: File, Edit, Options and Help.

#include <QActionGroup>
#include <QDateTime>
#include <QFileInfo>
#include <QMenuBar>
#include <QMessageBox>
#include <QPrinter>

#include "create/PuzzleCheck.h"
#include "create/Saving.h"
#include "model/CollectionFile.h"
#include "model/Configuration.h"
#include "solver/Grader.h"
#include "solver/SolutionCounter.h"
#include "output/SaveCommands.h"
#include "output/TextExport.h"
#include "ui/HelpWindow.h"
#include "ui/ManualPage.h"
#include "ui/MainWindow.h"
#include "ui/ObjectNames.h"
#include "ui/PuzzlePrinter.h"
#include "ui/ReportPrinter.h"
#include "Version.h"

namespace tessaly {

namespace {

constexpr const char* kPrintSolutionQuestion = "Print the solution on a second page?";

QAction* addEntry(QMenu* menu, const char* objectName, const QString& text) {
  QAction* action = menu->addAction(text);
  action->setObjectName(objectName);
  return action;
}

QString text(std::string_view s) { return QString::fromUtf8(s.data(), qsizetype(s.size())); }

}  // namespace

void MainWindow::createMenus() {
  createFileMenu();
  createEditMenu();
  createOptionsMenu();
  createHelpMenu();
}

void MainWindow::createFileMenu() {
  QMenu* menu = menuBar()->addMenu("&File");
  menu->setObjectName(names::mnuFile);
  // The exports run as every command does: a run still under way ends first,
  // and the window redraws afterwards.
  const auto command = [this](const std::function<void()>& body) { return [this, body] { runCommand(body); }; };
  connect(addEntry(menu, names::mnuNewCollection, "&New collection..."), &QAction::triggered, this,
          [this] { newCollection(); });
  QAction* open = addEntry(menu, names::mnuOpen, "&Open...");
  open->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_O));
  connect(open, &QAction::triggered, this, [this] { openFile(); });
  m_recentMenu = menu->addMenu("Recent &files");
  m_recentMenu->setObjectName(names::mnuRecent);
  connect(m_recentMenu, &QMenu::aboutToShow, this, [this] { fillRecentMenu(); });
  fillRecentMenu();
  QAction* save = addEntry(menu, names::mnuSave2InFile, "Save this puzzle");
  save->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_S));
  connect(save, &QAction::triggered, this, [this] {
    if (saveThisPuzzleCommand) runCommand(saveThisPuzzleCommand);
  });
  menu->addSeparator();
  for (const ExportFormat& format : exportFormats()) {
    QAction* entry = menu->addAction(text(format.menuCaption));
    entry->setObjectName(QString(names::mnusave_N).arg(text(format.extension)));
    connect(entry, &QAction::triggered, this, command([this, &format] { saveAs(m_session, format); }));
  }
  connect(addEntry(menu, names::mnuSaveLog, "Save &log as..."), &QAction::triggered, this, [this] { saveLogAs(); });
  menu->addSeparator();
  QAction* saveGameEntry = addEntry(menu, names::mnuSaveGame, "Save &game...");
  saveGameEntry->setToolTip("Keep the game of the ManualSolve tab (moves, notes, time) in a file");
  connect(saveGameEntry, &QAction::triggered, this, [this] { saveGame(); });
  QAction* openGameEntry = addEntry(menu, names::mnuOpenGame, "Open ga&me...");
  openGameEntry->setToolTip("Go on with a game kept in a file, on the ManualSolve tab");
  connect(openGameEntry, &QAction::triggered, this, [this] { openGame(); });
  menu->addSeparator();
  connect(addEntry(menu, names::mnuPrPuz2File, "Print puzzle to file"), &QAction::triggered, this,
          command([this] { printToTextFile(m_session, false); }));
  connect(addEntry(menu, names::mnuPrintEL2File, "Print puzzle and event log to file"), &QAction::triggered, this,
          command([this] { printToTextFile(m_session, true); }));
  connect(addEntry(menu, names::mnuPrint, "Print puzzle..."), &QAction::triggered, this, [this] { printPuzzle(); });
  connect(addEntry(menu, names::mnuPrintCollection, "Print collection..."), &QAction::triggered, this,
          [this] { printCollection(); });
  connect(addEntry(menu, names::mnuPrintEL, "Print puzzle and event log..."), &QAction::triggered, this,
          [this] { printReport(true); });
  menu->addSeparator();
  QAction* exit = addEntry(menu, names::mnuexit, "E&xit");
  exit->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_Q));
  connect(exit, &QAction::triggered, this, [this] { exitProgram(); });
}

void MainWindow::createEditMenu() {
  QMenu* menu = menuBar()->addMenu("&Edit");
  menu->setObjectName(names::mnuEdit);
  // The keys reach these entries unless the widget with the focus takes them
  // (a text box copies and pastes its own text; the event log is handled in copyPuzzle).
  // The moves of the ManualSolve tab, one at a time, back and forth.
  m_undoAction = addEntry(menu, names::mnuUndo, "&Undo");
  m_undoAction->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_Z));
  m_undoAction->setToolTip("Take back the last move of the ManualSolve tab (a value, a note, a change of notes)");
  connect(m_undoAction, &QAction::triggered, this, [this] { m_manual->undo(); });
  m_redoAction = addEntry(menu, names::mnuRedo, "&Redo");
  m_redoAction->setShortcuts({QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Z), QKeySequence(Qt::CTRL | Qt::Key_Y)});
  m_redoAction->setToolTip("Make the move taken back again");
  connect(m_redoAction, &QAction::triggered, this, [this] { m_manual->redo(); });
  updateUndoActions();
  menu->addSeparator();
  QAction* copy = addEntry(menu, names::mnuCopyPuzzle, "&Copy puzzle");
  copy->setShortcut(QKeySequence::Copy);
  copy->setToolTip("Put the givens on the clipboard as one line of 81 characters");
  connect(copy, &QAction::triggered, this, [this] { copyPuzzle(); });
  QAction* paste = addEntry(menu, names::mnuPastePuzzle, "&Paste puzzle");
  paste->setShortcut(QKeySequence::Paste);
  paste->setToolTip("Take a puzzle from the clipboard: one line of 81 cells or nine lines of nine");
  connect(paste, &QAction::triggered, this, [this] { pastePuzzle(); });
}

void MainWindow::createOptionsMenu() {
  QMenu* menu = menuBar()->addMenu("&Options");
  menu->setObjectName(names::mnuOptions);
  connect(addEntry(menu, names::mnuRules, "Rule order..."), &QAction::triggered, this,
          [this] { runCommand([this] { ruleOrderDialog(m_session); }); });
  connect(addEntry(menu, names::mnuAttemptLimit, "Attempt limit..."), &QAction::triggered, this,
          [this] { runCommand([this] { attemptLimitDialog(m_session); }); });
  m_techniquesAction = addEntry(menu, names::mnuTechniques, "Further techniques");
  m_techniquesAction->setCheckable(true);
  m_techniquesAction->setToolTip("When the six rules stall, solve and hint with the further techniques before guessing");
  connect(m_techniquesAction, &QAction::toggled, this, [this](bool on) { setFurtherTechniques(on); });
  // The board's and the log's text, larger or smaller than the desktop's.
  QAction* larger = addEntry(menu, names::mnuLargerText, "Larger text");
  larger->setShortcuts({QKeySequence::ZoomIn, QKeySequence(Qt::CTRL | Qt::Key_Equal)});
  connect(larger, &QAction::triggered, this, [this] { setTextZoom(m_textZoom + 1); });
  QAction* smaller = addEntry(menu, names::mnuSmallerText, "Smaller text");
  smaller->setShortcut(QKeySequence::ZoomOut);
  connect(smaller, &QAction::triggered, this, [this] { setTextZoom(m_textZoom - 1); });
  QAction* normal = addEntry(menu, names::mnuNormalText, "Normal text size");
  normal->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_0));
  connect(normal, &QAction::triggered, this, [this] { setTextZoom(0); });
  // How the ManualSolve tab plays.
  menu->addSeparator();
  m_clearNotesAction = addEntry(menu, names::mnuClearNotesOnPlace, "Clear notes when a digit is placed");
  m_clearNotesAction->setCheckable(true);
  m_clearNotesAction->setChecked(true);
  m_clearNotesAction->setToolTip("A digit placed takes itself out of the notes of its row, column and box");
  connect(m_clearNotesAction, &QAction::toggled, this, [this](bool on) { setClearNotesOnPlace(on); });
  m_tellWrongAction = addEntry(menu, names::mnuTellWrongMoves, "Tell me when a move is wrong");
  m_tellWrongAction->setCheckable(true);
  m_tellWrongAction->setToolTip("The coach says so when a digit placed or a note removed goes against the solution");
  connect(m_tellWrongAction, &QAction::toggled, this, [this](bool on) { setTellWrongMoves(on); });
  m_clockAction = addEntry(menu, names::mnuShowClock, "Show the clock");
  m_clockAction->setCheckable(true);
  m_clockAction->setToolTip("Show the time played on the ManualSolve tab");
  connect(m_clockAction, &QAction::toggled, this, [this](bool on) { setClockShown(on); });
  menu->addSeparator();
  QMenu* schemes = menu->addMenu("Colour schemes");
  schemes->setObjectName(names::mnuColx);
  auto* group = new QActionGroup(schemes);
  for (std::size_t i = 0; i < ColourScheme::kMenuFiles.size(); ++i) {
    const QString file = ColourScheme::kMenuFiles[i];
    QAction* action = schemes->addAction(QFileInfo(file).completeBaseName());
    action->setObjectName(QString(names::mnuColx_N).arg(i));
    action->setToolTip(file);
    action->setCheckable(true);
    group->addAction(action);
    connect(action, &QAction::triggered, this, [this, i] { chooseColourScheme(int(i)); });
    m_schemeActions[i] = action;
  }
  schemes->addSeparator();
  m_highContrastAction = addEntry(schemes, names::mnuColxHighContrast, "High contrast");
  m_highContrastAction->setToolTip(ColourScheme::kHighContrastFile);
  m_highContrastAction->setCheckable(true);
  group->addAction(m_highContrastAction);
  connect(m_highContrastAction, &QAction::triggered, this, [this] { chooseHighContrast(); });
  m_desktopSchemeAction = addEntry(schemes, names::mnuColxDesktop, "Follow the desktop");
  m_desktopSchemeAction->setToolTip("The desktop's own colours, light or dark");
  m_desktopSchemeAction->setCheckable(true);
  group->addAction(m_desktopSchemeAction);
  connect(m_desktopSchemeAction, &QAction::triggered, this, [this] { followDesktopColours(); });
}

void MainWindow::createHelpMenu() {
  QMenu* menu = menuBar()->addMenu("&Help");
  menu->setObjectName(names::mnuHelp);
  QAction* help = addEntry(menu, names::mnuHelpContents, "Help");
  help->setShortcut(QKeySequence::HelpContents);
  connect(help, &QAction::triggered, this, [this] { showHelp(); });
  connect(addEntry(menu, names::mnuAbout, "About Tessaly"), &QAction::triggered, this, [this] { showAbout(); });
}

void MainWindow::printReport(bool includeLog) {
  std::unique_ptr<QPrinter> made = m_makePrinter ? m_makePrinter() : nullptr;
  if (!made) made = std::make_unique<QPrinter>(QPrinter::HighResolution);
  QPrinter& printer = *made;
  printer.setDocName("Tessaly");
  if (!m_choosePrinter || !m_choosePrinter(printer)) return;
  const QString file = QFileInfo(QString::fromStdString(m_session.collection.CurrentFile)).fileName();
  const QString header = QString("Tessaly   %1   %2").arg(file, QDateTime::currentDateTime().toString("yyyy-MM-dd hh:mm"));
  // The printed log is the whole log as it stands, unlike the report file's.
  if (!ReportPrinter::print(printer, header, QString::fromStdString(printerReportText(m_session, includeLog))))
    m_session.message("The report could not be printed");
}

std::unique_ptr<QPrinter> MainWindow::choosePrinter() {
  std::unique_ptr<QPrinter> printer = m_makePrinter ? m_makePrinter() : nullptr;
  if (!printer) printer = std::make_unique<QPrinter>(QPrinter::HighResolution);
  printer->setDocName("Tessaly");
  if (!m_choosePrinter || !m_choosePrinter(*printer)) return nullptr;
  return printer;
}

void MainWindow::printPuzzle() {
  std::string puzzle;
  for (int c = 1; c <= kCells; ++c) puzzle.push_back(m_session.grid[c].given ? char('0' + m_session.grid[c].value) : '.');
  if (puzzle.find_first_not_of('.') == std::string::npos) {
    m_session.message(kCreateFirst);
    return;
  }
  QString caption = QString::fromStdString(puzzleTitle(m_session.collection.origin()));
  if (const int grade = gradePuzzle(puzzle).grade; grade > 0)
    caption += QString("  ·  %1").arg(QString::fromStdString(gradeCaption(grade)));
  QList<PrintedGrid> grids{{caption, puzzle}};
  // The solution goes on a page of its own when the puzzle has exactly one.
  std::string solution;
  if (countSolutions(puzzle, 2, &solution) == 1 && m_session.ui().question(kPrintSolutionQuestion))
    grids.append({QString("Solution: %1").arg(QString::fromStdString(puzzleTitle(m_session.collection.origin()))), solution});
  std::unique_ptr<QPrinter> printer = choosePrinter();
  if (printer && !PuzzlePrinter::print(*printer, grids, 1)) m_session.message("The puzzle could not be printed");
}

void MainWindow::printCollection() {
  const std::string path = m_session.collection.CurrentFile;
  const CollectionScan scan = scanCollection(path);
  const int total = scan.problem == CollectionScan::Problem::None ? scan.puzzles : 0;
  if (total == 0) {
    m_session.message(path + " does not appear to have any puzzles");
    return;
  }
  int perPage = 0;
  for (;;) {
    const std::optional<std::string> answer =
        m_session.ui().textInput("Print collection", "Puzzles on each page: 1, 2, 4 or 6", "4");
    if (!answer) return;
    const int n = QString::fromStdString(*answer).trimmed().toInt();
    if (std::find(PuzzlePrinter::kPerPage.begin(), PuzzlePrinter::kPerPage.end(), n) != PuzzlePrinter::kPerPage.end()) {
      perPage = n;
      break;
    }
    m_session.message("Puzzles on each page: 1, 2, 4 or 6");
  }
  QList<PrintedGrid> grids;
  const QString file = QFileInfo(QString::fromStdString(path)).fileName();
  for (int n = 1; n <= total; ++n) {
    const PuzzleRowsRead read = readPuzzleRows(path, n);
    if (read.status != PuzzleRowsRead::Status::Found) continue;
    const std::string cells = read.cells();
    const int grade = gradePuzzle(cells).grade;
    QString caption = QString("%1  #%2").arg(file).arg(n);
    if (grade > 0) caption += QString("  ·  %1").arg(QString::fromStdString(gradeCaption(grade)));
    grids.append({caption, cells});
  }
  std::unique_ptr<QPrinter> printer = choosePrinter();
  if (printer && !PuzzlePrinter::print(*printer, grids, perPage)) m_session.message("The collection could not be printed");
}

void MainWindow::showHelp() {
  const std::string path = m_session.appDir + HelpWindow::kHelpPage;
  if (!m_help) m_help = new HelpWindow(this);
  if (!m_help->showPage(QString::fromStdString(path))) {
    m_session.message("Help file not found: " + path);
    return;
  }
  m_help->show();
  m_help->raise();
}

void MainWindow::showAbout() {
  // One box at a time: asking again brings the open one to the front.
  if (m_about) {
    m_about->raise();
    m_about->activateWindow();
    return;
  }
  auto* box = new QMessageBox(QMessageBox::Information, "About Tessaly",
                              QString("Tessaly %1\n\nSolves Sudoku puzzles step by step and explains each step; "
                                      "creates new puzzles and helps you solve them by hand.")
                                  .arg(kProgramVersion),
                              QMessageBox::Ok, this);
  box->setObjectName(names::AboutBox);
  box->setAttribute(Qt::WA_DeleteOnClose);
  box->setModal(false);
  m_about = box;
  box->show();
}

}  // namespace tessaly
