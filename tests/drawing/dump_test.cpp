// What a dump shows of a procedure of the drawing floor: its parameters, its local variables, those of its module or
// object, in their order.

#include "foundation/cCustomClipboard.h"
#include "platform/wrappers/forwarding.h"
#include "tests/drawing/content_fixture.h"
#include "tests/drawing/painter_fixture.h"
#include "tests/support/allocations.h"
#include "tests/support/written_dump.h"
#include "wordsim/command_bars.h"

namespace strandline {
namespace {

std::string Text(Long number) { return std::to_string(number); }

// The lines between a dump's first two banners.
std::string LocalsOf(const LogLines& log) {
  const std::string dump = WrittenDump(log);
  const std::string begin = "* LOCAL LEVEL VARIABLES  *\n";
  const std::size_t from = dump.find(begin);
  if (from == std::string::npos) return "no dump";
  return dump.substr(from + begin.size(), dump.find("* MODULE LEVEL VARIABLES *") - from - begin.size());
}

// The next error is answered by a dump, after `before` errors that aren't.
void AskForADump(ErrorScript& errors, int before = 0) {
  std::vector<Variant> answers(static_cast<std::size_t>(before), Long{0});
  answers.push_back(vbwProtector::kDump);
  errors.log.clear();
  errors.Answer(std::move(answers));
}

class DumpOfPainter : public PainterTest {
 protected:
  DumpOfPainter() { AskForADump(floor->errors); }
};

TEST_F(DumpOfPainter, OfAPictureThatLeavesTheCoordinates_IsWhole) {
  Initialize();
  const Long picture = floor->MakeContext(2, 4, kRed);
  painter->PaintIconImpl(picture, 32767, 3, 6, 8, 2, 4, Frame(), false);
  EXPECT_EQ(
      WrittenDump(floor->errors.log),
      AsText({{"picDC = " + Text(picture), "destx = 32767", "desty = 3", "destWidth = 6", "destHeight = 8",
               "srcWidth = 2", "srcHeight = 4", "destHdc = " + Text(Frame()), "needToEraseBackground = False",
               "deltaX = 2", "deltaY = 2", "srcX = 0", "srcY = 0", "DCwithOldBackground = 0", "oldHandle = 0"},
              {"mWidth = 60", "mHeight = 24", "mUpdateRect.left = 0", "mUpdateRect.top = 0", "mUpdateRect.right = 0",
               "mUpdateRect.bottom = 0", "mUpdateAll = True", "mBackbuffer = " + Text(Frame()),
               "mBackbufferOldHandle = " + Text(Number(u"mBackbufferOldHandle")), "mBackground = " + Text(Background()),
               "mBackgroundOldHandle = " + Text(Number(u"mBackgroundOldHandle")), "mHdc = " + Text(Frame())}}));
  EXPECT_EQ(Listed(TakeErrors()), Listed({"6 Painter.PaintIconImpl", "-1 Painter.PaintIconImpl"}));
}

TEST_F(DumpOfPainter, OfTheUpdateRectangle_ShowsBothOffsets) {
  painter->PaintDCTransparently(0, 20, 10, 30, 30, 30, 30, 0, false);
  Integer x = -32768, y = 4, width = -30000, height = 9;
  painter->UpdateToSmallestRegion(x, y, width, height);
  EXPECT_EQ(LocalsOf(floor->errors.log),
            Listed({"destx = 20", "desty = 4", "width = -30000", "height = 9", "deltaX = -32788", "deltaY = -6"}));
  TakeErrors();
}

TEST_F(DumpOfPainter, OfAWindowThatIsTooWide_ShowsItsRectangle) {
  class WideWindow final : public ForwardingWindows {
   public:
    using ForwardingWindows::ForwardingWindows;
    Long GetWindowRect(Long, Rect& rectangle) override {
      rectangle = {-2147483647, 1, 2147483647, 3};
      return 1;
    }
  };
  Windows* const former = platform::current.windows;
  WideWindow wide(*former);
  platform::current.windows = &wide;
  Long width = 7;
  Long height = 8;
  painter->GetWindowExtents(window->strip, width, height);
  const LogLines rectangle = {"rectangle.left = -2147483647", "rectangle.top = 1", "rectangle.right = 2147483647",
                              "rectangle.bottom = 3"};
  const auto expected = [&](const std::string& extents) {
    return "hWnd = " + Text(window->strip) + "\n" + extents + Listed(rectangle);
  };
  EXPECT_EQ(LocalsOf(floor->errors.log), expected("width = 7\nheight = 8\n"));
  AskForADump(floor->errors);
  EXPECT_FALSE(painter->NeedRepaint(window->top, window->strip)) << "extents that can't be told are none";
  EXPECT_EQ(LocalsOf(floor->errors.log), expected("width = 0\nheight = 0\n"));
  platform::current.windows = former;
  TakeErrors();
}

TEST_F(DumpOfPainter, OfAPictureWhoseOffsetLeavesTheCoordinates_ShowsThatThereIsNone) {
  Initialize();
  const Long picture = floor->MakeContext(2, 4, kRed);
  painter->PaintIconImpl(picture, 1, 3, -32768, 8, 2, 4, Frame(), false);
  EXPECT_EQ(LocalsOf(floor->errors.log), Listed({"deltaX = 0", "deltaY = 0", "destWidth = -32768", "destHeight = 8",
                                                 "srcWidth = 2", "srcHeight = 4"}));
  TakeErrors();
  floor->DeleteContext(picture);
}

class DumpOfRaster : public DrawingTest {
 protected:
  void TearDown() override {
    utilities = nullptr;
    DrawingTest::TearDown();
  }

