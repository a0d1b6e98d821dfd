#include "ui/MainWindow.h"

#include <QApplication>
#include <cmath>
#include <QClipboard>
#include <QCloseEvent>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMimeData>
#include <QPrintDialog>
#include <QPrinter>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QSettings>
#include <QSignalBlocker>
#include <QSplitter>
#include <QStackedWidget>
#include <QTabBar>
#include <QVBoxLayout>

#include <filesystem>

#include "create/EntryDialogs.h"
#include "create/Saving.h"
#include "model/CollectionFile.h"
#include "model/Configuration.h"
#include "model/FileUtil.h"
#include "model/Startup.h"
#include "output/SaveCommands.h"
#include "play/Game.h"
#include "play/GameFile.h"
#include "solver/Narrator.h"
#include "solver/ReadPuzzle.h"
#include "solver/SolverEngine.h"
#include "solver/Texts.h"
#include "ui/AutoSolveTab.h"
#include "ui/CellBoard.h"
#include "ui/CommandStates.h"
#include "ui/CreatePage.h"
#include "ui/DialogUserInterface.h"
#include "ui/EventLogView.h"
#include "ui/GridEntryDialog.h"
#include "ui/HelpWindow.h"
#include "ui/ManualPage.h"
#include "ui/ObjectNames.h"
#include "ui/ProgressColumn.h"
#include "ui/PuzzleFrame.h"
#include "ui/ReplayController.h"
#include "ui/WidgetColours.h"
#include "ui/WindowDisplay.h"
#include "ui/WindowPacer.h"

