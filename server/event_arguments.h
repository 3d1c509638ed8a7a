#pragma once

// The arguments of an event, on their way to sinks outside. What a sink writes by reference the next one sees.

#include <array>
#include <span>

#include "platform/win32/win32_variant.h"
//
#include "platform/win32/windows_api.h"

namespace strandline::server {

// `kCount` arguments, given in their order and sent the other way round.
template <std::size_t kCount>
class EventArguments {
 public:
  EventArguments() {
    for (VARIANT& value : mValues) VariantInit(&value);
    for (VARIANT& value : mSent) VariantInit(&value);
  }
  EventArguments(const EventArguments&) = delete;
  EventArguments& operator=(const EventArguments&) = delete;
  ~EventArguments() {
    for (VARIANT& value : mValues) VariantClear(&value);
  }

  void ByValue(std::size_t at, const Variant& value) {
    mValues[at] = win32::ToVARIANT(value);
    mSent[kCount - 1 - at] = mValues[at];
  }
  void ByReference(std::size_t at, const Variant& value) {
    mValues[at] = win32::ToVARIANT(value);
    VARIANT& sent = mSent[kCount - 1 - at];
    sent.vt = static_cast<VARTYPE>(VT_BYREF | mValues[at].vt);
    sent.byref = &mValues[at].byref;
  }
  std::span<VARIANT> Sent() { return mSent; }
  // What the sinks have left there. A value that can't be read leaves the variable as it is.
  void TakeBack(std::size_t at, Integer& variable) const { variable = mValues[at].iVal; }
  void TakeBack(std::size_t at, String& variable) const { variable = win32::FromBstr(mValues[at].bstrVal); }
  template <class T>
  void TakeBack(std::size_t at, Array<T>& variable) const {
    try {
      const Variant left = win32::FromVARIANT(mValues[at]);
      if (const auto* elements = left.If<Variant::Shared<T>>()) variable = **elements;
    } catch (const Error&) {
    }
  }

 private:
  std::array<VARIANT, kCount> mValues;
  std::array<VARIANT, kCount> mSent;
};

// A sink's failure, or what it leaves in a variable, must not reach whoever raised the event.
template <class Body>
void Quietly(Body&& body) noexcept {
  try {
    body();
  } catch (...) {
  }
}

}  // namespace strandline::server
