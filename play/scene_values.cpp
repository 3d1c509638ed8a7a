// The numbers and times of a scene.

#include <charconv>

#include "play/scene_command.h"

namespace strandline::play {

bool ParseNumber(std::string_view text, std::int64_t& number) {
  const bool negative = text.starts_with('-');
  if (negative || text.starts_with('+')) text.remove_prefix(1);
  const bool hexadecimal = text.starts_with("0x") || text.starts_with("0X");
  if (hexadecimal) text.remove_prefix(2);
  std::uint64_t magnitude = 0;
  const char* end = text.data() + text.size();
  const auto [stopped, failure] = std::from_chars(text.data(), end, magnitude, hexadecimal ? 16 : 10);
  if (text.empty() || failure != std::errc() || stopped != end || magnitude > INT64_MAX) return false;
  number = negative ? -static_cast<std::int64_t>(magnitude) : static_cast<std::int64_t>(magnitude);
  return true;
}

namespace {

// `length` digits and the separator behind them (none at the end of the text).
bool TakeDigits(std::string_view& text, std::size_t length, char separator, int& value) {
  if (text.size() < length) return false;
  value = 0;
  for (char c : text.substr(0, length)) {
    if (c < '0' || c > '9') return false;
    value = value * 10 + (c - '0');
  }
  text.remove_prefix(length);
  if (separator == '\0') return true;
  if (!text.starts_with(separator)) return false;
  text.remove_prefix(1);
  return true;
}

bool IsLeapYear(int year) { return year % 4 == 0 && (year % 100 != 0 || year % 400 == 0); }

int DaysInMonth(int year, int month) {
  constexpr int kDays[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  return month == 2 && IsLeapYear(year) ? 29 : kDays[month - 1];
}

std::int64_t DayNumber(int year, int month, int day) {
  const std::int64_t before = year - 1;
  std::int64_t days = before * 365 + before / 4 - before / 100 + before / 400 + day - 1;
  for (int i = 1; i < month; ++i) days += DaysInMonth(year, i);
  return days;
}

}  // namespace

bool ParseTime(std::string_view text, std::int64_t& milliseconds) {
  int year = 0, month = 0, day = 0, hour = 0, minute = 0, second = 0;
  if (!TakeDigits(text, 4, '-', year) || !TakeDigits(text, 2, '-', month) || !TakeDigits(text, 2, '\0', day)) {
    return false;
  }
  if (year < 1900 || month < 1 || month > 12 || day < 1 || day > DaysInMonth(year, month)) return false;
  if (text.starts_with('T')) {
    text.remove_prefix(1);
    if (!TakeDigits(text, 2, ':', hour) || !TakeDigits(text, 2, ':', minute) || !TakeDigits(text, 2, '\0', second)) {
      return false;
    }
    if (hour > 23 || minute > 59 || second > 59) return false;
  }
  if (!text.empty()) return false;
  milliseconds = ((DayNumber(year, month, day) * 24 + hour) * 60 + minute) * 60'000LL + second * 1000LL;
  return true;
}

}  // namespace strandline::play
