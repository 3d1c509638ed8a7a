#pragma once

#include "platform/error.h"

struct tagEXCEPINFO;
struct IDispatch;

namespace strandline::win32 {

// The error number of a failed result, an HRESULT: those of the automation world's own errors bear it in their low
// word, some failures of automation have one, and any other keeps the whole result.
Long ErrorNumber(Long result);

[[noreturn]] void RaiseResult(Long result);
inline void RaiseIfFailed(Long result) {
  if (result < 0) RaiseResult(result);
}

// Of a call that failed with `result`: what the object tells in `exception`, whose texts are freed; else in the error
// information that it leaves with the thread, where it does so; else the usual words for the number.
Error TakeError(Long result, tagEXCEPINFO& exception, IDispatch* object);

}  // namespace strandline::win32
