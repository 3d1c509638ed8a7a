#pragma once

// What the faces of the public classes share: each is a dual interface, tells its class, and reports errors with
// information.

#include "platform/win32/face.h"
#include "server/failure.h"
#include "server/type_description.h"
//
#include <ocidl.h>

namespace strandline::server {

// A public class, as a face of it tells it.
struct PublicClass {
  const CLSID& classId;
  const IID& interfaceId;
  const IID* eventsId;  // null for a class without events
  const wchar_t* name;  // such as "Strandline.Main2", the source of its errors

  Origin AsOrigin() const { return {&interfaceId, name}; }
};

// The way by number, the same for each class: to the object by the member's name. What the object refuses becomes the
// standard result for it.
HRESULT InvokeByNumber(const PublicClass& about, Dispatch& target, DISPID id, REFIID interfaceId, WORD flags,
                       DISPPARAMS* parameters, VARIANT* result, EXCEPINFO* exception, UINT* badArgument) noexcept;
HRESULT NumbersOfNames(const PublicClass& about, REFIID interfaceId, LPOLESTR* names, UINT count, DISPID* ids) noexcept;

template <class... More>
bool HasInterface(const PublicClass& about, REFIID id) {
  return id == IID_IUnknown || id == IID_IDispatch || id == about.interfaceId || id == IID_ISupportErrorInfo ||
         id == IID_IProvideClassInfo || id == IID_IProvideClassInfo2 || (... || (id == __uuidof(More)));
}

// More: interfaces of that class beside those that all have.
template <class Interface, class... More>
class TypedFace : public Interface,
                  public ISupportErrorInfo,
                  public IProvideClassInfo2,
                  public More...,
                  public win32::Face {
 public:
  IDispatch* Automation() final { return static_cast<Interface*>(this); }

  STDMETHODIMP QueryInterface(REFIID id, void** object) final {
    if (!object) return E_POINTER;
    *object = nullptr;
    if (!HasInterface<More...>(mAbout, id)) return E_NOINTERFACE;
    if (id == IID_ISupportErrorInfo) {
      *object = static_cast<ISupportErrorInfo*>(this);
    } else if (id == IID_IProvideClassInfo || id == IID_IProvideClassInfo2) {
      *object = static_cast<IProvideClassInfo2*>(this);
    } else if (!(... || (id == __uuidof(More) && (*object = static_cast<More*>(this))))) {
      *object = static_cast<Interface*>(this);
    }
    Hold();
    return S_OK;
  }
  STDMETHODIMP_(ULONG) AddRef() final { return Hold(); }
  STDMETHODIMP_(ULONG) Release() final { return LetGo(); }

  STDMETHODIMP GetTypeInfoCount(UINT* count) final {
    return Guard([&] {
      RequirePointers(count);
      *count = 1;
    });
  }
  STDMETHODIMP GetTypeInfo(UINT index, LCID, ITypeInfo** info) final {
    return Guard([&] {
      RequirePointers(info);
      *info = nullptr;
      if (index != 0) throw Failure{DISP_E_BADINDEX};
      *info = TypeDescription::Of(mAbout.interfaceId).Info();
      (*info)->AddRef();
    });
  }
  STDMETHODIMP GetIDsOfNames(REFIID interfaceId, LPOLESTR* names, UINT count, LCID, DISPID* ids) final {
    return NumbersOfNames(mAbout, interfaceId, names, count, ids);
  }
  STDMETHODIMP Invoke(DISPID id, REFIID interfaceId, LCID, WORD flags, DISPPARAMS* parameters, VARIANT* result,
                      EXCEPINFO* exception, UINT* badArgument) final {
    const win32::FaceHold held(*this);
    return InvokeByNumber(mAbout, Target(), id, interfaceId, flags, parameters, result, exception, badArgument);
  }

  STDMETHODIMP InterfaceSupportsErrorInfo(REFIID id) final {
    const bool isTold = id == mAbout.interfaceId || id == IID_IDispatch || (... || (id == __uuidof(More)));
    return isTold ? S_OK : S_FALSE;
  }

  STDMETHODIMP GetClassInfo(ITypeInfo** info) final {
    return Guard([&] {
      RequirePointers(info);
      *info = nullptr;
      const HRESULT found = TypeDescription::OfClass(mAbout.classId, info);
      if (FAILED(found)) throw Failure{found};
    });
  }
  STDMETHODIMP GetGUID(DWORD kind, GUID* id) final {
    return Guard([&] {
      RequirePointers(id);
      *id = GUID_NULL;
      if (kind != GUIDKIND_DEFAULT_SOURCE_DISP_IID || !mAbout.eventsId) throw Failure{E_INVALIDARG};
      *id = *mAbout.eventsId;
    });
  }

 protected:
  TypedFace(const PublicClass& about, Dispatch& target) : Face(target), mAbout(about) {}
  ~TypedFace() override = default;

  // Runs one operation of the interface. The client may let go of the face within it.
  template <class Body>
  HRESULT Guard(Body&& body) noexcept {
    const win32::FaceHold held(*this);
    return Guarded(mAbout.AsOrigin(), [&] {
      body();
      return S_OK;
    });
  }

 private:
  const PublicClass& mAbout;
};

}  // namespace strandline::server
