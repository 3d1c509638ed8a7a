#pragma once

// Rows of a table of transitions: what the strip was brought to, what the mouse did then, and what came of it.

#include "tests/toolbar/input_fixture.h"

namespace strandline {

class Transitions : public InputTest {
 protected:
  using Input = InputTest::Input;

  struct Row {
    const char* name;
    std::function<void()> before;
    std::function<void()> event;
    Input after;
    std::string lines;
  };
  // Each row from a strip at rest.
  void Check(const std::vector<Row>& rows, bool lumivex = false) {
    for (const Row& row : rows) {
      SCOPED_TRACE(row.name);
      Rest();
      row.before();
      HearInput();
      row.event();
      EXPECT_EQ(trace().TakeText(), row.lines);
      const Input held = Held();
      EXPECT_EQ(held.highlighted, row.after.highlighted);
      EXPECT_EQ(held.state, row.after.state);
      EXPECT_EQ(held.lastUp, row.after.lastUp);
      EXPECT_FALSE(IsHandling());
      ExpectLook(row.after.highlighted == 14 && lumivex ? 0 : row.after.highlighted, row.after.state);
      CheckErrors();
    }
  }
  // The mouse is elsewhere, and the strip knows it.
  void Rest() {
    trace().Listen(0);
    Move(Outside());
    ASSERT_EQ(Held(), Input());
  }
  // The hand goes to that cell and presses there.
  std::function<void()> Pressed(Long cell) {
    return [this, cell] {
      MoveTo(cell);
      PressOn(cell);
    };
  }
  Point Gap() { return GapBefore(8); }
  // In the union of the cells, but so near to its edge that a mouse counts as gone.
  Point InBand() { return {world->word.CellPlace(1).left + 2, MiddleOf(1).y}; }
};

}  // namespace strandline
