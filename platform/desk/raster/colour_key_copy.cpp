#include "platform/desk/raster/colour_key_copy.h"

#include "platform/desk/raster/fill.h"
#include "platform/desk/raster/keyed_rows.h"

namespace strandline::desk {
namespace {

void CopyKeyed(Surface& dst, const Clip& area, const Surface& src, int left, int top, std::uint32_t key) {
  CopyKeyedRows({dst.At(area.left, area.top), static_cast<std::size_t>(dst.width), src.At(left, top),
                 static_cast<std::size_t>(src.width), static_cast<std::size_t>(area.right - area.left),
                 static_cast<std::size_t>(area.bottom - area.top), key});
}

// `hole` lies in `area` or is empty.
void BlackenAround(Surface& dst, const Clip& area, const Clip& hole) {
  if (area == hole) return;
  if (IsEmpty(hole)) return FillRect(dst, area, area, 0);
  FillRect(dst, area, {area.left, area.top, area.right, hole.top}, 0);
  FillRect(dst, area, {area.left, hole.bottom, area.right, area.bottom}, 0);
  FillRect(dst, area, {area.left, hole.top, hole.left, hole.bottom}, 0);
  FillRect(dst, area, {hole.right, hole.top, area.right, hole.bottom}, 0);
}

}  // namespace

void ColourKeyCopy(Surface& dst, const Clip& clip, int dx, int dy, int width, int height, const Surface& src, int sx,
                   int sy, std::uint32_t keyPixel) {
  if (width <= 0 || height <= 0 || dst.IsMono() || src.IsMono()) return;
  const Clip area = Intersect(Intersect(ClipAt(dx, dy, width, height), clip), dst.Bounds());
  if (IsEmpty(area)) return;

  const std::int64_t shiftX = std::int64_t{sx} - dx;
  const std::int64_t shiftY = std::int64_t{sy} - dy;
  const Clip covered = Intersect(area, ClipAt(-shiftX, -shiftY, src.width, src.height));
  if (IsEmpty(covered)) return BlackenAround(dst, area, covered);

  const std::uint32_t key = keyPixel & src.PixelMask();
  const int left = static_cast<int>(covered.left + shiftX);
  const int top = static_cast<int>(covered.top + shiftY);
  if (&dst == &src) {
    const Surface aside = CutOut(src, ClipAt(left, top, covered.right - covered.left, covered.bottom - covered.top));
    CopyKeyed(dst, covered, aside, 0, 0, key);
  } else {
    CopyKeyed(dst, covered, src, left, top, key);
  }
  BlackenAround(dst, area, covered);
}

}  // namespace strandline::desk
