#include "adtool/ad_settings.h"

#include <algorithm>
#include <cstdio>

#include "adtool/refusal.h"

namespace strandline::adtool {

namespace {

// What stands at 0x80 to 0x9F of code page 1252, in order of the characters.
constexpr char32_t kCodePage1252[] = {0x0152, 0x0153, 0x0160, 0x0161, 0x0178, 0x017D, 0x017E, 0x0192, 0x02C6,
                                      0x02DC, 0x2013, 0x2014, 0x2018, 0x2019, 0x201A, 0x201C, 0x201D, 0x201E,
                                      0x2020, 0x2021, 0x2022, 0x2026, 0x2030, 0x2039, 0x203A, 0x20AC, 0x2122};

bool IsInCodePage(char32_t character) {
  return (character >= 0x20 && character <= 0x7E) || (character >= 0xA0 && character <= 0xFF) ||
         std::binary_search(std::begin(kCodePage1252), std::end(kCodePage1252), character);
}

bool ContinuesCharacter(char byte) { return (static_cast<unsigned char>(byte) & 0xC0) == 0x80; }

// The next character, taken off the text, which is sound UTF-8: the parser of the list has seen to that.
char32_t TakeCharacter(std::string_view& text) {
  const unsigned char first = static_cast<unsigned char>(text[0]);
  char32_t character = first < 0x80 ? first : first < 0xE0 ? first & 0x1F : first < 0xF0 ? first & 0x0F : first & 0x07;
  text.remove_prefix(1);
  while (!text.empty() && ContinuesCharacter(text[0])) {
    character = character << 6 | (static_cast<unsigned char>(text[0]) & 0x3F);
    text.remove_prefix(1);
  }
  return character;
}

// The toolbar reads a date as the user's Windows is set; with the year first it is the same day everywhere.
std::string DateText(Day day) {
  char text[40];
  std::snprintf(text, sizeof text, "%04d-%02u-%02u", static_cast<int>(day.year()), static_cast<unsigned>(day.month()),
                static_cast<unsigned>(day.day()));
  return text;
}

std::string CodePoint(char32_t character) {
  char text[16];
  std::snprintf(text, sizeof text, "U+%04X", static_cast<unsigned>(character));
  return text;
}

}  // namespace

std::string SettingsString(const AdSettings& settings) {
  return DateText(settings.from) + "$" + DateText(settings.to) + "$" + settings.rule + "$-$" + settings.filter + "$" +
         std::to_string(settings.duration) + "$" + settings.address;
}

std::string DefaultSettingsString() { return "StartDate$EndDate$Rule$Reserved$Filter$Duration$Address"; }

std::string TextFault(std::string_view utf8) {
  while (!utf8.empty()) {
    const std::string_view rest = utf8;
    const char32_t character = TakeCharacter(utf8);
    if (character == '$')
      return "a \"$\" can't stand in it: in the library it separates the fields (in an address it is written %24)";
    if (character < 0x20 || (character >= 0x7F && character < 0xA0)) {
      return "the control character " + CodePoint(character) + " can't stand in it; leave it out";
    }
    if (!IsInCodePage(character)) {
      return "the character " + Quoted(rest.substr(0, rest.size() - utf8.size())) + " (" + CodePoint(character) +
             ") isn't in code page 1252, which the toolbar reads; write another one";
    }
  }
  return {};
}

std::size_t BytesInCodePage(std::string_view utf8) {
  return utf8.size() - static_cast<std::size_t>(std::count_if(utf8.begin(), utf8.end(), ContinuesCharacter));
}

}  // namespace strandline::adtool
