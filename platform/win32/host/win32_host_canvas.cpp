#include "platform/win32/host/win32_host_canvas.h"

#include <algorithm>
#include <optional>
#include <vector>

#include "platform/looks/bitmap_font.h"
#include "platform/looks/gradient.h"
#include "platform/win32/mix_contexts.h"
#include "platform/win32/windows_api.h"

namespace strandline::win32 {

namespace {

constexpr std::uint32_t kColorBits = 0xFFFFFF;

HDC ToHdc(Long hdc) { return ToHandle<HDC>(hdc); }

// A rectangle that may reach beyond what a LONG holds.
struct Area {
  std::int64_t left;
  std::int64_t top;
  std::int64_t right;
  std::int64_t bottom;

  bool IsEmpty() const { return left >= right || top >= bottom; }
};

Area AreaOf(const Rect& rectangle) { return {rectangle.left, rectangle.top, rectangle.right, rectangle.bottom}; }

Area Intersect(const Area& a, const Area& b) {
  return {std::max(a.left, b.left), std::max(a.top, b.top), std::min(a.right, b.right), std::min(a.bottom, b.bottom)};
}

// What of the context can be drawn at all; empty for a handle that is no context.
Area ClipOf(HDC hdc) {
  RECT box{};
  const int kind = ::GetClipBox(hdc, &box);
  if (kind == ERROR || kind == NULLREGION) return {};
  return {box.left, box.top, box.right, box.bottom};
}

// `area` lies within the clip box.
void Fill(HDC hdc, const Area& area, Long color) {
  if (area.IsEmpty()) return;
  const RECT part{static_cast<LONG>(area.left), static_cast<LONG>(area.top), static_cast<LONG>(area.right),
                  static_cast<LONG>(area.bottom)};
  ::SetDCBrushColor(hdc, static_cast<COLORREF>(color) & kColorBits);
  ::FillRect(hdc, &part, static_cast<HBRUSH>(::GetStockObject(DC_BRUSH)));
}

void DrawGlyph(HDC hdc, const Area& clip, const Glyph& glyph, std::int64_t left, std::int64_t top, Long color) {
  for (int row = 0; row < Glyph::kRows; ++row) {
    const unsigned bits = glyph.rows[static_cast<std::size_t>(row)];
    for (int x = 0; x < glyph.width; ++x) {
      if ((bits >> x & 1) == 0) continue;
      int end = x + 1;
      while (end < glyph.width && (bits >> end & 1) != 0) ++end;
      Fill(hdc, Intersect({left + x, top + row, left + end, top + row + 1}, clip), color);
      x = end;
    }
  }
}

bool IsOneBit(HDC hdc) {
  BITMAP about{};
  return ::GetObjectType(hdc) == OBJ_MEMDC &&
         ::GetObjectW(::GetCurrentObject(hdc, OBJ_BITMAP), sizeof about, &about) != 0 && about.bmBitsPixel == 1;
}

// A bitmap's pixels as 0x00RRGGBB, from the top, whatever its depth.
struct Pixels {
  int width = 0;
  int height = 0;
  std::vector<std::uint32_t> values;
};

BITMAPINFO FormatOf(int width, int height) {
  BITMAPINFO format{};
  format.bmiHeader = {sizeof format.bmiHeader, width, -height, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
  return format;
}

std::optional<Pixels> PixelsOf(HBITMAP bitmap) {
  BITMAP about{};
  if (::GetObjectType(bitmap) != OBJ_BITMAP || ::GetObjectW(bitmap, sizeof about, &about) == 0) return std::nullopt;
  const std::size_t rows = static_cast<std::size_t>(about.bmHeight);
  Pixels pixels{static_cast<int>(about.bmWidth), static_cast<int>(about.bmHeight), {}};
  pixels.values.resize(rows * static_cast<std::size_t>(about.bmWidth));
  BITMAPINFO format = FormatOf(pixels.width, pixels.height);
  const HDC hdc = ::CreateCompatibleDC(nullptr);
  const int read = ::GetDIBits(hdc, bitmap, 0, static_cast<UINT>(rows), pixels.values.data(), &format, DIB_RGB_COLORS);
  ::DeleteDC(hdc);
  if (read == 0) return std::nullopt;
  for (std::uint32_t& value : pixels.values) value &= kColorBits;
  return pixels;
}

// `count` pixels of one row, side by side.
void PutPixels(HDC hdc, std::int64_t x, std::int64_t y, const std::uint32_t* values, int count) {
  const BITMAPINFO format = FormatOf(count, 1);
  ::SetDIBitsToDevice(hdc, static_cast<int>(x), static_cast<int>(y), static_cast<DWORD>(count), 1, 0, 0, 0, 1, values,
                      &format, DIB_RGB_COLORS);
}

// From a COLORREF; no pixel has the value that stands for no key.
std::uint32_t PixelOfKey(Long key) {
  const std::uint32_t color = static_cast<std::uint32_t>(key);
  if (color > kColorBits) return ~std::uint32_t{0};
  return (color & 0xFF) << 16 | (color & 0xFF00) | color >> 16;
}

}  // namespace

void Win32HostCanvas::FillRectangle(Long hdc, const Rect& rectangle, Long color) {
  Fill(ToHdc(hdc), Intersect(AreaOf(rectangle), ClipOf(ToHdc(hdc))), color);
}

void Win32HostCanvas::FillGradient(Long hdc, const Rect& rectangle, Long topColor, Long bottomColor) {
  const Area area = AreaOf(rectangle);
  const Area part = Intersect(area, ClipOf(ToHdc(hdc)));
  if (part.IsEmpty()) return;
  const std::int64_t steps = area.bottom - area.top - 1;
  for (std::int64_t y = part.top; y < part.bottom; ++y) {
    const std::uint32_t color = ColorBetween(static_cast<std::uint32_t>(topColor),
                                             static_cast<std::uint32_t>(bottomColor), y - area.top, steps);
    Fill(ToHdc(hdc), {part.left, y, part.right, y + 1}, static_cast<Long>(color));
  }
}

void Win32HostCanvas::DrawTextLine(Long hdc, Long x, Long y, const String& text, Long color) {
  const Area clip = ClipOf(ToHdc(hdc));
  std::int64_t left = x;
  const std::int64_t top = std::int64_t{y} + kGlyphTop;
  for (const char16_t character : text.View()) {
    if (left >= clip.right) break;
    const Glyph& glyph = GlyphOf(character);
    DrawGlyph(ToHdc(hdc), clip, glyph, left, top, color);
    left += glyph.width + kGlyphGap;
  }
}

Long Win32HostCanvas::TextWidth(const String& text) { return WidthOfText(text); }

Long Win32HostCanvas::TextHeight() { return kTextHeight; }

void Win32HostCanvas::DrawBitmap(Long hdc, const Rect& rectangle, Long bitmap, Long key) {
  const HDC target = ToHdc(hdc);
  const Area area = AreaOf(rectangle);
  const Area clip = Intersect(area, ClipOf(target));
  if (clip.IsEmpty() || IsOneBit(target)) return;
  const std::optional<Pixels> picture = PixelsOf(ToHandle<HBITMAP>(bitmap));
  if (!picture) return;
  const std::int64_t left = area.left + (area.right - area.left - picture->width) / 2;
  const std::int64_t top = area.top + (area.bottom - area.top - picture->height) / 2;
  const Area part = Intersect({left, top, left + picture->width, top + picture->height}, clip);
  const std::uint32_t without = PixelOfKey(key);
  for (std::int64_t y = part.top; y < part.bottom; ++y) {
    const std::uint32_t* const row = picture->values.data() + (y - top) * picture->width;
    for (std::int64_t x = part.left; x < part.right; ++x) {
      if (row[x - left] == without) continue;
      std::int64_t end = x + 1;
      while (end < part.right && row[end - left] != without) ++end;
      PutPixels(target, x, y, row + (x - left), static_cast<int>(end - x));
      x = end;
    }
  }
}

void Win32HostCanvas::MixPictures(Long dest, Long from, Long to, Long width, Long height, Single share) {
  MixContexts(dest, from, to, width, height, share);
}

}  // namespace strandline::win32
