// Windows: made, found, named, placed, shown and ended.

#include "tests/contract/window_contract.h"

namespace strandline::contract {
namespace {

Long Sum(const Point& point) { return point.x * 1000 + point.y; }

TEST_F(WindowContract, FoundByClassAndTitle) {
  const Long first = Open(u"Contract first \u00E4");
  const Long second = Open(u"Contract second");
  const String type = kWindowClass;
  const String otherType = u"StrandlineContractOther";
  const String title = u"Contract first \u00E4";
  const String shouted = u"CONTRACT SECOND";
  const String absent = u"Contract third";
  EXPECT_EQ(windows.FindWindowA(&type, &title), first);
  EXPECT_EQ(windows.FindWindowA(nullptr, &title), first);
  EXPECT_EQ(windows.FindWindowA(&type, &shouted), second);
  EXPECT_EQ(windows.FindWindowA(&type, &absent), 0);
  EXPECT_EQ(windows.FindWindowA(&otherType, &title), 0);
  EXPECT_EQ(Next(0), second);
  EXPECT_EQ(Next(second), first);
  EXPECT_EQ(Next(first), 0);
}

TEST_F(WindowContract, Children_AreFoundBelowTheirParentAlone) {
  const Long top = Open(u"top");
  const Long child = Open(u"child", {60, 50, 80, 60}, top);
  const Long inner = Open(u"inner", {60, 50, 70, 55}, child);
  const String title = u"inner";
  EXPECT_EQ(Next(0, top), child);
  EXPECT_EQ(Next(child, top), 0);
  EXPECT_EQ(windows.FindWindowExA(child, 0, nullptr, &title), inner);
  EXPECT_EQ(windows.FindWindowExA(top, 0, nullptr, &title), 0);
  EXPECT_EQ(windows.FindWindowExA(top, inner, nullptr, nullptr), 0) << "no child of that parent";
  EXPECT_EQ(windows.FindWindowA(nullptr, &title), 0);
}

TEST_F(WindowContract, ANewChild_IsOnTopAndOthersCanBeBroughtThere) {
  const Long top = Open(u"top");
  const Long one = Open(u"one", {60, 50, 80, 60}, top);
  const Long two = Hidden(u"two", {60, 50, 80, 60}, top);
  const Long three = Open(u"three", {60, 50, 80, 60}, top);
  EXPECT_EQ(Next(0, top), three);
  EXPECT_EQ(Next(three, top), two);
  EXPECT_EQ(Next(two, top), one);
  EXPECT_EQ(Next(one, top), 0);
  Host().BringWindowToTop(one);
  EXPECT_EQ(Next(0, top), one);
  EXPECT_EQ(Next(one, top), three);
  EXPECT_EQ(Next(three, top), two);
}

TEST_F(WindowContract, HiddenAndMinimisedOnes_AreFoundToo) {
  const Long hidden = Hidden(u"Contract hidden");
  const Long minimised = Open(u"Contract minimised");
  windows.ShowWindow(minimised, 7);
  const String type = kWindowClass;
  for (const auto& [title, hwnd] : {std::pair<String, Long>{u"Contract hidden", hidden},
                                    std::pair<String, Long>{u"Contract minimised", minimised}}) {
    EXPECT_EQ(windows.FindWindowA(&type, &title), hwnd);
  }
}

TEST_F(WindowContract, TheTitle_IsCutToItsLimit) {
  const Long hwnd = Open(u"first title");
  EXPECT_EQ(windows.GetWindowTextA(hwnd, 512), u"first title");
  EXPECT_EQ(windows.GetWindowTextA(hwnd, 6), u"first");
  EXPECT_EQ(windows.GetWindowTextA(hwnd, 1), u"");
  EXPECT_EQ(windows.GetWindowTextA(hwnd, 0), u"");
  for (const std::size_t length : {510u, 511u, 512u, 600u}) {
    const String title = std::u16string(length - 1, u'a') + u"z";
    Host().SetTitle(hwnd, title);
    EXPECT_EQ(windows.GetWindowTextA(hwnd, 512), String(title.View().substr(0, 511))) << length;
    EXPECT_EQ(windows.FindWindowA(nullptr, &title), hwnd);
  }
  Host().SetTitle(hwnd, u"");
  EXPECT_EQ(windows.GetWindowTextA(hwnd, 512), u"");
}

TEST_F(WindowContract, PlacesAndPoints_GoByTheScreen) {
  const Long top = Open(u"top");
  const Long child = Open(u"child", {60, 55, 90, 75}, top);
  Rect place;
  EXPECT_NE(windows.GetWindowRect(child, place), 0);
  EXPECT_EQ(place, (Rect{60, 55, 90, 75}));
  Point point{61, 57};
  EXPECT_NE(windows.ScreenToClient(child, point), 0);
  EXPECT_EQ(Sum(point), Sum({1, 2}));
  EXPECT_NE(windows.ClientToScreen(child, point), 0);
  EXPECT_EQ(Sum(point), Sum({61, 57}));
  point = {0, 0};
  windows.ScreenToClient(child, point);
  EXPECT_EQ(point, (Point{-60, -55}));

  Host().MoveWindow(top, {150, 140, 270, 220});
  windows.GetWindowRect(child, place);
  EXPECT_EQ(place, (Rect{160, 155, 190, 175})) << "children move along";
  Host().MoveWindow(child, {155, 145, 165, 150});
  windows.GetWindowRect(child, place);
  EXPECT_EQ(place, (Rect{155, 145, 165, 150}));
}

TEST_F(WindowContract, AChangeOfSize_IsToldAndOneOfPlaceIsnt) {
  const Long hwnd = Open(u"one");
  Settle();
  Long packed = 0;
  handler = [&](Long window, Long message, Long wParam, Long lParam) {
    if (message == wm::kSize) packed = lParam;
    return Host().DefaultProcedure(window, message, wParam, lParam);
  };
  Host().MoveWindow(hwnd, {60, 50, 180, 130});
  EXPECT_EQ(Count("one 5"), 0);
  Host().MoveWindow(hwnd, {60, 50, 260, 80});
  EXPECT_EQ(Count("one 5"), 1);
  EXPECT_EQ(packed, 30 << 16 | 200);
}

TEST_F(WindowContract, Shown_IsVisibleWithAllAboveIt) {
  const Long top = Hidden(u"top");
  const Long child = Hidden(u"child", {60, 50, 80, 60}, top);
  EXPECT_EQ(windows.IsWindowVisible(top), 0);
  EXPECT_EQ(windows.ShowWindow(child, kShowInPlace), 0) << "wasn't visible before";
  EXPECT_EQ(windows.IsWindowVisible(child), 0) << "its parent isn't";
  EXPECT_EQ(windows.ShowWindow(top, kShowInPlace), 0);
  EXPECT_NE(windows.IsWindowVisible(top), 0);
  EXPECT_NE(windows.IsWindowVisible(child), 0);
  EXPECT_NE(windows.ShowWindow(top, 0), 0) << "was visible before";
  EXPECT_EQ(windows.IsWindowVisible(child), 0);
}

TEST_F(WindowContract, Minimised_IsIconicUntilRestored) {
  const Long hwnd = Open(u"one");
  const Long other = Open(u"other");
  for (const Long minimise : {2, 6, 7}) {
    windows.ShowWindow(hwnd, minimise);
    EXPECT_NE(windows.IsIconic(hwnd), 0) << minimise;
    EXPECT_NE(windows.IsWindowVisible(hwnd), 0) << minimise;
    windows.ShowWindow(hwnd, 9);
    EXPECT_EQ(windows.IsIconic(hwnd), 0) << minimise;
    Rect place;
    windows.GetWindowRect(hwnd, place);
    EXPECT_EQ(place, kPlace) << minimise;
  }
  EXPECT_EQ(windows.IsIconic(other), 0);
}

TEST_F(WindowContract, Ended_TellsTheWindowAndThenThoseUnderIt) {
  const Long top = Open(u"top");
  const Long child = Open(u"child", {60, 50, 80, 60}, top);
  Open(u"inner", {60, 50, 70, 55}, child);
  Settle();
  Host().DestroyWindow(top);
  EXPECT_EQ(log, (Log{"top 2", "child 2", "inner 2"}));
  Rect place{1, 2, 3, 4};
  EXPECT_EQ(windows.GetWindowRect(child, place), 0);
  EXPECT_EQ(place, (Rect{1, 2, 3, 4}));
}

TEST_F(WindowContract, WhatIsNoWindow_GivesNothing) {
  const Long gone = Open(u"gone");
  Host().DestroyWindow(gone);
  log.clear();
  for (const Long hwnd : {gone, Long{0x7FFFFFF0}}) {
    Rect place{1, 2, 3, 4};
    Point point{5, 6};
    EXPECT_EQ(windows.GetWindowRect(hwnd, place), 0);
    EXPECT_EQ(windows.ScreenToClient(hwnd, point), 0);
    EXPECT_EQ(windows.ClientToScreen(hwnd, point), 0);
    EXPECT_EQ(point, (Point{5, 6}));
    EXPECT_EQ(windows.IsWindowVisible(hwnd), 0);
    EXPECT_EQ(windows.IsIconic(hwnd), 0);
    EXPECT_EQ(windows.ShowWindow(hwnd, 5), 0);
    EXPECT_EQ(windows.SetForegroundWindow(hwnd), 0);
    EXPECT_EQ(windows.GetWindowThreadProcessId(hwnd), 0);
    EXPECT_EQ(windows.GetWindowTextA(hwnd, 512), u"");
    EXPECT_EQ(windows.FindWindowExA(hwnd, 0, nullptr, nullptr), 0);
    EXPECT_EQ(graphics.GetDC(hwnd), 0);
    EXPECT_EQ(Host().CreateWindowOf(kWindowClass, u"orphan", hwnd, kPlace, nullptr), 0);
    Host().SetTitle(hwnd, u"x");
    Host().MoveWindow(hwnd, kPlace);
    Host().BringWindowToTop(hwnd);
    Host().InvalidateWindow(hwnd);
    Host().Post(hwnd, kOwnMessage, 0, 0);
    Host().DestroyWindow(hwnd);
  }
  windows.DoEvents();
  EXPECT_TRUE(log.empty());
}

TEST_F(WindowContract, WindowsOfOneThread_TellTheSame) {
  const Long one = Open(u"one");
  const Long two = Open(u"two", {60, 50, 80, 60}, one);
  EXPECT_NE(windows.GetWindowThreadProcessId(one), 0);
  EXPECT_EQ(windows.GetWindowThreadProcessId(one), windows.GetWindowThreadProcessId(two));
  EXPECT_NE(windows.GetDesktopWindow(), 0);
  EXPECT_NE(windows.GetWindowThreadProcessId(windows.GetDesktopWindow()), windows.GetWindowThreadProcessId(one));
}

TEST_F(WindowContract, TheDesktop_ReachesOverTheScreen) {
  Rect screen;
  ASSERT_NE(windows.GetWindowRect(windows.GetDesktopWindow(), screen), 0);
  EXPECT_EQ(screen.left, 0);
  EXPECT_EQ(screen.top, 0);
  EXPECT_GE(screen.right, 640);
  EXPECT_GE(screen.bottom, 480);
}

}  // namespace
}  // namespace strandline::contract
