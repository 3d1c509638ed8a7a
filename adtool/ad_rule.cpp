#include "adtool/ad_rule.h"

#include <algorithm>
#include <charconv>
#include <optional>

#include "adtool/refusal.h"

namespace strandline::adtool {

namespace {

constexpr int kGreatestInteger = 32767;  // what the toolbar counts days in

bool IsDigit(char each) { return each >= '0' && each <= '9'; }

// A whole number written in digits alone; kGreatestInteger + 1 stands for all above.
std::optional<int> WholeNumber(std::string_view text) {
  if (text.empty() || !std::all_of(text.begin(), text.end(), IsDigit)) return std::nullopt;
  int number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  return error == std::errc() ? std::min(number, kGreatestInteger + 1) : kGreatestInteger + 1;
}

int DaysInMonth(int year, unsigned month) {
  const std::chrono::year_month_day_last last{std::chrono::year{year},
                                              std::chrono::month_day_last{std::chrono::month{month}}};
  return static_cast<int>(static_cast<unsigned>(last.day()));
}

// The day `to` as the toolbar counts it from the first of the month of `from`: it takes every year after the first one
// to have the February of the year behind `from`.
std::int64_t CountedDay(Day from, Day to) {
  const int firstYear = static_cast<int>(from.year());
  const int lastYear = static_cast<int>(to.year());
  const unsigned firstMonth = static_cast<unsigned>(from.month());
  const unsigned lastMonth = static_cast<unsigned>(to.month());
  std::int64_t day = static_cast<unsigned>(to.day());
  if (firstYear == lastYear) {
    for (unsigned month = firstMonth; month < lastMonth; ++month) day += DaysInMonth(firstYear, month);
    return day;
  }
  const int secondYear = firstYear + 1;
  for (unsigned month = firstMonth; month <= 12; ++month) day += DaysInMonth(firstYear, month);
  day += std::int64_t{lastYear - secondYear} * (365 + DaysInMonth(secondYear, 2) - 28);
  for (unsigned month = 1; month < lastMonth; ++month) day += DaysInMonth(secondYear, month);
  return day;
}

// Every `every` days from `from` on. The toolbar steps from the start to the day it is, or beyond it.
std::string StepsFault(int every, Day from, Day to) {
  const std::int64_t start = static_cast<unsigned>(from.day());
  const std::int64_t target = CountedDay(from, to);
  const std::int64_t reached = start + (target - start + every - 1) / every * every;
  if (target <= kGreatestInteger && reached <= kGreatestInteger) return {};
  return "the rule counts days from the start, which the toolbar can only up to " + std::to_string(kGreatestInteger) +
         "; choose a later start, an earlier end or a smaller number";
}

std::string NumberFault(std::string_view body, std::string_view shape, Day from, Day to) {
  const std::optional<int> every = WholeNumber(body);
  if (!every || *every < 1 || *every > kGreatestInteger) {
    return (body.empty() ? "the number of days is missing" : Quoted(body) + " is no number of days") + "; right is " +
           std::string(shape) + " with a whole number from 1 to " + std::to_string(kGreatestInteger);
  }
  return StepsFault(*every, from, to);
}

std::string WeekFault(std::string_view body, Day from, Day to) {
  if (body.size() == 1 && body[0] >= '1' && body[0] <= '9') return StepsFault(body[0] - '0', from, to);
  const bool isWeek = body.size() == 7 && body.find_first_not_of("01") == std::string_view::npos;
  if (!isWeek) {
    return "behind \"W\" stand seven of 0 and 1, Sunday first, such as W0100010 for Mondays and Fridays, or one digit "
           "from 1 to 9, a number of days";
  }
  if (body.find('1') == std::string_view::npos) return "no day of the week is chosen, so the ad would never show";
  return {};
}

// A character that the system's test for numbers might take as part of one would turn the rule into a day of the month.
bool StandsApart(char each) {
  return each > ' ' && each < 0x7F && !IsDigit(each) && std::string_view("+-.,()&$").find(each) == std::string::npos;
}

std::string MonthFault(std::string_view body, Day from, Day to) {
  if (!body.empty() && StandsApart(body[0])) return NumberFault(body.substr(1), "Mx and N", from, to);
  const std::optional<int> day = WholeNumber(body);
  if (day && *day >= 1 && *day <= 31) return {};
  return "behind \"M\" stands a day of the month from 1 to 31, or a letter and a number of days, such as Mx30";
}

}  // namespace

std::string RuleFault(std::string_view rule, Day from, Day to) {
  const std::string_view body = rule.substr(std::min<std::size_t>(1, rule.size()));
  switch (rule.empty() ? '\0' : rule[0]) {
    case 'D':
      return NumberFault(body, "D and N", from, to);
    case 'W':
      return WeekFault(body, from, to);
    case 'M':
      return MonthFault(body, from, to);
    case 'Y':
      return "the toolbar shows no ad with a yearly rule on any day; give the ad its days by from and to, and rule D1";
    default:
      return "a rule begins with D (every N days), W (days of the week) or M (a day of the month), such as D1, "
             "W0100010, M15";
  }
}

std::string FilterFault(std::string_view filter) {
  while (!filter.empty()) {
    const std::size_t end = std::min(filter.find('~'), filter.size());
    const std::string_view clause = filter.substr(0, end);
    filter.remove_prefix(std::min(end + 1, filter.size()));
    if (clause.empty()) continue;
    const std::size_t equals = clause.find('=');
    if (equals == std::string_view::npos) {
      return "the clause " + Quoted(clause) + " has no \"=\"; right is NAME=VALUE, or NAME= for an empty value";
    }
    if (equals == 0) return "the clause " + Quoted(clause) + " names no value in front of its \"=\"";
  }
  return {};
}

}  // namespace strandline::adtool
