#pragma once

// String: a text of UTF-16 characters, shared and never changed once made, so that handing one on copies no characters
// and takes no memory. The empty text is the default.

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

#include "platform/values.h"

namespace strandline {

using TextView = std::u16string_view;

class String {
 public:
  String() = default;
  String(TextView text) : mBody(text.empty() ? nullptr : new Body{std::u16string(text)}) {}
  String(const char16_t* text) : String(TextView(text)) {}
  String(const std::u16string& text) : String(TextView(text)) {}
  String(const String& other) : mBody(other.mBody) {
    if (mBody) ++mBody->owners;
  }
  String(String&& other) noexcept : mBody(std::exchange(other.mBody, nullptr)) {}
  String& operator=(String other) noexcept {
    std::swap(mBody, other.mBody);
    return *this;
  }
  [[gnu::always_inline]] ~String() {
    if (mBody && --mBody->owners == 0) delete mBody;
  }

  TextView View() const { return mBody ? TextView(mBody->text) : TextView(); }
  operator TextView() const { return View(); }
  // Terminated by a NUL; valid as long as this text lives.
  const char16_t* c_str() const { return mBody ? mBody->text.c_str() : u""; }
  Long Length() const { return static_cast<Long>(View().size()); }
  bool IsEmpty() const { return mBody == nullptr; }

  friend bool operator==(const String& a, const String& b) { return a.View() == b.View(); }
  friend bool operator==(const String& a, TextView b) { return a.View() == b; }
  friend bool operator==(const String& a, const char16_t* b) { return a.View() == TextView(b); }
  friend auto operator<=>(const String& a, const String& b) { return a.View() <=> b.View(); }

 private:
  struct Body {
    std::u16string text;
    std::int32_t owners = 1;
  };
  Body* mBody = nullptr;
};

// One text of several pieces.
String Concat(std::initializer_list<TextView> pieces);

// The decimal text of a whole number; upper-case hexadecimal of its 32 bits, without leading zeros.
String DecimalText(std::int64_t value);
String HexText(Long value);

// Upper and lower case by Unicode's table, one character for one. As on Windows, two characters are partners where each
// leads to the other; all others stay, and so do the halves of a character beyond 16 bits. For a text as the system
// writes it in lower case ask the seam (RunTime::LowerCase).
char16_t UpperCase(char16_t c);
char16_t LowerCase(char16_t c);
String LowerCase(TextView text);

// The position (1-based) of the first `sought` in `text`, letters compared without case; 0 when absent. The empty
// text stands at 1 in every text but the empty one.
Long FindText(TextView text, TextView sought);
bool SameText(TextView a, TextView b);

// Between UTF-16 and UTF-8; what isn't well-formed becomes U+FFFD.
std::string ToUtf8(TextView text);
String FromUtf8(std::string_view text);

}  // namespace strandline
