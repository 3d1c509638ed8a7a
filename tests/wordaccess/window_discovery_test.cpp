// Which window the active document stands in.

#include "tests/wordaccess/word_access_fixture.h"

namespace strandline {
namespace {

using namespace CommonWordWindowFunctions;

class WindowDiscovery : public WordAccessTest {
 protected:
  // On top of all others, as windows come.
  Long MakeWindow(const char16_t* className, const String& title) {
    const Rect place{0, 0, 100, 100};
    return TheWorld().desk.Host().CreateWindowOf(className, title, 0, place, nullptr);
  }
  Long Top(const char* name) { return Word().WindowByName(name); }
  void Rename(Long hwnd, const char16_t* title) { TheWorld().desk.Host().SetTitle(hwnd, title); }
  // Another program's window takes the activation.
  void LeaveWord() { Word().Cover(true); }
  TextLines Calls() { return Did().Of(Doings::kService); }

  static std::string Number(Long number) { return std::to_string(number); }
};

TEST_F(WindowDiscovery, WithoutADocument_ItIsTheFirstWordWindowWhateverItsTitle) {
  for (const char16_t* version : {u"9.0", u"10.0", u"11.0"}) {
    Begin(version);
    MakeWindow(u"OpusApp", u"deeper");
    const Long first = MakeWindow(u"OpusApp", u"");
    MakeWindow(u"rctrl_renwnd32", u"Outlook");
    for (const Boolean before : {false, true}) {
      Boolean inOutlook2000 = before;
      Did().Clear();
      EXPECT_EQ(ActiveDocumentHandle(inOutlook2000), first);
      EXPECT_EQ(inOutlook2000, before);
      EXPECT_EQ(Block(Calls()), "FindWindowExA(0, 0, OpusApp, null) = " + Number(first) + "\n");
    }
  }
}

TEST_F(WindowDiscovery, WithoutADocumentOrAWindow_ThereIsNone) {
  TheWorld();
  EXPECT_EQ(ActiveDocumentHandle(), 0);
  EXPECT_TRUE(Did().Errors().empty());
}

TEST_F(WindowDiscovery, ActiveWindow_WinsWithoutALookAtTitles) {
  Word().Open(u"One.doc");
  Word().Open(u"Two.doc");
  Rename(Top("top 2"), u"nothing of that name");
  // It stands behind one whose title fits.
  MakeWindow(u"OpusApp", u"Two.doc - Microsoft Word");
  Did().Clear();
  EXPECT_EQ(ActiveDocumentHandle(), Top("top 2"));
  EXPECT_EQ(Did().Count(Doings::kService, "GetWindowTextA"), 0u);
  EXPECT_EQ(Did().Count(Doings::kService, "GetActiveWindow() = top 2"), 1u);
}

TEST_F(WindowDiscovery, ActiveWindowOfAnotherClass_DoesntCount) {
  Word().Open(u"One.doc");
  const Long dialog = MakeWindow(u"bosa_sdm_Microsoft Office", u"One.doc");
  TheWorld().desk.Host().ActivateWindow(dialog);
  EXPECT_EQ(ActiveDocumentHandle(), Top("top 1"));
}

TEST_F(WindowDiscovery, TwoTitlesWithTheName_TheOneInFrontWins) {
  Word().Open(u"Plan.doc");
  const Long behind = Top("top 1");
  const Long before = MakeWindow(u"OpusApp", u"Plan.doc:2 - Microsoft Word");
  LeaveWord();
  EXPECT_EQ(ActiveDocumentHandle(), before);
  TheWorld().desk.Host().BringWindowToTop(behind);
  EXPECT_EQ(ActiveDocumentHandle(), behind);
}

TEST_F(WindowDiscovery, SearchByTitle_MakesTwoPasses) {
  Word().Open(u"Plan.doc");
  const std::string other = Number(MakeWindow(u"OpusApp", u"Other"));
  LeaveWord();
  Did().Clear();
  EXPECT_EQ(ActiveDocumentHandle(), Top("top 1"));
  EXPECT_EQ(Block(Calls()),
            "GetActiveWindow() = 0\n"
            "FindWindowExA(0, 0, OpusApp, null) = " +
                other +
                "\n"
                "FindWindowExA(0, " +
                other +
                ", OpusApp, null) = top 1\n"
                "FindWindowExA(0, top 1, OpusApp, null) = 0\n"
                "FindWindowExA(0, 0, OpusApp, null) = " +
                other +
                "\n"
                "GetWindowTextA(" +
                other +
                ", 255) = Other\n"
                "FindWindowExA(0, " +
                other +
                ", OpusApp, null) = top 1\n"
                "GetWindowTextA(top 1, 255) = Plan.doc - Microsoft Word\n");
}

TEST_F(WindowDiscovery, Name_IsSoughtAnywhereInTheTitleWithoutCase) {
  const struct {
    const char16_t* title;
    bool fits;
  } cases[] = {
      {u"PLAN.DOC - Microsoft Word", true},  {u"My old plan.docx", true},       {u"Plan.doc", true},
      {u"Microsoft Word - xPlan.Doc", true}, {u"Plan - Microsoft Word", false}, {u"", false},
  };
  Word().Open(u"Plan.doc");
  LeaveWord();
  for (const auto& [title, fits] : cases) {
    SCOPED_TRACE(ToUtf8(title));
    Rename(Top("top 1"), title);
    EXPECT_EQ(ActiveDocumentHandle(), fits ? Top("top 1") : 0);
  }
}

TEST_F(WindowDiscovery, NameBeyondTheRoomForATitle_IsntFound) {
  Word().Open(u"Plan.doc");
  LeaveWord();
  const String name = u"Plan.doc";
  const std::u16string filler(254 - 8, u'x');
  Rename(Top("top 1"), (filler + u"Plan.doc").c_str());
  EXPECT_EQ(ActiveDocumentHandle(), Top("top 1"));
  Rename(Top("top 1"), (filler + u"xPlan.doc").c_str());
  EXPECT_EQ(ActiveDocumentHandle(), 0);
}

// Which windows there are, and what comes of them by version: the window found, and the flag.
TEST_F(WindowDiscovery, OutlookWindows_AreSearchedBelow2003Only) {
  enum class Found { kNone, kWord, kOutlook };
  const struct {
    const char16_t* version;
    bool wordFits;
    bool outlookFits;
    Found found;
    bool flag;
  } cases[] = {
      {u"9.0", true, true, Found::kWord, false},     {u"9.0", false, true, Found::kOutlook, true},
      {u"9.0", false, false, Found::kNone, true},    {u"10.0", true, false, Found::kWord, false},
      {u"10.0", false, true, Found::kOutlook, true}, {u"10.0", false, false, Found::kNone, true},
      {u"11.0", true, true, Found::kWord, false},    {u"11.0", false, true, Found::kNone, false},
      {u"12.0", false, true, Found::kNone, false},
  };
  for (const auto& row : cases) {
    SCOPED_TRACE(ToUtf8(row.version) + (row.wordFits ? " word" : "") + (row.outlookFits ? " outlook" : ""));
    Begin(row.version);
    Word().Open(u"Mail");
    if (!row.wordFits) Rename(Top("top 1"), u"Inbox");
    const Long outlook = MakeWindow(u"rctrl_renwnd32", row.outlookFits ? u"Mail - Message" : u"Inbox");
    LeaveWord();
    Did().Clear();
    Boolean inOutlook2000 = false;
    const Long hwnd = ActiveDocumentHandle(inOutlook2000);
    EXPECT_EQ(hwnd, row.found == Found::kWord ? Top("top 1") : row.found == Found::kOutlook ? outlook : 0);
    EXPECT_EQ(inOutlook2000, row.flag);
    EXPECT_EQ(Did().Count(Doings::kService, "FindWindowExA(0, 0, rctrl_renwnd32, null)") > 0, row.flag);
    inOutlook2000 = true;
    ActiveDocumentHandle(inOutlook2000);
    EXPECT_TRUE(inOutlook2000) << "never set back";
  }
}

TEST_F(WindowDiscovery, MailInOutlook_IsFoundThereThoughWordHasWindowsToo) {
  for (const char16_t* version : {u"9.0", u"10.0"}) {
    Begin(version);
    Word().Open(u"One.doc");
    wordsim::OpenFlags mail;
    mail.mail = true;
    Word().Open(u"Letter", mail);
    Boolean inOutlook2000 = false;
    EXPECT_EQ(ActiveDocumentHandle(inOutlook2000), Top("top 2"));
    EXPECT_TRUE(inOutlook2000);
  }
}

TEST_F(WindowDiscovery, UnreadableName_SkipsWordsWindowsWithoutASign) {
  const struct {
    const char* object;
    const char* member;
  } faults[] = {{"Application", "ActiveDocument"}, {"document One.doc", "name"}};
  for (const auto& [object, member] : faults) {
    for (const char16_t* version : {u"10.0", u"11.0"}) {
      SCOPED_TRACE(ToUtf8(version) + member);
      Begin(version);
      Word().Open(u"One.doc");
      Word().Faults().Arm(object, member);
      Boolean inOutlook2000 = false;
      EXPECT_EQ(ActiveDocumentHandle(inOutlook2000), 0);
      EXPECT_EQ(inOutlook2000, CommonWordInteractionFunctions::isWord2002OrEarlier());
      EXPECT_EQ(Did().Count(Doings::kService, "FindWindowExA(0, 0, OpusApp, null)"), 0u);
      EXPECT_TRUE(Did().Errors().empty());
    }
  }
}

TEST_F(WindowDiscovery, EmptyName_SkipsWordsWindows) {
  Begin(u"10.0");
  Word().Open(u"");
  Boolean inOutlook2000 = false;
  EXPECT_EQ(ActiveDocumentHandle(inOutlook2000), 0);
  EXPECT_TRUE(inOutlook2000);
  EXPECT_EQ(Did().Count(Doings::kService, "FindWindowExA(0, 0, OpusApp, null)"), 0u);
}

// What fails inside the question for the version ends there, and a version of 0 is an early one.
TEST_F(WindowDiscovery, UnreadableVersion_CountsAsEarly) {
  Word().Open(u"One.doc");
  Rename(Top("top 1"), u"Inbox");
  const Long outlook = MakeWindow(u"rctrl_renwnd32", u"One.doc");
  LeaveWord();
  Word().Faults().Arm("Application", "Version");
  EXPECT_EQ(ActiveDocumentHandle(), outlook);
  EXPECT_EQ(Block(Did().Errors()), "1000 CommonWordInteractionFunctions.WordVersion[Get]\n");
}

TEST_F(WindowDiscovery, FailingCount_ReachesTheTail) {
  Word().Open(u"One.doc");
  Word().Faults().Arm("Documents", "Count");
  EXPECT_EQ(ActiveDocumentHandle(), 0);
  EXPECT_EQ(Block(Did().Errors()), "1000 CommonWordWindowFunctions.ActiveDocumentHandle\n");
}

TEST_F(WindowDiscovery, Document_IsCountedAndNamedOnceForOneSearch) {
  Word().Open(u"One.doc");
  Did().Clear();
  ActiveDocumentHandle();
  EXPECT_EQ(Block(Did().Of(Doings::kUse)),
            "get Application Documents() = Documents\n"
            "get Documents Count() = 1\n"
            "get Application ActiveDocument() = document One.doc\n"
            "get document One.doc name() = One.doc\n");
}

}  // namespace
}  // namespace strandline
