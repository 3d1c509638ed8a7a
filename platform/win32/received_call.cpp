#include "platform/win32/received_call.h"

#include <cstring>
#include <utility>

#include "platform/win32/win32_errors.h"
#include "platform/win32/win32_variant.h"

namespace strandline::win32 {

namespace {

// What stands in a variant of that type, in bytes; 0 for what isn't a plain number.
std::size_t NumberSize(VARTYPE type) {
  switch (type) {
    case VT_I1:
    case VT_UI1:
      return 1;
    case VT_I2:
    case VT_UI2:
    case VT_BOOL:
      return 2;
    case VT_I4:
    case VT_UI4:
    case VT_INT:
    case VT_UINT:
    case VT_R4:
    case VT_ERROR:
      return 4;
    case VT_I8:
    case VT_UI8:
    case VT_R8:
    case VT_DATE:
    case VT_CY:
      return 8;
    default:
      return 0;
  }
}

// `value` goes into the caller's variable; what was there comes back in it, to be cleared.
HRESULT Exchange(const VARIANT& reference, VARIANT& value) {
  const auto type = static_cast<VARTYPE>(reference.vt & ~VT_BYREF);
  if (type & VT_ARRAY) {
    if (value.vt != type) return DISP_E_TYPEMISMATCH;
    std::swap(*reference.pparray, value.parray);
    return S_OK;
  }
  if (const HRESULT changed = VariantChangeType(&value, &value, 0, type); FAILED(changed)) return changed;
  if (type == VT_BSTR) {
    std::swap(*reference.pbstrVal, value.bstrVal);
  } else if (type == VT_DISPATCH || type == VT_UNKNOWN) {
    std::swap(*reference.ppunkVal, value.punkVal);
  } else if (type == VT_DECIMAL) {
    // The record lies over the variant's own type, which isn't the variable's.
    *reference.pdecVal = value.decVal;
    reference.pdecVal->wReserved = 0;
  } else if (const std::size_t size = NumberSize(type)) {
    std::memcpy(reference.byref, &value.llVal, size);
  } else {
    return DISP_E_TYPEMISMATCH;
  }
  return S_OK;
}

HRESULT WriteThrough(const VARIANT& reference, const Variant& value) {
  const VARIANT* to = &reference;
  if (to->vt == (VT_BYREF | VT_VARIANT) && (to->pvarVal->vt & VT_BYREF)) to = to->pvarVal;
  VARIANT given = ToVARIANT(value);
  const HRESULT result = to->vt == (VT_BYREF | VT_VARIANT) ? VariantCopy(to->pvarVal, &given) : Exchange(*to, given);
  VariantClear(&given);
  return result;
}

// A reference must lead somewhere, by way of one variant at most.
void RequireWhole(const VARIANT& given) {
  if (!(given.vt & VT_BYREF)) return;
  if (!given.byref) Raise(errors::kInvalidArgument);
  if (given.vt != (VT_BYREF | VT_VARIANT)) return;
  const VARIANT& inner = *given.pvarVal;
  if (!(inner.vt & VT_BYREF)) return;
  if (inner.vt == (VT_BYREF | VT_VARIANT)) Raise(errors::kTypeMismatch);
  if (!inner.byref) Raise(errors::kInvalidArgument);
}

}  // namespace

Variant ReceivedCall::Read(const DISPPARAMS& given, UINT at) {
  mAt = at;
  const VARIANT& argument = given.rgvarg[at];
  RequireWhole(argument);
  Variant value = FromVARIANT(argument);
  if (!(argument.vt & VT_BYREF) || value.IsMissing()) return value;
  Slot& slot = mReferences.emplace_back(Slot{&argument, value, value});
  return Variant::ByRef(slot.value);
}

void ReceivedCall::Take(const DISPPARAMS& given, bool isLet, const NameOf& nameOf) {
  const UINT count = given.cArgs;
  const UINT named = given.cNamedArgs;
  if (named > count || (count > 0 && !given.rgvarg) || (named > 0 && !given.rgdispidNamedArgs)) {
    Raise(errors::kInvalidArgument);
  }
  mFirst = given.rgvarg;
  mReferences.reserve(count);  // references to them go out
  mPositional.reserve(count);
  mNamed.reserve(named);
  for (UINT at = count; at-- > named;) mPositional.push_back(Read(given, at));
  for (UINT at = 0; at < named; ++at) {
    const DISPID id = given.rgdispidNamedArgs[at];
    if (isLet && id == DISPID_PROPERTYPUT) {
      mPositional.push_back(Read(given, at));
      continue;
    }
    mAt = at;
    const std::string* const name = nameOf(id);
    if (!name) Raise(errors::kNoSuchNamedArgument);
    mNamed.push_back({Name::FromText(*name), Read(given, at)});
  }
}

void ReceivedCall::WriteBack() {
  for (const Slot& slot : mReferences) {
    if (slot.value == slot.before) continue;
    mAt = static_cast<UINT>(slot.given - mFirst);
    RaiseIfFailed(WriteThrough(*slot.given, slot.value));
  }
}

HRESULT ControlResult(const Error& error) {
  return error.number <= 0 ? error.number : static_cast<HRESULT>(0x800A0000u | (error.number & 0xFFFF));
}

HRESULT ToException(const Error& error, const wchar_t* source, EXCEPINFO* exception) {
  if (!exception) return DISP_E_EXCEPTION;
  *exception = {};
  exception->scode = ControlResult(error);
  exception->bstrDescription = ToBstr(error.description);
  exception->bstrSource = source ? ::SysAllocString(source) : nullptr;
  return DISP_E_EXCEPTION;
}

}  // namespace strandline::win32
