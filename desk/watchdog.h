#pragma once

// Ends a run in which one command computes for too long: the process's own CPU time is measured, so a busy machine
// makes no difference. What the library is stuck in can't be taken down, so the process leaves at once, with exit code
// 3, one line that says where, and as much of the journal as is complete. One watchdog watches at a time.

#include <chrono>
#include <string>

namespace strandline::deskprogram {

class JournalFile;

class Watchdog {
 public:
  static constexpr std::chrono::milliseconds kUsualLimit{60'000};

  // `journal` may be null.
  explicit Watchdog(JournalFile* journal, std::chrono::milliseconds limit = kUsualLimit);
  ~Watchdog();
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

 private:
  void Begin(const std::string& message);

  std::chrono::milliseconds mLimit;
  std::string mMessage;
};

}  // namespace strandline::deskprogram
