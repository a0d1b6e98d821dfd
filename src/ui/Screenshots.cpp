#include "ui/Screenshots.h"

#include <QAction>
#include <QApplication>
#include <QPixmap>
#include <QScreen>
#include <QTabBar>
#include <QTimer>

#include <iostream>
#include <optional>

#include "model/CollectionFile.h"
#include "play/ManualPlay.h"
#include "solver/ReadPuzzle.h"
#include "solver/Techniques.h"
#include "solver/SolverEngine.h"
#include "ui/CreatePage.h"
#include "ui/MainWindow.h"
#include "ui/ManualPage.h"
#include "ui/ReplayController.h"

namespace tessaly {

namespace {
constexpr int kPuzzle = 40;       ///< a medium puzzle of the shipped collection
constexpr int kNextClicks = 60;   ///< how far the stepped run goes before the picture
constexpr int kTickMs = 15;
/// How many lines before the newest the replay picture goes back at least.
constexpr int kLinesBack = 8;

/// A line well before the newest that removes a choice, so the picture shows
/// its cell and area highlighted.
int lineToReplay(const Session& session) {
  const int newest = session.log.TotalLines();
  const auto& findings = session.run.findings;
  for (auto f = findings.rbegin(); f != findings.rend(); ++f)
    if (f->kind == FindingKind::RuleRemoval && f->logLine <= newest - kLinesBack) return f->logLine;
  return std::max(1, newest - kLinesBack);
}

/// Saves the picture and quits; the exit status is 2 when the tab shown needs
/// more room than the screen has.
void saveAndQuit(MainWindow& window, const std::string& file) {
  window.refreshFromSession();
  QApplication::processEvents();
  window.grab().save(QString::fromStdString(file), "PNG");
  const QSize least = window.leastSize();
  const QSize room = window.screen() ? window.screen()->availableGeometry().size() : least;
  if (least.width() > room.width() || least.height() > room.height()) {
    std::cerr << "The window needs " << least.width() << "x" << least.height() << " but the screen has "
              << room.width() << "x" << room.height() << "\n";
    QApplication::exit(2);
    return;
  }
  QApplication::quit();
}

/// The first puzzle of the collection whose Start run with every technique
/// and no pauses tells a finding of `technique`, and the log line it is told at.
std::optional<std::pair<int, int>> findingOf(const std::string& collection, Technique technique) {
  const int total = countPuzzles(collection);
  for (int n = 1; n <= total; ++n) {
    const PuzzleRowsRead read = readPuzzleRows(collection, n);
    if (read.status != PuzzleRowsRead::Status::Found) continue;
    Session s;
    s.controls.techniques = TechniqueSet::all();
    s.controls.PauseCheck = true;
    enterPuzzle(s, read.cells());
    SolverEngine(s).startCommand();
    for (const Finding& f : s.run.findings)
      if (f.kind == FindingKind::TechniqueFound && Technique(f.technique) == technique) return {{n, f.logLine}};
  }
  return std::nullopt;
}

void selectTab(MainWindow& window, int index) {
  if (auto* tabs = window.findChild<QTabBar*>("ctlTabs")) tabs->setCurrentIndex(index);
  QApplication::processEvents();
}
}  // namespace

void scheduleScreenshot(MainWindow& window, Session& session, const std::string& tab, const std::string& file,
                        const std::string& source) {
  const std::string collection = source.empty() ? session.appDir + "Puzzles.sud" : source;
  // The picture shows the window filling the screen, as a user of a small
  // screen would have it.
  if (const QScreen* screen = window.screen()) window.setGeometry(screen->availableGeometry());
  QTimer::singleShot(100, &window, [&window, &session, tab, file, collection] {
    if (tab.rfind("technique:", 0) == 0) {
      // A real finding of the technique, shown by replaying its line of a
      // Start run with no pauses and every technique turned on.
      const std::string name = tab.substr(10);
      const auto row = std::find_if(kTechniques.begin(), kTechniques.end(),
                                    [&](const TechniqueInfo& t) { return t.cliName == name; });
      const auto found = row == kTechniques.end() ? std::nullopt : findingOf(collection, row->id);
      if (!found) {
        std::cerr << "No puzzle of " << collection << " shows " << name << "\n";
        QApplication::exit(3);
        return;
      }
      if (auto* option = window.findChild<QAction*>("mnuTechniques")) option->setChecked(true);
      session.controls.PauseCheck = true;
      window.readPuzzleFile(collection, found->first);
      window.runCommand([&session] { SolverEngine(session).startCommand(); });
      for (const Finding& f : session.run.findings)
        if (f.kind == FindingKind::TechniqueFound && Technique(f.technique) == row->id) {
          window.replay()->showLine(f.logLine);
          break;
        }
      saveAndQuit(window, file);
    } else if (tab == "create") {
      selectTab(window, 1);
      auto* page = static_cast<CreatePage*>(window.page(Tab::Create));
      page->createCommand();
      saveAndQuit(window, file);
    } else if (tab == "manual") {
      window.readPuzzleFile(collection, kPuzzle);
      selectTab(window, 2);
      ManualPlay& play = static_cast<ManualPage*>(window.page(Tab::ManualSolve))->play();
      // Fill the first few open cells that have a single choice, as a player would.
      int placed = 0;
      for (int c = 1; c <= kCells && placed < 8; ++c)
        if (!session.grid[c].value && session.grid[c].candidates.size() == 1) {
          play.selectCell(c);
          play.placeManualValue(c, session.grid[c].candidates.first());
          ++placed;
        }
      saveAndQuit(window, file);
    } else {
      // "autosolve", or "replay": the same stepped run with a past line shown.
      const bool replay = tab == "replay";
      window.readPuzzleFile(collection, kPuzzle);
      auto* ticks = new QTimer(&window);
      auto count = std::make_shared<int>(0);
      QObject::connect(ticks, &QTimer::timeout, &window, [&window, &session, file, ticks, count, replay] {
        if (++*count > kNextClicks) {
          ticks->stop();
          if (replay) window.replay()->showLine(lineToReplay(session));
          saveAndQuit(window, file);
          return;
        }
        SolverEngine(session).nextCommand(false);
        window.releasePause();
      });
      ticks->start(kTickMs);
      window.runCommand([&session] { SolverEngine(session).startCommand(); });
    }
  });
}

}  // namespace tessaly
