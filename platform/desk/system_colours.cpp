#include "platform/desk/system_colours.h"

#include "platform/desk/raster/surface.h"

namespace strandline::desk {

namespace {

// 0xRRGGBB, by index.
constexpr std::uint32_t kColors[] = {
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
static_assert(sizeof(kColors) / sizeof(kColors[0]) == system_color::kLast + 1);

}  // namespace

std::uint32_t SystemColor(Long index) {
  if (index < 0 || index > system_color::kLast) return 0;
  return ColorRefFromPixel(kColors[index]);
}

}  // namespace strandline::desk
