#include "win32_variant.h"

#include <algorithm>

#include "win32_errors.h"
#include "win32_pictures.h"
#include "windows_api.h"

namespace strandline::win32 {

namespace {

VARIANT OfType(VARTYPE type) {
  VARIANT value;
  VariantInit(&value);
  value.vt = type;
  return value;
}

BSTR RequiredBstr(const String& text) {
  const BSTR made = ToBstr(text);
  if (!made) Raise(errors::kOutOfMemory);
  return made;
}

void Put(Byte value, void* to) { *static_cast<BYTE*>(to) = value; }
void Put(bool value, void* to) { *static_cast<VARIANT_BOOL*>(to) = value ? VARIANT_TRUE : VARIANT_FALSE; }
void Put(const String& value, void* to) { *static_cast<BSTR*>(to) = RequiredBstr(value); }
void Take(Byte& value, const void* from) { value = *static_cast<const BYTE*>(from); }
void Take(bool& value, const void* from) { value = *static_cast<const VARIANT_BOOL*>(from) != VARIANT_FALSE; }
void Take(String& value, const void* from) { value = FromBstr(*static_cast<const BSTR*>(from)); }

// An array that was never sized is none at all there.
template <class T>
VARIANT ToArray(const Array<T>& array, VARTYPE type) {
  VARIANT result = OfType(static_cast<VARTYPE>(VT_ARRAY | type));
  result.parray = nullptr;
  if (!array.IsSized()) return result;
  const auto& elements = array.Elements();
  result.parray = SafeArrayCreateVector(type, array.Lower(), static_cast<ULONG>(elements.size()));
  if (!result.parray) Raise(errors::kOutOfMemory);
  Byte* to = static_cast<Byte*>(result.parray->pvData);
  for (const auto& element : elements) {
    Put(element, to);
    to += result.parray->cbElements;
  }
  return result;
}

template <class T>
Variant FromArray(SAFEARRAY* source) {
  Array<T> array;
  if (!source) return array;
  LONG lower = 0;
  LONG upper = -1;
  if (SafeArrayGetDim(source) != 1) Raise(errors::kTypeMismatch);
  RaiseIfFailed(SafeArrayGetLBound(source, 1, &lower));
  RaiseIfFailed(SafeArrayGetUBound(source, 1, &upper));
  array.Size(lower, upper);
  const Byte* from = static_cast<const Byte*>(source->pvData);
  for (Long i = lower; i <= upper; ++i, from += source->cbElements) Take(array(i), from);
  return array;
}

struct Writer {
  VARIANT operator()(const Variant::Empty&) const { return OfType(VT_EMPTY); }
  VARIANT operator()(const Missing&) const {
    VARIANT value = OfType(VT_ERROR);
    value.scode = DISP_E_PARAMNOTFOUND;
    return value;
  }
  VARIANT operator()(Boolean given) const {
    VARIANT value = OfType(VT_BOOL);
    value.boolVal = given ? VARIANT_TRUE : VARIANT_FALSE;
    return value;
  }
  VARIANT operator()(Integer given) const {
    VARIANT value = OfType(VT_I2);
    value.iVal = given;
    return value;
  }
  VARIANT operator()(Long given) const {
    VARIANT value = OfType(VT_I4);
    value.lVal = given;
    return value;
  }
  VARIANT operator()(Single given) const {
    VARIANT value = OfType(VT_R4);
    value.fltVal = given;
    return value;
  }
  VARIANT operator()(Double given) const {
    VARIANT value = OfType(VT_R8);
    value.dblVal = given;
    return value;
  }
  VARIANT operator()(Date given) const {
    VARIANT value = OfType(VT_DATE);
    value.date = given.days;
    return value;
  }
  VARIANT operator()(const String& given) const {
    VARIANT value = OfType(VT_BSTR);
    value.bstrVal = RequiredBstr(given);
    return value;
  }
  VARIANT operator()(const Object& given) const { return Dispatched(Unwrap(given)); }
  VARIANT operator()(const Picture& given) const {
    IDispatch* const object = given ? DispatchOf(*given) : nullptr;
    if (given && !object) Raise(errors::kTypeMismatch);
    return Dispatched(object);
  }
  VARIANT operator()(const Variant::Shared<Byte>& given) const { return ToArray(*given, VT_UI1); }
  VARIANT operator()(const Variant::Shared<String>& given) const { return ToArray(*given, VT_BSTR); }
  VARIANT operator()(const Variant::Shared<Boolean>& given) const { return ToArray(*given, VT_BOOL); }
  template <class T>
  VARIANT operator()(T* given) const {
    return ToVARIANT(Variant::ByRef(*given).Resolved());
  }

