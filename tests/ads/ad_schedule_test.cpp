// When an ad shows: every day of four decades against a reading of the rules by the calendar, and what is odd about
// them in tests of their own.

#include <signal.h>
#include <sys/time.h>

#include <chrono>

#include "tests/ads/ad_fixture.h"

namespace strandline {
namespace {

namespace calendar = std::chrono;
using calendar::sys_days;
using calendar::year_month_day;

Date DateOn(int year, unsigned month, unsigned day) {
  const sys_days beginning{calendar::year{1899} / 12 / 30};
  return {static_cast<Double>((sys_days{calendar::year{year} / month / day} - beginning).count())};
}
Date DateOf(sys_days day) { return {static_cast<Double>((day - sys_days{calendar::year{1899} / 12 / 30}).count())}; }

constexpr sys_days On(int year, unsigned month, unsigned day) { return sys_days{calendar::year{year} / month / day}; }

class AdScheduleTest : public AdTest {
 protected:
  Boolean Shows(const String& rule, Date start, Date end, Date current) {
    return Inside::InRepeatTiming(*ad, start, end, rule, current);
  }
  // Within a range that is long enough.
  Boolean Shows(const String& rule, Date start, Date current) {
    return Shows(rule, start, DateOn(9999, 12, 31), current);
  }
};

// --- every day, against the calendar ---

int DaysOfFebruary(calendar::year year) { return year.is_leap() ? 29 : 28; }

// Days between the two as the rules count them: the Februaries that lie between are those of the years in which they
// stand while that is the start's year or the one after it; in all later years they are as long as in that one.
int CountedDays(sys_days start, sys_days current) {
  int days = static_cast<int>((current - start).count());
  const calendar::year after = year_month_day{start}.year() + calendar::years{1};
  const year_month_day end{current};
  for (calendar::year year = after; year <= end.year(); ++year) {
    const bool isCounted = year < end.year() || end.month() > calendar::February;
    if (isCounted) days += DaysOfFebruary(after) - DaysOfFebruary(year);
  }
  return days;
}

bool OnEachOf(int days, sys_days start, sys_days current) { return CountedDays(start, current) % days == 0; }
bool OnMonthDay(unsigned day, sys_days current) { return year_month_day{current}.day() == calendar::day{day}; }
bool OnWeekdays(std::initializer_list<calendar::weekday> weekdays, sys_days current) {
  for (const calendar::weekday weekday : weekdays) {
    if (calendar::weekday{current} == weekday) return true;
  }
  return false;
}

struct Rule {
  const char16_t* text;
  bool (*shows)(sys_days start, sys_days current);
};

const Rule kRules[] = {
    {u"D1", [](sys_days, sys_days) { return true; }},
    {u"D2", [](sys_days start, sys_days current) { return OnEachOf(2, start, current); }},
    {u"D10", [](sys_days start, sys_days current) { return OnEachOf(10, start, current); }},
    {u"D365", [](sys_days start, sys_days current) { return OnEachOf(365, start, current); }},
    {u"W3", [](sys_days start, sys_days current) { return OnEachOf(3, start, current); }},
    {u"W9", [](sys_days start, sys_days current) { return OnEachOf(9, start, current); }},
    {u"W0100010",
     [](sys_days, sys_days current) {
       return OnWeekdays({calendar::Monday, calendar::Friday}, current);
     }},
    {u"W1000001",
     [](sys_days, sys_days current) {
       return OnWeekdays({calendar::Sunday, calendar::Saturday}, current);
     }},
    {u"W0000000", [](sys_days, sys_days) { return false; }},
    {u"W1111111", [](sys_days, sys_days) { return true; }},
    {u"M1", [](sys_days, sys_days current) { return OnMonthDay(1, current); }},
    {u"M31", [](sys_days, sys_days current) { return OnMonthDay(31, current); }},
    {u"Mx30", [](sys_days start, sys_days current) { return OnEachOf(30, start, current); }},
    {u"Y12/25", [](sys_days, sys_days) { return false; }},
    {u"X5", [](sys_days, sys_days) { return false; }},
};

struct Range {
  sys_days start, end;
};

const Range kRanges[] = {
    {On(1999, 1, 1), On(2040, 12, 31)},  {On(1999, 12, 31), On(2031, 2, 28)}, {On(2000, 2, 29), On(2024, 2, 29)},
    {On(2003, 3, 31), On(2019, 12, 31)}, {On(2007, 12, 31), On(2040, 6, 30)}, {On(2023, 6, 15), On(2023, 6, 15)},
};

TEST_F(AdScheduleTest, EveryDayOfFourDecades_IsAsTheRulesRead) {
  const sys_days first = On(1999, 1, 1);
  const sys_days last = On(2040, 12, 31);
  for (const auto& [start, end] : kRanges) {
    for (const Rule& rule : kRules) {
      const String text = rule.text;
      int wrong = 0;
      int firstWrong = 0;
      for (sys_days day = first; day <= last; day += calendar::days{1}) {
        const bool shows = day >= start && day <= end && rule.shows(start, day);
        if (Shows(text, DateOf(start), DateOf(end), DateOf(day)) == shows) continue;
        if (wrong++ == 0) firstWrong = static_cast<int>((day - start).count());
      }
      EXPECT_EQ(wrong, 0) << ToUtf8(text) << " from " << DateOf(start).days << ", first " << firstWrong
                          << " days behind the start";
    }
  }
}

// --- single days ---

TEST_F(AdScheduleTest, BothEnds_BelongToTheRange) {
  const Date before = DateOn(2009, 2, 28);
  const Date start = DateOn(2009, 3, 1);
  const Date end = DateOn(2009, 3, 3);
  const Date after = DateOn(2009, 3, 4);
  EXPECT_FALSE(Shows(u"D1", start, end, before));
  EXPECT_TRUE(Shows(u"D1", start, end, start));
  EXPECT_TRUE(Shows(u"D1", start, end, end));
  EXPECT_FALSE(Shows(u"D1", start, end, after));
  EXPECT_FALSE(Shows(u"D1", end, start, DateOn(2009, 3, 2)));
}

TEST_F(AdScheduleTest, ARangeOfOneDay_ShowsOnIt) {
  const Date day = DateOn(2009, 3, 1);
  for (const char16_t* rule : {u"D1", u"W1", u"D2", u"D30000", u"Mx7"}) EXPECT_TRUE(Shows(rule, day, day, day));
}

TEST_F(AdScheduleTest, ATimeOfADate_CountsForNothing) {
  constexpr Long kTimes[] = {0, 1, 28'800, 86'399};  // seconds since midnight; 8:00 is the third
  const bool shows[] = {false, true, true, true, false};
  for (const Long start : kTimes) {
    for (const Long end : kTimes) {
      for (const Long current : kTimes) {
        for (unsigned i = 0; i < 5; ++i) {
          EXPECT_EQ(Shows(u"D1", dates::WithTime(DateOn(2009, 3, 2), start), dates::WithTime(DateOn(2009, 3, 4), end),
                          dates::WithTime(DateOn(2009, 3, 1 + i), current)),
                    shows[i])
              << "3/" << 1 + i << ", seconds of start, end and current date: " << start << ", " << end << ", "
              << current;
        }
      }
    }
  }
}

// A time before the first day of the calendar's count stands behind a number below zero.
TEST_F(AdScheduleTest, ATimeOfADateBefore1900_CountsForNothing) {
  const Date morning = dates::WithTime(DateOn(1899, 12, 20), 28'800);
  const Date day = DateOn(1899, 12, 20);
  EXPECT_TRUE(Shows(u"D1", morning, morning, day));
  EXPECT_TRUE(Shows(u"D1", day, day, morning));
  EXPECT_FALSE(Shows(u"D1", morning, morning, DateOn(1899, 12, 19)));
  EXPECT_FALSE(Shows(u"D1", morning, morning, DateOn(1899, 12, 21)));
}

// Where a date can't be compared and execution goes on, it does so behind the comparison: the ad doesn't show.
TEST_F(AdScheduleTest, ADateThatIsNone_IsAnErrorAndNothingShows) {
  const Date day = DateOn(2009, 3, 2);
  const Date none{1e9};
  for (const Long answer : {Long{0}, vbwProtector::kIgnore}) {
    floor->errors.Answer({answer});
    EXPECT_FALSE(Shows(u"D1", none, day, day));
    EXPECT_EQ(TakeErrors(), Lines{"5 Advertisement.InRepeatTiming"});
    floor->errors.Answer({answer});
    EXPECT_FALSE(Shows(u"D1", day, none, day));
    EXPECT_EQ(TakeErrors(), Lines{"5 Advertisement.InRepeatTiming"});
  }
}

TEST_F(AdScheduleTest, EverySecondDay_IsCountedFromTheStart) {
  const Date start = DateOn(2009, 1, 1);
  const bool shows[] = {true, false, true, false, true};
  for (unsigned i = 0; i < 5; ++i) EXPECT_EQ(Shows(u"D2", start, DateOn(2009, 1, 1 + i)), shows[i]) << i;
}

// The third argument would widen each hit, but a step beyond the day has always gone past it.
TEST_F(AdScheduleTest, ARangeOfDays_WidensNothing) {
  const Date start = DateOn(2009, 1, 1);
  for (unsigned day = 1; day <= 31; ++day) {
    for (const Integer range : {Integer{1}, Integer{7}, Integer{31}}) {
      EXPECT_EQ(Inside::InRepeatEveryOther(*ad, u"5", start, range, DateOn(2009, 1, day)), (day - 1) % 5 == 0)
          << day << " by " << range;
    }
  }
}

TEST_F(AdScheduleTest, WeeklyWithOneDigit_CountsDays) {
  const Date start = DateOn(2009, 3, 1);
  EXPECT_TRUE(Shows(u"W2", start, DateOn(2009, 3, 3)));
  EXPECT_FALSE(Shows(u"W2", start, DateOn(2009, 3, 8)));
  EXPECT_TRUE(Shows(u"W2", start, DateOn(2009, 3, 15)));
}

// 1 March 2009 is a Sunday.
TEST_F(AdScheduleTest, WeeklyWithTwoCharacters_IsAListOfWeekdays) {
  const Date start = DateOn(2009, 3, 1);
  EXPECT_TRUE(Shows(u"W14", start, start));
  EXPECT_FALSE(Shows(u"W14", start, DateOn(2009, 3, 2)));
  EXPECT_EQ(TakeErrors(), Lines());
  for (unsigned day = 3; day <= 7; ++day) {
    EXPECT_FALSE(Shows(u"W14", start, DateOn(2009, 3, day)));
    EXPECT_EQ(TakeErrors(), Lines{"5 Advertisement.InRepeatWeekly"}) << day;
  }
}

TEST_F(AdScheduleTest, WeeklyWithNothing_IsAnError) {
  const Date start = DateOn(2009, 3, 1);
  EXPECT_FALSE(Shows(u"W", start, start));
  EXPECT_EQ(TakeErrors(), Lines{"5 Advertisement.InRepeatWeekly"});
}

TEST_F(AdScheduleTest, AnyCharacterButOne_IsNoWeekday) {
  const Date start = DateOn(2009, 3, 1);
  for (const char16_t* rule : {u"W0000000", u"W2111111", u"Wx111111", u"W 111111"}) {
    EXPECT_FALSE(Shows(rule, start, start)) << ToUtf8(rule);
  }
}

TEST_F(AdScheduleTest, ADayOfTheMonth_NeedsAMonthThatHasIt) {
  const Date start = DateOn(2009, 1, 1);
  for (unsigned day = 1; day <= 30; ++day) EXPECT_FALSE(Shows(u"M31", start, DateOn(2009, 4, day)));
  EXPECT_TRUE(Shows(u"M31", start, DateOn(2009, 5, 31)));
  EXPECT_TRUE(Shows(u"M 5 ", start, DateOn(2009, 5, 5)));
  EXPECT_TRUE(Shows(u"M+5", start, DateOn(2009, 5, 5)));
  EXPECT_TRUE(Shows(u"M5.4", start, DateOn(2009, 5, 5)));
  EXPECT_FALSE(Shows(u"M-5", start, DateOn(2009, 5, 5)));
  EXPECT_FALSE(Shows(u"M99999", start, DateOn(2009, 5, 5)));
  EXPECT_EQ(TakeErrors(), Lines{"6 Advertisement.InRepeatMonthly"});
}

TEST_F(AdScheduleTest, MonthlyWithALetter_CountsDays) {
  const Date start = DateOn(2009, 1, 1);
  for (const char16_t* rule : {u"Mx30", u"M/30", u"MM30"}) {
    EXPECT_TRUE(Shows(rule, start, DateOn(2009, 1, 31))) << ToUtf8(rule);
    EXPECT_FALSE(Shows(rule, start, DateOn(2009, 1, 30))) << ToUtf8(rule);
    EXPECT_FALSE(Shows(rule, start, DateOn(2009, 2, 1))) << ToUtf8(rule);
    EXPECT_TRUE(Shows(rule, start, DateOn(2009, 3, 2))) << ToUtf8(rule);
  }
}

TEST_F(AdScheduleTest, Yearly_NeverShows) {
  const Date start = DateOn(2009, 1, 1);
  for (unsigned month = 1; month <= 12; ++month) {
    for (unsigned day = 1; day <= 28; ++day) {
      EXPECT_FALSE(Shows(u"Y12/25", start, DateOn(2009, month, day)));
      EXPECT_FALSE(Shows(u"Y0/0", start, DateOn(2009, month, day)));
    }
  }
  EXPECT_EQ(TakeErrors(), Lines());
}

// It goes on to read the month and the day, neither of which is there.
TEST_F(AdScheduleTest, YearlyWithNothing_IsAnError) {
  const Date day = DateOn(2009, 12, 25);
  EXPECT_FALSE(Shows(u"Y", day, day));
  EXPECT_EQ(TakeErrors(), Lines{"9 Advertisement.InRepeatYearly"});
  floor->errors.Answer({vbwProtector::kIgnore, vbwProtector::kIgnore});
  EXPECT_FALSE(Shows(u"Y", day, day));
  EXPECT_EQ(TakeErrors(), (Lines{"9 Advertisement.InRepeatYearly", "9 Advertisement.InRepeatYearly"}));
}

TEST_F(AdScheduleTest, OtherLetters_NeverShow) {
  const Date day = DateOn(2009, 3, 1);
  for (const char16_t* rule : {u"X5", u"d5", u"d1", u"w1111111", u"m1", u"1", u" D1",
                               u"\u0414"
                               u"1"}) {
    EXPECT_FALSE(Shows(rule, day, day)) << ToUtf8(rule);
  }
}

TEST_F(AdScheduleTest, NoRule_IsAnErrorWithinTheRangeOnly) {
  const Date day = DateOn(2009, 3, 1);
  EXPECT_FALSE(Shows(u"", day, day));
  EXPECT_EQ(TakeErrors(), Lines{"5 Advertisement.InRepeatTiming"});
  EXPECT_FALSE(Shows(u"", day, DateOn(2009, 2, 1)));
  floor->errors.Answer({vbwProtector::kIgnore});
  EXPECT_FALSE(Shows(u"", day, day));
  EXPECT_EQ(TakeErrors(), Lines{"5 Advertisement.InRepeatTiming"});
}

TEST_F(AdScheduleTest, ANumberThatIsMissing_IsAnError) {
  const Date day = DateOn(2009, 3, 1);
  for (const char16_t* rule : {u"D", u"Dx", u"M", u"Mx", u"Mxy", u"Wx", u"D1x"}) {
    EXPECT_FALSE(Shows(rule, day, day));
    EXPECT_EQ(TakeErrors(), Lines{"13 Advertisement.InRepeatEveryOther"}) << ToUtf8(rule);
  }
  EXPECT_FALSE(Shows(u"D40000", day, day));
  EXPECT_EQ(TakeErrors(), Lines{"6 Advertisement.InRepeatEveryOther"});
}

// The years after the second are counted with the second one's February.
TEST_F(AdScheduleTest, LaterFebruaries_AreAsLongAsThatOfTheYearAfterTheStart) {
  const Date start = DateOn(2007, 12, 31);
  const Date current = DateOn(2010, 1, 1);
  const int days = static_cast<int>(current.days - start.days);
  const String asCounted = Concat({u"D", DecimalText(days + 1)});
  const String asItIs = Concat({u"D", DecimalText(days)});
  EXPECT_TRUE(Shows(asCounted, start, current));
  EXPECT_FALSE(Shows(asItIs, start, current));
  // Through 2009 itself the same goes for the current year's own February, but not for its January.
  EXPECT_TRUE(Shows(asCounted, DateOn(2007, 12, 30), DateOn(2009, 12, 31)));
  EXPECT_TRUE(Shows(Concat({u"D", DecimalText(31 + 366)}), DateOn(2007, 12, 31), DateOn(2009, 1, 31)));
  EXPECT_TRUE(Shows(Concat({u"D", DecimalText(1 + 366 + 31 + 29)}), DateOn(2007, 12, 31), DateOn(2009, 3, 1)));
}

// With 0 the first day alone comes to an end.
TEST_F(AdScheduleTest, EveryZerothDay_ShowsOnTheStart) {
  const Date start = DateOn(2009, 3, 1);
  EXPECT_TRUE(Shows(u"D0", start, start));
}

// On any other day the steps go on until somebody ends the process; here it is a limit of its computing time.
TEST_F(AdScheduleTest, EveryZerothDay_HasNoAnswerOnAnotherDay) {
  const Date start = DateOn(2009, 3, 1);
  const auto stepWithinLimit = [&] {
    const itimerval limit{{0, 0}, {0, 50'000}};
    setitimer(ITIMER_VIRTUAL, &limit, nullptr);
    Shows(u"D0", start, DateOn(2009, 3, 2));
  };
  EXPECT_EXIT(stepWithinLimit(), testing::KilledBySignal(SIGVTALRM), "");
}

TEST_F(AdScheduleTest, StepsBackwards_EndInAnOverflow) {
  const Date start = DateOn(2009, 3, 1);
  EXPECT_TRUE(Shows(u"D-1", start, start));
  EXPECT_FALSE(Shows(u"D-1", start, DateOn(2009, 3, 2)));
  EXPECT_EQ(TakeErrors(), Lines{"6 Advertisement.InRepeatEveryOther"});
}

// Some ninety years, counted from the first of the start's month.
TEST_F(AdScheduleTest, DaysBeyondAnInteger_AreAnOverflow) {
  const Date start = DateOn(1901, 1, 1);  // no leap year follows: each counts 365 days, and 32767 are 89 and 282
  EXPECT_TRUE(Shows(u"D1", start, DateOn(1990, 10, 9)));
  EXPECT_EQ(TakeErrors(), Lines());
  EXPECT_FALSE(Shows(u"D1", start, DateOn(1991, 10, 9)));
  EXPECT_EQ(TakeErrors(), Lines{"6 Advertisement.InRepeatEveryOther"});
}

TEST_F(AdScheduleTest, AStepBeyondAnInteger_IsAnOverflow) {
  const Date start = DateOn(2009, 3, 31);
  EXPECT_FALSE(Shows(u"D32767", start, DateOn(2009, 4, 1)));
  EXPECT_EQ(TakeErrors(), Lines{"6 Advertisement.InRepeatEveryOther"});
  EXPECT_FALSE(Shows(u"D32736", start, DateOn(2009, 4, 1)));
  EXPECT_EQ(TakeErrors(), Lines());
}

TEST_F(AdScheduleTest, MonthsHaveTheirDays) {
  const struct {
    Integer year, month, days;
  } cases[] = {{2009, 1, 31}, {2009, 2, 28},  {2008, 2, 29}, {1900, 2, 28},
               {2000, 2, 29}, {2009, 12, 31}, {2009, 4, 30}, {9999, 12, 31}};
  for (const auto& [year, month, days] : cases) {
    EXPECT_EQ(Inside::NumberOfDaysInMonth(*ad, year, month), days) << year << "/" << month;
  }
}

}  // namespace
}  // namespace strandline
