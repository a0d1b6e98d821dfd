#pragma once
// The main window. It shows what the session holds and hands the user's
// commands to the core; the core reaches it back through the Display, Pacer and
// UserInterface it installs in the session.
//
// Layout: the mode tab strip `ctlTabs` on top; below it, on the left, the
// puzzle frame `PuzNumber` over the page of the selected tab (the solutions
// frame for AutoSolve); beside them, across a splitter (`BoardSplitter`), the
// progress bar `pb1`, the grid `Grid` and the candidate display, which grow
// with the window; under everything, across a second splitter (`LogSplitter`),
// the status label `MesLab`, the event log `EventLogx` and the strip that
// steps through the log's boards (`ReplaySlider`, `ReplayLabel`).

#include <QMainWindow>
#include <QPointer>
#include <QTimer>
#include <array>
#include <functional>
#include <memory>
#include <string>

#include "model/Session.h"
#include "ui/ColourScheme.h"
#include "ui/CommandHost.h"

class QAction;
class QLabel;
class QMessageBox;
class QPrinter;
class QProgressBar;
class QScrollArea;
class QSettings;
class QSplitter;
class QStackedWidget;
class QTabBar;

namespace tessaly {

class AutoSolveTab;
class CellBoard;
class HelpWindow;
class ManualPage;
struct GameRecord;
class PuzzleFrame;
class ReplayController;
class TabPage;
class WindowDisplay;
class WindowPacer;
class EventLogView;

class MainWindow : public QMainWindow, public CommandHost {
  Q_OBJECT

 public:

  /// Builds the window and installs its Display and Pacer in the session. The
  /// messages, questions and file choosers go to `ui` when given (the tests and
  /// benchmarks pass a scripted one), else to Qt dialogs over this window.
  explicit MainWindow(Session& session, UserInterface* ui = nullptr, QWidget* parent = nullptr);
  ~MainWindow() override;

  /// Start-up: the core's start-up with the colour scheme applied between its
  /// halves, then the welcome text in the log and the first redraw.
  void startUp(const std::string& applicationDirectory);

  // --- CommandHost
  void runCommand(std::function<void()> command) override;
  void releasePause() override;
  /// Redraws everything from the session: values, given colours, candidates
  /// with singles highlighted, box counts, title, buttons, MesLab, progress, log.
  void refreshFromSession() override;
  void puzzleRead(const ReadResult& result) override;

