#include "platform/win32/host/win32_host_windows.h"

#include <algorithm>
#include <map>
#include <vector>

#include "platform/win32/host/win32_host_mouse.h"
#include "platform/win32/windows_api.h"

namespace strandline::win32 {

namespace {

HWND ToHwnd(Long hwnd) { return ToHandle<HWND>(hwnd); }

struct WideMessage {
  UINT message;
  WPARAM wParam;
  LPARAM lParam;

  bool Matches(Long number, Long narrowWParam, Long narrowLParam) const {
    return message == static_cast<UINT>(number) && static_cast<Long>(wParam) == narrowWParam &&
           static_cast<Long>(lParam) == narrowLParam;
  }
};

// A window as its host knows it.
struct HostedWindow {
  const Win32HostWindows* host = nullptr;
  WindowProcedure* procedure = nullptr;
  const WideMessage* current = nullptr;  // that its procedure is being given
};

std::map<HWND, HostedWindow>& HostedWindows() {
  static std::map<HWND, HostedWindow> windows;
  return windows;
}

HostedWindow* FindHosted(HWND hwnd) {
  const auto found = HostedWindows().find(hwnd);
  return found == HostedWindows().end() ? nullptr : &found->second;
}

// What a host that knows nothing of it would spoil by a wrong answer.
bool IsTheSystemsOwn(UINT message) {
  switch (message) {
    case WM_CREATE:
    case WM_GETTEXT:
    case WM_GETTEXTLENGTH:
    case WM_SETTEXT:
    case WM_GETMINMAXINFO:
    case WM_WINDOWPOSCHANGING:
    case WM_WINDOWPOSCHANGED:
    case WM_STYLECHANGING:
    case WM_STYLECHANGED:
    case WM_NCCREATE:
    case WM_NCDESTROY:
    case WM_NCCALCSIZE:
    case WM_NCHITTEST:
    case WM_NCPAINT:
    case WM_NCACTIVATE:
    case WM_QUERYOPEN:
      return true;
    default:
      return false;
  }
}

LRESULT CallProcedure(HostedWindow& window, HWND hwnd, const WideMessage& message) {
  const WideMessage* const outer = window.current;
  window.current = &message;
  LRESULT answer = 0;
  try {
    answer = window.procedure->OnMessage(ToNumber(hwnd), static_cast<Long>(message.message),
                                         static_cast<Long>(message.wParam), static_cast<Long>(message.lParam));
  } catch (...) {
  }
  // The procedure may have destroyed its window.
  if (HostedWindow* const still = FindHosted(hwnd)) still->current = outer;
  return answer;
}

LRESULT CALLBACK HostProcedure(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_NCCREATE) {
    const auto* made = static_cast<const HostedWindow*>(reinterpret_cast<CREATESTRUCTW*>(lParam)->lpCreateParams);
    HostedWindows()[hwnd] = *made;
  }
  if (message == WM_NCDESTROY) HostedWindows().erase(hwnd);
  HostedWindow* const window = FindHosted(hwnd);
  if (!window || !window->procedure || IsTheSystemsOwn(message)) {
    return ::DefWindowProcW(hwnd, message, wParam, lParam);
  }
  return CallProcedure(*window, hwnd, {message, wParam, lParam});
}

// Names are the host's own: one that is taken already is taken by it.
void RegisterClassOf(const String& name) {
  WNDCLASSW type{};
  type.style = CS_DBLCLKS | CS_HREDRAW | CS_VREDRAW;
  type.lpfnWndProc = &HostProcedure;
  type.hInstance = ::GetModuleHandleW(nullptr);
  type.hCursor = ::LoadCursorW(nullptr, MAKEINTRESOURCEW(32512));
  type.lpszClassName = Wide(name);
  ::RegisterClassW(&type);
}

// In the coordinates of the parent. An inverted rectangle becomes one without pixels.
RECT PlaceIn(HWND parent, const Rect& bounds) {
  POINT origin{bounds.left, bounds.top};
  if (parent) ::ScreenToClient(parent, &origin);
  return {origin.x, origin.y, std::max<LONG>(0, bounds.right - bounds.left),
          std::max<LONG>(0, bounds.bottom - bounds.top)};
}

bool IsHosted(HWND hwnd) { return FindHosted(hwnd) != nullptr; }

}  // namespace

Win32HostWindows::~Win32HostWindows() {
  std::vector<HWND> left;
  for (auto& [hwnd, window] : HostedWindows()) {
    if (window.host == this) left.push_back(hwnd);
    if (window.host == this) window.procedure = nullptr;
  }
  for (const HWND hwnd : left) {
    if (IsHosted(hwnd)) ::DestroyWindow(hwnd);
  }
}

