#pragma once

// Windows, messages, timers, mouse and capture, each operation under its Windows name, with Windows' own numbers and
// meanings. All of it belongs to the one thread of the library.
//
// What the logic leans on: a sent message runs at once; posted messages come before input, input before paint, paint
// before timers; a paint comes again and again while a window has an invalid region.

#include "platform/text.h"
#include "platform/values.h"

namespace strandline {

// A message of the thread's queue.
struct Message {
  Long hwnd = 0;
  Long message = 0;
  Long wParam = 0;
  Long lParam = 0;
  Long time = 0;  // milliseconds since the system's start
  Point pt;       // the mouse on the screen, pixels
};

using TimerProc = void (*)(Long hwnd, Long uint1, Long nEventId, Long dwParam);

namespace wm {
inline constexpr Long kSize = 5;
inline constexpr Long kPaint = 15;
inline constexpr Long kQuit = 18;
inline constexpr Long kNcMouseMove = 160;
inline constexpr Long kTimer = 275;
inline constexpr Long kMouseMove = 512;
inline constexpr Long kLButtonDown = 513;
inline constexpr Long kLButtonUp = 514;
inline constexpr Long kLButtonDblClk = 515;
inline constexpr Long kRButtonDown = 516;
inline constexpr Long kCaptureChanged = 533;
inline constexpr Long kPrint = 791;
}  // namespace wm

class Windows {
 public:
  virtual ~Windows() = default;

  // The next child of `parent` (0: the next top-level window) behind `after` (0: from the top) in z-order whose class
  // and title are these; null stands for any. 0 when there is none.
  virtual Long FindWindowExA(Long parent, Long after, const String* className, const String* title) = 0;
  virtual Long FindWindowA(const String* className, const String* title) = 0;
  // At most limit - 1 characters of the title.
  virtual String GetWindowTextA(Long hwnd, Long limit) = 0;
  virtual Long GetActiveWindow() = 0;
  virtual Long GetForegroundWindow() = 0;
  virtual Long SetForegroundWindow(Long hwnd) = 0;  // 0 when it was refused
  virtual Long GetWindowThreadProcessId(Long hwnd) = 0;
  virtual Long AttachThreadInput(Long fromThread, Long toThread, Long attach) = 0;
  virtual Long GetDesktopWindow() = 0;
  virtual Long IsIconic(Long hwnd) = 0;
  virtual Long IsWindowVisible(Long hwnd) = 0;
  virtual Long ShowWindow(Long hwnd, Long command) = 0;
  // The whole window on the screen, pixels. 0 when it failed; the rectangle then stays.
  virtual Long GetWindowRect(Long hwnd, Rect& rectangle) = 0;

  virtual Long GetCursorPos(Point& point) = 0;
  virtual Long SetCursorPos(Long x, Long y) = 0;
  virtual Long ScreenToClient(Long hwnd, Point& point) = 0;
  virtual Long ClientToScreen(Long hwnd, Point& point) = 0;
  virtual Long GetCapture() = 0;
  virtual Long ReleaseCapture() = 0;

  virtual Long SendMessageA(Long hwnd, Long message, Long wParam, Long lParam) = 0;
  // A repeating timer, milliseconds; without a procedure its ticks come as WM_TIMER to the window. 0 when it failed.
  virtual Long SetTimer(Long hwnd, Long id, Long milliseconds, TimerProc procedure) = 0;
  virtual Long KillTimer(Long hwnd, Long id) = 0;

  // Waits for the thread's next message. 0 for WM_QUIT, which it takes out of the queue.
  virtual Long GetMessageA(Message& message) = 0;
  virtual Long TranslateMessage(const Message& message) = 0;
  virtual Long DispatchMessageA(const Message& message) = 0;
  // Lets the messages that wait run, once. Time doesn't pass.
  virtual void DoEvents() = 0;
  // The spin of a wait for something that a message will bring: as DoEvents, and where nothing waits, until the next
  // event.
  virtual void DoEventsUntilNext() = 0;
};

}  // namespace strandline
