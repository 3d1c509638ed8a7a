// How one picture reaches the frame or the window.

#include "tests/drawing/painter_fixture.h"

namespace strandline {
namespace {

class IconsTest : public PainterTest {
 protected:
  IconsTest() {
    Initialize();
    // A background that tells each pixel's place, and a frame that differs from it everywhere.
    for (Long y = 0; y < kHeight; ++y) {
      for (Long x = 0; x < kWidth; ++x) floor->SetPixel(Background(), x, y, ColorAt(x, y));
    }
    floor->Fill(Frame(), {0, 0, kWidth, kHeight}, kWhite);
    floor->calls.Name(Frame(), "frame");
    floor->calls.Name(Background(), "background");
    floor->calls.LeaveOut("ColorKeyBlt");
    floor->calls.Clear();
  }

  static Long ColorAt(Long x, Long y) { return 0x100000 + x * 256 + y; }

  // A bitmap whose right half is the key and whose left half is red.
  Long HalfPicture(Long width, Long height) {
    const Long hdc = HalfPictureContext(width, height);
    const Long bitmap = floor->desk.Graphics().SelectObject(hdc, desk::ObjectTable::kStockBitmap);
    floor->desk.Graphics().DeleteDC(hdc);
    return bitmap;
  }
  Long HalfPictureContext(Long width, Long height) {
    const Long hdc = floor->MakeContext(width, height, kKey);
    floor->Fill(hdc, {0, 0, width / 2, height}, kRed);
    return hdc;
  }

