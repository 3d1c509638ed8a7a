#include "tests/win32/stage.h"

#include "drawing/ToolbarUtilities.h"
#include "foundation/SleepReplacement.h"
#include "foundation/vbwProtector.h"
#include "platform/win32/windows_api.h"

namespace strandline::win32test {

Stage::Stage() {
  platform::current = mPlatform.Services();
  vbwProtector::vbwInitializeProtector();
}

Stage::~Stage() {
  SleepReplacement::variables = {};
  ToolbarUtilities::variables = {};
  vbwProtector::variables = {};
  platform::current = {};
}

namespace {

constexpr wchar_t kWideClass[] = L"StrandlineSmokeWide";
constexpr char kNarrowClass[] = "StrandlineSmokeNarrow";

template <bool kWide>
LRESULT CALLBACK OwnProcedure(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message >= WM_USER && message < 0xC000) {
    TestWindow::reached.push_back(static_cast<Long>(message));
    TestWindow::lastWParam = wParam;
    TestWindow::lastLParam = lParam;
    return static_cast<LRESULT>(message) + 1000 + TestWindow::added;
  }
  if (message == WM_PAINT) ++TestWindow::paints;
  return kWide ? ::DefWindowProcW(hwnd, message, wParam, lParam) : ::DefWindowProcA(hwnd, message, wParam, lParam);
}

}  // namespace

TestWindow::TestWindow(const char16_t* title, bool wide) : mWide(wide) {
  reached.clear();
  added = 0;
  const HINSTANCE instance = ::GetModuleHandleW(nullptr);
  HWND hwnd = nullptr;
  if (wide) {
    WNDCLASSW type{};
    type.lpfnWndProc = &OwnProcedure<true>;
    type.hInstance = instance;
    type.lpszClassName = kWideClass;
    ::RegisterClassW(&type);
    hwnd = ::CreateWindowExW(0, kWideClass, reinterpret_cast<const wchar_t*>(title), WS_POPUP, 50, 40, 120, 80, nullptr,
                             nullptr, instance, nullptr);
  } else {
    WNDCLASSA type{};
    type.lpfnWndProc = &OwnProcedure<false>;
    type.hInstance = instance;
    type.lpszClassName = kNarrowClass;
    ::RegisterClassA(&type);
    hwnd = ::CreateWindowExA(0, kNarrowClass, ToUtf8(title).c_str(), WS_POPUP, 50, 40, 120, 80, nullptr, nullptr,
                             instance, nullptr);
  }
  ::ShowWindow(hwnd, SW_SHOW);
  mHwnd = win32::ToNumber(hwnd);
  paints = 0;
}

TestWindow::~TestWindow() { Destroy(); }

void TestWindow::Destroy() {
  if (mHwnd) ::DestroyWindow(win32::ToHandle<HWND>(mHwnd));
  mHwnd = 0;
}

void TestWindow::Post(Long message, Long wParam, Long lParam) const {
  ::PostMessageW(win32::ToHandle<HWND>(mHwnd), static_cast<UINT>(message), static_cast<WPARAM>(wParam), lParam);
}

void TestWindow::Invalidate() const { ::InvalidateRect(win32::ToHandle<HWND>(mHwnd), nullptr, FALSE); }

bool TestWindow::HasOwnProcedure() const {
  const HWND hwnd = win32::ToHandle<HWND>(mHwnd);
  const LONG_PTR now = mWide ? ::GetWindowLongPtrW(hwnd, GWLP_WNDPROC) : ::GetWindowLongPtrA(hwnd, GWLP_WNDPROC);
  return now == reinterpret_cast<LONG_PTR>(mWide ? &OwnProcedure<true> : &OwnProcedure<false>);
}

}  // namespace strandline::win32test
