#include "addin/RibbonEvents.h"
#include "server/connections.h"
#include "server/event_arguments.h"
#include "server/faces.h"
#include "server/references.h"
//
#include "strandline_com.h"

namespace strandline::server {

namespace {

const PublicClass kAbout{CLSID_RibbonEvents, IID__RibbonEvents, &DIID___RibbonEvents, L"Strandline.RibbonEvents"};

class RibbonEventsFace final : public TypedFace<_RibbonEvents, IConnectionPointContainer>, private RibbonEvents::Sink {
 public:
  explicit RibbonEventsFace(RibbonEvents& target)
      : TypedFace(kAbout, target),
        mRelay(target),
        mPoint(*this, kAbout, [this](bool any) { any ? mRelay.Advise(this) : mRelay.Unadvise(this); }) {}

  STDMETHODIMP getToolbarIconBits(short* index, SAFEARRAY** result) override {
    return Guard([&] {
      RequirePointers(result);
      *result = nullptr;
      RequirePointers(index);
      // A number is the client's own variable all the way.
      *result = win32::ToVARIANT(Variant(mRelay.getToolbarIconBits(*index))).parray;
    });
  }
  STDMETHODIMP run(BSTR* command) override {
    return Guard([&] {
      RequirePointers(command);
      Reference commandHere(command);
      mRelay.run(commandHere.value);
      commandHere.WriteBack();
    });
  }

  STDMETHODIMP EnumConnectionPoints(IEnumConnectionPoints** points) override { return mPoint.Enumerate(points); }
  STDMETHODIMP FindConnectionPoint(REFIID id, IConnectionPoint** point) override { return mPoint.Find(id, point); }

 private:
  enum Event : DISPID { kGetToolbarIconBits = 1, kRun = 2 };

  ~RibbonEventsFace() override { mRelay.Unadvise(this); }

  void getToolbarIconBits(Integer& index, Array<Byte>& bits) override {
    Quietly([&] {
      EventArguments<2> arguments;
      arguments.ByReference(0, index);
      arguments.ByReference(1, bits);
      mPoint.Raise(kGetToolbarIconBits, arguments.Sent());
      arguments.TakeBack(0, index);
      arguments.TakeBack(1, bits);
    });
  }
  void run(String& command) override {
    Quietly([&] {
      EventArguments<1> arguments;
      arguments.ByReference(0, command);
      mPoint.Raise(kRun, arguments.Sent());
      arguments.TakeBack(0, command);
    });
  }

  RibbonEvents& mRelay;
  ConnectionPoint mPoint;
};

}  // namespace

win32::Face* NewRibbonEventsFace(RibbonEvents& target) { return new RibbonEventsFace(target); }
bool RibbonEventsHasInterface(REFIID id) { return HasInterface<IConnectionPointContainer>(kAbout, id); }

}  // namespace strandline::server
