// The host's canvas and its font.

#include <limits>
#include <set>

#include "platform/looks/bitmap_font.h"
#include "tests/desk/graphics_fixture.h"

namespace strandline::desk {
namespace {

// Each row of what the context holds as one letter per pixel: '#' where it isn't black.
std::vector<std::string> Ink(SoftwareGraphics& graphics, Long hdc, int width, int height) {
  std::vector<std::string> rows;
  for (int y = 0; y < height; ++y) {
    std::string row;
    for (int x = 0; x < width; ++x) row += graphics.GetPixel(hdc, x, y) == 0 ? '.' : '#';
    rows.push_back(row);
  }
  return rows;
}

TEST(BitmapFont, EveryPrintableCharacterHasAGlyphOfItsOwn) {
  std::set<std::array<std::uint16_t, Glyph::kRows>> shapes;
  for (char16_t c = u'!'; c <= u'~'; ++c) {
    const Glyph& glyph = GlyphOf(c);
    EXPECT_GT(glyph.width, 0) << char(c);
    EXPECT_LE(glyph.width, 9) << char(c);
    std::uint16_t columns = 0;
    for (const std::uint16_t row : glyph.rows) columns |= row;
    // Drawn from the first column to the last, so that the gap between glyphs is even.
    EXPECT_TRUE(columns & 1) << char(c);
    EXPECT_EQ(columns >> (glyph.width - 1), 1) << char(c);
    EXPECT_TRUE(shapes.insert(glyph.rows).second) << char(c) << " looks like another";
  }
}

TEST(BitmapFont, OtherCharactersAreABox) {
  for (const char16_t c : {u'\0', u'\x1F', u'\x7F', u'ж', u'\xFFFF'}) EXPECT_EQ(&GlyphOf(c), &GlyphOf(u'漢'));
  EXPECT_NE(&GlyphOf(u' '), &GlyphOf(u'漢'));
}

TEST(BitmapFont, CapitalsAndDigitsStandOnTheBaseLineEightHigh) {
  for (const char16_t c : std::u16string(u"ABCDEFGHIJKLMNOPRSTUVWXYZ0123456789")) {
    const Glyph& glyph = GlyphOf(c);
    EXPECT_NE(glyph.rows[0], 0) << char(c);
    EXPECT_NE(glyph.rows[7], 0) << char(c);
    EXPECT_EQ(glyph.rows[8], 0) << char(c);
  }
  for (const char16_t c : std::u16string(u"0123456789")) EXPECT_EQ(GlyphOf(c).width, 5) << char(c);
}

TEST_F(GraphicsTest, DrawTextLine_DrawsGlyphsSideBySide) {
  const Long hdc = MakeColor(10, 13, kBlack);
  mGraphics.DrawTextLine(hdc, 1, 0, u"Lt", kRed);
  EXPECT_EQ(Ink(mGraphics, hdc, 10, 13),
            (Lines{"..........", "..........", ".#........", ".#....#...", ".#....###.", ".#....#...", ".#....#...",
                   ".#....#...", ".#....#...", ".####..##.", "..........", "..........", ".........."}));
  EXPECT_EQ(mGraphics.GetPixel(hdc, 1, 2), kRed);
  EXPECT_EQ(mGraphics.TextWidth(u"Lt"), 9);
  EXPECT_EQ(mGraphics.TextWidth(u"L\u00e9"), mGraphics.TextWidth(u"Le")) << "an accented letter is its bare one";
  EXPECT_EQ(mGraphics.TextWidth(u""), 0);
  EXPECT_EQ(mGraphics.TextHeight(), 13);
}

TEST_F(GraphicsTest, DrawTextLine_IsClipped) {
  auto& placed = mWindows.Place(kWindow, {0, 0, 20, 10});
  placed.visible.Subtract(Region(Clip{0, 5, 20, 10}));
  const Long hdc = mGraphics.GetDC(kWindow);
  mGraphics.DrawTextLine(hdc, -3, 0, u"HHHHHHHHHHHHH", kWhite);
  for (int y = 0; y < 30; ++y) {
    for (int x = 0; x < 40; ++x) {
      EXPECT_TRUE(*mScreen.At(x, y) == 0 || (x < 20 && y >= 2 && y < 5)) << x << ' ' << y;
    }
  }
  EXPECT_NE(*mScreen.At(4, 2), 0u);
  mGraphics.DrawTextLine(hdc, std::numeric_limits<Long>::max(), std::numeric_limits<Long>::min(), u"far", kWhite);
}

TEST_F(GraphicsTest, FillGradient_RunsFromTopToBottom) {
  const Long hdc = MakeColor(2, 5, kRed);
  mGraphics.FillGradient(hdc, {0, 0, 1, 5}, 0x000000, 0x0A1428);
  const Long expected[] = {0x000000, 0x03050A, 0x050A14, 0x080F1E, 0x0A1428};
  for (Long y = 0; y < 5; ++y) EXPECT_EQ(mGraphics.GetPixel(hdc, 0, y), expected[y]) << y;
  EXPECT_EQ(mGraphics.GetPixel(hdc, 1, 0), kRed);
  mGraphics.FillGradient(hdc, {1, 2, 2, 3}, kGreen, kBlue);
  EXPECT_EQ(mGraphics.GetPixel(hdc, 1, 2), kGreen);
  mGraphics.FillGradient(hdc, {1, 3, 2, 3}, kGreen, kBlue);
  EXPECT_EQ(mGraphics.GetPixel(hdc, 1, 3), kRed);
}

TEST_F(GraphicsTest, FillGradient_PartlyOutsideKeepsItsSlope) {
  const Long hdc = MakeColor(1, 3, kRed);
  mGraphics.FillGradient(hdc, {0, -1, 1, 4}, 0x000000, 0x0A1428);
  EXPECT_EQ(mGraphics.GetPixel(hdc, 0, 0), 0x03050A);
  EXPECT_EQ(mGraphics.GetPixel(hdc, 0, 2), 0x080F1E);
}

TEST_F(GraphicsTest, DrawBitmap_CentresWithoutItsKey) {
  const Long source = MakeColor(3, 1, kGreen);
  Paint(source, {1, 0, 2, 1}, kRed);
  const Long bitmap = Objects().Find<Context>(source)->bitmap;
  const Long hdc = MakeColor(7, 3, kBlack);
  mGraphics.DrawBitmap(hdc, {0, 0, 7, 3}, bitmap, kRed);
  EXPECT_EQ(Ink(mGraphics, hdc, 7, 3), (Lines{".......", "..#.#..", "......."}));
  mGraphics.DrawBitmap(hdc, {0, 2, 7, 3}, bitmap, -1);
  EXPECT_EQ(mGraphics.GetPixel(hdc, 3, 2), kRed);
}

TEST_F(GraphicsTest, DrawBitmap_LargerThanItsPlaceIsCut) {
  const Long bitmap = Objects().Find<Context>(MakeColor(20, 20, kGreen))->bitmap;
  const Long hdc = MakeColor(5, 3, kBlack);
  mGraphics.DrawBitmap(hdc, {1, 1, 3, 2}, bitmap, kRed);
  EXPECT_EQ(Ink(mGraphics, hdc, 5, 3), (Lines{".....", ".##..", "....."}));
  mGraphics.DrawBitmap(hdc, {3, 2, 1, 1}, bitmap, kRed);
  EXPECT_EQ(Ink(mGraphics, hdc, 5, 3)[2], ".....");
}

TEST_F(GraphicsTest, DrawBitmap_OfOneBitIsBlackAndWhite) {
  const Long mono = MakeMono(2, 1);
  Paint(mono, {1, 0, 2, 1}, kWhite);
  const Long hdc = MakeColor(2, 1, kRed);
  mGraphics.DrawBitmap(hdc, {0, 0, 2, 1}, Objects().Find<Context>(mono)->bitmap, -1);
  EXPECT_EQ(mGraphics.GetPixel(hdc, 0, 0), kBlack);
  EXPECT_EQ(mGraphics.GetPixel(hdc, 1, 0), kWhite);
}

TEST_F(GraphicsTest, Canvas_WithDeadHandlesDrawsNothing) {
  const Long hdc = MakeColor(2, 2, kRed);
  mGraphics.FillRectangle(77, {0, 0, 2, 2}, kBlue);
  mGraphics.FillGradient(77, {0, 0, 2, 2}, kBlue, kBlue);
  mGraphics.DrawTextLine(77, 0, 0, u"HH", kBlue);
  mGraphics.DrawBitmap(hdc, {0, 0, 2, 2}, 77, kBlue);
  EXPECT_EQ(mGraphics.GetPixel(hdc, 0, 0), kRed);
  EXPECT_EQ(Misused().size(), 4u);
}

}  // namespace
}  // namespace strandline::desk
