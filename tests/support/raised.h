#pragma once

#include "platform/error.h"

namespace strandline {

// The number of the error that this raises; 0 for none.
template <class Use>
Long Raised(Use&& use) {
  try {
    use();
  } catch (const Error& error) {
    return error.number;
  }
  return 0;
}

}  // namespace strandline
