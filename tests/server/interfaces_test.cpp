// The public interfaces, pinned: clients are compiled against them. Everything here is read from the type library in
// the DLL, as a client's compiler does.

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "addin/operations.h"
#include "tests/server/client.h"

namespace strandline::servertest {

namespace {

struct Member {
  DISPID id;
  const char* name;
  const char* parameters;  // "name type, name type"; & for one by reference
  const char* result;
};

struct Interface {
  const wchar_t* id;
  std::vector<Member> members;
};

const Interface kMain2{
    L"{444DA255-41BF-4177-B24F-1B788A80AFF7}",
    {{1, "Initialize", "word object&, properties object&, productState object&, productName text&", "none"},
     {2, "Execute", "command text&", "text"},
     {3, "EnableGotoQuickBookmark", "value flag&", "none"},
     {4, "RibbonHandler", "", "object"},
     {5, "ReadingMode", "", "none"},
     {6, "ReadingModeLayout", "", "none"},
     {7, "CloseReadingMode", "", "none"},
     {8, "ToggleLumivex", "", "none"},
     {9, "FilePrintPreview2", "", "none"},
     {10, "ClosePreview", "", "none"},
     {11, "ShrinkToolbar", "", "none"},
     {12, "ProductNameChanged", "", "none"},
     {13, "OpenUserManual", "", "text"},
     {14, "UseQuillmere", "", "none"},
     {15, "HandleCreateDocument", "startedFromIcon flag&", "none"},
     {16, "HandleDocumentChange", "", "none"},
     {17, "HandleCloseDocument", "doc object&", "flag"},
     {18, "ClickOnAd", "", "none"},
     {19, "Quit", "", "none"}}};
const Interface kRibbonEvents{
    L"{08B31AE8-FFF3-4A50-9B42-65FDD036FD3D}",
    {{1, "getToolbarIconBits", "index small&", "bytes"}, {2, "run", "command text&", "none"}}};
const Interface kStub{L"{78BB1DE7-2441-4B93-95AF-AA46BBA9AEEB}",
                      {{1, "NewAdvertisementsEvent", "abortedAfterFiveSeconds flag", "none"},
                       {2, "ValueChanged", "key text&, value text&", "none"}}};
const Interface kRibbonEventsEvents{
    L"{CC8FC59F-1F2F-45F7-8B7A-47BF38E83D41}",
    {{1, "getToolbarIconBits", "index small&, bits bytes&", "none"}, {2, "run", "command text&", "none"}}};
const Interface kStubEvents{L"{6455E7D1-3103-4371-9284-34B33EC40EFC}",
                            {{1, "ValueChanged", "key text&, value text&", "none"},
                             {2, "NewAdvertisementsChanged", "abortedAfterFiveSeconds flag", "none"},
                             {3, "ValueChangedWithAds", "ads flags&, value text&", "none"},
                             {4, "DownloadedNewAds", "", "none"}}};

GUID FromText(const wchar_t* text) {
  GUID id{};
  EXPECT_EQ(::CLSIDFromString(text, &id), S_OK);
  return id;
}

std::string Lower(std::string text) {
  for (char& c : text) c = c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c;
  return text;
}

std::string Narrow(BSTR text) {
  const std::string narrow(text, text + ::SysStringLen(text));
  ::SysFreeString(text);
  return narrow;
}

const char* Words(VARTYPE type) {
  switch (type) {
    case VT_DISPATCH:
      return "object";
    case VT_BSTR:
      return "text";
    case VT_BOOL:
      return "flag";
    case VT_I2:
      return "small";
    case VT_VOID:
      return "none";
    default:
      return "?";
  }
}

// IDispatch is a type of its own in a type library, and a reference to it is a pointer to a pointer.
std::string TypeWords(const TYPEDESC& type) {
  if (type.vt == VT_SAFEARRAY) {
    const VARTYPE element = type.lptdesc->vt;
    return element == VT_UI1 ? "bytes" : element == VT_BOOL ? "flags" : "?";
  }
  if (type.vt != VT_PTR) return Words(type.vt);
  if (type.lptdesc->vt == VT_USERDEFINED) return "object";
  return TypeWords(*type.lptdesc) + "&";
}

const char* Words(ParameterKind kind) {
  switch (kind) {
    case ParameterKind::kBoolean:
      return "flag";
    case ParameterKind::kInteger:
      return "small";
    case ParameterKind::kString:
      return "text";
    case ParameterKind::kObject:
      return "object";
  }
  return "?";
}

// All of them go by reference: an operation is given the caller's variables.
std::string ParametersOf(const Main2Operation& operation) {
  std::string words;
  for (const Parameter& parameter : operation.parameters) {
    words += (words.empty() ? "" : ", ") + std::string(parameter.name.Text()) + " " + Words(parameter.kind) + "&";
  }
  return words;
}

class Interfaces : public testing::Test {
 protected:
  void SetUp() override { ASSERT_EQ(::LoadTypeLibEx(dll.Path().c_str(), REGKIND_NONE, library.Put()), S_OK); }