  Ref<IPictureDispUtilities> utilities = New<IPictureDispUtilities>();
};

const LogLines kEmptyModule = {
    "adFactory = Nothing",
    "productState = Nothing",
    "converter = Nothing",
    "mEnableList = [0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0]",
    "mTooltipText = [0 '' '' '' '' '' '' '' '' '' '' '' '' '' '' '' '' '']",
    "mProductName = ''",
    "mWidth = 0",
    "mHeight = 0",
    "mCachedBuffer = 0",
    "mCachedBufferHandle = 0",
};

TEST_F(DumpOfRaster, OfATransparentCopy_IsWhole) {
  AskForADump(floor->errors);
  ToolbarUtilities::TransparentBlt(11, 1, 2, 3, 32767, 12, 4, 5);
  EXPECT_EQ(WrittenDump(floor->errors.log),
            AsText({{"dstDC = 11",       "dstx = 1",          "dsty = 2",         "width = 3",       "height = 32767",
                     "srcDC = 12",       "srcX = 4",          "srcY = 5",         "source.left = 4", "source.top = 5",
                     "source.right = 6", "source.bottom = 0", "cx = 0",           "cy = 0",          "monoMaskDC = 0",
                     "hMonoMask = 0",    "oldMonoMask = 0",   "MonoInvDC = 0",    "hMonoInv = 0",    "oldMonoInv = 0",
                     "ResultDstDC = 0",  "hResultDst = 0",    "oldResultDst = 0", "ResultSrcDC = 0", "hResultSrc = 0",
                     "oldResultSrc = 0", "oldColor = 0"},
                    kEmptyModule}));
  EXPECT_EQ(Listed(TakeErrors()), Listed({"6 ToolbarUtilities.TransparentBlt", "-1 ToolbarUtilities.TransparentBlt"}));
}

TEST_F(DumpOfRaster, OfARegion_IsWholeAndShowsTheRecordsFieldByField) {
  const Picture made = utilities->hBmpToIPictureDisp(floor->MakeBitmap(2, 2, kRed));
  AskForADump(floor->errors, 1);
  utilities->MakeRegion(nullptr, 0x123456);
  EXPECT_EQ(
      WrittenDump(floor->errors.log),
      AsText({{"picture = no picture", "transparentColor = 1193046", "hdc = 0", "PicWidth = 0", "PicHeight = 0",
               "x = 0", "y = 0", "pixel = 0", "StartLineX = 0", "FullRegion = 0", "LineRegion = 0",
               "InFirstRegion = False", "InLine = False"},
              {"mOldBmpHandle = 0", "mIPictureDispHdc = 0", "mCalledAlready = True", "tPicConv.cbSizeofStruct = 20",
               "tPicConv.picType = 1", "tPicConv.hImage = " + Text(made->Handle()), "tPicConv.xExt = 0",
               "tPicConv.yExt = 0", "IGuid.Data1 = 2079852928", "IGuid.Data2 = -16590", "IGuid.Data3 = 4122",
               "IGuid.Data4 = [0 139 187 0 170 0 48 12 171]"}}));
  EXPECT_EQ(Listed(TakeErrors()),
            Listed({"91 IPictureDispUtilities.IPictureDispToHdc", "91 IPictureDispUtilities.MakeRegion",
                    "-1 IPictureDispUtilities.MakeRegion"}));
}

TEST_F(DumpOfRaster, OfAConversion_ShowsItsHandles) {
  AskForADump(floor->errors);
  utilities->IPictureDispToHdc(nullptr);
  EXPECT_EQ(LocalsOf(floor->errors.log),
            Listed({"picture = no picture", "width = 0", "height = 0", "desktop = 0", "desktopHdc = 0", "bitmap = 0"}));
  TakeErrors();
}

TEST_F(DumpOfRaster, OfAMask_ShowsItsHandles) {
  const Picture picture = floor->MakePicture(1, 1239, kRed);
  AskForADump(floor->errors);
  floor->calls.Clear();
  utilities->CreateIPictureDispMask(picture);
  const std::string locals = LocalsOf(floor->errors.log);
  EXPECT_TRUE(locals.starts_with("picture = picture\npixWidth = 1\npixHeight = 1239\nsrcDC = ")) << locals;
  for (const char* name : {"srcDC", "oldSrcHandle", "dstDC", "oldDstHandle"}) {
    const std::size_t at = locals.find(std::string(name) + " = ");
    ASSERT_NE(at, std::string::npos) << locals;
    EXPECT_NE(locals[at + std::string(name).size() + 3], '0') << locals;
  }
  TakeErrors();
}

TEST_F(DumpOfRaster, OfAMaskOfNothing_ShowsThatNothingIsDone) {
  AskForADump(floor->errors);
  utilities->CreateIPictureDispMask(nullptr);
  EXPECT_EQ(LocalsOf(floor->errors.log), Listed({"picture = no picture", "pixWidth = 0", "pixHeight = 0", "srcDC = 0",
                                                 "oldSrcHandle = 0", "dstDC = 0", "oldDstHandle = 0"}));
  TakeErrors();
}

TEST_F(DumpOfRaster, OfAFaceOnMenuColourForWhichThereIsNoMemory_ShowsThatNothingIsDone) {
  const Picture picture = floor->MakePicture(2, 2, kRed);
  AskForADump(floor->errors);
  FailNextAllocationOf(sizeof(IPictureDispUtilities));
  ToolbarUtilities::ReplaceBackgroundWithMenuColor(picture);
  FailNextAllocationOf(0);
  EXPECT_EQ(LocalsOf(floor->errors.log), Listed({"src = picture", "utilities = Nothing", "srcDC = 0", "dstDC = 0",
                                                 "width = 0", "height = 0", "bitmap = 0", "oldHandle = 0"}));
  TakeErrors();
}

TEST_F(DumpOfRaster, OfAFaceOnMenuColour_ShowsWhatItHasSoFar) {
  AskForADump(floor->errors, 1);
  ToolbarUtilities::ReplaceBackgroundWithMenuColor(nullptr);
  const std::string locals = LocalsOf(floor->errors.log);
  EXPECT_TRUE(locals.starts_with("src = no picture\nutilities = object\nsrcDC = 0\ndstDC = ")) << locals;
  EXPECT_TRUE(locals.ends_with("\nwidth = 0\nheight = 0\nbitmap = 0\noldHandle = 0\n")) << locals;
  TakeErrors();
}

// Image 500 of a module has 4099 bytes; the library's own images can't be read.
class ScriptedModules final : public ForwardingModules {
 public:
  ScriptedModules() : ForwardingModules(*platform::current.modules), mFormer(platform::current.modules) {
    platform::current.modules = this;
  }
  ~ScriptedModules() override { platform::current.modules = mFormer; }
  Long FindResourceA(Long, Long, const String&) override { return 71; }
  Long LoadResource(Long, Long) override { return 72; }
  const Byte* LockResource(Long) override { return mBytes; }
  Long SizeofResource(Long, Long) override { return 4099; }
  Long FreeResource(Long) override { return 1; }
  Boolean LoadResData(Long, const String&, Array<Byte>&) override { Raise(7); }

