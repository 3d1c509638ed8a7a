#pragma once

#include "platform/error.h"

struct tagEXCEPINFO;
struct IDispatch;

namespace strandline::win32 {

// The error number of a failed result, an HRESULT: those of the automation world's own errors bear it in their low
// word, some failures of automation have one, and any other keeps the whole result. A failure's number is never 0.
Long ErrorNumber(Long result);

[[noreturn]] void RaiseResult(Long result);
inline void RaiseIfFailed(Long result) {
  if (result < 0) RaiseResult(result);
}

// To be done before each call whose failure TakeError is to tell: what an earlier failure has left with the thread
// would else lend this one its words.
void ForgetErrorInformation();

// Of a call that failed with `result`: what the object tells in `exception`, whose texts are freed; else in the error
// information that it leaves with the thread, where it does so; else the usual words for the number.
Error TakeError(Long result, tagEXCEPINFO& exception, IDispatch* object);

}  // namespace strandline::win32
