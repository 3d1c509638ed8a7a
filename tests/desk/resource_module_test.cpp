// Modules' files on the desk: how they are read, and how the modules service takes them.

#include "platform/desk/resource_module.h"

#include <gtest/gtest.h>

#include "adtool/module_writer.h"
#include "fuzz/module_check.h"

namespace strandline::desk {
namespace {

constexpr const char16_t* kPath = u"C:\\Data\\Pictures.dll";

adtool::ModuleContent Library() {
  return {{{2, {1, 2, 3}}, {3, {4}}, {200, {5, 6}}}, {{1, "first"}, {2, "second"}, {16, "of another block"}}};
}

class ModuleFileTest : public testing::Test {
 protected:
  std::string Text(Long module, Long id) { return ToUtf8(mModules.LoadStringA(module, id, 512)); }

  std::shared_ptr<MisuseLog> mMisuses = std::make_shared<MisuseLog>();
  DeskModules mModules{{}, mMisuses};
};

TEST_F(ModuleFileTest, AModulesFile_IsLoadedByItsPath) {
  EXPECT_TRUE(mModules.SetModuleFile(kPath, adtool::WriteModule(Library())));
  const Long module = mModules.LoadLibraryA(u"c:\\data\\pictures.DLL");
  ASSERT_NE(module, 0);
  const Long resource = mModules.FindResourceA(module, 2, u"CUSTOM");
  EXPECT_EQ(mModules.SizeofResource(module, resource), 3);
  EXPECT_EQ(Text(module, 16), "of another block");
}

TEST_F(ModuleFileTest, AFileThatIsNoModule_LeavesThePathWithoutOne) {
  ASSERT_TRUE(mModules.SetModuleFile(kPath, adtool::WriteModule(Library())));
  const Long loaded = mModules.LoadLibraryA(kPath);
  const Byte kText[] = {'n', 'o', ' ', 'm', 'o', 'd', 'u', 'l', 'e'};
  EXPECT_FALSE(mModules.SetModuleFile(kPath, kText));
  EXPECT_EQ(Text(loaded, 1), "first");
  EXPECT_EQ(mModules.FreeLibrary(loaded), 1);
  EXPECT_EQ(mModules.LoadLibraryA(kPath), 0);
  EXPECT_TRUE(mModules.SetModuleFile(kPath, adtool::WriteModule({{}, {{1, "new"}}})));
  EXPECT_EQ(Text(mModules.LoadLibraryA(kPath), 1), "new");
}

TEST_F(ModuleFileTest, AnImage_KeepsItsBytesWhenTheFilesOwnAreGone) {
  std::vector<Byte> file = adtool::WriteModule(Library());
  std::optional<ModuleImage> image = ReadResourceModule(file);
  ASSERT_TRUE(image);
  std::fill(file.begin(), file.end(), Byte{0xEE});
  const ModuleImage copy = *image;
  image.reset();
  const auto* const bytes = copy.Find(2, u"Custom");
  ASSERT_TRUE(bytes);
  EXPECT_EQ(std::vector<Byte>(bytes->begin(), bytes->end()), (std::vector<Byte>{1, 2, 3}));
}

TEST_F(ModuleFileTest, BytesThatSeveralShare_AreThereOnce) {
  const std::vector<Byte> big(100'000, Byte{7});
  const auto image = ReadResourceModule(adtool::WriteModule({{{2, big}, {3, {1}}}, {}}));
  ASSERT_TRUE(image);
  const auto copy = std::make_unique<ModuleImage>(*image);
  EXPECT_EQ(copy->Find(2, u"CUSTOM")->data(), image->Find(2, u"CUSTOM")->data());
}

TEST_F(ModuleFileTest, ACutModule_IsReadAsFarAsItGoes) {
  const std::vector<Byte> file = adtool::WriteModule(Library());
  std::size_t before = 0;
  for (std::size_t length = 0; length <= file.size(); ++length) {
    const std::span<const Byte> cut = std::span(file).first(length);
    ASSERT_EQ(modulecheck::Wrong(cut), "") << length;
    const auto image = ReadResourceModule(cut);
    const std::size_t there = image ? 1 + image->OfType(u"CUSTOM").size() + image->strings.size() : 0;
    EXPECT_GE(there, before) << length;
    before = there;
  }
  EXPECT_EQ(before, 7u);
}

// Every byte of headers, tables and texts in turn, changed to what hurts most.
TEST_F(ModuleFileTest, AChangedByte_NeverLeadsOutside) {
  std::vector<Byte> file = adtool::WriteModule(Library());
  for (std::size_t at = 0; at < file.size(); ++at) {
    const Byte sound = file[at];
    for (const int value : {0, 1, 0x7F, 0x80, 0xFF, sound + 1, sound - 1, sound ^ 0x80}) {
      file[at] = static_cast<Byte>(value);
      ASSERT_EQ(modulecheck::Wrong(file), "") << "byte " << at << " as " << value;
    }
    file[at] = sound;
  }
}

}  // namespace
}  // namespace strandline::desk
