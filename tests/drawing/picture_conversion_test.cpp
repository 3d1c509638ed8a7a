// Between picture objects and raw bitmaps: who owns what, and what is used up.

#include "tests/drawing/drawing_fixture.h"
#include "tests/support/variables.h"

namespace strandline {
namespace {

// The extent of that many pixels at 96 dots per inch.
constexpr Long HimetricOf(Long pixels) { return (pixels * 2540 + 48) / 96; }

class ConversionTest : public DrawingTest {
 protected:
  void TearDown() override {
    utilities = nullptr;
    DrawingTest::TearDown();
  }
  bool IsLive(Long handle) { return floor->desk.Objects().IsLive(handle); }

  Ref<IPictureDispUtilities> utilities = New<IPictureDispUtilities>();
};

TEST_F(ConversionTest, ANewConverter_ReportsItsFieldsAndTheRecordsItFilled) {
  const VariableSnapshot variables = VariableSnapshot::Of(*utilities);
  EXPECT_EQ(Listed(variables.Names()),
            Listed({"mOldBmpHandle", "mIPictureDispHdc", "mCalledAlready", "tPicConv.cbSizeofStruct",
                    "tPicConv.picType", "tPicConv.hImage", "tPicConv.xExt", "tPicConv.yExt", "IGuid.Data1",
                    "IGuid.Data2", "IGuid.Data3", "IGuid.Data4"}));
  EXPECT_EQ(variables.Number(u"mOldBmpHandle"), 0);
  EXPECT_EQ(variables.Number(u"mIPictureDispHdc"), 0);
  EXPECT_FALSE(variables.Flag(u"mCalledAlready"));
  EXPECT_EQ(variables.Number(u"tPicConv.cbSizeofStruct"), 20);
  EXPECT_EQ(variables.Number(u"tPicConv.picType"), 1);
  EXPECT_EQ(variables.Number(u"tPicConv.hImage"), 0);
  EXPECT_EQ(variables.Number(u"IGuid.Data1"), 0x7BF80980);
  EXPECT_EQ(variables.Number(u"IGuid.Data2"), -16590);
  EXPECT_EQ(variables.Number(u"IGuid.Data3"), 0x101A);
  EXPECT_EQ(Shown(variables[u"IGuid.Data4"]), "[0 139 187 0 170 0 48 12 171]");
}

TEST_F(ConversionTest, HBmpToIPictureDisp_OfNoBitmap_IsNothingAndAsksNobody) {
  floor->calls.Clear();
  EXPECT_FALSE(utilities->hBmpToIPictureDisp(0));
  EXPECT_EQ(Listed(floor->calls.Take()), "");
}

TEST_F(ConversionTest, HBmpToIPictureDisp_GivesAPictureThatOwnsTheBitmap) {
  const Long bitmap = floor->MakeBitmap(20, 10, kRed);
  floor->calls.Name(bitmap, "the bitmap");
  floor->calls.Clear();
  Picture picture = utilities->hBmpToIPictureDisp(bitmap);
  EXPECT_EQ(Listed(floor->calls.Take()),
            Listed({"OleCreatePictureIndirect(the bitmap, '{7BF80980-BF32-101A-8BBB-00AA00300CAB}', True, True)"}));
  ASSERT_TRUE(picture);
  EXPECT_EQ(picture->Handle(), bitmap);
  EXPECT_EQ(picture->Width(), HimetricOf(20));
  EXPECT_EQ(picture->Height(), HimetricOf(10));
  EXPECT_EQ(VariableSnapshot::Of(*utilities).Number(u"tPicConv.hImage"), bitmap);
  utilities = nullptr;
  EXPECT_TRUE(IsLive(bitmap));
  picture = nullptr;
  EXPECT_FALSE(IsLive(bitmap));
}

TEST_F(ConversionTest, HBmpToIPictureDisp_ThatTheSystemRefuses_IsNothing) {
  floor->faults.Arm("OleCreatePictureIndirect", 1);
  EXPECT_FALSE(utilities->hBmpToIPictureDisp(floor->MakeBitmap(2, 2, kRed)));
}

TEST_F(ConversionTest, HBmpToIPictureDisp_OfSeveral_GivesEachItsOwn) {
  const Long one = floor->MakeBitmap(2, 2, kRed);
  const Long two = floor->MakeBitmap(3, 3, kGreen);
  const Picture first = utilities->hBmpToIPictureDisp(one);
  const Picture second = utilities->hBmpToIPictureDisp(two);
  EXPECT_EQ(first->Handle(), one);
  EXPECT_EQ(second->Handle(), two);
}

TEST_F(ConversionTest, IPictureDispToHdc_ShowsThePictureInAContextOfTheDisplay) {
  const Picture picture = floor->MakePicture({"r.g", ".w#"});
  floor->calls.Name(picture->Handle(), "its bitmap");
  floor->calls.Name(floor->desk.Windows().GetDesktopWindow(), "desktop");
  floor->calls.Clear();
  const Long hdc = utilities->IPictureDispToHdc(picture);
  EXPECT_EQ(Listed(floor->calls.Take()),
            Listed({"GetDesktopWindow() = desktop", "GetDC(desktop) = dc 1", "CreateCompatibleDC(dc 1) = dc 2",
                    "CreateCompatibleBitmap(dc 1, 3, 2) = bitmap 1", "SelectObject(dc 2, bitmap 1) = stock",
                    "SelectObject(dc 2, its bitmap) = bitmap 1", "ReleaseDC(desktop, dc 1)"}));
  EXPECT_EQ(Listed(floor->RowsOf(hdc)), Listed({"r.g", ".w#"}));
  const VariableSnapshot variables = VariableSnapshot::Of(*utilities);
  EXPECT_EQ(variables.Number(u"mIPictureDispHdc"), hdc);
  EXPECT_NE(variables.Number(u"mOldBmpHandle"), 0);
  EXPECT_EQ(floor->BitmapSurface(variables.Number(u"mOldBmpHandle")).width, 3);
  EXPECT_TRUE(variables.Flag(u"mCalledAlready"));
}

TEST_F(ConversionTest, CleanupIPictureDispToHdc_UsesThePictureUpAndIsDoneOnce) {
  const int contexts = floor->Contexts();
  const Picture picture = floor->MakePicture({"r.g", ".w#"});
  const Long bitmap = picture->Handle();
  const Long hdc = utilities->IPictureDispToHdc(picture);
  const Long placeholder = VariableSnapshot::Of(*utilities).Number(u"mOldBmpHandle");
  floor->calls.Name(bitmap, "its bitmap");
  floor->calls.Name(placeholder, "placeholder");
  floor->calls.Name(hdc, "context");
  floor->calls.Clear();
  utilities->CleanupIPictureDispToHdc();
  EXPECT_EQ(Listed(floor->calls.Take()), Listed({"SelectObject(context, placeholder) = its bitmap",
                                                 "DeleteObject(its bitmap)", "DeleteDC(context)"}));
  EXPECT_FALSE(IsLive(bitmap));
  EXPECT_FALSE(IsLive(hdc));
  EXPECT_TRUE(IsLive(placeholder));
  EXPECT_EQ(floor->Contexts(), contexts);
  EXPECT_EQ(VariableSnapshot::Of(*utilities).Number(u"mOldBmpHandle"), 0);
  EXPECT_EQ(VariableSnapshot::Of(*utilities).Number(u"mIPictureDispHdc"), 0);
  utilities->CleanupIPictureDispToHdc();
  EXPECT_EQ(Listed(floor->calls.Take()), "");
}

TEST_F(ConversionTest, AConverterWithoutAConversion_GoesQuietly) {
  floor->calls.Clear();
  utilities = nullptr;
  EXPECT_EQ(Listed(floor->calls.Take()), "");
}

TEST_F(ConversionTest, AConvertersEnd_EndsItsConversion) {
  const int contexts = floor->Contexts();
  const Picture picture = floor->MakePicture(4, 4, kRed);
  const Long bitmap = picture->Handle();
  utilities->IPictureDispToHdc(picture);
  EXPECT_TRUE(IsLive(bitmap));
  utilities = nullptr;
  EXPECT_FALSE(IsLive(bitmap));
  EXPECT_EQ(floor->Contexts(), contexts);
}

TEST_F(ConversionTest, IPictureDispToHdc_OfNothing_IsAnErrorAndNoContext) {
  floor->calls.Clear();
  EXPECT_EQ(utilities->IPictureDispToHdc(nullptr), 0);
  EXPECT_EQ(Listed(TakeErrors()), Listed({"91 IPictureDispUtilities.IPictureDispToHdc"}));
  EXPECT_EQ(Listed(floor->calls.Take()), "");
}

TEST_F(ConversionTest, CreateIPictureDispMask_IsWhiteWhereThePictureIsTransparentAndBlackElsewhere) {
  const Picture picture = floor->MakePicture({"r.g.", ".#.w", "...."});
  const Picture mask = utilities->CreateIPictureDispMask(picture);
  ASSERT_TRUE(mask);
  EXPECT_EQ(Listed(floor->RowsOfBitmap(mask->Handle())), Listed({"#w#w", "w#w#", "wwww"}));
  EXPECT_EQ(mask->Width(), HimetricOf(4));
  EXPECT_EQ(mask->Height(), HimetricOf(3));
}

TEST_F(ConversionTest, CreateIPictureDispMask_TellsTheKeyFromItsNeighbours) {
  for (const Long color : {kKey - 0x010000, kKey + 1, kKey + 0x100}) {
    const Picture mask = utilities->CreateIPictureDispMask(floor->MakePicture(2, 1, color));
    EXPECT_EQ(Listed(floor->RowsOfBitmap(mask->Handle())), Listed({"##"})) << color;
  }
}

TEST_F(ConversionTest, CreateIPictureDispMask_UsesItsSourceUpAndLeavesTheMaskAlone) {
  const int contexts = floor->Contexts();
  const int bitmaps = floor->Bitmaps();
  const Picture picture = floor->MakePicture(16, 16, kRed);
  const Long bitmap = picture->Handle();
  Picture mask = utilities->CreateIPictureDispMask(picture);
  EXPECT_FALSE(IsLive(bitmap));
  EXPECT_TRUE(IsLive(mask->Handle()));
  EXPECT_EQ(floor->Contexts(), contexts);
  EXPECT_EQ(floor->Bitmaps(), bitmaps + 1);
  mask = nullptr;
  EXPECT_EQ(floor->Bitmaps(), bitmaps);
  // It isn't a conversion that stays open.
  EXPECT_FALSE(VariableSnapshot::Of(*utilities).Flag(u"mCalledAlready"));
}

// The mask's own surface is made of the extents as they are; the picture's surfaces limit what is copied.
TEST_F(ConversionTest, CreateIPictureDispMask_GoesThroughItsSteps) {
  const Picture picture = floor->MakePicture(4, 2, kRed);
  ASSERT_EQ(picture->Width(), 106);
  ASSERT_EQ(picture->Height(), 53);
  floor->calls.Name(picture->Handle(), "its bitmap");
  floor->calls.Clear();
  const Picture mask = utilities->CreateIPictureDispMask(picture);
  EXPECT_EQ(Listed(floor->calls.Take()),
            Listed({
                "CreateCompatibleDC(0) = dc 1",
                "SelectObject(dc 1, its bitmap) = stock",
                "CreateCompatibleDC(dc 1) = dc 2",
                "CreateCompatibleBitmap(dc 1, 4, 2) = bitmap 1",
                "SelectObject(dc 2, bitmap 1) = stock",
                "CreateCompatibleDC(dc 2) = dc 3",
                "CreateBitmap(106, 53, 1, 1) = bitmap 2",
                "SelectObject(dc 3, bitmap 2) = stock",
                "SetBkColor(dc 1, 0xFF0000)",  // and not put back
                "BitBlt(dc 3, 0, 0, 106, 53, dc 1, 0, 0, SRCCOPY)",
                "BitBlt(dc 2, 0, 0, 106, 53, dc 3, 0, 0, SRCCOPY)",
                "SelectObject(dc 3, stock) = bitmap 2",
                "DeleteObject(bitmap 2)",
                "DeleteDC(dc 3)",
                "SelectObject(dc 2, stock) = bitmap 1",
                "OleCreatePictureIndirect(bitmap 1, '{7BF80980-BF32-101A-8BBB-00AA00300CAB}', True, True)",
                "SelectObject(dc 1, stock) = its bitmap",
                "DeleteObject(its bitmap)",
                "DeleteDC(dc 1)",
                "DeleteDC(dc 2)",
            }));
}

TEST_F(ConversionTest, CreateIPictureDispMask_OfAPictureWhoseExtentLeavesAnInteger_Overflows) {
  const Picture widest = floor->MakePicture(1238, 1, kRed);
  ASSERT_LE(widest->Width(), 32767);
  EXPECT_TRUE(utilities->CreateIPictureDispMask(widest));
  EXPECT_EQ(Listed(TakeErrors()), "");
  for (const Picture& picture : {floor->MakePicture(1239, 1, kRed), floor->MakePicture(1, 1239, kRed)}) {
    const Long bitmap = picture->Handle();
    EXPECT_FALSE(utilities->CreateIPictureDispMask(picture));
    EXPECT_EQ(Listed(TakeErrors()), Listed({"6 IPictureDispUtilities.CreateIPictureDispMask"}));
    EXPECT_TRUE(IsLive(bitmap));  // it didn't come to the end
  }
}

TEST_F(ConversionTest, CreateIPictureDispMask_WhoseOverflowIsIgnored_GivesABlackMask) {
  const Picture picture = floor->MakePicture(1239, 1, kKey);
  const Long bitmap = picture->Handle();
  floor->errors.Answer({vbwProtector::kIgnore});
  const Picture mask = utilities->CreateIPictureDispMask(picture);
  EXPECT_EQ(Listed(TakeErrors()), Listed({"6 IPictureDispUtilities.CreateIPictureDispMask"}));
  ASSERT_TRUE(mask);
  EXPECT_EQ(floor->RowsOfBitmap(mask->Handle())[0], std::string(1239, '#'));
  EXPECT_FALSE(IsLive(bitmap));
}

TEST_F(ConversionTest, CreateDesktopCompatibleBitmap_IsAColourSurfaceAndLetsTheDesktopGo) {
  const int contexts = floor->Contexts();
  const Long bitmap = ToolbarUtilities::CreateDesktopCompatibleBitmap(31, 17);
  EXPECT_EQ(floor->BitmapSurface(bitmap).width, 31);
  EXPECT_EQ(floor->BitmapSurface(bitmap).height, 17);
  EXPECT_FALSE(floor->BitmapSurface(bitmap).IsMono());
  EXPECT_EQ(floor->Contexts(), contexts);
}

TEST_F(ConversionTest, CreateDesktopCompatibleBitmap_AsksTheDesktopsOwnContext) {
  floor->calls.Name(floor->desk.Windows().GetDesktopWindow(), "desktop");
  floor->calls.Clear();
  ToolbarUtilities::CreateDesktopCompatibleBitmap(31, 17);
  EXPECT_EQ(Listed(floor->calls.Take()),
            Listed({"GetDesktopWindow() = desktop", "GetDC(desktop) = dc 1",
                    "CreateCompatibleBitmap(dc 1, 31, 17) = bitmap 1", "ReleaseDC(desktop, dc 1)"}));
}

TEST_F(ConversionTest, FillDcWithColor_FillsFromTheOriginAndDeletesItsBrush) {
  const Long hdc = floor->MakeContext(5, 4, kWhite);
  const int brushes = floor->Brushes();
  ToolbarUtilities::FillDcWithColor(hdc, kRed, 3, 2);
  EXPECT_EQ(Listed(floor->RowsOf(hdc)), Listed({"rrrww", "rrrww", "wwwww", "wwwww"}));
  EXPECT_EQ(floor->Brushes(), brushes);
}

TEST_F(ConversionTest, ReplaceBackgroundWithMenuColor_PutsThePictureOnTheColourOfMenus) {
  for (const bool byMasks : {false, true}) {
    if (byMasks) floor->WithoutColorKeyBlt();
    const Long menu = floor->desk.Graphics().GetSysColor(4);
    ASSERT_NE(menu, kKey);
    const Picture result =
        ToolbarUtilities::ReplaceBackgroundWithMenuColor(floor->MakePicture({"r.g.", ".#.w", "...r"}));
    ASSERT_TRUE(result);
    const Long hdc = floor->desk.Graphics().CreateCompatibleDC(0);
    floor->desk.Graphics().SelectObject(hdc, result->Handle());
    const std::string rows[] = {"r.g.", ".#.w", "...r"};
    for (Long y = 0; y < 3; ++y) {
      for (Long x = 0; x < 4; ++x) {
        const char pixel = rows[y][static_cast<std::size_t>(x)];
        EXPECT_EQ(floor->PixelAt(hdc, x, y), pixel == '.' ? menu : DrawingFloor::ColorOf(pixel)) << x << "," << y;
      }
    }
    EXPECT_EQ(result->Width(), HimetricOf(4));
    EXPECT_EQ(result->Height(), HimetricOf(3));
    floor->desk.Graphics().SelectObject(hdc, desk::ObjectTable::kStockBitmap);
    floor->desk.Graphics().DeleteDC(hdc);
  }
}

TEST_F(ConversionTest, ReplaceBackgroundWithMenuColor_GoesThroughItsSteps) {
  const Picture picture = floor->MakePicture(4, 2, kRed);
  floor->calls.Name(picture->Handle(), "its bitmap");
  floor->calls.Name(floor->desk.Windows().GetDesktopWindow(), "desktop");
  floor->calls.Clear();
  ToolbarUtilities::ReplaceBackgroundWithMenuColor(picture);
  Lines calls = floor->calls.Take();
  ASSERT_GT(calls.size(), 7u);
  calls.erase(calls.begin(), calls.begin() + 7);  // the conversion, in dc 2 with bitmap 1
  ASSERT_EQ(floor->desk.Graphics().GetSysColor(4), kWhite);
  EXPECT_EQ(Listed(calls),
            Listed({
                "CreateCompatibleDC(dc 2) = dc 3",
                "GetDesktopWindow() = desktop",
                "GetDC(desktop) = dc 4",
                "CreateCompatibleBitmap(dc 4, 4, 2) = bitmap 2",
                "ReleaseDC(desktop, dc 4)",
                "SelectObject(dc 3, bitmap 2) = stock",
                "GetSysColor(4)",
                "CreateSolidBrush(0xFFFFFF) = object 1",
                "FillRect(dc 3, [0 0 4 2], object 1)",
                "DeleteObject(object 1)",
                "ColorKeyBlt(dc 3, 0, 0, 4, 2, dc 2, 0, 0, 0xFF0000)",
                "SelectObject(dc 3, stock) = bitmap 2",
                "OleCreatePictureIndirect(bitmap 2, '{7BF80980-BF32-101A-8BBB-00AA00300CAB}', True, True)",
                "DeleteDC(dc 3)",
                "SelectObject(dc 2, bitmap 1) = its bitmap",
                "DeleteObject(its bitmap)",
                "DeleteDC(dc 2)",
            }));
}

TEST_F(ConversionTest, ReplaceBackgroundWithMenuColor_UsesItsSourceUpAndOwnsTheResult) {
  const int contexts = floor->Contexts();
  const int brushes = floor->Brushes();
  const Picture source = floor->MakePicture(16, 16, kRed);
  const Long bitmap = source->Handle();
  Picture result = ToolbarUtilities::ReplaceBackgroundWithMenuColor(source);
  const Long itsBitmap = result->Handle();
  EXPECT_FALSE(IsLive(bitmap));
  EXPECT_EQ(floor->Contexts(), contexts);
  EXPECT_EQ(floor->Brushes(), brushes);
  result = nullptr;
  EXPECT_FALSE(IsLive(itsBitmap));
}

TEST_F(ConversionTest, ReplaceBackgroundWithMenuColor_OfNothing_IsNothing) {
  EXPECT_FALSE(ToolbarUtilities::ReplaceBackgroundWithMenuColor(nullptr));
  EXPECT_EQ(Listed(TakeErrors()), Listed({"91 IPictureDispUtilities.IPictureDispToHdc",
                                          "91 ToolbarUtilities.ReplaceBackgroundWithMenuColor"}));
}

}  // namespace
}  // namespace strandline
