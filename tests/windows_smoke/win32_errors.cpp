#include "win32_errors.h"

#include "windows_api.h"

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
    {DISP_E_PARAMNOTFOUND, errors::kNoSuchNamedArgument},
    {DISP_E_PARAMNOTOPTIONAL, errors::kArgumentNotOptional},
    {DISP_E_BADPARAMCOUNT, errors::kWrongNumberOfArguments},
    {E_OUTOFMEMORY, errors::kOutOfMemory},
    {E_INVALIDARG, errors::kInvalidArgument},
    {REGDB_E_CLASSNOTREG, errors::kCannotCreateComponent},
};

}  // namespace

Long ErrorNumber(Long result) {
  if ((static_cast<std::uint32_t>(result) & 0xFFFF0000) == kControlErrors) return result & 0xFFFF;
  for (const Known& known : kKnown) {
    if (known.result == result) return known.number;
  }
  return result;
}

void RaiseResult(Long result) { Raise(ErrorNumber(result)); }

void RaiseResult(Long result, tagEXCEPINFO& exception) {
  if (result != DISP_E_EXCEPTION) RaiseResult(result);
  if (exception.pfnDeferredFillIn) exception.pfnDeferredFillIn(&exception);
  const Long number = exception.wCode != 0 ? exception.wCode : ErrorNumber(exception.scode);
  String description = FromBstr(exception.bstrDescription);
  ::SysFreeString(exception.bstrSource);
  ::SysFreeString(exception.bstrDescription);
  ::SysFreeString(exception.bstrHelpFile);
  exception = {};
  if (description.IsEmpty()) Raise(number);
  Raise(number, description);
}

}  // namespace strandline::win32
