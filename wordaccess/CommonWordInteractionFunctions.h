#pragma once

// The single holder of Word's Application object, and the one place that tells Word's versions apart. Each accessor
// fetches its member at the moment of the call, so no object of Word's outlives the statement that wanted it; nothing
// is cached. Before Initialize and after Terminate every accessor fails with 91.

#include "foundation/procedure.h"

namespace strandline::CommonWordInteractionFunctions {

struct Variables {
  Object mWord;
};
inline Variables variables;

// Raises 12345 for Nothing.
void Initialize(const Object& word);
void Terminate();

Object Application();
Object Templates();
Object Dialogs();
Object Documents();
Object activeWindow();
Object ActiveDocument();

// False before Word 2003, which has no reading layout, and without a document.
Boolean ViewingReadingLayout();
// 9 for Word 2000, 10 for 2002, 11 for 2003, 12 and up from 2007 on.
Integer WordVersion();
Boolean isWord2000();
Boolean isWord2002OrEarlier();
Boolean isWord2002OrLater();
Boolean isWord2003OrLater();
Boolean isWord2007OrLater();

void ReportModule(Reporter& to);
inline constexpr ModuleInfo kModuleInfo{u"CommonWordInteractionFunctions", &ReportModule};

}  // namespace strandline::CommonWordInteractionFunctions
