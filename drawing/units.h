#pragma once

// Picture extents to pixels. Two roundings, one to twips and one to pixels, are part of the result: a single
// multiplication would be a pixel off for some sizes.

#include "platform/values.h"

namespace strandline::units {

inline constexpr Long kTwipsPerInch = 1440;
inline constexpr Long kHimetricPerInch = 2540;

// value * numerator / denominator, rounded to nearest; -1 when it leaves a Long.
Long MulDiv(Long value, Long numerator, Long denominator);
// Raises 6 when the result leaves a Long.
Long HimetricToPixels(Long value, Double twipsPerPixel);

// Half of a difference of pixels, to nearest, ties to even.
Integer Half(Integer pixels);

}  // namespace strandline::units
