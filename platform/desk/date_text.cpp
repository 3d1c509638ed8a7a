#include "platform/desk/date_text.h"

#include <cmath>

#include "platform/dates.h"

namespace strandline::desk {

namespace {

constexpr TextView kMonths[] = {u"January", u"February", u"March",     u"April",   u"May",      u"June",
                                u"July",    u"August",   u"September", u"October", u"November", u"December"};
constexpr std::size_t kShortMonth = 3;
constexpr Long kSecondsOfADay = 86'400;

bool IsDigit(char16_t c) { return c >= u'0' && c <= u'9'; }
bool IsLetter(char16_t c) { return (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z'); }

// 1 to 12; 0 for what is no month.
int MonthNamed(TextView word) {
  for (int month = 0; month < 12; ++month) {
    if (SameText(word, kMonths[month]) || SameText(word, kMonths[month].substr(0, kShortMonth))) return month + 1;
  }
  return 0;
}

int FullYear(int year) {
  if (year >= 100) return year;
  return year < 30 ? 2000 + year : 1900 + year;
}

int DaysOf(int year, int month) {
  return dates::Day(dates::FromParts(static_cast<Integer>(year), static_cast<Integer>(month + 1), 0));
}

// Takes the text piece by piece, blanks before a piece along with it; what isn't there is left.
class DateReader {
 public:
  explicit DateReader(TextView text) : mRest(text) {}

  std::optional<Date> Read() {
    SkipBlanks();
    if (!(AtLetter() ? ReadMonthFirst() : ReadNumberFirst())) return {};
    SkipBlanks();
    if (!mRest.empty() && !ReadTime()) return {};
    SkipBlanks();
    const int year = FullYear(mYear);
    if (!mRest.empty() || year > 9999 || mMonth < 1 || mMonth > 12) return {};
    if (mDay < 1 || mDay > DaysOf(year, mMonth)) return {};
    const Date day =
        dates::FromParts(static_cast<Integer>(year), static_cast<Integer>(mMonth), static_cast<Integer>(mDay));
    return dates::WithTime(day, mSeconds);
  }

 private:
  void SkipBlanks() {
    while (!mRest.empty() && (mRest.front() == u' ' || mRest.front() == u'\t')) mRest.remove_prefix(1);
  }
  bool AtLetter() const { return !mRest.empty() && IsLetter(mRest.front()); }

  bool TakeSign(char16_t sign) {
    SkipBlanks();
    if (mRest.empty() || mRest.front() != sign) return false;
    mRest.remove_prefix(1);
    return true;
  }
  bool TakeNumber(int& number, std::size_t mostDigits) {
    SkipBlanks();
    std::size_t digits = 0;
    for (number = 0; digits < mRest.size() && IsDigit(mRest[digits]); ++digits) {
      if (digits == mostDigits) return false;
      number = number * 10 + (mRest[digits] - u'0');
    }
    mRest.remove_prefix(digits);
    return digits > 0;
  }
  TextView TakeWord() {
    SkipBlanks();
    std::size_t length = 0;
    while (length < mRest.size() && IsLetter(mRest[length])) ++length;
    const TextView word = mRest.substr(0, length);
    mRest.remove_prefix(length);
    return word;
  }

  bool ReadMonthFirst() {
    mMonth = MonthNamed(TakeWord());
    if (!TakeNumber(mDay, 2)) return false;
    TakeSign(u',');
    return TakeNumber(mYear, 4);
  }

  bool ReadNumberFirst() {
    const std::size_t before = mRest.size();
    int first = 0;
    if (!TakeNumber(first, 4)) return false;
    const bool isYearFirst = before - mRest.size() > 2;
    SkipBlanks();
    if (AtLetter()) {
      if (isYearFirst) return false;
      mDay = first;
      mMonth = MonthNamed(TakeWord());
      TakeSign(u',');
      return TakeNumber(mYear, 4);
    }
    int second = 0;
    int third = 0;
    const char16_t sign = TakeSign(u'/') ? u'/' : u'-';
    if (sign == u'-' && !TakeSign(sign)) return false;
    if (!TakeNumber(second, 2) || !TakeSign(sign) || !TakeNumber(third, isYearFirst ? 2 : 4)) return false;
    mYear = isYearFirst ? first : third;
    mMonth = isYearFirst ? second : first;
    mDay = isYearFirst ? third : second;
    return true;
  }

  bool ReadTime() {
    int hour = 0;
    int minute = 0;
    int second = 0;
    if (!TakeNumber(hour, 2) || !TakeSign(u':') || !TakeNumber(minute, 2)) return false;
    if (TakeSign(u':') && !TakeNumber(second, 2)) return false;
    if (const TextView half = TakeWord(); !half.empty()) {
      const bool isAfternoon = SameText(half, u"PM");
      if ((!isAfternoon && !SameText(half, u"AM")) || hour < 1 || hour > 12) return false;
      hour = hour % 12 + (isAfternoon ? 12 : 0);
    }
    mSeconds = (hour * 60 + minute) * 60 + second;
    return hour < 24 && minute < 60 && second < 60;
  }

  TextView mRest;
  int mYear = 0;
  int mMonth = 0;
  int mDay = 0;
  int mSeconds = 0;
};

String DayText(Date day) {
  return Concat(
      {DecimalText(dates::Month(day)), u"/", DecimalText(dates::Day(day)), u"/", DecimalText(dates::Year(day))});
}

String TwoDigits(Long number) { return Concat({number < 10 ? u"0" : u"", DecimalText(number)}); }

String TimeText(Long seconds) {
  const Long hour = seconds / 3600;
  return Concat({DecimalText(hour % 12 == 0 ? 12 : hour % 12), u":", TwoDigits(seconds / 60 % 60), u":",
                 TwoDigits(seconds % 60), hour < 12 ? u" AM" : u" PM"});
}

}  // namespace

String TextOfDate(Date date) {
  Double day = dates::DayNumber(date);
  const Double time = std::abs(date.days - day);
  const bool hasDate = day != 0;
  if (hasDate && time == 0) return DayText({day});
  Long seconds = static_cast<Long>(std::lround(time * kSecondsOfADay));
  if (seconds == kSecondsOfADay) {
    seconds = 0;
    day += 1;
  }
  return hasDate ? Concat({DayText({day}), u" ", TimeText(seconds)}) : TimeText(seconds);
}

std::optional<Date> DateInText(TextView text) { return DateReader(text.substr(0, text.find(u'\0'))).Read(); }

}  // namespace strandline::desk
