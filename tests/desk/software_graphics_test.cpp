// Handles: making, selecting, deleting, and what misuse of them does.

#include "tests/desk/graphics_fixture.h"
#include "tests/support/allocations.h"

namespace strandline::desk {
namespace {

TEST_F(GraphicsTest, Handles_AreTheSameInEveryRunAndNeverUsedTwice) {
  const Long first = mGraphics.CreateCompatibleDC(0);
  mGraphics.DeleteDC(first);
  const Long second = mGraphics.CreateCompatibleDC(0);
  EXPECT_NE(first, second);

  SoftwareGraphics other(mScreen, mWindows, mMisuses);
  EXPECT_EQ(other.CreateCompatibleDC(0), first);
  EXPECT_EQ(other.CreateCompatibleDC(0), second);
}

TEST_F(GraphicsTest, Handles_AreNamedByKindAndOrdinal_DeadOnesToo) {
  const Long hdc = mGraphics.CreateCompatibleDC(0);
  const Long bitmap = mGraphics.CreateBitmap(2, 2, 1, 32);
  const Long second = mGraphics.CreateBitmap(2, 2, 1, 32);
  mGraphics.DeleteObject(second);
  EXPECT_EQ(Objects().NameOf(hdc), "dc 1");
  EXPECT_EQ(Objects().NameOf(bitmap), "bitmap 1");
  EXPECT_EQ(Objects().NameOf(second), "bitmap 2");
  EXPECT_EQ(Objects().NameOf(ObjectTable::kStockBitmap), "bitmap 0");
  EXPECT_EQ(Objects().NameOf(bitmap + 7), "");
  EXPECT_EQ(Objects().NameOf(12345), "");
  EXPECT_EQ(Objects().NameOf(-1), "");
}

TEST_F(GraphicsTest, Lost_TellsWhatLivesAndWhoMadeIt) {
  mMisuses->whoIsCalling = [] { return std::string("Painter.Initialize"); };
  mGraphics.CreateBitmap(2, 2, 1, 1);
  mGraphics.DeleteObject(mGraphics.CreateSolidBrush(kRed));
  mMisuses->whoIsCalling = nullptr;
  mGraphics.CreateCompatibleDC(0);

  const std::vector<LiveObject> lost = Objects().Lost();
  ASSERT_EQ(lost.size(), 2u);
  EXPECT_EQ(lost[0].name, "dc 1");
  EXPECT_EQ(lost[0].maker, "CreateCompatibleDC");
  EXPECT_EQ(lost[1].name, "bitmap 1");
  EXPECT_EQ(lost[1].maker, "Painter.Initialize, CreateBitmap");
  EXPECT_EQ(Objects().Count(ObjectKind::kContext), 1);
  EXPECT_EQ(Objects().Count(ObjectKind::kBitmap), 1);
  EXPECT_EQ(Objects().Count(ObjectKind::kBrush), 0);
}

TEST_F(GraphicsTest, NewMemoryContext_HoldsTheStockBitmapOfOneMonochromePixel) {
  const Long hdc = mGraphics.CreateCompatibleDC(0);
  EXPECT_EQ(mGraphics.GetPixel(hdc, 0, 0), kBlack);
  EXPECT_EQ(mGraphics.GetPixel(hdc, 1, 0), -1);
  const Long bitmap = mGraphics.CreateCompatibleBitmap(hdc, 5, 5);
  EXPECT_EQ(Objects().Find<Bitmap>(bitmap)->surface.bitsPerPixel, 1);
  EXPECT_EQ(mGraphics.SelectObject(hdc, bitmap), ObjectTable::kStockBitmap);
}

TEST_F(GraphicsTest, StockBitmap_IsNeverDeletedAndServesManyContexts) {
  const Long one = mGraphics.CreateCompatibleDC(0);
  const Long other = mGraphics.CreateCompatibleDC(0);
  const Long stock = mGraphics.SelectObject(one, mGraphics.CreateBitmap(3, 3, 1, 32));
  EXPECT_EQ(mGraphics.SelectObject(other, stock), stock);
  EXPECT_NE(mGraphics.SelectObject(one, stock), 0);
  mGraphics.DeleteObject(stock);
  EXPECT_EQ(mGraphics.SelectObject(one, stock), stock);
  EXPECT_EQ(Misused(), Lines{});
}

TEST_F(GraphicsTest, StockPixel_IsEachContextsOwn) {
  const Long one = mGraphics.CreateCompatibleDC(0);
  const Long other = mGraphics.CreateCompatibleDC(0);
  Paint(one, {0, 0, 1, 1}, kWhite);
  EXPECT_EQ(mGraphics.GetPixel(one, 0, 0), kWhite);
  EXPECT_EQ(mGraphics.GetPixel(other, 0, 0), kBlack);
}

TEST_F(GraphicsTest, CompatibleBitmap_HasTheDepthOfWhatItsContextHolds) {
  mWindows.Place(kWindow, {0, 0, 10, 10});
  const Long window = mGraphics.GetDC(kWindow);
  const Long screen = mGraphics.GetDC(0);
  const struct {
    Long hdc;
    int depth;
  } cases[] = {{window, 32},
               {screen, 32},
               {MakeColor(2, 2, 0), 32},
               {MakeMono(2, 2), 1},
               {mGraphics.CreateCompatibleDC(window), 1}};
  for (const auto& [hdc, depth] : cases) {
    const Bitmap* bitmap = Objects().Find<Bitmap>(mGraphics.CreateCompatibleBitmap(hdc, 4, 3));
    ASSERT_NE(bitmap, nullptr) << Objects().NameOf(hdc);
    EXPECT_EQ(bitmap->surface, Surface(4, 3, depth)) << Objects().NameOf(hdc);
  }
}

TEST_F(GraphicsTest, Bitmaps_OfOddSizesAndDepths) {
  const Long hdc = MakeColor(2, 2, 0);
  constexpr Long kHuge = 1 << 16;
  constexpr Long kStock = ObjectTable::kStockBitmap;
  EXPECT_EQ(mGraphics.CreateCompatibleBitmap(hdc, 0, 5), kStock);
  EXPECT_EQ(mGraphics.CreateCompatibleBitmap(hdc, 5, 0), kStock);
  EXPECT_EQ(mGraphics.CreateBitmap(0, 0, 1, 32), kStock);
  EXPECT_EQ(mGraphics.CreateCompatibleBitmap(hdc, -1, 5), 0);
  EXPECT_EQ(mGraphics.CreateCompatibleBitmap(hdc, 5, -1), 0);
  EXPECT_EQ(mGraphics.CreateCompatibleBitmap(hdc, kHuge, kHuge), 0);
  EXPECT_EQ(mGraphics.CreateCompatibleBitmap(0, 5, 5), 0);
  EXPECT_EQ(mGraphics.CreateBitmap(5, 5, 2, 1), 0);
  EXPECT_EQ(mGraphics.CreateBitmap(5, 5, 1, 13), 0);
  EXPECT_EQ(Objects().Count(ObjectKind::kBitmap), 1);
}

// Pixels count for a colour bitmap, extents for one of one bit; each as far as there is memory.
TEST_F(GraphicsTest, LargeBitmaps_AreMadeAsFarAsThereIsMemory) {
  const Long hdc = MakeColor(2, 2, 0);
  const Long mask = mGraphics.CreateBitmap(32767, 32767, 1, 1);
  EXPECT_NE(mask, 0);
  EXPECT_EQ(mGraphics.DeleteObject(mask), 1);
  const Long wide = mGraphics.CreateCompatibleBitmap(hdc, 32767, 3);
  EXPECT_NE(wide, 0);
  EXPECT_EQ(mGraphics.DeleteObject(wide), 1);
  {
    const ScarceMemory scarce(1'000'000);
    EXPECT_EQ(mGraphics.CreateCompatibleBitmap(hdc, 1000, 1000), 0);
    EXPECT_EQ(mGraphics.CreateBitmap(4000, 4000, 1, 1), 0);
    EXPECT_NE(mGraphics.CreateBitmap(1000, 1000, 1, 1), 0);
  }
  EXPECT_NE(mGraphics.CreateCompatibleBitmap(hdc, 1000, 1000), 0);
  EXPECT_EQ(Objects().Count(ObjectKind::kBitmap), 3);
}

TEST_F(GraphicsTest, SelectObject_GivesTheDisplacedObject) {
  const Long hdc = mGraphics.CreateCompatibleDC(0);
  const Long color = mGraphics.CreateBitmap(2, 2, 1, 32);
  const Long mono = mGraphics.CreateBitmap(2, 2, 1, 1);
  const Long brush = mGraphics.CreateSolidBrush(kRed);
  EXPECT_EQ(mGraphics.SelectObject(hdc, color), ObjectTable::kStockBitmap);
  EXPECT_EQ(mGraphics.SelectObject(hdc, mono), color);
  EXPECT_EQ(mGraphics.SelectObject(hdc, mono), mono);
  EXPECT_EQ(mGraphics.SelectObject(hdc, brush), ObjectTable::kStockBrush);
  EXPECT_EQ(mGraphics.SelectObject(hdc, ObjectTable::kStockBrush), brush);
  EXPECT_EQ(mGraphics.DeleteObject(color), 1);
  EXPECT_EQ(Misused(), Lines{});
}

TEST_F(GraphicsTest, Bitmap_IsSelectedIntoOneContextAtATime) {
  const Long one = mGraphics.CreateCompatibleDC(0);
  const Long other = mGraphics.CreateCompatibleDC(0);
  const Long bitmap = mGraphics.CreateBitmap(2, 2, 1, 32);
  mGraphics.SelectObject(one, bitmap);
  EXPECT_EQ(mGraphics.SelectObject(other, bitmap), 0);
  EXPECT_EQ(Misused(), Lines{"SelectObject: selected into dc 1: bitmap 1"});
  mGraphics.DeleteDC(one);
  EXPECT_EQ(mGraphics.SelectObject(other, bitmap), ObjectTable::kStockBitmap);
}

TEST_F(GraphicsTest, DeletedContext_LeavesItsBitmapAliveAndUnselected) {
  const Long hdc = mGraphics.CreateCompatibleDC(0);
  const Long bitmap = mGraphics.CreateBitmap(2, 2, 1, 32);
  mGraphics.SelectObject(hdc, bitmap);
  EXPECT_EQ(mGraphics.DeleteObject(bitmap), 0);
  EXPECT_EQ(Misused(), Lines{"DeleteObject: selected: bitmap 1"});
  EXPECT_EQ(mGraphics.DeleteDC(hdc), 1);
  EXPECT_TRUE(Objects().IsLive(bitmap));
  EXPECT_EQ(mGraphics.DeleteObject(bitmap), 1);
  EXPECT_FALSE(Objects().IsLive(bitmap));
}

TEST_F(GraphicsTest, SelectedBrush_IsNotDeleted) {
  const Long hdc = mGraphics.CreateCompatibleDC(0);
  const Long brush = mGraphics.CreateSolidBrush(kRed);
  mGraphics.SelectObject(hdc, brush);
  EXPECT_EQ(mGraphics.DeleteObject(brush), 0);
  mGraphics.DeleteDC(hdc);
  EXPECT_EQ(mGraphics.DeleteObject(brush), 1);
}

TEST_F(GraphicsTest, WindowContext_TakesNoBitmap) {
  mWindows.Place(kWindow, {0, 0, 10, 10});
  const Long hdc = mGraphics.GetDC(kWindow);
  EXPECT_EQ(mGraphics.SelectObject(hdc, mGraphics.CreateBitmap(2, 2, 1, 32)), 0);
  EXPECT_EQ(Misused(), Lines{"SelectObject: into a window's context: bitmap 1"});
}

TEST_F(GraphicsTest, ReleaseDC_WantsAContextFromGetDC) {
  mWindows.Place(kWindow, {0, 0, 10, 10});
  const Long got = mGraphics.GetDC(kWindow);
  const Long memory = mGraphics.CreateCompatibleDC(got);
  EXPECT_EQ(mGraphics.ReleaseDC(kWindow, memory), 0);
  EXPECT_EQ(mGraphics.DeleteDC(got), 0);
  EXPECT_EQ(mGraphics.ReleaseDC(kWindow, got), 1);
  EXPECT_EQ(mGraphics.ReleaseDC(kWindow, got), 0);
  EXPECT_EQ(Misused(), (Lines{"ReleaseDC: released, but not from GetDC: dc 2",
                              "DeleteDC: a window's context, to be released: dc 1", "ReleaseDC: dead: dc 1"}));
}

TEST_F(GraphicsTest, ReleaseDC_ForAnotherWindowReleasesAndIsRecorded) {
  mWindows.Place(kWindow, {0, 0, 10, 10});
  const Long hdc = mGraphics.GetDC(kWindow);
  EXPECT_EQ(mGraphics.ReleaseDC(kWindow + 1, hdc), 1);
  EXPECT_FALSE(Objects().IsLive(hdc));
  EXPECT_EQ(Misused(), Lines{"ReleaseDC: released for another window: dc 1"});
}

TEST_F(GraphicsTest, NoWindow_NoContext) {
  PaintStruct paint;
  EXPECT_EQ(mGraphics.GetDC(kWindow), 0);
  EXPECT_EQ(mGraphics.BeginPaint(kWindow, paint), 0);
  EXPECT_EQ(mGraphics.BeginPaint(0, paint), 0);
  EXPECT_EQ(Objects().Count(ObjectKind::kContext), 0);
}

TEST_F(GraphicsTest, BeginPaint_ValidatesAndTellsTheInvalidBounds) {
  mWindows.Place(kWindow, {5, 5, 25, 25});
  Region invalid(Clip{2, 3, 6, 5});
  invalid.Union(Region(Clip{8, 4, 9, 9}));
  mWindows.At(kWindow).invalid = invalid;
  PaintStruct paint;
  const Long hdc = mGraphics.BeginPaint(kWindow, paint);
  EXPECT_EQ(paint.hdc, hdc);
  EXPECT_EQ(paint.rcPaint, (Rect{2, 3, 9, 9}));
  EXPECT_TRUE(mWindows.InvalidRegion(kWindow).IsEmpty());

  Paint(hdc, {0, 0, 20, 20}, kRed);
  Region painted;
  for (int y = 0; y < mScreen.height; ++y) {
    for (int x = 0; x < mScreen.width; ++x) {
      if (*mScreen.At(x, y) == 0xFF0000) painted.Union(Region(Clip{x, y, x + 1, y + 1}));
    }
  }
  invalid.Offset(5, 5);
  EXPECT_TRUE(painted.Equals(invalid));

  EXPECT_EQ(mGraphics.EndPaint(kWindow, paint), 1);
  EXPECT_FALSE(Objects().IsLive(hdc));
  EXPECT_EQ(mGraphics.EndPaint(kWindow, paint), 0);
  EXPECT_EQ(Misused(), Lines{"EndPaint: dead: dc 1"});
}

TEST_F(GraphicsTest, PaintContext_DrawsOnlyWhatIsBothInvalidAndVisible) {
  auto& placed = mWindows.Place(kWindow, {0, 0, 8, 1});
  placed.visible = Region(Clip{0, 0, 5, 1});
  placed.invalid = Region(Clip{3, 0, 8, 1});
  PaintStruct paint;
  const Long hdc = mGraphics.BeginPaint(kWindow, paint);
  Paint(hdc, {0, 0, 8, 1}, kRed);
  for (Long x = 0; x < 8; ++x) EXPECT_EQ(*mScreen.At(x, 0) != 0, x == 3 || x == 4) << x;
  mGraphics.EndPaint(kWindow, paint);

  mGraphics.BeginPaint(kWindow, paint);  // nothing is invalid any more
  EXPECT_EQ(paint.rcPaint, Rect{});
  Paint(paint.hdc, {0, 0, 8, 1}, kGreen);
  for (Long x = 0; x < 8; ++x) EXPECT_NE(*mScreen.At(x, 0), 0x00FF00u) << x;
}

TEST_F(GraphicsTest, EndPaint_WantsTheWindowsOwnPaintContext) {
  mWindows.Place(kWindow, {0, 0, 10, 10});
  PaintStruct paint;
  paint.hdc = mGraphics.GetDC(kWindow);
  EXPECT_EQ(mGraphics.EndPaint(kWindow, paint), 0);
  EXPECT_EQ(mGraphics.ReleaseDC(kWindow, paint.hdc), 1);
  mGraphics.BeginPaint(kWindow, paint);
  EXPECT_EQ(mGraphics.EndPaint(kWindow + 1, paint), 0);
  EXPECT_EQ(mGraphics.ReleaseDC(kWindow, paint.hdc), 0);
  EXPECT_EQ(mGraphics.EndPaint(kWindow, paint), 1);
  EXPECT_EQ(mMisuses->All().size(), 3u);
}

// Every operation, each with a handle that is dead, one that never was, and one of another kind.
TEST_F(GraphicsTest, Misuse_FailsAsOnWindowsAndIsRecordedWithItsCaller) {
  const Long good = MakeColor(4, 4, 0);
  const Long region = mGraphics.CreateRectRgn(0, 0, 1, 1);
  const Long dead = mGraphics.CreateCompatibleDC(0);
  mGraphics.DeleteDC(dead);
  const Rect area{0, 0, 2, 2};
  const Long brush = mGraphics.CreateSolidBrush(0);
  PaintStruct paint;
  using Use = std::function<Long(Long bad)>;
  const struct {
    const char* call;
    Long failure;
    Use use;
  } uses[] = {
      {"ReleaseDC", 0, [&](Long bad) { return mGraphics.ReleaseDC(0, bad); }},
      {"EndPaint", 0,
       [&](Long bad) {
         paint.hdc = bad;
         return mGraphics.EndPaint(kWindow, paint);
       }},
      {"CreateCompatibleDC", 0, [&](Long bad) { return mGraphics.CreateCompatibleDC(bad); }},
      {"DeleteDC", 0, [&](Long bad) { return mGraphics.DeleteDC(bad); }},
      {"CreateCompatibleBitmap", 0, [&](Long bad) { return mGraphics.CreateCompatibleBitmap(bad, 1, 1); }},
      {"SelectObject", 0, [&](Long bad) { return mGraphics.SelectObject(bad, brush); }},
      {"SelectObject", 0, [&](Long bad) { return mGraphics.SelectObject(good, bad); }},
      {"BitBlt", 0, [&](Long bad) { return mGraphics.BitBlt(bad, 0, 0, 1, 1, good, 0, 0, rop::kSrcCopy); }},
      {"BitBlt", 0, [&](Long bad) { return mGraphics.BitBlt(good, 0, 0, 1, 1, bad, 0, 0, rop::kSrcCopy); }},
      {"SetBkColor", -1, [&](Long bad) { return mGraphics.SetBkColor(bad, 0); }},
      {"GetPixel", -1, [&](Long bad) { return mGraphics.GetPixel(bad, 0, 0); }},
      {"DrawEdge", 0, [&](Long bad) { return mGraphics.DrawEdge(bad, area, 5, 15); }},
      {"FillRect", 0, [&](Long bad) { return mGraphics.FillRect(bad, area, brush); }},
      {"FillRect", 0, [&](Long bad) { return mGraphics.FillRect(good, area, bad); }},
      {"CombineRgn", 0, [&](Long bad) { return mGraphics.CombineRgn(bad, bad == region ? dead : region, region, 2); }},
      {"CombineRgn", 0, [&](Long bad) { return mGraphics.CombineRgn(region, bad == region ? dead : bad, region, 2); }},
  };
  mMisuses->whoIsCalling = [] { return std::string("Test"); };
  const Surface before = Objects().Find<Bitmap>(Objects().Find<Context>(good)->bitmap)->surface;
  for (const Long bad : {dead, dead + 100, Long{-5}, region}) {
    for (const auto& [call, failure, use] : uses) {
      mMisuses->Clear();
      EXPECT_EQ(use(bad), failure) << call << ' ' << bad;
      ASSERT_EQ(mMisuses->All().size(), 1u) << call << ' ' << bad;
      EXPECT_EQ(mMisuses->All()[0].call, call);
      EXPECT_EQ(mMisuses->All()[0].who, "Test");
    }
  }
  EXPECT_EQ(Objects().Find<Bitmap>(Objects().Find<Context>(good)->bitmap)->surface, before);
}

TEST_F(GraphicsTest, HandleZero_FailsWithoutARecord) {
  EXPECT_EQ(mGraphics.DeleteDC(0), 0);
  EXPECT_EQ(mGraphics.DeleteObject(0), 0);
  EXPECT_EQ(mGraphics.SelectObject(0, 0), 0);
  EXPECT_EQ(mGraphics.SelectObject(mGraphics.CreateCompatibleDC(0), 0), 0);
  EXPECT_EQ(mGraphics.BitBlt(0, 0, 0, 1, 1, 0, 0, 0, rop::kSrcCopy), 0);
  EXPECT_EQ(mGraphics.SetBkColor(0, 0), -1);
  EXPECT_EQ(mGraphics.CombineRgn(0, 0, 0, 1), 0);
  EXPECT_EQ(Misused(), Lines{});
}

TEST_F(GraphicsTest, CombineRgn_TellsHowComplexTheResultIs) {
  const Long left = mGraphics.CreateRectRgn(0, 0, 4, 4);
  const Long right = mGraphics.CreateRectRgn(6, 8, 2, 0);  // corners in any order
  const Long far = mGraphics.CreateRectRgn(20, 20, 30, 30);
  const Long result = mGraphics.CreateRectRgn(0, 0, 0, 0);
  const struct {
    Long first;
    Long second;
    Long mode;
    Long complexity;
    Clip bounds;
  } cases[] = {{left, right, 1, 2, {2, 0, 4, 4}},
               {left, far, 1, 1, {}},
               {left, far, 2, 3, {0, 0, 30, 30}},
               {left, left, 2, 2, {0, 0, 4, 4}},
               {left, right, 3, 3, {0, 0, 6, 8}},
               {left, right, 4, 2, {0, 0, 2, 4}},
               {right, left, 4, 3, {2, 0, 6, 8}},
               {far, 0, 5, 2, {20, 20, 30, 30}},
               {left, left, 3, 1, {}}};
  for (const auto& [first, second, mode, complexity, bounds] : cases) {
    EXPECT_EQ(mGraphics.CombineRgn(result, first, second, mode), complexity) << "mode " << mode;
    EXPECT_EQ(Objects().Find<Region>(result)->Bounds(), bounds) << "mode " << mode;
  }
  EXPECT_EQ(mGraphics.CombineRgn(left, left, right, 2), 3);  // the target may be one of the two
  EXPECT_EQ(mGraphics.CombineRgn(result, left, right, 0), 0);
  EXPECT_EQ(mGraphics.CombineRgn(result, left, right, 6), 0);
  EXPECT_EQ(mGraphics.DeleteObject(result), 1);
  EXPECT_EQ(Misused(), Lines{});
}

TEST_F(GraphicsTest, GetSysColor_IsAColorRef) {
  EXPECT_EQ(mGraphics.GetSysColor(15), 0xD8E9EC);
  EXPECT_EQ(mGraphics.GetSysColor(13), 0xC56A31);
  EXPECT_EQ(mGraphics.GetSysColor(30), 0xD8E9EC);
  for (const Long none : {25, -1, 31, 0x7FFFFFFF}) EXPECT_EQ(mGraphics.GetSysColor(none), 0) << none;
}

}  // namespace
}  // namespace strandline::desk
