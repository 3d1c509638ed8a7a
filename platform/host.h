#pragma once

// What a host of the library needs beyond what the library itself needs: windows of its own, posted messages, a user's
// hand on the mouse, and a canvas. The simulated Word is written against this and the seam, so that it plays on the
// desk and, with real windows, on Windows.

#include <cstdint>
#include <functional>

#include "platform/graphics.h"
#include "platform/windows.h"

namespace strandline {

// A window's own procedure; what a hook passes on arrives here.
class WindowProcedure {
 public:
  virtual Long OnMessage(Long hwnd, Long message, Long wParam, Long lParam) = 0;

 protected:
  ~WindowProcedure() = default;
};

class HostWindows {
 public:
  virtual ~HostWindows() = default;

  // A new window, on top of its siblings, hidden at first; `bounds` in screen pixels. parent 0: a top-level window.
  // Windows have no frame of the system's own; client origin and window origin coincide, and a window never draws over
  // its children.
  virtual Long CreateWindowOf(const String& className, const String& title, Long parent, const Rect& bounds,
                              WindowProcedure* procedure) = 0;
  // With its children; timers and invalid regions go with it. Each gets WM_DESTROY (2).
  virtual void DestroyWindow(Long hwnd) = 0;
  virtual void SetTitle(Long hwnd, const String& title) = 0;
  // Screen pixels; children move along. A change of size sends WM_SIZE (5) and invalidates the window.
  virtual void MoveWindow(Long hwnd, const Rect& bounds) = 0;
  virtual void BringWindowToTop(Long hwnd) = 0;
  // Makes the window the thread's active one and brings it to the front; 0: none of ours is active (another program's).
  virtual void ActivateWindow(Long hwnd) = 0;
  virtual void InvalidateWindow(Long hwnd) = 0;
  virtual void Post(Long hwnd, Long message, Long wParam, Long lParam) = 0;
  virtual void PostQuitMessage() = 0;
  // Sends WM_CAPTURECHANGED (533) with the new window in lParam to the window that loses the capture.
  virtual void SetCapture(Long hwnd) = 0;
  // What a window does with a message that it doesn't handle; a WM_PAINT validates.
  virtual Long DefaultProcedure(Long hwnd, Long message, Long wParam, Long lParam) = 0;
  // Moves the pointer on the screen, without a message.
  virtual void PlacePointer(Point screen) = 0;
  // Another program's window covers the whole screen and takes activation and foreground; and goes again.
  virtual void CoverScreen(bool covered) = 0;
};

// What is held while the mouse does something, as wParam of its messages tells.
namespace mousekey {
inline constexpr Long kLeft = 1;
inline constexpr Long kRight = 2;
inline constexpr Long kShift = 4;
}  // namespace mousekey

enum class MouseButton { kLeft, kRight };

// A user's hand on the mouse. All that it does is input: it comes behind posted messages and before paints, to the
// window that then has the capture, else to the topmost visible one under the pointer, and with the keys that are held.
// What is over no window of ours nobody here hears of. Nothing is pumped: the messages wait for whoever does.
class HostMouse {
 public:
  virtual ~HostMouse() = default;

  // Kept on the screen. Moves that wait one behind the other are one, to the last place.
  virtual void MoveTo(Point screen) = 0;
  // Never taken for the second press of a double click, however soon it comes.
  virtual void Press(MouseButton button) = 0;
  // The left button's second press of a double click: WM_LBUTTONDBLCLK takes the place of the press.
  virtual void PressAgain() = 0;
  virtual void Release(MouseButton button) = 0;
  // The left button as it was pressed, or is let go, where no window of ours is; shift as on the keyboard.
  virtual void Hold(bool left, bool shift) = 0;
  // From now on the hand reaches this window wherever others of ours cover it; 0: whichever the system finds.
  virtual void AimAt(Long hwnd) = 0;
};

// Simple drawing for the host's own faces.
class HostCanvas {
 public:
  virtual ~HostCanvas() = default;
  virtual void FillRectangle(Long hdc, const Rect& rectangle, Long color) = 0;
  // Each row one colour, from `top` down to `bottom` linearly.
  virtual void FillGradient(Long hdc, const Rect& rectangle, Long topColor, Long bottomColor) = 0;
  // One line of text from its top left corner, in the host's own font; pixels.
  virtual void DrawTextLine(Long hdc, Long x, Long y, const String& text, Long color) = 0;
  virtual Long TextWidth(const String& text) = 0;  // pixels
  virtual Long TextHeight() = 0;                   // pixels
  // A picture's bitmap, centred in the rectangle, without the pixels of `key`.
  virtual void DrawBitmap(Long hdc, const Rect& rectangle, Long bitmap, Long key) = 0;
  // The mix of the top left parts of two colour contexts becomes that of a third, which may be one of them: `share` of
  // `to` over `from`, 0 to 1, as platform/looks/mix.h tells. What one of them doesn't have stays as it is, and so does
  // everything where one is of one bit.
  virtual void MixPictures(Long dest, Long from, Long to, Long width, Long height, Single share) = 0;
};

// The world's time, apart from the calendar: milliseconds since it began. Scheduled work runs where messages are
// pumped.
class HostClock {
 public:
  virtual ~HostClock() = default;
  virtual std::int64_t Milliseconds() = 0;
  virtual void After(std::int64_t milliseconds, std::function<void()> work) = 0;
  // Lets time pass, its end included: timers fire, posted messages, paints and scheduled work run.
  virtual void Wait(std::int64_t milliseconds) = 0;
};

}  // namespace strandline
