// Where a point lies: on a cell, in the strip, near its edge, or gone.

#include <random>

#include "platform/convert.h"
#include "tests/toolbar/input_fixture.h"

namespace strandline {
namespace {

class Hits : public InputTest {
 protected:
  void PlaceCell(Long cell, const Rect& place) {
    ASSERT_TRUE(world->word.PlaceCell(cell, place));
    ASSERT_TRUE(Strip().UpdateButtonRects());
  }
};

struct AreaCase {
  Long x;
  Long y;
  bool isInside;
  bool isInsideMargins;
};

TEST_F(Hits, InToolbarClientArea_TakesItsFourEdgesIn_AndWithMarginsThoseSevenPixelsFurtherIn) {
  BeginWithCells();
  ASSERT_EQ(BoundingRect(), (Rect{10, 3, 790, 37}));
  const AreaCase cases[] = {
      {100, 20, true, true},
      // left
      {9, 20, false, false},
      {10, 20, true, false},
      {16, 20, true, false},
      {17, 20, true, true},
      // right
      {783, 20, true, true},
      {784, 20, true, false},
      {790, 20, true, false},
      {791, 20, false, false},
      // top
      {100, 2, false, false},
      {100, 3, true, false},
      {100, 9, true, false},
      {100, 10, true, true},
      // bottom
      {100, 30, true, true},
      {100, 31, true, false},
      {100, 37, true, false},
      {100, 38, false, false},
      // corners
      {10, 3, true, false},
      {790, 37, true, false},
      {17, 10, true, true},
      {783, 30, true, true},
      // far away
      {-1, -1, false, false},
      {65535, 20, false, false},
      {2147483647, 2147483647, false, false},
      {-2147483647 - 1, 20, false, false},
  };
  for (const AreaCase& each : cases) {
    SCOPED_TRACE(std::to_string(each.x) + ", " + std::to_string(each.y));
    const Variant inside = Strip().inToolbarClientArea(each.x, each.y, false);
    const Variant insideMargins = Strip().inToolbarClientArea(each.x, each.y, true);
    EXPECT_EQ(inside.ToBoolean(), each.isInside);
    EXPECT_EQ(insideMargins.ToBoolean(), each.isInsideMargins);
    // What isn't True is empty.
    EXPECT_EQ(inside.IsEmpty(), !each.isInside);
    EXPECT_EQ(insideMargins.IsEmpty(), !each.isInsideMargins);
  }
}

TEST_F(Hits, ThePixelColumnOfTwoCells_IsTheLowerOnes) {
  BeginWithCells();
  const Rect third = world->word.CellPlace(3);
  ASSERT_EQ(third.right, world->word.CellPlace(4).left);
  const Integer y = 20;
  EXPECT_EQ(Strip().HighlightedButtonIndex(ToInteger(third.right - 1), y), 3);
  EXPECT_EQ(Strip().HighlightedButtonIndex(ToInteger(third.right), y), 3);
  EXPECT_EQ(Strip().HighlightedButtonIndex(ToInteger(third.right + 1), y), 4);
  EXPECT_TRUE(Strip().inCtrl(4, ToInteger(third.right), y));
  // As the mouse finds it.
  Move({third.right, y});
  EXPECT_EQ(Held().highlighted, 3);
  Move({third.right + 1, y});
  EXPECT_EQ(Held().highlighted, 4);
}

TEST_F(Hits, InCtrl_TakesTheCellsFourEdgesIn) {
  BeginWithCells();
  const Rect r = world->word.CellPlace(6);
  const Point inside[] = {{r.left, r.top}, {r.right, r.top}, {r.left, r.bottom}, {r.right, r.bottom}, MiddleOf(6)};
  const Point outside[] = {{r.left - 1, r.top}, {r.right + 1, r.top}, {r.left, r.top - 1}, {r.left, r.bottom + 1}};
  for (const Point& p : inside) EXPECT_TRUE(Strip().inCtrl(6, ToInteger(p.x), ToInteger(p.y))) << p.x << ", " << p.y;
  for (const Point& p : outside) EXPECT_FALSE(Strip().inCtrl(6, ToInteger(p.x), ToInteger(p.y))) << p.x << ", " << p.y;
}

TEST_F(Hits, InCtrl_OfACellThatNoStripHas_IsAnErrorOfItsOwn) {
  BeginWithCells();
  EXPECT_FALSE(Strip().inCtrl(0, 15, 15));
  EXPECT_FALSE(Strip().inCtrl(17, 15, 15));
  EXPECT_EQ(TakeErrors(), "9 Buttons.inCtrl\n9 Buttons.inCtrl\n");
}

TEST_F(Hits, HighlightedButtonIndex_FindsEachCell_And0Elsewhere) {
  BeginWithCells({}, {8});
  for (Integer i = 1; i <= 16; ++i) {
    EXPECT_EQ(Strip().HighlightedButtonIndex(ToInteger(MiddleOf(i).x), ToInteger(MiddleOf(i).y)), i);
  }
  EXPECT_EQ(Strip().HighlightedButtonIndex(ToInteger(GapBefore(8).x), 20), 0);
  EXPECT_EQ(Strip().HighlightedButtonIndex(0, 0), 0);
  EXPECT_EQ(Strip().HighlightedButtonIndex(32767, 32767), 0);
  EXPECT_EQ(Strip().HighlightedButtonIndex(-32768, -32768), 0);
}

TEST_F(Hits, HighlightedButtonIndex_AsksCellByCellUntilOneHits) {
  BeginWithCells({}, {8});
  const auto asked = [&](Point at) {
    trace().Listen(Trace::kProcedures);
    trace().Only({"Buttons."});
    Strip().HighlightedButtonIndex(ToInteger(at.x), ToInteger(at.y));
    return trace().TakeText();
  };
  const auto lines = [&](Point at, Long last) {
    const std::string point = std::to_string(at.x) + ", " + std::to_string(at.y) + ")\n";
    std::string expected = "Buttons.HighlightedButtonIndex[Get](" + point;
    for (Long i = 1; i <= last; ++i) expected += "Buttons.inCtrl(" + std::to_string(i) + ", " + point;
    return expected;
  };
  EXPECT_EQ(asked(MiddleOf(1)), lines(MiddleOf(1), 1));
  EXPECT_EQ(asked(MiddleOf(3)), lines(MiddleOf(3), 3));
  EXPECT_EQ(asked(GapBefore(8)), lines(GapBefore(8), 16));
}

TEST_F(Hits, HighlightedButtonIndex_IsTheFirstCellThatInCtrlHits_HoweverTheyLie) {
  BeginWithCells();
  std::mt19937 random(5);
  const auto any = [&](Long from, Long to) { return std::uniform_int_distribution<Long>(from, to)(random); };
  int hits = 0;
  for (int round = 0; round < 60; ++round) {
    for (Long cell = 1; cell <= 16; ++cell) {
      const Long left = any(-20, 60);
      const Long top = any(-20, 60);
      world->word.PlaceCell(cell, {left, top, left + any(-3, 25), top + any(-3, 25)});
      world->word.DropCell(cell, any(0, 3) == 0);
    }
    ASSERT_TRUE(Strip().UpdateButtonRects());
    trace().Listen(0);
    for (int i = 0; i < 40; ++i) {
      const Integer x = ToInteger(any(-25, 90));
      const Integer y = ToInteger(any(-25, 90));
      Integer expected = 0;
      for (Integer cell = 16; cell >= 1; --cell) {
        if (Strip().inCtrl(cell, x, y)) expected = cell;
      }
      hits += expected != 0;
      ASSERT_EQ(Strip().HighlightedButtonIndex(x, y), expected) << x << ", " << y << " in round " << round;
    }
  }
  EXPECT_GT(hits, 100);
}

TEST_F(Hits, ADroppedCell_IsNotHit_AndTheNextOneThatLiesThereIs) {
  BeginWithCells();
  const Point at = MiddleOf(5);
  world->word.DropCell(5, true);
  Strip().UpdateButtonRects();
  EXPECT_FALSE(Strip().inCtrl(5, ToInteger(at.x), ToInteger(at.y)));
  EXPECT_EQ(Strip().HighlightedButtonIndex(ToInteger(at.x), ToInteger(at.y)), 0);
  Move(at);
  EXPECT_EQ(Held().highlighted, 0);
  PlaceCell(9, world->word.CellPlace(5));
  EXPECT_EQ(Strip().HighlightedButtonIndex(ToInteger(at.x), ToInteger(at.y)), 9);
  Move(at);
  EXPECT_EQ(Held().highlighted, 9);
  // Once it is back it comes first.
  world->word.DropCell(5, false);
  Strip().UpdateButtonRects();
  Move(at);
  EXPECT_EQ(Held().highlighted, 5);
}

TEST_F(Hits, StickyButton_IsLumivexsCellWhileItIsOn) {
  for (const bool on : {false, true}) {
    BeginWithCells(Lumivex(on));
    for (Integer i = -1; i <= 17; ++i) EXPECT_EQ(Strip().stickyButton(i), on && i == 14) << i;
  }
}

TEST_F(Hits, AButtonDownInTheBand_IsTheStrips_WhileAMoveThereHasLeftIt) {
  BeginWithCells();
  const Point band[] = {{10, 20}, {16, 20}, {100, 3}, {100, 9}, {100, 31}, {100, 37}, {784, 20}, {790, 20}};
  for (const Point& at : band) {
    SCOPED_TRACE(std::to_string(at.x) + ", " + std::to_string(at.y));
    MoveTo(5);
    EXPECT_TRUE(Press(at));
    EXPECT_EQ(Held(), (Input{5, 1, 0}));
    EXPECT_FALSE(Strip().HandleMouseMove(true, at.x, at.y, false));
    EXPECT_EQ(Held(), Input());
  }
}

TEST_F(Hits, AButtonDownInAGap_IsTheStrips_AndShowsNothing) {
  BeginWithCells({}, {8});
  const Point gap = GapBefore(8);
  Move(gap);
  const desk::Surface before = world->Pixels(world->Bar());
  trace().Listen(Trace::kContexts | Trace::kDrawing | Trace::kLogs | Trace::kUses | Trace::kPictures);
  EXPECT_TRUE(Press(gap));
  EXPECT_EQ(trace().TakeText(),
            "log BeforeLButtonDown\nGetDC(bar 1) = dc 1\n" + BorderLine(0, 1) + "ReleaseDC(bar 1, dc 1)\n");
  EXPECT_TRUE(world->Pixels(world->Bar()) == before);
}

TEST_F(Hits, AMoveWithAnotherDocumentsWindow_NeverLooksAtTheCoordinates) {
  BeginWithCells();
  for (const Long x : {Long{100}, Long{-1}, Long{2147483647}}) {
    MoveTo(5);
    trace().Listen(Trace::kProcedures);
    trace().Only({"Buttons.inToolbarClientArea", "Buttons.HighlightedButtonIndex", "Buttons.inCtrl"});
    EXPECT_FALSE(Strip().HandleMouseMove(false, x, x, true));
    EXPECT_EQ(trace().TakeText(), "");
    EXPECT_EQ(Held().highlighted, 0);
  }
}

// A strip wider than an Integer: the point is in its area, but no cell can be asked for it.
TEST_F(Hits, HandleMouseMove_OfAPointBeyondAnInteger_IsAnErrorOfItsOwn) {
  BeginWithCells();
  PlaceCell(16, {550, 3, 50000, 37});
  MoveTo(5);
  EXPECT_TRUE(Strip().HandleMouseMove(false, 40000, 20, false));
  EXPECT_EQ(TakeErrors(), "6 Buttons.HandleMouseMove\n");
  EXPECT_EQ(Held().highlighted, 5);
  // Gone on behind that statement, it is a move over no cell.
  world->errors.Answer({Variant(vbwProtector::kIgnore)});
  EXPECT_TRUE(Strip().HandleMouseMove(false, 40000, 20, false));
  EXPECT_EQ(TakeErrors(), "6 Buttons.HandleMouseMove\n");
  EXPECT_EQ(Held().highlighted, 0);
  // The largest that is one.
  EXPECT_TRUE(Strip().HandleMouseMove(false, 32767, 20, false));
  EXPECT_EQ(Held().highlighted, 16);
}

TEST_F(Hits, MouseLeftToolbar_GoesByThePointerOnTheScreen) {
  BeginWithCells();
  const std::pair<Point, bool> cases[] = {{{17, 10}, false}, {{783, 30}, false}, {MiddleOf(8), false},
                                          {{16, 20}, true},  {{784, 20}, true},  {{100, 9}, true},
                                          {{100, 31}, true}, {{-500, 20}, true}};
  for (const auto& [at, hasLeft] : cases) {
    Place(at);
    EXPECT_EQ(Strip().MouseLeftToolbar(), hasLeft) << at.x << ", " << at.y;
  }
}

struct MiddleCase {
  Rect place;
  Point middle;
};

TEST_F(Hits, PositionCursorOverNewButton_PutsThePointerInTheMiddleOfCell2_InDoubtOnAnEvenPixel) {
  BeginWithCells();
  const MiddleCase cases[] = {
      {{30, 10, 50, 30}, {40, 20}}, {{30, 10, 51, 31}, {40, 20}},  // 40.5, 20.5
      {{31, 11, 52, 32}, {42, 22}},                                // 41.5, 21.5
      {{-3, -5, 0, 0}, {-2, -2}},                                  // -1.5, -2.5
      {{7, 9, 7, 9}, {7, 9}},       {{0, 0, 1, 3}, {0, 2}},        // 0.5, 1.5
  };
  const Rect bar = world->RectOf(world->Bar());
  for (const MiddleCase& each : cases) {
    PlaceCell(2, each.place);
    Strip().PositionCursorOverNewButton();
    Point at;
    world->desk.Windows().GetCursorPos(at);
    EXPECT_EQ(at.x - bar.left, each.middle.x);
    EXPECT_EQ(at.y - bar.top, each.middle.y);
  }
}

}  // namespace
}  // namespace strandline
