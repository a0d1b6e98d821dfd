// The desktop program: one session, one main window.

#include <QApplication>

#include "model/Session.h"
#include "ui/Form1.h"
#include "ui/Screenshots.h"
#include "Version.h"

int main(int argc, char** argv) {
  QApplication app(argc, argv);
  QApplication::setApplicationName("Tessaly");
  QApplication::setApplicationVersion(tessaly::kProgramVersion);

  tessaly::Session session;
  tessaly::Form1 window(session);
  // The application directory holds the collection, configuration and scheme files.
  window.startUp(QApplication::applicationDirPath().toStdString());
  window.show();
  // tessaly --screenshot autosolve|create|manual FILE: saves a picture of the
  // window in that state and quits (for the README's pictures).
  const QStringList args = QApplication::arguments();
  if (args.size() == 4 && args[1] == "--screenshot")
    tessaly::scheduleScreenshot(window, session, args[2].toStdString(), args[3].toStdString());
  return app.exec();
}
