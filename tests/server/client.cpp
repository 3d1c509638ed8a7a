#include "tests/server/client.h"

#include <stdexcept>

#include "platform/win32/win32_variant.h"

namespace strandline::servertest {

namespace {

class Failing final : public IDispatch {
 public:
  Failing(HRESULT result, ULONG* owners) : mResult(result), mWatched(owners) {}

  STDMETHODIMP QueryInterface(REFIID id, void** object) override {
    *object = id == IID_IUnknown || id == IID_IDispatch ? this : nullptr;
    if (!*object) return E_NOINTERFACE;
    AddRef();
    return S_OK;
  }
  STDMETHODIMP_(ULONG) AddRef() override { return Tell(++mOwners); }
  STDMETHODIMP_(ULONG) Release() override {
    const ULONG left = Tell(--mOwners);
    if (left == 0) delete this;
    return left;
  }
  STDMETHODIMP GetTypeInfoCount(UINT*) override { return mResult; }
  STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return mResult; }
  STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override { return mResult; }
  STDMETHODIMP Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*, UINT*) override { return mResult; }

 private:
  ULONG Tell(ULONG owners) {
    if (mWatched) *mWatched = owners;
    return owners;
  }

  HRESULT mResult;
  ULONG* mWatched;
  ULONG mOwners = 0;
};

}  // namespace

Dll::Dll() : mModule(::LoadLibraryW(L"strandline.dll")) {
  if (!mModule) throw std::runtime_error("strandline.dll can't be loaded");
}
Dll::~Dll() {
  CanUnloadNow();
  ::FreeLibrary(mModule);
}

std::wstring Dll::Path() const {
  wchar_t path[1024];
  return std::wstring(path, ::GetModuleFileNameW(mModule, path, 1024));
}

HRESULT Dll::GetClassObject(const CLSID& classId, const IID& interfaceId, void** object) const {
  using Entry = HRESULT(WINAPI*)(REFCLSID, REFIID, void**);
  const auto entry = reinterpret_cast<Entry>(reinterpret_cast<void*>(::GetProcAddress(mModule, "DllGetClassObject")));
  return entry(classId, interfaceId, object);
}
HRESULT Dll::CanUnloadNow() const { return Call("DllCanUnloadNow"); }
HRESULT Dll::Call(const char* entry) const {
  using Entry = HRESULT(WINAPI*)();
  return reinterpret_cast<Entry>(reinterpret_cast<void*>(::GetProcAddress(mModule, entry)))();
}

ComRef<IClassFactory> Dll::Factory(const CLSID& classId) const {
  ComRef<IClassFactory> factory;
  if (FAILED(GetClassObject(classId, IID_IClassFactory, factory.PutVoid()))) throw std::runtime_error("no such class");
  return factory;
}
ComRef<_Main2> Dll::NewMain2() const {
  ComRef<_Main2> main;
  if (FAILED(Factory(CLSID_Main2)->CreateInstance(nullptr, IID__Main2, main.PutVoid()))) {
    throw std::runtime_error("no Main2");
  }
  return main;
}
ComRef<_RibbonEvents> Dll::NewRibbonEvents() const {
  ComRef<_RibbonEvents> relay;
  if (FAILED(Factory(CLSID_RibbonEvents)->CreateInstance(nullptr, IID__RibbonEvents, relay.PutVoid()))) {
    throw std::runtime_error("no RibbonEvents");
  }
  return relay;
}

Variant Played::Invoke(Use use, Name member, const Arguments& arguments) {
  const char* const words = use == Use::kLet ? "let " : use == Use::kCall ? "call " : "get ";
  uses.push_back(words + std::string(member.Text()));
  return mAnswer(use, member.Text(), arguments);
}

