// The widget tests' entry point: one QApplication (offscreen unless told) in a scratch folder.

#include <gtest/gtest.h>

#include <QApplication>
#include <QDir>
#include <QSettings>

#include "support/TestSupport.h"

int main(int argc, char** argv) {
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication app(argc, argv);
  ::testing::InitGoogleTest(&argc, argv);
  tessaly::test::ScratchFolder scratch;
  // Settings a test leaves go to its scratch folder, never to the user's.
  for (const auto format : {QSettings::NativeFormat, QSettings::IniFormat})
    QSettings::setPath(format, QSettings::UserScope, QDir::currentPath());
  return RUN_ALL_TESTS();
}
