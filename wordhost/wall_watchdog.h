#pragma once

// The watchdog on real windows measures the time that passes: what is stuck there waits for a message rather than
// compute.

#include <condition_variable>
#include <functional>
#include <mutex>
#include <thread>

#include "play/watchdog.h"

namespace strandline::wordhost {

class WallWatchdog final : public play::Watchdog {
 public:
  // `leave` is called on a thread of the watchdog's own, with the last line; it doesn't return.
  explicit WallWatchdog(std::function<void(const std::string& line)> leave,
                        std::chrono::milliseconds limit = kUsualLimit);
  ~WallWatchdog() override;

 private:
  void Begin(const std::string& message) override;
  void Run();

  const std::function<void(const std::string& line)> mLeave;
  std::mutex mMutex;
  std::condition_variable mChanged;
  std::string mMessage;  // empty: nothing is watched
  std::chrono::steady_clock::time_point mDue;
  bool mIsOver = false;
  std::thread mThread;
};

}  // namespace strandline::wordhost
