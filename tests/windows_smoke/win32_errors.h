#pragma once

#include "platform/error.h"

struct tagEXCEPINFO;

namespace strandline::win32 {

// The error number of a failed result, an HRESULT: those of the automation world's own errors bear it in their low
// word, some failures of automation have one, and any other keeps the whole result.
Long ErrorNumber(Long result);

[[noreturn]] void RaiseResult(Long result);
// With what the object tells about it; frees what `exception` holds.
[[noreturn]] void RaiseResult(Long result, tagEXCEPINFO& exception);
inline void RaiseIfFailed(Long result) {
  if (result < 0) RaiseResult(result);
}

}  // namespace strandline::win32
