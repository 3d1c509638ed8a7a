#include "foundation/SleepReplacement.h"

#include "foundation/LanguageExtensions.h"
#include "platform/platform.h"

namespace strandline::SleepReplacement {

namespace {
constexpr ModuleFile kModule{&kModuleInfo};
constexpr Long kFirstTimerId = 442;
constexpr Long kLastTimerId = 6000;
}  // namespace

// odd: lost-timer
void Wait(Long timeInMs, Long hwnd) {
  PROCEDURE(void, u"Wait", timeInMs, hwnd);
  Long id = 0;
  // The timer lets go of the loop while it still runs, so this wait holds it too.
  Ref<MessageLoop> loop;
  REPORTS(id);
  while (variables.mMessageLoop) STEP(platform::Windows().DoEventsUntilNext());
  id = LanguageExtensions::RandomNumber(kFirstTimerId, kLastTimerId);
  STEP(platform::Windows().SetTimer(hwnd, id, timeInMs, &TimerExpired));
  STEP(loop = variables.mMessageLoop = New<MessageLoop>());
  STEP(Required(loop).EnterBlockingLoop());
}

void TimerExpired(Long hwnd, Long uint1, Long nEventId, Long dwParam) {
  PROCEDURE(void, u"TimerExpired", hwnd, uint1, nEventId, dwParam);
  if (!variables.mMessageLoop) return;
  STEP(platform::Windows().KillTimer(hwnd, nEventId));
  STEP(Required(variables.mMessageLoop).ExitBlockingLoop());
  variables.mMessageLoop = nullptr;
}

void ReportModule(Reporter& to) { to.Tell(u"mMessageLoop", variables.mMessageLoop); }

}  // namespace strandline::SleepReplacement
