#pragma once

// A component that the library creates by name: gives out one object, for the time of a test.

#include <gtest/gtest.h>

#include <string>

#include "server/registry.h"
//
#include "platform/win32/windows_api.h"

namespace strandline::servertest {

class Component final : public IClassFactory {
 public:
  Component(const wchar_t* progId, IDispatch* object)
      : mKey(std::wstring(L"Software\\Classes\\") + progId), mObject(object) {
    // Known to this program's run alone.
    CLSID made{};
    EXPECT_EQ(::CoCreateGuid(&made), S_OK);
    wchar_t id[40];
    ::StringFromGUID2(made, id, 40);
    EXPECT_EQ(server::registry::Write(HKEY_LOCAL_MACHINE, mKey + L"\\CLSID", nullptr, id), 0);
    EXPECT_EQ(::CoRegisterClassObject(made, this, CLSCTX_INPROC_SERVER, REGCLS_MULTIPLEUSE, &mCookie), S_OK);
  }
  ~Component() {
    ::CoRevokeClassObject(mCookie);
    server::registry::Delete(HKEY_LOCAL_MACHINE, mKey);
  }
  Component(const Component&) = delete;
  Component& operator=(const Component&) = delete;
  STDMETHODIMP QueryInterface(REFIID id, void** object) override {
    *object = id == IID_IUnknown || id == IID_IClassFactory ? this : nullptr;
    return *object ? S_OK : E_NOINTERFACE;
  }
  STDMETHODIMP_(ULONG) AddRef() override { return 2; }
  STDMETHODIMP_(ULONG) Release() override { return 1; }
  STDMETHODIMP CreateInstance(IUnknown*, REFIID id, void** object) override {
    return mObject->QueryInterface(id, object);
  }
  STDMETHODIMP LockServer(BOOL) override { return S_OK; }

 private:
  std::wstring mKey;
  IDispatch* mObject;
  DWORD mCookie = 0;
};

}  // namespace strandline::servertest
