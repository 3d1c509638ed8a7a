#include "drawing/Painter.h"

#include "drawing/ToolbarUtilities.h"
#include "foundation/CommonLogger.h"
#include "platform/convert.h"
#include "platform/platform.h"
#include "wordaccess/CommonWordInteractionFunctions.h"
#include "wordaccess/CommonWordWindowFunctions.h"

namespace strandline {

namespace {

constexpr ModuleInfo kModuleInfo{u"Painter", nullptr};
constexpr ModuleFile kModule{&kModuleInfo};

// PRF_NONCLIENT, PRF_CLIENT and PRF_ERASEBKGND: the window draws itself, frame and all.
constexpr Long kPrintWholeWindow = 14;

}  // namespace

Boolean Painter::NeedRepaint(Long activeDocHwnd, Long hWnd) {
  METHOD(Boolean, u"NeedRepaint", activeDocHwnd, hWnd);
  Long width = 0;
  Long height = 0;
  REPORTS(width, height);
  // Word 2000 alone; 2002 captures from the screen too, but without this guard.
  if (CommonWordInteractionFunctions::isWord2000() && platform::Windows().GetForegroundWindow() != activeDocHwnd) {
    return here.Leave();
  }
  GetWindowExtents(hWnd, width, height);
  return here.result = width != mWidth || height != mHeight;
}

// Only the first step of a capture from the screen releases anything: the other contexts are overwritten, and what an
// earlier Initialize put there is let go. Every toolbar does this once or twice in its life.
// odd: capture-loss
// odd: paint-inside-the-capture
void Painter::Initialize(Long activeDocHwnd, Long hWnd, Long hdc) {
  METHOD(void, u"Initialize", activeDocHwnd, hWnd, hdc);
  Graphics& graphics = platform::Graphics();
  Long buffer = 0;
  Long oldHandle = 0;
  REPORTS(buffer, oldHandle);
  Log(Joined(u"Initialize for ", Hex{hWnd}), CommonLogger::kNoteworthy);
  GetWindowExtents(hWnd, mWidth, mHeight);
  mUpdateAll = true;
  buffer = ToolbarUtilities::cachedBuffer(mWidth, mHeight, 0);
  if (buffer == 0 && CommonWordInteractionFunctions::isWord2002OrEarlier()) {
    // The window's own pixels are the only clean background that these versions give, so nothing may cover the window
    // meanwhile. The paint comes back through the hook, to contexts that are new and still 1 by 1; what the paint
    // leaves on the window is captured.
    backbuffer(graphics.CreateCompatibleDC(hdc));
    mBackground = graphics.CreateCompatibleDC(hdc);
    CommonWordWindowFunctions::ForceForegroundWindow(activeDocHwnd);
    platform::Windows().SendMessageA(hWnd, wm::kPaint, 0, 0);
    mBackbufferOldHandle = graphics.SelectObject(backbuffer(), graphics.CreateCompatibleBitmap(hdc, mWidth, mHeight));
    mBackgroundOldHandle = graphics.SelectObject(mBackground, graphics.CreateCompatibleBitmap(hdc, mWidth, mHeight));
    graphics.BitBlt(mBackbuffer, 0, 0, mWidth, mHeight, hdc, 0, 0, rop::kSrcCopy);
    graphics.BitBlt(mBackground, 0, 0, mWidth, mHeight, hdc, 0, 0, rop::kSrcCopy);
  }
  if (buffer == 0) {
    oldHandle = CopyDC(buffer, hdc);
    if (CommonWordInteractionFunctions::isWord2002OrEarlier()) {
      ToolbarUtilities::cachedBuffer(mWidth, mHeight, oldHandle, buffer);
      mHdc = backbuffer();
      return;
    }
    PaintToolbarBackground(hWnd, buffer);
    ToolbarUtilities::cachedBuffer(mWidth, mHeight, oldHandle, buffer);
  }
  mBackbufferOldHandle = CopyDC(mBackbuffer, buffer);
  mBackgroundOldHandle = CopyDC(mBackground, buffer);
  mHdc = backbuffer();
}

Long Painter::CopyDC(Long& destDC, Long srcDC) {
  METHOD(Long, u"CopyDC", destDC, srcDC);
  Graphics& graphics = platform::Graphics();
  destDC = graphics.CreateCompatibleDC(srcDC);
  here.result = graphics.SelectObject(destDC, graphics.CreateCompatibleBitmap(srcDC, mWidth, mHeight));
  graphics.BitBlt(destDC, 0, 0, mWidth, mHeight, srcDC, 0, 0, rop::kSrcCopy);
  return here.Leave();
}

void Painter::PaintToolbarBackground(Long hWnd, Long cachedBuffer) {
  METHOD(void, u"PaintToolbarBackground", hWnd, cachedBuffer);
  platform::Windows().SendMessageA(hWnd, wm::kPrint, cachedBuffer, kPrintWholeWindow);
}

Long Painter::backbuffer() {
  METHOD(Long, u"backbuffer[Get]");
  return here.result = mBackbuffer;
}

void Painter::backbuffer(Long hdc) {
  METHOD(void, u"backbuffer[Let]", hdc);
  Graphics& graphics = platform::Graphics();
  if (mBackbuffer != 0) {
    graphics.DeleteObject(graphics.SelectObject(mBackbuffer, mBackbufferOldHandle));
    graphics.DeleteDC(mBackbuffer);
  }
  mBackbuffer = hdc;
}

void Painter::background(Long hdc) {
  METHOD(void, u"background[Let]", hdc);
  Graphics& graphics = platform::Graphics();
  if (mBackground != 0) {
    graphics.DeleteObject(graphics.SelectObject(mBackground, mBackgroundOldHandle));
    graphics.DeleteDC(mBackground);
  }
  mBackground = hdc;
}

void Painter::BltBuffer(Long destHdc, Boolean forceUpdate) {
  METHOD(void, u"BltBuffer", destHdc, forceUpdate);
  const Rect& update = mUpdateRect;
  Log(u"BltBuffer");
  if (forceUpdate || mUpdateAll) {
    platform::Graphics().BitBlt(destHdc, 0, 0, mWidth, mHeight, mHdc, 0, 0, rop::kSrcCopy);
  } else {
    platform::Graphics().BitBlt(destHdc, update.left, update.top, update.right - update.left,
                                update.bottom - update.top, mHdc, update.left, update.top, rop::kSrcCopy);
  }
}

void Painter::GetWindowExtents(Long hWnd, Long& width, Long& height) {
  METHOD(void, u"GetWindowExtents", hWnd, width, height);
  Rect rectangle;
  REPORTS(rectangle);
  platform::Windows().GetWindowRect(hWnd, rectangle);
  STEP(width = ToLong(std::int64_t{rectangle.right} - rectangle.left));
  STEP(height = ToLong(std::int64_t{rectangle.bottom} - rectangle.top));
}

void Painter::Terminated() {
  METHOD(void, u"Class_Terminate");
  backbuffer(0);
  background(0);
}

void Painter::ReportVariables(Reporter& to) const {
  to.List(
      "mWidth, mHeight, mUpdateRect, mUpdateAll, mBackbuffer, mBackbufferOldHandle, mBackground, mBackgroundOldHandle, "
      "mHdc",
      mWidth, mHeight, mUpdateRect, mUpdateAll, mBackbuffer, mBackbufferOldHandle, mBackground, mBackgroundOldHandle,
      mHdc);
}

}  // namespace strandline
