#include "platform/win32/mix_contexts.h"

#include <algorithm>

#include "platform/looks/mix.h"
#include "platform/win32/windows_api.h"

namespace strandline::win32 {

namespace {

// Beyond any screen; a larger mix is a caller's mistake.
constexpr int kLongestEdge = 32767;

HDC ToHdc(Long hdc) { return ToHandle<HDC>(hdc); }

// 0, 0 for a handle that is no context, and for one of a single bit.
SIZE SizeOf(HDC hdc) {
  RECT box{};
  const int kind = ::GetClipBox(hdc, &box);
  if (kind == ERROR || kind == NULLREGION) return {};
  BITMAP about{};
  const bool isOneBit = ::GetObjectType(hdc) == OBJ_MEMDC &&
                        ::GetObjectW(::GetCurrentObject(hdc, OBJ_BITMAP), sizeof about, &about) != 0 &&
                        about.bmBitsPixel == 1;
  return isOneBit ? SIZE{} : SIZE{box.right, box.bottom};
}

// A picture of ours whose pixels can be reached, filled from a context. Bitmaps that somebody has selected can only be
// read by way of one.
class Copy {
 public:
  Copy(HDC source, int width, int height) : mHdc(::CreateCompatibleDC(source)) {
    BITMAPINFO format{};
    format.bmiHeader = {sizeof format.bmiHeader, width, -height, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
    void* bits = nullptr;
    mBitmap = ::CreateDIBSection(mHdc, &format, DIB_RGB_COLORS, &bits, nullptr, 0);
    if (!mHdc || !mBitmap) return;
    mOld = ::SelectObject(mHdc, mBitmap);
    if (::BitBlt(mHdc, 0, 0, width, height, source, 0, 0, SRCCOPY)) mPixels = static_cast<std::uint32_t*>(bits);
    ::GdiFlush();
  }
  ~Copy() {
    if (mOld) ::SelectObject(mHdc, mOld);
    if (mBitmap) ::DeleteObject(mBitmap);
    if (mHdc) ::DeleteDC(mHdc);
  }
  Copy(const Copy&) = delete;
  Copy& operator=(const Copy&) = delete;

  HDC Hdc() const { return mHdc; }
  std::uint32_t* Pixels() const { return mPixels; }  // null where the system had no room

 private:
  HDC mHdc;
  HBITMAP mBitmap = nullptr;
  HGDIOBJ mOld = nullptr;
  std::uint32_t* mPixels = nullptr;
};

}  // namespace

void MixContexts(Long dest, Long from, Long to, Long width, Long height, Single share) {
  LONG columns = std::min<LONG>(width, kLongestEdge);
  LONG rows = std::min<LONG>(height, kLongestEdge);
  for (const Long hdc : {dest, from, to}) {
    const SIZE size = SizeOf(ToHdc(hdc));
    columns = std::min(columns, size.cx);
    rows = std::min(rows, size.cy);
  }
  if (columns <= 0 || rows <= 0) return;
  const Copy mixed(ToHdc(from), columns, rows);
  const Copy above(ToHdc(to), columns, rows);
  if (!mixed.Pixels() || !above.Pixels()) return;
  const auto stride = static_cast<std::size_t>(columns);
  MixRows({mixed.Pixels(), stride, mixed.Pixels(), stride, above.Pixels(), stride, stride,
           static_cast<std::size_t>(rows), ShareOf(share)});
  ::BitBlt(ToHdc(dest), 0, 0, columns, rows, mixed.Hdc(), 0, 0, SRCCOPY);
}

}  // namespace strandline::win32
