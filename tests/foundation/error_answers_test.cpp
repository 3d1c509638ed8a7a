// What a procedure does with each answer to its error, wherever the failing statement stands.

#include "tests/foundation/foundation_fixture.h"

namespace strandline {
namespace {

constexpr ModuleInfo kModuleInfo{u"Sample", nullptr};
constexpr ModuleFile kModule{&kModuleInfo};
constexpr ModuleFile kSecondFile{&kModuleInfo, 5000};

Statements* statements = nullptr;
Long lineOfStatement = 0;

Long Straight() {
  PROCEDURE(Long, u"Straight");
  STEP(statements->Do("first"));
  here.result = 1;
  STEP(statements->Do("middle"));
  here.result = 2;
  STEP(statements->Do("last"));
  here.result = 3;
  return here.Leave();
}

Long Loop() {
  PROCEDURE(Long, u"Loop");
  for (int turn = 1; turn <= 3; ++turn) {
    STEP(statements->Do("turn" + std::to_string(turn)));
    here.result += 1;
  }
  STEP(statements->Do("after"));
  here.result += 10;
  return here.Leave();
}

Long Choice() {
  PROCEDURE(Long, u"Choice");
  CONDITION(yes, statements->Value("asked", false));
  if (yes) {
    STEP(statements->Do("inside"));
    return here.result = 1;
  }
  STEP(statements->Do("outside"));
  return here.result = 2;
}

Long LoopUnderCondition() {
  PROCEDURE(Long, u"LoopUnderCondition");
  for (;;) {
    CONDITION(more, statements->Value("more", false));
    if (!more) break;
    STEP(statements->Do("body"));
    here.result += 1;
  }
  STEP(statements->Do("after"));
  return here.Leave();
}

Long Assignment() {
  PROCEDURE(Long, u"Assignment");
  here.result = 5;
  STEP(here.result = statements->Value("value", Long{7}));
  STEP(statements->Do("after"));
  return here.Leave();
}

Long MarkedLine() {
  PROCEDURE(Long, u"MarkedLine");
  here.result = 1;
  lineOfStatement = __LINE__ + 1;
  STEP(statements->Do("here"));
  here.result = 2;
  STEP(statements->Do("there"));
  here.result = 3;
  return here.Leave();
}

namespace second_file {
constexpr ModuleFile kModule = kSecondFile;
void InTheSecondFile() {
  PROCEDURE(void, u"InTheSecondFile");
  lineOfStatement = __LINE__ + 1;
  STEP(statements->Do("second"));
}
}  // namespace second_file

String Outer() {
  PROCEDURE(String, u"Outer[Get]");
  const Long inner = Straight();
  statements->ran += " and " + std::to_string(inner);
  STEP(statements->Do("own"));
  return here.result = u"done";
}

class ErrorAnswers : public FoundationTest {
 protected:
  ErrorAnswers() { statements = &mStatements; }
  Statements mStatements;
};

enum class Outcome { kLeaves, kGoesOn, kRunsAgain };

struct Ending {
  const char* ran;
  Long result;
};

struct Position {
  const char* what;
  Long (*procedure)();
  const char* failing;
  Ending leaves;
  Ending goesOn;
  Ending runsAgain;

