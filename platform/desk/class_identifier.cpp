#include "platform/desk/class_identifier.h"

#include <algorithm>
#include <iterator>
#include <optional>

namespace strandline::desk {

namespace {

constexpr TextView kForm = u"{########-####-####-####-############}";

std::optional<unsigned> DigitOf(char16_t c) {
  if (c >= u'0' && c <= u'9') return static_cast<unsigned>(c - u'0');
  if (c >= u'A' && c <= u'F') return static_cast<unsigned>(c - u'A' + 10);
  if (c >= u'a' && c <= u'f') return static_cast<unsigned>(c - u'a' + 10);
  return std::nullopt;
}

}  // namespace

bool ParseGuid(TextView text, Guid& id) {
  if (text.size() != kForm.size()) return false;
  Byte bytes[16] = {};
  std::size_t digits = 0;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (kForm[i] != u'#') {
      if (text[i] != kForm[i]) return false;
      continue;
    }
    const std::optional<unsigned> digit = DigitOf(text[i]);
    if (!digit) return false;
    Byte& byte = bytes[digits++ / 2];
    byte = static_cast<Byte>(byte << 4 | *digit);
  }
  id.Data1 = static_cast<Long>(std::uint32_t{bytes[0]} << 24 | std::uint32_t{bytes[1]} << 16 |
                               std::uint32_t{bytes[2]} << 8 | bytes[3]);
  id.Data2 = static_cast<Integer>(bytes[4] << 8 | bytes[5]);
  id.Data3 = static_cast<Integer>(bytes[6] << 8 | bytes[7]);
  std::copy(bytes + 8, std::end(bytes), id.Data4);
  return true;
}

bool SameGuid(const Guid& a, const Guid& b) {
  return a.Data1 == b.Data1 && a.Data2 == b.Data2 && a.Data3 == b.Data3 &&
         std::equal(std::begin(a.Data4), std::end(a.Data4), std::begin(b.Data4));
}

}  // namespace strandline::desk
