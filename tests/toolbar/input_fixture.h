#pragma once

// A hand on the mouse over a painted strip: what it does, what the strip then holds, shows and says.

#include "tests/toolbar/toolbar_fixture.h"

namespace strandline {

class InputTest : public ToolbarTest {
 protected:
  // wParam of mouse messages.
  static constexpr Long kNoKeys = 0;
  static constexpr Long kLeftButton = 1;

  struct Input {
    Long highlighted = 0;
    Long state = 0;
    Long lastUp = 0;
    friend bool operator==(const Input&, const Input&) = default;
  };

  // Cells of 36 by 34 in a row from (10, 3), the last one 240 wide, with gaps of 20 in front of some.
  void BeginWithCells(const wordsim::Settings& settings = {}, const std::set<Long>& gapsBefore = {});
  static wordsim::Settings Lumivex(bool on) {
    wordsim::Settings settings;
    settings.lumivexEnabled = on;
    return settings;
  }

  // Points of the bar's window.
  Point MiddleOf(Long cell);
  // In the gap in front of that cell.
  Point GapBefore(Long cell) { return {world->word.CellPlace(cell).left - 10, MiddleOf(cell).y}; }
  Point Outside() { return {MiddleOf(16).x + 200, MiddleOf(16).y}; }
  // The pointer goes there; no message.
  void Place(Point at);
  // What the bar's window gets when the pointer is there. True where Word doesn't.
  bool Say(Long message, Long wParam, Point at);
  void Move(Point at, Long wParam = kNoKeys) {
    Place(at);
    Say(wm::kMouseMove, wParam, at);
  }
  void MoveTo(Long cell, Long wParam = kNoKeys) { Move(MiddleOf(cell), wParam); }
  bool Press(Point at) { return Say(wm::kLButtonDown, kLeftButton, at); }
  bool PressOn(Long cell) { return Press(MiddleOf(cell)); }
  bool Release(Point at) { return Say(wm::kLButtonUp, kNoKeys, at); }
  bool ReleaseOn(Long cell) { return Release(MiddleOf(cell)); }
  // All of a click where the mouse isn't yet.
  void ClickOn(Long cell) {
    MoveTo(cell);
    PressOn(cell);
    ReleaseOn(cell);
  }
  // The tick of a one-shot that asks whether the mouse has left.
  void Tick() { world->Send(wm::kTimer, 65537); }

  Input Held();
  bool IsHandling() { return VariableSnapshot::Of(Strip()).Flag(u"mIsHandling"); }
  // The window shows the frame with that look of that cell over it, and nothing else.
  void ExpectLook(Long highlighted, Long state);

  // From now on: borders, clicks on controls, the tooltip, the menu, and the log lines of input.
  void HearInput();
  std::string ShowLine(Integer cell);
  static std::string HideLine() { return "call tooltip Hide(forceHide:=True)\n"; }
  static std::string ExecuteLine(Long cell) { return "call control " + std::to_string(cell) + " Execute\n"; }
  static std::string BorderLine(Long cell, Long state) {
    return "log ToggleBorder index=" + std::to_string(cell) + ", state=" + std::to_string(state) + "\n";
  }
  // The strip lets go of everything.
  static std::string LeftLines(Long cell) { return "log HandleMouseLeftToolbar\n" + BorderLine(cell, 2) + HideLine(); }
};

}  // namespace strandline
