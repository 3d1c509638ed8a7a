#include "server/class_factory.h"

#include <atomic>

#include "platform/win32/face.h"
#include "platform/win32/outbound_dispatch.h"
#include "server/failure.h"
#include "server/server.h"

namespace strandline::server {

namespace {

class ClassFactory final : public IClassFactory, private win32::LiveObject {
 public:
  explicit ClassFactory(const CreatableClass& made) : mMade(made) {}

  STDMETHODIMP QueryInterface(REFIID id, void** object) override {
    if (!object) return E_POINTER;
    *object = id == IID_IUnknown || id == IID_IClassFactory ? this : nullptr;
    if (!*object) return E_NOINTERFACE;
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
    const win32::ComRef<ClassFactory> held(this);
    return Guarded({&IID_IClassFactory, L"Strandline"}, [&] {
      RequirePointers(object);
      *object = nullptr;
      if (outer) throw Failure{CLASS_E_NOAGGREGATION};
      if (!mMade.hasInterface(id)) throw Failure{E_NOINTERFACE};
      const Object made = mMade.create();
      win32::ComRef<IDispatch> face;
      *face.Put() = win32::OutboundOf(*made.Target());
      return face->QueryInterface(id, object);
    });
  }
  STDMETHODIMP LockServer(BOOL lock) override {
    Server::Lock(lock);
    return S_OK;
  }

 private:
  ~ClassFactory() = default;

  const CreatableClass& mMade;
  std::atomic<ULONG> mOwners{0};
};

}  // namespace

IClassFactory* NewClassFactory(const CreatableClass& made) { return new ClassFactory(made); }

}  // namespace strandline::server
