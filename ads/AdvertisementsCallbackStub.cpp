#include "ads/AdvertisementsCallbackStub.h"

#include "foundation/CommonLogger.h"
#include "foundation/received_arguments.h"

namespace strandline {

namespace {

constexpr ModuleInfo kModuleInfo{u"AdvertisementsCallbackStub", nullptr};
constexpr ModuleFile kModule{&kModuleInfo};

constexpr Parameter kAborted[] = {{"abortedAfterFiveSeconds", ParameterKind::kBoolean}};
constexpr Parameter kChanged[] = {{"key", ParameterKind::kString}, {"value", ParameterKind::kString}};

}  // namespace

void AdvertisementsCallbackStub::NewAdvertisementsEvent(Boolean abortedAfterFiveSeconds) {
  METHOD(void, u"NewAdvertisementsEvent", abortedAfterFiveSeconds);
  Log(u"NewAdvertisementsEvent");
  STEP(mSinks.Raise([&](Sink& sink) { sink.NewAdvertisementsChanged(abortedAfterFiveSeconds); }));
}

void AdvertisementsCallbackStub::ValueChanged(String& key, String& value) {
  METHOD(void, u"ValueChanged", key, value);
  Log(u"ValueChanged event");
  STEP(mSinks.Raise([&](Sink& sink) { sink.ValueChanged(key, value); }));
}

void AdvertisementsCallbackStub::ValueChangedWithAds(Array<Boolean>& ads, String& value) {
  METHOD(void, u"ValueChangedWithAds", ads, value);
  STEP(mSinks.Raise([&](Sink& sink) { sink.ValueChangedWithAds(ads, value); }));
}

void AdvertisementsCallbackStub::DownloadedNewAds() {
  METHOD(void, u"DownloadedNewAds");
  STEP(mSinks.Raise([](Sink& sink) { sink.DownloadedNewAds(); }));
}

Variant AdvertisementsCallbackStub::Invoke(Use use, Name member, const Arguments& arguments) {
  const bool isNews = member == Name("NewAdvertisementsEvent");
  if (use == Use::kLet || (!isNews && member != Name("ValueChanged"))) Raise(errors::kNoSuchMember);
  ReceivedArguments received(isNews ? std::span<const Parameter>(kAborted) : kChanged, arguments);
  if (isNews) {
    NewAdvertisementsEvent(received[0].Flag());
  } else {
    ValueChanged(received[0].Text(), received[1].Text());
  }
  received.GiveBack();
  return {};
}

}  // namespace strandline
