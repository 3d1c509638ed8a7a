#pragma once

// Small general helpers: the sort of the formatter names, a random number, the test for an array without storage.

#include "foundation/procedure.h"

namespace strandline::LanguageExtensions {

struct Variables {
  Boolean mInIDE = false;  // True only by hand, under a development environment
};
inline Variables variables;

Boolean InIDE();

// True exactly when the array was never sized, or was erased.
Boolean isEmptyArrayByte(const Array<Byte>& values);

// Sorts in place from one index to the other, by character codes. Not stable. Raises 6 when the sum of the indexes
// leaves an Integer, 9 when an index leaves the array.
void QuickSortString(Array<String>& values, Integer intBottom, Integer intTop);

// From Lower to Upper, both included; raises 6 for bounds whose span leaves a Long. Two calls within the clock's
// resolution give the same number.
Long RandomNumber(Long Lower, Long Upper);

void ReportModule(Reporter& to);
inline constexpr ModuleInfo kModuleInfo{u"LanguageExtensions", &ReportModule};

}  // namespace strandline::LanguageExtensions
