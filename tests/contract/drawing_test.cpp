// The library's own drawing and pictures on the services of the world.

#include "drawing/BorderDrawingFunctions.h"
#include "drawing/IPictureDispUtilities.h"
#include "drawing/LoadImageFromResource.h"
#include "drawing/color_key.h"
#include "tests/contract/core_contract.h"
#include "tests/contract/surface.h"

namespace strandline::contract {
namespace {

using DrawingContract = CoreContract;

Long Icon(Long x, Long y) { return (x + 2 * y) % 3 == 0 ? kColorKey : x * 0x100F00 + y * 0x35 + 0x404; }
Long Ground(Long x, Long y) { return 0x0A0B0C + x * 0x050000 + y * 0x1100; }

TEST_F(DrawingContract, ATransparentCopy_LeavesTheTargetWhereTheKeyIs) {
  Surface icon(16, 12);
  icon.FillWith(&Icon);
  Surface target(24, 20);
  target.FillWith(&Ground);
  ToolbarUtilities::TransparentBlt(target.Hdc(), 5, 4, 10, 8, icon.Hdc(), 3, 2);
  EXPECT_EQ(target.Wrong([](Long x, Long y) {
    const bool inside = x >= 5 && x < 15 && y >= 4 && y < 12;
    const Long pixel = inside ? Icon(x - 5 + 3, y - 4 + 2) : kColorKey;
    return pixel == kColorKey ? Ground(x, y) : pixel;
  }),
            0);
}

TEST_F(DrawingContract, ATransparentCopyBeyondItsSource_TurnsBlackThere) {
  Surface icon(4, 4);
  icon.FillWith(&Icon);
  Surface target(9, 9);
  target.FillWith(&Ground);
  ToolbarUtilities::TransparentBlt(target.Hdc(), 1, 1, 6, 6, icon.Hdc(), 0, 0);
  EXPECT_EQ(target.Wrong([](Long x, Long y) {
    if (x < 1 || y < 1 || x >= 7 || y >= 7) return Ground(x, y);
    if (x >= 5 || y >= 5) return kBlack;
    return Icon(x - 1, y - 1) == kColorKey ? Ground(x, y) : Icon(x - 1, y - 1);
  }),
            0);
}

TEST_F(DrawingContract, ABorder_ReachesItsLastPixelAndNotBeyond) {
  for (const Long edge : {BorderDrawingFunctions::kEdgeRaised, BorderDrawingFunctions::kEdgeSunken}) {
    Surface target(14, 10);
    target.Fill({0, 0, 14, 10}, 0x00FFEE);
    Surface expected(14, 10);
    expected.Fill({0, 0, 14, 10}, 0x00FFEE);
    BorderDrawingFunctions::DrawBorder(target.Hdc(), 0, 0, 12, 8, edge);
    graphics.DrawEdge(expected.Hdc(), {0, 0, 12, 8}, edge, 15);
    EXPECT_EQ(target.Wrong([&](Long x, Long y) { return expected.At(x, y); }), 0) << edge;
    EXPECT_NE(target.At(11, 7), 0x00FFEE);
  }
}

struct Image {
  Integer number;
  Long width;
  Long height;
};
constexpr Image kImages[] = {{102, 32, 32}, {103, 25, 30}, {201, 1, 1}, {202, 16, 16}};

void ExpectImage(const Image& image, Long module) {
  const Picture picture = LoadImageFromResource::LoadResGifJpgBmp(image.number, module);
  ASSERT_TRUE(picture) << image.number;
  EXPECT_EQ(ToolbarUtilities::HM2PixX(picture->Width()), image.width);
  EXPECT_EQ(ToolbarUtilities::HM2PixY(picture->Height()), image.height);
  EXPECT_NE(picture->Handle(), 0);
}

TEST_F(DrawingContract, Images_AreTheLibrarysOwn) {
  for (const Image& image : kImages) ExpectImage(image, 0);
}

TEST_F(DrawingContract, Images_AreOfAModule) {
  ModuleContents contents;
  for (const Image& image : kImages) {
    const char* const kind = image.number == 201 ? ".bmp" : ".gif";
    contents.resources[image.number] = BytesOfFile("resources/images/" + std::to_string(image.number) + kind);
  }
  const Long module = modules.LoadLibraryA(MakeModule(contents));
  ASSERT_NE(module, 0);
  for (const Image& image : kImages) ExpectImage(image, module);
  EXPECT_NE(modules.FreeLibrary(module), 0);
}

TEST_F(DrawingContract, AnImageThatIsntThere_IsNothing) {
  EXPECT_FALSE(LoadImageFromResource::LoadResGifJpgBmp(999, 0));
  EXPECT_FALSE(LoadImageFromResource::LoadResGifJpgBmp(102, 4711));
}

TEST_F(DrawingContract, AnIconsMask_IsWhereTheKeyIs) {
  const Ref<IPictureDispUtilities> shown = New<IPictureDispUtilities>();
  const Ref<IPictureDispUtilities> masks = New<IPictureDispUtilities>();
  const Ref<IPictureDispUtilities> shownMask = New<IPictureDispUtilities>();
  const Picture mask = masks->CreateIPictureDispMask(LoadImageFromResource::LoadResGifJpgBmp(202, 0));
  ASSERT_TRUE(mask);
  const Picture source = LoadImageFromResource::LoadResGifJpgBmp(202, 0);
  const Long icon = shown->IPictureDispToHdc(source);
  const Long maskHdc = shownMask->IPictureDispToHdc(mask);
  int keys = 0;
  int wrong = 0;
  for (Long y = 0; y < 16; ++y) {
    for (Long x = 0; x < 16; ++x) {
      const bool key = graphics.GetPixel(icon, x, y) == kColorKey;
      keys += key;
      wrong += graphics.GetPixel(maskHdc, x, y) != (key ? kWhite : kBlack);
    }
  }
  EXPECT_EQ(wrong, 0);
  EXPECT_GT(keys, 0);
  EXPECT_LT(keys, 256);
}

// Its one-bit bitmap has the extents of the picture in hundredths of a millimetre: 32,756 in both directions at last.
TEST_F(DrawingContract, AMask_IsRightUpToTheLargestExtent) {
  for (const Long size : {309, 310, 1238}) {
    SCOPED_TRACE(size);
    const Long hdc = graphics.CreateCompatibleDC(0);
    const Long bitmap = graphics.CreateBitmap(size, size, 1, 32);
    const Long former = graphics.SelectObject(hdc, bitmap);
    const Long brush = graphics.CreateSolidBrush(kColorKey);
    const Rect keyed{size / 3, 1, size - 1, size / 2};
    graphics.FillRect(hdc, keyed, brush);
    graphics.DeleteObject(brush);
    graphics.SelectObject(hdc, former);
    const Ref<IPictureDispUtilities> pictureMaker = New<IPictureDispUtilities>();
    const Picture mask = pictureMaker->CreateIPictureDispMask(pictureMaker->hBmpToIPictureDisp(bitmap));
    ASSERT_TRUE(mask);
    graphics.SelectObject(hdc, mask->Handle());
    int wrong = 0;
    for (const Long y : {Long{0}, Long{1}, size / 2 - 1, size / 2, size - 1}) {
      for (Long x = 0; x < size; ++x) {
        const bool isKey = x >= keyed.left && x < keyed.right && y >= keyed.top && y < keyed.bottom;
        wrong += graphics.GetPixel(hdc, x, y) != (isKey ? kWhite : kBlack);
      }
    }
    EXPECT_EQ(wrong, 0);
    graphics.SelectObject(hdc, former);
    graphics.DeleteDC(hdc);
  }
}

TEST_F(DrawingContract, AnIconOnTheColourOfMenus_HasItWhereTheKeyWas) {
  constexpr Long kMenuColor = 4;
  const Picture plain =
      ToolbarUtilities::ReplaceBackgroundWithMenuColor(LoadImageFromResource::LoadResGifJpgBmp(202, 0));
  ASSERT_TRUE(plain);
  EXPECT_EQ(ToolbarUtilities::HM2PixX(plain->Width()), 16);
  const Ref<IPictureDispUtilities> shown = New<IPictureDispUtilities>();
  const Ref<IPictureDispUtilities> keyed = New<IPictureDispUtilities>();
  const Long hdc = shown->IPictureDispToHdc(plain);
  const Picture source = LoadImageFromResource::LoadResGifJpgBmp(202, 0);
  const Long icon = keyed->IPictureDispToHdc(source);
  int wrong = 0;
  for (Long y = 0; y < 16; ++y) {
    for (Long x = 0; x < 16; ++x) {
      const Long pixel = graphics.GetPixel(icon, x, y);
      wrong += graphics.GetPixel(hdc, x, y) != (pixel == kColorKey ? graphics.GetSysColor(kMenuColor) : pixel);
    }
  }
  EXPECT_EQ(wrong, 0);
}

}  // namespace
}  // namespace strandline::contract
