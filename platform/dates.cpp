#include "platform/dates.h"

#include <chrono>
#include <cmath>

#include "platform/error.h"

namespace strandline::dates {

namespace {

namespace calendar = std::chrono;

constexpr calendar::sys_days kBeginning{calendar::year{1899} / 12 / 30};
constexpr std::int64_t DaysTo(calendar::year_month_day day) { return (calendar::sys_days{day} - kBeginning).count(); }
constexpr int kFirstYear = 100;
constexpr int kLastYear = 9999;
constexpr std::int64_t kFirstDay = DaysTo(calendar::year{kFirstYear} / 1 / 1);
constexpr std::int64_t kLastDay = DaysTo(calendar::year{kLastYear} / 12 / 31);
constexpr Double kSecondsOfADay = 86'400;
constexpr int kMonths = 12;

std::int64_t Checked(std::int64_t day) {
  if (day < kFirstDay || day > kLastDay) Raise(errors::kInvalidArgument);
  return day;
}

calendar::sys_days DayOf(Date date) { return kBeginning + calendar::days{DayNumber(date)}; }
calendar::year_month_day PartsOf(Date date) { return calendar::year_month_day{DayOf(date)}; }

}  // namespace

Integer Year(Date date) { return static_cast<Integer>(static_cast<int>(PartsOf(date).year())); }
Integer Month(Date date) { return static_cast<Integer>(static_cast<unsigned>(PartsOf(date).month())); }
Integer Day(Date date) { return static_cast<Integer>(static_cast<unsigned>(PartsOf(date).day())); }
Integer Weekday(Date date) { return static_cast<Integer>(calendar::weekday{DayOf(date)}.c_encoding() + 1); }

// Days before the beginning count downwards, but a time always upwards: the whole part is the day on both sides.
Long DayNumber(Date date) {
  const Double day = std::trunc(date.days);
  // Written so that what is no number at all is out of range as well.
  if (!(day >= static_cast<Double>(kFirstDay) && day <= static_cast<Double>(kLastDay))) {
    Raise(errors::kInvalidArgument);
  }
  return static_cast<Long>(day);
}

Date WithoutTime(Date date) { return {static_cast<Double>(DayNumber(date))}; }

Date FromParts(Integer year, Integer month, Integer day) {
  const int months = year * kMonths + month - 1;
  // No day could bring such a year back into range.
  if (months < 0 || months > 2 * kLastYear * kMonths) Raise(errors::kInvalidArgument);
  const auto first = calendar::year{months / kMonths} / (months % kMonths + 1) / 1;
  return {static_cast<Double>(Checked(DaysTo(first) + day - 1))};
}

Date WithTime(Date day, Long seconds) {
  const Double whole = DayNumber(day);
  const Double time = seconds / kSecondsOfADay;
  return {whole >= 0 ? whole + time : whole - time};
}

}  // namespace strandline::dates
