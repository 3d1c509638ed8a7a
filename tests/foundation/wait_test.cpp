// The wait that keeps the window alive, and the loop under it.

#include "foundation/LanguageExtensions.h"
#include "foundation/SleepReplacement.h"
#include "platform/wrappers/forwarding.h"
#include "tests/foundation/foundation_fixture.h"
#include "tests/foundation/told.h"

namespace strandline {
namespace {

constexpr Long kUser = 0x400;
constexpr Long kFirstId = 442;
constexpr Long kLastId = 6000;

// Writes down the calls that a wait makes.
class NotingWindows final : public ForwardingWindows {
 public:
  using ForwardingWindows::ForwardingWindows;

  Long SetTimer(Long hwnd, Long id, Long milliseconds, TimerProc procedure) override {
    calls.push_back("SetTimer " + std::to_string(milliseconds));
    lastTimer = {hwnd, id};
    isOwnProcedure = procedure == &SleepReplacement::TimerExpired;
    return failsToSetTimers ? 0 : mTarget.SetTimer(hwnd, id, milliseconds, procedure);
  }
  Long KillTimer(Long hwnd, Long id) override {
    calls.push_back(std::pair(hwnd, id) == lastTimer ? "KillTimer" : "KillTimer of another");
    return mTarget.KillTimer(hwnd, id);
  }
  Long GetMessageA(Message& message) override {
    calls.push_back("GetMessageA");
    return mTarget.GetMessageA(message);
  }
  Long TranslateMessage(const Message& message) override {
    calls.push_back("TranslateMessage " + std::to_string(message.message));
    return mTarget.TranslateMessage(message);
  }
  Long DispatchMessageA(const Message& message) override {
    calls.push_back("DispatchMessageA " + std::to_string(message.message));
    return mTarget.DispatchMessageA(message);
  }

  LogLines calls;
  std::pair<Long, Long> lastTimer;
  bool isOwnProcedure = false;
  bool failsToSetTimers = false;
};

class WaitTest : public FoundationTest, public WindowProcedure {
 protected:
  WaitTest() : windows(desk.Windows()) {
    Platform services = desk.Services();
    services.windows = &windows;
    Load(services);
    SleepReplacement::variables = {};
    hwnd = desk.Host().CreateWindowOf(u"Test", u"Test", 0, {0, 0, 10, 10}, this);
  }
  virtual ~WaitTest() { SleepReplacement::variables = {}; }

  // Posts the window a message of its own at that time; the message's handling is the work.
  void At(std::int64_t milliseconds, std::function<void()> work) {
    desk.Clock().After(milliseconds - Now(), [this, work = std::move(work)] {
      mWork.push_back(work);
      desk.Host().Post(hwnd, kUser, static_cast<Long>(mWork.size() - 1), 0);
    });
  }
  Long OnMessage(Long, Long message, Long wParam, Long) override {
    if (message != kUser) return 0;
    const auto work = mWork.at(static_cast<std::size_t>(wParam));  // a copy: more may come while it runs
    work();
    return 0;
  }

  std::int64_t Now() { return desk.Clock().Milliseconds(); }
  void Note(const std::string& what) { notes.push_back(what + " " + std::to_string(Now())); }
  static bool IsWaiting() { return static_cast<bool>(SleepReplacement::variables.mMessageLoop); }

  NotingWindows windows;
  Long hwnd = 0;
  LogLines notes;

