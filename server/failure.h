#pragma once

// How a failure leaves the DLL: as an HRESULT, with error information about it for the calling thread. Nothing thrown
// may pass.

#include "platform/error.h"
//
#include "platform/win32/windows_api.h"

namespace strandline::server {

// Whose failure it is, for the error information.
struct Origin {
  const IID* interfaceId;
  const wchar_t* source;  // such as "Strandline.Main2"
};

// A failure that has a result of its own rather than the number of an error.
struct Failure {
  HRESULT result;
};

// Sets the error information and gives `result` back. An empty description becomes the system's words for the result.
HRESULT Fail(const Origin& origin, HRESULT result, const String& description = {});

// For a catch block: the failure of whatever is on its way out.
HRESULT FailWithCurrent(const Origin& origin) noexcept;

// The standard result of an error, where there is one for it, as for a type mismatch; else 0x800A0000 and its number.
HRESULT StandardResult(const Error& error);

template <class Body>
HRESULT Guarded(const Origin& origin, Body&& body) noexcept {
  ::SetErrorInfo(0, nullptr);
  try {
    return body();
  } catch (...) {
    return FailWithCurrent(origin);
  }
}

// Clients may pass anything; a null pointer is told as such.
template <class... Pointers>
void RequirePointers(const Pointers*... pointers) {
  if ((... || (pointers == nullptr))) throw Failure{E_POINTER};
}

}  // namespace strandline::server