namespace tessaly {

namespace {
constexpr int kFrameMs = 16;  ///< redraws come at most once per frame
constexpr int kLogMinimumLines = 4;
/// The share of the screen a window without remembered geometry takes at most.
constexpr double kScreenShare = 0.9;
constexpr const char* kGeometryKey = "MainWindow/geometry";
constexpr const char* kSplitterKey = "MainWindow/%1";
constexpr const char* kPageWidthsKey = "MainWindow/pageWidths";
constexpr const char* kTechniquesKey = "Options/furtherTechniques";
constexpr const char* kClearNotesKey = "Options/clearNotesOnPlace";
constexpr const char* kTellWrongKey = "Options/tellWrongMoves";
constexpr const char* kClockKey = "Options/showClock";
/// The game in progress, kept in the configuration's folder between runs.
constexpr const char* kGameInProgressFile = "GameInProgress.tsg";
/// The collection's full path: Quorrel.cfg keeps only its name, which is
/// looked for in the program's folder.
constexpr const char* kCollectionKey = "Files/collection";
constexpr const char* kDesktopColoursKey = "Colours/followDesktop";
constexpr const char* kTextZoomKey = "Window/textZoom";
constexpr double kZoomStep = 1.15;
constexpr const char* kRecentKey = "Files/recent";
constexpr int kRecentCount = 8;

/// The window's central widget. A window smaller than its content's least size
/// (a tiled half screen) scrolls the content rather than running off the
/// screen; otherwise the content fills the window. Its natural size is the
/// content's, not capped as a scroll area's would be.
class ContentScroller : public QScrollArea {
 public:
  using QScrollArea::QScrollArea;
  QSize sizeHint() const override {
    if (!widget()) return QScrollArea::sizeHint();
    const int frame = 2 * frameWidth();
    return widget()->sizeHint().expandedTo(widget()->minimumSizeHint()) + QSize(frame, frame);
  }
};
}  // namespace

MainWindow::MainWindow(Session& session, UserInterface* ui, QWidget* parent) : QMainWindow(parent), m_session(session) {
  setObjectName(names::Form1);
  setWindowTitle("Tessaly");
  if (!ui) {
    m_ownUi = std::make_unique<DialogUserInterface>(this);
    ui = m_ownUi.get();
  }
  m_previousServices = Services{&session.ui(), &session.display(), &session.pacer(), nullptr, nullptr};
  // The pages keep the user interface they are built with (the Create page asks
  // for templates through it): it must be this window's from the start.
  session.setServices(Services{ui, nullptr, nullptr, nullptr, nullptr});

  m_scroller = new ContentScroller(this);
  m_scroller->setFrameShape(QFrame::NoFrame);
  m_scroller->setWidgetResizable(true);
  // The scroller is no stop of the Tab key; a control the keyboard reaches
  // scrolls into view instead.
  m_scroller->setFocusPolicy(Qt::NoFocus);
  connect(qApp, &QApplication::focusChanged, m_scroller, [scroller = m_scroller](QWidget*, QWidget* now) {
    if (now && scroller->widget() && scroller->widget()->isAncestorOf(now)) scroller->ensureWidgetVisible(now, 8, 8);
  });
  m_scroller->setWidget(createCentralWidget());
  setCentralWidget(m_scroller);
  createMenus();
  connectBoard();

  m_display = std::make_unique<WindowDisplay>(*m_board, *m_progress, *m_log, [this] { scheduleRefresh(); });
  m_pacer = std::make_unique<WindowPacer>(
      session, this, [this] { scheduleRefresh(); }, [this] { refresh(false); });
  session.setServices(Services{ui, m_display.get(), m_pacer.get(), nullptr, nullptr});

  m_refreshTimer.setSingleShot(true);
  m_refreshTimer.setInterval(kFrameMs);
  connect(&m_refreshTimer, &QTimer::timeout, this, [this] { refresh(false); });
  m_choosePrinter = [this](QPrinter& printer) {
    QPrintDialog dialog(&printer, this);
    return dialog.exec() == QDialog::Accepted;
  };

  // An area a run left highlighted (one stopped at a pause) belongs to the
  // puzzle it ran on.
  m_puzzleLoaded = session.puzzleLoaded.subscribe([this] { m_board->restoreHighlight(); });

  applyColours();
  fitToScreen();
  // A puzzle file dropped anywhere on the window opens, on a text box too: the
  // boxes would take the file's name as text.
  setAcceptDrops(true);
  for (QLineEdit* box : findChildren<QLineEdit*>()) box->setAcceptDrops(false);
}

MainWindow::~MainWindow() {
  // A run still on the stack below stops at its next yield; from here on the
  // core talks to the interfaces it had before this window.
  m_closing = true;
  m_pacer->shutDown();
  m_session.setServices(m_previousServices);
}

QWidget* MainWindow::createCentralWidget() {
  auto* central = m_content = new QWidget(this);
  central->setObjectName(names::WindowContent);
  auto* layout = new QVBoxLayout(central);

  m_tabs = new QTabBar(central);
  m_tabs->setObjectName(names::ctlTabs);
  m_tabs->addTab("AutoSolve");
  m_tabs->addTab("Create");
  m_tabs->addTab("ManualSolve");
  layout->addWidget(m_tabs);

  // Left, the whole height: the puzzle frame over the page of the selected tab.
  auto* left = new QWidget(central);
  auto* leftLayout = new QVBoxLayout(left);
  leftLayout->setContentsMargins(0, 0, 0, 0);
  m_puzzleFrame = new PuzzleFrame(m_session, *this, left);
  leftLayout->addWidget(m_puzzleFrame);
  m_stack = new QStackedWidget(left);
  createPages(m_stack);
  leftLayout->addWidget(m_stack, 1);

  // Right: the progress bar beside the grid and the candidate display, over
  // the status line and the event log. The log stands under the board only,
  // so a tall page (ManualSolve) and the log need not share one height.
  auto* boardArea = new QWidget(central);
  auto* boardLayout = new QHBoxLayout(boardArea);
  boardLayout->setContentsMargins(0, 0, 0, 0);
  m_progress = new ProgressColumn(boardArea);
  m_progress->setObjectName(names::pb1);
  m_progress->setRange(0, kCells);
  m_progress->setValue(0);
  boardLayout->addWidget(m_progress);
  m_board = new CellBoard(m_session, m_scheme, boardArea);
  boardLayout->addWidget(m_board, 1);

  auto* bottom = new QWidget(central);
  auto* bottomLayout = new QVBoxLayout(bottom);
  bottomLayout->setContentsMargins(0, 0, 0, 0);
  m_status = new QLabel(bottom);
  m_status->setObjectName(names::MesLab);
  m_status->setAutoFillBackground(true);
  m_status->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
  bottomLayout->addWidget(m_status);
  m_log = new EventLogView(m_session.log, bottom);
  m_log->setMinimumHeight(m_log->fontMetrics().lineSpacing() * kLogMinimumLines);
  bottomLayout->addWidget(m_log, 1);
  m_replay = new ReplayController(m_session, *m_board, *m_log, this);
  // The past can be looked at while nothing runs, or while a run waits for Next.
  m_replay->setAllowed([this] { return m_commandDepth == 0 || (m_pacer && m_pacer->waiting()); });
  bottomLayout->addWidget(m_replay->createStrip(bottom));

  // A creation hides the candidate display and the log while it works; they
  // keep their room, so the board does not jump to fill the window meanwhile
  // (nor while a message of the creation is open).
  for (QWidget* view : {static_cast<QWidget*>(m_board->candidateDisplay()), static_cast<QWidget*>(m_log)}) {
    QSizePolicy policy = view->sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    view->setSizePolicy(policy);
  }

  auto* logSplitter = new QSplitter(Qt::Vertical, central);
  logSplitter->setObjectName(names::LogSplitter);
  logSplitter->addWidget(boardArea);
  logSplitter->addWidget(bottom);
  logSplitter->setStretchFactor(0, 3);
  logSplitter->setStretchFactor(1, 2);

  auto* boardSplitter = m_boardSplitter = new QSplitter(Qt::Horizontal, central);
  boardSplitter->setObjectName(names::BoardSplitter);
  boardSplitter->addWidget(left);
  boardSplitter->addWidget(logSplitter);
  boardSplitter->setStretchFactor(0, 0);
  boardSplitter->setStretchFactor(1, 1);
  for (QSplitter* splitter : {boardSplitter, logSplitter}) splitter->setChildrenCollapsible(false);
  layout->addWidget(boardSplitter, 1);

  connect(m_tabs, &QTabBar::currentChanged, this, [this](int index) { tabSelected(index); });
  connect(m_stack, &QStackedWidget::currentChanged, this, [this](int index) { fitLeftColumn(index); });
  fitLeftColumn(m_stack->currentIndex());
  return central;
}

void MainWindow::createPages(QStackedWidget* stack) {
  m_autoSolve = new AutoSolveTab(m_session, *this, stack);
  m_autoSolve->editCommand = [this] { tessaly::editCommand(m_session, m_session.ui(), this); };
  saveThisPuzzleCommand = [this] { tessaly::saveThisPuzzleCommand(m_session); };
  auto paintManual = [this](int cell, ManualPaint paint) {
    if (auto colours = manualPaintColours(paint, m_scheme))
      m_board->setOverlayColours(cell, colours->back, colours->text);
    else
      m_board->clearOverlayColours(cell);
    m_board->refreshFromSession();
  };
  auto* manual = m_manual = new ManualPage(m_session, *this, paintManual, stack);
  manual->setMarksPainter([this](const BoardPlayMarks& marks) { m_board->setPlayMarks(marks); });
  connect(manual, &ManualPage::gameChanged, this, [this] { updateUndoActions(); });
  // A cell selected from the move list, a hint line or the cell hint takes the
  // digits typed next: the grid gets the keyboard.
  connect(manual, &ManualPage::cellSelected, this, [this](int cell) {
    m_board->grid()->setCurrentCell(cell - 1);
    m_board->grid()->setFocus(Qt::OtherFocusReason);
  });
  m_pages = {m_autoSolve, new CreatePage(m_session, *this, m_session.ui(), stack), manual};
  for (TabPage* page : m_pages) stack->addWidget(page);
}

void MainWindow::connectBoard() {
  connect(m_board, &CellBoard::valueBoxClicked, this,
          [this](int cell, Qt::MouseButton button) { currentPage()->valueBoxClicked(cell, button); });
  connect(m_board, &CellBoard::valueBoxDoubleClicked, this,
          [this](int cell) { currentPage()->valueBoxDoubleClicked(cell); });
  // Keys act on the grid only while it has the focus: typing in the
  // puzzle-number box or a list never places digits.
  connect(m_board, &CellBoard::gridKeyReleased, this,
          [this](int key, Qt::KeyboardModifiers modifiers) { currentPage()->keyReleased(key, modifiers); });
  connect(m_board, &CellBoard::boxFrameClicked, this, [this](int box) { currentPage()->boxFrameClicked(box); });
  connect(m_board, &CellBoard::candidateLabelClicked, this,
          [this](int cell, Qt::MouseButton button) { currentPage()->candidateLabelClicked(cell, button); });
  connect(m_board, &CellBoard::candidateLabelHovered, this,
          [this](int cell) { currentPage()->candidateLabelHovered(cell); });
}

TabPage* MainWindow::currentPage() const { return m_pages.at(std::size_t(std::max(0, m_stack->currentIndex()))); }

HelpWindow* MainWindow::helpWindow() const { return m_help; }

bool MainWindow::isWaiting() const { return m_pacer->waiting(); }

int MainWindow::pauseWaits() const { return m_pacer->waits(); }

// --- start-up and shutdown

void MainWindow::startUp(const std::string& applicationDirectory) {
  tessaly::startUp(m_session, applicationDirectory,
                   [this](Session& session) { applyScheme(session.config.ColourSchemeFile); });
  // A collection kept outside the program's folder comes back by its full
  // path (Quorrel.cfg keeps only its name), when it still holds puzzles.
  if (m_settings) {
    const std::string remembered = m_settings->value(kCollectionKey).toString().toStdString();
    if (!remembered.empty() && remembered != m_session.collection.CurrentFile && countPuzzles(remembered) > 0) {
      m_session.collection.CurrentFile = remembered;
      m_session.collection.TotalPuzzles = countPuzzles(remembered);
      m_session.collection.setOrigin(BoardOrigin::opened(m_session.collection.TotalPuzzles));
    }
  }
  try {
    for (std::string_view paragraph : kWelcomeText) m_session.logEvent(kStyleNormal, paragraph);
  } catch (const RunStopped&) {
    // The window was closed during start-up.
  }
  refresh(true);
}

void MainWindow::exitProgram() {
  writeConfiguration(m_session);
  close();
}

void MainWindow::closeEvent(QCloseEvent* event) {
  // A run that waits or solves stops at once; nothing is written on the way out.
  m_closing = true;
  m_pendingCommand = nullptr;
  m_pacer->shutDown();
  m_refreshTimer.stop();
  if (m_help) m_help->close();
  saveLayout();
  if (m_keepGame) {
    // A game with moves on a board not yet full is kept for the next start;
    // otherwise there is none to offer.
    const std::string path = gameInProgressPath();
    const Game& game = m_manual->game();
    if (!game.commands().empty() && m_session.grid.filledCount() < kCells) {
      if (!m_session.folders.config.empty()) makeFolder(m_session.folders.config);
      saveGameFile(path, game.record());
    } else {
      std::error_code ignored;
      std::filesystem::remove(path, ignored);
    }
  }
  QMainWindow::closeEvent(event);
}

// --- size and splitters

QSize MainWindow::leastSize() const {
  // The content's, and what the window adds around it (the menu bar).
  return m_content->minimumSizeHint() + (sizeHint() - m_scroller->sizeHint());
}

void MainWindow::fitToScreen() {
  const QScreen* screen = this->screen();
  if (!screen) return;
  const QSize available = screen->availableGeometry().size();
  resize(sizeHint().boundedTo(available * kScreenShare).expandedTo(leastSize().boundedTo(available)));
}

void MainWindow::growToContent() {
  const QScreen* screen = this->screen();
  if (!screen || !isVisible() || isMaximized() || isFullScreen()) return;
  const QSize viewport = m_scroller->maximumViewportSize();
  const QSize missing = (m_content->minimumSizeHint() - viewport).expandedTo(QSize(0, 0));
  if (missing.width() <= 0 && missing.height() <= 0) return;
  const QSize room = screen->availableGeometry().size() - (frameGeometry().size() - size());
  const QSize grown = (size() + missing).boundedTo(room).expandedTo(size());
  if (grown != size()) resize(grown);
}

void MainWindow::showEvent(QShowEvent* event) {
  QMainWindow::showEvent(event);
  if (m_widthPending) fitLeftColumnLater();
}

void MainWindow::fitLeftColumnLater() {
  m_widthPending = true;
  QTimer::singleShot(0, this, [this] {
    if (!std::exchange(m_widthPending, false)) return;
    m_shownPage = -1;  // the width the splitter has now belongs to no page
    fitLeftColumn(m_stack->currentIndex());
  });
}

void MainWindow::fitLeftColumn(int page) {
  if (page < 0 || page >= int(m_pageWidths.size())) return;
  // The page that goes leaves its width behind before the new page's least
  // width moves the splitter.
  notePageWidth();
  for (int i = 0; i < m_stack->count(); ++i) {
    const auto policy = i == page ? QSizePolicy::Preferred : QSizePolicy::Ignored;
    m_stack->widget(i)->setSizePolicy(policy, policy);
  }
  // The new minimum reaches the content at once: a splitter on the way does
  // not pass a child's new size on by itself. The window grows if it must and
  // the screen has room; otherwise the content scrolls.
  for (QWidget* w = m_stack; w; w = w->parentWidget()) {
    if (w->layout()) w->layout()->invalidate();
    w->updateGeometry();
    if (w == m_content) break;
  }
  if (m_content->layout()) m_content->layout()->activate();
  growToContent();
  m_shownPage = page;
  const QList<int> sizes = m_boardSplitter->sizes();
  const int total = sizes.value(0) + sizes.value(1);
  if (total <= 0 || !isVisible()) {
    // Not laid out yet: the page's width is taken once the window shows.
    if (isVisible())
      fitLeftColumnLater();
    else
      m_widthPending = true;
    return;
  }
  const QWidget* left = m_boardSplitter->widget(0);
  const int remembered = m_pageWidths[std::size_t(page)];
  const int least = left->minimumSizeHint().width();
  const int most = std::max(least, total - m_boardSplitter->widget(1)->minimumSizeHint().width());
  // Without a width of its own the page takes its natural width, but not so
  // much that the board falls below its own: it narrows towards its least.
  const int natural = std::min(left->sizeHint().width(), total - m_boardSplitter->widget(1)->sizeHint().width());
  const int width = std::clamp(remembered > 0 ? remembered : natural, least, most);
  m_boardSplitter->setSizes({width, total - width});
}

void MainWindow::notePageWidth() {
  const QList<int> sizes = m_boardSplitter->sizes();
  if (m_shownPage >= 0 && sizes.value(0) > 0 && sizes.value(1) > 0) m_pageWidths[std::size_t(m_shownPage)] = sizes[0];
}

void MainWindow::rememberLayoutIn(std::unique_ptr<QSettings> settings) {
  m_settings = std::move(settings);
  if (!m_settings) return;
  if (const QByteArray geometry = m_settings->value(kGeometryKey).toByteArray(); !geometry.isEmpty())
    restoreGeometry(geometry);
  for (QSplitter* splitter : findChildren<QSplitter*>())
    if (!splitter->objectName().isEmpty())
      splitter->restoreState(m_settings->value(QString(kSplitterKey).arg(splitter->objectName())).toByteArray());
  const QVariantList widths = m_settings->value(kPageWidthsKey).toList();
  for (std::size_t i = 0; i < m_pageWidths.size() && i < std::size_t(widths.size()); ++i)
    m_pageWidths[i] = std::max(0, widths[qsizetype(i)].toInt());
  m_techniquesAction->setChecked(m_settings->value(kTechniquesKey, false).toBool());
  m_followDesktop = m_settings->value(kDesktopColoursKey, false).toBool();
  setTextZoom(m_settings->value(kTextZoomKey, 0).toInt());
  m_clearNotesAction->setChecked(m_settings->value(kClearNotesKey, true).toBool());
  m_tellWrongAction->setChecked(m_settings->value(kTellWrongKey, false).toBool());
  m_clockAction->setChecked(m_settings->value(kClockKey, false).toBool());
  m_shownPage = -1;  // the left column takes the remembered width of the page shown
  fitLeftColumn(m_stack->currentIndex());
}

void MainWindow::setFurtherTechniques(bool on) {
  m_session.controls.techniques = on ? TechniqueSet::all() : TechniqueSet::rulesOnly();
  if (m_settings) m_settings->setValue(kTechniquesKey, on);
  // The grade shown follows the techniques a solve may use.
  if (m_puzzleFrame) m_puzzleFrame->judgeAgain();
}

void MainWindow::setClearNotesOnPlace(bool on) {
  m_manual->game().options.clearNotesOnPlace = on;
  if (m_settings) m_settings->setValue(kClearNotesKey, on);
}

void MainWindow::setTellWrongMoves(bool on) {
  m_manual->game().options.tellWrongMoves = on;
  if (m_settings) m_settings->setValue(kTellWrongKey, on);
}

void MainWindow::setClockShown(bool on) {
  m_manual->setClockShown(on);
  if (m_settings) m_settings->setValue(kClockKey, on);
}

void MainWindow::saveLayout() {
  if (!m_settings) return;
  m_settings->setValue(kGeometryKey, saveGeometry());
  notePageWidth();
  QVariantList widths;
  for (int width : m_pageWidths) widths << width;
  m_settings->setValue(kPageWidthsKey, widths);
  for (const QSplitter* splitter : findChildren<QSplitter*>())
    if (!splitter->objectName().isEmpty())
      m_settings->setValue(QString(kSplitterKey).arg(splitter->objectName()), splitter->saveState());
  m_settings->sync();
}

// --- commands

void MainWindow::runCommand(std::function<void()> command) {
  if (m_closing || !command) return;
  // Commands act on the present board, never on one shown from the log.
  m_replay->returnToPresent();
  if (m_commandDepth > 0) {
    // Another command is on the stack below this click (a run waiting for Next,
    // or solving): stop it, and do this one once it has unwound.
    m_pendingCommand = std::move(command);
    m_pacer->requestStop();
    return;
  }
  const QPointer<MainWindow> self(this);
  ++m_commandDepth;
  try {
    command();
  } catch (const RunStopped&) {
    // A command that writes to the log (Paste, a read, an export) yields to the
    // window at each line; another click then stops it where it stands, and
    // that click's command runs next, as it does after a stopped solve.
  }
  if (!self) return;  // the window went away while the command ran
  --m_commandDepth;
  // Whatever ran is over: no area stays highlighted for a step no longer shown.
  m_board->restoreHighlight();
  m_pacer->runEnded();
  m_session.ui().setBusy(false);
  refresh(true);
  if (m_pendingCommand) runCommand(std::exchange(m_pendingCommand, nullptr));
}

void MainWindow::releasePause() {
  m_replay->returnToPresent();
  refresh(false);
  m_pacer->wake();
}

void MainWindow::readPuzzleFile(const std::string& path, int n) {
  runCommand([this, path, n] {
    if (path != m_session.collection.CurrentFile) {
      const std::optional<ReadResult> opened = openCollection(m_session, path);
      if (!opened) return;
      rememberCollection(path);
      if (n == 1) {
        puzzleRead(*opened);
        return;
      }
    }
    puzzleRead(readPuzzle(m_session, path, n));
  });
}

void MainWindow::puzzleRead(const ReadResult& result) {
  // The configuration remembers the collection of every puzzle read.
  if (result.analysed) writeConfiguration(m_session);
}

void MainWindow::openCollectionFile(const std::string& path) {
  runCommand([this, path] {
    if (const std::optional<ReadResult> opened = openCollection(m_session, path)) {
      rememberCollection(path);
      puzzleRead(*opened);
    }
  });
}

void MainWindow::rememberCollection(const std::string& path) {
  if (!m_settings) return;
  const QString full = QFileInfo(QString::fromStdString(path)).absoluteFilePath();
  m_settings->setValue(kCollectionKey, full);
  QStringList recent = m_settings->value(kRecentKey).toStringList();
  recent.removeAll(full);
  recent.prepend(full);
  while (recent.size() > kRecentCount) recent.removeLast();
  m_settings->setValue(kRecentKey, recent);
}

QStringList MainWindow::recentFiles() const {
  return m_settings ? m_settings->value(kRecentKey).toStringList() : QStringList();
}

void MainWindow::fillRecentMenu() {
  m_recentMenu->clear();
  const QStringList recent = recentFiles();
  for (int i = 0; i < recent.size(); ++i) {
    QAction* action = m_recentMenu->addAction(QString("&%1 %2").arg(i + 1).arg(recent[i]));
    action->setObjectName(QString(names::mnuRecent_N).arg(i));
    const std::string path = recent[i].toStdString();
    connect(action, &QAction::triggered, this, [this, path] { openCollectionFile(path); });
  }
  if (recent.isEmpty()) m_recentMenu->addAction("(none)")->setEnabled(false);
}

void MainWindow::newCollection() {
  runCommand([this] {
    FileRequest request;
    request.mode = FileRequest::Mode::Save;
    request.title = "New collection";
    request.pattern = "*.sud";
    request.typeName = "SuDoKu Files";
    request.startDir = m_session.collection.CurrentFile.empty()
                           ? m_session.appDir
                           : QFileInfo(QString::fromStdString(m_session.collection.CurrentFile)).absolutePath().toStdString() + "/";
    const std::string path = m_session.ui().chooseFile(request);
    if (path.empty()) return;
    // A file that holds something is not emptied: it is opened instead, or told.
    if (fileLength(path) > 0) {
      if (countPuzzles(path) > 0 && m_session.ui().question(path + " already holds puzzles. Open it?")) {
        if (const std::optional<ReadResult> opened = openCollection(m_session, path)) {
          rememberCollection(path);
          puzzleRead(*opened);
        }
      } else if (countPuzzles(path) == 0) {
        m_session.message(path + " already exists and is not an empty collection; choose another name");
      }
      return;
    }
    if (const FileResult written = writeFileAtomically(path, ""); !written) {
      m_session.message(couldNotWriteText(path, written));
      return;
    }
    m_session.collection.CurrentFile = path;
    m_session.collection.TotalPuzzles = 0;
    m_session.collection.CurrentPuzzleNumber = 0;
    m_session.collection.boardFromFile = false;
    m_session.collection.index.reset();
    m_session.collection.setOrigin(BoardOrigin::opened(0));
    rememberCollection(path);
    writeConfiguration(m_session);
    m_session.message("New collection " + path + ": Save this puzzle adds the puzzle on the board to it");
  });
}

void MainWindow::saveLogAs() {
  runCommand([this] { saveEventLogAs(m_session); });
}

void MainWindow::pastePuzzle() {
  const QClipboard* clipboard = QApplication::clipboard();
  const std::string text = clipboard ? clipboard->text().toStdString() : std::string();
  runCommand([this, text] { tessaly::pastePuzzle(m_session, text); });
}

void MainWindow::copyPuzzle() {
  const QWidget* focus = QApplication::focusWidget();
  if (focus && (focus == m_log || m_log->isAncestorOf(focus))) return m_log->copy();
  if (QClipboard* clipboard = QApplication::clipboard())
    clipboard->setText(QString::fromStdString(givensText(m_session)));
}

namespace {
// The first local file among the dragged URLs, or "".
QString droppedFile(const QMimeData* mime) {
  if (!mime || !mime->hasUrls()) return {};
  for (const QUrl& url : mime->urls())
    if (url.isLocalFile()) return url.toLocalFile();
  return {};
}
}  // namespace

void MainWindow::dragEnterEvent(QDragEnterEvent* event) {
  if (!droppedFile(event->mimeData()).isEmpty()) event->acceptProposedAction();
}

void MainWindow::dropEvent(QDropEvent* event) {
  const QString path = droppedFile(event->mimeData());
  if (path.isEmpty()) return;
  event->acceptProposedAction();
  openCollectionFile(path.toStdString());
}

// --- the game in progress

std::string MainWindow::gameInProgressPath() const {
  return m_session.folders.configFolder(m_session.appDir) + kGameInProgressFile;
}

void MainWindow::offerSavedGame() {
  const std::string path = gameInProgressPath();
  std::error_code error;
  if (!std::filesystem::is_regular_file(path, error)) return;
  runCommand([this, path] {
    const GameRead read = readGameFile(path);
    if (!read.record) return m_session.message(read.problem);
    if (m_session.ui().question(resumeQuestion(*read.record))) resumeGame(*read.record);
  });
}

void MainWindow::saveGame() {
  runCommand([this] {
    FileRequest request;
    request.mode = FileRequest::Mode::Save;
    request.title = "Save game";
    request.pattern = "*.tsg";
    request.typeName = "Tessaly games";
    request.startDir = m_session.folders.configFolder(m_session.appDir);
    const std::string path = m_session.ui().chooseFile(request);
    if (path.empty()) return;
    if (const std::string problem = saveGameFile(path, m_manual->game().record()); !problem.empty())
      m_session.message(problem);
  });
}

void MainWindow::openGame() {
  FileRequest request;
  request.mode = FileRequest::Mode::Open;
  request.title = "Open game";
  request.pattern = "*.tsg";
  request.typeName = "Tessaly games";
  request.startDir = m_session.folders.configFolder(m_session.appDir);
  const std::string path = m_session.ui().chooseFile(request);
  if (!path.empty()) openGameFile(path);
}

void MainWindow::openGameFile(const std::string& path) {
  runCommand([this, path] {
    // The whole file is checked before anything of it is used.
    const GameRead read = readGameFile(path);
    if (!read.record) return m_session.message(read.problem);
    resumeGame(*read.record);
  });
}

void MainWindow::resumeGame(const GameRecord& record) {
  // The game goes on where it was played: manual play takes the puzzle's
  // arrival on its own tab.
  if (m_session.controls.currentTab != Tab::ManualSolve) {
    m_session.controls.currentTab = Tab::ManualSolve;
    const QSignalBlocker blocker(m_tabs);
    m_tabs->setCurrentIndex(int(Tab::ManualSolve) - 1);
    m_stack->setCurrentIndex(int(Tab::ManualSolve) - 1);
    m_manual->pageShown();
  }
  m_manual->game().resume(record);
  m_manual->refreshFromSession();
  updateUndoActions();
}

void MainWindow::updateUndoActions() {
  if (!m_undoAction) return;
  const bool manual = m_session.controls.currentTab == Tab::ManualSolve;
  m_undoAction->setEnabled(manual && m_manual->game().canUndo());
  m_redoAction->setEnabled(manual && m_manual->game().canRedo());
}

void MainWindow::solve() {
  runCommand([this] { SolverEngine(m_session).solveCommand(); });
}

void MainWindow::openFile() {
  FileRequest request;
  request.mode = FileRequest::Mode::Open;
  request.title = "SuDoKu";
  // Collections and one-per-line lists alike.
  request.pattern = "*.sud *.txt";
  request.typeName = "Puzzle Files";
  request.startDir = m_session.appDir;
  const std::string path = m_session.ui().chooseFile(request);
  if (!path.empty()) openCollectionFile(path);
}

// --- colours

void MainWindow::applyScheme(const std::string& name) {
  // The configuration names no scheme while the window follows the desktop.
  if (m_followDesktop && name.empty()) return applyDesktopColours();
  m_scheme.load(m_session, name);
  applyColours();
}

void MainWindow::applyDesktopColours() {
  const QPalette desktop = QApplication::palette();
  const auto colour = [&](QPalette::ColorRole role) {
    const QColor c = desktop.color(QPalette::Active, role);
    return rgb(c.red(), c.green(), c.blue());
  };
  m_scheme.useDesktop({colour(QPalette::Window), colour(QPalette::WindowText), colour(QPalette::Base),
                       colour(QPalette::Text), colour(QPalette::Highlight), colour(QPalette::HighlightedText)});
  applyColours();
}

void MainWindow::followDesktopColours() {
  m_followDesktop = true;
  if (m_settings) m_settings->setValue(kDesktopColoursKey, true);
  m_session.config.ColourSchemeFile.clear();
  applyDesktopColours();
  writeConfiguration(m_session);
}

void MainWindow::setTextZoom(int steps) {
  m_textZoom = std::clamp(steps, kSmallestZoom, kLargestZoom);
  const double scale = std::pow(kZoomStep, m_textZoom);
  m_board->grid()->setTextScale(scale);
  m_board->candidateView()->setTextScale(scale);
  m_log->setTextScale(scale);
  if (m_settings) m_settings->setValue(kTextZoomKey, m_textZoom);
}

void MainWindow::changeEvent(QEvent* event) {
  QMainWindow::changeEvent(event);
  // The desktop switched between light and dark, or to another palette.
  // The application's font changed (the window has none of its own): the board
  // and the log follow it at their scale.
  if (event->type() == QEvent::FontChange) setTextZoom(m_textZoom);
  const bool palette = event->type() == QEvent::PaletteChange || event->type() == QEvent::ApplicationPaletteChange;
  if (palette && m_scheme.fromDesktop()) applyDesktopColours();
}

void MainWindow::chooseColourScheme(int entry) {
  m_followDesktop = false;
  if (m_settings) m_settings->setValue(kDesktopColoursKey, false);
  // An entry outside the menu applies nothing, but the configuration is still written.
  if (entry >= 0 && entry < int(ColourScheme::kMenuFiles.size()))
    applyScheme(ColourScheme::kMenuFiles[std::size_t(entry)]);
  writeConfiguration(m_session);
}

void MainWindow::chooseHighContrast() {
  m_followDesktop = false;
  if (m_settings) m_settings->setValue(kDesktopColoursKey, false);
  applyScheme(ColourScheme::kHighContrastFile);
  writeConfiguration(m_session);
}

void MainWindow::applyColours() {
  paintBackground(m_content, m_scheme.windowBack);
  paintBackground(m_status, m_scheme.statusBack);
  m_puzzleFrame->applyColours(m_scheme);
  for (TabPage* page : m_pages) page->applyColours(m_scheme);
  for (std::size_t i = 0; i < m_schemeActions.size(); ++i)
    if (m_schemeActions[i])
      m_schemeActions[i]->setChecked(m_session.config.ColourSchemeFile == ColourScheme::kMenuFiles[i]);
  if (m_highContrastAction)
    m_highContrastAction->setChecked(m_session.config.ColourSchemeFile == ColourScheme::kHighContrastFile);
  if (m_desktopSchemeAction) m_desktopSchemeAction->setChecked(m_scheme.fromDesktop());
  m_board->refreshFromSession();
}

// --- drawing

void MainWindow::scheduleRefresh() {
  if (!m_refreshTimer.isActive()) m_refreshTimer.start();
}

void MainWindow::refreshFromSession() { refresh(true); }

void MainWindow::refresh(bool verifyLog) {
  m_refreshTimer.stop();
  const int tab = static_cast<int>(m_session.controls.currentTab) - 1;
  if (tab >= 0 && tab < m_tabs->count() && tab != m_tabs->currentIndex()) {
    const QSignalBlocker blocker(m_tabs);
    m_tabs->setCurrentIndex(tab);
    m_stack->setCurrentIndex(tab);
  }
  m_puzzleFrame->refreshFromSession();
  for (TabPage* page : m_pages) page->refreshFromSession();
  m_board->refreshFromSession();
  if (m_display) m_display->showProgress();
  // A creation hides the views while it works; whatever ended it, they return.
  const bool views = commandStates(m_session).views;
  m_board->candidateDisplay()->setVisible(views);
  m_log->setVisible(views);
  m_status->setText(QString::fromStdString(statusLine(m_session.run.ended)));
  m_log->syncWithLog(verifyLog);
  m_replay->logChanged();
  updateUndoActions();
}

void MainWindow::tabSelected(int index) {
  m_session.controls.currentTab = static_cast<Tab>(index + 1);
  m_stack->setCurrentIndex(index);
  currentPage()->pageShown();
  refresh(false);
}

}  // namespace tessaly
