// Entry point of the widget tests: one QApplication for all of them, offscreen
// unless the caller chose another platform; the process works in a scratch
// folder of its own.

#include <gtest/gtest.h>

#include <QApplication>

#include "support/TestSupport.h"

int main(int argc, char** argv) {
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication app(argc, argv);
  ::testing::InitGoogleTest(&argc, argv);
  tessaly::test::ScratchFolder scratch;
  return RUN_ALL_TESTS();
}
