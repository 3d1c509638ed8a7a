#pragma once

// The value types that every floor speaks. Their widths are those of the automation world in which the library
// lives: a coordinate that leaves its Integer is an error there, and so it is here (see convert.h).

#include <cstdint>

namespace strandline {

using Byte = std::uint8_t;
// odd: integer-16
using Integer = std::int16_t;
using Long = std::int32_t;
using Boolean = bool;
using Single = float;
using Double = double;

// A handle of a window, context, bitmap, region, memory block or module. 0 is no handle. Where the world's own handles
// are wider, the seam maps them.
using Handle = Long;

// A calendar date and time: whole days since 1899-12-30, the time of day as fraction.
struct Date {
  Double days = 0;
  friend bool operator==(Date, Date) = default;
};

// A rectangle in pixels; right and bottom are past the last pixel.
struct Rect {
  Long left = 0;
  Long top = 0;
  Long right = 0;
  Long bottom = 0;
  friend bool operator==(const Rect&, const Rect&) = default;
};

struct Point {
  Long x = 0;
  Long y = 0;
  friend bool operator==(const Point&, const Point&) = default;
};

}  // namespace strandline