 private:
  std::vector<std::function<void()>> mWork;
};

TEST_F(WaitTest, Wait_EndsWhenItsTimerHasFired) {
  SleepReplacement::Wait(50, hwnd);
  EXPECT_EQ(Now(), 50);
  EXPECT_FALSE(IsWaiting());
  EXPECT_EQ(desk.Windows().LiveTimers(), 0u);
  EXPECT_EQ(windows.lastTimer.first, hwnd);
  EXPECT_TRUE(windows.isOwnProcedure);
  EXPECT_EQ(Lines(windows.calls), "SetTimer 50\nGetMessageA\nTranslateMessage 275\nDispatchMessageA 275\nKillTimer\n");
  EXPECT_TRUE(script.log.empty());
  EXPECT_EQ(variables.mStackCalls, 0);
}

TEST_F(WaitTest, WaitOfNoTime_TakesTheShortestPeriodAndRunsThroughTheLoop) {
  At(0, [this] { Note("message"); });
  SleepReplacement::Wait(0, hwnd);
  EXPECT_EQ(Now(), desk::TimerTable::kShortestPeriod);
  EXPECT_EQ(notes, LogLines{"message 0"});
  EXPECT_EQ(Lines(windows.calls),
            "SetTimer 0\nGetMessageA\nTranslateMessage 0\nDispatchMessageA 0\n"
            "GetMessageA\nTranslateMessage 1024\nDispatchMessageA 1024\n"
            "GetMessageA\nTranslateMessage 275\nDispatchMessageA 275\nKillTimer\n");
}

TEST_F(WaitTest, Wait_GoesOnDispatchingMessages) {
  At(10, [this] { Note("one"); });
  At(40, [this] { Note("two"); });
  At(60, [this] { Note("too late"); });
  SleepReplacement::Wait(50, hwnd);
  Note("returned");
  EXPECT_EQ(notes, (LogLines{"one 10", "two 40", "returned 50"}));
}

TEST_F(WaitTest, Waits_FollowEachOther) {
  SleepReplacement::Wait(50, hwnd);
  SleepReplacement::Wait(20, hwnd);
  EXPECT_EQ(Now(), 70);
  EXPECT_EQ(desk.Windows().LiveTimers(), 0u);
}

TEST_F(WaitTest, WaitWithinAWait_BeginsWhenTheOuterIsOver) {
  At(20, [this] {
    Note("inner begins");
    SleepReplacement::Wait(30, hwnd);
    Note("inner returns");
  });
  At(45, [this] { Note("message"); });
  At(70, [this] { Note("message"); });
  SleepReplacement::Wait(50, hwnd);
  Note("outer returns");
  EXPECT_EQ(notes, (LogLines{"inner begins 20", "message 45", "message 70", "inner returns 80", "outer returns 80"}));
  EXPECT_FALSE(IsWaiting());
  EXPECT_EQ(desk.Windows().LiveTimers(), 0u);
}

TEST_F(WaitTest, WaitWithinAWait_SetsNoTimerBeforeTheOuterIsOver) {
  At(20, [this] { SleepReplacement::Wait(30, hwnd); });
  At(49, [this] { EXPECT_EQ(desk.Windows().LiveTimers(), 1u); });
  At(51, [this] { EXPECT_EQ(desk.Windows().LiveTimers(), 1u); });
  SleepReplacement::Wait(50, hwnd);
  LogLines timers;
  for (const std::string& call : windows.calls) {
    if (call.find("Timer") != call.npos) timers.push_back(call);
  }
  EXPECT_EQ(timers, (LogLines{"SetTimer 50", "KillTimer", "SetTimer 30", "KillTimer"}));
}

TEST_F(WaitTest, ThreeWaitsWithinEachOther_RunOneAfterTheOther) {
  At(10, [this] {
    SleepReplacement::Wait(20, hwnd);
    Note("second returns");
  });
  At(15, [this] {
    SleepReplacement::Wait(40, hwnd);
    Note("third returns");
  });
  SleepReplacement::Wait(50, hwnd);
  Note("first returns");
  // The third came last into the spin of the second, so its spin is the one that sees the first's end.
  EXPECT_EQ(notes, (LogLines{"third returns 90", "second returns 110", "first returns 110"}));
  EXPECT_FALSE(IsWaiting());
}

TEST_F(WaitTest, FailingTimer_LeavesAWaitThatNeverEnds) {
  windows.failsToSetTimers = true;
  try {
    SleepReplacement::Wait(50, hwnd);
    FAIL() << "the wait ended";
  } catch (const desk::Stuck& stuck) {
    EXPECT_NE(stuck.where.find("GetMessageA"), std::string::npos) << stuck.where;
  }
  EXPECT_TRUE(IsWaiting());
  EXPECT_TRUE(script.log.empty());
}

TEST_F(WaitTest, FailingTimer_LeavesAWaitThatQuittingEnds) {
  windows.failsToSetTimers = true;
  At(30, [this] { desk.Host().PostQuitMessage(); });
  SleepReplacement::Wait(10, hwnd);
  EXPECT_EQ(Now(), 30);
  EXPECT_TRUE(IsWaiting());
}

TEST_F(WaitTest, WindowThatIsGone_HasNoTimer) {
  desk.Host().DestroyWindow(hwnd);
  EXPECT_THROW(SleepReplacement::Wait(50, hwnd), desk::Stuck);
}

TEST_F(WaitTest, Quitting_EndsTheWaitAndLeavesItStanding) {
  At(20, [this] { desk.Host().PostQuitMessage(); });
  At(40, [this] { Note("later"); });
  SleepReplacement::Wait(50, hwnd);
  EXPECT_EQ(Now(), 20);
  EXPECT_TRUE(IsWaiting());
  EXPECT_TRUE(notes.empty());

  // The next one spins until the timer that is left fires, and then has its own time; the wish to quit was used up.
  SleepReplacement::Wait(30, hwnd);
  EXPECT_EQ(notes, LogLines{"later 40"});
  EXPECT_EQ(Now(), 80);
  EXPECT_FALSE(IsWaiting());
  EXPECT_EQ(desk.Windows().LiveTimers(), 0u);
}

TEST_F(WaitTest, WaitAfterQuitting_SpinsWithoutEndWhenTheTimerIsGone) {
  At(20, [this] { desk.Host().PostQuitMessage(); });
  SleepReplacement::Wait(50, hwnd);
  windows.KillTimer(windows.lastTimer.first, windows.lastTimer.second);
  windows.calls.clear();
  try {
    SleepReplacement::Wait(30, hwnd);
    FAIL() << "the wait ended";
  } catch (const desk::Stuck& stuck) {
    EXPECT_NE(stuck.where.find("DoEventsUntilNext"), std::string::npos) << stuck.where;
  }
  EXPECT_TRUE(windows.calls.empty());
}

TEST_F(WaitTest, LateTimer_IsNotKilledAndDoesNothing) {
  windows.SetTimer(hwnd, 500, 10, &SleepReplacement::TimerExpired);
  windows.calls.clear();
  desk.Clock().Wait(35);
  SleepReplacement::TimerExpired(hwnd, wm::kTimer, 500, 0);
  EXPECT_TRUE(windows.calls.empty());
  EXPECT_EQ(desk.Windows().LiveTimers(), 1u);
  EXPECT_FALSE(IsWaiting());
}

TEST_F(WaitTest, AnyTimerOfTheWaits_EndsTheOneInProgress) {
  windows.SetTimer(hwnd, 100, 20, &SleepReplacement::TimerExpired);
  SleepReplacement::Wait(50, hwnd);
  EXPECT_EQ(Now(), 20);
  EXPECT_EQ(windows.calls.back(), "KillTimer of another");
  // The wait's own is left, late from now on.
  EXPECT_EQ(desk.Windows().LiveTimers(), 1u);
  desk.Clock().Wait(200);
  EXPECT_EQ(desk.Windows().LiveTimers(), 1u);
}

TEST_F(WaitTest, TimerId_LiesInItsRangeAndComesFromTheClock) {
  std::map<Long, int> ids;
  for (int second = 0; second < 400; ++second) {
    SleepReplacement::Wait(1000, hwnd);
    const Long id = windows.lastTimer.second;
    EXPECT_GE(id, kFirstId);
    EXPECT_LE(id, kLastId);
    ++ids[id];
  }
  EXPECT_GT(ids.size(), 300u);
  EXPECT_LT(ids.begin()->first, kFirstId + 500);
  EXPECT_GT(ids.rbegin()->first, kLastId - 500);
}

TEST_F(WaitTest, TimerIdInUse_IsTakenAllTheSame) {
  const Long id = LanguageExtensions::RandomNumber(kFirstId, kLastId);
  windows.SetTimer(hwnd, id, 15, nullptr);
  SleepReplacement::Wait(50, hwnd);
  EXPECT_EQ(windows.lastTimer.second, id);
  EXPECT_EQ(Now(), 50);
  EXPECT_EQ(desk.Windows().LiveTimers(), 0u);
}

TEST_F(WaitTest, Loop_EndsAfterTheMessageThatAsksForIt) {
  const auto loop = New<MessageLoop>();
  ToldVariables during;
  loop->ExitBlockingLoop();  // before the loop: forgotten when it begins
  for (const char* name : {"one", "two", "three"}) {
    At(0, [this, loop, name, &during] {
      Note(name);
      if (std::string(name) != "two") return;
      loop->ReportVariables(during);
      loop->ExitBlockingLoop();
    });
  }
  loop->EnterBlockingLoop();
  EXPECT_EQ(notes, (LogLines{"one 0", "two 0"}));
  EXPECT_EQ(during.OneLine(), "mFinishedBlocking=False mInBlockingLoop=True");
  ToldVariables after;
  loop->ReportVariables(after);
  EXPECT_EQ(after.OneLine(), "mFinishedBlocking=True mInBlockingLoop=False");
  desk.Windows().DoEvents();
  EXPECT_EQ(notes.back(), "three 0");
}

TEST_F(WaitTest, Loop_ConsumesTheWishToQuit) {
  const auto loop = New<MessageLoop>();
  desk.Host().PostQuitMessage();
  loop->EnterBlockingLoop();
  ToldVariables after;
  loop->ReportVariables(after);
  EXPECT_EQ(after.OneLine(), "mFinishedBlocking=False mInBlockingLoop=False");
  EXPECT_EQ(Lines(windows.calls), "GetMessageA\n");
  EXPECT_THROW(loop->EnterBlockingLoop(), desk::Stuck);
}

TEST_F(WaitTest, Wait_IsTracedWithItsParameters) {
  vbwProtector::variables.vbwTraceParameters = true;
  ToldProcedures told;
  SleepReplacement::Wait(50, hwnd);
  EXPECT_EQ(told.calls.front(), "SleepReplacement.Wait(timeInMs=50 hwnd=" + std::to_string(hwnd) + ")");
  LogLines names;
  for (const std::string& call : told.calls) names.push_back(call.substr(0, call.find('(')));
  EXPECT_EQ(Lines(names),
            "SleepReplacement.Wait\nLanguageExtensions.RandomNumber\nMessageLoop.EnterBlockingLoop\n"
            "SleepReplacement.TimerExpired\nMessageLoop.ExitBlockingLoop\nMessageLoop.Class_Terminate\n"
            "MessageLoop.ExitBlockingLoop\n");
  EXPECT_EQ(told.calls[3], "SleepReplacement.TimerExpired(hwnd=" + std::to_string(hwnd) +
                               " uint1=275 nEventId=" + std::to_string(windows.lastTimer.second) + " dwParam=50)");
}

TEST_F(WaitTest, Report_ShowsTheLoopOfTheWaitInProgress) {
  ToldVariables before, during;
  SleepReplacement::ReportModule(before);
  At(10, [&] { SleepReplacement::ReportModule(during); });
  SleepReplacement::Wait(50, hwnd);
  EXPECT_EQ(before.OneLine(), "mMessageLoop=Nothing");
  EXPECT_EQ(during.OneLine(), "mMessageLoop=object");
}

}  // namespace
}  // namespace strandline
