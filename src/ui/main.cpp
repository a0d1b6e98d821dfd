// The desktop program: one session, one main window.

#include <QApplication>

#include "model/Session.h"
#include "ui/Form1.h"

int main(int argc, char** argv) {
  QApplication app(argc, argv);
  QApplication::setApplicationName("Tessaly");
  QApplication::setApplicationVersion(TESSALY_VERSION);

  tessaly::Session session;
  tessaly::Form1 window(session);
  // The application directory holds the collection, configuration and scheme files.
  window.startUp(QApplication::applicationDirPath().toStdString());
  window.show();
  return app.exec();
}
