// The frame: which occasion renews how much of it, in which order, and how it reaches the window.

#include "tests/toolbar/toolbar_fixture.h"

namespace strandline {
namespace {

class StripFrame : public ToolbarTest {
 protected:
  void HearSteps() {
    trace().Listen(Trace::kProcedures | Trace::kContexts | Trace::kLogs);
    trace().Only({"log PaintIcons", "log Need a repaint", "log PaintAd", "Painter.NeedRepaint", "Painter.Initialize",
                  "Buttons.UpdateButtonRects", "Buttons.PaintIcon(", "Buttons.UpdateLumivexIcon", "Painter.BltBuffer",
                  "GetDC", "ReleaseDC", "BeginPaint", "EndPaint"});
  }
};

std::string AllIcons() {
  std::string text;
  for (int i = 1; i <= 16; ++i) text += "Buttons.PaintIcon(" + std::to_string(i) + ", 0, False)\n";
  return text;
}

TEST_F(StripFrame, PaintIcons_Forced_TakesTheBackgroundThenTheCellsThenAllIconsInOrder) {
  BeginWithToolbar();
  const std::string top = Hex(world->Top());
  trace().Name(Frame(), "former frame");
  HearSteps();
  trace().during = [&](const std::string& line) {
    if (line.starts_with("Buttons.UpdateButtonRects")) trace().Name(Frame(), "frame");
  };
  Strip().PaintIcons(world->Top(), false, true);
  EXPECT_EQ(trace().TakeText(),
            "log PaintIcons\n"
            "GetDC(bar 1) = dc 1\n"
            "log Need a repaint for " +
                top +
                "\n"
                "Painter.Initialize(top 1, bar 1, dc 1)\n"
                "Buttons.UpdateButtonRects()\n" +
                AllIcons() +
                "Buttons.UpdateLumivexIcon()\n"
                "Buttons.PaintIcon(14, frame, True)\n"
                "GetDC(bar 1) = dc 2\n"
                "Buttons.PaintIcon(14, dc 2, True)\n"
                "ReleaseDC(bar 1, dc 2)\n"
                "Painter.BltBuffer(dc 1, False)\n"
                "ReleaseDC(bar 1, dc 1)\n");
}

struct OccasionCase {
  const char* name;
  bool background;
  bool cells;
  bool icons;
  bool frame;
  std::function<void(ToolbarWorld&, Toolbar&, Buttons&)> occasion;
};

TEST_F(StripFrame, EachOccasion_RenewsNoMoreThanItsShare) {
  const auto widen = [](ToolbarWorld& w) {
    const Rect place = w.RectOf(w.Bar());
    w.desk.Host().MoveWindow(w.Bar(), {place.left, place.top, place.right + 24, place.bottom});
  };
  const OccasionCase cases[] = {
      {"a strip's start", true, true, true, true,
       [](ToolbarWorld& w, Toolbar&, Buttons&) { New<Buttons>()->Initialize(w.Top(), w.Bar(), false); }},
      {"a redraw", true, true, true, true, [](ToolbarWorld&, Toolbar& own, Buttons&) { own.Redraw(); }},
      {"a paint of another size", true, true, true, true,
       [&](ToolbarWorld& w, Toolbar&, Buttons& strip) {
         widen(w);
         strip.HandlePaint(w.Top(), false);
       }},
      {"a paint with new cells", false, true, false, true,
       [](ToolbarWorld& w, Toolbar&, Buttons& strip) { strip.HandlePaint(w.Top(), true); }},
      {"any other paint", false, false, false, true,
       [](ToolbarWorld& w, Toolbar&, Buttons& strip) { strip.HandlePaint(w.Top(), false); }},
      {"the picture of the ad cell", false, false, false, true,
       [](ToolbarWorld&, Toolbar&, Buttons& strip) { strip.PaintAd(false); }},
      {"an edge", false, false, false, false,
       [](ToolbarWorld& w, Toolbar&, Buttons& strip) {
         const Long hdc = w.desk.Graphics().GetDC(w.Bar());
         strip.ToggleBorder(hdc, 5, 0);
         w.desk.Graphics().ReleaseDC(w.Bar(), hdc);
       }},
  };
  for (const OccasionCase& each : cases) {
    SCOPED_TRACE(each.name);
    BeginWithToolbar();
    HearSteps();
    trace().Only({"Painter.Initialize", "Buttons.UpdateButtonRects", "Buttons.PaintIcon(1, 0", "Painter.BltBuffer"});
    each.occasion(*world, *toolbar, Strip());
    const Trace::Lines lines = trace().Take();
    EXPECT_EQ(!Beginning(lines, "Painter.Initialize").empty(), each.background);
    EXPECT_EQ(!Beginning(lines, "Buttons.UpdateButtonRects").empty(), each.cells);
    EXPECT_EQ(!Beginning(lines, "Buttons.PaintIcon(1, 0").empty(), each.icons);
    EXPECT_EQ(!Beginning(lines, "Painter.BltBuffer").empty(), each.frame);
  }
}

TEST_F(StripFrame, PaintIcons_Forced_AsksNotWhetherTheSizeDiffers) {
  BeginWithToolbar();
  HearSteps();
  Strip().PaintIcons(world->Top(), false, true);
  EXPECT_EQ(Beginning(trace().Take(), "Painter.NeedRepaint").size(), 0u);
  Strip().PaintIcons(world->Top(), false, false);
  EXPECT_EQ(Beginning(trace().Take(), "Painter.NeedRepaint").size(), 1u);
}

TEST_F(StripFrame, NeedToPaintBackground_IsThePaintersAnswer) {
  BeginWithToolbar();
  EXPECT_FALSE(Strip().NeedToPaintBackground(world->Top()).ToBoolean());
  const Rect place = world->RectOf(world->Bar());
  world->desk.Host().MoveWindow(world->Bar(), {place.left, place.top, place.right, place.bottom + 1});
  EXPECT_TRUE(Strip().NeedToPaintBackground(world->Top()).ToBoolean());
}

TEST_F(StripFrame, PaintAd_SaysItsFlag_AndPaintsTheCellThroughAContextOfItsOwn) {
  BeginWithToolbar();
  for (const Boolean erase : {false, true}) {
    HearSteps();
    Strip().PaintAd(erase);
    const std::string flag = erase ? "True" : "False";
    EXPECT_EQ(trace().TakeText(), "log PaintAd forceEraseBackground" + flag +
                                      "\n"
                                      "GetDC(bar 1) = dc 1\n"
                                      "Buttons.PaintIcon(16, dc 1, " +
                                      flag +
                                      ")\n"
                                      "Painter.BltBuffer(dc 1, False)\n"
                                      "ReleaseDC(bar 1, dc 1)\n");
  }
}

TEST_F(StripFrame, APaint_TakesAwayWhatTheWindowShowsBeyondTheFrame_AndNoMoveWithinTheCellBringsItBack) {
  BeginWithToolbar();
  const desk::Surface strip = world->Pixels(world->Bar());
  const auto moveTo = [&](Long index, Long x) {
    const Rect cell = world->word.CellPlace(index);
    world->Send(wm::kMouseMove, 0, (cell.top + 12) * 65536 + cell.left + x);
  };
  moveTo(5, 9);
  EXPECT_FALSE(world->Pixels(world->Bar()) == strip);
  world->Send(wm::kPaint);
  EXPECT_TRUE(world->Pixels(world->Bar()) == strip);
  moveTo(5, 12);
  EXPECT_TRUE(world->Pixels(world->Bar()) == strip);
  // But that of another cell does come.
  moveTo(6, 9);
  EXPECT_FALSE(world->Pixels(world->Bar()) == strip);
}

TEST_F(StripFrame, APaint_ShowsTheFrameItself) {
  for (const char16_t* version : {u"9.0", u"10.0", u"11.0"}) {
    BeginWithToolbar(WordOf(version));
    world->Send(wm::kPaint);
    EXPECT_TRUE(world->Pixels(world->Bar()) == world->SurfaceOf(Frame())) << ToUtf8(version);
  }
}

TEST_F(StripFrame, ThePaintThatReadsTheCells_MovesNoIconUntilTheNextRepaint) {
  BeginWithToolbar();
  std::vector<Rect> places;
  for (Long i = 1; i <= 16; ++i) places.push_back(world->word.CellPlace(i));
  for (Long i = 1; i <= 16; ++i) world->word.PlaceCell(i, places[static_cast<std::size_t>(i - 1)]);
  world->Settle();
  const desk::Surface strip = world->Pixels(world->Bar());
  world->word.PlaceCell(3, {400, 3, 431, 37});
  Strip().HandlePaint(world->Top(), true);
  EXPECT_EQ(Cell(3).left, 400);
  EXPECT_TRUE(world->Pixels(world->Bar()) == strip);
  toolbar->Redraw();
  EXPECT_FALSE(world->Pixels(world->Bar()) == strip);
}

TEST_F(StripFrame, Strips_OfTwoDocuments_PaintTheirOwnWindows) {
  BeginWithToolbar();
  const Long firstBar = world->Bar();
  const desk::Surface first = world->Pixels(firstBar);
  world->OpenInWord(u"Notes.doc");
  world->Settle();
  const Ref<Toolbar> second = New<Toolbar>();
  second->Initialize(world->Top());
  world->Settle();
  trace().Listen(Trace::kContexts);
  world->Send(wm::kPaint);
  for (const std::string& line : trace().Take()) EXPECT_NE(line.find("(bar 2"), std::string::npos) << line;
  EXPECT_TRUE(world->Pixels(world->Bar()) == first);
  second->Terminate();
}

}  // namespace
}  // namespace strandline
