// The library's own loops and waits.

#include <algorithm>

#include "tests/contract/core_contract.h"

namespace strandline::contract {
namespace {

using WaitContract = CoreContract;

Ref<MessageLoop> theLoop;
int ticks = 0;

void OnTick(Long, Long, Long, Long) {
  if (++ticks >= 3) theLoop->ExitBlockingLoop();
}

class Sink final : public MessageSink {
 public:
  explicit Sink(std::function<void(Long message)> asked) : mAsked(std::move(asked)) {}
  void BeforeMessage(Long uMsg, Long, Long, Long&, Boolean&) override { mAsked(uMsg); }

 private:
  std::function<void(Long message)> mAsked;
};

TEST_F(WaitContract, ThePrivateLoop_RunsUntilItIsLeft) {
  const Long hwnd = Open(u"one");
  ticks = 0;
  theLoop = New<MessageLoop>();
  EXPECT_NE(windows.SetTimer(hwnd, 77, 10, &OnTick), 0);
  theLoop->EnterBlockingLoop();
  theLoop = nullptr;
  EXPECT_EQ(ticks, 3);
  EXPECT_NE(windows.KillTimer(hwnd, 77), 0);
}

TEST_F(WaitContract, AWait_LetsMessagesRunAndTakesItsTime) {
  const Long hwnd = Open(u"one");
  Settle();
  Host().Post(hwnd, kOwnMessage, 1, 2);
  Host().InvalidateWindow(hwnd);
  const std::int64_t start = Clock().Milliseconds();
  SleepReplacement::Wait(50, hwnd);
  // The system's timers may be a tick of its clock early.
  EXPECT_GE(Clock().Milliseconds() - start, 30);
  EXPECT_EQ(Count("one 1033"), 1);
  EXPECT_EQ(Count("one 15"), 1);
  EXPECT_FALSE(SleepReplacement::variables.mMessageLoop);
}

TEST_F(WaitContract, AWaitInsideAnother_SpinsUntilThatIsOver) {
  const Long hwnd = Open(u"one");
  Settle();
  bool inner = false;
  Sink sink([&](Long message) {
    if (message != kOwnMessage) return;
    SleepReplacement::Wait(20, hwnd);
    inner = true;
  });
  const Ref<Subclasser> hook = subclassers.Create();
  hook->SetSink(&sink);
  hook->Subclass(hwnd);
  Host().Post(hwnd, kOwnMessage, 0, 0);
  SleepReplacement::Wait(30, hwnd);
  EXPECT_TRUE(inner);
  EXPECT_FALSE(SleepReplacement::variables.mMessageLoop);
  hook->SetSink(nullptr);
}

}  // namespace
}  // namespace strandline::contract
