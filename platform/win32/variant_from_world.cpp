// Values on their way in from the automation world. What stands there may be of any kind, and damaged.

#include <cstring>
#include <limits>

#include "platform/win32/own_variant.h"
#include "platform/win32/win32_errors.h"
#include "platform/win32/win32_variant.h"
#include "platform/win32/windows_api.h"

namespace strandline::win32 {

namespace {

// References and arrays within each other go so deep; there may be rings of them.
constexpr int kDeepest = 8;

Variant Read(const VARIANT& value, int depth);

std::size_t SizeOf(int type) {
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
    case VT_CY:
    case VT_DATE:
      return 8;
    case VT_BSTR:
    case VT_DISPATCH:
    case VT_UNKNOWN:
      return sizeof(void*);
    case VT_DECIMAL:
      return sizeof(DECIMAL);
    case VT_VARIANT:
      return sizeof(VARIANT);
    default:
      return 0;
  }
}

// What stands at a place, which must be of a kind that has a size.
Variant ReadAt(const void* place, int type, int depth) {
  if (type == VT_VARIANT) return Read(*static_cast<const VARIANT*>(place), depth - 1);
  VARIANT view = VariantOfType(VT_EMPTY);
  // A decimal fills the VARIANT but for its type.
  std::memcpy(type == VT_DECIMAL ? static_cast<void*>(&view) : &view.byref, place, SizeOf(type));
  view.vt = static_cast<VARTYPE>(type);
  return Read(view, depth);
}

class Elements {
 public:
  Elements(SAFEARRAY* array, int type) : mArray(array) {
    LONG lower = 0;
    LONG upper = 0;
    if (::SafeArrayGetDim(array) != 1 || SizeOf(type) == 0 || ::SafeArrayGetElemsize(array) != SizeOf(type)) {
      Raise(errors::kTypeMismatch);
    }
    RaiseIfFailed(::SafeArrayGetLBound(array, 1, &lower));
    RaiseIfFailed(::SafeArrayGetUBound(array, 1, &upper));
    mLower = static_cast<Long>(lower);
    mUpper = static_cast<Long>(upper);
    void* data = nullptr;
    RaiseIfFailed(::SafeArrayAccessData(array, &data));
    mFirst = static_cast<const Byte*>(data);
  }
  ~Elements() { ::SafeArrayUnaccessData(mArray); }
  Elements(const Elements&) = delete;
  Elements& operator=(const Elements&) = delete;

  template <class T, class Take>
  Array<T> Copy(Take take) const {
    Array<T> array(mLower, mUpper);
    const Byte* from = mFirst;
    for (std::int64_t i = mLower; i <= mUpper; ++i, from += mArray->cbElements)
      array(static_cast<Long>(i)) = take(from);
    return array;
  }

 private:
  SAFEARRAY* mArray;
  const Byte* mFirst = nullptr;
  Long mLower = 0;
  Long mUpper = -1;
};

template <class T>
T As(const void* from) {
  T value;
  std::memcpy(&value, from, sizeof value);
  return value;
}

template <class T, class Take>
Variant Copied(SAFEARRAY* array, int type, Take take) {
  return array ? Elements(array, type).Copy<T>(take) : Array<T>();
}

Variant ReadArray(SAFEARRAY* array, int type, int depth) {
  switch (type) {
    case VT_UI1:
      return Copied<Byte>(array, type, [](const void* from) { return As<Byte>(from); });
    case VT_BSTR:
      return Copied<String>(array, type, [](const void* from) { return FromBstr(As<BSTR>(from)); });
    case VT_BOOL:
      return Copied<Boolean>(array, type, [](const void* from) { return As<VARIANT_BOOL>(from) != VARIANT_FALSE; });
    default:
      return Copied<Variant>(array, type, [type, depth](const void* from) { return ReadAt(from, type, depth - 1); });
  }
}

Variant ReadReference(const VARIANT& value, int depth) {
  const int type = value.vt & ~VT_BYREF;
  if (!value.byref) Raise(errors::kTypeMismatch);
  if (type & VT_ARRAY) return ReadArray(*value.pparray, type & ~VT_ARRAY, depth);
  if (SizeOf(type) == 0) Raise(errors::kTypeMismatch);
  return ReadAt(value.byref, type, depth);
}

Variant FromUnknown(IUnknown* object) {
  if (!object) return Object();
  ComRef<IDispatch> dispatch;
  if (FAILED(object->QueryInterface(IID_IDispatch, dispatch.PutVoid()))) Raise(errors::kTypeMismatch);
  return Wrap(dispatch.get());
}

Variant FromWhole(std::int64_t number) {
  const bool fits = number >= std::numeric_limits<Long>::min() && number <= std::numeric_limits<Long>::max();
  return fits ? Variant(static_cast<Long>(number)) : Variant(static_cast<Double>(number));
}

Variant FromUnsignedWhole(std::uint64_t number) {
  const bool fits = number <= static_cast<std::uint64_t>(std::numeric_limits<Long>::max());
  return fits ? Variant(static_cast<Long>(number)) : Variant(static_cast<Double>(number));
}

Double FromDecimal(const VARIANT& value) {
  Double number = 0;
  DECIMAL decimal = value.decVal;
  RaiseIfFailed(::VarR8FromDec(&decimal, &number));
  return number;
}

Variant Read(const VARIANT& value, int depth) {
  if (depth <= 0) Raise(errors::kTypeMismatch);
  switch (value.vt) {
    case VT_EMPTY:
      return {};
    case VT_NULL:
      return Variant::Null();
    case VT_ERROR:
      if (value.scode != DISP_E_PARAMNOTFOUND) Raise(errors::kTypeMismatch);
      return Missing();
    case VT_BOOL:
      return value.boolVal != VARIANT_FALSE;
    case VT_I2:
      return static_cast<Integer>(value.iVal);
    case VT_I4:
    case VT_INT:
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
    case VT_I1:
      return static_cast<Integer>(static_cast<signed char>(value.cVal));
    case VT_UI1:
      return static_cast<Integer>(value.bVal);
    case VT_UI2:
      return static_cast<Long>(value.uiVal);
    case VT_UI4:
    case VT_UINT:
      return FromUnsignedWhole(value.ulVal);
    case VT_I8:
      return FromWhole(value.llVal);
    case VT_UI8:
      return FromUnsignedWhole(value.ullVal);
    case VT_CY:
      return static_cast<Double>(value.cyVal.int64) / 10'000;
    case VT_DECIMAL:
      return FromDecimal(value);
    default:
      break;
  }
  if (value.vt & VT_BYREF) return ReadReference(value, depth);
  if (value.vt & VT_ARRAY) return ReadArray(value.parray, value.vt & ~VT_ARRAY, depth);
  Raise(errors::kTypeMismatch);
}

}  // namespace

Variant FromVARIANT(const VARIANT& value) { return Read(value, kDeepest); }

}  // namespace strandline::win32
