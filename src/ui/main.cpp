// The desktop program: one session, one main window.

#include <QApplication>
#include <QDir>
#include <QIcon>
#include <QSettings>
#include <QStandardPaths>

#include <iostream>

#include "create/Creation.h"
#include "model/Configuration.h"
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

}  // namespace

int main(int argc, char** argv) {
  QApplication app(argc, argv);
  QApplication::setApplicationName("Tessaly");
  QApplication::setApplicationVersion(tessaly::kProgramVersion);
  // Lets desktop shells match the window to its launcher and icon.
  QApplication::setDesktopFileName("org.tessaly.Tessaly");
  QIcon icon;
  for (const char* size : {"32", "64", "256"}) icon.addFile(QString(":/icons/tessaly-%1.png").arg(size));
  QApplication::setWindowIcon(icon);

  // The shipped data sits beside the executable, or in ../share/tessaly when
  // installed; what the program writes goes where the user can write.
  const std::string dataFolder = tessaly::findDataFolder(QApplication::applicationDirPath().toStdString());
  const tessaly::UserFolders user{standardFolder(QStandardPaths::AppConfigLocation),
                                  standardFolder(QStandardPaths::AppDataLocation),
                                  standardFolder(QStandardPaths::DocumentsLocation)};
  const tessaly::Folders folders = tessaly::chooseFolders(dataFolder, QDir::currentPath().toStdString(), user);

  const QStringList args = QApplication::arguments();
  if (args.size() == 2 && args[1] == "--paths") return printPaths(dataFolder, folders);

  tessaly::Session session;
  session.folders = folders;
  tessaly::MainWindow window(session);
  // tessaly --screenshot autosolve|create|manual|replay FILE: saves a picture of
  // the window in that state and quits (for the README's and help's pictures). The picture
  // shows the window as it first opens, whatever a user's last run left.
  const bool screenshot = args.size() == 4 && args[1] == "--screenshot";
  // The window's size and splitters are kept between runs. The organisation is
  // named here only: set for the application, it would move the configuration
  // folder the core reads.
  if (!screenshot) window.rememberLayoutIn(std::make_unique<QSettings>("Tessaly", "Tessaly"));
  window.startUp(dataFolder);
  window.show();
  if (screenshot) tessaly::scheduleScreenshot(window, session, args[2].toStdString(), args[3].toStdString());
  return app.exec();
}
