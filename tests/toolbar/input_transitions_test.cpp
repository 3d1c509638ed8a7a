// What the mouse does to the strip: every way from one look to the next, with what is drawn, shown and run on it.

#include "tests/toolbar/input_transitions_fixture.h"

namespace strandline {
namespace {

TEST_F(Transitions, AStripOfOrdinaryCells_GoesFromLookToLookByThisTable) {
  BeginWithCells({}, {8});
  const auto nothing = [] {};
  const std::vector<Row> rows = {
      {"at rest, a move onto a cell",
       nothing,
       [&] { MoveTo(3); },
       {3, 0, 0},
       ShowLine(3) + BorderLine(0, 2) + BorderLine(3, 0)},
      {"at rest, a move onto the cell of the last click",
       [&] { ClickOn(3); },
       [&] { MoveTo(3); },
       {3, 0, 3},
       BorderLine(0, 2) + BorderLine(3, 0)},
      {"at rest, a move onto another cell than that of the last click",
       [&] { ClickOn(3); },
       [&] { MoveTo(4); },
       {4, 0, 0},
       ShowLine(4) + BorderLine(0, 2) + BorderLine(4, 0)},
      {"at rest, a move with the button held",
       nothing,
       [&] { MoveTo(3, kLeftButton); },
       {3, 1, 0},
       ShowLine(3) + BorderLine(0, 2) + BorderLine(3, 1)},
      {"hover, a move within the cell",
       [&] { MoveTo(3); },
       [&] {
         Move({MiddleOf(3).x + 5, MiddleOf(3).y - 2});
       },
       {3, 0, 0},
       ""},
      {"hover, a move within the cell with the button held",
       [&] { MoveTo(3); },
       [&] {
         Move({MiddleOf(3).x + 5, MiddleOf(3).y}, kLeftButton);
       },
       {3, 0, 0},
       ""},
      {"hover, a move onto the next cell",
       [&] { MoveTo(3); },
       [&] { MoveTo(4); },
       {4, 0, 0},
       ShowLine(4) + BorderLine(3, 2) + BorderLine(4, 0)},
      {"hover, a move onto the menu's cell",
       [&] { MoveTo(16); },
       [&] { MoveTo(1); },
       {1, 0, 0},
       ShowLine(1) + BorderLine(16, 2) + BorderLine(1, 0)},
      {"hover over the cell of the last click, a move onto another",
       [&] {
         ClickOn(3);
         MoveTo(3);
       },
       [&] { MoveTo(5); },
       {5, 0, 0},
       ShowLine(5) + BorderLine(3, 2) + BorderLine(5, 0)},
      {"hover, a move into a gap",
       [&] { MoveTo(7); },
       [&] { Move(Gap()); },
       {0, 0, 0},
       BorderLine(7, 2) + BorderLine(0, 0)},
      {"hover over the cell of the last click, a move into a gap",
       [&] {
         ClickOn(7);
         MoveTo(7);
       },
       [&] { Move(Gap()); },
       {0, 0, 0},
       ShowLine(0) + BorderLine(7, 2) + BorderLine(0, 0)},
      {"hover, the button down", [&] { MoveTo(3); }, [&] { EXPECT_TRUE(PressOn(3)); }, {3, 1, 0}, BorderLine(3, 1)},
      {"hover, the button down at the strip's edge",
       [&] { MoveTo(1); },
       [&] { EXPECT_TRUE(Press(InBand())); },
       {1, 1, 0},
       BorderLine(1, 1) + "Menu.ToggleFootnoteEndnoteUI()\n"},
      {"hover over the menu's cell, the button down",
       [&] { MoveTo(1); },
       [&] { EXPECT_TRUE(PressOn(1)); },
       {1, 1, 0},
       BorderLine(1, 1) + "Menu.ToggleFootnoteEndnoteUI()\n"},
      {"hover, the button down beside the strip",
       [&] { MoveTo(3); },
       [&] { EXPECT_FALSE(Press(Outside())); },
       {3, 0, 0},
       ""},
      {"pressed, a drag onto another cell",
       Pressed(3),
       [&] { MoveTo(5, kLeftButton); },
       {5, 1, 0},
       ShowLine(5) + BorderLine(3, 2) + BorderLine(5, 1)},
      {"pressed, a move without the button onto another cell",
       Pressed(3),
       [&] { MoveTo(5); },
       {5, 1, 0},
       ShowLine(5) + BorderLine(3, 2) + BorderLine(5, 1)},
      {"pressed, a drag into a gap",
       Pressed(7),
       [&] { Move(Gap(), kLeftButton); },
       {0, 1, 0},
       BorderLine(7, 2) + BorderLine(0, 1)},
      {"pressed in a gap, a move onto a cell",
       [&] {
         MoveTo(7);
         PressOn(7);
         Move(Gap(), kLeftButton);
       },
       [&] { MoveTo(8); },
       {8, 1, 0},
       ShowLine(8) + BorderLine(0, 2) + BorderLine(8, 1)},
      {"pressed on the menu's cell, the button up",
       Pressed(1),
       [&] { EXPECT_TRUE(ReleaseOn(1)); },
       {0, 0, 0},
       ExecuteLine(1) + "Menu.Activate()\n" + BorderLine(1, 1) + HideLine() + LeftLines(1)},
      {"pressed, the button up",
       Pressed(3),
       [&] { EXPECT_TRUE(ReleaseOn(3)); },
       {0, 0, 3},
       BorderLine(3, 2) + ExecuteLine(3) + HideLine()},
      {"pressed, the button up while the mouse has left",
       [&] {
         MoveTo(3);
         PressOn(3);
         Place(Outside());
       },
       [&] { EXPECT_TRUE(Release(Outside())); },
       {0, 0, 0},
       BorderLine(3, 2) + ExecuteLine(3) + HideLine() + LeftLines(0)},
      {"pressed on Lumivex, the button up",
       Pressed(14),
       [&] { EXPECT_TRUE(ReleaseOn(14)); },
       {0, 0, 14},
       BorderLine(14, 2) + ExecuteLine(14) + ShowLine(14)},
      {"pressed on Lumivex, the button up while the mouse has left",
       [&] {
         MoveTo(14);
         PressOn(14);
         Place(Outside());
       },
       [&] { EXPECT_TRUE(Release(Outside())); },
       {0, 0, 0},
       BorderLine(14, 2) + ExecuteLine(14) + LeftLines(0)},
      {"dragged, the button up",
       [&] {
         MoveTo(3);
         PressOn(3);
         MoveTo(6, kLeftButton);
       },
       [&] { EXPECT_TRUE(ReleaseOn(6)); },
       {0, 0, 6},
       BorderLine(6, 2) + ExecuteLine(6) + HideLine()},
      {"at rest, the button up",
       nothing,
       [&] { EXPECT_FALSE(ReleaseOn(3)); },
       {0, 0, 0},
       BorderLine(0, 2) + HideLine() + LeftLines(0)},
  };
  Check(rows);
}

// The looks from which the strip may be brought to rest, and the cell that is highlighted in each.
struct Start {
  const char* name;
  std::function<void()> bring;
  Long highlighted;
  Long lastUp;
};

class FromAny : public Transitions {
 protected:
  std::vector<Start> Starts() {
    return {
        {"from rest", [] {}, 0, 0},
        {"from rest after a click", [this] { ClickOn(3); }, 0, 3},
        {"from a hover", [this] { MoveTo(5); }, 5, 0},
        {"from a hover after a click",
         [this] {
           ClickOn(5);
           MoveTo(5);
         },
         5, 5},
        {"from a press", Pressed(1), 1, 0},
        {"from a drag",
         [this] {
           MoveTo(3);
           PressOn(3);
           MoveTo(16, kLeftButton);
         },
         16, 0},
        {"from a gap, with the button held",
         [this] {
           MoveTo(7);
           PressOn(7);
           Move(Gap(), kLeftButton);
         },
         0, 0},
    };
  }
  void CheckAll(const std::function<void()>& event, bool forgets, const std::function<std::string(Long cell)>& lines) {
    BeginWithCells({}, {8});
    std::vector<Row> rows;
    for (const Start& start : Starts()) {
      rows.push_back({start.name, start.bring, event, {0, 0, forgets ? 0 : start.lastUp}, lines(start.highlighted)});
    }
    Check(rows);
  }
};

TEST_F(FromAny, TheMouseOutsideTheMargin_BringsTheStripToRest) {
  const auto lines = [](Long cell) { return "log not inToolbarClientArea: exiting\n" + LeftLines(cell); };
  CheckAll([&] { Move(Outside()); }, true, lines);
  CheckAll([&] { Move(InBand()); }, true, lines);
}

TEST_F(FromAny, AnotherDocumentsWindow_BringsTheStripToRest) {
  CheckAll([&] { EXPECT_FALSE(Strip().HandleMouseMove(false, MiddleOf(5).x, MiddleOf(5).y, true)); }, true,
           [](Long cell) { return "log hasChangedParentWindows: exiting\n" + LeftLines(cell); });
}

TEST_F(FromAny, TheRightButton_TakesTheHighlightOnly) {
  CheckAll([&] { EXPECT_FALSE(Say(wm::kRButtonDown, 2, MiddleOf(5))); }, false,
           [](Long cell) { return BorderLine(cell, 2); });
}

TEST_F(FromAny, AMoveOutsideTheClientArea_TakesTheHighlightOnly) {
  CheckAll([&] { EXPECT_FALSE(Say(wm::kNcMouseMove, 2, MiddleOf(5))); }, false,
           [](Long cell) { return BorderLine(cell, 2); });
}

TEST_F(FromAny, ATickWhenTheMouseHasLeft_BringsTheStripToRest) {
  CheckAll(
      [&] {
        Place(Outside());
        Tick();
      },
      true, LeftLines);
}

TEST_F(FromAny, ATickWhileTheMouseIsThere_ChangesNothing) {
  BeginWithCells({}, {8});
  for (const Start& start : Starts()) {
    SCOPED_TRACE(start.name);
    Rest();
    start.bring();
    Place(MiddleOf(5));
    const Input before = Held();
    HearInput();
    Tick();
    EXPECT_EQ(trace().TakeText(), "");
    EXPECT_EQ(Held(), before);
  }
}

}  // namespace
}  // namespace strandline
