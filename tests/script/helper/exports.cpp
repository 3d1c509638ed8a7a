// The helper as a class that scripts create by the name StrandlineTest.Helper. It stays in its process to the end: its
// windows and sinks may be called as long as there are any.

#include "platform/win32/outbound_dispatch.h"
#include "platform/win32/windows_api.h"
#include "tests/script/helper/class_keys.h"
#include "tests/script/helper/helper.h"

namespace strandline::script {

namespace {

constexpr CLSID kHelperId = {0x6d1f0c52, 0x8f5b, 0x4a0e, {0xb5, 0x36, 0x2c, 0x91, 0x7e, 0xd4, 0x40, 0x1b}};
const String kHelperName = u"StrandlineTest.Helper";

HMODULE thisModule = nullptr;

// There is one, for as long as the process lives.
class HelperClass final : public IClassFactory {
 public:
  STDMETHODIMP QueryInterface(REFIID id, void** object) override {
    if (!object) return E_POINTER;
    *object = nullptr;
    if (id != IID_IUnknown && id != IID_IClassFactory) return E_NOINTERFACE;
    *object = this;
    return S_OK;
  }
  STDMETHODIMP_(ULONG) AddRef() override { return 2; }
  STDMETHODIMP_(ULONG) Release() override { return 1; }
  STDMETHODIMP CreateInstance(IUnknown* outer, REFIID id, void** object) override {
    if (outer) return CLASS_E_NOAGGREGATION;
    try {
      const Ref<Helper> helper = New<Helper>();
      IDispatch* const face = win32::OutboundOf(*helper);
      const HRESULT result = face->QueryInterface(id, object);
      face->Release();
      return result;
    } catch (...) {
      return E_OUTOFMEMORY;
    }
  }
  STDMETHODIMP LockServer(BOOL) override { return S_OK; }
};

}  // namespace

}  // namespace strandline::script

using namespace strandline::script;

BOOL WINAPI DllMain(HINSTANCE module, DWORD reason, LPVOID) {
  if (reason == DLL_PROCESS_ATTACH) {
    thisModule = module;
    ::DisableThreadLibraryCalls(module);
  }
  return TRUE;
}

STDAPI DllGetClassObject(REFCLSID id, REFIID interfaceId, void** object) {
  static HelperClass theClass;
  return id == kHelperId ? theClass.QueryInterface(interfaceId, object) : CLASS_E_CLASSNOTAVAILABLE;
}

STDAPI DllCanUnloadNow() { return S_FALSE; }

STDAPI DllRegisterServer() {
  wchar_t path[MAX_PATH];
  const DWORD length = ::GetModuleFileNameW(thisModule, path, MAX_PATH);
  if (length == 0 || length == MAX_PATH) return E_FAIL;
  const bool done =
      WriteServer(kHelperId, strandline::win32::FromWide(path, length)) && WriteProgId(kHelperName, kHelperId);
  return done ? S_OK : E_FAIL;
}

STDAPI DllUnregisterServer() {
  RemoveProgId(kHelperName);
  RemoveServer(kHelperId);
  return S_OK;
}
