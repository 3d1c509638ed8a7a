// What reaches pixels.

#include <utility>

#include "platform/desk/raster/colour_key_copy.h"
#include "platform/desk/raster/draw_edge.h"
#include "platform/desk/raster/fill.h"
#include "platform/desk/software_graphics.h"
#include "platform/looks/system_colours.h"

namespace strandline::desk {

namespace {

constexpr Long kSuccess = 1;
constexpr Long kFailure = 0;
constexpr Long kNoColor = -1;
constexpr std::uint32_t kColorBits = 0xFFFFFF;

constexpr bool NeedsSource(std::uint32_t operation) { return operation != kBlackness && operation != kWhiteness; }

constexpr Clip ClipOf(const Rect& rectangle) {
  return {rectangle.left, rectangle.top, rectangle.right, rectangle.bottom};
}

// On 1 bit a colour is the nearer of black and white.
std::uint32_t PixelFor(const Surface& surface, std::uint32_t color) {
  if (!surface.IsMono()) return PixelFromColorRef(color);
  const std::uint32_t red = color & 0xFF;
  const std::uint32_t green = color >> 8 & 0xFF;
  const std::uint32_t blue = color >> 16 & 0xFF;
  return red * 30 + green * 59 + blue * 11 > 127 * 100 ? 1 : 0;
}

std::uint32_t SystemPixel(Long index) { return PixelFromColorRef(SystemColor(index)); }

// The part of a copy that both sides have. `area` is on the target's surface; a target pixel's source pixel is
// (shiftX, shiftY) away.
struct Overlap {
  Clip area;
  std::int64_t shiftX = 0;
  std::int64_t shiftY = 0;

  int SourceX() const { return static_cast<int>(area.left + shiftX); }
  int SourceY() const { return static_cast<int>(area.top + shiftY); }
  int Width() const { return area.right - area.left; }
  int Height() const { return area.bottom - area.top; }
};

// (dx, dy): from the target's to the source's pixel, each in its own context.
Overlap OverlapOf(const DrawTarget& target, const Clip& wanted, const DrawSource& source, std::int64_t dx,
                  std::int64_t dy) {
  const std::int64_t shiftX = dx + source.left - target.left;
  const std::int64_t shiftY = dy + source.top - target.top;
  const Clip readable = ClipFromEdges(source.whole.left - shiftX, source.whole.top - shiftY,
                                      source.whole.right - shiftX, source.whole.bottom - shiftY);
  return {Intersect(Intersect(wanted, target.whole), readable), shiftX, shiftY};
}

Clip WantedArea(const DrawTarget& target, Long x, Long y, Long width, Long height) {
  return ClipAt(target.left + x, target.top + y, width, height);
}

// The source's pixels of a copy. Within one surface a first piece's pixels could be a later one's source; then they are
// set aside.
class SourcePixels {
 public:
  SourcePixels(const DrawTarget& target, const Overlap& part, const Surface& source)
      : mSource(source), mIsAside(target.surface == &source && target.Clips().size() > 1) {
    mX = mIsAside ? 0 : part.SourceX();
    mY = mIsAside ? 0 : part.SourceY();
    if (mIsAside) mAside = CutOut(source, ClipAt(part.SourceX(), part.SourceY(), part.Width(), part.Height()));
  }

  const Surface& Pixels() const { return mIsAside ? mAside : mSource; }
  int X() const { return mX; }
  int Y() const { return mY; }

