// When the next ad comes, and the fade to it.

#include "ads/Advertisement.h"
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
constexpr ModuleFile kModule{&kModuleInfo, 1000};

constexpr Long kFadeTick = 100;  // milliseconds
constexpr Integer kFadeSteps = 10;

}  // namespace

void Advertisements::TimerTick(Long hWnd, AdStrip& theButtons) {
  METHOD(void, u"TimerTick", hWnd, theButtons);
  if (mFadeTick == 0) {
    TickStartFade(hWnd, theButtons);
  } else if (mFadeTick == kFadeSteps - 1) {
    TickEndFade(hWnd, theButtons);
  } else {
    IncrementFade(theButtons);
  }
}

// The time of the ad on screen is over. This is also where a window takes over ads that were loaded meanwhile. Ads come
// in their order and round again; where no other may show, the timer stays off. The search is over after one round in
// any case: a set of fewer ads may have left the start behind its end, where no search would meet it.
void Advertisements::TickStartFade(Long hWnd, AdStrip& theButtons) {
  METHOD(void, u"TickStartFade", hWnd, theButtons);
  Integer start = 0;
  Long passed = 0;
  REPORTS(start, passed);
  platform::Windows().KillTimer(hWnd, kAdTimer);
  UpdateToNewAds();
  if (mAds_ubound < 1) return;
  mPreviousIndex = mCurrentIndex;
  start = mCurrentIndex;
  for (;; ++passed) {
    mCurrentIndex = static_cast<Integer>((Long{mCurrentIndex} + 1) % (Long{mAds_ubound} + 1));
    if (mCurrentIndex == start || passed > mAds_ubound) {
      mCyclingAds = false;
      return;
    }
    CONDITION(mayShow, mVisibleArray(mCurrentIndex));
    if (mayShow) break;
  }
  platform::Windows().SetTimer(hWnd, kAdTimer, kFadeTick, nullptr);
  mFadeTick = 0;
  IncrementFade(theButtons);
}

// A step that fails is passed over without a word: the next one is on its way.
void Advertisements::IncrementFade(AdStrip& theButtons) {
  METHOD(void, u"IncrementFade", theButtons);
  Single percentage = 0;
  REPORTS(percentage);
  here.EndQuietly();
  STEP(mFadeTick = ToInteger(mFadeTick + 1));
  percentage = static_cast<Single>(mFadeTick / static_cast<Double>(kFadeSteps));
  STEP(AdFactory().AlphaBlend(mTargetHdc, mPreviousIndex, mCurrentIndex, percentage));
  STEP(theButtons.PaintAd(percentage >= 1));
}

// odd: rotation-goes-on
void Advertisements::TickEndFade(Long hWnd, AdStrip& theButtons) {
  METHOD(void, u"TickEndFade", hWnd, theButtons);
  IncrementFade(theButtons);
  mFadeTick = 0;
  PrimeTimerCycle(hWnd, true);
}

void Advertisements::SwitchListener(Long hWnd) {
  METHOD(void, u"SwitchListener", hWnd);
  mFadeTick = 0;
  STEP(Single whole = 1; AdFactory().AlphaBlend(mTargetHdc, mPreviousIndex, mCurrentIndex, whole));
  Log(u"Switch listener");
  PrimeTimerCycle(hWnd, true);
}

void Advertisements::ReprimeTimerCycle(Boolean forceRestart) {
  METHOD(void, u"ReprimeTimerCycle", forceRestart);
  if (mCyclingAds) {
    Log(u"Downloaded new ads: Ad cycle already primed");
  } else {
    Log(u"Downloaded new ads: Priming ad cycle");
  }
  PrimeTimerCycle(mHwnd, forceRestart);
}

// A rotation that runs isn't disturbed unless it is forced.
void Advertisements::PrimeTimerCycle(Long hWnd, Boolean forceRestart) {
  METHOD(void, u"PrimeTimerCycle", hWnd, forceRestart);
  Boolean isActive = false;
  REPORTS(isActive);
  if (!forceRestart && mCyclingAds) return;
  platform::Windows().KillTimer(hWnd, kAdTimer);
  isActive = ImActiveDocument();
  mCyclingAds = forceRestart || (isActive && mMoreThanOneAdIsVisible);
  if (mCyclingAds) {
    STEP(platform::Windows().SetTimer(hWnd, kAdTimer, Required(currentAd()).Duration(), nullptr));
  }
}

// A document without an identity (0) is never the active one.
Boolean Advertisements::ImActiveDocument() {
  METHOD(Boolean, u"ImActiveDocument[Get]");
  CONDITION(noDocument, CommonWordInteractionFunctions::Documents().Get("count").ToLong() == 0);
  if (noDocument) {
    here.result = true;
  } else {
    here.IgnoreErrors();
    STEP(here.result = NumberFromText(CommonPropertyFunctions::docId(
                           CommonWordInteractionFunctions::Application().Get("ActiveDocument").ToObject())) == mDocId);
  }
  Log(Joined(u"ImActiveDocument for [", Hex{mDocId}, u"] = ", here.result));
  return here.Leave();
}

}  // namespace strandline
