// Copies between contexts, fillings and edges, pixel by pixel.

#include "tests/contract/surface.h"

namespace strandline::contract {
namespace {

using CopyContract = Contract;

constexpr Long kKey = 0xC0DCC0;

Long Icon(Long x, Long y) { return (x + 2 * y) % 3 == 0 ? kKey : x * 0x100F00 + y * 0x35 + 0x404; }
Long Ground(Long x, Long y) { return 0x0A0B0C + x * 0x050000 + y * 0x1100; }
Long Board(Long x, Long y) { return (x ^ y) & 1 ? kWhite : kBlack; }

TEST_F(CopyContract, ColourToColour_CombinesBitByBit) {
  struct Case {
    Long operation;
    Long (*combine)(Long source, Long target);
  };
  constexpr Case kCases[] = {
      {rop::kSrcCopy, [](Long source, Long) { return source; }},
      {rop::kNotSrcCopy, [](Long source, Long) { return ~source & kWhite; }},
      {rop::kSrcAnd, [](Long source, Long target) { return source & target; }},
      {rop::kSrcInvert, [](Long source, Long target) { return source ^ target; }},
  };
  Surface source(9, 7);
  source.FillWith(&Icon);
  for (const Case& entry : kCases) {
    Surface target(12, 10);
    target.FillWith(&Ground);
    EXPECT_NE(graphics.BitBlt(target.Hdc(), 4, 3, 5, 4, source.Hdc(), 2, 1, entry.operation), 0);
    EXPECT_EQ(target.Wrong([&](Long x, Long y) {
      const bool inside = x >= 4 && x < 9 && y >= 3 && y < 7;
      return inside ? entry.combine(Icon(x - 2, y - 2), Ground(x, y)) : Ground(x, y);
    }),
              0)
        << std::hex << entry.operation;
  }
}

TEST_F(CopyContract, ColourToOneBit_SetsThePixelsOfTheSourcesBackgroundColour) {
  Surface source(8, 6);
  source.FillWith(&Icon);
  Surface mask(8, 6, true);
  EXPECT_EQ(graphics.SetBkColor(source.Hdc(), kKey), kWhite);
  EXPECT_NE(graphics.BitBlt(mask.Hdc(), 0, 0, 8, 6, source.Hdc(), 0, 0, rop::kSrcCopy), 0);
  EXPECT_EQ(mask.Wrong([](Long x, Long y) { return Icon(x, y) == kKey ? kWhite : kBlack; }), 0);
  EXPECT_EQ(graphics.SetBkColor(source.Hdc(), kWhite), kKey);
}

TEST_F(CopyContract, OneBitToColour_IsBlackForZeroAndTheBackgroundColourForOne) {
  Surface mask(8, 6, true);
  mask.FillWith(&Board);
  Surface target(8, 6);
  for (const Long background : {kWhite, kKey}) {
    target.Fill({0, 0, 8, 6}, 0x123456);
    graphics.SetBkColor(target.Hdc(), background);
    EXPECT_NE(graphics.BitBlt(target.Hdc(), 0, 0, 8, 6, mask.Hdc(), 0, 0, rop::kSrcCopy), 0);
    EXPECT_EQ(target.Wrong([&](Long x, Long y) { return Board(x, y) == kWhite ? background : kBlack; }), 0);
  }
}

TEST_F(CopyContract, OneBitToOneBit_TakesNoColours) {
  Surface source(8, 6, true);
  source.FillWith(&Board);
  graphics.SetBkColor(source.Hdc(), kRed);
  Surface target(8, 6, true);
  graphics.SetBkColor(target.Hdc(), kKey);
  graphics.BitBlt(target.Hdc(), 0, 0, 8, 6, source.Hdc(), 0, 0, rop::kNotSrcCopy);
  EXPECT_EQ(target.Wrong([](Long x, Long y) { return Board(x, y) ^ kWhite; }), 0);
}

TEST_F(CopyContract, PixelsOutsideTheSource_ArentWritten) {
  Surface source(3, 3);
  source.Fill({0, 0, 3, 3}, kRed);
  struct Case {
    Point from;
    Rect written;
  };
  constexpr Case kCases[] = {{{0, 0}, {0, 0, 3, 3}},
                             {{1, 1}, {0, 0, 2, 2}},
                             {{-2, -1}, {2, 1, 5, 4}},
                             {{3, 0}, {0, 0, 0, 0}},
                             {{-6, 0}, {0, 0, 0, 0}}};
  for (const Case& entry : kCases) {
    Surface target(6, 4);
    target.FillWith(&Ground);
    graphics.BitBlt(target.Hdc(), 0, 0, 6, 4, source.Hdc(), entry.from.x, entry.from.y, rop::kSrcCopy);
    const Rect& in = entry.written;
    EXPECT_EQ(target.Wrong([&](Long x, Long y) {
      return x >= in.left && x < in.right && y >= in.top && y < in.bottom ? kRed : Ground(x, y);
    }),
              0)
        << entry.from.x << ' ' << entry.from.y;
  }
}

TEST_F(CopyContract, PartlyOutsideTheTarget_TheRestIsCopied) {
  Surface source(6, 6);
  source.FillWith(&Icon);
  Surface target(4, 4);
  target.FillWith(&Ground);
  EXPECT_NE(graphics.BitBlt(target.Hdc(), -2, 3, 6, 6, source.Hdc(), 0, 0, rop::kSrcCopy), 0);
  EXPECT_EQ(target.Wrong([](Long x, Long y) { return y == 3 ? Icon(x + 2, 0) : Ground(x, y); }), 0);
}

TEST_F(CopyContract, WithinOneBitmap_OverlappingPixelsAreReadBeforeTheyAreWritten) {
  for (const Point& way : {Point{1, 1}, Point{-1, -1}, Point{2, 0}, Point{0, -2}}) {
    Surface surface(9, 9);
    surface.FillWith(&Icon);
    graphics.BitBlt(surface.Hdc(), 3 + way.x, 3 + way.y, 4, 4, surface.Hdc(), 3, 3, rop::kSrcCopy);
    EXPECT_EQ(surface.Wrong([&](Long x, Long y) {
      const bool inside = x >= 3 + way.x && x < 7 + way.x && y >= 3 + way.y && y < 7 + way.y;
      return inside ? Icon(x - way.x, y - way.y) : Icon(x, y);
    }),
              0)
        << way.x << ' ' << way.y;
  }
}

TEST_F(CopyContract, WithDeadHandles_NothingHappens) {
  constexpr Long kNoHandle = 0x7FFFFFF0;
  Surface target(2, 2);
  target.Fill({0, 0, 2, 2}, kRed);
  EXPECT_EQ(graphics.BitBlt(target.Hdc(), 0, 0, 2, 2, kNoHandle, 0, 0, rop::kSrcCopy), 0);
  EXPECT_EQ(graphics.BitBlt(kNoHandle, 0, 0, 2, 2, target.Hdc(), 0, 0, rop::kSrcCopy), 0);
  EXPECT_EQ(graphics.SetBkColor(kNoHandle, kRed), -1);
  EXPECT_EQ(graphics.GetPixel(kNoHandle, 0, 0), -1);
  EXPECT_EQ(graphics.FillRect(kNoHandle, {0, 0, 2, 2}, 16), WINE_DIFFERS(0, 1));
  EXPECT_EQ(graphics.DrawEdge(kNoHandle, {0, 0, 2, 2}, 5, 15), WINE_DIFFERS(0, 1));
  EXPECT_EQ(target.Wrong([](Long, Long) { return kRed; }), 0);
}

TEST_F(CopyContract, ACopyByColourKey_LeavesTheTargetWhereTheKeyIs) {
  Surface source(4, 4);
  source.FillWith(&Icon);
  Surface target(9, 9);
  target.FillWith(&Ground);
  const bool done = graphics.ColorKeyBlt(target.Hdc(), 1, 1, 6, 6, source.Hdc(), 0, 0, kKey);
  EXPECT_EQ(target.Wrong([&](Long x, Long y) {
    if (!done || x < 1 || y < 1 || x >= 7 || y >= 7) return Ground(x, y);
    if (x >= 5 || y >= 5) return kBlack;
    return Icon(x - 1, y - 1) == kKey ? Ground(x, y) : Icon(x - 1, y - 1);
  }),
            0);
}

TEST_F(CopyContract, FillRect_LeavesItsRightAndBottomEdge) {
  Surface surface(6, 5);
  surface.FillWith(&Ground);
  surface.Fill({2, 1, 5, 3}, kRed);
  surface.Fill({4, 4, 9, 9}, kBlue);
  EXPECT_EQ(surface.Wrong([](Long x, Long y) {
    if (x >= 2 && x < 5 && y >= 1 && y < 3) return kRed;
    return x >= 4 && y >= 4 ? kBlue : Ground(x, y);
  }),
            0);
}

TEST_F(CopyContract, OnOneBit_BlackAndWhiteFill) {
  Surface mono(4, 2, true);
  mono.Fill({0, 0, 4, 2}, kWhite);
  mono.Fill({1, 0, 3, 1}, kBlack);
  EXPECT_EQ(mono.Wrong([](Long x, Long y) { return x >= 1 && x < 3 && y == 0 ? kBlack : kWhite; }), 0);
}

TEST_F(CopyContract, Edges_AreTwoPixelsInTheSystemsColours) {
  constexpr const char* kShape[] = {"AAAAAAAAAAAB", "ACCCCCCCCCDB", "AC........DB", "AC........DB",
                                    "AC........DB", "AC........DB", "ADDDDDDDDDDB", "BBBBBBBBBBBB"};
  struct Edge {
    Long type;
    Long colors[4];  // of A, B, C, D: numbers of system colours
  };
  constexpr Edge kEdges[] = {{5, {22, 21, 20, 16}}, {10, {16, 20, 21, 22}}};
  constexpr Long kAllSides = 15;
  for (const Edge& edge : kEdges) {
    Surface target(14, 10);
    target.Fill({0, 0, 14, 10}, 0x00FFEE);
    EXPECT_NE(graphics.DrawEdge(target.Hdc(), {1, 1, 13, 9}, edge.type, kAllSides), 0);
    EXPECT_EQ(target.Wrong([&](Long x, Long y) {
      if (x < 1 || y < 1 || x >= 13 || y >= 9) return Long{0x00FFEE};
      const char letter = kShape[y - 1][x - 1];
      return letter == '.' ? Long{0x00FFEE} : graphics.GetSysColor(edge.colors[letter - 'A']);
    }),
              0)
        << edge.type;
  }
}

}  // namespace
}  // namespace strandline::contract
