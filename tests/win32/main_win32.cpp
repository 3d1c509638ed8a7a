// The tests' program: COM with OLE's clipboard and pictures on its one thread.

#include <gtest/gtest.h>

#include "platform/win32/windows_api.h"

int main(int argc, char** argv) {
  ::testing::InitGoogleTest(&argc, argv);
  if (FAILED(::OleInitialize(nullptr))) return 2;
  const int failed = RUN_ALL_TESTS();
  ::OleUninitialize();
  return failed;
}
