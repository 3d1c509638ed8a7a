#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "platform/desk/raster/clip.h"

namespace strandline::desk {

// The pixels of a bitmap, row by row from the top. A 32-bit pixel is 0x00RRGGBB and its top byte stays zero. A 1-bit
// surface keeps one value, 0 or 1, per element: masks are small, and one element type lets every operation share its
// loops. Operations rely on `pixels` holding width times height elements.
struct Surface {
  // A larger surface is a caller's mistake; it comes out empty instead of taking the machine's memory.
  static constexpr std::int64_t kMaximumPixels = std::int64_t{1} << 26;

  Surface() = default;

  // A surface of zeros. A size that is not positive, or too large, gives one of 0 by 0. Any depth but 1 means 32.
  Surface(int pixelWidth, int pixelHeight, int depth = 32) : bitsPerPixel(depth == 1 ? 1 : 32) {
    if (pixelWidth <= 0 || pixelHeight <= 0) return;
    if (std::int64_t{pixelWidth} * pixelHeight > kMaximumPixels) return;
    width = pixelWidth;
    height = pixelHeight;
    pixels.assign(static_cast<std::size_t>(width) * static_cast<std::size_t>(height), 0);
  }

  bool IsMono() const { return bitsPerPixel == 1; }
  std::uint32_t PixelMask() const { return IsMono() ? 1u : 0x00FFFFFFu; }
  Clip Bounds() const { return {0, 0, width, height}; }

  // The coordinates must lie in Bounds().
  std::uint32_t* At(int x, int y) { return pixels.data() + IndexOf(x, y); }
  const std::uint32_t* At(int x, int y) const { return pixels.data() + IndexOf(x, y); }

  std::size_t IndexOf(int x, int y) const {
    return static_cast<std::size_t>(y) * static_cast<std::size_t>(width) + static_cast<std::size_t>(x);
  }

  friend bool operator==(const Surface&, const Surface&) = default;

  int width = 0;
  int height = 0;
  int bitsPerPixel = 32;
  std::vector<std::uint32_t> pixels;
};

// A surface of its own with the pixels of `area`, which must lie in the source's bounds.
inline Surface CutOut(const Surface& source, const Clip& area) {
  if (IsEmpty(area)) return Surface(0, 0, source.bitsPerPixel);
  Surface cut(area.right - area.left, area.bottom - area.top, source.bitsPerPixel);
  for (int y = 0; y < cut.height; ++y) std::copy_n(source.At(area.left, area.top + y), cut.width, cut.At(0, y));
  return cut;
}

// A COLORREF is 0x00BBGGRR, a pixel 0x00RRGGBB; the swap is its own inverse. The top byte is dropped.
constexpr std::uint32_t PixelFromColorRef(std::uint32_t colour) {
  return (colour & 0x0000FFu) << 16 | (colour & 0x00FF00u) | (colour & 0xFF0000u) >> 16;
}

constexpr std::uint32_t ColorRefFromPixel(std::uint32_t pixel) { return PixelFromColorRef(pixel); }

}  // namespace strandline::desk
