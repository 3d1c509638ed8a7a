#pragma once

#include <cstdint>

#include "platform/desk/raster/surface.h"

namespace strandline::desk {

// The pixels of the system colours that borders are made of.
struct EdgeColours {
  std::uint32_t light = 0;       // 3DLIGHT
  std::uint32_t darkShadow = 0;  // 3DDKSHADOW
  std::uint32_t highlight = 0;   // 3DHILIGHT
  std::uint32_t shadow = 0;      // 3DSHADOW
  std::uint32_t face = 0;        // 3DFACE, for kEdgeMiddle
};

// A border is an outer line, an inner one or both; either may be raised or sunken.
inline constexpr int kRaisedOuter = 1;
inline constexpr int kSunkenOuter = 2;
inline constexpr int kRaisedInner = 4;
inline constexpr int kSunkenInner = 8;

inline constexpr int kEdgeLeft = 0x1;
inline constexpr int kEdgeTop = 0x2;
inline constexpr int kEdgeRight = 0x4;
inline constexpr int kEdgeBottom = 0x8;
inline constexpr int kEdgeAllSides = 0xF;
inline constexpr int kEdgeMiddle = 0x800;  // Also fills what the lines enclose.

// Draws a border inside the rectangle of a 32-bit surface, with the pixels Windows gives it. Lines lie on the sides
// named by `flags`; other flags are ignored. Where two lines meet, the right one owns its top corner and the bottom one
// its left corner. An inner line without an outer one takes the outer one's place. An empty rectangle, no line, or a
// line both raised and sunken draws nothing, and no pixel outside the rectangle is ever touched.
void DrawEdge(Surface& surface, const Clip& clip, int left, int top, int right, int bottom, int edge, int flags,
              const EdgeColours& colours);

}  // namespace strandline::desk
