#pragma once

#include <cstdint>

#include "platform/host.h"

namespace strandline::win32 {

// A hand that moves the real mouse: what it does goes to the system as if a device had told it, and comes back as the
// system sees fit. Only what no device could bring about is posted in its place: input for a window that others of ours
// cover, and the second press of a double click that had no first one.
class Win32HostMouse final : public HostMouse {
 public:
  Win32HostMouse() = default;
  // Lets go of all that it holds.
  ~Win32HostMouse() override;
  Win32HostMouse(const Win32HostMouse&) = delete;
  Win32HostMouse& operator=(const Win32HostMouse&) = delete;

  void MoveTo(Point screen) override;
  void Press(MouseButton button) override;
  void PressAgain() override;
  void Release(MouseButton button) override;
  void Hold(bool left, bool shift) override;
  void AimAt(Long hwnd) override { mAim = hwnd; }

 private:
  // Whether the system itself would bring input there to the window that is meant.
  bool ReachesItsAim(Point place) const;
  void Send(std::uint32_t flags, Point screen = {});
  void PostToAim(std::uint32_t message);
  void HoldLeftElsewhere(bool held);

  Long mAim = 0;
  Long mHeld = 0;           // mousekey flags
  std::uint32_t mTime = 0;  // that the last input bears, milliseconds
  Point mClickedAt;
  bool mHasClicked = false;  // the last that the buttons did was a click there
};

// The system tells of each move of the pointer as input; here it is taken out again. What was posted stays.
void PlacePointerQuietly(Point screen);

}  // namespace strandline::win32
