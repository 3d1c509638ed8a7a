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
      : TypedFace(kAbout, target), mStub(target), mPoint(*this, DIID___AdvertisementsCallbackStub, [this](bool any) {
          any ? mStub.Advise(this) : mStub.Unadvise(this);
        }) {}

  STDMETHODIMP NewAdvertisementsEvent(VARIANT_BOOL abortedAfterFiveSeconds) override {
    return Guard([&] { mStub.NewAdvertisementsEvent(abortedAfterFiveSeconds != VARIANT_FALSE); });
  }
  STDMETHODIMP ValueChanged(BSTR* key, BSTR* value) override {
    return Guard([&] {
      RequirePointers(key, value);
      mStub.ValueChanged(win32::FromBstr(*key), win32::FromBstr(*value));
    });
  }

  STDMETHODIMP EnumConnectionPoints(IEnumConnectionPoints** points) override { return EnumeratePoint(mPoint, points); }
  STDMETHODIMP FindConnectionPoint(REFIID id, IConnectionPoint** point) override {
    return FindPoint(mPoint, id, DIID___AdvertisementsCallbackStub, point);
  }

 private:
  enum Event : DISPID {
    kValueChanged = 1,
    kNewAdvertisementsChanged = 2,
    kValueChangedWithAds = 3,
    kDownloadedNewAds = 4
  };

  ~CallbackStubFace() override { mStub.Unadvise(this); }

  void ValueChanged(const String& key, const String& value) override {
    Quietly([&] {
      EventArguments<2> arguments;
      arguments.ByReference(0, key);
      arguments.ByReference(1, value);
      mPoint.Raise(kValueChanged, arguments.Sent());
    });
  }
  void NewAdvertisementsChanged(Boolean abortedAfterFiveSeconds) override {
    Quietly([&] {
      EventArguments<1> arguments;
      arguments.ByValue(0, abortedAfterFiveSeconds);
      mPoint.Raise(kNewAdvertisementsChanged, arguments.Sent());
    });
  }
  void ValueChangedWithAds(const Array<Boolean>& ads, const String& value) override {
    Quietly([&] {
      EventArguments<2> arguments;
      arguments.ByReference(0, ads);
      arguments.ByReference(1, value);
      mPoint.Raise(kValueChangedWithAds, arguments.Sent());
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
