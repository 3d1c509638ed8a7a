#include "platform/desk/raster/raster_op.h"

#include <algorithm>
#include <cstring>

#include "platform/desk/raster/fill.h"
#include "platform/desk/raster/mono_bits.h"
#include "platform/desk/raster/row_loop.h"

namespace strandline::desk {
namespace {

// Rows of two 32-bit surfaces to combine, already clipped: every one of them lies in both.
struct Rows {
  std::uint32_t* target;
  std::size_t targetStride;
  const std::uint32_t* source;
  std::size_t sourceStride;
  std::size_t width;
  std::size_t height;
};

// Whole rows of equally wide surfaces lie one behind the other, so they count as a single long one.
Rows JoinedWherePossible(Rows rows) {
  if (rows.width != rows.targetStride || rows.width != rows.sourceStride) return rows;
  rows.width *= rows.height;
  rows.height = 1;
  return rows;
}

// memmove settles overlap within a row. Between rows the order does: a copy downwards starts with the lowest one.
void CopyRows(const Rows& rows, bool upwards) {
  for (std::size_t i = 0; i < rows.height; ++i) {
    const std::size_t y = upwards ? i : rows.height - 1 - i;
    std::memmove(rows.target + y * rows.targetStride, rows.source + y * rows.sourceStride,
                 rows.width * sizeof(std::uint32_t));
  }
}

template <typename Combine>
void CombineRows(const Rows& rows, Combine combine) {
  for (std::size_t y = 0; y < rows.height; ++y) {
    CombineRow(rows.target + y * rows.targetStride, rows.source + y * rows.sourceStride, rows.width, combine);
  }
}

// Calls `use` with what the operation makes of a target and a source of the same form: pixels, or 32 pixels of one bit.
// `mask` holds the bits that count.
template <typename Use>
void WithOperation(std::uint32_t rop, std::uint32_t mask, Use use) {
  using Bits = std::uint32_t;
  switch (rop) {
    case kSrcCopy:
      return use([](Bits, Bits source) { return source; });
    case kNotSrcCopy:
      return use([mask](Bits, Bits source) { return ~source & mask; });
    case kSrcAnd:
      return use([](Bits target, Bits source) { return target & source; });
    case kSrcInvert:
      return use([](Bits target, Bits source) { return target ^ source; });
    case kSrcPaint:
      return use([](Bits target, Bits source) { return target | source; });
    default:
      return;
  }
}

// Rows where at least one side has one bit; positions are counted in pixels from a row's beginning.
struct MixedRows {
  Surface& dst;
  const Surface& src;
  Clip area;
  int left;
  int top;

  std::size_t Left() const { return static_cast<std::size_t>(area.left); }
  std::size_t Right() const { return static_cast<std::size_t>(area.right); }
  // From a target's pixel to its source's.
  std::size_t SourceOf(std::size_t at) const { return at - Left() + static_cast<std::size_t>(left); }

