// The library's clipboard class on the clipboard of the world.

#include <algorithm>

#include "foundation/cCustomClipboard.h"
#include "tests/contract/core_contract.h"

namespace strandline::contract {
namespace {

using namespace clipboardformat;

using Bytes = std::vector<Byte>;

class CustomClipboardContract : public CoreContract {
 protected:
  // The clipboard is the system's, so that what others have left there goes first.
  CustomClipboardContract() {
    EXPECT_TRUE(OpenByAnother());
    system.EmptyClipboard();
    system.CloseClipboard();
  }
  ~CustomClipboardContract() override {
    system.CloseClipboard();
    clipboard = nullptr;
  }

  // Another window does what another program would do: it opens, and is in the way of others. Other programs may have
  // the clipboard open for a moment.
  bool OpenByAnother() {
    return Until([this] { return system.OpenClipboard(mAnother) != 0; });
  }
  void PutByAnother(Long format, const Bytes& bytes) {
    ASSERT_TRUE(OpenByAnother());
    system.EmptyClipboard();
    const Long memory = pictures.GlobalAlloc(kMovable, static_cast<Long>(bytes.size()));
    Byte* const at = pictures.GlobalLock(memory);
    ASSERT_NE(at, nullptr);
    std::copy(bytes.begin(), bytes.end(), at);
    pictures.GlobalUnlock(memory);
    EXPECT_NE(system.SetClipboardData(format, memory), 0);
    system.CloseClipboard();
  }
  // Without what the block may hold beyond them.
  Bytes ReadByAnother(Long format, std::size_t size) {
    EXPECT_TRUE(OpenByAnother());
    const Long memory = system.GetClipboardData(format);
    const Byte* const at = pictures.GlobalLock(memory);
    Bytes bytes;
    if (at) bytes.assign(at, at + std::min(size, static_cast<std::size_t>(pictures.GlobalSize(memory))));
    pictures.GlobalUnlock(memory);
    system.CloseClipboard();
    return bytes;
  }
  bool Open() {
    return Until([this] { return clipboard->ClipboardOpen(mOwner, false).ToBoolean(); });
  }

  static constexpr Long kMovable = 2;

  Clipboard& system = *Services().clipboard;
  const Long richText = system.RegisterClipboardFormatA(u"Rich Text Format");
  Ref<cCustomClipboard> clipboard = New<cCustomClipboard>();

