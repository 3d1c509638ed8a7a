// What a user's hand does with the mouse, as windows hear of it.

#include "tests/contract/window_contract.h"

namespace strandline::contract {
namespace {

constexpr Long kRButtonUp = 517;
constexpr Point kInside{60, 70};  // (10, 30) of a window at kPlace

class InputContract : public WindowContract {
 protected:
  InputContract() {
    Host().ActivateWindow(Open(u"ground", {0, 0, 300, 200}));
    Host().PlacePointer({5, 5});
    Settle();
    handler = [this](Long hwnd, Long message, Long wParam, Long lParam) { return Note(hwnd, message, wParam, lParam); };
  }
  virtual ~InputContract() { Mouse().Hold(false, false); }

  // Of the mouse's messages, each as "title number wParam x,y".
  Long Note(Long hwnd, Long message, Long wParam, Long lParam) {
    const bool isMouse = message >= wm::kMouseMove && message <= kRButtonUp;
    if (isMouse) {
      heard.push_back(ToUtf8(windows.GetWindowTextA(hwnd, 20).View()) + " " + std::to_string(message) + " " +
                      std::to_string(wParam) + " " + std::to_string(static_cast<Integer>(lParam & 0xFFFF)) + "," +
                      std::to_string(static_cast<Integer>(lParam >> 16)));
      if (onMouse) onMouse(hwnd, message);
    }
    // By default a right click asks for a menu and a click activates; nothing of that is of interest here.
    return isMouse ? 0 : Host().DefaultProcedure(hwnd, message, wParam, lParam);
  }
  // What was heard since, once all of it has come.
  Log Heard() {
    windows.DoEvents();
    Log all;
    all.swap(heard);
    return all;
  }

