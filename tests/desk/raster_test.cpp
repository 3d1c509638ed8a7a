#include <gtest/gtest.h>

#include <cstdlib>
#include <limits>
#include <random>
#include <string>
#include <tuple>
#include <vector>

#include "platform/desk/raster/draw_edge.h"
#include "platform/desk/raster/fill.h"
#include "platform/desk/raster/raster_op.h"
#include "platform/desk/raster/reference.h"
#include "platform/desk/raster/region.h"

namespace strandline::desk {
namespace {

constexpr int kLowest = std::numeric_limits<int>::min();
constexpr int kHighest = std::numeric_limits<int>::max();
constexpr Clip kEverything{kLowest, kLowest, kHighest, kHighest};
constexpr std::uint32_t kSourceOps[] = {kSrcCopy, kNotSrcCopy, kSrcAnd, kSrcInvert, kSrcPaint};
constexpr std::uint32_t kAllOps[] = {kSrcCopy,  kNotSrcCopy, kSrcAnd,    kSrcInvert,
                                     kSrcPaint, kBlackness,  kWhiteness, 0x00123456};

using Random = std::mt19937;

int Between(Random& random, int low, int high) { return std::uniform_int_distribution<int>(low, high)(random); }

// Runs `check` with many seeds, new ones each time. A failure names its seed; with that one in STRANDLINE_RASTER_SEED
// only the failing case runs.
template <typename Check>
void ForManySeeds(int cases, Check check) {
  const char* replay = std::getenv("STRANDLINE_RASTER_SEED");
  const unsigned base =
      replay != nullptr ? static_cast<unsigned>(std::strtoul(replay, nullptr, 10)) : std::random_device{}();
  for (unsigned i = 0; i < static_cast<unsigned>(replay != nullptr ? 1 : cases); ++i) {
    Random random(base + i);
    SCOPED_TRACE("STRANDLINE_RASTER_SEED=" + std::to_string(base + i));
    check(random);
    if (testing::Test::HasFailure()) return;
  }
}

// Few different values, so that a background colour is often met.
Surface RandomSurface(Random& random, int largestWidth, int largestHeight, int depth) {
  Surface surface(Between(random, 0, largestWidth), Between(random, 0, largestHeight), depth);
  constexpr std::uint32_t kPixels[] = {0, 0xFFFFFF, 0xC0C0C0, 0x123456, 0xFF00FF};
  for (int y = 0; y < surface.height; ++y) {
    for (int x = 0; x < surface.width; ++x) surface.Set(x, y, kPixels[Between(random, 0, 4)] & surface.PixelMask());
  }
  return surface;
}

Surface Numbered(int width, int height) {
  Surface surface(width, height);
  for (std::size_t i = 0; i < surface.pixels.size(); ++i) surface.pixels[i] = static_cast<std::uint32_t>(i + 1);
  return surface;
}

struct Placement {
  Clip clip;
  int dx, dy, width, height, sx, sy;
};

Placement RandomPlacement(Random& random, int reach) {
  const auto at = [&] { return Between(random, -reach / 3, reach); };
  Placement placement{kEverything, at(), at(), at(), at(), at(), at()};
  if (Between(random, 0, 1) == 0) placement.clip = {at(), at(), at(), at()};
  return placement;
}

void ExpectSameAsReference(const Surface& before, const Surface& other, bool onItself, const Placement& at,
                           std::uint32_t rop, const BlitColours& colours) {
  Surface fast = before;
  Surface slow = before;
  BitBlt(fast, at.clip, at.dx, at.dy, at.width, at.height, onItself ? fast : other, at.sx, at.sy, rop, colours);
  ReferenceBitBlt(slow, at.clip, at.dx, at.dy, at.width, at.height, onItself ? slow : other, at.sx, at.sy, rop,
                  colours);
  EXPECT_EQ(fast, slow) << std::hex << "operation " << rop << std::dec << " to " << at.dx << "," << at.dy << " size "
                        << at.width << "x" << at.height << " from " << at.sx << "," << at.sy;
}

TEST(Raster, ANewSurface_IsAllZero) {
  for (const int depth : {1, 32}) {
    const Surface surface(3, 5, depth);
    EXPECT_EQ(surface.bitsPerPixel, depth);
    EXPECT_EQ(surface.pixels, std::vector<std::uint32_t>(depth == 1 ? 5 : 15, 0));
  }
}

TEST(Raster, ASurfaceOfAnImpossibleSize_IsEmpty) {
  for (const auto& [width, height] : std::vector<std::pair<int, int>>{{0, 4}, {4, -1}, {kHighest, kHighest}}) {
    const Surface surface(width, height);
    EXPECT_EQ(std::tuple(surface.width, surface.height, surface.pixels.size()), std::tuple(0, 0, std::size_t{0}));
  }
}

TEST(Raster, AMonoSurface_TakesOneBitForEachPixel) {
  const struct {
    int width, height;
    std::size_t elements;
  } cases[] = {{1, 1, 1}, {31, 2, 2}, {32, 2, 2}, {33, 2, 4}, {64, 3, 6}, {65, 3, 9}, {32767, 1, 1024}};
  for (const auto& [width, height, elements] : cases) {
    EXPECT_EQ(Surface(width, height, 1).pixels.size(), elements) << width;
  }
  const Surface largest(32767, 32767, 1);
  EXPECT_EQ(largest.height, 32767);
  EXPECT_EQ(largest.pixels.size(), std::size_t{1024} * 32767);
}

TEST(Raster, PixelsOfAMonoSurface_AreApart) {
  for (const int written : {0, 1, 31, 32, 33, 63, 64, 69}) {
    Surface mono(70, 3, 1);
    mono.Set(written, 1, 1);
    for (int y = 0; y < 3; ++y) {
      for (int x = 0; x < 70; ++x) EXPECT_EQ(mono.Get(x, y), x == written && y == 1 ? 1u : 0u) << x << ' ' << y;
    }
    mono.Set(written, 1, 0);
    EXPECT_EQ(mono, Surface(70, 3, 1));
  }
}

TEST(Raster, AFillingOfAMonoSurface_EndsWhereItShould) {
  ForManySeeds(500, [](Random& random) {
    const Surface before = RandomSurface(random, 110, 4, 1);
    const Clip rectangle{Between(random, -5, 110), Between(random, -1, 4), Between(random, -5, 115),
                         Between(random, 0, 5)};
    const std::uint32_t pixel = static_cast<std::uint32_t>(Between(random, 0, 1));
    Surface filled = before;
    FillRect(filled, kEverything, rectangle, pixel);
    Surface expected = before;
    for (int y = 0; y < before.height; ++y) {
      for (int x = 0; x < before.width; ++x) {
        if (Contains(rectangle, x, y)) expected.Set(x, y, pixel);
      }
    }
    EXPECT_EQ(filled, expected);
  });
}

TEST(Raster, ACutOfAMonoSurface_HasItsPixels) {
  ForManySeeds(500, [](Random& random) {
    const Surface source = RandomSurface(random, 140, 4, 1);
    const Clip area =
        Intersect(source.Bounds(), {Between(random, 0, 70), Between(random, 0, 2), Between(random, 1, 140), 4});
    const Surface cut = CutOut(source, area);
    Surface expected(IsEmpty(area) ? 0 : area.right - area.left, area.bottom - area.top, 1);
    for (int y = 0; y < expected.height; ++y) {
      for (int x = 0; x < expected.width; ++x) expected.Set(x, y, source.Get(area.left + x, area.top + y));
    }
    EXPECT_EQ(cut, expected);
  });
}

TEST(Raster, AColorRef_HasRedAndBlueTheOtherWayRound) {
  EXPECT_EQ(PixelFromColorRef(0x00112233), 0x00332211u);
  EXPECT_EQ(ColorRefFromPixel(PixelFromColorRef(0x00ABCDEF)), 0x00ABCDEFu);
  EXPECT_EQ(PixelFromColorRef(0xFF0000FF), 0x00FF0000u);
}

TEST(Raster, EachOperation_CombinesSourceAndTarget) {
  const struct {
    std::uint32_t rop, target, source, expected;
  } cases[] = {
      {kSrcCopy, 0x0F0F0F, 0x123456, 0x123456},   {kNotSrcCopy, 0x0F0F0F, 0x123456, 0xEDCBA9},
      {kSrcAnd, 0x0F0F0F, 0x123456, 0x020406},    {kSrcInvert, 0x0F0F0F, 0x123456, 0x1D3B59},
      {kSrcPaint, 0x0F0F0F, 0x123456, 0x1F3F5F},  {kBlackness, 0x0F0F0F, 0x123456, 0x000000},
      {kWhiteness, 0x0F0F0F, 0x123456, 0xFFFFFF}, {0x00C000CA, 0x0F0F0F, 0x123456, 0x0F0F0F},
  };
  for (const auto& test : cases) {
    Surface source(1, 1);
    source.pixels = {test.source};
    Surface target(1, 1);
    target.pixels = {test.target};
    BitBlt(target, kEverything, 0, 0, 1, 1, source, 0, 0, test.rop, {});
    EXPECT_EQ(target.pixels[0], test.expected) << std::hex << test.rop;
  }
}

TEST(Raster, AMonoSource_BringsTheTargetsTextAndBackgroundColour) {
  Surface mono(2, 1, 1);
  mono.Set(1, 0, 1);
  Surface colour(2, 1);
  BitBlt(colour, kEverything, 0, 0, 2, 1, mono, 0, 0, kSrcCopy, {0x112233, 0xFF445566, 0x99});
  EXPECT_EQ(colour.pixels, (std::vector<std::uint32_t>{0x112233, 0x445566}));
}

TEST(Raster, AMonoTarget_IsOneWhereTheSourceHasItsBackgroundColour) {
  Surface colour(3, 1);
  colour.pixels = {0xC0C0C0, 0xC0C0C1, 0xFFFFFF};
  const BlitColours colours{0xFFFFFF, 0xFFFFFF, 0xC0C0C0};
  Surface mono(3, 1, 1);
  BitBlt(mono, kEverything, 0, 0, 3, 1, colour, 0, 0, kSrcCopy, colours);
  EXPECT_EQ(mono.pixels[0], 0b001u);
  BitBlt(mono, kEverything, 0, 0, 3, 1, colour, 0, 0, kNotSrcCopy, colours);
  EXPECT_EQ(mono.pixels[0], 0b110u);
}

TEST(Raster, ACopyBeyondTheSource_LeavesThosePixels) {
  const Surface source = Numbered(2, 1);
  Surface target(6, 1);
  target.pixels.assign(6, 99);
  BitBlt(target, kEverything, 1, 0, 4, 1, source, -1, 0, kSrcCopy, {});
  EXPECT_EQ(target.pixels, (std::vector<std::uint32_t>{99, 99, 1, 2, 99, 99}));
}

TEST(Raster, ACopyWithoutWidthOrHeight_DrawsNothing) {
  const Surface source = Numbered(4, 4);
  for (const auto& [width, height] : std::vector<std::pair<int, int>>{{0, 2}, {2, 0}, {-2, 2}, {2, -2}, {kLowest, 1}}) {
    for (const std::uint32_t rop : kAllOps) {
      Surface target(4, 4);
      target.pixels.assign(16, 99);
      const Surface before = target;
      BitBlt(target, kEverything, 2, 2, width, height, source, 2, 2, rop, {});
      EXPECT_EQ(target, before);
    }
  }
}

TEST(Raster, AScrolledSurface_KeepsItsPicture) {
  const Surface before = Numbered(9, 7);
  for (int dy = -2; dy <= 2; ++dy) {
    for (int dx = -2; dx <= 2; ++dx) {
      Surface scrolled = before;
      BitBlt(scrolled, kEverything, dx, dy, 9, 7, scrolled, 0, 0, kSrcCopy, {});
      for (int y = 0; y < 7; ++y) {
        for (int x = 0; x < 9; ++x) {
          const bool moved = Contains(before.Bounds(), x - dx, y - dy);
          EXPECT_EQ(*scrolled.At(x, y), moved ? *before.At(x - dx, y - dy) : *before.At(x, y));
        }
      }
    }
  }
}

TEST(Raster, AnOperationOnOverlappingParts_SeesTheSourceAsItWas) {
  const Surface before = Numbered(9, 7);
  for (const std::uint32_t rop : kSourceOps) {
    for (const int dx : {-1, 0, 1}) {
      for (const int dy : {-1, 0, 1}) {
        ExpectSameAsReference(before, before, true, {kEverything, 2 + dx, 2 + dy, 5, 4, 2, 2}, rop, {});
      }
    }
  }
}

TEST(Raster, AnyCoordinates_GiveThePixelsOfTheReference) {
  const int extremes[] = {kLowest, kLowest + 1, -1, 0, 1, kHighest - 1, kHighest};
  const Surface target = Numbered(5, 4);
  const Surface source = Numbered(4, 6);
  ForManySeeds(3000, [&](Random& random) {
    const auto any = [&] { return extremes[Between(random, 0, 6)]; };
    Placement at{kEverything, any(), any(), any(), any(), any(), any()};
    if (Between(random, 0, 2) == 0) at.clip = {any(), any(), any(), any()};
    ExpectSameAsReference(target, source, Between(random, 0, 1) == 0, at, kAllOps[Between(random, 0, 7)], {});
  });
}

TEST(Raster, EveryCombinationOfDepthsAndOperations_GivesThePixelsOfTheReference) {
  ForManySeeds(8000, [](Random& random) {
    // Most surfaces are a few pixels, some wide enough for the long steps of the row loops.
    const int size = Between(random, 0, 3) == 0 ? 75 : 11;
    const Surface target = RandomSurface(random, size, 11, Between(random, 0, 1) == 0 ? 1 : 32);
    const Surface source = RandomSurface(random, size, 11, Between(random, 0, 1) == 0 ? 1 : 32);
    const BlitColours colours{static_cast<std::uint32_t>(Between(random, 0, kHighest)), 0xFFFFFF, 0xC0C0C0};
    Placement at = RandomPlacement(random, Between(random, 0, 1) == 0 ? size + 4 : 14);
    if (Between(random, 0, 9) == 0) at = {kEverything, 0, 0, target.width, target.height, 0, 0};
    ExpectSameAsReference(target, source, Between(random, 0, 2) == 0, at, kAllOps[Between(random, 0, 7)], colours);
  });
}

TEST(Raster, AFilledRectangle_IsClippedToClipAndSurface) {
  Surface surface(5, 3);
  FillRect(surface, {1, -5, 4, 2}, {-3, 1, 9, 9}, 0xFF00AA00);
  EXPECT_EQ(surface.pixels, (std::vector<std::uint32_t>{0, 0, 0, 0, 0,                       //
                                                        0, 0x00AA00, 0x00AA00, 0x00AA00, 0,  //
                                                        0, 0, 0, 0, 0}));
}

TEST(Raster, AFilledRectangleWithoutPixels_DrawsNothing) {
  for (const Clip& empty : {Clip{2, 0, 2, 3}, Clip{3, 0, 1, 3}, Clip{0, 3, 5, 0}, Clip{kHighest, 0, kLowest, 3}}) {
    Surface surface(5, 3);
    FillRect(surface, kEverything, empty, 0xFFFFFF);
    FillRect(surface, empty, kEverything, 0xFFFFFF);
    EXPECT_EQ(surface, Surface(5, 3));
  }
}

// Letters of the pictures below: l 3DLIGHT, K 3DDKSHADOW, H 3DHILIGHT, S 3DSHADOW, f 3DFACE, . untouched.
constexpr EdgeColours kLetters{'l', 'K', 'H', 'S', 'f'};

std::vector<std::string> Picture(const Surface& surface) {
  std::vector<std::string> rows;
  for (int y = 0; y < surface.height; ++y) {
    rows.emplace_back();
    for (int x = 0; x < surface.width; ++x) {
      rows.back() += *surface.At(x, y) == 0 ? '.' : static_cast<char>(*surface.At(x, y));
    }
  }
  return rows;
}

TEST(Raster, AnEdge_HasThePixelsOfWindows) {
  const struct {
    int edge, flags;
    std::vector<std::string> picture;
  } cases[] = {
      {5, 15, {"lllllK", "lHHHSK", "lH..SK", "lSSSSK", "KKKKKK"}},
      {10, 15, {"SSSSSH", "SKKKlH", "SK..lH", "SllllH", "HHHHHH"}},
      {6, 15, {"SSSSSH", "SHHHSH", "SH..SH", "SSSSSH", "HHHHHH"}},
      {9, 15, {"lllllK", "lKKKlK", "lK..lK", "lllllK", "KKKKKK"}},
      {1, 15, {"lllllK", "l....K", "l....K", "l....K", "KKKKKK"}},
      {2, 15, {"SSSSSH", "S....H", "S....H", "S....H", "HHHHHH"}},
      {4, 15, {"HHHHHS", "H....S", "H....S", "H....S", "SSSSSS"}},
      {8, 15, {"KKKKKl", "K....l", "K....l", "K....l", "llllll"}},
      {5, 1, {"lH....", "lH....", "lH....", "lH....", "lH...."}},
      {5, 2, {"llllll", "HHHHHH", "......", "......", "......"}},
      {5, 4, {"....SK", "....SK", "....SK", "....SK", "....SK"}},
      {5, 8, {"......", "......", "......", "SSSSSS", "KKKKKK"}},
      {5, 3, {"llllll", "lHHHHH", "lH....", "lH....", "lH...."}},
      {5, 12, {"....SK", "....SK", "....SK", "SSSSSK", "KKKKKK"}},
      {5, 6, {"lllllK", "HHHHSK", "....SK", "....SK", "....SK"}},
      {5, 9, {"lH....", "lH....", "lH....", "lSSSSS", "KKKKKK"}},
      {5, 15 | kEdgeMiddle, {"lllllK", "lHHHSK", "lHffSK", "lSSSSK", "KKKKKK"}},
      {2, 2 | kEdgeMiddle, {"SSSSSS", "ffffff", "ffffff", "ffffff", "ffffff"}},
      {0, 15 | kEdgeMiddle, {"......", "......", "......", "......", "......"}},
      {3, 15, {"......", "......", "......", "......", "......"}},
      {12, 15, {"......", "......", "......", "......", "......"}},
      {5, 0, {"......", "......", "......", "......", "......"}},
  };
  for (const auto& test : cases) {
    Surface surface(6, 5);
    DrawEdge(surface, kEverything, 0, 0, 6, 5, test.edge, test.flags, kLetters);
    EXPECT_EQ(Picture(surface), test.picture) << "edge " << test.edge << " flags " << test.flags;
  }
}

TEST(Raster, AnEdge_StaysInItsRectangleAndClip) {
  for (int width = -2; width <= 5; ++width) {
    for (int height = -2; height <= 5; ++height) {
      for (int flags = 0; flags <= 15; ++flags) {
        const Clip rectangle{3, 2, 3 + width, 2 + height};
        const Clip clip{4, 0, 7, 5};
        Surface whole(10, 9);
        DrawEdge(whole, kEverything, rectangle.left, rectangle.top, rectangle.right, rectangle.bottom, 5,
                 flags | kEdgeMiddle, kLetters);
        Surface clipped(10, 9);
        DrawEdge(clipped, clip, rectangle.left, rectangle.top, rectangle.right, rectangle.bottom, 5,
                 flags | kEdgeMiddle, kLetters);
        for (int y = 0; y < 9; ++y) {
          for (int x = 0; x < 10; ++x) {
            EXPECT_EQ(*whole.At(x, y) != 0, Contains(rectangle, x, y));
            EXPECT_EQ(*clipped.At(x, y), Contains(clip, x, y) ? *whole.At(x, y) : 0u);
          }
        }
      }
    }
  }
}

TEST(Raster, AnEdgeOfAnyCoordinates_DrawsWhatIsInSight) {
  Surface surface(4, 3);
  DrawEdge(surface, kEverything, kLowest, 0, kHighest, kHighest, 5, 15, kLetters);
  EXPECT_EQ(Picture(surface), (std::vector<std::string>{"llll", "HHHH", "...."}));
  const Surface before = surface;
  DrawEdge(surface, kEverything, kHighest, kHighest, kLowest, kLowest, 10, 15, kLetters);
  DrawEdge(surface, kEverything, kHighest - 1, kLowest, kHighest, kLowest + 1, 10, 15, kLetters);
  EXPECT_EQ(surface, before);
}

constexpr int kGridWidth = 16;
constexpr int kGridHeight = 12;

// A region as the plainest thing it can be: a yes or no for each pixel.
struct Grid {
  std::vector<bool> in = std::vector<bool>(kGridWidth * kGridHeight);

