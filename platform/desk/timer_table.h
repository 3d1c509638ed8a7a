#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "platform/windows.h"

namespace strandline::desk {

struct Timer {
  Long hwnd = 0;
  Long id = 0;
  std::int64_t period = 0;   // milliseconds
  std::int64_t due = 0;      // its next tick
  std::int64_t ordinal = 0;  // of its setting
  TimerProc procedure = nullptr;
};

// Repeating timers, each known by window and id. A tick isn't stored: it arises when it is taken, so that a killed
// timer has none left and a late one has one only.
class TimerTable {
 public:
  // Windows' own shortest period.
  static constexpr Long kShortestPeriod = 10;

  // The id, which for a timer without window is the table's own choice.
  Long Set(Long hwnd, Long id, Long milliseconds, TimerProc procedure, std::int64_t now);
  bool Kill(Long hwnd, Long id);
  void KillAllOf(Long hwnd);

  std::optional<std::int64_t> NextDue() const;
  // The tick that is due first; of two at the same time the one that was set first.
  std::optional<Timer> TakeDue(std::int64_t now);
  std::size_t Count() const { return mTimers.size(); }

 private:
  Timer* Find(Long hwnd, Long id);
  const Timer* First() const;

  std::vector<Timer> mTimers;
  std::int64_t mSettings = 0;
  Long mChosenIds = 0;
};

}  // namespace strandline::desk
