// How one picture reaches the frame or the window: centring, erasing, transparency, and the clipping to an update
// rectangle, which stands ready and idle as long as whole frames are blitted.

#include "drawing/BorderDrawingFunctions.h"
#include "drawing/Painter.h"
#include "drawing/ToolbarUtilities.h"
#include "drawing/units.h"
#include "foundation/CommonLogger.h"
#include "platform/convert.h"
#include "platform/platform.h"

namespace strandline {

namespace {
constexpr ModuleInfo kModuleInfo{u"Painter", nullptr};
constexpr ModuleFile kModule{&kModuleInfo, 1000};
}  // namespace

void Painter::PaintIconTransparently(Long handle, Integer destx, Integer desty, Integer destWidth, Integer destHeight,
                                     Integer srcWidth, Integer srcHeight, Long destHdc, Boolean forceEraseBackground) {
  METHOD(void, u"PaintIconTransparently", handle, destx, desty, destWidth, destHeight, srcWidth, srcHeight, destHdc,
         forceEraseBackground);
  PaintIconTransparentlyImpl(handle, destx, desty, destWidth, destHeight, srcWidth, srcHeight,
                             destHdc == 0 ? backbuffer() : destHdc, forceEraseBackground);
}

void Painter::PaintIconTransparentlyImpl(Long srcHandle, Integer destx, Integer desty, Integer destWidth,
                                         Integer destHeight, Integer srcWidth, Integer srcHeight, Long destHdc,
                                         Boolean forceEraseBackground) {
  METHOD(void, u"PaintIconTransparentlyImpl", srcHandle, destx, desty, destWidth, destHeight, srcWidth, srcHeight,
         destHdc, forceEraseBackground);
  Graphics& graphics = platform::Graphics();
  Long picDC = 0;
  Long oldHandle = 0;
  REPORTS(picDC, oldHandle);
  picDC = graphics.CreateCompatibleDC(destHdc);
  oldHandle = graphics.SelectObject(picDC, srcHandle);
  PaintIconImpl(picDC, destx, desty, destWidth, destHeight, srcWidth, srcHeight, destHdc, forceEraseBackground);
  // The bitmap is used up: a picture is good for one paint.
  graphics.DeleteObject(graphics.SelectObject(picDC, oldHandle));
  graphics.DeleteDC(picDC);
}

void Painter::PaintDCTransparently(Long handle, Integer destx, Integer desty, Integer destWidth, Integer destHeight,
                                   Integer srcWidth, Integer srcHeight, Long destHdc, Boolean forceEraseBackground) {
  METHOD(void, u"PaintDCTransparently", handle, destx, desty, destWidth, destHeight, srcWidth, srcHeight, destHdc,
         forceEraseBackground);
  Log(u"PaintDCTransparently");
  if (forceEraseBackground) {
    STEP(BorderDrawingFunctions::DrawBorder(mBackbuffer, destx, desty, ToInteger(destx + destWidth),
                                            ToInteger(desty + destHeight), BorderDrawingFunctions::kEdgeNone));
    mUpdateRect = {destx, desty, destx + destWidth, desty + destHeight};
  } else {
    STEP(mUpdateRect.left = destx + units::Half(ToInteger(destWidth - srcWidth)));
    STEP(mUpdateRect.top = desty + units::Half(ToInteger(destHeight - srcHeight)));
    mUpdateRect.right = mUpdateRect.left + srcWidth;
    mUpdateRect.bottom = mUpdateRect.top + srcHeight;
  }
  PaintIconImpl(handle, destx, desty, destWidth, destHeight, srcWidth, srcHeight, mBackbuffer, forceEraseBackground);
  if (destHdc != 0) BltBuffer(destHdc, false);
}

void Painter::PaintIconImpl(Long picDC, Integer destx, Integer desty, Integer destWidth, Integer destHeight,
                            Integer srcWidth, Integer srcHeight, Long destHdc, Boolean needToEraseBackground) {
  METHOD(void, u"PaintIconImpl", picDC, destx, desty, destWidth, destHeight, srcWidth, srcHeight, destHdc,
         needToEraseBackground);
  Graphics& graphics = platform::Graphics();
  Integer deltaX = 0;
  Integer deltaY = 0;
  Integer srcX = 0;
  Integer srcY = 0;
  Long DCwithOldBackground = 0;
  Long oldHandle = 0;
  REPORTS(deltaX, deltaY, srcX, srcY, DCwithOldBackground, oldHandle);
  Log(u"PaintIconImpl");
  GetDelta(deltaX, deltaY, destWidth, destHeight, srcWidth, srcHeight);
  if (needToEraseBackground) {
    // The whole cell, composed off-screen on the clean piece of the bar and put down once.
    DCwithOldBackground = graphics.CreateCompatibleDC(destHdc);
    oldHandle =
        graphics.SelectObject(DCwithOldBackground, graphics.CreateCompatibleBitmap(destHdc, destWidth, destHeight));
    graphics.BitBlt(DCwithOldBackground, 0, 0, destWidth, destHeight, mBackground, destx, desty, rop::kSrcCopy);
    ToolbarUtilities::TransparentBlt(DCwithOldBackground, deltaX, deltaY, srcWidth, srcHeight, picDC, 0, 0);
    graphics.BitBlt(destHdc, destx, desty, destWidth, destHeight, DCwithOldBackground, 0, 0, rop::kSrcCopy);
    graphics.DeleteObject(graphics.SelectObject(DCwithOldBackground, oldHandle));
    graphics.DeleteDC(DCwithOldBackground);
  } else {
    STEP(destx = ToInteger(destx + deltaX));
    STEP(desty = ToInteger(desty + deltaY));
    optimizeDrawingRectangle(destx, desty, srcWidth, srcHeight, srcX, srcY);
    ToolbarUtilities::TransparentBlt(destHdc, destx, desty, srcWidth, srcHeight, picDC, srcX, srcY);
  }
}

void Painter::optimizeDrawingRectangle(Integer& destx, Integer& desty, Integer& width, Integer& height, Integer& srcX,
                                       Integer& srcY) {
  METHOD(void, u"optimizeDrawingRectangle", destx, desty, width, height, srcX, srcY);
  srcX = destx;
  srcY = desty;
  if (!mUpdateAll && !inUpdateRect(destx, desty, width, height)) return;
  STEP(srcX = ToInteger(destx - srcX));
  STEP(srcY = ToInteger(desty - srcY));
}

// odd: two-sides
Boolean Painter::inUpdateRect(Integer& destx, Integer& desty, Integer& width, Integer& height) {
  METHOD(Boolean, u"inUpdateRect", destx, desty, width, height);
  CONDITION(isInside, ToInteger(destx + width) > mUpdateRect.left && ToInteger(desty + height) > mUpdateRect.top);
  if (isInside) {
    here.result = true;
    UpdateToSmallestRegion(destx, desty, width, height);
  }
  return here.Leave();
}

void Painter::UpdateToSmallestRegion(Integer& destx, Integer& desty, Integer& width, Integer& height) {
  METHOD(void, u"UpdateToSmallestRegion", destx, desty, width, height);
  const Rect& update = mUpdateRect;
  Long deltaX = 0;
  Long deltaY = 0;
  REPORTS(deltaX, deltaY);
  deltaX = destx - update.left;
  deltaY = desty - update.top;
  if (deltaX < 0) {
    STEP(destx = ToInteger(update.left));
    STEP(width = ToInteger(width + deltaX));
  }
  if (deltaY < 0) {
    STEP(desty = ToInteger(update.top));
    STEP(height = ToInteger(height + deltaY));
  }
  CONDITION(tooWide, ToInteger(destx + width) > update.right);
  if (tooWide) STEP(width = ToInteger(update.right - destx));
  CONDITION(tooHigh, ToInteger(desty + height) > update.bottom);
  if (tooHigh) STEP(height = ToInteger(update.bottom - desty));
}

void Painter::GetDelta(Integer& deltaX, Integer& deltaY, Integer destWidth, Integer destHeight, Integer srcWidth,
                       Integer srcHeight) {
  METHOD(void, u"GetDelta", deltaX, deltaY, destWidth, destHeight, srcWidth, srcHeight);
  STEP(deltaX = units::Half(ToInteger(destWidth - srcWidth)));
  STEP(deltaY = units::Half(ToInteger(destHeight - srcHeight)));
}

}  // namespace strandline
