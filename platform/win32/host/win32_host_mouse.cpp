#include "platform/win32/host/win32_host_mouse.h"

#include <algorithm>

#include "platform/win32/windows_api.h"

namespace strandline::win32 {

namespace {

Point PointerPlace() {
  POINT place{};
  ::GetCursorPos(&place);
  return {place.x, place.y};
}

// The system's measure: the screen has 65536 places in each direction, whatever its pixels.
LONG OfTheScreen(Long pixel, int extent) {
  if (extent <= 0) return 0;
  return static_cast<LONG>((std::int64_t{pixel} * 65536 + extent - 1) / extent);
}

void SendShift(bool down) {
  INPUT input{};
  input.type = INPUT_KEYBOARD;
  input.ki.wVk = VK_SHIFT;
  input.ki.dwFlags = down ? 0 : KEYEVENTF_KEYUP;
  ::SendInput(1, &input, sizeof input);
}

}  // namespace

void PlacePointerQuietly(Point screen) {
  ::SetCursorPos(screen.x, screen.y);
  MSG move;
  while (::PeekMessageW(&move, nullptr, WM_MOUSEMOVE, WM_MOUSEMOVE, PM_REMOVE | PM_QS_INPUT)) {
  }
}

Win32HostMouse::~Win32HostMouse() {
  Hold(false, false);
  if (mHeld & mousekey::kRight) Release(MouseButton::kRight);
}

// Times of its own keep presses apart that the system would join to a double click.
void Win32HostMouse::Send(std::uint32_t flags, Point screen) {
  INPUT input{};
  input.type = INPUT_MOUSE;
  input.mi.dwFlags = flags;
  if (flags & MOUSEEVENTF_ABSOLUTE) {
    input.mi.dx = OfTheScreen(screen.x, ::GetSystemMetrics(SM_CXSCREEN));
    input.mi.dy = OfTheScreen(screen.y, ::GetSystemMetrics(SM_CYSCREEN));
  }
  mTime = std::max<std::uint32_t>(mTime, ::GetTickCount());
  input.mi.time = mTime;
  ::SendInput(1, &input, sizeof input);
}

bool Win32HostMouse::ReachesItsAim(Point place) const {
  if (!mAim || ::GetCapture()) return true;
  return ::WindowFromPoint({place.x, place.y}) == ToHandle<HWND>(mAim);
}

void Win32HostMouse::PostToAim(std::uint32_t message) {
  const HWND hwnd = ToHandle<HWND>(mAim);
  const Point place = PointerPlace();
  POINT inside{place.x, place.y};
  ::ScreenToClient(hwnd, &inside);
  ::PostMessageW(hwnd, message, static_cast<WPARAM>(mHeld), MAKELPARAM(inside.x, inside.y));
}

void Win32HostMouse::MoveTo(Point screen) {
  const Long right = ::GetSystemMetrics(SM_CXSCREEN) - 1;
  const Long bottom = ::GetSystemMetrics(SM_CYSCREEN) - 1;
  const Point place{std::clamp<Long>(screen.x, 0, right), std::clamp<Long>(screen.y, 0, bottom)};
  if (!ReachesItsAim(place)) {
    PlacePointerQuietly(place);
    return PostToAim(WM_MOUSEMOVE);
  }
  // A move to where the pointer is already wouldn't be told.
  if (PointerPlace() == place) PlacePointerQuietly({place.x == 0 ? 1 : place.x - 1, place.y});
  Send(MOUSEEVENTF_MOVE | MOUSEEVENTF_ABSOLUTE, place);
  if (PointerPlace() != place) ::SetCursorPos(place.x, place.y);
}

void Win32HostMouse::Press(MouseButton button) {
  const bool left = button == MouseButton::kLeft;
  mHeld |= left ? mousekey::kLeft : mousekey::kRight;
  mHasClicked = false;
  mTime = std::max<std::uint32_t>(mTime, ::GetTickCount()) + ::GetDoubleClickTime() + 1;
  if (ReachesItsAim(PointerPlace())) return Send(left ? MOUSEEVENTF_LEFTDOWN : MOUSEEVENTF_RIGHTDOWN);
  PostToAim(left ? WM_LBUTTONDOWN : WM_RBUTTONDOWN);
}

void Win32HostMouse::PressAgain() {
  mHeld |= mousekey::kLeft;
  const bool isSecond = mHasClicked && PointerPlace() == mClickedAt;
  mHasClicked = false;
  if (isSecond && ReachesItsAim(PointerPlace())) return Send(MOUSEEVENTF_LEFTDOWN);
  const Long aim = mAim;
  const Point place = PointerPlace();
  if (!mAim) mAim = ToNumber(::GetCapture() ? ::GetCapture() : ::WindowFromPoint({place.x, place.y}));
  PostToAim(WM_LBUTTONDBLCLK);
  mAim = aim;
}

void Win32HostMouse::Release(MouseButton button) {
  const bool left = button == MouseButton::kLeft;
  mHeld &= ~(left ? mousekey::kLeft : mousekey::kRight);
  mHasClicked = left;
  mClickedAt = PointerPlace();
  if (ReachesItsAim(PointerPlace())) return Send(left ? MOUSEEVENTF_LEFTUP : MOUSEEVENTF_RIGHTUP);
  PostToAim(left ? WM_LBUTTONUP : WM_RBUTTONUP);
}

void Win32HostMouse::Hold(bool left, bool shift) {
  if (left != ((mHeld & mousekey::kLeft) != 0)) HoldLeftElsewhere(left);
  if (shift != ((mHeld & mousekey::kShift) != 0)) SendShift(shift);
  mHeld = (mHeld & mousekey::kRight) | (left ? mousekey::kLeft : 0) | (shift ? mousekey::kShift : 0);
}

// At the screen's last pixel, where no window of a host's reaches; the pointer's ways there and back are told to
// nobody.
void Win32HostMouse::HoldLeftElsewhere(bool held) {
  const Point from = PointerPlace();
  PlacePointerQuietly({::GetSystemMetrics(SM_CXSCREEN) - 1, ::GetSystemMetrics(SM_CYSCREEN) - 1});
  Send(held ? MOUSEEVENTF_LEFTDOWN : MOUSEEVENTF_LEFTUP);
  PlacePointerQuietly(from);
  mHasClicked = false;
}

}  // namespace strandline::win32
