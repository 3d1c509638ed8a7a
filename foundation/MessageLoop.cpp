#include "foundation/MessageLoop.h"

#include "platform/platform.h"

namespace strandline {

namespace {
constexpr ModuleInfo kModuleInfo{u"MessageLoop", nullptr};
constexpr ModuleFile kModule{&kModuleInfo};
}  // namespace

// odd: consumed-quit
void MessageLoop::EnterBlockingLoop() {
  METHOD(void, u"EnterBlockingLoop");
  Message message;
  REPORTS(message);
  mInBlockingLoop = true;
  mFinishedBlocking = false;
  do {
    CONDITION(gotMessage, platform::Windows().GetMessageA(message) != 0);
    if (!gotMessage) break;
    STEP(platform::Windows().TranslateMessage(message));
    STEP(platform::Windows().DispatchMessageA(message));
  } while (!mFinishedBlocking);
  mInBlockingLoop = false;
}

void MessageLoop::ExitBlockingLoop() {
  METHOD(void, u"ExitBlockingLoop");
  mFinishedBlocking = true;
}

void MessageLoop::Terminated() {
  METHOD(void, u"Class_Terminate");
  ExitBlockingLoop();
}

void MessageLoop::ReportVariables(Reporter& to) const {
  to.List("mFinishedBlocking, mInBlockingLoop", mFinishedBlocking, mInBlockingLoop);
}

}  // namespace strandline
