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

// In elementary steps: the mask of what is transparent cuts a hole into a copy of the target, the inverse mask cuts the
// rest away from a copy of the source, and the two halves are joined.
void TransparentBlt(Long dstDC, Integer dstx, Integer dsty, Integer width, Integer height, Long srcDC, Integer srcX,
                    Integer srcY) {
  PROCEDURE(void, u"TransparentBlt", dstDC, dstx, dsty, width, height, srcDC, srcX, srcY);
  Graphics& graphics = platform::Graphics();
  Rect source;
  Integer cx = 0, cy = 0;
  Long monoMaskDC = 0, hMonoMask = 0, oldMonoMask = 0;
  Long MonoInvDC = 0, hMonoInv = 0, oldMonoInv = 0;
  Long ResultDstDC = 0, hResultDst = 0, oldResultDst = 0;
  Long ResultSrcDC = 0, hResultSrc = 0, oldResultSrc = 0;
  Long oldColor = 0;
  REPORTS(source, cx, cy, monoMaskDC, hMonoMask, oldMonoMask, MonoInvDC, hMonoInv, oldMonoInv, ResultDstDC, hResultDst,
          oldResultDst, ResultSrcDC, hResultSrc, oldResultSrc, oldColor);
  source.left = srcX;
  source.top = srcY;
  STEP(source.right = ToInteger(srcX + width - 1));
  STEP(source.bottom = ToInteger(srcY + height - 1));
  STEP(cx = ToInteger(source.right - source.left + 1));
  STEP(cy = ToInteger(source.bottom - source.top + 1));
  // Pixel for pixel the same, in one pass, where the back-end has it.
  if (graphics.ColorKeyBlt(dstDC, dstx, dsty, cx, cy, srcDC, source.left, source.top, kColorKey)) return;

  monoMaskDC = graphics.CreateCompatibleDC(dstDC);
  hMonoMask = graphics.CreateBitmap(cx, cy, 1, 1);
  oldMonoMask = graphics.SelectObject(monoMaskDC, hMonoMask);
  MonoInvDC = graphics.CreateCompatibleDC(dstDC);
  hMonoInv = graphics.CreateBitmap(cx, cy, 1, 1);
  oldMonoInv = graphics.SelectObject(MonoInvDC, hMonoInv);
  ResultDstDC = graphics.CreateCompatibleDC(dstDC);
  hResultDst = graphics.CreateCompatibleBitmap(dstDC, cx, cy);
  oldResultDst = graphics.SelectObject(ResultDstDC, hResultDst);
  ResultSrcDC = graphics.CreateCompatibleDC(dstDC);
  hResultSrc = graphics.CreateCompatibleBitmap(dstDC, cx, cy);
  oldResultSrc = graphics.SelectObject(ResultSrcDC, hResultSrc);

  oldColor = graphics.SetBkColor(srcDC, kColorKey);
  graphics.BitBlt(monoMaskDC, 0, 0, cx, cy, srcDC, source.left, source.top, rop::kSrcCopy);
  graphics.SetBkColor(srcDC, oldColor);
  graphics.BitBlt(MonoInvDC, 0, 0, cx, cy, monoMaskDC, 0, 0, rop::kNotSrcCopy);
  graphics.BitBlt(ResultDstDC, 0, 0, cx, cy, dstDC, dstx, dsty, rop::kSrcCopy);
  graphics.BitBlt(ResultDstDC, 0, 0, cx, cy, monoMaskDC, 0, 0, rop::kSrcAnd);
  graphics.BitBlt(ResultSrcDC, 0, 0, cx, cy, srcDC, source.left, source.top, rop::kSrcCopy);
  graphics.BitBlt(ResultSrcDC, 0, 0, cx, cy, MonoInvDC, 0, 0, rop::kSrcAnd);
  graphics.BitBlt(ResultDstDC, 0, 0, cx, cy, ResultSrcDC, 0, 0, rop::kSrcInvert);
  graphics.BitBlt(dstDC, dstx, dsty, cx, cy, ResultDstDC, 0, 0, rop::kSrcCopy);

  graphics.SelectObject(monoMaskDC, oldMonoMask);
  graphics.SelectObject(MonoInvDC, oldMonoInv);
  graphics.SelectObject(ResultDstDC, oldResultDst);
  graphics.SelectObject(ResultSrcDC, oldResultSrc);
  for (const Long bitmap : {hMonoMask, hMonoInv, hResultDst, hResultSrc}) graphics.DeleteObject(bitmap);
  for (const Long hdc : {monoMaskDC, MonoInvDC, ResultDstDC, ResultSrcDC}) graphics.DeleteDC(hdc);
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
