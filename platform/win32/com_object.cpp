#include "platform/win32/com_object.h"

#include <map>

#include "platform/win32/outbound_dispatch.h"
#include "platform/win32/win32_errors.h"
#include "platform/win32/win32_variant.h"
#include "platform/win32/windows_api.h"

namespace strandline::win32 {

namespace {

// Never destroyed: an object that outlives all else still finds it.
std::map<IUnknown*, Dispatch*>& Held() {
  static auto& held = *new std::map<IUnknown*, Dispatch*>;
  return held;
}

}  // namespace

ComBacked::ComBacked(IDispatch& object, Dispatch& self) : mCom(object) { Held().emplace(mCom.Identity(), &self); }

ComBacked::~ComBacked() { Held().erase(mCom.Identity()); }

Ref<Dispatch> ComObject::Of(IDispatch& object) {
  ComRef<IUnknown> identity;
  RaiseIfFailed(object.QueryInterface(IID_IUnknown, identity.PutVoid()));
  const auto known = Held().find(identity.get());
  if (known != Held().end()) return Ref<Dispatch>(known->second);
  return Ref<Dispatch>(new ComObject(object));
}

Object Wrap(IDispatch* object) {
  if (!object) return nullptr;
  if (Ref<Dispatch> ours = TargetOf(object)) return ours;
  return ComObject::Of(*object);
}

IDispatch* Unwrap(const Object& object) {
  if (object.IsNothing()) return nullptr;
  const auto* const foreign = dynamic_cast<const ComBacked*>(object.Target());
  if (!foreign) return OutboundOf(*object.Target());
  IDispatch* const result = foreign->Com().Automation();
  result->AddRef();
  return result;
}

}  // namespace strandline::win32
