// The stretches in which a procedure doesn't take its errors to the tail, and what a procedure does for its object.

#include <new>

#include "tests/foundation/foundation_fixture.h"

namespace strandline {
namespace {

constexpr ModuleInfo kModuleInfo{u"Sample", nullptr};
constexpr ModuleFile kModule{&kModuleInfo};

Statements* statements = nullptr;
Error seen;

Long Fallible() {
  PROCEDURE(Long, u"Fallible");
  here.result = 1;
  STEP(statements->Do("callee"));
  return here.result = 2;
}

Long Ignoring() {
  PROCEDURE(Long, u"Ignoring");
  STEP(statements->Do("before"));
  here.IgnoreErrors();
  STEP(statements->Do("one"));
  STEP(here.result = statements->Value("two", Long{2}));
  here.result += Fallible();
  seen = here.LastError();
  here.ClearError();
  here.ReportErrors();
  STEP(statements->Do("after"));
  seen.description = Concat({seen.description, u"/", here.LastError().description});
  return here.Leave();
}

Long IgnoringInACondition() {
  PROCEDURE(Long, u"IgnoringInACondition");
  here.IgnoreErrors();
  CONDITION(yes, statements->Value("asked", false));
  if (yes) STEP(statements->Do("inside"));
  return here.Leave();
}

Long EndingQuietly() {
  PROCEDURE(Long, u"EndingQuietly");
  STEP(statements->Do("before"));
  here.result = 1;
  here.EndQuietly();
  STEP(statements->Do("one"));
  here.result += Fallible();
  STEP(statements->Do("two"));
  return here.result = 9;
}

Long Jumping() {
  PROCEDURE(Long, u"Jumping");
  ATTEMPT(failed, statements->Do("one"));
  here.result = 1;
  ATTEMPT(failed, here.result = statements->Value("two", Long{2}));
  STEP(statements->Do("three"));
  return here.result = 3;
failed:
  seen = here.LastError();
  STEP(statements->Do("label"));
  return here.Leave();
}

enum class Memory { kStep, kAttempt, kIgnored };

Long RunningOutOfMemory(Memory how) {
  PROCEDURE(Long, u"RunningOutOfMemory");
  if (how == Memory::kStep) STEP(throw std::bad_alloc());
  if (how == Memory::kIgnored) {
    here.IgnoreErrors();
    STEP(throw std::bad_alloc());
  }
  if (how == Memory::kAttempt) ATTEMPT(failed, throw std::bad_alloc());
failed:
  seen = here.LastError();
  return here.result = 1;
}

// An object whose only owner is a variable, which its own procedure drops.
class Owned final : public ClassObject {
 public:
  Owned(Ref<Owned>& owner, LogLines& log) : mOwner(owner), mLog(log) {}

  Long DropYourself() {
    METHOD(Long, u"DropYourself");
    mOwner = nullptr;
    mLog.push_back("dropped");
    STEP(statements->Do("after the drop"));
    mLog.push_back("still there");
    return here.result = 1;
  }
  void ReportVariables(Reporter&) const override {}

 private:
  void Terminated() override {
    METHOD(void, u"Class_Terminate");
    mLog.push_back("terminated");
    LogLines& log = mLog;
    STEP(statements->Do("at the end"));
    log.push_back("terminated to the last");
  }

