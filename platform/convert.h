#pragma once

// Checked conversions between the value types. Each raises 6 where the value doesn't fit, 13 where it isn't one.

#include "platform/error.h"

namespace strandline {

// To the nearest whole number, ties to the even neighbour.
Double RoundHalfEven(Double value);

// Each move of the mouse makes several of these.
inline Integer ToInteger(std::int64_t value) {
  if (value != static_cast<Integer>(value)) [[unlikely]]
    Raise(errors::kOverflow);
  return static_cast<Integer>(value);
}
inline Long ToLong(std::int64_t value) {
  if (value != static_cast<Long>(value)) [[unlikely]]
    Raise(errors::kOverflow);
  return static_cast<Long>(value);
}
Integer RoundToInteger(Double value);
Long RoundToLong(Double value);

// A number written in text: blanks around it, a sign, commas between digits, a decimal point and an exponent are
// understood. Text that came with the NUL that ends it counts up to there. Anything else raises 13.
Double NumberFromText(TextView text);
// Whether that would be a number.
Boolean IsNumberText(TextView text);
// The shortest text of at most 15 digits.
String TextFromNumber(Double value);
// The shortest text of at most seven digits.
String TextFromSingle(Single value);
Boolean BooleanFromText(TextView text);
inline String TextFromBoolean(Boolean value) { return value ? u"True" : u"False"; }

}  // namespace strandline
