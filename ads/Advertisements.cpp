// Taking over the ads, and which of them may show in this window.

#include "ads/Advertisements.h"

#include "ads/ad_factory.h"
#include "ads/ad_timer.h"
#include "foundation/CommonLogger.h"
#include "platform/convert.h"
#include "platform/platform.h"
#include "wordaccess/CommonPropertyFunctions.h"
#include "wordaccess/CommonWordInteractionFunctions.h"

namespace strandline {

namespace {

constexpr ModuleInfo kModuleInfo{u"Advertisements", nullptr};
constexpr ModuleFile kModule{&kModuleInfo};

}  // namespace

void Advertisements::Initialize(Long hWnd) {
  METHOD(void, u"Initialize", hWnd);
  Log(Joined(u"Advertisements initialize for ", Hex{hWnd}));
  mHwnd = hWnd;
  here.IgnoreErrors();
  STEP(mDocId = RoundToLong(NumberFromText(CommonPropertyFunctions::docId(
           CommonWordInteractionFunctions::Application().Get("ActiveDocument").ToObject()))));
  UpdateToNewAds();
}

void Advertisements::UpdateToNewAds() {
  METHOD(void, u"UpdateToNewAds");
  Array<Boolean> allAds;  // never sized
  REPORTS(allAds);
  CONDITION(isNew, AdFactory().UpdateToNewAds(mHwnd, mWidth, mHeight, mAds_ubound));
  if (!isNew) return;
  Log(Joined(u"Updated to ", Long{mAds_ubound} + 1, u" new ads of size ", mWidth, u" x ", mHeight));
  InitializeBackBuffer();
  STEP(mVisibleArray.Size(0, mAds_ubound));
  ReinitializeVisibleArray(allAds);
}

// The index stays: after a load the panel shows whichever ad now stands there.
void Advertisements::InitializeBackBuffer() {
  METHOD(void, u"InitializeBackBuffer");
  STEP(CopyDC(mTargetHdc, Required(currentAd()).hdc()));
  STEP(
      platform::Graphics().BitBlt(mTargetHdc, 0, 0, mWidth, mHeight, Required(currentAd()).hdc(), 0, 0, rop::kSrcCopy));
}

void Advertisements::CopyDC(Long& destHdc, Long srcHdc) {
  METHOD(void, u"CopyDC", destHdc, srcHdc);
  Graphics& graphics = platform::Graphics();
  if (destHdc != 0) {
    graphics.DeleteObject(graphics.SelectObject(destHdc, graphics.CreateCompatibleBitmap(srcHdc, mWidth, mHeight)));
  } else {
    destHdc = graphics.CreateCompatibleDC(srcHdc);
    mOldHandle = graphics.SelectObject(destHdc, graphics.CreateCompatibleBitmap(srcHdc, mWidth, mHeight));
  }
}

void Advertisements::DeleteMyDC() {
  METHOD(void, u"DeleteMyDC");
  Graphics& graphics = platform::Graphics();
  if (mTargetHdc == 0) return;
  graphics.DeleteObject(graphics.SelectObject(mTargetHdc, mOldHandle));
  graphics.DeleteDC(mTargetHdc);
}

Boolean Advertisements::isEmptyArrayBoolean(const Array<Boolean>& testArray) {
  METHOD(Boolean, u"isEmptyArrayBoolean", testArray);
  return here.result = !testArray.IsSized();
}

// After a value has changed only the ads that depend on it are asked, and all others leave the rotation of this window
// until the next full update: a reader whose answer an ad is about sees that ad. The ad on screen stays, even one that
// may no longer show, until the rotation goes on.
// odd: unfiltered-drop
void Advertisements::ReinitializeVisibleArray(Array<Boolean>& visibleUpdateArray) {
  METHOD(void, u"ReinitializeVisibleArray", visibleUpdateArray);
  Long last = -1;
  Long i = 0;
  REPORTS(last, i);
  mMoreThanOneAdIsVisible = false;
  if (mAds_ubound == -1) return;
  if (isEmptyArrayBoolean(visibleUpdateArray)) {
    STEP(visibleUpdateArray.Size(0, mAds_ubound));
    for (i = 0; i <= mAds_ubound; ++i) STEP(visibleUpdateArray(i) = true);
  }
  STEP(last = visibleUpdateArray.Upper());
  for (i = 0; i <= last; ++i) {
    CONDITION(isNamed, visibleUpdateArray(i));
    if (isNamed) {
      STEP(mVisibleArray(i) = Required(AdFactory().Advertisement(ToInteger(i))).visible());
      CONDITION(isVisible, mVisibleArray(i));
      if (isVisible) break;
    } else {
      STEP(mVisibleArray(i) = false);
    }
  }
  for (++i; i <= last; ++i) {
    CONDITION(isNamed, visibleUpdateArray(i));
    if (isNamed) {
      STEP(mVisibleArray(i) = Required(AdFactory().Advertisement(ToInteger(i))).visible());
      CONDITION(isVisible, mVisibleArray(i));
      if (isVisible) mMoreThanOneAdIsVisible = true;
    } else {
      STEP(mVisibleArray(i) = false);
    }
  }
  ReprimeTimerCycle(false);
}

void Advertisements::ValueChanged(const Array<Boolean>& ads) {
  METHOD(void, u"ValueChanged", ads);
  Array<Boolean> visibleUpdateArray;
  REPORTS(visibleUpdateArray);
  STEP(visibleUpdateArray = ads);
  ReinitializeVisibleArray(visibleUpdateArray);
}

void Advertisements::getPictureStats(Long& hdc, Long& width, Long& height) {
  METHOD(void, u"getPictureStats", hdc, width, height);
  hdc = mTargetHdc;
  width = mWidth;
  height = mHeight;
}

void Advertisements::ClickOnAd() {
  METHOD(void, u"ClickOnAd");
  STEP(Required(currentAd()).ClickOnAd());
}

Ref<Advertisement> Advertisements::currentAd() {
  METHOD(Ref<Advertisement>, u"currentAd[Get]");
  STEP(here.result = AdFactory().Advertisement(mCurrentIndex));
  return here.Leave();
}

void Advertisements::Terminated() {
  METHOD(void, u"Class_Terminate");
  platform::Windows().KillTimer(mHwnd, kAdTimer);
  DeleteMyDC();
  if (ToolbarUtilities::variables.adFactory) STEP(AdFactory().removeUpdatedWindow(mHwnd));
  Log(u"Advertisements terminated");
}

void Advertisements::ReportVariables(Reporter& to) const {
  to.List(
      "mFadeTick, mVisibleArray, mCurrentIndex, mPreviousIndex, mHwnd, mTargetHdc, mOldHandle, "
      "mMoreThanOneAdIsVisible, mWidth, mHeight, mCyclingAds, mDocId, mAds_ubound",
      mFadeTick, mVisibleArray, mCurrentIndex, mPreviousIndex, mHwnd, mTargetHdc, mOldHandle, mMoreThanOneAdIsVisible,
      mWidth, mHeight, mCyclingAds, mDocId, mAds_ubound);
}

}  // namespace strandline
