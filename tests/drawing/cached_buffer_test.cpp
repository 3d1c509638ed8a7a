// The one off-screen context that all painters share.

#include "tests/drawing/drawing_fixture.h"
#include "tests/support/variables.h"

namespace strandline {
namespace {

using ToolbarUtilities::cachedBuffer;

class CachedBufferTest : public DrawingTest {
 protected:
  struct Buffer {
    Long hdc = 0;
    Long bitmap = 0;
    Long displaced = 0;
  };
  Buffer Make(Long width, Long height) {
    Buffer buffer;
    buffer.hdc = floor->desk.Graphics().CreateCompatibleDC(0);
    buffer.bitmap = floor->MakeBitmap(width, height, kRed);
    buffer.displaced = floor->desk.Graphics().SelectObject(buffer.hdc, buffer.bitmap);
    return buffer;
  }
  bool IsLive(Long handle) { return floor->desk.Objects().IsLive(handle); }
};

TEST_F(CachedBufferTest, CachedBuffer_BeforeAnyIsWritten_IsNone) {
  for (const Long size : {0, 1, 100}) EXPECT_EQ(cachedBuffer(size, size, 0), 0);
}

struct ReadCase {
  Long width, height;
  bool found;
};

TEST_F(CachedBufferTest, CachedBuffer_ReadWithItsSize_IsThereAndWithAnyOtherIsNoneAndStays) {
  const Buffer buffer = Make(40, 20);
  cachedBuffer(40, 20, buffer.displaced, buffer.hdc);
  const ReadCase cases[] = {{40, 20, true},  {41, 20, false}, {39, 20, false},   {40, 21, false}, {40, 19, false},
                            {20, 40, false}, {0, 0, false},   {-40, -20, false}, {40, 20, true}};
  floor->calls.Clear();
  for (const ReadCase& each : cases) {
    EXPECT_EQ(cachedBuffer(each.width, each.height, 0), each.found ? buffer.hdc : 0)
        << each.width << " by " << each.height;
  }
  EXPECT_EQ(cachedBuffer(40, 20, 4711), buffer.hdc);  // the handle means nothing in a read
  EXPECT_EQ(ToolbarUtilities::variables.mCachedBufferHandle, buffer.displaced);
  EXPECT_EQ(Listed(floor->calls.Take()), "");
  EXPECT_TRUE(IsLive(buffer.hdc));
}

TEST_F(CachedBufferTest, CachedBuffer_WrittenAnew_FreesTheFormerOneWithItsBitmap) {
  const Buffer first = Make(40, 20);
  const Buffer second = Make(50, 30);
  cachedBuffer(40, 20, first.displaced, first.hdc);
  EXPECT_EQ(Listed(floor->calls.Take()), "");
  floor->calls.Name(first.hdc, "first");
  floor->calls.Name(first.bitmap, "its bitmap");
  cachedBuffer(50, 30, second.displaced, second.hdc);
  EXPECT_EQ(Listed(floor->calls.Take()),
            Listed({"SelectObject(first, stock) = its bitmap", "DeleteObject(its bitmap)", "DeleteDC(first)"}));
  EXPECT_FALSE(IsLive(first.hdc));
  EXPECT_FALSE(IsLive(first.bitmap));
  EXPECT_EQ(cachedBuffer(40, 20, 0), 0);
  EXPECT_EQ(cachedBuffer(50, 30, 0), second.hdc);
}

TEST_F(CachedBufferTest, CachedBuffer_OfTheSameSize_IsReplacedToo) {
  const Buffer first = Make(40, 20);
  const Buffer second = Make(40, 20);
  cachedBuffer(40, 20, first.displaced, first.hdc);
  cachedBuffer(40, 20, second.displaced, second.hdc);
  EXPECT_FALSE(IsLive(first.hdc));
  EXPECT_EQ(cachedBuffer(40, 20, 0), second.hdc);
}

TEST_F(CachedBufferTest, CachedBuffer_WrittenWithNone_FreesTheFormerOneAndLeavesNone) {
  const int contexts = floor->Contexts();
  const int bitmaps = floor->Bitmaps();
  const Buffer buffer = Make(40, 20);
  cachedBuffer(40, 20, buffer.displaced, buffer.hdc);
  cachedBuffer(40, 20, 0, 0);
  EXPECT_EQ(floor->Contexts(), contexts);
  EXPECT_EQ(floor->Bitmaps(), bitmaps);
  EXPECT_EQ(cachedBuffer(40, 20, 0), 0);
  EXPECT_EQ(ToolbarUtilities::variables.mWidth, 40);
  floor->calls.Clear();
  cachedBuffer(0, 0, 0, 0);
  EXPECT_EQ(Listed(floor->calls.Take()), "");
}

TEST_F(CachedBufferTest, Terminate_ReleasesTheBuffer) {
  const Buffer buffer = Make(40, 20);
  cachedBuffer(40, 20, buffer.displaced, buffer.hdc);
  ToolbarUtilities::Terminate();
  EXPECT_FALSE(IsLive(buffer.hdc));
  EXPECT_FALSE(IsLive(buffer.bitmap));
  const VariableSnapshot variables = VariableSnapshot::Of(&ToolbarUtilities::ReportModule);
  for (const char16_t* name : {u"mWidth", u"mHeight", u"mCachedBuffer", u"mCachedBufferHandle"}) {
    EXPECT_EQ(variables.Number(name), 0) << ToUtf8(name);
  }
}

}  // namespace
}  // namespace strandline
