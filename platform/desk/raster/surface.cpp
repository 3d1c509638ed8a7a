#include "platform/desk/raster/surface.h"

#include <algorithm>

#include "platform/desk/raster/mono_bits.h"

namespace strandline::desk {

Surface::Surface(int pixelWidth, int pixelHeight, int depth) : bitsPerPixel(depth == 1 ? 1 : 32) {
  if (pixelWidth <= 0 || pixelHeight <= 0) return;
  const std::size_t stride = StrideOf(pixelWidth, bitsPerPixel);
  constexpr std::size_t kMaximumElements = kMaximumBytes / sizeof(std::uint32_t);
  if (stride > kMaximumElements / static_cast<std::size_t>(pixelHeight)) return;
  width = pixelWidth;
  height = pixelHeight;
  pixels.assign(stride * static_cast<std::size_t>(height), 0);
}

Surface CutOut(const Surface& source, const Clip& area) {
  if (IsEmpty(area)) return Surface(0, 0, source.bitsPerPixel);
  Surface cut(area.right - area.left, area.bottom - area.top, source.bitsPerPixel);
  for (int y = 0; y < cut.height; ++y) {
    if (source.IsMono()) {
      const std::size_t left = static_cast<std::size_t>(area.left);
      ForPiecesOfARow(0, static_cast<std::size_t>(cut.width), [&](std::size_t at, std::size_t count) {
        PutBits(cut.Row(y), at, count, BitsAt(source.Row(area.top + y), left + at, count));
      });
    } else {
      std::copy_n(source.At(area.left, area.top + y), cut.width, cut.At(0, y));
    }
  }
  return cut;
}

}  // namespace strandline::desk
