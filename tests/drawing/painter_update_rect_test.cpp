// The clipping to an update rectangle: idle from the first Initialize on, and ready before it.

#include "tests/drawing/painter_fixture.h"

namespace strandline {
namespace {

// What an operation leaves of its arguments.
struct Clipped {
  Integer x = 0, y = 0, width = 0, height = 0, srcX = 0, srcY = 0;
  friend bool operator==(const Clipped&, const Clipped&) = default;
  friend void PrintTo(const Clipped& clipped, std::ostream* to) {
    *to << clipped.x << "," << clipped.y << " " << clipped.width << " by " << clipped.height << " from " << clipped.srcX
        << "," << clipped.srcY;
  }
};

class UpdateRectTest : public PainterTest {
 protected:
  // Without a context nothing is drawn; what stays is the rectangle.
  void Mark(Integer left, Integer top, Integer width, Integer height) {
    painter->PaintDCTransparently(0, left, top, width, height, width, height, 0, false);
  }
  Clipped Optimized(Clipped given) {
    painter->optimizeDrawingRectangle(given.x, given.y, given.width, given.height, given.srcX, given.srcY);
    return given;
  }
};

struct ClipCase {
  const char* name;
  Clipped given;
  Clipped expected;
};

// With the update rectangle from (20, 10) to (50, 40).
const ClipCase kCases[] = {
    {"inside", {25, 15, 10, 10}, {25, 15, 10, 10, 0, 0}},
    {"the same", {20, 10, 30, 30}, {20, 10, 30, 30, 0, 0}},
    {"over the left edge", {15, 15, 10, 10}, {20, 15, 5, 10, 5, 0}},
    {"over the top edge", {25, 4, 10, 10}, {25, 10, 10, 4, 0, 6}},
    {"over the top left corner", {10, 5, 20, 20}, {20, 10, 10, 15, 10, 5}},
    {"over the bottom right corner", {40, 30, 20, 20}, {40, 30, 10, 10, 0, 0}},
    {"over all edges", {0, 0, 100, 100}, {20, 10, 30, 30, 20, 10}},
    {"one pixel in the corner", {19, 9, 2, 2}, {20, 10, 1, 1, 1, 1}},
    // Outside: nothing is clipped, and the source comes to be the place.
    {"left of it", {0, 15, 20, 10}, {0, 15, 20, 10, 0, 15}},
    {"above it", {25, 0, 10, 10}, {25, 0, 10, 10, 25, 0}},
    {"left of it, further down", {5, 70, 3, 3}, {5, 70, 3, 3, 5, 70}},
    // Two sides are looked at: these count as inside and lose their extent.
    {"right of it", {60, 15, 10, 10}, {60, 15, -10, 10, 0, 0}},
    {"touching its right edge", {50, 15, 10, 10}, {50, 15, 0, 10, 0, 0}},
    {"below it", {25, 55, 10, 10}, {25, 55, 10, -15, 0, 0}},
    {"right of and below it", {70, 80, 4, 4}, {70, 80, -20, -40, 0, 0}},
    {"right of it and over its top", {70, 5, 4, 9}, {70, 10, -20, 4, 0, 5}},
};

TEST_F(UpdateRectTest, OptimizeDrawingRectangle_BeforeTheFirstInitialize_ClipsToTheUpdateRectangle) {
  Mark(20, 10, 30, 30);
  ASSERT_EQ(UpdateRect(), (Rect{20, 10, 50, 40}));
  for (const ClipCase& each : kCases) EXPECT_EQ(Optimized(each.given), each.expected) << each.name;
}

TEST_F(UpdateRectTest, InUpdateRect_TestsTwoSidesAndClipsOnlyWhatCountsAsInside) {
  Mark(20, 10, 30, 30);
  for (const ClipCase& each : kCases) {
    SCOPED_TRACE(each.name);
    Clipped at = each.given;
    const bool inside = each.given.x + each.given.width > 20 && each.given.y + each.given.height > 10;
    EXPECT_EQ(painter->inUpdateRect(at.x, at.y, at.width, at.height), inside);
    Clipped expected = inside ? each.expected : each.given;
    expected.srcX = expected.srcY = 0;
    EXPECT_EQ(at, expected);
  }
}

TEST_F(UpdateRectTest, UpdateToSmallestRegion_ReckonsBothOffsetsBeforeAnythingMoves) {
  Mark(20, 10, 30, 30);
  Clipped at{0, 15, 20, 10};  // outside, for which inUpdateRect wouldn't come here
  painter->UpdateToSmallestRegion(at.x, at.y, at.width, at.height);
  EXPECT_EQ(at, (Clipped{20, 15, 0, 10}));
  at = {-30, -30, 10, 200};
  painter->UpdateToSmallestRegion(at.x, at.y, at.width, at.height);
  EXPECT_EQ(at, (Clipped{20, 10, -40, 30}));
}

TEST_F(UpdateRectTest, OptimizeDrawingRectangle_AfterInitialize_ClipsNothing) {
  Initialize();
  painter->PaintDCTransparently(floor->MakeContext(4, 4, kRed), 20, 10, 4, 4, 4, 4, 0, false);
  ASSERT_EQ(UpdateRect(), (Rect{20, 10, 24, 14}));
  for (const ClipCase& each : kCases) {
    Clipped given = each.given;
    given.srcX = given.srcY = 77;
    Clipped expected = each.given;
    EXPECT_EQ(Optimized(given), expected) << each.name;
  }
}

TEST_F(UpdateRectTest, BltBuffer_BeforeTheFirstInitialize_CopiesTheUpdateRectangleUnlessForced) {
  Mark(20, 10, 30, 12);
  floor->calls.Clear();
  painter->BltBuffer(window->hdc, false);
  EXPECT_EQ(Listed(floor->calls.Take()), Listed({"BitBlt(strip dc, 20, 10, 30, 12, 0, 20, 10, SRCCOPY)"}));
  painter->BltBuffer(window->hdc, true);
  EXPECT_EQ(Listed(floor->calls.Take()), Listed({"BitBlt(strip dc, 0, 0, 0, 0, 0, 0, 0, SRCCOPY)"}));
}

TEST_F(UpdateRectTest, PaintDCTransparently_BeforeTheFirstInitialize_GivesTheWindowTheMarkedPieceAlone) {
  painter->backbuffer(floor->MakeContext(kWidth, kHeight, kWhite));
  floor->calls.LeaveOut("ColorKeyBlt");
  floor->calls.Clear();
  painter->PaintDCTransparently(floor->MakeContext(4, 4, kRed), 10, 2, 8, 9, 4, 4, window->hdc, false);
  // mHdc isn't the frame before an Initialize.
  EXPECT_EQ(Listed(floor->calls.Take()), Listed({"BitBlt(strip dc, 12, 4, 4, 4, 0, 12, 4, SRCCOPY)"}));
  EXPECT_EQ(floor->PixelAt(Frame(), 12, 4), kRed);
  EXPECT_EQ(floor->PixelAt(Frame(), 11, 4), kWhite);
}

TEST_F(UpdateRectTest, AnUpdateRectangleBeyondAnInteger_IsAnOverflowOfTheClipping) {
  painter->PaintDCTransparently(0, 32767, 32767, 10, 10, 0, 0, 0, false);
  ASSERT_EQ(UpdateRect(), (Rect{32772, 32772, 32772, 32772}));
  TakeErrors();
  Integer x = 0, y = 0, width = 1, height = 1;
  painter->UpdateToSmallestRegion(x, y, width, height);
  EXPECT_EQ(x, 0);
  EXPECT_EQ(Listed(TakeErrors()), Listed({"6 Painter.UpdateToSmallestRegion"}));
}

struct OverflowCase {
  const char* name;
  std::function<void(Painter&)> call;
  Lines heard;
};

TEST_F(UpdateRectTest, AnEdgeThatLeavesAnInteger_IsAnOverflowOfItsProcedure) {
  Integer x = 0, y = 0, width = 0, height = 0, srcX = 0, srcY = 0;
  const auto give = [&](Integer newX, Integer newY, Integer newWidth, Integer newHeight) {
    x = newX;
    y = newY;
    width = newWidth;
    height = newHeight;
  };
  const OverflowCase cases[] = {
      {"right edge",
       [&](Painter& p) {
         give(32767, 15, 1, 1);
         EXPECT_FALSE(p.inUpdateRect(x, y, width, height));
       },
       {"6 Painter.inUpdateRect"}},
      {"bottom edge",
       [&](Painter& p) {
         give(25, 32000, 1, 768);
         EXPECT_FALSE(p.inUpdateRect(x, y, width, height));
       },
       {"6 Painter.inUpdateRect"}},
      {"extent after clipping",
       [&](Painter& p) {
         give(-32768, 15, -30000, 1);
         p.UpdateToSmallestRegion(x, y, width, height);
         EXPECT_EQ(x, 20);  // what was done before stays done
       },
       {"6 Painter.UpdateToSmallestRegion"}},
      {"within the whole",
       [&](Painter& p) {
         give(32767, 15, 1, 1);
         p.optimizeDrawingRectangle(x, y, width, height, srcX, srcY);
         EXPECT_EQ(srcX, 32767);
         EXPECT_EQ(srcY, 15);
       },
       {"6 Painter.inUpdateRect"}},
  };
  Mark(20, 10, 30, 30);
  for (const OverflowCase& each : cases) {
    SCOPED_TRACE(each.name);
    each.call(*painter);
    EXPECT_EQ(Listed(TakeErrors()), Listed(each.heard));
  }
}

}  // namespace
}  // namespace strandline