  Log heard;
  std::function<void(Long hwnd, Long message)> onMouse;
};

TEST_F(InputContract, AMove_ComesWithItsPlaceInTheWindowUnderIt) {
  Open(u"one");
  Settle();
  Mouse().MoveTo(kInside);
  EXPECT_EQ(heard, Log()) << "nothing is told before somebody pumps";
  EXPECT_EQ(Heard(), (Log{"one 512 0 10,30"}));
  Point point;
  windows.GetCursorPos(point);
  EXPECT_EQ(point, kInside);
}

TEST_F(InputContract, EveryPixel_IsReachedExactly) {
  Point point;
  for (Long x = 0; x < 300; x += 7) {
    Mouse().MoveTo({x, 199 - x / 2});
    windows.GetCursorPos(point);
    EXPECT_EQ(point, (Point{x, 199 - x / 2}));
  }
}

TEST_F(InputContract, MovesThatWait_AreOne) {
  Open(u"one");
  Settle();
  Mouse().MoveTo({55, 45});
  Mouse().MoveTo({56, 46});
  Mouse().MoveTo(kInside);
  EXPECT_EQ(Heard(), (Log{"one 512 0 10,30"}));
  Mouse().MoveTo({55, 45});
  Mouse().Press(MouseButton::kLeft);
  Mouse().MoveTo({56, 46});
  Mouse().Release(MouseButton::kLeft);
  EXPECT_EQ(Heard(), (Log{"one 512 0 5,5", "one 513 1 5,5", "one 512 1 6,6", "one 514 0 6,6"}));
}

TEST_F(InputContract, AClick_IsAPressAndARelease) {
  Open(u"one");
  Settle();
  Mouse().MoveTo(kInside);
  Mouse().Press(MouseButton::kLeft);
  Mouse().Release(MouseButton::kLeft);
  EXPECT_EQ(Heard(), (Log{"one 512 0 10,30", "one 513 1 10,30", "one 514 0 10,30"}));
}

TEST_F(InputContract, TwoClicksInARow_AreNoDoubleClick) {
  Open(u"one");
  Settle();
  Mouse().MoveTo(kInside);
  for (int i = 0; i < 2; ++i) {
    Mouse().Press(MouseButton::kLeft);
    Mouse().Release(MouseButton::kLeft);
  }
  EXPECT_EQ(Heard(),
            (Log{"one 512 0 10,30", "one 513 1 10,30", "one 514 0 10,30", "one 513 1 10,30", "one 514 0 10,30"}));
}

TEST_F(InputContract, ADoubleClick_HasItsOwnMessageForTheSecondPress) {
  Open(u"one");
  Settle();
  Mouse().MoveTo(kInside);
  Mouse().Press(MouseButton::kLeft);
  Mouse().Release(MouseButton::kLeft);
  Mouse().PressAgain();
  Mouse().Release(MouseButton::kLeft);
  EXPECT_EQ(Heard(),
            (Log{"one 512 0 10,30", "one 513 1 10,30", "one 514 0 10,30", "one 515 1 10,30", "one 514 0 10,30"}));
}

TEST_F(InputContract, ASecondPressWithoutAFirst_ComesTheSame) {
  Open(u"one");
  Settle();
  Mouse().MoveTo(kInside);
  Heard();
  Mouse().PressAgain();
  EXPECT_EQ(Heard(), (Log{"one 515 1 10,30"}));
  Mouse().Release(MouseButton::kLeft);
  EXPECT_EQ(Heard(), (Log{"one 514 0 10,30"}));
}

TEST_F(InputContract, TheRightButton_HasMessagesOfItsOwn) {
  Open(u"one");
  Settle();
  Mouse().MoveTo(kInside);
  Mouse().Press(MouseButton::kRight);
  Mouse().Release(MouseButton::kRight);
  EXPECT_EQ(Heard(), (Log{"one 512 0 10,30", "one 516 2 10,30", "one 517 0 10,30"}));
}

TEST_F(InputContract, WhatIsHeld_ComesWithEveryMove) {
  Open(u"one");
  Settle();
  const struct {
    bool left;
    bool shift;
    const char* message;
  } kCases[] = {{true, false, "one 512 1 10,30"},
                {true, true, "one 512 5 10,30"},
                {false, true, "one 512 4 10,30"},
                {false, false, "one 512 0 10,30"}};
  for (const auto& each : kCases) {
    Mouse().Hold(each.left, each.shift);
    EXPECT_EQ(Heard(), Log()) << "what happens elsewhere is told to nobody";
    Mouse().MoveTo(kInside);
    EXPECT_EQ(Heard(), (Log{each.message}));
  }
}

TEST_F(InputContract, Input_GoesToTheTopmostVisibleWindow) {
  const Long one = Open(u"one");
  Open(u"child", {60, 50, 80, 90}, one);
  const Long two = Open(u"two");
  Settle();
  Mouse().MoveTo({65, 55});
  EXPECT_EQ(Heard(), (Log{"two 512 0 15,15"}));
  windows.ShowWindow(two, 0);
  Mouse().MoveTo({66, 56});
  EXPECT_EQ(Heard(), (Log{"child 512 0 6,6"}));
  Mouse().MoveTo({81, 56});
  EXPECT_EQ(Heard(), (Log{"one 512 0 31,16"}));
}

TEST_F(InputContract, OverAnotherProgram_NobodyHears) {
  Open(u"one");
  Settle();
  Host().CoverScreen(true);
  Mouse().MoveTo(kInside);
  Mouse().Press(MouseButton::kLeft);
  Mouse().Release(MouseButton::kLeft);
  EXPECT_EQ(Heard(), Log());
  Host().CoverScreen(false);
}

TEST_F(InputContract, WhoHasTheCapture_GetsWhatIsOverOthers) {
  const Long one = Open(u"one");
  Open(u"two", {200, 40, 260, 120});
  Settle();
  Host().SetCapture(one);
  Mouse().MoveTo({210, 50});
  Mouse().Press(MouseButton::kLeft);
  Mouse().MoveTo({40, 30});
  Mouse().Release(MouseButton::kLeft);
  EXPECT_EQ(Heard(), (Log{"one 512 0 160,10", "one 513 1 160,10", "one 512 1 -10,-10", "one 514 0 -10,-10"}));
  windows.ReleaseCapture();
}

TEST_F(InputContract, WhoseInputIs_ShowsWhenItsTurnComes) {
  Open(u"one");
  const Long two = Open(u"two", {200, 40, 260, 120});
  Settle();
  onMouse = [&](Long, Long message) {
    if (message == wm::kLButtonDown) Host().SetCapture(two);
  };
  Mouse().MoveTo(kInside);
  Mouse().Press(MouseButton::kLeft);
  Mouse().Release(MouseButton::kLeft);
  EXPECT_EQ(Heard(), (Log{"one 512 0 10,30", "one 513 1 10,30", "two 514 0 -140,30"}));
  windows.ReleaseCapture();
}

TEST_F(InputContract, Input_ComesBehindPostedMessagesAndBeforePaints) {
  const Long one = Open(u"one");
  Settle();
  Mouse().MoveTo(kInside);
  Host().InvalidateWindow(one);
  Host().Post(one, kOwnMessage, 0, 0);
  windows.DoEvents();
  EXPECT_EQ(log, (Log{"one 1033", "one 512", "one 15"}));
}

TEST_F(InputContract, AHandThatAims_ReachesACoveredWindow) {
  const Long one = Open(u"one");
  Open(u"two");
  Settle();
  Mouse().AimAt(one);
  Mouse().MoveTo(kInside);
  Mouse().Press(MouseButton::kLeft);
  Mouse().Release(MouseButton::kLeft);
  const Log all = Heard();
  EXPECT_EQ(all, (Log{"one 512 0 10,30", "one 513 1 10,30", "one 514 0 10,30"}));
  Mouse().AimAt(0);
  Mouse().MoveTo({61, 71});
  EXPECT_EQ(Heard(), (Log{"two 512 0 11,31"}));
}

TEST_F(InputContract, InputForAWindowThatGoes_IsTheNextOnes) {
  const Long one = Open(u"one");
  Settle();
  Mouse().MoveTo(kInside);
  Host().DestroyWindow(one);
  EXPECT_EQ(Heard(), (Log{"ground 512 0 60,70"}));
}

TEST_F(InputContract, AMoveToTheSamePlace_IsToldAgain) {
  Open(u"one");
  Settle();
  Mouse().MoveTo(kInside);
  EXPECT_EQ(Heard(), (Log{"one 512 0 10,30"}));
  Mouse().MoveTo(kInside);
  EXPECT_EQ(Heard(), (Log{"one 512 0 10,30"}));
  Host().PlacePointer(kInside);
  Mouse().MoveTo(kInside);
  EXPECT_EQ(Heard(), (Log{"one 512 0 10,30"}));
}

}  // namespace
}  // namespace strandline::contract
