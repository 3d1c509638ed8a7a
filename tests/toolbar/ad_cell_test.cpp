// Cell 16 with an ad panel on it: what the panel is asked and told, and whose picture the cell shows.

#include "tests/toolbar/fake_ads.h"
#include "tests/toolbar/toolbar_fixture.h"

namespace strandline {
namespace {

constexpr Long kAdWidth = 200;
constexpr Long kAdHeight = 30;
constexpr Long kRed = 0x0000FF;

class AdCell : public ToolbarTest {
 protected:
  ~AdCell() override { FreePicture(); }

  void BeginWithPanel(bool withPicture, const char16_t* version = u"11.0") {
    FreePicture();
    Begin(WordOf(version));
    panel = New<FakePanel>(trace());
    if (withPicture) GivePicture();
    ToolbarUtilities::variables.adFactory = New<FakeAdFactory>(trace(), panel);
  }
  // Red, with a frame of the colour that is transparent.
  void GivePicture() {
    desk::SoftwareGraphics& graphics = world->desk.Graphics();
    panel->picture = graphics.CreateCompatibleDC(0);
    mStock = graphics.SelectObject(panel->picture, graphics.CreateBitmap(kAdWidth, kAdHeight, 1, 32));
    Fill({0, 0, kAdWidth, kAdHeight}, 0xFF0000);
    Fill({4, 4, kAdWidth - 4, kAdHeight - 4}, kRed);
    panel->width = kAdWidth;
    panel->height = kAdHeight;
  }
  void Fill(const Rect& area, Long color) {
    const Long brush = world->desk.Graphics().CreateSolidBrush(color);
    world->desk.Graphics().FillRect(panel->picture, area, brush);
    world->desk.Graphics().DeleteObject(brush);
  }
  void FreePicture() {
    if (panel && panel->picture != 0 && world) {
      desk::SoftwareGraphics& graphics = world->desk.Graphics();
      graphics.DeleteObject(graphics.SelectObject(panel->picture, mStock));
      graphics.DeleteDC(panel->picture);
    }
    toolbar = nullptr;
    panel = nullptr;
  }
  // The pixel in the middle of cell 16 in the frame.
  std::uint32_t Middle(const desk::Surface& surface) {
    const Rect r = world->word.CellPlace(16);
    return *surface.At((r.left + r.right) / 2, (r.top + r.bottom) / 2);
  }
  std::string PlaceText() {
    const Rect r = world->word.CellPlace(16);
    return std::to_string(world->Bar()) + ": " + std::to_string(r.left) + " " + std::to_string(r.top) + " " +
           std::to_string(r.right - r.left) + " by " + std::to_string(r.bottom - r.top) + "\n";
  }

  Ref<FakePanel> panel;

