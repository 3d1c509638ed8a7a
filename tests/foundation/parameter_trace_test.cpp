// The text of a procedure's parameters, and who hears of procedures while parameters are traced.

#include <algorithm>

#include "foundation/LanguageExtensions.h"
#include "tests/foundation/foundation_fixture.h"
#include "tests/foundation/told.h"

namespace strandline {
namespace {

constexpr ModuleInfo kModuleInfo{u"Sample", nullptr};
constexpr ModuleFile kModule{&kModuleInfo};

void None() { PROCEDURE(void, u"None"); }
void One(Long count) { PROCEDURE(void, u"One", count); }
void Three(Long count, const String& name, Boolean flag) { PROCEDURE(void, u"Three", count, name, flag); }
void WithRecord(const Rect& box, Long count) { PROCEDURE(void, u"WithRecord", box, count); }
void Nested() {
  PROCEDURE(void, u"Nested");
  One(1);
  None();
}
void Failing(Long count) {
  PROCEDURE(void, u"Failing", count);
  STEP(Raise(9));
}

class ParameterTrace : public FoundationTest {
 protected:
  void CallAll() {
    None();
    One(-7);
    Three(1, u"two", true);
    WithRecord({1, 2, 3, 4}, 5);
  }
};

TEST_F(ParameterTrace, WithoutAnErrorAtHand_TheItemsAreEmpty) {
  LoadWithTrace();
  ToldProcedures told;
  CallAll();
  EXPECT_EQ(told.texts, (LogLines{"()", "() ", "(, , ) ", "(, , , , ) "}));
  EXPECT_TRUE(script.log.empty());
}

TEST_F(ParameterTrace, WhileAnErrorIsHandled_TheComponentWritesTheItems) {
  LoadWithTrace();
  ToldProcedures told;
  script.During([this](const std::string& member) {
    if (member == "vbwErrorHandler") CallAll();
  });
  script.Answer({Long{0}});
  Failing(1);
  ASSERT_EQ(told.texts.size(), 5u);
  EXPECT_EQ(told.texts[0], "() ");  // of the failing procedure itself
  EXPECT_EQ(Lines({told.texts.begin() + 1, told.texts.end()}),
            "()\n(count=-7) \n(count=1, name='two', flag=True) \n"
            "(box.left=1, box.top=2, box.right=3, box.bottom=4, count=5) \n");
}

TEST_F(ParameterTrace, TextIsBuiltAtTheEntryOfEachProcedureEvenUnheard) {
  LoadWithTrace();
  script.During([this](const std::string& member) {
    if (member == "vbwErrorHandler") CallAll();
  });
  Failing(1);
  EXPECT_EQ(
      Lines(script.CallsOf("vbwReportParameter")),
      "vbwReportParameter('count', -7)\nvbwReportParameter('count', 1)\nvbwReportParameter('name', 'two')\n"
      "vbwReportParameter('flag', True)\nvbwReportParameter('box.left', 1)\nvbwReportParameter('box.top', 2)\n"
      "vbwReportParameter('box.right', 3)\nvbwReportParameter('box.bottom', 4)\nvbwReportParameter('count', 5)\n");
}

TEST_F(ParameterTrace, ComponentThatFails_LeavesItemsEmptyAndIsNotAsked) {
  LoadWithTrace();
  ToldProcedures told;
  script.Fail("vbwReportParameter");
  script.During([](const std::string& member) {
    if (member == "vbwErrorHandler") Three(1, u"two", true);
  });
  Failing(1);
  EXPECT_EQ(told.texts.back(), "(, , ) ");
  EXPECT_EQ(script.questions.size(), 1u);
}

TEST_F(ParameterTrace, WithoutTheSwitch_NothingIsBuiltAndNobodyHears) {
  ToldProcedures told;
  script.During([this](const std::string& member) {
    if (member == "vbwErrorHandler") CallAll();
  });
  Failing(1);
  EXPECT_EQ(script.questions.size(), 1u);
  EXPECT_TRUE(told.calls.empty());
  EXPECT_TRUE(told.protector.empty());
  EXPECT_TRUE(script.CallsOf("vbwReportParameter").empty());
}

TEST_F(ParameterTrace, Observer_HearsEachProcedureAtItsEntry) {
  LoadWithTrace();
  ToldProcedures told;
  Nested();
  LanguageExtensions::RandomNumber(5, 5);
  EXPECT_EQ(told.calls, (LogLines{"Sample.Nested()", "Sample.One(count=1)", "Sample.None()",
                                  "LanguageExtensions.RandomNumber(Lower=5 Upper=5)"}));
}

TEST_F(ParameterTrace, Observer_HearsTheHandlersSixParameters) {
  LoadWithTrace();
  ToldProcedures told;
  vbwProtector::vbwErrorHandler(9, u"words", u"Strandline", u"M", u"P", 3);
  const auto handler = std::find_if(told.protector.begin(), told.protector.end(),
                                    [](const std::string& call) { return call.find("vbwErrorHandler") != call.npos; });
  ASSERT_NE(handler, told.protector.end());
  EXPECT_EQ(*handler,
            "vbwProtector.vbwErrorHandler(errNumber=9 ErrDescription='words' ErrProject='Strandline' ErrSource='M' "
            "ErrProcedure='P' errLine=3)");
}

TEST_F(ParameterTrace, StackIsKeptWithAndWithoutTheSwitch) {
  for (const bool trace : {false, true}) {
    SCOPED_TRACE(trace);
    desk.RunTime().SetCommandLine(trace ? u"/trace" : u"");
    Load(desk.Services());
    script.questions.clear();
    Failing(1);
    ASSERT_EQ(script.questions.size(), 1u);
    EXPECT_EQ(script.questions[0].Running(), (LogLines{"Sample.Failing", "vbwProtector.vbwErrorHandler"}));
    EXPECT_EQ(variables.mStackCalls, 0);
  }
}

TEST_F(ParameterTrace, SwitchedOffStack_AnnouncesNothing) {
  variables.vbwTraceProc = false;
  script.During([this](const std::string&) { EXPECT_EQ(variables.mStackCalls, 0); });
  Failing(1);
  EXPECT_EQ(script.questions.size(), 1u);
  EXPECT_TRUE(script.questions[0].Running().empty());
}

}  // namespace
}  // namespace strandline
