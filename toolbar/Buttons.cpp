// How the strip is painted.

#include "toolbar/Buttons.h"

#include "drawing/BorderDrawingFunctions.h"
#include "drawing/LoadImageFromResource.h"
#include "drawing/ToolbarUtilities.h"
#include "foundation/CommonLogger.h"
#include "platform/convert.h"
#include "platform/platform.h"

namespace strandline {

namespace {

constexpr ModuleInfo kModuleInfo{u"Buttons", nullptr};
constexpr ModuleFile kModule{&kModuleInfo};

constexpr Integer kCells = ToolbarUtilities::kCells;
constexpr Integer kLumivexCell = 14;
constexpr Integer kManualCell = 15;
constexpr Integer kAdCell = 16;

constexpr Long kLookRaised = 0;
constexpr Long kLookPlain = 2;
constexpr Long kLumivexOn = 1;
constexpr Long kLumivexOff = 2;

Long WidthOf(const ButtonRect& cell) { return ToLong(std::int64_t{cell.right} - cell.left); }
Long HeightOf(const ButtonRect& cell) { return ToLong(std::int64_t{cell.bottom} - cell.top); }

AdvertisementsFactoryInterface& Factory() { return Required(ToolbarUtilities::variables.adFactory); }

}  // namespace

Buttons::Buttons() {
  AddRef();  // a running procedure holds its object, and nobody else does yet
  Class_Initialize();
  Unhold();
}

void Buttons::Class_Initialize() {
  METHOD(void, u"Class_Initialize");
  STEP(mPainter = New<Painter>());
  STEP(mMenu = New<Menu>());
}

void Buttons::Initialize(Long parentHwnd, Long hWnd, Boolean needAdvert) {
  METHOD(void, u"Initialize", parentHwnd, hWnd, needAdvert);
  Log(u"Buttons Initialize");
  mHwnd = hWnd;
  UpdateButtonRects();
  if (needAdvert) {
    const ButtonRect& cell = mButtons(kAdCell - 1);
    STEP(mAdvert = Factory().Create(mHwnd, cell.left, cell.top, WidthOf(cell), HeightOf(cell)));
  }
  PaintIcons(parentHwnd, false, true);
}

// The background is taken before the cells are read, and the cells before the ad panel is told its place. Where the
// cells can't be read, nothing is put down.
void Buttons::PaintIcons(Long activeDocHwnd, Boolean updateRects, Boolean forceRepaint) {
  METHOD(void, u"PaintIcons", activeDocHwnd, updateRects, forceRepaint);
  Log(u"PaintIcons");
  Long hdc = platform::Graphics().GetDC(mHwnd);
  Integer i = 0;
  REPORTS(hdc, i);
  if (!forceRepaint) STEP(forceRepaint = Required(mPainter).NeedRepaint(activeDocHwnd, mHwnd));
  if (forceRepaint) {
    Log(Joined(u"Need a repaint for ", Hex{activeDocHwnd}));
    STEP(Required(mPainter).Initialize(activeDocHwnd, mHwnd, hdc));
    if (!UpdateButtonRects()) goto release;
    if (mAdvert) {
      const ButtonRect& cell = mButtons(kAdCell - 1);
      STEP(Factory().AfterPaint(mHwnd, cell.left, cell.top, WidthOf(cell), HeightOf(cell)));
      STEP(Required(mAdvert).Initialize(mHwnd));
    }
    for (i = 1; i <= kCells; ++i) PaintIcon(i, 0, Unread(Boolean{false}));
  } else if (updateRects) {
    if (!UpdateButtonRects()) goto release;
  }
  UpdateLumivexIcon();
  STEP(Required(mPainter).BltBuffer(hdc, false));
release:
  platform::Graphics().ReleaseDC(mHwnd, hdc);
}

// The pair only validates the window; the frame goes down through a context of its own, so that the whole strip is
// renewed whatever part of it had become invalid.
void Buttons::HandlePaint(Long parentHwnd, Boolean updateRects) {
  METHOD(void, u"HandlePaint", parentHwnd, updateRects);
  PaintStruct paint;
  REPORTS(paint);
  platform::Graphics().BeginPaint(mHwnd, paint);
  PaintIcons(parentHwnd, updateRects, false);
  platform::Graphics().EndPaint(mHwnd, paint);
}

void Buttons::Redraw(Long parentHwnd) {
  METHOD(void, u"Redraw", parentHwnd);
  PaintIcons(parentHwnd, true, true);
}

Variant Buttons::NeedToPaintBackground(Long parentHwnd) {
  METHOD(Variant, u"NeedToPaintBackground", parentHwnd);
  STEP(here.result = Required(mPainter).NeedRepaint(parentHwnd, mHwnd));
  return here.Leave();
}

void Buttons::PaintIcon(Integer index, Long destHdc, Boolean& forceEraseBackground) {
  METHOD(void, u"PaintIcon", index, destHdc, forceEraseBackground);
  Picture pic;
  Long handle = 0;
  Long width = 0;
  Long height = 0;
  REPORTS(pic, handle, width, height);
  if (index == 0) return;
  CONDITION(isDropped, mButtons(index - 1).isPriorityDropped);
  if (isDropped) return;
  const ButtonRect& cell = mButtons(index - 1);
  if (mAdvert && index == kAdCell) {
    STEP(Required(mAdvert).getPictureStats(handle, width, height));
    if (handle != 0) {
      STEP(Required(mPainter).PaintDCTransparently(handle, ToInteger(cell.left), ToInteger(cell.top),
                                                   ToInteger(WidthOf(cell)), ToInteger(HeightOf(cell)),
                                                   ToInteger(width), ToInteger(height), destHdc, forceEraseBackground));
      return;
    }
  }
  // Loaded anew for each paint: the painter uses the bitmap up.
  pic = LoadImageFromResource::LoadResGifJpgBmp(ToolbarUtilities::pictureIndex(index, false), 0);
  STEP(handle = Required(pic).Handle());
  STEP(width = ToolbarUtilities::HM2PixX(Required(pic).Width()));
  STEP(height = ToolbarUtilities::HM2PixY(Required(pic).Height()));
  if (index == kLumivexCell && mLumivexButtonState == kLumivexOff) forceEraseBackground = true;
  STEP(Required(mPainter).PaintIconTransparently(
      handle, ToInteger(cell.left), ToInteger(cell.top), ToInteger(WidthOf(cell)), ToInteger(HeightOf(cell)),
      ToInteger(width), ToInteger(height), destHdc, forceEraseBackground || index == kManualCell));
  if (!forceEraseBackground && stickyButton(index)) ToggleBorder(destHdc, kLumivexCell, mLumivexButtonState);
}

void Buttons::PaintAd(Boolean forceEraseBackground) {
  METHOD(void, u"PaintAd", forceEraseBackground);
  Log(Joined(u"PaintAd forceEraseBackground", forceEraseBackground));
  Long hdc = platform::Graphics().GetDC(mHwnd);
  REPORTS(hdc);
  PaintIcon(kAdCell, hdc, forceEraseBackground);
  platform::Graphics().ReleaseDC(mHwnd, hdc);
}

void Buttons::ToggleBorder(Long hdc, Integer index, Long state) {
  METHOD(void, u"ToggleBorder", hdc, index, state);
  Log(Joined(u"ToggleBorder index=", index, u", state=", state));
  if (index == 0) return;
  if (state == kLookPlain) {
    PaintIcon(index, hdc, Unread(Boolean{true}));
    return;
  }
  Long cmd = state == kLookRaised ? BorderDrawingFunctions::kEdgeRaised : BorderDrawingFunctions::kEdgeSunken;
  REPORTS(cmd);
  STEP(const ButtonRect& cell = mButtons(index - 1);
       BorderDrawingFunctions::DrawBorder(hdc, cell.left, cell.top, cell.right, cell.bottom, cmd));
}

// The sunken edge of the Lumivex cell is part of the frame; hover and press edges never are.
void Buttons::UpdateLumivexIcon() {
  METHOD(void, u"UpdateLumivexIcon");
  Long hdc = 0;
  REPORTS(hdc);
  CONDITION(enabled, ToolbarUtilities::variables.productState.Get("lumivexEnabled").ToBoolean());
  if (enabled) {
    Log(u"UpdateLumivexIcon enabled = true");
    mLumivexButtonState = kLumivexOn;
  } else {
    Log(u"UpdateLumivexIcon enabled = false");
    mLumivexButtonState = kLumivexOff;
  }
  STEP(ToggleBorder(Required(mPainter).backbuffer(), kLumivexCell, mLumivexButtonState));
  hdc = platform::Graphics().GetDC(mHwnd);
  ToggleBorder(hdc, kLumivexCell, mLumivexButtonState);
  platform::Graphics().ReleaseDC(mHwnd, hdc);
}

void Buttons::Terminated() {
  {
    METHOD(void, u"Class_Terminate");
    Log(u"Buttons terminated");
  }
  mPainter = nullptr;
  mMenu = nullptr;
  mAdvert = nullptr;
}

void Buttons::ReportVariables(Reporter& to) const {
  to.Tell(u"mButtons", u" (User Defined Type Array)");
  for (Long i = mButtons.Lower(); i <= mButtons.Upper(); ++i) {
    const ButtonRect& cell = mButtons(i);
    const String name = Concat({u"mButtons(", DecimalText(i), u")"});
    to.Tell(Concat({name, u".isPriorityDropped"}), cell.isPriorityDropped);
    to.Tell(Concat({name, u".left"}), cell.left);
    to.Tell(Concat({name, u".top"}), cell.top);
    to.Tell(Concat({name, u".right"}), cell.right);
    to.Tell(Concat({name, u".bottom"}), cell.bottom);
  }
  to.List("mHighlightedButton, mButtonState, mHwnd, mLastUpIndex, mBoundingRect, mIsHandling, mLumivexButtonState",
          mHighlightedButton, mButtonState, mHwnd, mLastUpIndex, mBoundingRect, mIsHandling, mLumivexButtonState);
  to.Tell(u"mPainter", Variant(mPainter));
  to.Tell(u"mMenu", Variant(mMenu));
  to.Tell(u"mAdvert", Variant(mAdvert));
}

}  // namespace strandline
