// What brings a new ad library into use, and how a changed value reaches the panels. The library file is only mapped
// for its resources, and nothing is read of it before it has passed its verification.

#include "ads/AdvertisementsFactory.h"
#include "drawing/ToolbarUtilities.h"
#include "foundation/CommonLogger.h"
#include "platform/dates.h"
#include "platform/platform.h"
#include "wordaccess/CommonPropertyFunctions.h"

namespace strandline {

using CommonPropertyFunctions::CommonAppPath;

namespace {

constexpr ModuleInfo kModuleInfo{u"AdvertisementsFactory", nullptr};
constexpr ModuleFile kModule{&kModuleInfo, 1000};

const String kDownloadComponent = u"StrandlineDownload.Main2";
constexpr TextView kLibraryName = u"Vistrel.dll";

String LibraryPath() { return Concat({CommonAppPath(), kLibraryName}); }

}  // namespace

void AdvertisementsFactory::InitializeDefaultAd() {
  METHOD(void, u"InitializeDefaultAd");
  Log(u"InitializeDefaultAd");
  NewAdvertisementsEvent(false);
}

// The look for a newer library is switched off here, at this one point: a user gets the library that is on the disk.
// odd: no-look
void AdvertisementsFactory::CheckForNewAds(Boolean abortAfterFiveSeconds) {
  METHOD(void, u"CheckForNewAds", abortAfterFiveSeconds);
}

// What CheckForNewAds is to do once it is switched on. The worker fetches in the background and reports to the stub;
// after the first paint it is asked for a quick look only, which must not hold things up.
void AdvertisementsFactory::AskForNewAds(Boolean& abortAfterFiveSeconds) {
  METHOD(void, u"AskForNewAds", abortAfterFiveSeconds);
  if (mDownloadWorker.IsNothing()) {
    STEP(mDownloadWorker = platform::Components().CreateObject(kDownloadComponent));
  }
  STEP(mDownloadWorker.Call("CheckForNewAdvertisements", Object(mCallbackToMe),
                            ToolbarUtilities::variables.productState.Get("toolbarDownloadURL"), LibraryPath(),
                            Variant::ByRef(abortAfterFiveSeconds)));
}

void AdvertisementsFactory::mCallbackToMe_NewAdvertisementsChanged(Boolean abortedAfterFiveSeconds) {
  METHOD(void, u"mCallbackToMe_NewAdvertisementsChanged", abortedAfterFiveSeconds);
  NewAdvertisementsEvent(abortedAfterFiveSeconds);
}

void AdvertisementsFactory::mCallbackToMe_ValueChanged(String& key, String& value) {
  METHOD(void, u"mCallbackToMe_ValueChanged", key, value);
  ValueChanged(key, value);
}

// A second stub, for the store alone, is provided for; none is bound, and both kinds of news come by the first.
void AdvertisementsFactory::mListenKeyStub_NewAdvertisementsChanged(Boolean abortedAfterFiveSeconds) {
  METHOD(void, u"mListenKeyStub_NewAdvertisementsChanged", abortedAfterFiveSeconds);
  NewAdvertisementsEvent(abortedAfterFiveSeconds);
}

void AdvertisementsFactory::mListenKeyStub_ValueChanged(String& key, String& value) {
  METHOD(void, u"mListenKeyStub_ValueChanged", key, value);
  ValueChanged(key, value);
}

// A bad file is remembered by its signature like a good one, so that it is looked at once only.
void AdvertisementsFactory::NewAdvertisementsEvent(Boolean abortedAfterFiveSeconds) {
  METHOD(void, u"NewAdvertisementsEvent", abortedAfterFiveSeconds);
  Date currentDate;
  Long hModule = 0;
  Object verifier;
  String signature;
  Integer uboundImages = 0;
  REPORTS(currentDate, hModule, verifier, signature, uboundImages);
  Log(u"NewAdvertisementsEvent");
  STEP(currentDate = dates::WithoutTime(platform::RunTime().Now()));
  STEP(hModule = platform::Modules().LoadLibraryA(LibraryPath()));
  if (hModule == 0) {
    Log(u"Vistrel.dll is missing", CommonLogger::kFailure);
    LoadAds(0, uboundImages, currentDate);
  } else {
    STEP(verifier = platform::Components().CreateObject(kDownloadComponent).Call("CreateDSAVerify").ToObject());
    STEP(uboundImages = verifier.Call("verifyDLL", LibraryPath(), Variant::ByRef(signature)).ToInteger());
    if (uboundImages < 0) uboundImages = 0;
    if (signature == mLastSignature) {
      Log(u"NewAdvertisementsEvent: skip processing same ads");
      if (abortedAfterFiveSeconds) CheckForNewAds(false);
    } else {
      Log(u"NewAdvertisementsEvent: downloaded updated ads");
      mLastSignature = signature;
      if (uboundImages > 0) {
        LoadAds(hModule, uboundImages, currentDate);
        if (abortedAfterFiveSeconds) CheckForNewAds(false);
      } else {
        Log(u"Failed verification of image DLL", CommonLogger::kFailure);
        LoadAds(0, uboundImages, currentDate);
      }
    }
  }
  // Pictures and strings are copies by now.
  platform::Modules().FreeLibrary(hModule);
  Log(u"Finished NewAdvertisementsEvent");
}

// `value` goes no further than the toolbars: each ad reads its values anew.
void AdvertisementsFactory::ValueChanged(String& key, String& value) {
  METHOD(void, u"ValueChanged", key, value);
  Array<Boolean> ads;
  REPORTS(ads);
  STEP(ads = Required(mListenKeys).Item(key).ToArray<Boolean>());
  STEP(Required(mCallbackToMain).ValueChangedWithAds(ads, value));
}

}  // namespace strandline
