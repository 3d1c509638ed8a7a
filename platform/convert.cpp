#include "platform/convert.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <optional>
#include <string>
#include <string_view>

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

// The host may have set a locale of its own, whose decimal separator strtod and snprintf follow. So strtod is given
// whole digits with a power of ten, and of what snprintf writes the digits alone are taken. The functions of <charconv>
// would do without that, but their tables cost the library 300 KB.

// Reads one number in the grammar told in the header and writes it as digits and a power of ten.
class NumberReader {
 public:
  explicit NumberReader(TextView text) : mText(text) {}

  bool Read() {
    if (TakeSign()) mDigits += '-';
    while (!AtEnd() && (IsDigit(Here()) || Here() == u',')) TakeDigit();
    if (At(u'.')) {
      ++mAt;
      while (!AtEnd() && IsDigit(Here())) {
        TakeDigit();
        --mPower;
      }
    }
    if (mCount == 0) return false;
    if (At(u'e') || At(u'E') || At(u'd') || At(u'D')) {
      ++mAt;
      if (!ReadPower()) return false;
    }
    return AtEnd();
  }
  std::string Plain() const { return mDigits + 'e' + std::to_string(mPower); }

 private:
  // No number has so many digits that a power beyond this changes anything but its being 0 or infinite.
  static constexpr std::int64_t kLargestPower = std::int64_t{1} << 40;

  bool AtEnd() const { return mAt == mText.size(); }
  char16_t Here() const { return mText[mAt]; }
  bool At(char16_t c) const { return !AtEnd() && Here() == c; }
  // Whether it is a minus.
  bool TakeSign() {
    const bool isMinus = At(u'-');
    if (isMinus || At(u'+')) ++mAt;
    return isMinus;
  }
  void TakeDigit() {
    const char16_t c = mText[mAt++];
    if (c == u',') return;
    ++mCount;
    mDigits += static_cast<char>(c);
  }
  bool ReadPower() {
    const bool isMinus = TakeSign();
    if (AtEnd()) return false;
    std::int64_t power = 0;
    for (; !AtEnd() && IsDigit(Here()); ++mAt) power = std::min(power * 10 + (Here() - u'0'), kLargestPower);
    mPower += isMinus ? -power : power;
    return true;
  }

  TextView mText;
  std::size_t mAt = 0;
  std::size_t mCount = 0;
  std::int64_t mPower = 0;
  std::string mDigits;
};

// Infinite where it is beyond all numbers, 0 where it is nearer to it than any.
std::optional<Double> NumberIn(TextView text) {
  while (text.ends_with(u'\0')) text.remove_suffix(1);
  NumberReader reader(Trimmed(text));
  if (!reader.Read()) return {};
  return std::strtod(reader.Plain().c_str(), nullptr);
}

// At most so many digits, without zeros at the end; a power of ten where the number is below 0.0001 or has more digits
// before its point.
String ShortestText(Double value, int mostDigits) {
  if (!std::isfinite(value)) return std::isnan(value) ? u"NAN" : value > 0 ? u"INF" : u"-INF";
  char written[40];
  std::snprintf(written, sizeof written, "%.*e", mostDigits - 1, std::abs(value));
  const std::string_view whole = written;
  const std::size_t powerAt = whole.find('e');
  const int power = std::atoi(written + powerAt + 1);
  std::u16string digits;
  for (const char c : whole.substr(0, powerAt)) {
    if (c >= '0' && c <= '9') digits += static_cast<char16_t>(c);
  }
  while (digits.size() > 1 && digits.back() == u'0') digits.pop_back();

  std::u16string text = std::signbit(value) ? u"-" : u"";
  if (power < -4 || power >= mostDigits) {
    text += digits[0];
    if (digits.size() > 1) text += u'.' + digits.substr(1);
    text += power < 0 ? u"E-" : u"E+";
    if (std::abs(power) < 10) text += u'0';
    return text + std::u16string(DecimalText(std::abs(power)).View());
  }
  if (power < 0) return text + u"0." + std::u16string(static_cast<std::size_t>(-power - 1), u'0') + digits;
  const auto before = static_cast<std::size_t>(power) + 1;
  if (digits.size() <= before) return text + digits + std::u16string(before - digits.size(), u'0');
  return text + digits.substr(0, before) + u'.' + digits.substr(before);
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
