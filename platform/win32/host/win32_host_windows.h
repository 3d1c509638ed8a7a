#pragma once

#include <memory>

#include "platform/host.h"
#include "platform/win32/host/other_program.h"

namespace strandline::win32 {

// A host's windows on the real system, on the thread that made this. Window classes are registered as their names first
// come. A top-level window is a popup without a frame, so that its client area is all of it.
//
// What the system must settle with a window itself (its making, its text, its place) doesn't reach the window's
// procedure; all else does. Nothing thrown leaves a procedure: the answer then is 0.
class Win32HostWindows final : public HostWindows {
 public:
  Win32HostWindows() = default;
  ~Win32HostWindows() override;
  Win32HostWindows(const Win32HostWindows&) = delete;
  Win32HostWindows& operator=(const Win32HostWindows&) = delete;

  // 0 where the system refused, such as for a parent that is none.
  Long CreateWindowOf(const String& className, const String& title, Long parent, const Rect& bounds,
                      WindowProcedure* procedure) override;
  void DestroyWindow(Long hwnd) override;
  void SetTitle(Long hwnd, const String& title) override;
  void MoveWindow(Long hwnd, const Rect& bounds) override;
  void BringWindowToTop(Long hwnd) override;
  void ActivateWindow(Long hwnd) override;
  void InvalidateWindow(Long hwnd) override;
  void Post(Long hwnd, Long message, Long wParam, Long lParam) override;
  void PostQuitMessage() override;
  void SetCapture(Long hwnd) override;
  // A message that is being handled passes on with its parameters as wide as they came.
  Long DefaultProcedure(Long hwnd, Long message, Long wParam, Long lParam) override;
  void PlacePointer(Point screen) override;
  void CoverScreen(bool covered) override;

 private:
  OtherProgram& Other();

  std::unique_ptr<OtherProgram> mOther;  // made when first needed
  Long mLastActive = 0;                  // ours that was active before the other program
};

}  // namespace strandline::win32
