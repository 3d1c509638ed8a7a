#include "platform/desk/raster/fill.h"

#include <algorithm>

namespace strandline::desk {

void FillRect(Surface& surface, const Clip& clip, const Clip& rectangle, std::uint32_t pixel) {
  const Clip area = Intersect(Intersect(rectangle, clip), surface.Bounds());
  if (IsEmpty(area)) return;
  const std::uint32_t value = pixel & surface.PixelMask();
  for (int y = area.top; y < area.bottom; ++y) std::fill_n(surface.At(area.left, y), area.right - area.left, value);
}

}  // namespace strandline::desk
