// How a toolbar goes: one last message through its hook, then the window is Word's again.

#include "tests/support/main2_access.h"
#include "tests/toolbar/toolbar_fixture.h"

namespace strandline {
namespace {

class ToolbarEnd : public ToolbarTest {
 protected:
  void Hear() {
    trace().Listen(Trace::kLogs | Trace::kHooks | Trace::kWindows);
    trace().Only({"log", "hook", "word gets", "SendMessageA"});
  }
};

TEST_F(ToolbarEnd, Terminate_SendsOneMessageThroughTheHook_ThenLetsGoOfWindowAndStrip) {
  Begin();
  OtherHook word(*world, world->Bar());
  MakeToolbar();
  Hear();
  const std::string top = Hex(world->Top());
  toolbar->Terminate();
  // The hook passes the message on by itself and doesn't keep it, so Word gets it twice.
  EXPECT_EQ(trace().TakeText(), "log Start Toolbar terminate of " + top + "\nlog " + top +
                                    " quit message\n"
                                    "word gets 18(0, 0)\n"
                                    "hook previous(bar 1, 18, 0, 0)\n"
                                    "hook message(bar 1, 18, 0, 0)\n"
                                    "word gets 18(0, 0)\n"
                                    "SendMessageA(bar 1, 18, 0, 0)\n"
                                    "hook unsubclass(bar 1)\n"
                                    "log Buttons terminated\n"
                                    "log Advertisements terminated\n"
                                    "log End Toolbar terminate of " +
                                    top + "\n");
  const VariableSnapshot variables = VariableSnapshot::Of(*toolbar);
  EXPECT_TRUE(variables.Flag(u"mQuitting"));
  EXPECT_TRUE(variables[u"mHook"].ToObject().IsNothing());
  EXPECT_TRUE(variables[u"mButtons"].ToObject().IsNothing());
  EXPECT_EQ(world->desk.Windows().LiveHooks(), 1u);  // the test's own
}

TEST_F(ToolbarEnd, Terminate_ASecondTime_DoesNothing) {
  BeginWithToolbar();
  toolbar->Terminate();
  Hear();
  toolbar->Terminate();
  EXPECT_EQ(trace().TakeText(), "");
}

TEST_F(ToolbarEnd, TheLastOwnerLetsGo_EndsTheToolbarAndSaysSo) {
  BeginWithToolbar();
  Hear();
  trace().Only({"log"});
  const std::string top = Hex(world->Top());
  toolbar = nullptr;
  EXPECT_EQ(trace().TakeText(), "log Start Toolbar terminate of " + top + "\nlog " + top +
                                    " quit message\nlog Buttons terminated\nlog Advertisements terminated\n" +
                                    "log End Toolbar terminate of " + top + "\nlog Toolbar " + top + " terminated\n");
}

TEST_F(ToolbarEnd, TheLastOwnerLetsGo_OfAToolbarThatHasEnded_SaysOnlyThat) {
  BeginWithToolbar();
  toolbar->Terminate();
  Hear();
  toolbar = nullptr;
  EXPECT_EQ(trace().TakeText(), "log Toolbar " + Hex(world->Top()) + " terminated\n");
}

TEST_F(ToolbarEnd, TheLastOwnerLetsGo_OfAToolbarThatNeverBegan_TouchesNoWindow) {
  Begin();
  Hear();
  toolbar = New<Toolbar>();
  toolbar = nullptr;
  EXPECT_EQ(trace().TakeText(),
            "log Start Toolbar terminate of 0\n"
            "SendMessageA(0, 18, 0, 0)\n"
            "log End Toolbar terminate of 0\n"
            "log Toolbar 0 terminated\n");
}

TEST_F(ToolbarEnd, Hook_BetweenTheEndsBeginAndTheUnhooking_SwallowsEveryOtherMessage) {
  Begin();
  OtherHook word(*world, world->Bar());
  MakeToolbar();
  const desk::Surface before = world->Pixels(world->Bar());
  const std::string top = Hex(world->Top());
  std::string expected;
  bool sent = false;
  word.during = [&](Long message) {
    if (message != wm::kQuit || sent) return;
    sent = true;
    trace().Listen(Trace::kLogs | Trace::kHooks | Trace::kContexts | Trace::kDrawing | Trace::kUses | Trace::kTimers |
                   Trace::kProcedures);
    trace().Only({"log", "hook message", "word gets", "GetDC", "BeginPaint", "BitBlt", "DrawEdge", "get", "KillTimer",
                  "Buttons"});
    for (const Long each : {wm::kPaint, wm::kSize, wm::kTimer, wm::kMouseMove, wm::kLButtonDown, wm::kLButtonUp,
                            wm::kRButtonDown, wm::kNcMouseMove, wm::kCaptureChanged, Long{1024}}) {
      world->Send(each, 4096, world->Bar());
      expected += "log " + top + " is dying: " + Hex(each) + "\n" + "hook message(bar 1, " + std::to_string(each) +
                  ", 4096, " + std::to_string(world->Bar()) + ") cancelled\n";
    }
    EXPECT_EQ(trace().TakeText(), expected);
  };
  toolbar->Terminate();
  EXPECT_TRUE(sent);
  EXPECT_TRUE(world->Pixels(world->Bar()) == before);
  trace().Listen(0);
}

TEST_F(ToolbarEnd, Hook_WM_QUITWhileTheToolbarLives_IsWordsBusiness) {
  Begin();
  OtherHook word(*world, world->Bar());
  MakeToolbar();
  Hear();
  world->Send(wm::kQuit, 3, 4);
  EXPECT_EQ(trace().TakeText(), "hook message(bar 1, 18, 3, 4)\nword gets 18(3, 4)\n");
  toolbar = nullptr;
}

TEST_F(ToolbarEnd, TheWindow_AfterTheEnd_IsWordsAgain) {
  BeginWithToolbar();
  const desk::Surface strip = world->Pixels(world->Bar());
  toolbar->Terminate();
  Hear();
  trace().Only({"hook", "log"});
  world->desk.Host().InvalidateWindow(world->Bar());
  world->Settle();
  EXPECT_EQ(trace().TakeText(), "");
  EXPECT_FALSE(world->Pixels(world->Bar()) == strip);
}

TEST_F(ToolbarEnd, Terminate_LetsGoOfAllContextsAndBitmapsButThoseThatAllShare) {
  for (const char16_t* version : {u"9.0", u"10.0", u"11.0"}) {
    Begin(WordOf(version));
    const int contexts = world->Contexts();
    const int bitmaps = world->Bitmaps();
    MakeToolbar();
    EXPECT_EQ(world->Contexts(), contexts + 6) << ToUtf8(version);
    EXPECT_EQ(world->Bitmaps(), bitmaps + 6) << ToUtf8(version);
    toolbar = nullptr;
    // The frames' background, the ads', and the one ad.
    EXPECT_EQ(world->Contexts(), contexts + 3) << ToUtf8(version);
    EXPECT_EQ(world->Bitmaps(), bitmaps + 3) << ToUtf8(version);
    world->main->Quit();
    EXPECT_EQ(world->Contexts(), contexts) << ToUtf8(version);
    EXPECT_EQ(world->Bitmaps(), bitmaps) << ToUtf8(version);
  }
}

// The end of the product, brought about by what a paint asks of it.
class EndInsideAPaint : public ToolbarTest {
 protected:
  // Paints once; at the first line that begins so the product ends. Gives what is heard from there on.
  Trace::Lines PaintAndQuitAt(const std::string& beginning, const char16_t* version, Long widen) {
    toolbar = nullptr;
    if (world) CheckErrors();
    world = std::make_unique<ToolbarWorld>(WordOf(version));
    world->Start();
    world->Open(kDocument);
    world->Settle();
    trace().Listen(Trace::kLogs | Trace::kHooks | Trace::kUses | Trace::kContexts | Trace::kDrawing |
                   Trace::kProcedures | Trace::kWindows);
    bool hasQuit = false;
    taken = 0;
    if (widen != 0) {
      const Rect place = world->RectOf(world->Bar());
      world->desk.Host().MoveWindow(world->Bar(), {place.left, place.top, place.right + widen, place.bottom});
      world->Send(wm::kPaint);
    }
    trace().during = [&](const std::string& line) {
      taken += line.starts_with("GetDC(") || line.starts_with("BeginPaint(");
      taken -= line.starts_with("ReleaseDC(") || line.starts_with("EndPaint(");
      if (hasQuit || !line.starts_with(beginning)) return;
      hasQuit = true;
      trace().Take();
      world->main->Quit();
    };
    world->Send(wm::kPaint);
    trace().during = nullptr;
    EXPECT_TRUE(hasQuit) << beginning;
    return trace().Take();
  }

