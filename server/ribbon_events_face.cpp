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
        mPoint(*this, DIID___RibbonEvents, [this](bool any) { any ? mRelay.Advise(this) : mRelay.Unadvise(this); }) {}

  STDMETHODIMP getToolbarIconBits(short* index, SAFEARRAY** result) override {
    return Guard([&] {
      RequirePointers(result);
      *result = nullptr;
      RequirePointers(index);
      *result = win32::ToVARIANT(Variant(mRelay.getToolbarIconBits(*index))).parray;
    });
  }
  STDMETHODIMP run(BSTR* command) override {
    return Guard([&] {
      RequirePointers(command);
      const Reference commandHere(command);
      mRelay.run(commandHere.value);
    });
  }

  STDMETHODIMP EnumConnectionPoints(IEnumConnectionPoints** points) override { return EnumeratePoint(mPoint, points); }
  STDMETHODIMP FindConnectionPoint(REFIID id, IConnectionPoint** point) override {
    return FindPoint(mPoint, id, DIID___RibbonEvents, point);
  }

 private:
  enum Event : DISPID { kGetToolbarIconBits = 1, kRun = 2 };

  ~RibbonEventsFace() override { mRelay.Unadvise(this); }

  void getToolbarIconBits(Integer index, Array<Byte>& bits) override {
    Quietly([&] {
      EventArguments<2> arguments;
      arguments.ByReference(0, index);
      arguments.ByReference(1, bits);
      mPoint.Raise(kGetToolbarIconBits, arguments.Sent());
      const Variant answer = arguments.Value(1);
      if (const auto* bytes = answer.If<Variant::Shared<Byte>>()) bits = **bytes;
    });
  }
  void run(const String& command) override {
    Quietly([&] {
      EventArguments<1> arguments;
      arguments.ByReference(0, command);
      mPoint.Raise(kRun, arguments.Sent());
    });
  }

  RibbonEvents& mRelay;
  ConnectionPoint mPoint;
};

}  // namespace

win32::Face* NewRibbonEventsFace(RibbonEvents& target) { return new RibbonEventsFace(target); }

}  // namespace strandline::server
