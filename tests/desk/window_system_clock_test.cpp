#include <limits>

#include "tests/desk/window_system_fixture.h"

namespace strandline::desk {
namespace {

std::vector<std::string>* ticks = nullptr;
void Tick(Long hwnd, Long message, Long id, Long time) {
  ticks->push_back(std::to_string(hwnd) + " " + std::to_string(message) + " " + std::to_string(id) + " " +
                   std::to_string(time));
}
void OtherTick(Long, Long, Long id, Long) { ticks->push_back("other " + std::to_string(id)); }

class WindowSystem_Clock : public WindowSystemTest {
 protected:
  void SetUp() override { ticks = &log; }
  void TearDown() override { ticks = nullptr; }

  // Every message with its time, no paints.
  void NoteTimes() {
    handler = [this](Long hwnd, Long message, Long wParam, Long lParam) {
      log.pop_back();
      if (message == wm::kPaint) return system.DefaultProcedure(hwnd, message, wParam, lParam);
      Note(Now() + NameOf(hwnd) + " " + std::to_string(message) + " " + std::to_string(wParam));
      return 0;
    };
  }
  std::string Now() { return std::to_string(system.Milliseconds()) + ": "; }
};

TEST_F(WindowSystem_Clock, StandsStillButForWaits) {
  system.DoEvents();
  EXPECT_EQ(system.Milliseconds(), 0);
  system.Wait(5);
  system.Wait(-3);
  EXPECT_EQ(system.Milliseconds(), 5);
}

TEST_F(WindowSystem_Clock, ScheduledWorkRunsByTimeThenByOrder) {
  system.After(20, [&] { Note(Now() + "c"); });
  system.After(10, [&] { Note(Now() + "a"); });
  system.After(10, [&] { Note(Now() + "b"); });
  system.After(31, [&] { Note(Now() + "late"); });
  system.After(-5, [&] { Note(Now() + "now"); });
  system.After(1, nullptr);
  system.Wait(30);
  EXPECT_EQ(log, (Log{"0: now", "10: a", "10: b", "20: c"}));
  EXPECT_EQ(system.Milliseconds(), 30);
}

TEST_F(WindowSystem_Clock, TimersTickUpToAndIncludingTheEnd) {
  const Long hwnd = Open(u"w");
  NoteTimes();
  EXPECT_EQ(system.SetTimer(hwnd, 4, 30, nullptr), 4);
  EXPECT_EQ(system.SetTimer(hwnd, 5, 20, nullptr), 5);
  system.Wait(60);
  EXPECT_EQ(log, (Log{"20: w 275 5", "30: w 275 4", "40: w 275 5", "60: w 275 4", "60: w 275 5"}))
      << "of two at the same time the one set first";
}

TEST_F(WindowSystem_Clock, ATimerSetAgainComesAfterTheOthersOfItsTime) {
  const Long hwnd = Open(u"w");
  NoteTimes();
  for (const Long id : {1, 2, 1}) system.SetTimer(hwnd, id, 20, nullptr);
  system.Wait(20);
  EXPECT_EQ(log, (Log{"20: w 275 2", "20: w 275 1"}));
}

TEST_F(WindowSystem_Clock, ThePeriodIsAtLeastTenMilliseconds) {
  const Long hwnd = Open(u"w");
  for (const Long period : {0, 1, 9, 10, -1}) {
    system.SetTimer(hwnd, 1, period, nullptr);
    Settle();
    system.Wait(9);
    EXPECT_EQ(log.size(), 0u) << period;
    system.Wait(1);
    EXPECT_EQ(log.size(), 1u) << period;
  }
}

TEST_F(WindowSystem_Clock, SettingATimerAgainReplacesIt) {
  const Long hwnd = Open(u"w");
  NoteTimes();
  system.SetTimer(hwnd, 1, 50, nullptr);
  system.Wait(40);
  system.SetTimer(hwnd, 1, 30, nullptr);
  EXPECT_EQ(system.LiveTimers(), 1u);
  system.Wait(35);
  EXPECT_EQ(log, (Log{"70: w 275 1"}));
}

TEST_F(WindowSystem_Clock, AKilledTimerHasNoTickLeft) {
  const Long hwnd = Open(u"w");
  NoteTimes();
  EXPECT_EQ(system.KillTimer(hwnd, 1), 0);
  system.SetTimer(hwnd, 1, 10, nullptr);
  system.After(10, [&] { EXPECT_EQ(system.KillTimer(hwnd, 1), 1); });
  system.Wait(100);
  EXPECT_EQ(log, Log());
  EXPECT_EQ(system.KillTimer(hwnd, 1), 0);
  EXPECT_EQ(system.LiveTimers(), 0u);
}

// The window system takes each tick before it lets more time pass, so the table is asked by itself.
TEST(TimerTable_Ticks, DontPileUp) {
  TimerTable timers;
  timers.Set(1, 1, 10, nullptr, 0);
  EXPECT_FALSE(timers.TakeDue(9).has_value());
  EXPECT_TRUE(timers.TakeDue(35).has_value());
  EXPECT_FALSE(timers.TakeDue(39).has_value());
  EXPECT_EQ(timers.NextDue(), 40);
}

TEST_F(WindowSystem_Clock, ATimerWithAProcedureCallsIt) {
  const Long hwnd = Open(u"w");
  Settle();
  system.SetTimer(hwnd, 1, 20, &Tick);
  system.SetTimer(hwnd, 2, 30, &OtherTick);
  system.Wait(40);
  const std::string name = std::to_string(hwnd);
  EXPECT_EQ(log, (Log{name + " 275 1 20", "other 2", name + " 275 1 40"}));
  EXPECT_EQ(system.DispatchMessageA({hwnd, wm::kTimer, 1, 12345, 0, {}}), 0) << "of no procedure";
  EXPECT_EQ(log.size(), 3u);
}

TEST_F(WindowSystem_Clock, ATimerWithoutAWindowGetsAnIdOfItsOwn) {
  const Long first = system.SetTimer(0, 77, 10, &Tick);
  const Long second = system.SetTimer(0, 77, 10, &Tick);
  EXPECT_NE(first, 0);
  EXPECT_NE(first, second);
  EXPECT_EQ(system.SetTimer(0, first, 500, &Tick), first) << "one that is there is set anew";
  system.Wait(10);
  EXPECT_EQ(log, (Log{"0 275 " + std::to_string(second) + " 10"}));
  EXPECT_EQ(system.KillTimer(0, first), 1);
  EXPECT_EQ(system.KillTimer(0, second), 1);
}

TEST_F(WindowSystem_Clock, TimersGoWithTheirWindow) {
  const Long parent = Open(u"parent");
  const Long child = Open(u"child", {}, parent);
  system.SetTimer(child, 1, 10, nullptr);
  system.SetTimer(parent, 1, 10, &Tick);
  system.DestroyWindow(parent);
  EXPECT_EQ(system.LiveTimers(), 0u);
}

TEST_F(WindowSystem_Clock, GetMessageMovesToTheNextEvent) {
  const Long hwnd = Open(u"w");
  Settle();
  system.SetTimer(hwnd, 3, 500, nullptr);
  system.After(200, [&] { Note(Now() + "work"); });
  Message message;
  EXPECT_EQ(system.GetMessageA(message), 1);
  EXPECT_EQ(message.message, 0) << "scheduled work arrives as a message that says nothing";
  EXPECT_EQ(system.Milliseconds(), 200);
  EXPECT_EQ(log, (Log{"200: work"}));
  EXPECT_EQ(system.GetMessageA(message), 1);
  EXPECT_EQ(message.message, wm::kTimer);
  EXPECT_EQ(system.Milliseconds(), 500);
}

// A wait whose end comes while scheduled work pumps messages of its own has to notice.
TEST_F(WindowSystem_Clock, GetMessageReturnsAfterWorkThatDispatchedEverything) {
  const Long hwnd = Open(u"w");
  Settle();
  system.SetTimer(hwnd, 3, 50, nullptr);
  system.After(20, [&] {
    system.Wait(100);
    system.KillTimer(hwnd, 3);
  });
  Message message;
  EXPECT_EQ(system.GetMessageA(message), 1);
  EXPECT_EQ(message.message, 0);
  EXPECT_EQ(system.Milliseconds(), 120);
}

TEST_F(WindowSystem_Clock, AWaitThatOnlyTimersKeepAliveIsStuck) {
  const Long hwnd = Open(u"w");
  Settle();
  system.SetTimer(hwnd, 3, 1000, nullptr);
  Message message;
  const auto waitForAnHour = [&] {
    for (int i = 0; i <= 3600; ++i) system.GetMessageA(message);
  };
  EXPECT_THROW(waitForAnHour(), Stuck);
  system.After(100'000'000, [] {});
  EXPECT_NO_THROW(waitForAnHour()) << "something is still to come";
}

TEST_F(WindowSystem_Clock, DoEventsUntilNextMovesOnlyWhereNothingWaits) {
  const Long hwnd = Open(u"w");
  Settle();
  NoteTimes();
  system.SetTimer(hwnd, 3, 500, nullptr);
  system.Post(hwnd, 1024, 0, 0);
  system.DoEventsUntilNext();
  EXPECT_EQ(log, (Log{"0: w 1024 0"}));
  system.DoEventsUntilNext();
  EXPECT_EQ(log, (Log{"0: w 1024 0", "500: w 275 3"}));
}

TEST_F(WindowSystem_Clock, WaitsNest) {
  const Long hwnd = Open(u"w");
  Settle();
  NoteTimes();
  system.SetTimer(hwnd, 1, 40, nullptr);
  system.After(10, [&] {
    Note(Now() + "in");
    system.Wait(45);
    Note(Now() + "out");
  });
  system.After(30, [&] { Note(Now() + "meanwhile"); });
  system.Wait(90);
  EXPECT_EQ(log, (Log{"10: in", "30: meanwhile", "40: w 275 1", "55: out", "80: w 275 1"}));
  EXPECT_EQ(system.Milliseconds(), 90);
}

TEST_F(WindowSystem_Clock, AnInnerWaitMayOutlastTheOuterOne) {
  system.After(10, [&] { system.Wait(100); });
  system.After(60, [&] { Note(Now() + "work"); });
  system.Wait(50);
  EXPECT_EQ(system.Milliseconds(), 110);
  EXPECT_EQ(log, (Log{"60: work"}));
}

TEST_F(WindowSystem_Clock, AbsurdTimesDoNoHarm) {
  constexpr std::int64_t kLongest = std::numeric_limits<std::int64_t>::max();
  system.After(kLongest, [] {});
  system.Wait(kLongest);
  const std::int64_t now = system.Milliseconds();
  system.Wait(kLongest);
  system.Wait(std::numeric_limits<std::int64_t>::min());
  EXPECT_GE(system.Milliseconds(), now);
}

}  // namespace
}  // namespace strandline::desk
