// Which window is in front: activation, foreground rights, showing and hiding, and who has the mouse capture.

#include <algorithm>

#include "platform/desk/window_system.h"

namespace strandline::desk {
namespace {

constexpr Long kTrue = 1;

enum class Icon { kKeep, kSet, kClear };
enum class Activation { kNone, kThis, kNext };

struct ShowCommand {
  Icon icon;
  Activation activation;
};

// The commands of ShowWindow that show a window, by number; 0 hides it.
constexpr ShowCommand kShowCommands[] = {
    {Icon::kKeep, Activation::kNone},   // 0 hide
    {Icon::kClear, Activation::kThis},  // 1 normal
    {Icon::kSet, Activation::kThis},    // 2 minimised
    {Icon::kClear, Activation::kThis},  // 3 maximised: a window here has one size
    {Icon::kClear, Activation::kNone},  // 4 normal, not activated
    {Icon::kKeep, Activation::kThis},   // 5 as it is
    {Icon::kSet, Activation::kNext},    // 6 minimise
    {Icon::kSet, Activation::kNone},    // 7 minimised, not activated
    {Icon::kKeep, Activation::kNone},   // 8 as it is, not activated
    {Icon::kClear, Activation::kThis},  // 9 restore
    {Icon::kClear, Activation::kThis},  // 10 default
    {Icon::kSet, Activation::kNext},    // 11 minimise by force
};

}  // namespace

Long WindowSystem::SetForegroundWindow(Long hwnd) {
  Window* const window = mTree.Find(hwnd);
  if (window == nullptr || window->parent == nullptr || !MayTakeForeground()) return 0;
  Activate(mTree.TopLevelOf(*window));
  mTree.Refresh();
  return kTrue;
}

Long WindowSystem::AttachThreadInput(Long fromThread, Long toThread, Long attach) {
  const bool known = (fromThread == kLibraryThread && toThread == kOtherThread) ||
                     (fromThread == kOtherThread && toThread == kLibraryThread);
  if (!known || (attach == 0 && !mAttached)) return 0;
  mAttached = attach != 0;
  return kTrue;
}

Long WindowSystem::ShowWindow(Long hwnd, Long command) {
  Window* const window = mTree.Find(hwnd);
  if (window == nullptr || window->parent == nullptr) return 0;
  const Long wasVisible = window->visible;
  if (command < 0 || command >= static_cast<Long>(std::size(kShowCommands))) return wasVisible;

  const ShowCommand& wanted = kShowCommands[command];
  window->visible = command != 0;
  if (wanted.icon != Icon::kKeep) window->iconic = wanted.icon == Icon::kSet;
  const bool isTopLevel = window->parent == &mTree.Desktop();
  const bool leaves = !window->visible || wanted.activation == Activation::kNext;
  if (isTopLevel && wanted.activation == Activation::kThis && MayTakeForeground()) Activate(*window);
  if (isTopLevel && leaves && mActive == hwnd) ActivateNext();
  mTree.Refresh();
  return wasVisible;
}

void WindowSystem::ActivateWindow(Long hwnd) {
  Window* const window = hwnd == 0 ? Foreign() : mTree.Find(hwnd);
  if (window == nullptr || window->parent == nullptr) return;
  Activate(mTree.TopLevelOf(*window));
  mTree.Refresh();
}

void WindowSystem::CoverScreen(bool covered) {
  Window& foreign = *Foreign();
  foreign.visible = covered;
  if (covered) {
    Activate(foreign);
  } else if (mForeground == mForeign) {
    Window* const last = mTree.Find(mLastActive);
    if (last != nullptr && last->visible) {
      Activate(*last);
    } else {
      ActivateNext();
    }
  }
  mTree.Refresh();
}

void WindowSystem::Activate(Window& topLevel) {
  mForeground = topLevel.handle;
  mActive = topLevel.IsOurs() ? topLevel.handle : 0;
  if (mActive != 0) mLastActive = mActive;
  RaiseWithin(topLevel);
}

// The active window has gone from sight: the topmost of ours that one can see comes after it.
void WindowSystem::ActivateNext() {
  mActive = 0;
  mForeground = 0;
  for (const auto& window : mTree.Desktop().children) {
    if (!window->IsOurs() || !window->visible || window->iconic || window->dying) continue;
    Activate(*window);
    return;
  }
}

// On top of its siblings; but nothing of ours comes in front of another program that has the foreground.
void WindowSystem::RaiseWithin(Window& window) {
  const bool below = ForegroundIsOthers() && window.handle != mForeground;
  mTree.Raise(window, below ? mTree.Find(mForeground) : nullptr);
}

bool WindowSystem::ForegroundIsOthers() const {
  const Window* const foreground = mTree.Find(mForeground);
  return foreground != nullptr && !foreground->IsOurs();
}

Long WindowSystem::ReleaseCapture() {
  MoveCapture(0);
  return kTrue;
}

void WindowSystem::SetCapture(Long hwnd) {
  if (hwnd == 0 || IsWindow(hwnd)) MoveCapture(hwnd);
}

void WindowSystem::MoveCapture(Long hwnd) {
  const Long former = mCapture;
  mCapture = hwnd;
  if (former != 0 && former != hwnd) SendMessageA(former, wm::kCaptureChanged, 0, hwnd);
}

}  // namespace strandline::desk
