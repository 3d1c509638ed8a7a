#include "platform/desk/timer_table.h"

#include <algorithm>
#include <tuple>

namespace strandline::desk {

Long TimerTable::Set(Long hwnd, Long id, Long milliseconds, TimerProc procedure, std::int64_t now) {
  Timer* timer = Find(hwnd, id);
  if (timer == nullptr) {
    if (hwnd == 0) id = ++mChosenIds;
    timer = &mTimers.emplace_back();
  }
  const std::int64_t period = std::max(milliseconds, kShortestPeriod);
  *timer = {hwnd, id, period, now + period, ++mSettings, procedure};
  return id == 0 ? 1 : id;
}

bool TimerTable::Kill(Long hwnd, Long id) {
  return std::erase_if(mTimers, [&](const Timer& timer) { return timer.hwnd == hwnd && timer.id == id; }) != 0;
}

void TimerTable::KillAllOf(Long hwnd) {
  std::erase_if(mTimers, [hwnd](const Timer& timer) { return timer.hwnd == hwnd; });
}

std::optional<std::int64_t> TimerTable::NextDue() const {
  const Timer* first = First();
  if (first == nullptr) return std::nullopt;
  return first->due;
}

std::optional<Timer> TimerTable::TakeDue(std::int64_t now) {
  const Timer* first = First();
  if (first == nullptr || first->due > now) return std::nullopt;
  Timer& timer = *Find(first->hwnd, first->id);
  const Timer tick = timer;
  timer.due += (now - timer.due) / timer.period * timer.period + timer.period;
  return tick;
}

Timer* TimerTable::Find(Long hwnd, Long id) {
  const auto found = std::find_if(mTimers.begin(), mTimers.end(),
                                  [&](const Timer& timer) { return timer.hwnd == hwnd && timer.id == id; });
  return found == mTimers.end() ? nullptr : &*found;
}

const Timer* TimerTable::First() const {
  const auto first = std::min_element(mTimers.begin(), mTimers.end(), [](const Timer& a, const Timer& b) {
    return std::tie(a.due, a.ordinal) < std::tie(b.due, b.ordinal);
  });
  return first == mTimers.end() ? nullptr : &*first;
}

}  // namespace strandline::desk
