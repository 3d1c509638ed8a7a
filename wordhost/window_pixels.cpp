#include "wordhost/window_pixels.h"

#include "platform/win32/windows_api.h"

namespace strandline::wordhost {

namespace {

// A bitmap of 32 bits a pixel, top row first.
BITMAPINFO InfoOf(int width, int height) {
  BITMAPINFO info{};
  info.bmiHeader.biSize = sizeof info.bmiHeader;
  info.bmiHeader.biWidth = width;
  info.bmiHeader.biHeight = -height;
  info.bmiHeader.biPlanes = 1;
  info.bmiHeader.biBitCount = 32;
  info.bmiHeader.biCompression = BI_RGB;
  return info;
}

}  // namespace

WindowPixels ReadWindow(Long hwnd) {
  const HWND window = win32::ToHandle<HWND>(hwnd);
  RECT area{};
  if (!::GetWindowRect(window, &area) || area.right <= area.left || area.bottom <= area.top) return {};
  WindowPixels read{static_cast<int>(area.right - area.left), static_cast<int>(area.bottom - area.top), {}};
  // Of the whole window, what its children show included.
  const HDC from = ::GetDCEx(window, nullptr, DCX_CACHE | DCX_WINDOW);
  const HDC to = ::CreateCompatibleDC(from);
  const BITMAPINFO info = InfoOf(read.width, read.height);
  void* bits = nullptr;
  const HBITMAP bitmap = ::CreateDIBSection(from, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
  if (bitmap) {
    const HGDIOBJ former = ::SelectObject(to, bitmap);
    if (::BitBlt(to, 0, 0, read.width, read.height, from, 0, 0, SRCCOPY)) {
      ::GdiFlush();
      const auto* first = static_cast<const std::uint32_t*>(bits);
      read.pixels.assign(first, first + static_cast<std::size_t>(read.width) * static_cast<std::size_t>(read.height));
      for (std::uint32_t& pixel : read.pixels) pixel &= 0xFFFFFF;
    }
    ::SelectObject(to, former);
    ::DeleteObject(bitmap);
  }
  ::DeleteDC(to);
  ::ReleaseDC(window, from);
  return read;
}

}  // namespace strandline::wordhost