  // The frame as it must be with a half picture of that size in that cell; `erased`: on the background's piece.
  void ExpectFrame(Long hdc, const Rect& cell, const Rect& picture, bool erased) {
    int wrong = 0;
    for (Long y = 0; y < kHeight; ++y) {
      for (Long x = 0; x < kWidth; ++x) {
        const bool inCell = x >= cell.left && x < cell.right && y >= cell.top && y < cell.bottom;
        const Long middle = picture.left + (picture.right - picture.left) / 2;
        const bool isRed = x >= picture.left && x < middle && y >= picture.top && y < picture.bottom;
        Long expected = kWhite;
        if (erased && inCell) expected = ColorAt(x, y);
        if (isRed && (inCell || !erased)) expected = kRed;
        if (floor->PixelAt(hdc, x, y) != expected && ++wrong < 5) {
          ADD_FAILURE() << x << "," << y << " is " << floor->PixelAt(hdc, x, y) << " instead of " << expected;
        }
      }
    }
    EXPECT_EQ(wrong, 0);
  }
};

struct IconCase {
  const char* name;
  Rect cell;
  Long width, height;  // of the picture
  Rect place;          // where it lands
};

const IconCase kIcons[] = {
    {"smaller, ties", {10, 1, 33, 23}, 16, 16, {14, 4, 30, 20}},       // 3.5 rounds to 4
    {"smaller, tie below", {10, 1, 31, 23}, 16, 16, {12, 4, 28, 20}},  // 2.5 rounds to 2
    {"as large", {20, 4, 36, 20}, 16, 16, {20, 4, 36, 20}},
    {"larger", {20, 8, 30, 16}, 16, 14, {17, 5, 33, 19}},
    {"larger, ties", {20, 8, 29, 15}, 10, 10, {20, 6, 30, 16}},  // -0.5 and -1.5
};

TEST_F(IconsTest, PaintIconTransparently_Erasing_ComposesTheWholeCellOnTheCleanBar) {
  for (const IconCase& each : kIcons) {
    SCOPED_TRACE(each.name);
    floor->Fill(Frame(), {0, 0, kWidth, kHeight}, kWhite);
    const Rect& cell = each.cell;
    painter->PaintIconTransparently(HalfPicture(each.width, each.height), static_cast<Integer>(cell.left),
                                    static_cast<Integer>(cell.top), static_cast<Integer>(cell.right - cell.left),
                                    static_cast<Integer>(cell.bottom - cell.top), static_cast<Integer>(each.width),
                                    static_cast<Integer>(each.height), 0, true);
    ExpectFrame(Frame(), cell, each.place, true);
  }
}

TEST_F(IconsTest, PaintIconTransparently_WithoutErasing_DrawsOnWhatIsThereAndOverNeighbours) {
  for (const IconCase& each : kIcons) {
    SCOPED_TRACE(each.name);
    floor->Fill(Frame(), {0, 0, kWidth, kHeight}, kWhite);
    const Rect& cell = each.cell;
    painter->PaintIconTransparently(HalfPicture(each.width, each.height), static_cast<Integer>(cell.left),
                                    static_cast<Integer>(cell.top), static_cast<Integer>(cell.right - cell.left),
                                    static_cast<Integer>(cell.bottom - cell.top), static_cast<Integer>(each.width),
                                    static_cast<Integer>(each.height), 0, false);
    ExpectFrame(Frame(), cell, each.place, false);
  }
}

TEST_F(IconsTest, PaintIconTransparently_Erasing_TouchesTheWindowOnceAndOpaquely) {
  const Long picture = floor->MakeBitmap(4, 4, kRed);
  floor->calls.Name(picture, "picture");
  painter->PaintIconTransparently(picture, 10, 2, 8, 9, 4, 4, window->hdc, true);
  EXPECT_EQ(Listed(floor->calls.Take()), Listed({
                                             "CreateCompatibleDC(strip dc) = dc 1",
                                             "SelectObject(dc 1, picture) = stock",
                                             "CreateCompatibleDC(strip dc) = dc 2",
                                             "CreateCompatibleBitmap(strip dc, 8, 9) = bitmap 1",
                                             "SelectObject(dc 2, bitmap 1) = stock",
                                             "BitBlt(dc 2, 0, 0, 8, 9, background, 10, 2, SRCCOPY)",
                                             "BitBlt(strip dc, 10, 2, 8, 9, dc 2, 0, 0, SRCCOPY)",
                                             "SelectObject(dc 2, stock) = bitmap 1",
                                             "DeleteObject(bitmap 1)",
                                             "DeleteDC(dc 2)",
                                             "SelectObject(dc 1, stock) = picture",
                                             "DeleteObject(picture)",
                                             "DeleteDC(dc 1)",
                                         }));
}

TEST_F(IconsTest, PaintIconTransparently_WithoutErasing_NeedsNoCellBitmap) {
  const Long picture = floor->MakeBitmap(4, 4, kRed);
  floor->calls.Name(picture, "picture");
  painter->PaintIconTransparently(picture, 10, 2, 8, 9, 4, 4, window->hdc, false);
  EXPECT_EQ(Listed(floor->calls.Take()),
            Listed({"CreateCompatibleDC(strip dc) = dc 1", "SelectObject(dc 1, picture) = stock",
                    "SelectObject(dc 1, stock) = picture", "DeleteObject(picture)", "DeleteDC(dc 1)"}));
}

TEST_F(IconsTest, PaintIconTransparently_UsesItsBitmapUpAndLeavesNothingElse) {
  for (const bool erasing : {true, false}) {
    for (const bool toWindow : {true, false}) {
      const int contexts = floor->Contexts();
      const int bitmaps = floor->Bitmaps();
      const Long picture = HalfPicture(6, 6);
      painter->PaintIconTransparently(picture, 3, 3, 12, 12, 6, 6, toWindow ? window->hdc : 0, erasing);
      EXPECT_FALSE(floor->desk.Objects().IsLive(picture));
      EXPECT_EQ(floor->Contexts(), contexts);
      EXPECT_EQ(floor->Bitmaps(), bitmaps);
    }
  }
}

TEST_F(IconsTest, PaintIconTransparently_WithATargetOfItsOwn_LeavesTheFrame) {
  const Long target = floor->MakeContext(kWidth, kHeight, kWhite);
  painter->PaintIconTransparently(HalfPicture(16, 16), 10, 1, 23, 22, 16, 16, target, true);
  ExpectFrame(target, {10, 1, 33, 23}, {14, 4, 30, 20}, true);
  ExpectFrame(Frame(), {0, 0, 0, 0}, {0, 0, 0, 0}, false);
}

TEST_F(IconsTest, PaintDCTransparently_Erasing_PutsAnEdgeOfNoneAroundTheCellAndMarksAllOfIt) {
  const Long picture = HalfPictureContext(16, 16);
  painter->PaintDCTransparently(picture, 10, 1, 23, 22, 16, 16, 0, true);
  EXPECT_EQ(Listed(floor->calls.CallsOf("DrawEdge")), Listed({"DrawEdge(frame, [10 1 33 23], 0, 15)"}));
  EXPECT_EQ(UpdateRect(), (Rect{10, 1, 33, 23}));
  ExpectFrame(Frame(), {10, 1, 33, 23}, {14, 4, 30, 20}, true);
}

struct MarkCase {
  Integer x, y, cellWidth, cellHeight, width, height;
  Rect marked;
};

TEST_F(IconsTest, PaintDCTransparently_WithoutErasing_MarksTheCentredPictureAlone) {
  const MarkCase cases[] = {
      {10, 1, 23, 22, 16, 16, {14, 4, 30, 20}}, {10, 1, 21, 22, 16, 16, {12, 4, 28, 20}},
      {10, 1, 17, 19, 16, 16, {10, 3, 26, 19}}, {10, 5, 15, 13, 16, 16, {10, 3, 26, 19}},
      {-4, 0, 10, 10, 16, 20, {-7, -5, 9, 15}},
  };
  for (const MarkCase& each : cases) {
    const Long picture = HalfPictureContext(each.width, each.height);
    painter->PaintDCTransparently(picture, each.x, each.y, each.cellWidth, each.cellHeight, each.width, each.height, 0,
                                  false);
    EXPECT_EQ(UpdateRect(), each.marked) << each.width << " in " << each.cellWidth;
  }
  EXPECT_EQ(Listed(floor->calls.CallsOf("DrawEdge")), "");
}

TEST_F(IconsTest, PaintDCTransparently_WithoutErasing_DrawsOnTheFrameAsItIs) {
  painter->PaintDCTransparently(HalfPictureContext(16, 16), 10, 1, 23, 22, 16, 16, 0, false);
  ExpectFrame(Frame(), {10, 1, 33, 23}, {14, 4, 30, 20}, false);
}

TEST_F(IconsTest, PaintDCTransparently_LeavesTheContextItIsGivenIntact) {
  for (const bool erasing : {true, false}) {
    const Long picture = HalfPictureContext(16, 16);
    const desk::Context before = *floor->desk.Objects().Find<desk::Context>(picture);
    const desk::Surface pixels = floor->SurfaceOf(picture);
    const int contexts = floor->Contexts();
    const int bitmaps = floor->Bitmaps();
    painter->PaintDCTransparently(picture, 10, 1, 23, 22, 16, 16, window->hdc, erasing);
    ASSERT_TRUE(floor->desk.Objects().IsLive(picture));
    const desk::Context& after = *floor->desk.Objects().Find<desk::Context>(picture);
    EXPECT_EQ(after.bitmap, before.bitmap);
    EXPECT_EQ(after.backgroundColor, before.backgroundColor);
    EXPECT_EQ(floor->SurfaceOf(picture), pixels);
    EXPECT_EQ(floor->Contexts(), contexts);
    EXPECT_EQ(floor->Bitmaps(), bitmaps);
  }
}

TEST_F(IconsTest, PaintDCTransparently_WithoutATarget_ReachesTheFrameAndNotTheWindow) {
  const desk::Surface shown = window->OnScreen();
  int drawn = 0;
  const desk::PaintObserver observer = [&](Long, const Rect&, const char*) { ++drawn; };
  floor->desk.Graphics().SetPaintObserver(&observer);
  painter->PaintDCTransparently(HalfPictureContext(16, 16), 10, 1, 23, 22, 16, 16, 0, true);
  floor->desk.Graphics().SetPaintObserver(nullptr);
  EXPECT_EQ(drawn, 0);
  EXPECT_EQ(window->OnScreen(), shown);
  EXPECT_EQ(Listed(floor->calls.CallsOf("BitBlt")), Listed({"BitBlt(dc 1, 0, 0, 23, 22, background, 10, 1, SRCCOPY)",
                                                            "BitBlt(frame, 10, 1, 23, 22, dc 1, 0, 0, SRCCOPY)"}));
  EXPECT_EQ(floor->PixelAt(Frame(), 14, 4), kRed);
}

TEST_F(IconsTest, PaintDCTransparently_WithATarget_ReachesTheFrameFirstAndThenTheWindowInOneBlit) {
  Lines drawn;
  const desk::PaintObserver observer = [&](Long hwnd, const Rect& area, const char* operation) {
    drawn.push_back(std::string(operation) + (hwnd == window->strip ? " on the strip " : " elsewhere ") +
                    std::to_string(area.right) + " by " + std::to_string(area.bottom));
    EXPECT_EQ(floor->PixelAt(Frame(), 14, 4), kRed);
  };
  floor->desk.Graphics().SetPaintObserver(&observer);
  painter->PaintDCTransparently(HalfPictureContext(16, 16), 10, 1, 23, 22, 16, 16, window->hdc, false);
  floor->desk.Graphics().SetPaintObserver(nullptr);
  EXPECT_EQ(Listed(drawn), Listed({"BitBlt on the strip 60 by 24"}));
  EXPECT_EQ(window->OnScreen(), floor->SurfaceOf(Frame()));
}

TEST_F(IconsTest, AHighlightThatIsErased_ComesBackToTheCleanBarAgainAndAgain) {
  for (int time = 0; time < 3; ++time) {
    floor->Fill(window->hdc, {10, 1, 33, 23}, kGreen);  // an edge or a pressed look
    painter->PaintIconTransparently(HalfPicture(16, 16), 10, 1, 23, 22, 16, 16, window->hdc, true);
    EXPECT_EQ(floor->PixelAt(window->hdc, 14, 4), kRed);
    EXPECT_EQ(floor->PixelAt(window->hdc, 29, 4), ColorAt(29, 4));
    EXPECT_EQ(floor->PixelAt(window->hdc, 10, 1), ColorAt(10, 1));
    EXPECT_EQ(floor->PixelAt(window->hdc, 32, 22), ColorAt(32, 22));
  }
}

}  // namespace
}  // namespace strandline
