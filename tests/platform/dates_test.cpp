// The calendar, against one that is counted day by day.

#include "platform/dates.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>

#include "platform/error.h"
#include "tests/support/raised.h"

namespace strandline {
namespace {

bool IsLeap(int year) { return (year % 4 == 0 && year % 100 != 0) || year % 400 == 0; }

int LengthOf(int year, int month) {
  constexpr int kLengths[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  return kLengths[month - 1] + (month == 2 && IsLeap(year) ? 1 : 0);
}

TEST(Dates, EveryDayOfTheCalendar_HasItsPartsAndWeekday) {
  Double days = -657'434;  // 1 January 100, a Friday
  int weekday = 6;
  int wrong = 0;
  for (int year = 100; year <= 9999; ++year) {
    for (int month = 1; month <= 12; ++month) {
      const int length = LengthOf(year, month);
      for (int day = 1; day <= length; ++day) {
        // The ends of each month, and all of a few centuries.
        if (day == 1 || day == length || (year >= 1890 && year < 2050)) {
          const Date date =
              dates::FromParts(static_cast<Integer>(year), static_cast<Integer>(month), static_cast<Integer>(day));
          wrong += date.days != days || dates::Year(date) != year || dates::Month(date) != month ||
                   dates::Day(date) != day || dates::Weekday(date) != weekday;
        }
        ++days;
        weekday = weekday % 7 + 1;
      }
    }
  }
  EXPECT_EQ(wrong, 0);
  EXPECT_EQ(days, 2'958'466);
}

TEST(Dates, WellKnownDays_AreWhereTheyAre) {
  EXPECT_EQ(dates::FromParts(1899, 12, 30).days, 0);
  EXPECT_EQ(dates::FromParts(2009, 3, 2).days, 39'874);
  EXPECT_EQ(dates::Weekday(dates::FromParts(2009, 3, 1)), 1);
  EXPECT_EQ(dates::Weekday(dates::FromParts(2000, 1, 1)), 7);
}

TEST(Dates, PartsOutsideTheirRange_GoOverIntoTheirNeighbours) {
  const struct {
    Integer year, month, day;
    Integer toYear, toMonth, toDay;
  } cases[] = {{2009, 3, 0, 2009, 2, 28},     {2008, 3, 0, 2008, 2, 29},   {2009, 13, 0, 2009, 12, 31},
               {2009, 13, 1, 2010, 1, 1},     {2009, 0, 1, 2008, 12, 1},   {2009, -1, 1, 2008, 11, 1},
               {2009, -12, 1, 2007, 12, 1},   {2009, 1, 366, 2010, 1, 1},  {2009, 1, -365, 2008, 1, 1},
               {2009, 25, 32, 2011, 2, 1},    {9999, 13, 0, 9999, 12, 31}, {10000, 0, 31, 9999, 12, 31},
               {99, 13, 1, 100, 1, 1},        {100, 1, 1, 100, 1, 1},      {2009, 32767, 1, 4739, 7, 1},
               {2009, 1, 32767, 2098, 9, 17}, {-1, 1213, 1, 100, 1, 1}};
  for (const auto& c : cases) {
    SCOPED_TRACE(std::to_string(c.year) + "/" + std::to_string(c.month) + "/" + std::to_string(c.day));
    EXPECT_EQ(dates::FromParts(c.year, c.month, c.day), dates::FromParts(c.toYear, c.toMonth, c.toDay));
  }
}

TEST(Dates, OutsideTheCalendar_Raises) {
  const struct {
    Integer year, month, day;
  } cases[] = {{99, 12, 31}, {10000, 1, 1},         {9999, 12, 32},          {100, 1, 0},
               {0, 0, 0},    {32767, 32767, 32767}, {-32768, -32768, -32768}};
  for (const auto& c : cases) {
    EXPECT_EQ(Raised([&] { dates::FromParts(c.year, c.month, c.day); }), errors::kInvalidArgument)
        << c.year << "/" << c.month << "/" << c.day;
  }
  constexpr Double kInfinity = std::numeric_limits<Double>::infinity();
  constexpr Double kNoNumber = std::numeric_limits<Double>::quiet_NaN();
  for (const Double days : {-657'435.0, 2'958'466.0, 1e300, -1e300, kInfinity, -kInfinity, kNoNumber}) {
    EXPECT_EQ(Raised([&] { dates::Year({days}); }), errors::kInvalidArgument) << days;
    EXPECT_EQ(Raised([&] { dates::WithoutTime({days}); }), errors::kInvalidArgument) << days;
  }
}

TEST(Dates, ATimeOfDay_LeavesTheDay) {
  const struct {
    Double date;
    Long day;
  } cases[] = {{39'874.75, 39'874}, {0.5, 0}, {-0.5, 0}, {-1.25, -1}, {2'958'465.999, 2'958'465}};
  for (const auto& [date, day] : cases) {
    EXPECT_EQ(dates::DayNumber({date}), day) << date;
    EXPECT_EQ(dates::WithoutTime({date}).days, day) << date;
    EXPECT_EQ(dates::Weekday({date}), dates::Weekday({static_cast<Double>(day)})) << date;
  }
  EXPECT_EQ(dates::WithTime({39'874}, 64'800).days, 39'874.75);
  EXPECT_EQ(dates::WithTime({-1}, 21'600).days, -1.25);
  EXPECT_EQ(dates::Day(dates::WithTime({-1}, 86'399)), 29);
}

}  // namespace
}  // namespace strandline
