// Edges around cells: drawn, taken away, and what the states mean.

#include "tests/toolbar/toolbar_fixture.h"

namespace strandline {
namespace {

class Borders : public ToolbarTest {
 protected:
  Borders() { BeginWithToolbar(); }
  // What a toggle on the window's context draws and asks for.
  std::string Toggle(Integer index, Long state) {
    const Long hdc = world->desk.Graphics().GetDC(world->Bar());
    trace().Name(hdc, "window");
    trace().Listen(Trace::kLogs | Trace::kProcedures | Trace::kDrawing);
    trace().Only({"log ToggleBorder", "Buttons.PaintIcon(", "DrawEdge"});
    Strip().ToggleBorder(hdc, index, state);
    world->desk.Graphics().ReleaseDC(world->Bar(), hdc);
    return trace().TakeText();
  }
  std::string Edge(Long index, int edge) {
    const Rect r = world->word.CellPlace(index);
    return "DrawEdge(window, [" + std::to_string(r.left) + " " + std::to_string(r.top) + " " + std::to_string(r.right) +
           " " + std::to_string(r.bottom) + "], " + std::to_string(edge) + ", 15)\n";
  }
  static std::string Said(int index, int state) {
    return "log ToggleBorder index=" + std::to_string(index) + ", state=" + std::to_string(state) + "\n";
  }
};

TEST_F(Borders, ToggleBorder_OfNoCell_SaysSoAndDoesNothing) {
  for (const Long state : {0, 1, 2, 3, -1}) EXPECT_EQ(Toggle(0, state), Said(0, state));
}

TEST_F(Borders, ToggleBorder_State0IsRaised_2PaintsTheCellClean_EveryOtherIsSunken) {
  EXPECT_EQ(Toggle(5, 0), Said(5, 0) + Edge(5, 5));
  EXPECT_EQ(Toggle(5, 2), Said(5, 2) + "Buttons.PaintIcon(5, window, True)\n");
  for (const Long state : {1, 3, 4, 10, -1, 32767}) EXPECT_EQ(Toggle(5, state), Said(5, state) + Edge(5, 10)) << state;
}

TEST_F(Borders, ToggleBorder_KnowsEachCellsPlace) {
  for (Integer i = 1; i <= 16; ++i) EXPECT_EQ(Toggle(i, 0), Said(i, 0) + Edge(i, 5));
}

TEST_F(Borders, ToggleBorder_OfACellThatNoBarHas_IsAnErrorOfItsOwn) {
  EXPECT_EQ(Toggle(17, 0), Said(17, 0));
  EXPECT_EQ(TakeErrors(), "9 Buttons.ToggleBorder\n");
}

TEST_F(Borders, ToggleBorder_State2_BringsTheCellBackToWhatTheFrameShows) {
  const desk::Surface strip = world->Pixels(world->Bar());
  for (Integer i = 1; i <= 16; ++i) {
    Toggle(i, 0);
    EXPECT_FALSE(world->Pixels(world->Bar()) == strip) << i;
    Toggle(i, 1);
    EXPECT_FALSE(world->Pixels(world->Bar()) == strip) << i;
    Toggle(i, 2);
    EXPECT_TRUE(world->Pixels(world->Bar()) == strip) << i;
  }
}

TEST_F(Borders, ToggleBorder_OnTheWindow_LeavesTheFrameAlone) {
  const desk::Surface frame = world->SurfaceOf(Frame());
  for (const Long state : {0, 1, 2}) {
    Toggle(8, state);
    EXPECT_TRUE(world->SurfaceOf(Frame()) == frame) << state;
  }
}

TEST_F(Borders, AnEdge_LiesJustInsideTheCell) {
  const desk::Surface before = world->Pixels(world->Bar());
  Toggle(9, 0);
  const desk::Surface after = world->Pixels(world->Bar());
  const Rect r = world->word.CellPlace(9);
  for (int y = 0; y < after.height; ++y) {
    for (int x = 0; x < after.width; ++x) {
      const bool isInner = x >= r.left + 2 && x < r.right - 2 && y >= r.top + 2 && y < r.bottom - 2;
      const bool isOutside = x < r.left || x >= r.right || y < r.top || y >= r.bottom;
      if (!isInner && !isOutside) continue;
      ASSERT_EQ(*after.At(x, y), *before.At(x, y)) << x << ", " << y;
    }
  }
  const auto color = [&](Long number) {
    return desk::PixelFromColorRef(static_cast<std::uint32_t>(world->desk.Graphics().GetSysColor(number)));
  };
  EXPECT_EQ(*after.At(r.left, r.top), color(22));
  EXPECT_EQ(*after.At(r.left + 1, r.top + 1), color(20));
  EXPECT_EQ(*after.At(r.right - 1, r.bottom - 1), color(21));
  EXPECT_EQ(*after.At(r.right - 2, r.bottom - 2), color(16));
}

TEST_F(Borders, ToggleBorder_OfADroppedCell_DrawsWhereTheCellWasButPaintsNothing) {
  world->word.DropCell(4, true);
  Strip().UpdateButtonRects();
  EXPECT_EQ(Toggle(4, 0), Said(4, 0) + Edge(4, 5));
  const desk::Surface with = world->Pixels(world->Bar());
  EXPECT_EQ(Toggle(4, 2), Said(4, 2) + "Buttons.PaintIcon(4, window, True)\n");
  EXPECT_TRUE(world->Pixels(world->Bar()) == with);
}

}  // namespace
}  // namespace strandline
