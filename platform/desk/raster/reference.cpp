#include "platform/desk/raster/reference.h"

namespace strandline::desk {
namespace {

// Where a pixel of the destination lies in the rectangle, and which pixel of the source belongs to it.
struct Correspondence {
  bool meant;
  bool inSource;
  std::int64_t sourceX;
  std::int64_t sourceY;
};

Correspondence Correspond(int x, int y, const Clip& clip, int dx, int dy, int width, int height, const Surface& src,
                          int sx, int sy) {
  const std::int64_t acrossX = std::int64_t{x} - dx;
  const std::int64_t downY = std::int64_t{y} - dy;
  const bool inRectangle = acrossX >= 0 && acrossX < width && downY >= 0 && downY < height;
  const bool inClip = x >= clip.left && x < clip.right && y >= clip.top && y < clip.bottom;
  const std::int64_t sourceX = acrossX + sx;
  const std::int64_t sourceY = downY + sy;
  const bool inSource = sourceX >= 0 && sourceX < src.width && sourceY >= 0 && sourceY < src.height;
  return {inRectangle && inClip, inSource, sourceX, sourceY};
}

std::uint32_t SourcePixel(const Surface& src, const Correspondence& at) {
  const std::size_t row = static_cast<std::size_t>(at.sourceY) * src.Stride();
  const auto x = static_cast<std::size_t>(at.sourceX);
  return src.bitsPerPixel == 1 ? src.pixels[row + x / 32] >> (x % 32) & 1 : src.pixels[row + x];
}

std::uint32_t Converted(std::uint32_t pixel, const Surface& src, const Surface& dst, const BlitColours& colours) {
  if (src.bitsPerPixel == dst.bitsPerPixel) return pixel;
  if (src.bitsPerPixel == 1) return pixel == 0 ? colours.textPixel : colours.backgroundPixel;
  return pixel == (colours.sourceBackgroundPixel & 0x00FFFFFF) ? 1 : 0;
}

// Bits 16 to 23 of an operation's code are its truth table: the bit numbered 4 * pattern + 2 * source + target is the
// result. Operations without a pattern have the same four bits twice.
std::uint32_t Mixed(std::uint32_t rop, std::uint32_t source, std::uint32_t target, int bits) {
  std::uint32_t result = 0;
  for (int bit = 0; bit < bits; ++bit) {
    const std::uint32_t row = (source >> bit & 1) * 2 + (target >> bit & 1);
    result |= (rop >> (16 + row) & 1) << bit;
  }
  return result;
}

}  // namespace

void ReferenceBitBlt(Surface& dst, const Clip& clip, int dx, int dy, int width, int height, const Surface& src, int sx,
                     int sy, std::uint32_t rop, const BlitColours& colours) {
  if (!IsKnownRasterOp(rop)) return;
  const bool usesSource = rop != kBlackness && rop != kWhiteness;
  const Surface aside = src;
  for (int y = 0; y < dst.height; ++y) {
    for (int x = 0; x < dst.width; ++x) {
      const Correspondence at = Correspond(x, y, clip, dx, dy, width, height, aside, sx, sy);
      if (!at.meant || (usesSource && !at.inSource)) continue;
      const std::uint32_t source = usesSource ? Converted(SourcePixel(aside, at), aside, dst, colours) : 0;
      dst.Set(x, y, Mixed(rop, source, dst.Get(x, y), dst.bitsPerPixel == 1 ? 1 : 24));
    }
  }
}

void ReferenceColourKeyCopy(Surface& dst, const Clip& clip, int dx, int dy, int width, int height, const Surface& src,
                            int sx, int sy, std::uint32_t keyPixel) {
  if (dst.bitsPerPixel != 32 || src.bitsPerPixel != 32) return;
  const Surface aside = src;
  for (int y = 0; y < dst.height; ++y) {
    for (int x = 0; x < dst.width; ++x) {
      const Correspondence at = Correspond(x, y, clip, dx, dy, width, height, aside, sx, sy);
      if (!at.meant) continue;
      const std::uint32_t source = at.inSource ? SourcePixel(aside, at) : 0;
      if (!at.inSource || source != (keyPixel & 0x00FFFFFF)) *dst.At(x, y) = source;
    }
  }
}

}  // namespace strandline::desk
