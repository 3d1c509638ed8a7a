#pragma once

#include <algorithm>
#include <cstdint>
#include <limits>

namespace strandline::desk {

// A rectangle of pixels. Left and top belong to it, right and bottom do not; one whose right is not beyond its left, or
// whose bottom is not beyond its top, has no pixels.
struct Clip {
  int left = 0;
  int top = 0;
  int right = 0;
  int bottom = 0;

  friend bool operator==(const Clip&, const Clip&) = default;
};

// Callers may pass any 32-bit coordinates, so sums of them are made in 64 bits. No surface reaches the ends of the
// 32-bit range, which is why moving an edge to the nearest end changes no pixel.
constexpr Clip ClipFromEdges(std::int64_t left, std::int64_t top, std::int64_t right, std::int64_t bottom) {
  constexpr std::int64_t kLow = std::numeric_limits<int>::min();
  constexpr std::int64_t kHigh = std::numeric_limits<int>::max();
  return {static_cast<int>(std::clamp(left, kLow, kHigh)), static_cast<int>(std::clamp(top, kLow, kHigh)),
          static_cast<int>(std::clamp(right, kLow, kHigh)), static_cast<int>(std::clamp(bottom, kLow, kHigh))};
}

constexpr Clip ClipAt(std::int64_t left, std::int64_t top, std::int64_t width, std::int64_t height) {
  return ClipFromEdges(left, top, left + width, top + height);
}

constexpr bool IsEmpty(const Clip& clip) { return clip.right <= clip.left || clip.bottom <= clip.top; }

constexpr bool Contains(const Clip& clip, int x, int y) {
  return x >= clip.left && x < clip.right && y >= clip.top && y < clip.bottom;
}

constexpr Clip Intersect(const Clip& a, const Clip& b) {
  return {std::max(a.left, b.left), std::max(a.top, b.top), std::min(a.right, b.right), std::min(a.bottom, b.bottom)};
}

}  // namespace strandline::desk
