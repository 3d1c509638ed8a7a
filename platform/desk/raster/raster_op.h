#pragma once

#include <cstdint>

#include "platform/desk/raster/surface.h"

namespace strandline::desk {

// The raster operations the strip's drawing uses, by their Windows codes. The last two need no source.
inline constexpr std::uint32_t kSrcCopy = 0x00CC0020;
inline constexpr std::uint32_t kNotSrcCopy = 0x00330008;
inline constexpr std::uint32_t kSrcAnd = 0x008800C6;
inline constexpr std::uint32_t kSrcInvert = 0x00660046;
inline constexpr std::uint32_t kSrcPaint = 0x00EE0086;
inline constexpr std::uint32_t kBlackness = 0x00000042;
inline constexpr std::uint32_t kWhiteness = 0x00FF0062;

bool IsKnownRasterOp(std::uint32_t rop);

// What a copy between a 1-bit and a 32-bit surface turns pixels into. Copies between equal depths ignore it.
struct BlitColours {
  // From 1 bit to 32: a 0 becomes the target's text colour, a 1 its background colour.
  std::uint32_t textPixel = 0x00000000;
  std::uint32_t backgroundPixel = 0x00FFFFFF;
  // From 32 bits to 1: pixels equal to the source's background colour become 1, all others 0.
  std::uint32_t sourceBackgroundPixel = 0x00FFFFFF;
};

// Combines the rectangle at (sx, sy) of the source with the one at (dx, dy) of the destination. Pixels outside the
// clip, either surface or the rectangle keep their value. Source and destination may be the same surface and the
// rectangles may overlap: the result is as if the source had been set aside first. A width or height that is not
// positive, or an unknown operation, draws nothing.
void BitBlt(Surface& dst, const Clip& clip, int dx, int dy, int width, int height, const Surface& src, int sx, int sy,
            std::uint32_t rop, const BlitColours& colours);

}  // namespace strandline::desk
