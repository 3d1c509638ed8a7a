// What goes to the clipboard through its class and comes from it: bytes, texts, lists of files; and what becomes of
// that when a service fails.

#include "tests/foundation/clipboard_fixture.h"

namespace strandline {
namespace {

using namespace clipboardformat;

class ClipboardDataTest : public ClipboardClassTest {
 protected:
  std::string Read(Long format) {
    Array<Byte> bytes = BytesOf("former");
    const Boolean ok = clipboard->GetBinaryData(format, bytes);
    EXPECT_EQ(ok, bytes.IsSized());
    EXPECT_TRUE(!ok || bytes.Lower() == 0);
    return {bytes.Elements().begin(), bytes.Elements().end()};
  }
  static Array<String> Files(std::initializer_list<const char16_t*> names) {
    Array<String> files(5, 4 + static_cast<Long>(names.size()));
    Long i = 5;
    for (const char16_t* name : names) files(i++) = name;
    return files;
  }

  Long richText = kRichTextId;
};

// ---- Bytes.

TEST_F(ClipboardDataTest, Bytes_GoToTheClipboardInMemoryThatItOwns) {
  Open();
  calls.clear();
  EXPECT_TRUE(clipboard->SetBinaryData(richText, BytesOf(std::string("a\0b", 3))));
  EXPECT_EQ(calls, (LogLines{"GlobalAlloc 8192 3", "GlobalLock memory", "GlobalUnlock memory",
                             "SetClipboardData 49153 memory"}));
  clipboard->ClipboardClose(false);
  EXPECT_EQ(Found(kRichTextId), std::string("a\0b", 3));
}

TEST_F(ClipboardDataTest, Bytes_OfAnyBoundsAreThoseBetweenThem) {
  Open();
  Array<Byte> bytes(-3, -1);
  for (Long i = -3; i <= -1; ++i) bytes(i) = static_cast<Byte>('d' + i);
  EXPECT_TRUE(clipboard->SetBinaryData(richText, bytes));
  clipboard->ClipboardClose(false);
  EXPECT_EQ(Found(kRichTextId), "abc");
}

TEST_F(ClipboardDataTest, Bytes_ThatArentAnyAreNotPutThere) {
  Open();
  EXPECT_FALSE(clipboard->SetBinaryData(richText, Array<Byte>(0, -1)));
  EXPECT_TRUE(script.log.empty());
  EXPECT_FALSE(clipboard->SetBinaryData(richText, Array<Byte>()));
  EXPECT_EQ(script.Asked(), LogLines{"9 cCustomClipboard.SetBinaryData"});
}

TEST_F(ClipboardDataTest, Bytes_ComeFromTheClipboardWhole) {
  Put(kRichTextId, std::string("a\0b\0", 4));
  Open();
  calls.clear();
  EXPECT_EQ(Read(kRichTextId), std::string("a\0b\0", 4));
  EXPECT_EQ(calls,
            (LogLines{"GetClipboardData 49153", "GlobalSize memory", "GlobalLock memory", "GlobalUnlock memory"}));
  EXPECT_EQ(Read(kHtmlId), "") << "and the former ones are gone";
}

TEST_F(ClipboardDataTest, MemoryHandles_AreTheClipboards) {
  Put(kRichTextId, "ab");
  Open();
  const Long memory = clipboard->GetClipboardMemoryHandle(richText);
  EXPECT_EQ(desk.Pictures().GlobalSize(memory), 2);
  Long html = cCustomClipboard::kHtml;
  EXPECT_EQ(clipboard->GetClipboardMemoryHandle(html), 0);

  const Long own = desk.Pictures().GlobalAlloc(2, 4);
  EXPECT_TRUE(clipboard->SetClipboardMemoryHandle(html, own));
  EXPECT_FALSE(clipboard->SetClipboardMemoryHandle(html, 0));
  clipboard->ClipboardClose(false);
  const Long refused = desk.Pictures().GlobalAlloc(2, 4);
  EXPECT_FALSE(clipboard->SetClipboardMemoryHandle(html, refused)) << "closed";
  EXPECT_EQ(desk.Pictures().GlobalFree(refused), 0);
  EXPECT_TRUE(script.log.empty());
}

TEST_F(ClipboardDataTest, Clear_LeavesNothing) {
  Put(kRichTextId, "ab");
  Put(kText, "a");
  Open();
  clipboard->ClearClipboard();
  EXPECT_EQ(clipboard->FormatCount(), 0);
}

// ---- Texts.

TEST_F(ClipboardDataTest, RichText_ComesBackThroughThePseudoFormat) {
  Put(kRichTextId, "{\\rtf1 caf\xC3\xA9 \xE2\x80\x94\xC2\xA0!}");
  Open();
  String text;
  Long format = cCustomClipboard::kRichText;
  EXPECT_TRUE(clipboard->GetTextData(text, format));
  EXPECT_EQ(text, u"{\\rtf1 caf\u00e9 \u2039 !}");
  EXPECT_EQ(format, kRichTextId);
}

TEST_F(ClipboardDataTest, Text_OfAFormatThatIsntThereStaysAsItWas) {
  Put(kRichTextId, "ab");
  Open();
  String text = u"as it was";
  EXPECT_FALSE(clipboard->GetTextData(text, cCustomClipboard::kHtml));
  EXPECT_EQ(text, u"as it was");
  EXPECT_TRUE(script.log.empty());
}

TEST_F(ClipboardDataTest, SetText_StoresItsBytesAndTheNulThatEndsThem) {
  Open();
  calls.clear();
  Long format = cCustomClipboard::kRichText;
  EXPECT_TRUE(clipboard->SetTextData(format, u"ab\u00e9"));
  EXPECT_EQ(calls[0], "GlobalAlloc 8192 4");
  EXPECT_TRUE(clipboard->SetTextData(cCustomClipboard::kHtml, TextView(u"\u20ac\0\u4e00", 3)));
  clipboard->ClipboardClose(false);
  EXPECT_EQ(Found(kRichTextId), std::string("ab\xE9\0", 4));
  EXPECT_EQ(Found(kHtmlId), std::string("\x80\0?\0", 4));
}

TEST_F(ClipboardDataTest, SetText_OfNoTextDoesNothing) {
  Put(kRichTextId, "ab");
  EXPECT_FALSE(clipboard->SetTextData(richText, u"")) << "closed";
  Open();
  calls.clear();
  EXPECT_FALSE(clipboard->SetTextData(richText, u""));
  EXPECT_TRUE(calls.empty());
  EXPECT_TRUE(script.log.empty());
  clipboard->ClipboardClose(false);
  EXPECT_EQ(Found(kRichTextId), "ab");
}

// A code page whose characters may have two bytes.
class WideCodePage final : public ForwardingRunTime {
 public:
  using ForwardingRunTime::ForwardingRunTime;
  Array<Byte> BytesFromText(const String& text) override {
    Array<Byte> bytes(0, 2 * text.Length() - 1);
    for (Byte& byte : std::span(bytes.Data(), bytes.Elements().size())) byte = 'w';
    return bytes;
  }
};

TEST_F(ClipboardDataTest, SetText_OfLongerCharactersIsCutToItsRoom) {
  WideCodePage runTime(desk.RunTime());
  platform::current.runTime = &runTime;
  Open();
  EXPECT_TRUE(clipboard->SetTextData(richText, u"ab"));
  clipboard->ClipboardClose(false);
  EXPECT_EQ(Found(kRichTextId), std::string("ww\0", 3));
  platform::current.runTime = &desk.RunTime();
}

TEST_F(ClipboardDataTest, PlainAndUnicodeText_ComeThroughTheRunTimesOwnObject) {
  desk.Clipboard().SetText(u"caf\u00e9 \u4e00", kUnicodeText);
  const struct {
    Long format;
    String expected;
  } cases[] = {{kText, u"caf\u00e9 ?"}, {kUnicodeText, u"caf\u00e9 \u4e00"}};
  for (const auto& each : cases) {
    Open();
    calls.clear();
    String text;
    EXPECT_TRUE(clipboard->GetTextData(text, each.format));
    EXPECT_EQ(text, each.expected);
    const std::string get = "GetText " + std::to_string(each.format);
    EXPECT_EQ(calls, (LogLines{"CloseClipboard", get, "CloseClipboard", "OpenClipboard window"}));
    EXPECT_TRUE(desk.Clipboard().IsOpen());
    clipboard->ClipboardClose(false);
    EXPECT_FALSE(desk.Clipboard().IsOpen());
  }
}

TEST_F(ClipboardDataTest, PlainText_LeavesTheClipboardOpenAlsoWhereItWasClosed) {
  Put(kText, "ab");
  String text;
  EXPECT_TRUE(clipboard->GetTextData(text, kText));
  EXPECT_EQ(text, u"a") << "the last byte ends a text";
  EXPECT_EQ(calls, (LogLines{"GetText 1", "CloseClipboard", "OpenClipboard 0"}));
  EXPECT_TRUE(desk.Clipboard().IsOpen());
}

TEST_F(ClipboardDataTest, PlainText_OfAHeldClipboardIsAnError) {
  desk.Clipboard().HoldByAnother(true);
  String text = u"as it was";
  EXPECT_FALSE(clipboard->GetTextData(text, kText));
  EXPECT_EQ(text, u"as it was");
  EXPECT_EQ(script.Asked(), LogLines{"521 cCustomClipboard.GetTextData"});
}

TEST_F(ClipboardDataTest, ConsoleText_IsBytesLikeAnyOther) {
  Put(kText, "ab");
  Open();
  String text;
  EXPECT_TRUE(clipboard->GetTextData(text, kOemText));
  EXPECT_EQ(text, String(TextView(u"a\0", 2)));
}

// ---- Lists of files.

TEST_F(ClipboardDataTest, Files_GoAndComeBack) {
  Open();
  EXPECT_TRUE(clipboard->SetFileList(Files({u"C:\\one.doc", u"D:\\\u4e00\u00e9", u"", u"E:\\"})));
  clipboard->ClipboardClose(false);
  Open();
  Array<String> files;
  Long count = 0;
  EXPECT_TRUE(clipboard->GetFileList(files, count));
  ASSERT_EQ(count, 3);
  EXPECT_EQ(files.Lower(), 1);
  EXPECT_EQ(files.Upper(), 3);
  EXPECT_EQ(files(1), u"C:\\one.doc");
  EXPECT_EQ(files(2), u"D:\\\u4e00\u00e9");
  EXPECT_EQ(files(3), u"E:\\");
}

TEST_F(ClipboardDataTest, AListOfOneFile_ComesBack) {
  Open();
  EXPECT_TRUE(clipboard->SetFileList(Files({u"C:\\one.doc"})));
  Array<String> files;
  Long count = 0;
  EXPECT_TRUE(clipboard->GetFileList(files, count));
  EXPECT_EQ(count, 1);
  EXPECT_EQ(files.Elements(), std::vector<String>{u"C:\\one.doc"});
}

TEST_F(ClipboardDataTest, Files_StandBehindTheirRecord) {
  Open();
  Array<String> files(0, 0);
  files(0) = String(TextView(u"C:\0D:", 5));
  EXPECT_TRUE(clipboard->SetFileList(files));
  clipboard->ClipboardClose(false);
  const std::string record(
      "\x14\0\0\0"
      "\0\0\0\0"
      "\0\0\0\0"
      "\0\0\0\0"
      "\1\0\0\0",
      20);
  EXPECT_EQ(Found(kDropList), record + std::string("C\0:\0\0\0\0\0", 8));
}

TEST_F(ClipboardDataTest, Files_OfAnotherProgramMayBeInSingleBytes) {
  Put(kDropList, std::string("\x14\0\0\0"
                             "\0\0\0\0"
                             "\0\0\0\0"
                             "\0\0\0\0"
                             "\0\0\0\0"
                             "C:\\a\xE9\0b\0\0",
                             29));
  Open();
  calls.clear();
  Array<String> files;
  Long count = 0;
  EXPECT_TRUE(clipboard->GetFileList(files, count));
  EXPECT_EQ(count, 2);
  EXPECT_EQ(files(1), u"C:\\a\u00e9");
  EXPECT_EQ(files(2), u"b");
  EXPECT_EQ(calls, (LogLines{"GetClipboardData 15", "DragQueryFileA memory -1 0 ''", "DragQueryFileA memory 0 0 ''",
                             "DragQueryFileA memory 0 6 'C:\\a\u00e9'", "DragQueryFileA memory 1 0 ''",
                             "DragQueryFileA memory 1 2 'b'"}));
}

TEST_F(ClipboardDataTest, Files_ThatArentThereAreNone) {
  for (const bool isAstray : {false, true}) {
    if (isAstray) Put(kDropList, "no list");
    Open();
    Array<String> files = Files({u"former"});
    Long count = 7;
    EXPECT_FALSE(clipboard->GetFileList(files, count));
    EXPECT_FALSE(files.IsSized());
    EXPECT_EQ(count, 0);
    EXPECT_FALSE(clipboard->SetFileList(Array<String>()));
    EXPECT_FALSE(clipboard->SetFileList(Files({u"", u""})));
    clipboard->ClipboardClose(false);
  }
  EXPECT_TRUE(script.log.empty());
}

// ---- Services that fail.

TEST_F(ClipboardDataTest, AFailingService_MakesItsMemberFailAndLosesNothing) {
  String text;
  Array<Byte> bytes = BytesOf("new");
  Array<String> files = Files({u"C:\\a"});
  Long count = 0;
  const struct {
    const char* service;
    std::function<bool()> use;
    bool result;
  } cases[] = {
      {"RegisterClipboardFormatA", [&] { return clipboard->AddFormat(u"Rich Text Format") != 0; }, false},
      {"CountClipboardFormats", [&] { return clipboard->FormatCount() != 0; }, false},
      {"OpenClipboard", [&] { return clipboard->GetCurrentFormats(hwnd) != 0; }, false},
      {"EnumClipboardFormats", [&] { return clipboard->GetCurrentFormats(hwnd) != 0; }, false},
      {"CloseClipboard", [&] { return clipboard->GetCurrentFormats(hwnd) != 0; }, true},
      {"GetClipboardFormatNameA", [&] { return !clipboard->FormatName(kRichTextId).IsEmpty(); }, false},
      {"IsClipboardFormatAvailable", [&] { return clipboard->IsDataAvailableForFormat(richText); }, false},
      {"GetClipboardData", [&] { return clipboard->GetBinaryData(richText, bytes); }, false},
      {"GlobalSize", [&] { return clipboard->GetBinaryData(richText, bytes); }, false},
      {"GlobalLock", [&] { return clipboard->GetBinaryData(richText, bytes); }, false},
      {"GlobalUnlock", [&] { return clipboard->GetBinaryData(richText, bytes); }, true},
      {"GlobalLock", [&] { return clipboard->GetTextData(text, richText); }, false},
      {"TextFromBytes", [&] { return clipboard->GetTextData(text, richText); }, true},
      {"GetText", [&] { return clipboard->GetTextData(text, kText); }, false},
      {"GlobalAlloc", [&] { return clipboard->SetBinaryData(richText, bytes); }, false},
      {"GlobalLock", [&] { return clipboard->SetBinaryData(richText, bytes); }, false},
      {"SetClipboardData", [&] { return clipboard->SetBinaryData(richText, bytes); }, false},
      {"GlobalAlloc", [&] { return clipboard->SetTextData(richText, u"x"); }, false},
      {"SetClipboardData", [&] { return clipboard->SetTextData(richText, u"x"); }, false},
      {"SetClipboardData", [&] { return clipboard->SetFileList(files); }, false},
      {"DragQueryFileA", [&] { return clipboard->GetFileList(files, count); }, false},
      {"EmptyClipboard", [&] { return clipboard->ClearClipboard(), clipboard->FormatCount() == 0; }, false},
  };
  for (const auto& each : cases) {
    SCOPED_TRACE(each.service);
    desk.Clipboard().CloseClipboard();
    Put(kRichTextId, "former");
    Put(kDropList, std::string("\x14\0\0\0"
                               "\0\0\0\0"
                               "\0\0\0\0"
                               "\0\0\0\0"
                               "\0\0\0\0"
                               "C:\0\0",
                               24));
    Put(kText, "a");
    Open();
    bytes = BytesOf("new");
    files = Files({u"C:\\a"});
    faults.Arm(each.service, 1);
    EXPECT_EQ(each.use(), each.result);
    EXPECT_FALSE(faults.Take(each.service)) << "it wasn't called";
    clipboard->ClipboardClose(true);
    EXPECT_EQ(Found(kRichTextId), "former");
    EXPECT_EQ(desk.Pictures().Memory().LiveBlocks(), 0);
  }
  EXPECT_EQ(script.Asked(), LogLines{"521 cCustomClipboard.GetTextData"}) << "the one that tells by an error";
}

TEST_F(ClipboardDataTest, MemoryThatIsNotToBeHad_IsNeitherLockedNorFreed) {
  Open();
  calls.clear();
  faults.Arm("GlobalAlloc", 1);
  EXPECT_FALSE(clipboard->SetBinaryData(richText, BytesOf("ab")));
  EXPECT_EQ(calls, LogLines{"GlobalAlloc 8192 2"});
}

TEST_F(ClipboardDataTest, MemoryWithoutASize_GivesNoBytesAtAll) {
  Put(kRichTextId, "former");
  Open();
  faults.Arm("GlobalSize", 1);
  Array<Byte> bytes = BytesOf("new");
  EXPECT_FALSE(clipboard->GetBinaryData(richText, bytes));
  EXPECT_FALSE(bytes.IsSized());
}

TEST_F(ClipboardDataTest, ConversionThatGivesNoBytes_StoresAnEndedTextAllTheSame) {
  Open();
  faults.Arm("BytesFromText", 1);
  EXPECT_TRUE(clipboard->SetTextData(richText, u"ab"));
  clipboard->ClipboardClose(false);
  EXPECT_EQ(Found(kRichTextId), std::string(3, '\0'));
}

TEST_F(ClipboardDataTest, MemoryThatCantBeFreed_IsLeft) {
  Open();
  faults.Arm("SetClipboardData", 1);
  faults.Arm("GlobalFree", 1);
  EXPECT_FALSE(clipboard->SetBinaryData(richText, BytesOf("ab")));
  EXPECT_EQ(calls.back(), "GlobalFree memory");
  ASSERT_EQ(desk.Pictures().Memory().LiveBlocks(), 1);
  desk.Pictures().GlobalFree(0x50000001);
}

TEST_F(ClipboardDataTest, AFileThatCantBeAskedFor_HasNoName) {
  Put(kDropList, std::string("\x14\0\0\0"
                             "\0\0\0\0"
                             "\0\0\0\0"
                             "\0\0\0\0"
                             "\0\0\0\0"
                             "C:\0D:\0\0",
                             27));
  Open();
  Array<String> files;
  Long count = 0;
  platform::current.clipboard = &desk.Clipboard();
  class SilentAboutTheFirst final : public ForwardingClipboard {
   public:
    using ForwardingClipboard::ForwardingClipboard;
    Long DragQueryFileA(Long drop, Long index, Long limit, String& name) override {
      asked += index == 0;
      return index == 0 ? 0 : mTarget.DragQueryFileA(drop, index, limit, name);
    }
    int asked = 0;
  } silent(desk.Clipboard());
  platform::current.clipboard = &silent;
  EXPECT_TRUE(clipboard->GetFileList(files, count));
  EXPECT_EQ(files(1), u"");
  EXPECT_EQ(silent.asked, 1) << "for the length alone";
  EXPECT_EQ(files(2), u"D:");
  platform::current.clipboard = &desk.Clipboard();
}

}  // namespace
}  // namespace strandline
