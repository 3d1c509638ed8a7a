#pragma once

// An automation object written for the system alone, as a foreign component would be.

#include <vector>

#include "platform/variant.h"

namespace strandline::win32test {

struct NativeLog {
  std::vector<int> types;       // the VARTYPE of each argument of Touch, in the order of the call
  std::vector<String> answers;  // what CallBack's variables held after it
};

// Its members:
//   Touch(…)          replaces what comes by reference: True, -2, 70000, 2.5, "back", Nothing; a Variant becomes "any"
//   Fail(number)      fails with that result as scode and the words "native words"
//   FailPlainly(n)    fails with that result alone
//   CallBack(target)  calls target.Touch with a variable of each of these kinds by reference; a Variant holds a text
// `log` outlives it.
Object NewNativeObject(NativeLog& log);

}  // namespace strandline::win32test
