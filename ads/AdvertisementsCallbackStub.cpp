#include "ads/AdvertisementsCallbackStub.h"

#include "foundation/CommonLogger.h"

namespace strandline {

namespace {

constexpr ModuleInfo kModuleInfo{u"AdvertisementsCallbackStub", nullptr};
constexpr ModuleFile kModule{&kModuleInfo};

void RequireCount(const Arguments& arguments, std::size_t count) {
  if (arguments.positional.size() != count || !arguments.named.empty()) Raise(errors::kWrongNumberOfArguments);
}

}  // namespace

void AdvertisementsCallbackStub::NewAdvertisementsEvent(Boolean abortedAfterFiveSeconds) {
  METHOD(void, u"NewAdvertisementsEvent", abortedAfterFiveSeconds);
  Log(u"NewAdvertisementsEvent");
  STEP(mSinks.Raise([&](Sink& sink) { sink.NewAdvertisementsChanged(abortedAfterFiveSeconds); }));
}

void AdvertisementsCallbackStub::ValueChanged(const String& key, const String& value) {
  METHOD(void, u"ValueChanged", key, value);
  Log(u"ValueChanged event");
  STEP(mSinks.Raise([&](Sink& sink) { sink.ValueChanged(key, value); }));
}

void AdvertisementsCallbackStub::ValueChangedWithAds(const Array<Boolean>& ads, const String& value) {
  METHOD(void, u"ValueChangedWithAds", ads, value);
  STEP(mSinks.Raise([&](Sink& sink) { sink.ValueChangedWithAds(ads, value); }));
}

void AdvertisementsCallbackStub::DownloadedNewAds() {
  METHOD(void, u"DownloadedNewAds");
  STEP(mSinks.Raise([](Sink& sink) { sink.DownloadedNewAds(); }));
}

Variant AdvertisementsCallbackStub::Invoke(Use use, Name member, const Arguments& arguments) {
  if (use == Use::kLet) Raise(errors::kNoSuchMember);
  if (member == Name("NewAdvertisementsEvent")) {
    RequireCount(arguments, 1);
    NewAdvertisementsEvent(arguments.positional[0].ToBoolean());
  } else if (member == Name("ValueChanged")) {
    RequireCount(arguments, 2);
    ValueChanged(arguments.positional[0].ToText(), arguments.positional[1].ToText());
  } else {
    Raise(errors::kNoSuchMember);
  }
  return {};
}

}  // namespace strandline
