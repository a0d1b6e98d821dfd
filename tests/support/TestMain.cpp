// Entry point of the core tests: the process works in a scratch folder of its own.

#include <gtest/gtest.h>

#include "support/TestSupport.h"

int main(int argc, char** argv) {
  ::testing::InitGoogleTest(&argc, argv);
  tessaly::test::ScratchFolder scratch;
  return RUN_ALL_TESTS();
}
