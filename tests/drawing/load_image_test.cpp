// Pictures from numbered images, the library's own or a module's: every failure gives no picture and no error.

#include <fstream>
#include <iterator>

#include "tests/drawing/drawing_fixture.h"

namespace strandline {
namespace {

using LoadImageFromResource::LoadResDataFromModule;
using LoadImageFromResource::LoadResGifJpgBmp;

std::vector<Byte> ReadFile(const std::string& name) {
  std::ifstream file(STRANDLINE_SOURCE_DIR "/" + name, std::ios::binary);
  EXPECT_TRUE(file) << name;
  return std::vector<Byte>(std::istreambuf_iterator<char>(file), {});
}

class LoadImageTest : public DrawingTest {
 protected:
  LoadImageTest() { floor->calls.Clear(); }

  // A module with that resource, loaded.
  Long ModuleWith(Long id, const char16_t* type, std::vector<Byte> bytes) {
    desk::ModuleImage image;
    image.AddResource(id, type, std::move(bytes));
    floor->desk.Modules().SetModule(u"C:\\ads\\ads.dll", std::move(image));
    return floor->desk.Modules().LoadLibraryA(u"C:\\ads\\ads.dll");
  }
  void ExpectNothingLeft() {
    EXPECT_EQ(floor->Blocks(), 0);
    EXPECT_EQ(floor->Bitmaps(), 0);
    EXPECT_EQ(Listed(TakeErrors()), "");
    EXPECT_EQ(Listed(floor->Misused()), "");
  }
};

TEST_F(LoadImageTest, AnOwnImage_BecomesAPictureWithExtentsAndPixels) {
  Picture picture = LoadResGifJpgBmp(116, 0);
  ASSERT_TRUE(picture);
  EXPECT_EQ(ToolbarUtilities::HM2PixX(picture->Width()), 223);
  EXPECT_EQ(ToolbarUtilities::HM2PixY(picture->Height()), 32);
  EXPECT_EQ(floor->BitmapSurface(picture->Handle()).width, 223);
  picture = nullptr;
  ExpectNothingLeft();
}

TEST_F(LoadImageTest, AnOwnImage_IsLoadedInSteps) {
  const std::size_t size = ReadFile("resources/images/102.gif").size();
  const std::string bytes = std::to_string(size);
  LoadResGifJpgBmp(102, 0);
  EXPECT_EQ(Listed(floor->calls.Take()),
            Listed({"LoadResData(102, 'CUSTOM', " + bytes + ")", "GlobalAlloc(2, " + bytes + ") = memory 1",
                    "GlobalLock(memory 1)", "GlobalUnlock(memory 1)", "CreateStreamOnHGlobal(memory 1, True, True)",
                    "CLSIDFromString('{7BF80980-BF32-101A-8BBB-00AA00300CAB}', "
                    "'{7BF80980-BF32-101A-8BBB-00AA00300CAB}')",
                    "OleLoadPicture(True, " + bytes + ", False, '{7BF80980-BF32-101A-8BBB-00AA00300CAB}', True)"}));
}

TEST_F(LoadImageTest, ANumberThatDoesNotExist_IsNothingAndRaisesNothing) {
  for (const Integer number : {0, -1, 1, 99, 119, 219, 32767, -32768}) {
    EXPECT_FALSE(LoadResGifJpgBmp(number, 0)) << number;
  }
  EXPECT_EQ(Listed(floor->calls.CallsOf("GlobalAlloc")), "");
  ExpectNothingLeft();
}

struct FormatCase {
  const char* file;
  int width, height;
};

TEST_F(LoadImageTest, AModulesImage_IsToldByItsContent) {
  const FormatCase cases[] = {
      {"resources/images/101.bmp", 1, 1},
      {"resources/images/103.gif", 25, 30},
      {"tests/data/pictures/pattern_120x90_256.gif", 120, 90},
      {"tests/data/pictures/ramp_223x32.jpg", 223, 32},
      {"tests/data/pictures/ramp_40x24_progressive.jpg", 40, 24},
  };
  for (const FormatCase& each : cases) {
    SCOPED_TRACE(each.file);
    const Long module = ModuleWith(500, u"CUSTOM", ReadFile(each.file));
    Picture picture = LoadResGifJpgBmp(500, module);
    ASSERT_TRUE(picture);
    EXPECT_EQ(floor->BitmapSurface(picture->Handle()).width, each.width);
    EXPECT_EQ(floor->BitmapSurface(picture->Handle()).height, each.height);
    picture = nullptr;
    ExpectNothingLeft();
    floor->desk.Modules().FreeLibrary(module);
  }
}

TEST_F(LoadImageTest, AModulesNumbers_AreItsOwn) {
  const Long module = ModuleWith(500, u"CUSTOM", ReadFile("resources/images/102.gif"));
  EXPECT_TRUE(LoadResGifJpgBmp(500, module));
  EXPECT_FALSE(LoadResGifJpgBmp(500, 0));
  EXPECT_FALSE(LoadResGifJpgBmp(102, module));
  EXPECT_TRUE(LoadResGifJpgBmp(102, 0));
}

TEST_F(LoadImageTest, AModulesResourceOfAnotherType_IsNotFound) {
  const Long module = ModuleWith(500, u"BINARY", ReadFile("resources/images/102.gif"));
  EXPECT_FALSE(LoadResGifJpgBmp(500, module));
  ExpectNothingLeft();
}

TEST_F(LoadImageTest, AModulesResource_IsReadAndLetGo) {
  const Long module = ModuleWith(500, u"CUSTOM", {1, 2, 3});
  floor->calls.Name(module, "ads");
  Array<Byte> bytes;
  LoadResDataFromModule(module, 500, bytes);
  ASSERT_TRUE(bytes.IsSized());
  EXPECT_EQ(bytes.Lower(), 0);
  EXPECT_EQ(bytes.Upper(), 2);
  EXPECT_EQ(bytes.Elements(), (std::vector<Byte>{1, 2, 3}));
  Lines names;
  for (const std::string& call : floor->calls.Take()) names.push_back(call.substr(0, call.find('(')));
  EXPECT_EQ(Listed(names), Listed({"FindResourceA", "LoadResource", "LockResource", "SizeofResource", "FreeResource"}));
}

TEST_F(LoadImageTest, AModulesResourceOfOneByte_IsReadToo) {
  Array<Byte> bytes;
  LoadResDataFromModule(ModuleWith(500, u"CUSTOM", {7}), 500, bytes);
  EXPECT_EQ(bytes.Elements(), std::vector<Byte>{7});
}

TEST_F(LoadImageTest, AModulesResourceThatCannotBeRead_LeavesTheArrayAsItWas) {
  const Long module = ModuleWith(500, u"CUSTOM", {1, 2, 3});
  const Array<Byte> before(4, 6);
  for (const char* step : {"FindResourceA", "LoadResource", "LockResource", "SizeofResource"}) {
    SCOPED_TRACE(step);
    floor->faults.Arm(step, 1);
    Array<Byte> bytes = before;
    LoadResDataFromModule(module, 500, bytes);
    EXPECT_EQ(bytes, before);
    floor->faults.Arm(step, 1);
    EXPECT_FALSE(LoadResGifJpgBmp(500, module));
    ExpectNothingLeft();
  }
  Array<Byte> bytes = before;
  LoadResDataFromModule(module, 501, bytes);
  EXPECT_EQ(bytes, before);
}

TEST_F(LoadImageTest, AModulesResource_IsAskedNoFurtherThanItsFirstFailure) {
  const Long module = ModuleWith(500, u"CUSTOM", {1, 2, 3});
  const std::pair<const char*, int> cases[] = {{"FindResourceA", 1}, {"LoadResource", 2}};
  for (const auto& [step, calls] : cases) {
    SCOPED_TRACE(step);
    floor->faults.Arm(step, 1);
    floor->calls.Clear();
    Array<Byte> bytes;
    LoadResDataFromModule(module, 500, bytes);
    EXPECT_EQ(floor->calls.Take().size(), static_cast<std::size_t>(calls));
  }
}

struct StepCase {
  const char* step;
  int freed;  // by the loader itself; once there is a stream, that frees
};

TEST_F(LoadImageTest, EachStepThatFails_FreesTheMemoryOnceAndGivesNothing) {
  const StepCase cases[] = {{"LoadResData", 0},           {"GlobalAlloc", 0},     {"GlobalLock", 1},
                            {"CreateStreamOnHGlobal", 1}, {"CLSIDFromString", 0}, {"OleLoadPicture", 0}};
  for (const StepCase& each : cases) {
    SCOPED_TRACE(each.step);
    floor->calls.Clear();
    floor->faults.Arm(each.step, 1);
    EXPECT_FALSE(LoadResGifJpgBmp(102, 0));
    EXPECT_EQ(floor->calls.CallsOf("GlobalFree").size(), static_cast<std::size_t>(each.freed));
    ExpectNothingLeft();
    // The failure is over with the call.
    EXPECT_TRUE(LoadResGifJpgBmp(102, 0));
  }
}

TEST_F(LoadImageTest, EachStepThatFailsForAModulesImage_FreesTheMemoryToo) {
  const Long module = ModuleWith(500, u"CUSTOM", ReadFile("resources/images/102.gif"));
  for (const char* step : {"GlobalAlloc", "GlobalLock", "CreateStreamOnHGlobal", "CLSIDFromString", "OleLoadPicture"}) {
    SCOPED_TRACE(step);
    floor->faults.Arm(step, 1);
    EXPECT_FALSE(LoadResGifJpgBmp(500, module));
    ExpectNothingLeft();
  }
}

TEST_F(LoadImageTest, ADamagedImage_IsNothing) {
  const std::vector<Byte> gif = ReadFile("resources/images/102.gif");
  const std::vector<Byte> bmp = ReadFile("resources/images/101.bmp");
  const std::vector<Byte> jpg = ReadFile("tests/data/pictures/ramp_16x16.jpg");
  const auto cut = [](const std::vector<Byte>& bytes, std::size_t length) {
    return std::vector<Byte>(bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(length));
  };
  std::vector<Byte> wrongSign = gif;
  wrongSign[0] = 'X';
  const std::vector<std::vector<Byte>> damaged = {
      {},
      {0},
      {'G', 'I', 'F', '8', '9', 'a'},
      {'B', 'M'},
      {0xFF, 0xD8, 0xFF},
      std::vector<Byte>(4000, 0xAA),
      cut(gif, gif.size() / 2),
      cut(gif, 13),
      cut(bmp, bmp.size() - 4),
      cut(jpg, jpg.size() / 2),
      wrongSign,
  };
  for (std::size_t i = 0; i < damaged.size(); ++i) {
    SCOPED_TRACE(i);
    const Long module = ModuleWith(500, u"CUSTOM", damaged[i]);
    EXPECT_FALSE(LoadResGifJpgBmp(500, module));
    ExpectNothingLeft();
    floor->desk.Modules().FreeLibrary(module);
  }
}

class Watcher final : public PictureObserver {
 public:
  void OnPicture(Integer index, Long hModule, Boolean ok) override {
    seen.push_back(std::to_string(index) + (hModule ? " of a module" : "") + (ok ? " yes" : " no"));
  }
  Lines seen;
};

TEST_F(LoadImageTest, AnObserver_HearsOfEveryLoadAndWhatCameOfIt) {
  const Long module = ModuleWith(500, u"CUSTOM", ReadFile("resources/images/102.gif"));
  Watcher watcher;
  floor->library.SetPictureObserver(&watcher);
  LoadResGifJpgBmp(102, 0);
  LoadResGifJpgBmp(99, 0);
  LoadResGifJpgBmp(500, module);
  floor->faults.Arm("OleLoadPicture", 1);
  LoadResGifJpgBmp(103, 0);
  floor->library.SetPictureObserver(nullptr);
  LoadResGifJpgBmp(104, 0);
  EXPECT_EQ(Listed(watcher.seen), Listed({"102 yes", "99 no", "500 of a module yes", "103 no"}));
}

}  // namespace
}  // namespace strandline
