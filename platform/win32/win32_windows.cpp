#include "platform/win32/win32_windows.h"

#include <algorithm>
#include <array>
#include <vector>

#include "platform/win32/timer_procedures.h"
#include "platform/win32/windows_api.h"

namespace strandline::win32 {

namespace {

HWND ToHwnd(Long hwnd) { return ToHandle<HWND>(hwnd); }
const wchar_t* WideOrAny(const String* text) { return text ? Wide(*text) : nullptr; }

// The message that came out of the queue last, whole: of a timer's procedure, or of another pointer, a Message bears
// only 32 bits.
MSG& LastFetched() {
  static MSG fetched{};
  return fetched;
}

Message FromMSG(const MSG& msg) {
  return {ToNumber(msg.hwnd),
          static_cast<Long>(msg.message),
          static_cast<Long>(msg.wParam),
          static_cast<Long>(msg.lParam),
          static_cast<Long>(msg.time),
          {static_cast<Long>(msg.pt.x), static_cast<Long>(msg.pt.y)}};
}

bool Same(const MSG& msg, const Message& message) {
  return ToNumber(msg.hwnd) == message.hwnd && static_cast<Long>(msg.message) == message.message &&
         static_cast<Long>(msg.wParam) == message.wParam && static_cast<Long>(msg.lParam) == message.lParam;
}

MSG ToMSG(const Message& message) {
  if (Same(LastFetched(), message)) return LastFetched();
  LPARAM lParam = message.lParam;
  // The system would call what 32 bits of a pointer point to.
  if (message.message == wm::kTimer && lParam != 0) {
    const bool isOurs = timer_procedures::Has(message.hwnd, message.wParam);
    lParam = isOurs ? reinterpret_cast<LPARAM>(&timer_procedures::OnTimer) : 0;
  }
  return {ToHwnd(message.hwnd),
          static_cast<UINT>(message.message),
          static_cast<WPARAM>(message.wParam),
          lParam,
          static_cast<DWORD>(message.time),
          {message.pt.x, message.pt.y}};
}

}  // namespace

Long Win32Windows::FindWindowExA(Long parent, Long after, const String* className, const String* title) {
  return ToNumber(::FindWindowExW(ToHwnd(parent), ToHwnd(after), WideOrAny(className), WideOrAny(title)));
}
Long Win32Windows::FindWindowA(const String* className, const String* title) {
  return ToNumber(::FindWindowW(WideOrAny(className), WideOrAny(title)));
}
String Win32Windows::GetWindowTextA(Long hwnd, Long limit) {
  if (limit <= 0) return {};
  std::vector<wchar_t> buffer(static_cast<std::size_t>(limit));
  const int length = ::GetWindowTextW(ToHwnd(hwnd), buffer.data(), limit);
  return FromWide(buffer.data(), static_cast<std::size_t>(length));
}
Long Win32Windows::GetActiveWindow() { return ToNumber(::GetActiveWindow()); }
Long Win32Windows::GetForegroundWindow() { return ToNumber(::GetForegroundWindow()); }
Long Win32Windows::SetForegroundWindow(Long hwnd) { return ::SetForegroundWindow(ToHwnd(hwnd)); }
Long Win32Windows::GetWindowThreadProcessId(Long hwnd) {
  return static_cast<Long>(::GetWindowThreadProcessId(ToHwnd(hwnd), nullptr));
}
Long Win32Windows::AttachThreadInput(Long fromThread, Long toThread, Long attach) {
  return ::AttachThreadInput(static_cast<DWORD>(fromThread), static_cast<DWORD>(toThread), attach);
}
Long Win32Windows::GetDesktopWindow() { return ToNumber(::GetDesktopWindow()); }
Long Win32Windows::IsIconic(Long hwnd) { return ::IsIconic(ToHwnd(hwnd)); }
Long Win32Windows::IsWindowVisible(Long hwnd) { return ::IsWindowVisible(ToHwnd(hwnd)); }
Long Win32Windows::ShowWindow(Long hwnd, Long command) { return ::ShowWindow(ToHwnd(hwnd), command); }

Long Win32Windows::GetWindowRect(Long hwnd, Rect& rectangle) {
  RECT found{};
  const BOOL ok = ::GetWindowRect(ToHwnd(hwnd), &found);
  if (ok) rectangle = FromRECT(found);
  return ok;
}

namespace {

template <class Call>
Long WithPoint(Point& point, Call call) {
  POINT place{point.x, point.y};
  const BOOL ok = call(&place);
  if (ok) point = {static_cast<Long>(place.x), static_cast<Long>(place.y)};
  return ok;
}

}  // namespace

Long Win32Windows::GetCursorPos(Point& point) {
  return WithPoint(point, [](POINT* place) { return ::GetCursorPos(place); });
}
Long Win32Windows::SetCursorPos(Long x, Long y) { return ::SetCursorPos(x, y); }
Long Win32Windows::ScreenToClient(Long hwnd, Point& point) {
  return WithPoint(point, [hwnd](POINT* place) { return ::ScreenToClient(ToHwnd(hwnd), place); });
}
Long Win32Windows::ClientToScreen(Long hwnd, Point& point) {
  return WithPoint(point, [hwnd](POINT* place) { return ::ClientToScreen(ToHwnd(hwnd), place); });
}
Long Win32Windows::GetCapture() { return ToNumber(::GetCapture()); }
Long Win32Windows::ReleaseCapture() { return ::ReleaseCapture(); }

Long Win32Windows::SendMessageA(Long hwnd, Long message, Long wParam, Long lParam) {
  return static_cast<Long>(
      ::SendMessageA(ToHwnd(hwnd), static_cast<UINT>(message), static_cast<WPARAM>(wParam), lParam));
}

Long Win32Windows::SetTimer(Long hwnd, Long id, Long milliseconds, TimerProc procedure) {
  // A timer without a window gets a number of its own, so the procedure is kept when that is known; no tick comes in
  // between, since ticks are messages.
  const Long number =
      static_cast<Long>(::SetTimer(ToHwnd(hwnd), static_cast<UINT_PTR>(id), static_cast<UINT>(milliseconds),
                                   procedure ? &timer_procedures::OnTimer : nullptr));
  if (number != 0) timer_procedures::Set(hwnd, hwnd == 0 ? number : id, procedure);
  return number;
}

Long Win32Windows::KillTimer(Long hwnd, Long id) {
  const Long killed = ::KillTimer(ToHwnd(hwnd), static_cast<UINT_PTR>(id));
  timer_procedures::Set(hwnd, id, nullptr);
  return killed;
}

// A failure ends a wait as WM_QUIT does: one that went on would spin, since the next call fails too.
Long Win32Windows::GetMessageA(Message& message) {
  MSG msg{};
  const BOOL got = ::GetMessageW(&msg, nullptr, 0, 0);
  message = FromMSG(msg);
  LastFetched() = msg;
  return got > 0;
}

Long Win32Windows::TranslateMessage(const Message& message) {
  const MSG msg = ToMSG(message);
  return ::TranslateMessage(&msg);
}

Long Win32Windows::DispatchMessageA(const Message& message) {
  const MSG msg = ToMSG(message);
  return static_cast<Long>(::DispatchMessageW(&msg));
}

namespace {

// WM_QUIT among the messages of a round: it goes back when the round ends, whichever way. It comes before timers, which
// must run meanwhile; and a wait for the next message, which it would end at once each time, is for others than it.
class Quit {
 public:
  Quit() = default;
  Quit(const Quit&) = delete;
  Quit& operator=(const Quit&) = delete;
  ~Quit() {
    if (mHasCome) ::PostQuitMessage(mCode);
  }
  bool Takes(const MSG& msg) {
    if (msg.message != WM_QUIT) return false;
    mHasCome = true;
    mCode = static_cast<int>(msg.wParam);
    return true;
  }

