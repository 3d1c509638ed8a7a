// Which window is in front, the pointer and its capture.

#include "tests/contract/window_contract.h"

namespace strandline::contract {
namespace {

class ActivationContract : public WindowContract {
 protected:
  // A thread without the foreground's right couldn't take it from a program before.
  ActivationContract() { Host().ActivateWindow(Open(u"ground", {0, 0, 300, 200})); }

  bool IsInFront(Long hwnd) { return windows.GetActiveWindow() == hwnd && windows.GetForegroundWindow() == hwnd; }
};

TEST_F(ActivationContract, AnActivatedWindow_IsActiveInFrontAndOnTop) {
  const Long one = Open(u"one");
  const Long two = Open(u"two");
  Host().ActivateWindow(one);
  EXPECT_TRUE(IsInFront(one));
  EXPECT_EQ(Next(0), one);
  EXPECT_EQ(Next(one), two);
  Host().ActivateWindow(two);
  EXPECT_TRUE(IsInFront(two));
  EXPECT_EQ(Next(0), two);
}

TEST_F(ActivationContract, AChild_ActivatesItsTopLevelWindow) {
  const Long one = Open(u"one");
  const Long child = Open(u"child", {60, 50, 80, 60}, one);
  Open(u"two");
  Host().ActivateWindow(child);
  EXPECT_TRUE(IsInFront(one));
}

TEST_F(ActivationContract, SetForegroundWindow_ActivatesToo) {
  const Long one = Open(u"one");
  const Long two = Open(u"two");
  EXPECT_NE(windows.SetForegroundWindow(one), 0);
  EXPECT_TRUE(IsInFront(one));
  EXPECT_NE(windows.SetForegroundWindow(two), 0);
  EXPECT_TRUE(IsInFront(two));
  EXPECT_NE(windows.SetForegroundWindow(two), 0);
}

TEST_F(ActivationContract, ShowingAWindow_ActivatesItWhereTheCommandSaysSo) {
  const Long front = Open(u"front");
  Host().ActivateWindow(front);
  for (const Long quiet : {4, 7, 8}) {
    const Long hwnd = Hidden(u"quiet");
    windows.ShowWindow(hwnd, quiet);
    EXPECT_TRUE(IsInFront(front)) << quiet;
  }
  for (const Long loud : {1, 3, 5, 9, 10}) {
    const Long hwnd = Hidden(u"loud");
    windows.ShowWindow(hwnd, loud);
    EXPECT_TRUE(IsInFront(hwnd)) << loud;
  }
}

TEST_F(ActivationContract, TheActiveWindowGone_TheNextOfOursIsActive) {
  const Long one = Open(u"one");
  const Long two = Open(u"two");
  const Long three = Open(u"three");
  Host().ActivateWindow(two);
  Host().ActivateWindow(three);
  windows.ShowWindow(three, 0);
  EXPECT_EQ(windows.GetActiveWindow(), two);
  Host().DestroyWindow(two);
  EXPECT_EQ(windows.GetActiveWindow(), one);
}

TEST_F(ActivationContract, Minimised_LeavesTheFront) {
  const Long one = Open(u"one");
  const Long two = Open(u"two");
  Host().ActivateWindow(two);
  windows.ShowWindow(two, 6);
  EXPECT_EQ(windows.GetActiveWindow(), WINE_DIFFERS(one, two));
  windows.ShowWindow(two, 9);
  EXPECT_TRUE(IsInFront(two));
}

TEST_F(ActivationContract, AnotherProgramActive_NoneOfOursIs) {
  const Long one = Open(u"one");
  Host().ActivateWindow(one);
  Host().ActivateWindow(0);
  EXPECT_EQ(windows.GetActiveWindow(), 0);
  const Long other = windows.GetForegroundWindow();
  EXPECT_NE(other, 0);
  EXPECT_NE(other, one);
  EXPECT_NE(windows.GetWindowThreadProcessId(other), windows.GetWindowThreadProcessId(one));
  Host().ActivateWindow(one);
  EXPECT_TRUE(IsInFront(one));
}

TEST_F(ActivationContract, AnotherProgramOverTheScreen_IsInFrontAndGoesAgain) {
  const Long one = Open(u"one");
  Host().ActivateWindow(one);
  Host().CoverScreen(true);
  EXPECT_EQ(windows.GetActiveWindow(), 0);
  const Long other = windows.GetForegroundWindow();
  EXPECT_NE(other, one);
  Rect place;
  Rect screen;
  windows.GetWindowRect(windows.GetDesktopWindow(), screen);
  EXPECT_NE(windows.GetWindowRect(other, place), 0);
  EXPECT_EQ(place, screen);
  EXPECT_NE(windows.IsWindowVisible(other), 0);
  Host().CoverScreen(false);
  EXPECT_TRUE(IsInFront(one));
  EXPECT_EQ(windows.IsWindowVisible(other), 0);
}

TEST_F(ActivationContract, ThreadsThatAreKnown_CanBeAttached) {
  const Long one = Open(u"one");
  Host().ActivateWindow(one);
  Host().ActivateWindow(0);
  const Long ours = windows.GetWindowThreadProcessId(one);
  const Long others = windows.GetWindowThreadProcessId(windows.GetForegroundWindow());
  EXPECT_NE(windows.AttachThreadInput(ours, others, 1), 0);
  EXPECT_NE(windows.SetForegroundWindow(one), 0);
  EXPECT_TRUE(IsInFront(one));
  EXPECT_NE(windows.AttachThreadInput(ours, others, 0), 0);
  EXPECT_EQ(windows.AttachThreadInput(ours, others, 0), 0) << "they aren't attached any more";
  EXPECT_EQ(windows.AttachThreadInput(ours, ours, 1), 0);
  EXPECT_EQ(windows.GetForegroundWindow(), WINE_DIFFERS(one, 0)) << "it stays where the attached threads put it";
}

TEST_F(ActivationContract, ThePointer_StaysOnTheScreen) {
  Point point;
  EXPECT_NE(windows.SetCursorPos(61, 52), 0);
  EXPECT_NE(windows.GetCursorPos(point), 0);
  EXPECT_EQ(point, (Point{61, 52}));
  Rect screen;
  windows.GetWindowRect(windows.GetDesktopWindow(), screen);
  windows.SetCursorPos(-5, screen.bottom + 40);
  windows.GetCursorPos(point);
  EXPECT_EQ(point, (Point{0, screen.bottom - 1}));
}

TEST_F(ActivationContract, AMoveOfThePointer_IsToldToTheWindowUnderIt) {
  const Long one = Open(u"one");
  Host().ActivateWindow(one);
  Host().PlacePointer({5, 5});
  Settle();
  Long place = 0;
  handler = [&](Long hwnd, Long message, Long wParam, Long lParam) {
    if (hwnd == one && message == wm::kMouseMove) place = lParam;
    return Host().DefaultProcedure(hwnd, message, wParam, lParam);
  };
  windows.SetCursorPos(60, 70);
  ASSERT_TRUE(Until([&] { return Count("one 512") > 0; }));
  EXPECT_EQ(place, 30 << 16 | 10);
}

TEST_F(ActivationContract, ThePointerPlaced_IsToldToNobody) {
  const Long one = Open(u"one");
  Host().ActivateWindow(one);
  Host().PlacePointer({5, 5});
  Settle();
  Host().PlacePointer({60, 70});
  Clock().Wait(20);
  EXPECT_EQ(Count("one 512"), 0);
  Point point;
  windows.GetCursorPos(point);
  EXPECT_EQ(point, (Point{60, 70}));
}

TEST_F(ActivationContract, WithTheCapture_AWindowGetsTheMovesOverOthers) {
  const Long one = Open(u"one");
  Open(u"two", {200, 40, 260, 120});
  Host().ActivateWindow(one);
  Host().PlacePointer({60, 50});
  Settle();
  Host().SetCapture(one);
  Long place = 0;
  handler = [&](Long hwnd, Long message, Long wParam, Long lParam) {
    if (hwnd == one && message == wm::kMouseMove) place = lParam;
    return Host().DefaultProcedure(hwnd, message, wParam, lParam);
  };
  windows.SetCursorPos(210, 50);
  ASSERT_TRUE(Until([&] { return Count("one 512") > 0; }));
  EXPECT_EQ(place, 10 << 16 | 160);
  EXPECT_EQ(Count("two 512"), 0);
  windows.ReleaseCapture();
}

TEST_F(ActivationContract, TheCapture_TellsItsFormerHolderOfTheNextOne) {
  const Long one = Open(u"one");
  const Long two = Open(u"two");
  Settle();
  Long next = -1;
  handler = [&](Long hwnd, Long message, Long wParam, Long lParam) {
    if (message == wm::kCaptureChanged) next = lParam;
    return Host().DefaultProcedure(hwnd, message, wParam, lParam);
  };
  EXPECT_EQ(windows.GetCapture(), 0);
  Host().SetCapture(one);
  EXPECT_EQ(windows.GetCapture(), one);
  EXPECT_TRUE(log.empty());
  Host().SetCapture(two);
  EXPECT_EQ(windows.GetCapture(), two);
  EXPECT_EQ(log, (Log{"one 533"}));
  EXPECT_EQ(next, two);
  EXPECT_NE(windows.ReleaseCapture(), 0);
  EXPECT_EQ(windows.GetCapture(), 0);
  EXPECT_EQ(log, (Log{"one 533", "two 533"}));
  EXPECT_EQ(next, 0);
  EXPECT_NE(windows.ReleaseCapture(), 0);
  EXPECT_EQ(log.size(), 2u);
}

TEST_F(ActivationContract, TheCapture_GoesWithItsWindow) {
  const Long one = Open(u"one");
  Host().SetCapture(one);
  Host().DestroyWindow(one);
  EXPECT_EQ(windows.GetCapture(), 0);
}

}  // namespace
}  // namespace strandline::contract
