#pragma once

// The off-screen drawing engine of one strip. The window belongs to Word, so the engine keeps two memory bitmaps of
// exactly its size: a clean picture of the command bar as Word itself draws it, and the composed frame. A frame reaches
// the window in one blit; a single icon is composed on the clean piece under it and reaches the window in one opaque
// blit. That is what keeps the strip free of flicker on a window that never cooperates.
//
// Coordinates are pixels of the window, whose top left corner is the origin of both bitmaps too. The bitmaps live as
// long as the object; the clean picture is shared between toolbars of one size (ToolbarUtilities::cachedBuffer).

#include "foundation/procedure.h"

namespace strandline {

class Painter final : public ClassObject {
 public:
  // Whether background and frame no longer fit the window. On Word 2000 never while another window is in front.
  Boolean NeedRepaint(Long activeDocHwnd, Long hWnd);
  // Takes a new background and rebuilds both bitmaps; hdc: a context of the window. Sends the window a paint or a print
  // message, which comes back through the hook.
  void Initialize(Long activeDocHwnd, Long hWnd, Long hdc);
  // A picture in a context that stays the caller's, centred in its cell, into the frame; the frame to destHdc unless 0.
  void PaintDCTransparently(Long handle, Integer destx, Integer desty, Integer destWidth, Integer destHeight,
                            Integer srcWidth, Integer srcHeight, Long destHdc, Boolean forceEraseBackground);
  // A picture in a bitmap, which is deleted, centred in its cell, onto destHdc; 0: into the frame.
  void PaintIconTransparently(Long handle, Integer destx, Integer desty, Integer destWidth, Integer destHeight,
                              Integer srcWidth, Integer srcHeight, Long destHdc, Boolean forceEraseBackground);
  // The frame to the window.
  void BltBuffer(Long destHdc, Boolean forceUpdate);

  // The context of the frame. Writing releases the former one with its bitmap.
  Long backbuffer();
  void backbuffer(Long hdc);
  void background(Long hdc);

  // --- the steps of the above ---

  // Makes destDC, compatible with srcDC, with a bitmap of the strip's size copied from it; the bitmap displaced.
  Long CopyDC(Long& destDC, Long srcDC);
  void PaintToolbarBackground(Long hWnd, Long cachedBuffer);
  void PaintIconTransparentlyImpl(Long srcHandle, Integer destx, Integer desty, Integer destWidth, Integer destHeight,
                                  Integer srcWidth, Integer srcHeight, Long destHdc, Boolean forceEraseBackground);
  void PaintIconImpl(Long picDC, Integer destx, Integer desty, Integer destWidth, Integer destHeight, Integer srcWidth,
                     Integer srcHeight, Long destHdc, Boolean needToEraseBackground);
  // Clips to the update rectangle; srcX, srcY: how much was clipped off, or, of a rectangle outside, where it lay.
  void optimizeDrawingRectangle(Integer& destx, Integer& desty, Integer& width, Integer& height, Integer& srcX,
                                Integer& srcY);
  // Two sides only: a rectangle to the right of or below the update rectangle counts as inside.
  Boolean inUpdateRect(Integer& destx, Integer& desty, Integer& width, Integer& height);
  void UpdateToSmallestRegion(Integer& destx, Integer& desty, Integer& width, Integer& height);
  // Where in its cell a centred picture begins; negative for one larger than the cell.
  void GetDelta(Integer& deltaX, Integer& deltaY, Integer destWidth, Integer destHeight, Integer srcWidth,
                Integer srcHeight);
  void GetWindowExtents(Long hWnd, Long& width, Long& height);

  void ReportVariables(Reporter& to) const override;

 private:
  void Terminated() override;

  Long mWidth = 0;
  Long mHeight = 0;
  Rect mUpdateRect;            // of the last picture given to PaintDCTransparently
  Boolean mUpdateAll = false;  // whole frames; True for good from the first Initialize on
  Long mBackbuffer = 0;
  Long mBackbufferOldHandle = 0;
  Long mBackground = 0;
  Long mBackgroundOldHandle = 0;
  Long mHdc = 0;  // what BltBuffer copies from
};

}  // namespace strandline
