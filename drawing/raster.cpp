// The raster services under all drawing: units, the transparent copy, the shared off-screen context.

#include "drawing/ToolbarUtilities.h"
#include "drawing/color_key.h"
#include "drawing/units.h"
#include "platform/convert.h"
#include "platform/platform.h"

namespace strandline::ToolbarUtilities {

namespace {

constexpr ModuleFile kModule{&kModuleInfo, 2000};
constexpr Long kMenuColor = 4;

// A memory context with a bitmap of its own, both of which go with it, and the old bitmap back in place before.
class Surface {
 public:
  Surface(Graphics& graphics, Long hdc, Long bitmap)
      : mGraphics(graphics), mHdc(hdc), mBitmap(bitmap), mOld(graphics.SelectObject(hdc, bitmap)) {}
  Surface(const Surface&) = delete;
  Surface& operator=(const Surface&) = delete;
  void PutBack() { mGraphics.SelectObject(mHdc, mOld); }
  void DeleteBitmap() { mGraphics.DeleteObject(mBitmap); }
  void DeleteContext() { mGraphics.DeleteDC(mHdc); }
  Long Hdc() const { return mHdc; }

 private:
  Graphics& mGraphics;
  Long mHdc;
  Long mBitmap;
  Long mOld;
};

// The copy in elementary steps: the mask of what is transparent cuts a hole into a copy of the target, its inverse cuts
// the rest away from a copy of the source, and the two halves are joined.
void ComposeByMasks(Long dstDC, Integer dstx, Integer dsty, Integer cx, Integer cy, Long srcDC, Long left, Long top) {
  Graphics& g = platform::Graphics();
  // In braces each context is made before its bitmap, whichever compiler it is.
  Surface monoMask{g, g.CreateCompatibleDC(dstDC), g.CreateBitmap(cx, cy, 1, 1)};
  Surface monoInv{g, g.CreateCompatibleDC(dstDC), g.CreateBitmap(cx, cy, 1, 1)};
  Surface resultDst{g, g.CreateCompatibleDC(dstDC), g.CreateCompatibleBitmap(dstDC, cx, cy)};
  Surface resultSrc{g, g.CreateCompatibleDC(dstDC), g.CreateCompatibleBitmap(dstDC, cx, cy)};

  const Long oldColor = g.SetBkColor(srcDC, kColorKey);
  g.BitBlt(monoMask.Hdc(), 0, 0, cx, cy, srcDC, left, top, rop::kSrcCopy);
  g.SetBkColor(srcDC, oldColor);
  g.BitBlt(monoInv.Hdc(), 0, 0, cx, cy, monoMask.Hdc(), 0, 0, rop::kNotSrcCopy);
  g.BitBlt(resultDst.Hdc(), 0, 0, cx, cy, dstDC, dstx, dsty, rop::kSrcCopy);
  g.BitBlt(resultDst.Hdc(), 0, 0, cx, cy, monoMask.Hdc(), 0, 0, rop::kSrcAnd);
  g.BitBlt(resultSrc.Hdc(), 0, 0, cx, cy, srcDC, left, top, rop::kSrcCopy);
  g.BitBlt(resultSrc.Hdc(), 0, 0, cx, cy, monoInv.Hdc(), 0, 0, rop::kSrcAnd);
  g.BitBlt(resultDst.Hdc(), 0, 0, cx, cy, resultSrc.Hdc(), 0, 0, rop::kSrcInvert);
  g.BitBlt(dstDC, dstx, dsty, cx, cy, resultDst.Hdc(), 0, 0, rop::kSrcCopy);

  Surface* const surfaces[] = {&monoMask, &monoInv, &resultDst, &resultSrc};
  for (Surface* surface : surfaces) surface->PutBack();
  for (Surface* surface : surfaces) surface->DeleteBitmap();
  for (Surface* surface : surfaces) surface->DeleteContext();
}

}  // namespace

Long HM2PixX(Long value) {
  PROCEDURE(Long, u"HM2PixX", value);
  STEP(here.result = units::HimetricToPixels(value, platform::RunTime().TwipsPerPixelX()));
  return here.Leave();
}

Long HM2PixY(Long value) {
  PROCEDURE(Long, u"HM2PixY", value);
  STEP(here.result = units::HimetricToPixels(value, platform::RunTime().TwipsPerPixelY()));
  return here.Leave();
}

Long CreateDesktopCompatibleBitmap(Integer width, Integer height) {
  PROCEDURE(Long, u"CreateDesktopCompatibleBitmap", width, height);
  Long desktop = 0;
  Long hdc = 0;
  REPORTS(desktop, hdc);
  desktop = platform::Windows().GetDesktopWindow();
  hdc = platform::Graphics().GetDC(desktop);
  here.result = platform::Graphics().CreateCompatibleBitmap(hdc, width, height);
  platform::Graphics().ReleaseDC(desktop, hdc);
  return here.Leave();
}

void FillDcWithColor(Long hdc, Long color, Integer width, Integer height) {
  PROCEDURE(void, u"FillDcWithColor", hdc, color, width, height);
  Long brush = 0;
  Rect rectangle;
  REPORTS(brush, rectangle);
  brush = platform::Graphics().CreateSolidBrush(color);
  rectangle = {0, 0, width, height};
  platform::Graphics().FillRect(hdc, rectangle, brush);
  platform::Graphics().DeleteObject(brush);
}

Picture ReplaceBackgroundWithMenuColor(const Picture& src) {
  PROCEDURE(Picture, u"ReplaceBackgroundWithMenuColor", src);
  Graphics& graphics = platform::Graphics();
  Ref<IPictureDispUtilities> utilities;
  Long srcDC = 0;
  Long dstDC = 0;
  Integer width = 0;
  Integer height = 0;
  Long bitmap = 0;
  Long oldHandle = 0;
  REPORTS(utilities, srcDC, dstDC, width, height, bitmap, oldHandle);
  STEP(utilities = New<IPictureDispUtilities>());
  STEP(srcDC = Required(utilities).IPictureDispToHdc(src));
  dstDC = graphics.CreateCompatibleDC(srcDC);
  STEP(width = ToInteger(HM2PixX(Required(src).Width())));
  STEP(height = ToInteger(HM2PixY(Required(src).Height())));
  bitmap = CreateDesktopCompatibleBitmap(width, height);
  oldHandle = graphics.SelectObject(dstDC, bitmap);
  FillDcWithColor(dstDC, graphics.GetSysColor(kMenuColor), width, height);
  TransparentBlt(dstDC, 0, 0, width, height, srcDC, 0, 0);
  STEP(here.result = Required(utilities).hBmpToIPictureDisp(graphics.SelectObject(dstDC, oldHandle)));
  graphics.DeleteDC(dstDC);
  return here.Leave();
}

void TransparentBlt(Long dstDC, Integer dstx, Integer dsty, Integer width, Integer height, Long srcDC, Integer srcX,
                    Integer srcY) {
  PROCEDURE(void, u"TransparentBlt", dstDC, dstx, dsty, width, height, srcDC, srcX, srcY);
  Rect source;
  Integer cx = 0;
  Integer cy = 0;
  REPORTS(source, cx, cy);
  source.left = srcX;
  source.top = srcY;
  STEP(source.right = ToInteger(srcX + width - 1));
  STEP(source.bottom = ToInteger(srcY + height - 1));
  STEP(cx = ToInteger(source.right - source.left + 1));
  STEP(cy = ToInteger(source.bottom - source.top + 1));
  // Pixel for pixel the same, in one pass, where the back-end has it.
  if (platform::Graphics().ColorKeyBlt(dstDC, dstx, dsty, cx, cy, srcDC, source.left, source.top, kColorKey)) return;
  ComposeByMasks(dstDC, dstx, dsty, cx, cy, srcDC, source.left, source.top);
}

Long cachedBuffer(Long width, Long height, Long handle) {
  PROCEDURE(Long, u"cachedBuffer[Get]", width, height, handle);
  if (width == variables.mWidth && height == variables.mHeight) here.result = variables.mCachedBuffer;
  return here.Leave();
}

void cachedBuffer(Long width, Long height, Long handle, Long buffer) {
  PROCEDURE(void, u"cachedBuffer[Let]", width, height, handle, buffer);
  Graphics& graphics = platform::Graphics();
  variables.mWidth = width;
  variables.mHeight = height;
  if (variables.mCachedBuffer != 0) {
    graphics.DeleteObject(graphics.SelectObject(variables.mCachedBuffer, variables.mCachedBufferHandle));
    graphics.DeleteDC(variables.mCachedBuffer);
  }
  variables.mCachedBufferHandle = handle;
  variables.mCachedBuffer = buffer;
}

}  // namespace strandline::ToolbarUtilities
