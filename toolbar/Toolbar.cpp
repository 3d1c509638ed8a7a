// The life of a toolbar: finding the bar's window, hooking it, following it, letting it go.

#include "toolbar/Toolbar.h"

#include "drawing/ToolbarUtilities.h"
#include "foundation/CommonLogger.h"
#include "foundation/SleepReplacement.h"
#include "platform/convert.h"
#include "platform/platform.h"
#include "wordaccess/CommonPropertyFunctions.h"
#include "wordaccess/CommonWordInteractionFunctions.h"
#include "wordaccess/CommonWordWindowFunctions.h"

namespace strandline {

using CommonWordInteractionFunctions::ActiveDocument;
using CommonWordInteractionFunctions::activeWindow;
using CommonWordInteractionFunctions::Documents;

namespace {

constexpr ModuleInfo kModuleInfo{u"Toolbar", nullptr};
constexpr ModuleFile kModule{&kModuleInfo};

constexpr Long kStepOfWait = 50;             // milliseconds
constexpr Long kPatienceBeforeForce = 3000;  // milliseconds

// Word's window states.
constexpr Long kNormal = 0;
constexpr Long kMaximised = 1;
constexpr Long kMinimised = 2;

// The product's name is read afresh at each of its places.
String TextOfPatience() {
  const auto productName = [] { return ToolbarUtilities::variables.productState.Get("productName").ToText(); };
  return Concat({u"It appears that Word is taking a long time to show the ", productName(),
                 u" toolbar. This usually happens only on the first time after installation. ", productName(),
                 u" will resize your window to force Word to display the toolbar. ",
                 u"Please wait a few seconds after that for the ", productName(), u" toolbar to appear."});
}

// The variable that receives a hook's event: the hook that stands in it tells the sink, and no other does.
void SetHook(Ref<Subclasser>& hook, Ref<Subclasser> made, MessageSink* sink) {
  if (hook) hook->SetSink(nullptr);
  hook = std::move(made);
  if (hook) hook->SetSink(sink);
}

}  // namespace

// odd: endless-wait
void Toolbar::Initialize(Long parentHwnd) {
  METHOD(void, u"Initialize", parentHwnd);
  Long time = 0;
  REPORTS(time);
  CONDITION(hasDocuments, Documents().Get("Count").ToLong() > 0);
  if (hasDocuments) {
    STEP(Log(Joined(u"Toolbar initialize for ", ActiveDocument().Get("name").ToText(), u" ", Hex{parentHwnd})));
  }
  CONDITION(isHidden, !ToolbarUtilities::CommandBar().Get("visible").ToBoolean());
  if (isHidden) STEP(ToolbarUtilities::CommandBar().Let("visible", true));
  mParentHwnd = parentHwnd;
  mHwnd = ToolbarUtilities::ToolbarWindowHandle(parentHwnd);
  // Without an upper limit: the toolbar is never given up on.
  while (mHwnd == 0) {
    Log(u"Waiting for toolbar to show up", CommonLogger::kNoteworthy);
    SleepReplacement::Wait(kStepOfWait, parentHwnd);
    mHwnd = ToolbarUtilities::ToolbarWindowHandle(parentHwnd);
    STEP(time = ToLong(std::int64_t{time} + kStepOfWait));
    if (time != kPatienceBeforeForce) continue;
    STEP(platform::RunTime().MsgBox(TextOfPatience(), msgbox::kOk, nullptr));
    // A change of the window's state is what makes Word show the bar.
    CONDITION(isMaximised, activeWindow().Get("WindowState").ToLong() == kMaximised);
    if (isMaximised) {
      STEP(activeWindow().Let("WindowState", kMinimised));
      STEP(activeWindow().Let("WindowState", kMaximised));
    } else {
      STEP(activeWindow().Let("WindowState", kMinimised));
      STEP(activeWindow().Let("WindowState", kNormal));
    }
    CommonWordWindowFunctions::ActivateActiveDocumentWindow();
  }
  STEP(mDocId = RoundToLong(NumberFromText(CommonPropertyFunctions::docId(ActiveDocument()))));
  STEP(mButtons = New<Buttons>());
  STEP(Required(mButtons).Initialize(parentHwnd, mHwnd, true));
  // The hook comes after the strip, so that no message reaches a half-built one.
  STEP(SetHook(mHook, platform::Subclassers().Create(), this));
  STEP(Required(mHook).Subclass(mHwnd));
  UpdateLumivexIcon();
}

Boolean Toolbar::isDocument(const Object& doc) {
  METHOD(Boolean, u"isDocument", doc);
  STEP(here.result = NumberFromText(CommonPropertyFunctions::docId(doc)) == mDocId);
  return here.Leave();
}

void Toolbar::ClickOnAd() {
  METHOD(void, u"ClickOnAd");
  STEP(Required(mButtons).ClickOnAd());
}

void Toolbar::Redraw() {
  METHOD(void, u"Redraw");
  STEP(Required(mButtons).Redraw(mParentHwnd));
}

void Toolbar::UpdateLumivexIcon() {
  METHOD(void, u"UpdateLumivexIcon");
  STEP(Required(mButtons).UpdateLumivexIcon());
}

void Toolbar::ValueChanged(const Array<Boolean>& ads, const String& value) {
  METHOD(void, u"ValueChanged", ads, value);
  STEP(Required(mButtons).ValueChanged(ads));
}

void Toolbar::ReprimeTimerCycle() {
  METHOD(void, u"ReprimeTimerCycle");
  STEP(Required(mButtons).ReprimeTimerCycle());
}

// Runs inside the event of the very hook that it drops. The old one goes first: the window never has two hooks of ours.
// odd: switch-timer
void Toolbar::SwitchListener(Long newHwnd) {
  METHOD(void, u"SwitchListener", newHwnd);
  Log(u"SwitchListener");
  if (newHwnd == 0) newHwnd = ToolbarUtilities::ToolbarWindowHandle(mParentHwnd);
  if (mHook) STEP(Required(mHook).Unsubclass());
  STEP(SetHook(mHook, platform::Subclassers().Create(), this));
  STEP(Required(mHook).Subclass(newHwnd));
  STEP(Required(mButtons).SwitchListener(newHwnd));
  mHwnd = newHwnd;
}

void Toolbar::Terminate() {
  METHOD(void, u"Terminate");
  if (mQuitting) return;
  mQuitting = true;
  Log(Joined(u"Start Toolbar terminate of ", Hex{mParentHwnd}));
  // A live hook sees a last message before it goes.
  platform::Windows().SendMessageA(mHwnd, wm::kQuit, 0, 0);
  if (mHook) STEP(Required(mHook).Unsubclass());
  SetHook(mHook, nullptr, nullptr);
  mButtons = nullptr;
  Log(Joined(u"End Toolbar terminate of ", Hex{mParentHwnd}));
}

void Toolbar::Terminated() {
  METHOD(void, u"Class_Terminate");
  Terminate();
  Log(Joined(u"Toolbar ", Hex{mParentHwnd}, u" terminated"));
}

void Toolbar::ReportVariables(Reporter& to) const {
  to.List("mParentHwnd, mHwnd, mQuitting, mDocId, mHook", mParentHwnd, mHwnd, mQuitting, mDocId, mHook);
  to.Tell(u"mButtons", Variant(mButtons));
}

void Toolbar::ReportState(StateVisitor& to) const {
  const auto report = [&](const char16_t* name, const ClassObject* object) {
    if (!object) return;
    to.BeginModule(name);
    object->ReportVariables(to);
    to.EndModule();
  };
  to.BeginToolbar();
  report(u"Toolbar", this);
  report(u"Buttons", mButtons.get());
  report(u"Painter", mButtons ? mButtons->painter() : nullptr);
  report(u"Advertisements", mButtons ? mButtons->advert() : nullptr);
  to.EndToolbar();
}

}  // namespace strandline