 private:
  const Long mOwner = Hidden(u"owner");
  const Long mAnother = Hidden(u"another");
};

TEST_F(CustomClipboardContract, RichTextOfAnotherProgram_ComesBack) {
  PutByAnother(richText, {'{', 0xC3, 0xA9, 0xE2, 0x80, 0x94, 0xC2, 0xA0, '}', 0});
  EXPECT_TRUE(clipboard->IsDataAvailableForFormat(cCustomClipboard::kRichText));
  EXPECT_FALSE(clipboard->IsDataAvailableForFormat(cCustomClipboard::kHtml));
  ASSERT_TRUE(Open());
  String text;
  Long format = cCustomClipboard::kRichText;
  EXPECT_TRUE(clipboard->GetTextData(text, format));
  EXPECT_EQ(format, richText);
  EXPECT_EQ(text.View().substr(0, 6), TextView(u"{\u00e9\u2039 }\0", 6));
}

TEST_F(CustomClipboardContract, Text_IsThereForOthersWithTheNulThatEndsIt) {
  PutByAnother(richText, {'f', 'o', 'r', 'm', 'e', 'r', 0});
  ASSERT_TRUE(Open());
  clipboard->ClearClipboard();
  EXPECT_EQ(clipboard->FormatCount(), 0);
  EXPECT_TRUE(clipboard->SetTextData(cCustomClipboard::kRichText, u"ab\u00e9"));
  clipboard->ClipboardClose(false);
  EXPECT_EQ(ReadByAnother(richText, 4), (Bytes{'a', 'b', 0xE9, 0}));
}

TEST_F(CustomClipboardContract, Bytes_GoAndComeBack) {
  Array<Byte> bytes(0, 999);
  for (Long i = 0; i < 1000; ++i) bytes(i) = static_cast<Byte>(i * 7);
  const Array<Byte> put = bytes;
  Long format = cCustomClipboard::kHtml;
  ASSERT_TRUE(Open());
  EXPECT_TRUE(clipboard->SetBinaryData(format, put));
  clipboard->ClipboardClose(false);
  ASSERT_TRUE(Open());
  EXPECT_TRUE(clipboard->GetBinaryData(format, bytes));
  ASSERT_GE(bytes.Upper(), 999);
  EXPECT_TRUE(std::equal(put.Elements().begin(), put.Elements().end(), bytes.Elements().begin()));
  Long absent = cCustomClipboard::kRichText;
  EXPECT_FALSE(clipboard->GetBinaryData(absent, bytes));
}

TEST_F(CustomClipboardContract, HeldByAnother_ItDoesntOpenUntilThatLetsGo) {
  ASSERT_TRUE(OpenByAnother());
  EXPECT_TRUE(clipboard->ClipboardOpen(0, false).IsEmpty());
  EXPECT_EQ(clipboard->GetCurrentFormats(0), 0);
  clipboard->ClipboardClose(false);
  EXPECT_TRUE(clipboard->ClipboardOpen(0, false).IsEmpty()) << "it has closed nothing that isn't its own";
  system.CloseClipboard();
  EXPECT_TRUE(Open());
}

TEST_F(CustomClipboardContract, ByForce_ItOpensWhatThisThreadHolds) {
  ASSERT_TRUE(OpenByAnother());
  EXPECT_TRUE(Until([this] { return clipboard->ClipboardOpen(0, true).ToBoolean(); }));
  clipboard->ClipboardClose(false);
  EXPECT_EQ(system.CloseClipboard(), 0) << "nothing is left open";
}

TEST_F(CustomClipboardContract, PlainAndUnicodeText_AreReadAndLeaveItOpen) {
  PutByAnother(kUnicodeText, {'c', 0, 0xE9, 0, 0x00, 0x4E, 0, 0});
  ASSERT_TRUE(Open());
  String text;
  EXPECT_TRUE(clipboard->GetTextData(text, kUnicodeText));
  EXPECT_EQ(text, u"c\u00e9\u4e00");
  EXPECT_TRUE(clipboard->GetTextData(text, kText));
  EXPECT_EQ(text, u"c\u00e9?");
  clipboard->ClearClipboard();
  EXPECT_EQ(clipboard->FormatCount(), 0) << "open still";
}

TEST_F(CustomClipboardContract, CurrentFormats_AreThoseOnTheClipboard) {
  PutByAnother(richText, {'a', 0});
  ASSERT_TRUE(OpenByAnother());
  const Long memory = pictures.GlobalAlloc(kMovable, 2);
  EXPECT_NE(system.SetClipboardData(kText, memory), 0);
  system.CloseClipboard();
  EXPECT_TRUE(Until([this] { return clipboard->GetCurrentFormats(0) == 5; }));
  EXPECT_EQ(clipboard->GetCurrentFormatID(1), richText);
  EXPECT_EQ(clipboard->GetCurrentFormatName(1), u"Rich Text Format");
  EXPECT_EQ(clipboard->GetCurrentFormatName(2), u"Text");
  EXPECT_TRUE(clipboard->HasCurrentFormat(kUnicodeText));
  EXPECT_EQ(clipboard->FormatIDForName(0, u"Text Locale Identifier"), kLocale);
  EXPECT_TRUE(clipboard->IsDataAvailableForFormatName(0, u"Rich Text Format"));
  EXPECT_FALSE(clipboard->IsDataAvailableForFormatName(0, u"HTML Format"));
}

TEST_F(CustomClipboardContract, Files_GoAndComeBack) {
  Array<String> files(1, 2);
  files(1) = u"C:\\one.doc";
  files(2) = u"D:\\\u4e00";
  ASSERT_TRUE(Open());
  EXPECT_TRUE(clipboard->SetFileList(files));
  clipboard->ClipboardClose(false);
  ASSERT_TRUE(Open());
  Array<String> read;
  Long count = 0;
  EXPECT_TRUE(clipboard->GetFileList(read, count));
  EXPECT_EQ(count, 2);
  EXPECT_EQ(read, files);
}

}  // namespace
}  // namespace strandline::contract
