#include "win32_subclasser.h"

#include <algorithm>
#include <limits>
#include <map>
#include <memory>
#include <vector>

#include "windows_api.h"

namespace strandline::win32 {

namespace {

class Hook;

// A window on which there was a hook: its own procedure, and the hooks in the order in which they were put on.
struct HookedWindow {
  HWND hwnd = nullptr;
  WNDPROC own = nullptr;
  bool wide = false;
  std::vector<Hook*> hooks;
  std::int64_t ordinals = 0;
};
using Hooked = std::shared_ptr<HookedWindow>;

std::map<HWND, Hooked>& HookedWindows() {
  static std::map<HWND, Hooked> windows;
  return windows;
}

// A message with its parameters as wide as they came. A sink sees 32 bits of each; what it passes on unchanged goes on
// whole.
struct WideMessage {
  UINT message;
  WPARAM wParam;
  LPARAM lParam;

  bool Matches(Long uMsg, Long narrowWParam, Long narrowLParam) const {
    return message == static_cast<UINT>(uMsg) && static_cast<Long>(wParam) == narrowWParam &&
           static_cast<Long>(lParam) == narrowLParam;
  }
};

LRESULT CALLBACK HookProcedure(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam);

class Hook final : public Subclasser {
 public:
  void SetSink(MessageSink* sink) override { mSink = sink; }

  void Subclass(Long hwnd) override {
    const HWND window = ToHandle<HWND>(hwnd);
    if (mOrdinal != 0 || !::IsWindow(window)) return;
    mWindow = WindowOf(window);
    if (!mWindow) return;
    mOrdinal = ++mWindow->ordinals;
    mWindow->hooks.push_back(this);
  }

  Long CallPreviousProc(Long uMsg, Long wParam, Long lParam) override {
    if (!mWindow) return 0;
    const Ref<Hook> alive(this);
    WideMessage wide{static_cast<UINT>(uMsg), static_cast<WPARAM>(wParam), static_cast<LPARAM>(lParam)};
    if (mCurrent && mCurrent->Matches(uMsg, wParam, lParam)) wide = *mCurrent;
    return static_cast<Long>(DeliverBefore(mOrdinal, mWindow, wide));
  }

  void Unsubclass() override {
    if (!mWindow) return;
    const Hooked window = std::move(mWindow);
    mWindow = nullptr;
    std::erase(window->hooks, this);
    if (window->hooks.empty()) PutBack(*window);
  }

  // Down the chain from the newest hook older than `ordinal`, and then to the window's own procedure. Hooks that come
  // or go on the way change nothing for those below.
  static LRESULT DeliverBefore(std::int64_t ordinal, const Hooked& window, const WideMessage& message) {
    const Hooked alive = window;
    while (Hook* hook = NewestBefore(*alive, ordinal)) {
      const Ref<Hook> held(hook);
      ordinal = hook->mOrdinal;
      if (!hook->mSink) continue;
      Long answer = 0;
      Boolean cancel = false;
      hook->Ask(message, answer, cancel);
      if (cancel) return answer;
    }
    const auto call = alive->wide ? &::CallWindowProcW : &::CallWindowProcA;
    return call(alive->own, alive->hwnd, message.message, message.wParam, message.lParam);
  }

  static void Forget(const Hooked& window) {
    for (Hook* hook : std::vector<Hook*>(window->hooks)) hook->mWindow = nullptr;
    window->hooks.clear();
    HookedWindows().erase(window->hwnd);
  }

 protected:
  void Terminated() override { Unsubclass(); }

 private:
  void Ask(const WideMessage& message, Long& answer, Boolean& cancel) {
    struct Current {
      const WideMessage*& place;
      const WideMessage* const outer;
      ~Current() { place = outer; }
    } const restore{mCurrent, mCurrent};
    mCurrent = &message;
    mSink->BeforeMessage(static_cast<Long>(message.message), static_cast<Long>(message.wParam),
                         static_cast<Long>(message.lParam), answer, cancel);
  }

  static Hook* NewestBefore(const HookedWindow& window, std::int64_t ordinal) {
    const auto found = std::find_if(window.hooks.rbegin(), window.hooks.rend(),
                                    [ordinal](const Hook* hook) { return hook->mOrdinal < ordinal; });
    return found == window.hooks.rend() ? nullptr : *found;
  }

  static Hooked WindowOf(HWND hwnd) {
    Hooked& window = HookedWindows()[hwnd];
    if (window) return window;
    window = std::make_shared<HookedWindow>();
    window->hwnd = hwnd;
    window->wide = ::IsWindowUnicode(hwnd);
    const auto set = window->wide ? &::SetWindowLongPtrW : &::SetWindowLongPtrA;
    window->own = reinterpret_cast<WNDPROC>(set(hwnd, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&HookProcedure)));
    const Hooked result = window->own ? window : nullptr;
    if (!result) HookedWindows().erase(hwnd);
    return result;
  }

  // Where somebody else has put a procedure on top of ours since, ours stays and passes everything on, or theirs would
  // be lost.
  static void PutBack(const HookedWindow& window) {
    const auto get = window.wide ? &::GetWindowLongPtrW : &::GetWindowLongPtrA;
    const auto set = window.wide ? &::SetWindowLongPtrW : &::SetWindowLongPtrA;
    if (get(window.hwnd, GWLP_WNDPROC) != reinterpret_cast<LONG_PTR>(&HookProcedure)) return;
    set(window.hwnd, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(window.own));
    HookedWindows().erase(window.hwnd);
  }

  MessageSink* mSink = nullptr;
  Hooked mWindow;  // null unless it is on a window
  std::int64_t mOrdinal = 0;
  const WideMessage* mCurrent = nullptr;  // that the sink is being asked about
};

// Nothing thrown may go through the system's frames.
LRESULT CALLBACK HookProcedure(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) {
  const auto found = HookedWindows().find(hwnd);
  if (found == HookedWindows().end()) return ::DefWindowProcW(hwnd, message, wParam, lParam);
  const Hooked window = found->second;
  LRESULT answer = 0;
  try {
    answer = Hook::DeliverBefore(std::numeric_limits<std::int64_t>::max(), window, {message, wParam, lParam});
  } catch (...) {
  }
  if (message == WM_NCDESTROY) Hook::Forget(window);
  return answer;
}

}  // namespace

Ref<Subclasser> Win32Subclassers::Create() { return New<Hook>(); }

}  // namespace strandline::win32
