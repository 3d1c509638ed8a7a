#include "platform/text.h"

#include <algorithm>
#include <charconv>
#include <span>

#include "platform/letter_case_table.h"

namespace strandline {

String Concat(std::initializer_list<TextView> pieces) {
  std::u16string whole;
  std::size_t length = 0;
  for (TextView piece : pieces) length += piece.size();
  whole.reserve(length);
  for (TextView piece : pieces) whole += piece;
  return String(whole);
}

namespace {

template <class Number>
String NumberText(Number value, int base) {
  char buffer[24];
  const auto end = std::to_chars(buffer, buffer + sizeof buffer, value, base).ptr;
  std::u16string text(buffer, end);
  for (char16_t& c : text) c = UpperCase(c);
  return String(text);
}

char16_t InOtherCase(char16_t c, std::span<const CaseRange> ranges) {
  const auto range = std::lower_bound(ranges.begin(), ranges.end(), c,
                                      [](const CaseRange& one, char16_t at) { return one.last < at; });
  if (range == ranges.end() || c < range->first || (c - range->first) % range->step != 0) return c;
  return static_cast<char16_t>(c + range->shift);
}

constexpr char16_t kReplacement = 0xFFFD;

bool IsHighSurrogate(char32_t c) { return c >= 0xD800 && c < 0xDC00; }
bool IsLowSurrogate(char32_t c) { return c >= 0xDC00 && c < 0xE000; }

void AppendUtf8(std::string& out, char32_t c) {
  if (c < 0x80) {
    out += static_cast<char>(c);
  } else if (c < 0x800) {
    out += static_cast<char>(0xC0 | (c >> 6));
    out += static_cast<char>(0x80 | (c & 0x3F));
  } else if (c < 0x10000) {
    out += static_cast<char>(0xE0 | (c >> 12));
    out += static_cast<char>(0x80 | ((c >> 6) & 0x3F));
    out += static_cast<char>(0x80 | (c & 0x3F));
  } else {
    out += static_cast<char>(0xF0 | (c >> 18));
    out += static_cast<char>(0x80 | ((c >> 12) & 0x3F));
    out += static_cast<char>(0x80 | ((c >> 6) & 0x3F));
    out += static_cast<char>(0x80 | (c & 0x3F));
  }
}

// The character at `at`, which moves past it; a malformed byte counts as one replacement character.
char32_t NextUtf8(std::string_view text, std::size_t& at) {
  const auto lead = static_cast<unsigned char>(text[at++]);
  if (lead < 0x80) return lead;
  const int more = lead >= 0xF0 && lead < 0xF5 ? 3 : lead >= 0xE0 ? 2 : lead >= 0xC2 ? 1 : 0;
  if (more == 0 || lead >= 0xF5 || at + static_cast<std::size_t>(more) > text.size()) return kReplacement;
  char32_t c = lead & (0x3F >> more);
  for (int i = 0; i < more; ++i) {
    const auto next = static_cast<unsigned char>(text[at + static_cast<std::size_t>(i)]);
    if ((next & 0xC0) != 0x80) return kReplacement;
    c = (c << 6) | (next & 0x3F);
  }
  constexpr char32_t kSmallest[] = {0, 0x80, 0x800, 0x10000};
  if (c < kSmallest[more] || c > 0x10FFFF || IsHighSurrogate(c) || IsLowSurrogate(c)) return kReplacement;
  at += static_cast<std::size_t>(more);
  return c;
}

}  // namespace

String DecimalText(std::int64_t value) { return NumberText(value, 10); }
String HexText(Long value) { return NumberText(static_cast<std::uint32_t>(value), 16); }

char16_t UpperCase(char16_t c) {
  if (c < 0x80) return c >= u'a' && c <= u'z' ? static_cast<char16_t>(c - 32) : c;
  return InOtherCase(c, kToUpper);
}

char16_t LowerCase(char16_t c) {
  if (c < 0x80) return c >= u'A' && c <= u'Z' ? static_cast<char16_t>(c + 32) : c;
  return InOtherCase(c, kToLower);
}

String LowerCase(TextView text) {
  std::u16string lower(text);
  for (char16_t& c : lower) c = LowerCase(c);
  return String(lower);
}

Long FindText(TextView text, TextView sought) {
  if (text.empty()) return 0;
  for (std::size_t at = 0; at + sought.size() <= text.size(); ++at) {
    if (SameText(text.substr(at, sought.size()), sought)) return static_cast<Long>(at + 1);
  }
  return 0;
}

bool SameText(TextView a, TextView b) {
  if (a.size() != b.size()) return false;
  for (std::size_t i = 0; i < a.size(); ++i) {
    if (a[i] != b[i] && LowerCase(a[i]) != LowerCase(b[i])) return false;
  }
  return true;
}

std::string ToUtf8(TextView text) {
  std::string out;
  out.reserve(text.size());
  for (std::size_t i = 0; i < text.size(); ++i) {
    char32_t c = text[i];
    if (IsHighSurrogate(c) && i + 1 < text.size() && IsLowSurrogate(text[i + 1])) {
      c = 0x10000 + ((c - 0xD800) << 10) + (text[++i] - 0xDC00u);
    } else if (IsHighSurrogate(c) || IsLowSurrogate(c)) {
      c = kReplacement;
    }
    AppendUtf8(out, c);
  }
  return out;
}

String FromUtf8(std::string_view text) {
  std::u16string out;
  out.reserve(text.size());
  for (std::size_t at = 0; at < text.size();) {
    const char32_t c = NextUtf8(text, at);
    if (c < 0x10000) {
      out += static_cast<char16_t>(c);
    } else {
      out += static_cast<char16_t>(0xD800 + ((c - 0x10000) >> 10));
      out += static_cast<char16_t>(0xDC00 + ((c - 0x10000) & 0x3FF));
    }
  }
  return String(out);
}

}  // namespace strandline
