#pragma once

#include "platform/values.h"

namespace strandline {

// The one timer of an ad panel, on the strip's window and without a procedure: its ticks come to the strip's hook.
inline constexpr Long kAdTimer = 4096;

}  // namespace strandline