 private:
  bool mHasCome = false;
  int mCode = 0;
};

// The windows that were painted in a round.
class Painted {
 public:
  // False when it was painted before, or there are too many to tell.
  bool IsFirst(HWND window) {
    const auto end = mWindows.begin() + static_cast<std::ptrdiff_t>(mCount);
    if (mCount == mWindows.size() || std::find(mWindows.begin(), end, window) != end) return false;
    mWindows[mCount++] = window;
    return true;
  }

 private:
  std::array<HWND, 64> mWindows{};
  std::size_t mCount = 0;
};

// True if a message ran. A window that doesn't validate would be painted for ever: its second paint ends the round. One
// round may run inside another, from within a message; what it takes, the outer one finds gone.
bool Pump(Quit& quit) {
  bool any = false;
  Painted painted;
  MSG msg;
  while (::PeekMessageW(&msg, nullptr, 0, 0, PM_REMOVE)) {
    if (quit.Takes(msg)) continue;
    any = true;
    ::TranslateMessage(&msg);
    ::DispatchMessageW(&msg);
    if (msg.message == WM_PAINT && !painted.IsFirst(msg.hwnd)) break;
  }
  return any;
}

}  // namespace

void Win32Windows::DoEvents() {
  Quit quit;
  Pump(quit);
}

void Win32Windows::DoEventsUntilNext() {
  Quit quit;
  if (Pump(quit)) return;
  ::MsgWaitForMultipleObjectsEx(0, nullptr, INFINITE, QS_ALLINPUT, MWMO_INPUTAVAILABLE);
  Pump(quit);
}

}  // namespace strandline::win32
