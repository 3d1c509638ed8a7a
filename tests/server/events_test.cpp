// Events as clients outside hear them.

#include <gtest/gtest.h>

#include <deque>
#include <string>
#include <vector>

#include "ads/AdvertisementsCallbackStub.h"
#include "platform/win32/face.h"
#include "server/faces.h"
#include "tests/server/client.h"
#include "tests/server/sink.h"

namespace strandline::servertest {

namespace {

ComRef<IConnectionPoint> PointOf(IUnknown* object, const IID& events) {
  ComRef<IConnectionPointContainer> container;
  ComRef<IConnectionPoint> point;
  EXPECT_EQ(object->QueryInterface(IID_IConnectionPointContainer, container.PutVoid()), S_OK);
  EXPECT_EQ(container->FindConnectionPoint(events, point.Put()), S_OK);
  return point;
}

class RelayEvents : public testing::Test {
 protected:
  void Run(const wchar_t* command) const {
    Bstr text(command);
    EXPECT_EQ(relay->run(text.Place()), S_OK);
  }
  // The image's bytes; empty for no array.
  std::vector<BYTE> Bits(short index) const {
    SAFEARRAY* bytes = nullptr;
    EXPECT_EQ(relay->getToolbarIconBits(&index, &bytes), S_OK);
    if (!bytes) return {};
    const auto* from = static_cast<const BYTE*>(bytes->pvData);
    const std::vector<BYTE> copy(from, from + bytes->rgsabound[0].cElements);
    ::SafeArrayDestroy(bytes);
    return copy;
  }

