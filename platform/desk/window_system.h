#pragma once

// The desk's windows, messages, timers, hooks and clock: one thread, virtual time, the same in every run.
//
// Faithful: z-order with siblings and children clipped; the order sent, posted, quit, input, paint, timer; paints that
// come again until the window validates; ticks that don't pile up; hooks on hooks; capture and its loss; foreground
// rights, with threads attached or not; messages, timers and hooks of windows that go while they are used.
//
// Simplified: a window has no frame of the system's own; a moved one paints anew instead of being copied; an iconic one
// keeps its place; activation sends no messages, and a click activates nothing; all windows know double clicks; the
// other program is one window without a procedure, and attaching threads changes nothing but the right to the
// foreground.
//
// Left out: keyboard, focus, menus, system dialogs, message filters, more than one screen.
//
// Handles are never used twice. Where a window is asked for, one that doesn't exist gives the failure value.

#include <memory>
#include <optional>
#include <vector>

#include "platform/desk/message_queue.h"
#include "platform/desk/stuck.h"
#include "platform/desk/timer_table.h"
#include "platform/desk/virtual_clock.h"
#include "platform/desk/window_hooks.h"
#include "platform/desk/window_tree.h"
#include "platform/host.h"
#include "platform/subclasser.h"

namespace strandline::desk {

class WindowSystem final : public Windows, public HostWindows, public HostMouse, public HostClock, public Subclassers {
 public:
  // So many paints in a row at one instant, by a window that doesn't validate, are a storm.
  static constexpr int kPaintStorm = 10'000;
  // So are so many messages and pieces of work at one instant, and sent messages nested so deep.
  static constexpr int kMessageStorm = 1'000'000;
  static constexpr int kDeepestNesting = 200;
  static constexpr std::int64_t kLongestAlone = 60 * 60 * 1000;  // milliseconds

  explicit WindowSystem(int screenWidth = 1024, int screenHeight = 768);
  ~WindowSystem() override;
  WindowSystem(const WindowSystem&) = delete;
  WindowSystem& operator=(const WindowSystem&) = delete;

  // Windows
  Long FindWindowExA(Long parent, Long after, const String* className, const String* title) override;
  Long FindWindowA(const String* className, const String* title) override;
  String GetWindowTextA(Long hwnd, Long limit) override;
  Long GetActiveWindow() override { return mActive; }
  Long GetForegroundWindow() override { return mForeground; }
  Long SetForegroundWindow(Long hwnd) override;
  Long GetWindowThreadProcessId(Long hwnd) override;
  Long AttachThreadInput(Long fromThread, Long toThread, Long attach) override;
  Long GetDesktopWindow() override { return mTree.Desktop().handle; }
  Long IsIconic(Long hwnd) override;
  Long IsWindowVisible(Long hwnd) override;
  Long ShowWindow(Long hwnd, Long command) override;
  Long GetWindowRect(Long hwnd, Rect& rectangle) override;
  Long GetCursorPos(Point& point) override;
  // A move of the mouse follows as input, as with any move of the pointer.
  Long SetCursorPos(Long x, Long y) override;
  Long ScreenToClient(Long hwnd, Point& point) override;
  Long ClientToScreen(Long hwnd, Point& point) override;
  Long GetCapture() override { return mCapture; }
  Long ReleaseCapture() override;
  Long SendMessageA(Long hwnd, Long message, Long wParam, Long lParam) override;
  Long SetTimer(Long hwnd, Long id, Long milliseconds, TimerProc procedure) override;
  Long KillTimer(Long hwnd, Long id) override;
  // Moves the clock to the next event where nothing waits. Throws Stuck where none will ever come.
  Long GetMessageA(Message& message) override;
  Long TranslateMessage(const Message&) override { return 0; }
  Long DispatchMessageA(const Message& message) override;
  void DoEvents() override;
  // Throws Stuck as GetMessageA does.
  void DoEventsUntilNext() override;

  // HostWindows
  Long CreateWindowOf(const String& className, const String& title, Long parent, const Rect& bounds,
                      WindowProcedure* procedure) override;
  void DestroyWindow(Long hwnd) override;
  void SetTitle(Long hwnd, const String& title) override;
  void MoveWindow(Long hwnd, const Rect& bounds) override;
  void BringWindowToTop(Long hwnd) override;
  void ActivateWindow(Long hwnd) override;
  void InvalidateWindow(Long hwnd) override;
  void Post(Long hwnd, Long message, Long wParam, Long lParam) override;
  void PostQuitMessage() override { mQueue.PostQuit(); }
  void SetCapture(Long hwnd) override;
  Long DefaultProcedure(Long hwnd, Long message, Long wParam, Long lParam) override;
  void PlacePointer(Point screen) override { mPointer = screen; }
  void CoverScreen(bool covered) override;

