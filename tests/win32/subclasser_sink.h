#pragma once

#include <functional>

#include "tests/win32/stage.h"

namespace strandline::win32test {

inline constexpr Long kFirst = 0x0400 + 1;  // a message of the window's own
inline constexpr Long kSecond = kFirst + 1;
inline constexpr Long kDestroyed = 130;  // the last message of a window

class Sink final : public MessageSink {
 public:
  using Handler = std::function<void(Long message, Long wParam, Long lParam, Long& answer, Boolean& cancel)>;

  explicit Sink(Handler handler) : mHandler(std::move(handler)) {}
  void BeforeMessage(Long uMsg, Long wParam, Long lParam, Long& retValue, Boolean& Cancel) override {
    mHandler(uMsg, wParam, lParam, retValue, Cancel);
  }

 private:
  Handler mHandler;
};

inline Ref<Subclasser> Hooked(Sink& sink, Long hwnd) {
  Ref<Subclasser> hook = platform::Subclassers().Create();
  hook->SetSink(&sink);
  hook->Subclass(hwnd);
  return hook;
}

inline Long Send(const TestWindow& window, Long message, Long wParam = 3, Long lParam = 4) {
  return platform::Windows().SendMessageA(window.Hwnd(), message, wParam, lParam);
}

}  // namespace strandline::win32test
