#pragma once

#include <chrono>
#include <string>
#include <string_view>

namespace strandline::adtool {

using Day = std::chrono::year_month_day;

// What is wrong with the repeat rule of an ad that runs from `from` to `to`, and what would be right; empty when the
// toolbar can follow it on every day between them.
std::string RuleFault(std::string_view rule, Day from, Day to);

// The same of a filter: clauses NAME=TOKEN|TOKEN... with "~" between them.
std::string FilterFault(std::string_view filter);

}  // namespace strandline::adtool
