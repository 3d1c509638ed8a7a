// How messages reach windows, and in which order.

#include "tests/contract/window_contract.h"

namespace strandline::contract {
namespace {

using MessageContract = WindowContract;

constexpr Long kFirst = kOwnMessage;
constexpr Long kSecond = kOwnMessage + 1;

TEST_F(MessageContract, ASentMessage_RunsAtOnceAndBringsTheAnswer) {
  const Long hwnd = Open(u"one");
  Long given = 0;
  handler = [&](Long, Long message, Long wParam, Long lParam) {
    if (message != kFirst) return Long{0};
    given = wParam * 10 + lParam;
    return Long{-7};
  };
  EXPECT_EQ(windows.SendMessageA(hwnd, kFirst, 3, 4), -7);
  EXPECT_EQ(given, 34);
}

TEST_F(MessageContract, ASentMessage_MaySendAnother) {
  const Long hwnd = Open(u"one");
  handler = [&](Long, Long message, Long wParam, Long) {
    if (message == kSecond) return wParam + 1;
    return message == kFirst ? windows.SendMessageA(hwnd, kSecond, wParam * 2, 0) : Long{0};
  };
  EXPECT_EQ(windows.SendMessageA(hwnd, kFirst, 20, 0), 41);
}

TEST_F(MessageContract, SentToAWindowThatIsGone_DoesNothing) {
  const Long hwnd = Open(u"one");
  Host().DestroyWindow(hwnd);
  log.clear();
  EXPECT_EQ(windows.SendMessageA(hwnd, kFirst, 0, 0), 0);
  EXPECT_TRUE(log.empty());
}

TEST_F(MessageContract, PostedMessages_RunLaterInTheirOrder) {
  const Long one = Open(u"one");
  const Long two = Open(u"two");
  Settle();
  Host().Post(one, kFirst, 0, 0);
  Host().Post(two, kFirst, 0, 0);
  Host().Post(one, kSecond, 0, 0);
  EXPECT_TRUE(log.empty());
  windows.DoEvents();
  EXPECT_EQ(log, (Log{"one 1033", "two 1033", "one 1034"}));
}

TEST_F(MessageContract, PostedFromWithin_RunsInTheSameRound) {
  const Long hwnd = Open(u"one");
  Settle();
  handler = [&](Long, Long message, Long, Long) {
    if (message == kFirst) Host().Post(hwnd, kSecond, 0, 0);
    return Long{0};
  };
  Host().Post(hwnd, kFirst, 0, 0);
  windows.DoEvents();
  EXPECT_EQ(log, (Log{"one 1033", "one 1034"}));
}

TEST_F(MessageContract, PostedToAWindowThatIsGone_IsDropped) {
  const Long one = Open(u"one");
  const Long two = Open(u"two");
  Settle();
  Host().Post(one, kFirst, 0, 0);
  Host().Post(two, kFirst, 0, 0);
  Host().DestroyWindow(one);
  log.clear();
  windows.DoEvents();
  EXPECT_EQ(Count("one 1033"), 0);
  EXPECT_EQ(Count("two 1033"), 1);
}

// All four wait at one time; then the queue is emptied.
TEST_F(MessageContract, PostedComesBeforeInput_BeforePaint_BeforeTimers) {
  const Long hwnd = Open(u"one");
  Host().ActivateWindow(hwnd);
  Host().PlacePointer({60, 50});
  Settle();
  bool waiting = false;
  Clock().After(30, [&] {
    log.clear();
    windows.SetCursorPos(70, 60);
    Host().InvalidateWindow(hwnd);
    Host().Post(hwnd, kFirst, 0, 0);
    Compute(40);
    waiting = true;
  });
  ASSERT_NE(windows.SetTimer(hwnd, 1, 30, nullptr), 0);
  ASSERT_TRUE(Until([&] { return waiting && Count("one 275") > 0; }));
  windows.KillTimer(hwnd, 1);
  ASSERT_GE(log.size(), 4u);
  log.resize(4);
  EXPECT_EQ(log, (Log{"one 1033", "one 512", "one 15", "one 275"}));
}

TEST_F(MessageContract, GetMessage_TakesOneByOneAndDispatchRunsIt) {
  const Long hwnd = Open(u"one");
  Settle();
  handler = [](Long, Long, Long wParam, Long lParam) { return wParam + lParam; };
  Host().Post(hwnd, kFirst, 5, 6);
  Message message;
  do {
    ASSERT_NE(windows.GetMessageA(message), 0);
  } while (message.message != kFirst);
  EXPECT_TRUE(log.empty());
  EXPECT_EQ(message.hwnd, hwnd);
  EXPECT_EQ(message.wParam, 5);
  EXPECT_EQ(message.lParam, 6);
  windows.TranslateMessage(message);
  EXPECT_EQ(windows.DispatchMessageA(message), 11);
  EXPECT_EQ(log, (Log{"one 1033"}));
}

TEST_F(MessageContract, TheWishToQuit_ComesBehindPostedMessagesAndOnce) {
  const Long hwnd = Open(u"one");
  Settle();
  Host().PostQuitMessage();
  Host().Post(hwnd, kFirst, 0, 0);
  Message message;
  ASSERT_NE(windows.GetMessageA(message), 0);
  EXPECT_EQ(message.message, kFirst);
  EXPECT_EQ(windows.GetMessageA(message), 0);
  EXPECT_EQ(message.message, wm::kQuit);
  Host().Post(hwnd, kSecond, 0, 0);
  EXPECT_NE(windows.GetMessageA(message), 0);
  EXPECT_EQ(message.message, kSecond);
}

TEST_F(MessageContract, DoEvents_LeavesTheWishToQuitForTheLoop) {
  const Long hwnd = Open(u"one");
  Settle();
  Host().PostQuitMessage();
  Host().Post(hwnd, kFirst, 0, 0);
  windows.DoEvents();
  EXPECT_EQ(log, (Log{"one 1033"}));
  Message message;
  EXPECT_EQ(windows.GetMessageA(message), 0);
}

TEST_F(MessageContract, DoEvents_WithNothingWaitingReturns) {
  Open(u"one");
  Settle();
  windows.DoEvents();
  EXPECT_TRUE(log.empty());
}

}  // namespace
}  // namespace strandline::contract