  static Grid Of(const Region& region) {
    Grid grid;
    for (int i = 0; i < kGridWidth * kGridHeight; ++i) grid.in[i] = region.Contains(i % kGridWidth, i / kGridWidth);
    return grid;
  }
  Clip Bounds() const {
    Clip bounds{kHighest, kHighest, 0, 0};
    for (int i = 0; i < kGridWidth * kGridHeight; ++i) {
      const int x = i % kGridWidth;
      const int y = i / kGridWidth;
      if (in[i]) {
        bounds = {std::min(bounds.left, x), std::min(bounds.top, y), std::max(bounds.right, x + 1),
                  std::max(bounds.bottom, y + 1)};
      }
    }
    return IsEmpty(bounds) ? Clip{} : bounds;
  }
};

Clip RandomRectangle(Random& random) {
  return ClipAt(Between(random, 0, kGridWidth - 1), Between(random, 0, kGridHeight - 1), Between(random, 0, 7),
                Between(random, 0, 6));
}

Region RandomRegion(Random& random) {
  constexpr Clip kWhole{0, 0, kGridWidth, kGridHeight};
  Region region;
  for (int i = Between(random, 0, 6); i > 0; --i) {
    const RegionMode mode = Between(random, 0, 2) == 0 ? RegionMode::kXor : RegionMode::kOr;
    region = CombineRegions(region, Region(Intersect(RandomRectangle(random), kWhole)), mode);
  }
  return region;
}

bool Expected(bool first, bool second, RegionMode mode) {
  return mode == RegionMode::kAnd    ? first && second
         : mode == RegionMode::kOr   ? first || second
         : mode == RegionMode::kXor  ? first != second
         : mode == RegionMode::kDiff ? first && !second
                                     : first;
}

TEST(Raster, CombinedRegions_HaveThePixelsOfTheirMode) {
  ForManySeeds(1500, [](Random& random) {
    const Region first = RandomRegion(random);
    const Region second = RandomRegion(random);
    for (int number = 1; number <= 5; ++number) {
      const auto mode = static_cast<RegionMode>(number);
      Grid expected = Grid::Of(first);
      const Grid other = Grid::Of(second);
      for (std::size_t i = 0; i < expected.in.size(); ++i) expected.in[i] = Expected(expected.in[i], other.in[i], mode);
      const Region combined = CombineRegions(first, second, mode);
      EXPECT_EQ(Grid::Of(combined).in, expected.in) << "mode " << number;
      EXPECT_EQ(combined.Bounds(), expected.Bounds());
    }
  });
}

TEST(Raster, RegionsOfTheSamePixels_AreEqualHoweverTheyWereMade) {
  ForManySeeds(1500, [](Random& random) {
    const Region region = RandomRegion(random);
    Region pixelByPixel;
    int left = 0;
    for (int x = kGridWidth - 1; x >= 0; --x) {
      for (int y = 0; y < kGridHeight; ++y) {
        if (!region.Contains(x, y)) continue;
        pixelByPixel.Union(Region({x, y, x + 1, y + 1}));
        ++left;
      }
    }
    EXPECT_TRUE(region.Equals(pixelByPixel));
    int counted = 0;
    for (const Clip& own : region.Rectangles()) counted += (own.right - own.left) * (own.bottom - own.top);
    EXPECT_EQ(counted, left) << "the rectangles overlap";
    if (left == 0) return;
    pixelByPixel.Subtract(Region(ClipAt(region.Bounds().left, region.Bounds().top, kGridWidth, 1)));
    EXPECT_FALSE(region.Equals(pixelByPixel));
  });
}

TEST(Raster, ARegion_TouchesARectangleThatSharesAPixel) {
  ForManySeeds(1500, [](Random& random) {
    const Region region = RandomRegion(random);
    const Clip rectangle = RandomRectangle(random);
    Region common = region;
    common.Intersect(Region(rectangle));
    EXPECT_EQ(region.Touches(rectangle), !common.IsEmpty());
  });
}

TEST(Raster, AFrameWithAHole_IsFourRectanglesInOrder) {
  Region frame({0, 0, 10, 8});
  frame.Subtract(Region({3, 2, 7, 5}));
  EXPECT_EQ(frame.Rectangles(), (std::vector<Clip>{{0, 0, 10, 2}, {0, 2, 3, 5}, {7, 2, 10, 5}, {0, 5, 10, 8}}));
  frame.Union(Region({3, 2, 7, 5}));
  EXPECT_TRUE(frame.Equals(Region({0, 0, 10, 8})));
}

TEST(Raster, ARegionWithoutPixels_IsTheEmptyOne) {
  for (const Clip& none : {Clip{}, Clip{5, 0, 5, 9}, Clip{9, 0, 2, 9}, Clip{0, 9, 9, 0}}) {
    EXPECT_TRUE(Region(none).Equals(Region()));
    EXPECT_EQ(Region(none).Bounds(), Clip{});
  }
}

TEST(Raster, AMovedRegion_LosesOnlyWhatLeavesTheRange) {
  Region region({0, 0, 4, 2});
  region.Union(Region({0, 2, 9, 3}));
  region.Offset(-3, 5);
  EXPECT_EQ(region.Rectangles(), (std::vector<Clip>{{-3, 5, 1, 7}, {-3, 7, 6, 8}}));
  region.Offset(kHighest, -5);
  EXPECT_EQ(region.Rectangles(), (std::vector<Clip>{{kHighest - 3, 0, kHighest, 3}}));
  region.Offset(kHighest, 0);
  EXPECT_TRUE(region.IsEmpty());
}

}  // namespace
}  // namespace strandline::desk
