// Modules as files: those that the tool for ad libraries writes, and those of other makers.

#include <algorithm>

#include "adtool/module_writer.h"
#include "tests/contract/contract.h"

namespace strandline::contract {
namespace {

class ModuleFileContract : public Contract {
 protected:
  // "-" where it isn't there.
  std::string Resource(Long module, Long id, const char16_t* type) {
    const Long resource = modules.FindResourceA(module, id, type);
    const Byte* const bytes = modules.LockResource(modules.LoadResource(module, resource));
    if (!bytes) return "-";
    return {bytes, bytes + modules.SizeofResource(module, resource)};
  }
  std::string Picture(Long module, Long id) { return Resource(module, id, u"CUSTOM"); }

  Long LoadFile(const std::string& path) { return modules.LoadLibraryA(MakeModuleFile(BytesOfFile(path))); }
};

std::vector<std::uint8_t> Bytes(std::size_t size) {
  std::vector<std::uint8_t> bytes(size);
  for (std::size_t i = 0; i < size; ++i) bytes[i] = static_cast<std::uint8_t>(i * 31 + size);
  return bytes;
}

TEST_F(ModuleFileContract, AWrittenModule_GivesItsPicturesWhole) {
  adtool::ModuleContent content;
  for (const std::size_t size : {0u, 1u, 2u, 3u, 4u, 7u, 8u, 9u, 511u, 512u, 513u, 4095u, 4096u, 70001u}) {
    content.pictures[static_cast<int>(size % 40'000) + 2] = Bytes(size);
  }
  content.pictures[1] = Bytes(5);
  content.pictures[65535] = Bytes(6);
  const Long module = modules.LoadLibraryA(MakeModuleFile(adtool::WriteModule(content)));
  ASSERT_NE(module, 0);
  for (const auto& [id, bytes] : content.pictures) {
    EXPECT_EQ(Picture(module, id), std::string(bytes.begin(), bytes.end())) << id;
  }
  EXPECT_EQ(Picture(module, 12), "-");
  EXPECT_EQ(modules.LoadStringA(module, 1, 512), u"");
  EXPECT_NE(modules.FreeLibrary(module), 0);
}

TEST_F(ModuleFileContract, AWrittenModule_GivesItsStringsWhole) {
  const std::pair<int, std::string> kStrings[] = {
      {0, "before all"},
      {1, "01/01/2009$12/31/2009$-$D1$8000$offers/spring"},
      {2, std::string(511, 'x')},
      {3, std::string(510, 'y') + "z"},
      {15, "the last of its block"},
      {16, "the first of its block"},
      {17, "a"},
      {31, "\u00FC\u20AC\u017D"},
      {48, ""},
      {320, "alone in its block"},
      {65535, "the last of all"},
  };
  adtool::ModuleContent content;
  content.strings.insert(std::begin(kStrings), std::end(kStrings));
  const Long module = modules.LoadLibraryA(MakeModuleFile(adtool::WriteModule(content)));
  ASSERT_NE(module, 0);
  for (const auto& [id, text] : kStrings) EXPECT_EQ(ToUtf8(modules.LoadStringA(module, id, 512)), text) << id;
  for (const Long absent : {4, 14, 18, 32, 319, 321, 65534}) {
    EXPECT_EQ(modules.LoadStringA(module, absent, 512), u"") << absent;
  }
  EXPECT_EQ(Picture(module, 2), "-");
  EXPECT_NE(modules.FreeLibrary(module), 0);
}

TEST_F(ModuleFileContract, AWrittenModuleOfNothing_IsAModule) {
  const Long module = modules.LoadLibraryA(MakeModuleFile(adtool::WriteModule({})));
  ASSERT_NE(module, 0);
  EXPECT_EQ(Picture(module, 1), "-");
  EXPECT_EQ(modules.LoadStringA(module, 1, 512), u"");
  EXPECT_NE(modules.FreeLibrary(module), 0);
}

TEST_F(ModuleFileContract, WhatStandsBehindAModule_IsNoneOfItsConcern) {
  std::vector<Byte> file = adtool::WriteModule({{{2, {1, 2, 3}}}, {{2, "second"}}});
  file.insert(file.end(), 301, Byte{0xEE});
  const Long module = modules.LoadLibraryA(MakeModuleFile(file));
  ASSERT_NE(module, 0);
  EXPECT_EQ(Picture(module, 2), "\1\2\3");
  EXPECT_EQ(modules.LoadStringA(module, 2, 512), u"second");
  EXPECT_NE(modules.FreeLibrary(module), 0);
}

TEST_F(ModuleFileContract, AText_IsSoughtByTheLowerHalfOfItsNumber) {
  const Long module = modules.LoadLibraryA(MakeModuleFile(adtool::WriteModule({{}, {{7, "seventh"}}})));
  EXPECT_EQ(modules.LoadStringA(module, 0x10007, 512), u"seventh");
  EXPECT_EQ(modules.LoadStringA(module, -65529, 512), u"seventh");
  EXPECT_NE(modules.FreeLibrary(module), 0);
}

TEST_F(ModuleFileContract, AText_GoesThroughTheCodePage) {
  const adtool::ModuleContent content{{}, {{7, "\u20AC \u4E2D \u00E9"}, {8, std::string("a\0b", 3)}}};
  const Long module = modules.LoadLibraryA(MakeModuleFile(adtool::WriteModule(content)));
  EXPECT_EQ(modules.LoadStringA(module, 7, 512), u"\u20AC ? \u00E9");
  EXPECT_EQ(modules.LoadStringA(module, 8, 512), TextView(u"a\0b", 3));
  EXPECT_NE(modules.FreeLibrary(module), 0);
}

TEST_F(ModuleFileContract, ALinkersModule_OfEitherWidth_IsReadInTheNeutralLanguage) {
  for (const char* const file : {"tests/data/modules/linked-i686.bin", "tests/data/modules/linked-x86_64.bin"}) {
    SCOPED_TRACE(file);
    const Long module = LoadFile(file);
    ASSERT_NE(module, 0);
    EXPECT_EQ(Picture(module, 2), "first");
    EXPECT_EQ(Picture(module, 3), "second!");
    EXPECT_EQ(Picture(module, 4), "-");
    EXPECT_EQ(Resource(module, 40, u"OTHER"), "first");
    EXPECT_EQ(modules.LoadStringA(module, 1, 512), u"one");
    EXPECT_EQ(modules.LoadStringA(module, 15, 512), u"fifteen");
    EXPECT_EQ(modules.LoadStringA(module, 16, 512), u"sixteen");
    EXPECT_EQ(modules.LoadStringA(module, 17, 512), u"gr\u00FC\u00DFe \u20AC");
    EXPECT_NE(modules.FreeLibrary(module), 0);
  }
}

TEST_F(ModuleFileContract, OfSeveralLanguages_TheNeutralThenAnEnglishThenTheFirstIsTaken) {
  const Long module = LoadFile("fuzz/corpus/modules/sound-languages.bin");
  ASSERT_NE(module, 0);
  EXPECT_EQ(Picture(module, 2), "neutral");
  EXPECT_EQ(Picture(module, 3), "american");
  EXPECT_EQ(Picture(module, 4), "english");
  EXPECT_EQ(Picture(module, 5), "german");
  EXPECT_EQ(Picture(module, 6), "american");
  EXPECT_NE(modules.FreeLibrary(module), 0);
}

TEST_F(ModuleFileContract, ATypeInSmallLetters_IsNeverFound) {
  const Long module = LoadFile("fuzz/corpus/modules/sound-other-types.bin");
  ASSERT_NE(module, 0);
  EXPECT_EQ(Picture(module, 2), "first");
  EXPECT_EQ(Resource(module, 2, u"other"), "of another type");
  EXPECT_EQ(Resource(module, 2, u"small"), "-");
  EXPECT_EQ(Resource(module, 2, u"SMALL"), "-");
  EXPECT_NE(modules.FreeLibrary(module), 0);
}

TEST_F(ModuleFileContract, AModuleWithoutResources_IsAModule) {
  for (const char* const name : {"sound-without-resources", "sound-without-directories", "sound-empty-tree"}) {
    const Long module = LoadFile(std::string("fuzz/corpus/modules/") + name + ".bin");
    EXPECT_NE(module, 0) << name;
    EXPECT_EQ(Picture(module, 2), "-") << name;
    EXPECT_EQ(modules.LoadStringA(module, 1, 512), u"") << name;
    EXPECT_NE(modules.FreeLibrary(module), 0) << name;
  }
}

TEST_F(ModuleFileContract, SoundModules_AreReadAlike) {
  for (const char* const name : {"sound-32", "sound-64", "sound-bytes-apart", "sound-with-more-behind"}) {
    SCOPED_TRACE(name);
    const Long module = LoadFile(std::string("fuzz/corpus/modules/") + name + ".bin");
    ASSERT_NE(module, 0);
    EXPECT_EQ(Picture(module, 2), "first");
    EXPECT_EQ(Picture(module, 3), "second!");
    EXPECT_EQ(modules.LoadStringA(module, 2, 512), u"two");
    EXPECT_EQ(modules.LoadStringA(module, 17, 512), u"seventeen");
    EXPECT_NE(modules.FreeLibrary(module), 0);
  }
}

TEST_F(ModuleFileContract, AFileThatIsNoModule_CantBeLoaded) {
  for (const char* const name : {"empty", "no-mz", "signature-wrong"}) {
    EXPECT_EQ(LoadFile(std::string("fuzz/corpus/modules/") + name + ".bin"), 0) << name;
  }
}

}  // namespace
}  // namespace strandline::contract
