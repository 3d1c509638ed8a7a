#pragma once

#include <thread>

#include "platform/values.h"

namespace strandline::win32 {

// Another program as this one meets it: a topmost popup of a thread of its own, which can take the foreground and cover
// the screen. While it is active, no window of the host's thread is.
class OtherProgram {
 public:
  OtherProgram();
  ~OtherProgram();
  OtherProgram(const OtherProgram&) = delete;
  OtherProgram& operator=(const OtherProgram&) = delete;

  Long Hwnd() const { return mHwnd; }
  void TakeForeground();
  // Over the whole screen, and out of sight again.
  void Cover(bool covered);

 private:
  Long mHwnd = 0;
  std::thread mThread;
};

}  // namespace strandline::win32
