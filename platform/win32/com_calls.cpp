#include "platform/win32/com_calls.h"

#include <exception>
#include <optional>

#include "platform/win32/call_argument.h"
#include "platform/win32/com_enumerator.h"
#include "platform/win32/slots.h"
#include "platform/win32/win32_errors.h"
#include "platform/win32/win32_pictures.h"
#include "platform/win32/windows_api.h"

namespace strandline::win32 {

namespace {

// Gives the callers' variables what was written into them, each whatever becomes of the others; then the first failure
// is raised, unless the call has failed itself.
void WriteBack(Slots<CallArgument, 8>& slots, bool hasFailed) {
  std::exception_ptr first;
  for (std::size_t i = 0; i < slots.size(); ++i) {
    try {
      slots[i].WriteBack();
    } catch (...) {
      if (!first) first = std::current_exception();
    }
  }
  if (first && !hasFailed) std::rethrow_exception(first);
}

// Whether the object has no such way to be used, or one that is declared alone.
bool IsMissing(HRESULT called, const EXCEPINFO& exception) {
  return called == DISP_E_MEMBERNOTFOUND || called == E_NOTIMPL ||
         (called == DISP_E_EXCEPTION && exception.scode == E_NOTIMPL);
}

}  // namespace

ComCalls::ComCalls(IDispatch& object) : mObject(&object) {
  RaiseIfFailed(object.QueryInterface(IID_IUnknown, mIdentity.PutVoid()));
}

Variant ComCalls::Invoke(Use use, Name member, const Arguments& arguments) const {
  const std::size_t named = arguments.named.size();
  if (named == 0) {
    DISPID id = mMembers.Find(*mObject.get(), member);
    return Call(use, &id, arguments);
  }
  Slots<DISPID, 8> ids(named + 1);
  MemberIds::FindNamed(*mObject.get(), member, arguments.named, ids.data());
  return Call(use, ids.data(), arguments);
}

// The last of the positional arguments goes first, behind the named ones; the value of a property counts as named.
Variant ComCalls::Call(Use use, DISPID* ids, const Arguments& arguments) const {
  const std::size_t positional = arguments.positional.size();
  const std::size_t named = arguments.named.size();
  Slots<CallArgument, 8> slots(positional + named);
  Slots<VARIANT, 8> passed(positional + named);
  for (std::size_t i = 0; i < named; ++i) slots[i].Take(arguments.named[i].value);
  for (std::size_t i = 0; i < positional; ++i) slots[named + positional - 1 - i].Take(arguments.positional[i]);
  for (std::size_t i = 0; i < positional + named; ++i) passed[i] = slots[i].Passed();

  DISPID valueId = DISPID_PROPERTYPUT;
  DISPPARAMS parameters{passed.data(), ids + 1, static_cast<UINT>(positional + named), static_cast<UINT>(named)};
  if (use == Use::kLet) {
    if (positional == 0 || named != 0) Raise(errors::kWrongNumberOfArguments);
    parameters.rgdispidNamedArgs = &valueId;
    parameters.cNamedArgs = 1;
  }
  OwnVariant result;
  EXCEPINFO exception{};
  const HRESULT called = CallAs(use, ids[0], parameters, result.get(), exception);
  std::optional<Error> error;
  if (FAILED(called)) error = TakeError(called, exception, mObject.get());
  WriteBack(slots, error.has_value());
  if (error) throw *error;
  return FromVARIANT(*result);
}

HRESULT ComCalls::CallAs(Use use, DISPID member, DISPPARAMS& parameters, VARIANT* result, EXCEPINFO& exception) const {
  const auto invoke = [&](int flags, VARIANT* wanted) {
    ForgetErrorInformation();
    return mObject->Invoke(member, IID_NULL, LOCALE_USER_DEFAULT, static_cast<WORD>(flags), &parameters, wanted,
                           &exception, nullptr);
  };
  HRESULT called = DISP_E_MEMBERNOTFOUND;
  switch (use) {
    case Use::kGet:
      return invoke(DISPATCH_METHOD | DISPATCH_PROPERTYGET, result);
    case Use::kCall:
      // An object may take the two flags together for the property alone.
      called = invoke(DISPATCH_METHOD, result);
      if (called == DISP_E_MEMBERNOTFOUND) called = invoke(DISPATCH_METHOD | DISPATCH_PROPERTYGET, result);
      return called;
    case Use::kLet:
      // Some objects have only the one of the two ways to set an object.
      if (parameters.rgvarg[0].vt != VT_DISPATCH) return invoke(DISPATCH_PROPERTYPUT, nullptr);
      called = invoke(DISPATCH_PROPERTYPUTREF, nullptr);
      if (!IsMissing(called, exception)) return called;
      if (called == DISP_E_EXCEPTION) TakeError(called, exception, nullptr);  // which frees its texts
      return invoke(DISPATCH_PROPERTYPUT, nullptr);
  }
  return called;
}

Long ComCalls::Pointer() const {
  const auto pointer = reinterpret_cast<std::uintptr_t>(mObject.get());
  return static_cast<Long>(sizeof pointer == sizeof(Long) ? pointer : pointer & 0x7FFFFFFF);
}

Ref<Enumerator> ComCalls::Elements() const {
  DISPPARAMS none{};
  OwnVariant result;
  EXCEPINFO exception{};
  const HRESULT called = CallAs(Use::kGet, DISPID_NEWENUM, none, result.get(), exception);
  if (FAILED(called)) throw TakeError(called, exception, mObject.get());
  ComRef<IEnumVARIANT> elements;
  const bool isObject = (result->vt == VT_UNKNOWN || result->vt == VT_DISPATCH) && result->punkVal;
  if (!isObject || FAILED(result->punkVal->QueryInterface(IID_IEnumVARIANT, elements.PutVoid()))) {
    Raise(errors::kNoSuchMember);
  }
  return Ref<Enumerator>(New<ComEnumerator>(elements));
}

Picture ComCalls::AsPicture() const {
  Picture picture = PictureOf(mObject.get());
  if (!picture) Raise(errors::kTypeMismatch);
  return picture;
}

}  // namespace strandline::win32
