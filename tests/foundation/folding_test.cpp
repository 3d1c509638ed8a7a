// How bytes that hold UTF-8 are read as a text of single bytes.

#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>

#include "foundation/cCustomClipboard.h"
#include "fuzz/folding_check.h"
#include "tests/foundation/foundation_fixture.h"

namespace strandline {
namespace {

using folding::Bytes;

Bytes Of(const std::string& bytes) { return {bytes.begin(), bytes.end()}; }

class FoldingTest : public FoundationTest {
 protected:
  // Rich Text of another program's, read.
  Boolean Read(const std::string& bytes) {
    Long format = clipboard->AddFormat(u"Rich Text Format");
    desk.Clipboard().SetFromOutside(format, Of(bytes));
    clipboard->ClipboardOpen(0, true);
    text = kBefore;
    script.questions.clear();
    const Boolean ok = clipboard->GetTextData(text, format);
    clipboard->ClipboardClose(false);
    return ok;
  }
  // What was read, as bytes of the default code page.
  std::string Bytewise() {
    const Array<Byte> bytes = desk.RunTime().BytesFromText(text);
    return {bytes.Elements().begin(), bytes.Elements().end()};
  }

  static constexpr const char16_t* kBefore = u"as it was";
  const Ref<cCustomClipboard> clipboard = New<cCustomClipboard>();
  String text;
};

TEST_F(FoldingTest, EachCharacter_BecomesOneByte) {
  const struct {
    const char* what;
    std::string bytes;
    std::string folded;
  } cases[] = {
      {"plain text", "{\\rtf1 a}", "{\\rtf1 a}"},
      {"a letter", "\xC3\xA9", "\xE9"},
      {"letters among others", "d\xC3\xA9j\xC3\xA0 vu", "d\xE9j\xE0 vu"},
      {"the first letter", "\xC3\x80", "\xC0"},
      {"the last letter", "\xC3\xBF", "\xFF"},
      {"what is no UTF-8 behind the lead", "\xC3(", "h"},
      {"a lead at the end keeps the byte of its place", "ab\xC3", "ab\xC3"},
      {"which may be another's", "\xC3\xA9\xC3", "\xE9\xA9"},
      {"a lead alone", "\xC3", "\xC3"},
      {"a no-break space", "a\xA0z", "a z"},
      {"a no-break space in UTF-8", "a\xC2\xA0z", "a z"},
      {"a sign whose lead is 0xC2", "\xC2\xA9 2009", "\xA9 2009"},
      {"that lead without a sign", "a\xC2z\xC2", "az"},
      {"a letter that becomes that lead", "x\xC3\x82z", "xz"},
      {"a dash", "\xE2\x80\x94", "\x8B"},
      {"quotation marks", "\xE2\x80\x9Cso\xE2\x80\x9D", "\x93so\x94"},
      {"the lowest mark", "\xE2\x80\x09", std::string(1, '\0')},
      {"another second byte: the place keeps its byte", "a\xE2\x82\xAC", "a\xE2\x82\xAC"},
      {"which may be another's", "\xC3\xA9\xE2\x82z", "\xE9\xA9\x82z"},
      {"a mark of leads", "\xE2\x80\xE2\x80", "\xD9\x80"},
      {"bytes of nothing", std::string("a\0\0b", 4), std::string("a\0\0b", 4)},
      {"UTF-8 of four bytes", "\xF0\x9F\x98\x80", "\xF0\x9F\x98\x80"},
  };
  for (const auto& each : cases) {
    SCOPED_TRACE(each.what);
    EXPECT_TRUE(Read(each.bytes));
    EXPECT_EQ(Bytewise(), each.folded);
    EXPECT_TRUE(script.questions.empty());
  }
}

TEST_F(FoldingTest, BytesThatMakeNoCharacter_AreAnError) {
  const struct {
    const char* what;
    std::string bytes;
    Long error;
  } cases[] = {
      {"a mark that ends after its lead", "ab\xE2", errors::kSubscriptOutOfRange},
      {"a mark that ends after its second byte", "ab\xE2\x80", errors::kSubscriptOutOfRange},
      {"a letter above a byte", "ab\xC3\xC0z", errors::kOverflow},
      {"a mark below a byte", "ab\xE2\x80\x08z", errors::kOverflow},
  };
  for (const auto& each : cases) {
    SCOPED_TRACE(each.what);
    EXPECT_FALSE(Read(each.bytes));
    EXPECT_EQ(text, kBefore);
    EXPECT_EQ(script.Asked(), LogLines{std::to_string(each.error) + " cCustomClipboard.GetTextData"});
  }
}

TEST_F(FoldingTest, AnIgnoredError_LeavesTheByteOfItsPlace) {
  const struct {
    std::string bytes;
    std::string folded;
    std::size_t errors;
  } cases[] = {
      {"ab\xC3\xC0z", "ab\xC3z", 1},
      {"ab\xE2\x80\x08z", "ab\xE2z", 1},
      {"ab\xE2\x80", "ab\xE2", 1},
      {"ab\xE2", "ab\xE2", 2},  // the question for the second byte, and then the third byte
  };
  for (const auto& each : cases) {
    script.Answer({vbwProtector::kIgnore, vbwProtector::kIgnore});
    EXPECT_TRUE(Read(each.bytes));
    EXPECT_EQ(Bytewise(), each.folded);
    EXPECT_EQ(script.questions.size(), each.errors);
  }
}

TEST_F(FoldingTest, Text_IsInTheDefaultCodePage) {
  EXPECT_TRUE(Read("\x80 caf\xC3\xA9"));
  EXPECT_EQ(text, u"\u20ac caf\u00e9");
}

// ---- Against the second account of it.

std::string Shown(const Bytes& bytes) {
  std::string shown;
  for (const Byte byte : bytes) {
    shown += "0123456789ABCDEF"[byte >> 4];
    shown += "0123456789ABCDEF"[byte & 15];
    shown += ' ';
  }
  return shown;
}

TEST(Folding, Corpus_IsReadAsTheSecondAccountHasIt) {
  folding::Check check;
  std::size_t files = 0;
  for (const auto& entry : std::filesystem::directory_iterator(STRANDLINE_SOURCE_DIR "/fuzz/corpus/folding")) {
    std::ifstream file(entry.path(), std::ios::binary);
    ASSERT_TRUE(file) << entry.path();
    const Bytes bytes(std::istreambuf_iterator<char>(file), {});
    EXPECT_EQ(check.Wrong(bytes), "") << entry.path();
    ++files;
  }
  EXPECT_GT(files, 20u);
}

// Of the bytes that matter: up to four in a row in every combination.
TEST(Folding, ShortTexts_AreReadAsTheSecondAccountHasThem) {
  constexpr Byte kBytes[] = {0x00, 0x08, 0x09, 'a', 0x80, 0xA0, 0xA9, 0xC0, 0xC2, 0xC3, 0xE2, 0xFF};
  folding::Check check;
  for (std::size_t length = 1, count = 1; length <= 4; ++length) {
    count *= std::size(kBytes);
    for (std::size_t number = 0; number < count; ++number) {
      Bytes bytes;
      for (std::size_t rest = number; bytes.size() < length; rest /= std::size(kBytes)) {
        bytes.push_back(kBytes[rest % std::size(kBytes)]);
      }
      ASSERT_EQ(check.Wrong(bytes), "") << Shown(bytes);
    }
  }
}

TEST(Folding, RandomTexts_AreReadAsTheSecondAccountHasThem) {
  constexpr Byte kLeads[] = {0xC2, 0xC3, 0xE2, 0x80, 0xA0};
  folding::Check check;
  std::mt19937 random(20030401);
  for (int round = 0; round < 2000; ++round) {
    Bytes bytes(random() % 100);
    for (Byte& byte : bytes) {
      byte = random() % 3 == 0 ? kLeads[random() % std::size(kLeads)] : static_cast<Byte>(random());
    }
    ASSERT_EQ(check.Wrong(bytes), "") << Shown(bytes);
  }
}

}  // namespace
}  // namespace strandline
