// Contexts, bitmaps, brushes and regions: making, selecting, deleting.

#include <algorithm>
#include <new>
#include <utility>

#include "platform/desk/software_graphics.h"

namespace strandline::desk {

namespace {

constexpr Long kSuccess = 1;
constexpr Long kFailure = 0;

// What CombineRgn tells of the region it made.
constexpr Long kNullRegion = 1;
constexpr Long kSimpleRegion = 2;
constexpr Long kComplexRegion = 3;

constexpr Long kLastRegionMode = static_cast<Long>(RegionMode::kCopy);

Long ComplexityOf(const Region& region) {
  if (region.IsEmpty()) return kNullRegion;
  return region.Rectangles().size() == 1 ? kSimpleRegion : kComplexRegion;
}

Rect RectOf(const Clip& clip) { return {clip.left, clip.top, clip.right, clip.bottom}; }

}  // namespace

SoftwareGraphics::SoftwareGraphics(Surface& screen, WindowAreas& windows, std::shared_ptr<MisuseLog> misuses)
    : mObjects(std::make_shared<ObjectTable>(std::move(misuses))),
      mWindows(windows),
      mTargets(*mObjects, screen, windows) {}

Long SoftwareGraphics::AddWindowContext(Long hwnd, Context::Origin origin, std::optional<Region> paintClip,
                                        const char* call) {
  Context context;
  context.origin = origin;
  context.window = hwnd;
  context.paintClip = std::move(paintClip);
  context.brush = ObjectTable::kStockBrush;
  return mObjects->Add(std::move(context), call);
}

Long SoftwareGraphics::GetDC(Long hwnd) {
  if (hwnd != 0 && !mWindows.IsWindow(hwnd)) return 0;
  return AddWindowContext(hwnd, Context::Origin::kGetDC, std::nullopt, "GetDC");
}

Long SoftwareGraphics::ReleaseDC(Long hwnd, Long hdc) {
  Context* context = mObjects->Use<Context>(hdc, "ReleaseDC");
  if (!context) return kFailure;
  if (context->origin != Context::Origin::kGetDC) {
    mObjects->Record("released, but not from GetDC: " + mObjects->NameOf(hdc), hdc, "ReleaseDC");
    return kFailure;
  }
  if (context->window != hwnd) {
    mObjects->Record("released for another window: " + mObjects->NameOf(hdc), hdc, "ReleaseDC");
  }
  Unselect(*context);
  mObjects->Remove(hdc);
  return kSuccess;
}

Long SoftwareGraphics::BeginPaint(Long hwnd, PaintStruct& paint) {
  if (hwnd == 0 || !mWindows.IsWindow(hwnd)) return 0;
  Region invalid = mWindows.InvalidRegion(hwnd);
  const Rect bounds = RectOf(invalid.Bounds());
  const Long hdc = AddWindowContext(hwnd, Context::Origin::kBeginPaint, std::move(invalid), "BeginPaint");
  if (hdc == 0) return 0;
  mWindows.Validate(hwnd);
  paint = PaintStruct{};
  paint.hdc = hdc;
  paint.rcPaint = bounds;
  return hdc;
}

Long SoftwareGraphics::EndPaint(Long hwnd, const PaintStruct& paint) {
  Context* context = mObjects->Use<Context>(paint.hdc, "EndPaint");
  if (!context) return kFailure;
  if (context->origin != Context::Origin::kBeginPaint || context->window != hwnd) {
    mObjects->Record("not this window's from BeginPaint: " + mObjects->NameOf(paint.hdc), paint.hdc, "EndPaint");
    return kFailure;
  }
  Unselect(*context);
  mObjects->Remove(paint.hdc);
  return kSuccess;
}

Long SoftwareGraphics::CreateCompatibleDC(Long hdc) {
  if (hdc != 0 && !mObjects->Use<Context>(hdc, "CreateCompatibleDC")) return 0;
  Context context;
  context.bitmap = ObjectTable::kStockBitmap;
  context.ownPixel = Surface(1, 1, 1);
  context.brush = ObjectTable::kStockBrush;
  return mObjects->Add(std::move(context), "CreateCompatibleDC");
}

Long SoftwareGraphics::DeleteDC(Long hdc) {
  Context* context = mObjects->Use<Context>(hdc, "DeleteDC");
  if (!context) return kFailure;
  if (!context->IsMemory()) {
    mObjects->Record("a window's context, to be released: " + mObjects->NameOf(hdc), hdc, "DeleteDC");
    return kFailure;
  }
  Unselect(*context);
  mObjects->Remove(hdc);
  return kSuccess;
}

Long SoftwareGraphics::CreateCompatibleBitmap(Long hdc, Long width, Long height) {
  Context* context = mObjects->Use<Context>(hdc, "CreateCompatibleBitmap");
  if (!context) return 0;
  return AddBitmap(width, height, mTargets.SurfaceOf(*context).bitsPerPixel, "CreateCompatibleBitmap");
}

Long SoftwareGraphics::CreateBitmap(Long width, Long height, Long planes, Long bitsPerPixel) {
  if (planes != 1 || (bitsPerPixel != 1 && bitsPerPixel != 32)) return 0;
  return AddBitmap(width, height, bitsPerPixel, "CreateBitmap");
}

// A bitmap without pixels is the stock one, as on Windows.
Long SoftwareGraphics::AddBitmap(Long width, Long height, int depth, const char* call) {
  if (width < 0 || height < 0) return 0;
  if (width == 0 || height == 0) return ObjectTable::kStockBitmap;
  try {
    Bitmap bitmap{Surface(width, height, depth)};
    if (bitmap.surface.pixels.empty()) return 0;
    return mObjects->Add(std::move(bitmap), call);
  } catch (const std::bad_alloc&) {
    return 0;
  }
}

Long SoftwareGraphics::SelectObject(Long hdc, Long object) {
  Context* context = mObjects->Use<Context>(hdc, "SelectObject");
  if (!context) return 0;
  if (object == ObjectTable::kStockBitmap || mObjects->Find<Bitmap>(object)) {
    return SelectBitmap(hdc, *context, object);
  }
  if (object == ObjectTable::kStockBrush || mObjects->Find<Brush>(object)) return SelectBrush(*context, object);
  mObjects->RecordUnusable(object, "SelectObject");
  return 0;
}

Long SoftwareGraphics::SelectBitmap(Long hdc, Context& context, Long object) {
  if (!context.IsMemory()) {
    mObjects->Record("into a window's context: " + mObjects->NameOf(object), object, "SelectObject");
    return 0;
  }
  Bitmap* bitmap = mObjects->Find<Bitmap>(object);  // null: the stock one
  if (bitmap && bitmap->selectedInto != 0 && bitmap->selectedInto != hdc) {
    const std::string holder = mObjects->NameOf(bitmap->selectedInto);
    mObjects->Record("selected into " + holder + ": " + mObjects->NameOf(object), object, "SelectObject");
    return 0;
  }
  if (Bitmap* former = mObjects->Find<Bitmap>(context.bitmap)) former->selectedInto = 0;
  if (bitmap) bitmap->selectedInto = hdc;
  return std::exchange(context.bitmap, object);
}

Long SoftwareGraphics::SelectBrush(Context& context, Long object) {
  if (Brush* former = mObjects->Find<Brush>(context.brush)) --former->selections;
  if (Brush* brush = mObjects->Find<Brush>(object)) ++brush->selections;
  return std::exchange(context.brush, object);
}

void SoftwareGraphics::Unselect(Context& context) {
  if (Bitmap* bitmap = mObjects->Find<Bitmap>(context.bitmap)) bitmap->selectedInto = 0;
  if (Brush* brush = mObjects->Find<Brush>(context.brush)) --brush->selections;
}

Long SoftwareGraphics::DeleteObject(Long object) {
  if (object == 0) return kFailure;
  if (ObjectTable::IsStock(object)) return kSuccess;
  const Bitmap* bitmap = mObjects->Find<Bitmap>(object);
  const Brush* brush = mObjects->Find<Brush>(object);
  if (!bitmap && !brush && !mObjects->Find<Region>(object)) {
    mObjects->RecordUnusable(object, "DeleteObject");
    return kFailure;
  }
  if ((bitmap && bitmap->selectedInto != 0) || (brush && brush->selections != 0)) {
    mObjects->Record("selected: " + mObjects->NameOf(object), object, "DeleteObject");
    return kFailure;
  }
  mObjects->Remove(object);
  return kSuccess;
}

Long SoftwareGraphics::CreateSolidBrush(Long color) {
  return mObjects->Add(Brush{static_cast<std::uint32_t>(color) & 0xFFFFFF}, "CreateSolidBrush");
}

Long SoftwareGraphics::CreateRectRgn(Long left, Long top, Long right, Long bottom) {
  const auto [first, last] = std::minmax(left, right);
  const auto [upper, lower] = std::minmax(top, bottom);
  return mObjects->Add(Region(Clip{first, upper, last, lower}), "CreateRectRgn");
}

Long SoftwareGraphics::CombineRgn(Long target, Long first, Long second, Long mode) {
  if (mode < 1 || mode > kLastRegionMode) return kFailure;
  const RegionMode how = static_cast<RegionMode>(mode);
  Region* result = mObjects->Use<Region>(target, "CombineRgn");
  const Region* one = mObjects->Use<Region>(first, "CombineRgn");
  const Region* other = how == RegionMode::kCopy ? one : mObjects->Use<Region>(second, "CombineRgn");
  if (!result || !one || !other) return kFailure;
  *result = CombineRegions(*one, *other, how);
  return ComplexityOf(*result);
}

}  // namespace strandline::desk
