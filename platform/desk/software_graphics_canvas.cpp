// The host's canvas: plain colours, gradients, text and pictures for the faces of the simulated programs.

#include <algorithm>

#include "platform/desk/raster/colour_key_copy.h"
#include "platform/desk/raster/fill.h"
#include "platform/desk/software_graphics.h"
#include "platform/looks/bitmap_font.h"
#include "platform/looks/gradient.h"
#include "platform/looks/mix.h"

namespace strandline::desk {

namespace {

constexpr std::uint32_t kColorBits = 0xFFFFFF;

constexpr Clip ClipOf(const Rect& rectangle) {
  return {rectangle.left, rectangle.top, rectangle.right, rectangle.bottom};
}

std::uint32_t PixelOf(Long color) { return PixelFromColorRef(static_cast<std::uint32_t>(color)); }

void FillArea(const DrawTarget& target, const Clip& area, std::uint32_t pixel) {
  const Clip part = Intersect(area, target.whole);
  for (const Clip& clip : target.Clips()) desk::FillRect(*target.surface, clip, part, pixel);
}

void DrawGlyph(const DrawTarget& target, const Glyph& glyph, std::int64_t left, std::int64_t top, std::uint32_t pixel) {
  for (int row = 0; row < Glyph::kRows; ++row) {
    const unsigned bits = glyph.rows[static_cast<std::size_t>(row)];
    for (int x = 0; x < glyph.width; ++x) {
      if ((bits >> x & 1) == 0) continue;
      int end = x + 1;
      while (end < glyph.width && (bits >> end & 1) != 0) ++end;
      FillArea(target, ClipAt(left + x, top + row, end - x, 1), pixel);
      x = end;
    }
  }
}

// The pixels of a 1-bit bitmap as colours.
Surface InColor(const Surface& surface) {
  Surface colored(surface.width, surface.height);
  desk::BitBlt(colored, colored.Bounds(), 0, 0, surface.width, surface.height, surface, 0, 0, kSrcCopy,
               {0, kColorBits, 0});
  return colored;
}

// Rows to read from; the stride in pixels.
struct Readable {
  const std::uint32_t* pixels;
  std::size_t stride;
};

// What a source shows at the target's `area`. A window's pixels may lie on the target's own surface elsewhere, where
// they would be written before they are read; then they are set aside.
Readable ReadableAt(const DrawSource& source, const DrawTarget& target, const Clip& area, Surface& aside) {
  const int shiftX = static_cast<int>(source.left - target.left);
  const int shiftY = static_cast<int>(source.top - target.top);
  const Clip place{area.left + shiftX, area.top + shiftY, area.right + shiftX, area.bottom + shiftY};
  if (source.surface == target.surface && place != area) {
    aside = CutOut(*source.surface, place);
    return {aside.pixels.data(), static_cast<std::size_t>(aside.width)};
  }
  return {source.surface->At(place.left, place.top), static_cast<std::size_t>(source.surface->width)};
}

// What a source has of an area of the target.
Clip PartOf(const DrawSource& source, const DrawTarget& target, const Clip& area) {
  const std::int64_t shiftX = source.left - target.left;
  const std::int64_t shiftY = source.top - target.top;
  return Intersect(area, ClipFromEdges(source.whole.left - shiftX, source.whole.top - shiftY,
                                       source.whole.right - shiftX, source.whole.bottom - shiftY));
}

}  // namespace

void SoftwareGraphics::FillRectangle(Long hdc, const Rect& rectangle, Long color) {
  Context* context = mObjects->Use<Context>(hdc, "FillRectangle");
  if (!context) return;
  const DrawTarget target = mTargets.TargetOf(*context);
  FillArea(target, target.Moved(ClipOf(rectangle)), PixelOf(color));
}

void SoftwareGraphics::FillGradient(Long hdc, const Rect& rectangle, Long topColor, Long bottomColor) {
  Context* context = mObjects->Use<Context>(hdc, "FillGradient");
  if (!context) return;
  const DrawTarget target = mTargets.TargetOf(*context);
  const Clip area = target.Moved(ClipOf(rectangle));
  const Clip part = Intersect(area, target.whole);
  if (IsEmpty(part)) return;
  const std::int64_t steps = std::int64_t{area.bottom} - area.top - 1;
  for (int y = part.top; y < part.bottom; ++y) {
    const std::uint32_t pixel =
        ColorBetween(PixelOf(topColor), PixelOf(bottomColor), std::int64_t{y} - area.top, steps);
    FillArea(target, {part.left, y, part.right, y + 1}, pixel);
  }
}

void SoftwareGraphics::DrawTextLine(Long hdc, Long x, Long y, const String& text, Long color) {
  Context* context = mObjects->Use<Context>(hdc, "DrawTextLine");
  if (!context) return;
  const DrawTarget target = mTargets.TargetOf(*context);
  std::int64_t left = target.left + x;
  const std::int64_t top = target.top + y + kGlyphTop;
  for (const char16_t character : text.View()) {
    if (left >= target.whole.right) break;
    const Glyph& glyph = GlyphOf(character);
    DrawGlyph(target, glyph, left, top, PixelOf(color));
    left += glyph.width + kGlyphGap;
  }
}

Long SoftwareGraphics::TextWidth(const String& text) { return WidthOfText(text); }

Long SoftwareGraphics::TextHeight() { return kTextHeight; }

void SoftwareGraphics::DrawBitmap(Long hdc, const Rect& rectangle, Long bitmap, Long key) {
  Context* context = mObjects->Use<Context>(hdc, "DrawBitmap");
  const Bitmap* found = mObjects->Use<Bitmap>(bitmap, "DrawBitmap");
  if (!context || !found) return;
  const DrawTarget target = mTargets.TargetOf(*context);
  if (target.surface->IsMono() || target.surface == &found->surface) return;
  const Surface colored = found->surface.IsMono() ? InColor(found->surface) : Surface();
  const Surface& picture = found->surface.IsMono() ? colored : found->surface;
  const bool hasKey = key >= 0 && static_cast<std::uint32_t>(key) <= kColorBits;

  const Clip area = target.Moved(ClipOf(rectangle));
  const std::int64_t left = area.left + (std::int64_t{area.right} - area.left - picture.width) / 2;
  const std::int64_t top = area.top + (std::int64_t{area.bottom} - area.top - picture.height) / 2;
  const Clip place = ClipAt(left, top, picture.width, picture.height);
  const Clip part = Intersect(Intersect(place, area), target.whole);
  if (IsEmpty(part)) return;
  const int fromX = static_cast<int>(part.left - left);
  const int fromY = static_cast<int>(part.top - top);
  for (const Clip& clip : target.Clips()) {
    if (hasKey) {
      ColourKeyCopy(*target.surface, clip, part.left, part.top, part.right - part.left, part.bottom - part.top, picture,
                    fromX, fromY, PixelOf(key));
    } else {
      desk::BitBlt(*target.surface, clip, part.left, part.top, part.right - part.left, part.bottom - part.top, picture,
                   fromX, fromY, kSrcCopy, {});
    }
  }
}

void SoftwareGraphics::MixPictures(Long dest, Long from, Long to, Long width, Long height, Single share) {
  Context* context = mObjects->Use<Context>(dest, "MixPictures");
  Context* fromContext = mObjects->Use<Context>(from, "MixPictures");
  Context* toContext = mObjects->Use<Context>(to, "MixPictures");
  if (!context || !fromContext || !toContext) return;
  const DrawTarget target = mTargets.TargetOf(*context);
  const DrawSource first = mTargets.SourceOf(*fromContext);
  const DrawSource second = mTargets.SourceOf(*toContext);
  if (target.surface->IsMono() || first.surface->IsMono() || second.surface->IsMono()) return;
  const Clip wanted = Intersect(ClipAt(target.left, target.top, width, height), target.whole);
  const Clip part = PartOf(second, target, PartOf(first, target, wanted));
  const int mixShare = ShareOf(share);
  Surface asides[2];
  for (const Clip& clip : target.Clips()) {
    const Clip area = Intersect(clip, part);
    if (IsEmpty(area)) continue;
    const Readable a = ReadableAt(first, target, area, asides[0]);
    const Readable b = ReadableAt(second, target, area, asides[1]);
    MixRows({target.surface->At(area.left, area.top), static_cast<std::size_t>(target.surface->width), a.pixels,
             a.stride, b.pixels, b.stride, static_cast<std::size_t>(area.right - area.left),
             static_cast<std::size_t>(area.bottom - area.top), mixShare});
  }
}

}  // namespace strandline::desk
