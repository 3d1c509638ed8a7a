#pragma once

// The desk's watchdog measures the process's own CPU time, so a busy machine makes no difference. One watches at a
// time.

#include "play/watchdog.h"

namespace strandline::play {
class JournalFile;
}

namespace strandline::deskprogram {

class CpuWatchdog final : public play::Watchdog {
 public:
  // `journal` may be null.
  explicit CpuWatchdog(play::JournalFile* journal, std::chrono::milliseconds limit = kUsualLimit);
  ~CpuWatchdog() override;

 private:
  void Begin(const std::string& message) override;
};

}  // namespace strandline::deskprogram
