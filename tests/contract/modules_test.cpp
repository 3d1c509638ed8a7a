// Modules of resources.

#include <algorithm>

#include "tests/contract/contract.h"

namespace strandline::contract {
namespace {

using ModuleContract = Contract;

constexpr Long kNoHandle = 0x7FFFFFF0;

TEST_F(ModuleContract, AResource_IsReadByItsFourSteps) {
  const std::vector<Byte> bytes{9, 0, 8, 255, 7};
  const String path = MakeModule({{{101, bytes}, {102, {1}}}, {}});
  const Long module = modules.LoadLibraryA(path);
  ASSERT_NE(module, 0);
  const Long resource = modules.FindResourceA(module, 101, u"CUSTOM");
  ASSERT_NE(resource, 0);
  EXPECT_EQ(modules.FindResourceA(module, 101, u"custom"), resource);
  EXPECT_EQ(modules.SizeofResource(module, resource), 5);
  const Long data = modules.LoadResource(module, resource);
  const Byte* const at = modules.LockResource(data);
  ASSERT_NE(at, nullptr);
  EXPECT_TRUE(std::equal(bytes.begin(), bytes.end(), at));
  EXPECT_EQ(modules.FreeResource(data), 0);
  EXPECT_EQ(modules.FindResourceA(module, 103, u"CUSTOM"), 0);
  EXPECT_EQ(modules.FindResourceA(module, 101, u"OTHER"), 0);
  EXPECT_EQ(modules.FindResourceA(module, -1, u"CUSTOM"), 0);
  EXPECT_NE(modules.FreeLibrary(module), 0);
}

TEST_F(ModuleContract, Strings_FitTheirBuffer) {
  const auto letters = [](std::size_t count) { return String(std::u16string(count - 1, u'a') + u"z"); };
  const Long kNumbers[] = {7, 8, 15, 16, 300};
  const std::size_t kLengths[] = {20, 510, 511, 512, 900};
  ModuleContents contents;
  for (std::size_t i = 0; i < std::size(kNumbers); ++i) contents.strings[kNumbers[i]] = letters(kLengths[i]);
  contents.strings[9] = u"gr\u00FC\u00DFe";
  const Long module = modules.LoadLibraryA(MakeModule(contents));
  ASSERT_NE(module, 0);
  for (std::size_t i = 0; i < std::size(kNumbers); ++i) {
    const String whole = letters(kLengths[i]);
    EXPECT_EQ(modules.LoadStringA(module, kNumbers[i], 512), String(whole.View().substr(0, 511))) << kLengths[i];
    EXPECT_EQ(modules.LoadStringA(module, kNumbers[i], 4), u"aaa");
  }
  EXPECT_EQ(modules.LoadStringA(module, 9, 512), u"gr\u00FC\u00DFe");
  EXPECT_EQ(modules.LoadStringA(module, 10, 512), u"") << "its block is there, its text is empty";
  EXPECT_EQ(modules.LoadStringA(module, 5000, 512), u"");
  EXPECT_EQ(modules.LoadStringA(module, 7, 1), u"");
  EXPECT_EQ(modules.LoadStringA(module, 7, 0), u"");
  EXPECT_NE(modules.FreeLibrary(module), 0);
}

TEST_F(ModuleContract, StringsOfModule0_AreThoseOfTheHostsOwnFile) {
  GiveHostItsString();
  EXPECT_EQ(modules.LoadStringA(0, kHostString, 512), kHostText);
  EXPECT_EQ(modules.LoadStringA(0, kHostString, 4), u"the");
  EXPECT_EQ(modules.LoadStringA(0, kHostString, 1), u"");
  EXPECT_EQ(modules.LoadStringA(0, kHostString, 0), u"");
  EXPECT_EQ(modules.LoadStringA(0, kHostString + 1, 512), u"");
  EXPECT_EQ(modules.LoadStringA(0, 1, 512), u"");
}

TEST_F(ModuleContract, WhatCantBeLoaded_IsNoModule) {
  EXPECT_EQ(modules.LoadLibraryA(u"C:\\Contract\\absent.dll"), 0);
  EXPECT_EQ(modules.LoadLibraryA(u"absent.dll"), 0);
  EXPECT_EQ(modules.LoadLibraryA(u""), 0);
}

TEST_F(ModuleContract, AFreedModule_GivesNothing) {
  const String path = MakeModule({{{101, {1, 2, 3}}}, {{7, u"seventh"}}});
  const Long module = modules.LoadLibraryA(path);
  const Long resource = modules.FindResourceA(module, 101, u"CUSTOM");
  EXPECT_NE(modules.FreeLibrary(module), 0);
  for (const Long gone : {module, kNoHandle, Long{0}}) {
    EXPECT_EQ(modules.FreeLibrary(gone), 0);
    EXPECT_EQ(modules.FindResourceA(gone, 101, u"CUSTOM"), 0);
    EXPECT_EQ(modules.LoadResource(gone, resource), 0);
    EXPECT_EQ(modules.SizeofResource(gone, resource), 0);
    EXPECT_EQ(modules.LoadStringA(gone, 7, 512), u"");
  }
  EXPECT_EQ(modules.LockResource(kNoHandle), nullptr);
  EXPECT_EQ(modules.LockResource(0), nullptr);
}

TEST_F(ModuleContract, Resources_GoWithTheirModule) {
  const String path = MakeModule({{{101, {1, 2, 3}}}, {}});
  const Long kept = modules.LoadLibraryA(MakeModule({{{101, {4}}}, {}}));
  const Long module = modules.LoadLibraryA(path);
  const Long resource = modules.FindResourceA(module, 101, u"CUSTOM");
  const Long data = modules.LoadResource(module, resource);
  const Long keptData = modules.LoadResource(kept, modules.FindResourceA(kept, 101, u"CUSTOM"));
  EXPECT_NE(modules.LockResource(data), nullptr);
  EXPECT_NE(modules.FreeLibrary(module), 0);
  EXPECT_EQ(modules.LockResource(data), nullptr);
  EXPECT_EQ(modules.SizeofResource(module, resource), 0);
  const Long again = modules.LoadLibraryA(path);
  ASSERT_NE(again, 0);
  EXPECT_EQ(modules.SizeofResource(again, resource), 0);
  EXPECT_EQ(modules.LoadResource(again, resource), 0);
  EXPECT_NE(modules.FindResourceA(again, 101, u"CUSTOM"), resource);
  ASSERT_NE(modules.LockResource(keptData), nullptr);
  EXPECT_EQ(*modules.LockResource(keptData), 4);
  EXPECT_NE(modules.FreeLibrary(again), 0);
  EXPECT_NE(modules.FreeLibrary(kept), 0);
}

TEST_F(ModuleContract, AResourceOfAnotherModule_IsNone) {
  const Long one = modules.LoadLibraryA(MakeModule({{{101, {1}}}, {}}));
  const Long two = modules.LoadLibraryA(MakeModule({{{101, {2, 2}}}, {}}));
  const Long resource = modules.FindResourceA(one, 101, u"CUSTOM");
  ASSERT_NE(resource, 0);
  EXPECT_EQ(modules.SizeofResource(two, resource), 0);
  EXPECT_EQ(modules.LoadResource(two, resource), 0);
  EXPECT_NE(modules.FreeLibrary(one), 0);
  EXPECT_NE(modules.FreeLibrary(two), 0);
}

TEST_F(ModuleContract, DataThatWereFreed_MayBeLockedAgainWhileTheirModuleIsThere) {
  const Long module = modules.LoadLibraryA(MakeModule({{{101, {5}}}, {}}));
  const Long resource = modules.FindResourceA(module, 101, u"CUSTOM");
  const Long data = modules.LoadResource(module, resource);
  ASSERT_NE(data, 0);
  EXPECT_EQ(modules.LoadResource(module, resource), data);
  EXPECT_EQ(modules.FreeResource(data), 0);
  ASSERT_NE(modules.LockResource(data), nullptr);
  EXPECT_EQ(*modules.LockResource(data), 5);
  EXPECT_NE(modules.FreeLibrary(module), 0);
}

TEST_F(ModuleContract, TwoModules_AreApart) {
  const Long one = modules.LoadLibraryA(MakeModule({{{101, {1}}}, {{7, u"of one"}}}));
  const Long two = modules.LoadLibraryA(MakeModule({{{101, {2, 2}}}, {{7, u"of two"}}}));
  ASSERT_NE(one, 0);
  ASSERT_NE(two, 0);
  EXPECT_NE(one, two);
  EXPECT_EQ(modules.SizeofResource(one, modules.FindResourceA(one, 101, u"CUSTOM")), 1);
  EXPECT_EQ(modules.SizeofResource(two, modules.FindResourceA(two, 101, u"CUSTOM")), 2);
  EXPECT_NE(modules.FreeLibrary(one), 0);
  EXPECT_EQ(modules.LoadStringA(two, 7, 512), u"of two");
  EXPECT_NE(modules.FreeLibrary(two), 0);
}

TEST_F(ModuleContract, LoadedTwice_IsFreedTwice) {
  const String path = MakeModule({{{101, {1}}}, {{7, u"seventh"}}});
  const Long first = modules.LoadLibraryA(path);
  const Long second = modules.LoadLibraryA(path);
  EXPECT_NE(modules.FreeLibrary(first), 0);
  EXPECT_EQ(modules.LoadStringA(second, 7, 512), u"seventh");
  EXPECT_NE(modules.FreeLibrary(second), 0);
  EXPECT_EQ(modules.FreeLibrary(second), 0);
}

TEST_F(ModuleContract, OwnResources_AreTheFilesOfTheirNumbers) {
  for (const auto& [id, file] :
       {std::pair<Long, const char*>{102, "resources/images/102.gif"}, {201, "resources/images/201.bmp"}}) {
    Array<Byte> bytes;
    ASSERT_TRUE(modules.LoadResData(id, u"CUSTOM", bytes)) << id;
    EXPECT_EQ(bytes.Lower(), 0);
    EXPECT_EQ(bytes.Elements(), BytesOfFile(file)) << id;
  }
  Array<Byte> kept(3, 4);
  EXPECT_FALSE(modules.LoadResData(9999, u"CUSTOM", kept));
  EXPECT_FALSE(modules.LoadResData(102, u"NOTHING", kept));
  EXPECT_FALSE(modules.LoadResData(-1, u"CUSTOM", kept));
  EXPECT_EQ(kept.Lower(), 3);
  EXPECT_EQ(kept.Upper(), 4);
}

}  // namespace
}  // namespace strandline::contract