 private:
  Long mStock = 0;
};

TEST_F(AdCell, TheStart_MakesThePanelOfTheCellsPlace_AndTellsItItsPlaceBeforeItBegins) {
  BeginWithPanel(true);
  trace().Listen(Trace::kProcedures | Trace::kLogs | Trace::kContexts);
  trace().Only({"factory", "ad ", "Painter.Initialize", "Buttons.UpdateButtonRects", "Buttons.PaintIcon(1, 0"});
  MakeToolbar();
  EXPECT_EQ(trace().TakeText(),
            "Buttons.UpdateButtonRects()\n"
            "factory Create " +
                PlaceText() +
                "Painter.Initialize(top 1, bar 1, dc 1)\n"
                "Buttons.UpdateButtonRects()\n"
                "factory AfterPaint " +
                PlaceText() + "ad Initialize " + std::to_string(world->Bar()) +
                "\n"
                "Buttons.PaintIcon(1, 0, False)\n");
}

TEST_F(AdCell, AStripThatNeedsNoAdvert_AsksTheFactoryForNothing) {
  BeginWithPanel(true);
  trace().Listen(Trace::kLogs);
  trace().Only({"factory", "ad "});
  const Ref<Buttons> strip = New<Buttons>();
  strip->Initialize(world->Top(), world->Bar(), false);
  EXPECT_EQ(trace().TakeText(), "");
  EXPECT_EQ(strip->advert(), nullptr);
}

TEST_F(AdCell, OnlyARepaint_TellsThePanelItsPlaceAgain) {
  BeginWithPanel(true);
  MakeToolbar();
  world->word.PlaceCell(16, {300, 6, 520, 30});
  trace().Listen(Trace::kLogs);
  trace().Only({"factory", "ad "});
  Strip().HandlePaint(world->Top(), true);
  Strip().HandlePaint(world->Top(), false);
  Strip().PaintAd(true);
  EXPECT_EQ(trace().TakeText(), "");
  toolbar->Redraw();
  EXPECT_EQ(trace().TakeText(), "factory AfterPaint " + std::to_string(world->Bar()) + ": 300 6 220 by 24\n" +
                                    "ad Initialize " + std::to_string(world->Bar()) + "\n");
}

TEST_F(AdCell, ThePanelsPicture_IsShownInsteadOfTheOrdinaryOne) {
  for (const char16_t* version : {u"9.0", u"10.0", u"11.0"}) {
    BeginWithPanel(true, version);
    trace().Listen(Trace::kPictures);
    MakeToolbar();
    EXPECT_EQ(Beginning(trace().Take(), "picture 116").size(), 0u);
    EXPECT_EQ(Middle(world->Pixels(world->Bar())), 0xFF0000u);
    EXPECT_EQ(Middle(world->SurfaceOf(Frame())), 0xFF0000u);
  }
}

TEST_F(AdCell, APanelWithoutAPicture_LeavesTheOrdinaryOne) {
  BeginWithToolbar();
  const desk::Surface ordinary = world->Pixels(world->Bar());
  BeginWithPanel(false);
  trace().Listen(Trace::kPictures);
  MakeToolbar();
  EXPECT_NE(Strip().advert(), nullptr);
  EXPECT_EQ(Beginning(trace().Take(), "picture 116").size(), 1u);
  EXPECT_TRUE(world->Pixels(world->Bar()) == ordinary);
}

TEST_F(AdCell, WithoutAPanel_TheOrdinaryPictureIsShownAndNobodyIsTold) {
  Begin();
  ToolbarUtilities::variables.adFactory = New<FakeAdFactory>(trace(), nullptr);
  trace().Listen(Trace::kLogs | Trace::kPictures);
  trace().Only({"factory", "ad ", "picture 116"});
  MakeToolbar();
  EXPECT_EQ(trace().TakeText(), "factory Create " + PlaceText() + "picture 116\n");
  EXPECT_EQ(Strip().advert(), nullptr);
  world->Send(wm::kTimer, 4096);
  toolbar->ClickOnAd();
  toolbar->ValueChanged({}, u"x");
  toolbar->ReprimeTimerCycle();
  EXPECT_EQ(trace().TakeText(), "");
}

TEST_F(AdCell, PaintIcon_OfThePanelsPicture_GoesByItsContextAndSize) {
  BeginWithPanel(true);
  MakeToolbar();
  trace().Name(panel->picture, "ad");
  const Rect r = world->word.CellPlace(16);
  const std::string cell = std::to_string(r.left) + ", " + std::to_string(r.top) + ", " +
                           std::to_string(r.right - r.left) + ", " + std::to_string(r.bottom - r.top);
  for (const Boolean given : {false, true}) {
    trace().Listen(Trace::kProcedures | Trace::kPictures);
    trace().Only({"Painter.PaintDCTransparently", "Painter.PaintIconTransparently(", "picture"});
    Boolean erase = given;
    Strip().PaintIcon(16, 0, erase);
    EXPECT_EQ(trace().TakeText(),
              "Painter.PaintDCTransparently(ad, " + cell + ", 200, 30, 0, " + (given ? "True" : "False") + ")\n");
    EXPECT_EQ(erase, given);
  }
  EXPECT_TRUE(world->desk.Objects().IsLive(panel->picture));
}

TEST_F(AdCell, PaintAd_RenewsTheFrameAndPutsItDown) {
  BeginWithPanel(true);
  MakeToolbar();
  Fill({4, 4, kAdWidth - 4, kAdHeight - 4}, 0x00FF00);
  EXPECT_EQ(Middle(world->Pixels(world->Bar())), 0xFF0000u);
  trace().Listen(Trace::kDrawing | Trace::kContexts);
  trace().Only({"BitBlt"});
  trace().Name(Frame(), "frame");
  Strip().PaintAd(false);
  EXPECT_EQ(Middle(world->Pixels(world->Bar())), 0x00FF00u);
  EXPECT_TRUE(world->Pixels(world->Bar()) == world->SurfaceOf(Frame()));
  const Trace::Lines lines = trace().Take();
  const Rect bar = world->RectOf(world->Bar());
  EXPECT_EQ(lines.back(), "BitBlt(dc 1, 0, 0, " + std::to_string(bar.right - bar.left) + ", " +
                              std::to_string(bar.bottom - bar.top) + ", frame, 0, 0, SRCCOPY)");
}

TEST_F(AdCell, PaintAd_WithErasing_ClearsWhatAFormerPictureLeftInTheCell) {
  BeginWithPanel(true);
  MakeToolbar();
  panel->width = 40;
  panel->height = 10;
  Strip().PaintAd(false);
  const Rect r = world->word.CellPlace(16);
  const auto leftOf = [&] { return *world->Pixels(world->Bar()).At(r.left + 40, (r.top + r.bottom) / 2); };
  EXPECT_EQ(leftOf(), 0xFF0000u);
  Strip().PaintAd(true);
  EXPECT_NE(leftOf(), 0xFF0000u);
}

TEST_F(AdCell, AStepOfAFade_ReachesTheStripThroughTheTick) {
  BeginWithPanel(true);
  MakeToolbar();
  panel->onTick = [](AdStrip& strip) { strip.PaintAd(true); };
  trace().Listen(Trace::kLogs);
  trace().Only({"ad ", "log PaintAd"});
  world->Send(wm::kTimer, 4096);
  EXPECT_EQ(trace().TakeText(), "ad TimerTick " + std::to_string(world->Bar()) +
                                    "\n"
                                    "log PaintAd forceEraseBackgroundTrue\n");
  world->Send(wm::kTimer, 65537);
  world->Send(wm::kTimer, 0);
  EXPECT_EQ(trace().TakeText(), "");
}

TEST_F(AdCell, Toolbar_PassesClicksValuesAndNewAdsOnToThePanel) {
  BeginWithPanel(true);
  MakeToolbar();
  trace().Listen(Trace::kLogs);
  trace().Only({"ad "});
  toolbar->ClickOnAd();
  toolbar->ValueChanged(Array<Boolean>(0, 4), u"anything");
  toolbar->ReprimeTimerCycle();
  EXPECT_EQ(trace().TakeText(), "ad ClickOnAd\nad ValueChanged of 5\nad ReprimeTimerCycle True\n");
}

TEST_F(AdCell, SwitchListener_TellsThePanelTheNewWindowBeforeItPaintsThere) {
  BeginWithPanel(true);
  MakeToolbar();
  trace().Listen(Trace::kLogs | Trace::kContexts);
  trace().Only({"ad ", "log PaintAd", "GetDC"});
  world->word.DockBar(wordsim::BarPosition::kBottom);
  Trace::Lines lines = trace().Take();
  ASSERT_GE(lines.size(), 3u);
  lines.resize(3);
  EXPECT_EQ(AsText(lines), "ad SwitchListener " + std::to_string(world->Bar()) +
                               "\n"
                               "log PaintAd forceEraseBackgroundTrue\n"
                               "GetDC(bar 2) = dc 1\n");
}

TEST_F(AdCell, ADroppedAdCell_AsksThePanelForNoPicture) {
  BeginWithPanel(true);
  MakeToolbar();
  world->word.DropCell(16, true);
  Strip().UpdateButtonRects();
  trace().Listen(Trace::kProcedures | Trace::kPictures);
  trace().Only({"Painter.PaintDC", "picture"});
  Strip().PaintAd(true);
  EXPECT_EQ(trace().TakeText(), "");
}

}  // namespace
}  // namespace strandline
