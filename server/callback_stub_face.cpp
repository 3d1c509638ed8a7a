#include "ads/AdvertisementsCallbackStub.h"
#include "server/connections.h"
#include "server/event_arguments.h"
#include "server/faces.h"
#include "server/references.h"
//
#include "strandline_com.h"

namespace strandline::server {

namespace {

const PublicClass kAbout{CLSID_AdvertisementsCallbackStub, IID__AdvertisementsCallbackStub,
                         &DIID___AdvertisementsCallbackStub, L"Strandline.AdvertisementsCallbackStub"};

class CallbackStubFace final : public TypedFace<_AdvertisementsCallbackStub, IConnectionPointContainer>,
                               private AdvertisementsCallbackStub::Sink {
 public:
  explicit CallbackStubFace(AdvertisementsCallbackStub& target)
      : TypedFace(kAbout, target),
        mStub(target),
        mPoint(*this, kAbout, [this](bool any) { any ? mStub.Advise(this) : mStub.Unadvise(this); }) {}

  STDMETHODIMP NewAdvertisementsEvent(VARIANT_BOOL abortedAfterFiveSeconds) override {
    return Guard([&] { mStub.NewAdvertisementsEvent(abortedAfterFiveSeconds != VARIANT_FALSE); });
  }
  STDMETHODIMP ValueChanged(BSTR* key, BSTR* value) override {
    return Guard([&] {
      RequirePointers(key, value);
      Reference keyHere(key);
      Reference valueHere(value);
      mStub.ValueChanged(keyHere.value, valueHere.value);
      keyHere.WriteBack();
      valueHere.WriteBack();
    });
  }

  STDMETHODIMP EnumConnectionPoints(IEnumConnectionPoints** points) override { return mPoint.Enumerate(points); }
  STDMETHODIMP FindConnectionPoint(REFIID id, IConnectionPoint** point) override { return mPoint.Find(id, point); }

 private:
  enum Event : DISPID {
    kValueChanged = 1,
    kNewAdvertisementsChanged = 2,
    kValueChangedWithAds = 3,
    kDownloadedNewAds = 4
  };

  ~CallbackStubFace() override { mStub.Unadvise(this); }

  void ValueChanged(String& key, String& value) override {
    Quietly([&] {
      EventArguments<2> arguments;
      arguments.ByReference(0, key);
      arguments.ByReference(1, value);
      mPoint.Raise(kValueChanged, arguments.Sent());
      arguments.TakeBack(0, key);
      arguments.TakeBack(1, value);
    });
  }
  void NewAdvertisementsChanged(Boolean abortedAfterFiveSeconds) override {
    Quietly([&] {
      EventArguments<1> arguments;
      arguments.ByValue(0, abortedAfterFiveSeconds);
      mPoint.Raise(kNewAdvertisementsChanged, arguments.Sent());
    });
  }
  void ValueChangedWithAds(Array<Boolean>& ads, String& value) override {
    Quietly([&] {
      EventArguments<2> arguments;
      arguments.ByReference(0, ads);
      arguments.ByReference(1, value);
      mPoint.Raise(kValueChangedWithAds, arguments.Sent());
      arguments.TakeBack(0, ads);
      arguments.TakeBack(1, value);
    });
  }
  void DownloadedNewAds() override {
    Quietly([&] { mPoint.Raise(kDownloadedNewAds, {}); });
  }

  AdvertisementsCallbackStub& mStub;
  ConnectionPoint mPoint;
};

}  // namespace

win32::Face* NewCallbackStubFace(AdvertisementsCallbackStub& target) { return new CallbackStubFace(target); }

}  // namespace strandline::server
