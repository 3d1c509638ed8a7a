// The copy that leaves the colour key out: which pixels it copies, its steps, and that the one pass and the steps
// agree.

#include <random>

#include "tests/drawing/drawing_fixture.h"

namespace strandline {
namespace {

using ToolbarUtilities::TransparentBlt;

class TransparentBltTest : public DrawingTest {
 protected:
  using Random = std::mt19937;

  static int Between(Random& random, int low, int high) {
    return std::uniform_int_distribution<int>(low, high)(random);
  }
  // Pixels among which the key, near misses of it and black are frequent.
  void Speckle(Long hdc, Long width, Long height, Random& random) {
    const Long colors[] = {kKey,     kKey,         kBlack,   kWhite,        kKey - 0x010000,
                           kKey + 1, kKey + 0x100, 0x123456, 0x00FF0000 | 7};
    for (Long y = 0; y < height; ++y) {
      for (Long x = 0; x < width; ++x) floor->SetPixel(hdc, x, y, colors[Between(random, 0, 8)]);
    }
  }
};

struct PixelCase {
  const char* name;
  Long source;
  bool copied;
};

TEST_F(TransparentBltTest, TransparentBlt_LeavesOutTheExactKeyAndNothingNearIt) {
  const PixelCase cases[] = {
      {"the key", 0xFF0000, false},
      {"blue a step less", 0xFE0000, true},
      {"green a step more", 0xFF0100, true},
      {"red a step more", 0xFF0001, true},
      {"red, not blue", 0x0000FF, true},
      {"green", 0x00FF00, true},
      {"black", 0x000000, true},
      {"white", 0xFFFFFF, true},
      {"grey", 0x808080, true},
  };
  for (const bool byMasks : {false, true}) {
    if (byMasks) floor->WithoutColorKeyBlt();
    for (const PixelCase& each : cases) {
      SCOPED_TRACE(std::string(each.name) + (byMasks ? ", by masks" : ", in one pass"));
      const Long source = floor->MakeContext(3, 3, each.source);
      const Long target = floor->MakeContext(5, 5, 0x345678);
      TransparentBlt(target, 1, 1, 3, 3, source, 0, 0);
      for (Long y = 0; y < 5; ++y) {
        for (Long x = 0; x < 5; ++x) {
          const bool within = x >= 1 && x < 4 && y >= 1 && y < 4;
          EXPECT_EQ(floor->PixelAt(target, x, y), within && each.copied ? each.source : 0x345678) << x << "," << y;
        }
      }
    }
  }
}

struct SizeCase {
  Integer width, height;
  Lines rows;
};

TEST_F(TransparentBltTest, TransparentBlt_OfOneRowOrColumn_CopiesExactlyThat) {
  const SizeCase cases[] = {
      {1, 1, {"wwww", "wrww", "wwww", "wwww"}}, {1, 3, {"wwww", "wrww", "wrww", "wrww"}},
      {3, 1, {"wwww", "wrrr", "wwww", "wwww"}}, {0, 3, {"wwww", "wwww", "wwww", "wwww"}},
      {3, 0, {"wwww", "wwww", "wwww", "wwww"}}, {-2, 3, {"wwww", "wwww", "wwww", "wwww"}},
  };
  for (const bool byMasks : {false, true}) {
    if (byMasks) floor->WithoutColorKeyBlt();
    for (const SizeCase& each : cases) {
      SCOPED_TRACE(std::to_string(each.width) + " by " + std::to_string(each.height));
      const Long target = floor->MakeContext(4, 4, kWhite);
      TransparentBlt(target, 1, 1, each.width, each.height, floor->MakeContext(8, 8, kRed), 2, 2);
      EXPECT_EQ(Listed(floor->RowsOf(target)), Listed(each.rows));
    }
  }
}

TEST_F(TransparentBltTest, TransparentBlt_TakesTheSourceFromItsOrigin) {
  const Picture picture = floor->MakePicture({"rrrr", "r.gr", "rg.r", "rrrr"});
  const Long source = floor->desk.Graphics().CreateCompatibleDC(0);
  floor->desk.Graphics().SelectObject(source, picture->Handle());
  const Long target = floor->MakeContext(4, 3, kWhite);
  TransparentBlt(target, 2, 1, 2, 2, source, 1, 1);
  EXPECT_EQ(Listed(floor->RowsOf(target)), Listed({"wwww", "wwwg", "wwgw"}));
  floor->desk.Graphics().SelectObject(source, desk::ObjectTable::kStockBitmap);
}

TEST_F(TransparentBltTest, TransparentBlt_AsksForOnePassOverTheWholeRectangle) {
  const Long source = floor->MakeContext(8, 8, kRed);
  const Long target = floor->MakeContext(8, 8, kWhite);
  floor->calls.Name(source, "source");
  floor->calls.Name(target, "target");
  TransparentBlt(target, 1, 2, 4, 3, source, 5, 6);
  EXPECT_EQ(Listed(floor->calls.Take()), Listed({"ColorKeyBlt(target, 1, 2, 4, 3, source, 5, 6, 0xFF0000)"}));
}

TEST_F(TransparentBltTest, TransparentBlt_ByMasks_GoesThroughItsStepsAndWritesTheTargetOnce) {
  const Long source = floor->MakeContext(8, 8, kRed);
  const Long target = floor->MakeContext(8, 8, kWhite);
  floor->calls.Name(source, "source");
  floor->calls.Name(target, "target");
  floor->desk.Graphics().SetBkColor(source, 0x123456);
  floor->WithoutColorKeyBlt();
  floor->calls.LeaveOut("ColorKeyBlt");
  TransparentBlt(target, 1, 2, 4, 3, source, 5, 6);
  EXPECT_EQ(Listed(floor->calls.Take()), Listed({
                                             // the mask, its inverse, and the two halves
                                             "CreateCompatibleDC(target) = dc 1",
                                             "CreateBitmap(4, 3, 1, 1) = bitmap 1",
                                             "SelectObject(dc 1, bitmap 1) = stock",
                                             "CreateCompatibleDC(target) = dc 2",
                                             "CreateBitmap(4, 3, 1, 1) = bitmap 2",
                                             "SelectObject(dc 2, bitmap 2) = stock",
                                             "CreateCompatibleDC(target) = dc 3",
                                             "CreateCompatibleBitmap(target, 4, 3) = bitmap 3",
                                             "SelectObject(dc 3, bitmap 3) = stock",
                                             "CreateCompatibleDC(target) = dc 4",
                                             "CreateCompatibleBitmap(target, 4, 3) = bitmap 4",
                                             "SelectObject(dc 4, bitmap 4) = stock",
                                             "SetBkColor(source, 0xFF0000)",
                                             "BitBlt(dc 1, 0, 0, 4, 3, source, 5, 6, SRCCOPY)",
                                             "SetBkColor(source, 0x123456)",
                                             "BitBlt(dc 2, 0, 0, 4, 3, dc 1, 0, 0, NOTSRCCOPY)",
                                             "BitBlt(dc 3, 0, 0, 4, 3, target, 1, 2, SRCCOPY)",
                                             "BitBlt(dc 3, 0, 0, 4, 3, dc 1, 0, 0, SRCAND)",
                                             "BitBlt(dc 4, 0, 0, 4, 3, source, 5, 6, SRCCOPY)",
                                             "BitBlt(dc 4, 0, 0, 4, 3, dc 2, 0, 0, SRCAND)",
                                             "BitBlt(dc 3, 0, 0, 4, 3, dc 4, 0, 0, SRCINVERT)",
                                             "BitBlt(target, 1, 2, 4, 3, dc 3, 0, 0, SRCCOPY)",
                                             "SelectObject(dc 1, stock) = bitmap 1",
                                             "SelectObject(dc 2, stock) = bitmap 2",
                                             "SelectObject(dc 3, stock) = bitmap 3",
                                             "SelectObject(dc 4, stock) = bitmap 4",
                                             "DeleteObject(bitmap 1)",
                                             "DeleteObject(bitmap 2)",
                                             "DeleteObject(bitmap 3)",
                                             "DeleteObject(bitmap 4)",
                                             "DeleteDC(dc 1)",
                                             "DeleteDC(dc 2)",
                                             "DeleteDC(dc 3)",
                                             "DeleteDC(dc 4)",
                                         }));
  EXPECT_EQ(floor->desk.Objects().Find<desk::Context>(source)->backgroundColor, 0x123456u);
}

TEST_F(TransparentBltTest, TransparentBlt_EitherWay_LeavesNothingBehind) {
  const Long source = floor->MakeContext(8, 8, kRed);
  const Long target = floor->MakeContext(8, 8, kWhite);
  const int contexts = floor->Contexts();
  const int bitmaps = floor->Bitmaps();
  for (int time = 0; time < 4; ++time) {
    if (time == 2) floor->WithoutColorKeyBlt();
    TransparentBlt(target, 0, 0, 4, 4, source, static_cast<Integer>(time), 0);
    EXPECT_EQ(floor->Contexts(), contexts);
    EXPECT_EQ(floor->Bitmaps(), bitmaps);
  }
}

// Off the edges of both, of no extent, of every mix of pixels, and within one context.
TEST_F(TransparentBltTest, TheMaskSteps_GiveTheSamePixelsAsTheOnePass) {
  constexpr int kCases = 250;
  for (int seed = 1; seed <= kCases; ++seed) {
    SCOPED_TRACE("seed " + std::to_string(seed));
    const Long width = 9, height = 7;
    Long results[2];
    for (const bool byMasks : {false, true}) {
      Random random(static_cast<Random::result_type>(seed));
      const Long target = results[byMasks] = floor->MakeContext(width, height, kBlack);
      Speckle(target, width, height, random);
      const Long other = floor->MakeContext(width, height, kBlack);
      Speckle(other, width, height, random);
      const Long source = Between(random, 0, 4) == 0 ? target : other;
      const auto at = [&](int low, int high) { return static_cast<Integer>(Between(random, low, high)); };
      const Integer x = at(-4, 10), y = at(-4, 8), cx = at(-1, 12), cy = at(-1, 10), srcX = at(-4, 10),
                    srcY = at(-4, 8);
      if (byMasks) {
        floor->WithoutColorKeyBlt();
      } else {
        floor->faults.Clear();
      }
      TransparentBlt(target, x, y, cx, cy, source, srcX, srcY);
      floor->DeleteContext(other);
    }
    ASSERT_EQ(floor->SurfaceOf(results[false]), floor->SurfaceOf(results[true]));
    floor->DeleteContext(results[false]);
    floor->DeleteContext(results[true]);
  }
}

TEST_F(TransparentBltTest, OnAWindow_TheMaskStepsAndTheOnePassDrawTheSameAndOnce) {
  HostWindows& host = floor->desk.Host();
  const Long window = host.CreateWindowOf(u"Test", u"under", 0, {40, 30, 52, 40}, nullptr);
  const Long above = host.CreateWindowOf(u"Test", u"above", 0, {46, 25, 49, 60}, nullptr);
  floor->desk.Windows().ShowWindow(window, 8);
  floor->desk.Windows().ShowWindow(above, 8);
  host.BringWindowToTop(above);
  floor->desk.Windows().DoEvents();
  const Long hdc = floor->desk.Graphics().GetDC(window);
  for (int seed = 1; seed <= 40; ++seed) {
    SCOPED_TRACE("seed " + std::to_string(seed));
    desk::Surface shown[2];
    for (const bool byMasks : {false, true}) {
      Random random(static_cast<Random::result_type>(seed));
      Speckle(hdc, 12, 10, random);
      const Long source = floor->MakeContext(9, 7, kBlack);
      Speckle(source, 9, 7, random);
      const auto at = [&](int low, int high) { return static_cast<Integer>(Between(random, low, high)); };
      const Integer x = at(-4, 8), y = at(-4, 6), cx = at(1, 12), cy = at(1, 10), srcX = at(-2, 4), srcY = at(-2, 4);
      if (byMasks) {
        floor->WithoutColorKeyBlt();
      } else {
        floor->faults.Clear();
      }
      int drawn = 0;
      const desk::PaintObserver observer = [&](Long, const Rect&, const char*) { ++drawn; };
      floor->desk.Graphics().SetPaintObserver(&observer);
      TransparentBlt(hdc, x, y, cx, cy, source, srcX, srcY);
      floor->desk.Graphics().SetPaintObserver(nullptr);
      EXPECT_LE(drawn, 1);
      shown[byMasks] = CutOut(floor->desk.Screen(), {30, 20, 70, 70});
      floor->DeleteContext(source);
    }
    ASSERT_EQ(shown[0], shown[1]);
  }
  floor->desk.Graphics().ReleaseDC(window, hdc);
}

struct OverflowCase {
  const char* name;
  Integer width, height, srcX, srcY;
};

TEST_F(TransparentBltTest, ARectangleThatLeavesAnInteger_IsAnOverflowAndDrawsNothing) {
  const OverflowCase cases[] = {
      {"right", 2, 4, 32767, 0},  {"bottom", 4, 2, 0, 32767}, {"far right", 32767, 4, 32767, 0},
      {"left", -2, 4, -32768, 0}, {"top", 4, -2, 0, -32768},  {"wide", 32767, 4, 10, 0},
  };
  const Long source = floor->MakeContext(8, 8, kRed);
  const Long target = floor->MakeContext(8, 8, kWhite);
  const desk::Surface before = floor->SurfaceOf(target);
  for (const OverflowCase& each : cases) {
    SCOPED_TRACE(each.name);
    floor->calls.Clear();
    TransparentBlt(target, 0, 0, each.width, each.height, source, each.srcX, each.srcY);
    EXPECT_EQ(Listed(TakeErrors()), Listed({"6 ToolbarUtilities.TransparentBlt"}));
    EXPECT_EQ(Listed(floor->calls.Take()), "");
  }
  EXPECT_EQ(floor->SurfaceOf(target), before);
}

// The right edge stays 0, and from there the width leaves an Integer too.
TEST_F(TransparentBltTest, AnOverflowThatIsPassedOver_LeavesItsEdgeAtZero) {
  floor->errors.Answer({vbwProtector::kIgnore, vbwProtector::kIgnore});
  TransparentBlt(floor->MakeContext(2, 2, kWhite), 0, 0, -2, 1, floor->MakeContext(2, 2, kRed), -32768, 0);
  EXPECT_EQ(Listed(TakeErrors()), Listed({"6 ToolbarUtilities.TransparentBlt", "6 ToolbarUtilities.TransparentBlt"}));
  floor->errors.Answer({vbwProtector::kIgnore, vbwProtector::kIgnore});
  TransparentBlt(floor->MakeContext(2, 2, kWhite), 0, 0, 1, -2, floor->MakeContext(2, 2, kRed), 0, -32768);
  EXPECT_EQ(Listed(TakeErrors()), Listed({"6 ToolbarUtilities.TransparentBlt", "6 ToolbarUtilities.TransparentBlt"}));
}

TEST_F(TransparentBltTest, TheLargestRectangleOfAnInteger_IsNoOverflow) {
  const Long source = floor->MakeContext(8, 8, kRed);
  const Long target = floor->MakeContext(8, 8, kWhite);
  TransparentBlt(target, 4, 4, 32767, 1, source, 0, 0);
  EXPECT_EQ(floor->RowsOf(target)[4], "wwwwrrrr");
}

}  // namespace
}  // namespace strandline
