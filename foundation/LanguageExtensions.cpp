#include "foundation/LanguageExtensions.h"

#include <cmath>
#include <cstring>
#include <utility>

#include "platform/convert.h"
#include "platform/platform.h"

namespace strandline::LanguageExtensions {

namespace {

constexpr ModuleFile kModule{&kModuleInfo};

// The first number, 0 up to but not 1, that a generator gives which was seeded with this moment.
Double FirstRandom(Date seed) {
  std::uint64_t state;
  std::memcpy(&state, &seed.days, sizeof state);
  state += 0x9E3779B97F4A7C15u;
  state = (state ^ (state >> 30)) * 0xBF58476D1CE4E5B9u;
  state = (state ^ (state >> 27)) * 0x94D049BB133111EBu;
  state ^= state >> 31;
  return static_cast<Double>(state >> 11) / 9007199254740992.0;
}

}  // namespace

Boolean InIDE() {
  PROCEDURE(Boolean, u"InIDE");
  return here.result = variables.mInIDE;
}

Boolean isEmptyArrayByte(const Array<Byte>& values) {
  PROCEDURE(Boolean, u"isEmptyArrayByte", values);
  return here.result = !values.IsSized();
}

void QuickSortString(Array<String>& values, Integer intBottom, Integer intTop) {
  PROCEDURE(void, u"QuickSortString", values, intBottom, intTop);
  String pivot;
  Integer intBottomTemp = intBottom;
  Integer intTopTemp = intTop;
  REPORTS(pivot, intBottomTemp, intTopTemp);
  STEP(pivot = values(ToInteger(intBottom + intTop) / 2));
  while (intBottomTemp <= intTopTemp) {
    for (;;) {
      CONDITION(below, values(intBottomTemp) < pivot && intBottomTemp < intTop);
      if (!below) break;
      STEP(intBottomTemp = ToInteger(intBottomTemp + 1));
    }
    for (;;) {
      CONDITION(above, pivot < values(intTopTemp) && intTopTemp > intBottom);
      if (!above) break;
      STEP(intTopTemp = ToInteger(intTopTemp - 1));
    }
    if (intBottomTemp < intTopTemp) STEP(std::swap(values(intBottomTemp), values(intTopTemp)));
    if (intBottomTemp <= intTopTemp) {
      STEP(intBottomTemp = ToInteger(intBottomTemp + 1));
      STEP(intTopTemp = ToInteger(intTopTemp - 1));
    }
  }
  if (intBottom < intTopTemp) QuickSortString(values, intBottom, intTopTemp);
  if (intBottomTemp < intTop) QuickSortString(values, intBottomTemp, intTop);
}

Long RandomNumber(Long Lower, Long Upper) {
  PROCEDURE(Long, u"RandomNumber", Lower, Upper);
  Double random = 0;
  Long span = 0;
  REPORTS(random, span);
  STEP(random = FirstRandom(platform::RunTime().Now()));
  STEP(span = ToLong(std::int64_t{Upper} - Lower + 1));
  STEP(here.result = ToLong(static_cast<std::int64_t>(std::floor(random * span + Lower))));
  return here.Leave();
}

void ReportModule(Reporter& to) { to.Tell(u"mInIDE", variables.mInIDE); }

}  // namespace strandline::LanguageExtensions
