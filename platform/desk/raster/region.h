#pragma once

#include <vector>

#include "platform/desk/raster/clip.h"

namespace strandline::desk {

// The ways two regions combine, with the numbers Windows gives them.
enum class RegionMode { kAnd = 1, kOr = 2, kXor = 3, kDiff = 4, kCopy = 5 };

// Any set of pixels, such as the part of a window that others do not cover. It is kept as bands from top to bottom: the
// rectangles of a band share top and bottom, run from left to right and do not touch, and two bands that touch differ
// in their rectangles. Each set of pixels has exactly one such list, so equal regions have equal lists.
class Region {
 public:
  Region() = default;

  // A rectangle without pixels, such as an inverted one, gives the empty region.
  explicit Region(const Clip& rectangle);

  const std::vector<Clip>& Rectangles() const { return mRectangles; }
  bool IsEmpty() const { return mRectangles.empty(); }

  // The smallest rectangle around all pixels; all zero for the empty region.
  Clip Bounds() const;

  bool Contains(int x, int y) const;

  // Whether the region has at least one pixel in common with the rectangle.
  bool Touches(const Clip& rectangle) const;

  bool Equals(const Region& other) const { return mRectangles == other.mRectangles; }

  void Union(const Region& other);
  void Subtract(const Region& other);
  void Intersect(const Region& other);

  // Moves every pixel. Those that would leave the range of 32-bit coordinates are lost.
  void Offset(int dx, int dy);

 private:
  friend Region CombineRegions(const Region& first, const Region& second, RegionMode mode);

  std::vector<Clip> mRectangles;
};

// kDiff is the first without the second, kCopy the first. A mode that is none of them gives the empty region.
Region CombineRegions(const Region& first, const Region& second, RegionMode mode);

}  // namespace strandline::desk
