#pragma once

#include <cstdint>

#include "platform/desk/raster/raster_op.h"

namespace strandline::desk {

// The same operations in the most obvious way: every pixel of the destination is asked whether it is meant and what it
// becomes. Slow, and shares no arithmetic with the fast ones; tests hold the two against each other.
void ReferenceBitBlt(Surface& dst, const Clip& clip, int dx, int dy, int width, int height, const Surface& src, int sx,
                     int sy, std::uint32_t rop, const BlitColours& colours);

void ReferenceColourKeyCopy(Surface& dst, const Clip& clip, int dx, int dy, int width, int height, const Surface& src,
                            int sx, int sy, std::uint32_t keyPixel);

}  // namespace strandline::desk
