// What a dump delivers to the error component, line by line.

#include <algorithm>

#include "addin/library.h"
#include "foundation/cCustomClipboard.h"
#include "platform/desk/desk_dictionary.h"
#include "platform/wrappers/forwarding.h"
#include "tests/foundation/foundation_fixture.h"
#include "tests/foundation/told.h"

namespace strandline {
namespace {

void ReportSampleModule(Reporter& to) {
  to.Tell(u"mFirst", Long{11});
  to.Tell(u"mText", String(u"module"));
}

constexpr ModuleInfo kModuleInfo{u"Sample", &ReportSampleModule};
constexpr ModuleFile kModule{&kModuleInfo};

void InAModule(Long count, const String& name) {
  PROCEDURE(void, u"InAModule", count, name);
  Rect box{1, 2, 3, 4};
  Boolean found = false;
  String text = u"before";
  REPORTS(box, found, text);
  found = true;
  text = u"at the error";
  STEP(Raise(9));
}

namespace bare {
constexpr ModuleInfo kModuleInfo{u"Bare", nullptr};
constexpr ModuleFile kModule{&kModuleInfo};
void WithoutVariables() {
  PROCEDURE(void, u"WithoutVariables");
  STEP(Raise(9));
}
}  // namespace bare

class Thing final : public ClassObject {
 public:
  explicit Thing(Integer size) : mSize(size) {}
  void Fails(Boolean flag) {
    METHOD(void, u"Fails", flag);
    STEP(Raise(9));
  }
  void ReportVariables(Reporter& to) const override {
    to.Tell(u"mSize", mSize);
    to.Tell(u"mOwner", Object());
  }

 private:
  Integer mSize;
};

// A run time that has a printer too, or nothing at all to show.
class RunTimeShowing final : public ForwardingRunTime {
 public:
  RunTimeShowing(RunTime& target, bool all) : ForwardingRunTime(target), mAll(all) {}
  Object ApplicationObject() override { return Shown(); }
  Object ErrorObject(const Error&) override { return Shown(); }
  Object ScreenObject() override { return Shown(); }
  Object PrinterObject() override { return Shown(); }