  int taken = 0;  // contexts of windows that were taken and not given back
};

TEST_F(EndInsideAPaint, Paint_WhileWhichTheToolbarEnds_KeepsItsStripToTheEnd) {
  for (const char16_t* version : {u"9.0", u"10.0", u"11.0"}) {
    SCOPED_TRACE(ToUtf8(version));
    const Trace::Lines lines = PaintAndQuitAt("get productState lumivexEnabled", version, 0);
    const auto at = [&](const std::string& beginning) {
      for (std::size_t i = 0; i < lines.size(); ++i) {
        if (lines[i].starts_with(beginning)) return static_cast<int>(i);
      }
      ADD_FAILURE() << "no line " << beginning << " in\n" << AsText(lines);
      return -1;
    };
    // The hook is off before the paint goes on; the strip goes when the paint is over.
    EXPECT_LT(at("hook unsubclass(bar 1)"), at("log End Toolbar terminate"));
    EXPECT_LT(at("log End Toolbar terminate"), at("log BltBuffer"));
    EXPECT_LT(at("log BltBuffer"), at("EndPaint(bar 1"));
    EXPECT_LT(at("EndPaint(bar 1"), at("log Buttons terminated"));
    EXPECT_LT(at("log Buttons terminated"), at("hook message(bar 1, 15, 0, 0) cancelled"));
    EXPECT_EQ(world->desk.Windows().LiveHooks(), 0u);
    EXPECT_EQ(TakeErrors(), "");
    EXPECT_EQ(TakeMisuses(), "");
  }
}

TEST_F(EndInsideAPaint, Paint_WhereverTheProductEndsInIt_LeavesNoHookAndGivesTheWindowsContextsBack) {
  for (const char16_t* version : {u"9.0", u"10.0", u"11.0"}) {
    for (const char* moment :
         {"log Before Paint", "BeginPaint", "log PaintIcons", "GetDC", "log Need a repaint", "log(1) Initialize for",
          "get bar Quillmere Controls", "get control 7 width", "log PaintIconImpl", "get productState lumivexEnabled",
          "log ToggleBorder", "log BltBuffer", "ReleaseDC"}) {
      SCOPED_TRACE(ToUtf8(version) + " at " + moment);
      PaintAndQuitAt(moment, version, 30);
      EXPECT_EQ(world->desk.Windows().LiveHooks(), 0u);
      EXPECT_EQ(world->desk.Windows().LiveTimers(), 0u);
      // Where it ends before the ads are told of the paint, they are gone then, and that error gives the frame up where
      // it stands, with the context that was to be painted on.
      const bool isBeforeTheAds =
          std::string(moment).starts_with("get bar") || std::string(moment).starts_with("get con");
      EXPECT_EQ(taken, isBeforeTheAds ? 1 : 0);
      // What the strip asked of Word and the product after their end is an error of its procedures and no more.
      TakeErrors();
      world->desk.Misuses().Clear();
      world->Unload();
    }
  }
}

}  // namespace
}  // namespace strandline