  const Ending& EndingFor(Outcome outcome) const {
    return outcome == Outcome::kLeaves ? leaves : outcome == Outcome::kGoesOn ? goesOn : runsAgain;
  }
};

const Position kPositions[] = {
    {"the first statement", &Straight, "first", {"first", 0}, {"first middle last", 3}, {"first first middle last", 3}},
    {"a statement in the middle",
     &Straight,
     "middle",
     {"first middle", 1},
     {"first middle last", 3},
     {"first middle middle last", 3}},
    {"the last statement",
     &Straight,
     "last",
     {"first middle last", 2},
     {"first middle last", 3},
     {"first middle last last", 3}},
    {"a statement in a loop",
     &Loop,
     "turn2",
     {"turn1 turn2", 1},
     {"turn1 turn2 turn3 after", 13},
     {"turn1 turn2 turn2 turn3 after", 13}},
    {"the condition of a choice", &Choice, "asked", {"asked", 0}, {"asked inside", 1}, {"asked asked outside", 2}},
    {"the condition of a loop",
     &LoopUnderCondition,
     "more",
     {"more", 0},
     {"more body more after", 1},
     {"more more after", 0}},
    {"the assignment of the result", &Assignment, "value", {"value", 5}, {"value after", 5}, {"value value after", 7}},
};

struct Answers {
  std::vector<Variant> answers;
  Outcome outcome;
  int questions;
  bool endsTheThread = false;
};

const Answers kAnswers[] = {
    {{Long{0}}, Outcome::kLeaves, 1},
    {{Long{3}}, Outcome::kLeaves, 1, true},
    {{Long{4}}, Outcome::kRunsAgain, 1},
    {{Long{5}}, Outcome::kGoesOn, 1},
    {{Long{6}}, Outcome::kGoesOn, 1},
    {{Long{7}}, Outcome::kLeaves, 1},
    {{Long{1}}, Outcome::kLeaves, 1},
    {{Long{9}}, Outcome::kLeaves, 1},
    {{Long{-1}}, Outcome::kLeaves, 1},
    {{Variant()}, Outcome::kLeaves, 1},
    {{Integer{5}}, Outcome::kGoesOn, 1},
    {{u"4"}, Outcome::kRunsAgain, 1},
    {{u"ignore"}, Outcome::kLeaves, 1},
    {{Object()}, Outcome::kLeaves, 1},
    {{Long{8}, Long{0}}, Outcome::kLeaves, 2},
    {{Long{8}, Long{3}}, Outcome::kLeaves, 2, true},
    {{Long{8}, Long{4}}, Outcome::kRunsAgain, 2},
    {{Long{8}, Long{5}}, Outcome::kGoesOn, 2},
    {{Long{8}, Long{6}}, Outcome::kGoesOn, 2},
    {{Long{8}, Long{7}}, Outcome::kLeaves, 2},
    {{Long{8}, Long{8}, Long{5}}, Outcome::kGoesOn, 3},
    {{Long{8}, Long{8}, Long{8}, Long{0}}, Outcome::kLeaves, 4},
};

std::string Name(const std::vector<Variant>& answers) {
  std::string name = "answers";
  for (const Variant& answer : answers) name += " " + Shown(answer);
  return name;
}

TEST_F(ErrorAnswers, EachAnswer_IsObeyedAtEachStatement) {
  for (const Position& position : kPositions) {
    for (const Answers& row : kAnswers) {
      SCOPED_TRACE(Name(row.answers) + " at " + position.what);
      mStatements = {};
      mStatements.Fail(position.failing, 1);
      script = {};
      script.Answer(row.answers);
      Load(desk.Services());

      const Long result = position.procedure();

      const Ending& ending = position.EndingFor(row.outcome);
      EXPECT_EQ(mStatements.ran, ending.ran);
      EXPECT_EQ(result, ending.result);
      EXPECT_EQ(script.questions.size(), static_cast<std::size_t>(row.questions));
      EXPECT_EQ(script.CallsOf("vbwExitThread").size(), row.endsTheThread ? 1u : 0u);
      EXPECT_EQ(script.CallsOf("vbwOpenDumpFile").size(), static_cast<std::size_t>(row.questions - 1));
      EXPECT_EQ(script.log.back(), "gone");
      EXPECT_TRUE(variables.mErrorParams.IsNothing());
      EXPECT_EQ(variables.mStackCalls, 0);
    }
  }
}

TEST_F(ErrorAnswers, NoError_AsksNobody) {
  EXPECT_EQ(Straight(), 3);
  EXPECT_EQ(Loop(), 13);
  EXPECT_EQ(Lines(script.log), "");
}

TEST_F(ErrorAnswers, Retry_RunsTheStatementUntilItSucceedsOrIsGivenUp) {
  mStatements.Fail("middle", 3);
  script.Answer({Long{4}, Long{4}, Long{4}});
  EXPECT_EQ(Straight(), 3);
  EXPECT_EQ(mStatements.ran, "first middle middle middle middle last");

  mStatements = {};
  mStatements.Fail("middle", Statements::kAlways);
  script.Answer({Long{4}, Long{4}, Long{5}});
  EXPECT_EQ(Straight(), 3);
  EXPECT_EQ(mStatements.ran, "first middle middle middle last");

  mStatements = {};
  mStatements.Fail("middle", Statements::kAlways);
  script.Answer({Long{4}, Long{0}});
  EXPECT_EQ(Straight(), 1);
  EXPECT_EQ(mStatements.ran, "first middle middle");
}

TEST_F(ErrorAnswers, EachQuestion_HasAComponentOfItsOwnUnlessADumpKeepsIt) {
  mStatements.Fail("first", 1);
  mStatements.Fail("last", 1);
  script.Answer({Long{5}, Long{0}});
  Straight();
  const std::string one =
      "born\nvbwInitializeProtector(True, False, False, True, True, True)\nvbwErrorHandler(1000)\ngone\n";
  EXPECT_EQ(Lines(script.log), one + one);
}

TEST_F(ErrorAnswers, Abort_EndsTheThreadWithTheComponentThatWasAsked) {
  mStatements.Fail("middle", 1);
  script.Answer({Long{3}});
  EXPECT_EQ(Straight(), 1);
  EXPECT_EQ(Lines(script.log),
            "born\nvbwInitializeProtector(True, False, False, True, True, True)\nvbwErrorHandler(1000)\n"
            "vbwExitThread()\ngone\n");
}

TEST_F(ErrorAnswers, Question_BearsTheErrorAndThePlace) {
  mStatements.Fail("here", 1, -2147220958);
  MarkedLine();
  ASSERT_EQ(script.questions.size(), 1u);
  const Question& question = script.questions.front();
  EXPECT_EQ(question.number, -2147220958);
  EXPECT_EQ(question.description, "failure of here");
  EXPECT_EQ(question.project, "Strandline");
  EXPECT_EQ(question.module, "Sample");
  EXPECT_EQ(question.procedure, "MarkedLine");
  EXPECT_EQ(question.line, lineOfStatement);
}

TEST_F(ErrorAnswers, Question_OfAModulesSecondFileHasALineOfItsOwn) {
  mStatements.Fail("second", 1);
  second_file::InTheSecondFile();
  ASSERT_EQ(script.questions.size(), 1u);
  EXPECT_EQ(script.questions.front().module, "Sample");
  EXPECT_EQ(script.questions.front().line, 5000 + lineOfStatement);
}

TEST_F(ErrorAnswers, Question_BearsTheStackOfNames) {
  mStatements.Fail("middle", 1);
  mStatements.Fail("own", 1);
  Outer();
  ASSERT_EQ(script.questions.size(), 2u);
  EXPECT_EQ(script.questions[0].Running(),
            (LogLines{"Sample.Outer[Get]", "Sample.Straight", "vbwProtector.vbwErrorHandler"}));
  EXPECT_EQ(script.questions[0].procedure, "Straight");
  EXPECT_EQ(script.questions[1].Running(), (LogLines{"Sample.Outer[Get]", "vbwProtector.vbwErrorHandler"}));
  EXPECT_EQ(script.questions[1].procedure, "Outer[Get]");
  EXPECT_EQ(script.questions[0].stack.size(), 64u);
}

TEST_F(ErrorAnswers, FailedFunction_GivesWhatItHasAndItsCallerGoesOn) {
  mStatements.Fail("first", 1);
  EXPECT_EQ(Outer(), u"done");
  EXPECT_EQ(mStatements.ran, "first and 0 own");

  mStatements = {};
  mStatements.Fail("own", 1);
  EXPECT_EQ(Outer(), u"");
  EXPECT_EQ(mStatements.ran, "first middle last and 3 own");
}

TEST_F(ErrorAnswers, IgnoreAlways_SilencesThatNumberAtThatLineForGood) {
  mStatements.Fail("here", Statements::kAlways, 1000);
  script.Answer({Long{6}});
  for (int run = 0; run < 3; ++run) EXPECT_EQ(MarkedLine(), 3);
  EXPECT_EQ(script.questions.size(), 1u);

  // The same number at another line shows.
  mStatements.Fail("there", 1, 1000);
  script.Answer({Long{0}});
  EXPECT_EQ(MarkedLine(), 2);
  ASSERT_EQ(script.questions.size(), 2u);
  EXPECT_EQ(script.questions[1].line, lineOfStatement + 2);

  // Another number at the same line shows.
  mStatements.Fail("here", 1, 1001);
  script.Answer({Long{0}});
  EXPECT_EQ(MarkedLine(), 1);
  EXPECT_EQ(script.questions.size(), 3u);

  // And the first is ignored still.
  mStatements.Fail("here", 1, 1000);
  EXPECT_EQ(MarkedLine(), 3);
  EXPECT_EQ(script.questions.size(), 3u);
}

TEST_F(ErrorAnswers, IgnoreOnce_ForgetsAndAsksTheNextTime) {
  mStatements.Fail("here", 2, 1000);
  script.Answer({Long{5}, Long{5}});
  MarkedLine();
  MarkedLine();
  EXPECT_EQ(script.questions.size(), 2u);
  EXPECT_TRUE(variables.StrRememberErrors.IsEmpty());
}

TEST_F(ErrorAnswers, IgnoreAlwaysAfterADump_SilencesTheErrorThatWasDumped) {
  mStatements.Fail("here", Statements::kAlways, 1000);
  script.Answer({Long{8}, Long{6}});
  EXPECT_EQ(MarkedLine(), 3);
  ASSERT_EQ(script.questions.size(), 2u);
  EXPECT_EQ(script.questions[1].number, -1);
  EXPECT_EQ(script.questions[1].description, "failure of here");
  EXPECT_EQ(script.questions[1].line, lineOfStatement);

  EXPECT_EQ(MarkedLine(), 3);
  EXPECT_EQ(script.questions.size(), 2u);
}

TEST_F(ErrorAnswers, IgnoredAlways_IsForgottenByANewLoad) {
  mStatements.Fail("here", Statements::kAlways, 1000);
  script.Answer({Long{6}});
  MarkedLine();
  Load(desk.Services());
  MarkedLine();
  EXPECT_EQ(script.questions.size(), 2u);
}

}  // namespace
}  // namespace strandline
