// The start routine, the stack of names, and the handler itself.

#include "foundation/CommonLogger.h"
#include "foundation/LanguageExtensions.h"
#include "foundation/vbwProtector.h"
#include "platform/wrappers/forwarding.h"
#include "tests/foundation/foundation_fixture.h"

namespace strandline {
namespace {

constexpr ModuleInfo kModuleInfo{u"Sample", nullptr};
constexpr ModuleFile kModule{&kModuleInfo};

Statements* statements = nullptr;

// `depth` calls of itself, the innermost of which fails.
Long Descend(Long depth) {
  PROCEDURE(Long, u"Descend", depth);
  if (depth > 1) {
    here.result = Descend(depth - 1) + 1;
    return here.Leave();
  }
  here.result = 1;
  STEP(statements->Do("bottom"));
  return here.Leave();
}

std::string NameAt(Integer level) {
  const ProcedureName* name = vbwProtector::variables.mStack[level];
  return name ? ToUtf8(name->TraceName()) : "";
}

class Protector : public FoundationTest {
 protected:
  Protector() { statements = &mStatements; }

  Long Ask(Long number, const char16_t* module = u"Sample", Long line = 7, const char16_t* procedure = u"P") {
    return vbwProtector::vbwErrorHandler(number, u"words", u"Strandline", module, procedure, line);
  }
  LogLines Settings() {
    script.log.clear();
    Ask(1);
    return script.CallsOf("vbwInitializeProtector");
  }

