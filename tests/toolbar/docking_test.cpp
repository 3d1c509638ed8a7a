// The user drags the bar to another dock: Word makes a new window for it, and the strip follows.

#include "tests/toolbar/toolbar_fixture.h"

namespace strandline {
namespace {

using wordsim::BarPosition;

class Docking : public ToolbarTest {
 protected:
  void Hear() {
    trace().Listen(Trace::kLogs | Trace::kProcedures | Trace::kHooks | Trace::kWindows);
    trace().Only({"log Before", "log SwitchListener", "Toolbar.SwitchListener", "Buttons.SwitchListener",
                  "Buttons.HandlePaint", "Buttons.PaintAd", "hook", "Toolbar.InSameDockingBar",
                  "ToolbarUtilities.ToolbarWindowHandle"});
  }
};

TEST_F(Docking, Hook_TheCaptureGoesToNobody_IsNotLookedInto) {
  BeginWithToolbar();
  trace().Listen(Trace::kWindows | Trace::kUses | Trace::kLogs | Trace::kContexts);
  world->Send(wm::kCaptureChanged, 0, 0);
  EXPECT_EQ(trace().TakeText(), "");
}

TEST_F(Docking, Hook_TheCaptureGoesElsewhere_LooksForTheBarAndStays) {
  BeginWithToolbar();
  const Long stranger = world->desk.Host().CreateWindowOf(u"Stranger", u"", 0, {0, 0, 10, 10}, nullptr);
  for (const Long gains : {stranger, world->Top(), world->Bar(), Long{-1}, Long{1}}) {
    Hear();
    world->Send(wm::kCaptureChanged, 0, gains);
    const Trace::Lines lines = trace().Take();
    EXPECT_EQ(Beginning(lines, "ToolbarUtilities.ToolbarWindowHandle").size(), 1u) << gains;
    EXPECT_EQ(Beginning(lines, "Toolbar.SwitchListener").size(), 0u) << gains;
    // Nothing waits: the next paint is an ordinary one.
    world->Send(wm::kPaint);
    EXPECT_EQ(AsText(Beginning(trace().Take(), "Buttons.HandlePaint")), "Buttons.HandlePaint(top 1, False)\n");
  }
}

TEST_F(Docking, Hook_AnotherWindowOfTheBarThatIsNotTheOneWithTheCapture_IsNotFollowed) {
  BeginWithToolbar();
  // A second bar window stands in front of the hooked one, but the capture goes elsewhere.
  const String top = u"MsoDockTop";
  const Long dock = world->desk.Windows().FindWindowExA(world->Top(), 0, nullptr, &top);
  const Long second = world->desk.Host().CreateWindowOf(u"MsoCommandBar", u"Quillmere", dock, {0, 0, 9, 9}, nullptr);
  world->desk.Windows().ShowWindow(second, 8);
  Hear();
  world->Send(wm::kCaptureChanged, 0, world->Top());
  EXPECT_EQ(Beginning(trace().Take(), "Toolbar.SwitchListener").size(), 0u);
  world->Send(wm::kCaptureChanged, 0, second);
  EXPECT_EQ(Beginning(trace().Take(), "Toolbar.SwitchListener").size(), 1u);
  EXPECT_EQ(ToolbarNumber(u"mHwnd"), second);
}

TEST_F(Docking, Hook_TheBarIsDragged_TheOldHookGoesTheNewOneComesAndTwoPaintsFollow) {
  for (const char16_t* version : {u"9.0", u"10.0", u"11.0"}) {
    for (const BarPosition to :
         {BarPosition::kLeft, BarPosition::kRight, BarPosition::kBottom, BarPosition::kFloating}) {
      SCOPED_TRACE(ToUtf8(version) + " to " + std::to_string(static_cast<int>(to)));
      BeginWithToolbar(WordOf(version));
      const Long old = world->Bar();
      Hear();
      std::size_t mostHooks = 0;
      trace().during = [&](const std::string&) { mostHooks = std::max(mostHooks, world->desk.Windows().LiveHooks()); };
      world->word.DockBar(to);
      const Long made = world->Bar();
      ASSERT_NE(made, old);
      trace().during = nullptr;
      Trace::Lines lines = trace().Take();
      // What the old window hears after that is no business of the strip's.
      while (!lines.empty() && !lines.back().starts_with("hook message(bar 1, 533")) lines.pop_back();
      Trace::Lines kept;
      for (const std::string& line : lines) {
        if (!line.starts_with("hook message(bar 1, 0")) kept.push_back(line);
      }
      EXPECT_EQ(AsText(kept),
                "Toolbar.InSameDockingBar(bar 2)\n"
                "ToolbarUtilities.ToolbarWindowHandle(top 1)\n"
                "Toolbar.SwitchListener(bar 2)\n"
                "log SwitchListener\n"
                "hook unsubclass(bar 1)\n"
                "hook subclass(bar 2)\n"
                "Buttons.SwitchListener(bar 2)\n"
                "Buttons.PaintAd(True)\n"
                "hook message(bar 1, 533, 0, " +
                    std::to_string(made) + ")\n");
      EXPECT_EQ(mostHooks, 1u);
      EXPECT_EQ(world->desk.Windows().LiveHooks(), 1u);
      EXPECT_EQ(ToolbarNumber(u"mHwnd"), made);
      EXPECT_EQ(StripNumber(u"mHwnd"), made);
      Hear();
      world->Settle();
      const Trace::Lines paints = Beginning(trace().Take(), "Buttons.HandlePaint");
      ASSERT_FALSE(paints.empty());
      EXPECT_EQ(paints.front(), "Buttons.HandlePaint(top 1, True)");
      // The cells are those of the new place.
      EXPECT_EQ(Cell(3).left, world->word.CellPlace(3).left);
      EXPECT_EQ(Cell(3).top, world->word.CellPlace(3).top);
      if (String(version) != u"11.0") PassOverFormerFrames();
    }
  }
}

TEST_F(Docking, Hook_AfterTheSwitch_TheFirstPaintIsDroppedAndTheSecondReadsTheCells) {
  BeginWithToolbar();
  Hear();
  world->word.DockBar(BarPosition::kBottom);
  world->Settle();
  const std::string before = "log Before Paint of " + Hex(world->Top()) + ", processCount = ";
  Trace::Lines paints;
  for (const std::string& line : trace().Take()) {
    if (line.starts_with("log Before Paint") || line.starts_with("Buttons.HandlePaint")) paints.push_back(line);
  }
  EXPECT_EQ(AsText(paints), before + "2\n" + before + "1\nButtons.HandlePaint(top 1, True)\n");
}

TEST_F(Docking, SwitchListener_With0_LooksForTheBarItself) {
  BeginWithToolbar();
  const Long bar = world->Bar();
  Hear();
  toolbar->SwitchListener(0);
  EXPECT_EQ(AsText(trace().Take()),
            "Toolbar.SwitchListener(0)\n"
            "log SwitchListener\n"
            "ToolbarUtilities.ToolbarWindowHandle(top 1)\n"
            "hook unsubclass(bar 1)\n"
            "hook subclass(bar 1)\n"
            "Buttons.SwitchListener(bar 1)\n"
            "Buttons.PaintAd(True)\n");
  EXPECT_EQ(ToolbarNumber(u"mHwnd"), bar);
  EXPECT_EQ(world->desk.Windows().LiveHooks(), 1u);
}

// Nothing is there to be taken off, which is no error; the strip that isn't there is one.
TEST_F(Docking, SwitchListener_WithoutAHookAndAStrip_PutsAHookOn) {
  Begin();
  toolbar = New<Toolbar>();
  toolbar->SwitchListener(world->Bar());
  EXPECT_EQ(TakeErrors(), "91 Toolbar.SwitchListener\n");
  EXPECT_EQ(world->desk.Windows().LiveHooks(), 1u);
  EXPECT_EQ(ToolbarNumber(u"mHwnd"), 0);
  world->errors.Answer({Variant(vbwProtector::kIgnore)});
  toolbar->SwitchListener(world->Bar());
  EXPECT_EQ(TakeErrors(), "91 Toolbar.SwitchListener\n");
  EXPECT_EQ(world->desk.Windows().LiveHooks(), 1u);
  EXPECT_EQ(ToolbarNumber(u"mHwnd"), world->Bar());
}

TEST_F(Docking, SwitchListener_ByItself_LeavesTheCountOfPaintsAlone) {
  BeginWithToolbar();
  toolbar->SwitchListener(world->Bar());
  Hear();
  world->Send(wm::kPaint);
  EXPECT_EQ(AsText(Beginning(trace().Take(), "Buttons.HandlePaint")), "Buttons.HandlePaint(top 1, False)\n");
}

TEST_F(Docking, SwitchListener_TheStripGoesFirst_ThenTheToolbarTakesTheWindowForItsOwn) {
  BeginWithToolbar();
  const Long old = world->Bar();
  Long toolbarWindow = 0;
  Long stripWindow = 0;
  Hear();
  trace().during = [&](const std::string& line) {
    if (!line.starts_with("Buttons.PaintAd")) return;
    toolbarWindow = ToolbarNumber(u"mHwnd");
    stripWindow = StripNumber(u"mHwnd");
  };
  world->word.DockBar(BarPosition::kBottom);
  EXPECT_EQ(toolbarWindow, old);
  EXPECT_EQ(stripWindow, world->Bar());
}

TEST_F(Docking, SwitchListener_OfTheStrip_ReadsNoCell) {
  BeginWithToolbar();
  trace().Listen(Trace::kUses);
  trace().Only({"get control", "get CommandBars"});
  Strip().SwitchListener(world->Bar());
  EXPECT_EQ(trace().TakeText(), "");
}

TEST_F(Docking, SwitchListener_InsideItsOwnEvent_LetsTheOldHookEndItsEvent) {
  Begin();
  const Long old = world->Bar();
  OtherHook underneath(*world, old);
  MakeToolbar();
  Hear();
  trace().Only({"hook", "word gets 533"});
  // The message is passed on to Word after the hook that took it has been dropped.
  world->word.DockBar(BarPosition::kBottom);
  Trace::Lines lines;
  for (const std::string& line : trace().Take()) {
    if (line.starts_with("hook message") && line.find(", 533,") == std::string::npos) continue;
    lines.push_back(line);
  }
  ASSERT_GE(lines.size(), 4u);
  lines.resize(4);
  const std::string gains = std::to_string(world->Bar());
  EXPECT_EQ(AsText(lines), "hook unsubclass(bar 1)\nhook subclass(bar 2)\nhook message(bar 1, 533, 0, " + gains +
                               ")\nword gets 533(0, " + gains + ")\n");
  toolbar = nullptr;
}

TEST_F(Docking, TheOldWindow_AfterTheSwitch_IsWordsAlone) {
  BeginWithToolbar();
  const Long old = world->Bar();
  const Long stranger = world->desk.Host().CreateWindowOf(u"MsoCommandBar", u"Quillmere", 0, {0, 0, 9, 9}, nullptr);
  toolbar->SwitchListener(stranger);
  Hear();
  for (const Long message : {wm::kSize, wm::kMouseMove, wm::kTimer, wm::kLButtonDown}) {
    world->desk.Windows().SendMessageA(old, message, 1, 1);
  }
  EXPECT_EQ(trace().TakeText(), "");
}

}  // namespace
}  // namespace strandline
