#pragma once

// The mouse pointer, as it stands over a picture of the screen.

#include "platform/desk/raster/surface.h"
#include "platform/values.h"

namespace strandline::deskprogram {

// An arrow with its tip at that pixel; what of it lies outside isn't drawn.
void DrawPointer(desk::Surface& picture, Point tip);

}  // namespace strandline::deskprogram
