#include "ads/AdvertisementsFactory.h"

#include "ads/Advertisements.h"
#include "foundation/procedure.h"

namespace strandline {

namespace {
constexpr ModuleInfo kModuleInfo{u"AdvertisementsFactory", nullptr};
constexpr ModuleFile kModule{&kModuleInfo};
}  // namespace

void AdvertisementsFactory::Initialize(const Object& callbackToMain) {
  METHOD(void, u"Initialize", callbackToMain);
  mCallbackToMain = callbackToMain;
}

Ref<Advertisements> AdvertisementsFactory::Create(Long hWnd, Long left, Long top, Long width, Long height) {
  METHOD(Ref<Advertisements>, u"Create", hWnd, left, top, width, height);
  return here.Leave();
}

void AdvertisementsFactory::AfterPaint(Long hWnd, Long left, Long top, Long width, Long height) {
  METHOD(void, u"AfterPaint", hWnd, left, top, width, height);
}

void AdvertisementsFactory::ReportVariables(Reporter& to) const { to.List("mCallbackToMain", mCallbackToMain); }

}  // namespace strandline
