#pragma once

#include <cstdint>
#include <iterator>

#include "platform/values.h"

namespace strandline {

namespace system_color {
inline constexpr Long kBackground = 1;
inline constexpr Long kFace = 15;
inline constexpr Long kShadow = 16;
inline constexpr Long kHighlight = 20;
inline constexpr Long kDarkShadow = 21;
inline constexpr Long kLight = 22;
inline constexpr Long kLast = 30;
}  // namespace system_color

namespace looks {

// 0xRRGGBB, by index.
inline constexpr std::uint32_t kClassicColors[] = {
    0xD4D0C8,  // 0 scroll bar
    0x004E98,  // 1 desktop
    0x0054E3,  // 2 active caption
    0x7A96DF,  // 3 inactive caption
    0xFFFFFF,  // 4 menu
    0xFFFFFF,  // 5 window
    0x000000,  // 6 window frame
    0x000000,  // 7 menu text
    0x000000,  // 8 window text
    0xFFFFFF,  // 9 caption text
    0xD4D0C8,  // 10 active border
    0xD4D0C8,  // 11 inactive border
    0x808080,  // 12 application workspace
    0x316AC5,  // 13 highlight
    0xFFFFFF,  // 14 highlighted text
    0xECE9D8,  // 15 face
    0xACA899,  // 16 shadow
    0xACA899,  // 17 grey text
    0x000000,  // 18 button text
    0xD8E4F8,  // 19 inactive caption text
    0xFFFFFF,  // 20 button highlight
    0x716F64,  // 21 dark shadow
    0xF1EFE2,  // 22 light
    0x000000,  // 23 tooltip text
    0xFFFFE1,  // 24 tooltip
    0x000000,  // 25 has no meaning
    0x000080,  // 26 hot light
    0x3D95FF,  // 27 active caption's gradient
    0x9DB9EB,  // 28 inactive caption's gradient
    0x316AC5,  // 29 menu highlight
    0xECE9D8,  // 30 menu bar
};
static_assert(std::size(kClassicColors) == system_color::kLast + 1);

}  // namespace looks

// The system colours of Windows XP's default look as COLORREF, by Windows' indexes. An index without a colour gives 0.
constexpr std::uint32_t SystemColor(Long index) {
  if (index < 0 || index > system_color::kLast) return 0;
  const std::uint32_t color = looks::kClassicColors[index];
  return (color & 0xFF) << 16 | (color & 0xFF00) | color >> 16;
}

}  // namespace strandline
