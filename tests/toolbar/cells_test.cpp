// Where the cells are: what the strip reads of Word's controls, and what it makes of a bar that can't be read.

#include "tests/toolbar/toolbar_fixture.h"

namespace strandline {
namespace {

using wordsim::BarPosition;

std::string Text(const Rect& r) {
  return std::to_string(r.left) + " " + std::to_string(r.top) + " " + std::to_string(r.right) + " " +
         std::to_string(r.bottom);
}

std::string Text(const ButtonRect& cell) {
  return Text(Rect{cell.left, cell.top, cell.right, cell.bottom}) + (cell.isPriorityDropped ? " dropped" : "");
}

class Cells : public ToolbarTest {
 protected:
  static wordsim::Settings Controls(Long count) {
    wordsim::Settings settings;
    settings.controlCount = count;
    return settings;
  }
  std::string CellText(Long index) { return Text(Cell(index)); }
  Rect Place(Long index) { return world->word.CellPlace(index); }
};

TEST_F(Cells, UpdateButtonRects_GivesEachControlsPlaceInPixelsOfTheBarsWindow) {
  for (const BarPosition at :
       {BarPosition::kTop, BarPosition::kLeft, BarPosition::kRight, BarPosition::kBottom, BarPosition::kFloating}) {
    wordsim::Settings settings;
    settings.barPosition = at;
    BeginWithToolbar(settings);
    Rect all = Place(1);
    for (Long i = 1; i <= 16; ++i) {
      const ButtonRect cell = Cell(i);
      if (cell.isPriorityDropped) continue;
      EXPECT_EQ(CellText(i), Text(Place(i))) << i;
      all = {std::min(all.left, cell.left), std::min(all.top, cell.top), std::max(all.right, cell.right),
             std::max(all.bottom, cell.bottom)};
    }
    EXPECT_EQ(Text(BoundingRect()), Text(all));
    EXPECT_GT(Place(1).right, 0);
  }
}

// Word's layout doesn't come into it: cells may lie anywhere, overlap, and stand outside the window.
TEST_F(Cells, UpdateButtonRects_TakesAnyPlaces_AndTheirUnion) {
  BeginWithToolbar();
  world->word.PlaceCell(1, {100, 20, 110, 30});
  world->word.PlaceCell(2, {-50, 25, -40, 28});
  world->word.PlaceCell(3, {700, -9, 712, 5});
  world->word.PlaceCell(4, {90, 90, 95, 130});
  world->word.PlaceCell(5, {100, 20, 110, 30});
  for (Long i = 6; i <= 16; ++i) world->word.PlaceCell(i, {101, 21, 102, 22});
  EXPECT_TRUE(Strip().UpdateButtonRects());
  EXPECT_EQ(CellText(2), "-50 25 -40 28");
  EXPECT_EQ(CellText(3), "700 -9 712 5");
  EXPECT_EQ(Text(BoundingRect()), "-50 -9 712 130");
}

TEST_F(Cells, UpdateButtonRects_OfAllCellsDroppedButTheFirst_BoundsTheFirstAlone) {
  BeginWithToolbar();
  for (Long i = 2; i <= 16; ++i) world->word.DropCell(i, true);
  Strip().UpdateButtonRects();
  EXPECT_EQ(Text(BoundingRect()), Text(Place(1)));
  for (Long i = 2; i <= 16; ++i) EXPECT_TRUE(Cell(i).isPriorityDropped) << i;
  EXPECT_FALSE(Cell(1).isPriorityDropped);
}

TEST_F(Cells, UpdateButtonRects_OfAFirstControlThatIsDropped_BeginsTheBoundsFromItAllTheSame) {
  BeginWithToolbar();
  world->word.PlaceCell(1, {0, 0, 4, 5});
  world->word.DropCell(1, true);
  Strip().UpdateButtonRects();
  EXPECT_TRUE(Cell(1).isPriorityDropped);
  EXPECT_EQ(Text(BoundingRect()), Text(Rect{0, 0, Place(16).right, Place(16).bottom}));
  // Any other dropped cell is outside.
  world->word.PlaceCell(16, {900, 900, 910, 910});
  world->word.DropCell(16, true);
  Strip().UpdateButtonRects();
  EXPECT_EQ(Text(BoundingRect()), Text(Rect{0, 0, Place(15).right, Place(15).bottom}));
  EXPECT_EQ(CellText(16), "900 900 910 910 dropped");
}

TEST_F(Cells, ACellThatComesBack_IsPartOfTheStripAgain) {
  BeginWithToolbar();
  world->word.DropCell(16, true);
  Strip().UpdateButtonRects();
  const Rect without = BoundingRect();
  world->word.DropCell(16, false);
  Strip().UpdateButtonRects();
  EXPECT_EQ(Cell(16).isPriorityDropped, false);
  EXPECT_EQ(BoundingRect().right, Place(16).right);
  EXPECT_GT(BoundingRect().right, without.right);
}

TEST_F(Cells, ABarOfFewerControls_LeavesTheRestAtZeroAndNotDropped) {
  for (const Long count : {1, 2, 15}) {
    BeginWithToolbar(Controls(count));
    for (Long i = 1; i <= 16; ++i) {
      EXPECT_EQ(CellText(i), i <= count ? Text(Place(i)) : "0 0 0 0") << i << " of " << count;
    }
    EXPECT_EQ(Text(BoundingRect()), Text(Rect{Place(1).left, Place(1).top, Place(count).right, Place(count).bottom}));
    // They are painted all the same.
    trace().Listen(Trace::kProcedures);
    trace().Only({"Painter.PaintIconTransparently(", "Painter.PaintDCTransparently("});
    Strip().Redraw(world->Top());
    EXPECT_EQ(trace().Take().size(), 18u);  // sixteen, and cell 14 twice more for Lumivex
  }
}

TEST_F(Cells, ABarThatLosesAControl_LeavesWhatTheLastCellHeld) {
  BeginWithToolbar();
  const std::string before = CellText(16);
  const Object bar(Ref<wordsim::CommandBar>(&world->word.ProductBar()));
  bar.Get("Controls").ToObject().Get("Item", Long{16}).ToObject().Call("Delete");
  EXPECT_TRUE(Strip().UpdateButtonRects());
  EXPECT_EQ(CellText(16), before);
  EXPECT_EQ(BoundingRect().right, Place(15).right);
}

TEST_F(Cells, ABarOfMoreControls_ShowsSixteen) {
  for (const Long count : {17, 20, 40}) {
    Begin(Controls(count));
    trace().Listen(Trace::kUses);
    trace().Only({"get control 17", "get control 18", "get controls of bar Quillmere item(17"});
    MakeToolbar();
    EXPECT_EQ(trace().TakeText(), "") << count;
    EXPECT_EQ(CellText(16), Text(Place(16)));
    EXPECT_EQ(BoundingRect().right, Place(16).right);
  }
}

TEST_F(Cells, ABarWithoutControls_IsNotAStrip) {
  BeginWithToolbar(Controls(0));
  EXPECT_FALSE(Strip().UpdateButtonRects());
  EXPECT_EQ(Text(BoundingRect()), "0 0 0 0");
}

// The uses of Word for a bar of two controls, each as often as it is needed.
TEST_F(Cells, UpdateButtonRects_ReadsTheFirstControlForTheBounds_ThenEachControlInOrder) {
  BeginWithToolbar(Controls(2));
  trace().Listen(Trace::kUses | Trace::kWindows);
  Strip().UpdateButtonRects();
  const Rect bar = world->RectOf(world->Bar());
  const auto control = [&](Long i, bool withDropped) {
    const std::string name = "get control " + std::to_string(i) + " ";
    const Rect r = Place(i);
    const std::string left = name + "left = " + std::to_string(bar.left + r.left) + "\n";
    const std::string top = name + "top = " + std::to_string(bar.top + r.top) + "\n";
    return (withDropped ? name + "isPriorityDropped = False\n" : std::string()) + left + top + name +
           "width = " + std::to_string(r.right - r.left) + "\n" + left + name +
           "height = " + std::to_string(r.bottom - r.top) + "\n" + top;
  };
  EXPECT_EQ(trace().TakeText(), "GetWindowRect(bar 1, [" + Text(bar) +
                                    "])\n"
                                    "get Application CommandBars = CommandBars\n"
                                    "get CommandBars Item(Quillmere) = bar Quillmere\n"
                                    "get bar Quillmere Controls = controls of bar Quillmere\n"
                                    "get controls of bar Quillmere item(1) = control 1\n" +
                                    control(1, false) +
                                    "get controls of bar Quillmere count = 2\n"
                                    "get controls of bar Quillmere item(1) = control 1\n" +
                                    control(1, true) + "get controls of bar Quillmere item(2) = control 2\n" +
                                    control(2, true));
}

struct FailureCase {
  const char* object;
  const char* member;
};

TEST_F(Cells, UpdateButtonRects_AnyErrorInIt_EndsItQuietlyAndKeepsWhatWasRead) {
  const FailureCase cases[] = {
      {"bar Quillmere", "Controls"},
      {"controls of bar Quillmere", "Item(1)"},
      {"controls of bar Quillmere", "Count"},
      {"controls of bar Quillmere", "Item(7)"},
      {"control 1", "left"},
      {"control 7", "isPriorityDropped"},
      {"control 7", "left"},
      {"control 7", "top"},
      {"control 7", "width"},
      {"control 7", "height"},
      {"control 16", "height"},
  };
  for (const FailureCase& each : cases) {
    SCOPED_TRACE(std::string(each.object) + " " + each.member);
    BeginWithToolbar();
    for (Long i = 1; i <= 16; ++i) world->word.PlaceCell(i, {i * 30, 5, i * 30 + 20, 25});
    world->word.Faults().Arm(each.object, each.member);
    EXPECT_FALSE(Strip().UpdateButtonRects());
    EXPECT_EQ(TakeErrors(), "");
    if (std::string(each.object) == "control 7") {
      EXPECT_EQ(CellText(6), "180 5 200 25");
      EXPECT_NE(CellText(8), "240 5 260 25");
      EXPECT_EQ(Cell(7).left == 210,
                std::string(each.member) != "left" && std::string(each.member) != "isPriorityDropped");
      EXPECT_EQ(Cell(7).bottom == 25, false);
    }
  }
}

TEST_F(Cells, UpdateButtonRects_WithoutABar_AnswersFalse) {
  BeginWithToolbar();
  const std::string before = CellText(5);
  world->word.Faults().Arm("CommandBars", "Item");
  EXPECT_FALSE(Strip().UpdateButtonRects());
  EXPECT_EQ(CellText(5), before);
}

TEST_F(Cells, UpdateButtonRects_OfAFarControl_EndsAtTheSumThatIsNoLong) {
  BeginWithToolbar();
  EXPECT_TRUE(Strip().UpdateButtonRects());
  world->word.PlaceCell(3, {900000, 5, 900020, 25});
  EXPECT_TRUE(Strip().UpdateButtonRects());
  EXPECT_EQ(CellText(3), "900000 5 900020 25");
}

TEST_F(Cells, GetWindowOffsets_OfAWindowBeyondAnInteger_IsAnErrorOfItsOwn) {
  BeginWithToolbar();
  const Rect place = world->RectOf(world->Bar());
  world->desk.Host().MoveWindow(world->Bar(), {40000, place.top, 40100, place.bottom});
  Integer left = 11;
  Integer top = 12;
  Strip().getWindowOffsets(left, top);
  EXPECT_EQ(left, 11);
  EXPECT_EQ(top, 12);
  EXPECT_EQ(TakeErrors(), "6 Buttons.getWindowOffsets\n");
}

TEST_F(Cells, GetWindowOffsets_AreTheWindowsPlaceOnTheScreen) {
  BeginWithToolbar();
  const Rect place = world->RectOf(world->Bar());
  Integer left = 0;
  Integer top = 0;
  Strip().getWindowOffsets(left, top);
  EXPECT_EQ(left, place.left);
  EXPECT_EQ(top, place.top);
}

TEST_F(Cells, Min_IsTheSmaller) {
  BeginWithToolbar();
  EXPECT_EQ(Strip().Min(3, 5), 3);
  EXPECT_EQ(Strip().Min(5, 3), 3);
  EXPECT_EQ(Strip().Min(4, 4), 4);
  EXPECT_EQ(Strip().Min(-32768, 32767), -32768);
  EXPECT_EQ(Strip().Min(0, -1), -1);
}

TEST_F(Cells, APaintThatCannotReadTheBar_PutsNothingDownAndGivesItsContextBack) {
  for (const bool forced : {false, true}) {
    BeginWithToolbar();
    trace().Listen(Trace::kProcedures | Trace::kContexts | Trace::kLogs);
    trace().Only({"Buttons.PaintIcon(", "Buttons.UpdateLumivexIcon", "log BltBuffer", "GetDC", "ReleaseDC"});
    world->word.Faults().Arm("control 3", "left");
    Strip().PaintIcons(world->Top(), true, forced);
    EXPECT_EQ(trace().TakeText(), "GetDC(bar 1) = dc 1\nReleaseDC(bar 1, dc 1)\n") << forced;
  }
}

}  // namespace
}  // namespace strandline
