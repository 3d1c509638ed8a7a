#include "platform/convert.h"

#include <cmath>
#include <cstdio>
#include <cstdlib>
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

// Reads one number in the grammar told in the header and writes it as C reads it.
class NumberReader {
 public:
  explicit NumberReader(TextView text) : mText(text) {}

  bool Read() {
    if (At(u'+') || At(u'-')) Take();
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
      if (At(u'+') || At(u'-')) Take();
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

// Infinite where it is beyond all numbers.
std::optional<Double> NumberIn(TextView text) {
  while (text.ends_with(u'\0')) text.remove_suffix(1);
  NumberReader reader(Trimmed(text));
  if (!reader.Read()) return {};
  return std::strtod(reader.Plain().c_str(), nullptr);
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

String TextFromNumber(Double value) {
  char buffer[40];
  const int length = std::snprintf(buffer, sizeof buffer, "%.15G", value);
  return FromUtf8(std::string_view(buffer, static_cast<std::size_t>(length)));
}

String TextFromSingle(Single value) {
  char buffer[40];
  const int length = std::snprintf(buffer, sizeof buffer, "%.7G", static_cast<Double>(value));
  return FromUtf8(std::string_view(buffer, static_cast<std::size_t>(length)));
}

Boolean BooleanFromText(TextView text) {
  const TextView trimmed = Trimmed(text);
  if (SameText(trimmed, u"True")) return true;
  if (SameText(trimmed, u"False")) return false;
  return NumberFromText(trimmed) != 0;
}

}  // namespace strandline
