// Invalid windows, paints, and windows' own pixels.

#include "tests/contract/window_contract.h"

namespace strandline::contract {
namespace {

class PaintContract : public WindowContract {
 protected:
  void Fill(Long hdc, const Rect& area, Long color) {
    const Long brush = graphics.CreateSolidBrush(color);
    EXPECT_NE(graphics.FillRect(hdc, area, brush), 0);
    EXPECT_NE(graphics.DeleteObject(brush), 0);
  }
  void FillWindow(Long hwnd, const Rect& area, Long color) {
    const Long hdc = graphics.GetDC(hwnd);
    Fill(hdc, area, color);
    EXPECT_NE(graphics.ReleaseDC(hwnd, hdc), 0);
  }
  Long PixelOf(Long hwnd, Long x, Long y) {
    const Long hdc = graphics.GetDC(hwnd);
    const Long color = graphics.GetPixel(hdc, x, y);
    graphics.ReleaseDC(hwnd, hdc);
    return color;
  }
  // Each paint fills what it may with the colour and keeps what it was given.
  void PaintWith(Long color) {
    handler = [this, color](Long hwnd, Long message, Long wParam, Long lParam) {
      if (message != wm::kPaint) return Host().DefaultProcedure(hwnd, message, wParam, lParam);
      const Long hdc = graphics.BeginPaint(hwnd, paint);
      EXPECT_NE(hdc, 0);
      EXPECT_EQ(paint.hdc, hdc);
      Fill(hdc, {0, 0, 1000, 1000}, color);
      EXPECT_NE(graphics.EndPaint(hwnd, paint), 0);
      return Long{0};
    };
  }

