"""Faults made for the rules that look at the compiler's tree: a line with "//! RULE" must be found by RULE, and no
other line by any."""

HEADER = """
#pragma once
#include "foundation/procedure.h"
#include "platform/array.h"
#include "platform/components.h"
namespace strandline {
class Sample : public ClassObject {
 public:
  Integer Clean(Integer number, const Object& bar);
  void Loose(const Object& bar, const Array<Boolean>& list);
  void Dumped(Integer told, Integer untold);
  void Runs(Integer number);
  Boolean Once(Frame& procedure, Integer number, Long& total);
  Boolean Twice(Frame& procedure, Integer number);
  Boolean Never(Frame& procedure);
  Boolean Taking(Frame& procedure);
  void Through();
  void WithoutFrame();
  void vbwReportSomething();
  void ReportVariables(Reporter& to) const override;
  Integer InHeader() const { return mNumber; }  //! frames
  static Integer Static(Integer value) { return value; }  //! frames
 private:
  Integer mNumber = 0;
};
inline Integer FreeInHeader() { return 1; }  //! frames
}
"""

SOURCE = """
#include "ads/Sample.h"
#include "platform/convert.h"
#include "platform/platform.h"
namespace strandline {
namespace {
constexpr ModuleInfo kModuleInfo{u"Sample", nullptr};
constexpr ModuleFile kModule{&kModuleInfo};
Integer Doubled(Integer value) { return ToInteger(value * 2); }
Integer Fourfold(Integer value) { return Doubled(Doubled(value)); }
Integer Half(Integer value) { return static_cast<Integer>(value / 2); }
template <class T> T Same(T value) { return Doubled(value); }
struct Giver {
  virtual ~Giver() = default;
  virtual Integer Give() const = 0;
};
struct Raiser : Giver {
  Integer Give() const override { return Doubled(1); }
};
Integer Given(const Giver& giver) { return giver.Give(); }
}

static Integer Threefold(Integer value) { return ToInteger(value * 3); }

Integer Sample::Clean(Integer number, const Object& bar) {
  METHOD(Integer, u"Clean", number, bar);
  constexpr Integer kMost = 3;
  Graphics& graphics = platform::Graphics();
  Long total = 0;
  Integer i = 0;
  Array<Boolean> list;
  REPORTS(total, i, list);
  STEP(total = Fourfold(number));
  CONDITION(isTall, bar.Get("height").ToLong() > kMost);
  if (isTall) RUN(Once(here, number, total));
  for (i = 0; i < kMost; ++i) STEP(const Integer half = Half(number); list(i) = half > 0);
  for (const Boolean each : list.Elements()) STEP(total = Doubled(each));
  graphics.ReleaseDC(0, Half(number));
  const auto twice = [&](Integer value) { return Doubled(value); };
  STEP(total = twice(number) + Same(number) + Given(Raiser()) + Threefold(number));
  try {
    total = Doubled(number);
  } catch (const Error&) {
    total = 0;
  }
  ATTEMPT(out, total = Doubled(number));
out:
  return here.Leave();
}

Boolean Sample::Once(Frame& procedure, Integer number, Long& total) {
  STRETCH(procedure);
  STEP(total = Doubled(number));
  return here.Done();
}

void Sample::Loose(const Object& bar, const Array<Boolean>& list) {
  METHOD(void, u"Loose", bar, list);
  Long total = 0;
  String text;
  REPORTS(total, text);
  total = ToInteger(total * 2);  //! frames
  total = Fourfold(2);  //! frames
  total = Threefold(2);  //! frames
  total = Same(Integer{2});  //! frames
  total = Given(Raiser());  //! frames
  total = list(3);  //! frames
  bar.Let("height", total);  //! frames
  total = bar.Get("height").ToLong();  //! frames
  text = u"text";  //! frames
  platform::Components().CreateObject(text);  //! frames
  if (total == 0) Raise(errors::kOverflow);  //! frames
  Through();  //! frames
  const auto twice = [&](Integer value) { return Doubled(value); };
  total = twice(2);  //! frames
  try {
    total = Doubled(2);  //! frames
  } catch (...) {
    throw;
  }
  STEP(total = 1); STEP(total = 2);  //! stretches
  const auto step = [&] {  //! stretches
    STEP(total = Doubled(2));
  };
  step();
  step();
}

void Sample::Through() {
  METHOD(void, u"Through");
  Raise(errors::kOverflow);
}

void Sample::WithoutFrame() {  //! frames
  mNumber = 1;
}

void Sample::vbwReportSomething() {  //! frames
  mNumber = 1;
}

void Sample::Dumped(Integer told, Integer untold) {  //! locals
  METHOD(void, u"Dumped", told);
  static Integer sCount = 0;  //! locals
  Integer second = 0;
  Integer first = 0;
  const Integer fixed = 1;  //! locals
  Boolean wanted = false;  //! locals
  REPORTS(first, second);  //! locals
  for (Integer i = 0; i < first; ++i) ++sCount;  //! locals
  if (told == untold) {
    Integer first = fixed;  //! locals
    wanted = first > 0;
  }
  STEP(Integer inside = Doubled(first); inside += 1; second = inside);
}

void Sample::Runs(Integer number) {
  METHOD(void, u"Runs", number);
  if (number == 1) RUN(Twice(here, number));
  if (number == 2) RUN(Twice(here, number));
  RUN(Taking(here));
}

Boolean Sample::Twice(Frame& procedure, Integer number) {  //! stretches
  STRETCH(procedure);
  Integer inside = 0;  //! locals
  STEP(inside = Doubled(number));
  return here.Done();
}

Boolean Sample::Never(Frame& procedure) {  //! stretches
  STRETCH(procedure);
  return here.Done();
}

Boolean Sample::Taking(Frame& procedure) {  //! stretches
  return procedure.Step([] { Doubled(2); });
}

void Sample::ReportVariables(Reporter& to) const { to.List("mNumber", mNumber); }
}
"""

FRAMELESS = [(r".*::ReportVariables", "runs inside a dump"), (r"Sample::Taking", "makes another fault"),
             (r"Sample::NotThere", "names nothing")]
UNCAUGHT = {"Sample::NotThere, ToInteger": "names nothing"}
RAISING_PROCEDURES = {"Sample::Through": "its error goes to the caller", "Sample::NotThere": "names nothing"}
LOCALS = {"Sample::NotThere, number": "names nothing"}
STALE = {"frames": 3, "locals": 1}  # findings in the lists of exceptions themselves

# A design page and what it tells of.
DESIGN = {
    "ads/a.cpp": "// odd: word\n",
    "tests/t.cpp": "// shown in docs/design.md\nint x;\n// until here\nTEST(Suite, Name) {}\n",
}
_EXAMPLE = "<!-- tests/t.cpp -->\n```cpp\nint {};\n```\n"
PAGE = _EXAMPLE.replace("{}", "x") + "| `word` | odd | `Suite.Name` |\n`ads/a.cpp`\n"
PAGE_WITH_FAULTS = (_EXAMPLE.replace("{}", "y") + "| `other` | odd | `Suite.Name` |\n"
                    "`ads/b.cpp`\n| `word-2` | odd | `Suite.Else` |\n")
