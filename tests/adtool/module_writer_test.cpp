// The writer of ad libraries: what its modules look like from outside. That they are read whole by both worlds is
// proven in tests/contract.

#include "adtool/module_writer.h"

#include <gtest/gtest.h>

#include <stdexcept>

#include "platform/desk/resource_module.h"

namespace strandline::adtool {
namespace {

using desk::ReadResourceModule;

std::size_t Number(const std::vector<std::uint8_t>& bytes, std::size_t at, int count) {
  std::size_t value = 0;
  for (int i = count; i-- > 0;) value = value << 8 | bytes.at(at + static_cast<std::size_t>(i));
  return value;
}

std::string Letters(std::size_t count, char first) {
  std::string text;
  for (std::size_t i = 0; i < count; ++i) text += static_cast<char>('a' + (static_cast<std::size_t>(first) + i) % 26);
  return text;
}

ModuleContent Library(int ads) {
  ModuleContent content;
  for (int i = 1; i <= ads; ++i) {
    content.pictures[i + 1] = std::vector<std::uint8_t>(static_cast<std::size_t>(i * 37 % 101), std::uint8_t(i));
    content.strings[i] = Letters(static_cast<std::size_t>(i * 97 % 512), static_cast<char>(i));
  }
  return content;
}

TEST(ModuleWriter, WhatIsWritten_IsReadAgainAndNothingElse) {
  for (const int ads : {0, 1, 2, 13, 14, 15, 16, 17, 31, 32, 33, 200}) {
    SCOPED_TRACE(ads);
    const ModuleContent content = Library(ads);
    const auto image = ReadResourceModule(WriteModule(content));
    ASSERT_TRUE(image);
    EXPECT_EQ(image->All().size(), ads == 0 ? 0u : 1u);
    EXPECT_EQ(image->OfType(u"CUSTOM").size(), content.pictures.size());
    for (const auto& [id, bytes] : content.pictures) {
      const auto* const found = image->Find(id, u"CUSTOM");
      ASSERT_TRUE(found) << id;
      EXPECT_EQ(std::vector<std::uint8_t>(found->begin(), found->end()), bytes) << id;
    }
    std::map<int, std::string> strings;
    for (const auto& [id, text] : image->strings) strings[id] = ToUtf8(text);
    EXPECT_EQ(strings, content.strings);
  }
}

// Also where the section is full just before it.
TEST(ModuleWriter, AnEmptyPictureAtTheEnd_IsThere) {
  for (std::size_t size = 0; size <= 512; ++size) {
    const auto image = ReadResourceModule(WriteModule({{{2, std::vector<std::uint8_t>(size)}, {3, {}}}, {}}));
    ASSERT_TRUE(image);
    ASSERT_TRUE(image->Find(3, u"CUSTOM")) << size;
    EXPECT_EQ(image->Find(3, u"CUSTOM")->size(), 0u);
  }
}

TEST(ModuleWriter, StringsOfEveryKind_AreReadAgain) {
  const std::pair<int, std::string> kStrings[] = {
      {0, "number 0"},
      {14, std::string(65535, 'l')},
      {15, "\u00FC \u20AC \u4E2D \U0001F600"},
      {16, std::string("nul \0 inside", 12)},
      {65535, "x"},
  };
  ModuleContent content;
  content.strings.insert(std::begin(kStrings), std::end(kStrings));
  content.strings[17] = "";
  content.strings[40] = "";
  const auto image = ReadResourceModule(WriteModule(content));
  ASSERT_TRUE(image);
  EXPECT_EQ(image->strings.size(), std::size(kStrings)) << "an empty one can't be told from none";
  for (const auto& [id, text] : kStrings) EXPECT_EQ(ToUtf8(image->strings.at(id)), text) << id;
}

TEST(ModuleWriter, TextThatIsNotUtf8_StaysReadable) {
  const auto image = ReadResourceModule(WriteModule({{}, {{1, "a\xFFz"}}}));
  ASSERT_TRUE(image);
  EXPECT_EQ(image->strings.at(1), u"a\uFFFDz");
}

TEST(ModuleWriter, TheSameContent_GivesTheSameBytes) {
  const std::vector<std::uint8_t> once = WriteModule(Library(20));
  EXPECT_EQ(once, WriteModule(Library(20)));
  EXPECT_NE(once, WriteModule(Library(21)));
}

// What the system's loader asks of an image beyond what a reader of resources does.
TEST(ModuleWriter, TheHeaders_AreThoseOfALoadableDll) {
  for (const int ads : {0, 1, 100, 1000}) {
    SCOPED_TRACE(ads);
    const std::vector<std::uint8_t> file = WriteModule(Library(ads));
    ASSERT_EQ(file.size() % 0x200, 0u);
    const std::size_t headers = Number(file, 60, 4);
    EXPECT_EQ(headers % 8, 0u);
    EXPECT_EQ(Number(file, headers, 4), 0x4550u);
    EXPECT_EQ(Number(file, headers + 4, 2), 0x14Cu);
    EXPECT_EQ(Number(file, headers + 8, 4), 0u) << "the time would make other bytes of the same content";
    EXPECT_EQ(Number(file, headers + 22, 2), 0x2102u);
    const std::size_t optional = headers + 24;
    EXPECT_EQ(Number(file, optional, 2), 0x10Bu);
    EXPECT_EQ(Number(file, optional + 16, 4), 0u) << "no code is to run";
    EXPECT_EQ(Number(file, optional + 68, 2), 2u);
    const std::size_t section = optional + Number(file, headers + 20, 2);
    const std::size_t size = Number(file, section + 8, 4);
    const std::size_t held = Number(file, section + 16, 4);
    const std::size_t place = Number(file, section + 20, 4);
    EXPECT_GE(place, section + 40);
    EXPECT_EQ(place + held, file.size());
    EXPECT_EQ(held, (size + 0x1FF) / 0x200 * 0x200);
    EXPECT_EQ(Number(file, section + 12, 4), Number(file, optional + 96 + 16, 4));
    EXPECT_EQ(Number(file, optional + 96 + 20, 4), size);
    EXPECT_EQ(Number(file, optional + 56, 4), 0x1000 + (size + 0xFFF) / 0x1000 * 0x1000);
  }
}

TEST(ModuleWriter, TheTables_AreSortedForTheSystemsSearch) {
  const std::vector<std::uint8_t> file = WriteModule(Library(100));
  const std::size_t root = Number(file, 0x40 + 24 + 224 + 20, 4);
  EXPECT_EQ(Number(file, root + 12, 2), 1u) << "a type with a name comes first";
  EXPECT_EQ(Number(file, root + 14, 2), 1u);
  for (const std::size_t type : {0u, 1u}) {
    const std::size_t table = root + (Number(file, root + 16 + 8 * type + 4, 4) & 0x7FFFFFFF);
    const std::size_t count = Number(file, table + 14, 2);
    ASSERT_GT(count, 1u);
    for (std::size_t i = 1; i < count; ++i) {
      EXPECT_LT(Number(file, table + 16 + 8 * (i - 1), 4), Number(file, table + 16 + 8 * i, 4));
    }
  }
}

TEST(ModuleWriter, WhatNoModuleCanCarry_IsRefused) {
  EXPECT_THROW(WriteModule({{{0, {1}}}, {}}), std::invalid_argument);
  EXPECT_THROW(WriteModule({{{-1, {1}}}, {}}), std::invalid_argument);
  EXPECT_THROW(WriteModule({{{65536, {1}}}, {}}), std::invalid_argument);
  EXPECT_NO_THROW(WriteModule({{{65535, {1}}}, {}}));
  EXPECT_THROW(WriteModule({{}, {{-1, "x"}}}), std::invalid_argument);
  EXPECT_THROW(WriteModule({{}, {{65536, "x"}}}), std::invalid_argument);
  EXPECT_THROW(WriteModule({{}, {{1, std::string(65536, 'x')}}}), std::invalid_argument);
  EXPECT_NO_THROW(WriteModule({{}, {{1, std::string(65535, 'x')}}}));
}

}  // namespace
}  // namespace strandline::adtool