  ComRef<ITypeInfo> InfoOf(const wchar_t* id) const {
    ComRef<ITypeInfo> info;
    EXPECT_EQ(library->GetTypeInfoOfGuid(FromText(id), info.Put()), S_OK);
    return info;
  }

  static std::string Parameters(ITypeInfo& info, const FUNCDESC& function) {
    BSTR names[8] = {};
    UINT count = 0;
    EXPECT_EQ(info.GetNames(function.memid, names, 8, &count), S_OK);
    std::string words;
    for (UINT i = 0; i < count; ++i) {
      const std::string name = Narrow(names[i]);
      if (i == 0 || i > static_cast<UINT>(function.cParams)) continue;
      const ELEMDESC& parameter = function.lprgelemdescParam[i - 1];
      if (parameter.paramdesc.wParamFlags & PARAMFLAG_FRETVAL) continue;
      const std::string type = TypeWords(parameter.tdesc);
      words += (words.empty() ? "" : ", ") + name + " " + type;
      const int ways = type.ends_with('&') ? PARAMFLAG_FIN | PARAMFLAG_FOUT : PARAMFLAG_FIN;
      EXPECT_EQ(parameter.paramdesc.wParamFlags & (PARAMFLAG_FIN | PARAMFLAG_FOUT), ways) << name;
    }
    return words;
  }

  // What `visit` makes of each member, in the order of the library; how many there are.
  template <class Visit>
  std::size_t Members(const wchar_t* id, Visit visit) const {
    const ComRef<ITypeInfo> info = InfoOf(id);
    std::size_t at = 0;
    FUNCDESC* function = nullptr;
    for (UINT i = 0; SUCCEEDED(info->GetFuncDesc(i, &function)); ++i) {
      if (!(function->wFuncFlags & FUNCFLAG_FRESTRICTED)) visit(at++, *info.get(), *function);
      info->ReleaseFuncDesc(function);
    }
    return at;
  }

  static std::string NameOf(ITypeInfo& info, const FUNCDESC& function) {
    BSTR name = nullptr;
    EXPECT_EQ(info.GetDocumentation(function.memid, &name, nullptr, nullptr, nullptr), S_OK);
    return Narrow(name);
  }

  // Names have no case where clients look them up, and one of ours has another one in the library than here.
  void Expect(const Interface& expected, bool hasSlots) const {
    const auto count = Members(expected.id, [&](std::size_t at, ITypeInfo& info, const FUNCDESC& function) {
      ASSERT_LT(at, expected.members.size());
      const Member& member = expected.members[at];
      EXPECT_EQ(NameOf(info, function), member.name);
      EXPECT_EQ(function.memid, member.id) << member.name;
      EXPECT_EQ(Lower(Parameters(info, function)), Lower(member.parameters)) << member.name;
      EXPECT_EQ(TypeWords(function.elemdescFunc.tdesc), member.result) << member.name;
      const bool isProperty = std::string(member.name) == "RibbonHandler";
      EXPECT_EQ(function.invkind, isProperty ? INVOKE_PROPERTYGET : INVOKE_FUNC) << member.name;
      if (hasSlots) {
        EXPECT_EQ(static_cast<std::size_t>(function.oVft), (7 + at) * sizeof(void*)) << member.name;
      }
    });
    EXPECT_EQ(count, expected.members.size());
  }

