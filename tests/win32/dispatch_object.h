#pragma once

#include <functional>
#include <new>
#include <string>
#include <vector>

#include "platform/win32/windows_api.h"
//
#include <dispex.h>

namespace strandline::win32test {

// How an automation object of a foreign program behaves, and what it was asked.
struct ObjectPlan {
  using Answer = std::function<HRESULT(int flags, VARIANT& result, EXCEPINFO& exception)>;

  // Its members; a name's identifier is its place, from 100 on. Other names are unknown.
  std::vector<std::wstring> members;
  HRESULT names = S_OK;           // what GetIDsOfNames gives instead, if it isn't S_OK
  bool isExtended = false;        // names by IDispatchEx
  bool leavesErrorInfo = false;   // has ISupportErrorInfo
  win32::ComRef<ITypeInfo> type;  // whose names it answers by, where it has one
  DISPID offset = 0;              // added to the type's identifiers
  Answer answer = [](int, VARIANT&, EXCEPINFO&) { return S_OK; };

  std::function<void(DISPPARAMS& parameters)> touch;  // what it does to its arguments, the last of them first

  int namesAsked = 0;
  std::vector<int> flags;  // of each call
  std::vector<DISPID> called;
};

class PlannedObject final : public IDispatchEx, public ISupportErrorInfo {
 public:
  explicit PlannedObject(ObjectPlan& plan) : mPlan(plan), mSecond(*this) {}

  // It lies as high as the program's memory goes, where the highest bit of a pointer may be set.
  static void* operator new(std::size_t size) {
    void* const memory = ::VirtualAlloc(nullptr, size, MEM_RESERVE | MEM_COMMIT | MEM_TOP_DOWN, PAGE_READWRITE);
    if (!memory) throw std::bad_alloc();
    return memory;
  }
  static void operator delete(void* memory) { ::VirtualFree(memory, 0, MEM_RELEASE); }

  // Another door to the same object.
  IDispatch* Second() { return &mSecond; }

  STDMETHODIMP QueryInterface(REFIID id, void** object) override {
    *object = nullptr;
    if (id == IID_IUnknown || id == IID_IDispatch || (id == __uuidof(IDispatchEx) && mPlan.isExtended)) {
      *object = static_cast<IDispatchEx*>(this);
    } else if (id == IID_ISupportErrorInfo && mPlan.leavesErrorInfo) {
      *object = static_cast<ISupportErrorInfo*>(this);
    }
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
  STDMETHODIMP InterfaceSupportsErrorInfo(REFIID) override { return S_OK; }

  STDMETHODIMP GetTypeInfoCount(UINT* count) override {
    *count = mPlan.type ? 1 : 0;
    return S_OK;
  }
  STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo** type) override {
    *type = win32::ComRef<ITypeInfo>(mPlan.type).get();
    if (*type) (*type)->AddRef();
    return *type ? S_OK : DISP_E_BADINDEX;
  }
  STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) override {
    ++mPlan.namesAsked;
    if (mPlan.names != S_OK) return mPlan.names;
    if (mPlan.type) {
      const HRESULT found = mPlan.type->GetIDsOfNames(names, count, ids);
      ids[0] += mPlan.offset;
      return found;
    }
    for (UINT i = 1; i < count; ++i) ids[i] = DISPID_UNKNOWN;
    ids[0] = Find(names[0]);
    return ids[0] == DISPID_UNKNOWN || count > 1 ? DISP_E_UNKNOWNNAME : S_OK;
  }
  STDMETHODIMP Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* parameters, VARIANT* result,
                      EXCEPINFO* exception, UINT*) override {
    if (mPlan.touch) mPlan.touch(*parameters);
    mPlan.flags.push_back(flags);
    mPlan.called.push_back(id);
    VARIANT none;
    ::VariantInit(&none);
    return mPlan.answer(flags, result ? *result : none, *exception);
  }

  STDMETHODIMP GetDispID(BSTR name, DWORD, DISPID* id) override {
    ++mPlan.namesAsked;
    *id = Find(name);
    return *id == DISPID_UNKNOWN ? DISP_E_UNKNOWNNAME : S_OK;
  }
  STDMETHODIMP InvokeEx(DISPID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*, IServiceProvider*) override {
    return E_NOTIMPL;
  }
  STDMETHODIMP DeleteMemberByName(BSTR, DWORD) override { return E_NOTIMPL; }
  STDMETHODIMP DeleteMemberByDispID(DISPID) override { return E_NOTIMPL; }
  STDMETHODIMP GetMemberProperties(DISPID, DWORD, DWORD*) override { return E_NOTIMPL; }
  STDMETHODIMP GetMemberName(DISPID, BSTR*) override { return E_NOTIMPL; }
  STDMETHODIMP GetNextDispID(DWORD, DISPID, DISPID*) override { return E_NOTIMPL; }
  STDMETHODIMP GetNameSpaceParent(IUnknown**) override { return E_NOTIMPL; }

 private:
  class Door final : public IDispatch {
   public:
    explicit Door(PlannedObject& object) : mObject(object) {}
    STDMETHODIMP QueryInterface(REFIID id, void** object) override { return mObject.QueryInterface(id, object); }
    STDMETHODIMP_(ULONG) AddRef() override { return mObject.AddRef(); }
    STDMETHODIMP_(ULONG) Release() override { return mObject.Release(); }
    STDMETHODIMP GetTypeInfoCount(UINT* count) override { return mObject.GetTypeInfoCount(count); }
    STDMETHODIMP GetTypeInfo(UINT at, LCID lcid, ITypeInfo** type) override {
      return mObject.GetTypeInfo(at, lcid, type);
    }
    STDMETHODIMP GetIDsOfNames(REFIID id, LPOLESTR* names, UINT count, LCID lcid, DISPID* ids) override {
      return mObject.GetIDsOfNames(id, names, count, lcid, ids);
    }
    STDMETHODIMP Invoke(DISPID id, REFIID iid, LCID lcid, WORD flags, DISPPARAMS* parameters, VARIANT* result,
                        EXCEPINFO* exception, UINT* argument) override {
      return mObject.Invoke(id, iid, lcid, flags, parameters, result, exception, argument);
    }

   private:
    PlannedObject& mObject;
  };

  DISPID Find(const wchar_t* name) const {
    for (std::size_t i = 0; i < mPlan.members.size(); ++i) {
      if (::lstrcmpiW(name, mPlan.members[i].c_str()) == 0) return static_cast<DISPID>(100 + i);
    }
    return DISPID_UNKNOWN;
  }

  ObjectPlan& mPlan;
  Door mSecond;
  ULONG mOwners = 0;
};

}  // namespace strandline::win32test
