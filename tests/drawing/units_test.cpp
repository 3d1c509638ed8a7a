// Picture extents to pixels, in two roundings.

#include "drawing/units.h"

#include "tests/drawing/drawing_fixture.h"

namespace strandline {
namespace {

class UnitsTest : public DrawingTest {
 protected:
  void LoadAt(Long dpi) {
    FloorOptions options;
    options.dpi = dpi;
    Load(options);
  }
};

struct ExtentCase {
  Long dpi;
  Long himetric;
  Long pixels;
};

// Where a remark gives twips, a single multiplication would give the other pixel. At 96 dots per inch no twips lie half
// way between two pixels.
const ExtentCase kExtents[] = {
    {96, 0, 0},
    {96, 423, 16},  // 239.8 twips, rounded to 240
    {96, 26, 1},
    {96, 13, 0},
    {96, 14, 1},
    {96, 847, 32},
    {96, 5900, 223},
    {96, -423, -16},
    {96, 2147483647, 81164736},
    {120, 423, 20},
    {120, 339, 16},
    {120, 10, 0},  // 5.67 twips, rounded to 6: half a pixel, to the even 0; exactly 0.47
    {120, 11, 0},  // 6.24 twips, rounded to 6: to the even 0; exactly 0.52
    {120, 53, 2},  // 30.05 twips, rounded to 30: to the even 2; exactly 2.50
    {120, 74, 4},  // 41.95 twips, rounded to 42: to the even 4; exactly 3.496
    {120, 31, 2},  // 17.57 twips, rounded to 18: to the even 2; exactly 1.46
    {120, 32, 2},
    {120, -31, -2},
    {120, -11, 0},
    {144, 26, 2},  // 14.74 twips, rounded to 15: to the even 2; exactly 1.47
    {144, 44, 2},  // 24.94 twips, rounded to 25: to the even 2; exactly 2.49
    {144, 45, 3},
};

TEST_F(UnitsTest, ExtentsBecomePixels_ByWayOfWholeTwips) {
  for (const ExtentCase& each : kExtents) {
    if (floor->desk.RunTime().Dpi() != each.dpi) LoadAt(each.dpi);
    EXPECT_EQ(ToolbarUtilities::HM2PixX(each.himetric), each.pixels) << each.himetric << " at " << each.dpi;
    EXPECT_EQ(ToolbarUtilities::HM2PixY(each.himetric), each.pixels) << each.himetric << " at " << each.dpi;
  }
}

TEST_F(UnitsTest, EveryExtent_IsRoundedTwice) {
  struct Screen {
    Long dpi, twipsPerPixel;
  };
  for (const Screen& screen : {Screen{96, 15}, Screen{120, 12}, Screen{144, 10}}) {
    LoadAt(screen.dpi);
    int wrong = 0;
    for (Long himetric = 0; himetric <= 2000; ++himetric) {
      const Long twips = (himetric * 144 + 127) / 254;
      const Long whole = twips / screen.twipsPerPixel;
      const Long rest = 2 * (twips % screen.twipsPerPixel) - screen.twipsPerPixel;
      const Long pixels = rest > 0 || (rest == 0 && whole % 2 == 1) ? whole + 1 : whole;
      if (ToolbarUtilities::HM2PixX(himetric) != pixels && ++wrong < 5) ADD_FAILURE() << himetric;
    }
    EXPECT_EQ(wrong, 0) << screen.dpi;
  }
}

// What a picture of so many pixels tells of itself leads back to them.
TEST_F(UnitsTest, AnyPictureOfTheToolbar_KeepsItsPixelsThroughItsExtents) {
  for (const Long dpi : {96, 120, 144, 192}) {
    LoadAt(dpi);
    for (Long pixels = 1; pixels <= 250; ++pixels) {
      const Long himetric = units::MulDiv(pixels, units::kHimetricPerInch, dpi);
      EXPECT_EQ(ToolbarUtilities::HM2PixX(himetric), pixels) << pixels << " at " << dpi;
    }
  }
}

// Down, a pixel has twice the twips of one across.
class UnevenRunTime final : public ForwardingRunTime {
 public:
  explicit UnevenRunTime(RunTime& target) : ForwardingRunTime(target) { platform::current.runTime = this; }
  ~UnevenRunTime() override { platform::current.runTime = &mTarget; }
  Double TwipsPerPixelX() override { return 15; }
  Double TwipsPerPixelY() override { return 30; }
};

TEST_F(UnitsTest, AcrossAndDown_FollowTheScreensTwoResolutions) {
  UnevenRunTime uneven(floor->desk.RunTime());
  EXPECT_EQ(ToolbarUtilities::HM2PixX(423), 16);
  EXPECT_EQ(ToolbarUtilities::HM2PixY(423), 8);
}

TEST_F(UnitsTest, AConversion_TakesThePicturesHeightByTheResolutionDown) {
  UnevenRunTime uneven(floor->desk.RunTime());
  const Ref<IPictureDispUtilities> utilities = New<IPictureDispUtilities>();
  const Picture picture = floor->MakePicture(16, 16, kRed);
  floor->calls.Clear();
  utilities->IPictureDispToHdc(picture);
  EXPECT_EQ(floor->calls.CallsOf("CreateCompatibleBitmap").at(0), "CreateCompatibleBitmap(dc 1, 16, 8) = bitmap 1");
  utilities->CleanupIPictureDispToHdc();
}

TEST_F(UnitsTest, AMask_TakesThePicturesHeightByTheResolutionDown) {
  UnevenRunTime uneven(floor->desk.RunTime());
  const Picture picture = floor->MakePicture(16, 16, kRed);
  floor->calls.Clear();
  New<IPictureDispUtilities>()->CreateIPictureDispMask(picture);
  EXPECT_EQ(floor->calls.CallsOf("CreateCompatibleBitmap").at(0), "CreateCompatibleBitmap(dc 1, 16, 8) = bitmap 1");
}

TEST_F(UnitsTest, ARegion_TakesThePicturesHeightByTheResolutionDown) {
  UnevenRunTime uneven(floor->desk.RunTime());
  const Picture picture = floor->MakePicture(16, 16, kKey);
  floor->calls.Clear();
  New<IPictureDispUtilities>()->MakeRegion(picture, kKey);
  const Lines read = floor->calls.CallsOf("GetPixel");
  ASSERT_EQ(read.size(), 16u * 8u);
  EXPECT_TRUE(read.back().ends_with(", 15, 7)")) << read.back();
}

TEST_F(UnitsTest, AFaceOnMenuColour_TakesThePicturesHeightByTheResolutionDown) {
  UnevenRunTime uneven(floor->desk.RunTime());
  const Picture picture = floor->MakePicture(16, 16, kRed);
  floor->calls.Clear();
  ToolbarUtilities::ReplaceBackgroundWithMenuColor(picture);
  const Lines bitmaps = floor->calls.CallsOf("CreateCompatibleBitmap");
  ASSERT_EQ(bitmaps.size(), 2u);  // of the conversion, and of the face
  EXPECT_EQ(bitmaps[1], "CreateCompatibleBitmap(dc 4, 16, 8) = bitmap 2");
  EXPECT_NE(floor->calls.CallsOf("FillRect").at(0).find("[0 0 16 8]"), std::string::npos);
  EXPECT_NE(floor->calls.CallsOf("ColorKeyBlt").at(0).find(", 0, 0, 16, 8, "), std::string::npos);
}

class NoTwips final : public ForwardingRunTime {
 public:
  using ForwardingRunTime::ForwardingRunTime;
  Double TwipsPerPixelX() override { return 1e-9; }
  Double TwipsPerPixelY() override { return 1e-9; }
};

TEST_F(UnitsTest, PixelsThatLeaveALong_AreAnOverflowOfTheConversion) {
  NoTwips dense(floor->desk.RunTime());
  platform::current.runTime = &dense;
  EXPECT_EQ(ToolbarUtilities::HM2PixX(423), 0);
  EXPECT_EQ(ToolbarUtilities::HM2PixY(423), 0);
  EXPECT_EQ(Listed(TakeErrors()), Listed({"6 ToolbarUtilities.HM2PixX", "6 ToolbarUtilities.HM2PixY"}));
  const Ref<IPictureDispUtilities> utilities = New<IPictureDispUtilities>();
  floor->calls.Clear();
  utilities->IPictureDispToHdc(floor->MakePicture(16, 16, kRed));
  EXPECT_EQ(floor->calls.CallsOf("CreateCompatibleBitmap").at(0), "CreateCompatibleBitmap(dc 1, 0, 0) = stock");
  EXPECT_EQ(Listed(TakeErrors()), Listed({"6 IPictureDispUtilities.HM2PixX", "6 IPictureDispUtilities.HM2PixY"}));
}

TEST(Units, MulDiv_RoundsToNearestAwayFromZeroAndTellsFailureByMinusOne) {
  struct Case {
    Long value, numerator, denominator, expected;
  };
  const Case cases[] = {
      {423, 1440, 2540, 240}, {1, 1, 2, 1},           {-1, 1, 2, -1},          {3, 1, 2, 2},
      {-3, 1, 2, -2},         {7, 1, 3, 2},           {5, -1, 2, -3},          {5, 1, -2, -3},
      {5, 1, 0, -1},          {2147483647, 2, 1, -1}, {-2147483647, 2, 1, -1}, {2147483647, 2, 2, 2147483647}};
  for (const Case& each : cases) {
    EXPECT_EQ(units::MulDiv(each.value, each.numerator, each.denominator), each.expected)
        << each.value << " * " << each.numerator << " / " << each.denominator;
  }
}

}  // namespace
}  // namespace strandline