  PaintStruct paint;
};

TEST_F(PaintContract, AShownWindow_IsToBePaintedWhole) {
  PaintWith(kRed);
  const Long hwnd = Open(u"one");
  windows.DoEvents();
  EXPECT_EQ(Count("one 15"), 1);
  EXPECT_EQ(paint.rcPaint, (Rect{0, 0, 120, 80}));
  EXPECT_EQ(PixelOf(hwnd, 0, 0), kRed);
  EXPECT_EQ(PixelOf(hwnd, 119, 79), kRed);
}

TEST_F(PaintContract, AHiddenWindow_Isnt) {
  const Long hwnd = Hidden(u"one");
  Host().InvalidateWindow(hwnd);
  windows.DoEvents();
  EXPECT_EQ(Count("one 15"), 0);
}

TEST_F(PaintContract, BeginPaint_Validates) {
  const Long hwnd = Open(u"one");
  Settle();
  PaintWith(kGreen);
  Host().InvalidateWindow(hwnd);
  windows.DoEvents();
  windows.DoEvents();
  EXPECT_EQ(Count("one 15"), 1);
}

TEST_F(PaintContract, InvalidatedTwice_IsPaintedOnce) {
  const Long hwnd = Open(u"one");
  Settle();
  PaintWith(kGreen);
  Host().InvalidateWindow(hwnd);
  Host().InvalidateWindow(hwnd);
  windows.DoEvents();
  EXPECT_EQ(Count("one 15"), 1);
}

TEST_F(PaintContract, AWindowThatDoesntValidate_IsAskedAgainAndAgain) {
  const Long hwnd = Open(u"one");
  Settle();
  bool answers = false;
  handler = [&](Long window, Long message, Long wParam, Long lParam) {
    if (message == wm::kPaint && !answers) return Long{0};
    return Host().DefaultProcedure(window, message, wParam, lParam);
  };
  Host().InvalidateWindow(hwnd);
  Message message;
  for (int i = 0; i < 200 && log.size() < 5; ++i) {
    ASSERT_NE(windows.GetMessageA(message), 0);
    windows.DispatchMessageA(message);
  }
  EXPECT_EQ(log, Log(5, "one 15"));
  answers = true;
  windows.DoEvents();
  log.clear();
  windows.DoEvents();
  EXPECT_TRUE(log.empty());
}

TEST_F(PaintContract, WhatWasRevealed_IsPaintedAlone) {
  const Long top = Open(u"top");
  const Long lower = Open(u"lower", {60, 50, 160, 110}, top);
  const Long upper = Open(u"upper", {80, 60, 100, 75}, top);
  PaintWith(kRed);
  Settle();
  FillWindow(lower, {0, 0, 100, 60}, kBlue);
  PaintWith(kGreen);
  windows.ShowWindow(upper, 0);
  windows.DoEvents();
  EXPECT_EQ(Count("lower 15"), 1);
  EXPECT_EQ(Count("top 15"), WINE_DIFFERS(0, 1)) << "what a child covers isn't its parent's to paint";
  EXPECT_EQ(paint.rcPaint, (Rect{20, 10, 40, 25}));
  EXPECT_EQ(PixelOf(lower, 20, 10), kGreen);
  EXPECT_EQ(PixelOf(lower, 39, 24), kGreen);
  EXPECT_EQ(PixelOf(lower, 19, 10), kBlue);
  EXPECT_EQ(PixelOf(lower, 40, 24), kBlue);
}

TEST_F(PaintContract, AWindow_DrawsNeitherOverItsChildrenNorOverSiblingsAbove) {
  PaintWith(kBlack);
  const Long top = Open(u"top");
  const Long lower = Open(u"lower", {60, 50, 160, 110}, top);
  const Long upper = Open(u"upper", {80, 60, 100, 75}, top);
  Settle();
  FillWindow(upper, {0, 0, 20, 15}, kBlue);
  FillWindow(lower, {0, 0, 100, 60}, kGreen);
  FillWindow(top, {0, 0, 120, 80}, kRed);
  EXPECT_EQ(PixelOf(upper, 5, 5), kBlue);
  EXPECT_EQ(PixelOf(lower, 5, 5), kGreen);
  EXPECT_EQ(PixelOf(top, 5, 5), kRed);
  // Where a window can't draw it has no colour either.
  EXPECT_EQ(PixelOf(lower, 25, 15), WINE_DIFFERS(-1, kBlue));
  EXPECT_EQ(PixelOf(top, 15, 15), WINE_DIFFERS(-1, kGreen));
}

TEST_F(PaintContract, AChangeOfSize_InvalidatesAll) {
  const Long hwnd = Open(u"one");
  Settle();
  PaintWith(kRed);
  Host().MoveWindow(hwnd, {50, 40, 150, 140});
  windows.DoEvents();
  EXPECT_EQ(paint.rcPaint, (Rect{0, 0, 100, 100}));
  EXPECT_EQ(PixelOf(hwnd, 99, 99), kRed);
}

TEST_F(PaintContract, AMovedChild_PaintsAnewAndItsFormerPlaceToo) {
  PaintWith(kRed);
  const Long top = Open(u"top");
  const Long child = Open(u"child", {60, 50, 80, 60}, top);
  Settle();
  Host().MoveWindow(child, {70, 50, 90, 60});
  windows.DoEvents();
  EXPECT_EQ(Count("child 15"), 1);
  EXPECT_EQ(Count("top 15"), 1);
  EXPECT_EQ(PixelOf(child, 0, 0), kRed);
}

TEST_F(PaintContract, AWindowsPixels_AreItsOwnAndCanBeCopied) {
  PaintWith(kRed);
  const Long top = Open(u"top");
  const Long child = Open(u"child", {60, 50, 80, 60}, top);
  Settle();
  FillWindow(child, {3, 4, 6, 7}, kGreen);
  const Long source = graphics.GetDC(child);
  const Long memory = graphics.CreateCompatibleDC(source);
  const Long bitmap = graphics.CreateCompatibleBitmap(source, 20, 10);
  const Long former = graphics.SelectObject(memory, bitmap);
  EXPECT_NE(graphics.BitBlt(memory, 0, 0, 20, 10, source, 0, 0, rop::kSrcCopy), 0);
  for (Long y = 0; y < 10; ++y) {
    for (Long x = 0; x < 20; ++x) {
      const bool inside = x >= 3 && x < 6 && y >= 4 && y < 7;
      ASSERT_EQ(graphics.GetPixel(memory, x, y), inside ? kGreen : kRed) << x << ' ' << y;
    }
  }
  EXPECT_EQ(graphics.GetPixel(source, 20, 0), -1);
  EXPECT_EQ(graphics.GetPixel(source, 0, -1), -1);
  graphics.SelectObject(memory, former);
  graphics.DeleteObject(bitmap);
  graphics.DeleteDC(memory);
  graphics.ReleaseDC(child, source);
}

TEST_F(PaintContract, AskedToPrint_AWindowDrawsIntoTheGivenContext) {
  constexpr Long kClientEraseChildren = 14;
  const Long hwnd = Open(u"one");
  const Long memory = graphics.CreateCompatibleDC(0);
  const Long bitmap = graphics.CreateBitmap(10, 10, 1, 32);
  const Long former = graphics.SelectObject(memory, bitmap);
  Long flags = 0;
  handler = [&](Long window, Long message, Long wParam, Long lParam) {
    if (message != wm::kPrint) return Host().DefaultProcedure(window, message, wParam, lParam);
    flags = lParam;
    Fill(wParam, {2, 2, 5, 5}, kBlue);
    return Long{1};
  };
  EXPECT_EQ(windows.SendMessageA(hwnd, wm::kPrint, memory, kClientEraseChildren), 1);
  EXPECT_EQ(flags, 14);
  EXPECT_EQ(graphics.GetPixel(memory, 2, 2), kBlue);
  EXPECT_EQ(graphics.GetPixel(memory, 5, 5), kBlack);
  graphics.SelectObject(memory, former);
  graphics.DeleteObject(bitmap);
  graphics.DeleteDC(memory);
}

TEST_F(PaintContract, OfNoWindow_ThereIsNothingToPaint) {
  const Long hwnd = Open(u"one");
  Host().DestroyWindow(hwnd);
  PaintStruct none;
  none.hdc = 4711;
  EXPECT_EQ(graphics.BeginPaint(hwnd, none), 0);
  EXPECT_EQ(none.hdc, 4711);
}

}  // namespace
}  // namespace strandline::contract
