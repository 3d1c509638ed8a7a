#include "play/watchdog.h"

#include <utility>

namespace strandline::play {

void Watchdog::Turn(std::string message) {
  mMessage = std::move(message);
  Begin(mMessage);
}

Watchdog::Watch::Watch(Watchdog& watchdog, const std::string& where) : mWatchdog(watchdog), mOuter(watchdog.mMessage) {
  const auto limit = mWatchdog.mLimit.count();
  const std::string span =
      limit % 1000 == 0 ? std::to_string(limit / 1000) + " seconds" : std::to_string(limit) + " milliseconds";
  mWatchdog.Turn(where.substr(0, 900) + ": stuck: this command has been " + mWatchdog.mDoing + " for more than " +
                 span + "\n");
}

Watchdog::Watch::~Watch() { mWatchdog.Turn(mOuter); }

}  // namespace strandline::play
