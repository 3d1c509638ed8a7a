// Contexts, bitmaps and regions: what is made, selected, refused and ended.

#include "tests/contract/surface.h"

namespace strandline::contract {
namespace {

using BitmapContract = Contract;

constexpr Long kNoHandle = 0x7FFFFFF0;

TEST_F(BitmapContract, ANewMemoryContext_HoldsOneBlackPixelOfOneBit) {
  const Long hdc = graphics.CreateCompatibleDC(0);
  ASSERT_NE(hdc, 0);
  EXPECT_EQ(graphics.GetPixel(hdc, 0, 0), kBlack);
  for (const Point& outside : {Point{1, 0}, Point{0, 1}, Point{-1, 0}}) {
    EXPECT_EQ(graphics.GetPixel(hdc, outside.x, outside.y), -1);
  }
  const Long bitmap = graphics.CreateCompatibleBitmap(hdc, 4, 4);
  ASSERT_NE(bitmap, 0);
  const Long former = graphics.SelectObject(hdc, bitmap);
  const Long brush = graphics.CreateSolidBrush(kWhite);
  graphics.FillRect(hdc, {0, 0, 2, 2}, brush);
  EXPECT_EQ(graphics.GetPixel(hdc, 0, 0), kWhite);
  EXPECT_EQ(graphics.GetPixel(hdc, 2, 2), kBlack);
  // Compatible with one bit is one bit: a colour is black or white there.
  Surface colored(4, 4);
  colored.Fill({0, 0, 4, 4}, kRed);
  graphics.BitBlt(hdc, 0, 0, 4, 4, colored.Hdc(), 0, 0, rop::kSrcCopy);
  EXPECT_EQ(graphics.GetPixel(hdc, 0, 0), kBlack);
  graphics.SelectObject(hdc, former);
  EXPECT_NE(graphics.DeleteObject(brush), 0);
  EXPECT_NE(graphics.DeleteObject(bitmap), 0);
  EXPECT_NE(graphics.DeleteDC(hdc), 0);
  EXPECT_EQ(graphics.DeleteDC(hdc), 0);
}

TEST_F(BitmapContract, MemoryContexts_BeginWithTheSameBitmap) {
  const Long one = graphics.CreateCompatibleDC(0);
  const Long two = graphics.CreateCompatibleDC(0);
  const Long bitmap = graphics.CreateBitmap(1, 1, 1, 1);
  const Long second = graphics.CreateBitmap(1, 1, 1, 1);
  const Long ofOne = graphics.SelectObject(one, bitmap);
  const Long ofTwo = graphics.SelectObject(two, second);
  EXPECT_NE(ofOne, 0);
  EXPECT_EQ(ofOne, ofTwo);
  EXPECT_EQ(graphics.SelectObject(one, ofOne), bitmap);
  EXPECT_EQ(graphics.SelectObject(two, ofTwo), second);
  for (const Long object : {bitmap, second}) EXPECT_NE(graphics.DeleteObject(object), 0);
  for (const Long hdc : {one, two}) EXPECT_NE(graphics.DeleteDC(hdc), 0);
}

TEST_F(BitmapContract, ANewBitmap_IsAllZero) {
  for (const bool mono : {false, true}) {
    Surface surface(37, 21, mono);
    EXPECT_EQ(surface.Wrong([](Long, Long) { return kBlack; }), 0) << mono;
    EXPECT_EQ(surface.At(37, 20), -1);
    EXPECT_EQ(surface.At(36, 21), -1);
  }
}

TEST_F(BitmapContract, ABitmap_IsSelectedIntoOneContextAtATime) {
  const Long first = graphics.CreateCompatibleDC(0);
  const Long second = graphics.CreateCompatibleDC(0);
  const Long bitmap = graphics.CreateBitmap(3, 3, 1, 32);
  const Long former = graphics.SelectObject(first, bitmap);
  EXPECT_NE(former, 0);
  EXPECT_EQ(graphics.SelectObject(second, bitmap), 0);
  EXPECT_EQ(graphics.SelectObject(first, former), bitmap);
  EXPECT_EQ(graphics.SelectObject(second, bitmap), former);
  EXPECT_NE(graphics.DeleteDC(second), 0);
  EXPECT_EQ(graphics.SelectObject(first, bitmap), former) << "its context is gone, so it is free";
  graphics.SelectObject(first, former);
  EXPECT_NE(graphics.DeleteObject(bitmap), 0);
  EXPECT_NE(graphics.DeleteDC(first), 0);
}

TEST_F(BitmapContract, WhatCantBeSelected_IsRefused) {
  const Long memory = graphics.CreateCompatibleDC(0);
  const Long screen = graphics.GetDC(0);
  ASSERT_NE(screen, 0);
  const Long bitmap = graphics.CreateBitmap(3, 3, 1, 32);
  EXPECT_EQ(graphics.SelectObject(screen, bitmap), 0) << "bitmaps go into memory contexts";
  EXPECT_EQ(graphics.SelectObject(memory, 0), 0);
  EXPECT_EQ(graphics.SelectObject(memory, kNoHandle), 0);
  EXPECT_EQ(graphics.SelectObject(kNoHandle, bitmap), 0);
  EXPECT_NE(graphics.DeleteObject(bitmap), 0);
  EXPECT_EQ(graphics.SelectObject(memory, bitmap), 0);
  EXPECT_EQ(graphics.DeleteObject(bitmap), 0);
  EXPECT_EQ(graphics.DeleteObject(0), 0);
  EXPECT_NE(graphics.ReleaseDC(0, screen), 0);
  EXPECT_NE(graphics.DeleteDC(memory), 0);
}

TEST_F(BitmapContract, ABitmapWithoutPixels_IsTheOneThatContextsBeginWith) {
  const Long empty = graphics.CreateBitmap(0, 5, 1, 32);
  EXPECT_NE(empty, 0);
  EXPECT_EQ(graphics.CreateBitmap(5, 0, 1, 1), empty);
  EXPECT_NE(graphics.DeleteObject(empty), 0);
  const Long hdc = graphics.CreateCompatibleDC(0);
  const Long bitmap = graphics.CreateBitmap(2, 2, 1, 1);
  EXPECT_EQ(graphics.SelectObject(hdc, bitmap), empty);
  graphics.SelectObject(hdc, empty);
  graphics.DeleteObject(bitmap);
  graphics.DeleteDC(hdc);
  EXPECT_EQ(graphics.CreateCompatibleBitmap(kNoHandle, 4, 4), 0);
  EXPECT_EQ(graphics.CreateCompatibleDC(kNoHandle), 0);
}

TEST_F(BitmapContract, Regions_CombineUnderOneHandle) {
  constexpr Long kAnd = 1;
  constexpr Long kOr = 2;
  constexpr Long kXor = 3;
  constexpr Long kDifference = 4;
  constexpr Long kCopy = 5;
  constexpr Long kNull = 1;
  constexpr Long kSimple = 2;
  constexpr Long kComplex = 3;
  struct Case {
    Rect first;
    Rect second;
    Long mode;
    Long kind;
  };
  constexpr Case kCases[] = {
      {{0, 0, 5, 1}, {3, 1, 9, 2}, kOr, kComplex},        {{0, 0, 5, 1}, {0, 1, 5, 2}, kOr, kSimple},
      {{0, 0, 5, 5}, {2, 2, 9, 9}, kAnd, kSimple},        {{0, 0, 5, 5}, {5, 0, 9, 5}, kAnd, kNull},
      {{0, 0, 5, 5}, {0, 0, 5, 5}, kXor, kNull},          {{0, 0, 5, 5}, {2, 2, 3, 3}, kDifference, kComplex},
      {{0, 0, 5, 5}, {0, 0, 5, 2}, kDifference, kSimple}, {{0, 0, 5, 5}, {7, 7, 7, 9}, kCopy, kSimple},
      {{5, 5, 0, 0}, {0, 0, 5, 5}, kXor, kNull},          {{3, 3, 3, 9}, {0, 0, 0, 0}, kOr, kNull},
  };
  for (const Case& entry : kCases) {
    const Rect& a = entry.first;
    const Rect& b = entry.second;
    const Long whole = graphics.CreateRectRgn(a.left, a.top, a.right, a.bottom);
    const Long part = graphics.CreateRectRgn(b.left, b.top, b.right, b.bottom);
    EXPECT_EQ(graphics.CombineRgn(whole, whole, part, entry.mode), entry.kind) << &entry - kCases;
    EXPECT_NE(graphics.DeleteObject(part), 0);
    EXPECT_EQ(graphics.CombineRgn(whole, whole, part, kOr), 0) << "the other one is gone";
    EXPECT_NE(graphics.DeleteObject(whole), 0);
    EXPECT_EQ(graphics.DeleteObject(whole), 0);
  }
}

TEST_F(BitmapContract, SystemColours_AreColoursAndFillByTheirNumber) {
  Surface surface(2, 1);
  for (const Long index : {4, 5, 15, 16, 20, 21, 22}) {
    const Long color = graphics.GetSysColor(index);
    EXPECT_EQ(color & 0xFFFFFF, color) << index;
    surface.Fill({0, 0, 2, 1}, color ^ 0xFFFFFF);
    EXPECT_NE(graphics.FillRect(surface.Hdc(), {0, 0, 1, 1}, index + 1), 0);
    EXPECT_EQ(surface.At(0, 0), color) << index;
    EXPECT_EQ(surface.At(1, 0), color ^ 0xFFFFFF) << index;
  }
  EXPECT_EQ(graphics.GetSysColor(-1), 0);
  EXPECT_EQ(graphics.GetSysColor(31), 0);
}

}  // namespace
}  // namespace strandline::contract
