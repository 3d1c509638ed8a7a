// The procedure that docs/design.md shows, to the letter: tools/check compares the two.

#include "foundation/procedure.h"
#include "platform/convert.h"
#include "tests/foundation/foundation_fixture.h"
#include "tests/support/scripted_object.h"

namespace strandline {
namespace {

constexpr ModuleInfo kModuleInfo{u"Example", nullptr};
constexpr ModuleFile kModule{&kModuleInfo};

// shown in docs/design.md
// The width of the bar's first control in pixels, 0 where it can't be read.
Integer WidthOfFirst(const Object& bar) {
  PROCEDURE(Integer, u"WidthOfFirst", bar);
  Object control;
  Long width = 0;
  REPORTS(control, width);
  STEP(control = bar.Get("Controls").ToObject().Get("Item", 1).ToObject());
  CONDITION(isDropped, control.Get("isPriorityDropped").ToBoolean());
  if (isDropped) return here.Leave();
  STEP(width = control.Get("width").ToLong());
  STEP(here.result = ToInteger(width));
  return here.Leave();
}
// until here

// A bar of one control with such members; a member that is Missing fails with 438.
Object Bar(const Variant& dropped, const Variant& width) {
  const Object control(New<ScriptedObject>([=](Use, Name member, const Arguments&) {
    const Variant& value = member == Name("width") ? width : dropped;
    if (value.IsMissing()) Raise(errors::kNoSuchMember);
    return value;
  }));
  const Object controls(New<ScriptedObject>([=](Use, Name, const Arguments&) { return Variant(control); }));
  return New<ScriptedObject>([=](Use, Name, const Arguments&) { return Variant(controls); });
}

class DesignExample : public FoundationTest {};

TEST_F(DesignExample, TellsTheWidthOfAControlThatShows) {
  EXPECT_EQ(WidthOfFirst(Bar(false, Long{80})), 80);
  EXPECT_EQ(WidthOfFirst(Bar(true, Long{80})), 0);
  EXPECT_TRUE(script.questions.empty());
}

TEST_F(DesignExample, AnErrorOfAStatement_EndsInTheTail) {
  EXPECT_EQ(WidthOfFirst(Bar(false, Long{40'000})), 0);
  EXPECT_EQ(script.Asked(), LogLines{"6 Example.WidthOfFirst"});
}

TEST_F(DesignExample, AConditionThatIsPassedOver_EntersItsBlock) {
  script.Answer({Long{5}});
  EXPECT_EQ(WidthOfFirst(Bar(Missing{}, Long{80})), 0);
  EXPECT_EQ(script.Asked(), LogLines{"438 Example.WidthOfFirst"});
}

}  // namespace
}  // namespace strandline
