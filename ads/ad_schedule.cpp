// When an ad shows. A rule is a letter and a body: "D" days, "W" weekdays, "M" a day of the month. "Y" is not in use.

#include <algorithm>

#include "ads/Advertisement.h"
#include "ads/pieces.h"
#include "foundation/procedure.h"
#include "platform/convert.h"
#include "platform/dates.h"

namespace strandline {

namespace {

constexpr ModuleInfo kModuleInfo{u"Advertisement", nullptr};
constexpr ModuleFile kModule{&kModuleInfo, 1000};

constexpr Integer kMonths = 12;
constexpr Integer kFebruary = 2;
constexpr Integer kDaysOfFebruary = 28;
constexpr Integer kDaysOfYear = 365;

TextView From(TextView text, std::size_t start) { return text.substr(std::min(start, text.size())); }

// The empty text has no character code.
char16_t CodeAt(TextView text, std::size_t position) {
  if (position >= text.size()) Raise(errors::kInvalidArgument);
  return text[position];
}

Integer IntegerIn(TextView text) { return RoundToInteger(NumberFromText(text)); }

}  // namespace

Boolean Advertisement::InRepeatTiming(Date startDate, Date endDate, const String& repeatStr, Date currentDate) {
  METHOD(Boolean, u"InRepeatTiming", startDate, endDate, repeatStr, currentDate);
  String body;
  Long rule = 0;
  REPORTS(body, rule);
  CONDITION(isEarly, dates::DayNumber(currentDate) < dates::DayNumber(startDate));
  if (isEarly) return here.Leave();
  CONDITION(isLate, dates::DayNumber(currentDate) > dates::DayNumber(endDate));
  if (isLate) return here.Leave();
  STEP(body = String(From(repeatStr, 1)));
  STEP(rule = CodeAt(repeatStr, 0));
  switch (rule) {
    case u'D':
      return here.result = InRepeatDaily(body, startDate, currentDate);
    case u'W':
      return here.result = InRepeatWeekly(body, startDate, currentDate);
    case u'M':
      return here.result = InRepeatMonthly(body, startDate, currentDate);
    case u'Y':
      return here.result = InRepeatYearly(body, currentDate);
    default:
      return here.Leave();
  }
}

// odd: zeroth-day
Boolean Advertisement::InRepeatDaily(const String& body, Date startDate, Date currentDate) {
  METHOD(Boolean, u"InRepeatDaily", body, startDate, currentDate);
  return here.result = InRepeatEveryOther(body, startDate, 1, currentDate);
}

Boolean Advertisement::InRepeatWeekly(const String& body, Date startDate, Date currentDate) {
  METHOD(Boolean, u"InRepeatWeekly", body, startDate, currentDate);
  Integer weekday = 0;
  REPORTS(weekday);
  if (body.Length() == 1) return here.result = InRepeatEveryOther(body, startDate, 7, currentDate);
  STEP(weekday = dates::Weekday(currentDate));
  STEP(here.result = CodeAt(body, static_cast<std::size_t>(weekday - 1)) == u'1');
  return here.Leave();
}

Boolean Advertisement::InRepeatMonthly(const String& body, Date startDate, Date currentDate) {
  METHOD(Boolean, u"InRepeatMonthly", body, startDate, currentDate);
  String days;
  REPORTS(days);
  CONDITION(isDay, IsNumberText(body));
  if (isDay) {
    STEP(here.result = IntegerIn(body) == dates::Day(currentDate));
  } else {
    STEP(days = String(From(body, 1)));
    here.result = InRepeatEveryOther(days, startDate, 31, currentDate);
  }
  return here.Leave();
}

// No such rule is in use: a body makes it false, and without one there is no month to read.
// odd: yearly-rule
Boolean Advertisement::InRepeatYearly(const String& body, Date currentDate) {
  METHOD(Boolean, u"InRepeatYearly", body, currentDate);
  Array<String> parts;
  Integer month = 0;
  Integer day = 0;
  REPORTS(parts, month, day);
  if (body.Length() > 0) return here.Leave();
  STEP(parts = Split(body, u'/'));
  STEP(month = IntegerIn(parts(0)));
  STEP(day = IntegerIn(parts(1)));
  STEP(here.result = month == dates::Month(currentDate) && day == dates::Day(currentDate));
  return here.Leave();
}

// Both days are counted from the first of the start's month, the start's in steps of `every` until it meets the current
// one or has gone past it. The years between all count the February of the year after the start's. The counters are
// Integers, so that the days of some ninety years are the most that can be told. Steps of 0 never end.
Boolean Advertisement::InRepeatEveryOther(const String& body, Date startDate, Integer dayRange, Date currentDate) {
  METHOD(Boolean, u"InRepeatEveryOther", body, startDate, dayRange, currentDate);
  volatile Integer every = 0;  // or a compiler may take it that the steps end
  Integer workingDay = 0;
  Integer endDay = 0;
  Integer workingYear = 0;
  Integer i = 0;
  Integer last = 0;  // of the months or years that are counted
  REPORTS(every, workingDay, endDay, workingYear, i, last);
  STEP(every = IntegerIn(body));
  STEP(workingDay = dates::Day(startDate));
  STEP(endDay = dates::Day(currentDate));
  STEP(workingYear = dates::Year(startDate));
  CONDITION(isSameYear, dates::Year(currentDate) == workingYear);
  if (isSameYear) {
    STEP(i = dates::Month(startDate); last = static_cast<Integer>(dates::Month(currentDate) - 1));
    for (; i <= last; ++i) STEP(endDay = ToInteger(endDay + NumberOfDaysInMonth(workingYear, i)));
  } else {
    STEP(i = dates::Month(startDate));
    for (; i <= kMonths; ++i) STEP(endDay = ToInteger(endDay + NumberOfDaysInMonth(workingYear, i)));
    STEP(workingYear = ToInteger(workingYear + 1));
    STEP(i = workingYear; last = static_cast<Integer>(dates::Year(currentDate) - 1));
    for (; i <= last; ++i) {
      STEP(endDay = ToInteger(endDay + kDaysOfYear + NumberOfDaysInMonth(workingYear, kFebruary) - kDaysOfFebruary));
    }
    STEP(i = 1; last = static_cast<Integer>(dates::Month(currentDate) - 1));
    for (; i <= last; ++i) STEP(endDay = ToInteger(endDay + NumberOfDaysInMonth(workingYear, i)));
  }
  for (;;) {
    if (workingDay < endDay + dayRange && workingDay >= endDay) return here.result = true;
    STEP(workingDay = ToInteger(workingDay + every));
    if (workingDay > endDay) return here.Leave();
  }
}

// odd: february
Integer Advertisement::NumberOfDaysInMonth(Integer workingYear, Integer workingMonth) {
  METHOD(Integer, u"NumberOfDaysInMonth", workingYear, workingMonth);
  STEP(here.result = dates::Day(dates::FromParts(workingYear, ToInteger(workingMonth + 1), 0)));
  return here.Leave();
}

}  // namespace strandline