  Dll dll;
  ComRef<_RibbonEvents> relay = dll.NewRibbonEvents();
  ComRef<IConnectionPoint> point = PointOf(relay.get(), DIID___RibbonEvents);
};

HRESULT Fill(DISPPARAMS& parameters, std::initializer_list<BYTE> bytes) {
  SAFEARRAY** place = parameters.rgvarg[0].pparray;
  if (*place) ::SafeArrayDestroy(*place);
  *place = ::SafeArrayCreateVector(VT_UI1, 0, static_cast<ULONG>(bytes.size()));
  std::copy(bytes.begin(), bytes.end(), static_cast<BYTE*>((*place)->pvData));
  return S_OK;
}

}  // namespace

TEST_F(RelayEvents, WithoutASink_NoBytesAndNoEffect) {
  EXPECT_TRUE(Bits(102).empty());
  Run(L"InsertReference");
}

TEST_F(RelayEvents, ASinkGetsTheCommandByReference) {
  Sink sink(DIID___RibbonEvents);
  std::wstring command;
  sink.during = [&](DISPID, DISPPARAMS& parameters) {
    command = *parameters.rgvarg[0].pbstrVal;
    return S_OK;
  };
  DWORD cookie = 0;
  ASSERT_EQ(point->Advise(&sink, &cookie), S_OK);
  Run(L"InsertReference");
  EXPECT_EQ(sink.heard, std::vector<DISPID>{2});
  EXPECT_EQ(sink.types, std::vector<VARTYPE>{VT_BYREF | VT_BSTR});
  EXPECT_EQ(command, L"InsertReference");
  EXPECT_EQ(point->Unadvise(cookie), S_OK);
  Run(L"InsertReference");
  EXPECT_EQ(sink.heard.size(), 1u);
  EXPECT_EQ(sink.owners, 1u);
}

TEST_F(RelayEvents, ASinkFillsTheBits) {
  Sink sink(DIID___RibbonEvents);
  short asked = 0;
  sink.during = [&](DISPID, DISPPARAMS& parameters) {
    asked = *parameters.rgvarg[1].piVal;
    return Fill(parameters, {3, 1, 4});
  };
  DWORD cookie = 0;
  ASSERT_EQ(point->Advise(&sink, &cookie), S_OK);
  EXPECT_EQ(Bits(102), (std::vector<BYTE>{3, 1, 4}));
  EXPECT_EQ(asked, 102);
  EXPECT_EQ(sink.heard, std::vector<DISPID>{1});
  EXPECT_EQ(sink.types, (std::vector<VARTYPE>{VT_BYREF | VT_ARRAY | VT_UI1, VT_BYREF | VT_I2}));
  EXPECT_EQ(point->Unadvise(cookie), S_OK);
}

TEST_F(RelayEvents, ByNumberToo) {
  Sink sink(DIID___RibbonEvents);
  sink.during = [](DISPID event, DISPPARAMS& parameters) { return event == 1 ? Fill(parameters, {9, 8}) : S_OK; };
  DWORD cookie = 0;
  ASSERT_EQ(point->Advise(&sink, &cookie), S_OK);
  Called called;
  CallByNumber(*relay.get(), 1, {OfLong(102)}, called);
  EXPECT_EQ(called.outcome, S_OK);
  EXPECT_EQ(called.result.vt, VT_ARRAY | VT_UI1);
  Called outside;
  CallByNumber(*relay.get(), 1, {OfLong(40000)}, outside);
  EXPECT_EQ(outside.outcome, DISP_E_OVERFLOW);
  EXPECT_EQ(outside.badArgument, 0u);
  Bstr command(L"InsertReference");
  VARIANT held = OfText(command);
  Called run;
  CallByNumber(*relay.get(), 2, {Of(VT_VARIANT, &held)}, run);
  EXPECT_EQ(run.outcome, S_OK);
  EXPECT_EQ(sink.heard, (std::vector<DISPID>{1, 2}));
  EXPECT_EQ(point->Unadvise(cookie), S_OK);
}

namespace {

// Puts more behind the text of a reference, so that its way can be followed.
HRESULT Add(BSTR* place, const wchar_t* more) {
  const std::wstring text = (*place ? *place : L"") + std::wstring(more);
  return ::SysReAllocString(place, text.c_str()) ? S_OK : E_OUTOFMEMORY;
}

}  // namespace

TEST_F(RelayEvents, WhatASinkWrites_TheNextOneAndTheCallerSee) {
  Sink first(DIID___RibbonEvents);
  Sink second(DIID___RibbonEvents);
  std::wstring seen;
  short seenIndex = 0;
  first.during = [](DISPID event, DISPPARAMS& parameters) {
    if (event == 2) return Add(parameters.rgvarg[0].pbstrVal, L"1");
    *parameters.rgvarg[1].piVal = 103;
    return S_OK;
  };
  second.during = [&](DISPID event, DISPPARAMS& parameters) {
    if (event == 1) {
      seenIndex = *parameters.rgvarg[1].piVal;
      return S_OK;
    }
    seen = *parameters.rgvarg[0].pbstrVal;
    return Add(parameters.rgvarg[0].pbstrVal, L"2");
  };
  DWORD cookies[2] = {};
  ASSERT_EQ(point->Advise(&first, &cookies[0]), S_OK);
  ASSERT_EQ(point->Advise(&second, &cookies[1]), S_OK);

  Bstr bySlot(L"Slot");
  EXPECT_EQ(relay->run(bySlot.Place()), S_OK);
  EXPECT_EQ(seen, L"Slot1");
  EXPECT_EQ(bySlot.Text(), L"Slot12");
  Bstr byNumber(L"Number");
  Called called;
  CallByNumber(*relay.get(), 2, {Of(VT_BSTR, byNumber.Place())}, called);
  EXPECT_EQ(called.outcome, S_OK);
  EXPECT_EQ(byNumber.Text(), L"Number12");
  VARIANT any = OfLong(5);
  Called inVariant;
  CallByNumber(*relay.get(), 2, {Of(VT_VARIANT, &any)}, inVariant);
  ASSERT_EQ(any.vt, VT_BSTR);
  EXPECT_EQ(std::wstring(any.bstrVal), L"512");
  VariantClear(&any);

  short index = 102;
  SAFEARRAY* bytes = nullptr;
  EXPECT_EQ(relay->getToolbarIconBits(&index, &bytes), S_OK);
  EXPECT_EQ(seenIndex, 103);
  EXPECT_EQ(index, 103);
  LONG wide = 7;
  Called bits;
  CallByNumber(*relay.get(), 1, {Of(VT_I4, &wide)}, bits);
  EXPECT_EQ(bits.outcome, S_OK);
  EXPECT_EQ(wide, 103);
  for (const DWORD cookie : cookies) EXPECT_EQ(point->Unadvise(cookie), S_OK);
}

TEST_F(RelayEvents, NamedArguments) {
  Sink sink(DIID___RibbonEvents);
  std::wstring seen;
  sink.during = [&](DISPID, DISPPARAMS& parameters) {
    seen = *parameters.rgvarg[0].pbstrVal;
    return S_OK;
  };
  DWORD cookie = 0;
  ASSERT_EQ(point->Advise(&sink, &cookie), S_OK);
  Bstr text(L"Named");
  Called called;
  CallByNumber(*relay.get(), 2, {OfText(text)}, called, {0});
  EXPECT_EQ(called.outcome, S_OK);
  EXPECT_EQ(seen, L"Named");
  Called unknown;
  CallByNumber(*relay.get(), 2, {OfText(text)}, unknown, {1});
  EXPECT_EQ(unknown.outcome, DISP_E_PARAMNOTFOUND);
  EXPECT_EQ(point->Unadvise(cookie), S_OK);
}

namespace {

// Says yes to every interface and gives none.
class Empty final : public IUnknown {
 public:
  STDMETHODIMP QueryInterface(REFIID, void** object) override {
    *object = nullptr;
    return S_OK;
  }
  STDMETHODIMP_(ULONG) AddRef() override { return 2; }
  STDMETHODIMP_(ULONG) Release() override { return 1; }
};

}  // namespace

TEST_F(RelayEvents, RefusalsAreToldWithInformation) {
  Empty empty;
  DWORD cookie = 5;
  EXPECT_EQ(point->Advise(&empty, &cookie), CONNECT_E_CANNOTCONNECT);
  ErrorInformation told = TakeErrorInformation();
  EXPECT_EQ(told.source, L"Strandline.RibbonEvents");
  EXPECT_TRUE(told.interfaceId == IID_IConnectionPoint);
  EXPECT_FALSE(told.description.empty());
  Run(L"Anything");
  EXPECT_EQ(point->Unadvise(77), CONNECT_E_NOCONNECTION);
  EXPECT_EQ(TakeErrorInformation().source, L"Strandline.RibbonEvents");
  ComRef<IConnectionPointContainer> container;
  ComRef<IConnectionPoint> other;
  ASSERT_EQ(point->GetConnectionPointContainer(container.Put()), S_OK);
  EXPECT_EQ(container->FindConnectionPoint(IID_IStream, other.Put()), CONNECT_E_NOCONNECTION);
  told = TakeErrorInformation();
  EXPECT_TRUE(told.interfaceId == IID_IConnectionPointContainer);
  for (IUnknown* const object : {static_cast<IUnknown*>(point.get()), static_cast<IUnknown*>(container.get())}) {
    ComRef<ISupportErrorInfo> errors;
    ASSERT_EQ(object->QueryInterface(IID_ISupportErrorInfo, errors.PutVoid()), S_OK);
    EXPECT_EQ(errors->InterfaceSupportsErrorInfo(object == point.get() ? IID_IConnectionPoint
                                                                       : IID_IConnectionPointContainer),
              S_OK);
    EXPECT_EQ(errors->InterfaceSupportsErrorInfo(IID_IStream), S_FALSE);
  }
}

TEST_F(RelayEvents, SeveralSinksInTheirOrder_TheLastOneDecides) {
  Sink first(DIID___RibbonEvents);
  Sink second(GUID_NULL);
  first.during = [](DISPID, DISPPARAMS& parameters) { return Fill(parameters, {1}); };
  std::vector<BYTE> before;
  second.during = [&](DISPID, DISPPARAMS& parameters) {
    before.push_back(static_cast<const BYTE*>((*parameters.rgvarg[0].pparray)->pvData)[0]);
    return Fill(parameters, {2, 2});
  };
  DWORD cookies[2] = {};
  ASSERT_EQ(point->Advise(&first, &cookies[0]), S_OK);
  ASSERT_EQ(point->Advise(&second, &cookies[1]), S_OK);
  EXPECT_NE(cookies[0], cookies[1]);
  EXPECT_EQ(Bits(1), (std::vector<BYTE>{2, 2}));
  EXPECT_EQ(before, std::vector<BYTE>{1});
  EXPECT_EQ(point->Unadvise(cookies[0]), S_OK);
  EXPECT_EQ(point->Unadvise(cookies[1]), S_OK);
}

TEST_F(RelayEvents, ASinkThatFails_HarmsNobody) {
  Sink failing(DIID___RibbonEvents);
  Sink other(DIID___RibbonEvents);
  failing.during = [](DISPID, DISPPARAMS&) { return static_cast<HRESULT>(RPC_E_DISCONNECTED); };
  DWORD cookies[2] = {};
  ASSERT_EQ(point->Advise(&failing, &cookies[0]), S_OK);
  ASSERT_EQ(point->Advise(&other, &cookies[1]), S_OK);
  Run(L"InsertReference");
  EXPECT_EQ(other.heard.size(), 1u);
  EXPECT_TRUE(Bits(102).empty());
  EXPECT_EQ(point->Unadvise(cookies[0]), S_OK);
  EXPECT_EQ(point->Unadvise(cookies[1]), S_OK);
}

TEST_F(RelayEvents, BitsThatAreNoPlainArray_AreNone) {
  Sink sink(DIID___RibbonEvents);
  sink.during = [](DISPID, DISPPARAMS& parameters) {
    SAFEARRAYBOUND bounds[] = {{2, 0}, {3, 0}};
    *parameters.rgvarg[0].pparray = ::SafeArrayCreate(VT_UI1, 2, bounds);
    return S_OK;
  };
  DWORD cookie = 0;
  ASSERT_EQ(point->Advise(&sink, &cookie), S_OK);
  EXPECT_TRUE(Bits(102).empty());
  EXPECT_EQ(sink.heard.size(), 1u);
  EXPECT_EQ(point->Unadvise(cookie), S_OK);
}

TEST_F(RelayEvents, ASinkThatLeavesWithinTheEvent) {
  Sink first(DIID___RibbonEvents);
  Sink second(DIID___RibbonEvents);
  DWORD cookies[2] = {};
  ASSERT_EQ(point->Advise(&first, &cookies[0]), S_OK);
  ASSERT_EQ(point->Advise(&second, &cookies[1]), S_OK);
  first.during = [&](DISPID, DISPPARAMS&) {
    EXPECT_EQ(point->Unadvise(cookies[0]), S_OK);
    EXPECT_EQ(point->Unadvise(cookies[1]), S_OK);
    return S_OK;
  };
  Run(L"a");
  Run(L"b");
  EXPECT_EQ(first.heard.size(), 1u);
  EXPECT_TRUE(second.heard.empty());
  EXPECT_EQ(first.owners, 1u);
  EXPECT_EQ(second.owners, 1u);
}

TEST_F(RelayEvents, ASinkThatLetsTheSourceGoWithinTheEvent) {
  Sink sink(DIID___RibbonEvents);
  DWORD cookie = 0;
  ASSERT_EQ(point->Advise(&sink, &cookie), S_OK);
  _RibbonEvents* const raw = relay.get();
  sink.during = [&](DISPID, DISPPARAMS&) {
    point = {};
    relay = {};
    return S_OK;
  };
  Bstr text(L"a");
  EXPECT_EQ(raw->run(text.Place()), S_OK);
  EXPECT_EQ(sink.owners, 1u);
  EXPECT_EQ(dll.CanUnloadNow(), S_OK);
}

TEST_F(RelayEvents, TheSourcesEndLetsTheSinksGo) {
  Sink sink(DIID___RibbonEvents);
  DWORD cookie = 0;
  ASSERT_EQ(point->Advise(&sink, &cookie), S_OK);
  EXPECT_EQ(sink.owners, 2u);
  point = {};
  relay = {};
  EXPECT_EQ(sink.owners, 1u);
}

TEST_F(RelayEvents, WhatCantBeConnected) {
  Sink foreign(IID_IStream);
  Sink sink(DIID___RibbonEvents);
  DWORD cookie = 5;
  EXPECT_EQ(point->Advise(&foreign, &cookie), CONNECT_E_CANNOTCONNECT);
  EXPECT_EQ(cookie, 0u);
  EXPECT_EQ(foreign.owners, 1u);
  EXPECT_EQ(point->Advise(nullptr, &cookie), E_POINTER);
  EXPECT_EQ(point->Advise(&sink, nullptr), E_POINTER);
  EXPECT_EQ(sink.owners, 1u);
  EXPECT_EQ(point->Unadvise(1), CONNECT_E_NOCONNECTION);
  EXPECT_EQ(point->Unadvise(0), CONNECT_E_NOCONNECTION);
  EXPECT_EQ(point->GetConnectionInterface(nullptr), E_POINTER);
  EXPECT_EQ(point->GetConnectionPointContainer(nullptr), E_POINTER);
  EXPECT_EQ(point->EnumConnections(nullptr), E_POINTER);
  ComRef<IConnectionPointContainer> container;
  ComRef<IConnectionPoint> other;
  ASSERT_EQ(point->GetConnectionPointContainer(container.Put()), S_OK);
  EXPECT_EQ(container->FindConnectionPoint(DIID___AdvertisementsCallbackStub, other.Put()), CONNECT_E_NOCONNECTION);
  EXPECT_EQ(container->FindConnectionPoint(DIID___RibbonEvents, nullptr), E_POINTER);
  EXPECT_EQ(container->EnumConnectionPoints(nullptr), E_POINTER);
  ComRef<IConnectionPointContainer> none;
  EXPECT_EQ(dll.NewMain2()->QueryInterface(IID_IConnectionPointContainer, none.PutVoid()), E_NOINTERFACE);
}

TEST_F(RelayEvents, TheEnumerations) {
  Sink sinks[3] = {Sink(GUID_NULL), Sink(GUID_NULL), Sink(GUID_NULL)};
  DWORD cookies[3] = {};
  for (int i = 0; i < 3; ++i) ASSERT_EQ(point->Advise(&sinks[i], &cookies[i]), S_OK);
  ComRef<IEnumConnections> connections;
  ComRef<IEnumConnections> clone;
  ASSERT_EQ(point->EnumConnections(connections.Put()), S_OK);
  CONNECTDATA data[4] = {};
  ULONG fetched = 9;
  EXPECT_EQ(connections->Skip(1), S_OK);
  ASSERT_EQ(connections->Clone(clone.Put()), S_OK);
  EXPECT_EQ(connections->Next(4, data, &fetched), S_FALSE);
  ASSERT_EQ(fetched, 2u);
  EXPECT_EQ(data[0].dwCookie, cookies[1]);
  EXPECT_EQ(data[1].dwCookie, cookies[2]);
  EXPECT_EQ(data[0].pUnk, static_cast<IUnknown*>(&sinks[1]));
  for (ULONG i = 0; i < fetched; ++i) data[i].pUnk->Release();
  EXPECT_EQ(clone->Next(1, data, nullptr), S_OK);
  EXPECT_EQ(data[0].dwCookie, cookies[1]);
  data[0].pUnk->Release();
  EXPECT_EQ(clone->Next(2, data, nullptr), E_POINTER);
  EXPECT_EQ(clone->Skip(2), S_FALSE);
  EXPECT_EQ(clone->Reset(), S_OK);
  EXPECT_EQ(clone->Skip(3), S_OK);
  EXPECT_EQ(clone->Clone(nullptr), E_POINTER);

  ComRef<IConnectionPointContainer> container;
  ComRef<IEnumConnectionPoints> points;
  ASSERT_EQ(point->GetConnectionPointContainer(container.Put()), S_OK);
  ASSERT_EQ(container->EnumConnectionPoints(points.Put()), S_OK);
  IConnectionPoint* found[2] = {};
  EXPECT_EQ(points->Next(2, found, &fetched), S_FALSE);
  ASSERT_EQ(fetched, 1u);
  IID id{};
  EXPECT_EQ(found[0]->GetConnectionInterface(&id), S_OK);
  EXPECT_TRUE(id == DIID___RibbonEvents);
  found[0]->Release();
  for (const DWORD cookie : cookies) EXPECT_EQ(point->Unadvise(cookie), S_OK);
}

// The stub is only ever handed out by the library; here it is made in this program, whose server is the same code.
class StubEvents : public testing::Test {
 protected:
  StubEvents() {
    win32::SetFaceMaker(&server::MakeFace);
    ComRef<IDispatch> face;
    *face.Put() = win32::OutboundOf(*stub);
    EXPECT_EQ(face->QueryInterface(IID__AdvertisementsCallbackStub, outside.PutVoid()), S_OK);
    point = PointOf(outside.get(), DIID___AdvertisementsCallbackStub);
    EXPECT_EQ(point->Advise(&sink, &cookie), S_OK);
  }
  ~StubEvents() override {
    if (point) point->Unadvise(cookie);
    win32::SetFaceMaker(nullptr);
  }

