#include "platform/win32/com_dictionary.h"

namespace strandline::win32 {

Ref<Dictionary> ComDictionary::Make() {
  CLSID id{};
  ComRef<IDispatch> object;
  if (FAILED(::CLSIDFromProgID(L"Scripting.Dictionary", &id)) ||
      FAILED(::CoCreateInstance(id, nullptr, CLSCTX_SERVER, IID_IDispatch, object.PutVoid()))) {
    Raise(errors::kCannotCreateComponent);
  }
  return Ref<Dictionary>(new ComDictionary(*object.get()));
}

Array<Variant> ComDictionary::List(Name member) const {
  const Variant list = Do(Use::kCall, member);
  const auto* const values = list.If<Variant::Shared<Variant>>();
  if (!values) Raise(errors::kTypeMismatch);
  return **values;
}

}  // namespace strandline::win32
