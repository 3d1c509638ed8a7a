#include "platform/win32/host/other_program.h"

#include <future>

#include "platform/win32/windows_api.h"

namespace strandline::win32 {

namespace {

constexpr wchar_t kClass[] = L"OtherProgram";
constexpr wchar_t kTitle[] = L"Another program";
constexpr UINT kTakeForeground = WM_APP;
constexpr UINT kCover = WM_APP + 1;  // wParam: whether

LRESULT CALLBACK OtherProcedure(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case kTakeForeground:
      ::SetForegroundWindow(hwnd);
      ::SetActiveWindow(hwnd);
      return 0;
    case kCover:
      if (wParam) {
        ::SetWindowPos(hwnd, HWND_TOPMOST, 0, 0, ::GetSystemMetrics(SM_CXSCREEN), ::GetSystemMetrics(SM_CYSCREEN),
                       SWP_SHOWWINDOW);
        ::SetForegroundWindow(hwnd);
        ::SetActiveWindow(hwnd);
      } else {
        ::SetWindowPos(hwnd, HWND_NOTOPMOST, 0, 0, 0, 0, SWP_HIDEWINDOW | SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
      }
      return 0;
    case WM_DESTROY:
      ::PostQuitMessage(0);
      return 0;
    default:
      return ::DefWindowProcW(hwnd, message, wParam, lParam);
  }
}

// The thread's whole life: its window, and that window's messages.
void Run(std::promise<HWND> made) {
  WNDCLASSW type{};
  type.lpfnWndProc = &OtherProcedure;
  type.hInstance = ::GetModuleHandleW(nullptr);
  type.hbrBackground = ::GetSysColorBrush(COLOR_BTNFACE);
  type.lpszClassName = kClass;
  ::RegisterClassW(&type);
  const HWND hwnd =
      ::CreateWindowExW(0, kClass, kTitle, WS_POPUP, 0, 0, 1, 1, nullptr, nullptr, type.hInstance, nullptr);
  made.set_value(hwnd);
  MSG msg;
  while (hwnd && ::GetMessageW(&msg, nullptr, 0, 0) > 0) ::DispatchMessageW(&msg);
}

}  // namespace

OtherProgram::OtherProgram() {
  std::promise<HWND> made;
  std::future<HWND> window = made.get_future();
  mThread = std::thread(&Run, std::move(made));
  mHwnd = ToNumber(window.get());
}

OtherProgram::~OtherProgram() {
  if (mHwnd) ::SendMessageW(ToHandle<HWND>(mHwnd), WM_CLOSE, 0, 0);
  mThread.join();
}

// The host's thread has the right to the foreground and hands it on; the other thread takes it, as a program does.
void OtherProgram::TakeForeground() {
  ::SetForegroundWindow(ToHandle<HWND>(mHwnd));
  ::SendMessageW(ToHandle<HWND>(mHwnd), kTakeForeground, 0, 0);
}

void OtherProgram::Cover(bool covered) { ::SendMessageW(ToHandle<HWND>(mHwnd), kCover, covered, 0); }

}  // namespace strandline::win32
