// The desktop program: one session, one main window.

#include <QApplication>

#include "model/Session.h"
#include "ui/Form1.h"

int main(int argc, char** argv) {
  QApplication app(argc, argv);
  QApplication::setApplicationName("Tessaly");

  tessaly::Session session;
  // The application directory holds the collection and configuration files.
  session.appDir = QApplication::applicationDirPath().toStdString() + "/";

  tessaly::Form1 window(session);
  window.show();
  return app.exec();
}
