#pragma once

// Real windows that a script makes: they are filled with the system's face colour and do nothing else.

#include <string>
#include <vector>

#include "platform/text.h"
#include "platform/values.h"

namespace strandline::script {

class TestWindows {
 public:
  TestWindows() = default;
  TestWindows(const TestWindows&) = delete;
  TestWindows& operator=(const TestWindows&) = delete;
  ~TestWindows();

  // A shown window: a child at `place` in its parent, pixels, or without a parent one of its own on the screen. Raises
  // 5 when the system makes none.
  Long Make(const String& className, const String& title, Long parent, const Rect& place);
  void Destroy(Long hwnd);
  // Another procedure stands before the one that the window was made with.
  bool IsSubclassed(Long hwnd) const;

  // Lets messages run for so long.
  static void Pump(Long milliseconds);
  // Has the window painted anew, now.
  static void Repaint(Long hwnd);
  // The window's own pixel, 0x00BBGGRR; -1 outside it.
  static Long Pixel(Long hwnd, Long x, Long y);
  // How many pixels of that part aren't of the colour that the window fills itself with.
  static Long Ink(Long hwnd, const Rect& part);

 private:
  void Provide(const String& className);

  std::vector<String> mClasses;
  std::vector<Long> mWindows;
};

}  // namespace strandline::script
