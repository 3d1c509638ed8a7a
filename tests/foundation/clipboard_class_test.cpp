// The clipboard as an object that may hold it open: who may do what when, its formats, its bytes and texts.

#include "tests/foundation/clipboard_fixture.h"
#include "tests/support/raised.h"

namespace strandline {

// A list of any values is told element by element.
std::string ClipboardClassTest::Report() const {
  class Told final : public Reporter {
   public:
    void Variable(TextView name, const Variant& value) override {
      const auto* const list = value.If<Variant::Shared<Variant>>();
      line += (line.empty() ? "" : " ") + ToUtf8(name) + "=" + (list ? "" : Shown(value));
      if (list && !(*list)->IsSized()) line += "[unsized]";
      if (list && (*list)->IsSized()) line += "from " + std::to_string((*list)->Lower()) + ":";
      for (Long i = 0; list && i < static_cast<Long>((*list)->Elements().size()); ++i) {
        line += " " + Shown((**list)((*list)->Lower() + i));
      }
    }
    std::string line;
  } told;
  clipboard->ReportVariables(told);
  return told.line;
}

namespace {

using namespace clipboardformat;

TEST_F(ClipboardClassTest, AsAnObject_ItHasAnIdentityAndNoMembers) {
  const Object object = clipboard;
  EXPECT_EQ(Raised([&] { object.Get("Count"); }), errors::kNoSuchMember);
  EXPECT_EQ(object.Identity(), static_cast<Long>(reinterpret_cast<std::intptr_t>(object.Target()) & 0x7FFFFFFF));
}

// ---- Opening and closing.

TEST_F(ClipboardClassTest, OpeningThatFails_ForgetsTheFormerOwner) {
  Open();
  ASSERT_NE(Report().find("m_hWnd=" + std::to_string(hwnd)), std::string::npos);
  faults.Arm("OpenClipboard", 1);
  EXPECT_TRUE(clipboard->ClipboardOpen(hwnd, false).IsEmpty());
  EXPECT_NE(Report().find("m_hWnd=0"), std::string::npos);
  desk.Clipboard().CloseClipboard();
}

TEST_F(ClipboardClassTest, Open_HoldsItForItsOwnerUntilItIsClosed) {
  const Variant opened = clipboard->ClipboardOpen(hwnd, false);
  EXPECT_EQ(opened, Variant(true));
  EXPECT_TRUE(desk.Clipboard().IsOpen());
  clipboard->ClipboardClose(false);
  EXPECT_FALSE(desk.Clipboard().IsOpen());
  EXPECT_EQ(calls, (LogLines{"OpenClipboard window", "CloseClipboard"}));
}

TEST_F(ClipboardClassTest, Open_HeldByAnotherProgram_IsEmptyAndNoError) {
  desk.Clipboard().HoldByAnother(true);
  EXPECT_TRUE(clipboard->ClipboardOpen(hwnd, false).IsEmpty());
  EXPECT_TRUE(clipboard->ClipboardOpen(hwnd, true).IsEmpty());
  EXPECT_TRUE(script.log.empty());
  EXPECT_EQ(Report(),
            "m_lId=[unsized] m_sName=[unsized] m_iCount=0 m_bClipboardIsOpen=False m_hWnd=0 "
            "m_RichTextId=49153 m_HTMLId=49154");
  desk.Clipboard().HoldByAnother(false);
  EXPECT_EQ(clipboard->ClipboardOpen(hwnd, false), Variant(true));
}

TEST_F(ClipboardClassTest, OpenByForce_LetsGoOfWhatThisThreadHolds) {
  const Long other = desk.Host().CreateWindowOf(u"Test", u"Other", 0, {0, 0, 10, 10}, nullptr);
  desk.Clipboard().OpenClipboard(other);
  EXPECT_TRUE(clipboard->ClipboardOpen(hwnd, false).IsEmpty());
  EXPECT_EQ(calls, LogLines{"OpenClipboard window"});
  calls.clear();
  EXPECT_EQ(clipboard->ClipboardOpen(hwnd, true), Variant(true));
  EXPECT_EQ(calls, (LogLines{"CloseClipboard", "OpenClipboard window"}));
}

TEST_F(ClipboardClassTest, OpenThatFails_ForgetsAnEarlierOne) {
  Open();
  faults.Arm("OpenClipboard", 1);
  EXPECT_TRUE(clipboard->ClipboardOpen(hwnd, false).IsEmpty());
  calls.clear();
  clipboard->ClipboardClose(false);
  EXPECT_TRUE(calls.empty()) << "it doesn't know that it holds the clipboard";
  clipboard->ClipboardClose(true);
  EXPECT_FALSE(desk.Clipboard().IsOpen());
}

TEST_F(ClipboardClassTest, Close_OfAClosedOneDoesntCallTheSystem) {
  clipboard->ClipboardClose(false);
  EXPECT_TRUE(calls.empty());
  desk.Clipboard().OpenClipboard(hwnd);
  clipboard->ClipboardClose(false);
  EXPECT_TRUE(desk.Clipboard().IsOpen()) << "somebody else holds it";
}

TEST_F(ClipboardClassTest, CloseByForce_ClosesWhoeverHasItOpen) {
  desk.Clipboard().OpenClipboard(0);
  clipboard->ClipboardClose(true);
  EXPECT_EQ(calls, LogLines{"CloseClipboard"});
  EXPECT_FALSE(desk.Clipboard().IsOpen());
}

TEST_F(ClipboardClassTest, CloseThatFails_CountsAsDone) {
  Open();
  faults.Arm("CloseClipboard", 1);
  clipboard->ClipboardClose(false);
  calls.clear();
  clipboard->ClipboardClose(false);
  EXPECT_TRUE(calls.empty());
  desk.Clipboard().CloseClipboard();
}

TEST_F(ClipboardClassTest, Object_ClosesAtItsEndWhatItHolds) {
  Open();
  calls.clear();
  clipboard = nullptr;
  EXPECT_EQ(calls, LogLines{"CloseClipboard"});
  EXPECT_FALSE(desk.Clipboard().IsOpen());
  clipboard = New<cCustomClipboard>();
  calls.clear();
  clipboard = nullptr;
  EXPECT_TRUE(calls.empty());
}

// ---- What a closed clipboard refuses.

TEST_F(ClipboardClassTest, Closed_RefusesWhatNeedsItOpen) {
  Put(kRichTextId, "{\\rtf1}");
  Long format = cCustomClipboard::kRichText;
  Array<Byte> bytes = BytesOf("x");
  Array<String> files(1, 1);
  files(1) = u"C:\\a";
  Long count = 7;
  String text = u"as it was";
  const struct {
    std::function<bool()> use;
    std::string procedure;
  } cases[] = {
      {[&] { return clipboard->SetBinaryData(format, bytes); }, "SetBinaryData"},
      {[&] { return clipboard->GetClipboardMemoryHandle(format) != 0; }, "GetClipboardMemoryHandle"},
      {[&] { return clipboard->ClearClipboard(), false; }, "ClearClipboard"},
      // Through those.
      {[&] { return clipboard->SetTextData(format, u"x"); }, "SetBinaryData"},
      {[&] { return clipboard->SetFileList(files); }, "SetBinaryData"},
      {[&] { return clipboard->GetBinaryData(format, bytes); }, "GetClipboardMemoryHandle"},
      {[&] { return clipboard->GetTextData(text, format); }, "GetClipboardMemoryHandle"},
      {[&] { return clipboard->GetFileList(files, count); }, "GetClipboardMemoryHandle"},
  };
  for (const auto& each : cases) {
    script.questions.clear();
    EXPECT_FALSE(each.use());
    ASSERT_EQ(script.questions.size(), 1u) << each.procedure;
    EXPECT_EQ(script.questions[0].number, static_cast<Long>(0x80040622));
    EXPECT_EQ(script.questions[0].description, kNotOpenText);
    EXPECT_EQ(script.questions[0].project, "Strandline");
    EXPECT_EQ(script.questions[0].module, "cCustomClipboard");
    EXPECT_EQ(script.questions[0].procedure, each.procedure);
  }
  EXPECT_TRUE(calls.empty()) << calls[0];
  EXPECT_FALSE(bytes.IsSized()) << "erased all the same";
  EXPECT_FALSE(files.IsSized());
  EXPECT_EQ(count, 0);
  EXPECT_EQ(text, u"as it was");
  EXPECT_EQ(Found(kRichTextId), "{\\rtf1}");
}

// Whoever goes on all the same asks the system, which refuses as well.
TEST_F(ClipboardClassTest, Closed_WithTheErrorIgnoredItIsTheSystemThatRefuses) {
  Put(kRichTextId, "{\\rtf1}");
  script.Answer({vbwProtector::kIgnore, vbwProtector::kIgnore});
  Long format = kRichTextId;
  EXPECT_FALSE(clipboard->SetBinaryData(format, BytesOf("x")));
  clipboard->ClearClipboard();
  EXPECT_EQ(calls, (LogLines{"GlobalAlloc 8192 1", "GlobalLock memory", "GlobalUnlock memory",
                             "SetClipboardData 49153 memory", "GlobalFree memory", "EmptyClipboard"}));
  EXPECT_EQ(Found(kRichTextId), "{\\rtf1}");
}

// ---- Formats.

TEST_F(ClipboardClassTest, FormatNumbers_AreAskedForOnceAndWithANul) {
  clipboard = New<cCustomClipboard>();
  const auto asked = [](const char* name) { return std::string("RegisterClipboardFormatA '") + name + '\0' + "'"; };
  EXPECT_EQ(calls, (LogLines{asked("Rich Text Format"), asked("HTML Format")}));
  EXPECT_EQ(clipboard->AddFormat(u"Mine"), 49155);
  EXPECT_EQ(clipboard->AddFormat(u"mine"), 49155);
}

class OneNumber final : public ForwardingClipboard {
 public:
  using ForwardingClipboard::ForwardingClipboard;
  Long RegisterClipboardFormatA(const String&) override { return number; }
  Long CountClipboardFormats() override { return number; }
  Long number = 0;
};

TEST_F(ClipboardClassTest, FormatNumber_ThatIsntAboveTheBoundaryIsAFailure) {
  OneNumber services(desk.Clipboard());
  platform::current.clipboard = &services;
  const std::pair<Long, Long> cases[] = {{0, 0}, {49151, 0}, {49152, 0}, {49153, 49153}, {65535, 65535}, {-1, 0}};
  for (const auto& [number, result] : cases) {
    services.number = number;
    EXPECT_EQ(clipboard->AddFormat(u"Any"), result);
  }
}

TEST_F(ClipboardClassTest, FormatCount_ThatLeavesAnIntegerIsAnError) {
  OneNumber services(desk.Clipboard());
  platform::current.clipboard = &services;
  services.number = 32767;
  EXPECT_EQ(clipboard->FormatCount(), 32767);
  services.number = 32768;
  EXPECT_EQ(clipboard->FormatCount(), 0);
  EXPECT_EQ(script.Asked(), LogLines{"6 cCustomClipboard.FormatCount"});
}

TEST_F(ClipboardClassTest, StandardFormats_HaveTheirNames) {
  const char16_t* const names[] = {u"",
                                   u"Text",
                                   u"Bitmap Picture",
                                   u"Meta-File Picture",
                                   u"Microsoft Symbolic Link (SYLK) data.",
                                   u"Software Arts' Data Interchange information.",
                                   u"Tagged Image File Format (TIFF) Picture",
                                   u"Text (OEM)",
                                   u"DIB Bitmap Picture",
                                   u"Colour Palette",
                                   u"Pen Data",
                                   u"RIFF Audio data",
                                   u"Wave File",
                                   u"Text (Unicode)",
                                   u"Enhanced Meta-File Picture",
                                   u"File List",
                                   u"Text Locale Identifier",
                                   u""};
  for (Long format = 1; format <= 17; ++format) EXPECT_EQ(clipboard->FormatName(format), names[format]) << format;
  EXPECT_TRUE(calls.empty());
}

TEST_F(ClipboardClassTest, OtherFormats_HaveTheNamesThatTheSystemKnows) {
  EXPECT_EQ(clipboard->FormatName(kRichTextId), u"Rich Text Format");
  for (const Long format : {0, -1, 18, 60000, cCustomClipboard::kRichText}) {
    EXPECT_EQ(clipboard->FormatName(format), u"") << format;
  }
  EXPECT_EQ(calls, (LogLines{"GetClipboardFormatNameA 49153 255", "GetClipboardFormatNameA 0 255",
                             "GetClipboardFormatNameA -1 255", "GetClipboardFormatNameA 18 255",
                             "GetClipboardFormatNameA 60000 255", "GetClipboardFormatNameA 12346 255"}));
  const Long longest = clipboard->AddFormat(std::u16string(255, u'q'));
  EXPECT_EQ(clipboard->FormatName(longest).Length(), 254) << "a buffer of 255";
}

TEST_F(ClipboardClassTest, CurrentFormats_AreListedInTheirOrder) {
  Put(kHtmlId, "<b>");
  Put(kText, "a");
  EXPECT_EQ(clipboard->FormatCount(), 5);
  EXPECT_EQ(clipboard->GetCurrentFormats(hwnd), 5);
  EXPECT_FALSE(desk.Clipboard().IsOpen());
  LogLines listed;
  for (Long i = 1; i <= 5; ++i) {
    listed.push_back(std::to_string(clipboard->GetCurrentFormatID(i)) + " " +
                     ToUtf8(clipboard->GetCurrentFormatName(i)));
  }
  EXPECT_EQ(listed, (LogLines{"49154 HTML Format", "1 Text", "16 Text Locale Identifier", "7 Text (OEM)",
                              "13 Text (Unicode)"}));
  EXPECT_TRUE(clipboard->HasCurrentFormat(13));
  EXPECT_TRUE(clipboard->HasCurrentFormat(kHtmlId));
  EXPECT_FALSE(clipboard->HasCurrentFormat(kRichTextId));
  EXPECT_FALSE(clipboard->HasCurrentFormat(0));
  EXPECT_TRUE(script.log.empty());
}

TEST_F(ClipboardClassTest, CurrentFormats_AreThoseOfTheLastLook) {
  EXPECT_EQ(clipboard->GetCurrentFormats(hwnd), 0);
  EXPECT_FALSE(clipboard->HasCurrentFormat(kText));
  Put(kText, "a");
  EXPECT_FALSE(clipboard->HasCurrentFormat(kText));
  clipboard->GetCurrentFormats(hwnd);
  desk.Clipboard().EmptyFromOutside();
  EXPECT_TRUE(clipboard->HasCurrentFormat(kText));
  EXPECT_EQ(clipboard->GetCurrentFormats(hwnd), 0);
  EXPECT_FALSE(clipboard->HasCurrentFormat(kText));
}

TEST_F(ClipboardClassTest, CurrentFormats_OfAHeldClipboardAreNone) {
  Put(kText, "a");
  clipboard->GetCurrentFormats(hwnd);
  desk.Clipboard().HoldByAnother(true);
  calls.clear();
  EXPECT_EQ(clipboard->GetCurrentFormats(hwnd), 0);
  EXPECT_EQ(calls, LogLines{"OpenClipboard window"});
  EXPECT_FALSE(clipboard->HasCurrentFormat(kText));
  EXPECT_TRUE(script.log.empty());
}

TEST_F(ClipboardClassTest, CurrentFormats_HaveNoOthersThanTheirIndexes) {
  Put(kHtmlId, "<b>");
  EXPECT_EQ(clipboard->GetCurrentFormatID(1), 0) << "before the first look";
  clipboard->GetCurrentFormats(hwnd);
  for (const Long index : {0, 2, -1}) {
    EXPECT_EQ(clipboard->GetCurrentFormatID(index), 0) << index;
    EXPECT_EQ(clipboard->GetCurrentFormatName(index), u"") << index;
  }
  EXPECT_EQ(script.questions.size(), 7u);
  EXPECT_EQ(script.Asked()[0], "9 cCustomClipboard.GetCurrentFormatID");
  EXPECT_EQ(script.Asked()[2], "9 cCustomClipboard.GetCurrentFormatName");
}

TEST_F(ClipboardClassTest, FormatsByName_AreLookedForOnTheClipboard) {
  Put(kHtmlId, "<b>");
  Put(kText, "a");
  EXPECT_EQ(clipboard->FormatIDForName(hwnd, u"HTML Format"), kHtmlId);
  EXPECT_EQ(clipboard->FormatIDForName(hwnd, u"Text (OEM)"), kOemText);
  EXPECT_EQ(clipboard->FormatIDForName(hwnd, u"Text Locale Identifier"), kLocale);
  EXPECT_EQ(clipboard->FormatIDForName(hwnd, u"html format"), 0);
  EXPECT_EQ(clipboard->FormatIDForName(hwnd, u"Rich Text Format"), 0);
  EXPECT_TRUE(clipboard->IsDataAvailableForFormatName(hwnd, u"Text"));
  EXPECT_FALSE(clipboard->IsDataAvailableForFormatName(hwnd, u"text"));
  EXPECT_FALSE(clipboard->IsDataAvailableForFormatName(hwnd, u""));
  Put(600, "x");
  Put(601, "x");
  EXPECT_EQ(clipboard->FormatIDForName(hwnd, u""), 600) << "the first without a name";
  EXPECT_TRUE(clipboard->IsDataAvailableForFormatName(hwnd, u""));
  EXPECT_FALSE(desk.Clipboard().IsOpen());
}

TEST_F(ClipboardClassTest, PseudoFormats_StandForTheRegisteredOnes) {
  Put(kRichTextId, "{\\rtf1}");
  Long richText = 12346;
  Long html = 12345;
  Long other = 12344;
  EXPECT_TRUE(clipboard->IsDataAvailableForFormat(richText));
  EXPECT_FALSE(clipboard->IsDataAvailableForFormat(html));
  EXPECT_FALSE(clipboard->IsDataAvailableForFormat(other));
  EXPECT_TRUE(clipboard->IsDataAvailableForFormat(cCustomClipboard::kRichText));
  EXPECT_EQ(calls, (LogLines{"IsClipboardFormatAvailable 49153", "IsClipboardFormatAvailable 49154",
                             "IsClipboardFormatAvailable 12344", "IsClipboardFormatAvailable 49153"}));
  EXPECT_EQ(richText, kRichTextId) << "the caller's own variable";
  EXPECT_EQ(html, kHtmlId);
  EXPECT_EQ(other, 12344);
}

TEST_F(ClipboardClassTest, PseudoFormats_AreReplacedByEachMemberThatDealsInData) {
  Open();
  Array<Byte> bytes = BytesOf("x");
  String text;
  const std::function<void(Long&)> members[] = {
      [&](Long& id) { clipboard->GetBinaryData(id, bytes); },
      [&](Long& id) { clipboard->GetClipboardMemoryHandle(id); },
      [&](Long& id) { clipboard->SetBinaryData(id, bytes); },
      [&](Long& id) { clipboard->SetClipboardMemoryHandle(id, 0); },
      [&](Long& id) { clipboard->GetTextData(text, id); },
      [&](Long& id) { clipboard->SetTextData(id, u""); },
  };
  for (const auto& member : members) {
    Long richText = cCustomClipboard::kRichText;
    Long html = cCustomClipboard::kHtml;
    member(richText);
    member(html);
    EXPECT_EQ(richText, kRichTextId);
    EXPECT_EQ(html, kHtmlId);
  }
}

TEST_F(ClipboardClassTest, Report_ListsTheVariablesInTheirOrder) {
  Put(kHtmlId, "<b>");
  Put(kRichTextId, "{\\rtf1}");
  clipboard->GetCurrentFormats(hwnd);
  Open();
  EXPECT_EQ(Report(),
            "m_lId=from 1: 49154 49153 m_sName=[1 'HTML Format' 'Rich Text Format'] m_iCount=2 "
            "m_bClipboardIsOpen=True m_hWnd=" +
                std::to_string(hwnd) + " m_RichTextId=49153 m_HTMLId=49154");
}

}  // namespace
}  // namespace strandline
