#pragma once

#include <optional>

#include "platform/text.h"

namespace strandline::desk {

// Reads a date as a user in the United States writes it: 3/1/2009, 3-1-2009, 2009-03-01, 1 March 2009, March 1, 2009,
// months also by their first three letters, letters without case. A time of day may follow: 18:30, 6:30 PM, 18:30:15.
// Years below 30 are those from 2000, others below 100 those from 1900. A NUL ends the text. Nothing where it's no
// date.
std::optional<Date> DateInText(TextView text);
// Writes one as that user does: 3/1/2009 6:30:15 PM. Without a time at midnight, without a date on day 0; 5 is raised
// for what lies outside the calendar.
String TextOfDate(Date date);

}  // namespace strandline::desk
