// A click: what happens in which order, what a second click inside it does, and what a failure leaves behind.

#include "tests/toolbar/input_fixture.h"
#include "wordsim/product_objects.h"

namespace strandline {
namespace {

class Click : public InputTest {
 protected:
  // The macro of the product that a control runs.
  void OnExecute(std::function<void(Long control)> macro) { world->word.TheHooks().executeControl = std::move(macro); }
  void ToggleLumivex() {
    const Object state = world->word.ProductState();
    state.Let("lumivexEnabled", !state.Get("lumivexEnabled").ToBoolean());
    toolbar->UpdateLumivexIcon();
  }
  // Contexts, edges, pictures, clicks and the tooltip.
  void HearDrawing() {
    trace().Listen(Trace::kContexts | Trace::kDrawing | Trace::kPictures | Trace::kUses | Trace::kProcedures |
                   Trace::kWindows);
    trace().Only({"GetDC", "ReleaseDC", "DrawEdge", "picture", "call control", "call tooltip Show", "call tooltip Hide",
                  "Menu.ToggleFootnoteEndnoteUI", "Menu.Activate"});
  }
  std::string EdgeLine(const std::string& hdc, Long cell, int edge) {
    const Rect r = world->word.CellPlace(cell);
    return "DrawEdge(" + hdc + ", [" + std::to_string(r.left) + " " + std::to_string(r.top) + " " +
           std::to_string(r.right) + " " + std::to_string(r.bottom) + "], " + std::to_string(edge) + ", 15)\n";
  }
  static std::string Within(const std::string& lines) {
    return "GetDC(bar 1) = dc 1\n" + lines + "ReleaseDC(bar 1, dc 1)\n";
  }
  std::string Heard() { return trace().TakeText(); }
};

TEST_F(Click, AMove_ShowsTheTooltip_ThenDrawsBothCellsInOneContext) {
  BeginWithCells();
  MoveTo(3);
  HearDrawing();
  MoveTo(4);
  EXPECT_EQ(Heard(), ShowLine(4) + Within("picture 103\n" + EdgeLine("dc 1", 4, 5)));
}

TEST_F(Click, APress_DrawsTheEdge_AndOnTheMenusCellSetsItsCaptionsBeforeItLetsTheContextGo) {
  BeginWithCells();
  MoveTo(3);
  HearDrawing();
  PressOn(3);
  EXPECT_EQ(Heard(), Within(EdgeLine("dc 1", 3, 10)));
  MoveTo(1);
  HearDrawing();
  PressOn(1);
  EXPECT_EQ(Heard(), Within(EdgeLine("dc 1", 1, 10) + "Menu.ToggleFootnoteEndnoteUI()\n"));
}

TEST_F(Click, OnAnOrdinaryCell_TheHighlightGoesBeforeTheCommandRuns) {
  BeginWithCells();
  desk::Surface during;
  OnExecute([&](Long) { during = world->Pixels(world->Bar()); });
  const desk::Surface before = world->Pixels(world->Bar());
  MoveTo(6);
  PressOn(6);
  HearDrawing();
  EXPECT_TRUE(ReleaseOn(6));
  EXPECT_EQ(Heard(), Within("picture 106\n") + ExecuteLine(6) + HideLine());
  EXPECT_TRUE(during == before);
}

TEST_F(Click, OnTheMenusCell_TheControlDropsItsMenu_AndTheCellIsSunkenUntilTheStripLetsGo) {
  BeginWithCells();
  MoveTo(1);
  PressOn(1);
  HearDrawing();
  EXPECT_TRUE(ReleaseOn(1));
  EXPECT_EQ(Heard(), ExecuteLine(1) + "Menu.Activate()\n" + Within(EdgeLine("dc 1", 1, 10)) + HideLine() +
                         "GetDC(bar 1) = dc 2\npicture 101\nReleaseDC(bar 1, dc 2)\n" + HideLine());
}

TEST_F(Click, OnEachCell_RunsTheControlOfItsNumberOnce) {
  BeginWithCells();
  for (Long cell = 1; cell <= 16; ++cell) {
    Trace::Lines run;
    OnExecute([&](Long control) { run.push_back(std::to_string(control)); });
    ClickOn(cell);
    EXPECT_EQ(AsText(run), std::to_string(cell) + "\n");
  }
}

TEST_F(Click, TheButtonUpWithoutAHighlight_AsksTheBarForNothing_AndIsWords) {
  BeginWithCells();
  int runs = 0;
  OnExecute([&](Long) { ++runs; });
  trace().Listen(Trace::kUses);
  trace().Only({"get bar", "get controls", "get Application CommandBars", "call control"});
  for (const Point& at : {MiddleOf(5), Outside()}) {
    Place(at);
    EXPECT_FALSE(Release(at));
    EXPECT_EQ(Held().lastUp, 0);
  }
  EXPECT_EQ(Heard(), "");
  EXPECT_EQ(runs, 0);
}

// The window that had the highlight is left by a click that is handled to its end: the next click is heard.
TEST_F(Click, ADoubleClick_RunsTheCommandTwice) {
  BeginWithCells();
  int runs = 0;
  OnExecute([&](Long) { ++runs; });
  MoveTo(5);
  PressOn(5);
  ReleaseOn(5);
  // Windows tells the second press as a double click, which the strip swallows; the cell isn't highlighted meanwhile.
  EXPECT_TRUE(Say(wm::kLButtonDblClk, kLeftButton, MiddleOf(5)));
  EXPECT_FALSE(ReleaseOn(5));
  EXPECT_EQ(runs, 1);
  MoveTo(5);
  PressOn(5);
  EXPECT_TRUE(ReleaseOn(5));
  EXPECT_EQ(runs, 2);
}

// --- a click inside a click ---

TEST_F(Click, InsideAClick_AnotherUpIsSwallowed_AndAnotherDownIsWords) {
  BeginWithCells();
  for (const Long cell : {1, 5, 14, 16}) {
    SCOPED_TRACE(cell);
    int runs = 0;
    OnExecute([&](Long) {
      ++runs;
      EXPECT_TRUE(IsHandling());
      const Input before = Held();
      EXPECT_FALSE(PressOn(3));
      EXPECT_TRUE(ReleaseOn(3));
      EXPECT_EQ(Held(), before);
    });
    MoveTo(cell);
    PressOn(cell);
    HearInput();
    EXPECT_TRUE(ReleaseOn(cell));
    EXPECT_EQ(AsText(Beginning(trace().Take(), "log HandleButtonUp")), "log HandleButtonUp IsHandling\n");
    EXPECT_EQ(runs, 1);
    EXPECT_FALSE(IsHandling());
    Move(Outside());
  }
}

TEST_F(Click, InsideAClick_MessagesThatThePumpBrings_ComeToTheStrip) {
  BeginWithCells();
  const Point fourth = MiddleOf(4);
  OnExecute([&](Long) {
    Place(fourth);
    const Long at = fourth.y * 65536 + fourth.x;
    for (const auto& [message, keys] : {std::pair{wm::kMouseMove, kNoKeys}, std::pair{wm::kLButtonDown, kLeftButton},
                                        std::pair{wm::kLButtonUp, kNoKeys}}) {
      world->desk.Host().Post(world->Bar(), message, keys, at);
    }
    world->desk.Windows().DoEvents();
  });
  MoveTo(9);
  PressOn(9);
  HearInput();
  EXPECT_TRUE(ReleaseOn(9));
  // The nested move highlights cell 4 and shows its tooltip, and with that the last click is forgotten.
  EXPECT_EQ(trace().TakeText(), BorderLine(9, 2) + ShowLine(4) + BorderLine(0, 2) + BorderLine(4, 0) +
                                    "log HandleButtonUp IsHandling\n" + ExecuteLine(9) + HideLine());
  EXPECT_EQ(Held(), (Input{4, 0, 0}));
  ExpectLook(4, 0);
}

TEST_F(Click, InsideAClickOnLumivex_TheMouseLeaves_AndNoTooltipIsShown) {
  BeginWithCells();
  OnExecute([&](Long) { Place(Outside()); });
  MoveTo(14);
  PressOn(14);
  HearInput();
  EXPECT_TRUE(ReleaseOn(14));
  EXPECT_EQ(trace().TakeText(), BorderLine(14, 2) + ExecuteLine(14) + LeftLines(0));
  EXPECT_EQ(Held(), Input());
}

TEST_F(Click, OnLumivex_TheTooltipTellsTheNewState) {
  BeginWithCells(Lumivex(false));
  OnExecute([&](Long) { ToggleLumivex(); });
  MoveTo(14);
  const String wasOff = world->word.TheProduct().Tooltip().Text();
  ClickOn(14);
  EXPECT_TRUE(world->word.TheProduct().Tooltip().IsShown());
  EXPECT_NE(world->word.TheProduct().Tooltip().Text(), wasOff);
  ExpectLook(0, 0);
  // From on to off the cell has no highlight that would go first.
  ClickOn(14);
  EXPECT_TRUE(world->word.TheProduct().Tooltip().IsShown());
  EXPECT_EQ(world->word.TheProduct().Tooltip().Text(), wasOff);
  EXPECT_EQ(Held(), (Input{14, 1, 14}));
}

TEST_F(Click, AfterAClick_TheCellsTooltipStaysAwayUntilTheMouseHasBeenElsewhere) {
  BeginWithCells();
  const auto& tooltip = world->word.TheProduct().Tooltip();
  MoveTo(5);
  EXPECT_TRUE(tooltip.IsShown());
  EXPECT_EQ(tooltip.Owner(), world->Top());
  ClickOn(5);
  EXPECT_FALSE(tooltip.IsShown());
  MoveTo(5);
  EXPECT_FALSE(tooltip.IsShown());
  MoveTo(6);
  EXPECT_TRUE(tooltip.IsShown());
  MoveTo(5);
  EXPECT_TRUE(tooltip.IsShown());
}

// --- failures ---

TEST_F(Click, OnTheMenusCell_WhoseControlFails_SkipsTheDropAndBringsTheStripToRestInSilence) {
  BeginWithCells();
  MoveTo(1);
  PressOn(1);
  world->word.Faults().Arm("control 1", "Execute", 1, 4605);
  HearInput();
  EXPECT_TRUE(ReleaseOn(1));
  EXPECT_EQ(trace().TakeText(), "call control 1 Execute ! 4605\n" + HideLine() + LeftLines(1));
  EXPECT_EQ(TakeErrors(), "");
  EXPECT_EQ(vbwProtector::lastError.number, 0);
  EXPECT_EQ(Held(), Input());
  EXPECT_FALSE(IsHandling());
  ExpectLook(0, 0);
}

// An error that something inside the command passed over isn't the command's.
TEST_F(Click, OnTheMenusCell_WhoseCommandPassedOverAnError_StillDropsTheMenu) {
  BeginWithCells();
  OnExecute([](Long) { vbwProtector::lastError = {1234, u"passed over"}; });
  MoveTo(1);
  HearInput();
  ReleaseOn(1);
  EXPECT_EQ(AsText(Beginning(trace().Take(), "Menu.Activate")), "Menu.Activate()\n");
}

struct SilentCase {
  Long cell;
  const char* object;
  const char* member;
  std::string lines;
};

TEST_F(Click, OnAnOrdinaryCell_WhateverFailsOnTheWay_EndsInSilenceAtRest) {
  BeginWithCells();
  const std::string lifted = BorderLine(6, 2);
  const SilentCase cases[] = {
      {6, "control 6", "Execute", lifted + "call control 6 Execute ! 1000\n" + HideLine()},
      {6, "bar Quillmere", "Controls", lifted + HideLine()},
      {6, "controls of bar Quillmere", "Item(6)", lifted + HideLine()},
      {6, "tooltip", "Hide", lifted + ExecuteLine(6) + "call tooltip Hide(forceHide:=True) ! 1000\n"},
      {14, "control 14", "Execute", BorderLine(14, 2) + "call control 14 Execute ! 1000\n" + ShowLine(14)},
  };
  for (const SilentCase& each : cases) {
    SCOPED_TRACE(std::string(each.object) + " " + each.member);
    Move(Outside());
    MoveTo(each.cell);
    PressOn(each.cell);
    world->word.Faults().Arm(each.object, each.member);
    HearInput();
    EXPECT_TRUE(ReleaseOn(each.cell));
    EXPECT_EQ(trace().TakeText(), each.lines);
    EXPECT_EQ(TakeErrors(), "");
    EXPECT_FALSE(IsHandling());
    EXPECT_EQ(Held(), (Input{0, 0, each.cell}));
    EXPECT_FALSE(world->word.Faults().IsArmed());
  }
}

TEST_F(Click, OnLumivexWhileItIsOff_ATooltipThatFails_IsPassedOver) {
  BeginWithCells();
  MoveTo(14);
  PressOn(14);
  world->word.Faults().Arm("tooltip", "Show");
  EXPECT_TRUE(ReleaseOn(14));
  EXPECT_EQ(TakeErrors(), "");
  EXPECT_FALSE(IsHandling());
}

// What the procedures on the way meet themselves is theirs to tell.
TEST_F(Click, AFailureInsideAProcedureOnTheWay_IsToldByThatProcedure) {
  BeginWithCells();
  MoveTo(1);
  PressOn(1);
  // The first is the click's own, the second that of the strip letting go.
  world->word.Faults().Arm("tooltip", "Hide", 2);
  EXPECT_TRUE(ReleaseOn(1));
  EXPECT_EQ(TakeErrors(), "1000 Buttons.HandleMouseLeftToolbar\n");
  EXPECT_FALSE(IsHandling());
  EXPECT_EQ(Held(), Input());
}

class StickyFailure : public Click {
 protected:
  // The command of the sticky cell fails, and the error component answers so.
  void FailWith(Long answer) {
    BeginWithCells(Lumivex(true));
    MoveTo(14);
    PressOn(14);
    world->word.Faults().Arm("control 14", "Execute");
    world->errors.Answer({Variant(answer)});
    HearInput();
    EXPECT_TRUE(ReleaseOn(14));
    EXPECT_EQ(TakeErrors(), "1000 Buttons.HandleButtonUp\n");
  }
};

TEST_F(StickyFailure, ThatEndsTheProcedure_LeavesTheStripSwallowingClicks) {
  FailWith(0);
  EXPECT_EQ(trace().TakeText(), "call control 14 Execute ! 1000\n");
  EXPECT_TRUE(IsHandling());
  int runs = 0;
  OnExecute([&](Long) { ++runs; });
  for (const Long cell : {1, 5, 14}) {
    MoveTo(cell);
    EXPECT_EQ(Held().highlighted, cell);
    EXPECT_FALSE(PressOn(cell));
    HearInput();
    EXPECT_TRUE(ReleaseOn(cell));
    EXPECT_EQ(trace().TakeText(), "log HandleButtonUp IsHandling\n");
  }
  EXPECT_EQ(runs, 0);
  EXPECT_TRUE(IsHandling());
}

TEST_F(StickyFailure, ThatIsGoneOnBehind_ShowsTheTooltipAndHearsTheNextClick) {
  FailWith(vbwProtector::kIgnore);
  EXPECT_EQ(trace().TakeText(), "call control 14 Execute ! 1000\n" + ShowLine(14));
  EXPECT_FALSE(IsHandling());
}

TEST_F(StickyFailure, ThatIsTriedAgain_RunsTheCommandAgain) {
  FailWith(vbwProtector::kRetry);
  EXPECT_EQ(trace().TakeText(), "call control 14 Execute ! 1000\n" + ExecuteLine(14) + ShowLine(14));
  EXPECT_FALSE(IsHandling());
}

TEST_F(StickyFailure, OfTheTooltip_IsToldToo) {
  BeginWithCells(Lumivex(true));
  MoveTo(14);
  PressOn(14);
  world->word.Faults().Arm("tooltip", "Show");
  EXPECT_TRUE(ReleaseOn(14));
  EXPECT_EQ(TakeErrors(), "1000 Buttons.HandleButtonUp\n");
  EXPECT_TRUE(IsHandling());
}

TEST_F(Click, AMoveWhoseTooltipFails_IsStillTheStrips_AndHighlightsOnlyWhereItIsGoneOn) {
  BeginWithCells();
  MoveTo(3);
  world->word.Faults().Arm("tooltip", "Show");
  EXPECT_TRUE(Strip().HandleMouseMove(false, MiddleOf(4).x, MiddleOf(4).y, false));
  EXPECT_EQ(TakeErrors(), "1000 Buttons.HandleMouseMove\n");
  EXPECT_EQ(Held(), (Input{3, 0, 0}));
  world->word.Faults().Arm("tooltip", "Show");
  world->errors.Answer({Variant(vbwProtector::kIgnore)});
  EXPECT_TRUE(Strip().HandleMouseMove(false, MiddleOf(4).x, MiddleOf(4).y, false));
  EXPECT_EQ(TakeErrors(), "1000 Buttons.HandleMouseMove\n");
  EXPECT_EQ(Held(), (Input{4, 0, 0}));
  ExpectLook(4, 0);
}

TEST_F(Click, Input_LeavesAsManyHandlesAsItFound) {
  BeginWithCells();
  MoveTo(3);
  const int contexts = world->Contexts();
  const int bitmaps = world->Bitmaps();
  for (int i = 0; i < 5; ++i) {
    ClickOn(5);
    ClickOn(1);
    ClickOn(14);
    Move(Outside());
    Tick();
  }
  EXPECT_EQ(world->Contexts(), contexts);
  EXPECT_EQ(world->Bitmaps(), bitmaps);
}

}  // namespace
}  // namespace strandline
