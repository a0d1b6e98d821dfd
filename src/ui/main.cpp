// The desktop program: one session, one main window.

#include <QApplication>
#include <QDir>
#include <QIcon>
#include <QSettings>
#include <QStandardPaths>

#include <cstdio>
#include <iostream>

#include "create/Creation.h"
#include "model/Configuration.h"
#include "model/CpuLevel.h"
#include "model/Folders.h"
#include "model/Session.h"
#include "model/Startup.h"
#include "ui/MainWindow.h"
#include "ui/Screenshots.h"
#include "Version.h"

namespace {

/// The desktop's folder of that kind; the home folder when it names none, or
/// (for documents, which the program does not create) when it does not exist.
std::string standardFolder(QStandardPaths::StandardLocation location) {
  QString folder = QStandardPaths::writableLocation(location);
  if (folder.isEmpty() || (location == QStandardPaths::DocumentsLocation && !QDir(folder).exists()))
    folder = QDir::homePath();
  return QDir(folder).absolutePath().toStdString() + "/";
}

/// tessaly --paths: where this copy reads and writes its files, without a window.
int printPaths(const std::string& dataFolder, const tessaly::Folders& folders) {
  tessaly::Session session;
  session.folders = folders;
  tessaly::startUp(session, dataFolder);
  std::cout << "collection: " << session.collection.CurrentFile << " (" << session.collection.TotalPuzzles << " puzzles)\n"
            << "configuration: " << tessaly::configurationPath(session) << "\n"
            << "created puzzles: " << tessaly::tempCollectionPath(session) << "\n"
            << "event log: " << tessaly::pathIn(folders.output, tessaly::kEventLogFileName) << "\n";
  return 0;
}

constexpr const char* kUsage =
    "Usage: tessaly [FILE]\n"
    "       tessaly --paths | --help | --version\n"
    "\n"
    "Opens the window, with FILE (a collection such as Puzzles.sud, or a one-per-line list) as its collection\n"
    "when given.\n"
    "\n"
    "Options:\n"
    "  --paths\n"
    "      print where this copy reads and writes its files (collection, configuration, created puzzles,\n"
    "      event log) and quit, without a window or a display\n"
    "  --screenshot autosolve|create|manual|replay FILE\n"
    "      save a picture of the window in that state to FILE and quit\n"
    "  --screenshot technique:NAME FILE [COLLECTION]\n"
    "      save a picture of the first finding of technique NAME in the shipped collection (or in COLLECTION)\n"
    "      to FILE and quit\n"
    "  --help\n"
    "      print this text and quit\n"
    "  --version\n"
    "      print the version and quit\n";

/// Writes text to standard output; 0, or 1 with a message when it could not be written.
int printText(const std::string& text) {
  std::cout << text << std::flush;
  if (std::cout && std::fflush(stdout) == 0 && !std::ferror(stdout)) return 0;
  std::cerr << "tessaly: cannot write standard output\n";
  return 1;
}

/// The folders of this copy (needs the application object for its name and folder).
tessaly::Folders folders(std::string& dataFolder) {
  // The shipped data sits beside the executable, or in ../share/tessaly when
  // installed; what the program writes goes where the user can write.
  dataFolder = tessaly::findDataFolder(QCoreApplication::applicationDirPath().toStdString());
  const tessaly::UserFolders user{standardFolder(QStandardPaths::AppConfigLocation),
                                  standardFolder(QStandardPaths::AppDataLocation),
                                  standardFolder(QStandardPaths::DocumentsLocation)};
  return tessaly::chooseFolders(dataFolder, QDir::currentPath().toStdString(), user);
}

}  // namespace

int main(int argc, char** argv) {
  if (const std::string missing = tessaly::missingCpuFeatures("tessaly"); !missing.empty()) {
    std::fputs(missing.c_str(), stderr);
    return 1;
  }
  // What only prints needs no window and no display.
  if (argc == 2) {
    const std::string option = argv[1];
    if (option == "--help" || option == "-h") return printText(kUsage);
    if (option == "--version") return printText(std::string("tessaly ") + tessaly::kProgramVersion + "\n");
    if (option == "--paths") {
      QCoreApplication core(argc, argv);
      QCoreApplication::setApplicationName("Tessaly");
      std::string dataFolder;
      const tessaly::Folders found = folders(dataFolder);
      return printPaths(dataFolder, found);
    }
  }
  QApplication app(argc, argv);
  QApplication::setApplicationName("Tessaly");
  QApplication::setApplicationVersion(tessaly::kProgramVersion);
  // Lets desktop shells match the window to its launcher and icon.
  QApplication::setDesktopFileName("org.tessaly.Tessaly");
  QIcon icon;
  for (const char* size : {"32", "64", "256"}) icon.addFile(QString(":/icons/tessaly-%1.png").arg(size));
  QApplication::setWindowIcon(icon);

  std::string dataFolder;
  const tessaly::Folders found = folders(dataFolder);
  const QStringList args = QApplication::arguments();

  tessaly::Session session;
  session.folders = found;
  tessaly::MainWindow window(session);
  // tessaly --screenshot autosolve|create|manual|replay FILE: saves a picture of
  // the window in that state and quits (for the README's and help's pictures). The picture
  // shows the window as it first opens, whatever a user's last run left. A
  // technique's picture may name the collection its finding is looked for in.
  const bool screenshot = args.size() >= 4 && args[1] == "--screenshot" &&
                          (args.size() == 4 || (args.size() == 5 && args[2].startsWith("technique:")));
  // The window's size and splitters are kept between runs. The organisation is
  // named here only: set for the application, it would move the configuration
  // folder the core reads.
  if (!screenshot) window.rememberLayoutIn(std::make_unique<QSettings>("Tessaly", "Tessaly"));
  // The game of the ManualSolve tab is kept when the window closes.
  window.keepGameInProgress(!screenshot);
  window.startUp(dataFolder);
  // tessaly FILE: that collection instead of the remembered one; otherwise the
  // game kept last time is offered.
  const bool fileGiven = args.size() == 2 && !args[1].startsWith("--");
  if (fileGiven) window.openCollectionFile(args[1].toStdString());
  window.show();
  if (!fileGiven && !screenshot) window.offerSavedGame();
  if (screenshot)
    tessaly::scheduleScreenshot(window, session, args[2].toStdString(), args[3].toStdString(),
                                args.size() == 5 ? args[4].toStdString() : std::string());
  return app.exec();
}
