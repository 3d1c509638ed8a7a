#pragma once

#include <optional>
#include <string_view>

namespace strandline::adtool {

inline constexpr int kMostKeyParts = 16;

// The line, from 1, of the first key in a text in TOML that has more parts with points between them. The parser makes a
// table within a table of each, and a hundred thousand would be too many for the stack. Behind what isn't TOML nothing
// is looked for: there the parser stops.
std::optional<int> LineOfTooDeepKey(std::string_view toml);

}  // namespace strandline::adtool