  // HostMouse
  void MoveTo(Point screen) override;
  void Press(MouseButton button) override;
  void PressAgain() override;
  void Release(MouseButton button) override;
  void Hold(bool left, bool shift) override;
  void AimAt(Long hwnd) override { mAim = hwnd; }

  // HostClock
  std::int64_t Milliseconds() override { return mClock.Now(); }
  void After(std::int64_t milliseconds, std::function<void()> work) override;
  void Wait(std::int64_t milliseconds) override;

  // Subclassers
  Ref<Subclasser> Create() override { return mHooks->Create(); }

  // Input for that window, whatever is under the pointer; behind posted messages and before paint.
  void PostInput(Long hwnd, Long message, Long wParam, Long lParam);
  // The innermost window of ours that shows at this pixel of the screen, 0 when none does.
  Long WindowAt(Point screen) const;

  bool IsWindow(Long hwnd) const { return mTree.Find(hwnd) != nullptr; }
  String ClassName(Long hwnd) const;
  // The pixels of the screen that are the window's own: what neither windows above it nor its children cover. The
  // reference holds until something moves, shows, hides or goes.
  const Region& VisibleRegion(Long hwnd) const;
  // The window's invalid pixels, in its own coordinates; always visible ones. The reference as above.
  const Region& UpdateRegion(Long hwnd) const;
  void Validate(Long hwnd);
  // Changes whenever a visible region changes.
  std::uint64_t Generation() const { return mTree.Generation(); }
  // Called with what comes to show of the desktop and of the other program's window; by setting it with all of that.
  void SetBackdropPainter(WindowTree::BackdropPainter painter) { mTree.SetBackdropPainter(std::move(painter)); }

  std::size_t LiveTimers() const { return mTimers.Count(); }
  std::size_t LiveHooks() const { return mHooks->Count(); }

 private:
  class Nesting;

  // window_activation.cpp
  void Activate(Window& topLevel);
  void ActivateNext();
  void RaiseWithin(Window& window);
  void LetGo(const Window& window);
  Window* Foreign() const { return mTree.Find(mForeign); }
  bool ForegroundIsOthers() const;
  bool MayTakeForeground() const { return !ForegroundIsOthers() || mAttached; }
  void MoveCapture(Long hwnd);
  void SendDestroy(Window& window);

  // window_mouse.cpp
  void PostButton(Long message);
  void PostMove(Long keys);
  bool TakeInput(Message& message);
  void Direct(Message& input);

  // window_messages.cpp
  Long CallProcedure(Long hwnd, Long message, Long wParam, Long lParam);
  Message NewMessage(Long hwnd, Long message, Long wParam, Long lParam) const;
  bool TakeFor(std::optional<Message> (MessageQueue::*take)(), Message& message);
  bool TakePaint(Message& message);
  bool TakeTick(Message& message);
  // The next message that is ready, by rank. A WM_QUIT only where the caller can make use of one.
  bool Take(Message& message, bool withQuit);
  bool RunDueWork();
  bool Pump();
  bool MoveToNextEvent(std::int64_t end);
  void PassTimeFor(const char* waiter);
  void MoveClock(std::int64_t time);
  void CountAgainstStorm();
  Long CookieOf(TimerProc procedure);

  WindowTree mTree;
  VirtualClock mClock;
  TimerTable mTimers;
  MessageQueue mQueue;
  std::shared_ptr<HookTable> mHooks;
  std::vector<TimerProc> mTimerProcs;  // a tick carries its procedure as a number
  Point mPointer;
  std::int64_t mAlone = 0;  // milliseconds of waiting in which nothing but timers can have come
  Long mMouseKeys = 0;      // mousekey flags, as far as input has told
  Long mHandKeys = 0;       // as the hand holds them now
  Long mAim = 0;            // the window that the hand reaches; 0: whichever is found
  Long mCapture = 0;
  Long mActive = 0;
  Long mLastActive = 0;  // the last one of ours, also while another program is active
  Long mForeground = 0;
  Long mForeign = 0;  // the other program's window
  bool mAttached = false;
  int mNesting = 0;
  int mAtThisInstant = 0;
};

}  // namespace strandline::desk