 private:
  Object Shown() { return mAll ? Object(New<desk::DeskDictionary>()) : Object(); }
  bool mAll;
};

// Texts of lines as the log shows them: a line's end is |.
const char kLocalBanner[] =
    "vbwReportToFile('|**************************|* LOCAL LEVEL VARIABLES  *|**************************|')";
const char kModuleBanner[] =
    "vbwReportToFile('|**************************|* MODULE LEVEL VARIABLES *|**************************|')";
const char kGlobalBanner[] =
    "vbwReportToFile('|**************************|* GLOBAL LEVEL VARIABLES *|**************************|')";
const LogLines kOwnGlobals = {"vbwReportVariable('vbwProtector.vbwTraceProc', True, 0)",
                              "vbwReportVariable('vbwProtector.vbwTraceParameters', False, 0)"};
const LogLines kRunTimeObjects = {"vbwReportObject('App', 0, object)", "vbwReportObject('Err', 0, object)",
                                  "vbwReportObject('Screen', 0, object)"};

LogLines Joined(std::initializer_list<LogLines> parts) {
  LogLines whole;
  for (const LogLines& part : parts) whole.insert(whole.end(), part.begin(), part.end());
  return whole;
}

class Dump : public FoundationTest {
 protected:
  // The log from the first dump's opening to its closing.
  LogLines Written() const {
    const auto from = std::find(script.log.begin(), script.log.end(), "vbwOpenDumpFile()");
    const auto to = std::find(from, script.log.end(), "vbwCloseDumpFile()");
    return {from, to == script.log.end() ? to : to + 1};
  }
  void ExpectDump(const LogLines& locals, const LogLines& module,
                  const LogLines& globals = Joined({kOwnGlobals, kRunTimeObjects})) {
    EXPECT_EQ(Lines(Written()), Lines(Joined({{"vbwOpenDumpFile()", kLocalBanner},
                                              locals,
                                              {kModuleBanner},
                                              module,
                                              {kGlobalBanner},
                                              globals,
                                              {"vbwCloseDumpFile()"}})));
  }
};

TEST_F(Dump, OfAProcedureOfAModule) {
  script.Answer({Long{8}});
  InAModule(7, u"given");
  ExpectDump({"vbwReportVariable('count', 7, 0)", "vbwReportVariable('name', 'given', 0)",
              "vbwReportVariable('box.left', 1, 0)", "vbwReportVariable('box.top', 2, 0)",
              "vbwReportVariable('box.right', 3, 0)", "vbwReportVariable('box.bottom', 4, 0)",
              "vbwReportVariable('found', True, 0)", "vbwReportVariable('text', 'at the error', 0)"},
             {"vbwReportVariable('mFirst', 11, 0)", "vbwReportVariable('mText', 'module', 0)"});
}

TEST_F(Dump, LinesOfABannerEndWithCarriageReturnAndLineFeed) {
  class Keeping final : public Dispatch {
   public:
    Variant Invoke(Use, Name member, const Arguments& arguments) override {
      if (member == Name("vbwReportToFile")) texts.push_back(arguments.positional[0].ToText());
      return member == Name("vbwErrorHandler") && texts.empty() ? Long{8} : Long{0};
    }
    Long Identity() const override { return 3; }
    std::vector<String> texts;
  };
  const auto keeping = New<Keeping>();
  desk.Components().Register(kErrorComponent, [&] { return keeping; });
  InAModule(1, u"");
  ASSERT_EQ(keeping->texts.size(), 3u);
  EXPECT_EQ(keeping->texts[0],
            u"\r\n**************************\r\n* LOCAL LEVEL VARIABLES  *\r\n**************************\r\n");
}

TEST_F(Dump, OfAModuleWithoutVariables_HasTheBannerAlone) {
  script.Answer({Long{8}});
  bare::WithoutVariables();
  ExpectDump({}, {});
}

TEST_F(Dump, OfAClass_ReportsItsObject) {
  script.Answer({Long{8}});
  New<Thing>(Integer{42})->Fails(true);
  ExpectDump({"vbwReportVariable('flag', True, 0)"},
             {"vbwReportVariable('mSize', 42, 0)", "vbwReportVariable('mOwner', Nothing, 0)"});
}

TEST_F(Dump, Globals_ListTheWholeLibrarys) {
  Library library(desk.Services());
  script.Answer({Long{8}});
  bare::WithoutVariables();
  ExpectDump({}, {},
             Joined({kOwnGlobals,
                     {"vbwReportVariable('ToolbarUtilities.adFactory', Nothing, 0)",
                      "vbwReportVariable('ToolbarUtilities.productState', Nothing, 0)",
                      "vbwReportVariable('ToolbarUtilities.converter', Nothing, 0)"},
                     kRunTimeObjects}));
}

TEST_F(Dump, RunTimeObjects_AreListedAsFarAsTheyExist) {
  for (const bool all : {true, false}) {
    RunTimeShowing runTime(desk.RunTime(), all);
    Platform services = desk.Services();
    services.runTime = &runTime;
    Load(services);
    script.log.clear();
    script.Answer({Long{8}});
    bare::WithoutVariables();
    ExpectDump(
        {}, {},
        Joined({kOwnGlobals, all ? Joined({kRunTimeObjects, {"vbwReportObject('Printer', 0, object)"}}) : LogLines{}}));
  }
}

// A component that asks for two dumps of each error and reads the error object of each.
class ReadingErrors final : public Dispatch {
 public:
  Variant Invoke(Use, Name member, const Arguments& arguments) override {
    if (member == Name("vbwErrorHandler")) return Long{++mQuestions % 3 == 0 ? 0 : 8};
    if (member == Name("vbwReportObject") && arguments.positional[0].ToText() == u"Err") {
      const Object error = arguments.positional[2].ToObject();
      read.push_back(ToUtf8(Concat({error.Get("Number").ToText(), u" ", error.Get("Description").ToText(), u" ",
                                    error.Get("Source").ToText()})));
    }
    return {};
  }
  Long Identity() const override { return 4; }
  LogLines read;

