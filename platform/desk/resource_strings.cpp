#include "platform/desk/resource_strings.h"

#include <string>

namespace strandline::desk {

namespace {

constexpr Long kStringsOfOne = 16;

// The resource of the text with the highest number, 65535. No number leads to another one.
constexpr Long kHighestId = 4096;

}  // namespace

void ReadStrings(ByteView resource, Long id, std::map<Long, String>& strings) {
  if (id < 1 || id > kHighestId) return;
  std::uint64_t at = 0;
  for (Long i = 0; i < kStringsOfOne; ++i) {
    const std::uint64_t length = resource.Number16(at);
    if (!resource.Holds(at, 2 + 2 * length)) return;
    std::u16string text;
    for (std::uint64_t k = 1; k <= length; ++k) text += static_cast<char16_t>(resource.Number16(at + 2 * k));
    if (!text.empty()) strings.try_emplace((id - 1) * kStringsOfOne + i, text);
    at += 2 + 2 * length;
  }
}

}  // namespace strandline::desk
