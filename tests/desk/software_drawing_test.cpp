// What contexts do to pixels, and to which.

#include <limits>

#include "tests/desk/graphics_fixture.h"

namespace strandline::desk {
namespace {

// The screen as text: a letter for each colour.
std::string Rows(const Surface& screen, const Clip& area) {
  const std::map<std::uint32_t, char> letters = {
      {0, '.'}, {0xFF0000, 'R'}, {0x00FF00, 'G'}, {0x0000FF, 'B'}, {0xFFFFFF, 'W'}};
  std::string rows;
  for (int y = area.top; y < area.bottom; ++y) {
    for (int x = area.left; x < area.right; ++x) {
      const auto letter = letters.find(*screen.At(x, y));
      rows += letter == letters.end() ? '?' : letter->second;
    }
    rows += '\n';
  }
  return rows;
}

TEST_F(GraphicsTest, CopyToMono_SetsPixelsOfTheSourcesBackground) {
  const Long color = MakeColor(3, 1, kGreen);
  Paint(color, {1, 0, 2, 1}, kRed);
  EXPECT_EQ(mGraphics.SetBkColor(color, kRed), kWhite);
  const Long mono = MakeMono(3, 1);
  mGraphics.SetBkColor(mono, kGreen);  // the target's doesn't matter
  EXPECT_EQ(mGraphics.BitBlt(mono, 0, 0, 3, 1, color, 0, 0, rop::kSrcCopy), 1);
  EXPECT_EQ(mGraphics.GetPixel(mono, 0, 0), kBlack);
  EXPECT_EQ(mGraphics.GetPixel(mono, 1, 0), kWhite);
  EXPECT_EQ(mGraphics.GetPixel(mono, 2, 0), kBlack);
  EXPECT_EQ(mGraphics.SetBkColor(color, 0), kRed);
}

TEST_F(GraphicsTest, CopyFromMono_TakesTheTargetsColors) {
  const Long mono = MakeMono(2, 1);
  Paint(mono, {1, 0, 2, 1}, kWhite);
  mGraphics.SetBkColor(mono, kRed);  // the source's doesn't matter
  const Long color = MakeColor(2, 1, kGreen);
  mGraphics.SetBkColor(color, kBlue);
  mGraphics.BitBlt(color, 0, 0, 2, 1, mono, 0, 0, rop::kSrcCopy);
  EXPECT_EQ(mGraphics.GetPixel(color, 0, 0), kBlack);
  EXPECT_EQ(mGraphics.GetPixel(color, 1, 0), kBlue);
}

TEST_F(GraphicsTest, MonoToMono_InvertsAndCombines) {
  const Long one = MakeMono(2, 1);
  const Long other = MakeMono(2, 1);
  Paint(one, {0, 0, 1, 1}, kWhite);
  mGraphics.BitBlt(other, 0, 0, 2, 1, one, 0, 0, rop::kNotSrcCopy);
  EXPECT_EQ(mGraphics.GetPixel(other, 0, 0), kBlack);
  EXPECT_EQ(mGraphics.GetPixel(other, 1, 0), kWhite);
  mGraphics.BitBlt(other, 0, 0, 2, 1, one, 0, 0, rop::kSrcAnd);
  EXPECT_EQ(mGraphics.GetPixel(other, 1, 0), kBlack);
}

TEST_F(GraphicsTest, BitBlt_PixelsBeyondEitherSideStay) {
  const Long target = MakeColor(6, 1, kRed);
  const Long source = MakeColor(3, 1, kGreen);
  mGraphics.BitBlt(target, -1, -3, 50, 50, source, 1, -3, rop::kSrcCopy);
  EXPECT_EQ(mGraphics.GetPixel(target, 0, 0), kGreen);
  EXPECT_EQ(mGraphics.GetPixel(target, 1, 0), kRed);
}

TEST_F(GraphicsTest, BitBlt_OfAnyNumbersIsHarmless) {
  const Long target = MakeColor(4, 4, kRed);
  const Long source = MakeColor(4, 4, kGreen);
  mWindows.Place(kWindow, {10, 10, 20, 20});
  const Long window = mGraphics.GetDC(kWindow);
  constexpr Long kMax = std::numeric_limits<Long>::max();
  constexpr Long kMin = std::numeric_limits<Long>::min();
  const Long numbers[] = {kMin, kMin + 1, -1, 0, 3, kMax - 1, kMax};
  for (const Long a : numbers) {
    for (const Long b : numbers) {
      for (const Long hdc : {target, window}) {
        mGraphics.BitBlt(hdc, a, b, b, a, source, b, a, rop::kSrcCopy);
        mGraphics.BitBlt(target, a, a, kMax, kMax, hdc, b, b, rop::kSrcInvert);
        mGraphics.ColorKeyBlt(hdc, a, b, b, a, source, b, a, kRed);
        mGraphics.DrawEdge(hdc, {a, b, b, a}, 5, 15);
        mGraphics.FillRect(hdc, {b, a, a, b}, 16);
        mGraphics.GetPixel(hdc, a, b);
      }
    }
  }
  EXPECT_EQ(*mScreen.At(9, 9), 0u);
  EXPECT_EQ(Misused(), Lines{});
}

TEST_F(GraphicsTest, BitBlt_WithoutASourceNeedsNone) {
  const Long hdc = MakeColor(2, 1, kRed);
  EXPECT_EQ(mGraphics.BitBlt(hdc, 0, 0, 1, 1, 0, 0, 0, static_cast<Long>(kWhiteness)), 1);
  EXPECT_EQ(mGraphics.GetPixel(hdc, 0, 0), kWhite);
  EXPECT_EQ(mGraphics.GetPixel(hdc, 1, 0), kRed);
  EXPECT_EQ(mGraphics.BitBlt(hdc, 0, 0, 2, 1, 0, 0, 0, 0x123456), 0);
}

TEST_F(GraphicsTest, WindowContext_DrawsWhatIsVisibleOfTheWindow) {
  auto& placed = mWindows.Place(kWindow, {2, 1, 10, 5});
  placed.visible.Subtract(Region(Clip{4, 2, 6, 9}));
  const Long hdc = mGraphics.GetDC(kWindow);
  Paint(hdc, {-100, -100, 100, 100}, kRed);
  EXPECT_EQ(Rows(mScreen, {0, 0, 12, 6}),
            "............\n"
            "..RRRRRRRR..\n"
            "..RR..RRRR..\n"
            "..RR..RRRR..\n"
            "..RR..RRRR..\n"
            "............\n");
}

TEST_F(GraphicsTest, WindowContext_GoesWithItsWindow) {
  mWindows.Place(kWindow, {0, 0, 4, 4});
  const Long hdc = mGraphics.GetDC(kWindow);
  mWindows.Place(kWindow, {3, 0, 7, 4});
  Paint(hdc, {0, 0, 1, 1}, kRed);
  EXPECT_EQ(Rows(mScreen, {0, 0, 6, 1}), "...R..\n");
  mWindows.Remove(kWindow);
  EXPECT_EQ(Paint(hdc, {0, 0, 9, 9}, kGreen), 1);
  EXPECT_EQ(Rows(mScreen, {0, 0, 6, 1}), "...R..\n");
  EXPECT_EQ(mGraphics.GetPixel(hdc, 0, 0), -1);
  EXPECT_EQ(mGraphics.ReleaseDC(kWindow, hdc), 1);
}

TEST_F(GraphicsTest, WindowAsSource_GivesWhatTheScreenShowsThere_AndNothingBeyondTheScreen) {
  auto& placed = mWindows.Place(kWindow, {-2, 0, 4, 2});
  placed.visible = Region(Clip{0, 0, 2, 1});
  const Long screen = mGraphics.GetDC(0);
  Paint(screen, {0, 0, 40, 30}, kBlue);
  Paint(screen, {3, 0, 4, 1}, kGreen);  // what covers the window
  const Long window = mGraphics.GetDC(kWindow);
  const Long copy = MakeColor(8, 1, kRed);
  mGraphics.BitBlt(copy, 0, 0, 8, 1, window, 0, 0, rop::kSrcCopy);
  const Surface& pixels = Objects().Find<Bitmap>(Objects().Find<Context>(copy)->bitmap)->surface;
  EXPECT_EQ(Rows(pixels, pixels.Bounds()), "RRBBBGRR\n");
}

TEST_F(GraphicsTest, GetPixel_OfACoveredPixelHasNoColor) {
  auto& placed = mWindows.Place(kWindow, {0, 0, 4, 4});
  placed.visible.Subtract(Region(Clip{1, 0, 2, 1}));
  const Long hdc = mGraphics.GetDC(kWindow);
  EXPECT_EQ(mGraphics.GetPixel(hdc, 0, 0), kBlack);
  EXPECT_EQ(mGraphics.GetPixel(hdc, 1, 0), -1);
  EXPECT_EQ(mGraphics.GetPixel(hdc, -1, 0), -1);
  EXPECT_EQ(mGraphics.GetPixel(hdc, 4, 0), -1);
}

// The visible part lies in pieces; an earlier piece's new pixels must not be taken for a later one's source.
TEST_F(GraphicsTest, WindowOntoItself_CopiesAsIfTheSourceHadBeenSetAside) {
  auto& placed = mWindows.Place(kWindow, {0, 0, 6, 3});
  const Long hdc = mGraphics.GetDC(kWindow);
  const Long colors[] = {kRed, kGreen, kBlue, kWhite, kRed, kGreen};
  for (Long x = 0; x < 6; ++x) Paint(hdc, {x, 0, x + 1, 3}, colors[x]);
  placed.visible.Subtract(Region(Clip{3, 0, 4, 1}));
  placed.visible.Subtract(Region(Clip{4, 1, 5, 2}));
  mGraphics.BitBlt(hdc, 2, 0, 4, 3, hdc, 0, 0, rop::kSrcCopy);
  EXPECT_EQ(Rows(mScreen, {0, 0, 6, 3}),
            "RGRWBW\n"
            "RGRGRW\n"
            "RGRGBW\n");
}

TEST_F(GraphicsTest, ColorKeyBlt_LeavesKeysAndBlackensBeyondTheSource) {
  mWindows.Place(kWindow, {1, 0, 9, 2});
  const Long window = mGraphics.GetDC(kWindow);
  Paint(window, {0, 0, 8, 2}, kBlue);
  const Long source = MakeColor(3, 1, kGreen);
  Paint(source, {1, 0, 2, 1}, kRed);
  EXPECT_TRUE(mGraphics.ColorKeyBlt(window, 1, 0, 5, 2, source, 0, 0, kRed));
  EXPECT_EQ(Rows(mScreen, {0, 0, 10, 2}),
            ".BGBG..BB.\n"
            ".B.....BB.\n");
  EXPECT_TRUE(mGraphics.ColorKeyBlt(window, 6, 0, 5, 1, source, 30, 30, kRed));
  EXPECT_EQ(Rows(mScreen, {0, 0, 10, 1}), ".BGBG.....\n");
}

TEST_F(GraphicsTest, ColorKeyBlt_OfAWindowOntoItselfSetsTheSourceAside) {
  auto& placed = mWindows.Place(kWindow, {0, 0, 6, 1});
  const Long hdc = mGraphics.GetDC(kWindow);
  const Long colors[] = {kRed, kGreen, kBlue, kWhite, kRed, kGreen};
  for (Long x = 0; x < 6; ++x) Paint(hdc, {x, 0, x + 1, 1}, colors[x]);
  placed.visible.Subtract(Region(Clip{3, 0, 4, 1}));
  EXPECT_TRUE(mGraphics.ColorKeyBlt(hdc, 2, 0, 4, 1, hdc, 0, 0, kWhite));
  EXPECT_EQ(Rows(mScreen, {0, 0, 6, 1}), "RGRWBG\n");
}

TEST_F(GraphicsTest, ColorKeyBlt_OfAWindowReadsNothingBesideIt) {
  mWindows.Place(kWindow, {1, 0, 3, 1});
  const Long screen = mGraphics.GetDC(0);
  Paint(screen, {0, 0, 40, 30}, kGreen);
  const Long copy = MakeColor(4, 1, kRed);
  EXPECT_TRUE(mGraphics.ColorKeyBlt(copy, 0, 0, 4, 1, mGraphics.GetDC(kWindow), -1, 0, kBlue));
  const Surface& pixels = Objects().Find<Bitmap>(Objects().Find<Context>(copy)->bitmap)->surface;
  EXPECT_EQ(Rows(pixels, pixels.Bounds()), ".GG.\n");
}

TEST_F(GraphicsTest, ColorKeyBlt_IsNotForMonoOrDeadContexts) {
  const Long color = MakeColor(2, 2, kRed);
  const Long mono = MakeMono(2, 2);
  EXPECT_FALSE(mGraphics.ColorKeyBlt(color, 0, 0, 2, 2, mono, 0, 0, kRed));
  EXPECT_FALSE(mGraphics.ColorKeyBlt(mono, 0, 0, 2, 2, color, 0, 0, kRed));
  EXPECT_FALSE(mGraphics.ColorKeyBlt(color, 0, 0, 2, 2, 77, 0, 0, kRed));
  EXPECT_FALSE(mGraphics.ColorKeyBlt(0, 0, 0, 2, 2, color, 0, 0, kRed));
  EXPECT_EQ(mGraphics.GetPixel(color, 0, 0), kRed);
}

TEST_F(GraphicsTest, DrawEdge_TakesTheSystemColors) {
  const Long hdc = MakeColor(6, 4, kRed);
  EXPECT_EQ(mGraphics.DrawEdge(hdc, {0, 0, 6, 4}, 5, 15), 1);
  EXPECT_EQ(mGraphics.GetPixel(hdc, 0, 0), mGraphics.GetSysColor(22));
  EXPECT_EQ(mGraphics.GetPixel(hdc, 5, 0), mGraphics.GetSysColor(21));
  EXPECT_EQ(mGraphics.GetPixel(hdc, 1, 1), mGraphics.GetSysColor(20));
  EXPECT_EQ(mGraphics.GetPixel(hdc, 4, 2), mGraphics.GetSysColor(16));
  EXPECT_EQ(mGraphics.DrawEdge(hdc, {2, 1, 4, 3}, 10, 15), 1);
  EXPECT_EQ(mGraphics.GetPixel(hdc, 2, 1), mGraphics.GetSysColor(16));
}

TEST_F(GraphicsTest, FillRect_TakesBrushesAndSystemColorsByNumber) {
  const Long hdc = MakeColor(3, 1, kRed);
  EXPECT_EQ(mGraphics.FillRect(hdc, {0, 0, 1, 1}, 16), 1);  // a face, number 15, plus 1
  EXPECT_EQ(mGraphics.GetPixel(hdc, 0, 0), mGraphics.GetSysColor(15));
  EXPECT_EQ(mGraphics.FillRect(hdc, {1, 0, 2, 1}, ObjectTable::kStockBrush), 1);
  EXPECT_EQ(mGraphics.GetPixel(hdc, 1, 0), kWhite);
  EXPECT_EQ(mGraphics.FillRect(hdc, {0, 0, 3, 1}, 0), 0);
  EXPECT_EQ(mGraphics.GetPixel(hdc, 2, 0), kRed);
}

TEST_F(GraphicsTest, PaintObserver_HearsWhatReachesAWindow) {
  auto& placed = mWindows.Place(kWindow, {10, 10, 20, 20});
  placed.visible.Subtract(Region(Clip{10, 10, 13, 20}));
  const Long window = mGraphics.GetDC(kWindow);
  const Long memory = MakeColor(8, 8, kGreen);
  std::vector<std::string> heard;
  const PaintObserver observer = [&heard](Long hwnd, const Rect& r, const char* operation) {
    heard.push_back(std::to_string(hwnd) + ' ' + operation + ' ' + std::to_string(r.left) + ' ' +
                    std::to_string(r.top) + ' ' + std::to_string(r.right) + ' ' + std::to_string(r.bottom));
  };
  EXPECT_EQ(mGraphics.SetPaintObserver(&observer), nullptr);

  mGraphics.BitBlt(window, 4, -2, 20, 6, memory, 0, 0, rop::kSrcCopy);  // the source ends at 12
  mGraphics.ColorKeyBlt(window, 4, 5, 90, 90, memory, 0, 0, kRed);
  mGraphics.DrawEdge(window, {5, 5, 40, 8}, 5, 15);
  Paint(window, {2, 2, 4, 4}, kRed);
  mGraphics.BitBlt(memory, 0, 0, 8, 8, window, 0, 0, rop::kSrcCopy);    // a memory context
  mGraphics.BitBlt(window, 0, 0, 3, 10, memory, 0, 0, rop::kSrcCopy);   // covered
  mGraphics.BitBlt(window, 0, 0, 5, 5, memory, 50, 50, rop::kSrcCopy);  // nothing to copy
  mGraphics.DrawEdge(window, {30, 30, 40, 40}, 5, 15);                  // beside the window
  mGraphics.FillRectangle(window, {0, 0, 9, 9}, kRed);                  // the host's canvas
  EXPECT_EQ(heard, (Lines{"100 BitBlt 4 0 10 4", "100 ColorKeyBlt 4 5 10 10", "100 DrawEdge 5 5 10 8",
                          "100 FillRect 2 2 4 4"}));

  EXPECT_EQ(mGraphics.SetPaintObserver(nullptr), &observer);
  Paint(window, {2, 2, 4, 4}, kRed);
  EXPECT_EQ(heard.size(), 4u);
}

}  // namespace
}  // namespace strandline::desk