 private:
  Modules* mFormer;
  Byte mBytes[4099] = {};
};

TEST_F(DumpOfRaster, OfAModulesImageForWhichThereIsNoMemory_ShowsItsHandles) {
  ScriptedModules modules;
  AskForADump(floor->errors);
  Array<Byte> bytes(2, 3);
  FailNextAllocationOf(4099);
  LoadImageFromResource::LoadResDataFromModule(70, 500, bytes);
  FailNextAllocationOf(0);
  EXPECT_EQ(LocalsOf(floor->errors.log),
            Listed({"hModule = 70", "index = 500", "bArr = [unsized]", "resource = 71", "data = 72", "size = 4099"}));
  EXPECT_EQ(Listed(TakeErrors()), Listed({"7 LoadImageFromResource.LoadResDataFromModule",
                                          "-1 LoadImageFromResource.LoadResDataFromModule"}));
}

TEST_F(DumpOfRaster, OfAnOwnImageThatCantBeRead_IsWhole) {
  ScriptedModules modules;
  AskForADump(floor->errors);
  LoadImageFromResource::LoadResGifJpgBmp(102, 0);
  EXPECT_EQ(WrittenDump(floor->errors.log),
            AsText({{"index = 102", "hModule = 0", "bArr = [unsized]", "size = 0", "memory = 0", "stream = Nothing",
                     "id.Data1 = 0", "id.Data2 = 0", "id.Data3 = 0", "id.Data4 = [0 0 0 0 0 0 0 0 0]",
                     "picture = no picture"},
                    {}}));
  TakeErrors();
}

class DumpOfContent : public ContentTest {};

LogLines ContentModule(const ToolbarUtilities::Variables& variables) {
  std::string texts = "mTooltipText = [0";
  for (Long i = 0; i <= ToolbarUtilities::kCells; ++i) texts += " " + Shown(variables.mTooltipText(i));
  return {"adFactory = object", "productState = object",
          "converter = object", "mEnableList = [0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 1 1]",
          texts + "]",          "mProductName = 'Quillmere'",
          "mWidth = 0",         "mHeight = 0",
          "mCachedBuffer = 0",  "mCachedBufferHandle = 0"};
}
const LogLines kAllThere = {"object", "object", "object"};

TEST_F(DumpOfContent, OfATooltip_IsWhole) {
  AskForADump(floor->errors);
  floor->word.Faults().Arm("tooltip", "TooltipBackground", 1, 1234);
  ToolbarUtilities::tooltipText(16, false);
  EXPECT_EQ(WrittenDump(floor->errors.log),
            AsText({{"index = 16", "smallToolbar = False", "text = 'Go to Website Offer'"},
                    ContentModule(ToolbarUtilities::variables),
                    kAllThere}));
  EXPECT_EQ(Listed(TakeErrors()), Listed({"1234 ToolbarUtilities.tooltipText", "-1 ToolbarUtilities.tooltipText"}));
}

TEST_F(DumpOfContent, OfACaption_ShowsItsWord) {
  AskForADump(floor->errors);
  floor->word.Faults().Arm("productState", "lumivexEnabled", 1, 1234);
  ToolbarUtilities::lumivexCaption(true);
  EXPECT_EQ(LocalsOf(floor->errors.log), "isMenuItem = True\naction = ''\n");
  TakeErrors();
}

TEST_F(DumpOfContent, OfAButtonsIconThatFindsNoMemory_IsWhole) {
  LoadContent(kWord2000);
  floor->word.Open(u"Thesis.doc");
  const Object button = Ref<wordsim::BarControl>(floor->word.ProductBar().Controls().Control(5));
  AskForADump(floor->errors);
  FailNextAllocationOf(sizeof(cCustomClipboard));
  ToolbarUtilities::SetButtonIcon(button, floor->MakePicture(16, 16, kRed));
  FailNextAllocationOf(0);
  EXPECT_EQ(WrittenDump(floor->errors.log),
            AsText({{"button = object", "icon = picture", "cClip = Nothing", "oldRTF = ''"},
                    ContentModule(ToolbarUtilities::variables),
                    kAllThere}));
  EXPECT_EQ(Listed(TakeErrors()), Listed({"7 ToolbarUtilities.SetButtonIcon", "-1 ToolbarUtilities.SetButtonIcon"}));
}

}  // namespace
}  // namespace strandline
