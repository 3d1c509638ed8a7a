#include "tests/script/helper/listener.h"

#include <cstring>

#include "platform/win32/win32_variant.h"
#include "platform/win32/windows_api.h"

namespace strandline::script {

using win32::ComRef;

namespace {

String TextOf(const VARIANT& given) {
  try {
    const Variant value = win32::FromVARIANT(given);
    if (const auto* bytes = value.If<Variant::Shared<Byte>>()) {
      return Concat({DecimalText(static_cast<std::int64_t>((*bytes)->Elements().size())), u" bytes"});
    }
    if (value.If<Object>()) return u"object";
    return value.ToText();
  } catch (const Error&) {
    return u"?";
  }
}

// Replaces what a by-reference array of bytes holds.
void Fill(const VARIANT& argument, const String& text) {
  if (argument.vt == (VT_BYREF | VT_VARIANT)) return Fill(*argument.pvarVal, text);
  if (argument.vt != (VT_BYREF | VT_ARRAY | VT_UI1)) return;
  SAFEARRAY* const bytes = ::SafeArrayCreateVector(VT_UI1, 0, static_cast<ULONG>(text.Length()));
  if (!bytes) return;
  BYTE* to = static_cast<BYTE*>(bytes->pvData);
  for (const char16_t c : text.View()) *to++ = static_cast<BYTE>(c);
  if (*argument.pparray) ::SafeArrayDestroy(*argument.pparray);
  *argument.pparray = bytes;
}

// What the interface's members are called; nothing where the source tells nothing of it.
ComRef<ITypeInfo> TypeOf(IDispatch& source, const IID& id) {
  ComRef<ITypeInfo> own;
  ComRef<ITypeLib> library;
  ComRef<ITypeInfo> type;
  UINT index = 0;
  if (SUCCEEDED(source.GetTypeInfo(0, LOCALE_USER_DEFAULT, own.Put())) &&
      SUCCEEDED(own->GetContainingTypeLib(library.Put(), &index))) {
    library->GetTypeInfoOfGuid(id, type.Put());
  }
  return type;
}

class Sink final : public IDispatch {
 public:
  Sink(std::shared_ptr<Listener::Record> record, const IID& id, ComRef<ITypeInfo> type)
      : mRecord(std::move(record)), mId(id), mType(std::move(type)) {}

  STDMETHODIMP QueryInterface(REFIID id, void** object) override {
    if (!object) return E_POINTER;
    *object = nullptr;
    if (id != IID_IUnknown && id != IID_IDispatch && id != mId) return E_NOINTERFACE;
    *object = this;
    AddRef();
    return S_OK;
  }
  STDMETHODIMP_(ULONG) AddRef() override { return ++mOwners; }
  STDMETHODIMP_(ULONG) Release() override {
    const ULONG left = --mOwners;
    if (left == 0) delete this;
    return left;
  }
  STDMETHODIMP GetTypeInfoCount(UINT* count) override {
    *count = 0;
    return S_OK;
  }
  STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
  STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override { return DISP_E_UNKNOWNNAME; }
  STDMETHODIMP Invoke(DISPID event, REFIID, LCID, WORD, DISPPARAMS* parameters, VARIANT*, EXCEPINFO*, UINT*) override {
    try {
      Hear(event, *parameters);
      return S_OK;
    } catch (...) {
      return E_OUTOFMEMORY;
    }
  }

 private:
  ~Sink() = default;

  void Hear(DISPID event, const DISPPARAMS& parameters) {
    const String name = NameOf(event);
    String line = Concat({name, u"("});
    // The last argument stands first.
    for (UINT i = parameters.cArgs; i-- > 0;) {
      line = Concat({line, TextOf(parameters.rgvarg[i]), i > 0 ? u", " : u""});
    }
    mRecord->heard = Concat({mRecord->heard, line, u")\n"});
    const auto answer = mRecord->answers.find(name);
    if (answer == mRecord->answers.end()) return;
    for (UINT i = 0; i < parameters.cArgs; ++i) Fill(parameters.rgvarg[i], answer->second);
  }

  String NameOf(DISPID event) const {
    BSTR name = nullptr;
    UINT count = 0;
    if (!mType || FAILED(mType->GetNames(event, &name, 1, &count)) || count == 0) {
      return Concat({u"#", DecimalText(event)});
    }
    const String text = win32::FromBstr(name);
    ::SysFreeString(name);
    return text;
  }

  std::shared_ptr<Listener::Record> mRecord;
  const IID mId;
  ComRef<ITypeInfo> mType;
  ULONG mOwners = 0;
};

}  // namespace

struct Listener::Connection {
  ComRef<IConnectionPoint> point;
  DWORD cookie = 0;
};

Listener::Listener(const Object& source) : mRecord(std::make_shared<Record>()) {
  IDispatch* const unwrapped = win32::Unwrap(source);
  if (!unwrapped) Raise(errors::kObjectNotSet);
  const ComRef<IDispatch> object(unwrapped);
  unwrapped->Release();
  ComRef<IConnectionPointContainer> container;
  ComRef<IEnumConnectionPoints> points;
  if (FAILED(object->QueryInterface(IID_IConnectionPointContainer, container.PutVoid())) ||
      FAILED(container->EnumConnectionPoints(points.Put()))) {
    Raise(errors::kNoSuchMember);
  }
  auto connection = std::make_shared<Connection>();
  ULONG fetched = 0;
  while (points->Next(1, connection->point.Put(), &fetched) == S_OK) {
    IID id{};
    connection->point->GetConnectionInterface(&id);
    const ComRef<IDispatch> sink(new Sink(mRecord, id, TypeOf(*object.get(), id)));
    if (SUCCEEDED(connection->point->Advise(sink.get(), &connection->cookie))) mConnections.push_back(connection);
    connection = std::make_shared<Connection>();
  }
  if (mConnections.empty()) Raise(errors::kNoSuchMember);
}

void Listener::Disconnect() {
  for (const auto& connection : mConnections) connection->point->Unadvise(connection->cookie);
  mConnections.clear();
}

Variant Listener::Invoke(Use use, Name member, const Arguments& arguments) {
  static constexpr Member<Listener> kMembers[] = {
      {"Heard", 0, 0, &Listener::Heard},
      {"Clear", 0, 0, &Listener::Clear},
      {"Answer", 2, 2, &Listener::Answer},
      {"Stop", 0, 0, &Listener::Stop},
  };
  return InvokeMember(*this, kMembers, use, member, arguments);
}

Variant Listener::Heard(Given) { return mRecord->heard; }

Variant Listener::Clear(Given) {
  mRecord->heard = String();
  return {};
}

Variant Listener::Answer(Given given) {
  mRecord->answers[given[0].ToText()] = given[1].ToText();
  return {};
}

Variant Listener::Stop(Given) {
  Disconnect();
  return {};
}

}  // namespace strandline::script
