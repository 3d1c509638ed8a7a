// Where the cells are: what Word's layout gives each control of the bar, in pixels of the bar's window.

#include "drawing/ToolbarUtilities.h"
#include "platform/convert.h"
#include "platform/platform.h"
#include "toolbar/Buttons.h"

namespace strandline {

namespace {

constexpr ModuleInfo kModuleInfo{u"Buttons", nullptr};
constexpr ModuleFile kModule{&kModuleInfo, 1000};

Long Place(const Object& control, Name edge, Integer offset) {
  return ToLong(std::int64_t{control.Get(edge).ToLong()} - offset);
}

// The far edge: Word tells the extent and the near edge.
Long FarPlace(const Object& control, Name extent, Name edge, Integer offset) {
  const std::int64_t length = control.Get(extent).ToLong();
  return ToLong(length + control.Get(edge).ToLong() - offset);
}

}  // namespace

// odd: first-control-counts
Boolean Buttons::UpdateButtonRects() {
  METHOD(Boolean, u"UpdateButtonRects");
  Object controls;
  Object control;
  Integer left = 0;
  Integer top = 0;
  Integer count = 0;
  Integer i = 0;
  REPORTS(controls, control, left, top, count, i);
  here.EndQuietly();
  getWindowOffsets(left, top);
  STEP(controls = ToolbarUtilities::CommandBar().Get("Controls").ToObject());
  STEP(control = controls.Get("item", Integer{1}).ToObject());
  // The first control counts for the start even when it is dropped.
  STEP(mBoundingRect.left = Place(control, "left", left));
  STEP(mBoundingRect.top = Place(control, "top", top));
  STEP(mBoundingRect.right = FarPlace(control, "width", "left", left));
  STEP(mBoundingRect.bottom = FarPlace(control, "height", "top", top));
  STEP(count = Min(controls.Get("count").ToInteger(), ToolbarUtilities::kCells));
  for (i = 1; i <= count; ++i) {
    ButtonRect& cell = mButtons(i - 1);
    STEP(control = controls.Get("item", i).ToObject());
    STEP(cell.isPriorityDropped = control.Get("isPriorityDropped").ToBoolean());
    STEP(cell.left = Place(control, "left", left));
    STEP(cell.top = Place(control, "top", top));
    STEP(cell.right = FarPlace(control, "width", "left", left));
    STEP(cell.bottom = FarPlace(control, "height", "top", top));
    if (cell.isPriorityDropped) continue;
    if (mBoundingRect.left > cell.left) mBoundingRect.left = cell.left;
    if (mBoundingRect.top > cell.top) mBoundingRect.top = cell.top;
    if (mBoundingRect.right < cell.right) mBoundingRect.right = cell.right;
    if (mBoundingRect.bottom < cell.bottom) mBoundingRect.bottom = cell.bottom;
  }
  return here.result = true;
}

void Buttons::getWindowOffsets(Integer& left, Integer& top) {
  METHOD(void, u"getWindowOffsets", left, top);
  Rect rectangle;
  REPORTS(rectangle);
  platform::Windows().GetWindowRect(mHwnd, rectangle);
  STEP(left = ToInteger(rectangle.left));
  STEP(top = ToInteger(rectangle.top));
}

Integer Buttons::Min(Integer left, Integer right) {
  METHOD(Integer, u"Min", left, right);
  return here.result = left < right ? left : right;
}

}  // namespace strandline
