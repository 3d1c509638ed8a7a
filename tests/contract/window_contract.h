#pragma once

#include <functional>
#include <string>
#include <utility>

#include "tests/contract/contract.h"

namespace strandline::contract {

inline constexpr Long kWmDestroy = 2;
inline constexpr Long kOwnMessage = 0x0400 + 9;  // of the window's class, so nobody else sends it

inline constexpr const char16_t* kWindowClass = u"StrandlineContract";

// Windows that write down what they get, of the messages that the seam speaks of.
class WindowContract : public Contract, public WindowProcedure {
 protected:
  using Handler = std::function<Long(Long hwnd, Long message, Long wParam, Long lParam)>;
  using Log = std::vector<std::string>;

  static constexpr Long kShowInPlace = 8;
  static constexpr Rect kPlace{50, 40, 170, 120};

  virtual ~WindowContract() {
    handler = nullptr;
    while (!mOpened.empty()) {
      const Long hwnd = mOpened.back().first;
      mOpened.pop_back();
      Host().DestroyWindow(hwnd);
    }
  }

  // Shown, on top of its siblings, not activated.
  Long Open(const char16_t* title, const Rect& bounds = kPlace, Long parent = 0) {
    const Long hwnd = Hidden(title, bounds, parent);
    windows.ShowWindow(hwnd, kShowInPlace);
    return hwnd;
  }
  Long Hidden(const char16_t* title, const Rect& bounds = kPlace, Long parent = 0) {
    const Long hwnd = Host().CreateWindowOf(kWindowClass, title, parent, bounds, this);
    EXPECT_NE(hwnd, 0);
    mOpened.emplace_back(hwnd, ToUtf8(title));
    return hwnd;
  }
  // Paints all and forgets what the windows got so far.
  void Settle() {
    windows.DoEvents();
    log.clear();
  }
  // The first window of the tests' class below `parent` in z-order, behind `after`.
  Long Next(Long after, Long parent = 0) {
    const String type = kWindowClass;
    return windows.FindWindowExA(parent, after, &type, nullptr);
  }
  int Count(const std::string& line) const {
    int count = 0;
    for (const std::string& each : log) count += each == line;
    return count;
  }

  Long OnMessage(Long hwnd, Long message, Long wParam, Long lParam) override {
    if (IsOfTheSeam(message)) log.push_back(NameOf(hwnd) + " " + std::to_string(message));
    if (handler) return handler(hwnd, message, wParam, lParam);
    return Host().DefaultProcedure(hwnd, message, wParam, lParam);
  }

  // A line for each message: the window's title when it was made, and the message's number.
  Log log;
  Handler handler;

 private:
  static bool IsOfTheSeam(Long message) {
    switch (message) {
      case kWmDestroy:
      case wm::kSize:
      case wm::kPaint:
      case wm::kTimer:
      case wm::kMouseMove:
      case wm::kLButtonDown:
      case wm::kLButtonUp:
      case wm::kCaptureChanged:
      case wm::kPrint:
        return true;
      default:
        return message >= 0x0400 && message < 0xC000;
    }
  }
  std::string NameOf(Long hwnd) const {
    for (const auto& [opened, name] : mOpened) {
      if (opened == hwnd) return name;
    }
    return "?";
  }

  std::vector<std::pair<Long, std::string>> mOpened;
};

}  // namespace strandline::contract
