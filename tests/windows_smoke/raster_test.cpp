// The core's drawing on the system's own graphics.

#include <vector>

#include "check.h"
#include "drawing/BorderDrawingFunctions.h"
#include "drawing/ToolbarUtilities.h"
#include "drawing/color_key.h"
#include "stage.h"

namespace strandline::smoke {

namespace {

constexpr Long kBlack = 0;
constexpr Long kWhite = 0xFFFFFF;
constexpr Long kOutside = -1;

// A context with a bitmap, colour or one bit, of its own.
class Surface {
 public:
  Surface(Long width, Long height, bool mono = false) : mWidth(width), mHeight(height) {
    mHdc = platform::Graphics().CreateCompatibleDC(0);
    mBitmap = mono ? platform::Graphics().CreateBitmap(width, height, 1, 1)
                   : ToolbarUtilities::CreateDesktopCompatibleBitmap(static_cast<Integer>(width),
                                                                     static_cast<Integer>(height));
    mOld = platform::Graphics().SelectObject(mHdc, mBitmap);
    CHECK(mHdc != 0 && mBitmap != 0 && mOld != 0);
  }
  ~Surface() {
    CHECK_EQUAL(platform::Graphics().SelectObject(mHdc, mOld), mBitmap);
    CHECK(platform::Graphics().DeleteObject(mBitmap) != 0);
    CHECK(platform::Graphics().DeleteDC(mHdc) != 0);
  }
  Surface(const Surface&) = delete;
  Surface& operator=(const Surface&) = delete;

  Long Hdc() const { return mHdc; }
  Long At(Long x, Long y) const { return platform::Graphics().GetPixel(mHdc, x, y); }
  void Set(Long x, Long y, Long color) { Fill({x, y, x + 1, y + 1}, color); }
  void Fill(const Rect& area, Long color) {
    const Long brush = platform::Graphics().CreateSolidBrush(color);
    platform::Graphics().FillRect(mHdc, area, brush);
    platform::Graphics().DeleteObject(brush);
  }
  template <class ColorAt>
  void FillWith(ColorAt colorAt) {
    for (Long y = 0; y < mHeight; ++y) {
      for (Long x = 0; x < mWidth; ++x) Set(x, y, colorAt(x, y));
    }
  }
  // How many pixels differ from what they should be.
  template <class ColorAt>
  int Wrong(ColorAt colorAt) const {
    int wrong = 0;
    for (Long y = 0; y < mHeight; ++y) {
      for (Long x = 0; x < mWidth; ++x) wrong += At(x, y) != colorAt(x, y);
    }
    return wrong;
  }

