#include "platform/win32/host/win32_host_clock.h"

#include <algorithm>
#include <chrono>
#include <set>
#include <utility>

#include "platform/win32/windows_api.h"

namespace strandline::win32 {

namespace {

constexpr std::int64_t kLongest = std::int64_t{1} << 48;  // milliseconds
constexpr std::int64_t kLongestTimer = 0x7FFFFFFF;

std::int64_t Now() {
  using namespace std::chrono;
  return duration_cast<milliseconds>(steady_clock::now().time_since_epoch()).count();
}

std::map<UINT_PTR, Win32HostClock*>& Clocks() {
  static std::map<UINT_PTR, Win32HostClock*> clocks;
  return clocks;
}

void CALLBACK OnTick(HWND, UINT, UINT_PTR timer, DWORD) {
  const auto found = Clocks().find(timer);
  if (found != Clocks().end()) found->second->RunDue();
}

// What waits in the queue, but no longer than to `end`. A window that doesn't validate would be painted for ever: its
// second paint ends the round. True when the wish to quit was among it.
bool Pump(std::int64_t end, int& exitCode) {
  bool quit = false;
  std::set<HWND> painted;
  MSG msg;
  while (::PeekMessageW(&msg, nullptr, 0, 0, PM_REMOVE)) {
    if (msg.message == WM_QUIT) {
      quit = true;
      exitCode = static_cast<int>(msg.wParam);
      continue;
    }
    ::TranslateMessage(&msg);
    ::DispatchMessageW(&msg);
    if (msg.message == WM_PAINT && !painted.insert(msg.hwnd).second && Now() >= end) break;
  }
  return quit;
}

}  // namespace

Win32HostClock::Win32HostClock() : mStart(Now()) {}

Win32HostClock::~Win32HostClock() {
  mWork.clear();
  SetTimerForNext();
}

std::int64_t Win32HostClock::Milliseconds() { return Now() - mStart; }

void Win32HostClock::After(std::int64_t milliseconds, std::function<void()> work) {
  if (!work) return;
  mWork.emplace(Milliseconds() + std::clamp<std::int64_t>(milliseconds, 0, kLongest), std::move(work));
  SetTimerForNext();
}

std::optional<std::int64_t> Win32HostClock::UntilNext() {
  if (mWork.empty()) return std::nullopt;
  return std::max<std::int64_t>(0, mWork.begin()->first - Milliseconds());
}

// Always a fresh timer: one that is set again under its number may still have an old tick in the queue.
void Win32HostClock::SetTimerForNext() {
  if (mTimer) {
    ::KillTimer(nullptr, mTimer);
    Clocks().erase(std::exchange(mTimer, 0));
  }
  const std::optional<std::int64_t> until = UntilNext();
  if (!until) return;
  mTimer = ::SetTimer(nullptr, 0, static_cast<UINT>(std::min(*until, kLongestTimer)), &OnTick);
  if (mTimer) Clocks()[mTimer] = this;
}

// The timer for what follows is set before each piece of work: work may wait, and what follows must run meanwhile. Work
// that schedules itself anew has its turn at the next tick.
void Win32HostClock::RunDue() {
  const std::int64_t now = Milliseconds();
  while (!mWork.empty() && mWork.begin()->first <= now) {
    const auto work = std::move(mWork.begin()->second);
    mWork.erase(mWork.begin());
    SetTimerForNext();
    try {
      work();
    } catch (...) {
    }
  }
  SetTimerForNext();
}

void Win32HostClock::Wait(std::int64_t milliseconds) {
  const std::int64_t end = Now() + std::clamp<std::int64_t>(milliseconds, 0, kLongest);
  bool quit = false;
  int exitCode = 0;
  for (;;) {
    quit = Pump(end, exitCode) || quit;
    const std::int64_t left = end - Now();
    if (left <= 0) break;
    ::MsgWaitForMultipleObjectsEx(0, nullptr, static_cast<DWORD>(std::min(left, kLongestTimer)), QS_ALLINPUT,
                                  MWMO_INPUTAVAILABLE);
  }
  // The end itself belongs to the wait: what is due now has run when it is over.
  RunDue();
  quit = Pump(end, exitCode) || quit;
  if (quit) ::PostQuitMessage(exitCode);
}

}  // namespace strandline::win32
