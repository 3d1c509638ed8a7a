// A painter by itself: its beginning and end, when it asks for a new background, centring, and the blit of a frame.

#include "tests/drawing/painter_fixture.h"

namespace strandline {
namespace {

TEST_F(PainterTest, Painter_BeforeTheFirstInitialize_EverythingIsZero) {
  const VariableSnapshot variables = VariableSnapshot::Of(*painter);
  EXPECT_EQ(Listed(variables.Names()), Listed({"mWidth", "mHeight", "mUpdateRect.left", "mUpdateRect.top",
                                               "mUpdateRect.right", "mUpdateRect.bottom", "mUpdateAll", "mBackbuffer",
                                               "mBackbufferOldHandle", "mBackground", "mBackgroundOldHandle", "mHdc"}));
  for (const std::string& name : variables.Names()) {
    const Variant& value = variables[FromUtf8(name)];
    if (name == "mUpdateAll") {
      EXPECT_EQ(value, Variant(false));
    } else {
      EXPECT_EQ(value, Variant(Long{0})) << name;
    }
  }
  EXPECT_EQ(painter->backbuffer(), 0);
}

TEST_F(PainterTest, Painter_NeverInitialized_GoesWithoutTouchingGraphics) {
  painter = nullptr;
  EXPECT_EQ(Listed(floor->calls.Take()), "");
}

TEST_F(PainterTest, GetWindowExtents_OfAWindowAnywhere_AreItsWholeSize) {
  Long width = 0;
  Long height = 0;
  painter->GetWindowExtents(window->strip, width, height);
  EXPECT_EQ(width, kWidth);
  EXPECT_EQ(height, kHeight);
  painter->GetWindowExtents(window->top, width, height);
  EXPECT_EQ(width, 600);
  EXPECT_EQ(height, 400);
}

// What the call would have filled in stays zero.
TEST_F(PainterTest, GetWindowExtents_OfAWindowThatCannotBeMeasured_AreZero) {
  floor->faults.Arm("GetWindowRect", 1);
  Long width = 7;
  Long height = 8;
  painter->GetWindowExtents(window->strip, width, height);
  EXPECT_EQ(width, 0);
  EXPECT_EQ(height, 0);
}

TEST_F(PainterTest, NeedRepaint_WhenTheWindowCannotBeMeasured_IsTrueOnceThereIsAFrame) {
  floor->faults.Arm("GetWindowRect", 1);
  EXPECT_FALSE(painter->NeedRepaint(window->top, window->strip));
  Initialize();
  floor->faults.Arm("GetWindowRect", 1);
  EXPECT_TRUE(painter->NeedRepaint(window->top, window->strip));
  EXPECT_FALSE(painter->NeedRepaint(window->top, window->strip));
}

TEST_F(PainterTest, Initialize_WhenTheWindowCannotBeMeasured_TakesItForEmpty) {
  Initialize();
  floor->faults.Arm("GetWindowRect", 1);
  Initialize();
  EXPECT_EQ(Number(u"mWidth"), 0);
  EXPECT_EQ(Number(u"mHeight"), 0);
  EXPECT_TRUE(painter->NeedRepaint(window->top, window->strip));
  floor->desk.Misuses().Clear();
}

TEST_F(PainterTest, NeedRepaint_OfANewPainter_IsTrueForAnyWindowThatHasPixels) {
  EXPECT_TRUE(painter->NeedRepaint(window->top, window->strip));
  window->Resize(1, 0);
  EXPECT_TRUE(painter->NeedRepaint(window->top, window->strip));
  window->Resize(0, 0);
  EXPECT_FALSE(painter->NeedRepaint(window->top, window->strip));
}

struct RepaintCase {
  const char16_t* wordVersion;
  bool covered;  // by another program's window
  Long width;
  Long height;
  bool expected;
};

TEST_F(PainterTest, NeedRepaint_FollowsTheSizeAlone_ButOnWord2000NeverBehindAnotherWindow) {
  const RepaintCase cases[] = {
      {kWord2000, false, kWidth, kHeight, false},    {kWord2000, false, kWidth + 1, kHeight, true},
      {kWord2000, false, kWidth, kHeight - 1, true}, {kWord2000, true, kWidth, kHeight, false},
      {kWord2000, true, kWidth + 1, kHeight, false}, {kWord2000, true, kWidth, kHeight + 9, false},
      {kWord2002, false, kWidth, kHeight, false},    {kWord2002, true, kWidth, kHeight, false},
      {kWord2002, true, kWidth - 1, kHeight, true},  {kWord2002, true, kWidth, kHeight + 1, true},
      {kWord2003, false, kWidth, kHeight, false},    {kWord2003, true, kWidth, kHeight, false},
      {kWord2003, true, kWidth + 1, kHeight, true},  {kWord2003, true, kWidth, kHeight - 1, true},
  };
  for (const RepaintCase& each : cases) {
    SCOPED_TRACE(ToUtf8(each.wordVersion) + (each.covered ? " covered " : " in front ") + std::to_string(each.width) +
                 " by " + std::to_string(each.height));
    Open(each.wordVersion);
    Initialize();
    if (each.covered) floor->desk.Host().CoverScreen(true);
    window->Resize(each.width, each.height);
    EXPECT_EQ(painter->NeedRepaint(window->top, window->strip), each.expected);
  }
}

TEST_F(PainterTest, NeedRepaint_BehindAnotherWindow_LeavesFrameAndBackgroundInPlace) {
  Open(kWord2000);
  Initialize();
  const Long frame = Frame();
  const Long background = Background();
  const desk::Surface before = floor->SurfaceOf(frame);
  floor->desk.Host().CoverScreen(true);
  window->Resize(kWidth + 30, kHeight);
  ASSERT_FALSE(painter->NeedRepaint(window->top, window->strip));
  // What a paint does then: the frame as it is, in the size that it has.
  painter->BltBuffer(window->hdc, false);
  EXPECT_EQ(Frame(), frame);
  EXPECT_EQ(Background(), background);
  EXPECT_EQ(floor->SurfaceOf(frame), before);
  EXPECT_EQ(Number(u"mWidth"), kWidth);
}

TEST_F(PainterTest, NeedRepaint_OnWord2000_AsksForTheDocumentsWindowAndNotForTheStrip) {
  Open(kWord2000);
  Initialize();
  window->Resize(kWidth + 1, kHeight);
  EXPECT_TRUE(painter->NeedRepaint(window->top, window->strip));
  EXPECT_FALSE(painter->NeedRepaint(window->strip, window->strip));
}

struct DeltaCase {
  Integer cell, picture, delta;
};

TEST_F(PainterTest, GetDelta_IsHalfTheDifference_TiesToTheEvenNeighbour) {
  const DeltaCase cases[] = {{23, 16, 4},     {22, 16, 3},  {21, 16, 2},       {16, 16, 0},
                             {17, 16, 0},     {19, 16, 2},  {18, 16, 1},       {15, 16, 0},
                             {13, 16, -2},    {11, 16, -2}, {14, 16, -1},      {9, 16, -4},
                             {16, 223, -104}, {0, 0, 0},    {32767, 0, 16384}, {0, 32767, -16384}};
  for (const DeltaCase& each : cases) {
    Integer deltaX = 99;
    Integer deltaY = 99;
    painter->GetDelta(deltaX, deltaY, each.cell, 40, each.picture, 20);
    EXPECT_EQ(deltaX, each.delta) << each.picture << " across in " << each.cell;
    EXPECT_EQ(deltaY, 10);
    painter->GetDelta(deltaX, deltaY, 40, each.cell, 20, each.picture);
    EXPECT_EQ(deltaX, 10);
    EXPECT_EQ(deltaY, each.delta) << each.picture << " down in " << each.cell;
  }
}

TEST_F(PainterTest, Backbuffer_WrittenAnew_ReleasesTheFormerContextWithItsBitmap) {
  Initialize();
  const Long frame = Frame();
  const Long bitmap = floor->desk.Objects().Find<desk::Context>(frame)->bitmap;
  const Long oldHandle = Number(u"mBackbufferOldHandle");
  const Long other = floor->MakeContext(3, 3, kRed);
  painter->backbuffer(other);
  EXPECT_FALSE(floor->desk.Objects().IsLive(frame));
  EXPECT_FALSE(floor->desk.Objects().IsLive(bitmap));
  EXPECT_EQ(painter->backbuffer(), other);
  EXPECT_EQ(Number(u"mBackbufferOldHandle"), oldHandle);
  EXPECT_EQ(Number(u"mHdc"), frame);  // only Initialize writes it
  EXPECT_TRUE(floor->desk.Objects().IsLive(Background()));
}

TEST_F(PainterTest, Background_WrittenAnew_ReleasesTheFormerContextWithItsBitmap) {
  Initialize();
  const Long background = Background();
  const Long bitmap = floor->desk.Objects().Find<desk::Context>(background)->bitmap;
  const Long oldHandle = Number(u"mBackgroundOldHandle");
  const Long other = floor->MakeContext(3, 3, kRed);
  floor->calls.Name(background, "background");
  floor->calls.Name(bitmap, "its bitmap");
  floor->calls.Clear();
  painter->background(other);
  EXPECT_EQ(Listed(floor->calls.Take()), Listed({"SelectObject(background, stock) = its bitmap",
                                                 "DeleteObject(its bitmap)", "DeleteDC(background)"}));
  EXPECT_FALSE(floor->desk.Objects().IsLive(background));
  EXPECT_EQ(Background(), other);
  EXPECT_EQ(Number(u"mBackgroundOldHandle"), oldHandle);
  EXPECT_TRUE(floor->desk.Objects().IsLive(Frame()));
}

TEST_F(PainterTest, BackgroundAndBackbuffer_WrittenForTheFirstTime_ReleaseNothing) {
  const Long one = floor->MakeContext(3, 3, kRed);
  const Long two = floor->MakeContext(3, 3, kRed);
  painter->backbuffer(one);
  painter->background(two);
  EXPECT_EQ(Listed(floor->calls.Take()), "");
  EXPECT_EQ(Frame(), one);
  EXPECT_EQ(Background(), two);
  // The old handles are those of an Initialize that never was; the contexts are taken back, so that nothing is left.
  const Integer before = static_cast<Integer>(floor->Contexts());
  painter = nullptr;
  EXPECT_EQ(floor->Contexts(), before - 2);
}

TEST_F(PainterTest, CopyDC_GivesACopyOfTheStripsSizeAndTellsTheBitmapItDisplaced) {
  Initialize();
  const Long source = floor->MakeContext(kWidth + 10, kHeight - 4, kRed);
  Long copy = 77;
  const Long displaced = painter->CopyDC(copy, source);
  EXPECT_EQ(displaced, desk::ObjectTable::kStockBitmap);
  EXPECT_EQ(floor->SurfaceOf(copy).width, kWidth);
  EXPECT_EQ(floor->SurfaceOf(copy).height, kHeight);
  EXPECT_EQ(floor->PixelAt(copy, kWidth - 1, kHeight - 5), kRed);
  EXPECT_EQ(floor->PixelAt(copy, 0, kHeight - 4), kBlack);
  EXPECT_EQ(floor->PixelAt(source, 0, 0), kRed);
  floor->DeleteContext(copy);
}

TEST_F(PainterTest, PaintToolbarBackground_AsksTheWindowForAPrintOfAllOfItself) {
  const Long target = floor->MakeContext(kWidth, kHeight, kWhite);
  floor->calls.Name(target, "target");
  painter->PaintToolbarBackground(window->strip, target);
  ASSERT_EQ(floor->calls.CallsOf("SendMessageA").size(), 1u);
  EXPECT_EQ(window->messages, std::vector<Long>{791});
  EXPECT_EQ(floor->calls.Take().back(), "SendMessageA(strip, 791, target, 14)");
  EXPECT_EQ(floor->SurfaceOf(target), window->Face(kGreen, kWidth, kHeight));
}

TEST_F(PainterTest, Painter_AtItsEnd_ReleasesBothContextsWithTheirBitmaps) {
  for (const char16_t* version : {kWord2000, kWord2002, kWord2003}) {
    SCOPED_TRACE(ToUtf8(version));
    Open(version);
    const int contexts = floor->Contexts();
    const int bitmaps = floor->Bitmaps();
    Initialize();
    painter = nullptr;
    EXPECT_EQ(floor->Contexts(), contexts + 1);  // the snapshot
    EXPECT_EQ(floor->Bitmaps(), bitmaps + 1);
    ToolbarUtilities::Terminate();
    EXPECT_EQ(floor->Contexts(), contexts);
    EXPECT_EQ(floor->Bitmaps(), bitmaps);
  }
}

TEST_F(PainterTest, BltBuffer_AfterInitialize_CopiesTheWholeFrameForcedOrNot) {
  Initialize();
  floor->calls.Name(Frame(), "frame");
  for (const bool forced : {false, true}) {
    floor->calls.Clear();
    painter->BltBuffer(window->hdc, forced);
    EXPECT_EQ(Listed(floor->calls.Take()), Listed({"BitBlt(strip dc, 0, 0, 60, 24, frame, 0, 0, SRCCOPY)"}));
  }
  EXPECT_EQ(window->OnScreen(), window->Face(kGreen, kWidth, kHeight));
}

class Listener final : public LogObserver {
 public:
  void OnLog(TextView message, Long level) override { lines.push_back(ToUtf8(message) + " " + std::to_string(level)); }
  Lines lines;
};

TEST_F(PainterTest, Painter_LogsInitializeAsNoteworthyAndItsPaintsAsOrdinary) {
  Listener listener;
  floor->library.SetLogObserver(&listener);
  Initialize();
  painter->PaintDCTransparently(floor->MakeContext(4, 4, kRed), 1, 1, 8, 8, 4, 4, window->hdc, true);
  floor->library.SetLogObserver(nullptr);
  EXPECT_EQ(Listed(listener.lines), Listed({"Initialize for " + ToUtf8(HexText(window->strip)) + " 1",
                                            "PaintDCTransparently 0", "PaintIconImpl 0", "BltBuffer 0"}));
}

struct OverflowCase {
  const char* name;
  std::function<void(Painter&)> call;
  const char* heard;
};

TEST_F(PainterTest, ACoordinateThatLeavesAnInteger_IsAnOverflowOfItsProcedure) {
  Integer x = 0, y = 0;
  const OverflowCase cases[] = {
      {"delta across", [&](Painter& p) { p.GetDelta(x, y, 32767, 0, -1, 0); }, "6 Painter.GetDelta"},
      {"delta down", [&](Painter& p) { p.GetDelta(x, y, 0, -32768, 0, 1); }, "6 Painter.GetDelta"},
      {"place across", [&](Painter& p) { p.PaintIconImpl(0, 32767, 0, 6, 6, 2, 2, 0, false); },
       "6 Painter.PaintIconImpl"},
      {"place down", [&](Painter& p) { p.PaintIconImpl(0, 0, -32768, 2, 2, 2, 6, 0, false); },
       "6 Painter.PaintIconImpl"},
      {"border", [&](Painter& p) { p.PaintDCTransparently(0, 32767, 0, 1, 1, 1, 1, 0, true); },
       "6 Painter.PaintDCTransparently"},
      {"picture wider than any cell", [&](Painter& p) { p.PaintDCTransparently(0, 0, 0, 32767, 1, -1, 1, 0, false); },
       "6 Painter.PaintDCTransparently"},
      {"picture higher than any cell", [&](Painter& p) { p.PaintDCTransparently(0, 0, 0, 1, -32768, 1, 1, 0, false); },
       "6 Painter.PaintDCTransparently"},
      {"border below", [&](Painter& p) { p.PaintDCTransparently(0, 0, 32000, 1, 1000, 1, 1, 0, true); },
       "6 Painter.PaintDCTransparently"},
  };
  Initialize();
  const desk::Surface before = floor->SurfaceOf(Frame());
  for (const OverflowCase& each : cases) {
    SCOPED_TRACE(each.name);
    each.call(*painter);
    EXPECT_EQ(Listed(TakeErrors()), Listed({each.heard}));
  }
  EXPECT_EQ(floor->SurfaceOf(Frame()), before);
}

TEST_F(PainterTest, ACallOfTheSystemsThatFails_IsNotReportedAndLeavesTheFrame) {
  for (const char* call : {"BitBlt", "CreateCompatibleDC", "CreateCompatibleBitmap", "SelectObject", "GetWindowRect",
                           "SendMessageA", "DrawEdge", "DeleteObject", "DeleteDC"}) {
    SCOPED_TRACE(call);
    for (const char16_t* version : {kWord2000, kWord2003}) {
      Open(version);
      Initialize();
      const desk::Surface before = floor->SurfaceOf(Frame());
      const Long frame = Frame();
      const Long picture = floor->MakeContext(4, 4, kRed);
      const bool draws = std::string(call) == "BitBlt";
      floor->faults.Arm(call, 1000);
      if (draws) floor->WithoutColorKeyBlt();
      painter->PaintDCTransparently(picture, 1, 1, 8, 8, 4, 4, window->hdc, true);
      painter->PaintIconTransparently(floor->MakeBitmap(4, 4, kRed), 9, 9, 8, 8, 4, 4, 0, true);
      if (draws) {
        EXPECT_EQ(floor->SurfaceOf(frame), before);
      }
      Initialize();
      EXPECT_EQ(Listed(TakeErrors()), "");
      painter = nullptr;
      floor->faults.Clear();
      floor->desk.Misuses().Clear();
    }
  }
}

}  // namespace
}  // namespace strandline
