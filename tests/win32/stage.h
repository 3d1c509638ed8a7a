#pragma once

// The back-end as one, and windows on which the tests act.

#include <cstdint>
#include <string>
#include <vector>

#include "platform/platform.h"
#include "platform/win32/win32_platform.h"

namespace strandline::win32test {

// The services, in place as the library's own as long as this lives; it begins with fresh variables.
class Stage {
 public:
  Stage();
  ~Stage();
  Stage(const Stage&) = delete;
  Stage& operator=(const Stage&) = delete;

 private:
  win32::Win32Platform mPlatform{u"Software\\Strandline Tests"};
};

// A window of the system's with a procedure of its own, which notes what reaches it and answers with message + 1000.
class TestWindow {
 public:
  // Of Unicode or not; shown, at 50, 40, without a frame.
  explicit TestWindow(const char16_t* title = u"Smoke", bool wide = true);
  ~TestWindow();
  TestWindow(const TestWindow&) = delete;
  TestWindow& operator=(const TestWindow&) = delete;

  Long Hwnd() const { return mHwnd; }
  void Destroy();
  void Post(Long message, Long wParam, Long lParam) const;
  void Invalidate() const;
  // Whether the window's procedure is the one with which it was made.
  bool HasOwnProcedure() const;

  // The messages from WM_USER on that reached it, and what it was painted with last.
  static inline std::vector<Long> reached;
  static inline int paints = 0;
  // The parameters of the last of these messages, whole.
  static inline std::uintptr_t lastWParam = 0;
  static inline std::intptr_t lastLParam = 0;
  // Added to its answers to them.
  static inline std::intptr_t added = 0;

 private:
  Long mHwnd = 0;
  bool mWide;
};

}  // namespace strandline::win32test
