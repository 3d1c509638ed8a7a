// Which repeat rules and filters an author may write.

#include "adtool/ad_rule.h"

#include <gtest/gtest.h>

#include "platform/convert.h"
#include "play/expectation.h"

namespace strandline::adtool {
namespace {

using play::MatchesPattern;

Day At(int year, unsigned month, unsigned day) {
  return {std::chrono::year{year}, std::chrono::month{month}, std::chrono::day{day}};
}

const Day kFrom = At(2009, 3, 1);
const Day kTo = At(2009, 12, 31);

TEST(AdRule_OfTheGrammar, IsTaken) {
  for (const char* rule : {"D1", "D2", "D30000", "D007", "W1", "W9", "W0100010", "W1111111", "W0000001", "M1", "M9",
                           "M31", "M07", "Mx30", "Me5", "MD1", "M*2", "M/7"}) {
    EXPECT_EQ(RuleFault(rule, kFrom, kTo), "") << rule;
  }
}

TEST(AdRule_TheToolbarCouldntFollow, IsRefusedWithWhatIsRight) {
  const struct {
    const char* rule;
    const char* fault;  // a pattern
  } kCases[] = {
      {"", "a rule begins with D (every N days), W (days of the week) or M (a day of the month), such as *"},
      {"d1", "a rule begins with D *"},
      {"w0100010", "a rule begins with D *"},
      {"X5", "a rule begins with D *"},
      {" D1", "a rule begins with D *"},
      {"D", "the number of days is missing; right is D and N with a whole number from 1 to 32767"},
      {"D0", "\"0\" is no number of days; right is D and N *"},
      {"D000", "\"000\" is no number of days; *"},
      {"D-1", "\"-1\" is no number of days; *"},
      {"D+1", "\"+1\" is no number of days; *"},
      {"D 1", "\" 1\" is no number of days; *"},
      {"D1 ", "\"1 \" is no number of days; *"},
      {"D1.5", "\"1.5\" is no number of days; *"},
      {"D1e2", "\"1e2\" is no number of days; *"},
      {"D32768", "\"32768\" is no number of days; *"},
      {"D99999999999999999999", "\"99999999999999999999\" is no number of days; *"},
      {"W", "behind \"W\" stand seven of 0 and 1, Sunday first, *"},
      {"W0", "behind \"W\" stand seven of 0 and 1, *"},
      {"Wx", "behind \"W\" stand seven of 0 and 1, *"},
      {"W14", "behind \"W\" stand seven of 0 and 1, *"},
      {"W010001", "behind \"W\" stand seven of 0 and 1, *"},
      {"W01000100", "behind \"W\" stand seven of 0 and 1, *"},
      {"W0100020", "behind \"W\" stand seven of 0 and 1, *"},
      {"W0000000", "no day of the week is chosen, so the ad would never show"},
      {"M", "behind \"M\" stands a day of the month from 1 to 31, or a letter and a number of days, *"},
      {"M0", "behind \"M\" stands a day of the month *"},
      {"M32", "behind \"M\" stands a day of the month *"},
      {"M1x", "behind \"M\" stands a day of the month *"},
      {"M-5", "behind \"M\" stands a day of the month *"},
      {"M 5", "behind \"M\" stands a day of the month *"},
      {"M&30", "behind \"M\" stands a day of the month *"},
      {"M\xE2\x82\xAC"
       "30",
       "behind \"M\" stands a day of the month *"},
      {"Mx", "the number of days is missing; right is Mx and N *"},
      {"Mx0", "\"0\" is no number of days; right is Mx and N *"},
      {"Mxx30", "\"x30\" is no number of days; *"},
      {"Y", "the toolbar shows no ad with a yearly rule on any day; *"},
      {"Y12/25", "the toolbar shows no ad with a yearly rule on any day; *"},
  };
  for (const auto& each : kCases) {
    const std::string fault = RuleFault(each.rule, kFrom, kTo);
    EXPECT_TRUE(MatchesPattern(each.fault, fault)) << each.rule << ": " << fault;
  }
}

TEST(AdRule_BehindM, NoLetterThatIsTakenMakesANumber) {
  int taken = 0;
  for (char first = 1; first < 0x7F; ++first) {
    if (first >= '0' && first <= '9') continue;
    const std::string body = first + std::string("30");
    if (RuleFault("M" + body, kFrom, kTo) != "") continue;
    ++taken;
    EXPECT_FALSE(IsNumberText(FromUtf8(body))) << body;
  }
  EXPECT_GT(taken, 52);
}

// The toolbar's own way from the start to a day, in 16 bits: false when a number gets too great.
bool CanStep(Day from, Day day, int every) {
  int target = static_cast<int>(static_cast<unsigned>(day.day()));
  int year = static_cast<int>(from.year());
  const auto month = [&](unsigned number) {
    const Day next = number == 12 ? At(year + 1, 1, 1) : At(year, number + 1, 1);
    target += static_cast<int>((std::chrono::sys_days(next) - std::chrono::sys_days(At(year, number, 1))).count());
  };
  const unsigned first = static_cast<unsigned>(from.month()), last = static_cast<unsigned>(day.month());
  if (from.year() == day.year()) {
    for (unsigned each = first; each < last; ++each) month(each);
  } else {
    for (unsigned each = first; each <= 12; ++each) month(each);
    ++year;
    const int february = std::chrono::year{year}.is_leap() ? 29 : 28;
    for (int each = year; each < static_cast<int>(day.year()); ++each) target += 365 + february - 28;
    for (unsigned each = 1; each < last; ++each) month(each);
  }
  int working = static_cast<int>(static_cast<unsigned>(from.day()));
  while (working < target && working <= 32767) working += every;
  return target <= 32767 && working <= 32767;
}

// The days from `from` up to the last that the toolbar can reach by the rule.
Day LastReached(Day from, int every) {
  std::chrono::sys_days day(from);
  for (const int step : {1000, 50, 1}) {
    while (CanStep(from, day + std::chrono::days(step), every)) day += std::chrono::days(step);
  }
  return day;
}

TEST(AdRule_ThatCountsDays, IsTakenExactlyAsFarAsTheToolbarCanCount) {
  const struct {
    Day from;
    const char* rule;
    int every;
  } kCases[] = {
      {At(2000, 1, 1), "D1", 1},           {At(2003, 5, 31), "D1", 1},        {At(2004, 2, 29), "D365", 365},
      {At(2009, 3, 1), "D16000", 16000},   {At(2009, 3, 5), "D32762", 32762}, {At(2009, 3, 5), "D32763", 32763},
      {At(2009, 12, 31), "D32767", 32767}, {At(2007, 12, 31), "W7", 7},       {At(1999, 11, 30), "Mx30", 30},
  };
  for (const auto& each : kCases) {
    SCOPED_TRACE(each.rule);
    const Day last = LastReached(each.from, each.every);
    const Day next = std::chrono::sys_days(last) + std::chrono::days(1);
    EXPECT_EQ(RuleFault(each.rule, each.from, last), "");
    EXPECT_TRUE(MatchesPattern("the rule counts days from the start, which the toolbar can only up to 32767; *",
                               RuleFault(each.rule, each.from, next)));
    // The days of the week and of the month count nothing.
    EXPECT_EQ(RuleFault("W0100010", each.from, At(9999, 12, 31)), "");
    EXPECT_EQ(RuleFault("M31", each.from, At(9999, 12, 31)), "");
  }
}

TEST(AdFilter_OfTheGrammar, IsTaken) {
  for (const char* filter : {"", "a=", "a=b", "a=b=c", "a=b|c~d=!e|has_f", "~", "a=b~~c=d", "a=b~", "a=!", "a=|"}) {
    EXPECT_EQ(FilterFault(filter), "") << filter;
  }
}

TEST(AdFilter_WithAClauseThatNamesNothing, IsRefused) {
  const struct {
    const char* filter;
    const char* fault;
  } kCases[] = {
      {"a", "the clause \"a\" has no \"=\"; right is NAME=VALUE, or NAME= for an empty value"},
      {"a=b~c", "the clause \"c\" has no \"=\"; right is NAME=VALUE, or NAME= for an empty value"},
      {"c|d~a=b", "the clause \"c|d\" has no \"=\"; right is NAME=VALUE, or NAME= for an empty value"},
      {"=x", "the clause \"=x\" names no value in front of its \"=\""},
      {"a=b~=", "the clause \"=\" names no value in front of its \"=\""},
  };
  for (const auto& each : kCases) EXPECT_EQ(FilterFault(each.filter), each.fault) << each.filter;
}

}  // namespace
}  // namespace strandline::adtool
