#pragma once

#include "platform/values.h"

namespace strandline {

// A pixel of exactly this colour (COLORREF: red 0, green 0, blue 255) is transparent. Icons and ad pictures are drawn
// against it.
inline constexpr Long kColorKey = 0xFF0000;

}  // namespace strandline
