#include "platform/desk/virtual_clock.h"

#include <algorithm>
#include <utility>

namespace strandline::desk {

std::int64_t Later(std::int64_t now, std::int64_t milliseconds) {
  constexpr std::int64_t kLongest = std::int64_t{1} << 48;
  return std::min(now + std::clamp<std::int64_t>(milliseconds, 0, kLongest), 2 * kLongest);
}

void VirtualClock::MoveTo(std::int64_t time) { mNow = std::max(mNow, time); }

void VirtualClock::After(std::int64_t milliseconds, std::function<void()> work) {
  if (work) mWork.emplace(Later(mNow, milliseconds), std::move(work));
}

std::optional<std::int64_t> VirtualClock::NextDue() const {
  if (mWork.empty()) return std::nullopt;
  return mWork.begin()->first;
}

bool VirtualClock::RunOneDue() {
  const auto first = mWork.begin();
  if (first == mWork.end() || first->first > mNow) return false;
  const auto work = std::move(first->second);
  mWork.erase(first);  // before it runs: it may wait, and what waits must not find it again
  work();
  return true;
}

}  // namespace strandline::desk
