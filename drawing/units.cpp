#include "drawing/units.h"

#include <limits>

#include "platform/convert.h"

namespace strandline::units {

Long MulDiv(Long value, Long numerator, Long denominator) {
  if (denominator == 0) return -1;
  std::int64_t product = std::int64_t{value} * numerator;
  std::int64_t divisor = denominator;
  if (divisor < 0) {
    product = -product;
    divisor = -divisor;
  }
  const std::int64_t rounded = (product >= 0 ? product + divisor / 2 : product - divisor / 2) / divisor;
  if (rounded > std::numeric_limits<Long>::max() || rounded < std::numeric_limits<Long>::min()) return -1;
  return static_cast<Long>(rounded);
}

Long HimetricToPixels(Long value, Double twipsPerPixel) {
  return RoundToLong(MulDiv(value, kTwipsPerInch, kHimetricPerInch) / twipsPerPixel);
}

Integer Half(Integer pixels) { return RoundToInteger(pixels / 2.0); }

}  // namespace strandline::units
