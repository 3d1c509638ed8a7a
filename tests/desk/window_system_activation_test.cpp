#include "tests/desk/window_system_fixture.h"

namespace strandline::desk {
namespace {

constexpr Long kOurThread = 1;
constexpr Long kTheirThread = 2;

class WindowSystem_Activation : public WindowSystemTest {
 protected:
  Long Topmost() { return system.FindWindowExA(0, 0, nullptr, nullptr); }
  void ExpectInFront(Long hwnd) {
    EXPECT_EQ(system.GetActiveWindow(), hwnd);
    EXPECT_EQ(system.GetForegroundWindow(), hwnd);
    EXPECT_EQ(Topmost(), hwnd);
  }
};

TEST_F(WindowSystem_Activation, ActivatingBringsToTheFront) {
  const Long first = Open(u"first");
  const Long second = Open(u"second");
  EXPECT_EQ(system.GetActiveWindow(), 0);
  system.ActivateWindow(first);
  ExpectInFront(first);
  EXPECT_EQ(system.SetForegroundWindow(second), 1);
  ExpectInFront(second);
}

TEST_F(WindowSystem_Activation, AChildStandsForItsTopLevelWindow) {
  const Long first = Open(u"first");
  const Long child = Open(u"child", {}, first);
  system.ActivateWindow(Open(u"second"));
  EXPECT_EQ(system.SetForegroundWindow(child), 1);
  ExpectInFront(first);
}

TEST_F(WindowSystem_Activation, AnotherProgramCoversAndTakesTheForeground) {
  const Long ours = Open(u"ours");
  system.ActivateWindow(ours);
  system.CoverScreen(true);
  EXPECT_EQ(system.GetActiveWindow(), 0);
  const Long theirs = system.GetForegroundWindow();
  EXPECT_NE(theirs, ours);
  EXPECT_EQ(system.GetWindowThreadProcessId(theirs), kTheirThread);
  EXPECT_EQ(system.GetWindowThreadProcessId(ours), kOurThread);
  EXPECT_EQ(Topmost(), theirs);
  EXPECT_TRUE(system.VisibleRegion(ours).IsEmpty());
  EXPECT_TRUE(system.IsWindowVisible(ours)) << "covered isn't hidden";
  system.CoverScreen(false);
  ExpectInFront(ours);
  EXPECT_FALSE(system.VisibleRegion(ours).IsEmpty());
}

TEST_F(WindowSystem_Activation, TheForegroundIsRefusedUnlessTheThreadsAreAttached) {
  const Long ours = Open(u"ours");
  system.CoverScreen(true);
  const Long theirs = system.GetForegroundWindow();
  EXPECT_EQ(system.SetForegroundWindow(ours), 0);
  EXPECT_EQ(system.GetForegroundWindow(), theirs);

  EXPECT_EQ(system.AttachThreadInput(kTheirThread, kOurThread, 1), 1);
  EXPECT_EQ(system.SetForegroundWindow(ours), 1);
  EXPECT_EQ(system.AttachThreadInput(kTheirThread, kOurThread, 0), 1);
  ExpectInFront(ours);
  EXPECT_EQ(system.FindWindowExA(0, ours, nullptr, nullptr), theirs) << "the cover lies beneath";

  system.CoverScreen(true);
  EXPECT_EQ(system.SetForegroundWindow(ours), 0) << "no longer attached";
}

TEST_F(WindowSystem_Activation, UncoveringWithoutTheForegroundChangesNothingInFront) {
  const Long first = Open(u"first");
  const Long second = Open(u"second");
  system.ActivateWindow(first);
  system.CoverScreen(true);
  system.ActivateWindow(second);
  system.CoverScreen(false);
  ExpectInFront(second);
}

TEST_F(WindowSystem_Activation, OnlyThreadsThatExistCanBeAttached) {
  const struct {
    Long from, to, attach, result;
  } rows[] = {{1, 1, 1, 0}, {1, 7, 1, 0}, {7, 2, 1, 0}, {1, 2, 0, 0}, {1, 2, 1, 1}, {1, 2, 0, 1}, {2, 1, 0, 0}};
  for (const auto& row : rows) {
    EXPECT_EQ(system.AttachThreadInput(row.from, row.to, row.attach), row.result) << &row - rows;
  }
}

TEST_F(WindowSystem_Activation, NothingOfOursComesInFrontOfAForegroundOfOthers) {
  const Long ours = Open(u"ours");
  system.CoverScreen(true);
  const Long theirs = system.GetForegroundWindow();
  system.BringWindowToTop(ours);
  EXPECT_EQ(Topmost(), theirs);
  const Long added = Open(u"new");
  system.ShowWindow(added, 5);
  EXPECT_EQ(Topmost(), theirs);
  EXPECT_EQ(system.GetForegroundWindow(), theirs);
  EXPECT_EQ(system.FindWindowExA(0, theirs, nullptr, nullptr), added);
}

TEST_F(WindowSystem_Activation, NoWindowOfOursIsActiveWhileAnotherProgramIs) {
  const Long ours = Open(u"ours");
  system.ActivateWindow(ours);
  system.ActivateWindow(0);
  EXPECT_EQ(system.GetActiveWindow(), 0);
  EXPECT_NE(system.GetForegroundWindow(), 0);
  EXPECT_FALSE(system.VisibleRegion(ours).IsEmpty()) << "activation alone covers nothing";
  EXPECT_EQ(system.SetForegroundWindow(ours), 0);
  system.ActivateWindow(ours);
  ExpectInFront(ours);
}

TEST_F(WindowSystem_Activation, TheCommandsOfShowWindow) {
  const struct {
    Long command;
    bool visible, iconic, active;  // what becomes of a hidden, iconic window behind an active one
  } rows[] = {{0, false, true, false},  {1, true, false, true},  {2, true, true, true},   {3, true, false, true},
              {4, true, false, false},  {5, true, true, true},   {6, true, true, false},  {7, true, true, false},
              {8, true, true, false},   {9, true, false, true},  {10, true, false, true}, {11, true, true, false},
              {12, false, true, false}, {-1, false, true, false}};
  for (const auto& row : rows) {
    const Long front = Open(u"front");
    const Long hwnd = Hidden(u"w");
    system.ShowWindow(hwnd, 7);
    system.ShowWindow(hwnd, 0);
    system.ActivateWindow(front);
    EXPECT_EQ(system.ShowWindow(hwnd, row.command), 0);
    EXPECT_EQ(system.IsWindowVisible(hwnd) != 0, row.visible) << row.command;
    EXPECT_EQ(system.IsIconic(hwnd) != 0, row.iconic) << row.command;
    EXPECT_EQ(system.GetActiveWindow(), row.active ? hwnd : front) << row.command;
    EXPECT_EQ(system.VisibleRegion(hwnd).IsEmpty(), !row.visible || row.iconic || !row.active) << row.command;
    system.DestroyWindow(front);
    system.DestroyWindow(hwnd);
  }
}

TEST_F(WindowSystem_Activation, TheNextWindowComesWhenTheActiveOneGoes) {
  const Long third = Open(u"third");
  const Long second = Open(u"second");
  const Long first = Open(u"first");
  system.ActivateWindow(first);
  system.ShowWindow(first, 6);
  ExpectInFront(second);
  system.ShowWindow(second, 0);
  EXPECT_EQ(system.GetActiveWindow(), third);
  system.DestroyWindow(third);
  EXPECT_EQ(system.GetActiveWindow(), 0);
  EXPECT_EQ(system.GetForegroundWindow(), 0);
  EXPECT_EQ(system.SetForegroundWindow(first), 1) << "nobody has the foreground";
}

TEST_F(WindowSystem_Activation, CaptureIsToldToItsLoser) {
  const Long first = Open(u"first");
  const Long second = Open(u"second");
  Settle();
  EXPECT_EQ(system.ReleaseCapture(), 1) << "without capture too";
  system.SetCapture(first);
  system.SetCapture(first);
  EXPECT_EQ(log, Log());
  handler = [&](Long, Long message, Long, Long) {
    EXPECT_TRUE(message != wm::kCaptureChanged || system.GetCapture() != first) << "it has gone already";
    return 0;
  };
  system.SetCapture(second);
  EXPECT_EQ(system.GetCapture(), second);
  EXPECT_EQ(system.ReleaseCapture(), 1);
  EXPECT_EQ(system.GetCapture(), 0);
  EXPECT_EQ(log, (Log{"first 533 0 " + std::to_string(second), "second 533 0 0"}));
  system.SetCapture(first);
  system.DestroyWindow(first);
  EXPECT_EQ(system.GetCapture(), 0);
  system.SetCapture(first);
  EXPECT_EQ(system.GetCapture(), 0) << "a window that is gone can't have it";
}

TEST_F(WindowSystem_Activation, ThePointerMoves) {
  const Long hwnd = Open(u"w", {10, 20, 50, 60});
  Settle();
  Point point;
  system.PlacePointer({-500, 40});
  EXPECT_EQ(system.GetCursorPos(point), 1);
  EXPECT_EQ(point, (Point{-500, 40}));
  system.DoEvents();
  EXPECT_EQ(log, Log()) << "without a message";

  EXPECT_EQ(system.SetCursorPos(12, 23), 1);
  EXPECT_EQ(system.SetCursorPos(13, 25), 1);
  EXPECT_EQ(log, Log()) << "its message waits";
  system.DoEvents();
  EXPECT_EQ(log, (Log{"w 512 0 " + std::to_string(5 << 16 | 3)})) << "moves that wait become one";

  system.SetCursorPos(9999, -9999);
  system.GetCursorPos(point);
  EXPECT_EQ(point, (Point{199, 0})) << "the pointer stays on the screen";
  system.SetCapture(hwnd);
  log.clear();
  system.SetCursorPos(8, 19);
  system.DoEvents();
  // Outside, two pixels to the left and one above: the captured window is told in its own coordinates.
  EXPECT_EQ(log, (Log{"w 512 0 " + std::to_string(static_cast<Long>(0xFFFFFFFEu))}));
}

}  // namespace
}  // namespace strandline::desk
