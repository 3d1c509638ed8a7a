#pragma once

// The calendar of a Date: the Gregorian one throughout, also before it was in use. Years go from 100 to 9999; what lies
// outside raises 5.

#include "platform/values.h"

namespace strandline::dates {

Integer Year(Date date);
Integer Month(Date date);    // 1 to 12
Integer Day(Date date);      // 1 to 31
Integer Weekday(Date date);  // Sunday 1 to Saturday 7

// The number of the day, whatever the time: days since 1899-12-30.
Long DayNumber(Date date);
// The same day at midnight.
Date WithoutTime(Date date);

// Months and days outside their range go over into the years and months around: day 0 is the last of the month before.
Date FromParts(Integer year, Integer month, Integer day);
// A day and a time of that day, seconds since midnight.
Date WithTime(Date day, Long seconds);

}  // namespace strandline::dates
