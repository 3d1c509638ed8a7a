#pragma once

// The ad panel of one strip: which ads may show in this window, which is on screen, when the next comes, and the fade
// between them. The ads themselves are shared and stay with the factory; what the strip paints from is a context of
// this panel's own.
//
// All time comes from one timer of the window. At rest it has the period of the ad on screen; during a fade, which has
// ten steps, 100 ms. A rotation starts by itself only in the active document, and once begun it goes on whichever
// document is active, until a tick finds no other ad to show.

#include "ads/AdPanel.h"
#include "foundation/procedure.h"

namespace strandline {

class Advertisement;

class Advertisements final : public AdPanel {
 public:
  // Comes again at each forced repaint: how a window whose panel was made before the ads were loaded finds them. The
  // document that is active now counts as this window's.
  void Initialize(Long hWnd) override;
  void getPictureStats(Long& hdc, Long& width, Long& height) override;
  void TimerTick(Long hWnd, AdStrip& theButtons) override;
  // Ends a fade that is under way. Until the next Initialize the former window is the one that the factory knows, and
  // whose timer goes with the panel.
  void SwitchListener(Long hWnd) override;
  // The web page of the ad on screen; during a fade, of the one that comes.
  void ClickOnAd() override;
  void ValueChanged(const Array<Boolean>& ads) override;
  void ReprimeTimerCycle(Boolean forceRestart) override;

  void ReportVariables(Reporter& to) const override;

 private:
  friend struct AdsAccess;  // the tests' way to the operations below

  // --- which ads may show (ads/Advertisements.cpp) ---
  void UpdateToNewAds();
  void InitializeBackBuffer();
  Boolean isEmptyArrayBoolean(const Array<Boolean>& testArray);
  // An ad that the array doesn't name drops out; an array never sized names all, and is written so.
  void ReinitializeVisibleArray(Array<Boolean>& visibleUpdateArray);
  void CopyDC(Long& destHdc, Long srcHdc);
  void DeleteMyDC();
  void Terminated() override;

  // --- rotation and fades (ads/ad_rotation.cpp) ---
  void TickStartFade(Long hWnd, AdStrip& theButtons);
  void IncrementFade(AdStrip& theButtons);
  void TickEndFade(Long hWnd, AdStrip& theButtons);
  void PrimeTimerCycle(Long hWnd, Boolean forceRestart);
  Boolean ImActiveDocument();
  Ref<Advertisement> currentAd();

  Integer mFadeTick = 0;         // 0 at rest, else the step of the fade that was drawn last
  Array<Boolean> mVisibleArray;  // from 0: whether an ad may show here
  Integer mCurrentIndex = 0;     // the ad on screen, or the one that a fade goes to
  Integer mPreviousIndex = 0;    // the ad that a fade leaves
  Long mHwnd = 0;
  Long mTargetHdc = 0;  // what the strip paints from; 0 until there are ads
  Long mOldHandle = 0;  // the bitmap that its own displaced
  Boolean mMoreThanOneAdIsVisible = false;
  Long mWidth = 0;  // of all ads, pixels
  Long mHeight = 0;
  Boolean mCyclingAds = false;
  Long mDocId = 0;
  Integer mAds_ubound = 0;  // -1 for no ads
};

}  // namespace strandline
