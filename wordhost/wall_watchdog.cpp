#include "wordhost/wall_watchdog.h"

#include <utility>

namespace strandline::wordhost {

WallWatchdog::WallWatchdog(std::function<void(const std::string& line)> leave, std::chrono::milliseconds limit)
    : Watchdog(limit, "running"), mLeave(std::move(leave)), mThread([this] { Run(); }) {}

WallWatchdog::~WallWatchdog() {
  {
    const std::lock_guard lock(mMutex);
    mIsOver = true;
  }
  mChanged.notify_one();
  mThread.join();
}

void WallWatchdog::Begin(const std::string& message) {
  {
    const std::lock_guard lock(mMutex);
    mMessage = message;
    mDue = std::chrono::steady_clock::now() + Limit();
  }
  mChanged.notify_one();
}

void WallWatchdog::Run() {
  std::unique_lock lock(mMutex);
  while (!mIsOver) {
    if (mMessage.empty()) {
      mChanged.wait(lock);
    } else if (std::chrono::steady_clock::now() >= mDue) {
      mLeave(mMessage);
      return;
    } else {
      mChanged.wait_until(lock, mDue);
    }
  }
}

}  // namespace strandline::wordhost
