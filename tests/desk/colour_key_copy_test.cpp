#include "platform/desk/raster/colour_key_copy.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <limits>
#include <random>
#include <string>
#include <vector>

#include "platform/desk/raster/keyed_rows.h"
#include "platform/desk/raster/raster_op.h"
#include "platform/desk/raster/reference.h"

namespace strandline::desk {
namespace {

constexpr int kLowest = std::numeric_limits<int>::min();
constexpr int kHighest = std::numeric_limits<int>::max();
constexpr Clip kEverything{kLowest, kLowest, kHighest, kHighest};
constexpr std::uint32_t kKey = 0xFF00FF;

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

struct Copy {
  Clip clip;
  int dx, dy, width, height, sx, sy;
  std::uint32_t key;
};

// The same picture by masks: the destination is blackened where the source has something to show, the source where it
// has its key, and the two are laid over each other.
void CopyByMasks(Surface& dst, const Surface& src, const Copy& at) {
  const int cx = at.width;
  const int cy = at.height;
  const BlitColours toMono{0, 0, at.key};
  const BlitColours toColour{0x000000, 0xFFFFFF, 0};
  Surface mask(cx, cy, 1);
  Surface inverse(cx, cy, 1);
  Surface resultDst(cx, cy);
  Surface resultSrc(cx, cy);
  BitBlt(mask, kEverything, 0, 0, cx, cy, src, at.sx, at.sy, kSrcCopy, toMono);
  BitBlt(inverse, kEverything, 0, 0, cx, cy, mask, 0, 0, kNotSrcCopy, {});
  BitBlt(resultDst, kEverything, 0, 0, cx, cy, dst, at.dx, at.dy, kSrcCopy, {});
  BitBlt(resultDst, kEverything, 0, 0, cx, cy, mask, 0, 0, kSrcAnd, toColour);
  BitBlt(resultSrc, kEverything, 0, 0, cx, cy, src, at.sx, at.sy, kSrcCopy, {});
  BitBlt(resultSrc, kEverything, 0, 0, cx, cy, inverse, 0, 0, kSrcAnd, toColour);
  BitBlt(resultDst, kEverything, 0, 0, cx, cy, resultSrc, 0, 0, kSrcInvert, {});
  BitBlt(dst, at.clip, at.dx, at.dy, cx, cy, resultDst, 0, 0, kSrcCopy, {});
}

void CopyByKey(Surface& dst, const Surface& src, const Copy& at) {
  ColourKeyCopy(dst, at.clip, at.dx, at.dy, at.width, at.height, src, at.sx, at.sy, at.key);
}

void CopyByReference(Surface& dst, const Surface& src, const Copy& at) {
  ReferenceColourKeyCopy(dst, at.clip, at.dx, at.dy, at.width, at.height, src, at.sx, at.sy, at.key);
}

std::string Describe(const Copy& at) {
  std::string text;
  for (const int number : {at.dx, at.dy, at.width, at.height, at.sx, at.sy}) text += std::to_string(number) + " ";
  return text;
}

// Near misses of the key differ from it in one bit.
Surface RandomSurface(Random& random, int largestWidth, int largestHeight) {
  Surface surface(Between(random, 0, largestWidth), Between(random, 0, largestHeight));
  constexpr std::uint32_t kPixels[] = {0, 0xFFFFFF, kKey, kKey, kKey ^ 0x000100, kKey ^ 0x800000, 0xC0C0C0};
  for (std::uint32_t& pixel : surface.pixels) {
    const int choice = Between(random, 0, 9);
    pixel = choice < 7 ? kPixels[choice] : static_cast<std::uint32_t>(Between(random, 0, 0xFFFFFF));
  }
  return surface;
}

Copy RandomCopy(Random& random, int reach) {
  const auto at = [&] { return Between(random, -reach / 3, reach); };
  constexpr std::uint32_t kKeys[] = {kKey, kKey, kKey, 0, 0xFFFFFF, 0xAA000000 | kKey};
  Copy copy{kEverything, at(), at(), at(), at(), at(), at(), kKeys[Between(random, 0, 5)]};
  if (Between(random, 0, 1) == 0) copy.clip = {at(), at(), at(), at()};
  return copy;
}

TEST(ColourKeyCopy, APixelOfTheKey_LeavesTheDestination) {
  Surface src(4, 1);
  src.pixels = {1, kKey, 3, kKey};
  Surface dst(6, 1);
  dst.pixels = {10, 11, 12, 13, 14, 15};
  ColourKeyCopy(dst, kEverything, 1, 0, 4, 1, src, 0, 0, kKey);
  EXPECT_EQ(dst.pixels, (std::vector<std::uint32_t>{10, 1, 12, 3, 14, 15}));
}

TEST(ColourKeyCopy, PixelsBeyondTheSource_BecomeBlack) {
  Surface src(2, 2);
  src.pixels = {1, kKey, kKey, 4};
  Surface dst(6, 4);
  dst.pixels.assign(24, 9);
  ColourKeyCopy(dst, {0, 0, 5, 4}, 1, 0, 5, 4, src, -1, -1, kKey);
  EXPECT_EQ(dst.pixels, (std::vector<std::uint32_t>{9, 0, 0, 0, 0, 9,  //
                                                    9, 0, 1, 9, 0, 9,  //
                                                    9, 0, 9, 4, 0, 9,  //
                                                    9, 0, 0, 0, 0, 9}));
}

TEST(ColourKeyCopy, ASourceOutOfReach_BlackensTheRectangle) {
  for (const auto& [sx, sy] : std::vector<std::pair<int, int>>{{9, 0}, {0, 9}, {-9, 0}, {kHighest, kLowest}}) {
    Surface dst(3, 1);
    dst.pixels = {7, 8, 9};
    ColourKeyCopy(dst, kEverything, 1, 0, 1, 1, Surface(2, 2), sx, sy, kKey);
    EXPECT_EQ(dst.pixels, (std::vector<std::uint32_t>{7, 0, 9}));
  }
}

TEST(ColourKeyCopy, AMonoSurface_DrawsNothing) {
  Surface colour(4, 4);
  colour.pixels.assign(16, 5);
  Surface mono(4, 4, 1);
  const Surface colourBefore = colour;
  const Surface monoBefore = mono;
  ColourKeyCopy(colour, kEverything, 0, 0, 4, 4, mono, 0, 0, kKey);
  ColourKeyCopy(mono, kEverything, 0, 0, 4, 4, colour, 0, 0, kKey);
  EXPECT_EQ(colour, colourBefore);
  EXPECT_EQ(mono, monoBefore);
}

// Widths and positions around the row loop's steps, with whatever of this machine's instructions it was compiled for.
TEST(ColourKeyCopy, EveryVariant_CopiesEveryWidthAtEveryPosition) {
  Random random(5);
  Surface src(80, 2);
  for (std::uint32_t& pixel : src.pixels) pixel = Between(random, 0, 1) == 0 ? kKey : 1;
  Surface before(80, 2);
  before.pixels.assign(160, 2);
  for (const KeyedRowsVariant& variant : KeyedRowsVariants()) {
    for (int width = 1; width <= 50; ++width) {
      for (int x = 0; x <= 20; ++x) {
        Surface expected = before;
        ReferenceColourKeyCopy(expected, kEverything, x, 0, width, 2, src, 3, 0, kKey);
        Surface copied = before;
        variant.copy({copied.At(x, 0), 80, src.At(3, 0), 80, static_cast<std::size_t>(width), 2, kKey});
        EXPECT_EQ(copied, expected) << variant.name << " width " << width << " at " << x;
      }
    }
  }
}

TEST(ColourKeyCopy, OnePass_GivesThePictureOfTheMasks) {
  ForManySeeds(8000, [](Random& random) {
    const int size = Between(random, 0, 3) == 0 ? 75 : 13;
    const Surface src = RandomSurface(random, size, 13);
    const Surface before = RandomSurface(random, size, 13);
    const Copy at = RandomCopy(random, Between(random, 0, 1) == 0 ? size + 4 : 16);
    Surface byKey = before;
    Surface byMasks = before;
    Surface byReference = before;
    CopyByKey(byKey, src, at);
    CopyByMasks(byMasks, src, at);
    CopyByReference(byReference, src, at);
    EXPECT_EQ(byKey, byMasks) << Describe(at);
    EXPECT_EQ(byReference, byMasks) << Describe(at);
  });
}

TEST(ColourKeyCopy, ACopyWithinOneSurface_GivesThePictureOfTheMasks) {
  ForManySeeds(4000, [](Random& random) {
    const Surface before = RandomSurface(random, 40, 13);
    const Copy at = RandomCopy(random, 24);
    Surface byKey = before;
    Surface byMasks = before;
    Surface byReference = before;
    CopyByKey(byKey, byKey, at);
    CopyByMasks(byMasks, byMasks, at);
    CopyByReference(byReference, byReference, at);
    EXPECT_EQ(byKey, byMasks) << Describe(at);
    EXPECT_EQ(byReference, byMasks) << Describe(at);
  });
}

// The masks would need surfaces of the rectangle's size here, so the reference stands in for them.
TEST(ColourKeyCopy, AnyCoordinates_GiveThePixelsOfTheReference) {
  const int extremes[] = {kLowest, kLowest + 1, -2, 0, 2, kHighest - 1, kHighest};
  ForManySeeds(4000, [&](Random& random) {
    const auto any = [&] { return extremes[Between(random, 0, 6)]; };
    const Surface src = RandomSurface(random, 6, 6);
    const Surface before = RandomSurface(random, 6, 6);
    Copy at{kEverything, any(), any(), any(), any(), any(), any(), kKey};
    if (Between(random, 0, 2) == 0) at.clip = {any(), any(), any(), any()};
    Surface byKey = before;
    Surface byReference = before;
    CopyByKey(byKey, src, at);
    CopyByReference(byReference, src, at);
    EXPECT_EQ(byKey, byReference) << Describe(at);
  });
}

}  // namespace
}  // namespace strandline::desk
