#pragma once

#include "platform/graphics.h"

namespace strandline::win32 {

// Forwards to the system. It has no copy by colour key in one pass: the steps run.
class Win32Graphics final : public Graphics {
 public:
  Long GetDC(Long hwnd) override;
  Long ReleaseDC(Long hwnd, Long hdc) override;
  Long BeginPaint(Long hwnd, PaintStruct& paint) override;
  Long EndPaint(Long hwnd, const PaintStruct& paint) override;
  Long CreateCompatibleDC(Long hdc) override;
  Long DeleteDC(Long hdc) override;
  Long CreateCompatibleBitmap(Long hdc, Long width, Long height) override;
  Long CreateBitmap(Long width, Long height, Long planes, Long bitsPerPixel) override;
  Long SelectObject(Long hdc, Long object) override;
  Long DeleteObject(Long object) override;
  Long BitBlt(Long hdc, Long x, Long y, Long width, Long height, Long sourceHdc, Long sourceX, Long sourceY,
              Long rasterOperation) override;
  Long SetBkColor(Long hdc, Long color) override;
  Long GetPixel(Long hdc, Long x, Long y) override;
  Long DrawEdge(Long hdc, const Rect& rectangle, Long edge, Long flags) override;
  Long CreateSolidBrush(Long color) override;
  Long FillRect(Long hdc, const Rect& rectangle, Long brush) override;
  Long GetSysColor(Long index) override;
  Long CreateRectRgn(Long left, Long top, Long right, Long bottom) override;
  Long CombineRgn(Long target, Long first, Long second, Long mode) override;
  Boolean ColorKeyBlt(Long hdc, Long x, Long y, Long width, Long height, Long sourceHdc, Long sourceX, Long sourceY,
                      Long key) override;
};

}  // namespace strandline::win32
