// Edges around a cell.

#include "drawing/BorderDrawingFunctions.h"
#include "tests/drawing/drawing_fixture.h"

namespace strandline {
namespace {

using BorderDrawingFunctions::DrawBorder;

using BorderTest = DrawingTest;

TEST_F(BorderTest, DrawBorder_AsksForAllFourSidesWhateverTheEdge) {
  const Long hdc = floor->MakeContext(20, 20, kWhite);
  floor->calls.Name(hdc, "target");
  for (const Long edge : {0, 1, 2, 4, 5, 6, 8, 9, 10, 15}) {
    floor->calls.Clear();
    DrawBorder(hdc, 2, 3, 12, 9, edge);
    EXPECT_EQ(Listed(floor->calls.Take()), Listed({"DrawEdge(target, [2 3 12 9], " + std::to_string(edge) + ", 15)"}));
  }
}

TEST_F(BorderTest, DrawBorder_RaisedOrSunken_DrawsEachSideJustInsideAndNothingElse) {
  for (const Long edge : {BorderDrawingFunctions::kEdgeRaised, BorderDrawingFunctions::kEdgeSunken}) {
    SCOPED_TRACE(edge);
    // Two grounds, so that no edge colour passes for either.
    int drawn[12][16] = {};
    for (const Long ground : {kGreen, Long{0x123456}}) {
      const Long hdc = floor->MakeContext(16, 12, ground);
      DrawBorder(hdc, 2, 3, 12, 10, edge);
      for (Long y = 0; y < 12; ++y) {
        for (Long x = 0; x < 16; ++x) drawn[y][x] += floor->PixelAt(hdc, x, y) != ground ? 1 : 0;
      }
    }
    for (Long y = 0; y < 12; ++y) {
      for (Long x = 0; x < 16; ++x) {
        const bool inside = x >= 2 && x < 12 && y >= 3 && y < 10;
        const bool outermost = inside && (x == 2 || x == 11 || y == 3 || y == 9);
        const bool within = x >= 4 && x < 10 && y >= 5 && y < 8;
        if (outermost) {
          EXPECT_EQ(drawn[y][x], 2) << x << "," << y;
        }
        if (!inside || within) {
          EXPECT_EQ(drawn[y][x], 0) << x << "," << y;
        }
      }
    }
  }
}

TEST_F(BorderTest, DrawBorder_OfNoEdge_DrawsNothing) {
  const Long hdc = floor->MakeContext(16, 12, kGreen);
  const desk::Surface before = floor->SurfaceOf(hdc);
  DrawBorder(hdc, 2, 3, 12, 10, BorderDrawingFunctions::kEdgeNone);
  EXPECT_EQ(floor->SurfaceOf(hdc), before);
}

}  // namespace
}  // namespace strandline
