// Parameters and answers that are wider than a Long, where the system's are. In a 32-bit program they are as narrow as
// the sink's, and all of this holds there too.

#include <gtest/gtest.h>

#include "platform/win32/windows_api.h"
#include "tests/win32/subclasser_sink.h"

namespace strandline::win32test {

namespace {

constexpr auto kWideWParam = static_cast<WPARAM>(0x1122334455667788ULL);
constexpr auto kWideLParam = static_cast<LPARAM>(0x8877665544332211ULL);
constexpr auto kNarrowWParam = static_cast<Long>(0x55667788);
constexpr auto kNarrowLParam = static_cast<Long>(0x44332211);
constexpr auto kHighHalf = static_cast<LRESULT>(0x0123456700000000LL);

LRESULT SendWide(const TestWindow& window, Long message) {
  const HWND hwnd = win32::ToHandle<HWND>(window.Hwnd());
  return ::SendMessageW(hwnd, static_cast<UINT>(message), kWideWParam, kWideLParam);
}

}  // namespace

TEST(Subclasser, ParametersOfFullWidth_ReachTheWindowWhole) {
  for (const bool calls : {false, true}) {
    Stage stage;
    TestWindow window;
    Ref<Subclasser> hook;
    Sink sink([&](Long message, Long wParam, Long lParam, Long&, Boolean& cancel) {
      if (message != kFirst) return;
      EXPECT_EQ(wParam, kNarrowWParam);
      EXPECT_EQ(lParam, kNarrowLParam);
      cancel = calls;
      if (calls) hook->CallPreviousProc(message, wParam, lParam);
    });
    hook = Hooked(sink, window.Hwnd());
    TestWindow::lastWParam = 0;
    TestWindow::lastLParam = 0;
    SendWide(window, kFirst);
    EXPECT_EQ(TestWindow::lastWParam, kWideWParam) << calls;
    EXPECT_EQ(TestWindow::lastLParam, kWideLParam) << calls;
  }
}

TEST(Subclasser, WhatTheSinkHasChanged_GoesOnAsItsOwn) {
  Stage stage;
  TestWindow window;
  Ref<Subclasser> hook;
  Sink sink([&](Long message, Long wParam, Long lParam, Long&, Boolean& cancel) {
    cancel = message == kFirst;
    if (cancel) hook->CallPreviousProc(message, wParam, lParam - 1);
  });
  hook = Hooked(sink, window.Hwnd());
  SendWide(window, kFirst);
  EXPECT_EQ(TestWindow::lastWParam, static_cast<WPARAM>(kNarrowWParam));
  EXPECT_EQ(TestWindow::lastLParam, static_cast<LPARAM>(kNarrowLParam) - 1);
}

TEST(Subclasser, AnAnswerOfFullWidth_ComesThroughTheChainWhole) {
  const auto whole = static_cast<LRESULT>(kFirst + 1000) + kHighHalf;
  const Long narrow = kFirst + 1000;
  const struct {
    const char* name;
    bool calls;    // CallPreviousProc, and then
    Long less;     // that much less than its answer is the sink's,
    bool answers;  // if it gives one,
    bool cancels;  // and keeps the message
    LRESULT expected;
  } cases[] = {
      {"not asked", false, 0, false, false, whole},
      {"asked, not kept", true, 0, true, false, whole},
      {"the answer given back", true, 0, true, true, whole},
      {"another answer", true, 1, true, true, narrow - 1},
      {"0", true, narrow, true, true, 0},
      {"no answer", true, 0, false, true, 0},
  };
  for (const auto& c : cases) {
    Stage stage;
    TestWindow window;
    TestWindow::added = kHighHalf;
    Ref<Subclasser> hook;
    Sink olderSink([](Long, Long, Long, Long&, Boolean&) {});
    Sink sink([&](Long message, Long wParam, Long lParam, Long& answer, Boolean& cancel) {
      if (message != kFirst) return;
      const Long previous = c.calls ? hook->CallPreviousProc(message, wParam, lParam) : 0;
      EXPECT_TRUE(!c.calls || previous == narrow) << c.name;
      if (c.answers) answer = previous - c.less;
      cancel = c.cancels;
    });
    const Ref<Subclasser> older = Hooked(olderSink, window.Hwnd());
    hook = Hooked(sink, window.Hwnd());
    EXPECT_EQ(SendWide(window, kFirst), c.expected) << c.name;
  }
}

TEST(Subclasser, AnAnswerFromWithinAnotherMessage_IsntThisOnes) {
  Stage stage;
  TestWindow window;
  TestWindow::added = kHighHalf;
  Ref<Subclasser> hook;
  Sink sink([&](Long message, Long wParam, Long lParam, Long& answer, Boolean& cancel) {
    if (message == kSecond) hook->CallPreviousProc(message, wParam, lParam);
    if (message != kFirst) return;
    SendWide(window, kSecond);
    answer = kSecond + 1000;
    cancel = true;
  });
  hook = Hooked(sink, window.Hwnd());
  EXPECT_EQ(SendWide(window, kFirst), kSecond + 1000);
}

}  // namespace strandline::win32test
