#include "platform/desk/raster/region.h"

#include <algorithm>
#include <cstddef>
#include <utility>

namespace strandline::desk {
namespace {

// A run of pixels within a row.
struct Span {
  int left;
  int right;
};

bool IsIn(bool inFirst, bool inSecond, RegionMode mode) {
  switch (mode) {
    case RegionMode::kAnd:
      return inFirst && inSecond;
    case RegionMode::kOr:
      return inFirst || inSecond;
    case RegionMode::kXor:
      return inFirst != inSecond;
    case RegionMode::kDiff:
      return inFirst && !inSecond;
    case RegionMode::kCopy:
      return inFirst;
  }
  return false;
}

// Reads a list of bands from top to bottom.
class BandReader {
 public:
  explicit BandReader(const std::vector<Clip>& rectangles) : mRectangles(rectangles) {}

  // The runs of the band that covers row y; none if there is none. Each call must pass a lower row than the last.
  const std::vector<Span>& SpansAt(int y) {
    while (mNext < mRectangles.size() && mRectangles[mNext].bottom <= y) ++mNext;
    mSpans.clear();
    for (std::size_t i = mNext; i < mRectangles.size() && mRectangles[i].top <= y; ++i) {
      mSpans.push_back({mRectangles[i].left, mRectangles[i].right});
    }
    return mSpans;
  }

 private:
  const std::vector<Clip>& mRectangles;
  std::size_t mNext = 0;
  std::vector<Span> mSpans;
};

// Walks over both lists' ends from left to right. At each one the pixel to its right either is in the result or not.
std::vector<Span> CombineSpans(const std::vector<Span>& first, const std::vector<Span>& second, RegionMode mode) {
  std::vector<int> ends;
  for (const Span& span : first) ends.insert(ends.end(), {span.left, span.right});
  for (const Span& span : second) ends.insert(ends.end(), {span.left, span.right});
  std::sort(ends.begin(), ends.end());

  std::vector<Span> result;
  std::size_t i = 0;
  std::size_t j = 0;
  bool inside = false;
  for (const int x : ends) {
    while (i < first.size() && first[i].right <= x) ++i;
    while (j < second.size() && second[j].right <= x) ++j;
    const bool inFirst = i < first.size() && first[i].left <= x;
    const bool inSecond = j < second.size() && second[j].left <= x;
    const bool isIn = IsIn(inFirst, inSecond, mode);
    if (isIn == inside) continue;
    if (isIn) {
      result.push_back({x, x});
    } else {
      result.back().right = x;
    }
    inside = isIn;
  }
  return result;
}

// Collects bands; one that continues the band above it makes that one longer.
class BandWriter {
 public:
  void Add(int top, int bottom, const std::vector<Span>& spans) {
    if (spans.empty()) return;
    if (Continues(top, spans)) {
      for (std::size_t i = mLastBand; i < mRectangles.size(); ++i) mRectangles[i].bottom = bottom;
      return;
    }
    mLastBand = mRectangles.size();
    for (const Span& span : spans) mRectangles.push_back({span.left, top, span.right, bottom});
  }

  std::vector<Clip> Take() { return std::move(mRectangles); }

 private:
  bool Continues(int top, const std::vector<Span>& spans) const {
    return mRectangles.size() - mLastBand == spans.size() && mRectangles.back().bottom == top &&
           std::equal(spans.begin(), spans.end(), mRectangles.begin() + static_cast<std::ptrdiff_t>(mLastBand),
                      [](const Span& a, const Clip& b) { return a.left == b.left && a.right == b.right; });
  }

  std::vector<Clip> mRectangles;
  std::size_t mLastBand = 0;
};

std::vector<int> RowsWhereBandsChange(const std::vector<Clip>& first, const std::vector<Clip>& second) {
  std::vector<int> rows;
  rows.reserve(2 * (first.size() + second.size()));
  for (const Clip& rectangle : first) rows.insert(rows.end(), {rectangle.top, rectangle.bottom});
  for (const Clip& rectangle : second) rows.insert(rows.end(), {rectangle.top, rectangle.bottom});
  std::sort(rows.begin(), rows.end());
  rows.erase(std::unique(rows.begin(), rows.end()), rows.end());
  return rows;
}

}  // namespace

Region::Region(const Clip& rectangle) {
  if (!desk::IsEmpty(rectangle)) mRectangles.push_back(rectangle);
}

Clip Region::Bounds() const {
  if (mRectangles.empty()) return {};
  Clip bounds = mRectangles.front();
  bounds.bottom = mRectangles.back().bottom;
  for (const Clip& rectangle : mRectangles) {
    bounds.left = std::min(bounds.left, rectangle.left);
    bounds.right = std::max(bounds.right, rectangle.right);
  }
  return bounds;
}

bool Region::Contains(int x, int y) const {
  return std::any_of(mRectangles.begin(), mRectangles.end(),
                     [x, y](const Clip& rectangle) { return desk::Contains(rectangle, x, y); });
}

bool Region::Touches(const Clip& rectangle) const {
  return std::any_of(mRectangles.begin(), mRectangles.end(),
                     [&rectangle](const Clip& own) { return !desk::IsEmpty(desk::Intersect(own, rectangle)); });
}

void Region::Union(const Region& other) { *this = CombineRegions(*this, other, RegionMode::kOr); }

void Region::Subtract(const Region& other) { *this = CombineRegions(*this, other, RegionMode::kDiff); }

void Region::Intersect(const Region& other) { *this = CombineRegions(*this, other, RegionMode::kAnd); }

void Region::Offset(int dx, int dy) {
  Region moved;
  for (const Clip& own : mRectangles) {
    const Clip at = ClipFromEdges(std::int64_t{own.left} + dx, std::int64_t{own.top} + dy, std::int64_t{own.right} + dx,
                                  std::int64_t{own.bottom} + dy);
    if (!desk::IsEmpty(at)) moved.mRectangles.push_back(at);
  }
  // Bands that differed only in lost pixels are the same now; combining joins them.
  *this = CombineRegions(moved, Region(), RegionMode::kCopy);
}

Region CombineRegions(const Region& first, const Region& second, RegionMode mode) {
  const std::vector<int> rows = RowsWhereBandsChange(first.mRectangles, second.mRectangles);
  BandReader firstBands(first.mRectangles);
  BandReader secondBands(second.mRectangles);
  BandWriter result;
  for (std::size_t i = 0; i + 1 < rows.size(); ++i) {
    result.Add(rows[i], rows[i + 1], CombineSpans(firstBands.SpansAt(rows[i]), secondBands.SpansAt(rows[i]), mode));
  }
  Region combined;
  combined.mRectangles = result.Take();
  return combined;
}

}  // namespace strandline::desk
