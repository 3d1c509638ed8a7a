#pragma once

#include <cstdint>

#include "platform/desk/raster/surface.h"

namespace strandline::desk {

// Gives every pixel of `rectangle` that lies in the clip and in the surface one value; on a 1-bit surface its lowest
// bit counts. An empty rectangle draws nothing.
void FillRect(Surface& surface, const Clip& clip, const Clip& rectangle, std::uint32_t pixel);

}  // namespace strandline::desk
