#pragma once

#include "platform/host.h"

namespace strandline::win32 {

// Draws with the system's graphics the very pixels that the desk's canvas draws.
class Win32HostCanvas final : public HostCanvas {
 public:
  void FillRectangle(Long hdc, const Rect& rectangle, Long color) override;
  void FillGradient(Long hdc, const Rect& rectangle, Long topColor, Long bottomColor) override;
  void DrawTextLine(Long hdc, Long x, Long y, const String& text, Long color) override;
  Long TextWidth(const String& text) override;
  Long TextHeight() override;
  // A key that is no colour (-1) leaves nothing out. Nothing is drawn into a context of one bit.
  void DrawBitmap(Long hdc, const Rect& rectangle, Long bitmap, Long key) override;
  void MixPictures(Long dest, Long from, Long to, Long width, Long height, Single share) override;
};

}  // namespace strandline::win32
