#include "wordhost/component_classes.h"

#include "platform/win32/win32_variant.h"
#include "platform/win32/windows_api.h"

namespace strandline::wordhost {

namespace {

using win32::Wide;

// One for each component; the last byte is its place in the list.
CLSID ClassIdOf(unsigned number) {
  return {0x5a8d1c40, 0x3e97, 0x4f06, {0xb1, 0x62, 0x7d, 0x0e, 0x94, 0xc3, 0x5f, static_cast<unsigned char>(number)}};
}

String TextOf(const CLSID& id) {
  wchar_t text[40] = L"";
  const int length = ::StringFromGUID2(id, text, 40);
  return win32::FromWide(text, length > 0 ? static_cast<std::size_t>(length - 1) : 0);
}

bool IsFound(const String& progId, const CLSID& id) {
  CLSID found{};
  return SUCCEEDED(::CLSIDFromProgID(Wide(progId), &found)) && found == id;
}

}  // namespace

class ComponentClass final : public IClassFactory {
 public:
  ComponentClass(String progId, const ComponentClasses::Maker& maker) : mProgId(std::move(progId)), mMaker(maker) {}
  virtual ~ComponentClass() = default;

  STDMETHODIMP QueryInterface(REFIID id, void** object) override {
    if (!object) return E_POINTER;
    *object = nullptr;
    if (id != IID_IUnknown && id != IID_IClassFactory) return E_NOINTERFACE;
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
  STDMETHODIMP CreateInstance(IUnknown* outer, REFIID id, void** object) override {
    if (!object) return E_POINTER;
    *object = nullptr;
    if (outer) return CLASS_E_NOAGGREGATION;
    try {
      const Object made = mMaker(mProgId);
      if (made.IsNothing()) return CLASS_E_CLASSNOTAVAILABLE;
      IDispatch* const face = win32::Unwrap(made);
      const HRESULT queried = face->QueryInterface(id, object);
      face->Release();
      return queried;
    } catch (...) {
      return E_OUTOFMEMORY;
    }
  }
  STDMETHODIMP LockServer(BOOL) override { return S_OK; }

 private:
  const String mProgId;
  const ComponentClasses::Maker& mMaker;
  ULONG mOwners = 1;
};

ComponentClasses::~ComponentClasses() {
  for (const Registered& registered : mClasses) {
    ::CoRevokeClassObject(registered.cookie);
    registered.object->Release();
  }
}

std::string ComponentClasses::Register(std::span<const TextView> progIds, Maker maker) {
  mMaker = std::move(maker);
  unsigned number = 0;
  for (TextView progId : progIds) {
    const std::string wrong = RegisterOne(progId, ++number);
    if (!wrong.empty()) return wrong;
  }
  return "";
}

// The user's own classes will do where the system looks there; some look among the machine's alone.
std::string ComponentClasses::RegisterOne(const String& progId, unsigned number) {
  const CLSID id = ClassIdOf(number);
  const String key = Concat({u"Software\\Classes\\", progId, u"\\CLSID"});
  for (const Hive hive : {Hive::kUser, Hive::kMachine}) {
    if (mRegistry.Put(hive, key, u"", TextOf(id)) && IsFound(progId, id)) break;
  }
  if (!IsFound(progId, id)) return "the component " + ToUtf8(progId.View()) + " can't be registered";
  auto* const object = new ComponentClass(progId, mMaker);
  DWORD cookie = 0;
  if (FAILED(::CoRegisterClassObject(id, object, CLSCTX_INPROC_SERVER, REGCLS_MULTIPLEUSE, &cookie))) {
    object->Release();
    return "the class of " + ToUtf8(progId.View()) + " can't be offered";
  }
  mClasses.push_back({object, cookie});
  return "";
}

}  // namespace strandline::wordhost