  Ref<AdvertisementsCallbackStub> stub = New<AdvertisementsCallbackStub>();
  ComRef<_AdvertisementsCallbackStub> outside;
  ComRef<IConnectionPoint> point;
  Sink sink{DIID___AdvertisementsCallbackStub};
  DWORD cookie = 0;
};

TEST_F(StubEvents, AreHeardWithTheirNumbersAndArguments) {
  std::vector<std::wstring> texts;
  std::vector<bool> flags;
  sink.during = [&](DISPID, DISPPARAMS& parameters) {
    for (UINT i = parameters.cArgs; i-- > 0;) {
      const VARIANT& argument = parameters.rgvarg[i];
      if (argument.vt == (VT_BYREF | VT_BSTR)) texts.push_back(*argument.pbstrVal ? *argument.pbstrVal : L"");
      if (argument.vt == VT_BOOL) flags.push_back(argument.boolVal != VARIANT_FALSE);
      if (argument.vt == (VT_BYREF | VT_ARRAY | VT_BOOL)) {
        const auto* from = static_cast<const VARIANT_BOOL*>((*argument.pparray)->pvData);
        for (ULONG at = 0; at < (*argument.pparray)->rgsabound[0].cElements; ++at) flags.push_back(from[at] != 0);
      }
    }
    return S_OK;
  };
  Bstr key(L"listen");
  Bstr value(L"now");
  EXPECT_EQ(outside->ValueChanged(key.Place(), value.Place()), S_OK);
  EXPECT_EQ(outside->NewAdvertisementsEvent(VARIANT_TRUE), S_OK);
  Array<Boolean> ads(1, 3);
  ads(2) = true;
  String later = u"later";
  stub->ValueChangedWithAds(ads, later);
  stub->DownloadedNewAds();
  EXPECT_EQ(sink.heard, (std::vector<DISPID>{1, 2, 3, 4}));
  EXPECT_EQ(texts, (std::vector<std::wstring>{L"listen", L"now", L"later"}));
  EXPECT_EQ(flags, (std::vector<bool>{true, false, true, false}));
}

TEST_F(StubEvents, WhatASinkWrites_TheCallerAndTheLibrarySee) {
  sink.during = [](DISPID event, DISPPARAMS& parameters) {
    Add(parameters.rgvarg[0].pbstrVal, L"2");
    if (event == 1) return Add(parameters.rgvarg[1].pbstrVal, L"1");
    SAFEARRAY** place = parameters.rgvarg[1].pparray;
    static_cast<VARIANT_BOOL*>((*place)->pvData)[0] = VARIANT_TRUE;
    return S_OK;
  };
  Bstr key(L"City");
  Bstr value(L"London");
  EXPECT_EQ(outside->ValueChanged(key.Place(), value.Place()), S_OK);
  EXPECT_EQ(key.Text(), L"City1");
  EXPECT_EQ(value.Text(), L"London2");
  Array<Boolean> ads(0, 1);
  String text = u"Paris";
  stub->ValueChangedWithAds(ads, text);
  EXPECT_EQ(ads.Elements(), (std::deque<bool>{true, false}));
  EXPECT_EQ(text, u"Paris2");
}

TEST_F(StubEvents, ASinkThatLetsTheFaceGoWithinAnEvent) {
  Sink second(DIID___AdvertisementsCallbackStub);
  DWORD secondCookie = 0;
  ASSERT_EQ(point->Advise(&second, &secondCookie), S_OK);
  const Long before = win32::LiveObjects();
  ComRef<IConnectionPoint> kept = point;
  sink.during = [&](DISPID, DISPPARAMS&) {
    kept->Unadvise(secondCookie);
    kept = {};
    point = {};
    outside = {};
    return S_OK;
  };
  stub->DownloadedNewAds();
  EXPECT_EQ(win32::LiveObjects(), before - 1);
  EXPECT_TRUE(second.heard.empty());
  EXPECT_EQ(sink.owners, 1u);
  EXPECT_EQ(second.owners, 1u);
  // The object lives on, and nobody hears it any more.
  stub->DownloadedNewAds();
  EXPECT_EQ(sink.heard.size(), 1u);
}

TEST_F(StubEvents, NullPointersAreRefused) {
  Bstr text(L"text");
  EXPECT_EQ(outside->ValueChanged(nullptr, text.Place()), E_POINTER);
  EXPECT_EQ(outside->ValueChanged(text.Place(), nullptr), E_POINTER);
  EXPECT_TRUE(sink.heard.empty());
}

}  // namespace strandline::servertest
