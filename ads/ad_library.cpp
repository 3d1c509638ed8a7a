// Reading the ads out of the library file. The first ad's picture is the library's own image 116, so that there is an
// ad even without a file; all others are numbered from 2 on in the file, each with the string of its number.

#include <algorithm>
#include <string>

#include "ads/AdvertisementsFactory.h"
#include "drawing/LoadImageFromResource.h"
#include "foundation/CommonLogger.h"
#include "platform/convert.h"
#include "platform/platform.h"
#include "wordaccess/CommonPropertyFunctions.h"

namespace strandline {

namespace {

constexpr ModuleInfo kModuleInfo{u"AdvertisementsFactory", nullptr};
constexpr ModuleFile kModule{&kModuleInfo, 2000};

constexpr Integer kBuiltInPicture = 116;
constexpr std::size_t kSettingsBuffer = 512;  // characters

// The elements from 0 to `last`.
AdArray FirstOf(const AdArray& ads, Integer last) {
  AdArray first(0, last);
  for (Long i = 0; i <= last; ++i) first(i) = ads(i);
  return first;
}

}  // namespace

void AdvertisementsFactory::LoadAds(Long hModule, Integer& uboundImages, Date currentDate) {
  METHOD(void, u"LoadAds", hModule, uboundImages, currentDate);
  AdArray ads;
  Integer count = 0;
  Long i = 0;
  Ref<::strandline::Advertisement> ad;
  Picture image;
  String settings;
  Ref<Dictionary> listenMap;
  Integer left = 0;
  Integer top = 0;
  REPORTS(ads, count, i, ad, image, settings, listenMap, left, top);
  Log(u"LoadAds");
  ResetClientsNeedToUpdateList();
  STEP(ads.Size(0, uboundImages));
  mWidth = 0;
  mHeight = 0;
  // The ads that may show at all today, without gaps, and the size of the largest.
  for (i = 0; i <= uboundImages; ++i) {
    STEP(ad = New<::strandline::Advertisement>());
    if (i == 0) {
      image = LoadImageFromResource::LoadResGifJpgBmp(kBuiltInPicture, 0);
    } else {
      STEP(image = LoadImageFromResource::LoadResGifJpgBmp(ToInteger(i + 1), hModule));
    }
    if (!image) continue;
    STEP(settings = getString(hModule, ToInteger(i + 1)));
    CONDITION(isKept, Required(ad).Initialize(image, settings, currentDate));
    if (!isKept) continue;
    STEP(mWidth = MAX(mWidth, ToInteger(Required(ad).width())));
    STEP(mHeight = MAX(mHeight, ToInteger(Required(ad).height())));
    STEP(ads(count) = ad);
    STEP(count = ToInteger(count + 1));
  }
  if (count - 1 < uboundImages && count > 0) {
    STEP(uboundImages = ToInteger(count - 1));
    STEP(ads = FirstOf(ads, uboundImages));
  }
  listenMap = CommonPropertyFunctions::Dictionary();
  // All ads are cut from the middle of the background at one size, so that any two can be blended.
  for (i = 0; i <= uboundImages; ++i) {
    STEP(left = RoundToInteger((static_cast<Double>(mMaxWidth) - mWidth) / 2));
    STEP(top = RoundToInteger((static_cast<Double>(mMaxHeight) - mHeight) / 2));
    STEP(Required(ads(i)).InitBackBuffer(mHdc, left, top, mWidth, mHeight));
    STEP(AddListenKeys(ToInteger(i), Required(ads(i)).listenKeys(), listenMap, uboundImages));
  }
  STEP(mAlphaBlender = New<AlphaBlender>());
  STEP(Required(mAlphaBlender).Initialize(mWidth, mHeight));
  STEP(mAds = ads);
  mListenKeys = listenMap;
}

String AdvertisementsFactory::getString(Long hModule, Integer id) {
  METHOD(String, u"getString", hModule, id);
  STEP(std::u16string buffer(platform::Modules().LoadStringA(hModule, id, kSettingsBuffer).View()); buffer += u'\0';
       buffer.resize(std::max(buffer.size(), kSettingsBuffer), u' '); here.result = buffer);
  return here.Leave();
}

// Nobody unsubscribes: the store goes on telling of a value that the ads of a former load named.
void AdvertisementsFactory::AddListenKeys(Integer adId, const Array<String>& listenKeys,
                                          const Ref<Dictionary>& listenMap, Integer uboundAds) {
  METHOD(void, u"AddListenKeys", adId, listenKeys, listenMap, uboundAds);
  String key;
  Array<Boolean> ads;
  REPORTS(key, ads);
  for (const String& each : listenKeys.Elements()) {
    key = each;
    STEP(CommonPropertyFunctions::properties().Call("AddListener", key, Object(mCallbackToMe)));
    CONDITION(isKnown, Required(listenMap).Exists(key));
    if (isKnown) {
      STEP(ads = Required(listenMap).Item(key).ToArray<Boolean>());
      STEP(ads(adId) = true);
      STEP(Required(listenMap).SetItem(key, ads));
    } else {
      STEP(ads.Size(0, uboundAds));
      STEP(ads(adId) = true);
      STEP(Required(listenMap).Add(key, ads));
    }
  }
}

Integer AdvertisementsFactory::MAX(Integer val1, Integer val2) {
  METHOD(Integer, u"MAX", val1, val2);
  return here.result = val1 > val2 ? val1 : val2;
}

}  // namespace strandline
