#include "drawing/IPictureDispUtilities.h"

#include "drawing/color_key.h"
#include "drawing/units.h"
#include "platform/convert.h"
#include "platform/platform.h"

namespace strandline {

namespace {

constexpr ModuleInfo kModuleInfo{u"IPictureDispUtilities", nullptr};
constexpr ModuleFile kModule{&kModuleInfo};

constexpr Long kPictDescSize = 20;
constexpr Long kPicTypeBitmap = 1;
constexpr Long kRgnOr = 2;

}  // namespace

IPictureDispUtilities::IPictureDispUtilities() {
  AddRef();  // a running procedure holds its object, and nobody else does yet
  Class_Initialize();
  Unhold();
}

void IPictureDispUtilities::Class_Initialize() {
  METHOD(void, u"Class_Initialize");
  initializeConversionStructs();
}

void IPictureDispUtilities::initializeConversionStructs() {
  METHOD(void, u"initializeConversionStructs");
  tPicConv.cbSizeofStruct = kPictDescSize;
  tPicConv.picType = kPicTypeBitmap;
  IGuid = {0x7BF80980, static_cast<Integer>(0xBF32), 0x101A, {0x8B, 0xBB, 0x00, 0xAA, 0x00, 0x30, 0x0C, 0xAB}};
}

void IPictureDispUtilities::Terminated() {
  METHOD(void, u"Class_Terminate");
  CleanupIPictureDispToHdc();
}

Long IPictureDispUtilities::HM2PixX(Long value) {
  METHOD(Long, u"HM2PixX", value);
  STEP(here.result = units::HimetricToPixels(value, platform::RunTime().TwipsPerPixelX()));
  return here.Leave();
}

Long IPictureDispUtilities::HM2PixY(Long value) {
  METHOD(Long, u"HM2PixY", value);
  STEP(here.result = units::HimetricToPixels(value, platform::RunTime().TwipsPerPixelY()));
  return here.Leave();
}

Picture IPictureDispUtilities::hBmpToIPictureDisp(Long hBmp) {
  METHOD(Picture, u"hBmpToIPictureDisp", hBmp);
  Picture oNewPic;
  REPORTS(oNewPic);
  if (hBmp == 0) return here.Leave();
  tPicConv.hImage = hBmp;
  platform::Pictures().OleCreatePictureIndirect(tPicConv, IGuid, true, oNewPic);
  return here.result = oNewPic;
}

// odd: placeholder-loss
Long IPictureDispUtilities::IPictureDispToHdc(const Picture& picture) {
  METHOD(Long, u"IPictureDispToHdc", picture);
  Graphics& graphics = platform::Graphics();
  Long width = 0;
  Long height = 0;
  Long desktop = 0;
  Long desktopHdc = 0;
  Long bitmap = 0;
  REPORTS(width, height, desktop, desktopHdc, bitmap);
  mCalledAlready = true;
  STEP(width = HM2PixX(Required(picture).Width()));
  STEP(height = HM2PixY(Required(picture).Height()));
  desktop = platform::Windows().GetDesktopWindow();
  desktopHdc = graphics.GetDC(desktop);
  mIPictureDispHdc = graphics.CreateCompatibleDC(desktopHdc);
  bitmap = graphics.CreateCompatibleBitmap(desktopHdc, width, height);
  graphics.SelectObject(mIPictureDispHdc, bitmap);
  STEP(mOldBmpHandle = graphics.SelectObject(mIPictureDispHdc, Required(picture).Handle()));
  graphics.ReleaseDC(desktop, desktopHdc);
  return here.result = mIPictureDispHdc;
}

// What comes out of the context is the picture's own bitmap; the placeholder goes back in and is lost with the context.
void IPictureDispUtilities::CleanupIPictureDispToHdc() {
  METHOD(void, u"CleanupIPictureDispToHdc");
  Graphics& graphics = platform::Graphics();
  if (mOldBmpHandle == 0) return;
  graphics.DeleteObject(graphics.SelectObject(mIPictureDispHdc, mOldBmpHandle));
  graphics.DeleteDC(mIPictureDispHdc);
  mOldBmpHandle = 0;
  mIPictureDispHdc = 0;
}

// odd: himetric-mask
Picture IPictureDispUtilities::CreateIPictureDispMask(const Picture& picture) {
  METHOD(Picture, u"CreateIPictureDispMask", picture);
  Graphics& graphics = platform::Graphics();
  Long pixWidth = 0;
  Long pixHeight = 0;
  Long srcDC = 0;
  Long oldSrcHandle = 0;
  Long dstDC = 0;
  Long oldDstHandle = 0;
  REPORTS(pixWidth, pixHeight, srcDC, oldSrcHandle, dstDC, oldDstHandle);
  STEP(pixWidth = HM2PixX(Required(picture).Width()));
  STEP(pixHeight = HM2PixY(Required(picture).Height()));
  srcDC = graphics.CreateCompatibleDC(0);
  STEP(oldSrcHandle = graphics.SelectObject(srcDC, Required(picture).Handle()));
  dstDC = graphics.CreateCompatibleDC(srcDC);
  oldDstHandle = graphics.SelectObject(dstDC, graphics.CreateCompatibleBitmap(srcDC, pixWidth, pixHeight));
  // The extents go in as they are, in HIMETRIC: the mask is clipped by its surfaces anyway.
  STEP(CreateMask(dstDC, ToInteger(Required(picture).Width()), ToInteger(Required(picture).Height()), srcDC));
  here.result = hBmpToIPictureDisp(graphics.SelectObject(dstDC, oldDstHandle));
  graphics.DeleteObject(graphics.SelectObject(srcDC, oldSrcHandle));
  graphics.DeleteDC(srcDC);
  graphics.DeleteDC(dstDC);
  return here.Leave();
}

void IPictureDispUtilities::CreateMask(Long dstDC, Integer width, Integer height, Long srcDC) {
  METHOD(void, u"CreateMask", dstDC, width, height, srcDC);
  Graphics& graphics = platform::Graphics();
  Rect rectangle;
  Integer cx = 0;
  Integer cy = 0;
  Long monoDC = 0;
  Long monoBitmap = 0;
  Long oldHandle = 0;
  REPORTS(rectangle, cx, cy, monoDC, monoBitmap, oldHandle);
  rectangle = {0, 0, width - 1, height - 1};
  STEP(cx = ToInteger(rectangle.right - rectangle.left + 1));
  STEP(cy = ToInteger(rectangle.bottom - rectangle.top + 1));
  monoDC = graphics.CreateCompatibleDC(dstDC);
  monoBitmap = graphics.CreateBitmap(cx, cy, 1, 1);
  oldHandle = graphics.SelectObject(monoDC, monoBitmap);
  graphics.SetBkColor(srcDC, kColorKey);
  graphics.BitBlt(monoDC, 0, 0, cx, cy, srcDC, rectangle.left, rectangle.top, rop::kSrcCopy);
  graphics.BitBlt(dstDC, 0, 0, cx, cy, monoDC, 0, 0, rop::kSrcCopy);
  graphics.SelectObject(monoDC, oldHandle);
  graphics.DeleteObject(monoBitmap);
  graphics.DeleteDC(monoDC);
}

// odd: open-run
Long IPictureDispUtilities::MakeRegion(const Picture& picture, Long transparentColor) {
  METHOD(Long, u"MakeRegion", picture, transparentColor);
  Graphics& graphics = platform::Graphics();
  Long hdc = 0;
  Long PicWidth = 0;
  Long PicHeight = 0;
  Long x = 0;
  Long y = 0;
  Long pixel = 0;
  Long StartLineX = 0;
  Long FullRegion = 0;
  Long LineRegion = 0;
  Boolean InFirstRegion = false;
  Boolean InLine = false;
  REPORTS(hdc, PicWidth, PicHeight, x, y, pixel, StartLineX, FullRegion, LineRegion, InFirstRegion, InLine);
  hdc = IPictureDispToHdc(picture);
  STEP(PicWidth = HM2PixX(Required(picture).Width()));
  STEP(PicHeight = HM2PixY(Required(picture).Height()));
  InFirstRegion = true;
  InLine = false;
  for (y = 0; y < PicHeight; ++y) {
    for (x = 0; x < PicWidth; ++x) {
      pixel = graphics.GetPixel(hdc, x, y);
      if (pixel != transparentColor && !InLine) {
        InLine = true;
        StartLineX = x;
      } else if (pixel == transparentColor && InLine) {
        InLine = false;
        LineRegion = graphics.CreateRectRgn(StartLineX, y, x, y + 1);
        if (InFirstRegion) {
          FullRegion = LineRegion;
          InFirstRegion = false;
        } else {
          graphics.CombineRgn(FullRegion, FullRegion, LineRegion, kRgnOr);
          graphics.DeleteObject(LineRegion);
        }
      }
    }
  }
  CleanupIPictureDispToHdc();
  return here.result = FullRegion;
}

void IPictureDispUtilities::ReportVariables(Reporter& to) const {
  to.List("mOldBmpHandle, mIPictureDispHdc, mCalledAlready, tPicConv, IGuid", mOldBmpHandle, mIPictureDispHdc,
          mCalledAlready, tPicConv, IGuid);
}

}  // namespace strandline