  Dll dll;
  ComRef<ITypeLib> library;
};

}  // namespace

TEST_F(Interfaces, Main2_HasItsOperationsInTheirOrder) { Expect(kMain2, true); }

// Execute has no library to go by, but a table of its own: what is public is a command, and nothing else is.
TEST_F(Interfaces, Main2_IsWhatTheTableOfItsOperationsTells) {
  const auto count = Members(kMain2.id, [](std::size_t at, ITypeInfo& info, const FUNCDESC& function) {
    ASSERT_LT(at, kMain2Operations.size());
    const Main2Operation& operation = kMain2Operations[at];
    const std::string name = NameOf(info, function);
    EXPECT_EQ(name, operation.name.Text());
    EXPECT_EQ(Main2Operation::Find(Name::FromText(name)), &operation) << name;
    EXPECT_EQ(Lower(Parameters(info, function)), Lower(ParametersOf(operation))) << name;
    EXPECT_EQ(TypeWords(function.elemdescFunc.tdesc), operation.result ? Words(*operation.result) : "none") << name;
    EXPECT_EQ(function.invkind, operation.isProperty ? INVOKE_PROPERTYGET : INVOKE_FUNC) << name;
  });
  EXPECT_EQ(count, kMain2Operations.size());
}

TEST_F(Interfaces, RibbonEvents_HasItsOperationsInTheirOrder) { Expect(kRibbonEvents, true); }
TEST_F(Interfaces, CallbackStub_HasItsOperationsInTheirOrder) { Expect(kStub, true); }
TEST_F(Interfaces, RibbonEvents_HasItsEvents) { Expect(kRibbonEventsEvents, false); }
TEST_F(Interfaces, CallbackStub_HasItsEvents) { Expect(kStubEvents, false); }

TEST_F(Interfaces, TheDualOnesAreSo) {
  for (const wchar_t* id : {kMain2.id, kRibbonEvents.id, kStub.id}) {
    const ComRef<ITypeInfo> info = InfoOf(id);
    TYPEATTR* attributes = nullptr;
    ASSERT_EQ(info->GetTypeAttr(&attributes), S_OK);
    EXPECT_TRUE(attributes->wTypeFlags & TYPEFLAG_FDUAL);
    EXPECT_TRUE(attributes->wTypeFlags & TYPEFLAG_FDISPATCHABLE);
    info->ReleaseTypeAttr(attributes);
  }
}

TEST_F(Interfaces, EachClassHasItsOnes) {
  struct Case {
    const wchar_t* classId;
    const wchar_t* name;
    const wchar_t* interfaceId;
    const wchar_t* eventsId;
    bool isCreatable;
  };
  const Case cases[] = {
      {L"{128BE9BF-E215-429B-8E14-2E49D0414DD2}", L"Main2", kMain2.id, nullptr, true},
      {L"{1549A93D-E0A4-438F-859F-08ECC0B4F9AF}", L"RibbonEvents", kRibbonEvents.id, kRibbonEventsEvents.id, true},
      {L"{498640EC-7A73-42C9-85ED-DCE2F866018D}", L"AdvertisementsCallbackStub", kStub.id, kStubEvents.id, false}};
  for (const Case& entry : cases) {
    const ComRef<ITypeInfo> info = InfoOf(entry.classId);
    TYPEATTR* attributes = nullptr;
    ASSERT_EQ(info->GetTypeAttr(&attributes), S_OK);
    EXPECT_EQ(attributes->typekind, TKIND_COCLASS);
    EXPECT_EQ((attributes->wTypeFlags & TYPEFLAG_FCANCREATE) != 0, entry.isCreatable) << entry.name;
    const UINT count = attributes->cImplTypes;
    info->ReleaseTypeAttr(attributes);
    EXPECT_EQ(count, entry.eventsId ? 2u : 1u);
    for (UINT i = 0; i < count; ++i) {
      INT flags = 0;
      HREFTYPE reference = 0;
      ComRef<ITypeInfo> implemented;
      EXPECT_EQ(info->GetImplTypeFlags(i, &flags), S_OK);
      EXPECT_EQ(flags, i == 0 ? IMPLTYPEFLAG_FDEFAULT : IMPLTYPEFLAG_FDEFAULT | IMPLTYPEFLAG_FSOURCE);
      ASSERT_EQ(info->GetRefTypeOfImplType(i, &reference), S_OK);
      ASSERT_EQ(info->GetRefTypeInfo(reference, implemented.Put()), S_OK);
      ASSERT_EQ(implemented->GetTypeAttr(&attributes), S_OK);
      EXPECT_TRUE(attributes->guid == FromText(i == 0 ? entry.interfaceId : entry.eventsId)) << entry.name;
      implemented->ReleaseTypeAttr(attributes);
    }
  }
}

TEST_F(Interfaces, TheLibraryHasItsIdentifier) {
  TLIBATTR* attributes = nullptr;
  ASSERT_EQ(library->GetLibAttr(&attributes), S_OK);
  EXPECT_TRUE(attributes->guid == FromText(L"{419AAB9F-E0E6-41D8-BC8D-D137A724EAA2}"));
  EXPECT_EQ(attributes->wMajorVerNum, 1);
  EXPECT_EQ(attributes->wMinorVerNum, 0);
  library->ReleaseTLibAttr(attributes);
}

TEST_F(Interfaces, AnObjectTellsItsClass) {
  const ComRef<_RibbonEvents> relay = dll.NewRibbonEvents();
  ComRef<IProvideClassInfo2> provider;
  ASSERT_EQ(relay->QueryInterface(IID_IProvideClassInfo2, provider.PutVoid()), S_OK);
  ComRef<ITypeInfo> info;
  ASSERT_EQ(provider->GetClassInfo(info.Put()), S_OK);
  TYPEATTR* attributes = nullptr;
  ASSERT_EQ(info->GetTypeAttr(&attributes), S_OK);
  EXPECT_TRUE(attributes->guid == CLSID_RibbonEvents);
  info->ReleaseTypeAttr(attributes);
  GUID events{};
  EXPECT_EQ(provider->GetGUID(GUIDKIND_DEFAULT_SOURCE_DISP_IID, &events), S_OK);
  EXPECT_TRUE(events == DIID___RibbonEvents);

  const ComRef<_Main2> main = dll.NewMain2();
  ASSERT_EQ(main->QueryInterface(IID_IProvideClassInfo2, provider.PutVoid()), S_OK);
  EXPECT_EQ(provider->GetGUID(GUIDKIND_DEFAULT_SOURCE_DISP_IID, &events), E_INVALIDARG);
}

TEST_F(Interfaces, OneObjectHasOneIdentity) {
  const ComRef<_Main2> main = dll.NewMain2();
  ComRef<IUnknown> first;
  ComRef<IUnknown> second;
  ComRef<ISupportErrorInfo> errors;
  ComRef<IDispatch> dispatch;
  ASSERT_EQ(main->QueryInterface(IID_IDispatch, dispatch.PutVoid()), S_OK);
  ASSERT_EQ(main->QueryInterface(IID_ISupportErrorInfo, errors.PutVoid()), S_OK);
  ASSERT_EQ(dispatch->QueryInterface(IID_IUnknown, first.PutVoid()), S_OK);
  ASSERT_EQ(errors->QueryInterface(IID_IUnknown, second.PutVoid()), S_OK);
  EXPECT_EQ(first.get(), second.get());
  EXPECT_EQ(errors->InterfaceSupportsErrorInfo(IID__Main2), S_OK);
  EXPECT_EQ(errors->InterfaceSupportsErrorInfo(IID_IDispatch), S_OK);
  EXPECT_EQ(errors->InterfaceSupportsErrorInfo(IID_IConnectionPointContainer), S_FALSE);
}

}  // namespace strandline::servertest
