// Values on their way out into the automation world.

#include "platform/win32/own_variant.h"
#include "platform/win32/win32_pictures.h"
#include "platform/win32/win32_variant.h"
#include "platform/win32/windows_api.h"

namespace strandline::win32 {

namespace {

BSTR RequiredBstr(const String& text) {
  const BSTR made = ToBstr(text);
  if (!made) Raise(errors::kOutOfMemory);
  return made;
}

void Put(Byte value, void* to) { *static_cast<BYTE*>(to) = value; }
void Put(bool value, void* to) { *static_cast<VARIANT_BOOL*>(to) = value ? VARIANT_TRUE : VARIANT_FALSE; }
void Put(const String& value, void* to) { *static_cast<BSTR*>(to) = RequiredBstr(value); }
void Put(const Variant& value, void* to) { *static_cast<VARIANT*>(to) = ToVARIANT(value); }

// An array that was never sized is none at all there.
template <class T>
VARIANT ToArray(const Array<T>& array, VARTYPE type) {
  VARIANT result = VariantOfType(VT_ARRAY | type);
  result.parray = nullptr;
  if (!array.IsSized()) return result;
  const auto& elements = array.Elements();
  result.parray = ::SafeArrayCreateVector(type, array.Lower(), static_cast<ULONG>(elements.size()));
  if (!result.parray) Raise(errors::kOutOfMemory);
  try {
    Byte* to = static_cast<Byte*>(result.parray->pvData);
    for (const auto& element : elements) {
      Put(element, to);
      to += result.parray->cbElements;
    }
  } catch (...) {
    ::VariantClear(&result);
    throw;
  }
  return result;
}

struct Writer {
  VARIANT operator()(const Variant::Empty&) const { return VariantOfType(VT_EMPTY); }
  VARIANT operator()(const Variant::Null&) const { return VariantOfType(VT_NULL); }
  VARIANT operator()(const Missing&) const {
    VARIANT value = VariantOfType(VT_ERROR);
    value.scode = DISP_E_PARAMNOTFOUND;
    return value;
  }
  VARIANT operator()(Boolean given) const {
    VARIANT value = VariantOfType(VT_BOOL);
    value.boolVal = given ? VARIANT_TRUE : VARIANT_FALSE;
    return value;
  }
  VARIANT operator()(Integer given) const {
    VARIANT value = VariantOfType(VT_I2);
    value.iVal = given;
    return value;
  }
  VARIANT operator()(Long given) const {
    VARIANT value = VariantOfType(VT_I4);
    value.lVal = given;
    return value;
  }
  VARIANT operator()(Single given) const {
    VARIANT value = VariantOfType(VT_R4);
    value.fltVal = given;
    return value;
  }
  VARIANT operator()(Double given) const {
    VARIANT value = VariantOfType(VT_R8);
    value.dblVal = given;
    return value;
  }
  VARIANT operator()(Date given) const {
    VARIANT value = VariantOfType(VT_DATE);
    value.date = given.days;
    return value;
  }
  VARIANT operator()(const String& given) const {
    VARIANT value = VariantOfType(VT_BSTR);
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
  VARIANT operator()(const Variant::Shared<Variant>& given) const { return ToArray(*given, VT_VARIANT); }
  template <class T>
  VARIANT operator()(T* given) const {
    return ToVARIANT(Variant::ByRef(*given).Resolved());
  }

 private:
  static VARIANT Dispatched(IDispatch* object) {
    VARIANT value = VariantOfType(VT_DISPATCH);
    value.pdispVal = object;
    return value;
  }
};

}  // namespace

VARIANT ToVARIANT(const Variant& value) { return value.Visit(Writer{}); }

}  // namespace strandline::win32
