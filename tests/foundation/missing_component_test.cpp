// Errors while the error component is missing or fails itself.

#include "tests/foundation/foundation_fixture.h"

namespace strandline {
namespace {

constexpr ModuleInfo kModuleInfo{u"Sample", nullptr};
constexpr ModuleFile kModule{&kModuleInfo};

Statements* statements = nullptr;

Long Callee() {
  PROCEDURE(Long, u"Callee");
  STEP(statements->Do("one"));
  here.result = 1;
  STEP(statements->Do("two"));
  return here.result = 2;
}

Long Caller() {
  PROCEDURE(Long, u"Caller");
  const Long callee = Callee();
  STEP(statements->Do("caller"));
  return here.result = 10 + callee;
}

class MissingComponent : public FoundationTest {
 protected:
  MissingComponent() { statements = &mStatements; }

  // The procedure is left quietly, and everybody else goes on.
  void ExpectQuietEnds() {
    mStatements = {};
    mStatements.Fail("one", 1);
    EXPECT_EQ(Caller(), 10);
    EXPECT_EQ(mStatements.ran, "one caller");
    mStatements = {};
    mStatements.Fail("two", 1);
    EXPECT_EQ(Caller(), 11);
    EXPECT_EQ(mStatements.ran, "one two caller");
    EXPECT_TRUE(variables.mErrorParams.IsNothing());
    EXPECT_EQ(variables.mStackCalls, 0);
  }

  Statements mStatements;
};

TEST_F(MissingComponent, Error_EndsItsProcedureWithoutASign) {
  desk.Components().SetMissing(kErrorComponent, true);
  int boxes = 0;
  desk.RunTime().SetBoxHandler([&](const String&, Long, const String*) { return Long{++boxes}; });
  ExpectQuietEnds();
  EXPECT_TRUE(script.log.empty());
  EXPECT_EQ(boxes, 0);
}

TEST_F(MissingComponent, Component_IsLookedForAtEachError) {
  desk.Components().SetMissing(kErrorComponent, true);
  ExpectQuietEnds();
  desk.Components().SetMissing(kErrorComponent, false);
  mStatements.Fail("one", 1);
  script.Answer({Long{5}});
  EXPECT_EQ(Caller(), 12);
  EXPECT_EQ(script.Asked(), LogLines{"1000 Sample.Callee"});
}

TEST_F(MissingComponent, FailingStart_IsNoAnswer) {
  script.Fail("vbwInitializeProtector");
  script.Answer({Long{5}, Long{5}});
  ExpectQuietEnds();
  EXPECT_EQ(Lines(script.log),
            "born\nvbwInitializeProtector(True, False, False, True, True, True)\ngone\n"
            "born\nvbwInitializeProtector(True, False, False, True, True, True)\ngone\n");
}

TEST_F(MissingComponent, FailingQuestion_IsNoAnswer) {
  script.Fail("vbwErrorHandler");
  script.Answer({Long{5}, Long{5}});
  ExpectQuietEnds();
  EXPECT_EQ(script.questions.size(), 2u);
}

TEST_F(MissingComponent, FailingExit_EndsTheProcedureAllTheSame) {
  script.Fail("vbwExitThread");
  script.Answer({Long{3}, Long{3}});
  ExpectQuietEnds();
  EXPECT_EQ(script.CallsOf("vbwExitThread").size(), 2u);
}

TEST_F(MissingComponent, VanishingAfterADump_IsNoAnswer) {
  mStatements.Fail("one", 1);
  script.Answer({Long{8}, Long{5}});
  script.During([this](const std::string& member) {
    if (member == "vbwCloseDumpFile")
      variables.mErrorParams = nullptr, desk.Components().SetMissing(kErrorComponent, true);
  });
  EXPECT_EQ(Caller(), 10);
  EXPECT_EQ(script.Asked(), LogLines{"1000 Sample.Callee"});
}

TEST_F(MissingComponent, FailingVariables_LeaveTheRestOfTheDump) {
  mStatements.Fail("one", 1);
  script.Answer({Long{8}, Long{5}});
  script.Fail("vbwReportVariable");
  EXPECT_EQ(Caller(), 12);
  EXPECT_EQ(script.Asked(), (LogLines{"1000 Sample.Callee", "-1 Sample.Callee"}));
  EXPECT_EQ(script.CallsOf("vbwReportToFile").size(), 3u);
  EXPECT_EQ(script.CallsOf("vbwCloseDumpFile").size(), 1u);
}

// A line of the dump that fails is an error of the procedure that forwards it. Its answer lets go of the component; the
// next line finds none, which is an error again, and the question after the dump goes to a new one.
TEST_F(MissingComponent, FailingLineOfADump_IsAnErrorOfItsOwn) {
  const struct {
    const char* member;
    LogLines asked;
  } cases[] = {
      {"vbwOpenDumpFile",
       {"1000 Sample.Callee", "50 vbwProtector.vbwOpenDumpFile", "91 vbwProtector.vbwReportToFile",
        "91 vbwProtector.vbwReportToFile", "91 vbwProtector.vbwReportToFile", "91 vbwProtector.vbwReportObject",
        "91 vbwProtector.vbwReportObject", "91 vbwProtector.vbwReportObject", "91 vbwProtector.vbwCloseDumpFile",
        "-1 Sample.Callee"}},
      {"vbwReportToFile",
       {"1000 Sample.Callee", "50 vbwProtector.vbwReportToFile", "91 vbwProtector.vbwReportToFile",
        "91 vbwProtector.vbwReportToFile", "91 vbwProtector.vbwReportObject", "91 vbwProtector.vbwReportObject",
        "91 vbwProtector.vbwReportObject", "91 vbwProtector.vbwCloseDumpFile", "-1 Sample.Callee"}},
      {"vbwReportObject",
       {"1000 Sample.Callee", "50 vbwProtector.vbwReportObject", "91 vbwProtector.vbwReportObject",
        "91 vbwProtector.vbwReportObject", "91 vbwProtector.vbwCloseDumpFile", "-1 Sample.Callee"}},
      {"vbwCloseDumpFile", {"1000 Sample.Callee", "50 vbwProtector.vbwCloseDumpFile", "-1 Sample.Callee"}},
  };
  for (const auto& [member, asked] : cases) {
    SCOPED_TRACE(member);
    mStatements = {};
    mStatements.Fail("two", 1);
    script = {};
    script.Fail(member);
    script.Answer({Long{8}});
    Load(desk.Services());
    EXPECT_EQ(Caller(), 11);
    EXPECT_EQ(Lines(script.Asked()), Lines(asked));
    EXPECT_EQ(mStatements.ran, "one two caller");
    EXPECT_TRUE(variables.mErrorParams.IsNothing());
    EXPECT_EQ(variables.mStackCalls, 0);
  }
}

TEST_F(MissingComponent, ComponentThatCallsBack_FindsTheLibraryInOrder) {
  mStatements.Fail("one", 2);
  script.Answer({Long{0}, Long{5}});
  bool inside = false;
  script.During([&](const std::string& member) {
    if (member != "vbwErrorHandler" || inside) return;
    inside = true;
    EXPECT_EQ(Callee(), 0);
    // The inner error let go of the component while it stands on the stack.
    EXPECT_TRUE(variables.mErrorParams.IsNothing());
  });
  EXPECT_EQ(Caller(), 12);
  EXPECT_EQ(script.Asked(), (LogLines{"1000 Sample.Callee", "1000 Sample.Callee"}));
  EXPECT_EQ(variables.mStackCalls, 0);
}

}  // namespace
}  // namespace strandline
