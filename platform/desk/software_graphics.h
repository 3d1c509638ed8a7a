#pragma once

#include <functional>
#include <memory>

#include "platform/desk/draw_target.h"
#include "platform/desk/object_table.h"
#include "platform/desk/raster/raster_op.h"
#include "platform/desk/window_areas.h"
#include "platform/graphics.h"
#include "platform/host.h"

namespace strandline::desk {

// Hears of each copy, edge and filling that reaches a window's own pixels, by its Windows name, after it was drawn. The
// rectangle is in window pixels, limited to the window. The host's canvas isn't reported.
using PaintObserver = std::function<void(Long hwnd, const Rect& windowRect, const char* operation)>;

// The desk's graphics: memory contexts on surfaces of their own, window contexts on the one screen.
//
// Faithful: which objects go together, what is refused, the pixels of copies between depths, edges and regions; a
// memory context's first bitmap, a stock one; drawing reaches what of a window is visible, reading gives what the
// screen shows in its place. Misuse of handles is recorded (object_table.h), and the call fails. Simplified: bitmaps
// have 1 bit or 32; a released context's handle is never given out again; BeginPaint sends no message to erase;
// ReleaseDC with another window's handle releases, and is recorded. Left out: clip regions in contexts, pens, fonts,
// palettes, mapping modes, stretching, patterned brushes.
class SoftwareGraphics final : public Graphics, public HostCanvas {
 public:
  // The screen and the windows outlive the graphics.
  SoftwareGraphics(Surface& screen, WindowAreas& windows, std::shared_ptr<MisuseLog> misuses);

  // The living objects; shared, since pictures may outlive the desk.
  const std::shared_ptr<ObjectTable>& Objects() const { return mObjects; }

  // Null: nobody hears. Gives the former one, so that a caller can put it back; the observer is the caller's.
  const PaintObserver* SetPaintObserver(const PaintObserver* observer);

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
  // `brush` may also be a system colour's index plus 1.
  Long FillRect(Long hdc, const Rect& rectangle, Long brush) override;
  Long GetSysColor(Long index) override;

  Long CreateRectRgn(Long left, Long top, Long right, Long bottom) override;
  Long CombineRgn(Long target, Long first, Long second, Long mode) override;

  Boolean ColorKeyBlt(Long hdc, Long x, Long y, Long width, Long height, Long sourceHdc, Long sourceX, Long sourceY,
                      Long key) override;

  void FillRectangle(Long hdc, const Rect& rectangle, Long color) override;
  void FillGradient(Long hdc, const Rect& rectangle, Long topColor, Long bottomColor) override;
  void DrawTextLine(Long hdc, Long x, Long y, const String& text, Long color) override;
  Long TextWidth(const String& text) override;
  Long TextHeight() override;
  // A key that is no colour (-1) leaves nothing out.
  void DrawBitmap(Long hdc, const Rect& rectangle, Long bitmap, Long key) override;
  void MixPictures(Long dest, Long from, Long to, Long width, Long height, Single share) override;

 private:
  Long AddWindowContext(Long hwnd, Context::Origin origin, std::optional<Region> paintClip, const char* call);
  Long AddBitmap(Long width, Long height, int depth, const char* call);
  Long SelectBitmap(Long hdc, Context& context, Long object);
  Long SelectBrush(Context& context, Long object);
  void Unselect(Context& context);
  void Report(const DrawTarget& target, const Clip& area, const char* operation);

  std::shared_ptr<ObjectTable> mObjects;
  WindowAreas& mWindows;
  DrawTargets mTargets;
  const PaintObserver* mPaintObserver = nullptr;
};

}  // namespace strandline::desk