  // --- commands, for the menus and for programs that drive the window
  /// Reads puzzle n of a collection (as File > Open does for puzzle 1). A file
  /// other than the current collection becomes the collection only when it is
  /// one with puzzles: a refused file is told and changes nothing.
  void readPuzzleFile(const std::string& path, int n);
  /// File > Open, Recent files, a dropped file and `tessaly FILE`: the file
  /// becomes the collection, showing its first puzzle, when it is accepted.
  void openCollectionFile(const std::string& path);
  /// File > New collection...: an empty collection file of the user's naming
  /// becomes the current one, for Save this puzzle to fill.
  void newCollection();
  /// File > Save log as...: every line of the event log, as shown, into a file
  /// the user chooses.
  void saveLogAs();
  /// The collections opened last, the most recent first (from the window's settings).
  QStringList recentFiles() const;
  /// Edit > Paste puzzle: the clipboard's text becomes the puzzle, as an
  /// accepted Edit would make it; text that is not a puzzle is told.
  void pastePuzzle();
  /// Edit > Copy puzzle: the givens on the clipboard as 81 characters ("."
  /// for a blank); while the event log has the focus, its lines instead.
  void copyPuzzle();
  /// The ManualSolve tab's page, with the game in progress.
  ManualPage* manualPage() const { return m_manual; }
  /// Options, "Clear notes when a digit is placed", "Tell me when a move is
  /// wrong" and "Show the clock" (remembered in the window's settings).
  void setClearNotesOnPlace(bool on);
  void setTellWrongMoves(bool on);
  void setClockShown(bool on);
  /// Keeps the game in progress between runs: written to `gameInProgressPath`
  /// when the window closes, offered by `offerSavedGame` at the next start.
  /// Off unless asked for (the program asks; tests that do work in their
  /// scratch folder).
  void keepGameInProgress(bool on) { m_keepGame = on; }
  /// GameInProgress.tsg in the configuration's folder (beside Quorrel.cfg).
  std::string gameInProgressPath() const;
  /// At start: the game kept when the window last closed, offered with
  /// "Resume the game of puzzle 40?"; Yes puts it back on the ManualSolve tab.
  void offerSavedGame();
  /// File > Save game...: the game in progress into a file the user chooses.
  void saveGame();
  /// File > Open game...: a game file the user chooses, resumed on the
  /// ManualSolve tab; a file that cannot be used is told and changes nothing.
  void openGame();
  void openGameFile(const std::string& path);
  /// The Solve command, as the `Solveit` button gives it.
  void solve();
  /// Applies entry 0..18 of the colour menu and writes the configuration.
  void chooseColourScheme(int entry);
  /// Options > Colour schemes > High contrast.
  void chooseHighContrast();
  /// The colour menu's "Follow the desktop": the desktop palette's colours,
  /// again whenever it changes, until a scheme is chosen (remembered in the
  /// window's settings; Quorrel.cfg names no scheme meanwhile).
  void followDesktopColours();
  /// Options, "Larger text" (Ctrl++), "Smaller text" (Ctrl+-) and "Normal text
  /// size" (Ctrl+0): the board's and the log's text `steps` steps from the
  /// application font's size, each step 15% (remembered in the window's settings).
  void setTextZoom(int steps);
  int textZoom() const { return m_textZoom; }
  static constexpr int kSmallestZoom = -4, kLargestZoom = 8;
  /// Options, "Further techniques": the solve and the hints use them too
  /// (remembered in the window's settings).
  void setFurtherTechniques(bool on);
  /// How Print asks for a printer; the default is the print dialog. The chooser
  /// sets the printer up and returns false to cancel.
  void setPrinterChooser(std::function<bool(QPrinter&)> chooser) { m_choosePrinter = std::move(chooser); }
  /// How Print makes the printer it offers the chooser; the default is a
  /// high-resolution printer of the system's.
  void setPrinterFactory(std::function<std::unique_ptr<QPrinter>()> factory) { m_makePrinter = std::move(factory); }
  /// The "Save this puzzle" menu command (`mnuSave2InFile`); nothing happens
  /// while it is empty.
  std::function<void()> saveThisPuzzleCommand;

  // --- what the window shows
  /// The grid and the candidate display.
  CellBoard* board() const { return m_board; }
  /// The least size that shows the content of the page shown whole; a smaller
  /// window scrolls it.
  QSize leastSize() const;
  const ColourScheme& colourScheme() const { return m_scheme; }
  EventLogView* eventLogView() const { return m_log; }
  /// Showing the board as it stood at a line of the log.
  ReplayController* replay() const { return m_replay; }
  AutoSolveTab* autoSolvePage() const { return m_autoSolve; }
  /// The page of a tab; the pages stand in the order of `ctlTabs`.
  TabPage* page(Tab tab) const { return m_pages.at(std::size_t(tab) - 1); }
  HelpWindow* helpWindow() const;
  /// True while a stepping run waits for Next.
  bool isWaiting() const;
  /// Pause points waited at since the window was made.
  int pauseWaits() const;

  // --- the window's size and splitters, remembered between runs
  /// Keeps the window's geometry and splitter positions in `settings`: restores
  /// what it holds now, and writes them back when the window closes. Without
  /// it the window starts at a size that fits its screen and remembers nothing.
  void rememberLayoutIn(std::unique_ptr<QSettings> settings);
  /// Writes the geometry and splitter positions to the settings given.
  void saveLayout();

 protected:
  void closeEvent(QCloseEvent* event) override;
  void changeEvent(QEvent* event) override;
  /// A puzzle file dropped on the window is opened as File > Open would.
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dropEvent(QDropEvent* event) override;

