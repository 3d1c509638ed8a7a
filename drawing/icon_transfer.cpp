// How a button on Word's bar or in its menu gets a face from the library.

#include "drawing/ToolbarUtilities.h"
#include "foundation/LanguageExtensions.h"
#include "foundation/cCustomClipboard.h"
#include "platform/platform.h"
#include "wordaccess/CommonWordInteractionFunctions.h"
#include "wordaccess/CommonWordWindowFunctions.h"

namespace strandline::ToolbarUtilities {

namespace {
constexpr ModuleFile kModule{&kModuleInfo, 3000};
}  // namespace

// Buttons of Word 2000 have neither picture nor mask.
Boolean usePasteFaceWorkaround() {
  PROCEDURE(Boolean, u"usePasteFaceWorkaround");
  return here.result = CommonWordInteractionFunctions::isWord2000() || LanguageExtensions::InIDE();
}

// odd: rich-text-only
void SetButtonIcon(const Object& button, const Picture& icon) {
  PROCEDURE(void, u"SetButtonIcon", button, icon);
  using CommonWordWindowFunctions::ActiveDocumentHandle;
  Ref<cCustomClipboard> cClip;
  String oldRTF;
  REPORTS(cClip, oldRTF);
  if (!usePasteFaceWorkaround()) {
    ATTEMPT(pasteTheFace, button.Let("Picture", icon));
    ATTEMPT(pasteTheFace, button.Let("Mask", Required(variables.converter).CreateIPictureDispMask(icon)));
    return;
  }
pasteTheFace:
  STEP(cClip = New<cCustomClipboard>());
  here.IgnoreErrors();
  STEP(Required(cClip).ClipboardOpen(ActiveDocumentHandle(), true));
  CONDITION(hasRichText, Required(cClip).IsDataAvailableForFormat(cCustomClipboard::kRichText));
  if (hasRichText) STEP(Required(cClip).GetTextData(oldRTF, cCustomClipboard::kRichText));
  STEP(Required(cClip).ClipboardClose(true));
  // A pasted face keeps no transparency.
  STEP(platform::Clipboard().SetPicture(ReplaceBackgroundWithMenuColor(icon)));
  STEP(button.Call("PasteFace"));
  if (!oldRTF.IsEmpty()) {
    CONDITION(isOpen, Required(cClip).ClipboardOpen(ActiveDocumentHandle(), true).ToBoolean());
    if (isOpen) {
      STEP(Required(cClip).ClearClipboard());
      STEP(Required(cClip).SetTextData(cCustomClipboard::kRichText, oldRTF));
    }
  }
  STEP(Required(cClip).ClipboardClose(false));
}

}  // namespace strandline::ToolbarUtilities
