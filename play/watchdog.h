#pragma once

// Ends a run in which one command takes for ever. What the library is stuck in can't be taken down, so the process
// leaves at once, with exit code 3, one line that says where, and as much of the journal as is complete. How time is
// measured, each program says itself.

#include <chrono>
#include <string>

namespace strandline::play {

class Watchdog {
 public:
  static constexpr std::chrono::milliseconds kUsualLimit{60'000};

  // `doing` is what a stuck command does as this watchdog sees it: "computing".
  Watchdog(std::chrono::milliseconds limit, const char* doing) : mLimit(limit), mDoing(doing) {}
  virtual ~Watchdog() = default;
  Watchdog(const Watchdog&) = delete;
  Watchdog& operator=(const Watchdog&) = delete;

  // One command is watched as long as this lives. A command inside another one has a time of its own; the outer one's
  // begins anew behind it.
  class Watch {
   public:
    // `where` as "SCENE:LINE".
    Watch(Watchdog& watchdog, const std::string& where);
    ~Watch();
    Watch(const Watch&) = delete;
    Watch& operator=(const Watch&) = delete;

   private:
    Watchdog& mWatchdog;
    std::string mOuter;
  };

 protected:
  std::chrono::milliseconds Limit() const { return mLimit; }
  // From now on a whole limit may pass before `message` is the last that is said; empty: for ever.
  virtual void Begin(const std::string& message) = 0;

 private:
  void Turn(std::string message);

  std::chrono::milliseconds mLimit;
  const char* mDoing;
  std::string mMessage;
};

}  // namespace strandline::play
