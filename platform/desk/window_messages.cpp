// How messages reach windows: sending, the queue with its ranks, ticks and paints, and the clock that moves on where
// nothing waits.

#include <algorithm>
#include <limits>
#include <string>

#include "platform/desk/window_system.h"

namespace strandline::desk {
namespace {

constexpr Long kNull = 0;  // WM_NULL
constexpr Long kFirstCookie = 0x400000;
constexpr std::int64_t kForever = std::numeric_limits<std::int64_t>::max();

[[noreturn]] void ThrowStuck(const char* caller, const char* what) { throw Stuck{std::string(caller) + what}; }

}  // namespace

// A message that sends itself again would end with the stack; here it ends with a word.
class WindowSystem::Nesting {
 public:
  explicit Nesting(WindowSystem& system) : mSystem(system) {
    if (mSystem.mNesting >= kDeepestNesting) ThrowStuck("SendMessageA", ": messages are nested without end");
    ++mSystem.mNesting;
  }
  ~Nesting() { --mSystem.mNesting; }
  Nesting(const Nesting&) = delete;
  Nesting& operator=(const Nesting&) = delete;

 private:
  WindowSystem& mSystem;
};

Long WindowSystem::SendMessageA(Long hwnd, Long message, Long wParam, Long lParam) {
  if (!IsWindow(hwnd)) return 0;
  const Nesting nesting(*this);
  return mHooks->Deliver(hwnd, message, wParam, lParam);
}

// The end of the way of each message, behind the hooks. One of them may have destroyed the window.
Long WindowSystem::CallProcedure(Long hwnd, Long message, Long wParam, Long lParam) {
  const Window* const window = mTree.Find(hwnd);
  if (window == nullptr) return 0;
  if (window->procedure == nullptr) return DefaultProcedure(hwnd, message, wParam, lParam);
  return window->procedure->OnMessage(hwnd, message, wParam, lParam);
}

Long WindowSystem::DefaultProcedure(Long hwnd, Long message, Long, Long) {
  if (message == wm::kPaint) Validate(hwnd);
  return 0;
}

Message WindowSystem::NewMessage(Long hwnd, Long message, Long wParam, Long lParam) const {
  return {hwnd, message, wParam, lParam, static_cast<Long>(mClock.Now()), mPointer};
}

void WindowSystem::Post(Long hwnd, Long message, Long wParam, Long lParam) {
  if (hwnd == 0 || IsWindow(hwnd)) mQueue.Post(NewMessage(hwnd, message, wParam, lParam));
}

void WindowSystem::PostInput(Long hwnd, Long message, Long wParam, Long lParam) {
  if (IsWindow(hwnd)) mQueue.PostInput({NewMessage(hwnd, message, wParam, lParam), false});
}

Long WindowSystem::SetTimer(Long hwnd, Long id, Long milliseconds, TimerProc procedure) {
  if (hwnd != 0 && !IsWindow(hwnd)) return 0;
  return mTimers.Set(hwnd, id, milliseconds, procedure, mClock.Now());
}

Long WindowSystem::KillTimer(Long hwnd, Long id) { return mTimers.Kill(hwnd, id); }

Long WindowSystem::CookieOf(TimerProc procedure) {
  if (procedure == nullptr) return 0;
  auto known = std::find(mTimerProcs.begin(), mTimerProcs.end(), procedure);
  if (known == mTimerProcs.end()) known = mTimerProcs.insert(known, procedure);
  return kFirstCookie + static_cast<Long>(known - mTimerProcs.begin());
}

Long WindowSystem::DispatchMessageA(const Message& message) {
  if (message.message != wm::kTimer || message.lParam == 0) {
    return SendMessageA(message.hwnd, message.message, message.wParam, message.lParam);
  }
  const std::int64_t index = std::int64_t{message.lParam} - kFirstCookie;
  if (index < 0 || index >= static_cast<std::int64_t>(mTimerProcs.size())) return 0;
  mTimerProcs[static_cast<std::size_t>(index)](message.hwnd, wm::kTimer, message.wParam,
                                               static_cast<Long>(mClock.Now()));
  return 0;
}

bool WindowSystem::Take(Message& message, bool withQuit) {
  if (TakeFor(&MessageQueue::TakePosted, message)) return true;
  if (withQuit && mQueue.TakeQuit()) {
    message = NewMessage(0, wm::kQuit, 0, 0);
    return true;
  }
  return TakeInput(message) || TakePaint(message) || TakeTick(message);
}

// Messages for windows that are gone by now are dropped.
bool WindowSystem::TakeFor(std::optional<Message> (MessageQueue::*take)(), Message& message) {
  while (const std::optional<Message> next = (mQueue.*take)()) {
    if (next->hwnd != 0 && !IsWindow(next->hwnd)) continue;
    message = *next;
    return true;
  }
  return false;
}

bool WindowSystem::TakePaint(Message& message) {
  Window* const window = mTree.FirstInvalid();
  if (window == nullptr) return false;
  if (window->paintInstant != mClock.Now()) window->paintsUnanswered = 0;
  window->paintInstant = mClock.Now();
  if (++window->paintsUnanswered > kPaintStorm) {
    throw Stuck{"WM_PAINT comes to window \"" + ToUtf8(window->title) + "\" (" + ToUtf8(window->className) +
                ") again and again, and it never validates"};
  }
  message = NewMessage(window->handle, wm::kPaint, 0, 0);
  return true;
}

bool WindowSystem::TakeTick(Message& message) {
  const std::optional<Timer> timer = mTimers.TakeDue(mClock.Now());
  if (!timer) return false;
  message = NewMessage(timer->hwnd, wm::kTimer, timer->id, CookieOf(timer->procedure));
  return true;
}

bool WindowSystem::RunDueWork() {
  bool any = false;
  while (mClock.RunOneDue()) {
    CountAgainstStorm();
    any = true;
  }
  return any;
}

bool WindowSystem::Pump() {
  bool any = false;
  Message message;
  for (;;) {
    any = RunDueWork() || any;
    if (!Take(message, false)) return any;
    CountAgainstStorm();
    any = true;
    DispatchMessageA(message);
  }
}

Long WindowSystem::GetMessageA(Message& message) {
  for (;;) {
    // Work arrives as a message does: whoever waits gets to look at what it has changed.
    if (RunDueWork()) {
      message = NewMessage(0, kNull, 0, 0);
      CountAgainstStorm();
      return 1;
    }
    if (Take(message, true)) {
      CountAgainstStorm();
      return message.message != wm::kQuit;
    }
    PassTimeFor("GetMessageA");
  }
}

void WindowSystem::DoEvents() { Pump(); }

void WindowSystem::DoEventsUntilNext() {
  if (Pump()) return;
  PassTimeFor("DoEventsUntilNext");
  Pump();
}

// A wait that only the waiting side's own timers keep alive is over after an hour: nothing that they bring is new.
void WindowSystem::PassTimeFor(const char* waiter) {
  const std::int64_t before = mClock.Now();
  const bool hasWork = mClock.NextDue().has_value();
  if (!MoveToNextEvent(kForever)) ThrowStuck(waiter, " waits, and no timer, message or scheduled work will ever come");
  mAlone = hasWork ? 0 : mAlone + mClock.Now() - before;
  if (mAlone > kLongestAlone) {
    ThrowStuck(waiter, " has waited for an hour in which only timers ran, and no scheduled work will ever come");
  }
}

void WindowSystem::After(std::int64_t milliseconds, std::function<void()> work) {
  mAlone = 0;
  mClock.After(milliseconds, std::move(work));
}

void WindowSystem::Wait(std::int64_t milliseconds) {
  const std::int64_t end = Later(mClock.Now(), milliseconds);
  mAlone = 0;
  do {
    Pump();
  } while (MoveToNextEvent(end));
  MoveClock(end);
}

// False when none comes up to `end`.
bool WindowSystem::MoveToNextEvent(std::int64_t end) {
  const std::int64_t next = std::min(mClock.NextDue().value_or(kForever), mTimers.NextDue().value_or(kForever));
  if (next == kForever || next > end) return false;
  MoveClock(next);
  return true;
}

void WindowSystem::MoveClock(std::int64_t time) {
  if (time <= mClock.Now()) return;
  mClock.MoveTo(time);
  mAtThisInstant = 0;
}

void WindowSystem::CountAgainstStorm() {
  if (++mAtThisInstant > kMessageStorm) {
    ThrowStuck("The message queue", ": messages bring messages without end, and time stands still");
  }
}

}  // namespace strandline::desk
