#pragma once

// Tells a list of calls when the system has a window of the bar painted or fires one of its timers. Such messages are
// caught on their way out of the thread's queue and dispatched from a window of this object's own, so that beginning
// and end are known whoever pumps.

#include <deque>
#include <map>

#include "play/call_list.h"

namespace strandline::wordhost {

class SystemTurns {
 public:
  // One at a time, on the thread that makes it. The list outlives it.
  explicit SystemTurns(play::CallList& calls);
  ~SystemTurns();
  SystemTurns(const SystemTurns&) = delete;
  SystemTurns& operator=(const SystemTurns&) = delete;

 private:
  struct Hooks;
  struct Caught;

  play::CallList& mCalls;
  void* mWindow = nullptr;
  void* mHooks[3] = {};
  std::deque<play::CallList::SystemsTurn> mSent;  // of messages that are sent past the queue
  std::map<std::uintptr_t, Caught> mCaught;
  std::uintptr_t mLastCaught = 0;
};

}  // namespace strandline::wordhost
