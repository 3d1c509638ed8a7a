#include "tests/wordsim/world_fixture.h"
#include "wordsim/product_objects.h"
#include "wordsim/tooltip_window.h"

namespace strandline::wordsim {
namespace {

constexpr Rect kScreen{0, 0, 400, 300};
constexpr Size kBox{60, 18};

TEST(Tooltip_ItsPlace, IsNearThePointerAndBesideTheBar) {
  const struct {
    const char* where;
    Point pointer;
    Rect bar;
    Rect place;
  } kCases[] = {
      {"nothing is in the way", {100, 100}, {0, 0, 300, 40}, {100, 120, 160, 138}},
      {"over the bar, below it", {100, 10}, {0, 0, 300, 40}, {100, 42, 160, 60}},
      {"the bar is at the bottom, above it", {100, 280}, {0, 260, 300, 300}, {100, 240, 160, 258}},
      {"the bar stands at the left, right of it", {10, 100}, {0, 0, 40, 300}, {42, 120, 102, 138}},
      {"the bar stands at the right, left of it", {380, 100}, {360, 0, 400, 300}, {298, 120, 358, 138}},
      {"kept on the screen", {390, 295}, {0, 0, 1, 1}, {340, 282, 400, 300}},
      {"no room anywhere", {100, 10}, {0, 0, 400, 300}, {100, 30, 160, 48}},
  };
  for (const auto& each : kCases) {
    EXPECT_EQ(PlaceOfTooltip(kBox, each.pointer, each.bar, kScreen), each.place) << each.where;
  }
}

class Tooltip : public WorldTest {
 protected:
  Tooltip() {
    Settings settings;
    settings.showsTooltips = true;
    Begin(settings).Open(u"A.doc");
    Wait(10);
  }
  Object TooltipObjectOf() { return World().Properties().Get("tooltip").ToObject(); }
  void Show(const char16_t* text) {
    TooltipObjectOf().Call("Show", World().ActiveTopWindow(), text, Named{"forceRedraw", true},
                           Named{"addBackground", false});
    Wait(10);
  }
  Long Window() { return World().WindowByName("tooltip 1"); }
};

TEST_F(Tooltip, Shown_IsAYellowBoxThatTakesNoActivation) {
  Windows().MoveTo({60, 300});
  Show(u"Insert");
  ASSERT_TRUE(IsShown(Window()));
  const Rect place = RectOf(Window());
  EXPECT_EQ(place.left, 60);
  EXPECT_GT(place.top, 300);
  EXPECT_EQ(Windows().WindowAt({place.left + 1, place.top + 1}), Window());
  EXPECT_EQ(*mDesk.Screen().At(place.left + 1, place.top + 1) & 0xFFFFFF, 0xFFFFE1u);
  EXPECT_EQ(*mDesk.Screen().At(place.left, place.top) & 0xFFFFFF, 0u);
  EXPECT_EQ(Windows().GetActiveWindow(), World().ActiveTopWindow());
}

TEST_F(Tooltip, ALongerText_MakesAWiderBox) {
  Show(u"Insert");
  const Rect narrow = RectOf(Window());
  Show(u"Insert a citation or a reference");
  const Rect wide = RectOf(Window());
  EXPECT_GT(wide.right - wide.left, narrow.right - narrow.left);
  EXPECT_EQ(World().WindowByName("tooltip 2"), 0) << "there is one window";
}

TEST_F(Tooltip, HiddenOrWithoutText_DoesntShow) {
  Show(u"Insert");
  TooltipObjectOf().Call("Hide", Named{"forceHide", true});
  EXPECT_FALSE(IsShown(Window()));
  EXPECT_TRUE(World().TheProduct().Tooltip().WasForced());
  Show(u"Insert");
  EXPECT_TRUE(IsShown(Window()));
  Show(u"");
  EXPECT_FALSE(IsShown(Window()));
  EXPECT_TRUE(World().TheProduct().Tooltip().IsShown()) << "it was asked for";
}

TEST_F(Tooltip, OverTheBar_LeavesItsPixelsAlone) {
  const Rect bar = RectOf(World().ActiveBarWindow());
  Windows().MoveTo({bar.left + 50, bar.top + 5});
  Show(u"Insert");
  EXPECT_GE(RectOf(Window()).top, bar.bottom);
}

TEST_F(Tooltip, WithoutAWindow_RemembersAllTheSame) {
  Begin().Open(u"A.doc");
  Show(u"Insert");
  EXPECT_EQ(Window(), 0);
  EXPECT_TRUE(World().TheProduct().Tooltip().IsShown());
  EXPECT_TRUE(World().TheProduct().Tooltip().WasForced());
  EXPECT_FALSE(World().TheProduct().Tooltip().HasBackground());
}

TEST_F(Tooltip, TheWorldGone_IsGoneToo) {
  const Object held = TooltipObjectOf();
  Show(u"Insert");
  const Long window = Window();
  mWorld.reset();
  EXPECT_FALSE(Windows().IsWindow(window));
  EXPECT_NE(NumberRaised([&] { held.Call("Show", Long{1}, u"Insert"); }), 0);
}

}  // namespace
}  // namespace strandline::wordsim
