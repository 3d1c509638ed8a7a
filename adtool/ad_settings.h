#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "adtool/ad_rule.h"

namespace strandline::adtool {

// When an ad shows, for how long, and what a click opens. Texts are UTF-8.
struct AdSettings {
  Day from;
  Day to;
  std::string rule = "D1";
  std::string filter;
  std::int64_t duration = 5000;  // milliseconds
  std::string address;
};

// As the library keeps them: seven fields with "$" between them.
std::string SettingsString(const AdSettings& settings);

// In place of settings: the toolbar's own defaults.
std::string DefaultSettingsString();

inline constexpr std::size_t kLongestSettings = 511;  // bytes of the code page that the toolbar reads

// What the code page can't bear in this field, and what would be right; empty when it is as it should be.
std::string TextFault(std::string_view utf8);

// Bytes in code page 1252, of a text without fault.
std::size_t BytesInCodePage(std::string_view utf8);

}  // namespace strandline::adtool
