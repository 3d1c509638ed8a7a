#pragma once

#include "platform/win32/windows_api.h"

namespace strandline::win32 {

// A VARIANT that is cleared when it goes.
class OwnVariant {
 public:
  OwnVariant() { mValue.vt = VT_EMPTY; }
  explicit OwnVariant(const VARIANT& taken) : mValue(taken) {}
  OwnVariant(const OwnVariant&) = delete;
  OwnVariant& operator=(const OwnVariant&) = delete;
  ~OwnVariant() {
    if (HoldsMore()) ::VariantClear(&mValue);
  }

  VARIANT& operator*() { return mValue; }
  VARIANT* operator->() { return &mValue; }
  VARIANT* get() { return &mValue; }

 private:
  // Plain numbers are all that most calls come with.
  bool HoldsMore() const { return mValue.vt > VT_DATE && mValue.vt != VT_BOOL; }

  VARIANT mValue;
};

inline VARIANT VariantOfType(int type) {
  VARIANT value{};
  value.vt = static_cast<VARTYPE>(type);
  return value;
}

}  // namespace strandline::win32
