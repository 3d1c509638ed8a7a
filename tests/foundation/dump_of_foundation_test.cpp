// The whole dumps of this folder's own procedures.

#include <regex>

#include "foundation/CommonLogger.h"
#include "foundation/LanguageExtensions.h"
#include "foundation/SleepReplacement.h"
#include "platform/wrappers/forwarding.h"
#include "tests/foundation/clipboard_fixture.h"
#include "tests/foundation/dump_text.h"
#include "tests/support/allocations.h"

namespace strandline {
namespace {

const std::string kGlobals =
    "[GLOBAL]\nvbwProtector.vbwTraceProc = True\nvbwProtector.vbwTraceParameters = False\nApp\nErr\nScreen\n";

// The variables of the procedure alone.
std::string LocalsIn(const std::string& dump) {
  const std::size_t begin = dump.find('\n') + 1;
  return dump.substr(begin, dump.find("[MODULE]") - begin);
}

class DumpOfFoundation : public FoundationTest {
 protected:
  std::string Dump() const { return DumpText(script.log); }
};

TEST_F(DumpOfFoundation, QuickSort) {
  script.Answer({Long{8}});
  Array<String> values(1, 2);
  values(1) = u"b";
  values(2) = u"a";
  LanguageExtensions::QuickSortString(values, 2, 32766);
  EXPECT_EQ(Dump(),
            "[LOCAL]\nvalues = [1 'b' 'a']\nintBottom = 2\nintTop = 32766\npivot = ''\nintBottomTemp = 2\n"
            "intTopTemp = 32766\n[MODULE]\nmInIDE = False\n" +
                kGlobals);
}

TEST_F(DumpOfFoundation, OpenLog) {
  script.Answer({Long{8}});
  const std::size_t bytesOfTheAddress = (26 + 1) * sizeof(char16_t);  // "http://www.morvane.example"
  FailNextAllocationOf(bytesOfTheAddress);
  CommonLogger::OpenLog(1, u"Quillmere", u"strandline", u"Morvane");
  FailNextAllocationOf(0);
  EXPECT_EQ(Dump(),
            "[LOCAL]\nlevel = 1\nproductName = 'Quillmere'\nlogPrefix = 'strandline'\ncompanyName = 'Morvane'\n"
            "[MODULE]\nmWebsiteAddress = ''\n" +
                kGlobals);
}

TEST_F(DumpOfFoundation, RandomNumber) {
  script.Answer({Long{8}});
  LanguageExtensions::RandomNumber(-2, 2147483647);
  const std::string dump = Dump();
  EXPECT_TRUE(dump.starts_with("[LOCAL]\nLower = -2\nUpper = 2147483647\nrandom = 0.")) << dump;
  EXPECT_TRUE(dump.ends_with("\nspan = 0\n[MODULE]\nmInIDE = False\n" + kGlobals)) << dump;
}

TEST_F(DumpOfFoundation, Wait) {
  class NoTimers final : public ForwardingWindows {
   public:
    using ForwardingWindows::ForwardingWindows;
    Long SetTimer(Long, Long id, Long, TimerProc) override {
      asked = id;
      Raise(1000, u"no timer");
    }
    Long asked = 0;
  };
  NoTimers windows(desk.Windows());
  Platform services = desk.Services();
  services.windows = &windows;
  Load(services);
  script.Answer({Long{8}});
  SleepReplacement::Wait(50, 7);
  EXPECT_EQ(Dump(), "[LOCAL]\ntimeInMs = 50\nhwnd = 7\nid = " + std::to_string(windows.asked) +
                        "\n[MODULE]\nmMessageLoop = Nothing\n" + kGlobals);
}

TEST_F(DumpOfFoundation, BlockingLoop) {
  class NoDispatch final : public ForwardingWindows {
   public:
    using ForwardingWindows::ForwardingWindows;
    Long GetMessageA(Message& message) override {
      message = {11, 22, 33, 44, 55, {66, 77}};
      return 1;
    }
    Long DispatchMessageA(const Message&) override { Raise(1000, u"no dispatch"); }
  };
  NoDispatch windows(desk.Windows());
  Platform services = desk.Services();
  services.windows = &windows;
  Load(services);
  script.Answer({Long{8}});
  New<MessageLoop>()->EnterBlockingLoop();
  EXPECT_EQ(Dump(),
            "[LOCAL]\nmessage.hwnd = 11\nmessage.message = 22\nmessage.wParam = 33\nmessage.lParam = 44\n"
            "message.time = 55\nmessage.pt.x = 66\nmessage.pt.y = 77\n[MODULE]\nmFinishedBlocking = False\n"
            "mInBlockingLoop = True\n" +
                kGlobals);
}

// The handler's own statements fail only with what it calls; here the naming of an error does.
TEST_F(DumpOfFoundation, ErrorHandlerItself_ListsEightVariables) {
  class FailingOnce final : public vbwProtector::ProcedureObserver {
   public:
    void OnProcedure(const ProcedureName& name, void (*)(const void*, Reporter&), const void*) override {
      if (name.name != u"hash" || mHasFailed) return;
      mHasFailed = true;
      Raise(1000, u"no name");
    }

   private:
    bool mHasFailed = false;
  };
  LoadWithTrace();
  variables.StrRememberErrors = u"remembered";
  FailingOnce failing;
  vbwProtector::procedureObserver = &failing;
  script.Answer({Long{8}, Long{0}});
  vbwProtector::vbwErrorHandler(9, u"description", u"project", u"source", u"procedure", 12);
  vbwProtector::procedureObserver = nullptr;
  const std::string dump = Dump();
  const std::size_t module = dump.find("[MODULE]");
  ASSERT_NE(module, std::string::npos);
  const std::string locals = dump.substr(0, module);
  const std::string last = "strLastError = '";
  const std::size_t key = locals.find(last);
  ASSERT_NE(key, std::string::npos) << locals;
  EXPECT_EQ(locals.substr(0, key),
            "[LOCAL]\nerrNumber = 9\nErrDescription = 'description'\nErrProject = 'project'\nErrSource = 'source'\n"
            "ErrProcedure = 'procedure'\nerrLine = 12\nStrRememberErrors = 'remembered'\n");
  EXPECT_NE(locals.find("vbwProtector\x01"
                        "1000\x01",
                        key),
            std::string::npos);
  EXPECT_EQ(script.Asked(), (LogLines{"1000 vbwProtector.vbwErrorHandler", "-1 vbwProtector.vbwErrorHandler"}));
}

// What fails at a procedure's first statement shows its variables with their first values.
TEST_F(DumpOfFoundation, AtTheFirstStatement_ShowsTheFirstValues) {
  class NothingWorks final : public ForwardingWindows {
   public:
    using ForwardingWindows::ForwardingWindows;
    void DoEventsUntilNext() override { Raise(1000); }
    Long GetMessageA(Message&) override { Raise(1000); }
  };
  class NoRunTime final : public ForwardingRunTime {
   public:
    using ForwardingRunTime::ForwardingRunTime;
    Date Now() override { Raise(1000); }
    String CommandLine() override { Raise(1000); }
  };
  NothingWorks windows(desk.Windows());
  NoRunTime runTime(desk.RunTime());
  platform::current.windows = &windows;
  platform::current.runTime = &runTime;
  const struct {
    void (*call)();
    const char* locals;
  } cases[] = {
      {[] { LanguageExtensions::RandomNumber(1, 6); }, "Lower = 1\nUpper = 6\nrandom = 0\nspan = 0\n"},
      {[] {
         SleepReplacement::variables.mMessageLoop = New<MessageLoop>();
         SleepReplacement::Wait(50, 7);
         SleepReplacement::variables.mMessageLoop = nullptr;
       },
       "timeInMs = 50\nhwnd = 7\nid = 0\n"},
      {[] { New<MessageLoop>()->EnterBlockingLoop(); },
       "message.hwnd = 0\nmessage.message = 0\nmessage.wParam = 0\nmessage.lParam = 0\nmessage.time = 0\n"
       "message.pt.x = 0\nmessage.pt.y = 0\n"},
      {[] { vbwProtector::vbwInitializeProtector(); }, "trace = False\n"},
  };
  for (const auto& [call, locals] : cases) {
    script.log.clear();
    script.Answer({Long{8}});
    call();
    EXPECT_EQ(LocalsIn(Dump()), locals);
  }
}

TEST_F(ClipboardClassTest, DumpAtTheFirstFailure_ShowsTheFirstValues) {
  class NoClipboard final : public ForwardingClipboard {
   public:
    using ForwardingClipboard::ForwardingClipboard;
    Long RegisterClipboardFormatA(const String&) override { Raise(1000); }
    Long EnumClipboardFormats(Long) override { Raise(1000); }
    Long OpenClipboard(Long hwnd) override { return cannotOpen ? Raise(1000), 0 : mTarget.OpenClipboard(hwnd); }
    Long DragQueryFileA(Long, Long, Long, String&) override { Raise(1000); }
    String GetText(Long) override { Raise(1000); }
    bool cannotOpen = false;
  };
  class NoSizes final : public ForwardingPictures {
   public:
    using ForwardingPictures::ForwardingPictures;
    Long GlobalSize(Long) override { Raise(1000); }
  };
  NoClipboard services(desk.Clipboard());
  NoSizes pictures(desk.Pictures());
  platform::current.clipboard = &services;
  platform::current.pictures = &pictures;
  Put(kRichTextId, "former");
  Put(clipboardformat::kDropList, std::string(22, '\0'));
  String text;
  Array<Byte> bytes;
  Array<String> files;
  Long richText = cCustomClipboard::kRichText;
  Long plain = clipboardformat::kText;
  Long count = 5;
  // A handle's number is the desk's business.
  const auto local = [&](bool open, auto&& use) {
    if (open) Open();
    script.log.clear();
    script.Answer({Long{8}});
    use();
    clipboard->ClipboardClose(true);
    return std::regex_replace(LocalsIn(DumpText(script.log)), std::regex("(hDrop|hMem) = [1-9][0-9]*"), "$1 = handle");
  };
  EXPECT_EQ(local(false, [&] { clipboard->AddFormat(u"Any"); }), "sName = 'Any'\nlId = 0\n");
  EXPECT_EQ(local(false, [&] { clipboard->GetCurrentFormats(0); }), "hwndOwner = 0\nlFormatId = 0\n");
  EXPECT_EQ(local(false, [&] { clipboard->SetBinaryData(richText, BytesOf("a")); }),
            "lFormatId = 49153\nbData = [0 97]\nlSize = 0\nhMem = 0\n");
  EXPECT_EQ(local(false, [&] { clipboard->GetTextData(text, plain); }),
            "sTextOut = ''\nlFormatId = 1\nbData = [unsized]\ni = 0\nj = 0\nlHwndCache = 0\nlast = -1\nbyte = 0\n");
  EXPECT_EQ(local(true, [&] { clipboard->GetFileList(files, count); }),
            "sFiles = [unsized]\niFileCount = 0\nlFormatId = 15\nhDrop = handle\ni = 0\n");
  richText = cCustomClipboard::kRichText;
  EXPECT_EQ(local(true, [&] { clipboard->GetBinaryData(richText, bytes); }),
            "lFormatId = 49153\nbData = [unsized]\nhMem = handle\nlSize = 0\n");
  services.cannotOpen = true;
  EXPECT_EQ(local(false, [&] { clipboard->ClipboardOpen(7, false); }),
            "hwndOwner = 7\nforceOpen = False\nlResult = 0\n");
  platform::current.clipboard = &desk.Clipboard();
  platform::current.pictures = &desk.Pictures();
}

// The one procedure whose text is read in place, byte by byte.
TEST_F(ClipboardClassTest, Dump_OfATextThatBreaksOffAmidACharacter) {
  Put(kRichTextId, "ab\xC3\xA9\xE2");
  Open();
  script.Answer({Long{8}});
  String text = u"before";
  Long format = cCustomClipboard::kRichText;
  EXPECT_FALSE(clipboard->GetTextData(text, format));
  EXPECT_EQ(DumpText(script.log),
            "[LOCAL]\nsTextOut = 'before'\nlFormatId = 49153\nbData = [0 97 98 233 169 226]\ni = 4\nj = 3\n"
            "lHwndCache = 0\nlast = 4\nbyte = 226\n[MODULE]\nm_lId = [unsized]\nm_sName = [unsized]\nm_iCount = 0\n"
            "m_bClipboardIsOpen = True\nm_hWnd = " +
                std::to_string(hwnd) + "\nm_RichTextId = 49153\nm_HTMLId = 49154\n" + kGlobals);
}

}  // namespace
}  // namespace strandline
