// What the strip hands on to its ad panel.

#include "toolbar/Buttons.h"

namespace strandline {

namespace {

constexpr ModuleInfo kModuleInfo{u"Buttons", nullptr};
constexpr ModuleFile kModule{&kModuleInfo, 4000};

}  // namespace

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
