#pragma once

#include <string>

#include "platform/desk/raster/surface.h"

namespace strandline::desk {

// Writes the pixels of `area` as a PNG without transparency; what of it lies outside the surface is left away. The same
// pixels give the same bytes. False when nothing is left of the area or the file can't be written.
bool WritePng(const std::string& path, const Surface& surface, const Clip& area);
inline bool WritePng(const std::string& path, const Surface& surface) {
  return WritePng(path, surface, surface.Bounds());
}

}  // namespace strandline::desk
