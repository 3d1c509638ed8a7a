#include "adtool/refusal.h"

namespace strandline::adtool {

namespace {

constexpr std::size_t kLongestQuote = 80;  // bytes

}  // namespace

std::string Quoted(std::string_view text) {
  if (text.size() <= kLongestQuote) return "\"" + std::string(text) + "\"";
  std::size_t end = kLongestQuote;
  // A character of several bytes isn't cut through.
  while (end > 0 && (static_cast<unsigned char>(text[end]) & 0xC0) == 0x80) --end;
  return "\"" + std::string(text.substr(0, end)) + "...\"";
}

std::string Printable(std::string_view text) {
  std::string shown(text);
  for (char& each : shown) {
    if (static_cast<unsigned char>(each) < 0x20 || each == 0x7F) each = '?';
  }
  return shown;
}

}  // namespace strandline::adtool
