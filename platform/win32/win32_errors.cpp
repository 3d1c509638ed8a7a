#include "platform/win32/win32_errors.h"

#include "platform/win32/windows_api.h"

namespace strandline::win32 {

namespace {

constexpr std::uint32_t kControlErrors = 0x800A0000;

struct Known {
  HRESULT result;
  Long number;
};
constexpr Known kKnown[] = {
    {DISP_E_UNKNOWNNAME, errors::kNoSuchMember},
    {DISP_E_MEMBERNOTFOUND, errors::kNoSuchMember},
    {DISP_E_TYPEMISMATCH, errors::kTypeMismatch},
    {DISP_E_OVERFLOW, errors::kOverflow},
    {DISP_E_BADINDEX, errors::kSubscriptOutOfRange},
    {DISP_E_NONAMEDARGS, errors::kNoNamedArguments},
    {DISP_E_PARAMNOTFOUND, errors::kNoSuchNamedArgument},
    {DISP_E_PARAMNOTOPTIONAL, errors::kArgumentNotOptional},
    {DISP_E_BADPARAMCOUNT, errors::kWrongNumberOfArguments},
    {E_OUTOFMEMORY, errors::kOutOfMemory},
    {E_INVALIDARG, errors::kInvalidArgument},
    {REGDB_E_CLASSNOTREG, errors::kCannotCreateComponent},
};

String TakeText(BSTR text) {
  String taken = FromBstr(text);
  ::SysFreeString(text);
  return taken;
}

// From the thread's error information, if the object is one of those that leave it. Somebody else's could lie there
// otherwise.
void TakeThreadsWords(IDispatch& object, Error& error) {
  ComRef<ISupportErrorInfo> support;
  ComRef<IErrorInfo> information;
  if (FAILED(object.QueryInterface(IID_ISupportErrorInfo, support.PutVoid())) ||
      support->InterfaceSupportsErrorInfo(IID_IDispatch) != S_OK || ::GetErrorInfo(0, information.Put()) != S_OK ||
      !information) {
    return;
  }
  BSTR text = nullptr;
  if (SUCCEEDED(information->GetDescription(&text))) error.description = TakeText(text);
  text = nullptr;
  if (error.source.IsEmpty() && SUCCEEDED(information->GetSource(&text))) error.source = TakeText(text);
}

}  // namespace

Long ErrorNumber(Long result) {
  const Long code = result & 0xFFFF;
  if ((static_cast<std::uint32_t>(result) & 0xFFFF0000) == kControlErrors && code != 0) return code;
  for (const Known& known : kKnown) {
    if (known.result == result) return known.number;
  }
  return result;
}

void RaiseResult(Long result) { Raise(ErrorNumber(result)); }

void ForgetErrorInformation() { ::SetErrorInfo(0, nullptr); }

Error TakeError(Long result, EXCEPINFO& exception, IDispatch* object) {
  Error error(ErrorNumber(result), {}, {});
  if (result == DISP_E_EXCEPTION) {
    if (exception.pfnDeferredFillIn) exception.pfnDeferredFillIn(&exception);
    // A failure without any number is still one.
    if (exception.scode != 0) error.number = ErrorNumber(exception.scode);
    if (exception.wCode != 0) error.number = exception.wCode;
    error.description = FromBstr(exception.bstrDescription);
    error.source = FromBstr(exception.bstrSource);
  }
  ::SysFreeString(exception.bstrSource);
  ::SysFreeString(exception.bstrDescription);
  ::SysFreeString(exception.bstrHelpFile);
  exception = {};
  if (error.description.IsEmpty() && object) TakeThreadsWords(*object, error);
  if (error.description.IsEmpty()) error.description = ErrorDescription(error.number);
  if (error.source.IsEmpty()) error.source = ProgramName();
  return error;
}

}  // namespace strandline::win32
