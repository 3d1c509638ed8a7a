#pragma once

// The one owner of all ads: their pictures, the strip's background behind them, their common size, and which values
// they depend on. It loads them from the library file at the first paint of the first strip, and again when it is told
// of a new file. Every strip gets a panel from it; a panel asks for each ad by its index, and takes a new set of ads
// over when its own fade is done. An index is a position among the ads that may show at all now, not a number of the
// file's.
//
// Outsiders (the store, the download worker) are handed a stub to call; it may outlive the factory.

#include "ads/Advertisement.h"
#include "ads/AdvertisementsCallbackStub.h"
#include "ads/AlphaBlender.h"
#include "drawing/advertisements_factory_interface.h"
#include "platform/dictionary.h"

namespace strandline {

// Ads by index, from 0; never sized before the first load.
class AdArray : public Array<Ref<Advertisement>> {
 public:
  using Array::Array;
  // For a trace or a dump.
  operator Variant() const {
    if (!IsSized()) return Array<Variant>();
    Array<Variant> objects(Lower(), Upper());
    for (Long i = Lower(); i <= Upper(); ++i) objects(i) = (*this)(i);
    return objects;
  }
};

class AdvertisementsFactory final : public AdvertisementsFactoryInterface {
 public:
  AdvertisementsFactory() : mFromStub(*this) {}

  // callbackToMain: the stub by which the toolbars hear of changes; 13 inside for another object.
  void Initialize(const Object& callbackToMain) override;
  Ref<AdPanel> Create(Long hWnd, Long left, Long top, Long width, Long height) override;
  // Does anything only the first time: what the window shows at this place now is every ad's background.
  void AfterPaint(Long hWnd, Long left, Long top, Long width, Long height) override;

  // --- for the panels and the blend cache ---

  // True once for each window and load, then also the common size (pixels) and the highest index, -1 for no ads.
  Boolean UpdateToNewAds(Long hWnd, Long& width, Long& height, Integer& ads_ubound);
  // Raises 9 inside for an index that isn't there, and gives Nothing.
  Ref<::strandline::Advertisement> Advertisement(Integer index);
  // As AlphaBlender's; nothing before the first load.
  void AlphaBlend(Long& targetHdc, Integer& previousIndex, Integer& currentIndex, Single& percentage);
  void removeUpdatedWindow(Long hWnd);

  // The stub that outsiders are handed.
  const Ref<AdvertisementsCallbackStub>& callbackToMe() const { return mCallbackToMe; }

  void ReportVariables(Reporter& to) const override;

 private:
  friend struct AdsAccess;  // the tests' way to the operations below

  // The factory's ear on its own stub.
  struct FromStub final : AdvertisementsCallbackStub::Sink {
    explicit FromStub(AdvertisementsFactory& hearer) : factory(hearer) {}
    void ValueChanged(String& key, String& value) override { factory.mCallbackToMe_ValueChanged(key, value); }
    void NewAdvertisementsChanged(Boolean abortedAfterFiveSeconds) override {
      factory.mCallbackToMe_NewAdvertisementsChanged(abortedAfterFiveSeconds);
    }
    AdvertisementsFactory& factory;
  };

  // --- the background ---
  void InitializeDC(Long hWnd, Long left, Long top, Long width, Long height);
  void DeleteMyDC();
  Long CopyDC(Long hWnd, Long left, Long top, Long width, Long height);

  // --- refresh ---
  void InitializeDefaultAd();
  void CheckForNewAds(Boolean abortAfterFiveSeconds);
  void AskForNewAds(Boolean& abortAfterFiveSeconds);
  void mCallbackToMe_NewAdvertisementsChanged(Boolean abortedAfterFiveSeconds);
  void mCallbackToMe_ValueChanged(String& key, String& value);
  void mListenKeyStub_NewAdvertisementsChanged(Boolean abortedAfterFiveSeconds);
  void mListenKeyStub_ValueChanged(String& key, String& value);
  void NewAdvertisementsEvent(Boolean abortedAfterFiveSeconds);
  void ValueChanged(String& key, String& value);

  // --- the library ---
  Boolean isEmptyArrayAdvertisement(const AdArray& testArray);
  Boolean needsUpdate(Long hWnd);
  void ResetClientsNeedToUpdateList();
  // uboundImages: the highest index; written, when fewer ads are left.
  void LoadAds(Long hModule, Integer& uboundImages, Date currentDate);
  // The text, a NUL, and blanks to 512 characters; the NUL at once when the module has no such string.
  String getString(Long hModule, Integer id);
  void AddListenKeys(Integer adId, const Array<String>& listenKeys, const Ref<Dictionary>& listenMap,
                     Integer uboundAds);
  Integer MAX(Integer val1, Integer val2);

  void Terminated() override;

  AdArray mAds;
  Integer mWidth = 0;           // of the widest, pixels
  Integer mHeight = 0;          // of the tallest, pixels
  Ref<Dictionary> mListenKeys;  // by a value's name, for each ad whether its filter asks for it
  Ref<AlphaBlender> mAlphaBlender;
  Ref<Dictionary> mUpdatedAds;  // the windows that have taken the ads over
  Long mHdc = 0;                // the background
  Long mOldHandle = 0;          // the bitmap that its own displaced
  Long mMaxWidth = 0;           // of the panel at that time, pixels
  Long mMaxHeight = 0;
  Object mDownloadWorker;  // made on first use
  Boolean mInitialized = false;
  String mLastSignature;  // of the library taken last, good or bad
  Ref<AdvertisementsCallbackStub> mCallbackToMain;
  Ref<AdvertisementsCallbackStub> mCallbackToMe;

  FromStub mFromStub;
};

}  // namespace strandline
