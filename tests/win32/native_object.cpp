#include "tests/win32/native_object.h"

#include <iterator>

#include "platform/win32/win32_variant.h"
#include "platform/win32/windows_api.h"

namespace strandline::win32test {

namespace {

constexpr const wchar_t* kMembers[] = {L"Touch", L"Fail", L"FailPlainly", L"CallBack"};

void Replace(BSTR& text, const wchar_t* with) {
  ::SysFreeString(text);
  text = ::SysAllocString(with);
}

void Touch(VARIANT& argument) {
  switch (argument.vt) {
    case VT_BYREF | VT_BOOL:
      *argument.pboolVal = VARIANT_TRUE;
      break;
    case VT_BYREF | VT_I2:
      *argument.piVal = -2;
      break;
    case VT_BYREF | VT_I4:
      *argument.plVal = 70000;
      break;
    case VT_BYREF | VT_R8:
      *argument.pdblVal = 2.5;
      break;
    case VT_BYREF | VT_BSTR:
      Replace(*argument.pbstrVal, L"back");
      break;
    case VT_BYREF | VT_DISPATCH:
      if (*argument.ppdispVal) (*argument.ppdispVal)->Release();
      *argument.ppdispVal = nullptr;
      break;
    case VT_BYREF | VT_VARIANT:
      ::VariantClear(argument.pvarVal);
      argument.pvarVal->vt = VT_BSTR;
      argument.pvarVal->bstrVal = ::SysAllocString(L"any");
      break;
    case VT_BYREF | VT_ARRAY | VT_UI1: {
      if (*argument.pparray) ::SafeArrayDestroy(*argument.pparray);
      *argument.pparray = ::SafeArrayCreateVector(VT_UI1, 1, 2);
      static_cast<BYTE*>((*argument.pparray)->pvData)[1] = 9;
      break;
    }
    default:
      break;
  }
}

class NativeObject final : public IDispatch {
 public:
  explicit NativeObject(NativeLog& log) : mLog(log) {}

  STDMETHODIMP QueryInterface(REFIID id, void** object) override {
    *object = id == IID_IUnknown || id == IID_IDispatch ? this : nullptr;
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
  STDMETHODIMP GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
  STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
  STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) override {
    for (std::size_t i = 0; count == 1 && i < std::size(kMembers); ++i) {
      if (::lstrcmpiW(names[0], kMembers[i]) != 0) continue;
      ids[0] = static_cast<DISPID>(i);
      return S_OK;
    }
    ids[0] = DISPID_UNKNOWN;
    return DISP_E_UNKNOWNNAME;
  }
  STDMETHODIMP Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS* parameters, VARIANT* result, EXCEPINFO* exception,
                      UINT*) override {
    VARIANT* const arguments = parameters->rgvarg;
    switch (id) {
      case 0:
        for (UINT i = parameters->cArgs; i-- > 0;) {
          mLog.types.push_back(arguments[i].vt);
          Touch(arguments[i]);
        }
        result->vt = VT_I8;
        result->llVal = 42;
        return S_OK;
      case 1:
        exception->scode = arguments[0].lVal;
        exception->bstrDescription = ::SysAllocString(L"native words");
        return DISP_E_EXCEPTION;
      case 2:
        return arguments[0].lVal;
      case 3:
        return CallBack(*arguments[0].pdispVal);
      default:
        return DISP_E_MEMBERNOTFOUND;
    }
  }

 private:
  HRESULT CallBack(IDispatch& target) {
    wchar_t name[] = L"touch";
    LPOLESTR names = name;
    DISPID id = 0;
    const HRESULT found = target.GetIDsOfNames(IID_NULL, &names, 1, LOCALE_USER_DEFAULT, &id);
    if (FAILED(found)) return found;
    VARIANT_BOOL flag = VARIANT_FALSE;
    SHORT small = 1;
    LONG large = 2;
    double number = 3;
    BSTR text = ::SysAllocString(L"in");
    VARIANT any;
    any.vt = VT_BSTR;
    any.bstrVal = ::SysAllocString(L"inner");
    VARIANT arguments[6];
    const auto refer = [&arguments](int at, VARTYPE type, void* place) {
      arguments[5 - at].vt = static_cast<VARTYPE>(VT_BYREF | type);
      arguments[5 - at].byref = place;
    };
    refer(0, VT_BOOL, &flag);
    refer(1, VT_I2, &small);
    refer(2, VT_I4, &large);
    refer(3, VT_R8, &number);
    refer(4, VT_BSTR, &text);
    refer(5, VT_VARIANT, &any);
    DISPPARAMS parameters{arguments, nullptr, 6, 0};
    const HRESULT called =
        target.Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &parameters, nullptr, nullptr, nullptr);
    for (int i = 5; i >= 0; --i) {
      VARIANT shown;
      ::VariantInit(&shown);
      ::VariantChangeType(&shown, &arguments[i], VARIANT_ALPHABOOL, VT_BSTR);
      mLog.answers.push_back(win32::FromBstr(shown.bstrVal));
      ::VariantClear(&shown);
    }
    ::SysFreeString(text);
    ::VariantClear(&any);
    return called;
  }

  NativeLog& mLog;
  ULONG mOwners = 0;
};

}  // namespace

Object NewNativeObject(NativeLog& log) {
  const win32::ComRef<IDispatch> object(new NativeObject(log));
  return win32::Wrap(object.get());
}

}  // namespace strandline::win32test