 private:
  void createMenus();
  void createFileMenu();
  void createEditMenu();
  void createOptionsMenu();
  void createHelpMenu();
  QWidget* createCentralWidget();
  void createPages(QStackedWidget* stack);
  void connectBoard();
  /// A first size that shows everything and fits the screen.
  void fitToScreen();
  /// Sizes the left column for page 0..2 as it is shown: only that page counts
  /// for the column's size, and each page keeps its own splitter position.
  void fitLeftColumn(int page);
  /// Takes the left column's width for the page shown.
  void notePageWidth();
  /// Grows the window, as far as its screen allows, when the content's least
  /// size no longer fits; what still does not fit scrolls.
  void growToContent();
  void showEvent(QShowEvent* event) override;
  /// Fits the left column once the window has laid itself out.
  void fitLeftColumnLater();

  void openFile();
  /// Keeps the collection's full path in the window's settings and at the
  /// head of the recent files.
  void rememberCollection(const std::string& path);
  void fillRecentMenu();
  void printReport(bool includeLog);
  /// The printer set up by the chooser; null when the user cancelled.
  std::unique_ptr<QPrinter> choosePrinter();
  /// File > Print puzzle...: the puzzle's grid large on a page, and on request its solution on the next.
  void printPuzzle();
  /// File > Print collection...: every puzzle of the current collection, 1, 2, 4 or 6 to a page.
  void printCollection();
  void exitProgram();
  void showHelp();
  void showAbout();

  void applyScheme(const std::string& name);
  /// The desktop palette's colours as a scheme.
  void applyDesktopColours();
  void applyColours();
  void scheduleRefresh();
  void refresh(bool verifyLog);
  void tabSelected(int index);
  /// Puts a checked game on the board on the ManualSolve tab.
  void resumeGame(const GameRecord& record);
  /// Undo and Redo of the Edit menu follow the game's stack.
  void updateUndoActions();
  TabPage* currentPage() const;

  Session& m_session;
  std::unique_ptr<UserInterface> m_ownUi;
  Services m_previousServices;
  ColourScheme m_scheme;

  QScrollArea* m_scroller = nullptr;  ///< the central widget: scrolls the content below its least size
  QWidget* m_content = nullptr;
  bool m_widthPending = false;  ///< the left column waits for the first layout to take its page's width
  QTabBar* m_tabs = nullptr;
  QStackedWidget* m_stack = nullptr;
  QSplitter* m_boardSplitter = nullptr;
  /// The width of the left column for each page as last shown, 0 for its natural width.
  std::array<int, 3> m_pageWidths{};
  int m_shownPage = -1;
  std::array<TabPage*, 3> m_pages{};
  AutoSolveTab* m_autoSolve = nullptr;
  PuzzleFrame* m_puzzleFrame = nullptr;
  CellBoard* m_board = nullptr;
  QProgressBar* m_progress = nullptr;
  QLabel* m_status = nullptr;
  EventLogView* m_log = nullptr;
  ReplayController* m_replay = nullptr;
  QPointer<HelpWindow> m_help;
  QPointer<QMessageBox> m_about;  ///< the About box while it is open
  std::array<QAction*, ColourScheme::kMenuFiles.size()> m_schemeActions{};
  QAction* m_desktopSchemeAction = nullptr;
  QAction* m_highContrastAction = nullptr;
  bool m_followDesktop = false;
  int m_textZoom = 0;
  QAction* m_techniquesAction = nullptr;
  QAction* m_undoAction = nullptr;
  QAction* m_redoAction = nullptr;
  QAction* m_clearNotesAction = nullptr;
  QAction* m_tellWrongAction = nullptr;
  QAction* m_clockAction = nullptr;
  ManualPage* m_manual = nullptr;
  bool m_keepGame = false;
  QMenu* m_recentMenu = nullptr;

  std::unique_ptr<WindowDisplay> m_display;
  std::unique_ptr<WindowPacer> m_pacer;
  QTimer m_refreshTimer;
  std::function<bool(QPrinter&)> m_choosePrinter;
  std::function<std::unique_ptr<QPrinter>()> m_makePrinter;
  std::unique_ptr<QSettings> m_settings;
  Event::Subscription m_puzzleLoaded;

  int m_commandDepth = 0;                 ///< commands on the stack (one, or none)
  std::function<void()> m_pendingCommand;  ///< waits for the command in progress to end
  bool m_closing = false;
};

}  // namespace tessaly
