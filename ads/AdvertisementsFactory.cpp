// The factory's life, the background that all ads share, and what the panels ask of it.

#include "ads/AdvertisementsFactory.h"

#include "ads/Advertisements.h"
#include "foundation/CommonLogger.h"
#include "platform/convert.h"
#include "platform/platform.h"
#include "wordaccess/CommonPropertyFunctions.h"

namespace strandline {

namespace {

constexpr ModuleInfo kModuleInfo{u"AdvertisementsFactory", nullptr};
constexpr ModuleFile kModule{&kModuleInfo};

}  // namespace

void AdvertisementsFactory::Initialize(const Object& callbackToMain) {
  METHOD(void, u"Initialize", callbackToMain);
  STEP(auto* const stub = dynamic_cast<AdvertisementsCallbackStub*>(callbackToMain.Target());
       if (!stub && !callbackToMain.IsNothing()) Raise(errors::kTypeMismatch);
       mCallbackToMain = Ref<AdvertisementsCallbackStub>(stub));
  STEP(mLastSignature = u"__UNINITIALIZED__");
  if (mCallbackToMe) mCallbackToMe->Unadvise(&mFromStub);
  STEP(mCallbackToMe = New<AdvertisementsCallbackStub>());
  STEP(Required(mCallbackToMe).Advise(&mFromStub));
}

Ref<AdPanel> AdvertisementsFactory::Create(Long hWnd, Long left, Long top, Long width, Long height) {
  METHOD(Ref<AdPanel>, u"Create", hWnd, left, top, width, height);
  Ref<Advertisements> panel;
  REPORTS(panel);
  if (mHdc == 0) InitializeDC(hWnd, left, top, width, height);
  STEP(panel = New<Advertisements>());
  STEP(Required(panel).Initialize(hWnd));
  here.result = panel;
  return here.Leave();
}

// The background of Create was what the window showed before its strip was first painted.
void AdvertisementsFactory::AfterPaint(Long hWnd, Long left, Long top, Long width, Long height) {
  METHOD(void, u"AfterPaint", hWnd, left, top, width, height);
  if (mInitialized) return;
  mInitialized = true;
  DeleteMyDC();
  InitializeDC(hWnd, left, top, width, height);
  InitializeDefaultAd();
  CheckForNewAds(true);
}

void AdvertisementsFactory::InitializeDC(Long hWnd, Long left, Long top, Long width, Long height) {
  METHOD(void, u"InitializeDC", hWnd, left, top, width, height);
  mHdc = CopyDC(hWnd, left, top, width, height);
  mMaxWidth = width;
  mMaxHeight = height;
}

void AdvertisementsFactory::DeleteMyDC() {
  METHOD(void, u"DeleteMyDC");
  Graphics& graphics = platform::Graphics();
  if (mHdc == 0) return;
  graphics.DeleteObject(graphics.SelectObject(mHdc, mOldHandle));
  graphics.DeleteDC(mHdc);
  mHdc = 0;
  mOldHandle = 0;
}

Long AdvertisementsFactory::CopyDC(Long hWnd, Long left, Long top, Long width, Long height) {
  METHOD(Long, u"CopyDC", hWnd, left, top, width, height);
  Graphics& graphics = platform::Graphics();
  Long hdc = 0;
  Long displaced = 0;
  REPORTS(hdc, displaced);
  hdc = graphics.GetDC(hWnd);
  here.result = graphics.CreateCompatibleDC(hdc);
  displaced = graphics.SelectObject(here.result, graphics.CreateCompatibleBitmap(hdc, width, height));
  if (mOldHandle == 0) {
    mOldHandle = displaced;
  } else {
    graphics.DeleteObject(displaced);
  }
  graphics.BitBlt(here.result, 0, 0, width, height, hdc, left, top, rop::kSrcCopy);
  graphics.ReleaseDC(hWnd, hdc);
  return here.Leave();
}

Boolean AdvertisementsFactory::UpdateToNewAds(Long hWnd, Long& width, Long& height, Integer& ads_ubound) {
  METHOD(Boolean, u"UpdateToNewAds", hWnd, width, height, ads_ubound);
  Log(u"UpdateToNewAds");
  if (!mInitialized) return here.result = false;
  if (!needsUpdate(hWnd)) return here.result = false;
  width = mWidth;
  height = mHeight;
  if (isEmptyArrayAdvertisement(mAds)) {
    ads_ubound = -1;
  } else {
    STEP(ads_ubound = ToInteger(mAds.Upper()));
  }
  return here.result = true;
}

Boolean AdvertisementsFactory::needsUpdate(Long hWnd) {
  METHOD(Boolean, u"needsUpdate", hWnd);
  CONDITION(isUpdated, Required(mUpdatedAds).Exists(hWnd));
  if (isUpdated) return here.result = false;
  STEP(Required(mUpdatedAds).Add(hWnd, hWnd));
  return here.result = true;
}

void AdvertisementsFactory::removeUpdatedWindow(Long hWnd) {
  METHOD(void, u"removeUpdatedWindow", hWnd);
  if (!mUpdatedAds) return;
  CONDITION(isUpdated, mUpdatedAds->Exists(hWnd));
  if (isUpdated) STEP(mUpdatedAds->Remove(hWnd));
}

void AdvertisementsFactory::ResetClientsNeedToUpdateList() {
  METHOD(void, u"ResetClientsNeedToUpdateList");
  mUpdatedAds = CommonPropertyFunctions::Dictionary();
  STEP(Required(mCallbackToMain).DownloadedNewAds());
}

Ref<::strandline::Advertisement> AdvertisementsFactory::Advertisement(Integer index) {
  METHOD(Ref<::strandline::Advertisement>, u"Advertisement[Get]", index);
  STEP(here.result = mAds(index));
  return here.Leave();
}

void AdvertisementsFactory::AlphaBlend(Long& targetHdc, Integer& previousIndex, Integer& currentIndex,
                                       Single& percentage) {
  METHOD(void, u"AlphaBlend", targetHdc, previousIndex, currentIndex, percentage);
  if (mAlphaBlender) mAlphaBlender->AlphaBlend(targetHdc, previousIndex, currentIndex, percentage);
}

Boolean AdvertisementsFactory::isEmptyArrayAdvertisement(const AdArray& testArray) {
  METHOD(Boolean, u"isEmptyArrayAdvertisement", testArray);
  return here.result = !testArray.IsSized();
}

void AdvertisementsFactory::Terminated() {
  {
    METHOD(void, u"Class_Terminate");
    Log(u"AdfactoryTerminate");
    mDownloadWorker = nullptr;
    // Whoever holds the stub may go on calling it; nobody here hears.
    if (mCallbackToMe) mCallbackToMe->Unadvise(&mFromStub);
    mCallbackToMe = nullptr;
    if (mListenKeys) {
      STEP(mListenKeys->RemoveAll());
      STEP(Required(mUpdatedAds).RemoveAll());
    }
    DeleteMyDC();
  }
  mAds.Erase();
  mAlphaBlender = nullptr;
}

void AdvertisementsFactory::ReportVariables(Reporter& to) const {
  to.List("mAds, mWidth, mHeight", mAds, mWidth, mHeight);
  to.Tell(u"mListenKeys", Object(mListenKeys));
  to.Tell(u"mAlphaBlender", Variant(mAlphaBlender));
  to.Tell(u"mUpdatedAds", Object(mUpdatedAds));
  to.List("mHdc, mOldHandle, mMaxWidth, mMaxHeight, mDownloadWorker, mInitialized, mLastSignature", mHdc, mOldHandle,
          mMaxWidth, mMaxHeight, mDownloadWorker, mInitialized, mLastSignature);
  to.Tell(u"mCallbackToMain", Variant(mCallbackToMain));
  to.Tell(u"mCallbackToMe", Variant(mCallbackToMe));
}

}  // namespace strandline
