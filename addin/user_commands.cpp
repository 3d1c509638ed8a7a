// The dispatcher by which the product's macros reach a command by its name, and the commands of the manual, the overlay
// and the advertisement.

#include "addin/Main2.h"
#include "addin/operations.h"
#include "drawing/ToolbarUtilities.h"
#include "foundation/CommonLogger.h"
#include "platform/platform.h"
#include "wordaccess/CommonPropertyFunctions.h"
#include "wordaccess/CommonWordInteractionFunctions.h"
#include "wordaccess/CommonWordWindowFunctions.h"

namespace strandline {

namespace {

constexpr ModuleInfo kModuleInfo{u"Main2", nullptr};
constexpr ModuleFile kModule{&kModuleInfo, 5000};

constexpr Long kFindDialog = 112;
constexpr const char16_t* kManual = u"Quillmere user manual.doc";

// A command is a method; the one property isn't run.
const Main2Operation& Command(const String& name) {
  const std::string text = ToUtf8(name);
  const Main2Operation* const operation = Main2Operation::Find(Name::FromText(text));
  if (!operation || operation->isProperty) Raise(errors::kNoSuchMember);
  return *operation;
}

}  // namespace

String Main2::Execute(String& command) {
  METHOD(String, u"Execute", command);
  CONDITION(hasDocuments, CommonWordInteractionFunctions::Documents().Get("count").ToLong() > 0);
  if (hasDocuments) {
    STEP(Log(Joined(command, u" for ", CommonWordInteractionFunctions::ActiveDocument().Get("name").ToText())));
  }
  STEP(here.result = Command(command).Invoke(*this, {}).ToText());
  return here.Leave();
}

// Other commands can run while messages do; what is written is the opposite of what stood before that.
void Main2::ToggleLumivex() {
  METHOD(void, u"ToggleLumivex");
  const Object& productState = ToolbarUtilities::variables.productState;
  Boolean isOn = false;
  REPORTS(isOn);
  Log(u"ToggleLumivex");
  STEP(isOn = productState.Get("lumivexEnabled").ToBoolean());
  STEP(platform::Windows().DoEvents());
  STEP(productState.Let("lumivexEnabled", !isOn));
  UpdateLumivexIcon();
}

// In the manual the same button means Find. Elsewhere the manual's links are to work on a plain click, and Word's
// option for that stays changed.
// odd: hyperlink-option
String Main2::OpenUserManual() {
  METHOD(String, u"OpenUserManual");
  here.IgnoreErrors();
  if (ToolbarUtilities::inUserManual() && !mSmallToolbar) {
    STEP(CommonWordInteractionFunctions::Dialogs().Get("Item", kFindDialog).ToObject().Call("Show"));
    return here.Leave();
  }
  if (CommonWordInteractionFunctions::isWord2002OrLater()) {
    STEP(
        CommonWordInteractionFunctions::Application().Get("Options").ToObject().Let("CtrlClickHyperlinkToOpen", false));
  }
  STEP(here.result = Concat({CommonPropertyFunctions::InstallPath(), kManual}));
  return here.Leave();
}

void Main2::UseQuillmere() {
  METHOD(void, u"UseQuillmere");
  if (!CommonWordInteractionFunctions::isWord2007OrLater()) return;
  ActivateQuillmereTab();
  STEP(CommonPropertyFunctions::ExecuteQLMCommand(u"InsertReference"));
}

// A window without a toolbar is an error of Toolbars alone, which leaves an Empty entry for it: nothing is clicked.
void Main2::ClickOnAd() {
  METHOD(void, u"ClickOnAd");
  here.IgnoreErrors();
  Long hwnd = CommonWordWindowFunctions::ActiveDocumentHandle();
  REPORTS(hwnd);
  STEP(Required(Toolbars(hwnd)).ClickOnAd());
}

}  // namespace strandline
