#pragma once

#include <cstdint>

#include "platform/desk/raster/surface.h"

namespace strandline::desk {

// Copies the rectangle at (sx, sy) of a 32-bit source to (dx, dy) of a 32-bit destination, except for pixels of the key
// colour, which leave the destination as it is. What of the rectangle lies outside the source becomes black: with masks
// and BitBlt the same picture takes nine steps over five surfaces, and there those pixels are in neither mask. Pixels
// outside the clip or the destination keep their value. Source and destination may be the same surface. A width or
// height that is not positive, or a 1-bit surface, draws nothing.
void ColourKeyCopy(Surface& dst, const Clip& clip, int dx, int dy, int width, int height, const Surface& src, int sx,
                   int sy, std::uint32_t keyPixel);

}  // namespace strandline::desk