 private:
  int mQuestions = 0;
};

TEST_F(Dump, ErrorObject_TellsNumberDescriptionAndSource) {
  const auto reading = New<ReadingErrors>();
  desk.Components().Register(kErrorComponent, [&] { return reading; });
  InAModule(1, u"");
  const auto clipboard = New<cCustomClipboard>();
  clipboard->ClearClipboard();
  const std::string notOpen = " Attempt to access the clipboard when clipboard not Open. Strandline.cCustomClipboard\n";
  EXPECT_EQ(Lines(reading->read),
            "9 Subscript out of range Strandline\n-1 Subscript out of range Strandline\n"
            "-2147219934" +
                notOpen + "-1" + notOpen);
}

TEST_F(Dump, ComesBetweenTwoQuestionsToOneComponent) {
  script.Answer({Long{8}, Long{0}});
  bare::WithoutVariables();
  ASSERT_GT(script.log.size(), 6u);
  EXPECT_EQ(
      Lines({script.log.begin(), script.log.begin() + 4}),
      "born\nvbwInitializeProtector(True, False, False, True, True, True)\nvbwErrorHandler(9)\nvbwOpenDumpFile()\n");
  EXPECT_EQ(Lines({script.log.end() - 3, script.log.end()}), "vbwCloseDumpFile()\nvbwErrorHandler(-1)\ngone\n");
  EXPECT_EQ(script.questions[0].line, script.questions[1].line);
  EXPECT_EQ(script.questions[1].description, "Subscript out of range");
  EXPECT_EQ(script.questions[1].Running(), (LogLines{"Bare.WithoutVariables", "vbwProtector.vbwErrorHandler"}));
}

TEST_F(Dump, AskedForTwice_IsWrittenTwice) {
  script.Answer({Long{8}, Long{8}, Long{0}});
  InAModule(7, u"given");
  EXPECT_EQ(script.Asked(), (LogLines{"9 Sample.InAModule", "-1 Sample.InAModule", "-1 Sample.InAModule"}));
  const LogLines first = Written();
  const auto opened = std::find(script.log.begin(), script.log.end(), "vbwOpenDumpFile()");
  const auto second = opened + static_cast<std::ptrdiff_t>(first.size()) + 1;
  EXPECT_EQ(Lines({second, second + static_cast<std::ptrdiff_t>(first.size())}), Lines(first));
}

TEST_F(Dump, OfTheProtectorsOwnProcedure_ReportsItsModule) {
  script.Fail("vbwReportToFile", 1);
  // The procedure's error: a dump of it; the line's own error: a dump of that; then both are let go.
  script.Answer({Long{8}, Long{8}, Long{0}});
  bare::WithoutVariables();
  ASSERT_GE(script.questions.size(), 3u);
  EXPECT_EQ(script.questions[1].Brief(), "50 vbwProtector.vbwReportToFile");
  EXPECT_EQ(script.questions[2].Brief(), "-1 vbwProtector.vbwReportToFile");

  // The second opening begins the inner dump.
  auto from = std::find(script.log.begin(), script.log.end(), "vbwOpenDumpFile()");
  from = std::find(from + 1, script.log.end(), "vbwOpenDumpFile()");
  const LogLines inner(from, std::find(from, script.log.end(), "vbwCloseDumpFile()"));
  ASSERT_EQ(inner.size(), 20u) << Lines(inner);
  const std::string text = std::string(kLocalBanner).substr(std::string("vbwReportToFile(").size());
  EXPECT_EQ(inner[1], kLocalBanner);
  EXPECT_EQ(inner[2], "vbwReportVariable('text', " + text.substr(0, text.size() - 1) + ", 0)");
  EXPECT_EQ(inner[3], kModuleBanner);
  LogLines names;
  for (std::size_t i = 4; i < 14; ++i) names.push_back(inner[i].substr(0, inner[i].find(',')));
  EXPECT_EQ(Lines(names),
            "vbwReportVariable('mOldTraceProc'\nvbwReportVariable('vbwEmailRecipientAdress'\n"
            "vbwReportVariable('vbwCatchException'\nvbwReportVariable('vbwTraceLine'\n"
            "vbwReportVariable('vbwCallStack'\nvbwReportVariable('vbwSystemInfo'\nvbwReportVariable('vbwScreenshot'\n"
            "vbwReportVariable('mStackCalls'\nvbwReportVariable('mStack'\nvbwReportVariable('mErrorParams'\n");
  // Of 64 names, those that run come first.
  EXPECT_EQ(inner[12].find("[1 'Bare.WithoutVariables' 'vbwProtector.vbwReportToFile' "), 28u) << inner[12];
  EXPECT_EQ(inner[13], "vbwReportVariable('mErrorParams', object, 0)");
  EXPECT_EQ(inner[14], kGlobalBanner);
}

std::string Repeated(const std::string& text, int times) {
  std::string all;
  for (int i = 0; i < times; ++i) all += text;
  return all;
}

class NamelessObject final : public RefCounted {};

TEST(DumpRecord, IsWrittenFieldByField) {
  ToldVariables to;
  to.Tell(u"m", Message{1, 2, 3, 4, 5, {6, 7}});
  EXPECT_EQ(to.lines,
            (LogLines{"m.hwnd=1", "m.message=2", "m.wParam=3", "m.lParam=4", "m.time=5", "m.pt.x=6", "m.pt.y=7"}));

  to.lines.clear();
  to.Tell(u"desc", PictDesc{20, 1, 77, -3, 9});
  EXPECT_EQ(to.lines,
            (LogLines{"desc.cbSizeofStruct=20", "desc.picType=1", "desc.hImage=77", "desc.xExt=-3", "desc.yExt=9"}));

  to.lines.clear();
  to.Tell(u"iid", Guid{0x10, -2, 3, {1, 2, 3, 4, 5, 6, 7, 255}});
  EXPECT_EQ(to.lines, (LogLines{"iid.Data1=16", "iid.Data2=-2", "iid.Data3=3", "iid.Data4=[0 1 2 3 4 5 6 7 255]"}));

  to.lines.clear();
  PaintStruct paint;
  paint.hdc = 8;
  paint.rcPaint = {1, 2, 3, 4};
  paint.rgbReserved.front() = 5;
  paint.rgbReserved.back() = 6;
  to.Tell(u"ps", paint);
  ASSERT_EQ(to.lines.size(), 9u);
  EXPECT_EQ(to.lines.back(), "ps.rgbReserved=[0 5" + Repeated(" 0", 30) + " 6]");
  to.lines.pop_back();
  EXPECT_EQ(to.lines, (LogLines{"ps.hdc=8", "ps.fErase=0", "ps.rcPaint.left=1", "ps.rcPaint.top=2",
                                "ps.rcPaint.right=3", "ps.rcPaint.bottom=4", "ps.fRestore=0", "ps.fIncUpdate=0"}));
}

TEST(DumpRecord, WithoutValues_IsAllZeros) {
  ToldVariables to;
  to.Tell(u"r", Rect{});
  to.Tell(u"m", Message{});
  to.Tell(u"ps", PaintStruct{});
  to.Tell(u"desc", PictDesc{});
  to.Tell(u"iid", Guid{});
  std::erase_if(to.lines, [](const std::string& line) { return line.ends_with("=0"); });
  EXPECT_EQ(Lines(to.lines), "ps.rgbReserved=[0" + Repeated(" 0", 32) + "]\niid.Data4=[0 0 0 0 0 0 0 0 0]\n");
  EXPECT_EQ(Date{}.days, 0);
  EXPECT_EQ(Point{}, (Point{0, 0}));
}

TEST(DumpRecord, ArraysAndObjectsAreOneLineEach) {
  ToldVariables to;
  FixedArray<Boolean, 0, 2> flags;
  flags(1) = true;
  to.Tell(u"flags", flags);
  to.Tell(u"texts", Array<String>(1, 2));
  to.Tell(u"bytes", Array<Byte>());
  to.Tell(u"none", Ref<NamelessObject>());
  to.Tell(u"some", New<NamelessObject>());
  to.Tell(u"thing", New<Thing>(Integer{1}));
  to.Tell(u"no thing", Ref<Thing>());
  EXPECT_EQ(Lines(to.lines),
            "flags=[0 0 1 0]\ntexts=[1 '' '']\nbytes=[unsized]\nnone=Nothing\nsome='(object)'\nthing=object\n"
            "no thing=Nothing\n");
}

TEST(DumpRecord, List_TellsEachVariableUnderItsOwnName) {
  ToldVariables to;
  to.List("a,  bcd , mE", Long{1}, Long{2}, Long{3});
  EXPECT_EQ(to.lines, (LogLines{"a=1", "bcd=2", "mE=3"}));
}

}  // namespace
}  // namespace strandline
