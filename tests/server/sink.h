#pragma once

// A listener written for the system alone, as a client's own one is.

#include <functional>
#include <string>
#include <vector>

#include "platform/win32/windows_api.h"

namespace strandline::servertest {

class Sink final : public IDispatch {
 public:
  // `events`: the event interface that it answers to; GUID_NULL for one that is only IDispatch.
  explicit Sink(const IID& events) : mEvents(events) {}

  // Called with each event; its result is what the event gives back.
  std::function<HRESULT(DISPID event, DISPPARAMS& parameters)> during;
  std::vector<DISPID> heard;
  std::vector<VARTYPE> types;  // of all arguments, the last first, as they come
  ULONG owners = 1;            // the test's own; it stands on the test's stack

  STDMETHODIMP QueryInterface(REFIID id, void** object) override {
    const bool isOurs = id == IID_IUnknown || id == (mEvents == GUID_NULL ? IID_IDispatch : mEvents);
    *object = isOurs ? this : nullptr;
    if (!*object) return E_NOINTERFACE;
    AddRef();
    return S_OK;
  }
  STDMETHODIMP_(ULONG) AddRef() override { return ++owners; }
  STDMETHODIMP_(ULONG) Release() override { return --owners; }
  STDMETHODIMP GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
  STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
  STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override { return E_NOTIMPL; }
  STDMETHODIMP Invoke(DISPID event, REFIID, LCID, WORD, DISPPARAMS* parameters, VARIANT*, EXCEPINFO*, UINT*) override {
    heard.push_back(event);
    for (UINT i = 0; i < parameters->cArgs; ++i) types.push_back(parameters->rgvarg[i].vt);
    return during ? during(event, *parameters) : S_OK;
  }

 private:
  const IID mEvents;
};

}  // namespace strandline::servertest
