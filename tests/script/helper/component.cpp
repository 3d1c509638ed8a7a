#include "tests/script/helper/component.h"

#include "platform/win32/win32_variant.h"
#include "platform/win32/windows_api.h"
#include "tests/script/helper/class_keys.h"

namespace strandline::script {

namespace {

class OneObject final : public IClassFactory {
 public:
  explicit OneObject(win32::ComRef<IDispatch> object) : mObject(std::move(object)) {}

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
    if (outer) return CLASS_E_NOAGGREGATION;
    return mObject->QueryInterface(id, object);
  }
  STDMETHODIMP LockServer(BOOL) override { return S_OK; }

 private:
  ~OneObject() = default;

  win32::ComRef<IDispatch> mObject;
  ULONG mOwners = 0;
};

}  // namespace

Component::Component(const String& progId, const Object& object) : mProgId(progId) {
  IDispatch* const unwrapped = win32::Unwrap(object);
  if (!unwrapped) Raise(errors::kObjectNotSet);
  const win32::ComRef<IClassFactory> factory(new OneObject(win32::ComRef<IDispatch>(unwrapped)));
  unwrapped->Release();
  CLSID id{};
  DWORD registration = 0;
  if (FAILED(::CoCreateGuid(&id)) ||
      FAILED(::CoRegisterClassObject(id, factory.get(), CLSCTX_INPROC_SERVER, REGCLS_MULTIPLEUSE, &registration))) {
    Raise(errors::kCannotCreateComponent);
  }
  mRegistration = registration;
  if (!WriteProgId(mProgId, id)) {
    ::CoRevokeClassObject(mRegistration);
    RemoveProgId(mProgId);
    Raise(errors::kCannotCreateComponent);
  }
}

Component::~Component() {
  ::CoRevokeClassObject(mRegistration);
  RemoveProgId(mProgId);
}

}  // namespace strandline::script
