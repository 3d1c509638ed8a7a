#pragma once

// A window system with windows that write down what they get.

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "platform/desk/window_system.h"

namespace strandline::desk {

class WindowSystemTest : public testing::Test, public WindowProcedure {
 protected:
  using Handler = std::function<Long(Long hwnd, Long message, Long wParam, Long lParam)>;

  virtual ~WindowSystemTest() = default;

  // Shown, on top of its siblings, not activated.
  Long Open(const char16_t* title, const Rect& bounds = {0, 0, 100, 100}, Long parent = 0) {
    const Long hwnd = Hidden(title, bounds, parent);
    system.ShowWindow(hwnd, 8);
    return hwnd;
  }
  Long Hidden(const char16_t* title, const Rect& bounds = {0, 0, 100, 100}, Long parent = 0) {
    return system.CreateWindowOf(u"Test", title, parent, bounds, this);
  }

  // Paints all and forgets what the windows got so far.
  void Settle() {
    system.DoEvents();
    log.clear();
  }

  void Note(const std::string& line) { log.push_back(line); }
  std::string NameOf(Long hwnd) { return ToUtf8(system.GetWindowTextA(hwnd, 100)); }

  Long OnMessage(Long hwnd, Long message, Long wParam, Long lParam) override {
    Note(NameOf(hwnd) + " " + std::to_string(message) + " " + std::to_string(wParam) + " " + std::to_string(lParam));
    if (handler) return handler(hwnd, message, wParam, lParam);
    return system.DefaultProcedure(hwnd, message, wParam, lParam);
  }

  using Log = std::vector<std::string>;

  WindowSystem system{200, 150};
  Log log;
  Handler handler;
};

}  // namespace strandline::desk
