// Timers on the bar's window: the ad panel's, the strip's one-shots, and those of others.

#include "tests/toolbar/toolbar_fixture.h"

namespace strandline {

struct ToolbarAccess {
  static void SetEpoch(Toolbar& toolbar, Long epoch) { toolbar.epoch = epoch; }
};

namespace {

class HookTimer : public ToolbarTest {
 protected:
  void Hear() {
    trace().Listen(Trace::kProcedures | Trace::kTimers | Trace::kHooks);
    trace().Only({"Buttons.TimerTick", "KillTimer", "SetTimer", "hook message", "word gets"});
  }
  Windows& OfWindows() { return world->desk.Windows(); }
};

struct TimerCase {
  Long id;
  Trace::Lines expected;
};

TEST_F(HookTimer, Hook_ATickOfEachNumber_IsTheAdsNobodysOrAOneShots) {
  BeginWithoutAds();
  const TimerCase cases[] = {
      {0, {"hook message(bar 1, 275, 0, 0)"}},
      {4096, {"Buttons.TimerTick(True)", "hook message(bar 1, 275, 4096, 0) cancelled"}},
      {4095, {"KillTimer(bar 1, 4095)", "Buttons.TimerTick(False)", "hook message(bar 1, 275, 4095, 0) cancelled"}},
      {4097, {"KillTimer(bar 1, 4097)", "Buttons.TimerTick(False)", "hook message(bar 1, 275, 4097, 0) cancelled"}},
      {1, {"KillTimer(bar 1, 1)", "Buttons.TimerTick(False)", "hook message(bar 1, 275, 1, 0) cancelled"}},
      {-1, {"KillTimer(bar 1, -1)", "Buttons.TimerTick(False)", "hook message(bar 1, 275, -1, 0) cancelled"}},
      {65537, {"KillTimer(bar 1, 65537)", "Buttons.TimerTick(False)", "hook message(bar 1, 275, 65537, 0) cancelled"}},
      {69632, {"KillTimer(bar 1, 69632)", "Buttons.TimerTick(False)", "hook message(bar 1, 275, 69632, 0) cancelled"}},
  };
  Hear();
  for (const TimerCase& each : cases) {
    trace().Take();
    world->Send(wm::kTimer, each.id);
    EXPECT_EQ(trace().TakeText(), AsText(each.expected)) << each.id;
  }
}

TEST_F(HookTimer, Hook_ATimerThatSomebodyElseSet_IsKilledAtItsFirstTick) {
  BeginWithToolbar();
  Hear();
  OfWindows().SetTimer(world->Bar(), 7, 50, nullptr);
  ASSERT_EQ(world->desk.Windows().LiveTimers(), 1u);
  world->Wait(400);
  EXPECT_EQ(world->desk.Windows().LiveTimers(), 0u);
  EXPECT_EQ(trace().TakeText(),
            "KillTimer(bar 1, 7)\n"
            "Buttons.TimerTick(False)\n"
            "hook message(bar 1, 275, 7, 0) cancelled\n");
}

TEST_F(HookTimer, Hook_TheTimerOfTheAds_KeepsRunning) {
  BeginWithoutAds();
  Hear();
  OfWindows().SetTimer(world->Bar(), 4096, 100, nullptr);
  world->Wait(350);
  EXPECT_EQ(world->desk.Windows().LiveTimers(), 1u);
  EXPECT_EQ(AsText(Beginning(trace().Take(), "Buttons.")),
            "Buttons.TimerTick(True)\n"
            "Buttons.TimerTick(True)\n"
            "Buttons.TimerTick(True)\n");
  OfWindows().KillTimer(world->Bar(), 4096);
}

TEST_F(HookTimer, Hook_ATimerOfNumber0_TicksOnAtWord) {
  Begin();
  OtherHook underneath(*world, world->Bar());
  MakeToolbar();
  Hear();
  OfWindows().SetTimer(world->Bar(), 0, 100, nullptr);
  world->Wait(250);
  EXPECT_EQ(trace().TakeText(),
            "hook message(bar 1, 275, 0, 0)\n"
            "word gets 275(0, 0)\n"
            "hook message(bar 1, 275, 0, 0)\n"
            "word gets 275(0, 0)\n");
  OfWindows().KillTimer(world->Bar(), 0);
  toolbar = nullptr;
}

TEST_F(HookTimer, Hook_AMoveThatTheStripDoesNotTake_SetsNoTimer) {
  BeginWithToolbar();
  Hear();
  for (Long x = 0; x < 600; x += 20) world->Send(wm::kMouseMove, 0, 65536 * 5 + x);
  EXPECT_EQ(AsText(Beginning(trace().Take(), "SetTimer")), "");
  EXPECT_EQ(world->desk.Windows().LiveTimers(), 0u);
}

TEST_F(HookTimer, HandleMouseMove_OnTheStrip_SetsAOneShotOfANewNumberEachTime) {
  BeginWithToolbar();
  Hear();
  toolbar->HandleMouseMove(false, 20, 20);
  world->Wait(50);
  toolbar->HandleMouseMove(false, 21, 20);
  world->Wait(50);
  toolbar->HandleMouseMove(true, 120, 20);
  EXPECT_EQ(trace().TakeText(),
            "SetTimer(bar 1, 65537, 200)\n"
            "SetTimer(bar 1, 65538, 200)\n"
            "SetTimer(bar 1, 65539, 200)\n");
  // None was put off by the one after it: each runs out 200 ms after its own move, and once.
  world->Wait(99);
  EXPECT_EQ(trace().TakeText(), "");
  world->Wait(1);
  EXPECT_EQ(AsText(Beginning(trace().Take(), "KillTimer")), "KillTimer(bar 1, 65537)\n");
  world->Wait(50);
  EXPECT_EQ(AsText(Beginning(trace().Take(), "KillTimer")), "KillTimer(bar 1, 65538)\n");
  world->Wait(1000);
  EXPECT_EQ(AsText(Beginning(trace().Take(), "KillTimer")), "KillTimer(bar 1, 65539)\n");
  EXPECT_EQ(world->desk.Windows().LiveTimers(), 0u);
}

// The bit is set in the count, not added to it: after 65,536 moves the numbers begin again.
TEST_F(HookTimer, HandleMouseMove_AfterManyMoves_UsesTheNumbersAgain) {
  BeginWithToolbar();
  Hear();
  for (const Long epoch : {0, 65534, 65535, 65536, 131071}) {
    ToolbarAccess::SetEpoch(*toolbar, epoch);
    toolbar->HandleMouseMove(false, 20, 20);
  }
  EXPECT_EQ(trace().TakeText(),
            "SetTimer(bar 1, 65537, 200)\n"
            "SetTimer(bar 1, 131071, 200)\n"
            "SetTimer(bar 1, 65536, 200)\n"
            "SetTimer(bar 1, 65537, 200)\n"
            "SetTimer(bar 1, 196608, 200)\n");
  world->Wait(1000);
}

TEST_F(HookTimer, HandleMouseMove_BeyondTheLastNumber_IsAnErrorAndSetsNoTimer) {
  BeginWithToolbar();
  ToolbarAccess::SetEpoch(*toolbar, 2147483647);
  Hear();
  toolbar->HandleMouseMove(false, 20, 20);
  EXPECT_EQ(AsText(Beginning(trace().Take(), "SetTimer")), "");
  EXPECT_EQ(TakeErrors(), "6 Toolbar.HandleMouseMove\n");
  // Gone on behind it, the count stays where it is.
  world->errors.Answer({Variant(vbwProtector::kIgnore)});
  toolbar->HandleMouseMove(false, 20, 20);
  EXPECT_EQ(AsText(Beginning(trace().Take(), "SetTimer")), "SetTimer(bar 1, 2147483647, 200)\n");
  EXPECT_EQ(TakeErrors(), "6 Toolbar.HandleMouseMove\n");
  world->Wait(1000);
}

}  // namespace
}  // namespace strandline
