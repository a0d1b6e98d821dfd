// The widget tests' entry point: one QApplication (offscreen unless told) in a scratch folder, with fonts of its
// own, so that sizes and layouts come out the same on every machine.

#include <gtest/gtest.h>

#include <QApplication>
#include <QDir>
#include <QSettings>
#include <iostream>

#include "support/TestSupport.h"
#include "UiSupport.h"

int main(int argc, char** argv) {
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication app(argc, argv);
  ::testing::InitGoogleTest(&argc, argv);
  if (!tessaly::testing::useFonts(tessaly::testing::kPinnedFonts)) {
    std::cerr << "The widget tests draw with " << tessaly::testing::kPinnedFonts.family << " and "
              << tessaly::testing::kPinnedFonts.fixed << ": install " << tessaly::testing::kPinnedFonts.package
              << " (scripts/deps.sh lists it).\n";
    return 1;
  }
  tessaly::test::ScratchFolder scratch;
  // Settings a test leaves go to its scratch folder, never to the user's.
  for (const auto format : {QSettings::NativeFormat, QSettings::IniFormat})
    QSettings::setPath(format, QSettings::UserScope, QDir::currentPath());
  return RUN_ALL_TESTS();
}