  Statements mStatements;
};

TEST_F(Protector, TraceSwitch_IsOnTheCommandLineOrInTheSettings) {
  const struct {
    const char16_t* commandLine;
    const char16_t* setting;  // null: none
    Boolean trace;
  } cases[] = {
      {u"", nullptr, false},
      {u"C:\\Office\\winword.exe", nullptr, false},
      {u"winword.exe /trace", nullptr, true},
      {u"winword.exe /TRACE", nullptr, true},
      {u"winword.exe /q/Trace=1 a.doc", nullptr, true},
      {u"/traces", nullptr, true},
      {u"winword.exe trace", nullptr, false},
      {u"winword.exe / trace", nullptr, false},
      {u"winword.exe", u"1", true},
      {u"winword.exe", u"true", false},
      {u"winword.exe", u"True", false},
      {u"winword.exe", u"0", false},
      {u"winword.exe", u"", false},
      {u"winword.exe", u"-1", false},
      {u"winword.exe", u"01", false},
      {u"winword.exe", u" 1", false},
      {u"winword.exe /trace", u"0", true},
  };
  for (const auto& [commandLine, setting, trace] : cases) {
    SCOPED_TRACE(ToUtf8(commandLine) + ", " + (setting ? ToUtf8(setting) : "none"));
    desk::Desk other;
    other.RunTime().SetCommandLine(commandLine);
    if (setting) other.RunTime().SetSetting(u"Init", u"vbwTrace", setting);
    Load(other.Services());
    EXPECT_TRUE(variables.vbwTraceProc);
    EXPECT_EQ(variables.vbwTraceParameters, trace);
    EXPECT_EQ(variables.vbwTraceLine, trace);
    EXPECT_EQ(variables.mOldTraceProc, trace);
  }
}

TEST_F(Protector, TraceSwitch_IsReadFromItsOwnSectionAndKey) {
  desk.RunTime().SetSetting(u"Start", u"vbwTrace", u"1");
  desk.RunTime().SetSetting(u"Init", u"Trace", u"1");
  Load(desk.Services());
  EXPECT_FALSE(variables.vbwTraceParameters);
}

TEST_F(Protector, Start_SetsTheRestAlike) {
  for (const char16_t* commandLine : {u"", u"/trace"}) {
    desk.RunTime().SetCommandLine(commandLine);
    Load(desk.Services());
    EXPECT_TRUE(variables.vbwCatchException);
    EXPECT_TRUE(variables.vbwCallStack);
    EXPECT_TRUE(variables.vbwSystemInfo);
    EXPECT_TRUE(variables.vbwScreenshot);
    EXPECT_NE(FindText(variables.vbwEmailRecipientAdress, u"@"), 0);
    EXPECT_EQ(variables.mStackCalls, 0);
    EXPECT_TRUE(variables.mErrorParams.IsNothing());
    EXPECT_TRUE(variables.strLastError.IsEmpty());
    EXPECT_TRUE(variables.StrRememberErrors.IsEmpty());
  }
}

TEST_F(Protector, Component_IsInitialisedWithTheSixSettings) {
  EXPECT_EQ(Settings(), LogLines{"vbwInitializeProtector(True, False, False, True, True, True)"});
  LoadWithTrace();
  EXPECT_EQ(Settings(), LogLines{"vbwInitializeProtector(True, True, True, True, True, True)"});
  // They are told as they are now, the trace as it was before the stack forced it.
  variables.vbwCatchException = false;
  variables.mOldTraceProc = false;
  variables.vbwScreenshot = false;
  EXPECT_EQ(Settings(), LogLines{"vbwInitializeProtector(False, True, False, True, True, False)"});
}

TEST_F(Protector, StackOf65_KeepsThe64Outermost) {
  std::vector<std::u16string> texts;
  std::vector<ProcedureName> names;
  for (int level = 1; level <= 65; ++level) texts.push_back(u"p" + std::u16string(DecimalText(level)));
  for (const std::u16string& text : texts) names.push_back({&kModule, text});
  for (const ProcedureName& name : names) vbwProtector::vbwProcIn(name);

  EXPECT_EQ(variables.mStackCalls, 65);
  EXPECT_EQ(NameAt(1), "Sample.p1");
  EXPECT_EQ(NameAt(63), "Sample.p63");
  EXPECT_EQ(NameAt(64), "Sample.p64");

  for (int out = 0; out < 65; ++out) vbwProtector::vbwProcOut(names[0]);
  EXPECT_EQ(variables.mStackCalls, 0);
  EXPECT_EQ(NameAt(64), "Sample.p64");  // stale, but there
  vbwProtector::vbwProcOut(names[0]);
  EXPECT_EQ(variables.mStackCalls, 0);

  vbwProtector::vbwProcIn(names[9]);
  EXPECT_EQ(variables.mStackCalls, 1);
  EXPECT_EQ(NameAt(1), "Sample.p10");
  EXPECT_EQ(NameAt(2), "Sample.p2");
}

TEST_F(Protector, ProcOut_DoesntCompareNames) {
  static constexpr ProcedureName kOne{&kModule, u"one"};
  static constexpr ProcedureName kOther{&kModule, u"other"};
  vbwProtector::vbwProcIn(kOne);
  vbwProtector::vbwProcIn(kOne);
  vbwProtector::vbwProcOut(kOther);
  EXPECT_EQ(variables.mStackCalls, 1);
}

TEST_F(Protector, DeepRecursion_CostsNoErrorAndIsTold) {
  EXPECT_EQ(Descend(200), 200);
  EXPECT_TRUE(script.log.empty());
  EXPECT_EQ(variables.mStackCalls, 0);

  mStatements.Fail("bottom", 1);
  EXPECT_EQ(Descend(200), 200);
  ASSERT_EQ(script.questions.size(), 1u);
  EXPECT_EQ(script.questions[0].depth, 201);
  EXPECT_EQ(script.questions[0].stack, LogLines(64, "Sample.Descend"));
  EXPECT_EQ(variables.mStackCalls, 0);
}

TEST_F(Protector, DepthBeyondAnInteger_IsAnErrorOfTheStackItself) {
  variables.mStackCalls = 32767;
  mStatements.Do("reached");
  EXPECT_EQ(Descend(1), 1);
  EXPECT_EQ(script.Asked(), LogLines{"6 vbwProtector.vbwProcIn"});
  EXPECT_EQ(script.questions.at(0).description, "Overflow");
  EXPECT_EQ(mStatements.ran, "reached bottom");
  EXPECT_GT(variables.mStackCalls, 32700);
}

TEST_F(Protector, DepthBeyondAnInteger_IsAnErrorInTheLibrarysOwnProceduresToo) {
  variables.mStackCalls = 32767;
  CommonLogger::CloseLog(0);
  EXPECT_EQ(script.Asked(), LogLines{"6 vbwProtector.vbwProcIn"});
}

// The component is handed the count, and may write to it.
TEST_F(Protector, CountThatWasChangedMeanwhile_GoesDownByOneAndNotBelowZero) {
  class CountWriter final : public ForwardingRunTime {
   public:
    using ForwardingRunTime::ForwardingRunTime;
    Date Now() override {
      vbwProtector::variables.mStackCalls = count;
      return mTarget.Now();
    }
    Integer count = 0;
  };
  CountWriter runTime(desk.RunTime());
  platform::current.runTime = &runTime;
  const std::pair<Integer, Integer> cases[] = {{0, 0}, {1, 0}, {2, 1}, {100, 99}};
  for (const auto& [written, left] : cases) {
    runTime.count = written;
    variables.mStackCalls = 5;
    LanguageExtensions::RandomNumber(1, 6);
    EXPECT_EQ(variables.mStackCalls, left) << written;
  }
}

TEST_F(Protector, DepthBeyondAnInteger_IsToldAgainAfterTheTellingFailed) {
  struct Foreign {};
  variables.mStackCalls = 32767;
  script.During([](const std::string&) { throw Foreign(); });
  EXPECT_THROW(Descend(0), Foreign);
  script.During({});
  script.questions.clear();
  variables.mStackCalls = 32767;
  Descend(0);
  EXPECT_EQ(script.Asked(), LogLines{"6 vbwProtector.vbwProcIn"});
}

TEST_F(Protector, Hash_IsModuleNumberAndLineBetweenControlCharacters) {
  const struct {
    const char16_t* module;
    Long number;
    Long line;
    TextView key;
  } cases[] = {
      {u"Sample", 91, 12,
       TextView(u"\0Sample\1"
                u"91\1"
                u"12\0",
                14)},
      {u"", 0, 0,
       TextView(u"\0\1"
                u"0\1"
                u"0\0",
                6)},
      {u"M", -2147220958, -1, TextView(u"\0M\1-2147220958\1-1\0", 18)},
  };
  for (const auto& [module, number, line, key] : cases) {
    EXPECT_EQ(vbwProtector::hash(module, number, line).View(), key) << ToUtf8(key);
  }
}

TEST_F(Protector, AlwaysIgnore_FindsAKeyAmongOthers) {
  const String one = vbwProtector::hash(u"Sample", 91, 12);
  const String two = vbwProtector::hash(u"Other", 6, 3);
  const String both = Concat({one, two});
  EXPECT_TRUE(vbwProtector::alwaysIgnore(both, one));
  EXPECT_TRUE(vbwProtector::alwaysIgnore(both, two));
  EXPECT_TRUE(vbwProtector::alwaysIgnore(both, vbwProtector::hash(u"SAMPLE", 91, 12)));
  EXPECT_FALSE(vbwProtector::alwaysIgnore(u"", one));
  EXPECT_FALSE(vbwProtector::alwaysIgnore(one, two));
  // No key is found within a longer one.
  EXPECT_FALSE(vbwProtector::alwaysIgnore(both, vbwProtector::hash(u"Sample", 91, 1)));
  EXPECT_FALSE(vbwProtector::alwaysIgnore(both, vbwProtector::hash(u"Sample", 1, 12)));
  EXPECT_FALSE(vbwProtector::alwaysIgnore(both, vbwProtector::hash(u"ple", 91, 12)));
  EXPECT_FALSE(vbwProtector::alwaysIgnore(both, vbwProtector::hash(u"Sample", 9, 112)));
}

TEST_F(Protector, Handler_GivesTheComponentsAnswer) {
  const struct {
    Long given;
    Long answer;
    Boolean keepsTheComponent;
  } cases[] = {{0, 0, false}, {3, 3, true},  {4, 4, false}, {5, 5, false},
               {6, 5, false}, {7, 7, false}, {8, 8, true},  {99, 99, false}};
  Long line = 0;
  for (const auto& [given, answer, keepsTheComponent] : cases) {
    SCOPED_TRACE(given);
    script.Answer({given});
    EXPECT_EQ(Ask(1000, u"Sample", ++line), answer);
    EXPECT_EQ(!variables.mErrorParams.IsNothing(), keepsTheComponent);
    variables.mErrorParams = nullptr;
  }
}

TEST_F(Protector, Place_IsModuleAndLineWhateverTheProcedure) {
  script.Answer({Long{6}});
  EXPECT_EQ(Ask(1000, u"Sample", 7, u"P"), 5);
  EXPECT_EQ(Ask(1000, u"Sample", 7, u"Another"), 5);
  EXPECT_EQ(script.questions.size(), 1u);
  EXPECT_EQ(Ask(1000, u"Sampler", 7, u"P"), 0);
  EXPECT_EQ(Ask(1000, u"Sample", 70, u"P"), 0);
  EXPECT_EQ(script.questions.size(), 3u);
}

TEST_F(Protector, MinusOneFromElsewhere_UsesThePreviousErrorsKey) {
  script.Answer({Long{0}, Long{6}});
  Ask(1000, u"Sample", 7);
  const String key = variables.strLastError;
  EXPECT_EQ(key, vbwProtector::hash(u"Sample", 1000, 7));
  EXPECT_EQ(Ask(-1, u"Elsewhere", 9), 5);
  EXPECT_EQ(variables.strLastError, key);
  EXPECT_EQ(script.questions.size(), 2u);
  // The previous error was remembered in its place, and a further -1 goes with it.
  EXPECT_EQ(Ask(1000, u"Sample", 7), 5);
  EXPECT_EQ(Ask(-1, u"Elsewhere", 9), 5);
  EXPECT_EQ(script.questions.size(), 2u);
}

TEST_F(Protector, IgnoredError_LetsGoOfAComponentThatIsThere) {
  script.Answer({Long{6}, Long{8}});
  Ask(1000, u"Sample", 7);
  Ask(1000, u"Sample", 8);
  EXPECT_FALSE(variables.mErrorParams.IsNothing());
  EXPECT_EQ(Ask(1000, u"Sample", 7), 5);
  EXPECT_TRUE(variables.mErrorParams.IsNothing());
}

TEST_F(Protector, ComponentKeptByADump_IsNeitherMadeNorInitialisedAgain) {
  script.Answer({Long{8}, Long{8}, Long{0}});
  Ask(1000);
  Ask(-1);
  Ask(-1);
  EXPECT_EQ(Lines(script.log),
            "born\nvbwInitializeProtector(True, False, False, True, True, True)\nvbwErrorHandler(1000)\n"
            "vbwErrorHandler(-1)\nvbwErrorHandler(-1)\ngone\n");
}

TEST_F(Protector, Component_SeesTheLibrarysOwnDepth) {
  // The arguments are references: what the component writes to the depth is the library's depth from then on.
  class Meddling final : public Dispatch {
   public:
    Variant Invoke(Use, Name member, const Arguments& arguments) override {
      if (member != Name("vbwErrorHandler")) return {};
      for (const Variant& argument : arguments.positional) allByReference = allByReference && argument.IsByRef();
      arguments.positional[1].Assign(u"other words");
      arguments.positional[6].Assign(Long{40});
      return Long{0};
    }
    Long Identity() const override { return 2; }
    bool allByReference = true;
  };
  const auto meddling = New<Meddling>();
  desk.Components().Register(kErrorComponent, [&] { return meddling; });
  Ask(1000);
  EXPECT_TRUE(meddling->allByReference);
  EXPECT_EQ(variables.mStackCalls, 39);
}

TEST_F(Protector, ExitThread_TellsTheComponentAndLetsItGo) {
  script.Answer({Long{3}});
  Ask(1000);
  script.Fail("vbwExitThread");
  vbwProtector::vbwExitThread();
  EXPECT_EQ(script.log.at(3), "vbwExitThread()");
  EXPECT_EQ(script.log.at(4), "gone");
  vbwProtector::vbwExitThread();
  EXPECT_EQ(script.log.size(), 5u);
}

TEST_F(Protector, Forwarders_WithoutAComponent) {
  EXPECT_EQ(vbwProtector::vbwReportParameter(u"name", Long{1}), u"");
  vbwProtector::vbwReportVariable(u"name", Long{1}, 0);
  EXPECT_TRUE(script.log.empty());

  vbwProtector::vbwReportToFile(u"text");
  vbwProtector::vbwOpenDumpFile();
  vbwProtector::vbwReportObject(u"name", 0, Object());
  vbwProtector::vbwCloseDumpFile();
  EXPECT_EQ(script.Asked(), (LogLines{"91 vbwProtector.vbwReportToFile", "91 vbwProtector.vbwOpenDumpFile",
                                      "91 vbwProtector.vbwReportObject", "91 vbwProtector.vbwCloseDumpFile"}));
}

}  // namespace
}  // namespace strandline
