#include "platform/looks/mix.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <random>

namespace strandline {
namespace {

// The ten steps of a fade.
std::vector<Single> Steps() {
  std::vector<Single> steps;
  for (int i = 1; i <= 10; ++i) steps.push_back(static_cast<Single>(i) / 10);
  return steps;
}

// Every pair of values of a channel, in a picture of 256 by 256 whose channels don't agree.
struct AllPairs {
  AllPairs() {
    for (std::uint32_t y = 0; y < 256; ++y) {
      for (std::uint32_t x = 0; x < 256; ++x) {
        from.push_back(x | (255 - x) << 8 | (x ^ 0x55) << 16 | y << 24);
        to.push_back(y | (y ^ 0xAA) << 8 | (255 - y) << 16 | x << 24);
      }
    }
  }
  std::vector<std::uint32_t> from;
  std::vector<std::uint32_t> to;
};

int Channel(std::uint32_t pixel, int shift) { return static_cast<int>(pixel >> shift & 0xFF); }

// One after the other, and as it is written down.
std::uint32_t MixedPixel(std::uint32_t from, std::uint32_t to, int share) {
  std::uint32_t mixed = 0;
  for (int shift = 0; shift < 32; shift += 8) {
    const double exact = Channel(from, shift) + (Channel(to, shift) - Channel(from, shift)) * (share / 32768.0);
    mixed |= static_cast<std::uint32_t>(std::floor(exact + 0.5)) << shift;
  }
  return mixed;
}

class Mix : public testing::TestWithParam<MixVariant> {};

TEST_P(Mix, OfAllPairsOfValues_IsThePixelByPixelOne_AtEveryStep) {
  const AllPairs pairs;
  std::vector<std::uint32_t> mixed(pairs.from.size());
  for (const Single step : Steps()) {
    const int share = ShareOf(step);
    GetParam().mix({mixed.data(), 256, pairs.from.data(), 256, pairs.to.data(), 256, 256, 256, share});
    std::size_t wrong = 0;
    for (std::size_t i = 0; i < mixed.size(); ++i) wrong += mixed[i] != MixedPixel(pairs.from[i], pairs.to[i], share);
    EXPECT_EQ(wrong, 0u) << "at " << step;
  }
}

TEST_P(Mix, OfAllPairsOfValues_IsWithinOneOfTheExactFormula) {
  const AllPairs pairs;
  std::vector<std::uint32_t> mixed(pairs.from.size());
  double furthest = 0;
  for (const Single step : Steps()) {
    GetParam().mix({mixed.data(), 256, pairs.from.data(), 256, pairs.to.data(), 256, 256, 256, ShareOf(step)});
    for (std::size_t i = 0; i < mixed.size(); ++i) {
      for (int shift = 0; shift < 32; shift += 8) {
        const double from = Channel(pairs.from[i], shift);
        const double exact = from + (Channel(pairs.to[i], shift) - from) * static_cast<double>(step);
        furthest = std::max(furthest, std::fabs(exact - Channel(mixed[i], shift)));
      }
    }
  }
  // Half a step is what rounding takes; the share's own rounding adds a hundredth.
  EXPECT_LT(furthest, 0.51);
  EXPECT_GE(furthest, 0.45);
}

TEST_P(Mix, OfAPartOfAPicture_LeavesTheRestAlone) {
  std::mt19937 random(7);
  constexpr std::size_t kStride = 53;
  constexpr std::size_t kRows = 6;
  const auto any = [&] {
    std::vector<std::uint32_t> pixels(kStride * kRows);
    for (std::uint32_t& pixel : pixels) pixel = static_cast<std::uint32_t>(random());
    return pixels;
  };
  for (std::size_t left = 0; left < 9; ++left) {
    for (std::size_t width = 0; width <= 40; ++width) {
      const std::vector<std::uint32_t> before = any(), from = any(), to = any();
      std::vector<std::uint32_t> target = before;
      const int share = static_cast<int>(random() % (kWholeShare + 1));
      GetParam().mix(
          {target.data() + left, kStride, from.data() + 3, kStride, to.data() + 1, kStride, width, kRows - 1, share});
      std::size_t wrong = 0;
      for (std::size_t i = 0; i < target.size(); ++i) {
        const std::size_t x = i % kStride;
        const bool isInside = i / kStride < kRows - 1 && x >= left && x < left + width;
        wrong += target[i] != (isInside ? MixedPixel(from[i - left + 3], to[i - left + 1], share) : before[i]);
      }
      ASSERT_EQ(wrong, 0u) << width << " pixels from " << left;
    }
  }
}

TEST_P(Mix, IntoOneOfThePictures_IsTheSame) {
  const AllPairs pairs;
  std::vector<std::uint32_t> apart(pairs.from.size());
  const int share = ShareOf(0.3f);
  GetParam().mix({apart.data(), 251, pairs.from.data(), 251, pairs.to.data(), 251, 251, 256, share});
  std::vector<std::uint32_t> first = pairs.from;
  GetParam().mix({first.data(), 251, first.data(), 251, pairs.to.data(), 251, 251, 256, share});
  std::vector<std::uint32_t> second = pairs.to;
  GetParam().mix({second.data(), 251, pairs.from.data(), 251, second.data(), 251, 251, 256, share});
  apart.resize(251 * 256);
  first.resize(251 * 256);
  second.resize(251 * 256);
  EXPECT_TRUE(first == apart);
  EXPECT_TRUE(second == apart);
}

TEST_P(Mix, AtBothEnds_IsOneOfThePictures) {
  const AllPairs pairs;
  std::vector<std::uint32_t> mixed(pairs.from.size());
  GetParam().mix({mixed.data(), 256, pairs.from.data(), 256, pairs.to.data(), 256, 256, 256, 0});
  EXPECT_TRUE(mixed == pairs.from);
  GetParam().mix({mixed.data(), 256, pairs.from.data(), 256, pairs.to.data(), 256, 256, 256, kWholeShare});
  EXPECT_TRUE(mixed == pairs.to);
}

INSTANTIATE_TEST_SUITE_P(Variants, Mix, testing::ValuesIn(MixVariants()),
                         [](const auto& variant) { return std::string(variant.param.name); });

TEST(MixShare, IsInTheNearest32768th_AndNeverBeyondTheEnds) {
  const Single kNoNumber = std::numeric_limits<Single>::quiet_NaN();
  const Single kInfinite = std::numeric_limits<Single>::infinity();
  const struct {
    Single percentage;
    int share;
  } kCases[] = {{0, 0},     {1, 32768},    {0.5f, 16384},  {0.1f, 3277},       {0.3f, 9830}, {0.9f, 29491},
                {-0.1f, 0}, {1.5f, 32768}, {kNoNumber, 0}, {kInfinite, 32768}, {1e-9f, 0}};
  for (const auto& each : kCases) EXPECT_EQ(ShareOf(each.percentage), each.share) << each.percentage;
}

TEST(MixChannel, RoundsTiesUpwards) {
  EXPECT_EQ(MixChannel(0, 1, kWholeShare / 2), 1);
  EXPECT_EQ(MixChannel(1, 0, kWholeShare / 2), 1);
  EXPECT_EQ(MixChannel(10, 13, kWholeShare / 2), 12);
  EXPECT_EQ(MixChannel(255, 0, kWholeShare), 0);
}

}  // namespace
}  // namespace strandline
