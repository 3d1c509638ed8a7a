#pragma once

// Descriptions of types that bear another's identifier and are something else: a type with other flags or of another
// library, a library of another version or language.

#include <functional>

#include "platform/win32/windows_api.h"

namespace strandline::win32test {

inline win32::ComRef<ITypeLib> LibraryOf(ITypeInfo& type) {
  win32::ComRef<ITypeLib> library;
  UINT index = 0;
  type.GetContainingTypeLib(library.Put(), &index);
  return library;
}

template <class Interface>
class Posing : public Interface {
 public:
  STDMETHODIMP QueryInterface(REFIID id, void** object) override {
    *object = id == IID_IUnknown || id == __uuidof(Interface) ? this : nullptr;
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

 protected:
  virtual ~Posing() = default;

 private:
  ULONG mOwners = 0;
};

class PosingLibrary final : public Posing<ITypeLib> {
 public:
  using Change = std::function<void(TLIBATTR&)>;

  static win32::ComRef<ITypeLib> New(ITypeLib& original, const Change& change) {
    return win32::ComRef<ITypeLib>(new PosingLibrary(original, change));
  }

  STDMETHODIMP GetLibAttr(TLIBATTR** about) override {
    *about = &mAbout;
    return S_OK;
  }
  STDMETHODIMP_(void) ReleaseTLibAttr(TLIBATTR*) override {}
  STDMETHODIMP_(UINT) GetTypeInfoCount() override { return 0; }
  STDMETHODIMP GetTypeInfo(UINT, ITypeInfo**) override { return E_NOTIMPL; }
  STDMETHODIMP GetTypeInfoType(UINT, TYPEKIND*) override { return E_NOTIMPL; }
  STDMETHODIMP GetTypeInfoOfGuid(REFGUID, ITypeInfo**) override { return E_NOTIMPL; }
  STDMETHODIMP GetTypeComp(ITypeComp**) override { return E_NOTIMPL; }
  STDMETHODIMP GetDocumentation(INT, BSTR*, BSTR*, DWORD*, BSTR*) override { return E_NOTIMPL; }
  STDMETHODIMP IsName(LPOLESTR, ULONG, BOOL*) override { return E_NOTIMPL; }
  STDMETHODIMP FindName(LPOLESTR, ULONG, ITypeInfo**, MEMBERID*, USHORT*) override { return E_NOTIMPL; }

 private:
  PosingLibrary(ITypeLib& original, const Change& change) {
    TLIBATTR* about = nullptr;
    if (FAILED(original.GetLibAttr(&about))) return;
    mAbout = *about;
    original.ReleaseTLibAttr(about);
    change(mAbout);
  }

  TLIBATTR mAbout{};
};

struct TypePose {
  win32::ComRef<ITypeLib> library;  // null: of none
  int flags;                        // TYPEFLAG_…
};

class PosingType final : public Posing<ITypeInfo> {
 public:
  PosingType(ITypeInfo& original, const TypePose& pose) : mOriginal(&original), mLibrary(pose.library) {
    TYPEATTR* about = nullptr;
    if (FAILED(original.GetTypeAttr(&about))) return;
    mAbout = *about;
    original.ReleaseTypeAttr(about);
    mAbout.wTypeFlags = static_cast<WORD>(pose.flags);
  }

  STDMETHODIMP GetTypeAttr(TYPEATTR** about) override {
    *about = &mAbout;
    return S_OK;
  }
  STDMETHODIMP GetContainingTypeLib(ITypeLib** library, UINT* index) override {
    *library = mLibrary.get();
    *index = 0;
    if (!*library) return E_NOTIMPL;
    (*library)->AddRef();
    return S_OK;
  }
  STDMETHODIMP GetIDsOfNames(LPOLESTR* names, UINT count, MEMBERID* ids) override {
    return mOriginal->GetIDsOfNames(names, count, ids);
  }
  STDMETHODIMP_(void) ReleaseTypeAttr(TYPEATTR*) override {}
  STDMETHODIMP_(void) ReleaseFuncDesc(FUNCDESC*) override {}
  STDMETHODIMP_(void) ReleaseVarDesc(VARDESC*) override {}
  STDMETHODIMP GetTypeComp(ITypeComp**) override { return E_NOTIMPL; }
  STDMETHODIMP GetFuncDesc(UINT, FUNCDESC**) override { return E_NOTIMPL; }
  STDMETHODIMP GetVarDesc(UINT, VARDESC**) override { return E_NOTIMPL; }
  STDMETHODIMP GetNames(MEMBERID, BSTR*, UINT, UINT*) override { return E_NOTIMPL; }
  STDMETHODIMP GetRefTypeOfImplType(UINT, HREFTYPE*) override { return E_NOTIMPL; }
  STDMETHODIMP GetImplTypeFlags(UINT, INT*) override { return E_NOTIMPL; }
  STDMETHODIMP Invoke(PVOID, MEMBERID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*, UINT*) override { return E_NOTIMPL; }
  STDMETHODIMP GetDocumentation(MEMBERID, BSTR*, BSTR*, DWORD*, BSTR*) override { return E_NOTIMPL; }
  STDMETHODIMP GetDllEntry(MEMBERID, INVOKEKIND, BSTR*, BSTR*, WORD*) override { return E_NOTIMPL; }
  STDMETHODIMP GetRefTypeInfo(HREFTYPE, ITypeInfo**) override { return E_NOTIMPL; }
  STDMETHODIMP AddressOfMember(MEMBERID, INVOKEKIND, PVOID*) override { return E_NOTIMPL; }
  STDMETHODIMP CreateInstance(IUnknown*, REFIID, PVOID*) override { return E_NOTIMPL; }
  STDMETHODIMP GetMops(MEMBERID, BSTR*) override { return E_NOTIMPL; }

 private:
  const win32::ComRef<ITypeInfo> mOriginal;
  const win32::ComRef<ITypeLib> mLibrary;
  TYPEATTR mAbout{};
};

}  // namespace strandline::win32test
