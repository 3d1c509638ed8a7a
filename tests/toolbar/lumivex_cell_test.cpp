// Cell 14: sunken as long as the Lumivex feature is on, clean while it is off; part of the frame in either case.

#include "tests/toolbar/toolbar_fixture.h"

namespace strandline {
namespace {

class LumivexCell : public ToolbarTest {
 protected:
  static wordsim::Settings With(bool on, const char16_t* version = u"11.0") {
    wordsim::Settings settings = WordOf(version);
    settings.lumivexEnabled = on;
    return settings;
  }
  // The pixels of a cell's outermost rows and columns.
  std::vector<std::uint32_t> EdgeOf(const desk::Surface& surface, Long index) {
    const Rect r = world->word.CellPlace(index);
    std::vector<std::uint32_t> edge;
    for (Long x = r.left; x < r.right; ++x) {
      edge.push_back(*surface.At(x, r.top));
      edge.push_back(*surface.At(x, r.bottom - 1));
    }
    for (Long y = r.top; y < r.bottom; ++y) {
      edge.push_back(*surface.At(r.left, y));
      edge.push_back(*surface.At(r.right - 1, y));
    }
    return edge;
  }
  // The outermost lines of a sunken edge: shadow on top and to the left, highlight below and to the right.
  bool IsSunken(const desk::Surface& surface, Long index) {
    const auto color = [&](Long number) {
      return desk::PixelFromColorRef(static_cast<std::uint32_t>(world->desk.Graphics().GetSysColor(number)));
    };
    const Rect r = world->word.CellPlace(index);
    return *surface.At(r.left + 3, r.top) == color(16) && *surface.At(r.left, r.top + 3) == color(16) &&
           *surface.At(r.left + 3, r.bottom - 1) == color(20) && *surface.At(r.right - 1, r.top + 3) == color(20) &&
           *surface.At(r.left + 3, r.top + 1) == color(21) && *surface.At(r.left + 3, r.bottom - 2) == color(22);
  }
};

TEST_F(LumivexCell, TheStripsStart_TakesTheFeaturesState) {
  for (const bool on : {false, true}) {
    BeginWithToolbar(With(on));
    EXPECT_EQ(StripNumber(u"mLumivexButtonState"), on ? 1 : 2);
    EXPECT_EQ(IsSunken(world->Pixels(world->Bar()), 14), on);
    EXPECT_EQ(IsSunken(world->SurfaceOf(Frame()), 14), on);
  }
}

TEST_F(LumivexCell, AStripThatHasNotPaintedYet_KnowsNoState) {
  Begin(With(true));
  const Ref<Buttons> strip = New<Buttons>();
  EXPECT_EQ(VariableSnapshot::Of(*strip).Number(u"mLumivexButtonState"), 0);
  EXPECT_FALSE(strip->stickyButton(14));
}

TEST_F(LumivexCell, UpdateLumivexIcon_PutsTheStateIntoTheFrameAndOnTheWindowAtOnce) {
  for (const char16_t* version : {u"9.0", u"10.0", u"11.0"}) {
    BeginWithToolbar(With(false, version));
    const desk::Surface off = world->Pixels(world->Bar());
    for (int round = 0; round < 2; ++round) {
      world->word.TheProduct().SetLumivex(true);
      toolbar->UpdateLumivexIcon();
      EXPECT_TRUE(IsSunken(world->Pixels(world->Bar()), 14));
      EXPECT_TRUE(world->Pixels(world->Bar()) == world->SurfaceOf(Frame()));
      world->word.TheProduct().SetLumivex(false);
      toolbar->UpdateLumivexIcon();
      EXPECT_TRUE(world->Pixels(world->Bar()) == off);
      EXPECT_TRUE(world->SurfaceOf(Frame()) == off);
    }
  }
}

struct UpdateCase {
  bool on;
  const char* expected;
};

TEST_F(LumivexCell, UpdateLumivexIcon_ReadsTheStateOnce_SaysIt_AndTogglesTwice) {
  const UpdateCase cases[] = {{true,
                               "get productState lumivexEnabled = True\n"
                               "log UpdateLumivexIcon enabled = true\n"
                               "Buttons.ToggleBorder(frame, 14, 1)\n"
                               "log ToggleBorder index=14, state=1\n"
                               "GetDC(bar 1) = dc 1\n"
                               "Buttons.ToggleBorder(dc 1, 14, 1)\n"
                               "log ToggleBorder index=14, state=1\n"
                               "ReleaseDC(bar 1, dc 1)\n"},
                              {false,
                               "get productState lumivexEnabled = False\n"
                               "log UpdateLumivexIcon enabled = false\n"
                               "Buttons.ToggleBorder(frame, 14, 2)\n"
                               "log ToggleBorder index=14, state=2\n"
                               "Buttons.PaintIcon(14, frame, True)\n"
                               "GetDC(bar 1) = dc 1\n"
                               "Buttons.ToggleBorder(dc 1, 14, 2)\n"
                               "log ToggleBorder index=14, state=2\n"
                               "Buttons.PaintIcon(14, dc 1, True)\n"
                               "ReleaseDC(bar 1, dc 1)\n"}};
  for (const UpdateCase& each : cases) {
    BeginWithToolbar(With(!each.on));
    world->word.TheProduct().SetLumivex(each.on);
    trace().Name(Frame(), "frame");
    trace().Listen(Trace::kUses | Trace::kLogs | Trace::kProcedures | Trace::kContexts);
    trace().Only({"get productState", "log Update", "log Toggle", "Buttons.ToggleBorder", "Buttons.PaintIcon(", "GetDC",
                  "ReleaseDC"});
    Strip().UpdateLumivexIcon();
    EXPECT_EQ(trace().TakeText(), each.expected);
  }
}

TEST_F(LumivexCell, StickyButton_IsCell14WhileTheFeatureIsOnAndNoOther) {
  for (const bool on : {false, true}) {
    BeginWithToolbar(With(on));
    for (Integer i = -1; i <= 17; ++i) EXPECT_EQ(Strip().stickyButton(i), on && i == 14) << i;
  }
}

TEST_F(LumivexCell, TheSunkenEdge_OutlastsThePaintOfAFrame) {
  BeginWithToolbar(With(true));
  for (int i = 0; i < 3; ++i) {
    world->Send(wm::kPaint);
    EXPECT_TRUE(IsSunken(world->Pixels(world->Bar()), 14));
  }
}

TEST_F(LumivexCell, AStateThatChangesSilently_ShowsWithTheNextPaint) {
  BeginWithToolbar(With(false));
  world->word.TheProduct().SetLumivex(true);
  EXPECT_FALSE(IsSunken(world->Pixels(world->Bar()), 14));
  world->Send(wm::kPaint);
  EXPECT_TRUE(IsSunken(world->Pixels(world->Bar()), 14));
  EXPECT_EQ(StripNumber(u"mLumivexButtonState"), 1);
}

TEST_F(LumivexCell, AStateThatCannotBeRead_CountsAsOn_WhereExecutionGoesOn) {
  BeginWithToolbar(With(false));
  world->word.Faults().Arm("productState", "lumivexEnabled");
  Strip().UpdateLumivexIcon();
  EXPECT_EQ(StripNumber(u"mLumivexButtonState"), 2);
  EXPECT_EQ(TakeErrors(), "1000 Buttons.UpdateLumivexIcon\n");
  world->word.Faults().Arm("productState", "lumivexEnabled");
  world->errors.Answer({Variant(vbwProtector::kIgnore)});
  Strip().UpdateLumivexIcon();
  EXPECT_EQ(StripNumber(u"mLumivexButtonState"), 1);
  EXPECT_EQ(TakeErrors(), "1000 Buttons.UpdateLumivexIcon\n");
}

TEST_F(LumivexCell, RemoveButtonHighlighting_WithAContext_UsesItAndOnlyIt) {
  BeginWithToolbar();
  Long hdc = world->desk.Graphics().GetDC(world->Bar());
  const Long given = hdc;
  trace().Name(hdc, "given");
  trace().Listen(Trace::kContexts | Trace::kProcedures);
  trace().Only({"GetDC", "ReleaseDC", "Buttons.ToggleBorder"});
  Strip().removeButtonHighlighting(hdc);
  EXPECT_EQ(trace().TakeText(), "Buttons.ToggleBorder(given, 0, 2)\n");
  EXPECT_EQ(hdc, given);
  world->desk.Graphics().ReleaseDC(world->Bar(), hdc);
}

TEST_F(LumivexCell, RemoveButtonHighlighting_WithoutOne_WritesTheContextThatItTook) {
  BeginWithToolbar();
  Long hdc = 0;
  Strip().removeButtonHighlighting(hdc);
  EXPECT_NE(hdc, 0);
  EXPECT_FALSE(world->desk.Objects().IsLive(hdc));
  EXPECT_EQ(StripNumber(u"mHighlightedButton"), 0);
  EXPECT_EQ(StripNumber(u"mButtonState"), 0);
}

}  // namespace
}  // namespace strandline
