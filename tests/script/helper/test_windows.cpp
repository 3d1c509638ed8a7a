#include "tests/script/helper/test_windows.h"

#include <algorithm>

#include "platform/error.h"
#include "platform/win32/windows_api.h"

namespace strandline::script {

using win32::ToHandle;
using win32::ToNumber;
using win32::Wide;

namespace {

HINSTANCE ThisModule() {
  HMODULE module = nullptr;
  ::GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                       reinterpret_cast<LPCWSTR>(&ThisModule), &module);
  return module;
}

// What the window holds is what was painted last: it clears itself by its class's brush, and nothing else draws.
LRESULT CALLBACK Procedure(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_PAINT) {
    PAINTSTRUCT paint;
    ::BeginPaint(hwnd, &paint);
    ::EndPaint(hwnd, &paint);
    return 0;
  }
  return ::DefWindowProcW(hwnd, message, wParam, lParam);
}

}  // namespace

TestWindows::~TestWindows() {
  const std::vector<Long> windows = mWindows;
  for (const Long hwnd : windows) Destroy(hwnd);
  for (const String& name : mClasses) ::UnregisterClassW(Wide(name), ThisModule());
}

void TestWindows::Provide(const String& className) {
  if (std::find(mClasses.begin(), mClasses.end(), className) != mClasses.end()) return;
  WNDCLASSW made{};
  made.lpfnWndProc = &Procedure;
  made.hInstance = ThisModule();
  made.hbrBackground = ToHandle<HBRUSH>(COLOR_BTNFACE + 1);
  made.lpszClassName = Wide(className);
  if (!::RegisterClassW(&made)) Raise(errors::kInvalidArgument);
  mClasses.push_back(className);
}

Long TestWindows::Make(const String& className, const String& title, Long parent, const Rect& place) {
  Provide(className);
  const DWORD style = (parent ? WS_CHILD : WS_POPUP) | WS_VISIBLE;
  const HWND made =
      ::CreateWindowExW(0, Wide(className), Wide(title), style, place.left, place.top, place.right - place.left,
                        place.bottom - place.top, ToHandle<HWND>(parent), nullptr, ThisModule(), nullptr);
  if (!made) Raise(errors::kInvalidArgument);
  mWindows.push_back(ToNumber(made));
  return ToNumber(made);
}

void TestWindows::Destroy(Long hwnd) {
  std::erase(mWindows, hwnd);
  ::DestroyWindow(ToHandle<HWND>(hwnd));
}

bool TestWindows::IsSubclassed(Long hwnd) const {
  return ::GetWindowLongPtrW(ToHandle<HWND>(hwnd), GWLP_WNDPROC) != reinterpret_cast<LONG_PTR>(&Procedure);
}

void TestWindows::Pump(Long milliseconds) {
  const ULONGLONG end = ::GetTickCount64() + static_cast<ULONGLONG>(std::max<Long>(0, milliseconds));
  for (;;) {
    MSG message;
    while (::PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
      ::TranslateMessage(&message);
      ::DispatchMessageW(&message);
    }
    const ULONGLONG now = ::GetTickCount64();
    if (now >= end) return;
    ::MsgWaitForMultipleObjects(0, nullptr, FALSE, static_cast<DWORD>(end - now), QS_ALLINPUT);
  }
}

void TestWindows::Repaint(Long hwnd) {
  ::RedrawWindow(ToHandle<HWND>(hwnd), nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW | RDW_ERASE);
}

Long TestWindows::Pixel(Long hwnd, Long x, Long y) {
  const HDC context = ::GetDC(ToHandle<HWND>(hwnd));
  const COLORREF colour = ::GetPixel(context, x, y);
  ::ReleaseDC(ToHandle<HWND>(hwnd), context);
  return static_cast<Long>(colour);
}

Long TestWindows::Ink(Long hwnd, const Rect& part) {
  const HDC context = ::GetDC(ToHandle<HWND>(hwnd));
  const COLORREF plain = ::GetSysColor(COLOR_BTNFACE);
  Long count = 0;
  for (Long y = part.top; y < part.bottom; ++y) {
    for (Long x = part.left; x < part.right; ++x) {
      const COLORREF colour = ::GetPixel(context, x, y);
      count += colour != plain && colour != CLR_INVALID;
    }
  }
  ::ReleaseDC(ToHandle<HWND>(hwnd), context);
  return count;
}

}  // namespace strandline::script
