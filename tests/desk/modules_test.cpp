// Modules with resources, and the library's own images.

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <iterator>

#include "platform/desk/desk_modules.h"

namespace strandline::desk {
namespace {

constexpr const char16_t* kPath = u"C:\\Data\\Pictures.dll";

class ModulesTest : public testing::Test {
 protected:
  ModulesTest() {
    ModuleImage image;
    image.AddResource(101, u"CUSTOM", {1, 2, 3});
    image.AddResource(102, u"CUSTOM", {});
    image.AddResource(101, u"OTHER", {9});
    image.strings[7] = u"a text of some length";
    mModules.SetModule(kPath, std::move(image));
  }

  std::shared_ptr<MisuseLog> mMisuses = std::make_shared<MisuseLog>();
  DeskModules mModules{OwnImages(), mMisuses};
};

TEST_F(ModulesTest, Module_IsFoundByPathWithoutCase) {
  EXPECT_NE(mModules.LoadLibraryA(u"c:\\data\\PICTURES.DLL"), 0);
  EXPECT_EQ(mModules.LoadLibraryA(u"C:\\Data\\Other.dll"), 0);
  EXPECT_EQ(mModules.LoadLibraryA(u""), 0);
  EXPECT_EQ(mModules.LiveModules(), 1);
}

TEST_F(ModulesTest, Module_LoadedTwiceIsFreedTwice) {
  const Long module = mModules.LoadLibraryA(kPath);
  EXPECT_EQ(mModules.LoadLibraryA(kPath), module);
  EXPECT_EQ(mModules.FreeLibrary(module), 1);
  EXPECT_EQ(mModules.LiveModules(), 1);
  EXPECT_EQ(mModules.Lost(), std::vector<String>{LowerCase(kPath)});
  EXPECT_EQ(mModules.FreeLibrary(module), 1);
  EXPECT_EQ(mModules.LiveModules(), 0);
  EXPECT_EQ(mModules.FreeLibrary(module), 0);
  ASSERT_EQ(mMisuses->All().size(), 1u);
  EXPECT_EQ(mMisuses->All()[0].call, "FreeLibrary");
  EXPECT_NE(mModules.LoadLibraryA(kPath), module);
}

TEST_F(ModulesTest, Resource_IsReadByItsFourSteps) {
  const Long module = mModules.LoadLibraryA(kPath);
  const Long resource = mModules.FindResourceA(module, 101, u"custom");
  EXPECT_EQ(mModules.FindResourceA(module, 101, u"CUSTOM"), resource);
  EXPECT_EQ(mModules.SizeofResource(module, resource), 3);
  const Long data = mModules.LoadResource(module, resource);
  const Byte* bytes = mModules.LockResource(data);
  ASSERT_NE(bytes, nullptr);
  const Byte expected[] = {1, 2, 3};
  EXPECT_TRUE(std::equal(bytes, bytes + 3, expected));
  EXPECT_EQ(mModules.LoadResource(module, resource), data);
  EXPECT_EQ(mModules.FreeResource(data), 0);
  EXPECT_EQ(mModules.LockResource(data), bytes);
  EXPECT_TRUE(mMisuses->All().empty());
}

TEST_F(ModulesTest, Resource_IsTakenByNumberAndType) {
  const Long module = mModules.LoadLibraryA(kPath);
  EXPECT_EQ(mModules.SizeofResource(module, mModules.FindResourceA(module, 101, u"OTHER")), 1);
  EXPECT_EQ(mModules.FindResourceA(module, 103, u"CUSTOM"), 0);
  EXPECT_EQ(mModules.FindResourceA(module, 102, u"OTHER"), 0);
  const Long empty = mModules.FindResourceA(module, 102, u"CUSTOM");
  EXPECT_EQ(mModules.SizeofResource(module, empty), 0);
  EXPECT_NE(mModules.LockResource(mModules.LoadResource(module, empty)), nullptr);
}

TEST_F(ModulesTest, Resources_GoWithTheirModule) {
  const Long module = mModules.LoadLibraryA(kPath);
  const Long resource = mModules.FindResourceA(module, 101, u"CUSTOM");
  const Long data = mModules.LoadResource(module, resource);
  mModules.FreeLibrary(module);
  EXPECT_EQ(mModules.LockResource(data), nullptr);
  EXPECT_EQ(mModules.FreeResource(data), 1);
  EXPECT_EQ(mModules.SizeofResource(module, resource), 0);
  EXPECT_EQ(mModules.LoadResource(module, resource), 0);
  EXPECT_EQ(mModules.FindResourceA(module, 101, u"CUSTOM"), 0);
  EXPECT_TRUE(mModules.LoadStringA(module, 7, 512).IsEmpty());
  EXPECT_EQ(mMisuses->All().size(), 6u);

  const Long again = mModules.LoadLibraryA(kPath);
  EXPECT_EQ(mModules.SizeofResource(again, resource), 0);
  EXPECT_EQ(mModules.LoadResource(again, data), 0);
  EXPECT_EQ(mMisuses->All().size(), 8u);
}

TEST_F(ModulesTest, Resource_IsItsOwnModulesAlone) {
  ModuleImage other;
  other.AddResource(101, u"CUSTOM", {4});
  mModules.SetModule(u"other.dll", std::move(other));
  const Long module = mModules.LoadLibraryA(kPath);
  const Long second = mModules.LoadLibraryA(u"other.dll");
  const Long resource = mModules.FindResourceA(module, 101, u"CUSTOM");
  EXPECT_EQ(mModules.SizeofResource(second, resource), 0);
  EXPECT_EQ(mModules.LoadResource(second, resource), 0);
  EXPECT_EQ(mMisuses->All().size(), 2u);
  const Long data = mModules.LoadResource(module, resource);
  mModules.FreeLibrary(second);
  EXPECT_NE(mModules.LockResource(data), nullptr);
}

TEST_F(ModulesTest, HandleZero_FailsWithoutARecord) {
  EXPECT_EQ(mModules.FreeLibrary(0), 0);
  EXPECT_EQ(mModules.FindResourceA(0, 101, u"CUSTOM"), 0);
  EXPECT_EQ(mModules.LoadResource(0, 0), 0);
  EXPECT_EQ(mModules.LockResource(0), nullptr);
  EXPECT_EQ(mModules.SizeofResource(mModules.LoadLibraryA(kPath), 0), 0);
  EXPECT_TRUE(mMisuses->All().empty());
}

TEST_F(ModulesTest, LoadedModule_KeepsWhatItHasWhenThePathIsExchanged) {
  const Long module = mModules.LoadLibraryA(kPath);
  ModuleImage other;
  other.AddResource(101, u"CUSTOM", {7, 7});
  mModules.SetModule(kPath, std::move(other));
  EXPECT_EQ(mModules.SizeofResource(module, mModules.FindResourceA(module, 101, u"CUSTOM")), 3);
  mModules.FreeLibrary(module);
  const Long exchanged = mModules.LoadLibraryA(kPath);
  EXPECT_EQ(mModules.SizeofResource(exchanged, mModules.FindResourceA(exchanged, 101, u"CUSTOM")), 2);
  mModules.FreeLibrary(exchanged);
  mModules.RemoveModule(u"c:\\DATA\\pictures.dll");
  EXPECT_EQ(mModules.LoadLibraryA(kPath), 0);
}

TEST_F(ModulesTest, String_IsCutToItsBuffer) {
  const Long module = mModules.LoadLibraryA(kPath);
  EXPECT_EQ(mModules.LoadStringA(module, 7, 512), u"a text of some length");
  EXPECT_EQ(mModules.LoadStringA(module, 7, 7), u"a text");
  EXPECT_EQ(mModules.LoadStringA(module, 7, 1), u"");
  EXPECT_EQ(mModules.LoadStringA(module, 7, -5), u"");
  EXPECT_EQ(mModules.LoadStringA(module, 8, 512), u"");
}

TEST_F(ModulesTest, OwnImages_AreTheFilesOfTheirNumbers) {
  ASSERT_FALSE(OwnImages().empty());
  Long last = 0;
  for (const OwnImage& own : OwnImages()) {
    EXPECT_GT(own.id, last);
    last = own.id;
    const std::string name = STRANDLINE_SOURCE_DIR "/resources/images/" + std::to_string(own.id);
    std::ifstream file(name + ".gif", std::ios::binary);
    if (!file) file.open(name + ".bmp", std::ios::binary);
    const std::vector<Byte> expected{std::istreambuf_iterator<char>(file), {}};
    ASSERT_FALSE(expected.empty()) << name;
    Array<Byte> bytes;
    EXPECT_TRUE(mModules.LoadResData(own.id, u"CUSTOM", bytes));
    EXPECT_EQ(bytes.Lower(), 0);
    EXPECT_EQ(bytes.Elements(), expected) << name;
  }
}

TEST_F(ModulesTest, OwnImage_ThatIsntThereLeavesTheBytes) {
  Array<Byte> bytes(3, 4);
  EXPECT_FALSE(mModules.LoadResData(9999, u"CUSTOM", bytes));
  EXPECT_FALSE(mModules.LoadResData(102, u"BITMAP", bytes));
  EXPECT_EQ(bytes.Lower(), 3);
  EXPECT_EQ(bytes.Upper(), 4);
}

}  // namespace
}  // namespace strandline::desk