 private:
  static VARIANT Dispatched(IDispatch* object) {
    VARIANT value = OfType(VT_DISPATCH);
    value.pdispVal = object;
    return value;
  }
};

Variant FromUnknown(IUnknown* object) {
  if (!object) return Object();
  ComRef<IDispatch> dispatch;
  if (FAILED(object->QueryInterface(IID_IDispatch, dispatch.PutVoid()))) Raise(errors::kTypeMismatch);
  return Wrap(dispatch.get());
}

// Numbers of kinds that the seam doesn't have: the narrower ones as a Long, the wider ones as a Double.
Variant FromOtherNumber(const VARIANT& value) {
  VARIANT number = OfType(VT_EMPTY);
  if (SUCCEEDED(VariantChangeType(&number, const_cast<VARIANT*>(&value), 0, VT_I4)) && value.vt != VT_CY &&
      value.vt != VT_DECIMAL) {
    return static_cast<Long>(number.lVal);
  }
  RaiseIfFailed(VariantChangeType(&number, const_cast<VARIANT*>(&value), 0, VT_R8));
  return number.dblVal;
}

}  // namespace

VARIANT ToVARIANT(const Variant& value) { return std::visit(Writer{}, value.Raw()); }

Variant FromVARIANT(const VARIANT& value) {
  switch (value.vt) {
    case VT_EMPTY:
    case VT_NULL:
      return {};
    case VT_ERROR:
      return value.scode == DISP_E_PARAMNOTFOUND ? Variant(Missing{}) : Variant(static_cast<Long>(value.scode));
    case VT_BOOL:
      return value.boolVal != VARIANT_FALSE;
    case VT_I2:
      return static_cast<Integer>(value.iVal);
    case VT_I4:
      return static_cast<Long>(value.lVal);
    case VT_R4:
      return value.fltVal;
    case VT_R8:
      return value.dblVal;
    case VT_DATE:
      return Date{value.date};
    case VT_BSTR:
      return FromBstr(value.bstrVal);
    case VT_DISPATCH:
      return Wrap(value.pdispVal);
    case VT_UNKNOWN:
      return FromUnknown(value.punkVal);
    case VT_ARRAY | VT_UI1:
      return FromArray<Byte>(value.parray);
    case VT_ARRAY | VT_BSTR:
      return FromArray<String>(value.parray);
    case VT_ARRAY | VT_BOOL:
      return FromArray<Boolean>(value.parray);
    case VT_I1:
    case VT_UI1:
    case VT_UI2:
    case VT_UI4:
    case VT_INT:
    case VT_UINT:
    case VT_I8:
    case VT_UI8:
    case VT_CY:
    case VT_DECIMAL:
      return FromOtherNumber(value);
    default:
      break;
  }
  if (!(value.vt & VT_BYREF)) Raise(errors::kTypeMismatch);
  VARIANT copy = OfType(VT_EMPTY);
  RaiseIfFailed(VariantCopyInd(&copy, const_cast<VARIANT*>(&value)));
  struct Cleared {
    VARIANT& value;
    ~Cleared() { VariantClear(&value); }
  } const cleared{copy};
  return FromVARIANT(copy);
}

}  // namespace strandline::win32
