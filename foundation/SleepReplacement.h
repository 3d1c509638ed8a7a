#pragma once

// A wait that keeps Word alive: the caller stops for a given time while the thread goes on dispatching messages. Any of
// the library's handlers can run inside it, so a caller expects state to have changed when it returns. Waits don't
// nest: a second one spins until the first is over. There is no way to cancel one, and one whose timer can't be set
// never ends.

#include "foundation/MessageLoop.h"

namespace strandline::SleepReplacement {

struct Variables {
  Ref<MessageLoop> mMessageLoop;  // of the wait in progress
};
inline Variables variables;

// timeInMs: milliseconds; hwnd: the window on which the timer is set.
void Wait(Long timeInMs, Long hwnd);
// The timer's own procedure.
void TimerExpired(Long hwnd, Long uint1, Long nEventId, Long dwParam);

void ReportModule(Reporter& to);
inline constexpr ModuleInfo kModuleInfo{u"SleepReplacement", &ReportModule};

}  // namespace strandline::SleepReplacement
