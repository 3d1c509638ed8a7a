// What becomes of a paint of the bar's window: which ones are dropped, which ones read the cells anew, and where Word
// paints first.

#include "tests/toolbar/toolbar_fixture.h"

namespace strandline {
namespace {

constexpr const char16_t* kWord2000 = u"9.0";
constexpr const char16_t* kWord2002 = u"10.0";
constexpr const char16_t* kWord2003 = u"11.0";

class HookPaint : public ToolbarTest {
 protected:
  void Hear() {
    trace().Listen(Trace::kLogs | Trace::kProcedures | Trace::kHooks);
    trace().Only({"log Before", "Buttons.HandlePaint", "Buttons.NeedToPaintBackground", "hook", "word gets"});
  }
  std::string BeforePaint(int count) {
    return "log Before Paint of " + Hex(world->Top()) + ", processCount = " + std::to_string(count) + "\n";
  }
  // A size that Word has only told of; the window is as large as before.
  void SendSize() { world->Send(wm::kSize); }
  // The window's width changes, and the messages of that are over.
  void Widen(Long pixels) {
    const Rect place = world->RectOf(world->Bar());
    world->desk.Host().MoveWindow(world->Bar(), {place.left, place.top, place.right + pixels, place.bottom});
  }
};

TEST_F(HookPaint, Hook_AfterASizeThreePaints_TheFirstIsDroppedTheSecondReadsTheCellsTheThirdDoesNot) {
  BeginWithToolbar();
  Hear();
  SendSize();
  for (int i = 0; i < 3; ++i) world->Send(wm::kPaint);
  EXPECT_EQ(trace().TakeText(),
            "log BeforeSize\n"
            "hook message(bar 1, 5, 0, 0)\n" +
                BeforePaint(2) + "hook message(bar 1, 15, 0, 0) cancelled\n" + BeforePaint(1) +
                "Buttons.HandlePaint(top 1, True)\n"
                "hook message(bar 1, 15, 0, 0) cancelled\n" +
                BeforePaint(0) +
                "Buttons.HandlePaint(top 1, False)\n"
                "hook message(bar 1, 15, 0, 0) cancelled\n");
}

TEST_F(HookPaint, Hook_ASecondSizeBetweenTheTwoPaints_BeginsTheCountAgain) {
  BeginWithToolbar();
  SendSize();
  world->Send(wm::kPaint);
  SendSize();
  Hear();
  world->Send(wm::kPaint);
  world->Send(wm::kPaint);
  EXPECT_EQ(AsText(Beginning(trace().Take(), "Buttons.")), "Buttons.HandlePaint(top 1, True)\n");
}

TEST_F(HookPaint, Hook_TheDroppedPaint_LeavesTheWindowInvalidWhichBringsTheNextOne) {
  BeginWithToolbar();
  Hear();
  Widen(40);
  trace().Take();
  trace().Only({"log Before", "Buttons.HandlePaint", "hook message(bar 1, 15"});
  world->Settle();
  EXPECT_EQ(trace().TakeText(), BeforePaint(2) + "hook message(bar 1, 15, 0, 0) cancelled\n" + BeforePaint(1) +
                                    "Buttons.HandlePaint(top 1, True)\n"
                                    "hook message(bar 1, 15, 0, 0) cancelled\n");
  EXPECT_TRUE(world->desk.Windows().UpdateRegion(world->Bar()).IsEmpty());
}

TEST_F(HookPaint, Hook_TheDroppedPaint_DoesNothingAtAll) {
  BeginWithToolbar();
  SendSize();
  trace().Listen(Trace::kUses | Trace::kWindows | Trace::kContexts | Trace::kObjects | Trace::kDrawing |
                 Trace::kPictures);
  world->Send(wm::kPaint);
  EXPECT_EQ(trace().TakeText(), "");
}

struct PreviousCase {
  const char* name;
  const char16_t* version;
  bool sizeDiffers;
  bool covered;
  bool afterSize;     // the paint that reads the cells
  bool wordPaints;    // first
  bool cellsAreRead;  // HandlePaint's second argument
};

constexpr PreviousCase kPreviousCases[] = {
    {"2003", kWord2003, false, false, false, false, false},
    {"2003, another size", kWord2003, true, false, false, false, false},
    {"2003 after a size", kWord2003, false, false, true, false, true},
    {"2003 after a size, another size", kWord2003, true, false, true, false, true},
    {"2002", kWord2002, false, false, false, false, false},
    {"2002, another size", kWord2002, true, false, false, true, false},
    {"2002 after a size", kWord2002, false, false, true, true, true},
    {"2002 after a size, another size", kWord2002, true, false, true, true, true},
    {"2002 covered, another size", kWord2002, true, true, false, true, false},
    {"2000", kWord2000, false, false, false, false, false},
    {"2000, another size", kWord2000, true, false, false, true, false},
    {"2000 after a size", kWord2000, false, false, true, true, true},
    {"2000 covered, another size", kWord2000, true, true, false, false, false},
    {"2000 covered after a size, another size", kWord2000, true, true, true, true, true},
};

TEST_F(HookPaint, Hook_WordPaintsFirst_OnlyUpToWord2002AndOnlyForANewBackgroundOrNewCells) {
  for (const PreviousCase& each : kPreviousCases) {
    SCOPED_TRACE(each.name);
    BeginWithToolbar(WordOf(each.version));
    if (each.sizeDiffers) {
      // The strip hears nothing of the change but finds it.
      OtherHook over(*world, world->Bar());
      over.kept = {wm::kSize};
      Widen(9);
    }
    if (each.covered) world->word.Cover(true);
    if (each.afterSize) {
      SendSize();
      world->Send(wm::kPaint);
    }
    Hear();
    trace().Only({"hook previous", "Buttons.HandlePaint"});
    world->Send(wm::kPaint);
    const Trace::Lines lines = trace().Take();
    ASSERT_FALSE(lines.empty());
    EXPECT_EQ(lines.front().starts_with("hook previous(bar 1, 15, 0, 0)"), each.wordPaints) << AsText(lines);
    const Trace::Lines handled = Beginning(lines, "Buttons.HandlePaint");
    ASSERT_FALSE(handled.empty());
    EXPECT_EQ(handled.front(), std::string("Buttons.HandlePaint(top 1, ") + (each.cellsAreRead ? "True)" : "False)"));
    PassOverFormerFrames();
  }
}

// The whole sequence: where Word paints, it does so once, before the strip and not behind it.
TEST_F(HookPaint, Hook_WordPaintsOnce_AndOnlyBeforeTheStrip) {
  for (const char16_t* version : {kWord2000, kWord2002, kWord2003}) {
    SCOPED_TRACE(ToUtf8(version));
    BeginWithToolbar(WordOf(version));
    const auto paint = [this] {
      Hear();
      trace().Only({"hook previous", "Buttons.HandlePaint"});
      world->Send(wm::kPaint);
      return trace().TakeText();
    };
    EXPECT_EQ(paint(), "Buttons.HandlePaint(top 1, False)\n");
    SendSize();
    EXPECT_EQ(paint(), "");
    const bool wordPaints = String(version) != kWord2003;
    EXPECT_EQ(paint(),
              std::string(wordPaints ? "hook previous(bar 1, 15, 0, 0)\n" : "") + "Buttons.HandlePaint(top 1, True)\n");
    EXPECT_EQ(paint(), "Buttons.HandlePaint(top 1, False)\n");
  }
}

// The toolbar ends after the paint has found its strip and before the strip is asked for anything.
TEST_F(HookPaint, Hook_APaintWhoseToolbarEndsBeforeTheStripIsAsked_PaintsTheStripThatItFound) {
  for (const char16_t* version : {kWord2000, kWord2002, kWord2003}) {
    SCOPED_TRACE(ToUtf8(version));
    BeginWithToolbar(WordOf(version));
    const Long top = world->Top();
    trace().Listen(Trace::kLogs | Trace::kProcedures | Trace::kUses);
    trace().Only({"Buttons.NeedToPaintBackground", "Buttons.HandlePaint", "log End Toolbar", "log Buttons terminated",
                  "log BltBuffer"});
    bool hasEnded = false;
    trace().during = [&](const std::string& line) {
      if (hasEnded || !line.starts_with("get Application Version")) return;
      hasEnded = true;
      toolbar->Terminate();
    };
    world->Send(wm::kPaint);
    trace().during = nullptr;
    const bool isAsked = String(version) != kWord2003;
    EXPECT_EQ(trace().TakeText(), "log End Toolbar terminate of " + Hex(top) + "\n" +
                                      (isAsked ? "Buttons.NeedToPaintBackground(top 1)\n" : "") +
                                      "Buttons.HandlePaint(top 1, False)\nlog BltBuffer\nlog Buttons terminated\n");
  }
}

TEST_F(HookPaint, Hook_OnWord2003_IsNotAskedForItsBackground) {
  BeginWithToolbar();
  Hear();
  world->Send(wm::kPaint);
  EXPECT_EQ(AsText(Beginning(trace().Take(), "Buttons.")), "Buttons.HandlePaint(top 1, False)\n");
}

TEST_F(HookPaint, Hook_OnWord2002_IsAskedForItsBackgroundBeforeItPaints) {
  BeginWithToolbar(WordOf(kWord2002));
  Hear();
  world->Send(wm::kPaint);
  EXPECT_EQ(AsText(Beginning(trace().Take(), "Buttons.")),
            "Buttons.NeedToPaintBackground(top 1)\n"
            "Buttons.HandlePaint(top 1, False)\n");
}

TEST_F(HookPaint, Hook_EachPaintThatGetsThere_ReadsWordsVersionAfresh) {
  // The hook asks whether Word paints first, and where it may, the strip asks for the guard of Word 2000: for the hook,
  // and for itself.
  const std::pair<const char16_t*, int> cases[] = {{kWord2000, 3}, {kWord2002, 3}, {kWord2003, 2}};
  for (const auto& [version, reads] : cases) {
    BeginWithToolbar(WordOf(version));
    trace().Listen(Trace::kUses);
    trace().Only({"get Application Version"});
    world->Send(wm::kPaint);
    const std::string once = "get Application Version = " + ToUtf8(version) + "\n";
    std::string expected;
    for (int i = 0; i < reads; ++i) expected += once;
    EXPECT_EQ(trace().TakeText(), expected);
  }
}

// Word's answer counts at each paint: the road changes with it.
TEST_F(HookPaint, Hook_WhereTheVersionCannotBeRead_PaintsByTheOlderRoad) {
  BeginWithToolbar();
  world->word.Faults().Arm("Application", "Version");
  Hear();
  world->Send(wm::kPaint);
  EXPECT_EQ(AsText(Beginning(trace().Take(), "Buttons.")),
            "Buttons.NeedToPaintBackground(top 1)\n"
            "Buttons.HandlePaint(top 1, False)\n");
  EXPECT_EQ(TakeErrors(), "1000 CommonWordInteractionFunctions.WordVersion[Get]\n");
}

TEST_F(HookPaint, HandlePaint_ValidatesTheWindow_AndDrawsThroughContextsOfItsOwn) {
  BeginWithToolbar();
  world->desk.Host().InvalidateWindow(world->Bar());
  trace().Listen(Trace::kContexts | Trace::kDrawing);
  world->Settle();
  const Trace::Lines lines = trace().Take();
  ASSERT_FALSE(lines.empty());
  const std::string opened = lines.front();
  EXPECT_TRUE(opened.starts_with("BeginPaint(bar 1, [")) << opened;
  EXPECT_TRUE(opened.ends_with("= dc 1")) << opened;
  EXPECT_TRUE(lines.back().starts_with("EndPaint(bar 1, [")) << lines.back();
  for (std::size_t i = 1; i + 1 < lines.size(); ++i) EXPECT_EQ(lines[i].find("dc 1)"), std::string::npos) << lines[i];
  for (std::size_t i = 1; i + 1 < lines.size(); ++i) EXPECT_FALSE(lines[i].starts_with("BitBlt(dc 1,")) << lines[i];
  EXPECT_TRUE(world->desk.Windows().UpdateRegion(world->Bar()).IsEmpty());
}

TEST_F(HookPaint, HandlePaint_OfAFewInvalidPixels_PutsTheWholeStripDown) {
  BeginWithToolbar();
  const desk::Surface strip = world->Pixels(world->Bar());
  const Rect place = world->RectOf(world->Bar());
  // Somebody draws over the strip at both ends; only one small window that goes makes a few pixels invalid.
  const Long hdc = world->desk.Graphics().GetDC(world->Bar());
  const Long brush = world->desk.Graphics().CreateSolidBrush(0x00FF00);
  world->desk.Graphics().FillRect(hdc, {0, 0, 30, 10}, brush);
  world->desk.Graphics().FillRect(hdc, {300, 10, 400, 20}, brush);
  world->desk.Graphics().DeleteObject(brush);
  world->desk.Graphics().ReleaseDC(world->Bar(), hdc);
  const Long cover = world->desk.Host().CreateWindowOf(
      u"Cover", u"", 0, {place.left + 3, place.top + 3, place.left + 8, place.top + 8}, nullptr);
  world->desk.Windows().ShowWindow(cover, 8);
  world->Settle();
  world->desk.Host().DestroyWindow(cover);
  ASSERT_FALSE(world->Pixels(world->Bar()) == strip);
  world->Settle();
  EXPECT_TRUE(world->Pixels(world->Bar()) == strip);
}

}  // namespace
}  // namespace strandline
