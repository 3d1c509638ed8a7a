#pragma once

#include "platform/windows.h"

namespace strandline::win32 {

// Forwards to the system. Texts go through its wide functions: a title outside the code page stays what it is.
class Win32Windows final : public Windows {
 public:
  Long FindWindowExA(Long parent, Long after, const String* className, const String* title) override;
  Long FindWindowA(const String* className, const String* title) override;
  String GetWindowTextA(Long hwnd, Long limit) override;
  Long GetActiveWindow() override;
  Long GetForegroundWindow() override;
  Long SetForegroundWindow(Long hwnd) override;
  Long GetWindowThreadProcessId(Long hwnd) override;
  Long AttachThreadInput(Long fromThread, Long toThread, Long attach) override;
  Long GetDesktopWindow() override;
  Long IsIconic(Long hwnd) override;
  Long IsWindowVisible(Long hwnd) override;
  Long ShowWindow(Long hwnd, Long command) override;
  Long GetWindowRect(Long hwnd, Rect& rectangle) override;
  Long GetCursorPos(Point& point) override;
  Long SetCursorPos(Long x, Long y) override;
  Long ScreenToClient(Long hwnd, Point& point) override;
  Long ClientToScreen(Long hwnd, Point& point) override;
  Long GetCapture() override;
  Long ReleaseCapture() override;
  Long SendMessageA(Long hwnd, Long message, Long wParam, Long lParam) override;
  Long SetTimer(Long hwnd, Long id, Long milliseconds, TimerProc procedure) override;
  Long KillTimer(Long hwnd, Long id) override;
  Long GetMessageA(Message& message) override;
  Long TranslateMessage(const Message& message) override;
  Long DispatchMessageA(const Message& message) override;
  void DoEvents() override;
  void DoEventsUntilNext() override;
};

}  // namespace strandline::win32
