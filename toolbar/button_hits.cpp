// Where the mouse is: on which cell, on the strip at all, or gone from it. Points are pixels of the bar's window; the
// origin of its client area is taken to be that of the window.

#include "platform/convert.h"
#include "platform/platform.h"
#include "toolbar/Buttons.h"

namespace strandline {

namespace {

constexpr ModuleInfo kModuleInfo{u"Buttons", nullptr};
constexpr ModuleFile kModule{&kModuleInfo, 3000};

constexpr Integer kCells = 16;
constexpr Integer kLumivexCell = 14;
constexpr Long kLumivexOn = 1;
constexpr Long kMarginOfLeaving = 7;  // pixels

// All four edges belong to the inside.
Boolean IsWithin(const Rect& area, Long x, Long y) {
  return x <= area.right && x >= area.left && y >= area.top && y <= area.bottom;
}

Boolean IsOn(const ButtonRect& cell, Long x, Long y) {
  return IsWithin({cell.left, cell.top, cell.right, cell.bottom}, x, y) && !cell.isPriorityDropped;
}

// 0: on none. As a rule the cells stand in a row, and one that ends before the point is out at the first test.
Integer FirstOn(const FixedArray<ButtonRect, 0, kCells - 1>& cells, Long x, Long y) {
  for (Integer i = 1; i <= kCells; ++i) {
    if (cells(i - 1).right < x) [[likely]]
      continue;
    if (IsOn(cells(i - 1), x, y)) return i;
  }
  return 0;
}

Rect Shrunk(const Rect& area, Long margin) {
  return {ToLong(std::int64_t{area.left} + margin), ToLong(std::int64_t{area.top} + margin),
          ToLong(std::int64_t{area.right} - margin), ToLong(std::int64_t{area.bottom} - margin)};
}

// The middle of two edges, the nearer whole pixel, in doubt the even one.
Long Middle(Long near, Long far) { return RoundToLong(near + ToLong(std::int64_t{far} - near) / 2.0); }

}  // namespace

// A point that nobody can hover over counts as outside a little before the edge: the window is not ours and tells of no
// leaving, so the mouse is to be seen on its way out. A press counts right up to the edge.
Variant Buttons::inToolbarClientArea(Long x, Long y, Boolean useMargins) {
  METHOD(Variant, u"inToolbarClientArea", x, y, useMargins);
  Long Margin = 0;
  REPORTS(Margin);
  if (useMargins) Margin = kMarginOfLeaving;
  CONDITION(isInside, IsWithin(Shrunk(mBoundingRect, Margin), x, y));
  if (isInside) here.result = true;
  return here.Leave();
}

Boolean Buttons::inCtrl(Integer index, Integer x, Integer y) {
  METHOD(Boolean, u"inCtrl", index, x, y);
  STEP(here.result = IsOn(mButtons(index - 1), x, y));
  return here.Leave();
}

// A pixel on the edge of two cells is the lower one's. Every move asks for all cells: while parameters aren't traced,
// the rectangles are read directly instead of through inCtrl, with the same result.
Integer Buttons::HighlightedButtonIndex(Integer x, Integer y) {
  METHOD(Integer, u"HighlightedButtonIndex[Get]", x, y);
  Integer i = 0;
  REPORTS(i);
  if (!vbwProtector::variables.vbwTraceParameters) return here.result = FirstOn(mButtons, x, y);
  for (i = 1; i <= kCells; ++i) {
    if (inCtrl(i, x, y)) return here.result = i;
  }
  return here.Leave();
}

// The sunken edge of such a cell is part of the frame, so neither hover nor press touches it.
Boolean Buttons::stickyButton(Integer index) {
  METHOD(Boolean, u"stickyButton", index);
  return here.result = index == kLumivexCell && mLumivexButtonState == kLumivexOn;
}

Boolean Buttons::MouseLeftToolbar() {
  METHOD(Boolean, u"MouseLeftToolbar");
  Point position;
  REPORTS(position.x, position.y);
  platform::Windows().GetCursorPos(position);
  platform::Windows().ScreenToClient(mHwnd, position);
  return here.result = !inToolbarClientArea(position.x, position.y, true).ToBoolean();
}

void Buttons::PositionCursorOverNewButton() {
  METHOD(void, u"PositionCursorOverNewButton");
  Point position;
  REPORTS(position.x, position.y);
  const ButtonRect& cell = mButtons(1);
  STEP(position.x = Middle(cell.left, cell.right));
  STEP(position.y = Middle(cell.top, cell.bottom));
  platform::Windows().ClientToScreen(mHwnd, position);
  platform::Windows().SetCursorPos(position.x, position.y);
}

}  // namespace strandline
