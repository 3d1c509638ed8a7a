#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <optional>

#include "platform/host.h"

namespace strandline::win32 {

// Real milliseconds since this was made, on the thread that made it. Scheduled work hangs on one timer of the thread,
// so it runs in whatever loop pumps messages; work for the same time keeps the order of its scheduling. What work
// throws ends with it.
class Win32HostClock final : public HostClock {
 public:
  Win32HostClock();
  ~Win32HostClock() override;
  Win32HostClock(const Win32HostClock&) = delete;
  Win32HostClock& operator=(const Win32HostClock&) = delete;

  std::int64_t Milliseconds() override;
  void After(std::int64_t milliseconds, std::function<void()> work) override;
  // A wish to quit that comes meanwhile is still there afterwards.
  void Wait(std::int64_t milliseconds) override;

  // The thread's timer has ticked.
  void RunDue();

 private:
  // Until the first piece of work is due; nothing where there is none.
  std::optional<std::int64_t> UntilNext();
  void SetTimerForNext();

  std::int64_t mStart;
  std::multimap<std::int64_t, std::function<void()>> mWork;
  std::uintptr_t mTimer = 0;
};

}  // namespace strandline::win32