  template <typename Use>
  void ForEach(Use use) const {
    for (int y = area.top; y < area.bottom; ++y) use(dst.Row(y), src.Row(top + y - area.top));
  }
};

// `read` gives the source's bits for `count` pixels of the target from `at` on.
template <typename Combine, typename Read>
void CombineToBits(const MixedRows& rows, Combine combine, Read read) {
  rows.ForEach([&](std::uint32_t* target, const std::uint32_t* source) {
    ForPiecesOfARow(rows.Left(), rows.Right(), [&](std::size_t at, std::size_t count) {
      PutBits(target, at, count, combine(BitsAt(target, at, count), read(source, rows.SourceOf(at), count)));
    });
  });
}

template <typename Combine>
void CombineBits(const MixedRows& rows, Combine combine) {
  CombineToBits(rows, combine, BitsAt);
}

// A pixel of the background colour is a 1.
template <typename Combine>
void CombineColourToBits(const MixedRows& rows, std::uint32_t background, Combine combine) {
  CombineToBits(rows, combine, [background](const std::uint32_t* source, std::size_t at, std::size_t count) {
    std::uint32_t bits = 0;
    for (std::size_t i = 0; i < count; ++i) bits |= static_cast<std::uint32_t>(source[at + i] == background) << i;
    return bits;
  });
}

template <typename Combine>
void CombineBitsToColour(const MixedRows& rows, std::uint32_t text, std::uint32_t background, Combine combine) {
  rows.ForEach([&](std::uint32_t* target, const std::uint32_t* source) {
    for (std::size_t at = rows.Left(); at < rows.Right(); at += kBitsOfAnElement) {
      const std::size_t count = std::min(kBitsOfAnElement, rows.Right() - at);
      const std::uint32_t bits = BitsAt(source, rows.SourceOf(at), count);
      std::uint32_t colours[kBitsOfAnElement];
      for (std::size_t i = 0; i < kBitsOfAnElement; ++i) colours[i] = (bits >> i & 1) == 0 ? text : background;
      CombineRow(target + at, colours, count, combine);
    }
  });
}

Rows RowsOf(Surface& dst, const Clip& area, const Surface& src, int left, int top) {
  return {dst.At(area.left, area.top),
          dst.Stride(),
          src.At(left, top),
          src.Stride(),
          static_cast<std::size_t>(area.right - area.left),
          static_cast<std::size_t>(area.bottom - area.top)};
}

void CombineByDepth(Surface& dst, const Clip& area, const Surface& src, int left, int top, std::uint32_t rop,
                    const BlitColours& colours) {
  if (!dst.IsMono() && !src.IsMono()) {
    const Rows rows = RowsOf(dst, area, src, left, top);
    return WithOperation(rop, dst.PixelMask(), [&](auto combine) { CombineRows(rows, combine); });
  }
  const MixedRows rows{dst, src, area, left, top};
  if (!dst.IsMono()) {
    const std::uint32_t text = colours.textPixel & dst.PixelMask();
    const std::uint32_t background = colours.backgroundPixel & dst.PixelMask();
    return WithOperation(rop, dst.PixelMask(),
                         [&](auto combine) { CombineBitsToColour(rows, text, background, combine); });
  }
  constexpr std::uint32_t kAllBits = ~std::uint32_t{0};
  if (src.IsMono()) return WithOperation(rop, kAllBits, [&](auto combine) { CombineBits(rows, combine); });
  const std::uint32_t background = colours.sourceBackgroundPixel & src.PixelMask();
  WithOperation(rop, kAllBits, [&](auto combine) { CombineColourToBits(rows, background, combine); });
}

}  // namespace

bool IsKnownRasterOp(std::uint32_t rop) {
  switch (rop) {
    case kSrcCopy:
    case kNotSrcCopy:
    case kSrcAnd:
    case kSrcInvert:
    case kSrcPaint:
    case kBlackness:
    case kWhiteness:
      return true;
    default:
      return false;
  }
}

void BitBlt(Surface& dst, const Clip& clip, int dx, int dy, int width, int height, const Surface& src, int sx, int sy,
            std::uint32_t rop, const BlitColours& colours) {
  if (width <= 0 || height <= 0 || !IsKnownRasterOp(rop)) return;
  const Clip rectangle = ClipAt(dx, dy, width, height);
  if (rop == kBlackness) return FillRect(dst, clip, rectangle, 0);
  if (rop == kWhiteness) return FillRect(dst, clip, rectangle, dst.PixelMask());

  const std::int64_t shiftX = std::int64_t{sx} - dx;
  const std::int64_t shiftY = std::int64_t{sy} - dy;
  const Clip source = ClipAt(-shiftX, -shiftY, src.width, src.height);
  const Clip area = Intersect(Intersect(rectangle, clip), Intersect(source, dst.Bounds()));
  if (IsEmpty(area)) return;

  const int left = static_cast<int>(area.left + shiftX);
  const int top = static_cast<int>(area.top + shiftY);
  if (rop == kSrcCopy && !dst.IsMono() && !src.IsMono()) {
    CopyRows(JoinedWherePossible(RowsOf(dst, area, src, left, top)), area.top <= top);
  } else if (&dst == &src) {
    const Surface aside = CutOut(src, ClipAt(left, top, area.right - area.left, area.bottom - area.top));
    CombineByDepth(dst, area, aside, 0, 0, rop, colours);
  } else {
    CombineByDepth(dst, area, src, left, top, rop, colours);
  }
}

}  // namespace strandline::desk
