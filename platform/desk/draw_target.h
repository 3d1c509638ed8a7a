#pragma once

#include <cstdint>
#include <optional>
#include <span>

#include "platform/desk/object_table.h"
#include "platform/desk/raster/region.h"
#include "platform/desk/raster/surface.h"
#include "platform/desk/window_areas.h"

namespace strandline::desk {

// Where a context's drawing lands at this moment: the surface, the context's origin on it, and what it may touch. Not
// to be kept: it may refer to the window's visible region.
struct DrawTarget {
  Surface* surface = nullptr;
  std::int64_t left = 0;  // of the context's pixel 0, 0 on the surface
  std::int64_t top = 0;
  Clip whole;                       // the bitmap or the window, surface pixels
  Long window = 0;                  // the window whose pixels these are, or 0
  std::optional<Region> part;       // what of `whole` may be touched; or
  const Region* visible = nullptr;  // the same, as the window system keeps it; neither: all of it

  std::span<const Clip> Clips() const {
    if (part) return part->Rectangles();
    return visible ? std::span<const Clip>(visible->Rectangles()) : std::span<const Clip>(&whole, 1);
  }
  bool Touches(const Clip& area) const;
  // A rectangle of the context, on the surface, limited to `whole`.
  Clip Limited(const Clip& area) const;
  // A rectangle of the context on the surface. An edge beyond the range of 32 bits moves to its end.
  Clip Moved(const Clip& area) const;
};

// Where a copy reads. Unlike a target, a window gives whatever the screen shows in its place.
struct DrawSource {
  const Surface* surface = nullptr;
  std::int64_t left = 0;
  std::int64_t top = 0;
  Clip whole;  // surface pixels; what lies outside isn't copied
};

// Resolves contexts; both results are for this moment, as windows move and bitmaps change.
class DrawTargets {
 public:
  DrawTargets(ObjectTable& objects, Surface& screen, WindowAreas& windows)
      : mObjects(objects), mScreen(screen), mWindows(windows) {}

  DrawTarget TargetOf(Context& context);
  DrawSource SourceOf(Context& context);
  // The bitmap that the context holds, or the screen.
  Surface& SurfaceOf(Context& context);

 private:
  Clip BoundsOf(const Context& context);

  ObjectTable& mObjects;
  Surface& mScreen;
  WindowAreas& mWindows;
};

}  // namespace strandline::desk
