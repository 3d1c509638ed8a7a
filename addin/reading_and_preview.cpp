// The reading layout and the print preview. Word rebuilds its bars for both, so no strip and no hook lives across the
// change: the active window's entry goes before it, and a new one comes when it is over.

#include "addin/Main2.h"
#include "foundation/CommonLogger.h"
#include "wordaccess/CommonWordInteractionFunctions.h"

namespace strandline {

using CommonWordInteractionFunctions::ActiveDocument;
using CommonWordInteractionFunctions::activeWindow;

namespace {
constexpr ModuleInfo kModuleInfo{u"Main2", nullptr};
constexpr ModuleFile kModule{&kModuleInfo, 4000};
}  // namespace

void Main2::ReadingMode() {
  METHOD(void, u"ReadingMode");
  STEP(ToggleReadingMode(!activeWindow().Get("View").ToObject().Get("ReadingLayout").ToBoolean()));
}

void Main2::ReadingModeLayout() {
  METHOD(void, u"ReadingModeLayout");
  ReadingMode();
}

void Main2::CloseReadingMode() {
  METHOD(void, u"CloseReadingMode");
  ToggleReadingMode(false);
}

// Where the view doesn't change, the toolbar does all the same.
void Main2::ToggleReadingMode(Boolean enable) {
  METHOD(void, u"ToggleReadingMode", enable);
  Log(Joined(u"Toggle ReadingMode to ", enable));
  here.IgnoreErrors();
  if (enable) {
    RemoveActiveToolbarEntry(false);
    STEP(activeWindow().Get("View").ToObject().Let("ReadingLayout", true));
    ToolbarVisible(false);
  } else {
    STEP(activeWindow().Get("View").ToObject().Let("ReadingLayout", false));
    ToolbarVisible(true);
    HandleDocumentCreateImpl();
  }
  Log(Joined(u"ReadingMode ", enable, u" end"));
}

// The last document's entry stays and waits, and the creation at the preview's end renews it.
void Main2::FilePrintPreview2() {
  METHOD(void, u"FilePrintPreview2");
  RemoveActiveToolbarEntry(true);
  ToolbarVisible(false);
  STEP(ActiveDocument().Call("PrintPreview"));
}

// A mail has no print preview of ours to end.
void Main2::ClosePreview() {
  METHOD(void, u"ClosePreview");
  if (isOutlookDocument()) return;
  STEP(ActiveDocument().Call("ClosePrintPreview"));
  ToolbarVisible(true);
  HandleDocumentCreateImpl();
}

}  // namespace strandline
