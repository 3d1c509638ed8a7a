// What becomes of each message of the bar's window.

#include "tests/toolbar/toolbar_fixture.h"

namespace strandline {
namespace {

class HookTable : public ToolbarTest {
 protected:
  HookTable() {
    Begin();
    underneath = std::make_unique<OtherHook>(*world, world->Bar());
    MakeToolbar();
    Hear();
  }
  ~HookTable() override { underneath.reset(); }

  // What the hook says, asks of the strip and of the window, and hands on.
  void Hear() {
    trace().Listen(Trace::kLogs | Trace::kProcedures | Trace::kTimers | Trace::kHooks);
    trace().Only({"log Before", "log Handle", "Buttons.HandleMouseMove", "Buttons.HandleButton",
                  "Buttons.removeButtonHighlighting", "Buttons.TimerTick", "Buttons.HandlePaint", "SetTimer",
                  "KillTimer", "Toolbar.SwitchListener", "word gets", "hook previous"});
  }

  std::unique_ptr<OtherHook> underneath;
};

struct MessageCase {
  const char* name;
  Long message;
  Long wParam;
  Long lParam;
  Trace::Lines expected;
};

// The mouse rests on cell 5, and beside the strip where a row says so.
TEST_F(HookTable, Hook_EachMessageOfTheTable_SaysAsksAndHandsOnItsOwnAndNothingElse) {
  const Rect bar = world->RectOf(world->Bar());
  const Rect cell = world->word.CellPlace(5);
  const Point on{(cell.left + cell.right) / 2, (cell.top + cell.bottom) / 2};
  world->desk.Host().PlacePointer({bar.left + on.x, bar.top + on.y});
  const std::string place = std::to_string(on.x) + ", " + std::to_string(on.y);
  const Long there = on.y * 65536 + on.x;
  const std::string param = std::to_string(there);
  const std::string before = "log Before Paint of " + Hex(world->Top()) + ", processCount = ";
  const MessageCase cases[] = {
      {"WM_PAINT", 15, 0, 0, {before + "0", "Buttons.HandlePaint(top 1, False)"}},
      {"WM_NCMOUSEMOVE", 160, 2, there, {"Buttons.removeButtonHighlighting(0)", "word gets 160(2, " + param + ")"}},
      {"WM_TIMER of the ads", 275, 4096, 0, {"Buttons.TimerTick(True)", "KillTimer(bar 1, 4096)"}},
      {"WM_TIMER 0", 275, 0, 0, {"word gets 275(0, 0)"}},
      {"WM_TIMER of any other number", 275, 65537, 0, {"KillTimer(bar 1, 65537)", "Buttons.TimerTick(False)"}},
      {"WM_LBUTTONUP beside the strip",
       514,
       0,
       0,
       {"log BeforeLButtonUp", "Buttons.HandleButtonUp()", "Buttons.removeButtonHighlighting(0)",
        "word gets 514(0, 0)"}},
      {"WM_LBUTTONDOWN beside the strip",
       513,
       1,
       0,
       {"log BeforeLButtonDown", "Buttons.HandleButtonDown(0, 0)", "word gets 513(1, 0)"}},
      {"WM_MOUSEMOVE",
       512,
       0,
       there,
       {"log HandleMouseMove", "Buttons.HandleMouseMove(False, " + place + ", False)", "SetTimer(bar 1, 65537, 200)"}},
      {"WM_LBUTTONDOWN", 513, 1, there, {"log BeforeLButtonDown", "Buttons.HandleButtonDown(" + place + ")"}},
      {"WM_LBUTTONUP",
       514,
       0,
       there,
       {"log BeforeLButtonUp", "Buttons.HandleButtonUp()", "Buttons.removeButtonHighlighting(0)"}},
      {"WM_LBUTTONDBLCLK", 515, 1, there, {}},
      {"WM_RBUTTONDOWN",
       516,
       2,
       there,
       {"log BeforeRButtonDown", "Buttons.removeButtonHighlighting(0)", "word gets 516(2, " + param + ")"}},
      {"WM_CAPTURECHANGED to nobody", 533, 0, 0, {"word gets 533(0, 0)"}},
      {"WM_SIZE", 5, 0, there, {"log BeforeSize", "word gets 5(0, " + param + ")"}},
  };
  for (const MessageCase& each : cases) {
    trace().Take();
    world->Send(each.message, each.wParam, each.lParam);
    EXPECT_EQ(trace().TakeText(), AsText(each.expected)) << each.name;
  }
}

TEST_F(HookTable, Hook_AnyMessageOutsideTheTable_GoesOnToWordWithoutADoing) {
  for (const Long message :
       {0,   1,   3,   4,   6,   7,   8,   14,  16,  18,  20,  70,  71,   132,   159, 161,       256,
        274, 276, 511, 517, 518, 522, 532, 534, 673, 675, 790, 792, 1024, 32768, -1,  0x7FFFFFFF}) {
    trace().Take();
    world->Send(message, 4096, 65536);
    EXPECT_EQ(trace().TakeText(), "word gets " + std::to_string(message) + "(4096, 65536)\n");
  }
}

TEST_F(HookTable, Hook_APrintOfTheWindow_GoesOnToWord) {
  const Long hdc = world->desk.Graphics().CreateCompatibleDC(0);
  world->Send(wm::kPrint, hdc, 14);
  EXPECT_EQ(trace().TakeText(), "word gets 791(" + std::to_string(hdc) + ", 14)\n");
  world->desk.Graphics().DeleteDC(hdc);
}

enum class After { kStays, kTrue, kFalse };

struct CancelCase {
  const char* name;
  Long message;
  Long wParam;
  After cancel;
};

constexpr CancelCase kCancelCases[] = {
    {"WM_SIZE", 5, 0, After::kStays},
    {"WM_PAINT, dropped and painted", 15, 0, After::kTrue},
    {"WM_NCMOUSEMOVE", 160, 0, After::kStays},
    {"WM_TIMER 4096", 275, 4096, After::kTrue},
    {"WM_TIMER 0", 275, 0, After::kFalse},
    {"WM_TIMER 7", 275, 7, After::kTrue},
    {"WM_TIMER -1", 275, -1, After::kTrue},
    {"WM_MOUSEMOVE", 512, 1, After::kTrue},
    {"WM_LBUTTONDOWN, which the strip declines", 513, 1, After::kFalse},
    {"WM_LBUTTONUP, which the strip declines", 514, 0, After::kFalse},
    {"WM_LBUTTONDBLCLK", 515, 1, After::kTrue},
    {"WM_RBUTTONDOWN", 516, 0, After::kStays},
    {"WM_CAPTURECHANGED", 533, 0, After::kStays},
    {"another", 1024, 1, After::kStays},
};

TEST_F(HookTable, Hook_Cancel_IsSetClearedOrLeftAsItCame_AndTheAnswerIsNeverWritten) {
  for (const CancelCase& each : kCancelCases) {
    for (const Boolean came : {false, true}) {
      Boolean cancel = came;
      Long answer = 77;
      toolbar->mHook_BeforeMessage(each.message, each.wParam, 0, answer, cancel);
      EXPECT_EQ(cancel, each.cancel == After::kStays ? came : each.cancel == After::kTrue) << each.name;
      EXPECT_EQ(answer, 77) << each.name;
    }
  }
}

struct PlaceCase {
  Long lParam;
  Long x;
  Long y;
};

TEST_F(HookTable, Hook_ThePointOfAMouseMessage_HasAnUnsignedXAndASignedY) {
  const PlaceCase cases[] = {
      {static_cast<Long>(0xFFFF0005), 5, -1},
      {0x0000FFFF, 65535, 0},
      {0, 0, 0},
      {0x7FFF8000, 32768, 32767},
      {-1, 65535, -1},
      {static_cast<Long>(0x80000001), 1, -32768},
      {static_cast<Long>(0xFFFE7FFF), 32767, -2},
      {0x00010000, 0, 1},
  };
  for (const PlaceCase& each : cases) {
    EXPECT_EQ(toolbar->loWord(each.lParam), each.x) << Hex(each.lParam);
    EXPECT_EQ(toolbar->HiWord(each.lParam), each.y) << Hex(each.lParam);
    const std::string place = std::to_string(each.x) + ", " + std::to_string(each.y);
    trace().Take();
    world->Send(wm::kMouseMove, 0, each.lParam);
    world->Send(wm::kLButtonDown, 0, each.lParam);
    EXPECT_EQ(AsText(Beginning(trace().Take(), "Buttons.Handle")),
              "Buttons.HandleMouseMove(False, " + place + ", False)\n" + "Buttons.HandleButtonDown(" + place + ")\n");
  }
}

TEST_F(HookTable, Hook_AMoveCountsAsADrag_OnlyWithTheLeftButtonAndNothingElse) {
  const std::pair<Long, const char*> cases[] = {{0, "False"}, {1, "True"},  {5, "False"},  {9, "False"},
                                                {2, "False"}, {3, "False"}, {17, "False"}, {-1, "False"}};
  for (const auto& [keys, isDrag] : cases) {
    trace().Take();
    world->Send(wm::kMouseMove, keys, 65536 * 20 + 30);
    EXPECT_EQ(AsText(Beginning(trace().Take(), "Buttons.Handle")),
              std::string("Buttons.HandleMouseMove(") + isDrag + ", 30, 20, False)\n")
        << "wParam " << keys;
  }
}

TEST_F(HookTable, Hook_AMoveWhileAnotherDocumentIsActive_TellsTheStripSo) {
  const Long bar = world->Bar();
  world->OpenInWord(u"Notes.doc");
  world->Settle();
  Hear();
  world->desk.Windows().SendMessageA(bar, wm::kMouseMove, 0, 65536 * 20 + 30);
  EXPECT_EQ(AsText(Beginning(trace().Take(), "Buttons.Handle")), "Buttons.HandleMouseMove(False, 30, 20, True)\n");
  world->word.Activate(kDocument);
  world->Settle();
  Hear();
  world->Send(wm::kMouseMove, 0, 65536 * 20 + 30);
  EXPECT_EQ(AsText(Beginning(trace().Take(), "Buttons.Handle")), "Buttons.HandleMouseMove(False, 30, 20, False)\n");
}

TEST_F(HookTable, Hook_ARightButtonAndAMoveOutsideTheClient_TakeTheHighlightOffThroughAContextOfTheirOwn) {
  for (const Long message : {wm::kRButtonDown, wm::kNcMouseMove}) {
    trace().Listen(Trace::kContexts | Trace::kLogs);
    trace().Only({"GetDC", "log ToggleBorder", "ReleaseDC"});
    EXPECT_EQ(trace().TakeText(), "");
    world->Send(message, 0, 0);
    EXPECT_EQ(trace().TakeText(),
              "GetDC(bar 1) = dc 1\n"
              "log ToggleBorder index=0, state=2\n"
              "ReleaseDC(bar 1, dc 1)\n")
        << message;
  }
}

TEST_F(HookTable, InSameDockingBar_IsTrueForNobodyAlone) {
  EXPECT_TRUE(toolbar->InSameDockingBar(0));
  EXPECT_FALSE(toolbar->InSameDockingBar(1));
  EXPECT_FALSE(toolbar->InSameDockingBar(-1));
  EXPECT_FALSE(toolbar->InSameDockingBar(world->Bar()));
}

}  // namespace
}  // namespace strandline