Long Win32HostWindows::CreateWindowOf(const String& className, const String& title, Long parent, const Rect& bounds,
                                      WindowProcedure* procedure) {
  const HWND under = ToHwnd(parent);
  if (under && !::IsWindow(under)) return 0;
  RegisterClassOf(className);
  HostedWindow made{this, nullptr, nullptr};
  const DWORD style = (under ? WS_CHILD : WS_POPUP) | WS_CLIPSIBLINGS | WS_CLIPCHILDREN;
  const RECT place = PlaceIn(under, bounds);
  const HWND hwnd = ::CreateWindowExW(0, Wide(className), Wide(title), style, place.left, place.top, place.right,
                                      place.bottom, under, nullptr, ::GetModuleHandleW(nullptr), &made);
  if (!hwnd) return 0;
  // A new child comes below its siblings.
  BringWindowToTop(ToNumber(hwnd));
  // Its making is over; what comes now is for its procedure.
  if (HostedWindow* const window = FindHosted(hwnd)) window->procedure = procedure;
  return ToNumber(hwnd);
}

void Win32HostWindows::DestroyWindow(Long hwnd) {
  if (IsHosted(ToHwnd(hwnd))) ::DestroyWindow(ToHwnd(hwnd));
}

void Win32HostWindows::SetTitle(Long hwnd, const String& title) { ::SetWindowTextW(ToHwnd(hwnd), Wide(title)); }

// Nothing is copied to the new place: a window that moves paints anew, with all under it.
void Win32HostWindows::MoveWindow(Long hwnd, const Rect& bounds) {
  if (!IsHosted(ToHwnd(hwnd))) return;
  const bool isChild = (::GetWindowLongPtrW(ToHwnd(hwnd), GWL_STYLE) & WS_CHILD) != 0;
  const RECT place = PlaceIn(isChild ? ::GetAncestor(ToHwnd(hwnd), GA_PARENT) : nullptr, bounds);
  ::SetWindowPos(ToHwnd(hwnd), nullptr, place.left, place.top, place.right, place.bottom,
                 SWP_NOZORDER | SWP_NOACTIVATE | SWP_NOCOPYBITS);
}

void Win32HostWindows::BringWindowToTop(Long hwnd) {
  ::SetWindowPos(ToHwnd(hwnd), HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
}

void Win32HostWindows::ActivateWindow(Long hwnd) {
  if (hwnd == 0) {
    mLastActive = ToNumber(::GetActiveWindow());
    Other().TakeForeground();
    return;
  }
  const HWND top = ::GetAncestor(ToHwnd(hwnd), GA_ROOT);
  if (!top) return;
  ::SetForegroundWindow(top);
  ::SetActiveWindow(top);
  BringWindowToTop(ToNumber(top));
}

void Win32HostWindows::InvalidateWindow(Long hwnd) {
  if (IsHosted(ToHwnd(hwnd))) ::InvalidateRect(ToHwnd(hwnd), nullptr, FALSE);
}

void Win32HostWindows::Post(Long hwnd, Long message, Long wParam, Long lParam) {
  ::PostMessageW(ToHwnd(hwnd), static_cast<UINT>(message), static_cast<WPARAM>(wParam), lParam);
}

void Win32HostWindows::PostQuitMessage() { ::PostQuitMessage(0); }

void Win32HostWindows::SetCapture(Long hwnd) {
  if (hwnd == 0) {
    ::ReleaseCapture();
  } else if (::IsWindow(ToHwnd(hwnd))) {
    ::SetCapture(ToHwnd(hwnd));
  }
}

Long Win32HostWindows::DefaultProcedure(Long hwnd, Long message, Long wParam, Long lParam) {
  WideMessage wide{static_cast<UINT>(message), static_cast<WPARAM>(wParam), static_cast<LPARAM>(lParam)};
  const HostedWindow* const window = FindHosted(ToHwnd(hwnd));
  if (window && window->current && window->current->Matches(message, wParam, lParam)) wide = *window->current;
  return static_cast<Long>(::DefWindowProcW(ToHwnd(hwnd), wide.message, wide.wParam, wide.lParam));
}

void Win32HostWindows::PlacePointer(Point screen) { PlacePointerQuietly(screen); }

void Win32HostWindows::CoverScreen(bool covered) {
  if (covered) {
    if (const HWND active = ::GetActiveWindow()) mLastActive = ToNumber(active);
    Other().Cover(true);
    return;
  }
  if (!mOther) return;
  const bool hadForeground = ToNumber(::GetForegroundWindow()) == mOther->Hwnd();
  mOther->Cover(false);
  if (hadForeground && ::IsWindowVisible(ToHwnd(mLastActive))) ActivateWindow(mLastActive);
}

OtherProgram& Win32HostWindows::Other() {
  if (!mOther) mOther = std::make_unique<OtherProgram>();
  return *mOther;
}

}  // namespace strandline::win32
