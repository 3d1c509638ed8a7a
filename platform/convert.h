#pragma once

// Checked conversions between the value types. Each raises 6 where the value doesn't fit, 13 where it isn't one.

#include "platform/text.h"

namespace strandline {

// To the nearest whole number, ties to the even neighbour.
Double RoundHalfEven(Double value);

Integer ToInteger(std::int64_t value);
Long ToLong(std::int64_t value);
Integer RoundToInteger(Double value);
Long RoundToLong(Double value);

// A number written in text: blanks around it, a sign, commas between digits, a decimal point and an exponent are
// understood. Anything else raises 13.
Double NumberFromText(TextView text);
// The shortest text of at most 15 digits.
String TextFromNumber(Double value);
Boolean BooleanFromText(TextView text);
inline String TextFromBoolean(Boolean value) { return value ? u"True" : u"False"; }

}  // namespace strandline
