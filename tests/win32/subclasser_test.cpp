// The hook on real windows.

#include <gtest/gtest.h>

#include <stdexcept>
#include <vector>

#include "platform/win32/win32_subclasser.h"
#include "platform/win32/windows_api.h"
#include "tests/win32/subclasser_sink.h"

namespace strandline::win32test {

TEST(Subclasser, TheSinkIsAskedBeforeTheWindow) {
  for (const bool wide : {true, false}) {
    Stage stage;
    TestWindow window(u"Smoke", wide);
    std::size_t reachedBefore = 99;
    Long parameters = 0;
    Sink sink([&](Long message, Long wParam, Long lParam, Long&, Boolean& cancel) {
      if (message != kFirst) return;
      EXPECT_TRUE(!cancel);
      reachedBefore = TestWindow::reached.size();
      parameters = wParam * 10 + lParam;
    });
    const Ref<Subclasser> hook = Hooked(sink, window.Hwnd());
    EXPECT_TRUE(!window.HasOwnProcedure());
    EXPECT_EQ(Send(window, kFirst), kFirst + 1000);
    EXPECT_EQ(reachedBefore, 0u);
    EXPECT_EQ(TestWindow::reached.size(), 1u);
    EXPECT_EQ(parameters, 34);
    hook->Unsubclass();
    EXPECT_TRUE(window.HasOwnProcedure());
  }
}

TEST(Subclasser, ACancelledMessageStaysWithTheSink) {
  Stage stage;
  TestWindow window;
  Sink sink([&](Long message, Long, Long, Long& answer, Boolean& cancel) {
    cancel = message == kFirst;
    answer = -7;
  });
  const Ref<Subclasser> hook = Hooked(sink, window.Hwnd());
  EXPECT_EQ(Send(window, kFirst), -7);
  EXPECT_TRUE(TestWindow::reached.empty());
  EXPECT_EQ(Send(window, kSecond), kSecond + 1000);
}

TEST(Subclasser, CallPreviousProc_GivesTheWindowsOwnAnswer) {
  Stage stage;
  TestWindow window;
  Ref<Subclasser> hook;
  Long own = 0;
  Sink sink([&](Long message, Long wParam, Long lParam, Long& answer, Boolean& cancel) {
    if (message != kFirst) return;
    own = hook->CallPreviousProc(message, wParam, lParam);
    answer = own + 1;
    cancel = true;
  });
  hook = Hooked(sink, window.Hwnd());
  EXPECT_EQ(Send(window, kFirst), kFirst + 1001);
  EXPECT_EQ(own, kFirst + 1000);
  EXPECT_EQ(TestWindow::reached.size(), 1u);
  EXPECT_EQ(hook->CallPreviousProc(kSecond, 0, 0), kSecond + 1000);
}

TEST(Subclasser, DroppedInsideItsOwnEvent_TheMessageStillReachesTheWindow) {
  Stage stage;
  TestWindow window;
  Ref<Subclasser> hook;
  int asked = 0;
  Sink sink([&](Long message, Long, Long, Long&, Boolean&) {
    if (message != kFirst) return;
    ++asked;
    hook->Unsubclass();
    hook->SetSink(nullptr);
    hook = nullptr;
  });
  hook = Hooked(sink, window.Hwnd());
  EXPECT_EQ(Send(window, kFirst), kFirst + 1000);
  EXPECT_EQ(Send(window, kFirst), kFirst + 1000);
  EXPECT_EQ(asked, 1);
  EXPECT_TRUE(window.HasOwnProcedure());
}

TEST(Subclasser, DroppedWithoutUnsubclass_LetsTheWindowGo) {
  Stage stage;
  TestWindow window;
  Sink sink([](Long, Long, Long, Long&, Boolean&) {});
  { const Ref<Subclasser> hook = Hooked(sink, window.Hwnd()); }
  EXPECT_TRUE(window.HasOwnProcedure());
}

TEST(Subclasser, TheWindowDiesFirst) {
  Stage stage;
  TestWindow window;
  bool last = false;
  Sink sink([&](Long message, Long, Long, Long&, Boolean&) { last = message == kDestroyed; });
  const Ref<Subclasser> hook = Hooked(sink, window.Hwnd());
  window.Destroy();
  EXPECT_TRUE(last);
  EXPECT_EQ(hook->CallPreviousProc(kFirst, 0, 0), 0);
  hook->Unsubclass();
}

TEST(Subclasser, TheWindowDiesInsideTheEvent) {
  Stage stage;
  TestWindow window;
  Ref<Subclasser> hook;
  Sink sink([&](Long message, Long, Long, Long&, Boolean&) {
    if (message != kFirst) return;
    window.Destroy();
    hook = nullptr;
  });
  hook = Hooked(sink, window.Hwnd());
  Send(window, kFirst);
  EXPECT_TRUE(!hook);
}

TEST(Subclasser, TwoHooks_TheNewerIsAskedFirst_AndTheOlderMayGoFirst) {
  Stage stage;
  TestWindow window;
  std::vector<int> asked;
  const auto note = [&asked](int who) {
    return [&asked, who](Long message, Long, Long, Long&, Boolean&) {
      if (message == kFirst) asked.push_back(who);
    };
  };
  Sink olderSink(note(1));
  Sink newerSink(note(2));
  const Ref<Subclasser> older = Hooked(olderSink, window.Hwnd());
  const Ref<Subclasser> newer = Hooked(newerSink, window.Hwnd());
  Send(window, kFirst);
  EXPECT_TRUE(asked == (std::vector<int>{2, 1}));
  older->Unsubclass();
  Send(window, kFirst);
  EXPECT_TRUE(asked == (std::vector<int>{2, 1, 2}));
  newer->Unsubclass();
  EXPECT_TRUE(window.HasOwnProcedure());
}

TEST(Subclasser, TheOlderHookGoesInsideTheNewersEvent_TheMessageReachesTheWindowOnce) {
  Stage stage;
  TestWindow window;
  int olderAsked = 0;
  Ref<Subclasser> older;
  Sink olderSink([&](Long message, Long, Long, Long&, Boolean&) { olderAsked += message == kFirst; });
  Sink newerSink([&](Long message, Long, Long, Long&, Boolean&) {
    if (message == kFirst) older = nullptr;
  });
  older = Hooked(olderSink, window.Hwnd());
  const Ref<Subclasser> newer = Hooked(newerSink, window.Hwnd());
  EXPECT_EQ(Send(window, kFirst), kFirst + 1000);
  EXPECT_EQ(olderAsked, 0);
  EXPECT_EQ(TestWindow::reached.size(), 1u);
}

TEST(Subclasser, AHookPutOnInsideAnEvent_IsAskedFromTheNextMessageOn) {
  Stage stage;
  TestWindow window;
  int newerAsked = 0;
  Ref<Subclasser> newer;
  Sink newerSink([&](Long message, Long, Long, Long&, Boolean&) { newerAsked += message == kFirst; });
  Sink olderSink([&](Long message, Long, Long, Long&, Boolean&) {
    if (message == kFirst && !newer) newer = Hooked(newerSink, window.Hwnd());
  });
  const Ref<Subclasser> older = Hooked(olderSink, window.Hwnd());
  Send(window, kFirst);
  EXPECT_EQ(newerAsked, 0);
  Send(window, kFirst);
  EXPECT_EQ(newerAsked, 1);
}

TEST(Subclasser, CallPreviousProcAndThenNotCancelled_AsksTheOlderHookBothTimes) {
  Stage stage;
  TestWindow window;
  int olderAsked = 0;
  Ref<Subclasser> newer;
  Sink olderSink([&](Long message, Long, Long, Long&, Boolean&) { olderAsked += message == kFirst; });
  Sink newerSink([&](Long message, Long wParam, Long lParam, Long&, Boolean&) {
    if (message == kFirst) newer->CallPreviousProc(message, wParam, lParam);
  });
  const Ref<Subclasser> older = Hooked(olderSink, window.Hwnd());
  newer = Hooked(newerSink, window.Hwnd());
  EXPECT_EQ(Send(window, kFirst), kFirst + 1000);
  EXPECT_EQ(olderAsked, 2);
  EXPECT_EQ(TestWindow::reached.size(), 2u);
}

TEST(Subclasser, CallPreviousProcOfTheOlderHook_DoesntAskTheNewer) {
  Stage stage;
  TestWindow window;
  int asked = 0;
  Sink olderSink([](Long, Long, Long, Long&, Boolean&) {});
  Sink newerSink([&](Long, Long, Long, Long&, Boolean&) { ++asked; });
  const Ref<Subclasser> older = Hooked(olderSink, window.Hwnd());
  const Ref<Subclasser> newer = Hooked(newerSink, window.Hwnd());
  EXPECT_EQ(older->CallPreviousProc(kFirst, 1, 2), kFirst + 1000);
  EXPECT_EQ(asked, 0);
  EXPECT_EQ(TestWindow::reached, (std::vector<Long>{kFirst}));
  EXPECT_EQ(newer->CallPreviousProc(kFirst, 1, 2), kFirst + 1000);
}

TEST(Subclasser, CallPreviousProcWithOtherValues_DeliversThose) {
  Stage stage;
  TestWindow window;
  Ref<Subclasser> hook;
  Sink sink([&](Long message, Long, Long, Long& answer, Boolean& cancel) {
    if (message != kFirst) return;
    answer = hook->CallPreviousProc(kSecond, -5, 6);
    cancel = true;
  });
  hook = Hooked(sink, window.Hwnd());
  EXPECT_EQ(Send(window, kFirst), kSecond + 1000);
  EXPECT_EQ(TestWindow::reached, (std::vector<Long>{kSecond}));
  EXPECT_EQ(static_cast<std::intptr_t>(TestWindow::lastWParam), -5);
  EXPECT_EQ(TestWindow::lastLParam, 6);
}

TEST(Subclasser, WhatASinkThrows_DoesntLeaveTheHook) {
  Stage stage;
  TestWindow window;
  Sink sink([](Long message, Long, Long, Long&, Boolean& cancel) {
    cancel = true;
    if (message == kFirst) throw std::runtime_error("within a message");
    if (message == kSecond) Raise(errors::kOverflow);
    cancel = false;
  });
  const Ref<Subclasser> hook = Hooked(sink, window.Hwnd());
  EXPECT_EQ(Send(window, kFirst), kFirst + 1000);
  EXPECT_EQ(Send(window, kSecond), kSecond + 1000);
}

TEST(Subclasser, WhatIsNoWindow_IsntHooked) {
  Stage stage;
  TestWindow window;
  const Long gone = window.Hwnd();
  window.Destroy();
  Sink sink([](Long, Long, Long, Long&, Boolean&) {});
  const Long before = win32::LiveHooks();
  for (const Long hwnd : {0, gone, -1}) {
    const Ref<Subclasser> hook = Hooked(sink, hwnd);
    EXPECT_EQ(hook->CallPreviousProc(kFirst, 0, 0), 0);
    hook->Unsubclass();
  }
  EXPECT_EQ(win32::LiveHooks(), before);
}

TEST(Subclasser, LiveHooks_CountsThoseOnWindowsAndThoseBeingAsked) {
  Stage stage;
  TestWindow window;
  const Long before = win32::LiveHooks();
  Ref<Subclasser> first;
  Long inside = 0;
  Sink sink([&](Long message, Long, Long, Long&, Boolean&) {
    if (message != kFirst) return;
    first = nullptr;
    inside = win32::LiveHooks();
  });
  first = Hooked(sink, window.Hwnd());
  Ref<Subclasser> second = Hooked(sink, window.Hwnd());
  EXPECT_EQ(win32::LiveHooks(), before + 2);
  second->Unsubclass();
  second->Unsubclass();
  EXPECT_EQ(win32::LiveHooks(), before + 1);
  Send(window, kFirst);
  EXPECT_EQ(inside, before + 1);  // off its window, but its code still runs
  EXPECT_EQ(win32::LiveHooks(), before);
  second = Hooked(sink, window.Hwnd());
  window.Destroy();
  EXPECT_EQ(win32::LiveHooks(), before);
}

}  // namespace strandline::win32test
