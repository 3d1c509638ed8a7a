#include <limits>

#include "tests/desk/window_system_fixture.h"

namespace strandline::desk {
namespace {

using WindowSystem_Windows = WindowSystemTest;

TEST_F(WindowSystem_Windows, FindsChildrenFromTheTopDown) {
  const Long parent = Open(u"parent");
  const Long lower = system.CreateWindowOf(u"Bar", u"One", parent, {}, nullptr);
  const Long other = system.CreateWindowOf(u"Dock", u"One", parent, {}, nullptr);
  const Long upper = system.CreateWindowOf(u"bar", u"Two", parent, {}, nullptr);
  const String bar = u"BAR";
  const String one = u"ONE";
  const String empty;
  struct {
    Long parent, after;
    const String *className, *title;
    Long found;
  } const rows[] = {
      {parent, 0, nullptr, nullptr, upper},     {parent, upper, nullptr, nullptr, other},
      {parent, other, nullptr, nullptr, lower}, {parent, lower, nullptr, nullptr, 0},
      {parent, 0, &bar, nullptr, upper},        {parent, upper, &bar, nullptr, lower},
      {parent, 0, nullptr, &one, other},        {parent, 0, &bar, &one, lower},
      {parent, 0, &empty, nullptr, 0},          {parent, 0, nullptr, &empty, 0},
      {parent, parent, nullptr, nullptr, 0},    {parent, 12345, nullptr, nullptr, 0},
      {12345, 0, nullptr, nullptr, 0},          {system.GetDesktopWindow(), 0, &bar, nullptr, 0},
      {0, 0, nullptr, nullptr, parent},         {system.GetDesktopWindow(), 0, nullptr, nullptr, parent},
      {lower, 0, nullptr, nullptr, 0},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(system.FindWindowExA(row.parent, row.after, row.className, row.title), row.found) << &row - rows;
  }
}

TEST_F(WindowSystem_Windows, FindWindowLooksAtTopLevelWindowsOnly) {
  const Long top = Open(u"top");
  const Long child = Open(u"child", {}, top);
  const String childTitle = u"child";
  const String topTitle = u"TOP";
  EXPECT_NE(child, 0);
  EXPECT_EQ(system.FindWindowA(nullptr, &childTitle), 0);
  EXPECT_EQ(system.FindWindowA(nullptr, &topTitle), top);
}

TEST_F(WindowSystem_Windows, TheOrderFollowsBringingToTheTop) {
  const Long first = Open(u"first");
  const Long second = Open(u"second");
  EXPECT_EQ(system.FindWindowExA(0, 0, nullptr, nullptr), second);
  system.BringWindowToTop(first);
  EXPECT_EQ(system.FindWindowExA(0, 0, nullptr, nullptr), first);
  EXPECT_EQ(system.FindWindowExA(0, first, nullptr, nullptr), second);
}

TEST_F(WindowSystem_Windows, TheTitleEndsBeforeTheLimit) {
  const Long hwnd = Open(u"title");
  const struct {
    Long limit;
    const char16_t* text;
  } rows[] = {{100, u"title"}, {6, u"title"}, {5, u"titl"}, {2, u"t"}, {1, u""}, {0, u""}, {-7, u""}};
  for (const auto& row : rows) EXPECT_EQ(system.GetWindowTextA(hwnd, row.limit), row.text) << row.limit;
  system.SetTitle(hwnd, u"other");
  EXPECT_EQ(system.GetWindowTextA(hwnd, 100), u"other");
}

TEST_F(WindowSystem_Windows, AChildIsVisibleWithItsAncestors) {
  const Long top = Hidden(u"top");
  const Long child = Open(u"child", {}, top);
  EXPECT_FALSE(system.IsWindowVisible(child));
  EXPECT_EQ(system.ShowWindow(top, 8), 0);
  EXPECT_TRUE(system.IsWindowVisible(child));
  EXPECT_EQ(system.ShowWindow(top, 0), 1);
  EXPECT_FALSE(system.IsWindowVisible(child));
}

TEST_F(WindowSystem_Windows, ChildrenMoveAlong) {
  const Long top = Open(u"top", {10, 10, 60, 60});
  const Long child = Open(u"child", {20, 30, 40, 50}, top);
  const Long grandchild = Open(u"grandchild", {21, 31, 22, 32}, child);
  Settle();
  system.MoveWindow(top, {15, 8, 65, 58});
  Rect rectangle;
  EXPECT_TRUE(system.GetWindowRect(child, rectangle));
  EXPECT_EQ(rectangle, (Rect{25, 28, 45, 48}));
  EXPECT_TRUE(system.GetWindowRect(grandchild, rectangle));
  EXPECT_EQ(rectangle, (Rect{26, 29, 27, 30}));
  EXPECT_EQ(log, Log()) << "a move alone brings no message at once";
}

TEST_F(WindowSystem_Windows, ANewSizeIsToldAndPaintedAnew) {
  const Long hwnd = Open(u"w", {10, 10, 60, 60});
  Settle();
  system.MoveWindow(hwnd, {10, 10, 60, 50});
  EXPECT_EQ(log, (Log{"w 5 0 " + std::to_string(40 << 16 | 50)}));
  EXPECT_EQ(system.UpdateRegion(hwnd).Bounds(), (Clip{0, 0, 50, 40}));
}

TEST_F(WindowSystem_Windows, AWindowGoesAfterItAndItsChildrenHaveHeard) {
  const Long top = Open(u"top");
  const Long child = Open(u"child", {}, top);
  const Long grandchild = Open(u"grandchild", {}, child);
  Settle();
  handler = [&](Long hwnd, Long, Long, Long) {
    for (const Long each : {top, child, grandchild}) EXPECT_TRUE(system.IsWindow(each)) << NameOf(hwnd);
    return 0;
  };
  system.DestroyWindow(top);
  EXPECT_EQ(log, (Log{"top 2 0 0", "child 2 0 0", "grandchild 2 0 0"}));
  for (const Long each : {top, child, grandchild}) EXPECT_FALSE(system.IsWindow(each));
}

TEST_F(WindowSystem_Windows, HandlersMayDestroyWhatIsBeingDestroyed) {
  const Long top = Open(u"top");
  const Long first = Open(u"first", {}, top);
  const Long second = Open(u"second", {}, top);
  Settle();
  handler = [&](Long, Long, Long, Long) {
    system.DestroyWindow(first);
    system.DestroyWindow(top);
    system.DestroyWindow(second);
    EXPECT_EQ(system.CreateWindowOf(u"Test", u"late", top, {}, nullptr), 0);
    return 0;
  };
  system.DestroyWindow(top);
  EXPECT_EQ(log.size(), 3u) << "each hears once";
  EXPECT_FALSE(system.IsWindow(top));
  EXPECT_FALSE(system.IsWindow(second));
}

TEST_F(WindowSystem_Windows, HandlesAreNeverUsedTwice) {
  const Long first = Open(u"first");
  system.DestroyWindow(first);
  EXPECT_NE(Open(u"second"), first);
}

TEST_F(WindowSystem_Windows, PointsGoBetweenScreenAndWindow) {
  const Long hwnd = Open(u"w", {30, 40, 60, 60});
  Point point{31, 42};
  EXPECT_TRUE(system.ScreenToClient(hwnd, point));
  EXPECT_EQ(point, (Point{1, 2}));
  EXPECT_TRUE(system.ClientToScreen(hwnd, point));
  EXPECT_EQ(point, (Point{31, 42}));
}

TEST_F(WindowSystem_Windows, WhatIsNoWindowGivesFailure) {
  const Long gone = Open(u"gone");
  system.DestroyWindow(gone);
  for (const Long hwnd : {Long{0}, gone, Long{-1}, std::numeric_limits<Long>::max()}) {
    Rect rectangle{1, 2, 3, 4};
    Point point{5, 6};
    EXPECT_EQ(system.GetWindowRect(hwnd, rectangle), 0);
    EXPECT_EQ(rectangle, (Rect{1, 2, 3, 4}));
    EXPECT_EQ(system.ScreenToClient(hwnd, point), 0);
    EXPECT_EQ(system.ClientToScreen(hwnd, point), 0);
    EXPECT_EQ(point, (Point{5, 6}));
    EXPECT_EQ(system.GetWindowTextA(hwnd, 10), u"");
    EXPECT_EQ(system.GetWindowThreadProcessId(hwnd), 0);
    EXPECT_EQ(system.IsIconic(hwnd), 0);
    EXPECT_EQ(system.IsWindowVisible(hwnd), 0);
    EXPECT_EQ(system.ShowWindow(hwnd, 1), 0);
    EXPECT_EQ(system.SetForegroundWindow(hwnd), 0);
    EXPECT_EQ(system.SendMessageA(hwnd, 1, 2, 3), 0);
    EXPECT_TRUE(system.VisibleRegion(hwnd).IsEmpty());
    EXPECT_TRUE(system.UpdateRegion(hwnd).IsEmpty());
    system.DestroyWindow(hwnd);
    system.MoveWindow(hwnd, {});
    system.InvalidateWindow(hwnd);
    system.BringWindowToTop(hwnd);
    system.SetTitle(hwnd, u"x");
    system.Validate(hwnd);
    if (hwnd == 0) continue;
    EXPECT_EQ(system.CreateWindowOf(u"Test", u"child", hwnd, {}, nullptr), 0);
    EXPECT_EQ(system.SetTimer(hwnd, 1, 100, nullptr), 0);
  }
}

TEST_F(WindowSystem_Windows, AbsurdRectanglesDoNoHarm) {
  constexpr Long kLow = std::numeric_limits<Long>::min();
  constexpr Long kHigh = std::numeric_limits<Long>::max();
  const Long top = Open(u"top", {kLow, kLow, kHigh, kHigh});
  const Long child = Open(u"child", {5, 5, 10, 10}, top);
  EXPECT_EQ(system.VisibleRegion(child).Bounds(), (Clip{5, 5, 10, 10}));
  system.DoEvents();
  system.MoveWindow(top, {kHigh, kHigh, kLow, kLow});
  EXPECT_TRUE(system.VisibleRegion(child).IsEmpty());
  system.MoveWindow(top, {kLow, kLow, kLow, kLow});
  system.MoveWindow(top, {50, 50, 10, 10});
  Rect rectangle;
  EXPECT_TRUE(system.GetWindowRect(top, rectangle));
  EXPECT_EQ(rectangle, (Rect{50, 50, 50, 50}));
  Point point{kLow, kHigh};
  system.ScreenToClient(top, point);
  system.ClientToScreen(top, point);
  EXPECT_EQ(point, (Point{kLow, kHigh}));
}

TEST_F(WindowSystem_Windows, ThePixelBelongsToTheInnermostTopmostWindow) {
  const Long lower = Open(u"lower", {0, 0, 100, 100});
  const Long child = Open(u"child", {10, 10, 40, 40}, lower);
  const Long upper = Open(u"upper", {30, 30, 60, 60});
  EXPECT_EQ(system.WindowAt({5, 5}), lower);
  EXPECT_EQ(system.WindowAt({15, 15}), child);
  EXPECT_EQ(system.WindowAt({35, 35}), upper);
  EXPECT_EQ(system.WindowAt({120, 120}), 0);
  system.ShowWindow(upper, 0);
  EXPECT_EQ(system.WindowAt({35, 35}), child);
}

}  // namespace
}  // namespace strandline::desk
