#include "platform/desk/raster/draw_edge.h"

#include "platform/desk/raster/fill.h"

namespace strandline::desk {
namespace {

constexpr int kOuterLines = kRaisedOuter | kSunkenOuter;
constexpr int kInnerLines = kRaisedInner | kSunkenInner;

// Draws lines along the sides and takes each one off the rectangle. Right and bottom come first: this gives them the
// corners they share with top and left, and leaves the sides without a line at full length. None is drawn once the
// rectangle is used up, so a narrow one cannot spill over.
Clip DrawLines(Surface& surface, const Clip& clip, Clip rest, int flags, std::uint32_t leftTop,
               std::uint32_t rightBottom) {
  if ((flags & kEdgeRight) != 0 && !IsEmpty(rest)) {
    FillRect(surface, clip, {rest.right - 1, rest.top, rest.right, rest.bottom}, rightBottom);
    --rest.right;
  }
  if ((flags & kEdgeBottom) != 0 && !IsEmpty(rest)) {
    FillRect(surface, clip, {rest.left, rest.bottom - 1, rest.right, rest.bottom}, rightBottom);
    --rest.bottom;
  }
  if ((flags & kEdgeLeft) != 0 && !IsEmpty(rest)) {
    FillRect(surface, clip, {rest.left, rest.top, rest.left + 1, rest.bottom}, leftTop);
    ++rest.left;
  }
  if ((flags & kEdgeTop) != 0 && !IsEmpty(rest)) {
    FillRect(surface, clip, {rest.left, rest.top, rest.right, rest.top + 1}, leftTop);
    ++rest.top;
  }
  return rest;
}

}  // namespace

void DrawEdge(Surface& surface, const Clip& clip, int left, int top, int right, int bottom, int edge, int flags,
              const EdgeColours& colours) {
  if (surface.IsMono()) return;
  const int outer = edge & kOuterLines;
  const int inner = edge & kInnerLines;
  if ((outer | inner) == 0 || outer == kOuterLines || inner == kInnerLines) return;

  Clip rest{left, top, right, bottom};
  if (outer == kRaisedOuter) rest = DrawLines(surface, clip, rest, flags, colours.light, colours.darkShadow);
  if (outer == kSunkenOuter) rest = DrawLines(surface, clip, rest, flags, colours.shadow, colours.highlight);
  if (inner == kRaisedInner) rest = DrawLines(surface, clip, rest, flags, colours.highlight, colours.shadow);
  if (inner == kSunkenInner) rest = DrawLines(surface, clip, rest, flags, colours.darkShadow, colours.light);
  if ((flags & kEdgeMiddle) != 0) FillRect(surface, clip, rest, colours.face);
}

}  // namespace strandline::desk
