// The host's canvas: the same pixels in both worlds.

#include <string>

#include "platform/looks/bitmap_font.h"
#include "tests/contract/surface.h"
#include "tests/contract/window_contract.h"

namespace strandline::contract {
namespace {

using CanvasContract = WindowContract;

TEST_F(CanvasContract, Fills_TakeWhatIsInside) {
  Surface surface(6, 5);
  surface.Fill({0, 0, 6, 5}, kRed);
  Canvas().FillRectangle(surface.Hdc(), {2, 1, 4, 3}, kGreen);
  Canvas().FillRectangle(surface.Hdc(), {4, 3, 2, 1}, kBlue);
  Canvas().FillRectangle(surface.Hdc(), {-0x7FFFFFFF, 4, 0x7FFFFFFF, 0x7FFFFFFF}, kBlue);
  EXPECT_EQ(surface.Wrong([](Long x, Long y) {
    if (y == 4) return kBlue;
    return x >= 2 && x < 4 && y >= 1 && y < 3 ? kGreen : kRed;
  }),
            0);
}

TEST_F(CanvasContract, Gradients_RunFromTopToBottomAndKeepTheirSlope) {
  constexpr Long kRows[] = {0x000000, 0x03050A, 0x050A14, 0x080F1E, 0x0A1428};
  Surface surface(3, 5);
  Canvas().FillGradient(surface.Hdc(), {0, 0, 1, 5}, 0x000000, 0x0A1428);
  Canvas().FillGradient(surface.Hdc(), {1, -2, 2, 3}, 0x000000, 0x0A1428);
  Canvas().FillGradient(surface.Hdc(), {2, 1, 3, 2}, kGreen, kBlue);
  EXPECT_EQ(surface.Wrong([&](Long x, Long y) {
    if (x == 0) return kRows[y];
    if (x == 1) return y < 3 ? kRows[y + 2] : kBlack;
    return y == 1 ? kGreen : kBlack;
  }),
            0);
}

TEST_F(CanvasContract, Text_IsDrawnGlyphBesideGlyph) {
  const String text = u"Az9 \u00E9~\u4E2D";
  const Long width = Canvas().TextWidth(text);
  EXPECT_EQ(Canvas().TextHeight(), 13);
  std::vector<std::u16string> ink(static_cast<std::size_t>(Canvas().TextHeight()));
  for (const char16_t character : text.View()) {
    const Glyph& glyph = GlyphOf(character);
    for (Long y = 0; y < 13; ++y) {
      for (Long x = 0; x <= glyph.width; ++x) {
        const bool set = y >= 2 && y < 12 && x < glyph.width && (glyph.rows[static_cast<std::size_t>(y - 2)] >> x & 1);
        ink[static_cast<std::size_t>(y)] += set ? u'#' : u'.';
      }
    }
  }
  ASSERT_EQ(static_cast<Long>(ink[0].size()), width);
  Surface surface(width + 4, 16);
  surface.Fill({0, 0, width + 4, 16}, kWhite);
  Canvas().DrawTextLine(surface.Hdc(), 3, 2, text, kBlue);
  EXPECT_EQ(surface.Wrong([&](Long x, Long y) {
    const bool inside = x >= 3 && x < width + 3 && y >= 2 && y < 15;
    return inside && ink[static_cast<std::size_t>(y - 2)][static_cast<std::size_t>(x - 3)] == u'#' ? kBlue : kWhite;
  }),
            0);
}

TEST_F(CanvasContract, ABitmap_IsCentredWithoutItsKeyAndCut) {
  Surface source(3, 1);
  source.Fill({0, 0, 3, 1}, kGreen);
  source.Set(1, 0, kRed);
  struct Case {
    Rect place;
    Long key;
    std::vector<std::string> shown;
  };
  const Case cases[] = {
      {{0, 0, 7, 3}, kRed, {".......", "..g.g..", "......."}},  {{0, 0, 7, 3}, -1, {".......", "..grg..", "......."}},
      {{1, 2, 3, 3}, kBlue, {".......", ".......", ".gr...."}}, {{5, 0, 9, 1}, kRed, {".....g.", ".......", "......."}},
      {{3, 2, 1, 1}, kRed, {".......", ".......", "......."}},
  };
  for (const Case& entry : cases) {
    Surface target(7, 3);
    Canvas().DrawBitmap(target.Hdc(), entry.place, source.Bitmap(), entry.key);
    EXPECT_EQ(target.Wrong([&](Long x, Long y) {
      const char letter = entry.shown[static_cast<std::size_t>(y)][static_cast<std::size_t>(x)];
      return letter == 'g' ? kGreen : letter == 'r' ? kRed : kBlack;
    }),
              0)
        << &entry - cases;
  }
}

TEST_F(CanvasContract, ABitmapOfOneBit_IsBlackAndWhite) {
  Surface mono(2, 1, true);
  mono.Set(1, 0, kWhite);
  Surface target(2, 1);
  target.Fill({0, 0, 2, 1}, kRed);
  Canvas().DrawBitmap(target.Hdc(), {0, 0, 2, 1}, mono.Bitmap(), -1);
  EXPECT_EQ(target.At(0, 0), kBlack);
  EXPECT_EQ(target.At(1, 0), kWhite);
}

TEST_F(CanvasContract, IntoAPaint_ReachesTheWindow) {
  handler = [&](Long hwnd, Long message, Long wParam, Long lParam) {
    if (message != wm::kPaint) return Host().DefaultProcedure(hwnd, message, wParam, lParam);
    PaintStruct paint;
    const Long hdc = graphics.BeginPaint(hwnd, paint);
    Canvas().FillRectangle(hdc, {0, 0, 20, 13}, kWhite);
    Canvas().DrawTextLine(hdc, 0, 0, u"L", kBlue);
    graphics.EndPaint(hwnd, paint);
    return Long{0};
  };
  const Long top = Open(u"top");
  const Long child = Open(u"child", {60, 50, 80, 63}, top);
  windows.DoEvents();
  const Long hdc = graphics.GetDC(child);
  EXPECT_EQ(graphics.GetPixel(hdc, 0, 2), kBlue);
  EXPECT_EQ(graphics.GetPixel(hdc, 0, 1), kWhite);
  EXPECT_EQ(graphics.GetPixel(hdc, 19, 12), kWhite);
  graphics.ReleaseDC(child, hdc);
}

TEST_F(CanvasContract, WithDeadHandles_DrawsNothing) {
  constexpr Long kNoHandle = 0x7FFFFFF0;
  Surface surface(2, 2);
  Canvas().FillRectangle(kNoHandle, {0, 0, 2, 2}, kBlue);
  Canvas().FillGradient(kNoHandle, {0, 0, 2, 2}, kBlue, kBlue);
  Canvas().DrawTextLine(kNoHandle, 0, 0, u"HH", kBlue);
  Canvas().DrawBitmap(surface.Hdc(), {0, 0, 2, 2}, kNoHandle, kBlue);
  Canvas().DrawBitmap(kNoHandle, {0, 0, 2, 2}, surface.Bitmap(), kBlue);
  EXPECT_EQ(surface.Wrong([](Long, Long) { return kBlack; }), 0);
}

}  // namespace
}  // namespace strandline::contract
