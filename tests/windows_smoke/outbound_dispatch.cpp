#include "outbound_dispatch.h"

#include <deque>
#include <map>
#include <string>
#include <vector>

#include "win32_errors.h"
#include "win32_variant.h"
#include "windows_api.h"

namespace strandline::win32 {

namespace {

// By which objects of ours know each other.
constexpr IID kOutboundId = {0x1c3b52b5, 0x7f41, 0x4b7e, {0x9a, 0x1d, 0x53, 0x0a, 0x6e, 0xc2, 0x94, 0x07}};

// An object behind the seam doesn't tell which members it has before one is used, so every name gets a number. The
// texts stay where they are for good, since names refer to them.
class MemberNames {
 public:
  DISPID IdOf(const wchar_t* wide) {
    std::string text = ToUtf8(TextView(reinterpret_cast<const char16_t*>(wide)));
    for (std::size_t i = 0; i < mTexts.size(); ++i) {
      if (Name::FromText(mTexts[i]) == Name::FromText(text)) return static_cast<DISPID>(i + 1);
    }
    mTexts.push_back(std::move(text));
    return static_cast<DISPID>(mTexts.size());
  }
  const std::string* TextOf(DISPID id) const {
    const bool known = id >= 1 && static_cast<std::size_t>(id) <= mTexts.size();
    return known ? &mTexts[static_cast<std::size_t>(id - 1)] : nullptr;
  }

 private:
  std::deque<std::string> mTexts;
};

MemberNames& Members() {
  static MemberNames names;
  return names;
}

HRESULT ResultOf(const Error& error, EXCEPINFO* exception) {
  if (error.number == errors::kNoSuchMember) return DISP_E_MEMBERNOTFOUND;
  if (!exception) return DISP_E_EXCEPTION;
  *exception = {};
  exception->bstrDescription = ToBstr(error.description);
  exception->scode = error.number < 0 ? error.number : static_cast<SCODE>(0x800A0000u | (error.number & 0xFFFF));
  return DISP_E_EXCEPTION;
}

// Writes a value into the variable behind a reference, in that variable's own type.
HRESULT WriteThrough(const VARIANT& reference, const Variant& value) {
  VARIANT given = ToVARIANT(value);
  HRESULT result = S_OK;
  if (reference.vt == (VT_BYREF | VT_VARIANT)) {
    result = VariantCopy(reference.pvarVal, &given);
  } else {
    const VARTYPE type = static_cast<VARTYPE>(reference.vt & ~VT_BYREF);
    result = VariantChangeType(&given, &given, 0, type);
    if (SUCCEEDED(result) && type == VT_BSTR) {
      std::swap(*reference.pbstrVal, given.bstrVal);
    } else if (SUCCEEDED(result) && (type == VT_DISPATCH || type == VT_UNKNOWN)) {
      std::swap(*reference.ppdispVal, given.pdispVal);
    } else if (SUCCEEDED(result) && (type == VT_BOOL || type == VT_I2)) {
      *reference.piVal = given.iVal;
    } else if (SUCCEEDED(result) && type == VT_I4) {
      *reference.plVal = given.lVal;
    } else if (SUCCEEDED(result) && type == VT_R8) {
      *reference.pdblVal = given.dblVal;
    }
  }
  VariantClear(&given);
  return result;
}

class Outbound;

std::map<Dispatch*, Outbound*>& Outbounds() {
  static std::map<Dispatch*, Outbound*> outbounds;
  return outbounds;
}

class Outbound final : public IDispatch {
 public:
  explicit Outbound(Dispatch& target) : mTarget(&target) { Outbounds().emplace(&target, this); }

  const Ref<Dispatch>& Target() const { return mTarget; }

  STDMETHODIMP QueryInterface(REFIID id, void** object) override {
    if (!object) return E_POINTER;
    *object = nullptr;
    if (id != IID_IUnknown && id != IID_IDispatch && id != kOutboundId) return E_NOINTERFACE;
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
  STDMETHODIMP GetTypeInfoCount(UINT* count) override {
    *count = 0;
    return S_OK;
  }
  STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
  // Names of arguments aren't known here.
  STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) override {
    for (UINT i = 0; i < count; ++i) ids[i] = DISPID_UNKNOWN;
    if (count == 0) return E_INVALIDARG;
    try {
      ids[0] = Members().IdOf(names[0]);
    } catch (...) {
      return E_OUTOFMEMORY;
    }
    return count == 1 ? S_OK : DISP_E_UNKNOWNNAME;
  }
  STDMETHODIMP Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* parameters, VARIANT* result,
                      EXCEPINFO* exception, UINT*) override {
    const std::string* const member = Members().TextOf(id);
    if (!member || !parameters) return DISP_E_MEMBERNOTFOUND;
    const Ref<Dispatch> target = mTarget;
    try {
      return Call(*target, Name::FromText(*member), flags, *parameters, result);
    } catch (const Error& error) {
      return ResultOf(error, exception);
    } catch (...) {
      return E_OUTOFMEMORY;
    }
  }

 private:
  ~Outbound() { Outbounds().erase(mTarget.get()); }

  static HRESULT Call(Dispatch& target, Name member, WORD flags, const DISPPARAMS& parameters, VARIANT* result) {
    const bool let = flags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF);
    if (parameters.cNamedArgs > (let ? 1u : 0u)) return DISP_E_NONAMEDARGS;
    const std::size_t count = parameters.cArgs;
    std::vector<Variant> values(count);  // behind the references
    std::vector<Variant> arguments(count);
    for (std::size_t i = 0; i < count; ++i) {
      const VARIANT& given = parameters.rgvarg[count - 1 - i];
      values[i] = FromVARIANT(given);
      arguments[i] = given.vt & VT_BYREF ? Variant::ByRef(values[i]) : values[i];
    }
    const Use use = let ? Use::kLet : flags & DISPATCH_METHOD ? Use::kCall : Use::kGet;
    const Variant answer = target.Invoke(use, member, {arguments, {}});
    for (std::size_t i = 0; i < count; ++i) {
      const VARIANT& given = parameters.rgvarg[count - 1 - i];
      if (given.vt & VT_BYREF) RaiseIfFailed(WriteThrough(given, values[i]));
    }
    if (result) *result = ToVARIANT(answer);
    return S_OK;
  }

  Ref<Dispatch> mTarget;
  ULONG mOwners = 0;
};

}  // namespace

IDispatch* OutboundOf(Dispatch& target) {
  const auto known = Outbounds().find(&target);
  Outbound* const outbound = known != Outbounds().end() ? known->second : new Outbound(target);
  outbound->AddRef();
  return outbound;
}

Ref<Dispatch> TargetOf(IDispatch* object) {
  ComRef<IUnknown> ours;
  if (FAILED(object->QueryInterface(kOutboundId, ours.PutVoid()))) return nullptr;
  return reinterpret_cast<Outbound*>(ours.get())->Target();
}

}  // namespace strandline::win32
