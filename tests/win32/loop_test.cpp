// Timers and message loops where the system is stricter, or its numbers wider, than the seam.

#include <gtest/gtest.h>

#include <functional>

#include "foundation/MessageLoop.h"
#include "platform/win32/timer_procedures.h"
#include "platform/win32/windows_api.h"
#include "tests/win32/stage.h"

namespace strandline::win32test {

namespace {

constexpr Long kOwnMessage = 0x0400 + 9;

Ref<MessageLoop> theLoop;
int ticks = 0;
Long tickId = 0;

void OnTick(Long, Long, Long id, Long) {
  tickId = id;
  if (++ticks >= 3) theLoop->ExitBlockingLoop();
}

void RunLoop() {
  ticks = 0;
  theLoop = New<MessageLoop>();
  theLoop->EnterBlockingLoop();
  theLoop = nullptr;
}

class Sink final : public MessageSink {
 public:
  explicit Sink(std::function<void(Long, Long)> handler) : mHandler(std::move(handler)) {}
  void BeforeMessage(Long uMsg, Long wParam, Long, Long&, Boolean&) override { mHandler(uMsg, wParam); }

 private:
  std::function<void(Long message, Long wParam)> mHandler;
};

int throwingTicks = 0;
void ThrowingTick(Long, Long, Long, Long) {
  ++throwingTicks;
  Raise(errors::kOverflow);
}

}  // namespace

TEST(DoEvents, AWindowThatNeverValidates_DoesntHoldItUp) {
  Stage stage;
  TestWindow window;
  const Ref<Subclasser> hook = platform::Subclassers().Create();
  class Refusal final : public MessageSink {
   public:
    void BeforeMessage(Long uMsg, Long, Long, Long&, Boolean& Cancel) override { Cancel = uMsg == wm::kPaint; }
  } sink;
  hook->SetSink(&sink);
  hook->Subclass(window.Hwnd());
  window.Invalidate();
  platform::Windows().DoEvents();
  EXPECT_EQ(TestWindow::paints, 0);
}

TEST(Timer, WhatAProcedureThrows_EndsThere) {
  Stage stage;
  TestWindow window;
  throwingTicks = 0;
  platform::Windows().SetTimer(window.Hwnd(), 77, 10, &ThrowingTick);
  while (throwingTicks < 2) platform::Windows().DoEventsUntilNext();
  EXPECT_TRUE(platform::Windows().KillTimer(window.Hwnd(), 77) != 0);
}

TEST(Timer, OfWindowsThatDied_LeavesNoProcedureBehind) {
  Stage stage;
  const std::size_t before = win32::timer_procedures::Count();
  for (int i = 0; i < 50; ++i) {
    TestWindow window;
    for (const Long id : {5, 6}) EXPECT_TRUE(platform::Windows().SetTimer(window.Hwnd(), id, 60'000, &OnTick) != 0);
    EXPECT_LE(win32::timer_procedures::Count(), before + 2);
  }
  platform::Windows().KillTimer(0, 1);
  EXPECT_EQ(win32::timer_procedures::Count(), before);
}

TEST(Timer, WithANegativeNumber_TicksUnderIt) {
  Stage stage;
  TestWindow window;
  platform::Windows().SetTimer(window.Hwnd(), -77, 10, &OnTick);
  RunLoop();
  EXPECT_EQ(tickId, -77);
  EXPECT_TRUE(platform::Windows().KillTimer(window.Hwnd(), -77) != 0);
}

TEST(Timer, ATickThatIsDispatchedLate_CallsItsProcedureOrNone) {
  Stage stage;
  TestWindow window;
  theLoop = New<MessageLoop>();
  ticks = 0;
  platform::Windows().SetTimer(window.Hwnd(), 81, 60'000, &OnTick);
  // As 32 bits of the procedure's address would come: the number of another message has been fetched since.
  Message message;
  message.hwnd = window.Hwnd();
  message.message = wm::kTimer;
  message.wParam = 81;
  message.lParam = 0x1234;
  platform::Windows().DispatchMessageA(message);
  EXPECT_EQ(ticks, 1);
  message.wParam = 82;
  platform::Windows().DispatchMessageA(message);
  EXPECT_EQ(ticks, 1);
  platform::Windows().KillTimer(window.Hwnd(), 81);
  theLoop = nullptr;
}

TEST(DoEvents, InsideAMessage_RunsTheRestThereOnce) {
  Stage stage;
  TestWindow window;
  std::vector<std::size_t> reachedWithin;
  Sink sink([&](Long message, Long) {
    if (message != kOwnMessage) return;
    platform::Windows().DoEvents();
    reachedWithin.push_back(TestWindow::reached.size());
  });
  const Ref<Subclasser> hook = platform::Subclassers().Create();
  hook->SetSink(&sink);
  hook->Subclass(window.Hwnd());
  for (Long i = 0; i < 4; ++i) window.Post(kOwnMessage + i, 0, 0);
  platform::Windows().DoEvents();
  EXPECT_EQ(reachedWithin, (std::vector<std::size_t>{3}));
  EXPECT_EQ(TestWindow::reached, (std::vector<Long>{kOwnMessage + 1, kOwnMessage + 2, kOwnMessage + 3, kOwnMessage}));
}

TEST(DoEvents, TheQuitMessage_IsStillThereAfterwards) {
  Stage stage;
  TestWindow window;
  Sink sink([&](Long message, Long) {
    if (message == kOwnMessage) platform::Windows().DoEvents();
  });
  const Ref<Subclasser> hook = platform::Subclassers().Create();
  hook->SetSink(&sink);
  hook->Subclass(window.Hwnd());
  ::PostQuitMessage(7);
  window.Post(kOwnMessage, 0, 0);
  window.Post(kOwnMessage + 1, 0, 0);
  platform::Windows().DoEvents();
  EXPECT_EQ(TestWindow::reached.size(), 2u);
  Message message;
  EXPECT_EQ(platform::Windows().GetMessageA(message), 0);
  EXPECT_EQ(message.message, wm::kQuit);
  EXPECT_EQ(message.wParam, 7);
  platform::Windows().DoEvents();  // and then it is gone
  window.Post(kOwnMessage + 1, 0, 0);
  EXPECT_NE(platform::Windows().GetMessageA(message), 0);
}

TEST(DoEvents, UntilNextBesideAQuitMessage_WaitsAndDoesntSpin) {
  Stage stage;
  TestWindow window;
  platform::Windows().DoEvents();
  throwingTicks = 0;
  platform::Windows().SetTimer(window.Hwnd(), 77, 50, &ThrowingTick);
  ::PostQuitMessage(7);
  int rounds = 0;
  for (; throwingTicks == 0; ++rounds) platform::Windows().DoEventsUntilNext();
  EXPECT_LE(rounds, 5);
  platform::Windows().KillTimer(window.Hwnd(), 77);
  Message message;
  EXPECT_EQ(platform::Windows().GetMessageA(message), 0);
  EXPECT_EQ(message.message, wm::kQuit);
  EXPECT_EQ(message.wParam, 7);
}

}  // namespace strandline::win32test
