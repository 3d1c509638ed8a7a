// A mouse that moves on while the command of a click runs: the strip then knows of no last click any more, and the rest
// of the click goes by that.

#include "tests/toolbar/input_fixture.h"

namespace strandline {
namespace {

class NestedMove : public InputTest {
 protected:
  // Clicks there; while the command runs, the mouse does that. What the strip does of it is heard.
  bool ClickWhile(Long cell, const std::function<void()>& moves) {
    world->word.TheHooks().executeControl = [moves](Long) { moves(); };
    MoveTo(cell);
    PressOn(cell);
    HearInput();
    return ReleaseOn(cell);
  }
};

TEST_F(NestedMove, InAClickOnTheMenusCell_MakesTheClickWords) {
  BeginWithCells();
  EXPECT_FALSE(ClickWhile(1, [this] { MoveTo(4); }));
  // The control isn't run again, and cell 4 keeps its highlight.
  EXPECT_EQ(trace().TakeText(), ShowLine(4) + BorderLine(1, 2) + BorderLine(4, 1) + ExecuteLine(1) +
                                    "Menu.Activate()\n" + BorderLine(1, 1) + HideLine());
  EXPECT_EQ(Held(), (Input{4, 1, 0}));
  EXPECT_FALSE(IsHandling());
}

TEST_F(NestedMove, AwayFromTheStrip_InAClickOnTheMenusCell_LetsGoTwice) {
  BeginWithCells();
  EXPECT_FALSE(ClickWhile(1, [this] { Move(Outside()); }));
  EXPECT_EQ(trace().TakeText(), "log not inToolbarClientArea: exiting\n" + LeftLines(1) + ExecuteLine(1) +
                                    "Menu.Activate()\n" + BorderLine(1, 1) + HideLine() + LeftLines(0));
  EXPECT_EQ(Held(), Input());
}

TEST_F(NestedMove, InAClickOnLumivex_HidesTheTooltip) {
  BeginWithCells(Lumivex(false));
  EXPECT_TRUE(ClickWhile(14, [this] { MoveTo(9); }));
  EXPECT_EQ(trace().TakeText(),
            BorderLine(14, 2) + ShowLine(9) + BorderLine(0, 2) + BorderLine(9, 0) + ExecuteLine(14) + HideLine());
  EXPECT_EQ(Held(), (Input{9, 0, 0}));
}

TEST_F(NestedMove, AwayAndBack_InAClickOnLumivex_HidesTheTooltip) {
  BeginWithCells(Lumivex(false));
  EXPECT_TRUE(ClickWhile(14, [this] {
    MoveTo(9);
    MoveTo(14);
  }));
  EXPECT_EQ(trace().TakeText(), BorderLine(14, 2) + ShowLine(9) + BorderLine(0, 2) + BorderLine(9, 0) + ShowLine(14) +
                                    BorderLine(9, 2) + BorderLine(14, 0) + ExecuteLine(14) + HideLine());
  EXPECT_EQ(Held(), (Input{14, 0, 0}));
}

TEST_F(NestedMove, InAClickOnLumivexWhileItIsOn_HidesTheTooltip) {
  BeginWithCells(Lumivex(true));
  EXPECT_TRUE(ClickWhile(14, [this] { MoveTo(9); }));
  EXPECT_EQ(trace().TakeText(), ShowLine(9) + BorderLine(9, 1) + ExecuteLine(14) + HideLine());
  EXPECT_EQ(Held(), (Input{9, 1, 0}));
  EXPECT_FALSE(IsHandling());
}

}  // namespace
}  // namespace strandline
