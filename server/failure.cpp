#include "server/failure.h"

#include <new>

#include "platform/win32/received_call.h"

namespace strandline::server {

namespace {

struct Standard {
  Long number;
  HRESULT result;
};
constexpr Standard kStandard[] = {
    {errors::kInvalidArgument, E_INVALIDARG},
    {errors::kOverflow, DISP_E_OVERFLOW},
    {errors::kOutOfMemory, E_OUTOFMEMORY},
    {errors::kTypeMismatch, DISP_E_TYPEMISMATCH},
    {errors::kNoSuchMember, DISP_E_MEMBERNOTFOUND},
    {errors::kNoSuchNamedArgument, DISP_E_PARAMNOTFOUND},
    {errors::kArgumentNotOptional, DISP_E_PARAMNOTOPTIONAL},
    {errors::kWrongNumberOfArguments, DISP_E_BADPARAMCOUNT},
};

String WordsOf(HRESULT result) {
  wchar_t text[256];
  const DWORD length = ::FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr,
                                        static_cast<DWORD>(result), 0, text, 256, nullptr);
  std::size_t end = length;
  while (end > 0 && text[end - 1] <= L' ') --end;
  return end > 0 ? win32::FromWide(text, end) : String(u"The operation failed");
}

void SetInformation(const Origin& origin, const String& description) {
  win32::ComRef<ICreateErrorInfo> created;
  if (FAILED(::CreateErrorInfo(created.Put()))) return;
  created->SetGUID(*origin.interfaceId);
  created->SetSource(const_cast<LPOLESTR>(origin.source));
  created->SetDescription(const_cast<LPOLESTR>(win32::Wide(description)));
  win32::ComRef<IErrorInfo> information;
  if (SUCCEEDED(created->QueryInterface(IID_IErrorInfo, information.PutVoid()))) ::SetErrorInfo(0, information.get());
}

}  // namespace

HRESULT StandardResult(const Error& error) {
  for (const Standard& standard : kStandard) {
    if (standard.number == error.number) return standard.result;
  }
  const HRESULT result = win32::ControlResult(error);
  return FAILED(result) ? result : E_FAIL;
}

HRESULT Fail(const Origin& origin, HRESULT result, const String& description) {
  SetInformation(origin, description.IsEmpty() ? WordsOf(result) : description);
  return result;
}

HRESULT FailWithCurrent(const Origin& origin) noexcept {
  try {
    try {
      throw;
    } catch (const Failure& failure) {
      return Fail(origin, failure.result);
    } catch (const Error& error) {
      return Fail(origin, StandardResult(error), error.description);
    } catch (const std::bad_alloc&) {
      return Fail(origin, E_OUTOFMEMORY);
    } catch (...) {
      return Fail(origin, E_UNEXPECTED);
    }
  } catch (...) {
    return E_OUTOFMEMORY;
  }
}

}  // namespace strandline::server
