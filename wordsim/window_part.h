#pragma once

// What the parts of Word's windows have in common: nothing is erased before it is painted, and a click on one of them
// leaves the active window as it is.

#include "platform/host.h"

namespace strandline::wordsim {

inline Long HandleAsPart(HostWindows& host, Long hwnd, Long message, Long wParam, Long lParam) {
  constexpr Long kEraseBackground = 20;
  constexpr Long kMouseActivate = 33;
  constexpr Long kIsErased = 1;
  constexpr Long kDontActivate = 3;
  if (message == kEraseBackground) return kIsErased;
  if (message == kMouseActivate) return kDontActivate;
  return host.DefaultProcedure(hwnd, message, wParam, lParam);
}

}  // namespace strandline::wordsim
