#include "tests/desk/window_system_fixture.h"

namespace strandline::desk {
namespace {

constexpr Long kUser = 1024;

class WindowSystem_Messages : public WindowSystemTest {
 protected:
  // The thread's messages as a loop of its own gets them, until a WM_QUIT or so many.
  Log Loop(int count) {
    Log got;
    Message message;
    while (count-- > 0) {
      const Long result = system.GetMessageA(message);
      got.push_back(NameOf(message.hwnd) + " " + std::to_string(message.message) + " " +
                    std::to_string(message.wParam));
      if (result == 0) break;
      system.TranslateMessage(message);
      system.DispatchMessageA(message);
    }
    return got;
  }
};

TEST_F(WindowSystem_Messages, ASentMessageRunsAtOnceAndAnswers) {
  const Long hwnd = Open(u"w");
  Settle();
  handler = [&](Long target, Long message, Long wParam, Long) {
    if (message == kUser) return 1 + system.SendMessageA(target, kUser + 1, wParam * 2, 0);
    return wParam;
  };
  EXPECT_EQ(system.SendMessageA(hwnd, kUser, 20, 7), 41);
  EXPECT_EQ(log, (Log{"w 1024 20 7", "w 1025 40 0"}));
}

TEST_F(WindowSystem_Messages, ComeByRank) {
  const Long hwnd = Open(u"w");
  Settle();
  system.SetTimer(hwnd, 9, 10, nullptr);
  system.After(10, [&] {
    system.InvalidateWindow(hwnd);
    system.PostQuitMessage();
    system.PostInput(hwnd, wm::kLButtonDown, 1, 0);
    system.PostInput(hwnd, wm::kLButtonUp, 0, 0);
    system.Post(hwnd, kUser, 1, 0);
    system.Post(hwnd, kUser, 2, 0);
    system.After(0, [&] { system.Post(hwnd, kUser, 3, 0); });
  });
  EXPECT_EQ(Loop(100), (Log{" 0 0", "w 1024 1", "w 1024 2", "w 1024 3", " 18 0"})) << "the quit ends the loop";
  EXPECT_EQ(Loop(4), (Log{"w 513 1", "w 514 0", "w 15 0", "w 275 9"})) << "the quit was used up";
}

TEST_F(WindowSystem_Messages, AMessageTellsTimeAndPointer) {
  const Long hwnd = Open(u"w");
  Settle();
  system.Wait(77);
  system.PlacePointer({3, 4});
  system.Post(hwnd, kUser, 1, 2);
  Message message;
  EXPECT_EQ(system.GetMessageA(message), 1);
  EXPECT_EQ(message.hwnd, hwnd);
  EXPECT_EQ(message.lParam, 2);
  EXPECT_EQ(message.time, 77);
  EXPECT_EQ(message.pt, (Point{3, 4}));
}

TEST_F(WindowSystem_Messages, DoEventsRunsWhatIsReadyAndLeavesTheQuit) {
  const Long hwnd = Open(u"w");
  Settle();
  system.SetTimer(hwnd, 1, 10, nullptr);
  system.PostQuitMessage();
  system.Post(hwnd, kUser, 1, 0);
  system.InvalidateWindow(hwnd);
  bool worked = false;
  system.After(0, [&] { worked = true; });
  handler = [&](Long target, Long message, Long wParam, Long lParam) {
    if (message == kUser && wParam == 1) system.Post(target, kUser, 2, 0);
    return system.DefaultProcedure(target, message, wParam, lParam);
  };
  system.DoEvents();
  EXPECT_TRUE(worked);
  EXPECT_EQ(log, (Log{"w 1024 1 0", "w 1024 2 0", "w 15 0 0"}));
  EXPECT_EQ(system.Milliseconds(), 0);
  Message message;
  EXPECT_EQ(system.GetMessageA(message), 0);
}

TEST_F(WindowSystem_Messages, MessagesForAWindowThatIsGoneAreLost) {
  const Long gone = Open(u"gone");
  const Long there = Open(u"there");
  Settle();
  system.Post(gone, kUser, 1, 0);
  system.PostInput(gone, wm::kMouseMove, 0, 0);
  system.Post(there, kUser, 2, 0);
  system.Post(0, kUser, 3, 0);
  system.DestroyWindow(gone);
  log.clear();
  EXPECT_EQ(Loop(2), (Log{"there 1024 2", " 1024 3"}));
  EXPECT_THROW(Loop(1), Stuck);
}

TEST_F(WindowSystem_Messages, AWindowMayGoWhileItHandlesAMessage) {
  const Long hwnd = Open(u"w");
  Settle();
  handler = [&](Long, Long message, Long, Long) {
    if (message == kUser) system.DestroyWindow(hwnd);
    return 7;
  };
  EXPECT_EQ(system.SendMessageA(hwnd, kUser, 0, 0), 7);
  EXPECT_EQ(system.SendMessageA(hwnd, kUser, 0, 0), 0);
}

TEST_F(WindowSystem_Messages, TheQueueHasAnEnd) {
  const Long hwnd = Open(u"w");
  Settle();
  for (Long i = 0; i < 20'000; ++i) system.Post(hwnd, kUser, i, 0);
  system.DoEvents();
  EXPECT_EQ(log.size(), MessageQueue::kLongest);
  EXPECT_EQ(log.back(), "w 1024 9999 0") << "those beyond are lost, not those before";
}

TEST_F(WindowSystem_Messages, AWaitForNothingIsStuckAndSaysSo) {
  Message message;
  try {
    system.GetMessageA(message);
    FAIL() << "came back";
  } catch (const Stuck& stuck) {
    EXPECT_EQ(stuck.where, "GetMessageA waits, and no timer, message or scheduled work will ever come");
  }
  EXPECT_THROW(system.DoEventsUntilNext(), Stuck);
  EXPECT_EQ(system.Milliseconds(), 0);
}

TEST_F(WindowSystem_Messages, APaintThatNeverValidatesIsStuck) {
  const Long hwnd = Open(u"lazy");
  handler = [](Long, Long, Long, Long) { return 0; };
  try {
    system.DoEvents();
    FAIL() << "came back";
  } catch (const Stuck& stuck) {
    EXPECT_NE(stuck.where.find("lazy"), std::string::npos) << stuck.where;
  }
  EXPECT_EQ(log.size(), static_cast<std::size_t>(WindowSystem::kPaintStorm));
  handler = nullptr;
  system.Validate(hwnd);
  system.InvalidateWindow(hwnd);
  EXPECT_NO_THROW(system.DoEvents());
}

TEST_F(WindowSystem_Messages, APaintIsAskedForAgainUntilItValidates) {
  Open(u"w");
  int ignored = 3;
  handler = [&](Long hwnd, Long message, Long wParam, Long lParam) {
    return ignored-- > 0 ? 0 : system.DefaultProcedure(hwnd, message, wParam, lParam);
  };
  system.DoEvents();
  EXPECT_EQ(log.size(), 4u);
}

TEST_F(WindowSystem_Messages, PaintsAtDifferentTimesAreNoStorm) {
  const Long hwnd = Open(u"slow");
  int left = WindowSystem::kPaintStorm / 2 + 1;
  handler = [&](Long target, Long, Long, Long) {
    if (--left == 0) system.ShowWindow(target, 0);
    return 0;
  };
  system.DoEvents();
  EXPECT_EQ(left, 0);
  system.Wait(1);
  left = WindowSystem::kPaintStorm / 2 + 1;
  system.ShowWindow(hwnd, 8);
  EXPECT_NO_THROW(system.DoEvents());
  EXPECT_EQ(left, 0);
}

TEST_F(WindowSystem_Messages, MessagesWithoutEndAreStuck) {
  const Long hwnd = Open(u"w");
  Settle();
  handler = [&](Long target, Long message, Long, Long) {
    log.clear();
    system.Post(target, message, 0, 0);
    return 0;
  };
  system.Post(hwnd, kUser, 0, 0);
  EXPECT_THROW(system.DoEvents(), Stuck);
}

TEST_F(WindowSystem_Messages, MessagesNestedWithoutEndAreStuck) {
  const Long hwnd = Open(u"w");
  Settle();
  handler = [&](Long target, Long message, Long wParam, Long lParam) {
    return system.SendMessageA(target, message, wParam, lParam);
  };
  EXPECT_THROW(system.SendMessageA(hwnd, kUser, 0, 0), Stuck);
  EXPECT_EQ(log.size(), static_cast<std::size_t>(WindowSystem::kDeepestNesting));
  handler = nullptr;
  EXPECT_NO_THROW(system.SendMessageA(hwnd, kUser, 0, 0)) << "the depth is counted down again";
}

}  // namespace
}  // namespace strandline::desk
