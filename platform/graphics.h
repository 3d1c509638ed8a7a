#pragma once

// The graphics device interface: contexts, bitmaps, raster operations, each under its Windows name. Colours are
// COLORREF, 0x00BBGGRR. Handles are the caller's to release; a bitmap is selected into one context at a time, and a
// selected one isn't deleted.
//
// What the logic leans on: a new memory context holds a 1 by 1 monochrome bitmap; a new bitmap is all zero; a copy from
// colour to 1 bit sets the pixels that equal the source's background colour; a copy from 1 bit to colour takes the
// target's text colour (black) for 0 and background colour (white) for 1; pixels outside the source aren't written.

#include <array>

#include "platform/values.h"

namespace strandline {

struct PaintStruct {
  Long hdc = 0;
  Long fErase = 0;
  Rect rcPaint;
  Long fRestore = 0;
  Long fIncUpdate = 0;
  std::array<Byte, 32> rgbReserved{};
};

namespace rop {
inline constexpr Long kSrcCopy = 0xCC0020;
inline constexpr Long kNotSrcCopy = 0x330008;
inline constexpr Long kSrcAnd = 0x8800C6;
inline constexpr Long kSrcInvert = 0x660046;
}  // namespace rop

class Graphics {
 public:
  virtual ~Graphics() = default;

  // A context of the window's own pixels, whole window, origin at its top left corner for windows without a frame.
  virtual Long GetDC(Long hwnd) = 0;
  virtual Long ReleaseDC(Long hwnd, Long hdc) = 0;
  // Validates the window's invalid region; the context that it gives is clipped to it.
  virtual Long BeginPaint(Long hwnd, PaintStruct& paint) = 0;
  virtual Long EndPaint(Long hwnd, const PaintStruct& paint) = 0;

  virtual Long CreateCompatibleDC(Long hdc) = 0;  // 0: compatible with the screen
  virtual Long DeleteDC(Long hdc) = 0;
  virtual Long CreateCompatibleBitmap(Long hdc, Long width, Long height) = 0;
  virtual Long CreateBitmap(Long width, Long height, Long planes, Long bitsPerPixel) = 0;  // pixels all zero
  // The object displaced, 0 when it was refused. A region (which selects as clip) isn't needed here.
  virtual Long SelectObject(Long hdc, Long object) = 0;
  virtual Long DeleteObject(Long object) = 0;

  virtual Long BitBlt(Long hdc, Long x, Long y, Long width, Long height, Long sourceHdc, Long sourceX, Long sourceY,
                      Long rasterOperation) = 0;
  virtual Long SetBkColor(Long hdc, Long color) = 0;    // the former colour
  virtual Long GetPixel(Long hdc, Long x, Long y) = 0;  // -1 outside
  virtual Long DrawEdge(Long hdc, const Rect& rectangle, Long edge, Long flags) = 0;
  virtual Long CreateSolidBrush(Long color) = 0;
  virtual Long FillRect(Long hdc, const Rect& rectangle, Long brush) = 0;
  virtual Long GetSysColor(Long index) = 0;

  virtual Long CreateRectRgn(Long left, Long top, Long right, Long bottom) = 0;
  virtual Long CombineRgn(Long target, Long first, Long second, Long mode) = 0;

  // In one pass what the masks of a colour-key copy do step by step: a source pixel of exactly `key` leaves the target,
  // every other replaces it, and what of the rectangle lies outside the source turns black. False where the back-end
  // has no such pass for these contexts; nothing is drawn then.
  virtual Boolean ColorKeyBlt(Long hdc, Long x, Long y, Long width, Long height, Long sourceHdc, Long sourceX,
                              Long sourceY, Long key) = 0;
};

}  // namespace strandline
