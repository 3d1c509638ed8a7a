#pragma once

// Which top-level window belongs to the active document, which Word's object model can't tell; how that window comes to
// the front across threads; and the save prompt at the close of a document.

#include "foundation/procedure.h"

namespace strandline::CommonWordWindowFunctions {

void ActivateActiveDocumentWindow();

// True when the change was granted or nothing was needed. A window that is in front already isn't shown either.
Boolean ForceForegroundWindow(Long hwnd);

// The document's top-level window, 0 when none was found: the active window of Word's class before any title, then the
// first whose title holds the document's name. inOutlook2000 is set to True when the search had to go on to Outlook's
// windows, whether or not it found one there, and stays as it was otherwise.
Long ActiveDocumentHandle(Boolean& inOutlook2000);
Long ActiveDocumentHandle();
Long ActiveDocumentHandleImpl(const String& className, const String& name);

// Asks about unsaved changes; True means that the close is to be cancelled.
Boolean CancelCloseDueToSave(const Object& doc);

}  // namespace strandline::CommonWordWindowFunctions
