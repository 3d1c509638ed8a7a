// Timers, scheduled work and waits.

#include "tests/contract/window_contract.h"

namespace strandline::contract {
namespace {

using TimerContract = WindowContract;

struct Tick {
  Long hwnd;
  Long message;
  Long id;
};
std::vector<Tick> ticks;
std::vector<Tick> otherTicks;

void OnTick(Long hwnd, Long message, Long id, Long) { ticks.push_back({hwnd, message, id}); }
void OnOtherTick(Long hwnd, Long message, Long id, Long) { otherTicks.push_back({hwnd, message, id}); }

void Forget() {
  ticks.clear();
  otherTicks.clear();
}

TEST_F(TimerContract, WithAProcedure_CallsItAgainAndAgain) {
  Forget();
  const Long hwnd = Open(u"one");
  EXPECT_NE(windows.SetTimer(hwnd, 77, 10, &OnTick), 0);
  ASSERT_TRUE(Until([] { return ticks.size() >= 3; }));
  for (const Tick& tick : ticks) {
    EXPECT_EQ(tick.hwnd, hwnd);
    EXPECT_EQ(tick.message, wm::kTimer);
    EXPECT_EQ(tick.id, 77);
  }
  EXPECT_EQ(Count("one 275"), 0);
  EXPECT_NE(windows.KillTimer(hwnd, 77), 0);
}

TEST_F(TimerContract, WithoutAProcedure_TicksAsAMessageWithItsNumber) {
  const Long hwnd = Open(u"one");
  Long id = 0;
  handler = [&](Long window, Long message, Long wParam, Long lParam) {
    if (message != wm::kTimer) return Host().DefaultProcedure(window, message, wParam, lParam);
    id = wParam;
    return Long{0};
  };
  EXPECT_NE(windows.SetTimer(hwnd, 78, 10, nullptr), 0);
  EXPECT_TRUE(Until([&] { return Count("one 275") >= 2; }));
  EXPECT_EQ(id, 78);
  EXPECT_NE(windows.KillTimer(hwnd, 78), 0);
}

TEST_F(TimerContract, WithoutAWindow_HasANumberOfItsOwn) {
  Forget();
  const Long id = windows.SetTimer(0, 77, 10, &OnTick);
  ASSERT_NE(id, 0);
  ASSERT_TRUE(Until([] { return !ticks.empty(); }));
  EXPECT_EQ(ticks[0].hwnd, 0);
  EXPECT_EQ(ticks[0].id, id);
  const Long second = windows.SetTimer(0, 77, 10, &OnTick);
  EXPECT_NE(second, id);
  EXPECT_NE(windows.KillTimer(0, id), 0);
  EXPECT_NE(windows.KillTimer(0, second), 0);
}

TEST_F(TimerContract, Killed_TicksNoMoreAndCantBeKilledAgain) {
  Forget();
  const Long hwnd = Open(u"one");
  windows.SetTimer(hwnd, 5, 10, &OnTick);
  ASSERT_TRUE(Until([] { return !ticks.empty(); }));
  EXPECT_NE(windows.KillTimer(hwnd, 5), 0);
  EXPECT_EQ(windows.KillTimer(hwnd, 5), 0);
  const std::size_t before = ticks.size();
  Clock().Wait(40);
  EXPECT_EQ(ticks.size(), before);
}

TEST_F(TimerContract, KilledInItsOwnTick_HasTickedOnce) {
  static Windows* system;
  Forget();
  system = &windows;
  const Long hwnd = Open(u"one");
  windows.SetTimer(hwnd, 6, 10, [](Long window, Long message, Long id, Long) {
    ticks.push_back({window, message, id});
    system->KillTimer(window, id);
  });
  Clock().Wait(50);
  EXPECT_EQ(ticks.size(), 1u);
}

TEST_F(TimerContract, SetAgainUnderItsNumber_IsTheSameTimer) {
  Forget();
  const Long hwnd = Open(u"one");
  windows.SetTimer(hwnd, 7, 10, &OnTick);
  windows.SetTimer(hwnd, 7, 10, &OnOtherTick);
  ASSERT_TRUE(Until([] { return otherTicks.size() >= 2; }));
  EXPECT_TRUE(ticks.empty());
  EXPECT_NE(windows.KillTimer(hwnd, 7), 0);
  EXPECT_EQ(windows.KillTimer(hwnd, 7), 0);
}

TEST_F(TimerContract, OfTwoWindows_AreApartUnderOneNumber) {
  Forget();
  const Long one = Open(u"one");
  const Long two = Open(u"two");
  windows.SetTimer(one, 8, 10, &OnTick);
  windows.SetTimer(two, 8, 10, &OnOtherTick);
  EXPECT_NE(windows.KillTimer(one, 8), 0);
  ASSERT_TRUE(Until([] { return !otherTicks.empty(); }));
  EXPECT_TRUE(ticks.empty());
  EXPECT_EQ(otherTicks[0].hwnd, two);
  EXPECT_NE(windows.KillTimer(two, 8), 0);
}

TEST_F(TimerContract, EndsWithItsWindow) {
  Forget();
  const Long hwnd = Open(u"one");
  windows.SetTimer(hwnd, 9, 10, &OnTick);
  ASSERT_TRUE(Until([] { return !ticks.empty(); }));
  Host().DestroyWindow(hwnd);
  const std::size_t before = ticks.size();
  Clock().Wait(40);
  EXPECT_EQ(ticks.size(), before);
  EXPECT_EQ(windows.KillTimer(hwnd, 9), 0);
  EXPECT_EQ(windows.SetTimer(hwnd, 9, 10, &OnTick), 0);
}

TEST_F(TimerContract, DoEventsUntilNext_WaitsForTheNextTick) {
  Forget();
  const Long hwnd = Open(u"one");
  Settle();
  windows.SetTimer(hwnd, 10, 20, &OnTick);
  for (int round = 0; ticks.empty() && round < 100; ++round) windows.DoEventsUntilNext();
  EXPECT_FALSE(ticks.empty());
  windows.KillTimer(hwnd, 10);
}

TEST_F(TimerContract, ScheduledWork_RunsInItsOrderAndNotBeforeItsTime) {
  std::vector<std::pair<char, std::int64_t>> done;
  const std::int64_t start = Clock().Milliseconds();
  const auto note = [&](char name) { return [&, name] { done.emplace_back(name, Clock().Milliseconds() - start); }; };
  Clock().After(100, note('c'));
  Clock().After(50, note('a'));
  Clock().After(50, note('b'));
  Clock().After(0, note('0'));
  ASSERT_TRUE(Until([&] { return done.size() == 4; }));
  std::string names;
  for (const auto& [name, time] : done) names += name;
  EXPECT_EQ(names, "0abc");
  EXPECT_GE(done[1].second, 50);
  EXPECT_GE(done[3].second, 100);
}

TEST_F(TimerContract, ScheduledWork_RunsInAnyLoop) {
  const Long hwnd = Open(u"one");
  Settle();
  bool done = false;
  Clock().After(10, [&] {
    done = true;
    Host().Post(hwnd, kOwnMessage, 0, 0);
  });
  Message message;
  do {
    ASSERT_NE(windows.GetMessageA(message), 0);
    windows.DispatchMessageA(message);
  } while (message.message != kOwnMessage);
  EXPECT_TRUE(done);
}

TEST_F(TimerContract, AWaitInsideScheduledWork_LetsLaterWorkRun) {
  std::string order;
  Clock().After(10, [&] {
    order += "(";
    Clock().Wait(40);
    order += ")";
  });
  Clock().After(20, [&] { order += "x"; });
  ASSERT_TRUE(Until([&] { return order.size() == 3; }));
  EXPECT_EQ(order, "(x)");
}

TEST_F(TimerContract, AWait_TakesItsTimeAndItsEndBelongsToIt) {
  const std::int64_t start = Clock().Milliseconds();
  bool atTheEnd = false;
  Clock().After(25, [&] { atTheEnd = true; });
  Clock().Wait(25);
  EXPECT_GE(Clock().Milliseconds() - start, 25);
  EXPECT_TRUE(atTheEnd);
}

}  // namespace
}  // namespace strandline::contract
