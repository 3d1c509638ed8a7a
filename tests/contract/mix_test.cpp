// The mix of two pictures on the host's canvas: the same pixels in both worlds.

#include "platform/looks/mix.h"

#include "tests/contract/surface.h"
#include "tests/contract/window_contract.h"

namespace strandline::contract {
namespace {

using MixContract = WindowContract;

Long FromColor(Long x, Long y) { return (x * 37 & 0xFF) | (y * 51 & 0xFF) << 8 | 0xF00000; }
Long ToColor(Long x, Long y) { return ((255 - x * 11) & 0xFF) | (x * y & 0xFF) << 8 | (y * 60 & 0xFF) << 16; }

Long Mixed(Long from, Long to, Single share) {
  Long mixed = 0;
  for (int shift = 0; shift < 24; shift += 8) {
    mixed |= MixChannel(from >> shift & 0xFF, to >> shift & 0xFF, ShareOf(share)) << shift;
  }
  return mixed;
}

TEST_F(MixContract, OfTwoPictures_IsEachPixelsMix) {
  Surface from(7, 4), to(7, 4), dest(7, 4);
  from.FillWith(FromColor);
  to.FillWith(ToColor);
  for (const Single share : {0.0f, 0.1f, 0.7f, 1.0f}) {
    dest.Fill({0, 0, 7, 4}, kGreen);
    Canvas().MixPictures(dest.Hdc(), from.Hdc(), to.Hdc(), 7, 4, share);
    EXPECT_EQ(dest.Wrong([&](Long x, Long y) { return Mixed(FromColor(x, y), ToColor(x, y), share); }), 0) << share;
  }
  EXPECT_EQ(from.Wrong(FromColor), 0);
  EXPECT_EQ(to.Wrong(ToColor), 0);
}

TEST_F(MixContract, ReachesWhatAllThreeHave_AndNoFurther) {
  Surface from(5, 9), to(9, 3), dest(9, 9);
  from.FillWith(FromColor);
  to.FillWith(ToColor);
  dest.Fill({0, 0, 9, 9}, kGreen);
  Canvas().MixPictures(dest.Hdc(), from.Hdc(), to.Hdc(), 0x7FFFFFFF, 0x7FFFFFFF, 0.4f);
  EXPECT_EQ(
      dest.Wrong([&](Long x, Long y) { return x < 5 && y < 3 ? Mixed(FromColor(x, y), ToColor(x, y), 0.4f) : kGreen; }),
      0);
}

TEST_F(MixContract, GoesIntoOneOfThePicturesToo) {
  Surface from(6, 3), to(6, 3);
  from.FillWith(FromColor);
  to.FillWith(ToColor);
  Canvas().MixPictures(from.Hdc(), from.Hdc(), to.Hdc(), 6, 3, 0.2f);
  EXPECT_EQ(from.Wrong([&](Long x, Long y) { return Mixed(FromColor(x, y), ToColor(x, y), 0.2f); }), 0);
  Canvas().MixPictures(to.Hdc(), to.Hdc(), to.Hdc(), 6, 3, 0.5f);
  EXPECT_EQ(to.Wrong(ToColor), 0);
}

TEST_F(MixContract, OfWhatCantBeMixed_ChangesNothing) {
  Surface from(4, 4), to(4, 4), dest(4, 4), mono(4, 4, true);
  from.Fill({0, 0, 4, 4}, kRed);
  to.Fill({0, 0, 4, 4}, kBlue);
  dest.Fill({0, 0, 4, 4}, kGreen);
  mono.Fill({0, 0, 4, 4}, kWhite);
  Canvas().MixPictures(dest.Hdc(), mono.Hdc(), to.Hdc(), 4, 4, 0.5f);
  Canvas().MixPictures(dest.Hdc(), from.Hdc(), mono.Hdc(), 4, 4, 0.5f);
  Canvas().MixPictures(mono.Hdc(), from.Hdc(), to.Hdc(), 4, 4, 0.5f);
  Canvas().MixPictures(dest.Hdc(), from.Hdc(), to.Hdc(), 0, 4, 0.5f);
  Canvas().MixPictures(dest.Hdc(), from.Hdc(), to.Hdc(), 4, -3, 0.5f);
  EXPECT_EQ(dest.Wrong([](Long, Long) { return kGreen; }), 0);
  EXPECT_EQ(mono.Wrong([](Long, Long) { return kWhite; }), 0);
}

}  // namespace
}  // namespace strandline::contract