  Ref<Owned>& mOwner;
  LogLines& mLog;
};

class Deviations : public FoundationTest {
 protected:
  Deviations() {
    statements = &mStatements;
    seen = {};
  }
  Statements mStatements;
};

TEST_F(Deviations, IgnoringStretch_GoesOnBehindEachFailureAndAsksNobody) {
  mStatements.Fail("one", 1);
  mStatements.Fail("two", 1, 1001);
  EXPECT_EQ(Ignoring(), 2);
  EXPECT_EQ(mStatements.ran, "before one two callee after");
  EXPECT_EQ(Lines(script.log), "");
  EXPECT_EQ(seen.number, 1001);
  EXPECT_EQ(ToUtf8(seen.description), "failure of two/");
}

TEST_F(Deviations, IgnoringStretch_IsForTheProceduresOwnStatements) {
  mStatements.Fail("callee", 1);
  EXPECT_EQ(Ignoring(), 3);
  EXPECT_EQ(mStatements.ran, "before one two callee after");
  EXPECT_EQ(script.Asked(), LogLines{"1000 Sample.Fallible"});
  EXPECT_EQ(seen.number, 0);
}

TEST_F(Deviations, IgnoringStretch_HasABeginningAndAnEnd) {
  mStatements.Fail("before", 1);
  EXPECT_EQ(Ignoring(), 0);
  EXPECT_EQ(mStatements.ran, "before");
  EXPECT_EQ(script.Asked(), LogLines{"1000 Sample.Ignoring"});

  mStatements = {};
  mStatements.Fail("after", 1);
  EXPECT_EQ(Ignoring(), 4);
  EXPECT_EQ(script.Asked(), (LogLines{"1000 Sample.Ignoring", "1000 Sample.Ignoring"}));
}

TEST_F(Deviations, IgnoredCondition_EntersTheBlockBehindIt) {
  IgnoringInACondition();
  EXPECT_EQ(mStatements.ran, "asked");
  mStatements = {};
  mStatements.Fail("asked", 1);
  IgnoringInACondition();
  EXPECT_EQ(mStatements.ran, "asked inside");
  EXPECT_EQ(Lines(script.log), "");
}

TEST_F(Deviations, QuietEnd_LeavesWithTheResultSoFarAndAsksNobody) {
  mStatements.Fail("one", 1);
  EXPECT_EQ(EndingQuietly(), 1);
  EXPECT_EQ(mStatements.ran, "before one");

  mStatements = {};
  mStatements.Fail("two", 1);
  EXPECT_EQ(EndingQuietly(), 3);
  EXPECT_EQ(mStatements.ran, "before one callee two");
  EXPECT_EQ(Lines(script.log), "");
  EXPECT_EQ(variables.mStackCalls, 0);
}

TEST_F(Deviations, QuietEnd_IsNotForCalleesNorForWhatStandsBeforeIt) {
  mStatements.Fail("callee", 1);
  EXPECT_EQ(EndingQuietly(), 9);
  EXPECT_EQ(script.Asked(), LogLines{"1000 Sample.Fallible"});
  mStatements.Fail("before", 1);
  EXPECT_EQ(EndingQuietly(), 0);
  EXPECT_EQ(script.Asked(), (LogLines{"1000 Sample.Fallible", "1000 Sample.EndingQuietly"}));
}

TEST_F(Deviations, Jump_GoesToItsLabelAndAsksNobody) {
  const struct {
    const char* failing;
    const char* ran;
    Long result;
  } cases[] = {{"one", "one label", 0}, {"two", "one two label", 1}};
  for (const auto& [failing, ran, result] : cases) {
    SCOPED_TRACE(failing);
    mStatements = {};
    mStatements.Fail(failing, 1, 77);
    EXPECT_EQ(Jumping(), result);
    EXPECT_EQ(mStatements.ran, ran);
    EXPECT_EQ(seen.number, 77);
    EXPECT_EQ(ToUtf8(seen.description), std::string("failure of ") + failing);
  }
  EXPECT_EQ(Lines(script.log), "");
}

TEST_F(Deviations, Jump_LeavesTheOtherStatementsToTheTail) {
  EXPECT_EQ(Jumping(), 3);
  EXPECT_EQ(mStatements.ran, "one two three");

  mStatements = {};
  mStatements.Fail("three", 1);
  EXPECT_EQ(Jumping(), 2);
  EXPECT_EQ(mStatements.ran, "one two three");
  mStatements = {};
  mStatements.Fail("one", 1);
  mStatements.Fail("label", 1, 1001);
  EXPECT_EQ(Jumping(), 0);
  EXPECT_EQ(mStatements.ran, "one label");
  EXPECT_EQ(script.Asked(), (LogLines{"1000 Sample.Jumping", "1001 Sample.Jumping"}));
}

TEST_F(Deviations, LackOfMemory_IsAnErrorLikeAnyOther) {
  EXPECT_EQ(RunningOutOfMemory(Memory::kStep), 0);
  EXPECT_EQ(script.Asked(), LogLines{"7 Sample.RunningOutOfMemory"});
  script.Answer({Long{5}});
  EXPECT_EQ(RunningOutOfMemory(Memory::kStep), 1);
  EXPECT_EQ(script.questions.back().description, "Out of memory");

  for (const Memory how : {Memory::kAttempt, Memory::kIgnored}) {
    seen = {};
    EXPECT_EQ(RunningOutOfMemory(how), 1);
    EXPECT_EQ(seen.number, 7);
    EXPECT_EQ(ToUtf8(seen.description), "Out of memory");
  }
  EXPECT_EQ(script.questions.size(), 2u);
}

TEST_F(Deviations, Procedure_KeepsItsObjectAlive) {
  LogLines log;
  Ref<Owned> owner;
  owner = New<Owned>(owner, log);
  EXPECT_EQ(owner->DropYourself(), 1);
  EXPECT_EQ(log, (LogLines{"dropped", "still there", "terminated", "terminated to the last"}));
  EXPECT_EQ(variables.mStackCalls, 0);
}

TEST_F(Deviations, ProcedureThatFails_LetsItsObjectGoOnlyThen) {
  LogLines log;
  Ref<Owned> owner;
  owner = New<Owned>(owner, log);
  mStatements.Fail("after the drop", 1);
  mStatements.Fail("at the end", 1);
  script.During([&](const std::string& member) { log.push_back(member); });
  EXPECT_EQ(owner->DropYourself(), 0);
  EXPECT_EQ(log, (LogLines{"dropped", "vbwInitializeProtector", "vbwErrorHandler", "terminated",
                           "vbwInitializeProtector", "vbwErrorHandler"}));
  EXPECT_EQ(script.questions.back().procedure, "Class_Terminate");
}

}  // namespace
}  // namespace strandline
