#pragma once

#include "platform/variant.h"
#include "platform/win32/member_ids.h"
#include "platform/win32/windows_api.h"

namespace strandline::win32 {

// An object of the automation world behind the seam's Object. There is one for each object that is held, so that one
// object is one Object (Wrap).
class ComObject final : public Dispatch {
 public:
  static Ref<Dispatch> Of(IDispatch& object);

  IDispatch* Com() const { return mObject.get(); }

  // A get may be answered by a method, and a call by a property where there is no method of that name. What the callee
  // writes by reference stays written, even where it fails.
  Variant Invoke(Use use, Name member, const Arguments& arguments) override;
  Long Identity() const override;
  Ref<Enumerator> Elements() override;
  Picture AsPicture() const override;

 private:
  ComObject(ComRef<IUnknown> identity, IDispatch& object);
  ~ComObject() override;

  // `ids` of the member and of the named arguments.
  Variant Call(Use use, DISPID* ids, const Arguments& arguments);
  HRESULT CallAs(Use use, DISPID member, DISPPARAMS& parameters, VARIANT* result, EXCEPINFO& exception);

  const ComRef<IUnknown> mIdentity;
  const ComRef<IDispatch> mObject;
  MemberIds mMembers;
};

}  // namespace strandline::win32
