#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <optional>

namespace strandline::desk {

// Milliseconds that pass only when somebody moves them, and the work scheduled for a time. Work for the same time keeps
// the order of its scheduling.
class VirtualClock {
 public:
  std::int64_t Now() const { return mNow; }
  // A time that has passed already leaves the clock where it is.
  void MoveTo(std::int64_t time);

  // A negative time means now.
  void After(std::int64_t milliseconds, std::function<void()> work);
  std::optional<std::int64_t> NextDue() const;
  // Runs the first work whose time has come; false when there is none.
  bool RunOneDue();

 private:
  std::int64_t mNow = 0;
  std::multimap<std::int64_t, std::function<void()>> mWork;
};

// The end of a wait that begins at `now`, where a negative or absurd length does no harm.
std::int64_t Later(std::int64_t now, std::int64_t milliseconds);

}  // namespace strandline::desk
