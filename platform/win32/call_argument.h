#pragma once

#include "platform/win32/own_variant.h"
#include "platform/win32/win32_variant.h"
#include "platform/win32/windows_api.h"

namespace strandline::win32 {

// One argument of a late-bound call. What goes by reference has its value in a variant of our own meanwhile, but for
// numbers, which the callee reaches where they are.
class CallArgument {
 public:
  CallArgument() { mPassed.vt = VT_EMPTY; }
  CallArgument(const CallArgument&) = delete;
  CallArgument& operator=(const CallArgument&) = delete;

  // `given` outlives this.
  void Take(const Variant& given) {
    mGiven = &given;
    if (const auto* number = given.If<Integer*>()) return Refer(VT_I2, *number);
    if (const auto* number = given.If<Long*>()) return Refer(VT_I4, *number);
    if (const auto* number = given.If<Single*>()) return Refer(VT_R4, *number);
    if (const auto* number = given.If<Double*>()) return Refer(VT_R8, *number);
    *mOwn = ToVARIANT(given);
    if (!given.IsByRef()) {
      mPassed = *mOwn;
      return;
    }
    mWriteBack = true;
    if (given.If<Variant*>()) return Refer(VT_VARIANT, mOwn.get());
    Refer(mOwn->vt, &mOwn->byref);
  }
  // Only the bits: the variant is ours to clear.
  const VARIANT& Passed() const { return mPassed; }
  // Gives the caller's variable what the callee has left. Raises where it can't hold that.
  void WriteBack() {
    if (mWriteBack) mGiven->Assign(FromVARIANT(*mOwn));
  }

 private:
  void Refer(VARTYPE type, void* place) {
    mPassed.vt = static_cast<VARTYPE>(VT_BYREF | type);
    mPassed.byref = place;
  }

  const Variant* mGiven = nullptr;
  VARIANT mPassed;
  OwnVariant mOwn;
  bool mWriteBack = false;
};

}  // namespace strandline::win32
