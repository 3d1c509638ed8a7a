#pragma once

#include "platform/variant.h"
#include "platform/win32/member_ids.h"
#include "platform/win32/windows_api.h"

namespace strandline::win32 {

// The uses of one object of the automation world, which this holds. Whoever owns it stays alive through a call.
class ComCalls {
 public:
  explicit ComCalls(IDispatch& object);

  IDispatch* Automation() const { return mObject.get(); }
  // The one pointer by which the world tells objects apart.
  IUnknown* Identity() const { return mIdentity.get(); }
  // The pointer that is held, as a number; of a wider one the low bits, which differ for objects that live at the same
  // time unless they lie gigabytes apart.
  Long Pointer() const;

  // A get may be answered by a method, and a call by a property where there is no method of that name. What the callee
  // writes by reference stays written, even where it fails.
  Variant Invoke(Use use, Name member, const Arguments& arguments) const;
  Ref<Enumerator> Elements() const;
  Picture AsPicture() const;

 private:
  // `ids` of the member and of the named arguments.
  Variant Call(Use use, DISPID* ids, const Arguments& arguments) const;
  HRESULT CallAs(Use use, DISPID member, DISPPARAMS& parameters, VARIANT* result, EXCEPINFO& exception) const;

  const ComRef<IDispatch> mObject;
  ComRef<IUnknown> mIdentity;
  mutable MemberIds mMembers;
};

}  // namespace strandline::win32
