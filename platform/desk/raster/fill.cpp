#include "platform/desk/raster/fill.h"

#include <algorithm>

#include "platform/desk/raster/mono_bits.h"

namespace strandline::desk {

namespace {

void FillBits(Surface& surface, const Clip& area, std::uint32_t pixel) {
  const std::uint32_t bits = (pixel & 1) != 0 ? ~std::uint32_t{0} : 0;
  for (int y = area.top; y < area.bottom; ++y) {
    ForPiecesOfARow(static_cast<std::size_t>(area.left), static_cast<std::size_t>(area.right),
                    [row = surface.Row(y), bits](std::size_t at, std::size_t count) { PutBits(row, at, count, bits); });
  }
}

}  // namespace

void FillRect(Surface& surface, const Clip& clip, const Clip& rectangle, std::uint32_t pixel) {
  const Clip area = Intersect(Intersect(rectangle, clip), surface.Bounds());
  if (IsEmpty(area)) return;
  if (surface.IsMono()) return FillBits(surface, area, pixel);
  const std::uint32_t value = pixel & surface.PixelMask();
  for (int y = area.top; y < area.bottom; ++y) std::fill_n(surface.At(area.left, y), area.right - area.left, value);
}

}  // namespace strandline::desk
