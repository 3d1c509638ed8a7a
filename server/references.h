#pragma once

// Arguments that a client passes by reference, as the core's variables for the time of a call. Each goes back into the
// client's variable if the core has written another value.

#include <new>

#include "platform/variant.h"
#include "platform/win32/win32_variant.h"
//
#include "platform/win32/windows_api.h"

namespace strandline::server {

inline BSTR NewBstr(const String& text) {
  const BSTR made = win32::ToBstr(text);
  if (!made) throw std::bad_alloc();
  return made;
}

namespace references {

inline String Read(BSTR from) { return win32::FromBstr(from); }
inline Object Read(IDispatch* from) { return win32::Wrap(from); }
inline Boolean Read(VARIANT_BOOL from) { return from != VARIANT_FALSE; }

inline void Write(const String& value, BSTR& to) {
  const BSTR made = NewBstr(value);
  ::SysFreeString(to);
  to = made;
}
inline void Write(const Object& value, IDispatch*& to) {
  IDispatch* const former = to;
  to = win32::Unwrap(value);
  if (former) former->Release();
}
inline void Write(Boolean value, VARIANT_BOOL& to) { to = value ? VARIANT_TRUE : VARIANT_FALSE; }

}  // namespace references

// Place: the type of the client's variable, which must be there.
template <class Place>
class Reference {
 public:
  explicit Reference(Place* place) : value(references::Read(*place)), mPlace(place), mBefore(value) {}
  Reference(const Reference&) = delete;
  Reference& operator=(const Reference&) = delete;

  void WriteBack() const {
    if (!(value == mBefore)) references::Write(value, *mPlace);
  }

  using Value = decltype(references::Read(Place()));
  Value value;

 private:
  Place* mPlace;
  Value mBefore;
};

}  // namespace strandline::server
