#include "platform/convert.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>
#include <optional>

#include "platform/error.h"

namespace strandline {

namespace {

template <class To>
To Rounded(Double value) {
  const Double whole = RoundHalfEven(value);
  if (!(whole >= std::numeric_limits<To>::min() && whole <= std::numeric_limits<To>::max())) {
    Raise(errors::kOverflow);
  }
  return static_cast<To>(whole);
}

bool IsBlank(char16_t c) { return c == u' ' || c == u'\t' || c == 0xA0; }
bool IsDigit(char16_t c) { return c >= u'0' && c <= u'9'; }

TextView Trimmed(TextView text) {
  while (!text.empty() && IsBlank(text.front())) text.remove_prefix(1);
  while (!text.empty() && IsBlank(text.back())) text.remove_suffix(1);
  return text;
}

// The host may have set a locale of its own, which strtod and printf would follow; the functions of <charconv> don't.

// Reads one number in the grammar told in the header and writes it as std::from_chars reads it.
class NumberReader {
 public:
  explicit NumberReader(TextView text) : mText(text) {}

  bool Read() {
    TakeSign();
    while (!AtEnd() && (IsDigit(Here()) || (Here() == u',' && mDot == 0))) TakeDigit();
    if (At(u'.')) {
      ++mDot;
      Take();
      while (!AtEnd() && IsDigit(Here())) TakeDigit();
    }
    if (mDigits == 0) return false;
    if (At(u'e') || At(u'E') || At(u'd') || At(u'D')) {
      mPlain += 'e';
      ++mAt;
      TakeSign();
      mDigits = 0;
      while (!AtEnd() && IsDigit(Here())) TakeDigit();
      if (mDigits == 0) return false;
    }
    return AtEnd();
  }
  const std::string& Plain() const { return mPlain; }

 private:
  bool AtEnd() const { return mAt == mText.size(); }
  char16_t Here() const { return mText[mAt]; }
  bool At(char16_t c) const { return !AtEnd() && Here() == c; }
  // A plus is what a number has without a sign.
  void TakeSign() {
    if (At(u'+')) {
      ++mAt;
    } else if (At(u'-')) {
      Take();
    }
  }
  void Take() { mPlain += static_cast<char>(mText[mAt++]); }
  void TakeDigit() {
    if (Here() == u',') {
      ++mAt;
      return;
    }
    ++mDigits;
    Take();
  }

  TextView mText;
  std::size_t mAt = 0;
  int mDigits = 0;
  int mDot = 0;
  std::string mPlain;
};

// The power of ten of a number's first digit that isn't 0, or one with its sign where the exponent has too many digits.
std::int64_t Magnitude(std::string_view plain) {
  const std::size_t exponentAt = std::min(plain.find('e'), plain.size());
  const std::string_view digits = plain.substr(0, exponentAt);
  const std::size_t first = std::min(digits.find_first_of("123456789"), digits.size());
  const std::size_t dot = std::min(digits.find('.'), digits.size());
  const std::int64_t power = static_cast<std::int64_t>(dot) - static_cast<std::int64_t>(first);
  if (exponentAt == plain.size()) return power;
  constexpr std::int64_t kBeyondAll = std::int64_t{1} << 40;
  const std::string_view exponent = plain.substr(exponentAt + 1);
  std::int64_t shift = 0;
  const auto read = std::from_chars(exponent.data(), exponent.data() + exponent.size(), shift);
  if (read.ec == std::errc::result_out_of_range) return exponent.front() == '-' ? -kBeyondAll : kBeyondAll;
  return power + std::clamp(shift, -kBeyondAll, kBeyondAll);
}

// Infinite where it is beyond all numbers, 0 where it is nearer to it than any.
std::optional<Double> NumberIn(TextView text) {
  while (text.ends_with(u'\0')) text.remove_suffix(1);
  NumberReader reader(Trimmed(text));
  if (!reader.Read()) return {};
  const std::string& plain = reader.Plain();
  Double value = 0;
  if (std::from_chars(plain.data(), plain.data() + plain.size(), value).ec == std::errc::result_out_of_range) {
    value = Magnitude(plain) > 0 ? std::numeric_limits<Double>::infinity() : 0;
  }
  return value;
}

String ShortestText(Double value, int mostDigits) {
  char buffer[40];
  const char* const end =
      std::to_chars(buffer, buffer + sizeof buffer, value, std::chars_format::general, mostDigits).ptr;
  std::u16string text;
  for (const char* c = buffer; c != end; ++c) text += UpperCase(static_cast<char16_t>(*c));
  return text;
}

}  // namespace

Double RoundHalfEven(Double value) {
  const Double below = std::floor(value);
  const Double rest = value - below;
  if (rest < 0.5) return below;
  if (rest > 0.5) return below + 1;
  return std::fmod(below, 2) == 0 ? below : below + 1;
}

Integer RoundToInteger(Double value) { return Rounded<Integer>(value); }
Long RoundToLong(Double value) { return Rounded<Long>(value); }

Double NumberFromText(TextView text) {
  const std::optional<Double> value = NumberIn(text);
  if (!value) Raise(errors::kTypeMismatch);
  if (!std::isfinite(*value)) Raise(errors::kOverflow);
  return *value;
}

Boolean IsNumberText(TextView text) {
  const std::optional<Double> value = NumberIn(text);
  return value && std::isfinite(*value);
}

String TextFromNumber(Double value) { return ShortestText(value, 15); }

String TextFromSingle(Single value) { return ShortestText(static_cast<Double>(value), 7); }

Boolean BooleanFromText(TextView text) {
  const TextView trimmed = Trimmed(text);
  if (SameText(trimmed, u"True")) return true;
  if (SameText(trimmed, u"False")) return false;
  return NumberFromText(trimmed) != 0;
}

}  // namespace strandline
