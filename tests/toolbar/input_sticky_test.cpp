// The Lumivex cell while it is on: what the mouse does to it, and what a press on it leaves behind.

#include "tests/toolbar/input_transitions_fixture.h"

namespace strandline {
namespace {

using StickyCell = Transitions;

// While Lumivex is on its cell is sunken for good: the mouse neither draws nor removes an edge there. A press on it is
// never taken back, so the next cells look pressed until the highlight is removed once.
TEST_F(StickyCell, KeepsItsEdge_AndCarriesThePressOnToTheNextCells) {
  BeginWithCells(Lumivex(true), {8});
  const auto clicked = [&] { ClickOn(14); };
  const std::vector<Row> rows = {
      {"a move onto it", [] {}, [&] { MoveTo(14); }, {14, 0, 0}, ShowLine(14) + BorderLine(0, 2)},
      {"a move from another cell onto it",
       [&] { MoveTo(13); },
       [&] { MoveTo(14); },
       {14, 0, 0},
       ShowLine(14) + BorderLine(13, 2)},
      {"a move from it", [&] { MoveTo(14); }, [&] { MoveTo(15); }, {15, 0, 0}, ShowLine(15) + BorderLine(15, 0)},
      {"the button down on it", [&] { MoveTo(14); }, [&] { EXPECT_TRUE(PressOn(14)); }, {14, 1, 0}, ""},
      {"the button up on it",
       Pressed(14),
       [&] { EXPECT_TRUE(ReleaseOn(14)); },
       {14, 1, 14},
       ExecuteLine(14) + ShowLine(14)},
      {"the button up on it while the mouse has left",
       [&] {
         MoveTo(14);
         PressOn(14);
         Place(Outside());
       },
       [&] { EXPECT_TRUE(Release(Outside())); },
       {0, 0, 0},
       ExecuteLine(14) + "log HandleMouseLeftToolbar\n" + HideLine()},
      {"a move on after the click", clicked, [&] { MoveTo(5); }, {5, 1, 0}, ShowLine(5) + BorderLine(5, 1)},
      {"a second move on",
       [&] {
         clicked();
         MoveTo(5);
       },
       [&] { MoveTo(6); },
       {6, 1, 0},
       ShowLine(6) + BorderLine(5, 2) + BorderLine(6, 1)},
      {"a move on through a gap",
       [&] {
         clicked();
         Move(Gap());
       },
       [&] { MoveTo(6); },
       {6, 1, 0},
       ShowLine(6) + BorderLine(0, 2) + BorderLine(6, 1)},
      {"the highlight removed by the right button, then a move",
       [&] {
         clicked();
         MoveTo(5);
         Say(wm::kRButtonDown, 2, MiddleOf(5));
       },
       [&] { MoveTo(6); },
       {6, 0, 0},
       ShowLine(6) + BorderLine(0, 2) + BorderLine(6, 0)},
      {"the highlight removed by a click elsewhere, then a move",
       [&] {
         clicked();
         ClickOn(5);
       },
       [&] { MoveTo(6); },
       {6, 0, 0},
       ShowLine(6) + BorderLine(0, 2) + BorderLine(6, 0)},
      {"the right button on it", [&] { MoveTo(14); }, [&] { Say(wm::kRButtonDown, 2, MiddleOf(14)); }, {0, 0, 0}, ""},
      {"the mouse leaves from it",
       [&] { MoveTo(14); },
       [&] { Move(Outside()); },
       {0, 0, 0},
       "log not inToolbarClientArea: exiting\nlog HandleMouseLeftToolbar\n" + HideLine()},
      {"a drag onto it", Pressed(13), [&] { MoveTo(14, kLeftButton); }, {14, 1, 0}, ShowLine(14) + BorderLine(13, 2)},
      {"a drag onto it, the button up",
       [&] {
         MoveTo(13);
         PressOn(13);
         MoveTo(14, kLeftButton);
       },
       [&] { EXPECT_TRUE(ReleaseOn(14)); },
       {14, 1, 14},
       ExecuteLine(14) + ShowLine(14)},
      {"a drag from it", Pressed(14), [&] { MoveTo(15, kLeftButton); }, {15, 1, 0}, ShowLine(15) + BorderLine(15, 1)},
      {"a move within it after the click",
       clicked,
       [&] {
         Move({MiddleOf(14).x + 3, MiddleOf(14).y});
       },
       {14, 1, 14},
       ""},
      {"a move on after the click and back to it",
       [&] {
         clicked();
         MoveTo(5);
       },
       [&] { MoveTo(14); },
       {14, 1, 0},
       ShowLine(14) + BorderLine(5, 2)},
      {"the button up on the cell that was reached after the click",
       [&] {
         clicked();
         MoveTo(5);
       },
       [&] { EXPECT_TRUE(ReleaseOn(5)); },
       {0, 0, 5},
       BorderLine(5, 2) + ExecuteLine(5) + HideLine()},
      {"the right button on it after the click",
       clicked,
       [&] { Say(wm::kRButtonDown, 2, MiddleOf(14)); },
       {0, 0, 14},
       ""},
      {"a move outside the client area after the click",
       clicked,
       [&] { Say(wm::kNcMouseMove, 2, MiddleOf(14)); },
       {0, 0, 14},
       ""},
      {"the right button on it after the click, then a move",
       [&] {
         clicked();
         Say(wm::kRButtonDown, 2, MiddleOf(14));
       },
       [&] { MoveTo(6); },
       {6, 0, 0},
       ShowLine(6) + BorderLine(0, 2) + BorderLine(6, 0)},
      {"the mouse leaves from it after the click",
       clicked,
       [&] { Move(Outside()); },
       {0, 0, 0},
       "log not inToolbarClientArea: exiting\nlog HandleMouseLeftToolbar\n" + HideLine()},
      {"a tick when the mouse has left it after the click",
       [&] {
         clicked();
         Place(Outside());
       },
       [&] { Tick(); },
       {0, 0, 0},
       "log HandleMouseLeftToolbar\n" + HideLine()},
      {"another document's window after the click",
       clicked,
       [&] { EXPECT_FALSE(Strip().HandleMouseMove(false, MiddleOf(14).x, MiddleOf(14).y, true)); },
       {0, 0, 0},
       "log hasChangedParentWindows: exiting\nlog HandleMouseLeftToolbar\n" + HideLine()},
  };
  Check(rows, true);
}

}  // namespace
}  // namespace strandline
