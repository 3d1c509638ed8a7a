// The pointer and the hand that moves it.

#include <algorithm>

#include "platform/desk/window_system.h"

namespace strandline::desk {
namespace {

constexpr Long kTrue = 1;
constexpr Long kRButtonUp = 517;

// What is held after this input, as its sender tells.
Long KeysAfter(Long keys, const Message& input) {
  switch (input.message) {
    case wm::kLButtonDown:
    case wm::kLButtonDblClk:
      return keys | mousekey::kLeft;
    case wm::kLButtonUp:
      return keys & ~mousekey::kLeft;
    case wm::kRButtonDown:
      return keys | mousekey::kRight;
    case kRButtonUp:
      return keys & ~mousekey::kRight;
    case wm::kMouseMove:
      return input.wParam;
    default:
      return keys;
  }
}

Long Packed(Point point) {
  return static_cast<Long>((static_cast<std::uint32_t>(point.y) & 0xFFFF) << 16 |
                           (static_cast<std::uint32_t>(point.x) & 0xFFFF));
}

}  // namespace

Long WindowSystem::GetCursorPos(Point& point) {
  point = mPointer;
  return kTrue;
}

Long WindowSystem::SetCursorPos(Long x, Long y) {
  const Rect& screen = mTree.Desktop().bounds;
  mPointer = {std::clamp(x, screen.left, screen.right - 1), std::clamp(y, screen.top, screen.bottom - 1)};
  PostMove(mMouseKeys);
  return kTrue;
}

void WindowSystem::MoveTo(Point screen) {
  const Rect& whole = mTree.Desktop().bounds;
  mPointer = {std::clamp(screen.x, whole.left, whole.right - 1), std::clamp(screen.y, whole.top, whole.bottom - 1)};
  PostMove(mHandKeys);
}

void WindowSystem::Press(MouseButton button) {
  const bool left = button == MouseButton::kLeft;
  mHandKeys |= left ? mousekey::kLeft : mousekey::kRight;
  PostButton(left ? wm::kLButtonDown : wm::kRButtonDown);
}

void WindowSystem::PressAgain() {
  mHandKeys |= mousekey::kLeft;
  PostButton(wm::kLButtonDblClk);
}

void WindowSystem::Release(MouseButton button) {
  const bool left = button == MouseButton::kLeft;
  mHandKeys &= ~(left ? mousekey::kLeft : mousekey::kRight);
  PostButton(left ? wm::kLButtonUp : kRButtonUp);
}

void WindowSystem::Hold(bool left, bool shift) {
  mHandKeys &= mousekey::kRight;
  if (left) mHandKeys |= mousekey::kLeft;
  if (shift) mHandKeys |= mousekey::kShift;
}

void WindowSystem::PostButton(Long message) { mQueue.PostInput({NewMessage(mAim, message, mHandKeys, 0), true}); }

void WindowSystem::PostMove(Long keys) { mQueue.PostMove(NewMessage(mAim, wm::kMouseMove, keys, 0)); }

// Input for windows that are gone by now is dropped, and so is what belongs to another program.
bool WindowSystem::TakeInput(Message& message) {
  while (const std::optional<Input> next = mQueue.TakeInput()) {
    message = next->message;
    mMouseKeys = KeysAfter(mMouseKeys, message);
    if (next->isOfHand) Direct(message);
    if (IsWindow(message.hwnd)) return true;
  }
  return false;
}

// Whose the hand's input is shows only now: what came before it may have changed that.
void WindowSystem::Direct(Message& input) {
  if (mCapture != 0) {
    input.hwnd = mCapture;
  } else if (input.hwnd == 0) {
    input.hwnd = WindowAt(input.pt);
  }
  Point inside = input.pt;
  ScreenToClient(input.hwnd, inside);
  input.lParam = Packed(inside);
}

}  // namespace strandline::desk
