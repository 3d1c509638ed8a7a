// Window regions from the runs of a picture that aren't transparent.

#include "tests/drawing/drawing_fixture.h"

namespace strandline {
namespace {

class RegionTest : public DrawingTest {
 protected:
  // The rectangles of the region that the picture gives, "left top right bottom"; "none" for no region.
  Lines RegionOf(const std::vector<std::string>& rows, Long transparentColor = kKey) {
    const Picture picture = floor->MakePicture(rows);
    const Long region = utilities->MakeRegion(picture, transparentColor);
    Lines rectangles;
    if (region == 0) return {"none"};
    const desk::Region* found = floor->desk.Objects().Find<desk::Region>(region);
    if (!found) return {"no such region"};
    for (const desk::Clip& clip : found->Rectangles()) {
      rectangles.push_back(std::to_string(clip.left) + " " + std::to_string(clip.top) + " " +
                           std::to_string(clip.right) + " " + std::to_string(clip.bottom));
    }
    floor->desk.Graphics().DeleteObject(region);
    return rectangles;
  }
  void TearDown() override {
    utilities = nullptr;
    DrawingTest::TearDown();
  }

  Ref<IPictureDispUtilities> utilities = New<IPictureDispUtilities>();
};

struct RegionCase {
  const char* name;
  std::vector<std::string> rows;
  Lines rectangles;
};

TEST_F(RegionTest, MakeRegion_JoinsTheRunsOfEachRow) {
  const RegionCase cases[] = {
      {"one pixel", {"...", ".r.", "..."}, {"1 1 2 2"}},
      {"a run from the left edge", {"rr..", "...."}, {"0 0 2 1"}},
      {"two runs in a row", {"r.rr.", "....."}, {"0 0 1 1", "2 0 4 1"}},
      {"rows one under the other", {".rr.", ".gw.", ".##.", "...."}, {"1 0 3 3"}},
      {"steps", {"r...", "rr..", "rrr."}, {"0 0 1 1", "0 1 2 2", "0 2 3 3"}},
      {"nothing but the transparent colour", {"....", "...."}, {"none"}},
      {"other colours than the transparent one count alike", {"rgw#."}, {"0 0 4 1"}},
  };
  for (const RegionCase& each : cases) EXPECT_EQ(Listed(RegionOf(each.rows)), Listed(each.rectangles)) << each.name;
}

TEST_F(RegionTest, MakeRegion_ARunToTheRightEdge_StaysOpenUntilALaterTransparentPixel) {
  const RegionCase cases[] = {
      // The run of row 0 closes in row 1, from where it began to there, on row 1, whichever of the two is further left.
      {"closed in the next row", {"..rr", "...."}, {"0 1 2 2"}},
      {"closed further right", {".rrr", "rrr.", "...."}, {"1 1 3 2"}},
      {"closed two rows later", {"r.rr", "rrrr", "rrr."}, {"0 0 1 1", "2 2 3 3"}},
      {"and a new one begins", {".rrr", "rr.r", "...."}, {"1 1 2 2", "0 2 3 3"}},
      {"never closed", {"....", "..rr"}, {"none"}},
      {"all of it", {"rr", "rr"}, {"none"}},
      {"open to the end, behind a closed one", {"r.rr", "rrrr"}, {"0 0 1 1"}},
  };
  for (const RegionCase& each : cases) EXPECT_EQ(Listed(RegionOf(each.rows)), Listed(each.rectangles)) << each.name;
}

TEST_F(RegionTest, MakeRegion_TakesTheTransparentColourFromItsCaller) {
  EXPECT_EQ(Listed(RegionOf({"..rr", "rw.r"}, kRed)), Listed({"0 0 2 1", "1 1 3 2"}));
}

TEST_F(RegionTest, MakeRegion_KeepsOneRegionAndEndsItsConversion) {
  const int contexts = floor->Contexts();
  const Picture picture = floor->MakePicture({"r.r.r.", ".r.r..", "r.r.r."});
  const Long bitmap = picture->Handle();
  const Long region = utilities->MakeRegion(picture, kKey);
  EXPECT_EQ(floor->Regions(), 1);
  EXPECT_EQ(floor->Contexts(), contexts);
  EXPECT_FALSE(floor->desk.Objects().IsLive(bitmap));  // used up
  EXPECT_EQ(floor->calls.CallsOf("CreateRectRgn").size(), 8u);
  EXPECT_EQ(floor->calls.CallsOf("CombineRgn").size(), 7u);
  for (const std::string& call : floor->calls.CallsOf("CombineRgn")) EXPECT_TRUE(call.ends_with(", 2)")) << call;
  EXPECT_TRUE(floor->desk.Objects().IsLive(region));
}

TEST_F(RegionTest, MakeRegion_OfNothing_IsNoRegion) {
  EXPECT_EQ(utilities->MakeRegion(nullptr, kKey), 0);
  EXPECT_EQ(Listed(TakeErrors()),
            Listed({"91 IPictureDispUtilities.IPictureDispToHdc", "91 IPictureDispUtilities.MakeRegion"}));
}

}  // namespace
}  // namespace strandline
