// The host's windows, clock and colours on real Windows: what the desk has nothing of.

#include "platform/looks/system_colours.h"
#include "platform/win32/host/classic_colours.h"
#include "tests/contract/surface.h"
#include "tests/contract/window_contract.h"
//
#include "platform/win32/windows_api.h"

namespace strandline::contract {
namespace {

using HostContract = WindowContract;

HWND HwndOf(Long hwnd) { return win32::ToHandle<HWND>(hwnd); }

TEST_F(HostContract, AWindow_HasNoFrameAndNoColourOfItsOwn) {
  const Long top = Open(u"top");
  const Long child = Open(u"child", {60, 50, 80, 60}, top);
  for (const Long hwnd : {top, child}) {
    RECT whole{};
    RECT client{};
    ::GetWindowRect(HwndOf(hwnd), &whole);
    ::GetClientRect(HwndOf(hwnd), &client);
    EXPECT_EQ(client.right, whole.right - whole.left);
    EXPECT_EQ(client.bottom, whole.bottom - whole.top);
    EXPECT_EQ(::GetClassLongPtrW(HwndOf(hwnd), GCLP_HBRBACKGROUND), 0u);
    EXPECT_TRUE(::IsWindowUnicode(HwndOf(hwnd)));
  }
}

TEST_F(HostContract, WhatAProcedureThrows_EndsThereWithZero) {
  const Long hwnd = Open(u"one");
  Settle();
  handler = [](Long, Long message, Long, Long) -> Long {
    if (message == kOwnMessage) throw 7;
    return message;
  };
  EXPECT_EQ(windows.SendMessageA(hwnd, kOwnMessage, 0, 0), 0);
  EXPECT_EQ(windows.SendMessageA(hwnd, kOwnMessage + 1, 0, 0), kOwnMessage + 1);
}

TEST_F(HostContract, AHostThatAnswersNonsense_StillHasWindowsWithTextAndPlace) {
  handler = [](Long, Long message, Long, Long) { return message == wm::kPaint ? 0 : -1; };
  const Long hwnd = Open(u"stubborn");
  EXPECT_EQ(windows.GetWindowTextA(hwnd, 100), u"stubborn");
  Host().SetTitle(hwnd, u"still");
  EXPECT_EQ(windows.GetWindowTextA(hwnd, 100), u"still");
  Host().MoveWindow(hwnd, {10, 20, 40, 60});
  Rect place;
  windows.GetWindowRect(hwnd, place);
  EXPECT_EQ(place, (Rect{10, 20, 40, 60}));
}

// With what the parent of a window is asked for a menu.
LPARAM menuAsked = 0;
WNDPROC ownProcedure = nullptr;

LRESULT CALLBACK MenuProcedure(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_CONTEXTMENU) menuAsked = lParam;
  return ::CallWindowProcW(ownProcedure, hwnd, message, wParam, lParam);
}

TEST_F(HostContract, ParametersWiderThanTheSeams_PassThroughTheProcedureWhole) {
  const Long top = Open(u"top");
  const Long child = Open(u"child", {60, 50, 80, 60}, top);
  ownProcedure = reinterpret_cast<WNDPROC>(
      ::SetWindowLongPtrW(HwndOf(top), GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&MenuProcedure)));
  const LPARAM wide = static_cast<LPARAM>(0x1234'5678'9ABC'DEF0);
  menuAsked = 0;
  // By default a child passes it to its parent.
  ::SendMessageW(HwndOf(child), WM_CONTEXTMENU, 0, wide);
  EXPECT_EQ(menuAsked, wide);
}

TEST_F(HostContract, WithItsHostGone_NoWindowIsLeft) {
  const String type = u"StrandlineContractShort";
  {
    const std::unique_ptr<World> world = MakeWorld();
    const Long top = world->Host().CreateWindowOf(type, u"top", 0, kPlace, this);
    EXPECT_NE(world->Host().CreateWindowOf(type, u"child", top, kPlace, this), 0);
    EXPECT_NE(world->Host().CreateWindowOf(type, u"second", 0, kPlace, this), 0);
    EXPECT_NE(windows.FindWindowA(&type, nullptr), 0);
  }
  EXPECT_EQ(windows.FindWindowA(&type, nullptr), 0);
  EXPECT_TRUE(log.empty()) << "a window's making isn't told, nor its end to a host that is gone";
}

TEST_F(HostContract, WithItsClockGone_ScheduledWorkDoesntRun) {
  bool ran = false;
  {
    MakeWorld()->Clock().After(10, [&] { ran = true; });
  }
  Clock().Wait(40);
  EXPECT_FALSE(ran);
}

TEST_F(HostContract, WhatScheduledWorkThrows_EndsWithIt) {
  bool later = false;
  Clock().After(0, [] { throw 7; });
  Clock().After(10, [&] { later = true; });
  EXPECT_TRUE(Until([&] { return later; }));
}

TEST_F(HostContract, AWait_LeavesTheWishToQuitForTheLoop) {
  Host().PostQuitMessage();
  Clock().Wait(10);
  Message message;
  EXPECT_EQ(windows.GetMessageA(message), 0);
  EXPECT_EQ(message.message, wm::kQuit);
}

TEST_F(HostContract, ClassicColours_AreThereForAsLong) {
  const auto all = [&] {
    std::vector<Long> colors;
    for (Long index = 0; index <= system_color::kLast; ++index) colors.push_back(graphics.GetSysColor(index));
    return colors;
  };
  const std::vector<Long> before = all();
  {
    const win32::ClassicColours classic;
    std::vector<Long> expected;
    for (Long index = 0; index <= system_color::kLast; ++index) {
      // 25 has no meaning, and the system gives none.
      expected.push_back(index == 25 ? graphics.GetSysColor(25) : static_cast<Long>(SystemColor(index)));
    }
    EXPECT_EQ(all(), expected);
  }
  EXPECT_EQ(all(), before);
}

}  // namespace
}  // namespace strandline::contract
