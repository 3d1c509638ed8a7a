#include "platform/win32/win32_components.h"

#include "platform/error.h"
#include "platform/win32/win32_variant.h"
#include "platform/win32/windows_api.h"

namespace strandline::win32 {

Object Win32Components::CreateObject(const String& progId) {
  CLSID id{};
  ComRef<IDispatch> object;
  if (FAILED(::CLSIDFromProgID(Wide(progId), &id)) ||
      FAILED(::CoCreateInstance(id, nullptr, CLSCTX_SERVER, IID_IDispatch, object.PutVoid()))) {
    Raise(errors::kCannotCreateComponent);
  }
  return Wrap(object.get());
}

}  // namespace strandline::win32
