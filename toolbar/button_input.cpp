// How the strip answers the mouse and the ad panel's timer. What follows the pointer from cell to cell, and the click,
// aren't built yet: the strip then takes no mouse message for itself.

#include "platform/platform.h"
#include "toolbar/Buttons.h"

namespace strandline {

namespace {

constexpr ModuleInfo kModuleInfo{u"Buttons", nullptr};
constexpr ModuleFile kModule{&kModuleInfo, 2000};
constexpr Integer kLumivexCell = 14;
constexpr Long kLookPlain = 2;
constexpr Long kLumivexOn = 1;

}  // namespace

Boolean Buttons::HandleMouseMove(Boolean lbuttonDown, Long x, Long y, Boolean hasChangedParentWindows) {
  METHOD(Boolean, u"HandleMouseMove", lbuttonDown, x, y, hasChangedParentWindows);
  return here.Leave();
}

Boolean Buttons::HandleButtonDown(Long x, Long y) {
  METHOD(Boolean, u"HandleButtonDown", x, y);
  return here.Leave();
}

Boolean Buttons::HandleButtonUp() {
  METHOD(Boolean, u"HandleButtonUp");
  return here.Leave();
}

void Buttons::removeButtonHighlighting(Long& hdc) {
  METHOD(void, u"removeButtonHighlighting", hdc);
  Integer oldHighlightIndex = 0;
  REPORTS(oldHighlightIndex);
  oldHighlightIndex = mHighlightedButton;
  mHighlightedButton = 0;
  mButtonState = 0;
  if (stickyButton(oldHighlightIndex)) return;
  if (hdc == 0) {
    hdc = platform::Graphics().GetDC(mHwnd);
    ToggleBorder(hdc, oldHighlightIndex, kLookPlain);
    platform::Graphics().ReleaseDC(mHwnd, hdc);
  } else {
    ToggleBorder(hdc, oldHighlightIndex, kLookPlain);
  }
}

void Buttons::TimerTick(Boolean isMsgAdvert) {
  METHOD(void, u"TimerTick", isMsgAdvert);
  if (isMsgAdvert && mAdvert) mAdvert->TimerTick(mHwnd, *this);
}

Boolean Buttons::stickyButton(Integer index) {
  METHOD(Boolean, u"stickyButton", index);
  return here.result = index == kLumivexCell && mLumivexButtonState == kLumivexOn;
}

// The cells aren't read again.
void Buttons::SwitchListener(Long hWnd) {
  METHOD(void, u"SwitchListener", hWnd);
  mHwnd = hWnd;
  if (mAdvert) mAdvert->SwitchListener(mHwnd);
  PaintAd(true);
}

void Buttons::ClickOnAd() {
  METHOD(void, u"ClickOnAd");
  if (mAdvert) mAdvert->ClickOnAd();
}

void Buttons::ValueChanged(const Array<Boolean>& ads) {
  METHOD(void, u"ValueChanged", ads);
  if (mAdvert) mAdvert->ValueChanged(ads);
}

void Buttons::ReprimeTimerCycle() {
  METHOD(void, u"ReprimeTimerCycle");
  if (mAdvert) mAdvert->ReprimeTimerCycle(true);
}

}  // namespace strandline
