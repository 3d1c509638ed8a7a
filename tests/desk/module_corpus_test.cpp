// The modules of fuzz/corpus/modules: what has to be left of each. tools/make-module-corpus makes them.

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <set>
#include <string>

#include "fuzz/module_check.h"

namespace strandline::desk {
namespace {

namespace fs = std::filesystem;

const fs::path kCorpus = fs::path(STRANDLINE_SOURCE_DIR) / "fuzz/corpus/modules";

constexpr char kNoModule[] = "no module";
constexpr char kNothing[] = "";
constexpr char kWhole[] = "custom/2=first custom/3=second! 1:one 2:two 17:seventeen ";
constexpr char kWithoutFirst[] = "custom/3=second! 1:one 2:two 17:seventeen ";
constexpr char kTextsAlone[] = "1:one 2:two 17:seventeen ";
constexpr char kPicturesAlone[] = "custom/2=first custom/3=second! ";

const std::map<std::string, std::string> kExpected = {
    {"sound-32", kWhole},
    {"sound-64", kWhole},
    {"sound-bytes-apart", kWhole},
    {"sound-with-more-behind", kWhole},
    {"sound-empty-tree", kNothing},
    {"sound-without-resources", kNothing},
    {"sound-without-directories", kNothing},
    {"sound-empty-resource", "custom/2= custom/3=second! "},
    {"sound-languages", "custom/2=neutral custom/3=american custom/4=english custom/5=german custom/6=american "},
    {"sound-other-types", "custom/2=first other/2=of another type "},

    {"empty", kNoModule},
    {"no-mz", kNoModule},
    {"dos-header-cut", kNoModule},
    {"signature-past-the-end", kNoModule},
    {"signature-far-past-the-end", kNoModule},
    {"signature-wrong", kNoModule},
    {"signature-cut", kNoModule},
    {"file-header-cut", kNoModule},
    {"optional-header-cut", kNoModule},
    {"optional-header-of-another-kind", kNoModule},
    {"optional-header-too-short", kNoModule},
    {"optional-header-64-too-short", kNoModule},
    {"optional-header-too-long", kNoModule},
    {"section-header-cut", kNoModule},
    {"sections-too-many", kNoModule},
    {"sections-96", kWhole},
    {"sections-97", kNoModule},
    {"sections-missing", kNothing},
    {"section-past-the-end", kNothing},
    {"section-far-past-the-end", kNothing},
    {"section-without-bytes", kNothing},
    {"section-of-4-gb", kWhole},
    {"section-at-the-last-address", kNothing},
    // What stands at the tree's beginning is taken for the resources' bytes.
    {"sections-overlap-in-the-file", "custom/2=..... custom/3=....... 0:.@.... 5:.. 19:.. "},
    {"sections-overlap-in-memory", kNothing},
    {"section-longer-in-memory", "custom/2=first "},
    {"tree-outside-all-sections", kNothing},
    {"tree-at-the-last-address", kNothing},

    {"types-cut", kNothing},
    {"types-of-which-there-are-65535", kNothing},
    {"types-with-names-of-which-there-are-65535", kNothing},
    {"types-counted-short", kPicturesAlone},
    {"type-is-no-table", kTextsAlone},
    {"type-past-the-end", kTextsAlone},
    {"type-loops-to-the-types", kTextsAlone},
    {"type-is-the-table-of-another",
     "custom/1=....o.n.e...t.w.o........................... "
     "custom/2=....s.e.v.e.n.t.e.e.n............................. "
     "1:one 2:two 17:seventeen "},
    {"type-of-too-high-a-number", kPicturesAlone},
    {"type-name-past-the-end", kTextsAlone},
    {"type-name-too-long", kTextsAlone},
    {"type-name-of-no-length", kTextsAlone},
    {"type-name-cut", kNothing},
    {"numbers-cut", kNothing},
    {"numbers-of-which-there-are-65535", kTextsAlone},
    {"number-loops-to-the-types", kWithoutFirst},
    {"number-loops-to-the-numbers", kWithoutFirst},
    {"number-is-no-table", kWithoutFirst},
    {"number-past-the-end", kWithoutFirst},
    {"number-too-high", kWithoutFirst},
    {"number-twice", "custom/2=first 1:one 2:two 17:seventeen "},
    {"numbers-downwards", "custom/3=second! custom/9=first 1:one 2:two 17:seventeen "},
    {"languages-cut", kNothing},
    {"languages-of-which-there-are-none", kWithoutFirst},
    {"languages-of-which-there-are-65535", kWithoutFirst},
    {"language-is-a-table", kWithoutFirst},
    {"language-past-the-end", kWithoutFirst},

    {"place-cut", kNothing},
    {"bytes-cut", kNothing},
    {"bytes-past-the-end", kWithoutFirst},
    {"bytes-at-the-last-address", kWithoutFirst},
    {"bytes-in-the-headers", kWithoutFirst},
    {"bytes-of-4-gb", kWithoutFirst},
    {"bytes-one-too-many", kWithoutFirst},
    {"bytes-shared", "custom/2=secon custom/3=second! 1:one 2:two 17:seventeen "},
    {"text-past-its-block", "custom/2=first custom/3=second! 17:seventeen "},
    {"text-of-the-greatest-length", "custom/2=first custom/3=second! 17:seventeen "},
    {"texts-cut", "custom/2=first custom/3=second! 1:one 17:seventeen "},
    {"texts-of-one-byte", "custom/2=first custom/3=second! 17:seventeen "},
    {"texts-of-no-byte", "custom/2=first custom/3=second! 17:seventeen "},
    {"texts-numbered-0", "custom/2=first custom/3=second! 17:seventeen "},
    {"texts-numbered-too-high", "custom/2=first custom/3=second! 1:one 2:two "},
    {"texts-of-the-highest-number", "custom/2=first custom/3=second! 1:one 2:two 65521:seventeen "},
};

// Those that lead to the same bytes again and again, by more ways than a sound module has bytes.
const std::set<std::string> kGreedy = {"greedy-tables", "greedy-names", "greedy-texts"};

std::vector<Byte> BytesOf(const std::string& name) {
  std::ifstream file(kCorpus / (name + ".bin"), std::ios::binary);
  EXPECT_TRUE(file) << name;
  return {std::istreambuf_iterator<char>(file), {}};
}

std::string Shown(std::span<const Byte> bytes) {
  std::string shown;
  for (const Byte byte : bytes) shown += byte >= 0x20 && byte < 0x7F ? static_cast<char>(byte) : '.';
  return shown;
}

std::string Shown(TextView text) {
  std::string shown;
  for (const char16_t c : text) shown += c >= 0x20 && c < 0x7F ? static_cast<char>(c) : '.';
  return shown;
}

std::string Shown(const std::optional<ModuleImage>& image) {
  if (!image) return kNoModule;
  std::string shown;
  for (const auto& [type, resources] : image->All()) {
    for (const auto& [id, bytes] : resources) {
      shown += ToUtf8(type) + "/" + std::to_string(id) + "=" + Shown(bytes) + " ";
    }
  }
  for (const auto& [id, text] : image->strings) shown += std::to_string(id) + ":" + Shown(text.View()) + " ";
  return shown;
}

TEST(ModuleCorpus, OfADamagedModule_TheSoundPartsAreLeft) {
  for (const auto& [name, expected] : kExpected) {
    EXPECT_EQ(Shown(ReadResourceModule(BytesOf(name))), expected) << name;
  }
}

TEST(ModuleCorpus, EveryFile_IsExpectedAndHoldsWhatMustHold) {
  std::size_t files = 0;
  for (const auto& entry : fs::directory_iterator(kCorpus)) {
    const std::string name = entry.path().stem().string();
    EXPECT_TRUE(kExpected.contains(name) || kGreedy.contains(name))
        << "tell in the table what is to be read of " << name;
    EXPECT_EQ(modulecheck::Wrong(BytesOf(name)), "") << name;
    ++files;
  }
  EXPECT_EQ(files, kExpected.size() + kGreedy.size());
}

TEST(ModuleCorpus, WhatLeadsToTheSameBytesAgainAndAgain_IsReadUntilItHasCostAsMuchAsTheFile) {
  const auto tables = ReadResourceModule(BytesOf("greedy-tables"));
  ASSERT_TRUE(tables);
  EXPECT_EQ(tables->OfType(u"T0").size(), 60u);
  EXPECT_EQ(tables->OfType(u"T59").size(), 0u);

  const std::string name(1000, 'n');
  const auto names = ReadResourceModule(BytesOf("greedy-names"));
  ASSERT_TRUE(names);
  EXPECT_EQ(names->All().size(), 1u);
  EXPECT_EQ(Shown(*names->Find(1, FromUtf8(name))), "x");

  const auto texts = ReadResourceModule(BytesOf("greedy-texts"));
  ASSERT_TRUE(texts);
  EXPECT_EQ(texts->strings.at(1).Length(), 1500);
  EXPECT_GT(texts->strings.size(), 1u);
  EXPECT_LT(texts->strings.size(), 10u);
}

}  // namespace
}  // namespace strandline::desk