 private:
  const Surface& mSource;
  bool mIsAside;
  int mX = 0;
  int mY = 0;
  Surface mAside;
};

void FillArea(const DrawTarget& target, const Clip& area, std::uint32_t pixel) {
  for (const Clip& clip : target.Clips()) desk::FillRect(*target.surface, clip, area, pixel);
}

}  // namespace

const PaintObserver* SoftwareGraphics::SetPaintObserver(const PaintObserver* observer) {
  return std::exchange(mPaintObserver, observer);
}

void SoftwareGraphics::Report(const DrawTarget& target, const Clip& area, const char* operation) {
  if (!mPaintObserver || target.window == 0 || !target.Touches(area)) return;
  const Clip part = Intersect(area, target.whole);
  const int left = static_cast<int>(target.left);
  const int top = static_cast<int>(target.top);
  (*mPaintObserver)(target.window, {part.left - left, part.top - top, part.right - left, part.bottom - top}, operation);
}

Long SoftwareGraphics::BitBlt(Long hdc, Long x, Long y, Long width, Long height, Long sourceHdc, Long sourceX,
                              Long sourceY, Long rasterOperation) {
  const std::uint32_t operation = static_cast<std::uint32_t>(rasterOperation);
  Context* context = mObjects->Use<Context>(hdc, "BitBlt");
  if (!context || !IsKnownRasterOp(operation)) return kFailure;
  const DrawTarget target = mTargets.TargetOf(*context);
  const Clip wanted = WantedArea(target, x, y, width, height);
  if (!NeedsSource(operation)) {
    const Clip area = Intersect(wanted, target.whole);
    FillArea(target, area, operation == kWhiteness ? target.surface->PixelMask() : 0);
    Report(target, area, "BitBlt");
    return kSuccess;
  }

  Context* sourceContext = mObjects->Use<Context>(sourceHdc, "BitBlt");
  if (!sourceContext) return kFailure;
  const DrawSource source = mTargets.SourceOf(*sourceContext);
  const Overlap part = OverlapOf(target, wanted, source, sourceX - std::int64_t{x}, sourceY - std::int64_t{y});
  if (IsEmpty(part.area)) return kSuccess;
  const BlitColours colours{PixelFromColorRef(context->textColor), PixelFromColorRef(context->backgroundColor),
                            PixelFromColorRef(sourceContext->backgroundColor)};
  const SourcePixels pixels(target, part, *source.surface);
  for (const Clip& clip : target.Clips()) {
    desk::BitBlt(*target.surface, clip, part.area.left, part.area.top, part.Width(), part.Height(), pixels.Pixels(),
                 pixels.X(), pixels.Y(), operation, colours);
  }
  Report(target, part.area, "BitBlt");
  return kSuccess;
}

Boolean SoftwareGraphics::ColorKeyBlt(Long hdc, Long x, Long y, Long width, Long height, Long sourceHdc, Long sourceX,
                                      Long sourceY, Long key) {
  // No record here: where a handle is no context, the caller goes on step by step, and each step records its use.
  Context* context = mObjects->Find<Context>(hdc);
  Context* sourceContext = mObjects->Find<Context>(sourceHdc);
  if (!context || !sourceContext) return false;
  if (mTargets.SurfaceOf(*context).IsMono() || mTargets.SurfaceOf(*sourceContext).IsMono()) return false;

  const DrawTarget target = mTargets.TargetOf(*context);
  const DrawSource source = mTargets.SourceOf(*sourceContext);
  const Clip wanted = WantedArea(target, x, y, width, height);
  const Clip area = Intersect(wanted, target.whole);
  if (IsEmpty(area)) return true;

  const Overlap part = OverlapOf(target, wanted, source, sourceX - std::int64_t{x}, sourceY - std::int64_t{y});
  if (!IsEmpty(part.area)) {
    const SourcePixels pixels(target, part, *source.surface);
    const std::uint32_t keyPixel = PixelFromColorRef(static_cast<std::uint32_t>(key));
    for (const Clip& clip : target.Clips()) {
      ColourKeyCopy(*target.surface, clip, part.area.left, part.area.top, part.Width(), part.Height(), pixels.Pixels(),
                    pixels.X(), pixels.Y(), keyPixel);
    }
  }
  if (part.area != area) {
    Region beyond(area);
    beyond.Subtract(Region(part.area));
    for (const Clip& black : beyond.Rectangles()) FillArea(target, black, 0);
  }
  Report(target, area, "ColorKeyBlt");
  return true;
}

Long SoftwareGraphics::SetBkColor(Long hdc, Long color) {
  Context* context = mObjects->Use<Context>(hdc, "SetBkColor");
  if (!context) return kNoColor;
  return static_cast<Long>(std::exchange(context->backgroundColor, static_cast<std::uint32_t>(color) & kColorBits));
}

// As on Windows, a pixel that the context couldn't draw, such as a covered one, has no colour.
Long SoftwareGraphics::GetPixel(Long hdc, Long x, Long y) {
  Context* context = mObjects->Use<Context>(hdc, "GetPixel");
  if (!context) return kNoColor;
  const DrawTarget target = mTargets.TargetOf(*context);
  const Clip pixel = Intersect(WantedArea(target, x, y, 1, 1), target.surface->Bounds());
  if (IsEmpty(pixel) || !target.Touches(pixel)) return kNoColor;
  const std::uint32_t value = target.surface->Get(pixel.left, pixel.top);
  if (target.surface->IsMono()) return value == 0 ? 0 : static_cast<Long>(kColorBits);
  return static_cast<Long>(ColorRefFromPixel(value));
}

Long SoftwareGraphics::DrawEdge(Long hdc, const Rect& rectangle, Long edge, Long flags) {
  Context* context = mObjects->Use<Context>(hdc, "DrawEdge");
  if (!context) return kFailure;
  const DrawTarget target = mTargets.TargetOf(*context);
  const Clip area = target.Moved(ClipOf(rectangle));
  const EdgeColours colours{SystemPixel(system_color::kLight), SystemPixel(system_color::kDarkShadow),
                            SystemPixel(system_color::kHighlight), SystemPixel(system_color::kShadow),
                            SystemPixel(system_color::kFace)};
  for (const Clip& clip : target.Clips()) {
    desk::DrawEdge(*target.surface, Intersect(clip, target.whole), area.left, area.top, area.right, area.bottom, edge,
                   flags, colours);
  }
  Report(target, area, "DrawEdge");
  return kSuccess;
}

Long SoftwareGraphics::FillRect(Long hdc, const Rect& rectangle, Long brush) {
  Context* context = mObjects->Use<Context>(hdc, "FillRect");
  if (!context || brush == 0) return kFailure;
  std::uint32_t color = kColorBits;  // the stock brush's
  if (brush > 0 && brush <= system_color::kLast + 1) {
    color = SystemColor(brush - 1);
  } else if (brush != ObjectTable::kStockBrush) {
    const Brush* found = mObjects->Use<Brush>(brush, "FillRect");
    if (!found) return kFailure;
    color = found->color;
  }
  const DrawTarget target = mTargets.TargetOf(*context);
  const Clip area = target.Limited(ClipOf(rectangle));
  FillArea(target, area, PixelFor(*target.surface, color));
  Report(target, area, "FillRect");
  return kSuccess;
}

Long SoftwareGraphics::GetSysColor(Long index) { return static_cast<Long>(SystemColor(index)); }

}  // namespace strandline::desk