 private:
  Long mWidth;
  Long mHeight;
  Long mHdc;
  Long mBitmap;
  Long mOld;
};

Long Icon(Long x, Long y) { return (x + y) % 3 == 0 ? kColorKey : (x * 0x1D + y * 0x0B07 + 0x010203) & kWhite; }
Long Ground(Long x, Long y) { return (0x336699 + x * 0x030000 + y * 0x0500) & kWhite; }

}  // namespace

SMOKE_TEST(Graphics_ANewMemoryContextHoldsOneMonochromePixel) {
  Stage stage;
  const Long hdc = platform::Graphics().CreateCompatibleDC(0);
  CHECK(platform::Graphics().GetPixel(hdc, 0, 0) != kOutside);
  CHECK_EQUAL(platform::Graphics().GetPixel(hdc, 1, 0), kOutside);
  CHECK(platform::Graphics().DeleteDC(hdc) != 0);
}

SMOKE_TEST(Graphics_NewBitmapsAreZero) {
  Stage stage;
  const auto black = [](Long, Long) { return kBlack; };
  CHECK_EQUAL(Surface(7, 5).Wrong(black), 0);
  CHECK_EQUAL(Surface(17, 5, true).Wrong(black), 0);
}

SMOKE_TEST(Graphics_ABitmapIsSelectedIntoOneContextAtATime) {
  Stage stage;
  Graphics& graphics = platform::Graphics();
  const Long first = graphics.CreateCompatibleDC(0);
  const Long second = graphics.CreateCompatibleDC(0);
  const Long bitmap = graphics.CreateBitmap(2, 2, 1, 1);
  const Long old = graphics.SelectObject(first, bitmap);
  CHECK(old != 0);
  CHECK_EQUAL(graphics.SelectObject(second, bitmap), 0);
  CHECK_EQUAL(graphics.SelectObject(first, old), bitmap);
  CHECK(graphics.SelectObject(second, bitmap) != 0);
  graphics.DeleteDC(first);
  graphics.DeleteDC(second);
  CHECK(graphics.DeleteObject(bitmap) != 0);
}

SMOKE_TEST(Graphics_ColourToMono_SetsThePixelsOfTheBackgroundColour) {
  Stage stage;
  Surface source(8, 6);
  source.FillWith(&Icon);
  Surface mask(8, 6, true);
  CHECK_EQUAL(platform::Graphics().SetBkColor(source.Hdc(), kColorKey), kWhite);
  CHECK(platform::Graphics().BitBlt(mask.Hdc(), 0, 0, 8, 6, source.Hdc(), 0, 0, rop::kSrcCopy) != 0);
  CHECK_EQUAL(mask.Wrong([](Long x, Long y) { return Icon(x, y) == kColorKey ? kWhite : kBlack; }), 0);
}

SMOKE_TEST(Graphics_MonoToColour_IsBlackForZeroAndWhiteForOne) {
  Stage stage;
  Surface mask(8, 6, true);
  mask.FillWith([](Long x, Long y) { return (x ^ y) & 1 ? kWhite : kBlack; });
  Surface target(8, 6);
  target.Fill({0, 0, 8, 6}, 0x123456);
  platform::Graphics().BitBlt(target.Hdc(), 0, 0, 8, 6, mask.Hdc(), 0, 0, rop::kSrcCopy);
  CHECK_EQUAL(target.Wrong([](Long x, Long y) { return (x ^ y) & 1 ? kWhite : kBlack; }), 0);
}

SMOKE_TEST(Graphics_PixelsOutsideTheSourceArentWritten) {
  Stage stage;
  Surface source(3, 3);
  source.Fill({0, 0, 3, 3}, 0x0000FF);
  Surface target(6, 4);
  target.FillWith(&Ground);
  platform::Graphics().BitBlt(target.Hdc(), 0, 0, 6, 4, source.Hdc(), 0, 0, rop::kSrcCopy);
  CHECK_EQUAL(target.Wrong([](Long x, Long y) { return x < 3 && y < 3 ? 0x0000FF : Ground(x, y); }), 0);
}

SMOKE_TEST(TransparentBlt_LeavesTheTargetWhereTheKeyIs) {
  Stage stage;
  Surface icon(16, 12);
  icon.FillWith(&Icon);
  Surface target(24, 20);
  target.FillWith(&Ground);
  ToolbarUtilities::TransparentBlt(target.Hdc(), 5, 4, 10, 8, icon.Hdc(), 3, 2);
  CHECK_EQUAL(target.Wrong([](Long x, Long y) {
    const bool inside = x >= 5 && x < 15 && y >= 4 && y < 12;
    const Long pixel = inside ? Icon(x - 5 + 3, y - 4 + 2) : kColorKey;
    return pixel == kColorKey ? Ground(x, y) : pixel;
  }),
              0);
}

SMOKE_TEST(TransparentBlt_BeyondTheSource_TurnsBlack) {
  Stage stage;
  Surface icon(4, 4);
  icon.FillWith(&Icon);
  Surface target(9, 9);
  target.FillWith(&Ground);
  ToolbarUtilities::TransparentBlt(target.Hdc(), 1, 1, 6, 6, icon.Hdc(), 0, 0);
  CHECK_EQUAL(target.Wrong([](Long x, Long y) {
    if (x < 1 || y < 1 || x >= 7 || y >= 7) return Ground(x, y);
    if (x >= 5 || y >= 5) return kBlack;
    return Icon(x - 1, y - 1) == kColorKey ? Ground(x, y) : Icon(x - 1, y - 1);
  }),
              0);
}

SMOKE_TEST(DrawBorder_DrawsTheSystemsEdges) {
  constexpr const char* kShape[] = {"AAAAAAAAAAAB", "ACCCCCCCCCDB", "AC........DB", "AC........DB",
                                    "AC........DB", "AC........DB", "ADDDDDDDDDDB", "BBBBBBBBBBBB"};
  struct Edge {
    Long type;
    Long colors[4];  // of A, B, C, D: numbers of system colours
  };
  constexpr Edge kEdges[] = {{BorderDrawingFunctions::kEdgeRaised, {22, 21, 20, 16}},
                             {BorderDrawingFunctions::kEdgeSunken, {16, 20, 21, 22}}};
  Stage stage;
  for (const Edge& edge : kEdges) {
    Surface target(12, 8);
    target.Fill({0, 0, 12, 8}, 0x00FFEE);
    BorderDrawingFunctions::DrawBorder(target.Hdc(), 0, 0, 12, 8, edge.type);
    CHECK_EQUAL(target.Wrong([&](Long x, Long y) {
      const char letter = kShape[y][x];
      return letter == '.' ? 0x00FFEE : platform::Graphics().GetSysColor(edge.colors[letter - 'A']);
    }),
                0);
  }
}

SMOKE_TEST(Paint_BeginPaintValidatesAndDrawsInTheWindow) {
  Stage stage;
  TestWindow window;
  Graphics& graphics = platform::Graphics();
  platform::Windows().DoEvents();
  window.Invalidate();
  PaintStruct paint;
  const Long hdc = graphics.BeginPaint(window.Hwnd(), paint);
  CHECK(hdc != 0);
  CHECK_EQUAL(paint.hdc, hdc);
  CHECK(paint.rcPaint == (Rect{0, 0, 120, 80}));
  const Long brush = graphics.CreateSolidBrush(0x0A14C8);
  graphics.FillRect(hdc, {0, 0, 20, 10}, brush);
  graphics.DeleteObject(brush);
  CHECK(graphics.EndPaint(window.Hwnd(), paint) != 0);
  const Long windowHdc = graphics.GetDC(window.Hwnd());
  CHECK_EQUAL(graphics.GetPixel(windowHdc, 19, 9), 0x0A14C8);
  CHECK(graphics.GetPixel(windowHdc, 20, 9) != 0x0A14C8);
  graphics.ReleaseDC(window.Hwnd(), windowHdc);
  TestWindow::paints = 0;
  platform::Windows().DoEvents();
  CHECK_EQUAL(TestWindow::paints, 0);
}

SMOKE_TEST(Regions_UniteUnderOneHandle) {
  Stage stage;
  Graphics& graphics = platform::Graphics();
  constexpr Long kOr = 2;
  constexpr Long kComplex = 3;
  const Long whole = graphics.CreateRectRgn(0, 0, 5, 1);
  const Long line = graphics.CreateRectRgn(3, 1, 9, 2);
  CHECK_EQUAL(graphics.CombineRgn(whole, whole, line, kOr), kComplex);
  CHECK(graphics.DeleteObject(line) != 0);
  CHECK(graphics.DeleteObject(whole) != 0);
}

}  // namespace strandline::smoke
