// What the strip looks like. Each picture has been looked at; a change of one pixel shows.

#include "tests/support/golden.h"
#include "tests/toolbar/fake_ads.h"
#include "tests/toolbar/toolbar_fixture.h"

namespace strandline {
namespace {

using wordsim::BarPosition;

constexpr const char16_t* kWord2000 = u"9.0";
constexpr const char16_t* kWord2002 = u"10.0";
constexpr const char16_t* kWord2003 = u"11.0";

class GoldenStrip : public ToolbarTest {
 protected:
  static wordsim::Settings Settings(const char16_t* version, bool lumivex = false) {
    wordsim::Settings settings = WordOf(version);
    settings.lumivexEnabled = lumivex;
    return settings;
  }
  testing::AssertionResult Looks(const std::string& name) {
    return IsGolden(world->Pixels(world->Bar()), "strip_" + name);
  }
};

TEST_F(GoldenStrip, AtItsStart_OnEachWord) {
  const std::pair<const char16_t*, const char*> cases[] = {
      {kWord2000, "classic"}, {kWord2002, "classic"}, {kWord2003, "word2003"}};
  for (const auto& [version, name] : cases) {
    BeginWithToolbar(Settings(version));
    EXPECT_TRUE(Looks(name));
    world->Send(wm::kPaint);
    EXPECT_TRUE(Looks(name)) << "after a paint";
  }
}

TEST_F(GoldenStrip, WithLumivexOn) {
  const std::pair<const char16_t*, const char*> cases[] = {
      {kWord2000, "lumivex_classic"}, {kWord2002, "lumivex_classic"}, {kWord2003, "lumivex_word2003"}};
  for (const auto& [version, name] : cases) {
    BeginWithToolbar(Settings(version, true));
    EXPECT_TRUE(Looks(name));
  }
}

TEST_F(GoldenStrip, WhereverTheBarStands) {
  const std::pair<BarPosition, const char*> cases[] = {
      {BarPosition::kLeft, "left"}, {BarPosition::kBottom, "bottom"}, {BarPosition::kFloating, "floating"}};
  for (const auto& [position, name] : cases) {
    wordsim::Settings settings = Settings(kWord2003);
    settings.barPosition = position;
    BeginWithToolbar(settings);
    EXPECT_TRUE(Looks(name));
  }
}

TEST_F(GoldenStrip, AfterADragToTheLeft) {
  BeginWithToolbar(Settings(kWord2003, true));
  world->word.DockBar(BarPosition::kLeft);
  world->Settle();
  EXPECT_TRUE(Looks("dragged_left"));
}

TEST_F(GoldenStrip, OnABarOfFiveControls_TheRestCentresOnTheCorner) {
  wordsim::Settings settings = Settings(kWord2003);
  settings.controlCount = 5;
  BeginWithToolbar(settings);
  EXPECT_TRUE(Looks("five_controls"));
}

TEST_F(GoldenStrip, OnANarrowBar_TheLastCellsAreGone_AndComeBackWithTheRoom) {
  BeginWithToolbar(Settings(kWord2003));
  const Rect bar = world->RectOf(world->Bar());
  const desk::Surface whole = world->Pixels(world->Bar());
  world->word.ResizeBar(300, bar.bottom - bar.top);
  EXPECT_TRUE(Looks("narrow"));
  world->word.ResizeBar(bar.right - bar.left, bar.bottom - bar.top);
  EXPECT_TRUE(world->Pixels(world->Bar()) == whole);
}

TEST_F(GoldenStrip, WithLowCells_CutsWhatErasesAndOverdrawsWithTheRest) {
  wordsim::Settings settings = Settings(kWord2003);
  settings.controlHeight = 22;
  BeginWithToolbar(settings);
  EXPECT_TRUE(Looks("low_cells"));
}

TEST_F(GoldenStrip, InTheUserManual) {
  Begin(Settings(kWord2003));
  world->OpenInWord(u"Quillmere user manual.doc");
  world->Settle();
  MakeToolbar();
  EXPECT_TRUE(Looks("user_manual"));
}

TEST_F(GoldenStrip, OfTheSecondProduct) {
  Begin(Settings(kWord2003));
  world->word.TheProduct().Rename(u"Halcyra");
  MakeToolbar();
  EXPECT_TRUE(Looks("second_product"));
}

TEST_F(GoldenStrip, WithEdgesOnTheWindow) {
  BeginWithToolbar(Settings(kWord2003, true));
  const Long hdc = world->desk.Graphics().GetDC(world->Bar());
  Strip().ToggleBorder(hdc, 5, 0);
  Strip().ToggleBorder(hdc, 9, 1);
  world->desk.Graphics().ReleaseDC(world->Bar(), hdc);
  EXPECT_TRUE(Looks("edges"));
}

TEST_F(GoldenStrip, WithAnAd) {
  Begin(Settings(kWord2003));
  const Ref<FakePanel> panel = New<FakePanel>(trace());
  desk::SoftwareGraphics& graphics = world->desk.Graphics();
  panel->picture = graphics.CreateCompatibleDC(0);
  panel->width = 160;
  panel->height = 26;
  const Long stock = graphics.SelectObject(panel->picture, graphics.CreateBitmap(160, 26, 1, 32));
  const std::pair<Rect, Long> areas[] = {{{0, 0, 160, 26}, 0xFF0000},
                                         {{3, 3, 157, 23}, 0x60A0FF},
                                         {{20, 8, 60, 18}, 0xFF0000},
                                         {{70, 8, 140, 18}, 0x802000}};
  for (const auto& [area, color] : areas) {
    const Long brush = graphics.CreateSolidBrush(color);
    graphics.FillRect(panel->picture, area, brush);
    graphics.DeleteObject(brush);
  }
  ToolbarUtilities::variables.adFactory = New<FakeAdFactory>(trace(), panel);
  MakeToolbar();
  EXPECT_TRUE(Looks("ad"));
  graphics.DeleteObject(graphics.SelectObject(panel->picture, stock));
  graphics.DeleteDC(panel->picture);
  panel->picture = 0;
}

// Up to Word 2002 the background comes from the screen, by way of a paint that passes the hook while the painter is
// half built: its contexts are new and hold one pixel. That paint draws cell 14 on the window, and what is there then
// is what the background is.
TEST_F(GoldenStrip, AfterACaptureThroughTheHook) {
  for (const char16_t* version : {kWord2000, kWord2002}) {
    for (const bool lumivex : {false, true}) {
      BeginWithToolbar(Settings(version, lumivex));
      const Rect bar = world->RectOf(world->Bar());
      std::optional<desk::Surface> captured;
      trace().Listen(Trace::kWindows);
      // The paint of the capture is over; what the window shows now is taken.
      trace().during = [&](const std::string& line) {
        if (line == "SendMessageA(bar 1, 15, 0, 0)") captured = world->Pixels(world->Bar());
      };
      world->word.ResizeBar(bar.right - bar.left + 30, bar.bottom - bar.top);
      trace().during = nullptr;
      const std::string which = lumivex ? "classic_lumivex" : "classic";
      ASSERT_TRUE(captured.has_value());
      EXPECT_TRUE(IsGolden(*captured, "capture_" + which));
      EXPECT_TRUE(*captured == world->SurfaceOf(Background()));
      EXPECT_TRUE(Looks("captured_" + which));
      PassOverFormerFrames();
    }
  }
}

// On Word 2000 a paint behind another program's window keeps the old frame, whatever the size.
TEST_F(GoldenStrip, BehindAnotherWindowOnWord2000) {
  BeginWithToolbar(Settings(kWord2000));
  const desk::Surface frame = world->SurfaceOf(Frame());
  const Rect bar = world->RectOf(world->Bar());
  world->word.Cover(true);
  world->word.ResizeBar(bar.right - bar.left + 30, bar.bottom - bar.top);
  for (int i = 0; i < 3; ++i) world->Send(wm::kPaint);
  EXPECT_TRUE(world->SurfaceOf(Frame()) == frame);
  world->word.Cover(false);
  world->Settle();
  EXPECT_TRUE(Looks("captured_classic"));
  PassOverFormerFrames();
}

}  // namespace
}  // namespace strandline
