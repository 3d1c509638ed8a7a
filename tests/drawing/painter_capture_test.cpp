// How a painter takes the clean picture of a bar: what it asks of the system on each version of Word, and how the
// toolbars of one size share one picture.

#include "tests/drawing/painter_fixture.h"

namespace strandline {
namespace {

using CaptureTest = PainterTest;

const Lines kCaptureFromScreen = {
    "GetWindowRect(strip, [100 50 160 74])",
    "CreateCompatibleDC(strip dc) = dc 1",  // the frame
    "CreateCompatibleDC(strip dc) = dc 2",  // the background
    "GetForegroundWindow() = top",
    "SendMessageA(strip, 15, 0, 0)",
    "CreateCompatibleBitmap(strip dc, 60, 24) = bitmap 1",
    "SelectObject(dc 1, bitmap 1) = stock",
    "CreateCompatibleBitmap(strip dc, 60, 24) = bitmap 2",
    "SelectObject(dc 2, bitmap 2) = stock",
    "BitBlt(dc 1, 0, 0, 60, 24, strip dc, 0, 0, SRCCOPY)",
    "BitBlt(dc 2, 0, 0, 60, 24, strip dc, 0, 0, SRCCOPY)",
    "CreateCompatibleDC(strip dc) = dc 3",  // the snapshot
    "CreateCompatibleBitmap(strip dc, 60, 24) = bitmap 3",
    "SelectObject(dc 3, bitmap 3) = stock",
    "BitBlt(dc 3, 0, 0, 60, 24, strip dc, 0, 0, SRCCOPY)",
};

const Lines kPrint = {
    "GetWindowRect(strip, [100 50 160 74])",
    "CreateCompatibleDC(strip dc) = dc 1",  // the snapshot
    "CreateCompatibleBitmap(strip dc, 60, 24) = bitmap 1",
    "SelectObject(dc 1, bitmap 1) = stock",
    "BitBlt(dc 1, 0, 0, 60, 24, strip dc, 0, 0, SRCCOPY)",
    "SendMessageA(strip, 791, dc 1, 14)",
    "CreateCompatibleDC(dc 1) = dc 2",  // the frame
    "CreateCompatibleBitmap(dc 1, 60, 24) = bitmap 2",
    "SelectObject(dc 2, bitmap 2) = stock",
    "BitBlt(dc 2, 0, 0, 60, 24, dc 1, 0, 0, SRCCOPY)",
    "CreateCompatibleDC(dc 1) = dc 3",  // the background
    "CreateCompatibleBitmap(dc 1, 60, 24) = bitmap 3",
    "SelectObject(dc 3, bitmap 3) = stock",
    "BitBlt(dc 3, 0, 0, 60, 24, dc 1, 0, 0, SRCCOPY)",
};

const Lines kFromSnapshot = {
    "GetWindowRect(strip, [100 50 160 74])",
    "CreateCompatibleDC(snapshot) = dc 1",
    "CreateCompatibleBitmap(snapshot, 60, 24) = bitmap 1",
    "SelectObject(dc 1, bitmap 1) = stock",
    "BitBlt(dc 1, 0, 0, 60, 24, snapshot, 0, 0, SRCCOPY)",
    "CreateCompatibleDC(snapshot) = dc 2",
    "CreateCompatibleBitmap(snapshot, 60, 24) = bitmap 2",
    "SelectObject(dc 2, bitmap 2) = stock",
    "BitBlt(dc 2, 0, 0, 60, 24, snapshot, 0, 0, SRCCOPY)",
};

struct VersionCase {
  const char16_t* wordVersion;
  const Lines& calls;
  Long color;  // of the strip's own face
  std::vector<Long> messages;
};

const VersionCase kVersions[] = {
    {kWord2000, kCaptureFromScreen, kRed, {wm::kPaint}},
    {kWord2002, kCaptureFromScreen, kRed, {wm::kPaint}},
    {kWord2003, kPrint, kGreen, {wm::kPrint}},
};

Long Snapshot() { return ToolbarUtilities::variables.mCachedBuffer; }

TEST_F(CaptureTest, Initialize_OnEachVersion_AsksTheSystemInItsOrder) {
  for (const VersionCase& each : kVersions) {
    SCOPED_TRACE(ToUtf8(each.wordVersion));
    Open(each.wordVersion);
    Initialize();
    EXPECT_EQ(Listed(floor->calls.Take()), Listed(each.calls));
    EXPECT_EQ(window->messages, each.messages);
  }
}

TEST_F(CaptureTest, Initialize_OnEachVersion_FillsFrameBackgroundAndSnapshotWithTheStripsFace) {
  for (const VersionCase& each : kVersions) {
    SCOPED_TRACE(ToUtf8(each.wordVersion));
    Open(each.wordVersion);
    Initialize();
    const desk::Surface face = window->Face(each.color, kWidth, kHeight);
    EXPECT_EQ(floor->SurfaceOf(Frame()), face);
    EXPECT_EQ(floor->SurfaceOf(Background()), face);
    EXPECT_EQ(floor->SurfaceOf(Snapshot()), face);
    EXPECT_NE(Frame(), Background());
    EXPECT_NE(Snapshot(), Frame());
    EXPECT_NE(Snapshot(), Background());
    EXPECT_EQ(Number(u"mWidth"), kWidth);
    EXPECT_EQ(Number(u"mHeight"), kHeight);
    EXPECT_EQ(Number(u"mHdc"), Frame());
    EXPECT_TRUE(VariableSnapshot::Of(*painter).Flag(u"mUpdateAll"));
    EXPECT_EQ(ToolbarUtilities::variables.mWidth, kWidth);
    EXPECT_EQ(ToolbarUtilities::variables.mHeight, kHeight);
    EXPECT_EQ(ToolbarUtilities::variables.mCachedBufferHandle, desk::ObjectTable::kStockBitmap);
    EXPECT_EQ(Number(u"mBackbufferOldHandle"), desk::ObjectTable::kStockBitmap);
    EXPECT_EQ(Number(u"mBackgroundOldHandle"), desk::ObjectTable::kStockBitmap);
  }
}

TEST_F(CaptureTest, Initialize_OfASecondToolbarOfThatSize_CopiesTheSnapshotAndSendsNothing) {
  for (const VersionCase& each : kVersions) {
    SCOPED_TRACE(ToUtf8(each.wordVersion));
    Open(each.wordVersion);
    Initialize();
    const desk::Surface face = floor->SurfaceOf(Snapshot());
    floor->calls.Name(Snapshot(), "snapshot");
    floor->calls.Clear();
    window->messages.clear();
    const Long snapshot = Snapshot();
    const Ref<Painter> second = New<Painter>();
    Initialize(*second, *window);
    EXPECT_EQ(Listed(floor->calls.Take()), Listed(kFromSnapshot));
    EXPECT_TRUE(window->messages.empty());
    EXPECT_EQ(Snapshot(), snapshot);
    const VariableSnapshot variables = VariableSnapshot::Of(*second);
    EXPECT_EQ(floor->SurfaceOf(variables.Number(u"mBackbuffer")), face);
    EXPECT_EQ(floor->SurfaceOf(variables.Number(u"mBackground")), face);
    EXPECT_EQ(variables.Number(u"mHdc"), variables.Number(u"mBackbuffer"));
  }
}

// The size is the whole key, whatever the other strip looks like and whichever document it belongs to.
TEST_F(CaptureTest, Initialize_OfAnotherDocumentsStripOfThatSize_TakesNothingFromItsOwnWindow) {
  Initialize();
  StripWindow other(*floor, u"Letter.doc", {300, 200, 300 + kWidth, 200 + kHeight});
  const Ref<Painter> second = New<Painter>();
  other.during = [&](Long message) { ADD_FAILURE() << "message " << message; };
  Initialize(*second, other);
  other.during = nullptr;
  EXPECT_EQ(floor->SurfaceOf(second->backbuffer()), window->Face(kGreen, kWidth, kHeight));
}

TEST_F(CaptureTest, AFrameThatIsPaintedOn_LeavesTheSnapshotAndOtherToolbarsAlone) {
  Initialize();
  const Ref<Painter> second = New<Painter>();
  Initialize(*second, *window);
  floor->Fill(second->backbuffer(), {0, 0, kWidth, kHeight}, kWhite);
  const desk::Surface face = window->Face(kGreen, kWidth, kHeight);
  EXPECT_EQ(floor->SurfaceOf(Snapshot()), face);
  EXPECT_EQ(floor->SurfaceOf(Frame()), face);
  EXPECT_EQ(floor->SurfaceOf(VariableSnapshot::Of(*second).Number(u"mBackground")), face);
}

TEST_F(CaptureTest, Initialize_OfANewSize_ReplacesTheSnapshotAndFreesTheFormerOneAtOnce) {
  for (const VersionCase& each : kVersions) {
    SCOPED_TRACE(ToUtf8(each.wordVersion));
    Open(each.wordVersion);
    Initialize();
    const Long former = Snapshot();
    const Long itsBitmap = floor->desk.Objects().Find<desk::Context>(former)->bitmap;
    const desk::Surface face = floor->SurfaceOf(Frame());
    window->Resize(kWidth + 20, kHeight);
    const Ref<Painter> second = New<Painter>();
    Initialize(*second, *window);
    EXPECT_NE(Snapshot(), former);
    EXPECT_FALSE(floor->desk.Objects().IsLive(former));
    EXPECT_FALSE(floor->desk.Objects().IsLive(itsBitmap));
    EXPECT_EQ(floor->SurfaceOf(Snapshot()), window->Face(each.color, kWidth + 20, kHeight));
    EXPECT_EQ(ToolbarUtilities::variables.mWidth, kWidth + 20);
    // The first toolbar lives on its own copies.
    EXPECT_EQ(floor->SurfaceOf(Frame()), face);
    EXPECT_EQ(floor->SurfaceOf(Background()), face);
    // One size at a time: the former one is captured anew.
    window->Resize(kWidth, kHeight);
    Initialize(*second, *window);
    EXPECT_EQ(window->messages, each.messages);
    second->backbuffer(0);
  }
}

TEST_F(CaptureTest, TheSnapshot_OutlivesEveryPainter) {
  Initialize();
  painter = nullptr;
  EXPECT_EQ(floor->SurfaceOf(Snapshot()), window->Face(kGreen, kWidth, kHeight));
  const Long snapshot = Snapshot();
  painter = New<Painter>();
  Initialize();
  EXPECT_EQ(Snapshot(), snapshot);
  EXPECT_EQ(window->messages, std::vector<Long>{wm::kPrint});
}

struct LossCase {
  const char16_t* wordVersion;
  bool sameSize;
  int lost;  // contexts, each with its bitmap
};

// The frame and the background of an earlier Initialize are let go, except the frame that a capture from the screen
// releases first.
TEST_F(CaptureTest, Initialize_Repeated_LosesTheContextsThatItOverwrites) {
  const LossCase cases[] = {{kWord2000, true, 2},  {kWord2002, true, 2},  {kWord2003, true, 2},
                            {kWord2000, false, 1}, {kWord2002, false, 1}, {kWord2003, false, 2}};
  for (const LossCase& each : cases) {
    SCOPED_TRACE(ToUtf8(each.wordVersion) + (each.sameSize ? ", same size" : ", new size"));
    Open(each.wordVersion);
    Initialize();
    const int contexts = floor->Contexts();
    const int bitmaps = floor->Bitmaps();
    for (int time = 1; time <= 3; ++time) {
      const Long frame = Frame();
      const Long background = Background();
      if (!each.sameSize) window->Resize(kWidth + time, kHeight);
      Initialize();
      EXPECT_EQ(floor->Contexts(), contexts + time * each.lost);
      EXPECT_EQ(floor->Bitmaps(), bitmaps + time * each.lost);
      EXPECT_EQ(floor->desk.Objects().IsLive(frame), each.lost == 2);
      EXPECT_TRUE(floor->desk.Objects().IsLive(background));
    }
    painter = nullptr;
    EXPECT_EQ(floor->Contexts(), contexts - 2 + 3 * each.lost);
    EXPECT_EQ(floor->Bitmaps(), bitmaps - 2 + 3 * each.lost);
  }
}

TEST_F(CaptureTest, CaptureFromScreen_Repeated_MakesTheNewFrameBeforeItReleasesTheFormerOne) {
  Open(kWord2002);
  Initialize();
  floor->calls.Name(Frame(), "frame");
  floor->calls.Name(floor->desk.Objects().Find<desk::Context>(Frame())->bitmap, "its bitmap");
  window->Resize(kWidth + 1, kHeight);
  floor->calls.Clear();
  Initialize();
  Lines calls = floor->calls.Take();
  ASSERT_GT(calls.size(), 6u);
  calls.resize(6);
  EXPECT_EQ(Listed(calls), Listed({"GetWindowRect(strip, [100 50 161 74])", "CreateCompatibleDC(strip dc) = dc 1",
                                   "SelectObject(frame, stock) = its bitmap", "DeleteObject(its bitmap)",
                                   "DeleteDC(frame)", "CreateCompatibleDC(strip dc) = dc 2"}));
}

TEST_F(CaptureTest, BehindAnotherProgramsWindow_TheScreenIsReadInFrontAndAPrintNeedsNone) {
  for (const VersionCase& each : kVersions) {
    SCOPED_TRACE(ToUtf8(each.wordVersion));
    Open(each.wordVersion);
    floor->desk.Host().CoverScreen(true);
    const Long foreign = floor->desk.Windows().GetForegroundWindow();
    ASSERT_NE(foreign, window->top);
    Initialize();
    const bool comesToTheFront = each.color == kRed;
    EXPECT_EQ(floor->desk.Windows().GetForegroundWindow(), comesToTheFront ? window->top : foreign);
    EXPECT_EQ(floor->SurfaceOf(Frame()), window->Face(each.color, kWidth, kHeight));
  }
}

// The paint comes in while the painter is half built: the size is known, the contexts are there, and both are 1 by 1.
TEST_F(CaptureTest, ThePaintWithinACapture_FindsTheSizeKnownAndTheContextsStillEmpty) {
  Open(kWord2000);
  int paints = 0;
  window->during = [&](Long message) {
    if (message != wm::kPaint) return;
    ++paints;
    EXPECT_EQ(Number(u"mWidth"), kWidth);
    EXPECT_TRUE(VariableSnapshot::Of(*painter).Flag(u"mUpdateAll"));
    EXPECT_NE(Frame(), 0);
    EXPECT_NE(Background(), 0);
    EXPECT_EQ(Number(u"mHdc"), 0);
    for (const Long hdc : {Frame(), Background()}) {
      EXPECT_EQ(floor->desk.Objects().Find<desk::Context>(hdc)->bitmap, desk::ObjectTable::kStockBitmap);
    }
    EXPECT_FALSE(painter->NeedRepaint(window->top, window->strip));
    EXPECT_EQ(Snapshot(), 0);
  };
  Initialize();
  EXPECT_EQ(paints, 1);
}

TEST_F(CaptureTest, ThePrintWithinAnInitialize_FindsNoSnapshotYet) {
  int prints = 0;
  window->during = [&](Long message) {
    if (message != wm::kPrint) return;
    ++prints;
    EXPECT_EQ(Snapshot(), 0);
    EXPECT_EQ(Frame(), 0);
  };
  Initialize();
  EXPECT_EQ(prints, 1);
}

// What a hook draws in answer to the paint is on the window when it is captured.
TEST_F(CaptureTest, WhatThePaintLeavesOnTheWindow_IsCaptured) {
  Open(kWord2002);
  floor->Fill(window->hdc, {0, 0, kWidth, kHeight}, kWhite);
  Initialize();
  EXPECT_EQ(floor->SurfaceOf(Background()), window->Face(kRed, kWidth, kHeight));
}

TEST_F(CaptureTest, NothingEverPutsUpdateAllBack) {
  Initialize();
  painter->PaintDCTransparently(floor->MakeContext(4, 4, kRed), 1, 1, 8, 8, 4, 4, window->hdc, false);
  painter->BltBuffer(window->hdc, false);
  painter->backbuffer(0);
  painter->background(0);
  EXPECT_TRUE(VariableSnapshot::Of(*painter).Flag(u"mUpdateAll"));
}

}  // namespace
}  // namespace strandline
