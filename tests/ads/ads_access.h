#pragma once

// The ads' own operations and fields, for tests.

#include "ads/Advertisements.h"
#include "ads/AdvertisementsFactory.h"

namespace strandline {

struct AdsAccess {
  static AdArray& Ads(AdvertisementsFactory& f) { return f.mAds; }
  static Ref<Dictionary>& ListenKeys(AdvertisementsFactory& f) { return f.mListenKeys; }
  static Ref<Dictionary>& UpdatedAds(AdvertisementsFactory& f) { return f.mUpdatedAds; }
  static Ref<AlphaBlender>& Blender(AdvertisementsFactory& f) { return f.mAlphaBlender; }
  static void LoadAds(AdvertisementsFactory& f, Long hModule, Integer& ubound, Date date) {
    f.LoadAds(hModule, ubound, date);
  }
  static String getString(AdvertisementsFactory& f, Long hModule, Integer id) { return f.getString(hModule, id); }
  static Integer MAX(AdvertisementsFactory& f, Integer a, Integer b) { return f.MAX(a, b); }
  static void NewAdvertisementsEvent(AdvertisementsFactory& f, Boolean aborted) { f.NewAdvertisementsEvent(aborted); }
  static void CheckForNewAds(AdvertisementsFactory& f, Boolean abort) { f.CheckForNewAds(abort); }
  static void AskForNewAds(AdvertisementsFactory& f, Boolean& abort) { f.AskForNewAds(abort); }
  static void mListenKeyStub_NewAdvertisementsChanged(AdvertisementsFactory& f, Boolean aborted) {
    f.mListenKeyStub_NewAdvertisementsChanged(aborted);
  }
  static void mListenKeyStub_ValueChanged(AdvertisementsFactory& f, String& key, String& value) {
    f.mListenKeyStub_ValueChanged(key, value);
  }

  static void UpdateToNewAds(Advertisements& panel) { panel.UpdateToNewAds(); }
  static void ReinitializeVisibleArray(Advertisements& panel, Array<Boolean>& ads) {
    panel.ReinitializeVisibleArray(ads);
  }
  static void PrimeTimerCycle(Advertisements& panel, Long hWnd, Boolean force) { panel.PrimeTimerCycle(hWnd, force); }
  static Boolean ImActiveDocument(Advertisements& panel) { return panel.ImActiveDocument(); }
  static Integer& CurrentIndex(Advertisements& panel) { return panel.mCurrentIndex; }

  static const Ref<Dictionary>& Cache(AlphaBlender& blender) { return blender.mCache; }
  static String hash(AlphaBlender& blender, Integer previous, Integer current, Single percentage) {
    return blender.hash(previous, current, percentage);
  }
};

}  // namespace strandline
