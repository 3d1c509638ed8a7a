#include "platform/win32/win32_components.h"

#include "platform/error.h"
#include "platform/win32/built_in_blender.h"
#include "platform/win32/com_dictionary.h"
#include "platform/win32/win32_variant.h"
#include "platform/win32/windows_api.h"

namespace strandline::win32 {

// A component that is registered is the one that is asked, even where it can't be made.
Object Win32Components::CreateObject(const String& progId) {
  CLSID id{};
  if (FAILED(::CLSIDFromProgID(Wide(progId), &id))) {
    if (SameText(progId, kBlenderName)) return NewBuiltInBlender();
    Raise(errors::kCannotCreateComponent);
  }
  ComRef<IDispatch> object;
  if (FAILED(::CoCreateInstance(id, nullptr, CLSCTX_SERVER, IID_IDispatch, object.PutVoid()))) {
    Raise(errors::kCannotCreateComponent);
  }
  return Wrap(object.get());
}

Ref<Dictionary> Win32Components::CreateDictionary() { return ComDictionary::Make(); }

}  // namespace strandline::win32
