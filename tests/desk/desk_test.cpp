// The desk as a whole: its parts joined.

#include "platform/desk/desk.h"

#include <gtest/gtest.h>
#include <png.h>

#include <cstdio>

namespace strandline::desk {
namespace {

constexpr Long kRed = 0x0000FF;
constexpr Long kWhite = 0xFFFFFF;

// Paints its whole window in one colour whenever it is asked to.
class Painted final : public WindowProcedure {
 public:
  Painted(Desk& desk, Long color) : mDesk(desk), mColor(color) {}
  Long OnMessage(Long hwnd, Long message, Long wParam, Long lParam) override {
    if (message != wm::kPaint) return mDesk.Host().DefaultProcedure(hwnd, message, wParam, lParam);
    PaintStruct paint;
    const Long hdc = mDesk.Graphics().BeginPaint(hwnd, paint);
    mDesk.Canvas().FillRectangle(hdc, paint.rcPaint, mColor);
    mDesk.Graphics().EndPaint(hwnd, paint);
    ++mPaints;
    return 0;
  }
  int Paints() const { return mPaints; }

 private:
  Desk& mDesk;
  Long mColor;
  int mPaints = 0;
};

std::uint32_t PixelAt(const Desk& desk, int x, int y) { return *desk.Screen().At(x, y); }

TEST(Desk, Services_AreAllThere) {
  Desk desk;
  const Platform services = desk.Services();
  EXPECT_TRUE(services.windows && services.graphics && services.pictures && services.modules && services.components &&
              services.runTime && services.subclassers);
}

TEST(Desk, Windows_PaintOnTheScreenWhatNothingCovers) {
  Desk desk({100, 80, 96});
  EXPECT_EQ(PixelAt(desk, 50, 40), 0x004E98u);
  Painted low(desk, kRed);
  Painted high(desk, kWhite);
  const Long below = desk.Host().CreateWindowOf(u"Low", u"", 0, {10, 10, 60, 60}, &low);
  const Long above = desk.Host().CreateWindowOf(u"High", u"", 0, {40, 40, 90, 70}, &high);
  desk.Windows().ShowWindow(below, 5);
  desk.Windows().ShowWindow(above, 5);
  desk.Windows().DoEvents();
  EXPECT_EQ(PixelAt(desk, 10, 10), 0xFF0000u);
  EXPECT_EQ(PixelAt(desk, 50, 50), 0xFFFFFFu);
  EXPECT_EQ(PixelAt(desk, 9, 10), 0x004E98u);

  const Long hdc = desk.Graphics().GetDC(below);
  EXPECT_EQ(desk.Graphics().GetPixel(hdc, 0, 0), kRed);
  EXPECT_EQ(desk.Graphics().GetPixel(hdc, 40, 40), -1);
  desk.Graphics().ReleaseDC(below, hdc);

  const int before = low.Paints();
  desk.Host().DestroyWindow(above);
  desk.Windows().DoEvents();
  EXPECT_EQ(low.Paints(), before + 1);
  EXPECT_EQ(PixelAt(desk, 50, 50), 0xFF0000u);
  EXPECT_EQ(PixelAt(desk, 80, 65), 0x004E98u);
  EXPECT_TRUE(desk.Misuses().All().empty());
  EXPECT_TRUE(desk.Objects().Lost().empty());
}

TEST(Desk, AnotherProgram_CoversTheScreenAndGoes) {
  Desk desk({60, 40, 96});
  Painted painted(desk, kRed);
  const Long hwnd = desk.Host().CreateWindowOf(u"Top", u"", 0, {0, 0, 60, 40}, &painted);
  desk.Windows().ShowWindow(hwnd, 5);
  desk.Windows().DoEvents();
  desk.Host().CoverScreen(true);
  EXPECT_EQ(PixelAt(desk, 30, 20), 0xECE9D8u);
  desk.Host().CoverScreen(false);
  desk.Windows().DoEvents();
  EXPECT_EQ(PixelAt(desk, 30, 20), 0xFF0000u);
}

TEST(Desk, Options_SetScreenAndResolution) {
  Desk desk({640, 480, 120});
  EXPECT_EQ(desk.Screen().width, 640);
  EXPECT_EQ(desk.RunTime().TwipsPerPixelX(), 12);
  EXPECT_EQ(desk.RunTime().ScreenObject().Get("Width").ToLong(), 640 * 12);
  Desk odd({-5, 1 << 30, 0});
  EXPECT_EQ(odd.Screen().width, 1024);
  EXPECT_EQ(odd.Screen().height, 768);
  EXPECT_EQ(odd.RunTime().TwipsPerPixelX(), 15);
  Desk tooLarge({8193, 8192, 96});
  EXPECT_EQ(tooLarge.Screen().width, 1024);
}

TEST(Desk, WhoIsCalling_NamesMakers) {
  Desk desk({20, 20, 96});
  desk.SetWhoIsCalling([] { return std::string("Somebody"); });
  desk.Graphics().CreateCompatibleDC(0);
  desk.Graphics().DeleteDC(5);
  EXPECT_EQ(desk.Objects().Lost()[0].maker, "Somebody, CreateCompatibleDC");
  EXPECT_EQ(desk.Misuses().All()[0].who, "Somebody");
}

TEST(Desk, WritePng_GivesTheScreensPixels) {
  Desk desk({20, 10, 96});
  const Long hdc = desk.Graphics().GetDC(0);
  desk.Canvas().FillRectangle(hdc, {2, 1, 3, 2}, 0x332211);
  desk.Graphics().ReleaseDC(0, hdc);
  const std::string path = testing::TempDir() + "strandline_desk_test.png";
  ASSERT_TRUE(desk.WritePng(path, {1, 1, 99, 4}));

  png_image image{};
  image.version = PNG_IMAGE_VERSION;
  ASSERT_TRUE(png_image_begin_read_from_file(&image, path.c_str()));
  image.format = PNG_FORMAT_RGB;
  std::vector<Byte> bytes(PNG_IMAGE_SIZE(image));
  ASSERT_TRUE(png_image_finish_read(&image, nullptr, bytes.data(), 0, nullptr));
  EXPECT_EQ(image.width, 19u);
  EXPECT_EQ(image.height, 3u);
  EXPECT_EQ(std::vector<Byte>(bytes.begin(), bytes.begin() + 6),
            (std::vector<Byte>{0x00, 0x4E, 0x98, 0x11, 0x22, 0x33}));
  std::remove(path.c_str());
}

TEST(Desk, WritePng_FailsWithoutPixelsOrFile) {
  Desk desk({20, 10, 96});
  EXPECT_FALSE(desk.WritePng(testing::TempDir() + "strandline_desk_test.png", {20, 0, 30, 10}));
  EXPECT_FALSE(desk.WritePng("/no/such/folder/picture.png", {0, 0, 10, 10}));
}

}  // namespace
}  // namespace strandline::desk
