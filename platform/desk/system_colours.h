#pragma once

#include <cstdint>

#include "platform/values.h"

namespace strandline::desk {

// The system colours of Windows XP's default look as COLORREF, by Windows' indexes. An index without a colour gives 0.
std::uint32_t SystemColor(Long index);

namespace system_color {
inline constexpr Long kBackground = 1;
inline constexpr Long kFace = 15;
inline constexpr Long kShadow = 16;
inline constexpr Long kHighlight = 20;
inline constexpr Long kDarkShadow = 21;
inline constexpr Long kLight = 22;
inline constexpr Long kLast = 30;
}  // namespace system_color

}  // namespace strandline::desk