PlayedProduct::PlayedProduct() {
  const auto bar = New<Played>([](Use, std::string_view, const Arguments&) -> Variant { return {}; });
  const auto bars = New<Played>([bar](Use, std::string_view, const Arguments&) -> Variant { return bar; });
  const auto documents = New<Played>([](Use, std::string_view, const Arguments&) -> Variant { return Long{0}; });
  word = New<Played>([bars, documents](Use, std::string_view member, const Arguments&) -> Variant {
    if (member == "Version") return u"12.0";
    if (member == "Documents") return documents;
    if (member == "CommandBars") return bars;
    Raise(errors::kNoSuchMember);
  });
  properties = New<Played>([this](Use, std::string_view member, const Arguments& arguments) -> Variant {
    if (member == "ExecuteQLMCommand") commands.push_back(ToUtf8(arguments.positional[0].ToText()));
    return {};
  });
  productState = New<Played>([](Use, std::string_view member, const Arguments&) -> Variant {
    if (member == "lumivexEnabled") return false;
    return u"Quillmere";
  });
}

HRESULT PlayedProduct::Initialize(_Main2& main) {
  return InitializeWith(main, Outside(word).get(), Outside(properties).get(), Outside(productState).get());
}

HRESULT InitializeWith(_Main2& main, IDispatch* word, IDispatch* properties, IDispatch* productState) {
  Bstr name(L"Quillmere");
  return main.Initialize(&word, &properties, &productState, name.Place());
}

HRESULT Watched::QueryInterface(REFIID id, void** object) {
  Touch();
  *object = id == IID_IUnknown || id == IID_IDispatch ? this : nullptr;
  if (!*object) return E_NOINTERFACE;
  ++owners;
  return S_OK;
}
ULONG Watched::AddRef() {
  Touch();
  return ++owners;
}
ULONG Watched::Release() {
  const ULONG left = --owners;
  Touch();
  return left;
}
HRESULT Watched::GetIDsOfNames(REFIID id, LPOLESTR* names, UINT count, LCID locale, DISPID* ids) {
  Touch();
  return mPlayed->GetIDsOfNames(id, names, count, locale, ids);
}
HRESULT Watched::Invoke(DISPID member, REFIID id, LCID locale, WORD flags, DISPPARAMS* parameters, VARIANT* result,
                        EXCEPINFO* exception, UINT* badArgument) {
  Touch();
  return mPlayed->Invoke(member, id, locale, flags, parameters, result, exception, badArgument);
}

ComRef<IDispatch> Outside(const Ref<Played>& object) {
  ComRef<IDispatch> outside;
  *outside.Put() = win32::OutboundOf(*object);
  return outside;
}

ComRef<IDispatch> NewFailing(HRESULT result, ULONG* owners) { return ComRef<IDispatch>(new Failing(result, owners)); }

Called::~Called() {
  VariantClear(&result);
  ::SysFreeString(exception.bstrSource);
  ::SysFreeString(exception.bstrDescription);
}

void CallByNumber(IDispatch& object, DISPID id, std::vector<VARIANT> arguments, Called& called,
                  std::vector<DISPID> names, WORD flags) {
  const std::vector<VARIANT> backwards(arguments.rbegin(), arguments.rend());
  DISPPARAMS parameters{const_cast<VARIANT*>(backwards.data()), names.data(), static_cast<UINT>(backwards.size()),
                        static_cast<UINT>(names.size())};
  called.outcome = object.Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, flags, &parameters, &called.result,
                                 &called.exception, &called.badArgument);
}

VARIANT Of(VARTYPE type, void* place) {
  VARIANT value;
  VariantInit(&value);
  value.vt = static_cast<VARTYPE>(VT_BYREF | type);
  value.byref = place;
  return value;
}
VARIANT OfLong(LONG given) {
  VARIANT value;
  VariantInit(&value);
  value.vt = VT_I4;
  value.lVal = given;
  return value;
}
VARIANT OfText(const Bstr& text) {
  VARIANT value;
  VariantInit(&value);
  value.vt = VT_BSTR;
  value.bstrVal = *const_cast<Bstr&>(text).Place();
  return value;
}

ErrorInformation TakeErrorInformation() {
  ErrorInformation found;
  ComRef<IErrorInfo> information;
  if (::GetErrorInfo(0, information.Put()) != S_OK) return found;
  Bstr source(nullptr);
  Bstr description(nullptr);
  information->GetSource(source.Place());
  information->GetDescription(description.Place());
  information->GetGUID(&found.interfaceId);
  found.source = source.Text();
  found.description = description.Text();
  return found;
}

}  // namespace strandline::servertest
