#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "platform/desk/raster/clip.h"

namespace strandline::desk {

// The pixels of a bitmap, row by row from the top. A 32-bit pixel is 0x00RRGGBB and its top byte stays zero. Of a 1-bit
// surface an element holds 32 pixels, the leftmost in its lowest bit (mono_bits.h); each row begins with an element of
// its own, and the bits behind its end stay zero. Operations rely on `pixels` holding all rows.
struct Surface {
  // The number of a bitmap's bytes has 31 bits, as on Windows: a mask may have 32,767 pixels in both directions.
  static constexpr std::int64_t kMaximumBytes = 0x7FFFFFFF;

  Surface() = default;

  // A surface of zeros. A size that is not positive, or too large, gives one of 0 by 0; without memory for it
  // std::bad_alloc is thrown. Any depth but 1 means 32.
  Surface(int pixelWidth, int pixelHeight, int depth = 32);

  bool IsMono() const { return bitsPerPixel == 1; }
  std::uint32_t PixelMask() const { return IsMono() ? 1u : 0x00FFFFFFu; }
  Clip Bounds() const { return {0, 0, width, height}; }

  // Elements from one row to the next.
  std::size_t Stride() const { return StrideOf(width, bitsPerPixel); }
  std::uint32_t* Row(int y) { return pixels.data() + static_cast<std::size_t>(y) * Stride(); }
  const std::uint32_t* Row(int y) const { return pixels.data() + static_cast<std::size_t>(y) * Stride(); }

  // One pixel of either depth. Here and below, coordinates must lie in Bounds().
  std::uint32_t Get(int x, int y) const { return IsMono() ? Row(y)[x / 32] >> (x % 32) & 1 : *At(x, y); }
  void Set(int x, int y, std::uint32_t pixel) {
    if (!IsMono()) {
      *At(x, y) = pixel & PixelMask();
      return;
    }
    const std::uint32_t bit = std::uint32_t{1} << (x % 32);
    std::uint32_t& element = Row(y)[x / 32];
    element = (pixel & 1) != 0 ? element | bit : element & ~bit;
  }

  // Of a 32-bit surface.
  std::uint32_t* At(int x, int y) { return pixels.data() + IndexOf(x, y); }
  const std::uint32_t* At(int x, int y) const { return pixels.data() + IndexOf(x, y); }

  friend bool operator==(const Surface&, const Surface&) = default;

  int width = 0;
  int height = 0;
  int bitsPerPixel = 32;
  std::vector<std::uint32_t> pixels;

 private:
  static std::size_t StrideOf(int width, int bitsPerPixel) {
    return bitsPerPixel == 1 ? (static_cast<std::size_t>(width) + 31) / 32 : static_cast<std::size_t>(width);
  }
  std::size_t IndexOf(int x, int y) const {
    return static_cast<std::size_t>(y) * static_cast<std::size_t>(width) + static_cast<std::size_t>(x);
  }
};

// A surface of its own with the pixels of `area`, which must lie in the source's bounds.
Surface CutOut(const Surface& source, const Clip& area);

// A COLORREF is 0x00BBGGRR, a pixel 0x00RRGGBB; the swap is its own inverse. The top byte is dropped.
constexpr std::uint32_t PixelFromColorRef(std::uint32_t colour) {
  return (colour & 0x0000FFu) << 16 | (colour & 0x00FF00u) | (colour & 0xFF0000u) >> 16;
}

constexpr std::uint32_t ColorRefFromPixel(std::uint32_t pixel) { return PixelFromColorRef(pixel); }

}  // namespace strandline::desk
