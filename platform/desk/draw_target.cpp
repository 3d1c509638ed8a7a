#include "platform/desk/draw_target.h"

#include <algorithm>

namespace strandline::desk {

bool DrawTarget::Touches(const Clip& area) const {
  const std::span<const Clip> clips = Clips();
  return std::any_of(clips.begin(), clips.end(), [&area](const Clip& clip) { return !IsEmpty(Intersect(clip, area)); });
}

Clip DrawTarget::Moved(const Clip& area) const {
  return ClipFromEdges(area.left + left, area.top + top, area.right + left, area.bottom + top);
}

Clip DrawTarget::Limited(const Clip& area) const { return Intersect(Moved(area), whole); }

Surface& DrawTargets::SurfaceOf(Context& context) {
  if (!context.IsMemory()) return mScreen;
  Bitmap* bitmap = mObjects.Find<Bitmap>(context.bitmap);
  return bitmap ? bitmap->surface : context.ownPixel;
}

// Empty for a window that is gone.
Clip DrawTargets::BoundsOf(const Context& context) {
  if (context.window == 0) return mScreen.Bounds();
  return mWindows.IsWindow(context.window) ? mWindows.BoundsOf(context.window) : Clip{};
}

DrawTarget DrawTargets::TargetOf(Context& context) {
  DrawTarget target;
  target.surface = &SurfaceOf(context);
  if (context.IsMemory()) {
    target.whole = target.surface->Bounds();
    return target;
  }
  target.window = context.window;
  target.whole = BoundsOf(context);
  target.left = target.whole.left;
  target.top = target.whole.top;
  if (IsEmpty(target.whole) || context.window == 0) return target;
  target.visible = &mWindows.VisibleRegion(context.window);
  if (context.paintClip) {
    target.part = *context.paintClip;
    target.part->Offset(target.whole.left, target.whole.top);
    target.part->Intersect(*target.visible);
  }
  return target;
}

DrawSource DrawTargets::SourceOf(Context& context) {
  const Surface& surface = SurfaceOf(context);
  if (context.IsMemory()) return {&surface, 0, 0, surface.Bounds()};
  const Clip bounds = BoundsOf(context);
  return {&surface, bounds.left, bounds.top, Intersect(bounds, surface.Bounds())};
}

}  // namespace strandline::desk
