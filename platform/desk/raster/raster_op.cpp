#include "platform/desk/raster/raster_op.h"

#include <cstring>

#include "platform/desk/raster/fill.h"
#include "platform/desk/raster/row_loop.h"

namespace strandline::desk {
namespace {

// Rows to combine, already clipped: every one of them lies in both surfaces.
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

// `read` turns a source pixel into one of the target's depth, `mask` holds the bits a target pixel has.
template <typename Read>
void CombineByOp(const Rows& rows, std::uint32_t rop, std::uint32_t mask, Read read) {
  using Pixel = std::uint32_t;
  switch (rop) {
    case kSrcCopy:
      return CombineRows(rows, [read](Pixel, Pixel source) { return read(source); });
    case kNotSrcCopy:
      return CombineRows(rows, [read, mask](Pixel, Pixel source) { return ~read(source) & mask; });
    case kSrcAnd:
      return CombineRows(rows, [read](Pixel target, Pixel source) { return target & read(source); });
    case kSrcInvert:
      return CombineRows(rows, [read](Pixel target, Pixel source) { return target ^ read(source); });
    case kSrcPaint:
      return CombineRows(rows, [read](Pixel target, Pixel source) { return target | read(source); });
    default:
      return;
  }
}

void CombineByDepth(Surface& dst, const Surface& src, const Rows& rows, std::uint32_t rop, const BlitColours& colours) {
  const std::uint32_t mask = dst.PixelMask();
  if (dst.IsMono() == src.IsMono()) {
    CombineByOp(rows, rop, mask, [](std::uint32_t source) { return source; });
  } else if (src.IsMono()) {
    const std::uint32_t text = colours.textPixel & mask;
    const std::uint32_t background = colours.backgroundPixel & mask;
    CombineByOp(rows, rop, mask, [text, background](std::uint32_t source) { return source == 0 ? text : background; });
  } else {
    const std::uint32_t background = colours.sourceBackgroundPixel & src.PixelMask();
    CombineByOp(rows, rop, mask, [background](std::uint32_t source) { return source == background ? 1u : 0u; });
  }
}

Rows RowsOf(Surface& dst, const Clip& area, const Surface& src, int left, int top) {
  return {dst.At(area.left, area.top),
          static_cast<std::size_t>(dst.width),
          src.At(left, top),
          static_cast<std::size_t>(src.width),
          static_cast<std::size_t>(area.right - area.left),
          static_cast<std::size_t>(area.bottom - area.top)};
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
  if (rop == kSrcCopy && dst.IsMono() == src.IsMono()) {
    CopyRows(JoinedWherePossible(RowsOf(dst, area, src, left, top)), area.top <= top);
  } else if (&dst == &src) {
    const Surface aside = CutOut(src, ClipAt(left, top, area.right - area.left, area.bottom - area.top));
    CombineByDepth(dst, aside, RowsOf(dst, area, aside, 0, 0), rop, colours);
  } else {
    CombineByDepth(dst, src, RowsOf(dst, area, src, left, top), rop, colours);
  }
}

}  // namespace strandline::desk
