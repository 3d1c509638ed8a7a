#include "platform/win32/win32_graphics.h"

#include <algorithm>
#include <new>
#include <vector>

#include "platform/win32/windows_api.h"

namespace strandline::win32 {

namespace {

HDC ToHdc(Long hdc) { return ToHandle<HDC>(hdc); }
HWND ToHwnd(Long hwnd) { return ToHandle<HWND>(hwnd); }
COLORREF ToColor(Long color) { return static_cast<COLORREF>(color); }

}  // namespace

Long Win32Graphics::GetDC(Long hwnd) { return ToNumber(::GetDC(ToHwnd(hwnd))); }
Long Win32Graphics::ReleaseDC(Long hwnd, Long hdc) { return ::ReleaseDC(ToHwnd(hwnd), ToHdc(hdc)); }

Long Win32Graphics::BeginPaint(Long hwnd, PaintStruct& paint) {
  PAINTSTRUCT begun{};
  const HDC hdc = ::BeginPaint(ToHwnd(hwnd), &begun);
  if (!hdc) return 0;
  paint = {ToNumber(begun.hdc), begun.fErase, FromRECT(begun.rcPaint), begun.fRestore, begun.fIncUpdate, {}};
  std::copy_n(begun.rgbReserved, std::min(sizeof begun.rgbReserved, paint.rgbReserved.size()),
              paint.rgbReserved.begin());
  return ToNumber(hdc);
}

Long Win32Graphics::EndPaint(Long hwnd, const PaintStruct& paint) {
  PAINTSTRUCT begun{};
  begun.hdc = ToHdc(paint.hdc);
  begun.fErase = paint.fErase;
  begun.rcPaint = ToRECT(paint.rcPaint);
  begun.fRestore = paint.fRestore;
  begun.fIncUpdate = paint.fIncUpdate;
  std::copy_n(paint.rgbReserved.begin(), std::min(sizeof begun.rgbReserved, paint.rgbReserved.size()),
              begun.rgbReserved);
  return ::EndPaint(ToHwnd(hwnd), &begun);
}

Long Win32Graphics::CreateCompatibleDC(Long hdc) { return ToNumber(::CreateCompatibleDC(ToHdc(hdc))); }
Long Win32Graphics::DeleteDC(Long hdc) { return ::DeleteDC(ToHdc(hdc)); }
Long Win32Graphics::CreateCompatibleBitmap(Long hdc, Long width, Long height) {
  return ToNumber(::CreateCompatibleBitmap(ToHdc(hdc), width, height));
}

// Without bits the system promises nothing about the pixels, so it gets zeros; rows are of whole 16-bit words.
Long Win32Graphics::CreateBitmap(Long width, Long height, Long planes, Long bitsPerPixel) {
  std::vector<Byte> zeros;
  if (width > 0 && height > 0 && planes > 0 && bitsPerPixel > 0) {
    const std::uint64_t row = (std::uint64_t(width) * std::uint64_t(bitsPerPixel) + 15) / 16 * 2;
    const std::uint64_t size = row * std::uint64_t(height) * std::uint64_t(planes);
    if (size > 0x7FFFFFFF) return 0;
    try {
      zeros.resize(static_cast<std::size_t>(size));
    } catch (const std::bad_alloc&) {
      return 0;
    }
  }
  return ToNumber(::CreateBitmap(width, height, static_cast<UINT>(planes), static_cast<UINT>(bitsPerPixel),
                                 zeros.empty() ? nullptr : zeros.data()));
}

Long Win32Graphics::SelectObject(Long hdc, Long object) {
  const HGDIOBJ displaced = ::SelectObject(ToHdc(hdc), ToHandle<HGDIOBJ>(object));
  return displaced == HGDI_ERROR ? 0 : ToNumber(displaced);
}
Long Win32Graphics::DeleteObject(Long object) { return ::DeleteObject(ToHandle<HGDIOBJ>(object)); }

Long Win32Graphics::BitBlt(Long hdc, Long x, Long y, Long width, Long height, Long sourceHdc, Long sourceX,
                           Long sourceY, Long rasterOperation) {
  return ::BitBlt(ToHdc(hdc), x, y, width, height, ToHdc(sourceHdc), sourceX, sourceY,
                  static_cast<DWORD>(rasterOperation));
}
Long Win32Graphics::SetBkColor(Long hdc, Long color) {
  return static_cast<Long>(::SetBkColor(ToHdc(hdc), ToColor(color)));
}
Long Win32Graphics::GetPixel(Long hdc, Long x, Long y) { return static_cast<Long>(::GetPixel(ToHdc(hdc), x, y)); }
Long Win32Graphics::DrawEdge(Long hdc, const Rect& rectangle, Long edge, Long flags) {
  RECT inside = ToRECT(rectangle);
  return ::DrawEdge(ToHdc(hdc), &inside, static_cast<UINT>(edge), static_cast<UINT>(flags));
}
Long Win32Graphics::CreateSolidBrush(Long color) { return ToNumber(::CreateSolidBrush(ToColor(color))); }
Long Win32Graphics::FillRect(Long hdc, const Rect& rectangle, Long brush) {
  const RECT area = ToRECT(rectangle);
  return ::FillRect(ToHdc(hdc), &area, ToHandle<HBRUSH>(brush));
}
Long Win32Graphics::GetSysColor(Long index) { return static_cast<Long>(::GetSysColor(index)); }

Long Win32Graphics::CreateRectRgn(Long left, Long top, Long right, Long bottom) {
  return ToNumber(::CreateRectRgn(left, top, right, bottom));
}
Long Win32Graphics::CombineRgn(Long target, Long first, Long second, Long mode) {
  return ::CombineRgn(ToHandle<HRGN>(target), ToHandle<HRGN>(first), ToHandle<HRGN>(second), mode);
}

Boolean Win32Graphics::ColorKeyBlt(Long, Long, Long, Long, Long, Long, Long, Long, Long) { return false; }

}  // namespace strandline::win32
